// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/SummaryPage.h"

#include "apps/panohost/window/MapView.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTabWidget>
#include <QUrl>
#include <QVBoxLayout>

/// Shows a picture as large as there is room.
class PictureView final : public QWidget {
public:
    void setPicture(const QImage &picture)
    {
        m_picture = QPixmap::fromImage(picture);
        update();
    }
    /// Lines whose points are parts of the picture's width and height.
    void setLines(const QVector<QPolygonF> &outlines, const QVector<QPolygonF> &seams)
    {
        m_outlines = outlines;
        m_seams = seams;
        update();
    }
    QSize sizeHint() const override { return {400, 200}; }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QRect place({}, m_picture.size().scaled(size(), Qt::KeepAspectRatio));
        place.moveCenter(rect().center());
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(place, m_picture);
        painter.setClipRect(place);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(place.topLeft());
        const QTransform scale = QTransform::fromScale(place.width(), place.height());
        const auto draw = [&](const QVector<QPolygonF> &lines, const QColor &colour) {
            // Seen on bright and on dark.
            for (const QPen &pen : {QPen(Qt::black, 3), QPen(colour, 1)}) {
                painter.setPen(pen);
                for (const QPolygonF &line : lines)
                    painter.drawPolyline(scale.map(line));
            }
        };
        draw(m_outlines, Qt::yellow);
        draw(m_seams, Qt::cyan);
    }

private:
    QPixmap m_picture;
    QVector<QPolygonF> m_outlines;
    QVector<QPolygonF> m_seams;
};

SummaryPage::SummaryPage(QWidget *parent)
    : QWidget(parent)
    , m_title(new QLabel)
    , m_path(new QLabel)
    , m_figures(new QFormLayout)
    , m_views(new QTabWidget)
    , m_map(new MapView)
    , m_panorama(new QWidget)
    , m_picture(new PictureView)
    , m_outlines(new QCheckBox(tr("Show where the pictures e&nd")))
    , m_seams(new QCheckBox(tr("Show where they are &joined")))
    , m_finishing(new FinishingPane)
{
    QFont font = m_title->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    m_title->setFont(font);
    m_title->setWordWrap(true);
    // Names of files may look like tags.
    m_title->setTextFormat(Qt::PlainText);
    m_path->setTextFormat(Qt::PlainText);
    m_path->setWordWrap(true);
    m_path->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_map->setObjectName(QStringLiteral("map"));
    m_map->setToolTip(QString());

    auto *open = new QPushButton(tr("&Open in Hugin"));
    open->setObjectName(QStringLiteral("open"));
    auto *folder = new QPushButton(tr("&Show the folder"));
    folder->setObjectName(QStringLiteral("folder"));
    auto *another = new QPushButton(tr("&Import another"));
    another->setObjectName(QStringLiteral("another"));
    m_first = open;
    connect(open, &QPushButton::clicked, this, &SummaryPage::openProject);
    connect(folder, &QPushButton::clicked, this, &SummaryPage::showFolder);
    connect(another, &QPushButton::clicked, this, &SummaryPage::anotherWanted);
    // Two rows: one would be wider than a small screen.
    auto *finishing = new QHBoxLayout;
    auto *buttons = new QHBoxLayout;
    finishing->addStretch(1);
    buttons->addStretch(1);
    for (QPushButton *button :
        {m_finishing->alignButton(), m_finishing->previewButton(), m_finishing->panoramaButton()})
        finishing->addWidget(button);
    for (QPushButton *button : {open, folder, another})
        buttons->addWidget(button);
    for (QPushButton *button : {m_finishing->alignButton(), m_finishing->previewButton(),
             m_finishing->panoramaButton(), open, folder, another})
        button->setAutoDefault(true); // Enter takes it.
    connect(m_finishing, &FinishingPane::busyChanged, another, &QWidget::setDisabled);
    connect(m_finishing, &FinishingPane::panoramaMade, this, &SummaryPage::showPanorama);
    m_picture->setObjectName(QStringLiteral("panoramaPicture"));
    m_outlines->setObjectName(QStringLiteral("outlines"));
    m_seams->setObjectName(QStringLiteral("seams"));
    auto *lines = new QHBoxLayout;
    for (QCheckBox *box : {m_outlines, m_seams}) {
        connect(box, &QCheckBox::toggled, this, &SummaryPage::showLines);
        lines->addWidget(box);
    }
    lines->addStretch(1);
    auto *panorama = new QVBoxLayout(m_panorama);
    panorama->setContentsMargins(0, 0, 0, 0);
    panorama->addWidget(m_picture, 1);
    panorama->addLayout(lines);
    m_panorama->setParent(m_views);
    m_panorama->hide();
    m_views->setDocumentMode(true);
    m_views->setTabBarAutoHide(true);
    m_views->addTab(m_map, tr("Map"));

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    layout->addWidget(m_title);
    layout->addWidget(m_path);
    layout->addLayout(m_figures);
    layout->addWidget(m_views, 1);
    layout->addWidget(m_finishing);
    layout->addLayout(finishing);
    layout->addLayout(buttons);
}

void SummaryPage::show(const WrittenImport &import, const QVector<RecordFigure> &figures)
{
    m_project = import.project;
    m_finishing->setImport(import);
    m_views->removeTab(m_views->indexOf(m_panorama));
    const QFileInfo info(m_project);
    m_title->setText(tr("“%1” is ready").arg(info.fileName()));
    m_path->setText(QDir::toNativeSeparators(info.absoluteFilePath()));
    while (m_figures->rowCount() > 0)
        m_figures->removeRow(0);
    for (const RecordFigure &figure : figures) {
        auto *label = new QLabel(tr("%1:").arg(figure.label));
        auto *value = new QLabel(figure.value);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        value->setWordWrap(true);
        m_figures->addRow(label, value);
    }
}

void SummaryPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_first->setFocus();
}

void SummaryPage::openProject()
{
    const QString hugin = QStandardPaths::findExecutable(QStringLiteral("hugin"));
    if (hugin.isEmpty() ? QDesktopServices::openUrl(QUrl::fromLocalFile(m_project))
                        : QProcess::startDetached(hugin, {m_project}))
        return;
    QMessageBox::information(this, tr("Open in Hugin"),
        tr("Hugin was not found on this computer. Install it (on Debian: the package “hugin”), "
           "then open the project with it:\n%1")
            .arg(QDir::toNativeSeparators(m_project)));
}

void SummaryPage::showPanorama(const ShownPanorama &panorama)
{
    m_views->removeTab(m_views->indexOf(m_panorama));
    m_shown = panorama;
    if (panorama.picture.isNull())
        return;
    m_picture->setPicture(panorama.picture);
    m_seams->setEnabled(!panorama.seams.isEmpty());
    showLines();
    m_views->addTab(m_panorama, panorama.name);
    m_views->setCurrentWidget(m_panorama);
}

void SummaryPage::showLines()
{
    m_picture->setLines(m_outlines->isChecked() ? m_shown.outlines : QVector<QPolygonF>(),
        m_seams->isChecked() ? m_shown.seams : QVector<QPolygonF>());
}

void SummaryPage::showFolder()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(m_project).absolutePath()));
}
