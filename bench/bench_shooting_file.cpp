// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The XML shooting file: the reader against a document model. Each measurement is a process of its
// own, which reads one file once, as a user's does.

#include "bench/Bench.h"
#include "bench/ShootingText.h"
#include "papywizard/ShootingFile.h"
#include "tests/papywizard/DomShooting.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <algorithm>

namespace {

using bench::Bar;

constexpr int kRounds = 9;

/// What one process measured.
struct Measured {
    /// Milliseconds of processor time.
    double time = 0;
    /// Most memory over that before the reading, bytes.
    double memory = 0;
    int shots = 0;
};

int measure(const QString &way, const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 1;
    PapywizardShooting shooting;
    const double before = bench::memory();
    const double time = bench::milliseconds([&] {
        if (way == QLatin1String("model")) {
            QDomDocument document;
            if (document.setContent(&file))
                shooting = shootingOf(document);
        } else {
            readShooting(file, shooting);
        }
    });
    QTextStream(stdout) << time << ' ' << bench::peakMemory() - before << ' '
                        << shooting.shots.size() << '\n';
    return 0;
}

Measured inProcess(const char *way, const QString &path, int shots)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Without it every date looks up the file of the local time.
    environment.insert(QStringLiteral("TZ"), QStringLiteral("UTC"));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {QLatin1String(way), path});
    process.waitForFinished(-1);
    const QList<QByteArray> figures = process.readAllStandardOutput().trimmed().split(' ');
    const Measured measured{
        figures.value(0).toDouble(), figures.value(1).toDouble(), figures.value(2).toInt()};
    if (measured.shots != shots)
        qFatal("%s read %d shots, not %d", way, measured.shots, shots);
    return measured;
}

Measured median(QVector<Measured> runs)
{
    const auto middle = [&runs](double Measured::*figure) {
        std::sort(runs.begin(), runs.end(),
            [figure](const Measured &a, const Measured &b) { return a.*figure < b.*figure; });
        return runs.at(runs.size() / 2).*figure;
    };
    return {middle(&Measured::time), middle(&Measured::memory), runs.first().shots};
}

QString megabytes(double bytes)
{
    return bench::number(bytes / 1e6) + QLatin1String(" MB");
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3)
        return measure(arguments.at(1), arguments.at(2));

    const QTemporaryDir folder;
    const auto write = [&](int shots) {
        QString path = folder.filePath(QStringLiteral("%1.xml").arg(shots));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bench::shootingXml(shots)) < 0)
            qFatal("Cannot write %s", qPrintable(path));
        return path;
    };

    constexpr int usual = 70'000;
    constexpr int many = 1'000'000;
    const QString path = write(usual);
    QVector<Measured> models;
    QVector<Measured> readers;
    for (int round = 0; round < kRounds; ++round) {
        models.append(inProcess("model", path, usual));
        readers.append(inProcess("reader", path, usual));
    }
    const Measured model = median(models);
    const Measured reader = median(readers);
    const QString manyPath = write(many);
    QVector<Measured> manyReaders;
    for (int round = 0; round < 3; ++round)
        manyReaders.append(inProcess("reader", manyPath, many));
    const Measured manyReader = median(manyReaders);

    bench::Table table;
    table.note(QStringLiteral("shooting file of 70,000, document model"),
        QStringLiteral("%1 ms, %2").arg(bench::number(model.time), megabytes(model.memory)));
    table.note(QStringLiteral("shooting file of 70,000, reader"),
        QStringLiteral("%1 ms, %2").arg(bench::number(reader.time), megabytes(reader.memory)));
    table.row(QStringLiteral("shooting file of 70,000: time to the model's"),
        reader.time / model.time, Bar::AtMost, 0.45, " times");
    table.row(QStringLiteral("shooting file of 70,000: peak memory to the model's"),
        reader.memory / model.memory, Bar::AtMost, 0.06, " times");
    table.note(QStringLiteral("shooting file of 1,000,000, reader"),
        QStringLiteral("%1 s, %2")
            .arg(bench::number(manyReader.time / 1000), megabytes(manyReader.memory)));
    table.row(QStringLiteral("growth of reading, 70,000 to 1,000,000 shots"),
        bench::growth(usual, reader.time, many, manyReader.time), Bar::AtMost, 1.05, "");
    return table.exitCode();
}
