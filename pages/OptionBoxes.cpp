// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "pages/OptionBoxes.h"

#include "host/ProjectRecord.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QSlider>

namespace {

void copyFlag(const QCheckBox *box, bool &flag)
{
    if (box)
        flag = box->checkState() == Qt::Checked;
}

void copyMode(const QRadioButton *zero, const QRadioButton *one, int &mode)
{
    if (zero && zero->isChecked())
        mode = 0;
    else if (one && one->isChecked())
        mode = 1;
}

void setChecked(QAbstractButton *button, bool checked)
{
    if (button)
        button->setChecked(checked);
}

} // namespace

void OptionBoxes::copyTo(ProjectRecord &record) const
{
    copyFlag(autoDetection, record.autoDetection);
    copyFlag(cleanLinks, record.cleanLinks);
    copyFlag(skipOptimization, record.skipOptimization);
    copyFlag(guidedOptimization, record.guidedOptimization);
    copyMode(referenceLevel, allLevels, record.levelLinking);
    copyMode(hardLinks, stackPoints, record.stackLinking);
}

PageState OptionBoxes::state() const
{
    PageState state;
    copyFlag(autoDetection, state.autoDetection);
    copyFlag(cleanLinks, state.cleanLinks);
    copyFlag(skipOptimization, state.skipOptimization);
    copyFlag(guidedOptimization, state.guidedOptimization);
    state.allLevels = allLevels && allLevels->isChecked();
    state.stackPoints = stackPoints && stackPoints->isChecked();
    state.zoom = zoom->value();
    return state;
}

void OptionBoxes::setState(const PageState &state) const
{
    setChecked(autoDetection, state.autoDetection);
    setChecked(cleanLinks, state.cleanLinks);
    setChecked(skipOptimization, state.skipOptimization);
    setChecked(guidedOptimization, state.guidedOptimization);
    setChecked(state.allLevels ? allLevels : referenceLevel, true);
    setChecked(state.stackPoints ? stackPoints : hardLinks, true);
    zoom->setValue(state.zoom);
}

void OptionBoxes::onAllLevels(bool checked) const
{
    if (!checked)
        return;
    hardLinks->setChecked(false);
    stackPoints->setChecked(true);
}

void OptionBoxes::onHardLinks(bool checked) const
{
    if (!checked)
        return;
    referenceLevel->setChecked(true);
    allLevels->setChecked(false);
}
