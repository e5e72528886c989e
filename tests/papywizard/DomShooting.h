// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "papywizard/PapywizardShooting.h"

#include <QByteArray>
#include <optional>

class QDomDocument;

/// Which Qt is at work, for what its versions judge differently.
constexpr bool kIsQt5 = QT_VERSION < QT_VERSION_CHECK(6, 0, 0);

/// The reading rules over a document model: what the reader's results are compared with. Nothing
/// when the model refuses \a xml; Qt 6's does so where Qt 5's leaves out what it cannot read. Not
/// for deep nesting, which overflows the model's stack.
std::optional<PapywizardShooting> readByDocumentModel(const QByteArray &xml);

/// The same for a document that the model has read.
PapywizardShooting shootingOf(const QDomDocument &document);
