// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/SummaryPage.h"

#include "apps/panohost/window/MapView.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QUrl>
#include <QVBoxLayout>

SummaryPage::SummaryPage(QWidget *parent)
    : QWidget(parent)
    , m_title(new QLabel)
    , m_path(new QLabel)
    , m_figures(new QFormLayout)
    , m_map(new MapView)
{
    QFont font = m_title->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    m_title->setFont(font);
    m_title->setWordWrap(true);
    // Names of files may look like tags.
    m_title->setTextFormat(Qt::PlainText);
    m_path->setTextFormat(Qt::PlainText);
    m_path->setWordWrap(true);
    m_path->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_map->setObjectName(QStringLiteral("map"));
    m_map->setToolTip(QString());

    auto *open = new QPushButton(tr("&Open in Hugin"));
    open->setObjectName(QStringLiteral("open"));
    auto *folder = new QPushButton(tr("&Show the folder"));
    folder->setObjectName(QStringLiteral("folder"));
    auto *another = new QPushButton(tr("&Import another"));
    another->setObjectName(QStringLiteral("another"));
    m_first = open;
    connect(open, &QPushButton::clicked, this, &SummaryPage::openProject);
    connect(folder, &QPushButton::clicked, this, &SummaryPage::showFolder);
    connect(another, &QPushButton::clicked, this, &SummaryPage::anotherWanted);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton *button : {open, folder, another}) {
        button->setAutoDefault(true); // Enter takes it.
        buttons->addWidget(button);
    }

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    layout->addWidget(m_title);
    layout->addWidget(m_path);
    layout->addLayout(m_figures);
    layout->addWidget(m_map, 1);
    layout->addLayout(buttons);
}

void SummaryPage::show(const QString &project, const QVector<RecordFigure> &figures)
{
    m_project = project;
    const QFileInfo info(project);
    m_title->setText(tr("“%1” is ready").arg(info.fileName()));
    m_path->setText(QDir::toNativeSeparators(info.absoluteFilePath()));
    while (m_figures->rowCount() > 0)
        m_figures->removeRow(0);
    for (const RecordFigure &figure : figures) {
        auto *label = new QLabel(tr("%1:").arg(figure.label));
        auto *value = new QLabel(figure.value);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        value->setWordWrap(true);
        m_figures->addRow(label, value);
    }
}

void SummaryPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_first->setFocus();
}

void SummaryPage::openProject()
{
    const QString hugin = QStandardPaths::findExecutable(QStringLiteral("hugin"));
    if (hugin.isEmpty() ? QDesktopServices::openUrl(QUrl::fromLocalFile(m_project))
                        : QProcess::startDetached(hugin, {m_project}))
        return;
    QMessageBox::information(this, tr("Open in Hugin"),
        tr("Hugin was not found on this computer. Install it (on Debian: the package “hugin”), "
           "then open the project with it:\n%1")
            .arg(QDir::toNativeSeparators(m_project)));
}

void SummaryPage::showFolder()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(m_project).absolutePath()));
}
