// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/window/MainWindow.h"

#include "align/OutputFile.h"
#include "align/PtoProject.h"
#include "apps/panohost/window/DroppedFiles.h"
#include "apps/panohost/window/HeadModule.h"
#include "apps/panohost/window/HostApplication.h"
#include "apps/panohost/window/ImportView.h"
#include "apps/panohost/window/MapView.h"
#include "apps/panohost/window/StartPage.h"
#include "apps/panohost/window/SummaryPage.h"

#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QStackedWidget>
#include <QWizardPage>
#include <algorithm>

namespace {

const QLatin1String kGeometry("Window/Geometry");
const QLatin1String kLastImport("Window/LastImport");
constexpr QSize kFirstSize(820, 900);

QString projectBeside(const HeadFile &file, const ProjectRecord &record)
{
    if (!file.path.isEmpty()) {
        const QFileInfo info(file.path);
        return info.absoluteDir().filePath(info.completeBaseName() + QStringLiteral(".pto"));
    }
    const QDir folder = QFileInfo(record.groups.first().value(0)).absoluteDir();
    const QString name = folder.isRoot() ? QStringLiteral("panorama") : folder.dirName();
    return folder.filePath(name + QStringLiteral(".pto"));
}

} // namespace

MainWindow::MainWindow(HostApplication &host, const HeadModule &module)
    : m_host(host)
    , m_module(module)
    , m_pages(new QStackedWidget)
    , m_start(new StartPage)
    , m_summary(new SummaryPage)
{
    setWindowIcon(QIcon(QStringLiteral(":/panohost/panohost.png")));
    setAcceptDrops(true);
    setCentralWidget(m_pages);
    m_pages->addWidget(m_start);
    m_pages->addWidget(m_summary);

    for (const HeadImport &import : m_module.imports()) {
        const QString hint = import.hint();
        const QString description = import.about().GetDescription();
        m_start->addHead(import.about().GetIcon(), import.about().GetName(),
            hint.isEmpty() ? description : description + QLatin1Char('\n') + hint);
    }
    if (!m_module.problem().isEmpty())
        m_start->showProblem(m_module.problem());

    connect(m_start, &StartPage::chosen, this, &MainWindow::openImport);
    connect(m_start, &StartPage::filesForgotten, this, [this] {
        m_waiting.clear();
        showStart();
    });
    connect(m_summary, &SummaryPage::anotherWanted, this, &MainWindow::showStart);

    resize(kFirstSize.boundedTo(screen()->availableSize()));
    restoreGeometry(QSettings().value(kGeometry).toByteArray());
    showStart();
}

MainWindow::~MainWindow()
{
    // While the host still is one.
    delete m_import;
}

void MainWindow::showStart()
{
    m_pages->setCurrentWidget(m_start);
    m_start->widen();
    setWindowTitle(QCoreApplication::applicationName());
    const QString last = QSettings().value(kLastImport).toString();
    const auto &imports = m_module.imports();
    const auto used = std::find_if(imports.begin(), imports.end(),
        [&last](const HeadImport &import) { return import.about().GetIdentifier() == last; });
    m_start->prefer(used == imports.end() ? 0 : int(used - imports.begin()));
}

void MainWindow::takeFiles(const QStringList &paths)
{
    if (m_summary->isBusy())
        return;
    if (m_import)
        m_import->takeFiles(paths);
    else
        offer(paths);
}

void MainWindow::offer(const QStringList &paths)
{
    const DroppedFiles files = sortOut(paths);
    if (paths.isEmpty() || m_module.imports().empty())
        return;
    showStart();
    m_waiting = files.isEmpty() ? QStringList() : paths;

    const HeadFile *shooting = files.shooting();
    const auto &imports = m_module.imports();
    QVector<int> suitable;
    for (int head = 0; head < int(imports.size()); ++head) {
        if (!shooting || imports[head].format() == shooting->format)
            suitable.append(head);
    }
    if (shooting && suitable.size() == 1)
        return openImport(suitable.first());

    QString sentence;
    if (shooting) {
        QStringList sentences{
            tr("“%1” tells of %Ln shots.", nullptr, shooting->shots).arg(shooting->name())};
        if (!files.pictures.isEmpty())
            sentences += tr("%Ln pictures come with it.", nullptr, int(files.pictures.size()));
        sentence = (sentences << tr("Which head wrote it?")).join(QLatin1Char(' '));
    } else {
        if (!files.heads.isEmpty())
            sentence = files.heads.last().problem + QLatin1Char('\n');
        else if (files.isEmpty())
            sentence = files.refusal;
        if (!files.pictures.isEmpty()) {
            sentence
                += tr("Pictures without the file of a head: %1. A Gigapan grid needs none; for "
                      "another head choose it here and add its file then.")
                       .arg(QLocale().toString(files.pictures.size()));
            std::stable_sort(suitable.begin(), suitable.end(), [&imports](int a, int b) {
                return imports[a].format() == HeadFileFormat::None
                    && imports[b].format() != HeadFileFormat::None;
            });
        }
        m_waiting = files.pictures;
    }
    m_start->narrow(sentence.trimmed(), suitable);
}

void MainWindow::openImport(int head)
{
    const HeadImport &import = m_module.imports()[head];
    if (!import.page()) {
        complain(tr("The page of this import is gone. Start the program again."));
        return;
    }
    QSettings().setValue(kLastImport, import.about().GetIdentifier());
    delete m_import;
    m_import
        = new ImportView(import, m_host, [this](const ProjectRecord &record, const HeadFile &file) {
              return finishImport(record, file);
          });
    m_isDone = false;
    connect(m_import, &ImportView::closed, this, &MainWindow::closeImport);
    m_pages->addWidget(m_import);
    m_pages->setCurrentWidget(m_import);
    m_import->setFocus();
    setWindowTitle(
        tr("%1 import — %2").arg(import.about().GetName(), QCoreApplication::applicationName()));
    m_import->takeFiles(m_waiting);
    m_waiting.clear();
}

void MainWindow::closeImport()
{
    if (m_isDone) {
        m_pages->setCurrentWidget(m_summary);
        setWindowTitle(QCoreApplication::applicationName());
    } else {
        showStart();
    }
    m_import->giveBack();
    // The wizard is still at work.
    m_import->deleteLater();
    m_import = nullptr;
}

bool MainWindow::isMeant(const ProjectRecord &record)
{
    const QStringList doubts = doubtsAbout(record, m_host.pictures());
    if (doubts.isEmpty())
        return true;
    QMessageBox box(QMessageBox::Warning, tr("Is this right?"), doubts.join(QLatin1Char('\n')),
        QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(record.yaws.isEmpty()
            ? tr("Check the rows, the overlap and the focal length before you go on.")
            : tr("Check the focal length and the lens before you go on."));
    QPushButton *back = box.addButton(tr("&Change the settings"), QMessageBox::RejectRole);
    QPushButton *goOn = box.addButton(tr("Import &all the same"), QMessageBox::AcceptRole);
    box.setDefaultButton(back);
    box.exec();
    return box.clickedButton() == goOn;
}

QString MainWindow::askPlace(const QString &suggested)
{
    QFileDialog dialog(this, tr("Save the project"), QFileInfo(suggested).absolutePath(),
        tr("Hugin projects (*.pto)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pto"));
    dialog.selectFile(QFileInfo(suggested).fileName());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void MainWindow::complain(const QString &problem)
{
    QMessageBox box(
        QMessageBox::Warning, QCoreApplication::applicationName(), problem, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText); // Names of files may look like tags.
    box.exec();
}

bool MainWindow::finishImport(const ProjectRecord &record, const HeadFile &file)
{
    if (record.groups.isEmpty()) {
        complain(tr("There is nothing to import: the settings leave no location."));
        return false;
    }
    if (!isMeant(record))
        return false;

    QStringList inputs(file.path);
    for (const QStringList &stack : record.groups)
        inputs += stack;
    // The dialog has asked about other files that exist.
    const OutputGuard guard(inputs);
    const PictureTable pictures = m_host.pictures();
    QString place;
    QByteArray text;
    while (true) {
        place = askPlace(projectBeside(file, record));
        if (place.isEmpty())
            return false;
        QString problem = guard.objection(place);
        if (!problem.isEmpty()) {
            complain(tr("“%1” cannot be written: %2.").arg(QFileInfo(place).fileName(), problem));
            continue;
        }
        QApplication::setOverrideCursor(Qt::WaitCursor);
        const auto project = projectOf(record, pictures, &problem);
        text = project ? projectText(*project, QFileInfo(place).absolutePath()) : QByteArray();
        const QString failure = project ? writeWhole({{place, text}}) : QString();
        QApplication::restoreOverrideCursor();
        if (!project) {
            complain(tr("The project cannot be made: %1.").arg(problem));
            return false;
        }
        if (failure.isEmpty())
            break;
        complain(tr("The project could not be written: %1.").arg(failure));
    }

    m_summary->show({place, text, record, pictures}, figuresOf(record, pictures, file));
    std::optional<PictureFacts> first;
    if (const auto facts = pictures.constFind(record.groups.first().value(0));
        facts != pictures.constEnd())
        first = *facts;
    m_summary->map().setRecord(record, first,
        [pictures](const QString &path) { return uprightThumbnail(pictures.value(path)); });
    m_isDone = true;
    return true;
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    QSettings().setValue(kGeometry, saveGeometry());
    QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!m_summary->isBusy() && !localPaths(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    takeFiles(localPaths(*event->mimeData()));
}
