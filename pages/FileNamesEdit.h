// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLineEdit>

/// A line edit for the names of thousands of files. Drawing a million characters takes a tenth of a
/// second, each time that something lies over the page or the mouse goes over the edit: so a long
/// text is drawn as far as it can be seen, from its beginning, unless the edit has the focus.
///
/// Without Q_OBJECT: to its page it is a QLineEdit.
class FileNamesEdit : public QLineEdit { // clazy:exclude=missing-qobject-macro
public:
    using QLineEdit::QLineEdit;

protected:
    void paintEvent(QPaintEvent *event) override;
};
