// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/StartPage.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

namespace {

constexpr int kWidth = 640;
constexpr int kIconSize = 48;

QLabel *makeLabel(const QString &text, double size)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * size);
    label->setFont(font);
    return label;
}

/// A button with a picture, a name and sentences that wrap.
class HeadButton final : public QPushButton {
public:
    HeadButton(QIcon icon, const QString &name, const QString &description)
        : m_icon(std::move(icon))
        , m_picture(new QLabel)
    {
        setObjectName(name);
        setAccessibleName(name);
        setAccessibleDescription(description);
        auto *title = makeLabel(name, 1.2);
        QFont font = title->font();
        font.setBold(true);
        title->setFont(font);
        auto *text = makeLabel(description, 1);
        for (QLabel *label : {m_picture, title, text})
            label->setAttribute(Qt::WA_TransparentForMouseEvents);

        auto *layout = new QGridLayout(this);
        layout->setContentsMargins(14, 10, 14, 10);
        layout->setHorizontalSpacing(14);
        layout->addWidget(m_picture, 0, 0, 2, 1, Qt::AlignTop);
        layout->addWidget(title, 0, 1);
        layout->addWidget(text, 1, 1);
        layout->setColumnStretch(1, 1);
        QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
        setAutoDefault(true); // Enter takes it.
        showIcon();
    }

    QSize sizeHint() const override { return layout()->sizeHint(); }
    QSize minimumSizeHint() const override { return layout()->minimumSize(); }
    int heightForWidth(int width) const override { return layout()->heightForWidth(width); }

protected:
    void changeEvent(QEvent *event) override
    {
        QPushButton::changeEvent(event);
        if (event->type() == QEvent::EnabledChange)
            showIcon();
    }

private:
    void showIcon()
    {
        m_picture->setPixmap(
            m_icon.pixmap(kIconSize, isEnabled() ? QIcon::Normal : QIcon::Disabled));
    }

    QIcon m_icon;
    QLabel *m_picture;
};

} // namespace

StartPage::StartPage(QWidget *parent)
    : QWidget(parent)
    , m_heads(new QVBoxLayout)
    , m_notice(new QFrame)
    , m_noticeText(new QLabel)
    , m_hint(makeLabel(tr("Or drop the head's file and the pictures anywhere on this window."), 1))
{
    m_noticeText->setWordWrap(true);
    m_noticeText->setTextFormat(Qt::PlainText); // Names of files may look like tags.
    auto *forget = new QPushButton(tr("&Forget these files"));
    forget->setObjectName(QStringLiteral("forget"));
    connect(forget, &QPushButton::clicked, this, &StartPage::filesForgotten);
    m_notice->setFrameShape(QFrame::StyledPanel);
    m_notice->setObjectName(QStringLiteral("notice"));
    auto *notice = new QHBoxLayout(m_notice);
    notice->addWidget(m_noticeText, 1);
    notice->addWidget(forget, 0, Qt::AlignTop);
    m_notice->hide();

    m_heads->setSpacing(8);
    m_hint->setAlignment(Qt::AlignCenter);

    auto *column = new QWidget;
    column->setMaximumWidth(kWidth);
    auto *content = new QVBoxLayout(column);
    content->addWidget(makeLabel(tr("Which head took the pictures?"), 1.6));
    content->addSpacing(8);
    content->addWidget(m_notice);
    content->addLayout(m_heads);
    content->addSpacing(8);
    content->addWidget(m_hint);
    content->addStretch(2);

    auto *inner = new QWidget;
    auto *centred = new QHBoxLayout(inner);
    centred->addStretch(1);
    centred->addWidget(column, 100);
    centred->addStretch(1);
    auto *scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(inner);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroll);
}

void StartPage::addHead(const QIcon &icon, const QString &name, const QString &description)
{
    auto *button = new HeadButton(icon, name, description);
    const int head = m_buttons.size();
    connect(button, &QAbstractButton::clicked, this, [this, head] { emit chosen(head); });
    m_heads->addWidget(button);
    m_buttons.append(button);
}

void StartPage::showProblem(const QString &problem)
{
    auto *label = makeLabel(problem, 1);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_heads->addWidget(label);
    m_hint->hide();
}

void StartPage::narrow(const QString &sentence, const QVector<int> &suitable)
{
    m_noticeText->setText(sentence);
    m_notice->show();
    for (int head = 0; head < m_buttons.size(); ++head)
        m_buttons[head]->setEnabled(suitable.contains(head));
    if (!suitable.isEmpty())
        m_buttons[suitable.first()]->setFocus();
}

void StartPage::widen()
{
    m_notice->hide();
    for (QAbstractButton *button : qAsConst(m_buttons))
        button->setEnabled(true);
}

void StartPage::prefer(int head)
{
    if (head >= 0 && head < m_buttons.size())
        m_buttons[head]->setFocus();
}
