// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ImageInfo.h"
#include "tests/support/Table.h"
#include "vrdrive2/VRDrive2ToSPP.h"

#include <QPixmap>
#include <limits>
#include <memory>
#include <vector>

namespace {

constexpr int kMax = std::numeric_limits<int>::max();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();

class ExposureInfo final : public ImageInfo {
public:
    explicit ExposureInfo(float exposure)
        : m_exposure(exposure)
    {
    }
    const QPixmap &GetThumbnail() const override { qFatal("not asked for"); }
    float GetFocalLength() const override { return 0; }
    int GetLensType() const override { return 0; }
    float GetExposure() const override { return m_exposure; }

private:
    float m_exposure;
};

/// Stacks written as letters, "abc def".
QList<QStringList> stacksOf(const QString &letters)
{
    QList<QStringList> stacks;
    for (const QString &word : letters.split(QLatin1Char(' ')))
        stacks += word.split(QString(), Qt::SkipEmptyParts);
    return stacks;
}

QString lettersOf(const QList<QStringList> &stacks)
{
    QStringList words;
    for (const QStringList &stack : stacks)
        words += stack.join(QString());
    return words.join(QLatin1Char(' '));
}

} // namespace

Q_DECLARE_METATYPE(QVector<float>)

class tst_VRDrive2ToSPP : public QObject {
    Q_OBJECT

private slots:
    void movesReference_data()
    {
        const Table<int, QVector<float>, QString, QString> row(
            "brackets", "exposures", "before", "after");
        row("middle one", 3, {-2, 0, 2}, "abc def", "bac edf");
        row("first one", 3, {0, -2, 2}, "abc def", "abc def");
        row("last of equal ones", 3, {2, 0, 0}, "abc def", "cba fed");
        row("all equal", 3, {1, 1, 1}, "abc", "cba");
        row("lower of two middle ones", 4, {3, 1, 4, 2}, "abcd", "dbca");
        row("darker of two", 2, {1, -1}, "ab cd", "ba dc");
        row("darker of two is first", 2, {-1, 1}, "ab cd", "ab cd");
        row("five", 5, {4, 5, 1, 2, 3}, "abcde", "ebcda");
        row("six, lower middle", 6, {6, 5, 4, 3, 2, 1}, "abcdef", "dbcaef");
        row("later series are not asked", 3, {-2, 0, 2, 0, 1, 2}, "abc def", "bac edf");
        row("zeros of both signs are equal", 3, {1, 0.0F, -0.0F}, "abc", "cba");

        row("no brackets", -1, {1, 2, 3}, "a b c", "a b c");
        row("brackets without number", 0, {1, 2, 3}, "a b c", "a b c");
        row("single", 1, {1, 2, 3}, "a b c", "a b c");
        row("no infos", 3, {}, "abc", "abc");
        row("one info", 3, {7}, "abc", "abc");
        row("fewer infos than brackets", 3, {2, 1}, "abc def", "bac edf");
        row("absurd brackets", kMax, {-2, 0, 2}, "abc", "bac");
        row("no stacks", 3, {-2, 0, 2}, "", "");
        row("a stack too small stays", 3, {2, 0, 0}, "ab cde f", "ab edc f");

        row("one is no number", 3, {kNaN, 0, 2}, "abc", "cba");
        row("one of four is no number", 4, {2, kNaN, 1, 0}, "abcd", "cbad");
        row("most are no numbers", 3, {kNaN, 1, kNaN}, "abc", "abc");
        row("none is a number", 3, {kNaN, kNaN, kNaN}, "abc", "abc");
        row("infinities", 3, {kInf, 0, -kInf}, "abc", "bac");
        row("infinite reference", 3, {0, kInf, kInf}, "abc", "cba");
    }
    void movesReference()
    {
        QFETCH(int, brackets);
        QFETCH(QVector<float>, exposures);
        QFETCH(QString, before);
        QFETCH(QString, after);

        VRDrive2ToSPP byValue;
        byValue.Shooting().bracketCount = brackets;
        byValue.Record().groups = stacksOf(before);
        byValue.MoveReferenceExposureFirst(exposures);
        QCOMPARE(lettersOf(byValue.Record().groups), after);

        std::vector<std::unique_ptr<ExposureInfo>> owners;
        QList<ImageInfo *> infos;
        for (const float exposure : exposures) {
            owners.push_back(std::make_unique<ExposureInfo>(exposure));
            infos.append(owners.back().get());
        }
        VRDrive2ToSPP byInfo;
        byInfo.Shooting().bracketCount = brackets;
        byInfo.Record().groups = stacksOf(before);
        byInfo.MoveReferenceExposureFirst(infos);
        QCOMPARE(lettersOf(byInfo.Record().groups), after);
    }

    void swapsEarlierStacksAgain()
    {
        VRDrive2ToSPP converter;
        converter.Shooting().bracketCount = 3;
        converter.Shooting().shots.resize(3);
        const QStringList pictures{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
        const QVector<float> exposures{-2, 0, 2};
        converter.Convert(pictures, 50, 0);
        converter.MoveReferenceExposureFirst(exposures);
        converter.Convert(pictures, 50, 0);
        converter.MoveReferenceExposureFirst(exposures);
        QCOMPARE(lettersOf(converter.Record().groups), QStringLiteral("abc bac"));
    }
};

QTEST_GUILESS_MAIN(tst_VRDrive2ToSPP)
#include "tst_VRDrive2ToSPP.moc"
