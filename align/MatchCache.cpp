// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/MatchCache.h"

#include <QDataStream>
#include <QDir>

namespace align {

namespace {

constexpr quint32 kMagic = 0x5A504D32;
/// Bytes; no value is longer.
constexpr quint32 kLongest = 1 << 20;

QString fileIn(const QString &folder)
{
    return folder + QStringLiteral("/matches");
}

} // namespace

MatchCache::MatchCache(const QString &folder, bool fresh)
{
    if (folder.isEmpty() || !QDir().mkpath(folder))
        return;
    m_file.setFileName(fileIn(folder));
    if (fresh)
        m_file.remove();
    // What is no regular file is none of ours.
    if (QFileInfo::exists(m_file.fileName()) && !QFileInfo(m_file.fileName()).isFile())
        return;
    if (m_file.open(QIODevice::ReadWrite))
        read();
}

void MatchCache::read()
{
    QDataStream stream(&m_file);
    stream.setVersion(QDataStream::Qt_5_15);
    quint32 magic = 0;
    stream >> magic;
    qint64 good = 0;
    if (magic == kMagic) {
        good = m_file.pos();
        const auto bytes = [&stream]() -> QByteArray {
            quint32 size = 0;
            stream >> size;
            if (stream.status() != QDataStream::Ok || size == 0 || size > kLongest)
                return {};
            QByteArray data(static_cast<int>(size), Qt::Uninitialized);
            return stream.readRawData(data.data(), data.size()) == data.size() ? data
                                                                               : QByteArray();
        };
        while (true) {
            const QByteArray key = bytes();
            const QByteArray value = bytes();
            if (key.isEmpty() || value.isEmpty())
                break;
            m_values.insert(key, value);
            good = m_file.pos();
        }
    }
    m_file.resize(good);
    m_file.seek(good);
    if (good == 0) {
        QDataStream(&m_file) << kMagic;
        m_file.flush();
    }
}

void MatchCache::insert(const QByteArray &key, const QByteArray &value)
{
    if (!m_file.isOpen())
        return;
    m_values.insert(key, value);
    QByteArray entry;
    QDataStream stream(&entry, QIODevice::WriteOnly);
    for (const QByteArray &part : {key, value})
        stream.writeBytes(part.constData(), static_cast<uint>(part.size()));
    m_file.write(entry);
    m_file.flush();
}

void MatchCache::remove(const QString &folder)
{
    if (QFileInfo(fileIn(folder)).isFile() && QFile::remove(fileIn(folder)))
        QDir().rmdir(folder);
}

} // namespace align
