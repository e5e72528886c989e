// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "align/GridShape.h"
#include "apps/panohost/heads/Heads.h"
#include "gigapan/GigapanToSPP.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMost = 100'000;
constexpr double kDefaultOverlap = 40;

QString sentenceOf(const GridDoubt &doubt, const GridShape &grid)
{
    const QString degrees = QString::number(doubt.degrees, 'f', 0);
    switch (doubt.kind) {
    case GridDoubt::Kind::OnePlace:
        return QStringLiteral("with an overlap of %1 percent all pictures lie in one place; "
                              "--overlap PERCENT gives another")
            .arg(grid.overlap);
    case GridDoubt::Kind::BeyondPoles:
        return QStringLiteral("%1 rows lie %2 degrees apart from the lowest to the highest, more "
                              "than the 180 there are; --rows, --overlap or --focal is not right")
            .arg(grid.rows)
            .arg(degrees);
    case GridDoubt::Kind::BeyondTurn:
        return QStringLiteral("%1 columns take %2 degrees, more than a full turn; --full-turn is "
                              "missing, or --rows, --overlap or --focal is not right")
            .arg(grid.columns)
            .arg(degrees);
    case GridDoubt::Kind::Gaps:
        return QStringLiteral("%1 columns see %2 degrees and cannot close a full turn; "
                              "--full-turn, --rows or --focal is not right")
            .arg(grid.columns)
            .arg(degrees);
    }
    return {};
}

class GigapanHead final : public Head {
public:
    void takeOptions(OptionReader &reader) override
    {
        m_rows = reader.integer("rows", 1, kMost);
        m_bracket = reader.integer("bracket", 1, kMost).value_or(1);
        m_ignore = reader.integer("ignore", 0, kMost).value_or(0);
        m_mode = reader
                     .choice("order",
                         {QStringLiteral("columns"), QStringLiteral("rows-down"),
                             QStringLiteral("rows-up"), QStringLiteral("columns-left"),
                             QStringLiteral("serpentine-up")})
                     .value_or(0);
        m_fullTurn = reader.isSet("full-turn");
        // One decimal, as the page's box has it.
        const double overlap = reader.number("overlap", 5, 100).value_or(kDefaultOverlap);
        m_overlap = QString::number(overlap, 'f', 1).toDouble();
    }

    QStringList obstacles(const PictureList &pictures, const ImportOptions &options) override
    {
        const int count = pictures.paths.size();
        layOut(count);
        const GigapanLayout &layout = m_converter.Layout();
        QStringList sentences = focalObstacles(pictures, options, {layout.ignore, usedEnd()});
        if (layout.columns < 1)
            sentences.append(
                QStringLiteral("%1 pictures, %2 of them ignored, %3 a location, do not fill "
                               "a column of %4 rows")
                    .arg(count)
                    .arg(layout.ignore)
                    .arg(layout.bracket)
                    .arg(layout.rows));
        return sentences;
    }

    QStringList remarks(const PictureList &pictures, const ImportOptions &options) override
    {
        const GigapanLayout &layout = m_converter.Layout();
        QStringList sentences;
        const int left = pictures.paths.size() - usedEnd();
        if (left > 0)
            sentences.append(
                QStringLiteral("%1: from this picture on, %2 are left over by %3 rows of %4")
                    .arg(pictures.paths.at(usedEnd()))
                    .arg(left)
                    .arg(layout.rows)
                    .arg(layout.columns));
        const PictureFacts &first = pictures.facts.at(layout.ignore);
        ProjectRecord record;
        takeFocal(pictures, options, &record);
        if (const auto lens = opticsOf(record, first)) {
            const GridShape grid{layout.rows, layout.columns, m_overlap, m_fullTurn};
            for (const GridDoubt &doubt :
                doubtsAbout(grid, *lens, std::abs(first.uprightTurn()) == 90))
                sentences.append(sentenceOf(doubt, grid));
        }
        return sentences;
    }

    ProjectRecord convert(const PictureList &pictures, const ImportOptions &options) override
    {
        m_converter.Convert(pictures.paths, m_fullTurn);
        takeFocal(pictures, options, &m_converter.Record());
        m_converter.Record().overlap = m_overlap;
        return m_converter.Record();
    }

private:
    /// As on the page: the choice of pictures lays out a grid, which the boxes then change.
    void layOut(int pictures)
    {
        m_converter.ChooseInitialGrid(pictures);
        GigapanLayout &layout = m_converter.Layout();
        layout.rows = m_rows.value_or(layout.rows);
        layout.bracket = m_bracket;
        layout.ignore = m_ignore;
        layout.mode = m_mode;
        m_converter.DeriveColumns(pictures);
    }

    /// Index behind the last picture of the grid.
    int usedEnd()
    {
        const GigapanLayout &layout = m_converter.Layout();
        return layout.ignore + std::max(0, layout.columns) * layout.rows * layout.bracket;
    }

    GigapanToSPP m_converter;
    std::optional<int> m_rows;
    int m_bracket = 1;
    int m_ignore = 0;
    int m_mode = 0;
    bool m_fullTurn = false;
    double m_overlap = kDefaultOverlap;
};

} // namespace

HeadEntry gigapanEntry()
{
    HeadEntry entry;
    entry.name = "gigapan";
    entry.description = "Gigapan and others that leave no file: a regular grid of pictures";
    entry.make = []() -> std::unique_ptr<Head> { return std::make_unique<GigapanHead>(); };
    entry.ownLenses = true;
    entry.options = {
        {"rows", "N", "rows of the grid (default: the most nearly square grid)"},
        {"order", "columns|rows-down|rows-up|columns-left|serpentine-up",
            "in which order the pictures fill the grid (default: columns)"},
        {"bracket", "N", "pictures a location (default: 1)"},
        {"ignore", "N", "leading pictures that do not belong to the panorama (default: 0)"},
        {"full-turn", nullptr, "the columns close a full turn"},
        {"overlap", "PERCENT", "overlap of neighbours, 5 to 100 (default: 40)"},
        options::kStacks,
        options::kLevels,
    };
    return entry;
}
