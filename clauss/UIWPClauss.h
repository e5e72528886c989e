// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clauss/ClaussFigures.h"
#include "clauss/ClaussToSPP.h"
#include "pages/ImportPage.h"

#include <memory>

namespace Ui {
class UIWPClaussClass;
}

/// The page of the Clauss Rodeon import.
///
/// The dynamic property "fullAngles" (bool), set by a host before the script arrives, makes it take
/// angles with their decimals.
class UIWPClauss final : public ImportPage, public ClaussToSPP {
    Q_OBJECT
public:
    UIWPClauss();
    ~UIWPClauss() override;

    void cleanupPage() override;

public slots:
    // The order is contract: it is the order of the page's meta-object.
    void BrowserWeb(const QString &url);
    void SelectImages();
    void SelectConfigFile();
    void UpdateUI();
    void UpdatePreview();
    void OnInverseCoordinates();
    void Reset();
    void SetConfigFFilename();

protected:
    void refreshHead() override;
    PreviewScene previewScene() const override;
    bool fitsShooting(int pictures) const override;
    void takeFiles(const QStringList &files) override;
    ProjectRecord *makeRecord() override;
    QString configFile() const override { return m_configFile; }

private:
    void LoadConfigFile(const QString &path);

    std::unique_ptr<Ui::UIWPClaussClass> m_ui;
    QString m_configFile;
    ClaussFigures m_figures;
};
