// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "papywizard/ShootingPage.h"

#include <QLabel>
#include <QMessageBox>

#include <algorithm>

namespace {

// Narrower steps than this many degrees are not magnified in the preview.
constexpr double kSmallestStep = 8;

constexpr double kNoFocal = -1.0;

QString focalText(double focal)
{
    return QStringLiteral("%1mm").arg(focal, 0, 'f', 2);
}

} // namespace

void ShootingPage::setUpWidgets(const ShootingForm &form)
{
    m_form = form;
    form.rotate270->setIcon(QIcon(heads::resource(m_profile.head, "rot90left.png")));
    form.rotate90->setIcon(QIcon(heads::resource(m_profile.head, "rot90right.png")));
    ImportPage::attach(form.common, m_profile.head);
}

void ShootingPage::cleanupPage()
{
    startOver();
}

ProjectRecord *ShootingPage::makeRecord()
{
    const bool whole = m_converter->CheckBracketing(pictures().size());
    refreshHead();
    if (!whole) {
        QMessageBox::warning(this, text("Warning"),
            text("Papywizard XML has bracketing and the number of images isn't a multiple of this "
                 "number of brackets."),
            QMessageBox::Ok);
        return nullptr;
    }
    const double focal = m_form.focal->value();
    const int lensType = m_form.lensType->currentIndex();
    if (!acceptLinks(m_converter->EstimateLinks(pictures().size(), focal, lensType)))
        return nullptr;
    m_converter->Convert(pictures(), focal, lensType);
    return &m_converter->Record();
}

void ShootingPage::selectImages()
{
    QStringList chosen = choosePictures(pictures().value(0));
    if (chosen.isEmpty())
        return;
    chosen.sort();
    tellHostFolder(chosen.first());
    replacePictures(chosen);
    changed();
}

void ShootingPage::selectConfigFile()
{
    const QString filters
        = text("All Files (*.*)") + QLatin1String(";;") + text("XML files (*.xml)");
    takeFiles(
        chooseConfigFileAndPictures(m_configFile.isEmpty() ? hostFolder() : m_configFile, filters));
}

void ShootingPage::takeFiles(const QStringList &files)
{
    if (files.isEmpty())
        return;
    filechooser::Choice choice = filechooser::sortOut(files, QLatin1String(".xml"));
    if (!choice.configFile.isEmpty())
        m_configFile = choice.configFile;
    if (!m_configFile.isEmpty()) {
        tellHostFolder(m_configFile);
        loadConfigFile(m_configFile);
    }
    if (!choice.pictures.isEmpty()) {
        choice.pictures.sort();
        replacePictures(choice.pictures);
    }
    changed();
}

void ShootingPage::takePictureData()
{
    if (!takeResults())
        return;
    m_lenses.addFurther(pictureInfos());
    m_pictureLens = m_lenses.lens();
    const PictureLens proposed = proposedLens(shooting(), m_pictureLens);
    if (proposed.focal > 0)
        setLens(proposed.focal, proposed.lensType);
    refreshHead();
    resultsChanged();
}

void ShootingPage::invertPitch()
{
    invertPitches(shooting().shots);
    m_ranges.pitch = m_ranges.pitch.mirrored();
    changed();
}

void ShootingPage::rotate(float degrees)
{
    turnRolls(shooting().shots, degrees);
    changed();
}

void ShootingPage::useFileLens()
{
    setLens(shooting().focal, shooting().fisheye ? 1 : 0);
    changed();
}

void ShootingPage::usePictureLens()
{
    setLens(m_pictureLens.focal, m_pictureLens.lensType);
    changed();
}

void ShootingPage::startOver()
{
    m_configFile.clear();
    m_shotCount = -1;
    m_pictureLens = {};
    m_lenses = {};
    m_ranges = {};
    shooting() = {};
    m_converter->ClearRecord();
    clearPictures();
    changed();
}

void ShootingPage::setConfigFile(const QString &path)
{
    m_configFile = path;
    loadConfigFile(m_configFile);
    changed();
}

void ShootingPage::loadConfigFile(const QString &path)
{
    m_shotCount = -1;
    if (m_profile.rangeReset == ShootingProfile::RangeReset::BeforeReading)
        m_ranges = rangesOf({});
    if (!m_converter->ReadXML(path))
        return;
    const PapywizardShooting &read = shooting();
    m_shotCount = read.shots.size();
    m_form.configFile->setToolTip(
        QStringLiteral("%1\n%2\n%3").arg(read.title, read.gps, read.comment));
    showHeader(read);
    m_ranges = rangesOf(read.shots);
}

void ShootingPage::replacePictures(const QStringList &pictures)
{
    m_lenses = {};
    setPictures(pictures);
}

void ShootingPage::setLens(double focal, int lensType)
{
    m_form.focal->setValue(focal);
    m_form.lensType->setCurrentIndex(std::clamp(lensType, 0, m_form.lensType->count() - 1));
}

void ShootingPage::refreshHead()
{
    const PapywizardShooting &read = shooting();
    const QString unknown = text("N/A");
    setEditText(m_form.configFile, m_configFile);
    m_form.shotCount->setText(countText(m_shotCount, 1));
    m_form.pictureCount->setText(countText(pictures().size(), 1));
    m_form.yawRange->setText(rangeText(m_ranges.yaw, QStringLiteral("N/A")));
    m_form.pitchRange->setText(rangeText(m_ranges.pitch, unknown));
    m_form.bracketing->setText(
        read.bracketCount == -1 ? unknown : QString::number(read.bracketCount));

    const bool fileHasFocal = read.focal != kNoFocal;
    m_form.fileFocal->setText(fileHasFocal ? focalText(read.focal) : unknown);
    m_form.useFile->setEnabled(fileHasFocal);
    const bool picturesHaveFocal = m_pictureLens.focal > 0;
    m_form.pictureFocal->setText(picturesHaveFocal ? focalText(m_pictureLens.focal) : unknown);
    m_form.usePictures->setEnabled(picturesHaveFocal);

    m_form.warning->setText(QStringLiteral("<p style='color:red'>%1</p>").arg(warningText()));
}

QString ShootingPage::warningText() const
{
    const int count = static_cast<int>(pictures().size());
    switch (shootingWarning({shooting(), m_shotCount, count, m_pictureLens})) {
    case ShootingWarning::None:
        break;
    case ShootingWarning::NotMultiple:
        return text("Bracketing used in XML, should be multiple of that number");
    case ShootingWarning::CountDiffers:
        return text("Not the same as in XML fil");
    case ShootingWarning::FocalDiffers:
        return text(m_profile.focalWarning);
    case ShootingWarning::LensDiffers:
        return text("Lens type difference between EXIF and XML");
    }
    return {};
}

PreviewScene ShootingPage::previewScene() const
{
    return positionsScene(
        shooting().shots, m_ranges, {kSmallestStep, palette().brush(QPalette::Window)});
}
