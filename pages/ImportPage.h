// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "geometry/LinkLimit.h"
#include "host/ZIApplication.h"
#include "pages/FileChooser.h"
#include "pages/Heads.h"
#include "pages/OptionBoxes.h"
#include "preview/PreviewPane.h"
#include "reader/ReadingThread.h"

#include <QPointer>
#include <QWizard>

#include <memory>
#include <optional>
#include <vector>

class QLabel;
class QLineEdit;
class QScrollArea;

/// The widgets that every import page has.
struct ImportForm {
    QLineEdit *images = nullptr;
    QScrollArea *preview = nullptr;
    OptionBoxes options;
};

/// What all import pages do alike: pictures are chosen or dropped, read in the background,
/// previewed and counted; options are remembered.
///
/// A page for one head derives from it and is the meta-object: there is no Q_OBJECT here, so that
/// its super class stays QWizardPage and its slots are numbered from its own first.
///
/// Beside its widgets a page publishes dynamic properties for its host, to be read only:
/// "configFile" (QString), "images" (QStringList) and "imagesRead" (int, pictures read so far).
class ImportPage : public QWizardPage { // clazy:exclude=missing-qobject-macro
public:
    explicit ImportPage(QWidget *parent = nullptr);
    ~ImportPage() override;

    // Without Q_OBJECT tr() would silently look in QWizardPage's context.
    static QString tr(const char *, const char * = nullptr, int = -1) = delete;

    /// What the page remembers between runs, for the host's settings.
    virtual QByteArray SaveState() const;
    virtual void RestoreState(const QByteArray &state);

    void initializePage() override;
    bool isComplete() const override;
    bool validatePage() override;

protected:
    /// Called from the page's constructor once its form is set up.
    void attach(const ImportForm &form, const heads::Head &head);

    /// Fills the head's own widgets.
    virtual void refreshHead() = 0;
    /// Layout of the shooting as far as it is known.
    virtual PreviewScene previewScene() const = 0;
    /// Whether \a pictures chosen pictures are what the shooting needs.
    virtual bool fitsShooting(int pictures) const = 0;
    /// Takes files as if they had been chosen in the page's first dialog.
    virtual void takeFiles(const QStringList &files) = 0;
    /// The shooting converted, without the options that all pages have. Null when it may not be
    /// imported; the user has been told why.
    virtual ProjectRecord *makeRecord() = 0;
    /// The head's file as the user set it; empty where there is none.
    virtual QString configFile() const { return {}; }

    /// A text in the context of the page's own class.
    QString text(const char *source) const;

    const QStringList &pictures() const { return m_pictures; }
    /// Data of the pictures read so far, in their order. The host owns them.
    const QList<ImageInfo *> &pictureInfos() const { return m_infos; }
    const OptionBoxes &options() const { return m_options; }

    /// Asks for pictures, starting where \a start says; empty: where the host says. Tells the host
    /// where the user went. Empty when nothing was chosen.
    QStringList choosePictures(const QString &start);
    /// Asks for the head's file and pictures in one go.
    QStringList chooseConfigFileAndPictures(const QString &start, const QString &filters);
    /// The host's folder for pictures; empty without a host.
    static QString hostFolder();
    static void tellHostFolder(const QString &path);

    /// Replaces the pictures and starts to read them.
    void setPictures(const QStringList &pictures);
    /// Forgets the pictures and what was read of them.
    void clearPictures();
    /// Takes what the reader has by now. False when that is nothing new.
    bool takeResults();
    /// Has \a page's preview drawn on when there are new results.
    template <class Page> void updatePreviewOnResults(Page *page)
    {
        const auto update = [this] {
            if (takeResults())
                resultsChanged();
        };
        connect(&m_reader, &ReadingThread::Loaded, page, update);
        // An unreadable last picture leaves the results before it unannounced.
        connect(&m_reader, &ReadingThread::Done, page, update);
    }
    /// Draws the pictures that results have come in for, and tells the wizard that completeness may
    /// have changed.
    void resultsChanged();

    /// Fills all widgets from the page's state and redraws the preview.
    void refresh();
    /// refresh(), and tells the wizard that completeness may have changed. Ends every change.
    void changed();
    void redrawPreview();

    /// "%1,%2" with the range's ends, or \a unknown.
    static QString rangeText(const AngleRange &range, const QString &unknown);
    /// The number, or the translated "N/A" below \a least.
    QString countText(int count, int least) const;
    /// Sets a text, and shows its beginning, only when it differs: that keeps the cursor where the
    /// user types.
    static void setEditText(QLineEdit *edit, const QString &text);

    /// Whether an import of so many links may go on; if not, the user is told why.
    bool acceptLinks(const geometry::LinkEstimate &estimate);

    static void openLink(const QString &url);

    ReadingThread &reader() { return m_reader; }

    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void publish();
    void connectSubtitleLinks();
    void spareWizard();
    void tellWizard();

    QLineEdit *m_leImages = nullptr;
    OptionBoxes m_options;
    std::unique_ptr<PreviewPane> m_preview;
    ReadingThread m_reader;
    QStringList m_pictures;
    QString m_pictureNames;
    QList<ImageInfo *> m_infos;
    /// Whether the results of the present list were never taken.
    bool m_listIsNew = false;
    std::vector<QMetaObject::Connection> m_subtitleLinks;
    /// Is told of completeness by tellWizard() alone.
    QPointer<QWizard> m_sparedWizard;
    std::optional<bool> m_toldComplete;
};
