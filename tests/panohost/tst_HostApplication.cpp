// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/Module.h"
#include "apps/panohost/window/HostApplication.h"
#include "tests/align/TestPicture.h"
#include "tests/support/Files.h"
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QDir>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <atomic>
#include <memory>

class tst_HostApplication : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder->path());
        QSettings().clear();
    }

    void isFoundByPlugins()
    {
        QVERIFY(FindApplication());
        QCOMPARE(FindApplication(), static_cast<ZIApplication *>(host()));
        QVERIFY(!FindApplication()->GetUiContext());
    }

    void settingsOutliveTheProgram()
    {
        const QString one = QStringLiteral("5A6F7276-696B-2020-2020-000000000001");
        const QString other = QStringLiteral("5A6F7276-696B-2020-2020-000000000002");
        const QString key = QStringLiteral("State");
        const QByteArray state("a\0b\xFF\n@", 6);
        QCOMPARE(host()->GetSetting(one, key, 7).toInt(), 7);
        host()->SetSetting(one, key, state);
        QCOMPARE(host()->GetSetting(one, key, {}).toByteArray(), state);
        QCOMPARE(host()->GetSetting(other, key, QVariant()), QVariant());
        host()->SetSetting(one, key, QByteArray());
        QVERIFY(host()->GetSetting(one, key, 7).isValid());

        host()->SetSetting(other, key, state);
        QSettings().sync();
        QVERIFY(QFile::exists(QSettings().fileName()));
        QVERIFY(QSettings().fileName().startsWith(m_folder->path()));
        QSettings elsewhere(QSettings().fileName(), QSettings::NativeFormat);
        QCOMPARE(elsewhere.value(other + QStringLiteral("/State")).toByteArray(), state);
    }

    void lastFolder()
    {
        const QString standard = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
        QCOMPARE(host()->GetImagesDirectory(), standard);
        QDir(m_folder->path()).mkdir(QStringLiteral("a folder"));
        host()->SetImagesDirectory(at("a folder/x.jpg"));
        QCOMPARE(host()->GetImagesDirectory(), at("a folder"));
        host()->SetImagesDirectory(QString());
        QCOMPARE(host()->GetImagesDirectory(), at("a folder"));
        QDir(m_folder->path()).rmdir(QStringLiteral("a folder"));
        QCOMPARE(host()->GetImagesDirectory(), standard);
    }

    void translations_data()
    {
        const Table<QString, QString> row("asked", "text");
        row("territory", "ZPanoHead_fr_FR.qm", "fr_FR");
        row("language only", "ZPanoHead_fr_CA.qm", "fr");
        row("none", "ZPanoHead_de_DE.qm", "Comment");
        row("a path", "../ZPanoHead_fr_FR.qm", "fr_FR");
    }
    void translations()
    {
        QFETCH(QString, asked);
        QDir(m_folder->path()).mkdir(QStringLiteral("module"));
        qputenv("ZPANOHEAD_MODULE", QFile::encodeName(at("module/libZPanoHead.so")));
        for (const char *locale : {"fr", "fr_FR"}) {
            const QString context = QStringLiteral("Library %1").arg(asked);
            writeFile(at("a.ts"),
                QStringLiteral("<!DOCTYPE TS><TS version='2.1'><context><name>%1</name><message>"
                               "<source>Comment</source><translation>%2</translation></message>"
                               "</context></TS>")
                    .arg(context, QLatin1String(locale))
                    .toUtf8());
            const QString result = at("module/ZPanoHead_%1.qm").arg(QLatin1String(locale));
            QCOMPARE(run(LRELEASE, {"-silent", at("a.ts"), "-qm", result}).failure(), QByteArray());
        }
        host()->LoadTranslation(asked);
        qunsetenv("ZPANOHEAD_MODULE");
        QTEST(QCoreApplication::translate(
                  QStringLiteral("Library %1").arg(asked).toUtf8().constData(), "Comment"),
            "text");
    }

    void modulePlace()
    {
        // The tests lie in the build tree beside the programs.
        const QString before = QDir::currentPath();
        QDir::setCurrent(QDir::rootPath());
        QVERIFY2(QFileInfo::exists(findModule()), qUtf8Printable(findModule()));
        QDir::setCurrent(before);

        const QStringList places = modulePlaces(QStringLiteral("/opt/x/bin"));
        QVERIFY(places.contains(QStringLiteral("/opt/x/lib/libZPanoHead.so")));
        QVERIFY(places.filter(QStringLiteral("/zpanohead/libZPanoHead.so")).size() == 2);
        qputenv("ZPANOHEAD_MODULE", "/nowhere/m.so");
        QCOMPARE(findModule(), QStringLiteral("/nowhere/m.so"));
        qunsetenv("ZPANOHEAD_MODULE");
    }

    void pictures()
    {
        QImage lying = plainImage({120, 80}, Qt::blue);
        writeJpeg(at("a.jpg"), lying,
            {{"Exif.Photo.FocalLengthIn35mmFilm", "24"}, {"Exif.Photo.LensModel", "Fisheye"},
                {"Exif.Photo.ExposureTime", "1/4"}, {"Exif.Photo.FNumber", "1/1"},
                {"Exif.Image.Orientation", "6"}});
        writeJpeg(at("b.jpg"), QSize(30, 20));

        ImageInfo *a = host()->ReadImageInfo(at("a.jpg"));
        ImageInfo *b = host()->ReadImageInfo(at("b.jpg"));
        QVERIFY(a && b);
        QCOMPARE(a->GetFocalLength(), 24.0F);
        QCOMPARE(a->GetLensType(), 1);
        QCOMPARE(a->GetExposure(), -2.0F);
        QCOMPARE(b->GetFocalLength(), 0.0F);
        const QPixmap &shown = a->GetThumbnail();
        QCOMPARE(shown.size(), QSize(80, 120));
        QCOMPARE(b->GetThumbnail().size(), QSize(30, 20));
        QCOMPARE(&shown, &b->GetThumbnail());
        QCOMPARE(host()->pictures().value(at("a.jpg")).orientation, 6);

        QCOMPARE(host()->ReadImageInfo(at("a.jpg")), a);
        writeJpeg(at("a.jpg"), QSize(10, 10), {{"Exif.Photo.FocalLengthIn35mmFilm", "50"}});
        QFile file(at("a.jpg"));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(
            QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
        ImageInfo *changed = host()->ReadImageInfo(at("a.jpg"));
        QCOMPARE(changed->GetFocalLength(), 50.0F);
        QCOMPARE(a->GetFocalLength(), 24.0F);
    }

    void unreadablePictures()
    {
        QSignalSpy spy(host(), &HostApplication::pictureUnreadable);
        QVERIFY(!host()->ReadImageInfo(at("absent.jpg")));
        QCOMPARE(host()->reasonFor(at("absent.jpg")), QStringLiteral("no such file"));
        QCOMPARE(host()->reasonFor(at("never asked.jpg")), QString());
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy[0][0].toString(), at("absent.jpg"));
        QVERIFY(!host()->pictures().value(at("absent.jpg")).readable);

        writeJpeg(at("absent.jpg"), QSize(10, 10));
        QVERIFY(host()->ReadImageInfo(at("absent.jpg")));
        QCOMPARE(host()->reasonFor(at("absent.jpg")), QString());
    }

    void readsBesideTheWindow()
    {
        QStringList paths;
        for (int i = 0; i < 40; ++i) {
            paths.append(at("%1.jpg").arg(i));
            writeJpeg(paths.last(), QSize(60, 40), {{"Exif.Photo.FocalLengthIn35mmFilm", "24"}});
        }
        std::atomic<int> read = 0;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            for (const QString &path : paths)
                read += host()->ReadImageInfo(path)->GetFocalLength() == 24.0F;
        }));
        thread->start();
        // The window's thread asks for the same pictures and shows them meanwhile.
        for (const QString &path : paths)
            QCOMPARE(host()->ReadImageInfo(path)->GetThumbnail().size(), QSize(60, 40));
        QVERIFY(thread->wait());
        QCOMPARE(read.load(), 40);
    }

    void importIsAnnounced()
    {
        QVector<int> counts;
        connect(host(), &HostApplication::projectImported, this,
            [&counts](const ProjectRecord &record) { counts.append(record.groups.size()); });
        ProjectRecord record;
        record.groups = {{QStringLiteral("/a.jpg")}, {}};
        FindApplication()->ImportProject(record);
        QCOMPARE(counts, QVector<int>{2});
        host()->disconnect(this);
    }

private:
    static HostApplication *host() { return static_cast<HostApplication *>(qApp); }
    QString at(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

int main(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("ZPanoHead tests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_HostApplication"));
    HostApplication application(argc, argv);
    tst_HostApplication test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_HostApplication.moc"
