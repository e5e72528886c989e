// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/MapCommand.h"

#include "align/OutputFile.h"
#include "apps/panohost/HeadCommand.h"
#include "apps/panohost/map/MapFile.h"

#include <QFileInfo>

namespace {

constexpr int kUsualWidth = 1200;

QString help()
{
    return QStringLiteral(
        "Usage: panohost map RECORD.json --output MAP.png|MAP.svg [--width PIXELS]\n"
        "Draws where the locations of a record lie and what links them, with thumbnails where the\n"
        "pictures are at hand. The width is 100 to 16000 pixels, %1 if not given.\n")
        .arg(kUsualWidth);
}

ExitCode failed(const QString &file, const QString &reason)
{
    console::complain(QStringLiteral("%1: %2").arg(file, reason));
    return ExitCode::Failed;
}

ExitCode draw(const QString &input, const QString &output, MapFormat format, int width)
{
    QString problem;
    const auto record = readRecord(input, &problem);
    if (!record) {
        console::complain(problem);
        return ExitCode::Failed;
    }

    QStringList inputs{input};
    for (const QStringList &stack : record->groups)
        inputs += stack;
    // A map is made to be made again.
    const QString objection = OutputGuard(inputs, OutputGuard::Writes::Pictures).objection(output);
    if (!objection.isEmpty())
        return failed(output, objection);
    QStringList damaged;
    const QByteArray map = mapFile(*record, format, width, &damaged);
    if (map.isEmpty())
        return failed(output, QStringLiteral("there is not enough memory to draw the map"));
    problem = writeWhole({{output, map}});
    if (!problem.isEmpty()) {
        console::complain(problem);
        return ExitCode::Failed;
    }
    for (const QString &path : qAsConst(damaged))
        console::complain(
            QStringLiteral("%1: is no picture that can be read; the map leaves it out").arg(path));
    console::print(QStringLiteral("%1: %2 locations, %3 links\n")
                       .arg(output)
                       .arg(record->groups.size())
                       .arg(record->links.size()));
    return ExitCode::Done;
}

} // namespace

ExitCode runMap(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("output"), {}, QStringLiteral("FILE")});
    parser.addOption({QStringLiteral("width"), {}, QStringLiteral("PIXELS")});
    addHelp(parser);
    const bool isParsed = parser.parse(QStringList(QStringLiteral("map")) + arguments);
    if (isParsed && wantsHelp(parser)) {
        console::print(help());
        return ExitCode::Done;
    }

    OptionReader reader(parser);
    if (!isParsed)
        reader.refuse(parser.errorText());
    const QStringList inputs = parser.positionalArguments();
    if (inputs.size() != 1 || inputs.first().isEmpty())
        reader.refuse(QStringLiteral("one record is wanted"));
    const QString output = reader.text("output");
    const QString suffix = QFileInfo(output).suffix().toLower();
    if (output.isEmpty())
        reader.refuse(QStringLiteral("--output MAP.png|MAP.svg is missing"));
    else if (suffix != QLatin1String("png") && suffix != QLatin1String("svg"))
        reader.refuse(
            QStringLiteral("--output wants a name that ends with .png or .svg, not \"%1\"")
                .arg(output));
    const int width = reader.integer("width", 100, 16'000).value_or(kUsualWidth);
    if (!reader.error().isEmpty())
        return wrongUsage(reader.error(), QStringLiteral("map"));
    return draw(inputs.first(), output,
        suffix == QLatin1String("svg") ? MapFormat::Svg : MapFormat::Png, width);
}
