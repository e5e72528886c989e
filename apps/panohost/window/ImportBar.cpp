// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/ImportBar.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QStyle>

namespace {

constexpr int kIconSize = 24;
/// A list of tens of thousands helps nobody.
constexpr int kMostListed = 200;
constexpr int kLinesShown = 4;

QStyle::StandardPixmap iconFor(ImportAdvice::Kind kind)
{
    switch (kind) {
    case ImportAdvice::Kind::NextStep:
        return QStyle::SP_MessageBoxInformation;
    case ImportAdvice::Kind::Busy:
        return QStyle::SP_BrowserReload;
    case ImportAdvice::Kind::Problem:
        return QStyle::SP_MessageBoxWarning;
    case ImportAdvice::Kind::Ready:
        return QStyle::SP_DialogApplyButton;
    }
    return QStyle::SP_MessageBoxInformation;
}

} // namespace

ImportBar::ImportBar(QWidget *parent)
    : QFrame(parent)
    , m_icon(new QLabel)
    , m_text(new QLabel)
    , m_progress(new QProgressBar)
    , m_timeLeft(new QLabel)
    , m_cancel(new QPushButton(tr("&Stop reading")))
    , m_retry(new QPushButton(tr("Try a&gain")))
    , m_leaveOut(new QPushButton(tr("&Leave them out")))
    , m_unreadable(new QListWidget)
{
    setFrameShape(QFrame::StyledPanel);
    m_text->setObjectName(QStringLiteral("advice"));
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText); // Names of files may look like tags.
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_progress->setObjectName(QStringLiteral("progress"));
    m_progress->setTextVisible(true);
    m_timeLeft->setObjectName(QStringLiteral("timeLeft"));
    m_cancel->setObjectName(QStringLiteral("stop"));
    m_retry->setObjectName(QStringLiteral("retry"));
    m_leaveOut->setObjectName(QStringLiteral("leaveOut"));
    m_unreadable->setObjectName(QStringLiteral("unreadable"));
    m_unreadable->setAccessibleName(tr("Pictures that cannot be read"));
    m_unreadable->setTextElideMode(Qt::ElideMiddle);
    connect(m_cancel, &QPushButton::clicked, this, &ImportBar::cancelled);
    connect(m_retry, &QPushButton::clicked, this, &ImportBar::retried);
    connect(m_leaveOut, &QPushButton::clicked, this, &ImportBar::leftOut);

    auto *layout = new QGridLayout(this);
    layout->addWidget(m_icon, 0, 0, Qt::AlignTop);
    layout->addWidget(m_text, 0, 1, 1, 2);
    auto *ways = new QHBoxLayout;
    ways->addWidget(m_leaveOut, 0, Qt::AlignTop);
    ways->addWidget(m_retry, 0, Qt::AlignTop);
    layout->addLayout(ways, 0, 3);
    layout->addWidget(m_progress, 1, 1);
    layout->addWidget(m_timeLeft, 1, 2);
    layout->addWidget(m_cancel, 1, 3);
    layout->addWidget(m_unreadable, 2, 1, 1, 3);
    layout->setColumnStretch(1, 1);
}

void ImportBar::show(
    const ImportState &state, const QMap<QString, QString> &unreadable, qint64 timeLeft)
{
    const ImportAdvice advice = adviceFor(state);
    m_icon->setPixmap(
        style()->standardIcon(iconFor(advice.kind), nullptr, this).pixmap(kIconSize, kIconSize));
    m_text->setText(advice.text);

    const bool isReading = state.isReading();
    m_progress->setVisible(isReading);
    m_timeLeft->setVisible(isReading);
    m_cancel->setVisible(isReading);
    if (isReading) {
        const int done = state.read + state.unreadable;
        m_progress->setMaximum(state.pictures);
        m_progress->setValue(done);
        m_progress->setFormat(
            tr("%1 of %Ln pictures", nullptr, state.pictures).arg(QLocale().toString(done)));
        m_timeLeft->setText(timeLeftText(timeLeft));
    }
    m_retry->setVisible(!isReading && !unreadable.isEmpty());
    m_leaveOut->setVisible(state.isWholeWithoutUnreadable());
    showList(unreadable);
}

void ImportBar::showList(const QMap<QString, QString> &unreadable)
{
    m_unreadable->setVisible(!unreadable.isEmpty());
    m_unreadable->clear();
    for (auto entry = unreadable.cbegin(); entry != unreadable.cend(); ++entry) {
        if (m_unreadable->count() == kMostListed) {
            m_unreadable->addItem(
                tr("… and %Ln more", nullptr, int(unreadable.size()) - kMostListed));
            break;
        }
        auto *item = new QListWidgetItem(
            tr("%1: %2").arg(QFileInfo(entry.key()).fileName(), entry.value()), m_unreadable);
        item->setToolTip(entry.key());
    }
    const int lines = std::min(m_unreadable->count(), kLinesShown);
    m_unreadable->setFixedHeight(
        lines * std::max(1, m_unreadable->sizeHintForRow(0)) + 2 * m_unreadable->frameWidth() + 4);
}
