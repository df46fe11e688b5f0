#pragma once

#include "Fiscarel_SG/documents/rows/PageRows.h"
#include "TaxCore/base/Date.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

// Where rows name people. What is written like a name counts; whether somebody is meant is told by
// what stands around it (`People`).

/// Where a row names somebody.
struct NamedPerson {
    std::string name;      ///< as printed, with the family's
    std::string folded;    ///< tells people apart
    std::size_t first = 0; ///< index of its first word in the row
    std::size_t last = 0;
    std::optional<taxcore::Date> birthDate;
};

/// Whether a word begins with a capital letter and goes on small, as names do.
bool isCapitalised(const RowWord& word);
/// "und", "et", "e", "&"
bool isJoin(const RowWord& word);
/// Whether a word joins two names of one cell: "Anna und Beat Muster".
bool joinsNames(const Row& row, std::size_t at);
/// The name that words of a row are.
NamedPerson nameFrom(const Row& row, std::size_t first, std::size_t last);

/// Two capitalised words from a word on; absent for others, and beyond the row.
std::optional<NamedPerson> nameAt(const Row& row, std::size_t at);
/// Two or three capitalised words that end at or before a word, next to it; before a birth a first
/// name alone is one too.
std::optional<NamedPerson> nameBefore(const Row& row, std::size_t end);

/// The day that begins with a word, in figures or words.
std::optional<taxcore::Date> dayAt(const Row& row, std::size_t at);
/// The name above a day of birth: right above the words that begin its cell, in the cell over it in
/// a row of such days, or broken off at the end of the row above.
std::optional<NamedPerson> nameAboveDay(const Row& row, std::size_t day, const Row& above);
/// Whom a social security number is of: the name before it, or the cell above it. Absent for other
/// words.
std::optional<NamedPerson> nameOfInsured(const Row& row, std::size_t at, const Row* above);

/// The family (folded) of two or more cells that are each a name of it and nothing else; empty for
/// none.
std::string familyOfCells(const Row& row);
/// The families (folded) of those whom a salutation names: "die Rente von Frau Anna Muster".
std::vector<std::string> familiesOfSaluted(const Row& row);
/// The names a list strings together behind a word for several children: "Kinder: Lea, Mia und Noah
/// Muster". Empty when there are not several.
std::vector<NamedPerson> listedChildren(const Row& row);

/// The name that is all a row says before its amounts, or all its first cell says; a bullet or the
/// word for a sum may stand before it.
std::optional<NamedPerson> nameOfAmount(const Row& row);
/// The name that is all a row's first cell says where amounts follow below, as that of a child over
/// its costs.
std::optional<NamedPerson> nameOverAmounts(const PageRows& page, std::size_t at);
/// Whom the cells of a row name behind the word for whose contract or account it is:
/// "Stipulante: Anna Muster   Stipulante: Beat Muster".
std::vector<NamedPerson> holdersIn(const Row& row);

} // namespace fiscarel
