// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "papywizard/ShootingPage.h"
#include "vrdrive2/VRDrive2ToSPP.h"

#include <memory>

namespace Ui {
class UIWPVRDrive2Class;
}

/// The page of the VR Drive 2 import: the shooting file's page with an output choice. It remembers
/// nothing between runs.
class UIWPVRDrive2 final : public ShootingPage, public VRDrive2ToSPP {
    Q_OBJECT
public:
    UIWPVRDrive2();
    ~UIWPVRDrive2() override;

    QByteArray SaveState() const override { return {}; }
    void RestoreState(const QByteArray &) override { }

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
    ProjectRecord *makeRecord() override;

private:
    std::unique_ptr<Ui::UIWPVRDrive2Class> m_ui;
};
