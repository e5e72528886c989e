// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/ShootingText.h"

#include <cmath>

namespace {

/// Angles in degrees of the places of a shooting.
struct Raster {
    explicit Raster(int places)
        : step(std::sqrt(360.0 * 90.0 / places))
        , columns(static_cast<int>(std::ceil(360 / step)))
    {
    }
    double yaw(int place) const { return place % columns * 360.0 / columns; }
    double pitch(int place) const
    {
        const int row = place / columns;
        return 45 - row * step;
    }

    double step;
    int columns;
};

} // namespace

QByteArray bench::shootingXml(int shots, int brackets)
{
    const Raster raster(shots / brackets);
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<papywizard version=\"c\">\n"
                     "    <header>\n        <general>\n            <title>Bench</title>\n"
                     "        </general>\n        <camera>\n            <sensor coef=\"1.0\"/>\n"
                     "            <bracketing nbPicts=\"";
    xml += QByteArray::number(brackets);
    xml += "\"/>\n        </camera>\n        <lens type=\"rectilinear\">\n"
           "            <focal>200.0</focal>\n        </lens>\n    </header>\n    <shoot>\n";
    for (int shot = 0; shot < shots; ++shot) {
        const int place = shot / brackets;
        const int second = shot % 86'400;
        xml += "        <pict id=\"" + QByteArray::number(shot + 1) + "\" bracket=\""
            + QByteArray::number(shot % brackets + 1) + "\">\n            <time>Sat Nov 21 "
            + QByteArray::number(second / 3600).rightJustified(2, '0') + ':'
            + QByteArray::number(second / 60 % 60).rightJustified(2, '0') + ':'
            + QByteArray::number(second % 60).rightJustified(2, '0')
            + " 2009</time>\n            <position pitch=\""
            + QByteArray::number(raster.pitch(place), 'f', 2) + "\" yaw=\""
            + QByteArray::number(raster.yaw(place), 'f', 2) + "\"/>\n        </pict>\n";
    }
    return xml + "    </shoot>\n</papywizard>\n";
}

QByteArray bench::claussScript(int shots)
{
    // The format has whole degrees only.
    QByteArray script;
    const Raster raster(shots);
    for (int shot = 0; shot < shots; ++shot) {
        script += "op_h-angle=" + QByteArray::number(qRound(raster.yaw(shot))) + "\r\nop_v-angle="
            + QByteArray::number(qRound(raster.pitch(shot))) + "\r\nop_shoot\r\n";
    }
    return script;
}
