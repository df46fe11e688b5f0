#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"
#include "Fiscarel_SG/documents/kinds/RowNames.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel {

/// The people a document tells: those beside a birth date, a social security number or a label such
/// as "Kind", those listed behind "Kinder", two that "und" joins, several of one family in a table,
/// and others of the same families.
class People {
  public:
    explicit People(const DocumentRows& document);

    /// The people a row names, from left to right. Where several are told as born or as children,
    /// only these, and by their first names alone too.
    std::vector<NamedPerson> in(const Row& row) const;

    /// The people whose names are cells of their own in a row, each with the cell's first and last
    /// word; those whom the paper is addressed to as a couple by their first names alone too. Empty
    /// unless there are several.
    std::vector<NamedPerson> inCells(const Row& row) const;

    /// The one of a couple that the paper is addressed to whose name is all a row says, in whatever
    /// order: "Muster-Beispiel Anna".
    std::optional<NamedPerson> spouseOf(const Row& row) const;

    /// Those told with a day of birth or as children, by their first names (folded).
    const std::map<std::string, NamedPerson>& born() const { return born_; }

  private:
    void look(const Row& row, const Row* above);
    /// Takes up who was born on a day of a row.
    void lookAtDay(const Row& row, std::size_t at, const Row* above);
    void takeCouple(const Row& row, std::size_t join);
    void takeReversed(const std::set<std::pair<std::string, std::string>>& inTables,
                      const std::set<std::pair<std::string, std::string>>& elsewhere);
    bool isFamily(const std::string& folded) const { return families_.contains(folded); }

    std::set<std::string> families_;
    std::set<std::string> reversed_; ///< families that a table names before the first name
    std::map<std::string, NamedPerson> born_;
    std::map<std::string, NamedPerson> couple_; ///< by their first names
};

/// Whether a document names two people in a line, as spouses are addressed.
bool namesTwo(const DocumentRows& document);

} // namespace fiscarel
