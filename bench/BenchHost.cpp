// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/BenchHost.h"

#include <QPainter>
#include <QThread>

BenchHost::BenchHost(int &argc, char **argv)
    : QApplication(argc, argv)
    , m_thumbnail(160, 120)
{
    QPainter painter(&m_thumbnail);
    QLinearGradient sky(0, 0, 160, 120);
    sky.setColorAt(0, Qt::cyan);
    sky.setColorAt(1, Qt::darkGreen);
    painter.fillRect(m_thumbnail.rect(), sky);
}

ImageInfo *BenchHost::ReadImageInfo(const QString &)
{
    if (const int time = pictureTime; time > 0)
        QThread::usleep(static_cast<unsigned long>(time));
    ++pictures;
    return &m_pictures.emplace_back();
}

const QPixmap &BenchHost::Picture::GetThumbnail() const
{
    ++instance().thumbnails;
    return instance().m_thumbnail;
}
