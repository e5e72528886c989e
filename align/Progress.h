// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <functional>

/// Told how far a long task is: \a done of \a total of what is named \a step, in English; a total
/// of 0 says that the end is not known. Called in the task's thread. False cancels the task, which
/// then ends soon and leaves nothing half done.
using Progress = std::function<bool(const QString &step, int done, int total)>;

/// The name of \a step in the user's language.
inline QString shownStep(const QString &step)
{
    return QCoreApplication::translate("Progress", step.toUtf8().constData());
}
