// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "geometry/LinkLimit.h"
#include "host/ProjectRecord.h"
#include "papywizard/PapywizardShooting.h"
#include "reader/Finding.h"

#include <QStringList>

/// Turns an XML shooting file and the chosen pictures into a project record.
class MerlinToSPP {
public:
    /// Reads the shooting file at \a path. False when it cannot be opened or is not well-formed
    /// XML; the shooting then is as if nothing had been read. Anything missing in the file is left
    /// at its initial value.
    bool ReadXML(const QString &path, const FindingSink &findings = {});

    /// True when \a pictures is a whole number of stacks. A bracketing below 2 becomes 1.
    bool CheckBracketing(int pictures);

    /// Appends stacks, angles and links to the record and stores focal and lens type.
    /// \a focal in millimetres, negative: the file's; \a lensType 0 or 1, -1: the file's.
    void Convert(const QStringList &pictures, double focal, int lensType);

    /// What Convert() with the same arguments would search for. An import with too many links is
    /// not to be converted.
    geometry::LinkEstimate EstimateLinks(int pictures, double focal, int lensType) const;

    /// Makes the record as new, for another import.
    void ClearRecord() { m_record = {}; }

    ProjectRecord &Record() { return m_record; }
    PapywizardShooting &Shooting() { return m_shooting; }

private:
    struct Lens {
        float focal;
        int type;
    };
    Lens ChosenLens(double focal, int lensType) const;

protected:
    ProjectRecord m_record;
    PapywizardShooting m_shooting;
};
