// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clauss/ClaussScript.h"
#include "fuzz/Require.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

/// Reads \a bytes and returns the number of shots.
int check(const QByteArray &bytes, bool fullAngles)
{
    bool valid = true;
    bool empty = false;
    const ClaussScript script = readClaussScript(bytes, fullAngles, [&](const Finding &finding) {
        valid &= finding.cause != Finding::Cause::NotANumber;
        empty |= finding.cause == Finding::Cause::NoShots;
    });
    require(script.valid == valid && script.shots.isEmpty() == empty);
    for (int k = 0; k < script.shots.size(); ++k) {
        const HeadShot &shot = script.shots.at(k);
        require(shot.id == k && std::isfinite(shot.yaw) && std::isfinite(shot.pitch));
    }
    return script.shots.size();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    require(check(bytes, false) == check(bytes, true));
    return 0;
}
