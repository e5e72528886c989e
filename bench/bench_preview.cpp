// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Previews on real pages in a real event loop, over a host whose pictures take a given time.

#include "bench/Bench.h"
#include "bench/BenchHost.h"
#include "bench/PageBench.h"
#include "bench/ShootingText.h"
#include "gigapan/GigapanPreview.h"
#include "gigapan/UIWPGigapan.h"
#include "papywizard/ShootingFile.h"
#include "papywizard/UIWPMerlin.h"

#include <QBuffer>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTemporaryDir>

namespace {

using bench::Bar;

BenchHost &host()
{
    return BenchHost::instance();
}

QStringList paths(int count)
{
    QStringList paths;
    for (int k = 0; k < count; ++k)
        paths.append(QStringLiteral("/none/%1.jpg").arg(k, 6, 10, QLatin1Char('0')));
    return paths;
}

/// What taking in and showing pictures costs.
struct Watched {
    /// Milliseconds until the last picture was read, and until it was shown.
    double reading = 0;
    double shown = 0;
    /// Processor time of the window's thread meanwhile, milliseconds.
    double busy = 0;
    double longestBlock = 0;
};

/// A Papywizard page with a shooting file and as many pictures.
class Shooting {
public:
    explicit Shooting(int pictures)
        : m_page(new UIWPMerlin)
        , m_file(m_folder.filePath(QStringLiteral("shooting.xml")))
        , m_paths(paths(pictures))
    {
        QFile file(m_file);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("Cannot write %s", qPrintable(m_file));
        file.write(bench::shootingXml(pictures));
    }

    /// Drops file and pictures and waits until all are shown.
    Watched take(int pictureTime)
    {
        host().pictureTime = pictureTime;
        host().thumbnails = 0;
        host().pictures = 0;
        m_page.drop(QStringList(m_paths) << m_file);
        const int count = m_paths.size();
        BlockMeter blocks;
        blocks.start();
        Watched watched;
        QElapsedTimer wall;
        wall.start();
        watched.busy = bench::milliseconds([&] {
            PageBench::runUntil([&] {
                if (watched.reading == 0 && host().pictures == count)
                    watched.reading = double(wall.nsecsElapsed()) / 1e6;
                return host().thumbnails >= count;
            });
        });
        watched.shown = double(wall.nsecsElapsed()) / 1e6;
        watched.longestBlock = blocks.longest();
        return watched;
    }

    PageBench &page() { return m_page; }

private:
    QTemporaryDir m_folder;
    PageBench m_page;
    QString m_file;
    QStringList m_paths;
};

void readingRows(bench::Table &table)
{
    const Watched slow = Shooting(1000).take(5000);
    table.row(QStringLiteral("window's thread busy while 1,000 pictures of 5 ms are read"),
        100 * slow.busy / slow.shown, Bar::AtMost, 10, " %");
    const Watched quick = Shooting(10'000).take(200);
    table.row(QStringLiteral("10,000 pictures of 0.2 ms: time until all are shown to reading time"),
        quick.shown / quick.reading, Bar::AtMost, 5, " times");
    table.note(QStringLiteral("10,000 pictures of 0.2 ms: read; shown; longest block"),
        QStringLiteral("%1 s; %2 s; %3 ms")
            .arg(bench::number(quick.reading / 1000), bench::number(quick.shown / 1000),
                bench::number(quick.longestBlock)));
}

/// Processor time of drawing all of \a scene at once, in milliseconds.
double fullRedraw(const PreviewScene &scene)
{
    QPixmap thumbnail(160, 120);
    thumbnail.fill(Qt::darkGreen);
    return bench::median(5, [&] {
        const PreviewCanvas canvas{previewSize(scene, 50), 1};
        QPixmap drawing(canvas.size);
        QPainter painter(&drawing);
        paintPreview(
            painter, scene, canvas, [&](int) { return &thumbnail; }, QPalette());
    });
}

PreviewScene papywizardScene(int pictures)
{
    QByteArray xml = bench::shootingXml(pictures);
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly);
    PapywizardShooting shooting;
    readShooting(buffer, shooting);
    return positionsScene(shooting.shots, rangesOf(shooting.shots), {8, Qt::white});
}

/// A change on a page until the preview is drawn again.
void changeRow(bench::Table &table, const char *change, int pictures, double fullRedraw,
    const std::function<void()> &act)
{
    PageBench::runUntilIdle();
    host().thumbnails = 0;
    const double time = bench::milliseconds([&] {
        act();
        PageBench::runUntilIdle();
    });
    const QString measure
        = QStringLiteral("%1 with %2 pictures").arg(QLatin1String(change)).arg(pictures);
    table.row(measure + QStringLiteral(": thumbnails drawn"), host().thumbnails, Bar::AtMost,
        pictures, "");
    table.note(measure + QStringLiteral(": time; drawing all at once"),
        QStringLiteral("%1 ms; %2 ms").arg(bench::number(time), bench::number(fullRedraw)));
}

void changeRows(bench::Table &table)
{
    constexpr int pictures = 1000;
    Shooting shooting(pictures);
    shooting.take(0);
    const double positions = fullRedraw(papywizardScene(pictures));
    const PageBench &page = shooting.page();
    changeRow(table, "rotation", pictures, positions,
        [&] { page.widget<QPushButton>("m_pbRot90")->click(); });
    changeRow(table, "zoom", pictures, positions,
        [&] { page.widget<QSlider>("m_hSlider")->setValue(40); });

    PageBench gigapan(new UIWPGigapan);
    host().thumbnails = 0;
    gigapan.drop(paths(pictures));
    PageBench::runUntil([&] { return host().thumbnails >= pictures; });
    GigapanToSPP layout;
    layout.ChooseInitialGrid(pictures);
    const double grid = fullRedraw(gridScene(layout.Layout(), pictures, Qt::white));
    changeRow(table, "order", pictures, grid,
        [&] { gigapan.widget<QRadioButton>("m_rbMode2")->setChecked(true); });
    changeRow(
        table, "rows", pictures, grid, [&] { gigapan.widget<QSpinBox>("m_sbRow")->setValue(20); });
}

} // namespace

int main(int argc, char **argv)
{
    BenchHost application(argc, argv);
    bench::Table table;
    readingRows(table);
    changeRows(table);
    return table.exitCode();
}
