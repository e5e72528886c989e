// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "papywizard/UIWPMerlin.h"

#include "ui_UIWPMerlin.h"

namespace {

// Texts that the shared body shows in this page's translation.
[[maybe_unused]] const char *const kTexts[] = {
    QT_TRANSLATE_NOOP("UIWPMerlin", "N/A"),
    QT_TRANSLATE_NOOP("UIWPMerlin", "All Files (*.*)"),
    QT_TRANSLATE_NOOP("UIWPMerlin", "XML files (*.xml)"),
    QT_TRANSLATE_NOOP("UIWPMerlin", "Select images"),
    QT_TRANSLATE_NOOP("UIWPMerlin", "Select the preset file and/or images"),
    QT_TRANSLATE_NOOP("UIWPMerlin", "Warning"),
    QT_TRANSLATE_NOOP("UIWPMerlin",
        "Papywizard XML has bracketing and the number of images isn't a multiple of this number of "
        "brackets."),
    QT_TRANSLATE_NOOP("UIWPMerlin", "Bracketing used in XML, should be multiple of that number"),
    QT_TRANSLATE_NOOP("UIWPMerlin", "Not the same as in XML fil"),
    QT_TRANSLATE_NOOP("UIWPMerlin", "Focal Length difference between EXIF and XML"),
    QT_TRANSLATE_NOOP("UIWPMerlin", "Lens type difference between EXIF and XML"),
    QT_TRANSLATE_NOOP("UIWPMerlin",
        "A focal length of %1 mm makes about %2 million links between the pictures, more than %3 "
        "million. Check the focal length."),
};

} // namespace

UIWPMerlin::UIWPMerlin()
    : ShootingPage({heads::kPapywizard, ShootingProfile::RangeReset::BeforeReading,
        "Focal Length difference between EXIF and XML"})
    , m_ui(std::make_unique<Ui::UIWPMerlinClass>())
{
    m_ui->setupUi(this);
    setTitle(tr("Papywizard import"));
    const QString textColour = palette().color(QPalette::WindowText).name();
    setSubTitle(heads::makerLink(
                    heads::kPapywizard, "Papywizard", textColour, QStringLiteral("transparent"))
        + tr(" is a free project to drive Merlin/Orion panorama heads. The XML file format is open "
             "and used by a wide range of motorized panorama heads."));
    attach(this, bindShootingForm(*m_ui));
}

UIWPMerlin::~UIWPMerlin() = default;

void UIWPMerlin::showHeader(const PapywizardShooting &shooting)
{
    m_ui->m_leHeaderTitle->setText(shooting.title);
    m_ui->m_leHeaderGps->setText(shooting.gps);
    m_ui->m_leHeaderComment->setText(shooting.comment);
}
