// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/Frame.h"
#include "stitch/Need.h"
#include "stitch/Outlines.h"
#include "tests/support/Table.h"

#include <QImage>
#include <QLocale>
#include <QTemporaryDir>
#include <cmath>

namespace {

/// Rows of pictures of 900 x 600 pixels.
PtoProject rows(double firstYaw, double step, int columns, const QVector<double> &pitches,
    double focal, bool fisheye = false)
{
    PtoProject project;
    for (const double pitch : pitches) {
        for (int column = 0; column < columns; ++column) {
            PtoProject::Picture picture;
            picture.lens = {QSize(900, 600), focal, fisheye};
            picture.place = {std::remainder(firstYaw + column * step, 360.0), pitch, 0};
            // Next to nothing, but far off the axis it leads back into the picture.
            picture.distortion.b = -0.000005;
            picture.location = project.pictures.size();
            project.pictures.append(picture);
        }
    }
    return project;
}

QString told(const Frame &frame)
{
    static const char *names[] = {"rectilinear", "cylindrical", "equirectangular"};
    return QStringLiteral("%1 %2 degrees at %3, %4 high")
        .arg(QLatin1String(names[int(frame.projection)]))
        .arg(frame.angle)
        .arg(qRound(frame.yaw))
        .arg(double(frame.crop.height()) / frame.canvas.height(), 0, 'f', 1);
}

} // namespace

class tst_Frame : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    // Every point of an outline is one at which a picture ends, and no picture is left out.
    void outlinesLieOnBorders()
    {
        for (const bool fisheye : {false, true}) {
            const PtoProject project = rows(100, 60, 6, {-60, 0, 60}, 14, fisheye);
            QString problem;
            const auto frame = frameOf(project, {}, &problem);
            QVERIFY2(frame, qPrintable(problem));
            const QVector<QPolygonF> lines = outlinesOf(project, *frame);
            QVERIFY(lines.size() >= project.pictures.size());
            const QVector<View> views = viewsOf(project);
            for (const QPolygonF &line : lines) {
                for (const QPointF &part : line) {
                    const auto direction
                        = frame->unproject({frame->crop.x() + part.x() * frame->crop.width(),
                            frame->crop.y() + part.y() * frame->crop.height()});
                    QVERIFY(direction);
                    double nearest = 1e9;
                    for (const View &view : views) {
                        // A little further in, where it is surely seen.
                        for (int k = 0; k < 27; ++k) {
                            const int steps[] = {k % 3 - 1, k / 3 % 3 - 1, k / 9 - 1};
                            Direction near = *direction;
                            for (int axis = 0; axis < 3; ++axis)
                                near[axis] += steps[axis] * 1e-4;
                            const auto found = view.find(near);
                            if (found)
                                nearest = std::min({nearest, std::abs(450 - std::abs(found->x())),
                                    std::abs(300 - std::abs(found->y()))});
                        }
                    }
                    QVERIFY2(nearest < 0.5, qPrintable(QString::number(nearest)));
                }
                // Never across the whole picture.
                for (int k = 1; k < line.size(); ++k)
                    QVERIFY(std::abs(line[k].x() - line[k - 1].x()) < 0.5);
            }
        }
    }

    // Each line runs where one picture came over another and both are there; the last mask counts.
    void seamsLieInOverlaps()
    {
        const QTemporaryDir folder;
        const PtoProject project = rows(0, 10, 3, {0}, 50);
        QString problem;
        const auto frame = frameOf(project, {}, &problem);
        QVERIFY2(frame, qPrintable(problem));
        // The second picture comes over the first from two fifths on, the third from three fifths
        // on; beyond the pictures the first mask is white at the left, where the other, which has a
        // part only, has nothing.
        QStringList masks;
        for (const int from : {2, 3}) {
            QImage mask(frame->crop.size(), QImage::Format_Grayscale8);
            mask.fill(0);
            for (int y = 0; y < mask.height(); ++y) {
                const int start = mask.width() * from / 5;
                std::fill(mask.scanLine(y) + start, mask.scanLine(y) + mask.width(), uchar(255));
                mask.scanLine(y)[0] = 255;
            }
            if (from == 3) {
                const QRect part = mask.rect().adjusted(mask.width() / 2, 3, 0, -2);
                mask = mask.copy(part);
                mask.setOffset(part.topLeft());
            }
            masks.append(folder.filePath(QStringLiteral("%1.png").arg(from)));
            QVERIFY(mask.save(masks.last()));
        }
        double length = 0;
        for (const QPolygonF &line : seamsOf(project, *frame, masks)) {
            QCOMPARE(line.size(), 2);
            QCOMPARE(line[0].x(), line[1].x());
            const double x = line[0].x();
            QVERIFY2(std::min(std::abs(x - 0.4), std::abs(x - 0.6)) < 0.002,
                qPrintable(QString::number(x)));
            length += line[1].y() - line[0].y();
        }
        QVERIFY2(length > 1.6 && length < 2.001, qPrintable(QString::number(length)));
        masks.append(folder.filePath(QStringLiteral("none.png")));
        QVERIFY(seamsOf(project, *frame, masks).isEmpty());
    }

    void usualFrame_data()
    {
        const Table<double, double, int, QVector<double>, double, bool, QString> row(
            "firstYaw", "step", "columns", "pitches", "focal", "fisheye", "expected");
        // 20 mm on 900 x 600: 84 x 62 degrees; 100 mm: 20 x 14; fisheye of 10 mm: 206 x 138.
        row("sphere", 0, 45, 8, {-60, 0, 60}, 20, false,
            "equirectangular 360 degrees at 0, 1.0 high");
        row("ring", 10, 60, 6, {0}, 20, false, "equirectangular 360 degrees at 0, 0.3 high");
        row("ring looking up", 10, 45, 8, {60}, 20, false,
            "equirectangular 360 degrees at 0, 0.4 high");
        row("flat", -15, 15, 3, {-5, 5}, 100, false, "rectilinear 52 degrees at 0, 1.0 high");
        row("flat across 180 degrees", 150, 15, 4, {0}, 100, false,
            "rectilinear 66 degrees at 173, 1.0 high");
        row("wide", -90, 15, 13, {0}, 100, false, "cylindrical 201 degrees at 0, 1.0 high");
        row("wide across 180 degrees", 90, 15, 13, {0}, 100, false,
            "cylindrical 201 degrees at 180, 1.0 high");
        row("high", -20, 15, 4, {0, 40, 75}, 40, false,
            "equirectangular 360 degrees at 0, 0.6 high");
        row("one fisheye", 30, 0, 1, {0}, 10, true, "equirectangular 258 degrees at 30, 1.0 high");
    }
    void usualFrame()
    {
        QFETCH(double, firstYaw);
        QFETCH(double, step);
        QFETCH(int, columns);
        QFETCH(QVector<double>, pitches);
        QFETCH(double, focal);
        QFETCH(bool, fisheye);
        const PtoProject project = rows(firstYaw, step, columns, pitches, focal, fisheye);
        QString problem;
        const auto frame = frameOf(project, {}, &problem);
        QVERIFY2(frame, qUtf8Printable(problem));
        QTEST(told(*frame), "expected");
        // As large as the pictures are, and all of them within.
        const double fp = std::hypot(900, 600) * focal / std::hypot(36, 24);
        QVERIFY2(
            std::abs(frame->scale() / fp - 1) < 0.01, qPrintable(QString::number(frame->scale())));
        for (const View &view : viewsOf(project)) {
            for (const QPointF corner : {QPointF(-449, -299), QPointF(449, 299), QPointF(0, 0)}) {
                const auto place = frame->project(view.at(corner.x(), corner.y()));
                QVERIFY(place);
                QVERIFY(QRectF(frame->crop).adjusted(-1, -1, 1, 1).contains(*place));
                const auto back = frame->unproject(*place);
                QVERIFY(back);
                const auto again = view.find(*back);
                QVERIFY(again);
                QVERIFY(QLineF(*again, corner).length() < 0.01);
            }
        }
    }

    void refusesWhatDoesNotFit()
    {
        const PtoProject ring = rows(0, 60, 6, {0}, 20);
        QString problem;
        FrameOptions options;
        options.projection = Projection::Rectilinear;
        QVERIFY(!frameOf(ring, options, &problem));
        QVERIFY2(problem.contains(QStringLiteral("at most 160")), qUtf8Printable(problem));
        options.projection = Projection::Cylindrical;
        QVERIFY(frameOf(ring, options, &problem));
        QVERIFY(!frameOf(rows(0, 45, 8, {-60, 60}, 20), options, &problem));
        QVERIFY2(problem.contains(QStringLiteral("at most 80")), qUtf8Printable(problem));
    }

    void cropAndWidth()
    {
        const PtoProject ring = rows(0, 30, 12, {0}, 20);
        QString problem;
        FrameOptions options;
        options.width = 1000;
        const auto covered = frameOf(ring, options, &problem);
        options.crop = Crop::Inside;
        const auto inside = frameOf(ring, options, &problem);
        options.crop = Crop::Full;
        const auto full = frameOf(ring, options, &problem);
        QVERIFY(covered && inside && full);
        QCOMPARE(full->crop, QRect(0, 0, 1000, 500));
        QCOMPARE(covered->crop.width(), 1000);
        QCOMPARE(inside->crop.width(), 1000);
        QVERIFY(covered->isFullTurn() && inside->isFullTurn() && full->isFullTurn());
        QVERIFY(inside->crop.height() < covered->crop.height());
        QVERIFY(covered->crop.height() < 200);
        // Every place of what lies inside is seen.
        const QVector<View> views = viewsOf(ring);
        for (int y = inside->crop.top(); y <= inside->crop.bottom() + 1; ++y) {
            for (int x = 0; x <= 1000; x += 7) {
                const Direction d = *inside->unproject(QPointF(x, y));
                QVERIFY(std::any_of(
                    views.begin(), views.end(), [&](const View &view) { return view.sees(d); }));
            }
        }
    }

    /// Of a picture that lies across the edge the layer is as wide as the canvas.
    void layers()
    {
        PtoProject ring = rows(0, 60, 6, {0}, 20);
        QString problem;
        const auto frame = frameOf(ring, {}, &problem);
        QVERIFY(frame);
        const QVector<View> views = viewsOf(ring);
        QVector<QRect> rects;
        for (const View &view : views)
            rects.append(layerRect(*frame, view, QSize(900, 600)));
        const int width = frame->canvas.width();
        QVERIFY(std::abs(rects.at(0).center().x() - width / 2) <= 1);
        QVERIFY(std::abs(rects.at(0).width() - width * 83.97 / 360) < 3);
        QCOMPARE(rects.at(3).width(), width);

        const Need plain = needOf(ring, *frame, rects, Rendering::Plain, false, 2);
        const Need fused = needOf(ring, *frame, rects, Rendering::Fused, true, 2);
        const Need half
            = needOf(ring, frame->scaledTo(width / 2), rects, Rendering::Plain, false, 2);
        QVERIFY(fused.disk > plain.disk && fused.memory > plain.memory);
        QVERIFY(half.disk < plain.disk);
        QCOMPARE(excess(plain, 0, QStringLiteral("/"), plain.disk).text, QString());
        const Problem limited = excess(plain, 50'000'000, QStringLiteral("/"), 0);
        QVERIFY(limited.text.contains(QStringLiteral(" and 0.1 GB are allowed; ")));
        QCOMPARE(limited.remedy, Remedy::NarrowerPanoramaOrMoreMemory);
        Need vast = plain;
        vast.disk = 1'000'000'000'000'000'000;
        const Problem full = excess(vast, 0, QStringLiteral("/"), 0);
        QVERIFY(full.text.contains(QStringLiteral("1000000000.0 GB on the disk")));
        QCOMPARE(full.remedy, Remedy::NarrowerPanorama);
    }
};

QTEST_GUILESS_MAIN(tst_Frame)
#include "tst_Frame.moc"
