// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/stitch/Browser.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QTcpSocket>
#include <QTimer>

namespace {

constexpr int kPatience = 60'000;
const QString kDriver = QStringLiteral(CHROMEDRIVER);

} // namespace

bool Browser::isConfigured()
{
    return !kDriver.isEmpty();
}

Browser::~Browser()
{
    if (!m_session.isEmpty())
        ask("DELETE", {});
    m_driver.terminate();
    m_driver.waitForFinished();
}

QString Browser::start()
{
    m_driver.start(kDriver, {QStringLiteral("--port=0")});
    static const QRegularExpression port(QStringLiteral("started successfully on port ([0-9]+)"));
    QString said;
    while (!port.match(said).hasMatch()) {
        if (!m_driver.waitForReadyRead(kPatience))
            return QStringLiteral("chromedriver does not start: ") + said;
        said += QString::fromUtf8(m_driver.readAll());
    }
    m_address = QStringLiteral("http://127.0.0.1:%1/session").arg(port.match(said).captured(1));
    // No graphics card and, in a container, no sandbox.
    const QJsonArray arguments{QStringLiteral("--headless=new"), QStringLiteral("--no-sandbox"),
        QStringLiteral("--use-angle=swiftshader"), QStringLiteral("--enable-unsafe-swiftshader"),
        QStringLiteral("--disable-dev-shm-usage"), QStringLiteral("--window-size=640,480"),
        QStringLiteral("--user-data-dir=") + m_profile.path()};
    const QJsonObject options{{QStringLiteral("args"), arguments}};
    const QJsonObject always{{QStringLiteral("goog:chromeOptions"), options}};
    const QJsonObject capabilities{{QStringLiteral("alwaysMatch"), always}};
    const QJsonValue answer = ask("POST", {}, {{QStringLiteral("capabilities"), capabilities}});
    m_session = answer.toObject().value(QStringLiteral("sessionId")).toString();
    return m_session.isEmpty() ? QString::fromUtf8(QJsonDocument(answer.toObject()).toJson())
                               : QString();
}

void Browser::open(const QString &url)
{
    ask("POST", QStringLiteral("/url"), {{QStringLiteral("url"), url}});
}

QJsonValue Browser::run(const QString &script)
{
    return ask("POST", QStringLiteral("/execute/sync"),
        {{QStringLiteral("script"), script}, {QStringLiteral("args"), QJsonArray()}});
}

QImage Browser::screenshot()
{
    return QImage::fromData(
        QByteArray::fromBase64(ask("GET", QStringLiteral("/screenshot")).toString().toLatin1()));
}

QJsonValue Browser::ask(const QByteArray &method, const QString &path, const QJsonObject &body)
{
    const QString session = m_session.isEmpty() ? QString() : QLatin1Char('/') + m_session;
    QNetworkRequest request(QUrl(m_address + session + path));
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    const QByteArray content = method == "POST" ? QJsonDocument(body).toJson() : QByteArray();
    QNetworkReply *reply = m_network.sendCustomRequest(request, method, content);
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(kPatience, &loop, &QEventLoop::quit);
    loop.exec();
    const QByteArray answer = reply->readAll();
    delete reply;
    return QJsonDocument::fromJson(answer).object().value(QStringLiteral("value"));
}

FolderServer::FolderServer(QString folder)
    : m_folder(std::move(folder))
{
    connect(this, &QTcpServer::newConnection, this, [this] { serve(); });
    listen(QHostAddress::LocalHost);
}

QString FolderServer::address() const
{
    return QStringLiteral("http://127.0.0.1:%1/").arg(serverPort());
}

void FolderServer::serve()
{
    QTcpSocket *socket = nextPendingConnection();
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
        if (!socket->peek(65'536).contains("\r\n\r\n"))
            return;
        const QString path = QString::fromUtf8(socket->readAll().split(' ').value(1))
                                 .section(QLatin1Char('?'), 0, 0);
        QFile file(m_folder + path);
        const bool isThere = file.open(QIODevice::ReadOnly);
        m_missed += !isThere && !path.endsWith(QLatin1String("favicon.ico"));
        const QByteArray content = isThere ? file.readAll() : QByteArray();
        socket->write(isThere ? "HTTP/1.1 200 OK\r\n" : "HTTP/1.1 404 Not Found\r\n");
        if (path.endsWith(QLatin1String(".html")))
            socket->write("Content-Type: text/html\r\n");
        socket->write("Content-Length: " + QByteArray::number(content.size())
            + "\r\nConnection: close\r\n\r\n" + content);
        socket->disconnectFromHost();
    });
}
