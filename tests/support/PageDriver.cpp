// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/PageDriver.h"

#include "tests/support/Files.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QDesktopServices>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPointer>
#include <QScrollArea>
#include <QTabWidget>
#include <QTimer>

namespace {

SeenDialog look(const QFileDialog &dialog)
{
    SeenDialog seen;
    seen.title = dialog.windowTitle();
    seen.folder = dialog.directory().absolutePath();
    seen.filters = dialog.nameFilters();
    seen.selectedFilter = dialog.selectedNameFilter();
    seen.severalFiles = dialog.fileMode() == QFileDialog::ExistingFiles;
    return seen;
}

void answer(QFileDialog &dialog, const QStringList &files)
{
    if (files.isEmpty()) {
        QTest::keyClick(&dialog, Qt::Key_Escape);
        return;
    }
    auto *names = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    names->setText(QLatin1Char('"') + files.join(QLatin1String("\" \"")) + QLatin1Char('"'));
    QTest::keyClick(names, Qt::Key_Return);
}

SeenDialog look(const QMessageBox &box)
{
    SeenDialog seen;
    seen.title = box.windowTitle();
    seen.text = box.text();
    seen.icon = box.icon();
    seen.buttons = box.standardButtons();
    return seen;
}

void answer(QMessageBox &box)
{
    QTest::keyClick(&box, Qt::Key_Return);
}

} // namespace

QVector<SeenDialog> answering(const std::function<void()> &action, const QStringList &files)
{
    QVector<SeenDialog> seen;
    QPointer<QWidget> last;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || dialog == last)
            return;
        last = dialog;
        if (auto *fileDialog = qobject_cast<QFileDialog *>(dialog)) {
            seen.append(look(*fileDialog));
            answer(*fileDialog, files);
        } else if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
            seen.append(look(*box));
            answer(*box);
        } else {
            qFatal("Unexpected dialog %s", dialog->metaObject()->className());
        }
    });
    timer.start(0);
    action();
    return seen;
}

PageDriver::PageDriver(QWizardPage *page)
    : m_wizard(std::make_unique<QWizard>())
    , m_page(page)
{
    m_wizard->addPage(new QWizardPage);
    m_wizard->addPage(page);
    m_wizard->show();
    m_wizard->next();
    m_wizard->activateWindow();
    if (!QTest::qWaitForWindowActive(m_wizard.get()))
        qFatal("The wizard does not show");
}

QString PageDriver::text(const char *name) const
{
    return widget(name)->property("text").toString();
}

void PageDriver::click(const char *name, Qt::KeyboardModifiers keys) const
{
    auto *target = widget(name);
    for (QWidget *tab = target; tab && tab != m_page; tab = tab->parentWidget()) {
        QWidget *stack = tab->parentWidget();
        if (auto *tabs = stack ? qobject_cast<QTabWidget *>(stack->parentWidget()) : nullptr)
            tabs->setCurrentWidget(tab);
    }
    // Check boxes and radio buttons listen only where their text is.
    QTest::mouseClick(target, Qt::LeftButton, keys, QPoint(8, target->height() / 2));
}

QVector<SeenDialog> PageDriver::choose(const char *button, const QStringList &files) const
{
    return answering([&] { click(button); }, files);
}

void PageDriver::type(const char *name, const QString &text) const
{
    auto *target = widget(name);
    target->setFocus();
    QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(target, Qt::Key_Delete);
    QTest::keyClicks(target, text);
}

Qt::DropAction PageDriver::drop(const QStringList &files) const
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &file : files)
        urls.append(QUrl::fromLocalFile(file));
    data.setUrls(urls);
    const QPoint place = m_page->rect().center();
    const Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction;
    // As a file manager offers them that would move.
    QDragEnterEvent enter(place, possible, &data, Qt::LeftButton, Qt::NoModifier);
    enter.setDropAction(Qt::MoveAction);
    enter.ignore();
    QCoreApplication::sendEvent(m_page, &enter);
    if (!enter.isAccepted())
        return Qt::IgnoreAction;
    QDropEvent drop(place, possible, &data, Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(Qt::MoveAction);
    drop.ignore();
    QCoreApplication::sendEvent(m_page, &drop);
    return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
}

bool PageDriver::isComplete() const
{
    return m_wizard->button(QWizard::FinishButton)->isEnabled();
}

void PageDriver::clickWizard(QWizard::WizardButton button) const
{
    QTest::mouseClick(m_wizard->button(button), Qt::LeftButton);
}

bool PageDriver::awaitRead(int count) const
{
    return QTest::qWaitFor([&] { return m_page->property("imagesRead").toInt() == count; }, 60'000);
}

QPixmap PageDriver::preview() const
{
    const auto *area = widget<QScrollArea>("m_saPreview");
    return qobject_cast<QLabel *>(area->widget())->pixmap(Qt::ReturnByValue);
}

void PageDriver::complete(const char *name, const QString &beginning) const
{
    auto *edit = widget<QLineEdit>(name);
    edit->setFocus();
    // At a user's pace: the folders are looked into between the keys.
    QTest::keyClicks(edit, beginning, Qt::NoModifier, 1);
    QAbstractItemView *popup = edit->completer()->popup();
    if (!QTest::qWaitFor([&] { return popup->isVisible(); }))
        qFatal("%s proposes nothing", name);
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Return);
}

QSize PageDriver::previewSize() const
{
    return widget<QScrollArea>("m_saPreview")->widget()->size();
}

UrlCatcher::UrlCatcher()
{
    for (const char *scheme : {"file", "https"})
        QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "open");
}

UrlCatcher::~UrlCatcher()
{
    for (const char *scheme : {"file", "https"})
        QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
}

QStringList picturePaths(const QString &folder, int count)
{
    QStringList paths;
    for (int i = 0; i < count; ++i)
        paths.append(QStringLiteral("%1/%2.jpg").arg(folder).arg(i));
    return paths;
}

QStringList makePictures(const QString &folder, int count)
{
    QStringList paths = picturePaths(folder, count);
    for (const QString &path : qAsConst(paths))
        writeFile(path, {});
    return paths;
}
