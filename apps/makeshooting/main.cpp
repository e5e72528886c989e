// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/CommandLine.h"
#include "apps/makeshooting/Rendering.h"
#include "apps/makeshooting/Studio.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTextStream>

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

int fail(int code, const QString &message)
{
    QTextStream(stderr) << "makeshooting: " << message << '\n';
    return code;
}

} // namespace

int main(int argc, char *argv[])
{
    using namespace makeshooting;
    const QCoreApplication application(argc, argv);
    const CommandLine line = parseCommandLine(QCoreApplication::arguments());
    QTextStream out(stdout);
    if (!line.error.isEmpty())
        return fail(kWrongUsage, line.error);
    if (!line.answer.isEmpty()) {
        out << line.answer;
        return kDone;
    }

    QElapsedTimer timer;
    timer.start();
    const Shooting shooting = planShooting(line.shooting);
    if (!line.output.isEmpty()) {
        const QDir folder(line.output);
        if (!folder.mkpath(QStringLiteral(".")))
            return fail(kFailed, QStringLiteral("%1: cannot make this folder").arg(line.output));
        if (!line.force && !folder.isEmpty())
            return fail(kFailed,
                QStringLiteral("%1: is not empty; --force writes into it").arg(line.output));
        const QString error = writeShooting(shooting, line.output, line.threads);
        if (!error.isEmpty())
            return fail(kFailed, error);
        out << shooting.pictures.size() << " pictures in " << line.output << ", "
            << QString::number(static_cast<double>(timer.elapsed()) / 1000.0, 'f', 1) << " s\n";
    }
    if (!line.scene.isEmpty()) {
        const Scene scene(shooting.options.scene);
        if (!wholeScene(scene, line.sceneWidth, line.threads).save(line.scene))
            return fail(kFailed, QStringLiteral("%1: cannot write this picture").arg(line.scene));
    }
    return kDone;
}
