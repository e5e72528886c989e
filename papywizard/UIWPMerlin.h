// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "papywizard/MerlinToSPP.h"
#include "papywizard/ShootingPage.h"

#include <memory>

namespace Ui {
class UIWPMerlinClass;
}

/// The page of the Papywizard import.
class UIWPMerlin final : public ShootingPage, public MerlinToSPP {
    Q_OBJECT
public:
    UIWPMerlin();
    ~UIWPMerlin() override;

public slots:
    // The order is contract: it is the order of the page's meta-object.
    void BrowserWeb(const QString &_url) { openLink(_url); }
    void SelectImages() { selectImages(); }
    void SelectConfigFile() { selectConfigFile(); }
    void OnZoomChanged() { redrawPreview(); }
    void OnImageLoaded() { takePictureData(); }
    void OnInverseCoordinates() { invertPitch(); }
    void OnRotate90() { rotate(90); }
    void OnRotate270() { rotate(-90); }
    void OnFLUseXML() { useFileLens(); }
    void OnFLUseImage() { usePictureLens(); }
    void Reset() { startOver(); }
    void SetConfigFFilename(const QString &text) { setConfigFile(text); }
    void OnLevelLinkingClicked(bool checked) { options().onAllLevels(checked); }
    void OnStackLinkingClicked(bool checked) { options().onHardLinks(checked); }

protected:
    void showHeader(const PapywizardShooting &shooting) override;

private:
    std::unique_ptr<Ui::UIWPMerlinClass> m_ui;
};
