// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/FinishingPane.h"

#include "align/Alignment.h"
#include "align/OutputFile.h"
#include "align/Progress.h"
#include "stitch/Outlines.h"
#include "stitch/Panorama.h"
#include "stitch/Script.h"
#include "stitch/StitchProgress.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <algorithm>

struct FinishingPane::Outcome {
    /// A sentence, for people; none when all went well or was cancelled.
    QString problem;
    bool done = false;
    /// As it was before, or as found.
    std::optional<Aligned> aligned;
    QString report;
    /// What the project's file holds now; empty when it was not written.
    QByteArray text;
    /// Without a name when none was made.
    ShownPanorama shown;
};

namespace {

/// Pixels a side of the panorama as it is shown.
constexpr int kShownSide = 2000;

/// Where a panorama is offered to be written, without suffix: not among the pictures of the
/// shooting, where a later import of their folder would take it for one of them.
QString placeFor(const WrittenImport &import)
{
    const QFileInfo project(import.project);
    const QDir folder = project.absoluteDir();
    const QFileInfo above(QFileInfo(folder.absolutePath()).absolutePath());
    const bool isAmongPictures = std::any_of(import.record.groups.cbegin(),
        import.record.groups.cend(), [&folder](const QStringList &stack) {
            return QFileInfo(stack.value(0)).absoluteDir() == folder;
        });
    return isAmongPictures && !folder.isRoot() && above.isWritable()
        ? QDir(above.filePath()).filePath(folder.dirName())
        : folder.filePath(project.completeBaseName());
}

QImage shownPicture(const QString &path)
{
    QImageReader reader(path);
    const QSize size = reader.size();
    if (size.width() > kShownSide || size.height() > kShownSide)
        reader.setScaledSize(
            size.scaled(kShownSide, kShownSide, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return reader.read();
}

/// Where the matches of an alignment are kept until it is done.
QString matchesOf(const WrittenImport &import)
{
    return import.project + QStringLiteral(".matches");
}

} // namespace

FinishingPane::FinishingPane(QWidget *parent)
    : QWidget(parent)
    , m_align(new QPushButton(tr("&Align")))
    , m_preview(new QPushButton(tr("&Preview")))
    , m_make(new QPushButton(tr("&Make panorama…")))
    , m_working(new QWidget)
    , m_progress(new QProgressBar)
    , m_timeLeft(new QLabel)
    , m_report(new QLabel)
{
    m_align->setObjectName(QStringLiteral("align"));
    m_align->setToolTip(tr("Finds the same things in neighbouring pictures and puts the pictures "
                           "where they fit together, into the same project."));
    m_preview->setObjectName(QStringLiteral("preview"));
    m_preview->setToolTip(
        tr("Aligns the pictures, unless that is done, and shows quickly and small "
           "what the panorama will be."));
    m_make->setObjectName(QStringLiteral("panorama"));
    m_make->setToolTip(tr("Aligns the pictures, unless that is done, and blends them into one."));
    m_progress->setObjectName(QStringLiteral("taskProgress"));
    m_report->setObjectName(QStringLiteral("report"));
    m_report->setWordWrap(true);
    m_report->setTextFormat(Qt::PlainText);
    m_report->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_report->hide();
    auto *cancel = new QPushButton(tr("&Cancel"));
    cancel->setObjectName(QStringLiteral("cancelTask"));

    auto *working = new QHBoxLayout(m_working);
    working->setContentsMargins(0, 0, 0, 0);
    working->addWidget(m_progress, 1);
    working->addWidget(m_timeLeft);
    working->addWidget(cancel);
    m_working->hide();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_report);
    layout->addWidget(m_working);

    m_clock.start();
    connect(m_align, &QPushButton::clicked, this, &FinishingPane::align);
    connect(m_preview, &QPushButton::clicked, this, &FinishingPane::makePreview);
    connect(m_make, &QPushButton::clicked, this, &FinishingPane::makePanorama);
    connect(cancel, &QPushButton::clicked, &m_task, &BackgroundTask::cancel);
    connect(&m_task, &BackgroundTask::progressed, this, &FinishingPane::showProgress);
    connect(&m_task, &BackgroundTask::ended, this, &FinishingPane::showOutcome);
}

void FinishingPane::setImport(const WrittenImport &import)
{
    m_import = import;
    m_aligned.reset();
    m_report->hide();
    m_align->setEnabled(true);
}

/// False when it cannot be, or was cancelled.
bool FinishingPane::alignInto(
    Outcome &outcome, const WrittenImport &import, const Progress &progress)
{
    if (!outcome.aligned) {
        AlignOptions options;
        options.cacheFolder = matchesOf(import);
        auto alignment
            = alignRecord(import.record, import.pictures, options, progress, &outcome.problem);
        if (!alignment)
            return false;
        outcome.aligned
            = Aligned{std::move(alignment->project), alignment->report.toText().trimmed()};
    }
    outcome.report = outcome.aligned->report;
    return true;
}

void FinishingPane::align()
{
    if (!mayWriteOver())
        return;
    start([import = m_import](const Progress &progress, Outcome &outcome) {
        if (!alignInto(outcome, import, asOneBar(progress)))
            return;
        outcome.text
            = projectText(outcome.aligned->project, QFileInfo(import.project).absolutePath());
        outcome.problem = writeWhole({{import.project, outcome.text}});
        outcome.done = outcome.problem.isEmpty();
        if (outcome.done)
            forgetMatches(matchesOf(import));
    });
}

void FinishingPane::makePanorama()
{
    const QString place = askPlace();
    if (place.isEmpty())
        return;
    start([import = m_import, place](const Progress &progress, Outcome &outcome) {
        StitchOptions options;
        options.output = place;
        options.seams = true;
        outcome.done = stitchInto(outcome, import, options, progress);
    });
}

void FinishingPane::makePreview()
{
    start([import = m_import](const Progress &progress, Outcome &outcome) {
        const QTemporaryDir folder;
        StitchOptions options;
        options.output = folder.filePath(QStringLiteral("preview.jpg"));
        options.preview = true;
        options.seams = true;
        outcome.done = stitchInto(outcome, import, options, progress);
        if (outcome.done)
            outcome.shown.name = tr("Preview");
    });
}

/// False when it cannot be, or was cancelled.
bool FinishingPane::stitchInto(Outcome &outcome, const WrittenImport &import,
    const StitchOptions &options, const Progress &progress)
{
    const auto recorded = projectOf(import.record, import.pictures, &outcome.problem);
    if (!recorded)
        return false;
    const auto aligning
        = [&](WorkFolder &, const Progress &alignment, Panorama *) -> std::optional<ReadProject> {
        if (!alignInto(outcome, import, alignment))
            return std::nullopt;
        forgetMatches(matchesOf(import));
        return ReadProject{outcome.aligned->project, plainLight(outcome.aligned->project)};
    };
    const Panorama panorama = ::makePanorama(*recorded, aligning, options, progress);
    if (outcome.problem.isEmpty())
        outcome.problem = panorama.problem.text;
    if (!panorama.done)
        return false;
    const PtoProject &project = outcome.aligned->project;
    const Frame &frame = panorama.stitched.frame;
    outcome.shown = {QFileInfo(options.output).fileName(), shownPicture(options.output),
        outlinesOf(project, frame), panorama.stitched.seams};
    if (!options.preview)
        outcome.report += QLatin1Char('\n')
            + tr("%1: %2 × %3 pixels")
                  .arg(outcome.shown.name, QLocale().toString(frame.crop.width()),
                      QLocale().toString(frame.crop.height()));
    return true;
}

void FinishingPane::start(const Work &work)
{
    m_outcome = std::make_shared<Outcome>();
    m_outcome->aligned = m_aligned;
    m_total = -1;
    showProgress(tr("Getting ready"), 0, 0);
    m_task.start(
        [work, outcome = m_outcome](const Progress &progress) { work(progress, *outcome); });
    setBusy(true);
}

void FinishingPane::showProgress(const QString &step, int done, int total)
{
    if (total != m_total) {
        m_total = total;
        m_pace.start(m_clock.elapsed());
    }
    m_pace.update(m_clock.elapsed(), done);
    m_progress->setRange(0, total);
    m_progress->setValue(done);
    QString name = shownStep(step);
    if (!name.isEmpty())
        name[0] = name[0].toUpper();
    m_progress->setFormat(total > 0 ? tr("%1: %2 %").arg(name).arg(100 * done / total) : name);
    m_timeLeft->setText(total > 0 ? timeLeftText(m_pace.timeFor(total - done)) : QString());
}

void FinishingPane::showOutcome()
{
    const Outcome outcome = *m_outcome;
    m_outcome.reset();
    setBusy(false);
    m_aligned = outcome.aligned;
    if (!outcome.text.isEmpty() && outcome.done)
        m_import.text = outcome.text;
    if (!outcome.problem.isEmpty())
        return complain(outcome.problem);
    m_report->setText(outcome.done ? outcome.report.trimmed()
                                   : tr("Cancelled. What was found so far is kept, and the next "
                                        "try goes on from it."));
    m_report->show();
    if (!outcome.shown.name.isEmpty())
        emit panoramaMade(outcome.shown);
}

void FinishingPane::setBusy(bool isBusy)
{
    m_align->setEnabled(!isBusy);
    m_preview->setEnabled(!isBusy);
    m_make->setEnabled(!isBusy);
    m_working->setVisible(isBusy);
    if (isBusy)
        m_report->hide();
    emit busyChanged(isBusy);
}

bool FinishingPane::mayWriteOver()
{
    QFile file(m_import.project);
    if (!file.open(QIODevice::ReadOnly) || file.readAll() == m_import.text)
        return true;
    QMessageBox box(QMessageBox::Question, tr("Align"),
        tr("“%1” has been changed since it was written. Aligning begins from the import again and "
           "writes over it. Go on?")
            .arg(QFileInfo(m_import.project).fileName()),
        QMessageBox::Yes | QMessageBox::No, this);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

QString FinishingPane::askPlace()
{
    const QFileInfo offered(placeFor(m_import));
    const QStringList suffixes{QStringLiteral("jpg"), QStringLiteral("tif"), QStringLiteral("exr")};
    const QStringList filters{tr("JPEG pictures (*.jpg)"), tr("TIFF pictures, 16 bits (*.tif)"),
        tr("OpenEXR pictures, radiance (*.exr)")};
    const int first = m_import.record.outputType == ProjectRecord::HdrRadiance ? 2 : 0;

    QStringList inputs{m_import.project};
    for (const QStringList &stack : qAsConst(m_import.record.groups))
        inputs += stack;
    // The dialog has asked about files that exist.
    const OutputGuard guard(inputs, OutputGuard::Writes::Pictures);
    while (true) {
        QFileDialog dialog(this, tr("Save the panorama"), offered.absolutePath());
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setNameFilters(filters);
        dialog.selectNameFilter(filters[first]);
        dialog.setDefaultSuffix(suffixes[first]);
        connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString &filter) {
            dialog.setDefaultSuffix(suffixes.value(filters.indexOf(filter)));
        });
        dialog.selectFile(offered.fileName() + QLatin1Char('.') + suffixes[first]);
        if (dialog.exec() != QDialog::Accepted)
            return {};
        QString place = dialog.selectedFiles().value(0);
        const QString objection = guard.objection(place);
        if (objection.isEmpty())
            return place;
        complain(tr("“%1” cannot be written: %2.").arg(QFileInfo(place).fileName(), objection));
    }
}

void FinishingPane::complain(const QString &problem)
{
    QMessageBox box(
        QMessageBox::Warning, QCoreApplication::applicationName(), problem, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText); // Names of files may look like tags.
    box.exec();
}
