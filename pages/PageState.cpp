// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pages/PageState.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>

namespace {
constexpr quint32 kMagic = 0x5A504853; // "ZPHS"
constexpr quint16 kVersion = 1;
constexpr auto kStreamVersion = QDataStream::Qt_5_6;
} // namespace

QByteArray PageState::toByteArray() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(kStreamVersion);
    stream << kMagic << kVersion << autoDetection << cleanLinks << skipOptimization
           << guidedOptimization << allLevels << stackPoints << qint32(zoom);
    return bytes;
}

std::optional<PageState> PageState::fromByteArray(const QByteArray &bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(kStreamVersion);
    quint32 magic = 0;
    quint16 version = 0;
    stream >> magic >> version;
    if (magic != kMagic || version != kVersion)
        return std::nullopt;
    PageState state;
    qint32 zoom = 0;
    stream >> state.autoDetection >> state.cleanLinks >> state.skipOptimization
        >> state.guidedOptimization >> state.allLevels >> state.stackPoints >> zoom;
    if (stream.status() != QDataStream::Ok || !stream.atEnd())
        return std::nullopt;
    state.zoom = std::clamp<int>(zoom, 1, 100);
    // The pages never let both be chosen: all levels need points inside the stacks.
    state.stackPoints = state.stackPoints || state.allLevels;
    return state;
}
