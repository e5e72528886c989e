// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

struct ProjectRecord;

/// The whole record as text, a line a member or entry, for QCOMPARE of records. Nothing is rounded
/// away: 32-bit values have nine digits, doubles seventeen.
QString dump(const ProjectRecord &record);

/// The stacks alone, pictures by their names without folder and suffix, as "0 1|2 3".
QString stacksOf(const ProjectRecord &record);
/// The links alone, as "kind:first-second" each.
QString linksOf(const ProjectRecord &record);
