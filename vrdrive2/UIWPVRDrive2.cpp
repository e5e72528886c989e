// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "vrdrive2/UIWPVRDrive2.h"

#include "ui_UIWPVRDrive2.h"

namespace {

// Texts that the shared body shows in this page's translation.
[[maybe_unused]] const char *const kTexts[] = {
    QT_TRANSLATE_NOOP("UIWPVRDrive2", "N/A"),
    QT_TRANSLATE_NOOP("UIWPVRDrive2", "All Files (*.*)"),
    QT_TRANSLATE_NOOP("UIWPVRDrive2", "XML files (*.xml)"),
    QT_TRANSLATE_NOOP("UIWPVRDrive2", "Select images"),
    QT_TRANSLATE_NOOP("UIWPVRDrive2", "Select the preset file and/or images"),
    QT_TRANSLATE_NOOP("UIWPVRDrive2", "Warning"),
    QT_TRANSLATE_NOOP("UIWPVRDrive2",
        "Papywizard XML has bracketing and the number of images isn't a multiple of this number of "
        "brackets."),
    QT_TRANSLATE_NOOP("UIWPVRDrive2", "Bracketing used in XML, should be multiple of that number"),
    QT_TRANSLATE_NOOP("UIWPVRDrive2", "Not the same as in XML fil"),
    QT_TRANSLATE_NOOP("UIWPVRDrive2", "Focal length difference between EXIF and XML"),
    QT_TRANSLATE_NOOP("UIWPVRDrive2", "Lens type difference between EXIF and XML"),
    QT_TRANSLATE_NOOP("UIWPVRDrive2",
        "A focal length of %1 mm makes about %2 million links between the pictures, more than %3 "
        "million. Check the focal length."),
};

} // namespace

UIWPVRDrive2::UIWPVRDrive2()
    : ShootingPage({heads::kVRDrive2, ShootingProfile::RangeReset::AfterSuccess,
        "Focal length difference between EXIF and XML"})
    , m_ui(std::make_unique<Ui::UIWPVRDrive2Class>())
{
    m_ui->setupUi(this);
    setTitle(tr("VR Drive 2"));
    setSubTitle(heads::makerLink(heads::kVRDrive2, "VR Drive 2")
        + tr(" plug-in enables an automated HDR workflow with all parameters set for true light "
             "rendering and easy use of %1 software.")
              .arg(QCoreApplication::applicationName().toHtmlEscaped()));
    attach(this, bindShootingForm(*m_ui));
}

UIWPVRDrive2::~UIWPVRDrive2() = default;

ProjectRecord *UIWPVRDrive2::makeRecord()
{
    ProjectRecord *record = ShootingPage::makeRecord();
    if (!record)
        return nullptr;
    MoveReferenceExposureFirst(pictureInfos());
    record->outputType = m_ui->m_rbOutputMode1->isChecked() ? ProjectRecord::Tonemapped
                                                            : ProjectRecord::HdrRadiance;
    return record;
}
