#pragma once

#include "Fiscarel_SG/store/StoredDocument.h"
#include "TaxCore/base/Date.h"
#include "TaxCore/model/TaxCase.h"
#include "TaxCore/regions/CaseCalculator.h"
#include "TaxCore/result/TaxResult.h"

#include <string>
#include <variant>
#include <vector>

namespace fiscarel::outputs {

// What a printed report says, as plain data: chapters of headings, texts, figures and tables. How
// it is set on paper is not known here. All texts are German; amounts are texts already, in francs
// with two decimals, with the minus sign U+2212.

/// The name of a place in the report, to link to; empty: none.
using Anchor = std::string;

struct ReportHeading {
    std::string text;
    int level = 2; ///< 1 begins a chapter, 2 a section, 3 a part of it
    Anchor anchor;

    bool operator==(const ReportHeading&) const = default;
};

struct ReportText {
    enum class Tone {
        body,
        faint,   ///< remarks
        kicker,  ///< the small line above a title
        display, ///< the title of the cover
        lead,    ///< the line under it
    };

    std::string text;
    Tone tone = Tone::body;

    bool operator==(const ReportText&) const = default;
};

/// White space between blocks, in points; none at the top of a page.
struct ReportSpace {
    int points = 0;

    bool operator==(const ReportSpace&) const = default;
};

/// Figures side by side, the first one large.
struct ReportFigures {
    struct Figure {
        std::string label;
        std::string value;
        std::string code; ///< of the line or figure it shows; may be empty

        bool operator==(const Figure&) const = default;
    };
    std::vector<Figure> figures;

    bool operator==(const ReportFigures&) const = default;
};

struct ReportColumn {
    enum class Kind {
        text,   ///< takes the room that is left, wraps
        label,  ///< short text on the left: as wide as its content while there is room
        amount, ///< on the right, does not wrap
        number, ///< a short one on the right, such as a page
    };

    std::string head;
    Kind kind = Kind::text;

    bool operator==(const ReportColumn&) const = default;
};

struct ReportCell {
    std::string text;
    std::string note; ///< small, under the text
    /// The page on which this place stands is shown instead of the text.
    Anchor pageOf = {};

    bool operator==(const ReportCell&) const = default;
};

struct ReportRow {
    enum class Weight {
        plain,
        sum,    ///< a rule above it, strong
        group,  ///< begins a group: strong, stays with the row after it
        detail, ///< small, within a group
    };

    std::vector<ReportCell> cells; ///< as many as the table has columns
    Weight weight = Weight::plain;
    std::string code = {}; ///< of the line of the return or figure of the bill that it shows
    Anchor anchor = {};    ///< its own name
    Anchor link = {};      ///< where it leads

    bool operator==(const ReportRow&) const = default;
};

struct ReportTable {
    std::vector<ReportColumn> columns;
    std::vector<ReportRow> rows;
    bool hasHead = true; ///< shown above the rows, on every page they go on to; columns without
                         ///< any content under their head are left out

    bool operator==(const ReportTable&) const = default;
};

using ReportBlock =
    std::variant<ReportHeading, ReportText, ReportSpace, ReportFigures, ReportTable>;

struct ReportChapter {
    std::string title; ///< for the outline and the head of the page
    Anchor anchor;
    std::vector<ReportBlock> blocks;
    bool isCover = false; ///< without head and foot of the page
    bool beginsOnNewPage = true;

    bool operator==(const ReportChapter&) const = default;
};

struct ReportContent {
    std::string title;    ///< of the document
    std::string pageHead; ///< on every page but the cover
    std::string pageFoot;
    std::vector<ReportChapter> chapters;

    bool operator==(const ReportContent&) const = default;
};

/// What a report is made of; all must belong to the same computed case.
struct ReportInput {
    const taxcore::TaxCase& taxCase;
    const taxcore::TaxResult& result;
    const taxcore::CaseCalculator& calculator;
    std::vector<taxcore::Notice> notices;  ///< what is to be said beside the result's own
    std::vector<std::string> notComputed;  ///< German sentences
    std::vector<StoredDocument> documents; ///< of any year; others than the case's are left out
    taxcore::Date madeOn;
};

/// The whole report: cover, household, return, bill, breakdowns, limits, notices, registers, the
/// way to every amount, and the documents. Every line of the return names the documents behind its
/// entries and leads to the derivation that lists them.
ReportContent reportContent(const ReportInput& input);

/// "Steuerbericht-2025-Rheintaler.pdf": a name that every system takes (ASCII letters, digits and
/// hyphens), made of a German word, the year and the first person's last name.
std::string pdfFileName(std::string_view what, const taxcore::TaxCase& taxCase);

} // namespace fiscarel::outputs
