// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/heads/Heads.h"
#include "clauss/ClaussToSPP.h"

namespace {

QVector<float> focalsOf(const PictureList &pictures, const ImportOptions &options)
{
    QVector<float> focals;
    focals.reserve(pictures.facts.size());
    for (const PictureFacts &facts : pictures.facts)
        focals.append(options.focal ? static_cast<float>(*options.focal) : facts.focal);
    return focals;
}

class ClaussHead final : public Head {
public:
    void takeOptions(OptionReader &reader) override
    {
        m_converter.SetFullAngles(reader.isSet("full-angles"));
    }

    bool readFile(const QString &path, const FindingSink &findings) override
    {
        return m_converter.ReadConfigFile(path, findings);
    }

    QStringList obstacles(const PictureList &pictures, const ImportOptions &options) override
    {
        QStringList sentences = focalObstacles(pictures, options);
        const int shots = m_converter.Shots().size();
        if (pictures.paths.size() != shots)
            sentences.append(
                QStringLiteral("%1: the script tells of %2 shots, but %3 pictures are chosen")
                    .arg(options.config)
                    .arg(shots)
                    .arg(pictures.paths.size()));
        if (sentences.isEmpty())
            sentences
                = linkObstacles(m_converter.EstimateLinks(shots, focalsOf(pictures, options)));
        return sentences;
    }

    ProjectRecord convert(const PictureList &pictures, const ImportOptions &options) override
    {
        if (options.invertPitch)
            invertPitches(m_converter.Shots());
        m_converter.Convert(pictures.paths, focalsOf(pictures, options));
        takeFocal(pictures, options, &m_converter.Record());
        return m_converter.Record();
    }

private:
    ClaussToSPP m_converter;
};

} // namespace

HeadEntry claussEntry()
{
    HeadEntry entry;
    entry.name = "clauss";
    entry.description = "Clauss Rodeon, by its script";
    entry.make = []() -> std::unique_ptr<Head> { return std::make_unique<ClaussHead>(); };
    entry.ownLenses = true;
    entry.options = {options::kConfig, options::kInvertPitch, options::kNoRecordedLocation,
        {"full-angles", nullptr, "take angles with their decimals, which the format cuts off"}};
    return entry;
}
