// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QStringList>
#include <QVector>

/// Locations that the host is to match against each other.
struct ProjectLink {
    enum Kind {
        Near = 0, ///< by angle, in any direction
        Vertical = 1, ///< one above the other
        Horizontal = 2, ///< side by side
        DownRight = 3, ///< diagonal
        DownLeft = 4, ///< diagonal
    };

    int kind = Near;
    /// Places in ProjectRecord::groups.
    QVector<int> indices;
};
Q_DECLARE_TYPEINFO(ProjectLink, Q_MOVABLE_TYPE);

/// A finished import, as ZIApplication::ImportProject() receives it: plain values, nothing that the
/// page keeps hold of.
///
/// Angles are radians: yaw to the right, pitch upward, roll clockwise as the picture is looked at.
/// A member of which an import knows nothing keeps the initial value given here.
struct ProjectRecord {
    /// A standard lens is rectilinear.
    enum LensType { StandardLens = 0, Fisheye = 1 };
    enum OutputType { HostsChoice = 0, Tonemapped = 2, HdrRadiance = 3 };

    /// One entry a location: full paths of the pictures taken there (one, or a bracketed stack), in
    /// shooting order. VR Drive 2 has the reference picture of a stack first.
    QList<QStringList> groups;
    /// Empty where no two locations are neighbours, and for a fisheye lens chosen on the page.
    QVector<ProjectLink> links;

    /// Angles, one a shot: location p has its at index p x (number of angles / number of groups).
    /// All are empty for a grid, which has no angles; rolls are empty for a head that gives none;
    /// else the three are equally long.
    QVector<float> yaws;
    QVector<float> pitches;
    QVector<float> rolls;

    /// Focal length in millimetres as on 36 x 24 mm film; 0: each picture's own.
    float focal = 0;
    int lensType = StandardLens;

    /// The host detects control points by itself.
    bool autoDetection = false;
    /// Inside a stack 0: the pictures share one position, 1: control points are detected.
    int stackLinking = 0;
    /// Between stacks 0: only the reference pictures are matched, 1: every level with its like.
    int levelLinking = 0;
    /// The recorded positions guide the optimisation.
    bool guidedOptimization = false;
    bool skipOptimization = false;
    /// Control points that do not fit are removed after detection.
    bool cleanLinks = false;

    /// Grid of a Gigapan shooting: order 0 to 4, rows, pictures a location, whether the columns
    /// close a full turn, overlap of neighbours in percent.
    int layoutMode = 0;
    int layoutRows = 0;
    int layoutBracket = 0;
    bool fullTurn = false;
    double overlap = 0;

    /// The rendering wanted.
    int outputType = HostsChoice;
};
