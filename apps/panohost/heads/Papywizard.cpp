// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/heads/Papywizard.h"

#include "apps/panohost/heads/Heads.h"

#include <algorithm>

namespace {

PictureLens lensOf(const PictureList &pictures)
{
    QVector<PictureLens> lenses;
    lenses.reserve(pictures.facts.size());
    for (const PictureFacts &facts : pictures.facts)
        lenses.append({static_cast<double>(facts.focal), facts.lensType});
    return lensOfPictures(lenses);
}

/// What the page's boxes would hold: what was asked for, else what is proposed. A focal of 0 when
/// nothing gives one; the page then proposes no lens either.
PictureLens chosenLens(
    const PapywizardShooting &shooting, const PictureList &pictures, const ImportOptions &options)
{
    const PictureLens proposed = proposedLens(shooting, lensOf(pictures));
    const bool found = proposed.focal > 0;
    return {
        options.focal.value_or(found ? boxedFocal(proposed.focal) : 0),
        options.lensType.value_or(found ? proposed.lensType : 0),
    };
}

QString lensName(int lensType)
{
    return lensType == ProjectRecord::Fisheye ? QStringLiteral("fisheye")
                                              : QStringLiteral("standard");
}

class PapywizardHead final : public ShootingFileHead {
protected:
    MerlinToSPP &converter() override { return m_converter; }

private:
    MerlinToSPP m_converter;
};

} // namespace

bool ShootingFileHead::readFile(const QString &path, const FindingSink &findings)
{
    return converter().ReadXML(path, findings);
}

QStringList ShootingFileHead::obstacles(const PictureList &pictures, const ImportOptions &options)
{
    const PapywizardShooting &shooting = converter().Shooting();
    const int chosen = pictures.paths.size();
    QStringList sentences;
    if (chosen != shooting.shots.size())
        sentences.append(
            QStringLiteral("%1: the file tells of %2 shots, but %3 pictures are chosen")
                .arg(options.config)
                .arg(shooting.shots.size())
                .arg(chosen));
    if (shooting.bracketCount > 1 && chosen % shooting.bracketCount != 0)
        sentences.append(
            QStringLiteral("%1: the file tells of %2 pictures a location, and %3 chosen "
                           "pictures are no multiple of that")
                .arg(options.config)
                .arg(shooting.bracketCount)
                .arg(chosen));
    const PictureLens lens = chosenLens(shooting, pictures, options);
    if (!(lens.focal > 0))
        sentences.append(
            QStringLiteral("%1: neither the file nor the pictures give a focal length; "
                           "--focal MM does")
                .arg(options.config));
    if (sentences.isEmpty())
        sentences = linkObstacles(converter().EstimateLinks(chosen, lens.focal, lens.lensType));
    return sentences;
}

QStringList ShootingFileHead::remarks(const PictureList &pictures, const ImportOptions &options)
{
    const PapywizardShooting &shooting = converter().Shooting();
    const PictureLens ofPictures = lensOf(pictures);
    const PictureLens chosen = chosenLens(shooting, pictures, options);
    QStringList sentences;
    const auto silent = std::count_if(pictures.facts.begin(), pictures.facts.end(),
        [](const PictureFacts &facts) { return !(facts.focal > 0); });
    if (!options.focal && ofPictures.focal > 0 && silent > 0)
        sentences.append(
            QStringLiteral("%1 of %2 pictures tell no focal length, and count as 0 mm in the mean "
                           "of %3 mm that is taken; --focal MM gives the right one")
                .arg(silent)
                .arg(pictures.facts.size())
                .arg(chosen.focal));
    ShootingState state{shooting, static_cast<int>(shooting.shots.size()),
        static_cast<int>(pictures.paths.size()), ofPictures};
    if (shootingWarning(state) == ShootingWarning::LensDiffers) {
        sentences.append(QStringLiteral("%1: the file's lens is %2, the pictures' %3; %4 is taken")
                             .arg(options.config,
                                 lensName(shooting.fisheye ? ProjectRecord::Fisheye
                                                           : ProjectRecord::StandardLens),
                                 lensName(ofPictures.lensType), lensName(chosen.lensType)));
        // That warning hides the one about the focal length.
        state.pictures.lensType
            = shooting.fisheye ? ProjectRecord::Fisheye : ProjectRecord::StandardLens;
    }
    if (shootingWarning(state) == ShootingWarning::FocalDiffers) {
        sentences.append(
            QStringLiteral("%1: the file's focal length is %2 mm, the pictures' %3 mm; %4 mm is "
                           "taken")
                .arg(options.config)
                .arg(shooting.focal)
                .arg(ofPictures.focal)
                .arg(chosen.focal));
    }
    return sentences;
}

ProjectRecord ShootingFileHead::convert(const PictureList &pictures, const ImportOptions &options)
{
    PapywizardShooting &shooting = converter().Shooting();
    if (options.invertPitch)
        invertPitches(shooting.shots);
    turnRolls(shooting.shots, options.turn);
    const PictureLens lens = chosenLens(shooting, pictures, options);
    converter().CheckBracketing(pictures.paths.size());
    converter().Convert(pictures.paths, lens.focal, lens.lensType);
    return converter().Record();
}

std::vector<OptionText> ShootingFileHead::options()
{
    return {::options::kConfig, ::options::kInvertPitch, ::options::kRotate, ::options::kStacks,
        ::options::kLevels, ::options::kNoRecordedLocation};
}

HeadEntry papywizardEntry()
{
    HeadEntry entry;
    entry.name = "papywizard";
    entry.description = "Papywizard and other writers of its XML shooting file (Merlin, Orion)";
    entry.make = []() -> std::unique_ptr<Head> { return std::make_unique<PapywizardHead>(); };
    entry.options = ShootingFileHead::options();
    entry.sortsPictures = true;
    entry.cleansLinks = true;
    return entry;
}
