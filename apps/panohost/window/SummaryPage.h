// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/window/RecordFigures.h"

#include <QWidget>

class MapView;
class QFormLayout;
class QLabel;

/// What came of an import, and what can be done with it.
class SummaryPage final : public QWidget {
    Q_OBJECT
public:
    explicit SummaryPage(QWidget *parent = nullptr);

    /// \a project is the path that was written.
    void show(const QString &project, const QVector<RecordFigure> &figures);
    MapView &map() { return *m_map; }

signals:
    void anotherWanted();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void openProject();
    void showFolder();

    QString m_project;
    QLabel *m_title;
    QLabel *m_path;
    QFormLayout *m_figures;
    MapView *m_map;
    QWidget *m_first;
};
