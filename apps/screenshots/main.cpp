// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Photographs a plug-in's page with a shooting on it, a picture a tab, for the documentation.

#include "apps/panohost/Module.h"
#include "apps/panohost/window/HostApplication.h"
#include "host/ZIAbout.h"
#include "host/ZIPluginImport.h"
#include "host/ZIPluginLibrary.h"

#include <QDir>
#include <QDropEvent>
#include <QEventLoop>
#include <QFileInfo>
#include <QMimeData>
#include <QPluginLoader>
#include <QTabWidget>
#include <QTextStream>
#include <QTimer>
#include <QUrl>
#include <QWizard>
#include <QWizardPage>

namespace {

constexpr int kPatience = 60000; // milliseconds

void drop(QWidget *target, const QStringList &files)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &file : files)
        urls.append(QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath()));
    data.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
}

bool dropAndWait(QWizardPage *page, const QStringList &files)
{
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&loop] {
        // A page that complains waits for an answer.
        if (QWidget *box = QApplication::activeModalWidget())
            box->close();
        loop.quit();
    });
    timer.start(kPatience);
    drop(page, files);
    QObject::connect(page, &QWizardPage::completeChanged, &loop, [&loop, page] {
        if (page->isComplete())
            loop.quit();
    });
    if (!page->isComplete())
        loop.exec();
    return page->isComplete();
}

bool photograph(QWizardPage *page, const QStringList &files, const QString &prefix)
{
    QWizard wizard;
    wizard.setWizardStyle(QWizard::ModernStyle);
    wizard.addPage(page);
    wizard.resize(760, 720);
    wizard.show();
    bool done = dropAndWait(page, files);
    auto *tabs = page->findChild<QTabWidget *>();
    for (int i = 0; tabs && i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        QCoreApplication::processEvents();
        done = wizard.grab().save(QStringLiteral("%1-%2.png").arg(prefix).arg(i + 1)) && done;
    }
    page->setParent(nullptr);
    return done;
}

} // namespace

int main(int argc, char *argv[])
{
    const HostApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("panohost"));
    QTextStream messages(stderr);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 4) {
        messages << "Usage: screenshots FOLDER HEAD FILE...\n"
                    "Writes FOLDER/HEAD-1.png and so on, a picture of each tab of the page of the\n"
                    "plug-in named HEAD, on which FILEs were dropped.\n";
        return 2;
    }
    const QString folder = arguments[1];
    const QString head = arguments[2];

    QPluginLoader loader(findModule());
    auto *library = qobject_cast<ZIPluginLibrary *>(loader.instance());
    if (!library) {
        messages << loader.errorString() << '\n';
        return 1;
    }
    bool done = false;
    const auto plugins = library->GetPlugins();
    for (ZIPluginImport *plugin : plugins) {
        const auto *about = dynamic_cast<ZIAbout *>(plugin);
        if (about && about->GetName().compare(head, Qt::CaseInsensitive) == 0) {
            done = photograph(
                plugin->GetWizardPages().first(), arguments.mid(3), QDir(folder).filePath(head));
        }
    }
    qDeleteAll(plugins);
    if (!done)
        messages << head << ": no pictures, or not all\n";
    return done ? 0 : 1;
}
