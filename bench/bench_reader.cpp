// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The background reader: how long it keeps the window with many paths, and that it stays in step
// when lists follow each other quickly.

#include "bench/Bench.h"
#include "host/ImageInfo.h"
#include "host/ZIApplication.h"
#include "reader/ReadingThread.h"

#include <QCoreApplication>
#include <QPixmap>
#include <QRandomGenerator>
#include <deque>

namespace {

using bench::Bar;

class Picture final : public ImageInfo {
public:
    explicit Picture(QString path)
        : path(std::move(path))
    {
    }
    const QPixmap &GetThumbnail() const override { qFatal("Nobody looks at these"); }
    float GetFocalLength() const override { return 50; }
    int GetLensType() const override { return 0; }
    float GetExposure() const override { return 0; }

    const QString path;
};

} // namespace

/// Knows every picture at once.
class ReaderHost : public QCoreApplication, public ZIApplication {
    Q_OBJECT
    Q_INTERFACES(ZIApplication)
public:
    using QCoreApplication::QCoreApplication;

    QString GetImagesDirectory() override { return {}; }
    void SetImagesDirectory(const QString &) override { }
    QVariant GetSetting(const QString &, const QString &, const QVariant &) override { return {}; }
    void SetSetting(const QString &, const QString &, const QVariant &) override { }
    QLocale GetLocale() override { return QLocale::c(); }
    void LoadTranslation(const QString &) override { }
    ImageInfo *ReadImageInfo(const QString &path) override
    {
        return &m_pictures.emplace_back(path);
    }
    void ImportProject(const ProjectRecord &) override { }
    void *GetUiContext() override { return nullptr; }

private:
    std::deque<Picture> m_pictures;
};

namespace {

QStringList paths(int count, int list)
{
    QStringList paths;
    for (int k = 0; k < count; ++k)
        paths.append(QStringLiteral("/pictures/of/list-%1/%2.jpg").arg(list).arg(k));
    return paths;
}

QStringList pathsOf(const QList<ImageInfo *> &infos)
{
    QStringList paths;
    for (const ImageInfo *info : infos)
        paths.append(static_cast<const Picture *>(info)->path);
    return paths;
}

void manyPaths(bench::Table &table)
{
    const QStringList many = paths(70'000, 0);
    const double time = bench::median(5, [&] {
        ReadingThread reader;
        reader.Read(many);
        // The destructor ends the run and is measured with it.
    });
    table.row(
        QStringLiteral("70,000 paths taken in, and dropped again"), time, Bar::AtMost, 50, " ms");
}

void quickLists(bench::Table &table)
{
    constexpr int rounds = 2000;
    QRandomGenerator random(70);
    ReadingThread reader;
    int mixed = 0;
    QStringList last;
    for (int round = 0; round < rounds; ++round) {
        last = paths(1 + random.bounded(60), round);
        reader.Read(last);
        for (int turn = random.bounded(4); turn > 0; --turn) {
            const QStringList found = pathsOf(reader.GetResults());
            mixed += found == last.mid(0, found.size()) ? 0 : 1;
            QThread::usleep(random.bounded(30));
        }
    }
    reader.wait();
    const bool complete = pathsOf(reader.GetResults()) == last;
    table.row(QStringLiteral("2,000 rapid replacements of the list"),
        QStringLiteral("%1 mixed, %2 lost").arg(mixed).arg(complete ? 0 : 1),
        QStringLiteral("none"), mixed == 0 && complete);
}

} // namespace

int main(int argc, char **argv)
{
    const ReaderHost application(argc, argv);
    bench::Table table;
    manyPaths(table);
    quickLists(table);
    return table.exitCode();
}

#include "bench_reader.moc"
