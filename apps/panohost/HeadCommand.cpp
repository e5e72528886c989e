// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/HeadCommand.h"

#include "align/OutputFile.h"
#include "align/RecordJson.h"
#include "apps/panohost/InputFile.h"
#include "apps/panohost/heads/Head.h"

#include <QFileInfo>
#include <algorithm>

namespace {

/// More problems than this are told by their number.
constexpr int kNamedProblems = 50;

const OptionText kCommonOptions[] = {
    {"pictures-from", "FILE", "take pictures from a list, a path a line; - is standard input"},
    {"focal", "MM", "focal length as on 36 x 24 mm film, 1 to 10000, instead of what is read"},
    {"lens", "standard|fisheye", "lens type instead of what is read"},
    {"no-detect", nullptr, "do not detect control points"},
    {"clean-links", nullptr, "remove control points that do not fit"},
    {"no-clean-links", nullptr, "keep control points that do not fit"},
    {"skip-optimization", nullptr, "leave the pictures where the head put them"},
    {"force", nullptr, "write over files that exist (never over those that are read)"},
};

const OptionText kHelp{"help", nullptr, "show this"};

const OptionText kRecordIn{
    "record-in", "FILE.json", "start from the record of an earlier import, without HEAD"};

/// Everything that the import of a command works with.
struct Request {
    const HeadEntry *entry = nullptr;
    ImportOptions options;
    QStringList named;
    QStringList lists;
    bool force = false;
    /// The choices that go into the record as they are.
    ProjectRecord choices;
};

QString optionHelp(const OptionText &option, const QString &heads = {})
{
    QString line = QStringLiteral("  --%1").arg(QLatin1String(option.name));
    if (option.value)
        line += QStringLiteral(" %1").arg(QLatin1String(option.value));
    line = line.leftJustified(26);
    if (line.size() > 26)
        line += QLatin1Char('\n') + QString(26, QLatin1Char(' '));
    return line + QLatin1String(option.description) + heads + QLatin1Char('\n');
}

/// " (clauss, papywizard)": the heads that know \a option.
QString headsWith(const char *option)
{
    QStringList names;
    for (const HeadEntry &entry : headEntries()) {
        if (entry.has(option))
            names.append(QLatin1String(entry.name));
    }
    return QStringLiteral(" (%1)").arg(names.join(QLatin1String(", ")));
}

QString headNames()
{
    QStringList names;
    for (const HeadEntry &entry : headEntries())
        names.append(QLatin1String(entry.name));
    return names.join(QLatin1String(", "));
}

/// "--output FILE.pto"
QString outputUsage(const HeadCommand &command)
{
    const OptionText output = command.options().front();
    return QStringLiteral("--%1 %2").arg(QLatin1String(output.name), QLatin1String(output.value));
}

QString commonHelp(const HeadCommand &command)
{
    QString help;
    for (const OptionText &option : command.options())
        help += optionHelp(option);
    if (command.takesRecords())
        help += optionHelp(kRecordIn);
    for (const OptionText &option : kCommonOptions)
        help += optionHelp(option);
    return help + optionHelp(kHelp);
}

QString helpOf(const HeadCommand &command, const HeadEntry &entry)
{
    QString help
        = QStringLiteral("Usage: panohost %1 %2 %3%4 [OPTIONS] PICTURE...\n"
                         "%5.\n\n"
                         "A folder stands for the pictures in it. -- ends the options.\n\n")
              .arg(command.name(), QLatin1String(entry.name),
                  entry.has("config") ? QStringLiteral("--config FILE ") : QString(),
                  outputUsage(command), QLatin1String(entry.description));
    for (const OptionText &option : entry.options)
        help += optionHelp(option);
    return help + commonHelp(command);
}

/// Takes the record's choices; the two groups hang together as on the page.
void takeChoices(const HeadEntry &entry, OptionReader &reader, ProjectRecord *choices)
{
    if (entry.has("stacks")) {
        const auto stacks = reader.choice("stacks", wordsOf(options::kStacks));
        const bool allLevels = reader.choice("levels", wordsOf(options::kLevels)) == 1;
        if (allLevels && stacks == 0)
            reader.refuse(QStringLiteral("--levels all cannot go with --stacks hard"));
        choices->stackLinking = allLevels ? 1 : stacks.value_or(0);
        choices->levelLinking = allLevels ? 1 : 0;
    }
    choices->autoDetection = !reader.isSet("no-detect");
    choices->cleanLinks = reader.lastOf("clean-links", "no-clean-links", entry.cleansLinks);
    choices->skipOptimization = reader.isSet("skip-optimization");
    choices->guidedOptimization
        = entry.has("no-recorded-location") && !reader.isSet("no-recorded-location");
}

Request takeRequest(const HeadEntry &entry, const QCommandLineParser &parser, OptionReader &reader)
{
    Request request;
    request.entry = &entry;
    request.named = parser.positionalArguments();
    request.lists = reader.texts("pictures-from");
    request.force = reader.isSet("force");
    if (const auto focal = reader.number("focal", 1, 10'000))
        request.options.focal = boxedFocal(*focal);
    request.options.lensType
        = reader.choice("lens", {QStringLiteral("standard"), QStringLiteral("fisheye")});
    if (entry.has("config"))
        request.options.config = reader.text("config");
    if (entry.has("invert-pitch"))
        request.options.invertPitch = reader.isSet("invert-pitch");
    if (entry.has("rotate")) {
        // 270 is one press of the button to the left.
        constexpr float kTurns[] = {90, 180, -90};
        if (const auto turn = reader.choice("rotate", wordsOf(options::kRotate)))
            request.options.turn = kTurns[*turn];
    }
    takeChoices(entry, reader, &request.choices);

    if (entry.ownLenses && request.options.lensType && !request.options.focal)
        reader.refuse(QStringLiteral("--lens wants --focal with it"));
    if (entry.has("config") && request.options.config.isEmpty())
        reader.refuse(QStringLiteral("--config FILE is missing"));
    if (request.named.isEmpty() && request.lists.isEmpty())
        reader.refuse(QStringLiteral("no pictures are given"));
    if (request.named.contains(QString()))
        reader.refuse(QStringLiteral("the name of a picture is empty"));
    if (request.lists.contains(QString()))
        reader.refuse(QStringLiteral("--pictures-from wants a file"));
    return request;
}

bool readHeadFile(Head &head, const Request &request)
{
    if (request.options.config.isEmpty())
        return true;
    FindingReport report(request.options.config);
    const bool read = head.readFile(
        request.options.config, [&report](const Finding &finding) { report.add(finding); });
    report.finish();
    if (!read && report.isEmpty())
        console::complain(QStringLiteral("%1: cannot be read").arg(request.options.config));
    if (!read && report.has(Finding::Cause::NotANumber))
        console::complain(
            QStringLiteral("%1: is refused, its pictures would come to lie in wrong places")
                .arg(request.options.config));
    return read;
}

/// The pictures' paths; nothing when a list cannot be read or a folder is empty.
std::optional<QStringList> namedPictures(const Request &request)
{
    QStringList named = request.named;
    QStringList problems;
    for (const QString &list : request.lists) {
        QString problem;
        if (const auto paths = pathsFrom(list, &problem))
            named += *paths;
        else
            problems.append(problem);
    }
    QStringList paths = picturesNamed(named, &problems);
    if (paths.isEmpty() && problems.isEmpty())
        problems.append(QStringLiteral("the list names no pictures"));
    if (request.entry->sortsPictures)
        paths.sort(Qt::CaseSensitive);
    return isClear(problems) ? std::optional(paths) : std::nullopt;
}

void addChoices(const ProjectRecord &choices, ProjectRecord *record)
{
    record->autoDetection = choices.autoDetection;
    record->stackLinking = choices.stackLinking;
    record->levelLinking = choices.levelLinking;
    record->guidedOptimization = choices.guidedOptimization;
    record->skipOptimization = choices.skipOptimization;
    record->cleanLinks = choices.cleanLinks;
}

ExitCode import(HeadCommand &command, Head &head, const Request &request)
{
    const auto paths = namedPictures(request);
    if (!paths
        || !mayWrite(
            command, *paths + request.lists + QStringList(request.options.config), request.force)
        || !readHeadFile(head, request))
        return ExitCode::Failed;

    PictureList pictures{*paths, {}};
    QStringList problems;
    readPictures(&pictures, &problems);
    problems += head.obstacles(pictures, request.options);
    if (!isClear(problems))
        return ExitCode::Failed;
    for (const QString &remark : head.remarks(pictures, request.options))
        console::complain(remark);

    ProjectRecord record = head.convert(pictures, request.options);
    addChoices(request.choices, &record);
    return command.run(record, pictures.table());
}

/// Goes on from the record at \a path; \a focal, where given, counts instead of the record's.
ExitCode goOnFrom(
    HeadCommand &command, const QString &path, std::optional<double> focal, bool force)
{
    QString problem;
    auto record = readRecord(path, &problem);
    if (!record) {
        console::complain(problem);
        return ExitCode::Failed;
    }
    PictureList pictures;
    for (const QStringList &stack : qAsConst(record->groups))
        pictures.paths += stack;
    if (!mayWrite(command, pictures.paths + QStringList(path), force))
        return ExitCode::Failed;
    QStringList problems;
    readPictures(&pictures, &problems);
    if (!isClear(problems))
        return ExitCode::Failed;
    if (focal && !pictures.facts.isEmpty()) {
        // A record without a focal length leaves the lens to the pictures, too.
        ImportOptions options;
        options.focal = focal;
        if (record->focal > 0)
            options.lensType = record->lensType;
        takeFocal(pictures, options, &*record);
    }
    return command.run(*record, pictures.table());
}

ExitCode runOnRecord(HeadCommand &command, const QStringList &arguments)
{
    // What an import would need is in the record; other options of an import are refused.
    QCommandLineParser parser;
    addOptions(parser, command.options());
    addOptions(
        parser, std::vector<OptionText>{kRecordIn, {"focal", "MM", ""}, {"force", nullptr, ""}});
    if (!parser.parse(QStringList(command.name()) + arguments))
        return wrongUsage(parser.errorText(), command.name());
    OptionReader reader(parser);
    const QString path = reader.text("record-in");
    if (path.isEmpty())
        reader.refuse(QStringLiteral("--record-in wants a file"));
    if (!parser.positionalArguments().isEmpty())
        reader.refuse(QStringLiteral("--record-in takes the pictures from the record"));
    auto focal = reader.number("focal", 1, 10'000);
    if (focal)
        focal = boxedFocal(*focal);
    command.takeOptions(reader);
    return reader.error().isEmpty() ? goOnFrom(command, path, focal, reader.isSet("force"))
                                    : wrongUsage(reader.error(), command.name());
}

} // namespace

std::optional<ProjectRecord> readRecord(const QString &path, QString *problem)
{
    const auto content = readFile(path, problem);
    auto record = content ? recordFromJson(*content, problem) : std::nullopt;
    if (!record)
        problem->prepend(path + QStringLiteral(": "));
    return record;
}

bool mayWrite(const HeadCommand &command, const QStringList &inputs, bool force)
{
    const OutputGuard guard(inputs, command.writes());
    QStringList problems;
    for (const QString &path : command.outputs()) {
        QString objection = guard.objection(path);
        if (objection.isEmpty() && !force && QFileInfo::exists(path))
            objection = QStringLiteral("exists already") + QLatin1String(kForceHint);
        if (!objection.isEmpty())
            problems.append(QStringLiteral("%1: %2").arg(path, objection));
    }
    return isClear(problems);
}

bool isClear(const QStringList &problems)
{
    for (const QString &problem : problems.mid(0, kNamedProblems))
        console::complain(problem);
    if (problems.size() > kNamedProblems)
        console::complain(
            QStringLiteral("there are %1 more of these").arg(problems.size() - kNamedProblems));
    return problems.isEmpty();
}

ExitCode runHeadCommand(HeadCommand &command, const QStringList &arguments)
{
    const QString name = arguments.value(0);
    if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
        console::print(helpOf(command));
        return ExitCode::Done;
    }
    const QStringList records = arguments.filter(QLatin1String("--record-in"));
    if (command.takesRecords() && name.startsWith(QLatin1Char('-')) && !records.isEmpty())
        return runOnRecord(command, arguments);
    const HeadEntry *entry = findHead(name);
    if (!entry) {
        const QString given = name.isEmpty() ? QStringLiteral("no head is named")
                                             : QStringLiteral("there is no head \"%1\"").arg(name);
        return wrongUsage(
            QStringLiteral("%1; the heads are %2").arg(given, headNames()), command.name());
    }

    QCommandLineParser parser;
    addOptions(parser, command.options());
    addOptions(parser, kCommonOptions);
    addOptions(parser, entry->options);
    addHelp(parser);
    const QString help = QStringLiteral("%1 %2").arg(command.name(), name);
    if (!parser.parse(arguments)) // Takes the first argument, the head, for the program's name.
        return wrongUsage(parser.errorText(), help);
    if (wantsHelp(parser)) {
        console::print(helpOf(command, *entry));
        return ExitCode::Done;
    }
    const std::unique_ptr<Head> head = entry->make();
    OptionReader reader(parser);
    command.takeOptions(reader);
    const Request request = takeRequest(*entry, parser, reader);
    head->takeOptions(reader);
    return reader.error().isEmpty() ? import(command, *head, request)
                                    : wrongUsage(reader.error(), help);
}

QString helpOf(const HeadCommand &command)
{
    const QString output = outputUsage(command);
    QString help = QStringLiteral("Usage: panohost %1 HEAD [--config FILE] %2 [OPTIONS] "
                                  "PICTURE...\n")
                       .arg(command.name(), output);
    if (command.takesRecords())
        help += QStringLiteral("       panohost %1 --record-in FILE.json %2 [OPTIONS]\n")
                    .arg(command.name(), output);
    help += QStringLiteral("%1\nA folder stands for the pictures in it. -- ends the options. The "
                           "heads are %2.\n\n")
                .arg(command.description(), headNames());
    help += commonHelp(command);
    QStringList shown;
    for (const HeadEntry &entry : headEntries()) {
        for (const OptionText &option : entry.options) {
            if (shown.contains(QLatin1String(option.name)))
                continue;
            shown.append(QLatin1String(option.name));
            help += optionHelp(option, headsWith(option.name));
        }
    }
    return help;
}
