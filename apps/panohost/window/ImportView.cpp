// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/ImportView.h"

#include "apps/panohost/window/DroppedFiles.h"
#include "apps/panohost/window/HeadModule.h"
#include "apps/panohost/window/HostApplication.h"
#include "apps/panohost/window/ImportBar.h"

#include <QCheckBox>
#include <QDropEvent>
#include <QDynamicPropertyChangeEvent>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>
#include <QWizard>
#include <QWizardPage>
#include <algorithm>
#include <utility>

namespace {

/// More names than that do not help to find what is missing.
constexpr int kMostSkipped = 5;

/// Asks its host before it closes.
class ImportWizard final : public QWizard {
public:
    ImportWizard(std::function<bool()> accept, std::function<bool()> mayLeave)
        : m_accept(std::move(accept))
        , m_mayLeave(std::move(mayLeave))
    {
    }

    bool validateCurrentPage() override { return QWizard::validateCurrentPage() && m_accept(); }
    void reject() override
    {
        if (m_mayLeave())
            QWizard::reject();
    }

protected:
    /// A dialog would keep to itself what it has no button for.
    void keyPressEvent(QKeyEvent *event) override { event->ignore(); }

private:
    std::function<bool()> m_accept;
    std::function<bool()> m_mayLeave;
};

/// What \a all holds beyond \a before: a page that is accepted twice appends.
ProjectRecord recordSince(const ProjectRecord &all, const ProjectRecord &before)
{
    ProjectRecord record = all;
    record.groups = all.groups.mid(before.groups.size());
    record.links = all.links.mid(before.links.size());
    record.yaws = all.yaws.mid(before.yaws.size());
    record.pitches = all.pitches.mid(before.pitches.size());
    record.rolls = all.rolls.mid(before.rolls.size());
    return record;
}

} // namespace

ImportView::ImportView(
    const HeadImport &import, HostApplication &host, Finish finish, QWidget *parent)
    : QWidget(parent)
    , m_import(import)
    , m_host(host)
    , m_finish(std::move(finish))
    , m_page(import.page())
    , m_wizard(new ImportWizard([this] { return accept(); }, [this] { return mayLeave(); }))
    , m_bar(new ImportBar)
    , m_finishButton(new QPushButton(tr("&Import")))
{
    m_clock.start();
    m_wizard->setWindowFlags(Qt::Widget);
    m_wizard->setWizardStyle(QWizard::ModernStyle);
    m_wizard->setButtonLayout({});
    m_wizard->addPage(m_page);

    auto *layout = new QVBoxLayout(this);
    // The pages are nearly as wide as a small screen: they get all of it.
    QMargins sides = layout->contentsMargins();
    layout->setContentsMargins(0, sides.top(), 0, sides.bottom());
    sides.setTop(0);
    sides.setBottom(0);
    auto *above = new QVBoxLayout;
    above->setContentsMargins(sides);
    above->addWidget(m_bar);
    addOptions(*above);
    layout->addLayout(above);
    // The pages are taller than many a laptop's screen; what leads on stays in sight.
    auto *scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(m_wizard);
    layout->addWidget(scroll, 1);
    auto *below = new QHBoxLayout;
    below->setContentsMargins(sides);
    addButtons(*below);
    layout->addLayout(below);

    m_page->installEventFilter(this);
    connect(m_wizard, &QDialog::finished, this, &ImportView::closed);
    connect(m_bar, &ImportBar::cancelled, this, [this] { startOver({}); });
    connect(m_bar, &ImportBar::retried, this, [this] { startOver(m_pictures); });
    connect(m_bar, &ImportBar::leftOut, this, &ImportView::leaveOutUnreadable);
    connect(&m_host, &HostApplication::projectImported, this, &ImportView::takeRecord);
    connect(&m_host, &HostApplication::pictureUnreadable, this, &ImportView::noteUnreadable);
    connect(m_page, &QWizardPage::completeChanged, this, [this] {
        m_finishButton->setEnabled(m_page->isComplete());
        scheduleUpdate();
    });
    m_state.wantsFile = m_import.format() != HeadFileFormat::None;
    updateState();
    m_wizard->show();
    // Else the wizard gives the focus to the link above the page, which then looks as if chosen.
    setFocusPolicy(Qt::StrongFocus);
}

ImportView::~ImportView()
{
    giveBack();
}

void ImportView::giveBack()
{
    if (!m_page)
        return;
    m_page->removeEventFilter(this);
    m_page->disconnect(this);
    m_host.disconnect(this);
    m_wizard->disconnect(this);
    m_wizard->removePage(m_wizard->currentId());
    m_page->setParent(nullptr);
    m_page->setProperty("fullAngles", QVariant());
    QMetaObject::invokeMethod(m_page, "Reset");
    m_page = nullptr;
}

void ImportView::addButtons(QHBoxLayout &layout)
{
    m_finishButton->setObjectName(QStringLiteral("import"));
    m_finishButton->setDefault(true);
    m_finishButton->setEnabled(m_page->isComplete());
    auto *back = new QPushButton(tr("&Back to the heads"));
    back->setObjectName(QStringLiteral("back"));
    connect(m_finishButton, &QPushButton::clicked, this,
        [this] { m_wizard->button(QWizard::FinishButton)->click(); });
    connect(back, &QPushButton::clicked, m_wizard, &QWizard::reject);
    layout.addStretch(1);
    layout.addWidget(m_finishButton);
    layout.addWidget(back);
}

void ImportView::addOptions(QVBoxLayout &layout)
{
    if (m_import.hasFullAngles()) {
        m_fullAngles = new QCheckBox(tr("Take the &decimals of the angles too"));
        m_fullAngles->setObjectName(QStringLiteral("fullAngles"));
        m_fullAngles->hide();
        connect(m_fullAngles, &QCheckBox::toggled, this, &ImportView::takeFullAngles);
        layout.addWidget(m_fullAngles, 0, Qt::AlignLeft);
    }
    if (m_import.hasSerpentine()) {
        auto *serpentine = new QPushButton(QIcon(QStringLiteral(":/panohost/gigapan-mode4.png")),
            tr("Use the order “rows &upward, to and fro”"));
        serpentine->setObjectName(QStringLiteral("serpentine"));
        serpentine->setIconSize({56, 42});
        serpentine->setToolTip(
            tr("For heads that shoot every other row backwards, beginning below. The orders under "
               "“Shoot layout” take its place again."));
        connect(serpentine, &QPushButton::clicked, this,
            [this] { QMetaObject::invokeMethod(m_page, "OnMode4Toggled", Q_ARG(bool, true)); });
        layout.addWidget(serpentine, 0, Qt::AlignLeft);
    }
}

void ImportView::takeFiles(const QStringList &paths)
{
    const DroppedFiles dropped = sortOut(paths);
    QStringList files = dropped.pictures;
    // What comes along with files of use is passed over.
    m_state.refusal = dropped.isEmpty() ? dropped.refusal : QString();
    m_readFile = {};
    for (const HeadFile &head : dropped.heads) {
        // A bad one is handed on as well: the page and the bar say what is wrong with it.
        if (head.format == m_import.format()) {
            files.append(head.path);
            m_readFile = head;
        } else {
            m_state.refusal = tr("“%1” is no file of this head and was left out.").arg(head.name());
        }
    }
    hand(files);
}

void ImportView::hand(const QStringList &files)
{
    // The page reads its file anew, even one that it has.
    m_fileIsOld = true;
    scheduleUpdate();
    if (files.isEmpty())
        return;
    m_isHanding = true;
    dropOn(m_page, files);
    m_isHanding = false;
}

void ImportView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        m_finishButton->click();
    else if (event->matches(QKeySequence::Cancel))
        m_wizard->reject();
    else
        QWidget::keyPressEvent(event);
}

bool ImportView::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DynamicPropertyChange:
        if (static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName() == "images")
            watchPictures();
        scheduleUpdate();
        break;
    // What users drop on the page is sorted out first: the page would take a folder for nothing and
    // another head's file for a picture.
    case QEvent::DragEnter: {
        auto *enter = static_cast<QDragEnterEvent *>(event);
        if (m_isHanding || localPaths(*enter->mimeData()).isEmpty())
            break;
        enter->acceptProposedAction();
        return true;
    }
    case QEvent::Drop: {
        auto *drop = static_cast<QDropEvent *>(event);
        if (m_isHanding)
            break;
        drop->acceptProposedAction();
        takeFiles(localPaths(*drop->mimeData()));
        return true;
    }
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

// Called before any answer about the new pictures can have arrived.
void ImportView::watchPictures()
{
    m_pictures = m_page->property("images").toStringList();
    m_pictureSet = QSet<QString>(m_pictures.cbegin(), m_pictures.cend());
    m_unreadable.clear();
    m_skippedAreKnown = false;
    m_pace.start(m_clock.elapsed());
    const bool isMixed = m_state.wantsFile && !m_isHanding
        && std::any_of(m_pictures.cbegin(), m_pictures.cend(),
            [this](const QString &path) { return headFileFormat(path) == m_import.format(); });
    if (isMixed)
        QTimer::singleShot(0, this, &ImportView::takeFileFromPictures);
    // Only a page that was reset has no pictures, and its record is as new.
    if (m_pictures.isEmpty())
        m_handedOver = {};
}

void ImportView::noteUnreadable(const QString &path, const QString &reason)
{
    if (m_unreadable.contains(path) || !m_pictureSet.contains(path))
        return;
    m_unreadable.insert(path, reason);
    scheduleUpdate();
}

void ImportView::scheduleUpdate()
{
    if (m_updateIsDue)
        return;
    m_updateIsDue = true;
    QTimer::singleShot(0, this, &ImportView::updateState);
}

void ImportView::updateState()
{
    m_updateIsDue = false;
    if (!m_page)
        return;
    const QString path = m_page->property("configFile").toString();
    if (path != m_state.file.path || m_fileIsOld) {
        m_fileIsOld = false;
        m_skippedAreKnown = false;
        if (path == m_readFile.path)
            m_state.file = std::exchange(m_readFile, {});
        else
            m_state.file = readHeadFile(path, m_import.format());
        offerFullAngles();
    }
    m_state.pictures = m_pictures.size();
    if (!m_skippedAreKnown && m_state.pictures < m_state.file.shots) {
        m_state.skipped = skippedNames(
            m_pictures, std::min(kMostSkipped, m_state.file.shots - m_state.pictures));
        m_skippedAreKnown = true;
    }
    m_state.read = m_page->property("imagesRead").toInt();
    // A picture that failed first may have been read later.
    if (m_state.read == m_state.pictures)
        m_unreadable.clear();
    m_state.unreadable = m_unreadable.size();
    m_state.isComplete = m_page->isComplete();
    const int done = m_state.read + m_state.unreadable;
    m_pace.update(m_clock.elapsed(), done);
    m_bar->show(m_state, m_unreadable, m_pace.timeFor(m_state.pictures - done));
}

void ImportView::takeRecord(const ProjectRecord &record)
{
    m_record = recordSince(record, m_handedOver);
    m_handedOver = record;
}

bool ImportView::accept()
{
    const PictureTable known = m_host.pictures();
    const bool isUntold = std::any_of(m_pictures.cbegin(), m_pictures.cend(),
        [&known](const QString &path) { return !(known.value(path).focal > 0); });
    if (!(m_record.focal > 0) && isUntold && !askFocal())
        return false;
    return m_finish(m_record, m_state.file);
}

bool ImportView::mayLeave()
{
    return m_pictures.isEmpty()
        || QMessageBox::question(this, tr("Back to the heads"),
               tr("The pictures and settings of this import will be forgotten. Leave it?"))
        == QMessageBox::Yes;
}

bool ImportView::askFocal()
{
    bool isGiven = false;
    const double focal = QInputDialog::getDouble(this, tr("Focal length"),
        tr("Not all pictures tell their focal length, and the project needs it.\n"
           "Focal length of all pictures in mm, as on 36 × 24 mm film:"),
        50, 1, 10000, 3, &isGiven);
    if (!isGiven)
        return false;
    // The page's links follow from the focal lengths that it is told.
    m_host.setFocalOfAll(float(focal));
    const bool isValid = m_page->validatePage();
    m_host.setFocalOfAll(0);
    m_record.focal = float(focal);
    return isValid;
}

void ImportView::startOver(const QStringList &pictures)
{
    if (!m_page)
        return;
    QStringList files = pictures;
    const QString file = m_page->property("configFile").toString();
    if (!file.isEmpty() && headFileFormat(file) == m_import.format())
        files.prepend(file);
    QMetaObject::invokeMethod(m_page, "Reset");
    hand(files);
}

// Whoever chooses all files of a folder as pictures chooses the head's among them, and maybe others
// of its format. What is of use already stays.
void ImportView::takeFileFromPictures()
{
    if (!m_page)
        return;
    const DroppedFiles dropped = sortOut(m_pictures);
    QStringList files = dropped.pictures;
    const HeadFile present
        = readHeadFile(m_page->property("configFile").toString(), m_import.format());
    const HeadFile *best = present.shots > 0 ? &present : nullptr;
    for (const HeadFile &head : dropped.heads) {
        if (head.format == m_import.format() && (!best || best->shots <= 0))
            best = &head;
    }
    if (best && best != &present)
        files.append(best->path);
    // A page keeps pictures until others come.
    if (dropped.pictures.isEmpty())
        QMetaObject::invokeMethod(m_page, "Reset");
    hand(files);
}

void ImportView::leaveOutUnreadable()
{
    QStringList pictures;
    std::copy_if(m_pictures.cbegin(), m_pictures.cend(), std::back_inserter(pictures),
        [this](const QString &path) { return !m_unreadable.contains(path); });
    hand(pictures);
}

void ImportView::offerFullAngles()
{
    if (!m_fullAngles)
        return;
    const HeadFile &file = m_state.file;
    // Only what is dropped can be read anew.
    m_fullAngles->setVisible(file.cutAngles > 0 && headFileFormat(file.path) == file.format);
    m_fullAngles->setToolTip(
        tr("The format counts in whole degrees and drops decimals. Angles in this script that have "
           "some: %1, the first in line %2 (%3).")
            .arg(QLocale().toString(file.cutAngles), QLocale().toString(file.firstCutLine),
                file.firstCutValue));
}

void ImportView::takeFullAngles(bool full)
{
    m_page->setProperty("fullAngles", full);
    hand({m_page->property("configFile").toString()});
}
