// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/panohost/heads/Heads.h"
#include "apps/panohost/heads/Papywizard.h"
#include "vrdrive2/VRDrive2ToSPP.h"

namespace {

class VRDrive2Head final : public ShootingFileHead {
public:
    void takeOptions(OptionReader &reader) override
    {
        if (reader.choice("output-type", {QStringLiteral("tonemapped"), QStringLiteral("hdr")})
            == 1)
            m_outputType = ProjectRecord::HdrRadiance;
    }

    ProjectRecord convert(const PictureList &pictures, const ImportOptions &options) override
    {
        ShootingFileHead::convert(pictures, options);
        QVector<float> exposures;
        exposures.reserve(pictures.facts.size());
        for (const PictureFacts &facts : pictures.facts)
            exposures.append(facts.brightness());
        m_converter.MoveReferenceExposureFirst(exposures);
        m_converter.Record().outputType = m_outputType;
        return m_converter.Record();
    }

protected:
    MerlinToSPP &converter() override { return m_converter; }

private:
    VRDrive2ToSPP m_converter;
    ProjectRecord::OutputType m_outputType = ProjectRecord::Tonemapped;
};

} // namespace

HeadEntry vrDrive2Entry()
{
    HeadEntry entry = papywizardEntry();
    entry.name = "vrdrive2";
    entry.description = "Roundshot VR Drive 2, for HDR workflows";
    entry.make = []() -> std::unique_ptr<Head> { return std::make_unique<VRDrive2Head>(); };
    entry.options.push_back({"output-type", "tonemapped|hdr",
        "what is to be rendered of the brackets (default: tonemapped)"});
    return entry;
}
