// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QLineEdit;
class QWidget;

/// How a page asks for files: the dialog, what is done with its answer, and paths typed by hand.
namespace filechooser {

struct Request {
    QString caption;
    /// A folder, or a file whose folder is meant.
    QString start;
    QString filters;
    QString selectedFilter;
};

/// Files chosen in a dialog over \a parent; empty when it was cancelled. With the Control key held
/// down the start folder is opened in the desktop's file browser instead of the dialog.
QStringList chooseFiles(QWidget *parent, const Request &request);

/// Chosen files, the head's own told from the pictures.
struct Choice {
    /// The last file with the head's suffix; empty when there is none.
    QString configFile;
    /// All others, in the order chosen.
    QStringList pictures;
};

/// Tells files whose name ends with \a suffix (".xml", in any case) from pictures.
Choice sortOut(const QStringList &files, QLatin1String suffix);

/// Completes \a edit over the file system. \a taken is called with a path picked from the list.
void completePaths(QLineEdit *edit, std::function<void(const QString &)> taken);

/// The names of \a files without folders, each as "name" followed by a semicolon and a blank.
QString quotedNames(const QStringList &files);

} // namespace filechooser
