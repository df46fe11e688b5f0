#pragma once

#include "Fiscarel_SG/paper/PaperDocument.h"

#include <vector>

namespace fiscarel::paper {

/// A piece of a page that is not broken: as wide as the content, its places from its own upper left
/// corner.
struct Strip {
    double height = 0;
    double spaceBefore = 0; ///< left out at the top of a page
    bool staysWithNext = false;
    PaperBlock::Kind kind = PaperBlock::Kind::text;
    std::vector<PaperText> texts = {};
    std::vector<PaperRule> rules = {};
    std::vector<PaperSpot> spots = {};
    outputs::Anchor anchor = {};
    outputs::Anchor link = {};
    QString outlineTitle = {};
    int outlineLevel = 0; ///< 0: not in the outline
    bool beginsPage = false;
    /// How far before it, in strips, the head of its table stands; 0: it has none.
    std::size_t headBefore = 0;
    /// How far before it the first row of its group stands; 0: it is that row or in no group.
    std::size_t groupBefore = 0;
};

/// The rows of a table, its head first.
std::vector<Strip> tableStrips(const outputs::ReportTable& table);

/// Lines of one text at the left of a strip, from `top` down.
void addLines(Strip& strip, Type type, const QStringList& lines, double top, double left = 0);

} // namespace fiscarel::paper
