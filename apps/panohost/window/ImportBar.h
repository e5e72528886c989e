// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/window/ImportAdvice.h"

#include <QFrame>
#include <QMap>

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;

/// Tells what an import stands at: the next step, how far reading is, what cannot be read.
class ImportBar final : public QFrame {
    Q_OBJECT
public:
    explicit ImportBar(QWidget *parent = nullptr);

    /// \a unreadable are the reasons by path, \a timeLeft is in milliseconds, -1: unknown.
    void show(const ImportState &state, const QMap<QString, QString> &unreadable, qint64 timeLeft);

signals:
    void cancelled();
    void retried();
    /// The import is to go on without what cannot be read.
    void leftOut();

private:
    void showList(const QMap<QString, QString> &unreadable);

    QLabel *m_icon;
    QLabel *m_text;
    QProgressBar *m_progress;
    QLabel *m_timeLeft;
    QPushButton *m_cancel;
    QPushButton *m_retry;
    QPushButton *m_leaveOut;
    QListWidget *m_unreadable;
};
