// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pages/FileNamesEdit.h"

#include <QPainter>
#include <QStyleOptionFrame>

namespace {
constexpr int kLongText = 5000;
// As QLineEdit has it.
constexpr int kMargin = 2;
} // namespace

void FileNamesEdit::paintEvent(QPaintEvent *event)
{
    if (hasFocus() || text().size() <= kLongText) {
        QLineEdit::paintEvent(event);
        return;
    }
    QStyleOptionFrame frame;
    initStyleOption(&frame);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &frame, &painter, this);
    const QRect inside = style()
                             ->subElementRect(QStyle::SE_LineEditContents, &frame, this)
                             .marginsRemoved(textMargins());
    const int height = fontMetrics().height();
    const QRect line(inside.left() + kMargin, inside.top() + (inside.height() - height + 1) / 2,
        inside.width(), height);
    painter.setClipRect(inside);
    painter.setPen(palette().color(QPalette::Text));
    // No character is narrower than a pixel.
    painter.drawText(
        line, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, text().left(inside.width()));
}
