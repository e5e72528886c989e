// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clauss/ClaussScript.h"
#include "clauss/ClaussToSPP.h"
#include "tests/clauss/LiteralScript.h"
#include "tests/support/Files.h"
#include "tests/support/Table.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <cmath>

namespace {

/// With the sign of a zero, which Qt's conversion drops.
QString exact(float value)
{
    const QString digits = QString::number(double(value), 'g', 9);
    return value == 0 && std::signbit(value) ? QLatin1Char('-') + digits : digits;
}

/// One line a shot: id, yaw, pitch, roll, bracket, reserved, and whether the time is null.
QString dump(const QVector<HeadShot> &shots)
{
    QString text;
    for (const HeadShot &shot : shots)
        text += QStringLiteral("%1 %2 %3 %4 %5 %6 %7\n")
                    .arg(shot.id)
                    .arg(exact(shot.yaw), exact(shot.pitch), exact(shot.roll))
                    .arg(shot.bracket)
                    .arg(shot.reserved)
                    .arg(shot.time.isNull());
    return text;
}

/// "yaw/pitch yaw/pitch ... ok", or "bad" at the end.
QString summary(const ClaussScript &script)
{
    QString text;
    for (const HeadShot &shot : script.shots)
        text += QStringLiteral("%1/%2 ").arg(exact(shot.yaw), exact(shot.pitch));
    return text + (script.valid ? QStringLiteral("ok") : QStringLiteral("bad"));
}

/// Pieces that lines are made of: keys, near misses of them, values, and what separates them.
const QByteArrayList kPieces = {"op_shoot", "op_h-angle", "op_v-angle",
    "op_h-angle=", "op_v-angle=", "op_shoot=", "OP_SHOOT", "op_", "angle", "=", "==", "-", "--",
    "_", ".", ",", " ", "\t", "#", "0", "5", "30", "-45", "007", "22.5", "1e5", "1e-3", "inf",
    "-nan", "0x10", "\xb2", "\xbc", "\xe9", "\xb5", "\xd7", "\xa0", "\x85", "\x7f",
    "340282346638528859811704183484516925440", "340282366920938463463374607431768211456",
    "16777217", "-0", "\r", "\v", "\f"};

QByteArray randomLine(QRandomGenerator &random)
{
    QByteArray line;
    const int pieces = random.bounded(5);
    for (int i = 0; i < pieces; ++i) {
        if (random.bounded(8) == 0)
            line += static_cast<char>(random.bounded(1, 256));
        else
            line += kPieces.at(random.bounded(kPieces.size()));
    }
    return line.replace('\n', ' ');
}

QByteArray goodLine(QRandomGenerator &random)
{
    switch (random.bounded(3)) {
    case 0:
        return "op_shoot";
    case 1:
        return "op_h-angle=" + QByteArray::number(random.bounded(-360, 361));
    default:
        return "op_v-angle=" + QByteArray::number(random.bounded(-90, 91));
    }
}

QString describe(const Finding &finding)
{
    static const QHash<int, QString> names = {
        {int(Finding::Cause::CannotOpen), QStringLiteral("cannot open")},
        {int(Finding::Cause::NotANumber), QStringLiteral("not a number")},
        {int(Finding::Cause::CutAngle), QStringLiteral("cut")},
        {int(Finding::Cause::NoShots), QStringLiteral("no shots")},
    };
    return QStringLiteral("%1 %2: %3")
        .arg(finding.line)
        .arg(names.value(int(finding.cause)), finding.value);
}

} // namespace

class tst_ClaussScript : public QObject {
    Q_OBJECT

private slots:
    void splitsLinesAsTheExpression()
    {
        QRandomGenerator random(20260711);
        QByteArrayList lines;
        for (int code = 1; code < 256; ++code)
            lines << QByteArray("op_shoot") + static_cast<char>(code)
                  << QByteArray("op_h-angle=5") + static_cast<char>(code)
                  << static_cast<char>(code) + QByteArray("op_shoot=1");
        for (int i = 0; i < 100'000; ++i)
            lines << randomLine(random);

        for (const QByteArray &line : qAsConst(lines)) {
            const literal::Entry expected = literal::entryOf(QString::fromLatin1(line));
            const ClaussEntry entry = splitClaussLine({line.constData(), size_t(line.size())});
            QCOMPARE(QString::fromLatin1(entry.key.data(), int(entry.key.size())), expected.key);
            QCOMPARE(
                QString::fromLatin1(entry.value.data(), int(entry.value.size())), expected.value);
        }
    }

    void readsAsTheRulesSay()
    {
        QRandomGenerator random(19650318);
        int good = 0;
        int shots = 0;
        for (int i = 0; i < 3000; ++i) {
            // From scripts that are all right to scripts of noise.
            const int noise = random.bounded(4) == 0 ? 0 : random.bounded(11);
            QByteArray bytes;
            const int lines = random.bounded(60);
            for (int line = 0; line < lines; ++line) {
                bytes += random.bounded(10) < noise ? randomLine(random) : goodLine(random);
                bytes += random.bounded(2) ? "\n" : "\r\n";
            }
            if (random.bounded(2))
                bytes.chop(1);
            if (noise > 5 && random.bounded(4) == 0 && !bytes.isEmpty())
                bytes[random.bounded(bytes.size())] = '\0';

            const literal::Script expected = literal::read(bytes);
            const ClaussScript script = readClaussScript(bytes);
            QCOMPARE(dump(script.shots), dump(expected.shots));
            QCOMPARE(script.valid, expected.valid);
            good += script.valid;
            shots += script.shots.size();
        }
        // The comparison is worth something only when both outcomes occurred often.
        QVERIFY(good > 500 && good < 2500);
        QVERIFY(shots > 10'000);
    }

    void reads_data()
    {
        const Table<QByteArray, QString> row("bytes", "expected");
        row("nothing", "", "ok");
        row("no line end at the end", "op_h-angle=3\nop_shoot", "3/0 ok");
        row("angles stay",
            "op_v-angle=10\nop_h-angle=0\nop_shoot\nop_h-angle=120\nop_shoot\nop_shoot\n",
            "0/10 120/10 120/10 ok");
        row("decimals are cut", "op_h-angle=22.5\nop_v-angle=-7.5\nop_shoot\n", "22/-7 ok");
        row("shot with a value", "op_shoot=whatever\n", "0/0 ok");
        row("shot before other text", "op_shoot 5\nop_shoot;\n", "0/0 0/0 ok");
        row("leading blank", "   op_shoot\n\top_shoot\n op_h-angle=x\n", "ok");
        row("other case", "OP_SHOOT\nOp_shoot\n", "ok");
        row("longer key", "op_shoot2\nop_shoot-\nop_shoot_\nop_shoot\xe9\nop_shoot\xb2\n", "ok");
        row("sign after the key", "op_shoot\xd7\nop_shoot\xa7\n", "0/0 0/0 ok");
        row("no value", "op_h-angle\nop_shoot\n", "0/0 bad");
        row("blank before the sign", "op_h-angle = 30\nop_shoot\n", "0/0 bad");
        row("blank after the sign", "op_h-angle=7\nop_h-angle= 30\nop_shoot\n", "0/0 bad");
        row("reading goes on", "op_h-angle=x\nop_shoot\nop_h-angle=9\nop_shoot\n", "0/0 9/0 bad");
        row("superscript", "op_h-angle=5\xb2\nop_shoot\n", "0/0 bad");
        for (const char *bad : {"=30", "1e5", "inf", "-INF", "infinity", "NaN", "0x10", "+5", "-",
                 "--5", "5-", "340282366920938463463374607431768211456"})
            row(bad, QByteArray("op_h-angle=") + bad + "\nop_shoot\n", "0/0 bad");
        row("leading zeros", "op_h-angle=0005\nop_shoot\n", "5/0 ok");
        row("minus zero", "op_h-angle=-0\nop_shoot\n", "-0/0 ok");
        row("rounded to 32 bits", "op_h-angle=16777217\nop_shoot\n", "16777216/0 ok");
        row("largest float", "op_h-angle=340282346638528859811704183484516925440\nop_shoot\n",
            "3.40282347e+38/0 ok");
        row("over the largest double", "op_h-angle=" + QByteArray(400, '9') + "\nop_shoot\n",
            "0/0 bad");
        row("carriage return in the key", "op_sh\root\n\rop_shoot\r\r\n", "0/0 0/0 ok");
        row("carriage return in the value", "op_h-angle=1\r2\r\nop_shoot\r\n", "12/0 ok");
        row("carriage return ends no line", "op_h-angle=4\rop_shoot\n", "bad");
        row("zero byte", QByteArray("op_shoot\nop_shoot\n\0op_shoot\n", 27), "0/0 0/0 ok");
        row("zero byte within a key", QByteArray("op_shoot\nop_sh\0oot\n", 19), "0/0 ok");
        row("zero byte within a value", QByteArray("op_shoot\nop_h-angle=\0%5\nop_shoot\n", 33),
            "0/0 bad");
        row("zero byte first", QByteArray("\0op_shoot\n", 10), "ok");
        row("megabyte of value", "op_h-angle=" + QByteArray(1'000'000, '7') + "\nop_shoot",
            "0/0 bad");
        row("megabyte of zeros", "op_h-angle=" + QByteArray(1'000'000, '0') + "5\nop_shoot",
            "5/0 ok");
        row("megabyte of key", QByteArray(1'000'000, '-') + "\nop_shoot", "0/0 ok");
        row("byte order mark", "\xef\xbb\xbfop_shoot\nop_shoot\n", "0/0 ok");
    }
    void reads()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QString, expected);

        QCOMPARE(summary(readClaussScript(bytes)), expected);
    }

    void readsFullAngles_data()
    {
        const Table<QByteArray, QString, QString> row("value", "cut", "full");
        row("22", "22/0 ok", "22/0 ok");
        row("22.5", "22/0 ok", "22.5/0 ok");
        row("-7.005", "-7/0 ok", "-7.00500011/0 ok");
        row("-0.5", "-0/0 ok", "-0.5/0 ok");
        row(".5", "0/0 bad", "0.5/0 ok");
        row("-.5", "0/0 bad", "-0.5/0 ok");
        row("22.", "22/0 ok", "22/0 ok");
        row(".", "0/0 bad", "0/0 bad");
        row("22.5 degrees", "22/0 ok", "22.5/0 ok");
        row("22.5e1", "22/0 ok", "0/0 bad");
        row("22.5.1", "22/0 ok", "0/0 bad");
        row("22.-5", "22/0 ok", "0/0 bad");
        row("22,5", "22/0 ok", "22/0 ok");
    }
    void readsFullAngles()
    {
        QFETCH(const QByteArray, value);
        QFETCH(const QString, cut);
        QFETCH(const QString, full);

        const QByteArray bytes = "op_h-angle=" + value + "\nop_shoot\n";
        QCOMPARE(summary(readClaussScript(bytes, false)), cut);
        QCOMPARE(summary(readClaussScript(bytes, true)), full);
    }

    void tellsFindings_data()
    {
        const Table<QByteArray, bool, QStringList> row("bytes", "fullAngles", "expected");
        const QByteArray decimals
            = "# 1.5\nop_v-angle=0\nop_h-angle=22.5 ; first\n\nop_h-angle=4.\n"
              "op_v-angle=-7.005\r\nop_x-angle=1.5\nop_h-angle=1,5\nop_shoot\n";
        row("decimals", decimals, false,
            {"3 cut: op_h-angle=22.5", "6 cut: op_v-angle=-7.005", "8 cut: op_h-angle=1,5"});
        row("decimals wanted", decimals, true, {"8 cut: op_h-angle=1,5"});
        row("numbers", "op_shoot\r\nop_h-angle = 30 \r\nop_v-angle=1e5\n op_h-angle=x", false,
            {"2 not a number: op_h-angle = 30", "3 not a number: op_v-angle=1e5"});
        row("no shots", "op_h-angle=.5", false, {"1 not a number: op_h-angle=.5", "0 no shots: "});
        row("long line", "op_shoot\nop_h-angle=" + QByteArray(5000, '1'), false,
            {QStringLiteral("2 not a number: op_h-angle=") + QString(69, QLatin1Char('1'))});
    }
    void tellsFindings()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const bool, fullAngles);
        QFETCH(const QStringList, expected);

        QStringList findings;
        readClaussScript(
            bytes, fullAngles, [&](const Finding &finding) { findings << describe(finding); });
        QCOMPARE(findings, expected);
    }

    void readsFiles_data()
    {
        const Table<QByteArray, bool, bool, QString> row("bytes", "fullAngles", "valid", "shots");
        const QByteArray good = "op_shoot\r\nop_h-angle=22.5\r\nop_shoot\r\n";
        row("good", good, false, true, "0 0 0 0 0 0 1\n1 22 0 0 0 0 1\n");
        row("full", good, true, true, "0 0 0 0 0 0 1\n1 22.5 0 0 0 0 1\n");
        row("bad", "op_h-angle=x\nop_shoot\n", false, false, "0 0 0 0 0 0 1\n");
        row("empty", "", false, true, "");
    }
    void readsFiles()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const bool, fullAngles);
        QFETCH(const bool, valid);
        QFETCH(const QString, shots);

        QTemporaryDir folder;
        const QString path = writeFile(folder.filePath(QStringLiteral("skript \u00e4.TXT")), bytes);

        ClaussToSPP converter;
        converter.SetFullAngles(fullAngles);
        QCOMPARE(converter.ReadConfigFile(path), valid);
        // Again, from the start.
        QCOMPARE(converter.ReadConfigFile(path), valid);
        QCOMPARE(dump(converter.Shots()), shots);
    }

    void refusesWhatIsNoFile_data()
    {
        const Table<QString> row("path");
        row("no path", "");
        row("missing", "/nowhere/script.txt");
        row("directory", QDir::tempPath());
        row("endless device", "/dev/urandom");
    }
    void refusesWhatIsNoFile()
    {
        QFETCH(const QString, path);

        ClaussToSPP converter;
        converter.Shots().append(ClaussShot());
        QVector<Finding> findings;
        QVERIFY(
            !converter.ReadConfigFile(path, [&](const Finding &finding) { findings << finding; }));
        QVERIFY(converter.Shots().isEmpty());
        QCOMPARE(findings.size(), 1);
        QCOMPARE(findings.first().cause, Finding::Cause::CannotOpen);
        QVERIFY(!findings.first().value.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_ClaussScript)
#include "tst_ClaussScript.moc"
