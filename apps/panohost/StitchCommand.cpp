// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/StitchCommand.h"

#include "apps/panohost/HeadCommand.h"
#include "apps/panohost/InputFile.h"
#include "apps/panohost/Interrupt.h"
#include "apps/panohost/ProgressLine.h"
#include "stitch/Panorama.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace {

constexpr int kWidest = 1'000'000;
constexpr double kMostMemory = 100'000;

const OptionText kProjection{"projection", "rectilinear|cylindrical|equirectangular",
    "instead of what suits the shooting: flat ones, wide ones, full turns"};
const OptionText kCrop{"crop", "covered|inside|full",
    "all that is covered (default), the largest part without a hole, or the canvas"};
/// In the order of those words.
constexpr Projection kProjections[]
    = {Projection::Rectilinear, Projection::Cylindrical, Projection::Equirectangular};
constexpr Crop kCrops[] = {Crop::Covered, Crop::Inside, Crop::Full};

/// The options that stand for \a remedy, in words that follow the problem.
QString hintFor(Remedy remedy)
{
    switch (remedy) {
    case Remedy::None:
        break;
    case Remedy::NarrowerPanorama:
        return QStringLiteral(" (--width)");
    case Remedy::NarrowerPanoramaOrMoreMemory:
        return QStringLiteral(" (--width, --memory)");
    case Remedy::OtherCrop:
        return QStringLiteral(" (--crop)");
    case Remedy::WritingOver:
        return QLatin1String(kForceHint);
    }
    return {};
}

class StitchCommand final : public HeadCommand {
public:
    QString name() const override { return QStringLiteral("stitch"); }
    std::vector<OptionText> options() const override
    {
        return {
            {"output", "PANO.jpg|tif|exr", "the finished panorama; .exr is for radiance"},
            {"project", "FILE.pto", "stitch a project that is aligned already, without HEAD"},
            kProjection,
            {"width", "PIXELS", "across the finished panorama, instead of the pictures' own scale"},
            kCrop,
            {"no-photometric", nullptr, "leave vignetting and differences of exposure"},
            {"preview", nullptr, "1500 pixels within seconds; of a stack one picture"},
            {"web", "DIR", "write a folder that shows the panorama in any browser, too"},
            {"report", "FILE.txt|json", "where the alignment's report is written, too"},
            {"memory", "GB", "refuse what needs more memory, instead of what is available"},
            {"keep", nullptr, "keep the work folder, PANO.jpg.work, to go on from"},
        };
    }
    QString description() const override
    {
        return QStringLiteral("Makes a finished panorama: imports, aligns and renders.");
    }

    void takeOptions(OptionReader &reader) override
    {
        m_options.output = reader.text("output");
        m_report = reader.text("report");
        if (m_options.output.isEmpty())
            reader.refuse(QStringLiteral("--output PANO.jpg|tif|exr is missing"));
        if (reader.isSet("report") && m_report.isEmpty())
            reader.refuse(QStringLiteral("--report wants a file"));
        if (const auto choice = reader.choice(kProjection.name, wordsOf(kProjection)))
            m_options.frame.projection = kProjections[*choice];
        m_options.frame.width = reader.integer("width", 16, kWidest).value_or(0);
        if (const auto choice = reader.choice(kCrop.name, wordsOf(kCrop)))
            m_options.frame.crop = kCrops[*choice];
        m_options.web.path = reader.text("web");
        m_options.web.force = reader.isSet("force");
        if (reader.isSet("web") && m_options.web.path.isEmpty())
            reader.refuse(QStringLiteral("--web wants a folder"));
        if (!m_options.web.path.isEmpty() && !m_options.frame.projection)
            m_options.frame.projection = Projection::Equirectangular;
        m_options.photometric = !reader.isSet("no-photometric");
        m_options.preview = reader.isSet("preview");
        m_options.keep = reader.isSet("keep");
        m_options.memory = qint64(reader.number("memory", 0.01, kMostMemory).value_or(0) * 1e9);
    }

    QStringList outputs() const override
    {
        return m_report.isEmpty() ? QStringList(m_options.output)
                                  : QStringList{m_options.output, m_report};
    }
    OutputGuard::Writes writes() const override { return OutputGuard::Writes::Pictures; }

    ExitCode run(const ProjectRecord &record, const PictureTable &pictures) override
    {
        return make([&](const Progress &progress) {
            return makePanorama(record, pictures, m_options, progress);
        });
    }

    ExitCode run(const ReadProject &project)
    {
        return make(
            [&](const Progress &progress) { return makePanorama(project, m_options, progress); });
    }

private:
    template <typename Making> ExitCode make(const Making &making)
    {
        const Interrupt interrupt;
        Panorama panorama;
        {
            ProgressLine line;
            panorama = making(line.untilInterrupted());
        }
        if (!panorama.problem.isEmpty())
            console::complain(panorama.problem.text + hintFor(panorama.problem.remedy));
        else if (!panorama.done)
            console::complain(QStringLiteral("interrupted; what is done so far is kept in %1, and "
                                             "the same command goes on from there")
                                  .arg(workFolderOf(m_options.output)));
        if (!panorama.done)
            return ExitCode::Failed;
        return tell(panorama);
    }

    ExitCode tell(const Panorama &panorama) const
    {
        const Frame &frame = panorama.stitched.frame;
        const auto *projection
            = std::find(std::begin(kProjections), std::end(kProjections), frame.projection);
        console::print(panorama.report);
        if (panorama.stitched.evenedOut)
            console::print(QStringLiteral("Vignetting and exposure were evened out.\n"));
        console::print(QStringLiteral("%1: %2 x %3 pixels, %4\n")
                           .arg(m_options.output)
                           .arg(frame.crop.width())
                           .arg(frame.crop.height())
                           .arg(wordsOf(kProjection).at(int(projection - kProjections))));
        if (!m_options.web.path.isEmpty())
            console::print(QStringLiteral("%1/index.html: shows it in a browser\n")
                               .arg(QDir::cleanPath(m_options.web.path)));
        if (m_report.isEmpty())
            return ExitCode::Done;
        const bool isJson = m_report.endsWith(QLatin1String(".json"), Qt::CaseInsensitive);
        const QString problem
            = writeWhole({{m_report, isJson ? panorama.reportJson : panorama.report.toUtf8()}});
        return isClear(problem.isEmpty() ? QStringList() : QStringList(problem)) ? ExitCode::Done
                                                                                 : ExitCode::Failed;
    }

    StitchOptions m_options;
    QString m_report;
};

/// panohost stitch --project FILE.pto --output ...
ExitCode stitchProject(StitchCommand &command, const QStringList &arguments)
{
    QCommandLineParser parser;
    addOptions(parser, command.options());
    addOption(parser, {"force", nullptr, ""});
    const bool isParsed = parser.parse(QStringList(command.name()) + arguments);
    OptionReader reader(parser);
    if (!isParsed)
        reader.refuse(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        reader.refuse(QStringLiteral("--project takes the pictures from the project"));
    command.takeOptions(reader);
    if (!reader.error().isEmpty())
        return wrongUsage(reader.error(), command.name());

    const QString path = reader.text("project");
    QString problem;
    const auto content = readFile(path, &problem);
    const auto project
        = content ? readProject(*content, QFileInfo(path).absolutePath(), &problem) : std::nullopt;
    if (!project) {
        console::complain(QStringLiteral("%1: %2").arg(path, problem));
        return ExitCode::Failed;
    }
    QStringList inputs{path};
    QStringList problems;
    for (const PtoProject::Picture &picture : qAsConst(project->project.pictures)) {
        inputs.append(picture.path);
        if (!QFileInfo(picture.path).isFile())
            problems.append(QStringLiteral("%1: there is no such picture").arg(picture.path));
    }
    if (!isClear(problems) || !mayWrite(command, inputs, reader.isSet("force")))
        return ExitCode::Failed;
    return command.run(*project);
}

} // namespace

ExitCode runStitch(const QStringList &arguments)
{
    StitchCommand command;
    const bool hasProject
        = std::any_of(arguments.begin(), arguments.end(), [](const QString &word) {
              return word == QLatin1String("--project")
                  || word.startsWith(QLatin1String("--project="));
          });
    return hasProject ? stitchProject(command, arguments) : runHeadCommand(command, arguments);
}
