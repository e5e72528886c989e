// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/Options.h"
#include "apps/panohost/PictureList.h"
#include "geometry/LinkLimit.h"
#include "host/ProjectRecord.h"
#include "reader/Finding.h"

#include <limits>
#include <memory>
#include <optional>
#include <vector>

/// What the user asks of an import, whatever the head.
struct ImportOptions {
    /// The head's file as the user named it; empty for a head that has none.
    QString config;
    /// Millimetres as on 36 x 24 mm film.
    std::optional<double> focal;
    /// 0: standard, 1: fisheye.
    std::optional<int> lensType;
    bool invertPitch = false;
    /// Degrees that every picture is turned: 0, 90, 180 or -90.
    float turn = 0;
};

/// One kind of head on the command line: its file, its conversion. Made for one import.
class Head {
public:
    virtual ~Head() = default;

    /// Takes the options that only this head has.
    virtual void takeOptions(OptionReader & /*reader*/) { }

    /// Reads the head's file. False when the import cannot go on; the findings say why.
    virtual bool readFile(const QString & /*path*/, const FindingSink & /*findings*/)
    {
        return true;
    }

    /// Why an import of \a pictures cannot go on, a sentence each; the page would not be complete.
    virtual QStringList obstacles(const PictureList &pictures, const ImportOptions &options) = 0;

    /// What the user should know before trusting the result, a sentence each.
    virtual QStringList remarks(const PictureList & /*pictures*/, const ImportOptions & /*options*/)
    {
        return {};
    }

    /// The record of \a pictures, but for the options that are the same for all heads. Called when
    /// there are no obstacles.
    virtual ProjectRecord convert(const PictureList &pictures, const ImportOptions &options) = 0;
};

/// How a head appears on the command line.
struct HeadEntry {
    const char *name;
    const char *description;
    std::unique_ptr<Head> (*make)();
    /// Options that not all heads have, common ones among them.
    std::vector<OptionText> options;
    /// Pictures are sorted by their full path, not kept in the order given.
    bool sortsPictures = false;
    /// The import leaves every picture its own focal length and lens type, unless told otherwise.
    bool ownLenses = false;
    /// What holds without --clean-links and --no-clean-links.
    bool cleansLinks = false;

    /// Whether the command line knows \a option for this head.
    bool has(const char *option) const;
};

/// The options that several, but not all, heads share.
namespace options {
constexpr OptionText kConfig{"config", "FILE", "the head's file"};
constexpr OptionText kInvertPitch{
    "invert-pitch", nullptr, "turn every pitch round: the head counts downward"};
constexpr OptionText kRotate{
    "rotate", "90|180|270", "turn every picture clockwise by so many degrees"};
constexpr OptionText kStacks{"stacks", "hard|points",
    "inside a stack: the pictures share one position (default), or control points are detected"};
constexpr OptionText kLevels{"levels", "reference|all",
    "between stacks: match the reference pictures (default), or all levels; all implies "
    "--stacks points"};
constexpr OptionText kNoRecordedLocation{
    "no-recorded-location", nullptr, "do not let the recorded positions guide the optimisation"};
} // namespace options

/// All heads, in the order in which they are shown.
const std::vector<HeadEntry> &headEntries();
/// Null when there is none of that name.
const HeadEntry *findHead(const QString &name);

/// The part of the pictures that an import uses.
struct UsedPictures {
    int first = 0;
    int end = std::numeric_limits<int>::max();
};

/// For a head with HeadEntry::ownLenses: that the focal length of a picture it uses is unknown,
/// where none is given.
QStringList focalObstacles(
    const PictureList &pictures, const ImportOptions &options, const UsedPictures &used = {});
/// The same: stores a focal length that is given, with the lens type given or the last picture's.
void takeFocal(const PictureList &pictures, const ImportOptions &options, ProjectRecord *record);

/// That an import would have too many links; empty otherwise.
QStringList linkObstacles(const geometry::LinkEstimate &estimate);

/// \a focal as the focal length box of the pages holds it: three decimals, 1 to 10000 mm.
double boxedFocal(double focal);
