// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pages/FileChooser.h"

#include <QApplication>
#include <QCompleter>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QUrl>

namespace {

QString folderOf(const QString &path)
{
    if (path.isEmpty())
        return {};
    const QFileInfo info(path);
    return info.isDir() ? info.absoluteFilePath() : info.absolutePath();
}

void openFolder(const QString &folder)
{
    const QString path = folder.isEmpty() ? QDir::currentPath() : folder;
    // Encoded, lest "#", "?" or "%" in a folder's name be read as parts of an address.
    QDesktopServices::openUrl(QUrl(QStringLiteral("file:///")
        + QString::fromLatin1(QUrl::toPercentEncoding(path, QByteArrayLiteral("/:")))));
}

} // namespace

QStringList filechooser::chooseFiles(QWidget *parent, const Request &request)
{
    const QString folder = folderOf(request.start);
    if (QApplication::keyboardModifiers().testFlag(Qt::ControlModifier)) {
        openFolder(folder);
        return {};
    }
    QString selected = request.selectedFilter;
    return QFileDialog::getOpenFileNames(
        parent, request.caption, folder, request.filters, &selected);
}

filechooser::Choice filechooser::sortOut(const QStringList &files, QLatin1String suffix)
{
    Choice choice;
    for (const QString &file : files) {
        if (file.endsWith(suffix, Qt::CaseInsensitive))
            choice.configFile = file;
        else
            choice.pictures.append(file);
    }
    return choice;
}

void filechooser::completePaths(QLineEdit *edit, std::function<void(const QString &)> taken)
{
    auto *completer = new QCompleter(edit);
    auto *files = new QFileSystemModel(completer);
    files->setRootPath(QString());
    completer->setModel(files);
    edit->setCompleter(completer);
    QObject::connect(completer, QOverload<const QString &>::of(&QCompleter::activated), edit,
        [taken = std::move(taken)](const QString &path) { taken(path); });
}

QString filechooser::quotedNames(const QStringList &files)
{
    QString names;
    for (const QString &file : files)
        names += QLatin1Char('"') + QFileInfo(file).fileName() + QLatin1String("\"; ");
    return names;
}
