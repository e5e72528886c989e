// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pages/ImportPage.h"

#include "host/ImageInfo.h"
#include "host/ProjectRecord.h"

#include <QDesktopServices>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <limits>

namespace {

bool isLocalFile(const QUrl &url)
{
    const QString path = url.toLocalFile();
    return !path.isEmpty() && !QFileInfo(path).isDir();
}

QStringList localFiles(const QMimeData &data)
{
    QStringList files;
    const QList<QUrl> urls = data.urls();
    for (const QUrl &url : urls) {
        if (isLocalFile(url))
            files.append(url.toLocalFile());
    }
    return files;
}

// After a move, which a file manager may propose, it would remove the files.
void acceptAsCopy(QDropEvent &event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

ImportPage::ImportPage(QWidget *parent)
    : QWizardPage(parent)
{
    setAcceptDrops(true);
    connect(this, &QWizardPage::completeChanged, this, &ImportPage::tellWizard);
}

ImportPage::~ImportPage()
{
    m_reader.disconnect(this);
    m_reader.Clear();
}

void ImportPage::attach(const ImportForm &form, const heads::Head &head)
{
    setPixmap(QWizard::LogoPixmap, QPixmap(heads::resource(head, head.logo)));
    m_leImages = form.images;
    m_leImages->setMaxLength(std::numeric_limits<int>::max());
    m_options = form.options;
    m_preview = std::make_unique<PreviewPane>(form.preview, form.options.zoom, [this](int picture) {
        return picture < m_infos.size() ? &m_infos[picture]->GetThumbnail() : nullptr;
    });
    // A line edit would take dropped files as text.
    const QList<QLineEdit *> edits = findChildren<QLineEdit *>();
    for (QLineEdit *edit : edits)
        edit->setAcceptDrops(false);
}

QByteArray ImportPage::SaveState() const
{
    return m_options.state().toByteArray();
}

void ImportPage::RestoreState(const QByteArray &state)
{
    if (const auto restored = PageState::fromByteArray(state))
        m_options.setState(*restored);
}

void ImportPage::initializePage()
{
    redrawPreview();
}

bool ImportPage::isComplete() const
{
    return m_pictures.size() == m_infos.size() && fitsShooting(m_pictures.size());
}

bool ImportPage::validatePage()
{
    ZIApplication *host = FindApplication();
    if (!host)
        return true;
    ProjectRecord *record = makeRecord();
    if (!record)
        return false;
    m_options.copyTo(*record);
    host->ImportProject(ProjectRecord(*record));
    return true;
}

QString ImportPage::text(const char *source) const
{
    return QCoreApplication::translate(metaObject()->className(), source);
}

QString ImportPage::hostFolder()
{
    ZIApplication *host = FindApplication();
    return host ? host->GetImagesDirectory() : QString();
}

void ImportPage::tellHostFolder(const QString &path)
{
    if (ZIApplication *host = FindApplication())
        host->SetImagesDirectory(path);
}

QStringList ImportPage::choosePictures(const QString &start)
{
    const QString all = text("All Files (*.*)");
    return filechooser::chooseFiles(
        this, {text("Select images"), start.isEmpty() ? hostFolder() : start, all, all});
}

QStringList ImportPage::chooseConfigFileAndPictures(const QString &start, const QString &filters)
{
    return filechooser::chooseFiles(this,
        {text("Select the preset file and/or images"), start, filters, text("All Files (*.*)")});
}

void ImportPage::setPictures(const QStringList &pictures)
{
    m_pictures = pictures;
    m_pictureNames = filechooser::quotedNames(m_pictures);
    m_infos.clear();
    m_listIsNew = true;
    m_reader.Read(m_pictures);
}

void ImportPage::clearPictures()
{
    m_pictures.clear();
    m_pictureNames.clear();
    m_infos.clear();
    m_listIsNew = true;
    m_reader.Clear();
}

bool ImportPage::takeResults()
{
    QList<ImageInfo *> results = m_reader.GetResults();
    if (!m_listIsNew && results.size() == m_infos.size())
        return false;
    m_listIsNew = false;
    m_infos = std::move(results);
    publish();
    return true;
}

void ImportPage::refresh()
{
    setEditText(m_leImages, m_pictureNames);
    refreshHead();
    redrawPreview();
    publish();
}

void ImportPage::changed()
{
    refresh();
    emit completeChanged();
}

void ImportPage::redrawPreview()
{
    m_preview->show(previewScene(), m_infos.size());
}

void ImportPage::resultsChanged()
{
    m_preview->addPictures(m_infos.size());
    emit completeChanged();
}

void ImportPage::publish()
{
    setProperty("configFile", configFile());
    setProperty("images", m_pictures);
    setProperty("imagesRead", m_infos.size());
}

QString ImportPage::rangeText(const AngleRange &range, const QString &unknown)
{
    if (range.isUnknown())
        return unknown;
    return QStringLiteral("%1,%2").arg(
        QString::number(double(range.min)), QString::number(double(range.max)));
}

QString ImportPage::countText(int count, int least) const
{
    return count < least ? text("N/A") : QString::number(count);
}

void ImportPage::setEditText(QLineEdit *edit, const QString &text)
{
    if (edit->text() == text)
        return;
    edit->setText(text);
    edit->setCursorPosition(0);
}

bool ImportPage::acceptLinks(const geometry::LinkEstimate &estimate)
{
    if (!estimate.isTooMany())
        return true;
    const auto millions = [](qint64 links) { return qRound64(double(links) / 1e6); };
    QMessageBox::warning(this, text("Warning"),
        text("A focal length of %1 mm makes about %2 million links between the pictures, more than "
             "%3 million. Check the focal length.")
            .arg(double(estimate.focal))
            .arg(millions(estimate.links))
            .arg(millions(geometry::kMostLinks)),
        QMessageBox::Ok);
    return false;
}

void ImportPage::openLink(const QString &url)
{
    QDesktopServices::openUrl(QUrl(url));
}

void ImportPage::changeEvent(QEvent *event)
{
    QWizardPage::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_leImages)
        redrawPreview();
}

void ImportPage::dragEnterEvent(QDragEnterEvent *event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (std::any_of(urls.cbegin(), urls.cend(), isLocalFile))
        acceptAsCopy(*event);
}

void ImportPage::dropEvent(QDropEvent *event)
{
    const QStringList files = localFiles(*event->mimeData());
    if (files.isEmpty())
        return;
    acceptAsCopy(*event);
    takeFiles(files);
}

void ImportPage::showEvent(QShowEvent *event)
{
    QWizardPage::showEvent(event);
    spareWizard();
    // The wizard fills its header only after the page is shown.
    QMetaObject::invokeMethod(
        this, [this] { connectSubtitleLinks(); }, Qt::QueuedConnection);
}

void ImportPage::hideEvent(QHideEvent *event)
{
    QWizardPage::hideEvent(event);
    for (const QMetaObject::Connection &link : m_subtitleLinks)
        disconnect(link);
    m_subtitleLinks.clear();
}

// A wizard shows the subtitle in a label of its own, which opens no links by itself.
void ImportPage::connectSubtitleLinks()
{
    if (!wizard() || !isVisible() || !m_subtitleLinks.empty())
        return;
    const QList<QLabel *> labels = wizard()->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        if (label->text() != subTitle())
            continue;
        label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
        m_subtitleLinks.push_back(
            connect(label, &QLabel::linkActivated, this, &ImportPage::openLink));
    }
}

// Whenever completeness may have changed, a wizard hides and shows its whole window to set its
// buttons. With every ten pictures that takes longer than all else, and hardly ever is there news.
void ImportPage::spareWizard()
{
    const char *const slot = SLOT(_q_updateButtonStates());
    // Where a later Qt has it otherwise, all stays as it is.
    if (!wizard() || wizard()->metaObject()->indexOfSlot(slot + 1) < 0
        || !disconnect(this, SIGNAL(completeChanged()), wizard(), slot))
        return;
    m_sparedWizard = wizard();
    m_toldComplete.reset();
}

void ImportPage::tellWizard()
{
    if (!m_sparedWizard || m_sparedWizard != wizard() || m_toldComplete == isComplete())
        return;
    m_toldComplete = isComplete();
    QMetaObject::invokeMethod(m_sparedWizard, "_q_updateButtonStates", Qt::DirectConnection);
}
