// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "fuzz/Require.h"
#include "papywizard/MerlinToSPP.h"
#include "papywizard/ShootingChecks.h"
#include "papywizard/ShootingFile.h"

#include <QBuffer>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

/// More links than text is no fault of the reader's.
constexpr int kFewPictures = 50;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QByteArray bytes
        = QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);

    MerlinToSPP converter;
    PapywizardShooting &shooting = converter.Shooting();
    int findings = 0;
    const bool accepted
        = readShooting(buffer, shooting, [&findings](const Finding &) { ++findings; });

    require(accepted || (findings == 1 && shooting.shots.isEmpty() && shooting.focal == -1.0));
    for (const PapywizardShot &shot : qAsConst(shooting.shots))
        require(std::isfinite(shot.yaw) && std::isfinite(shot.pitch) && shot.roll == 0);

    const int pictures = qMin(kFewPictures, shooting.shots.size());
    shootingWarning({shooting, shooting.shots.size(), pictures, {35, 0}});
    QStringList paths;
    for (int i = 0; i < pictures; ++i)
        paths += QString::number(i);
    converter.Convert(paths, -1, -1);
    for (const ProjectLink &link : qAsConst(converter.Record().links)) {
        for (const int index : link.indices)
            require(index >= 0 && index < converter.Record().groups.size());
    }
    return 0;
}
