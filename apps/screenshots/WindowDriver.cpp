// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/screenshots/WindowDriver.h"

#include "apps/panohost/window/DroppedFiles.h"
#include "apps/panohost/window/MainWindow.h"

#include <QAbstractButton>
#include <QDialog>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <QWizardPage>

namespace {

/// Milliseconds; a panorama takes a while on a busy machine.
constexpr int kPatience = 300'000;

} // namespace

WindowDriver::WindowDriver(MainWindow &window)
    : m_window(window)
{
}

bool WindowDriver::drop(const QStringList &paths, QWidget *target)
{
    if (!target)
        target = &m_window;
    return dropOn(target, paths);
}

QAbstractButton *WindowDriver::button(const QString &name, QWidget *within) const
{
    if (!within)
        within = &m_window;
    const QList<QAbstractButton *> buttons = within->findChildren<QAbstractButton *>();
    for (QAbstractButton *button : buttons) {
        const QString text = QString(button->text()).remove(QLatin1Char('&'));
        if (button->isVisible() && (button->objectName() == name || text == name))
            return button;
    }
    return nullptr;
}

bool WindowDriver::click(const QString &name, QWidget *within)
{
    QAbstractButton *found = button(name, within);
    if (!found || !found->isEnabled())
        return false;
    QTest::mouseClick(found, Qt::LeftButton);
    return true;
}

QWizardPage *WindowDriver::page() const
{
    const QList<QWizardPage *> pages = m_window.findChildren<QWizardPage *>();
    for (QWizardPage *page : pages) {
        if (page->isVisible())
            return page;
    }
    return nullptr;
}

bool WindowDriver::waitFor(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, kPatience);
}

bool WindowDriver::waitForPictures() const
{
    return waitFor([this] { return page() && page()->isComplete(); });
}

int WindowDriver::withDialogs(const std::function<void()> &action,
    const std::function<void(QWidget *dialog, int number)> &answer)
{
    int count = 0;
    QPointer<QWidget> last;
    QTimer watch;
    watch.setInterval(5);
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || dialog == last || !dialog->isVisible())
            return;
        last = dialog;
        QPointer<QWidget> open = dialog;
        answer(dialog, count++);
        if (open && open->isVisible())
            open->close();
    });
    watch.start();
    action();
    return count;
}

bool WindowDriver::import()
{
    bool isAsPlanned = false;
    withDialogs([this] { click(QStringLiteral("import")); },
        [&isAsPlanned](QWidget *dialog, int number) {
            auto *files = qobject_cast<QFileDialog *>(dialog);
            isAsPlanned = files && number == 0;
            if (files)
                static_cast<QDialog *>(files)->accept();
        });
    return isAsPlanned;
}
