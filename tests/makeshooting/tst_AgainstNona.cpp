// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Another program's idea of yaw, pitch, roll, lens and distortion: nona lays the generated pictures
// over the sphere by their true positions, and there they must lie on the scene itself.

#include "apps/makeshooting/CommandLine.h"
#include "apps/makeshooting/Rendering.h"
#include "apps/makeshooting/Studio.h"
#include "apps/makeshooting/Truth.h"
#include "tests/support/Files.h"
#include "tests/support/Program.h"
#include "tests/support/Table.h"

#include <QFile>
#include <QTemporaryDir>
#include <array>
#include <cmath>

using namespace makeshooting;

namespace {

/// Light and dark only; colours add nothing to geometry.
double grey(QRgb pixel)
{
    return qRed(pixel) * 0.3 + qGreen(pixel) * 0.6 + qBlue(pixel) * 0.1;
}

/// How well a remapped picture lies on the scene.
struct Match {
    int pixels = 0;
    /// Mean absolute difference, in steps of 255.
    double difference = 0;
    /// Longest shift found in any quarter of the picture, in pixels.
    double shift = 0;
};

QString describe(const Match &match)
{
    return QStringLiteral(": difference %1, shift %2 over %3 pixels")
        .arg(match.difference)
        .arg(match.shift)
        .arg(match.pixels);
}

/// Two resamplings and a JPEG apart: half a pixel, as from a wrong idea of where a pixel's middle
/// is, would show in the shift.
bool fits(const Match &match)
{
    return match.pixels > 10000 && match.difference < 7 && match.shift < 0.2;
}

/// Least-squares shift between two pictures: one step along the gradients, good for small ones.
class ShiftEstimate {
public:
    void add(double difference, double gx, double gy)
    {
        m_xx += gx * gx;
        m_xy += gx * gy;
        m_yy += gy * gy;
        m_x += gx * difference;
        m_y += gy * difference;
        ++m_count;
    }
    bool usable() const { return m_count > 300; }
    double length() const
    {
        const double determinant = m_xx * m_yy - m_xy * m_xy;
        return std::hypot(
            (m_yy * m_x - m_xy * m_y) / determinant, (m_xx * m_y - m_xy * m_x) / determinant);
    }

private:
    double m_xx = 0, m_xy = 0, m_yy = 0, m_x = 0, m_y = 0;
    int m_count = 0;
};

Match compare(const QImage &remapped, const QImage &scene)
{
    constexpr int kMargin = 3;
    const auto covered = [&](int x, int y) { return qAlpha(remapped.pixel(x, y)) == 255; };
    QVector<QPoint> places;
    for (int y = kMargin; y < scene.height() - kMargin; ++y) {
        for (int x = kMargin; x < scene.width() - kMargin; ++x) {
            if (covered(x, y) && covered(x - kMargin, y) && covered(x + kMargin, y)
                && covered(x, y - kMargin) && covered(x, y + kMargin))
                places << QPoint(x, y);
        }
    }
    QPointF middle;
    for (const QPoint &place : qAsConst(places))
        middle += QPointF(place) / places.size();

    Match match;
    std::array<ShiftEstimate, 4> quarters;
    for (const QPoint &p : qAsConst(places)) {
        const auto at = [&](int dx, int dy) { return grey(scene.pixel(p.x() + dx, p.y() + dy)); };
        const double difference = grey(remapped.pixel(p)) - at(0, 0);
        match.difference += std::abs(difference) / places.size();
        quarters[(p.x() > middle.x() ? 1U : 0U) + (p.y() > middle.y() ? 2U : 0U)].add(
            difference, (at(1, 0) - at(-1, 0)) / 2, (at(0, 1) - at(0, -1)) / 2);
    }
    for (const ShiftEstimate &quarter : quarters) {
        if (quarter.usable())
            match.shift = std::max(match.shift, quarter.length());
    }
    match.pixels = places.size();
    return match;
}

/// The worst match among the first \a count pictures, as nona lays them by \a project in \a folder.
Match worstMatch(int count, const QByteArray &project, const QImage &scene, const QString &folder)
{
    writeFile(folder + QStringLiteral("/project.pto"), project);
    QStringList arguments = words("-m PNG_m -o remapped project.pto");
    for (int i = 0; i < count; ++i)
        arguments << QStringLiteral("-i") << QString::number(i);
    const Run nona = run("nona", arguments, {folder});
    if (nona.code != 0)
        qFatal("nona: %s", nona.err.constData());

    Match worst;
    worst.pixels = scene.width() * scene.height();
    for (int i = 0; i < count; ++i) {
        const QString name
            = QStringLiteral("%1/remapped%2.png").arg(folder).arg(i, 4, 10, QLatin1Char('0'));
        const Match match = compare(QImage(name), scene);
        worst.pixels = std::min(worst.pixels, match.pixels);
        worst.difference = std::max(worst.difference, match.difference);
        worst.shift = std::max(worst.shift, match.shift);
        QFile::remove(name);
    }
    return worst;
}

/// \a project with the sign of every \a field of its pictures (as "y" in "y-30.5") turned round.
QByteArray mirrored(const QByteArray &project, QChar field)
{
    QStringList lines = QString::fromLatin1(project).split(QLatin1Char('\n'));
    for (QString &line : lines) {
        QStringList words = line.split(QLatin1Char(' '));
        for (QString &word : words) {
            if (line.startsWith(QLatin1String("i ")) && word.startsWith(field) && word.size() > 1)
                word = field + QString::number(-QStringView(word).mid(1).toDouble(), 'f', 9);
        }
        line = words.join(QLatin1Char(' '));
    }
    return lines.join(QLatin1Char('\n')).toLatin1();
}

} // namespace

class TstAgainstNona : public QObject {
    Q_OBJECT

private slots:
    void picturesLieOnTheScene_data()
    {
        // The signs are fields that the row must notice when their sign is wrong.
        const Table<QString, QString> row("arguments", "signs");
        row("landscape", "--head-error 4", "ypr");
        row("portrait by tag", "--portrait tag --head-error 2", "ypr");
        row("portrait by pixels", "--portrait pixels --head-error 4", "ypr");
        row("fisheye", "--lens fisheye --focal 10 --head-error 4", "ypr");
        row("fisheye, portrait by tag",
            "--lens fisheye --focal 11 --portrait tag --distortion 0.03", "ypb");
        row("barrel distortion", "--distortion -0.04 --focal 28", "ypb");
        row("pincushion distortion, upright", "--distortion 0.03 --portrait pixels", "ypb");
        row("a focal length and a head that lie", "--focal-error 6 --head-offset 11,-7", "yp");
        row("over the zenith and under the nadir", "--pitch-range -105,98", "yp");
        row("long lens", "--focal 85 --pitch-range 2,9 --yaw-range -100,99", "yp");
        row("odd size", "--size 301x177 --portrait tag --head-error 1", "ypr");
    }
    void picturesLieOnTheScene()
    {
        QFETCH(const QString, arguments);
        QFETCH(const QString, signs);
        const QTemporaryDir folder;
        const QString command = QStringLiteral(
            "makeshooting --rows 2 --columns 2 --full-turn --size 300x200 --output %1 %2");
        const CommandLine line = parseCommandLine(words(command.arg(folder.path(), arguments)));
        QCOMPARE(line.error, QString());
        const Shooting shooting = planShooting(line.shooting);
        QCOMPARE(writeShooting(shooting, folder.path(), 0), QString());

        const QByteArray project = truthPto(shooting);
        const int width = 2 * static_cast<int>(M_PI * shooting.camera.focal);
        const QImage scene = wholeScene(Scene(shooting.options.scene), width, 0);
        const Match match = worstMatch(shooting.pictures.size(), project, scene, folder.path());
        QVERIFY2(fits(match), qPrintable(describe(match)));
        for (const QChar field : signs) {
            const Match wrong = worstMatch(1, mirrored(project, field), scene, folder.path());
            QVERIFY2(!fits(wrong), qPrintable(field + describe(wrong)));
        }
    }
};

QTEST_GUILESS_MAIN(TstAgainstNona)
#include "tst_AgainstNona.moc"
