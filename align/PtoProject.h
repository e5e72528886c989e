// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "align/PictureFacts.h"
#include "host/ProjectRecord.h"

#include <QByteArray>
#include <optional>

/// The place in a stack of the picture that stands for it between stacks: the first where the
/// record wants one output per stack (its import has put the reference there), else the one of
/// middle exposure.
int referencePicture(
    const ProjectRecord &record, const QStringList &stack, const PictureTable &pictures);

/// \a record as a project for the Hugin tools: a line a picture with its lens and place, stacks
/// linked as the record says, the variables to optimise, and a canvas that shows all. Pictures
/// below \a folder, the project's, are named from there, others by their full path.
///
/// \a pictures must hold every picture of the record. Nothing, and a sentence in \a problem, when
/// one is missing, cannot be named in a project, has no focal length, or the record does not hold
/// together.
std::optional<QByteArray> ptoProject(const ProjectRecord &record, const PictureTable &pictures,
    const QString &folder, QString *problem);
