// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "pages/Heads.h"
#include "pages/ImportPage.h"
#include "papywizard/MerlinToSPP.h"
#include "papywizard/ShootingChecks.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>

/// The widgets that the pages of the XML heads have in common.
struct ShootingForm {
    ImportForm common;

    QLineEdit *configFile = nullptr;
    QPushButton *selectConfigFile = nullptr;
    QPushButton *selectImages = nullptr;
    QPushButton *reset = nullptr;
    QLabel *shotCount = nullptr;
    QLabel *yawRange = nullptr;
    QLabel *pitchRange = nullptr;
    QLabel *bracketing = nullptr;
    QLabel *fileFocal = nullptr;
    QLabel *pictureCount = nullptr;
    QLabel *pictureFocal = nullptr;
    QLabel *warning = nullptr;

    QPushButton *invertPitch = nullptr;
    QPushButton *rotate270 = nullptr;
    QPushButton *rotate90 = nullptr;
    QDoubleSpinBox *focal = nullptr;
    QComboBox *lensType = nullptr;
    QPushButton *useFile = nullptr;
    QPushButton *usePictures = nullptr;
};

/// Finds the common widgets in either form: one renamed there stops the build here.
template <class Form> ShootingForm bindShootingForm(const Form &form)
{
    ShootingForm bound;
    bound.common.images = form.m_leImage;
    bound.common.preview = form.m_saPreview;
    OptionBoxes &options = bound.common.options;
    options.autoDetection = form.m_autoStart;
    options.cleanLinks = form.m_cleanLink;
    options.skipOptimization = form.m_noOptim;
    options.guidedOptimization = form.m_GridOptim;
    options.referenceLevel = form.m_rbLevelLinking0;
    options.allLevels = form.m_rbLevelLinking1;
    options.hardLinks = form.m_rbStackLinking0;
    options.stackPoints = form.m_rbStackLinking1;
    options.zoom = form.m_hSlider;
    bound.configFile = form.m_leConfigFile;
    bound.selectConfigFile = form.m_pbSelectConfigFile;
    bound.selectImages = form.m_pbSelectImages;
    bound.reset = form.m_pbReset;
    bound.shotCount = form.m_lbPapyLog;
    bound.yawRange = form.m_lbThetaMinMax;
    bound.pitchRange = form.m_lbPhiMinMax;
    bound.bracketing = form.m_lbBracket;
    bound.fileFocal = form.m_lbFocalLength;
    bound.pictureCount = form.m_lbImageLog;
    bound.pictureFocal = form.m_lbFocalLengthImage;
    bound.warning = form.m_lbWarning;
    bound.invertPitch = form.m_pInverseCoordinates;
    bound.rotate270 = form.m_pbRot270;
    bound.rotate90 = form.m_pbRot90;
    bound.focal = form.m_spFocal;
    bound.lensType = form.m_cbLensType;
    bound.useFile = form.m_pbFLUseXML;
    bound.usePictures = form.m_pbFLUseImage;
    return bound;
}

/// What differs from page to page beside form and converter.
struct ShootingProfile {
    enum class RangeReset { BeforeReading, AfterSuccess };

    const heads::Head &head;
    /// When a load forgets the ranges shown: a failed one keeps them only with AfterSuccess.
    RangeReset rangeReset;
    /// Each page words this warning its own way.
    const char *focalWarning;
};

/// Behaviour of the pages for heads that write the XML shooting file. A page for one head adds its
/// form, its converter and its profile.
class ShootingPage : public ImportPage { // clazy:exclude=missing-qobject-macro
public:
    void cleanupPage() override;

protected:
    explicit ShootingPage(const ShootingProfile &profile)
        : m_profile(profile)
    {
    }

    /// Called in the constructor of a page with the page itself, which is its converter and has the
    /// slots.
    template <class Page> void attach(Page *page, const ShootingForm &form);

    /// A shooting file was read.
    virtual void showHeader(const PapywizardShooting &) { }

    // The slots' bodies
    void selectImages();
    void selectConfigFile();
    void takePictureData();
    void invertPitch();
    void rotate(float degrees);
    void useFileLens();
    void usePictureLens();
    void startOver();
    void setConfigFile(const QString &path);

    void refreshHead() override;
    PreviewScene previewScene() const override;
    bool fitsShooting(int pictures) const override { return pictures == m_shotCount; }
    void takeFiles(const QStringList &files) override;
    ProjectRecord *makeRecord() override;
    QString configFile() const override { return m_configFile; }

private:
    void setUpWidgets(const ShootingForm &form);
    void loadConfigFile(const QString &path);
    void replacePictures(const QStringList &pictures);
    void setLens(double focal, int lensType);
    QString warningText() const;
    PapywizardShooting &shooting() const { return m_converter->Shooting(); }

    ShootingForm m_form;
    /// The page itself.
    MerlinToSPP *m_converter = nullptr;
    ShootingProfile m_profile;
    QString m_configFile;
    int m_shotCount = -1;
    PictureLens m_pictureLens;
    /// Of the pictures read so far.
    LensTally m_lenses;
    ShotRanges m_ranges;
};

template <class Page> void ShootingPage::attach(Page *page, const ShootingForm &form)
{
    m_converter = page;
    setUpWidgets(form);
    connect(form.selectImages, &QPushButton::clicked, page, &Page::SelectImages);
    connect(form.selectConfigFile, &QPushButton::clicked, page, &Page::SelectConfigFile);
    connect(form.common.options.zoom, &QSlider::valueChanged, page, &Page::OnZoomChanged);
    connect(&reader(), &ReadingThread::Loaded, page, &Page::OnImageLoaded);
    // An unreadable last picture leaves the results before it unannounced.
    connect(&reader(), &ReadingThread::Done, page, &Page::OnImageLoaded);
    connect(form.invertPitch, &QPushButton::clicked, page, &Page::OnInverseCoordinates);
    connect(form.rotate90, &QPushButton::clicked, page, &Page::OnRotate90);
    connect(form.rotate270, &QPushButton::clicked, page, &Page::OnRotate270);
    connect(form.useFile, &QPushButton::clicked, page, &Page::OnFLUseXML);
    connect(form.usePictures, &QPushButton::clicked, page, &Page::OnFLUseImage);
    connect(form.reset, &QPushButton::clicked, page, &Page::Reset);
    connect(form.configFile, &QLineEdit::textEdited, page, &Page::SetConfigFFilename);
    const OptionBoxes &options = form.common.options;
    connect(options.allLevels, &QRadioButton::clicked, page, &Page::OnLevelLinkingClicked);
    connect(options.hardLinks, &QRadioButton::clicked, page, &Page::OnStackLinkingClicked);
    filechooser::completePaths(
        form.configFile, [page](const QString &path) { page->SetConfigFFilename(path); });
    page->Reset();
}
