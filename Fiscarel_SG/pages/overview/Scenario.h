#pragma once

// "What would be if": single values of a case that are changed in a copy of it. Knows no widgets.

#include "TaxCore/regions/CaseCalculator.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace fiscarel::pages {

using taxcore::Decimal;
using taxcore::TaxCase;

/// One value that could be another one; francs.
struct Lever {
    std::string id;    ///< stable for the thing it moves: "pillar3a-1"
    std::string label; ///< German: "Säule 3a – Nora"
    std::string help;  ///< one German sentence
    Decimal now;       ///< what the case counts with
    Decimal least;
    Decimal most;
    int step = 100;
    /// Writes a value into a case; one that no longer holds the thing stays as it is.
    std::function<void(TaxCase&, const Decimal&)> apply;

    /// Positions of a slider: `least` at 0, then in steps, `most` at the last one.
    int lastPosition() const;
    Decimal at(int position) const;
    /// The position nearest to a value.
    int positionOf(const Decimal& value) const;
};

/// The values worth moving in a case, those of the persons first. Limits of pillar 3a are the law's
/// (BVV 3 Art. 7 Abs. 1); the other ends are chosen to leave room.
std::vector<Lever> leversOf(const TaxCase& taxCase, const taxcore::CaseCalculator& calculator);

/// Which levers were moved where to.
class Scenario {
  public:
    /// Takes the levers of a case that changed; those moved stay where they were moved to as long
    /// as they are still there and that is somewhere else than now.
    void setLevers(std::vector<Lever> levers);
    const std::vector<Lever>& levers() const noexcept { return levers_; }

    Decimal value(const Lever& lever) const;
    bool isMoved(const Lever& lever) const { return moved_.contains(lever.id); }
    bool isMoved() const noexcept { return !moved_.empty(); }

    /// Moves a lever, held within its ends; back to `now` is as if it was never moved.
    void move(const Lever& lever, const Decimal& value);
    void reset() { moved_.clear(); }

    /// The case with everything that was moved.
    TaxCase applied(TaxCase taxCase) const;

  private:
    std::vector<Lever> levers_;
    std::map<std::string, Decimal> moved_; ///< by id
};

} // namespace fiscarel::pages
