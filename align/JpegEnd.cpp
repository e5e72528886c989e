// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/JpegEnd.h"

#include <QFile>
#include <algorithm>

namespace {

constexpr uchar kStartOfScan = 0xDA;

/// Whether the two bytes of the end mark stand between \a from and the end of \a file. Searched
/// from the end; compressed data never holds them.
bool endMarkAfter(QFile &file, qint64 from)
{
    constexpr qint64 kBlock = 65536;
    for (qint64 end = file.size(); end > from;) {
        const qint64 begin = std::max(from, end - kBlock);
        // One byte more, for a mark that lies across two blocks.
        if (!file.seek(begin))
            return false;
        if (file.read(end - begin + 1).contains("\xFF\xD9"))
            return true;
        end = begin;
    }
    return false;
}

} // namespace

JpegEnd jpegEnd(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.read(2) != "\xFF\xD8")
        return JpegEnd::NotJpeg;
    for (;;) {
        const QByteArray header = file.read(4);
        if (header.size() < 4)
            return JpegEnd::Missing;
        const auto byte = [&header](int i) { return static_cast<uchar>(header[i]); };
        if (byte(0) != 0xFF)
            return JpegEnd::NotJpeg;
        if (byte(1) == 0xFF) { // Filling before a mark.
            file.seek(file.pos() - 3);
            continue;
        }
        const int length = byte(2) * 256 + byte(3);
        if (length < 2)
            return JpegEnd::NotJpeg;
        if (byte(1) == kStartOfScan)
            return endMarkAfter(file, file.pos()) ? JpegEnd::Found : JpegEnd::Missing;
        // Beyond the end a seek succeeds and the next read comes up short.
        file.seek(file.pos() - 2 + length);
    }
}
