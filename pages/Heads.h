// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// What is known of each head apart from its import: identifiers, links, resources.
namespace heads {

/// Where a plug-in's settings and resources are kept, and its maker's web site.
struct Head {
    const char *identifier;
    const char *link;
    /// File name of the page's logo among the plug-in's resources.
    const char *logo;
};

constexpr Head kClauss{
    "5A6F7276-696B-2020-2020-D6D081182F97", "https://www.dr-clauss.de/", "Clauss_wp.png"};
constexpr Head kGigapan{
    "5A6F7276-696B-2020-2020-6028D47773DF", "https://www.gigapan.com/", "ZGigapan.png"};
constexpr Head kPapywizard{
    "5A6F7276-696B-2020-2020-483181480AB7", "https://www.papywizard.org/", "Papywizard.png"};
constexpr Head kVRDrive2{
    "5A6F7276-696B-2020-2020-B662C695C918", "https://www.roundshot.com/", "VRDrive2.png"};
/// The library itself, which shows the Gigapan picture under its own identifier.
constexpr Head kLibrary{"5A6F7276-696B-2020-2020-2D91D0DDB961", "", "ZGigapan.png"};

/// Path of the resource \a name of the head's plug-in.
inline QString resource(const Head &head, const char *name)
{
    return QStringLiteral(":/%1/Resources/%2")
        .arg(QLatin1String(head.identifier), QLatin1String(name));
}

/// A subtitle's beginning: \a name as a link to the head's maker, in \a colour on \a ground. The
/// makers' light grey needs a dark ground of its own to be readable in light and dark windows.
inline QString makerLink(const Head &head, const char *name,
    const QString &colour = QStringLiteral("#DCDCDC"),
    const QString &ground = QStringLiteral("#404040"))
{
    return QStringLiteral("<a href=\"%1\" style=\"background-color:%3\">"
                          "<font color=\"%4\">%2</font></a>")
        .arg(QLatin1String(head.link), QLatin1String(name), ground, colour);
}

} // namespace heads
