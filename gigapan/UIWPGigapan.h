// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "gigapan/GigapanToSPP.h"
#include "pages/ImportPage.h"

#include <memory>

namespace Ui {
class UIWPGigapanClass;
}

/// The page of the Gigapan import.
class UIWPGigapan final : public ImportPage, public GigapanToSPP {
    Q_OBJECT
public:
    UIWPGigapan();
    ~UIWPGigapan() override;

    void cleanupPage() override;

public slots:
    // The order is contract: it is the order of the page's meta-object.
    void SelectImages();
    void UpdateUI();
    void UpdatePreview();
    void Reset();
    void IgnoreNImages(int count);
    void SetRow(int rows);
    void OnChangeBracket(int bracket);
    void OnMode0Toggled(bool checked) { setMode(0, checked); }
    void OnMode1Toggled(bool checked) { setMode(1, checked); }
    void OnMode2Toggled(bool checked) { setMode(2, checked); }
    void OnMode3Toggled(bool checked) { setMode(3, checked); }
    void OnMode4Toggled(bool checked) { setMode(4, checked); }
    void OnLevelLinkingClicked(bool checked) { options().onAllLevels(checked); }
    void OnStackLinkingClicked(bool checked) { options().onHardLinks(checked); }

protected:
    void refreshHead() override;
    PreviewScene previewScene() const override;
    bool fitsShooting(int pictures) const override { return pictures > 0; }
    void takeFiles(const QStringList &files) override;
    ProjectRecord *makeRecord() override;

private:
    /// Sets one value of the layout, if it is at least \a least, and derives the columns.
    void setLayoutValue(int GigapanLayout::*member, int value, int least);
    void setMode(int mode, bool checked);
    void checkModeButton();

    std::unique_ptr<Ui::UIWPGigapanClass> m_ui;
};
