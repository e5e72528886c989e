// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Whole imports of the largest shootings, in panohost's window and on its command line. Every one
// is a process of its own, for its peak memory.

#include "align/OutputFile.h"
#include "align/PtoProject.h"
#include "apps/panohost/Module.h"
#include "apps/panohost/window/HeadFile.h"
#include "apps/panohost/window/HeadModule.h"
#include "apps/panohost/window/HostApplication.h"
#include "apps/panohost/window/ImportView.h"
#include "bench/Bench.h"
#include "bench/PageBench.h"
#include "bench/ShootingText.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>
#include <QSlider>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>
#include <QWizardPage>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using bench::Bar;

constexpr int kPictures = 70'000;

struct Import {
    const char *title;
    /// As on the command line.
    const char *head;
    /// In the module.
    int index;
    /// Null for a head without a file.
    const char *config;
    int pictures;
};

const Import kImports[] = {
    {"Clauss", "clauss", 0, "script.txt", kPictures},
    {"Papywizard", "papywizard", 2, "single.xml", kPictures},
    {"Papywizard, 3 brackets", "papywizard", 2, "brackets.xml", kPictures - 1},
    {"Gigapan", "gigapan", 1, nullptr, kPictures},
};

constexpr auto kSlowFile = "slow.xml";
constexpr int kSlowPictures = 1000;
/// Milliseconds.
constexpr int kSlowPicture = 5;

/// A host whose pictures may take longer than they do.
class SlowHost final : public HostApplication {
public:
    using HostApplication::HostApplication;

    /// Milliseconds that a picture takes at least. Set it while nothing is read.
    unsigned long pictureTime = 0;

    ImageInfo *ReadImageInfo(const QString &path) override
    {
        QThread::msleep(pictureTime);
        return HostApplication::ReadImageInfo(path);
    }
};

double since(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

QString seconds(double milliseconds)
{
    return bench::number(milliseconds / 1000) + QLatin1String(" s");
}

QString megabytes(double bytes)
{
    return bench::number(bytes / 1e6) + QLatin1String(" MB");
}

QString picturePath(const QString &folder, int index)
{
    return QStringLiteral("%1/p%2.jpg").arg(folder).arg(index, 6, 10, QLatin1Char('0'));
}

QStringList picturePaths(const QString &folder, int count)
{
    QStringList paths;
    for (int k = 0; k < count; ++k)
        paths.append(picturePath(folder, k));
    return paths;
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("Cannot write %s", qPrintable(path));
}

/// The heads' files, and hard links to a few hundred rendered pictures.
void prepare(const QString &folder)
{
    const QString rendered = folder + QLatin1String("/rendered");
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(BENCH_MAKESHOOTING),
        {QStringLiteral("--output"), rendered, QStringLiteral("--rows"), QStringLiteral("15"),
            QStringLiteral("--columns"), QStringLiteral("20"), QStringLiteral("--full-turn"),
            QStringLiteral("--size"), QStringLiteral("300x200"), QStringLiteral("--focal"),
            QStringLiteral("800")});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("No pictures were rendered");
    const QFileInfoList pictures
        = QDir(rendered).entryInfoList({QStringLiteral("*.jpg")}, QDir::Files, QDir::Name);
    if (pictures.isEmpty())
        qFatal("No pictures were rendered");
    QByteArray list;
    for (int k = 0; k < kPictures; ++k) {
        const QString link = picturePath(folder, k);
        const QString picture = pictures.at(k % pictures.size()).absoluteFilePath();
        if (::link(qPrintable(picture), qPrintable(link)) != 0)
            qFatal("Cannot link to %s", qPrintable(picture));
        list += link.toLocal8Bit() + '\n';
    }
    write(folder + QLatin1String("/list.txt"), list);
    write(folder + QLatin1String("/list-1.txt"), list.left(list.lastIndexOf('\n', -2) + 1));
    write(folder + QLatin1String("/script.txt"), bench::claussScript(kPictures));
    write(folder + QLatin1String("/single.xml"), bench::shootingXml(kPictures));
    write(folder + QLatin1Char('/') + QLatin1String(kSlowFile), bench::shootingXml(kSlowPictures));
    write(folder + QLatin1String("/brackets.xml"), bench::shootingXml(kPictures - 1, 3));
}

/// Longest time that the window could not answer while \a act ran and what it had set off.
double longestBlock(const std::function<void()> &act)
{
    QElapsedTimer timer;
    timer.start();
    act();
    double longest = since(timer);
    BlockMeter blocks;
    blocks.start();
    QAbstractEventDispatcher *events = QAbstractEventDispatcher::instance();
    // The meter's own ticks are the only events once all is done.
    for (int quiet = 0; quiet < 20;) {
        timer.start();
        events->processEvents(QEventLoop::AllEvents);
        quiet = since(timer) < 1 ? quiet + 1 : 0;
        QThread::msleep(1);
    }
    return qMax(longest, blocks.longest());
}

/// Reads pictures that take their time into the window, as a user sees it.
int readSlowlyInWindow(SlowHost &application, const HeadModule &module, const QString &folder)
{
    application.pictureTime = kSlowPicture;
    const HeadImport &import = module.imports().at(2);
    ImportView view(
        import, application, [](const ProjectRecord &, const HeadFile &) { return true; });
    view.resize(1000, 900);
    view.show();
    PageBench::runUntilIdle();
    view.takeFiles(picturePaths(folder, kSlowPictures)
        << folder + QLatin1Char('/') + QLatin1String(kSlowFile));
    QElapsedTimer timer;
    timer.start();
    const double busy = bench::milliseconds(
        [&] { PageBench::runUntil([&] { return import.page()->isComplete(); }); });
    bench::Table table;
    table.row(QStringLiteral("panohost's thread busy while %1 pictures of %2 ms are read")
                  .arg(kSlowPictures)
                  .arg(kSlowPicture),
        100 * busy / since(timer), Bar::AtMost, 10, " %");
    return table.exitCode();
}

/// Runs one import in the window and prints its rows.
int importInWindow(HostApplication &application, const HeadModule &module, const Import &import,
    const QString &folder)
{
    bench::Table table;
    double projectTime = 0;
    qint64 projectSize = 0;
    int links = 0;
    const auto finish = [&](const ProjectRecord &record, const HeadFile &) {
        QElapsedTimer timer;
        timer.start();
        QString problem;
        const auto project = projectOf(record, application.pictures(), &problem);
        if (!project)
            qFatal("%s", qPrintable(problem));
        const QByteArray text = projectText(*project, folder);
        problem = writeWhole({{folder + QLatin1String("/window.pto"), text}});
        if (!problem.isEmpty())
            qFatal("%s", qPrintable(problem));
        projectTime = since(timer);
        projectSize = text.size();
        links = record.links.size();
        return true;
    };
    ImportView view(module.imports().at(std::size_t(import.index)), application, finish);
    view.resize(1000, 900);
    view.show();
    PageBench::runUntilIdle();
    const QWizardPage *page = module.imports().at(std::size_t(import.index)).page();
    const auto read = [&] { return page->property("imagesRead").toInt(); };

    QStringList files = picturePaths(folder, import.pictures);
    if (import.config)
        files.append(folder + QLatin1Char('/') + QLatin1String(import.config));
    QElapsedTimer total;
    total.start();
    QElapsedTimer timer;
    timer.start();
    view.takeFiles(files);
    const double choosing = since(timer);

    BlockMeter blocks;
    blocks.start();
    timer.start();
    PageBench::runUntil([&] { return read() == import.pictures && page->isComplete(); });
    const double reading = since(timer);
    PageBench::runUntil([&] {
        // Drawn when the window has nothing to do between two ticks of the meter.
        return !QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
    });
    const double showing = since(timer);
    const double readingBlock = blocks.longest();

    const double redraw = longestBlock(
        [&] { page->findChild<QSlider *>(QStringLiteral("m_hSlider"))->setValue(40); });
    double accepting = 0;
    for (QAbstractButton *button : view.findChildren<QAbstractButton *>()) {
        if (button->objectName() == QLatin1String("qt_wizard_finish")) {
            timer.start();
            button->click();
            accepting = since(timer);
        }
    }
    if (projectSize == 0)
        qFatal("The import was not accepted");

    const QString title = QStringLiteral("%1, %2 pictures in the window")
                              .arg(QLatin1String(import.title))
                              .arg(import.pictures);
    table.note(title,
        QStringLiteral("files taken in %1 ms; pictures read in %2, shown in %3; accepted in %4 ms, "
                       "%5 ms of it for the project; %6 links, project of %7; %8 in all")
            .arg(bench::number(choosing), seconds(reading), seconds(showing),
                bench::number(accepting), bench::number(projectTime), QString::number(links),
                megabytes(double(projectSize)), seconds(since(total))));
    const QString begin = QLatin1String(import.title) + QLatin1String(" in the window: ");
    table.row(begin + QLatin1String("longest block while pictures are read and shown"),
        readingBlock, Bar::AtMost, 100, " ms");
    table.row(begin + QLatin1String("files read and taken in"), choosing, Bar::AtMost, 1500, " ms");
    table.row(begin + QLatin1String("longest block of a redraw"), redraw, Bar::AtMost, 1500, " ms");
    table.row(
        begin + QLatin1String("accepted, project written"), accepting, Bar::AtMost, 1500, " ms");
    table.note(begin + QLatin1String("peak memory"), megabytes(bench::peakMemory()));

    const PictureTable known = application.pictures();
    double bytes = 0;
    int width = 0;
    for (const PictureFacts &facts : known) {
        bytes += facts.thumbnail.capacity();
        width = bytes == facts.thumbnail.capacity() ? uprightThumbnail(facts).width() : width;
    }
    table.row(
        begin + QLatin1String("memory of all thumbnails"), bytes / 1e6, Bar::AtMost, 1000, " MB");
    table.row(begin + QLatin1String("width of a thumbnail"), width, Bar::AtMost, 192, " pixels");
    return table.exitCode();
}

/// Runs one import on panohost's command line, on a terminal as a user does.
void importOnCommandLine(bench::Table &table, const Import &import, const QString &folder)
{
    QList<QByteArray> arguments{BENCH_PANOHOST, "import", import.head, "--force", "--output",
        folder.toLocal8Bit() + "/line.pto", "--pictures-from",
        folder.toLocal8Bit() + (import.pictures == kPictures ? "/list.txt" : "/list-1.txt")};
    if (import.config)
        arguments << "--config" << folder.toLocal8Bit() + '/' + import.config;
    QElapsedTimer timer;
    timer.start();
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
        std::vector<char *> words;
        for (QByteArray &argument : arguments)
            words.push_back(argument.data());
        words.push_back(nullptr);
        execv(BENCH_PANOHOST, words.data());
        _exit(127);
    }
    QByteArray said;
    char buffer[4096];
    for (ssize_t size; (size = ::read(terminal, buffer, sizeof(buffer))) > 0;)
        said.append(buffer, int(size));
    ::close(terminal);
    int status = 0;
    struct rusage usage = {};
    wait4(child, &status, 0, &usage);
    const double time = since(timer);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        qFatal("panohost failed: %s", said.constData());

    const QString begin = QLatin1String(import.title) + QLatin1String(" on the command line: ");
    table.note(begin + QLatin1String("time"), seconds(time));
    table.row(begin + QLatin1String("peak memory"), double(usage.ru_maxrss) * 1024 / 1e6,
        Bar::AtMost, 2000, " MB");
    const int steps = said.count("reading pictures");
    table.row(begin + QLatin1String("progress shown"), QStringLiteral("%1 times").arg(steps),
        QStringLiteral("yes"), steps > 0);
}

int importAll()
{
    const QTemporaryDir folder;
    prepare(folder.path());
    bench::Table table;
    int exitCode = 0;
    // The one beyond the last reads slowly.
    for (int index = 0; index <= int(std::size(kImports)); ++index) {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(
            QCoreApplication::applicationFilePath(), {QString::number(index), folder.path()});
        process.waitForFinished(-1);
        const bool ended = process.exitStatus() == QProcess::NormalExit && process.exitCode() <= 1;
        if (!ended)
            qFatal("The import ended early");
        exitCode = qMax(exitCode, process.exitCode());
    }
    for (const Import &import : kImports)
        importOnCommandLine(table, import, folder.path());
    return qMax(exitCode, table.exitCode());
}

} // namespace

int main(int argc, char **argv)
{
    // No settings of the user's are read or written.
    QStandardPaths::setTestModeEnabled(true);
    SlowHost application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("ZPanoHead"));
    QCoreApplication::setApplicationName(QStringLiteral("bench_imports"));
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    qputenv("ZPANOHEAD_MODULE", BENCH_MODULE);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return importAll();
    const HeadModule module(findModule());
    if (!module.problem().isEmpty())
        qFatal("%s", qPrintable(module.problem()));
    const int index = arguments.at(1).toInt();
    return index < int(std::size(kImports))
        ? importInWindow(application, module, kImports[index], arguments.at(2))
        : readSlowlyInWindow(application, module, arguments.at(2));
}
