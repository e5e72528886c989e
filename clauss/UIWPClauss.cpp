// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clauss/UIWPClauss.h"

#include "ui_UIWPClauss.h"

#include <QMessageBox>

namespace {

ImportForm bindForm(const Ui::UIWPClaussClass &ui)
{
    ImportForm form;
    form.images = ui.m_leImage;
    form.preview = ui.m_saPreview;
    form.options.autoDetection = ui.m_autoStart;
    form.options.cleanLinks = ui.m_cleanLink;
    form.options.skipOptimization = ui.m_noOptim;
    form.options.guidedOptimization = ui.m_GridOptim;
    form.options.zoom = ui.m_hSlider;
    return form;
}

// Texts that the shared body shows in this page's translation.
[[maybe_unused]] const char *const kTexts[] = {
    QT_TRANSLATE_NOOP("UIWPClauss", "N/A"),
    QT_TRANSLATE_NOOP("UIWPClauss", "All Files (*.*)"),
    QT_TRANSLATE_NOOP("UIWPClauss", "Select images"),
    QT_TRANSLATE_NOOP("UIWPClauss", "Select the preset file and/or images"),
    QT_TRANSLATE_NOOP("UIWPClauss", "Warning"),
    QT_TRANSLATE_NOOP("UIWPClauss",
        "A focal length of %1 mm makes about %2 million links between the pictures, more than %3 "
        "million. Check the focal length."),
};

} // namespace

UIWPClauss::UIWPClauss()
    : m_ui(std::make_unique<Ui::UIWPClaussClass>())
{
    m_ui->setupUi(this);
    setTitle(tr("Clauss panohead import"));
    setSubTitle(heads::makerLink(heads::kClauss, "Clauss")
        + tr(" provides special equipment for panoramic photography and VR applications."));
    attach(bindForm(*m_ui), heads::kClauss);

    connect(m_ui->m_pbSelectImages, &QPushButton::clicked, this, &UIWPClauss::SelectImages);
    connect(m_ui->m_pbSelectConfigFile, &QPushButton::clicked, this, &UIWPClauss::SelectConfigFile);
    connect(m_ui->m_pbReset, &QPushButton::clicked, this, &UIWPClauss::Reset);
    connect(
        m_ui->m_leConfigFile, &QLineEdit::editingFinished, this, &UIWPClauss::SetConfigFFilename);
    connect(m_ui->m_hSlider, &QSlider::valueChanged, this, &UIWPClauss::UpdatePreview);
    connect(m_ui->m_pInverseCoordinates, &QPushButton::clicked, this,
        &UIWPClauss::OnInverseCoordinates);
    updatePreviewOnResults(this);
    filechooser::completePaths(m_ui->m_leConfigFile, [this](const QString &path) {
        m_ui->m_leConfigFile->setText(path);
        SetConfigFFilename();
    });
    Reset();
}

UIWPClauss::~UIWPClauss() = default;

void UIWPClauss::cleanupPage()
{
    Reset();
}

ProjectRecord *UIWPClauss::makeRecord()
{
    if (!acceptLinks(EstimateLinks(pictures().size(), pictureInfos())))
        return nullptr;
    Convert(pictures(), pictureInfos());
    return &m_record;
}

void UIWPClauss::BrowserWeb(const QString &url)
{
    openLink(url);
}

void UIWPClauss::SelectImages()
{
    const QStringList chosen = choosePictures(hostFolder());
    if (chosen.isEmpty())
        return;
    tellHostFolder(chosen.first());
    setPictures(chosen);
    changed();
}

void UIWPClauss::SelectConfigFile()
{
    takeFiles(chooseConfigFileAndPictures(m_configFile, tr("All Files (*.*)")));
}

void UIWPClauss::takeFiles(const QStringList &files)
{
    const filechooser::Choice choice = filechooser::sortOut(files, QLatin1String(".txt"));
    if (!choice.configFile.isEmpty()) {
        tellHostFolder(choice.configFile);
        m_configFile = choice.configFile;
        LoadConfigFile(m_configFile);
    }
    if (!choice.pictures.isEmpty() && choice.pictures != pictures())
        setPictures(choice.pictures);
    if (!files.isEmpty())
        changed();
}

void UIWPClauss::UpdateUI()
{
    changed();
}

void UIWPClauss::UpdatePreview()
{
    redrawPreview();
    emit completeChanged();
}

void UIWPClauss::OnInverseCoordinates()
{
    invertPitches(m_shots);
    m_figures.invertPitches();
    UpdateUI();
}

void UIWPClauss::Reset()
{
    m_configFile.clear();
    m_shots.clear();
    m_figures = {};
    ClearRecord();
    clearPictures();
    UpdateUI();
}

void UIWPClauss::SetConfigFFilename()
{
    // Merely leaving the line must not load the script again: that would undo an inversion.
    if (m_ui->m_leConfigFile->text() == m_configFile)
        return;
    m_configFile = m_ui->m_leConfigFile->text();
    LoadConfigFile(m_configFile);
    UpdateUI();
}

void UIWPClauss::LoadConfigFile(const QString &path)
{
    SetFullAngles(property("fullAngles").toBool());
    const bool valid = ReadConfigFile(path);
    m_figures.take(valid, m_shots);
    if (!valid)
        QMessageBox::critical(
            this, tr("Error"), tr("Error parse file:%1").arg(path), QMessageBox::Ok);
}

void UIWPClauss::refreshHead()
{
    setEditText(m_ui->m_leConfigFile, m_configFile);
    m_ui->m_lbPapyLog->setText(countText(m_figures.shootCount, 1));
    m_ui->m_lbThetaMinMax->setText(rangeText(m_figures.ranges.yaw, QStringLiteral("N/A")));
    m_ui->m_lbPhiMinMax->setText(rangeText(m_figures.ranges.pitch, tr("N/A")));
    m_ui->m_lbImageLog->setText(countText(pictures().size(), 1));
}

PreviewScene UIWPClauss::previewScene() const
{
    // The shots of a bad script lie in no range of the figures.
    return positionsScene(m_shots, rangesOf(m_shots), {0, palette().brush(QPalette::Base)});
}

bool UIWPClauss::fitsShooting(int pictures) const
{
    return pictures == m_figures.shootCount;
}
