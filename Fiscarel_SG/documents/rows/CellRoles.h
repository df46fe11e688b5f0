#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace fiscarel {

/// What a cell holds: an amount with its sign, side and currency, a currency alone, or anything
/// else.
enum class Role { text, amount, currency };
Role roleOf(const Row& row, const LabelPlace& cell);

/// The side of an account that a word behind an amount names, by name or short: "Soll", "H", "CR".
enum class Side { owed, kept };
std::optional<Side> sideMark(const RowWord& word);

/// Whether a row, or a cell of it, has an amount that more than its digits speak for.
bool hasFirmAmount(const Row& row);
bool hasFirmAmount(const Row& row, const LabelPlace& cell);
/// Whether a row has such amounts and nothing else.
bool hasOnlyAmounts(const Row& row);

/// Whether a word of a row is the currency, by its code or name.
bool hasFrancs(const Row& row);

/// Whether a cell says that there is no amount: "keine", "aucun".
bool saysNone(const Row& row, const LabelPlace& cell);

/// Whether words say of an amount that it is not part of what a paper certifies.
bool saysLeftOut(const Row& words);

std::size_t lettersIn(const Row& row, const LabelPlace& cell);
std::vector<RowWord> wordsOf(const Row& row, const LabelPlace& cell);

/// Whether a word of a row ends its sentence; "31.", "Nr.", "lit." and dots that lead to an amount
/// do not, nor one before a pronoun that goes on about the same.
bool endsSentence(const Row& row, std::size_t at);
/// Whether a word by itself ends a sentence: it has over three letters, no digits, and a point.
bool endsSentence(const RowWord& word);

} // namespace fiscarel
