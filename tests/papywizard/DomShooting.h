// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "papywizard/PapywizardShooting.h"

#include <QByteArray>
#include <optional>

/// The reading rules over a document model: what the reader's results are compared with. Nothing
/// when the model refuses \a xml. Not for deep nesting, which overflows the model's stack.
std::optional<PapywizardShooting> readByDocumentModel(const QByteArray &xml);
