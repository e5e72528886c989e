// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pages/FileNamesEdit.h"
#include "tests/support/Table.h"

#include <limits>

class tst_FileNamesEdit : public QObject {
    Q_OBJECT

private slots:
    void looksLikeALineEdit_data()
    {
        const Table<int, bool> row("names", "enabled");
        QTest::addRow("none") << 0 << true;
        QTest::addRow("three") << 3 << true;
        QTest::addRow("thousands") << 5000 << true;
        QTest::addRow("thousands, disabled") << 5000 << false;
    }
    void looksLikeALineEdit()
    {
        QFETCH(const int, names);
        QFETCH(const bool, enabled);
        QString text;
        for (int k = 0; k < names; ++k)
            text += QStringLiteral("\"IMG_%1.jpg\" ").arg(k, 4, 10, QLatin1Char('0'));
        const auto drawn = [&](QLineEdit &&edit) {
            edit.setMaxLength(std::numeric_limits<int>::max());
            edit.setReadOnly(true);
            edit.setEnabled(enabled);
            edit.resize(300, 30);
            edit.setText(text);
            edit.setCursorPosition(0);
            return edit.grab().toImage();
        };
        const QImage plain = drawn(QLineEdit());
        QCOMPARE(drawn(FileNamesEdit()), plain);
    }
};

QTEST_MAIN(tst_FileNamesEdit)
#include "tst_FileNamesEdit.moc"
