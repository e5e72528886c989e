// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/Lens.h"
#include "align/PtoProject.h"
#include "align/Rotation.h"

#include <vector>

namespace align {

/// The cameras of a panorama, one a picture. Pictures of the same optics share a lens, those that
/// the head took at one place share that.
class Cameras {
public:
    /// All of them look where \a project has them.
    explicit Cameras(const PtoProject &project);

    int count() const { return static_cast<int>(m_rotations.size()); }

    /// Where the head, or the grid, says that \a picture looks.
    const Rotation &recorded(int picture) const { return m_recorded[at(picture)]; }
    /// Where it does, as far as is known.
    const Rotation &rotation(int picture) const { return m_rotations[at(picture)]; }
    /// Of the second camera's axes into the first's.
    Rotation turnBetween(int first, int second) const
    {
        return rotation(first).transpose() * rotation(second);
    }
    /// The first picture of the same place.
    int owner(int picture) const { return m_owners[at(picture)]; }

    /// Its place among the lenses.
    int lensPlace(int picture) const { return m_lensPlaces[at(picture)]; }
    /// The lens as recorded, and as far as is known.
    const Lens &nominalLens(int picture) const { return m_nominal[at(lensPlace(picture))]; }
    const Lens &lens(int picture) const { return m_lenses[at(lensPlace(picture))]; }
    /// Stored pixels a working pixel.
    double scale(int picture) const { return m_scales[at(lensPlace(picture))]; }
    const std::vector<Lens> &nominalLenses() const { return m_nominal; }
    const std::vector<double> &scales() const { return m_scales; }

    /// Takes another word for the head's, and lets \a picture look there.
    void setRecorded(int picture, const Rotation &rotation);
    void setRotation(int picture, const Rotation &rotation) { m_rotations[at(picture)] = rotation; }
    void setLenses(std::vector<Lens> lenses) { m_lenses = std::move(lenses); }

private:
    static std::size_t at(int i) { return static_cast<std::size_t>(i); }

    std::vector<Rotation> m_recorded;
    std::vector<Rotation> m_rotations;
    std::vector<int> m_owners;
    std::vector<int> m_lensPlaces;
    std::vector<Lens> m_nominal;
    std::vector<Lens> m_lenses;
    std::vector<double> m_scales;
};

} // namespace align
