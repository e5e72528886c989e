// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QWizard>
#include <functional>
#include <memory>

class QWizardPage;

/// Measures how long the event loop was kept from running.
class BlockMeter : public QObject {
public:
    BlockMeter();
    void start();
    /// Longest time in milliseconds since start() during which no event was handled.
    double longest() const { return m_longest; }

private:
    QTimer m_timer;
    QElapsedTimer m_last;
    double m_longest = 0;
};

/// A page in the window of a wizard, handed files as a user does.
class PageBench {
public:
    /// Shows \a page and takes it over.
    explicit PageBench(QWizardPage *page);

    QWizardPage &page() const { return *m_page; }
    /// Drops \a files onto the page.
    void drop(const QStringList &files) const;
    /// Presses the wizard's button that accepts the page.
    void accept() const;
    int read() const;
    /// The widget of that name in the page.
    template <class Widget> Widget *widget(const char *name) const
    {
        return m_page->findChild<Widget *>(QLatin1String(name));
    }

    /// Handles events until \a isDone.
    static void runUntil(const std::function<bool()> &isDone);
    /// Handles events until there is nothing more to do.
    static void runUntilIdle();

private:
    std::unique_ptr<QWizard> m_wizard;
    QWizardPage *m_page;
};
