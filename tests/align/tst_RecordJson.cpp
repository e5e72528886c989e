// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/RecordJson.h"
#include "tests/support/RecordDump.h"
#include "tests/support/Table.h"

#include <QDir>
#include <limits>

class tst_RecordJson : public QObject {
    Q_OBJECT

private slots:
    void everyMember()
    {
        ProjectRecord record;
        record.groups = {{QStringLiteral("/p/a.jpg"), QStringLiteral("/p/b \"q\" \\ \n\u00e9.jpg")},
            {QStringLiteral("c.jpg")}, {}};
        record.links = {{2, {0, 1}}, {1, {}}};
        record.yaws = {0.5235988F, -1e-10F, std::numeric_limits<float>::quiet_NaN()};
        record.pitches = {1.17549435e-38F, 3.40282347e+38F, 0.1F};
        record.rolls = {std::numeric_limits<float>::infinity(), 1.5707964F, 16777216.0F};
        record.focal = 24.123F;
        record.lensType = 1;
        record.autoDetection = true;
        record.stackLinking = 1;
        record.levelLinking = 1;
        record.guidedOptimization = true;
        record.skipOptimization = true;
        record.cleanLinks = true;
        record.layoutMode = 4;
        record.layoutRows = 100000;
        record.layoutBracket = -3;
        record.fullTurn = true;
        record.overlap = 33.3;
        record.outputType = 3;

        const QByteArray json = recordToJson(record);

        const QByteArray expected = "{\n"
                                    "'groups': [['/p/a.jpg', '/p/b `q` \\\\ \\u000aé.jpg'],\n"
                                    "    ['@/c.jpg'],\n"
                                    "    []],\n"
                                    "'links': [{'kind': 2, 'indices': [0, 1]},\n"
                                    "    {'kind': 1, 'indices': []}],\n"
                                    "'yaws': [0.52359879, -1.00000001e-10, null],\n"
                                    "'pitches': [1.17549435e-38, 3.40282347e+38, 0.100000001],\n"
                                    "'rolls': [null, 1.57079637, 16777216],\n"
                                    "'focal': 24.1229992,\n"
                                    "'lensType': 1,\n"
                                    "'autoDetection': true,\n"
                                    "'stackLinking': 1,\n"
                                    "'levelLinking': 1,\n"
                                    "'guidedOptimization': true,\n"
                                    "'skipOptimization': true,\n"
                                    "'cleanLinks': true,\n"
                                    "'layoutMode': 4,\n"
                                    "'layoutRows': 100000,\n"
                                    "'layoutBracket': -3,\n"
                                    "'fullTurn': true,\n"
                                    "'overlap': 33.3,\n"
                                    "'outputType': 3\n"
                                    "}\n";
        QCOMPARE(QString::fromUtf8(json),
            QString::fromUtf8(expected)
                .replace(QLatin1Char('`'), QLatin1String("\\\""))
                .replace(QLatin1Char('\''), QLatin1Char('"'))
                .replace(QLatin1Char('@'), QDir::currentPath()));

        QString error;
        const auto back = recordFromJson(json, &error);
        QVERIFY2(back, qUtf8Printable(error));
        record.groups[1][0] = QDir::current().filePath(QStringLiteral("c.jpg"));
        record.rolls[0] = std::numeric_limits<float>::quiet_NaN();
        QCOMPARE(dump(*back), dump(record));
    }

    void freshRecord()
    {
        QString error;
        QCOMPARE(dump(*recordFromJson(recordToJson({}), &error)), dump(ProjectRecord()));
        QCOMPARE(dump(*recordFromJson("{\"other\": {}}", &error)), dump(ProjectRecord()));
        QCOMPARE(error, QString());
    }

    void refused_data()
    {
        const Table<QByteArray, QString> row("json", "cause");
        row("empty", "", "at byte");
        row("cut short", "{\"groups\": [[\"a\"", "at byte");
        row("an array", "[]", "no record");
        row("group is a text", "{\"groups\": [\"a\"]}", "\"groups\"");
        row("path is a number", "{\"groups\": [[1]]}", "\"groups\"");
        row("links by number", "{\"links\": [1]}", "\"links\"");
        row("link without indices", "{\"links\": [{\"kind\": 1}]}", "\"links\"");
        row("index with a fraction", "{\"links\": [{\"kind\": 1, \"indices\": [0.5]}]}",
            "\"links\"");
        row("angle as text", "{\"yaws\": [\"1\"]}", "\"yaws\"");
        row("angle beyond 32 bits", "{\"yaws\": [1e39]}", "\"yaws\"");
        row("huge rows", "{\"layoutRows\": 1e10}", "\"layoutRows\"");
        row("flag as a number", "{\"fullTurn\": 1}", "\"fullTurn\"");
        row("first of two", "{\"rolls\": 1, \"focal\": \"x\"}", "\"rolls\"");
    }
    void refused()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, cause);
        QString error;
        QVERIFY(!recordFromJson(json, &error));
        QVERIFY2(error.contains(cause), qUtf8Printable(error));
    }
};

QTEST_GUILESS_MAIN(tst_RecordJson)
#include "tst_RecordJson.moc"
