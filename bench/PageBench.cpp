// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/PageBench.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWizardPage>

namespace {
constexpr int kTick = 5;
} // namespace

BlockMeter::BlockMeter()
{
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        const double gap = double(m_last.nsecsElapsed()) / 1e6 - kTick;
        m_longest = qMax(m_longest, gap);
        m_last.start();
    });
}

void BlockMeter::start()
{
    m_longest = 0;
    m_last.start();
    m_timer.start(kTick);
}

PageBench::PageBench(QWizardPage *page)
    : m_wizard(std::make_unique<QWizard>())
    , m_page(page)
{
    m_wizard->addPage(page);
    m_wizard->resize(900, 800);
    m_wizard->show();
    runUntilIdle();
}

void PageBench::drop(const QStringList &files) const
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &file : files)
        urls.append(QUrl::fromLocalFile(file));
    data.setUrls(urls);
    const QPoint place = m_page->rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_page, &enter);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_page, &drop);
}

void PageBench::accept() const
{
    m_wizard->button(QWizard::FinishButton)->click();
}

int PageBench::read() const
{
    return m_page->property("imagesRead").toInt();
}

void PageBench::runUntil(const std::function<bool()> &isDone)
{
    while (!isDone())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void PageBench::runUntilIdle()
{
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) { }
}
