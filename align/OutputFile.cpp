// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/OutputFile.h"

#include "align/PictureFacts.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QSaveFile>
#include <filesystem>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <vector>

namespace {

struct OutputTexts {
    Q_DECLARE_TR_FUNCTIONS(OutputFile)
};

/// Device and number: what two names of one file share.
std::optional<QPair<quint64, quint64>> fileId(const QString &path)
{
    struct stat status;
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return qMakePair(quint64(status.st_dev), quint64(status.st_ino));
}

/// Whether the file at \a path may be a picture or what a head wrote, which nobody means to lose.
bool isPrecious(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("pto") || suffix == QLatin1String("json"))
        return false;
    return suffix == QLatin1String("xml") || suffix == QLatin1String("txt") || isPictureName(path)
        || !QImageReader::imageFormat(path).isEmpty();
}

std::filesystem::path pathOf(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

QString problemOf(const QString &path, const std::error_code &error)
{
    return error ? unwritable(path, QString::fromLocal8Bit(error.message().c_str())) : QString();
}

} // namespace

OutputGuard::OutputGuard(const QStringList &inputs, Writes writes)
    : m_writes(writes)
{
    for (const QString &path : inputs) {
        if (const auto id = fileId(path))
            m_inputs.insert(*id);
    }
}

QString OutputGuard::objection(const QString &path) const
{
    const QFileInfo info(path);
    if (info.isDir())
        return OutputTexts::tr("is a folder");
    const auto id = fileId(path);
    if (!id) {
        const QFileInfo folder(info.absolutePath());
        return folder.isDir() ? QString()
                              : OutputTexts::tr("there is no folder %1").arg(folder.filePath());
    }
    if (m_inputs.contains(*id))
        return OutputTexts::tr("is one of the files that the import reads");
    if (!info.isFile())
        return OutputTexts::tr("is no regular file");
    if (m_writes == Writes::Projects && isPrecious(path))
        return OutputTexts::tr("is a picture or a head's file, which is never written over");
    return {};
}

bool isSameFile(const QString &a, const QString &b)
{
    const auto idA = fileId(a);
    const auto idB = fileId(b);
    if (idA && idB)
        return *idA == *idB;
    const QFileInfo infoA(a);
    const QFileInfo infoB(b);
    return infoA.fileName() == infoB.fileName()
        && fileId(infoA.absolutePath()) == fileId(infoB.absolutePath());
}

QString unwritable(const QString &path, const QString &reason)
{
    return reason.isEmpty() ? OutputTexts::tr("%1: cannot be written").arg(path)
                            : OutputTexts::tr("%1: cannot be written: %2").arg(path, reason);
}

QString makeFolder(const QString &path)
{
    std::error_code error;
    std::filesystem::create_directories(pathOf(path), error);
    return problemOf(path, error);
}

QString moveFile(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(pathOf(from), pathOf(to), error);
    return problemOf(to, error);
}

QString writeWhole(const QVector<OutputFile> &files)
{
    std::vector<std::unique_ptr<QSaveFile>> open;
    const auto failure
        = [](const QSaveFile &file) { return unwritable(file.fileName(), file.errorString()); };
    for (const OutputFile &output : files) {
        open.push_back(std::make_unique<QSaveFile>(output.path));
        QSaveFile &file = *open.back();
        if (!file.open(QIODevice::WriteOnly) || file.write(output.content) != output.content.size()
            || !file.flush())
            return failure(file);
    }
    for (const auto &file : open) {
        if (!file->commit())
            return failure(*file);
    }
    return {};
}
