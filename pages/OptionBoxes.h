// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "pages/PageState.h"

class QCheckBox;
class QRadioButton;
class QSlider;
struct ProjectRecord;

/// The widgets for detection and linking that the pages have in common. A page that lacks one
/// leaves it null.
struct OptionBoxes {
    QCheckBox *autoDetection = nullptr;
    QCheckBox *cleanLinks = nullptr;
    QCheckBox *skipOptimization = nullptr;
    QCheckBox *guidedOptimization = nullptr;
    QRadioButton *referenceLevel = nullptr;
    QRadioButton *allLevels = nullptr;
    QRadioButton *hardLinks = nullptr;
    QRadioButton *stackPoints = nullptr;
    QSlider *zoom = nullptr;

    /// Stores the choices in \a record. Members without a widget keep their values.
    void copyTo(ProjectRecord &record) const;

    PageState state() const;
    void setState(const PageState &state) const;

    /// All stack levels were chosen: stacks need control points inside.
    void onAllLevels(bool checked) const;
    /// Hard links were chosen: only the reference level can be linked.
    void onHardLinks(bool checked) const;
};
