// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "gigapan/UIWPGigapan.h"

#include "gigapan/GigapanPreview.h"
#include "ui_UIWPGigapan.h"

#include <QSignalBlocker>

namespace {

constexpr int kModeButtons = 4;

ImportForm bindForm(const Ui::UIWPGigapanClass &ui)
{
    ImportForm form;
    form.images = ui.m_leImage;
    form.preview = ui.m_saPreview;
    form.options.autoDetection = ui.m_autoStart;
    form.options.cleanLinks = ui.m_cleanLink;
    form.options.skipOptimization = ui.m_noOptim;
    form.options.referenceLevel = ui.m_rbLevelLinking0;
    form.options.allLevels = ui.m_rbLevelLinking1;
    form.options.hardLinks = ui.m_rbStackLinking0;
    form.options.stackPoints = ui.m_rbStackLinking1;
    form.options.zoom = ui.m_hSlider;
    return form;
}

// A box that is merely brought up to date must not run its slot.
void setSpinValue(QSpinBox *box, int value)
{
    const QSignalBlocker blocker(box);
    box->setValue(value);
}

// Texts that the shared body shows in this page's translation.
[[maybe_unused]] const char *const kTexts[] = {
    QT_TRANSLATE_NOOP("UIWPGigapan", "All Files (*.*)"),
    QT_TRANSLATE_NOOP("UIWPGigapan", "Select images"),
};

} // namespace

UIWPGigapan::UIWPGigapan()
    : m_ui(std::make_unique<Ui::UIWPGigapanClass>())
{
    m_ui->setupUi(this);
    setTitle(tr("Gigapan panorama import"));
    setSubTitle(heads::makerLink(heads::kGigapan, "Gigapan")
        + tr(" allows users to upload, share, and explore brilliant gigapixel+ panoramas from "
             "around the globe."));
    QLabel *const pictures[kModeButtons]
        = {m_ui->m_lbMode0, m_ui->m_lbMode1, m_ui->m_lbMode2, m_ui->m_lbMode3};
    for (int mode = 0; mode < kModeButtons; ++mode)
        pictures[mode]->setPixmap(QPixmap(heads::resource(
            heads::kGigapan, qPrintable(QStringLiteral("gigapan-mode%1.png").arg(mode)))));
    attach(bindForm(*m_ui), heads::kGigapan);

    const auto spun = QOverload<int>::of(&QSpinBox::valueChanged);
    connect(m_ui->m_sbRow, spun, this, &UIWPGigapan::SetRow);
    connect(m_ui->m_sbIgnore, spun, this, &UIWPGigapan::IgnoreNImages);
    connect(m_ui->m_pbSelectImages, &QPushButton::clicked, this, &UIWPGigapan::SelectImages);
    connect(m_ui->m_pbReset, &QPushButton::clicked, this, &UIWPGigapan::Reset);
    connect(m_ui->m_sbBracket, spun, this, &UIWPGigapan::OnChangeBracket);
    connect(m_ui->m_hSlider, &QSlider::valueChanged, this, &UIWPGigapan::UpdateUI);
    connect(m_ui->m_rbMode0, &QRadioButton::toggled, this, &UIWPGigapan::OnMode0Toggled);
    connect(m_ui->m_rbMode1, &QRadioButton::toggled, this, &UIWPGigapan::OnMode1Toggled);
    connect(m_ui->m_rbMode2, &QRadioButton::toggled, this, &UIWPGigapan::OnMode2Toggled);
    connect(m_ui->m_rbMode3, &QRadioButton::toggled, this, &UIWPGigapan::OnMode3Toggled);
    connect(
        m_ui->m_rbLevelLinking1, &QRadioButton::clicked, this, &UIWPGigapan::OnLevelLinkingClicked);
    connect(
        m_ui->m_rbStackLinking0, &QRadioButton::clicked, this, &UIWPGigapan::OnStackLinkingClicked);
    updatePreviewOnResults(this);
    Reset();
}

UIWPGigapan::~UIWPGigapan() = default;

void UIWPGigapan::cleanupPage()
{
    Reset();
}

ProjectRecord *UIWPGigapan::makeRecord()
{
    Convert(pictures(), m_ui->m_cbIS360->checkState() == Qt::Checked);
    m_record.overlap = m_ui->m_dsbOverlapping->value();
    return &m_record;
}

void UIWPGigapan::SelectImages()
{
    takeFiles(choosePictures(hostFolder()));
}

void UIWPGigapan::takeFiles(const QStringList &files)
{
    if (files.isEmpty())
        return;
    tellHostFolder(files.first());
    setPictures(files);
    ChooseInitialGrid(files.size());
    UpdateUI();
}

void UIWPGigapan::UpdateUI()
{
    changed();
}

void UIWPGigapan::UpdatePreview()
{
    redrawPreview();
    emit completeChanged();
}

void UIWPGigapan::Reset()
{
    m_layout = {};
    ClearRecord();
    clearPictures();
    UpdateUI();
}

void UIWPGigapan::IgnoreNImages(int count)
{
    setLayoutValue(&GigapanLayout::ignore, count, 0);
}

void UIWPGigapan::SetRow(int rows)
{
    setLayoutValue(&GigapanLayout::rows, rows, 1);
}

void UIWPGigapan::OnChangeBracket(int bracket)
{
    setLayoutValue(&GigapanLayout::bracket, bracket, 1);
}

void UIWPGigapan::setLayoutValue(int GigapanLayout::*member, int value, int least)
{
    if (value < least)
        return;
    m_layout.*member = value;
    DeriveColumns(pictures().size());
    UpdateUI();
}

void UIWPGigapan::setMode(int mode, bool checked)
{
    if (!checked)
        return;
    m_layout.mode = mode;
    UpdateUI();
}

void UIWPGigapan::refreshHead()
{
    m_ui->m_lbImage->setText(QStringLiteral("%1 ").arg(pictures().size()) + tr("images in "));
    setSpinValue(m_ui->m_sbColumn, m_layout.columns);
    setSpinValue(m_ui->m_sbRow, m_layout.rows);
    setSpinValue(m_ui->m_sbIgnore, m_layout.ignore);
    setSpinValue(m_ui->m_sbBracket, m_layout.bracket);
    checkModeButton();

    const GigapanUse use = useOf(m_layout, pictures().size());
    QStringList unused;
    if (use.ignored > 0)
        unused += tr("Pictures ignored: %1").arg(use.ignored);
    if (use.leftOver > 0)
        unused += tr("Pictures left over: %1").arg(use.leftOver);
    m_ui->m_saPreview->setToolTip(unused.join(QLatin1Char('\n')));
}

void UIWPGigapan::checkModeButton()
{
    QRadioButton *const buttons[kModeButtons]
        = {m_ui->m_rbMode0, m_ui->m_rbMode1, m_ui->m_rbMode2, m_ui->m_rbMode3};
    // The turning order has no button, and an exclusive group refuses to have none checked.
    m_ui->buttonGroup_mode->setExclusive(false);
    for (int mode = 0; mode < kModeButtons; ++mode) {
        const QSignalBlocker blocker(buttons[mode]);
        buttons[mode]->setChecked(mode == m_layout.mode);
    }
    m_ui->buttonGroup_mode->setExclusive(true);
}

PreviewScene UIWPGigapan::previewScene() const
{
    return gridScene(m_layout, pictures().size(), palette().brush(QPalette::Window));
}
