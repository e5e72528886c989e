// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QJsonObject>
#include <QJsonValue>
#include <QNetworkAccessManager>
#include <QProcess>
#include <QString>
#include <QTcpServer>
#include <QTemporaryDir>

/// Chromium without a window, driven by its WebDriver.
class Browser {
public:
    ~Browser();

    /// Empty when it runs, else why not.
    QString start();
    void open(const QString &url);
    /// What \a script, a function's body, returns.
    QJsonValue run(const QString &script);
    QImage screenshot();

    /// Whether there was a chromedriver when the build was configured.
    static bool isConfigured();

private:
    QJsonValue ask(const QByteArray &method, const QString &path, const QJsonObject &body = {});

    QTemporaryDir m_profile;
    QProcess m_driver;
    QNetworkAccessManager m_network;
    QString m_address;
    QString m_session;
};

/// Serves the files of a folder at http://127.0.0.1:port/.
class FolderServer : public QTcpServer {
public:
    explicit FolderServer(QString folder);
    QString address() const;
    /// How many files were not there.
    int missed() const { return m_missed; }

private:
    void serve();

    QString m_folder;
    int m_missed = 0;
};
