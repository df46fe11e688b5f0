#pragma once

#include "Fiscarel_SG/outputs/ReportContent.h"
#include "Fiscarel_SG/paper/PaperType.h"

#include <QPainter>
#include <QRectF>
#include <QString>
#include <map>
#include <string>
#include <vector>

namespace fiscarel::paper {

// Pages as they are printed. All places in points from the upper left corner of the page.

inline constexpr double pageWidth = 595.28; ///< A4
inline constexpr double pageHeight = 841.89;
/// Where content stands; head and foot of the page stand outside it.
inline constexpr double marginLeft = 54;
inline constexpr double marginRight = 54;
inline constexpr double marginTop = 76;
inline constexpr double marginBottom = 66;
inline constexpr double contentWidth = pageWidth - marginLeft - marginRight;
inline constexpr double contentHeight = pageHeight - marginTop - marginBottom;

/// One line of text from its left end.
struct PaperText {
    QPointF at; ///< at the foot of its letters
    QString text;
    Type type = Type::body;
    /// A place whose page number is shown instead, ending at `at`.
    outputs::Anchor pageOf = {};
};

struct PaperRule {
    enum class Ink { light, strong, accent };

    QRectF rect;
    Ink ink = Ink::light;
};

/// A line whose amount can be asked for its reason.
struct PaperSpot {
    QRectF rect;
    std::string code;
    QString name; ///< what the line says, for those who do not see it
};

struct PaperLink {
    QRectF rect;
    outputs::Anchor target;
};

/// What was placed as a whole, for those who look at the setting itself.
struct PaperBlock {
    enum class Kind { heading, text, figures, tableHead, row };

    QRectF rect;
    Kind kind = Kind::text;
};

struct PaperPage {
    std::vector<PaperText> texts;
    std::vector<PaperRule> rules;
    std::vector<PaperSpot> spots;
    std::vector<PaperLink> links;
    std::vector<PaperBlock> blocks;
};

/// An entry of the outline, or the place of an anchor.
struct PaperPlace {
    int page = 0; ///< from 0
    double y = 0;
};
struct PaperEntry {
    QString title;
    int level = 1; ///< 1 for chapters
    PaperPlace place;
};

struct PaperDocument {
    QString title;
    std::vector<PaperPage> pages;
    std::vector<PaperEntry> outline; ///< in the order of the pages
    std::map<outputs::Anchor, PaperPlace> places;
};

/// Sets a report. Headings stay with what follows them, rows stay whole unless they are very high,
/// the head of a table stands again on every page the table goes on to, and the sum of a table
/// stays with the row before it.
PaperDocument setOnPaper(const outputs::ReportContent& content);

/// Paints a page (from 0) on a painter whose unit is a point, its origin the page's corner.
void paintPage(QPainter& painter, const PaperPage& page);

} // namespace fiscarel::paper
