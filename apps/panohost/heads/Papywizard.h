// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/heads/Head.h"
#include "papywizard/MerlinToSPP.h"
#include "papywizard/ShootingChecks.h"

/// The heads of which an XML shooting file tells.
class ShootingFileHead : public Head {
public:
    bool readFile(const QString &path, const FindingSink &findings) override;
    QStringList obstacles(const PictureList &pictures, const ImportOptions &options) override;
    QStringList remarks(const PictureList &pictures, const ImportOptions &options) override;
    ProjectRecord convert(const PictureList &pictures, const ImportOptions &options) override;

    /// The options that a shooting file goes with.
    static std::vector<OptionText> options();

protected:
    virtual MerlinToSPP &converter() = 0;
};
