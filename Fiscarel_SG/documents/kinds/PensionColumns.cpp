#include "Fiscarel_SG/documents/kinds/PensionColumns.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <cmath>

namespace fiscarel {

namespace {

using Parts = std::vector<std::pair<NamedPerson, const PensionAmount*>>;

/// A row that names people side by side, with what stands under each.
class NamedColumns {
  public:
    NamedColumns(const PageRows& page, std::size_t row, std::vector<NamedPerson> people)
        : page_(page), row_(row), people_(std::move(people)), best_(people_.size()) {}

    /// Of a person's amounts a proven one counts before others; two that differ dispute each other.
    void take(const PensionAmount& one) {
        if (one.found.page != &page_ || one.found.row <= row_ || one.found.isBelow) {
            return;
        }
        const auto person = personOver(one);
        if (!person) {
            return;
        }
        const PensionAmount*& best = best_[*person];
        const bool isAhead = best == nullptr || weightOf(one) > weightOf(*best);
        const bool isDisputed = best != nullptr && weightOf(one) == weightOf(*best)
                                && one.found.value() != best->found.value();
        best = isAhead ? &one : best;
        isDisputed_ = (isDisputed_ && !isAhead) || isDisputed;
    }

    Parts read() const {
        Parts parts;
        for (std::size_t i = 0; i < people_.size() && !isDisputed_; ++i) {
            if (best_[i] == nullptr) {
                return {};
            }
            parts.emplace_back(people_[i], best_[i]);
        }
        return parts;
    }

  private:
    static int weightOf(const PensionAmount& one) {
        return (one.isProven() && !one.isPart ? 2 : 0) + (one.isForTax ? 1 : 0);
    }

    /// Whose column an amount stands in; the rate it is made of tells where it is not clear.
    std::optional<std::size_t> personOver(const PensionAmount& one) const {
        const auto own = cellOver(one.found.amount.place);
        return own || one.months == 0 ? own : cellOver(one.rate);
    }

    /// The person whose name is the nearest cell of the heading; none where that is another cell.
    std::optional<std::size_t> cellOver(const PagePlace& place) const {
        if (place.left >= page_.width) {
            return std::nullopt;
        }
        const auto distance = [&](const LabelPlace& cell) {
            return std::min({std::abs(cell.right - place.right), std::abs(cell.left - place.left),
                             std::abs(cell.left + cell.right - place.left - place.right) / 2});
        };
        const auto cells = cellsOf(page_.rows[row_]);
        const auto nearest = std::ranges::min_element(cells, {}, distance);
        const auto person = std::ranges::find(people_, nearest->first, &NamedPerson::first);
        const bool isFar = distance(*nearest) > page_.width / 5;
        return person == people_.end() || isFar
                   ? std::nullopt
                   : std::optional(static_cast<std::size_t>(person - people_.begin()));
    }

    const PageRows& page_;
    std::size_t row_;
    std::vector<NamedPerson> people_;
    std::vector<const PensionAmount*> best_; ///< by person
    bool isDisputed_ = false;
};

} // namespace

Parts pensionsInColumns(const DocumentRows& document, const People& people,
                        const std::vector<PensionAmount>& amounts) {
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            const Row& row = page.rows[at];
            auto named = row.words.size() >= 2 && !hasFirmAmount(row) ? people.inCells(row)
                                                                      : std::vector<NamedPerson>();
            if (named.size() < 2) {
                continue;
            }
            NamedColumns columns(page, at, std::move(named));
            for (const PensionAmount& one : amounts) {
                if (one.canBePension()) {
                    columns.take(one);
                }
            }
            if (auto parts = columns.read(); !parts.empty()) {
                return parts;
            }
        }
    }
    return {};
}

} // namespace fiscarel
