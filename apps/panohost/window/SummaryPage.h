// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "apps/panohost/window/FinishingPane.h"
#include "apps/panohost/window/RecordFigures.h"

#include <QWidget>

class MapView;
class PictureView;
class QCheckBox;
class QFormLayout;
class QLabel;
class QTabWidget;

/// What came of an import, and what can be done with it.
class SummaryPage final : public QWidget {
    Q_OBJECT
public:
    explicit SummaryPage(QWidget *parent = nullptr);

    void show(const WrittenImport &import, const QVector<RecordFigure> &figures);
    MapView &map() { return *m_map; }
    /// Whether it is working on the import; it must not be shown another meanwhile.
    bool isBusy() const { return m_finishing->isBusy(); }

signals:
    void anotherWanted();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void openProject();
    void showFolder();
    void showPanorama(const ShownPanorama &panorama);
    void showLines();

    QString m_project;
    QLabel *m_title;
    QLabel *m_path;
    QFormLayout *m_figures;
    QTabWidget *m_views;
    MapView *m_map;
    QWidget *m_panorama;
    PictureView *m_picture;
    ShownPanorama m_shown;
    QCheckBox *m_outlines;
    QCheckBox *m_seams;
    FinishingPane *m_finishing;
    QWidget *m_first;
};
