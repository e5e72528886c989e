// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The least that a program does to import a shooting: load the module, offer ZIApplication, give a
// page its files, wait until it is complete and accept it.

#include <zpanohead/ImageInfo.h>
#include <zpanohead/ProjectRecord.h>
#include <zpanohead/ZIAbout.h>
#include <zpanohead/ZIApplication.h>
#include <zpanohead/ZIPluginImport.h>
#include <zpanohead/ZIPluginLibrary.h>

#include <QtWidgets>
#include <deque>
#include <memory>
#include <vector>

/// A picture of which no more is known than how it looks.
struct Picture final : public ImageInfo {
    QImage thumbnail;
    mutable QPixmap shown;

    /// Asked for in the window's thread, where a QPixmap belongs.
    const QPixmap &GetThumbnail() const override { return shown = QPixmap::fromImage(thumbnail); }
    float GetFocalLength() const override { return 0; }
    int GetLensType() const override { return 0; }
    float GetExposure() const override { return 0; }
};

class MinimalHost final : public QApplication, public ZIApplication {
    Q_OBJECT
    Q_INTERFACES(ZIApplication)
public:
    using QApplication::QApplication;

    QString GetImagesDirectory() override { return {}; }
    void SetImagesDirectory(const QString &) override { }
    QVariant GetSetting(const QString &, const QString &, const QVariant &fallback) override
    {
        return fallback;
    }
    void SetSetting(const QString &, const QString &, const QVariant &) override { }
    QLocale GetLocale() override { return QLocale::c(); }
    void LoadTranslation(const QString &) override { }
    void *GetUiContext() override { return nullptr; }

    /// Called in the page's reading thread, for one picture after the other.
    ImageInfo *ReadImageInfo(const QString &path) override
    {
        QImageReader reader(path);
        reader.setAutoTransform(true);
        reader.setScaledSize(reader.size().scaled(160, 160, Qt::KeepAspectRatio));
        const QImage thumbnail = reader.read();
        if (thumbnail.isNull()) {
            emit unreadable(path + QLatin1String(": ") + reader.errorString());
            return nullptr;
        }
        Picture &picture = m_pictures.emplace_back();
        picture.thumbnail = thumbnail;
        return &picture;
    }

    void ImportProject(const ProjectRecord &record) override
    {
        QTextStream(stdout) << "locations " << record.groups.size() << '\n'
                            << "links " << record.links.size() << '\n';
    }

signals:
    void unreadable(const QString &reason);

private:
    std::deque<Picture> m_pictures;
};

static int fail(const QString &reason)
{
    QTextStream(stderr) << "minimal-host: " << reason << '\n';
    return EXIT_FAILURE;
}

int main(int argc, char **argv)
{
    MinimalHost host(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 4)
        return fail(QStringLiteral("usage: minimal-host MODULE SHOOTING.xml PICTURE..."));

    QPluginLoader loader(arguments[1]);
    auto *library = qobject_cast<ZIPluginLibrary *>(loader.instance());
    if (!library)
        return fail(arguments[1] + QLatin1String(": no such module: ") + loader.errorString());
    QWizard wizard;
    // Declared behind the wizard, and so gone before it: each deletes its page.
    std::vector<std::unique_ptr<ZIPluginImport>> plugins;
    QWizardPage *page = nullptr;
    for (ZIPluginImport *plugin : library->GetPlugins()) {
        plugins.emplace_back(plugin);
        if (dynamic_cast<ZIAbout &>(*plugin).GetName() == QLatin1String("Papywizard"))
            page = plugin->GetWizardPages().first();
    }
    if (!page)
        return fail(arguments[1] + QLatin1String(": no Papywizard import"));
    wizard.addPage(page);
    wizard.restart();

    // The page tells how many pictures it has read; which ones cannot be read only the host knows.
    int unreadable = 0;
    const auto settle = [&] {
        const int known = page->property("imagesRead").toInt() + unreadable;
        if (page->isComplete() || known == page->property("images").toStringList().size())
            QApplication::quit();
    };
    QObject::connect(page, &QWizardPage::completeChanged, &host, settle);
    QObject::connect(&host, &MinimalHost::unreadable, &host, [&](const QString &reason) {
        fail(reason);
        ++unreadable;
        settle();
    });

    QList<QUrl> urls;
    for (const QString &file : arguments.mid(2)) {
        const QUrl url = QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath());
        if (!urls.contains(url))
            urls.append(url);
    }
    QMimeData files;
    files.setUrls(urls);
    QDragEnterEvent enter({}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop({}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(page, &enter);
    QApplication::sendEvent(page, &drop);
    QTimer::singleShot(0, &host, settle);
    QApplication::exec();
    if (!page->isComplete())
        return fail(arguments[2] + QLatin1String(": cannot be read, or has not these many shots"));

    // A refusal comes as a message box.
    QTimer::singleShot(0, &host, [] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            fail(box->text());
            box->reject();
        }
    });
    return wizard.validateCurrentPage() ? EXIT_SUCCESS : EXIT_FAILURE;
}

#include "main.moc"
