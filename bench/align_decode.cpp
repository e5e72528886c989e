// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// align_decode PICTURE... reads the pictures at the size at which they would be aligned, and does
// nothing with them: what no alignment can do without.

#include "align/PictureFacts.h"
#include "align/WorkingPicture.h"

#include <QFile>

int main(int argc, char **argv)
{
    int failed = 0;
    for (int i = 1; i < argc; ++i) {
        const QString path = QFile::decodeName(argv[i]);
        const QSize size = readPictureFacts(path, Thumbnail::Skip).size;
        failed += align::readWorkingPicture(path, size).isNull();
    }
    return failed > 0 ? 1 : 0;
}
