// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/window/HostApplication.h"

#include <QPointer>
#include <functional>

class MainWindow;
class QAbstractButton;
class QFileDialog;
class QMessageBox;
class QWidget;
class QWizardPage;

/// A host whose reading of pictures can be held up.
class DrivenHost final : public HostApplication {
public:
    using HostApplication::HostApplication;

    /// Called in the reader's thread before each picture is read. Set it while nothing is read.
    std::function<void(const QString &path)> beforeReading;

    ImageInfo *ReadImageInfo(const QString &path) override
    {
        if (beforeReading)
            beforeReading(path);
        return HostApplication::ReadImageInfo(path);
    }
};

/// Does with panohost's window what a user does with mouse and keyboard.
class WindowDriver {
public:
    explicit WindowDriver(MainWindow &window);

    /// Drops files and folders on what lies in the middle of \a target, the whole window by
    /// default.
    bool drop(const QStringList &paths, QWidget *target = nullptr);
    /// Clicks the visible button of that name (its object name, or its text without the marks of
    /// shortcuts). False when there is none, or it is disabled.
    bool click(const QString &name, QWidget *within = nullptr);
    QAbstractButton *button(const QString &name, QWidget *within = nullptr) const;

    /// The page of the import under way; null when there is none.
    QWizardPage *page() const;
    /// Waits until \a condition holds, five minutes at most.
    static bool waitFor(const std::function<bool()> &condition);
    /// Waits until the page may be accepted.
    bool waitForPictures() const;

    /// Runs \a action, and \a answer with each dialog that comes meanwhile, in turn. A dialog that
    /// is still open then is rejected. Returns how many came.
    static int withDialogs(const std::function<void()> &action,
        const std::function<void(QWidget *dialog, int number)> &answer);
    /// Accepts a page, and the place that is offered for the project. False when another dialog, or
    /// none, came.
    bool import();

private:
    MainWindow &m_window;
};
