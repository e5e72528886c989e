// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clauss/ClaussFigures.h"
#include "clauss/ClaussToSPP.h"
#include "host/ImageInfo.h"
#include "tests/support/RecordDump.h"
#include "tests/support/Table.h"

#include <QRandomGenerator>
#include <cmath>
#include <limits>

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

/// Knows nothing but a focal length.
class FocalInfo final : public ImageInfo {
public:
    explicit FocalInfo(float focal)
        : m_focal(focal)
    {
    }
    const QPixmap &GetThumbnail() const override { qFatal("Converting needs no thumbnail"); }
    float GetFocalLength() const override { return m_focal; }
    int GetLensType() const override { return 0; }
    float GetExposure() const override { return 0; }

private:
    float m_focal;
};

ClaussShot shotAt(float yaw, float pitch)
{
    ClaussShot shot;
    shot.yaw = yaw;
    shot.pitch = pitch;
    return shot;
}

QStringList pictures(int count)
{
    QStringList paths;
    for (int i = 0; i < count; ++i)
        paths << QStringLiteral("/p/%1.jpg").arg(i);
    return paths;
}

/// The rules, pair by pair and nothing computed in advance.
ProjectRecord literalConvert(
    const QVector<ClaussShot> &shots, const QStringList &images, const QVector<float> &focals)
{
    ProjectRecord record;
    for (const QString &image : images)
        record.groups << QStringList(image);
    for (const ClaussShot &shot : shots) {
        record.yaws << float(3.141592653589793 * double(shot.yaw) / 180.0);
        record.pitches << float(3.141592653589793 * double(shot.pitch) / 180.0);
    }
    const auto halfView = [&](int k) {
        const float focal = k < focals.size() ? focals[k] : 0.0F;
        return float(std::atan(43.266615305567875 / (2.0 * double(focal))));
    };
    for (int i = 0; i < images.size(); ++i) {
        for (int j = i + 1; j < images.size(); ++j) {
            if (j >= shots.size())
                continue;
            const auto cosine = [](float angle) -> float { return std::cos(angle); };
            const auto sine = [](float angle) -> float { return std::sin(angle); };
            const float yaw1 = record.yaws[i], pitch1 = record.pitches[i];
            const float yaw2 = record.yaws[j], pitch2 = record.pitches[j];
            const float x1 = cosine(pitch1) * cosine(yaw1), x2 = cosine(pitch2) * cosine(yaw2);
            const float y1 = cosine(pitch1) * sine(yaw1), y2 = cosine(pitch2) * sine(yaw2);
            const float z1 = -sine(pitch1), z2 = -sine(pitch2);
            const double d = std::acos(
                double(x1) * double(x2) + double(y1) * double(y2) + double(z1) * double(z2));
            const double share = double(0.7F) * d;
            if (share < double(halfView(i)) || share < double(halfView(j)))
                record.links.append(ProjectLink{0, QVector<int>{i, j}});
        }
    }
    return record;
}

} // namespace

class tst_ClaussToSPP : public QObject {
    Q_OBJECT

private slots:
    void links_data()
    {
        const Table<QVector<QPointF>, QVector<float>, QString> row("shots", "focals", "expected");
        const QVector<QPointF> apart = {{0, 0}, {30, 0}};
        const QString linked = QStringLiteral("0:0-1");
        row("24 mm", apart, {24, 24}, linked);
        row("200 mm", apart, {200, 200}, "");
        row("the wider one decides, first", apart, {24, 200}, linked);
        row("the wider one decides, second", apart, {200, 24}, linked);
        row("negative", apart, {-24, -24}, "");
        row("negative and wide", apart, {-24, 24}, linked);
        row("not a number", apart, {kNaN, kNaN}, "");
        row("not a number and wide", apart, {kNaN, 24}, linked);
        row("unknown", apart, {0, 200}, linked);
        row("no infos", apart, {}, linked);
        row("infinite", apart, QVector<float>(2, std::numeric_limits<float>::infinity()), "");
        row("across 360", {{0, 0}, {350, 0}}, {100, 100}, linked);
        row("near the pole", {{0, 89}, {180, 89}}, {200, 200}, linked);
        row("unknown reaches 128 degrees", {{0, 0}, {128, 0}, {257, 0}}, {0, 0, 0}, "0:0-1 0:0-2");
        row("one picture", {{0, 0}}, {24}, "");
        row("order", {{0, 0}, {1, 0}, {2, 0}, {3, 0}}, QVector<float>(4, 24.0F),
            "0:0-1 0:0-2 0:0-3 0:1-2 0:1-3 0:2-3");
        // With 32-bit sine and cosine the scalar product of 1 degree with itself exceeds 1.
        row("undefined distance", {{1, 0}, {1, 0}}, QVector<float>(2, 24.0F), "");
        row("neither distance nor width", {{0, 0}, {0, 0}},
            QVector<float>(2, std::numeric_limits<float>::infinity()), "");
        row("no distance", {{0, 0}, {0, 0}}, QVector<float>(2, 24.0F), linked);
    }
    void links()
    {
        QFETCH(const QVector<QPointF>, shots);
        QFETCH(const QVector<float>, focals);
        QFETCH(const QString, expected);

        ClaussToSPP converter;
        for (const QPointF &shot : shots)
            converter.Shots().append(shotAt(float(shot.x()), float(shot.y())));
        converter.Convert(pictures(shots.size()), focals);
        QCOMPARE(linksOf(converter.Record()), expected);
    }

    void convertsAsTheRulesSay()
    {
        QRandomGenerator random(48640);
        int links = 0;
        int pairs = 0;
        for (int i = 0; i < 600; ++i) {
            ClaussToSPP converter;
            const int shots = random.bounded(40);
            const int step = random.bounded(1, 46);
            const bool wild = random.bounded(8) == 0;
            for (int k = 0; k < shots; ++k) {
                const float decimals
                    = random.bounded(2) ? 0.005F * float(random.bounded(200)) : 0.0F;
                const float yaw = float(step * random.bounded(-16, 17)) + decimals;
                const float pitch = float(random.bounded(-90, 91)) - decimals;
                converter.Shots().append(
                    wild ? shotAt(yaw * 1e30F, pitch * 1e5F) : shotAt(yaw, pitch));
            }
            // Now and then fewer or more of one than of the other.
            const int images = qMax(0, shots + (random.bounded(4) ? 0 : random.bounded(-5, 6)));
            const int infos = qMax(0, images + (random.bounded(4) ? 0 : random.bounded(-5, 6)));
            const QVector<float> odd = {0.0F, -0.0F, -24.0F, kNaN, 1e-30F, 1e30F, 8.0F};
            float usual = float(random.bounded(10, 400)) / (random.bounded(2) ? 1.0F : 7.0F);
            // In a third of the shootings the focal length puts the pairs of one column that are
            // neighbours on the border itself, where the last bit of every product decides.
            if (random.bounded(3) == 0) {
                for (int k = 0; k < shots; ++k)
                    converter.Shots()[k] = shotAt(float(step) * 0.37F, float(k * step % 90));
                usual = float(43.266615305567875 / 2
                    / std::tan(double(0.7F) * double(step) * 3.141592653589793 / 180));
            }
            QVector<float> focals;
            for (int k = 0; k < infos; ++k)
                focals << (random.bounded(6) ? usual : odd.at(random.bounded(odd.size())));

            const ProjectRecord expected
                = literalConvert(converter.Shots(), pictures(images), focals);
            converter.Convert(pictures(images), focals);
            QCOMPARE(dump(converter.Record()), dump(expected));
            links += expected.links.size();
            pairs += images * (images - 1) / 2;
        }
        QVERIFY(links > pairs / 20 && links < pairs * 19 / 20);
    }

    void takesFocalsFromInfos()
    {
        FocalInfo wide(24);
        FocalInfo narrow(200);
        const QVector<ClaussShot> shots
            = {shotAt(0, 0), shotAt(30, 0), shotAt(60, 0), shotAt(90, 0), shotAt(200, 0)};

        ClaussToSPP fromInfos;
        fromInfos.Shots() = shots;
        fromInfos.Convert(pictures(5), QList<ImageInfo *>{&narrow, &narrow, &wide, nullptr});
        ClaussToSPP fromFocals;
        fromFocals.Shots() = shots;
        fromFocals.Convert(pictures(5), QVector<float>{200, 200, 24, 0, 0});
        QCOMPARE(dump(fromInfos.Record()), dump(fromFocals.Record()));
        QCOMPARE(
            linksOf(fromInfos.Record()), QStringLiteral("0:0-2 0:0-3 0:1-2 0:1-3 0:2-3 0:3-4"));
    }

    void appendsToTheRecord()
    {
        ClaussToSPP converter;
        converter.Shots() = {shotAt(90, -45), shotAt(120, 0)};
        converter.Convert(pictures(2), QVector<float>{20, 20});
        converter.Shots() = {shotAt(0, 0), shotAt(180, 0), shotAt(180, 0)};
        converter.Convert(pictures(1), QVector<float>{20});
        ProjectRecord expected;
        expected.groups = {{QStringLiteral("/p/0.jpg")}, {QStringLiteral("/p/1.jpg")},
            {QStringLiteral("/p/0.jpg")}};
        expected.links = {{0, {0, 1}}};
        expected.yaws = {1.57079637F, 2.09439516F, 0, 3.14159274F, 3.14159274F};
        expected.pitches = {-0.785398185F, 0, 0, 0, 0};
        QCOMPARE(dump(converter.Record()), dump(expected));

        converter.ClearRecord();
        QCOMPARE(dump(converter.Record()), dump(ProjectRecord()));
    }

    void keepsFiguresOfABadScript()
    {
        const auto text = [](const ClaussFigures &figures) {
            const auto range = [](const AngleRange &angles) {
                return angles.isUnknown()
                    ? QStringLiteral("?")
                    : QStringLiteral("%1,%2").arg(double(angles.min)).arg(double(angles.max));
            };
            return QStringLiteral("%1 %2 %3")
                .arg(figures.shootCount)
                .arg(range(figures.ranges.yaw), range(figures.ranges.pitch));
        };

        ClaussFigures figures;
        QCOMPARE(text(figures), QStringLiteral("-1 ? ?"));
        figures.invertPitches();
        QCOMPARE(text(figures), QStringLiteral("-1 ? ?"));

        figures.take(true, {shotAt(0, -30), shotAt(240, 45), shotAt(120, 10)});
        QCOMPARE(text(figures), QStringLiteral("3 0,240 -30,45"));
        figures.invertPitches();
        QCOMPARE(text(figures), QStringLiteral("3 0,240 -45,30"));

        figures.take(false, {shotAt(1, 1)});
        QCOMPARE(text(figures), QStringLiteral("-1 0,240 -45,30"));
        figures.take(true, {});
        QCOMPARE(
            text(figures), QStringLiteral("0 3.40282e+38,-3.40282e+38 3.40282e+38,-3.40282e+38"));
    }
};

QTEST_GUILESS_MAIN(tst_ClaussToSPP)
#include "tst_ClaussToSPP.moc"
