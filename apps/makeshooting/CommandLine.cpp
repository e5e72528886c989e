// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/CommandLine.h"

#include "apps/makeshooting/HeadFiles.h"

#include <QCommandLineParser>
#include <cmath>

namespace makeshooting {

namespace {

constexpr double kShortestFocal = 1;
constexpr double kLongestFocal = 5000;
constexpr double kLeastCrop = 0.1;
constexpr double kMostCrop = 10;
constexpr qint64 kMostPictures = 200000;

template <typename Value> struct Named {
    const char *name;
    Value value;
};

constexpr Named<HeadFormat> kFormats[] = {
    {"papywizard", HeadFormat::Papywizard},
    {"clauss", HeadFormat::Clauss},
    {"gigapan", HeadFormat::Gigapan},
    {"vrdrive2", HeadFormat::VRDrive2},
};
constexpr Named<Lens> kLenses[] = {{"rectilinear", Lens::Rectilinear}, {"fisheye", Lens::Fisheye}};
constexpr Named<Mounting> kPortraits[]
    = {{"tag", Mounting::PortraitByTag}, {"pixels", Mounting::PortraitByPixels}};
constexpr Named<Order> kOrders[] = {
    {"columns", Order::Columns},
    {"rows-down", Order::RowsDown},
    {"rows-up", Order::RowsUp},
    {"columns-left", Order::ColumnsLeft},
    {"serpentine-up", Order::SerpentineUp},
};

template <typename Value, std::size_t Count>
QString nameIn(const Named<Value> (&table)[Count], Value value)
{
    for (const Named<Value> &entry : table) {
        if (entry.value == value)
            return QLatin1String(entry.name);
    }
    return {};
}

QVector<double> numbersIn(const QString &text, QLatin1Char separator)
{
    QVector<double> numbers;
    const QStringList parts = text.split(separator);
    for (const QString &part : parts) {
        bool good = false;
        const double number = part.toDouble(&good);
        if (!good || !std::isfinite(number))
            return {};
        numbers << number;
    }
    return numbers;
}

/// Reads options into variables and keeps the first complaint.
class Options {
public:
    void add(const char *name, const char *help, const char *value = "")
    {
        m_parser.addOption({QLatin1String(name), QLatin1String(help), QLatin1String(value)});
    }
    bool parse(const QStringList &arguments)
    {
        if (!m_parser.parse(arguments))
            m_error = m_parser.errorText();
        else if (!m_parser.positionalArguments().isEmpty())
            complain(QStringLiteral("unexpected argument \"%1\"")
                         .arg(m_parser.positionalArguments().first()));
        return m_error.isEmpty();
    }
    bool isSet(const char *name) const { return m_parser.isSet(QLatin1String(name)); }
    QString text(const char *name) const { return m_parser.value(QLatin1String(name)); }
    QString help() const { return m_parser.helpText(); }
    QString error() const { return m_error; }
    void describe(const QString &text) { m_parser.setApplicationDescription(text); }

    void read(const char *name, double &target, double least, double most)
    {
        if (!isSet(name))
            return;
        const QVector<double> numbers = numbersIn(text(name), QLatin1Char('\n'));
        if (numbers.isEmpty() || numbers.first() < least || numbers.first() > most)
            return bad(name, QStringLiteral("a number from %1 to %2").arg(least).arg(most));
        target = numbers.first();
    }
    void read(const char *name, int &target, int least, int most)
    {
        double number = target;
        read(name, number, least, most);
        if (number != std::floor(number))
            return bad(name, QStringLiteral("a whole number"));
        target = static_cast<int>(number);
    }
    void read(const char *name, std::optional<Range> &target, double most)
    {
        if (!isSet(name))
            return;
        const QVector<double> numbers = numbersIn(text(name), QLatin1Char(','));
        if (numbers.size() != 2 || std::abs(numbers[0]) > most || std::abs(numbers[1]) > most)
            return bad(name, QStringLiteral("two angles like -30,30, up to %1 degrees").arg(most));
        target = Range{numbers[0], numbers[1]};
    }
    void read(const char *name, QSize &target, int most)
    {
        if (!isSet(name))
            return;
        const QVector<double> numbers = numbersIn(text(name), QLatin1Char('x'));
        const auto wrong = [most](double number) {
            return number < 16 || number > most || number != std::floor(number);
        };
        if (numbers.size() != 2 || wrong(numbers[0]) || wrong(numbers[1]))
            return bad(
                name, QStringLiteral("a size like 900x600, 16 to %1 pixels a side").arg(most));
        target = {static_cast<int>(numbers[0]), static_cast<int>(numbers[1])};
    }
    template <typename Value, std::size_t Count>
    void read(const char *name, Value &target, const Named<Value> (&table)[Count])
    {
        if (!isSet(name))
            return;
        QStringList names;
        for (const Named<Value> &entry : table) {
            names << QLatin1String(entry.name);
            if (text(name) == names.last()) {
                target = entry.value;
                return;
            }
        }
        bad(name, QStringLiteral("one of ") + names.join(QLatin1String(", ")));
    }
    void complain(const QString &text)
    {
        if (m_error.isEmpty())
            m_error = text;
    }

private:
    void bad(const char *name, const QString &wanted)
    {
        complain(QStringLiteral("--%1 takes %2, not \"%3\"")
                     .arg(QLatin1String(name), wanted, text(name)));
    }

    QCommandLineParser m_parser;
    QString m_error;
};

void declare(Options &options)
{
    options.describe(QStringLiteral(
        "Renders the pictures that a panoramic head would have taken of a made-up square, and "
        "writes\n"
        "the head's file beside them, the true positions (truth.json) and a project with them\n"
        "(truth.pto). Angles in degrees, yaw to the right, pitch upward."));
    options.add("help", "Show this help.");
    options.add("output", "Folder for the shooting; made if need be.", "folder");
    options.add("force", "Write into a folder that is not empty.");
    options.add(
        "scene", "Also, or without --output only, write the whole scene, equirectangular.", "file");
    options.add("scene-width", "Its width (default 4096).", "pixels");
    options.add(
        "threads", "Threads to render with (default: one a core). The result is the same.", "n");
    options.add("seed", "Scene, head errors and noise follow from it (default 1).", "n");

    options.add("format", "papywizard (default), clauss, gigapan or vrdrive2.", "head");
    options.add("rows", "Rows of a grid (default 3).", "n");
    options.add("columns", "Columns of a grid (default 12).", "n");
    options.add("sphere", "As many rows and columns as the full sphere needs.");
    options.add("from",
        "The positions of this XML shooting file or Clauss script, which is copied.", "file");
    options.add("full-turn", "The columns go once round; else the overlap sets them apart.");
    options.add("overlap", "Overlap of neighbours (default 30).", "percent");
    options.add("yaw-range", "Yaw of the first and last column.", "from,to");
    options.add("pitch-range", "Pitch of the lowest and highest row.", "from,to");
    options.add(
        "order", "columns (default), rows-down, rows-up, columns-left or serpentine-up.", "order");
    options.add("head-step", "Positions are multiples of this (default: 1 for clauss, else 0.01).",
        "degrees");

    options.add("size", "Pixels of the camera held level (default 900x600).", "WxH");
    options.add("lens", "rectilinear (default) or fisheye.", "lens");
    options.add("focal", "Focal length as on 36 x 24 mm film (default 20).", "mm");
    options.add("crop", "Crop factor: how much smaller the sensor is (default 1).", "factor");
    options.add("portrait",
        "The camera is turned: \"tag\" stores lying pictures, \"pixels\" upright ones.", "how");
    options.add("brackets", "Pictures a location, dark to bright (default 1).", "n");
    options.add("bracket-step", "Stops between them (default 2).", "EV");
    options.add(
        "noise", "Standard deviation of the noise, in steps of 8 bits (default 0).", "sigma");
    options.add("ignore", "Pictures before the shooting that do not belong to it.", "n");
    options.add("leftover", "Pictures after it that do not belong to it.", "n");

    options.add("sky", "Nothing but plain sky above this pitch.", "degrees");
    options.add(
        "blurred-sky", "Soft patches instead of plain sky (above 25 degrees without --sky).");
    options.add("repeat", "The same houses, trees and hills every 30 degrees.");

    options.add("head-error", "Standard deviation of the head about each axis.", "degrees");
    options.add("head-offset", "Offset of all pictures from the head's positions.", "yaw,pitch");
    options.add("focal-error", "How much longer than stated the focal length is.", "percent");
    options.add("distortion", "Third-power radial distortion, barrel below 0.", "b");
}

/// Takes what the file at \a path says, as far as the command line does not say otherwise.
void takeHeadFile(Options &options, const QString &path, ShootingOptions &shooting)
{
    for (const char *other : {"rows", "columns", "sphere", "full-turn", "overlap", "yaw-range",
             "pitch-range", "order", "head-step"}) {
        if (options.isSet(other))
            options.complain(
                QStringLiteral("--%1 and --from exclude each other").arg(QLatin1String(other)));
    }
    QString error;
    const std::optional<GivenHeadFile> given = readHeadFile(path, &error);
    if (!given)
        return options.complain(error);
    shooting.positions = given->positions;
    shooting.givenFile = given->file;
    if (given->format == HeadFormat::Clauss || !options.isSet("format"))
        shooting.format = given->format;
    if (!options.isSet("focal"))
        shooting.focal = given->focal;
    if (!(shooting.focal >= kShortestFocal && shooting.focal <= kLongestFocal))
        options.complain(QStringLiteral("%1: gives no focal length; --focal does").arg(path));
    if (!options.isSet("crop") && given->crop >= kLeastCrop && given->crop <= kMostCrop)
        shooting.crop = given->crop;
    if (!options.isSet("brackets"))
        shooting.brackets = given->brackets;
    if (given->positions.size() % shooting.brackets != 0)
        options.complain(QStringLiteral("%1: %2 shots are no multiple of %3 brackets")
                             .arg(path)
                             .arg(given->positions.size())
                             .arg(shooting.brackets));
    if (given->fisheye && !options.isSet("lens"))
        shooting.lens = Lens::Fisheye;
    if (given->portrait && !options.isSet("portrait"))
        shooting.mounting = Mounting::PortraitByTag;
}

} // namespace

CommandLine parseCommandLine(const QStringList &arguments)
{
    Options options;
    declare(options);
    CommandLine result;
    if (!options.parse(arguments)) {
        result.error = options.error();
        return result;
    }
    if (options.isSet("help")) {
        result.answer = options.help();
        return result;
    }
    result.output = options.text("output");
    result.force = options.isSet("force");
    result.scene = options.text("scene");
    options.read("scene-width", result.sceneWidth, 16, 32768);
    options.read("threads", result.threads, 1, 256);

    ShootingOptions &shooting = result.shooting;
    int seed = 1;
    options.read("seed", seed, 0, 2147483647);
    shooting.scene.seed = static_cast<quint32>(seed);
    options.read("format", shooting.format, kFormats);
    options.read("rows", shooting.rows, 1, 10000);
    options.read("columns", shooting.columns, 1, 10000);
    shooting.sphere = options.isSet("sphere");
    shooting.fullTurn = options.isSet("full-turn");
    options.read("overlap", shooting.overlap, 0, 95);
    options.read("yaw-range", shooting.yawRange, 3600);
    options.read("pitch-range", shooting.pitchRange, 180);
    options.read("order", shooting.order, kOrders);
    options.read("head-step", shooting.headStep, 1e-6, 90);
    options.read("size", shooting.size, 20000);
    options.read("lens", shooting.lens, kLenses);
    options.read("focal", shooting.focal, kShortestFocal, kLongestFocal);
    options.read("crop", shooting.crop, kLeastCrop, kMostCrop);
    options.read("portrait", shooting.mounting, kPortraits);
    options.read("brackets", shooting.brackets, 1, 99);
    options.read("bracket-step", shooting.bracketStep, -5, 5);
    options.read("noise", shooting.noise, 0, 100);
    options.read("ignore", shooting.ignored, 0, 1000);
    options.read("leftover", shooting.leftOver, 0, 1000);
    shooting.scene.blurredSky = options.isSet("blurred-sky");
    if (shooting.scene.blurredSky)
        shooting.scene.plainSkyAbove = 25;
    options.read("sky", shooting.scene.plainSkyAbove, -90, 90);
    shooting.scene.repeat = options.isSet("repeat");
    options.read("head-error", shooting.headError, 0, 30);
    std::optional<Range> offset;
    options.read("head-offset", offset, 360);
    if (offset) {
        shooting.yawOffset = offset->from;
        shooting.pitchOffset = offset->to;
    }
    options.read("focal-error", shooting.focalError, -50, 50);
    options.read("distortion", shooting.distortion, -0.2, 0.2);

    if (shooting.sphere && shooting.format == HeadFormat::Gigapan)
        options.complain(QStringLiteral("--sphere makes no grid, but --format gigapan needs one"));
    if (options.isSet("from"))
        takeHeadFile(options, options.text("from"), shooting);
    if (pictureCount(shooting) > kMostPictures)
        options.complain(QStringLiteral("more than %1 pictures").arg(kMostPictures));
    if (!trueCamera(shooting).seesItsCorners())
        options.complain(QStringLiteral("--distortion %1 folds the corners of such pictures")
                             .arg(shooting.distortion));
    if (result.output.isEmpty() && result.scene.isEmpty())
        options.complain(QStringLiteral("--output is missing"));
    result.error = options.error();
    return result;
}

QString nameOf(HeadFormat format)
{
    return nameIn(kFormats, format);
}

QString nameOf(Lens lens)
{
    return nameIn(kLenses, lens);
}

} // namespace makeshooting
