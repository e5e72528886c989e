// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ImageInfo.h"
#include "papywizard/ShootingChecks.h"
#include "tests/support/Table.h"

#include <QPixmap>
#include <limits>

namespace {

constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class LensInfo final : public ImageInfo {
public:
    LensInfo(float focal, int lensType)
        : m_focal(focal)
        , m_lensType(lensType)
    {
    }
    const QPixmap &GetThumbnail() const override { qFatal("not asked for"); }
    float GetFocalLength() const override { return m_focal; }
    int GetLensType() const override { return m_lensType; }
    float GetExposure() const override { return 0; }

private:
    float m_focal;
    int m_lensType;
};

} // namespace

Q_DECLARE_METATYPE(ShootingWarning)
Q_DECLARE_METATYPE(QVector<PictureLens>)

class tst_ShootingChecks : public QObject {
    Q_OBJECT

private slots:
    void warns_data()
    {
        const Table<int, int, int, double, bool, double, int, ShootingWarning> row("shots",
            "pictures", "brackets", "fileFocal", "fileFisheye", "focal", "lensType", "warning");
        using Warning = ShootingWarning;
        row("all agree", 12, 12, 3, 24, false, 24, 0, Warning::None);
        row("no file", -1, 5, 3, 24, true, 50, 0, Warning::None);
        row("file without shots", 0, 5, 3, 24, true, 50, 0, Warning::None);
        row("shots are no multiple either", 13, 13, 3, -1, false, 0, 0, Warning::NotMultiple);
        row("the differing count hides the multiple", 12, 13, 3, -1, false, 0, 0,
            Warning::CountDiffers);
        row("no pictures yet", 12, 0, 3, -1, false, 0, 0, Warning::CountDiffers);
        row("no brackets, any count fits", 5, 5, -1, -1, false, 0, 0, Warning::None);
        row("brackets without number", 5, 5, 0, -1, false, 0, 0, Warning::None);
        row("least number of brackets", 5, 5, kMin, -1, false, 0, 0, Warning::None);
        row("negative number of brackets that does not divide", 5, 5, -3, -1, false, 0, 0,
            Warning::None);
        row("absurd brackets", 5, 5, kMax, -1, false, 0, 0, Warning::NotMultiple);
        row("more than a tenth longer", 1, 1, 1, 24, false, 27, 0, Warning::FocalDiffers);
        row("less than a tenth longer", 1, 1, 1, 24, false, 26, 0, Warning::None);
        row("just a tenth", 1, 1, 1, 27, false, 30, 0, Warning::None);
        row("shorter", 1, 1, 1, 24, false, 21, 0, Warning::FocalDiffers);
        row("file without focal", 1, 1, 1, -1, false, 27, 0, Warning::None);
        row("file with a focal of 0", 1, 1, 1, 0, false, 27, 0, Warning::FocalDiffers);
        row("pictures without focal", 1, 1, 1, 24, false, 0, 0, Warning::None);
        row("focal that is no number", 1, 1, 1, 24, false, kNaN, 0, Warning::None);
        row("infinite focal of the file", 1, 1, 1, kInf, false, 24, 0, Warning::FocalDiffers);
        row("focals hide counts", 12, 13, 3, 24, false, 50, 0, Warning::FocalDiffers);
        row("only the file is fisheye", 1, 1, 1, -1, true, 0, 0, Warning::LensDiffers);
        row("only the pictures are fisheye", 1, 1, 1, -1, false, 0, 1, Warning::LensDiffers);
        row("both are fisheye", 1, 1, 1, -1, true, 0, 1, Warning::None);
        row("lens before pictures are chosen", 1, 0, 1, -1, true, 0, 0, Warning::LensDiffers);
        row("lens hides all", 12, 13, 3, 24, true, 50, 0, Warning::LensDiffers);
    }
    void warns()
    {
        QFETCH(int, shots);
        QFETCH(int, pictures);
        QFETCH(int, brackets);
        QFETCH(double, fileFocal);
        QFETCH(bool, fileFisheye);
        QFETCH(double, focal);
        QFETCH(int, lensType);

        PapywizardShooting shooting;
        shooting.bracketCount = brackets;
        shooting.focal = fileFocal;
        shooting.fisheye = fileFisheye;
        QTEST(shootingWarning({shooting, shots, pictures, {focal, lensType}}), "warning");
    }

    void takesLensOfPictures_data()
    {
        const Table<QVector<PictureLens>, double, int> row("pictures", "focal", "lensType");
        row("none", {}, 0.0, 0);
        row("unknown ones count as 0", {{50, 0}, {0, 0}, {25, 0}}, 25.0, 0);
        row("last lens type", {{8, 0}, {8, 1}}, 8.0, 1);
        row("last lens type though unknown", {{8, 1}, {0, 0}}, 4.0, 0);
        row("infinite", {{kInf, 0}, {8, 0}}, kInf, 0);
    }
    void takesLensOfPictures()
    {
        QFETCH(QVector<PictureLens>, pictures);
        QFETCH(double, focal);

        const PictureLens lens = lensOfPictures(pictures);
        QCOMPARE(lens.focal, focal);
        QTEST(lens.lensType, "lensType");
    }

    void takesLensOfInfos()
    {
        // 0.1 as a float: the mean must be of what the host says, in double.
        LensInfo first(0.1F, 1);
        LensInfo second(0.2F, 0);
        LensTally tally;
        tally.addFurther({&second});
        tally.addFurther({&second, &first});
        const PictureLens lens = tally.lens();
        QCOMPARE(lens.focal, (double(0.2F) + double(0.1F)) / 2);
        QCOMPARE(lens.lensType, 1);
    }

    void proposesLens_data()
    {
        const Table<double, bool, double, int, double, int> row(
            "fileFocal", "fileFisheye", "pictureFocal", "pictureLensType", "focal", "lensType");
        row("pictures before file", 24.0, true, 27.0, 0, 27.0, 0);
        row("file alone", 24.0, true, 0.0, 0, 24.0, 1);
        row("no focal, no lens type of pictures", 24.0, false, 0.0, 1, 24.0, 0);
        row("neither", -1.0, false, 0.0, 0, 0.0, 0);
        row("file's is no focal", -8.0, true, 0.0, 0, 0.0, 1);
        row("pictures' is no number", 24.0, false, kNaN, 1, 24.0, 0);
    }
    void proposesLens()
    {
        QFETCH(double, fileFocal);
        QFETCH(bool, fileFisheye);
        QFETCH(double, pictureFocal);
        QFETCH(int, pictureLensType);

        PapywizardShooting shooting;
        shooting.focal = fileFocal;
        shooting.fisheye = fileFisheye;
        const PictureLens lens = proposedLens(shooting, {pictureFocal, pictureLensType});
        QTEST(lens.focal, "focal");
        QTEST(lens.lensType, "lensType");
    }
};

QTEST_GUILESS_MAIN(tst_ShootingChecks)
#include "tst_ShootingChecks.moc"
