// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QLocale>
#include <QString>
#include <QVariant>
#include <QtPlugin>

class ImageInfo;
struct ProjectRecord;

/// The services that a host offers to the plug-ins.
///
/// The host's application object (the QCoreApplication) derives from this interface and names it in
/// Q_INTERFACES, so that qt_metacast("ZIApplication") answers. The plug-ins look it up at each use
/// and cope with its absence: a page is then accepted without handing anything over. All operations
/// but ReadImageInfo() are called in the window's thread. The plug-ins keep none of what is passed
/// by reference, and no exception may leave an operation.
///
/// The order of the virtual functions is binary contract: the reserved ones keep later places.
class ZIApplication {
public:
    virtual ~ZIApplication() = default;

    virtual void Reserved1() { }
    virtual void Reserved2() { }

    /// The folder in which a dialog for pictures starts; empty: the current one.
    virtual QString GetImagesDirectory() = 0;

    /// Tells the host where the user was: \a path is the full path of a chosen file, not a folder.
    /// The next GetImagesDirectory() answers with its folder.
    virtual void SetImagesDirectory(const QString &path) = 0;

    /// The value stored under \a identifier (of the plug-in) and \a key, or \a fallback. Asked when
    /// an import is made; what is stored is a QByteArray.
    virtual QVariant GetSetting(
        const QString &identifier, const QString &key, const QVariant &fallback)
        = 0;

    /// Stores \a value under \a identifier (of the plug-in) and \a key, beyond the end of the
    /// program. Called when an import is deleted.
    virtual void SetSetting(const QString &identifier, const QString &key, const QVariant &value)
        = 0;

    virtual void Reserved7() { }

    /// The language of the host's windows.
    virtual QLocale GetLocale() = 0;

    virtual void Reserved9() { }
    virtual void Reserved10() { }

    /// Asks the host to find the translation \a fileName (a bare name such as ZPanoHead_fr_FR.qm)
    /// and to install it; the host owns the translator. The files lie beside the module. A missing
    /// one is no error to the plug-ins. Called while the library's root object is made.
    virtual void LoadTranslation(const QString &fileName) = 0;

    /// Reads one picture's data; null when the picture cannot be read, which is all that the page
    /// learns: it waits for a picture that can. May be slow. Called in a background thread, one for
    /// each page, beside the window's thread: no QPixmap here. The host owns the result, which
    /// stays valid until the application object goes; a path may be asked for again.
    virtual ImageInfo *ReadImageInfo(const QString &path) = 0;

    /// Hands over a finished import, once for each acceptance, while the page is being accepted: do
    /// not delete the page or its plug-in here. The host copies what it keeps.
    virtual void ImportProject(const ProjectRecord &record) = 0;

    virtual void Reserved14() { }
    virtual void Reserved15() { }

    /// The host's shared look of windows, or null: the library then sets up its own. The host owns
    /// it.
    virtual void *GetUiContext() = 0;
};

Q_DECLARE_INTERFACE(ZIApplication, "ZIApplication")

/// The host's services, or null where the application object does not offer them. Look them up at
/// each use; never keep the pointer.
inline ZIApplication *FindApplication()
{
    return qobject_cast<ZIApplication *>(QCoreApplication::instance());
}
