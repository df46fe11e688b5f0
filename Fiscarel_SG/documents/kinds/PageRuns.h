#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace fiscarel {

/// A text with the place where it stands.
struct PlacedText {
    std::string text;
    int page = 0;
    std::optional<PageBox> box;
};

/// Words of a row that stand together.
struct Run {
    const Row* row = nullptr;
    std::size_t first = 0; ///< index of its first word in the row
    std::size_t last = 0;

    double left() const { return row->words[first].place.left; }
    std::string text() const;
    std::string folded() const; ///< its words folded, a blank behind each
};

/// Its words with the place they take; without a box on a page of no size.
PlacedText placedText(const PageRows& page, const Run& run);

/// The run that begins with a word: up to a gap as wide as between columns.
Run runFrom(const PageRows& page, const Row& row, std::size_t first);
/// The run that begins under a left edge, in one of the three rows below.
std::optional<Run> runBelow(const PageRows& page, std::size_t at, double left);

/// Whether any digit stands in a text, and whether it begins with a capital; an empty one does
/// neither. Letters beyond ASCII count as capitals.
bool startsWithCapital(std::string_view text);

} // namespace fiscarel
