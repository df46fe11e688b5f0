#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <optional>
#include <vector>

namespace fiscarel {

/// What may be an amount beside a label. A bare whole number only counts when it is no year and not
/// too long.
bool isCandidate(const RowAmount& amount);

/// The year a row begins with, alone or in a day; absent for other rows.
std::optional<int> yearAtStart(const Row& row);

/// How far, in points, the edges of amounts of one column may differ.
double alignment(const PageRows& page);

/// The cells of a row that heads a table; where headings stand too close to tell them apart, the
/// columns of amounts below part them.
std::vector<LabelPlace> headingCells(const RowRange& range, std::size_t at);

/// Where a row says what is wanted, by one of the labels or all meanings; those words of a row that
/// make it something else are not looked at.
std::vector<LabelPlace> placesIn(const Row& row, const Wanted& wanted, bool isRecognised);

/// The words of the cell above an amount, in the nearest row of words only that has several cells.
Row headingOver(const PageRows& page, std::size_t at, const RowAmount& amount);

/// Whether a row names one of several concepts; the day of a payment opens no balance.
bool namesMeant(const Row& row, const std::vector<Concept>& concepts, bool isRecognised);
/// Whether a row has words that bar it, or tells of the first day of a year where the last is
/// wanted.
bool isBarred(const Row& row, const Wanted& wanted, bool isRecognised);

/// Of several amounts in a row under headings that tell different times that of the newest; else
/// null.
const RowAmount* newestIn(const PageRows& page, std::size_t at);

/// The last amount of a row, or of several under headings that tell a time that of the newest; null
/// for a row without amounts.
const RowAmount* lastOrNewest(const PageRows& page, std::size_t at);

/// The amount of a label that stands in a row: right of it, below it or before it. Of several the
/// one whose heading says what is wanted, or the newest time; else that of the label's own cell,
/// else the one in the page's amount column.
std::optional<FoundAmount> amountFor(const RowRange& range, std::size_t at, const LabelPlace& label,
                                     const Wanted& wanted);
/// The same, or the amount of the column that the label heads.
std::optional<FoundAmount> amountAt(const RowRange& range, std::size_t at, const LabelPlace& label,
                                    const Wanted& wanted);

} // namespace fiscarel
