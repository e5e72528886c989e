// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/heads/Head.h"

HeadEntry claussEntry();
HeadEntry gigapanEntry();
HeadEntry papywizardEntry();
HeadEntry vrDrive2Entry();
