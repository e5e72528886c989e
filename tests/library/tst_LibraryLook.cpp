// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FakeHost.h"

#include <QApplication>
#include <QDir>
#include <QPluginLoader>

class tst_LibraryLook : public QObject {
    Q_OBJECT

private slots:
    void bringsItsOwnOnce();
};

// Without a host no look; the first host then decides, for good.
void tst_LibraryLook::bringsItsOwnOnce()
{
    const QString prefix = QStringLiteral("UI");
    const auto makeLibrary = [loader = std::make_shared<QPluginLoader>(
                                  QStringLiteral(ZPANOHEAD_MODULE))] { delete loader->instance(); };
    FakeHost &host = FakeHost::instance();
    host.setAbsent(true);
    makeLibrary();
    QCOMPARE(QDir::searchPaths(prefix), QStringList());

    host.setAbsent(false);
    makeLibrary();
    QCOMPARE(host.translations.size(), 1);
    QCOMPARE(QDir::searchPaths(prefix), QStringList(QStringLiteral(":/UI")));

    const QStringList hosts{QStringLiteral("/host/ui")};
    QDir::setSearchPaths(prefix, hosts);
    makeLibrary();
    QCOMPARE(host.translations.size(), 2);
    QCOMPARE(QDir::searchPaths(prefix), hosts);
}

FAKE_HOST_GUI_MAIN(tst_LibraryLook)
#include "tst_LibraryLook.moc"
