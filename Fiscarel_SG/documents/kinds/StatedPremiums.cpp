#include "Fiscarel_SG/documents/kinds/StatedPremiums.h"

#include "Fiscarel_SG/documents/kinds/SumText.h"

#include <algorithm>

namespace fiscarel {

namespace {

using enum Concept;

/// An amount with the words between it and the one before.
struct Told {
    FoundAmount found;
    Row before;
};

const Labels& remains() {
    static const Labels words{"bleib*", "verbleib*", "netto*",         "zu Ihren Lasten",
                              "selbst", "reste*",    "à votre charge", "net",
                              "nets",   "resta*",    "rimane*",        "rimanent*",
                              "carico", "netto",     "remain*",        "you pay*"};
    return words;
}

/// All amounts in the order of reading.
std::vector<Told> toldIn(const std::vector<RowRange>& ranges) {
    std::vector<Told> all;
    for (const RowRange& range : ranges) {
        Row before;
        for (std::size_t at = range.first; at < range.end; ++at) {
            const Row& row = range.page->rows[at];
            std::size_t from = 0;
            for (const RowAmount& amount : row.amounts) {
                if (!amount.amount.isFirm()) {
                    continue;
                }
                for (std::size_t i = from; i < amount.first; ++i) {
                    before.words.push_back(row.words[i]);
                }
                all.push_back({{.page = range.page, .row = at, .amount = amount, .isBelow = true},
                               std::move(before)});
                before = {};
                from = amount.last + 1;
            }
            for (std::size_t i = from; i < row.words.size(); ++i) {
                before.words.push_back(row.words[i]);
            }
        }
        all.push_back({{.page = range.page}, std::move(before)}); // what follows the last
    }
    return all;
}

class Sums {
  public:
    explicit Sums(const std::vector<RowRange>& ranges) : all_(toldIn(ranges)) {}

    std::optional<PremiumRow> find() const {
        for (std::size_t i = 0; i < all_.size(); ++i) {
            if (!isAmount(i)
                || (!names(i, premium) && !names(i + 1, premium) && !names(i + 2, premium))
                || isOfIllness(at(i))) {
                continue;
            }
            PremiumRow row{at(i), std::nullopt, {}};
            row.gross.label = "Prämien";
            addParts(i + 1, row);
            if (row.checks.empty()) { // another amount beside it, the parts below
                addParts(i + 2, row);
            }
            addReduction(row);
            if (!row.checks.empty()) {
                return row;
            }
        }
        return std::nullopt;
    }

  private:
    const FoundAmount& at(std::size_t i) const { return all_[i].found; }
    bool isAmount(std::size_t i) const { return i < all_.size() && at(i).value() >= 1; }

    bool names(std::size_t i, Concept meant) const {
        return i < all_.size() && namesAny(all_[i].before, {meant}, at(i).page->isRecognised);
    }

    /// Whether the words before an amount in its row tell of costs of illness.
    static bool isOfIllness(const FoundAmount& found) {
        const Row& row = found.rowOf();
        Row before;
        for (std::size_t i = 0; i < found.amount.first; ++i) {
            before.words.push_back(row.words[i]);
        }
        for (const RowAmount& amount : row.amounts) {
            if (amount.last < found.amount.first) {
                before.words.assign(
                    row.words.begin() + static_cast<std::ptrdiff_t>(amount.last) + 1,
                    row.words.begin() + static_cast<std::ptrdiff_t>(found.amount.first));
            }
        }
        return namesAny(before, {costSharing}, found.page->isRecognised);
    }

    /// The premiums by law from an amount on that add up to them.
    void addParts(std::size_t first, PremiumRow& row) const {
        Decimal sum;
        std::vector<Decimal> values;
        bool isBasic = false;
        bool isExtra = false;
        for (std::size_t part = first; isAmount(part) && part <= first + 2; ++part) {
            sum = sum + at(part).value();
            values.push_back(at(part).value());
            isBasic |= names(part, basicInsurance) || names(part + 1, basicInsurance);
            isExtra |= names(part, extraInsurance) || names(part + 1, extraInsurance);
            if (part > first && sum == row.gross.value() && isBasic && isExtra) {
                row.checks.push_back(
                    {sumText(values, sum) + ", die Prämien mit den Zusatzversicherungen", true});
                return;
            }
        }
    }

    /// What was taken off them, beside what was left.
    void addReduction(PremiumRow& row) const {
        for (std::size_t i = 0; i + 1 < all_.size(); ++i) {
            if (!isAmount(i) || !isAmount(i + 1)
                || at(i).value() + at(i + 1).value() != row.gross.value()
                || (!names(i, reduction) && !names(i + 1, reduction))) {
                continue;
            }
            const bool isRecognised = row.gross.page->isRecognised;
            const bool isRestFirst = findLabel(all_[i].before, remains(), isRecognised)
                                     && !findLabel(all_[i + 1].before, remains(), isRecognised);
            const FoundAmount& rest = at(isRestFirst ? i : i + 1);
            row.reduction = at(isRestFirst ? i + 1 : i);
            row.reduction->label = "Verbilligung";
            row.checks.push_back(
                reducedCheck(row.gross.value(), row.reduction->value(), rest.value()));
            return;
        }
    }

    std::vector<Told> all_;
};

} // namespace

ProposalCheck reducedCheck(const Decimal& gross, const Decimal& reduction, const Decimal& net) {
    const Decimal computed = gross - reduction;
    const bool holds = computed == net;
    return {sumText({gross, -reduction}, computed)
                + (holds ? ", die Prämien nach der Verbilligung"
                         : ", nach der Verbilligung steht aber " + shown(net)),
            holds};
}

std::optional<PremiumRow> findStatedPremiums(const std::vector<RowRange>& ranges) {
    return Sums(ranges).find();
}

} // namespace fiscarel
