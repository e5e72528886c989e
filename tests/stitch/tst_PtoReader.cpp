// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stitch/PtoReader.h"
#include "tests/support/Table.h"

#include <cmath>

class tst_PtoReader : public QObject {
    Q_OBJECT

private slots:
    /// What projectText() writes comes back.
    void roundTrip()
    {
        PtoProject project;
        project.outputExposure = 12.6439;
        project.outputType = 3;
        for (int i = 0; i < 6; ++i) {
            PtoProject::Picture picture;
            picture.path = QStringLiteral("/pictures/sub, #1 \u00e4=/%1.jpg").arg(i);
            picture.lens = {QSize(900, 600), i < 4 ? 20.0 : 8.5, i >= 4};
            picture.distortion = {0.001, -0.01, 0.002};
            picture.location = i / 2;
            picture.place = {-170.5 + picture.location * 60, 12.25, -90};
            picture.exposureValue = 10.25 + i % 2;
            picture.positionOwner = i % 2 == 1 ? i - 1 : -1;
            project.pictures.append(picture);
        }
        project.points.append({0, 2, QPointF(1, 2), QPointF(3, 4)});
        QString problem;
        const auto read = readProject(projectText(project, QStringLiteral("/pictures")),
            QStringLiteral("/pictures"), &problem);
        QVERIFY2(read, qUtf8Printable(problem));
        QCOMPARE(read->project.outputType, 3);
        QCOMPARE(read->project.outputExposure, 12.6439);
        QCOMPARE(read->project.pictures.size(), 6);
        for (int i = 0; i < 6; ++i) {
            const PtoProject::Picture &before = project.pictures.at(i);
            const PtoProject::Picture &after = read->project.pictures.at(i);
            QCOMPARE(after.path, before.path);
            QCOMPARE(after.lens.size, before.lens.size);
            QCOMPARE(after.lens.fisheye, before.lens.fisheye);
            QVERIFY(std::abs(after.lens.focal - before.lens.focal) < 1e-6);
            QCOMPARE(after.distortion.b, before.distortion.b);
            QCOMPARE(after.place.yaw, before.place.yaw);
            QCOMPARE(after.place.pitch, before.place.pitch);
            QCOMPARE(after.place.roll, before.place.roll);
            QCOMPARE(after.location, before.location);
            QCOMPARE(read->light.at(i).exposureValue, before.exposureValue);
        }
    }

    void lines_data()
    {
        const Table<QString, QString> row("lines", "expected");
        row("light", "i w90 h60 f0 v50 Vb-0.1 Vc=0 Ra1.5e-1 Eev10 n\"a.jpg\"", "!1");
        row("light of an earlier one",
            "i w90 h60 f0 v50 y1 Vb-0.1 Ra0.5 Eev10 n\"a.jpg\"\ni w9 h9 f0 v=0 y2 Vb=0 Ra=0 Eev11 "
            "n\"b.jpg\"",
            "0 -0.1 0.5 10; 1 -0.1 0.5 11");
        row("same place is one location",
            "i w90 h60 f0 v50 y1 p2 r3 n\"a\"\ni w90 h60 f0 v50 y361 p2 r3 n\"b\"\ni w90 h60 f0 "
            "v50 y1 p2.1 r3 n\"c\"",
            "0 0 0 0; 0 0 0 0; 1 0 0 0");
        row("stacks apart",
            "i w90 h60 f0 v50 y1 j0 n\"a\"\ni w90 h60 f0 v50 y1 j1 n\"b\"\ni w90 h60 f0 v50 y3 j0 "
            "n\"c\"",
            "0 0 0 0; 1 0 0 0; 0 0 0 0");
        row("nothing", "", "no pictures");
        row("no project", "hello\nworld", "no pictures");
        row("no name", "i w90 h60 f0 v50", "picture 1 cannot");
        row("no size", "i f0 v50 n\"a.jpg\"", "picture 1 cannot");
        row("absurd size", "i w1e30 h60 f0 v50 n\"a.jpg\"", "picture 1 cannot");
        row("half a turn on a plane", "i w90 h60 f0 v180 n\"a.jpg\"", "picture 1 cannot");
        row("negative angle", "i w90 h60 f3 v-10 n\"a.jpg\"", "picture 1 cannot");
        row("other lens", "i w90 h60 f4 v50 n\"a.jpg\"", "picture 1 cannot");
        row("link to itself", "i w90 h60 f0 v=0 n\"a.jpg\"", "picture 1 cannot");
        row("link to a later one", "i w90 h60 f0 v50 y=1 n\"a\"\ni w90 h60 f0 v50 y1 n\"b\"",
            "picture 1 cannot");
        row("absurd link", "i w90 h60 f0 v50 n\"a\"\ni w90 h60 f0 v=1e300 n\"b\"",
            "picture 2 cannot");
        row("shift", "i w90 h60 f0 v50 d5 n\"a.jpg\"", "\"d\" of it is not supported");
        row("translation", "i w90 h60 f0 v50 TrX0.1 n\"a.jpg\"", "\"TrX\" of it");
    }
    void lines()
    {
        QFETCH(QString, lines);
        QFETCH(QString, expected);
        QString problem;
        const auto read
            = readProject("p f2 w100 h50 v360\n" + lines.toUtf8(), QStringLiteral("/x"), &problem);
        if (!read) {
            QVERIFY2(!expected.startsWith(QLatin1Char('0'))
                    && problem.contains(
                        expected == QLatin1String("!1") ? QStringLiteral("picture 1") : expected),
                qUtf8Printable(problem));
            return;
        }
        QStringList told;
        for (int i = 0; i < read->light.size(); ++i) {
            const PictureLight &light = read->light.at(i);
            told.append(QStringLiteral("%1 %2 %3 %4")
                            .arg(read->project.pictures.at(i).location)
                            .arg(light.vignetting.at(0))
                            .arg(light.response.at(0))
                            .arg(light.exposureValue));
        }
        QCOMPARE(told.join(QStringLiteral("; ")), expected);
    }
};

QTEST_GUILESS_MAIN(tst_PtoReader)
#include "tst_PtoReader.moc"
