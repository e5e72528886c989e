// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/ProjectRecord.h"

#include <QByteArray>
#include <optional>

/// \a record as a JSON object with the members' names and order; a link is
/// {"kind": 2, "indices": [0, 1]}. Paths are made absolute, 32-bit values have nine digits and so
/// come back as they were; a value that is not finite is null.
QByteArray recordToJson(const ProjectRecord &record);

/// The record that \a json tells of. A member that is missing keeps its initial value, null is
/// not-a-number, unknown keys are ignored. Nothing, and a sentence in \a error, when \a json is no
/// such object or a member is of another kind.
std::optional<ProjectRecord> recordFromJson(const QByteArray &json, QString *error);
