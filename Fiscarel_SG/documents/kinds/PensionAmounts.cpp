#include "Fiscarel_SG/documents/kinds/PensionAmounts.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/PensionClauses.h"
#include "Fiscarel_SG/documents/kinds/PensionWords.h"
#include "Fiscarel_SG/documents/kinds/RowSums.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

namespace fiscarel {

namespace {

constexpr std::size_t farthest = 12; ///< amounts between a sum and its parts

/// Currencies other than francs.
bool isForeign(const RowWord& word) {
    static const std::set<std::string> names{"eur", "euro", "usd", "gbp", "dollar", "pfund"};
    return names.contains(word.folded) || word.text == "€" || word.text == "$" || word.text == "£";
}

/// Whether an amount is in francs where a paper speaks of another currency too.
bool isInFrancs(const Row& row, const RowAmount& amount) {
    static const std::set<std::string> names{"chf", "fr", "sfr", "franken", "francs", "franchi"};
    const auto isAt = [&](std::size_t at) {
        return at < row.words.size() && names.contains(row.words[at].folded);
    };
    return amount.amount.hasCurrency || isAt(amount.last + 1)
           || (amount.first > 0 && isAt(amount.first - 1)) || isAt(amount.first);
}

/// Whether the heading of its column says so.
bool isUnderFrancs(const PageRows& page, std::size_t at, const RowAmount& amount) {
    static const std::set<std::string> names{"chf", "fr", "sfr", "franken", "francs", "franchi"};
    const Row heading = headingOver(page, at, amount);
    return std::ranges::any_of(heading.words,
                               [&](const RowWord& word) { return names.contains(word.folded); })
           && std::ranges::none_of(heading.words, isForeign);
}

/// Rates of exchange: "0.9637", which are no amounts.
std::vector<Decimal> ratesIn(const DocumentRows& document) {
    std::vector<Decimal> rates;
    for (const PageRows& page : document.pages) {
        for (const Row& row : page.rows) {
            for (const RowWord& word : row.words) {
                const std::size_t point = word.text.find('.');
                const bool isRate =
                    point != std::string::npos && point >= 1 && point <= 3
                    && word.text.size() - point >= 4 && word.text.size() - point <= 7
                    && word.text.find_first_not_of("0123456789.") == std::string::npos
                    && std::ranges::count(word.text, '.') == 1;
                if (const auto rate = Decimal::parse(word.text); isRate && rate) {
                    rates.push_back(*rate);
                }
            }
        }
    }
    return rates;
}

/// Whether the row below one has an amount.
bool isBeforeAmount(const PageRows& page, const Row& row) {
    const auto next = static_cast<std::size_t>(&row - page.rows.data()) + 1;
    return next < page.rows.size() && hasFirmAmount(page.rows[next]);
}

/// Whether a row, or the next one, tells of payments that a number may count: "in zwölf gleichen
/// Raten".
bool tellsTimes(const PageRows& page, const Row& row) {
    static const Labels words{"mal",         "fois",        "volte",     "Rate",      "Raten",
                              "rate",        "tranches",    "acomptes",  "versement", "versements",
                              "versamento",  "versamenti",  "pagamenti", "paiements", "*zahlung",
                              "*zahlungen",  "monatliche*", "mensuel*",  "mensil*",   "payments",
                              "Halbjahres*", "Quartals*",   "Monats*",   "semestr*",  "trimestr*"};
    const auto next = static_cast<std::size_t>(&row - page.rows.data()) + 1;
    return isAnyIn(row.folded, words)
           || (next < page.rows.size() && isAnyIn(page.rows[next].folded, words));
}

/// Whether a word is a cell of its own, as in a column of months.
bool isCell(const Row& row, std::size_t word) {
    const auto cells = cellsOf(row);
    return std::ranges::any_of(
        cells, [&](const LabelPlace& cell) { return cell.first == word && cell.last == word; });
}

/// Whether a number and the word behind it, or below it where its row ends, count months or days.
bool countsUnits(const PageRows& page, const Row& row, std::size_t word) {
    const auto next = static_cast<std::size_t>(&row - page.rows.data()) + 1;
    const bool isLast = word + 1 == row.words.size();
    return isLast && next < page.rows.size()
           && isAnyIn(page.rows[next].words.front().folded, countedUnits());
}

/// Numbers that count months or days: "12 ×", "(3 Monate)", "26 Tage zu", or in a column below
/// such a word; other numbers ("für 2 Kinder") count something else.
std::set<int> unitCounts(const DocumentRows& document) {
    std::set<int> counts{12};
    for (const PageRows& page : document.pages) {
        bool areTold = false; // months or days, in one of the rows so far
        for (const Row& row : page.rows) {
            const bool isOfMonths = findLabel(row, countedUnits(), page.isRecognised).has_value();
            areTold |= isOfMonths;
            for (std::size_t i = 0; i < row.words.size(); ++i) {
                const std::string& text = row.words[i].folded;
                const bool isInAmount =
                    std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
                        return amount.first < amount.last && amount.first <= i && i <= amount.last;
                    });
                if (isInAmount) { // "2 582.00"
                    continue;
                }
                const auto count = smallNumber(text, 3);
                const auto told = count ? std::nullopt : countInWords(text);
                if (told && (isOfMonths || tellsTimes(page, row))
                    && (hasFirmAmount(row) || isBeforeAmount(page, row))) {
                    counts.insert(*told);
                }
                const bool isProduct = row.folded.find(" x ") != std::string::npos
                                       || std::ranges::any_of(row.words, [](const RowWord& one) {
                                              return one.text.find("×") != std::string::npos;
                                          });
                const bool isInColumn = areTold && count && hasFirmAmount(row) && isCell(row, i);
                if (count && (isOfMonths || isProduct || isInColumn || countsUnits(page, row, i))) {
                    counts.insert(*count);
                }
            }
        }
    }
    return counts;
}

class Arithmetic {
  public:
    Arithmetic(std::vector<PensionAmount>& amounts, const DocumentRows& document, Benefit benefit)
        : amounts_(amounts), document_(document), benefit_(benefit),
          isGrossTaxed_(benefit == Benefit::allowances && saysGrossTaxed(document)) {}

    void run() {
        convert();
        if (benefit_ == Benefit::allowances) {
            deduct();
        }
        multiply();
        if (benefit_ == Benefit::pension) {
            addExtras();
        }
        addUpColumns();
        addUp();
        repeat();
    }

  private:
    /// A foreign amount by the rate of exchange.
    void convert() {
        constexpr std::size_t mostRates = 100; // one of more fits about any amount by chance
        std::set<Decimal> known;
        auto rates = ratesIn(document_);
        std::erase_if(rates, [&](const Decimal& rate) { return !known.insert(rate).second; });
        if (rates.empty() || rates.size() > mostRates) {
            return;
        }
        std::multimap<Decimal, PensionAmount*> open; // by value
        for (PensionAmount& one : amounts_) {
            if (!one.isBarred && one.checks.empty()) {
                open.emplace(one.found.value(), &one);
            }
        }
        for (const PensionAmount& other : amounts_) {
            for (std::size_t i = 0; i < rates.size() && other.isBarred; ++i) {
                convertBy(other, rates[i], open);
            }
        }
    }

    /// Takes those out that a foreign amount comes to, to the hundredth.
    static void convertBy(const PensionAmount& foreign, const Decimal& rate,
                          std::multimap<Decimal, PensionAmount*>& open) {
        static const Decimal hundredth = Decimal(1) / 100;
        const Decimal value = foreign.found.value() * rate;
        auto at = open.lower_bound(value - hundredth);
        while (at != open.end() && at->first <= value + hundredth) {
            at->second->checks.push_back({shown(foreign.found.value()) + " × " + rate.toString()
                                              + " = " + shown(at->first)
                                              + ", in Franken umgerechnet",
                                          true});
            at = open.erase(at);
        }
    }

    /// What is left of allowances when contributions are taken off: in a row, or row by row.
    void deduct() {
        for (std::size_t gross = 0; gross < amounts_.size(); ++gross) {
            Decimal rest = amounts_[gross].found.value();
            bool isSocial = false;
            for (std::size_t at = gross + 1; at < std::min(amounts_.size(), gross + 7); ++at) {
                const PensionAmount& part = amounts_[at];
                const bool isNet = at > gross + 1 && part.found.value().abs() == rest
                                   && (isSocial || names(part, Concept::net));
                if (isNet) {
                    takeNet(gross, at);
                    break;
                }
                isSocial |= names(part, Concept::social);
                rest = rest - part.found.value().abs();
                if (rest < 1) {
                    break;
                }
            }
        }
    }

    void takeNet(std::size_t gross, std::size_t net) {
        const std::size_t taken = isGrossTaxed_ ? gross : net;
        std::vector<Decimal> parts;
        for (std::size_t at = gross; at <= net; ++at) {
            amounts_[at].isFactor |= at != taken;
            const Decimal value = amounts_[at].found.value();
            if (at < net) {
                parts.push_back(at == gross ? value : -value.abs());
            }
        }
        amounts_[taken].checks.push_back(
            {sumText(parts, amounts_[net].found.value().abs()) + ", was nach den Abzügen bleibt",
             true});
    }

    static bool names(const PensionAmount& one, Concept meant) {
        return namesAny(one.words, {meant}, one.found.page->isRecognised);
    }

    /// Months or days by their rate.
    void multiply() {
        const auto counts = unitCounts(document_);
        const int most = benefit_ == Benefit::pension ? 12 : 366;
        for (std::size_t i = 0; i < amounts_.size(); ++i) {
            const std::size_t first = i < farthest ? 0 : i - farthest;
            for (std::size_t j = first; j < std::min(amounts_.size(), i + farthest); ++j) {
                PensionAmount& rate = amounts_[j];
                PensionAmount& whole = amounts_[i];
                for (const int months : counts) {
                    const bool canBeWhole = !whole.isBarred || whole.isTaxFree;
                    const bool isProduct = months >= 2 && months <= most && canBeWhole
                                           && rate.found.value() >= 1
                                           && rate.found.value() * months == whole.found.value();
                    rate.isFactor |= isProduct;
                    if (isProduct && whole.months == 0) {
                        whole.months = benefit_ == Benefit::pension ? months : 0;
                        whole.rate = rate.found.amount.place;
                        whole.checks.push_back({productText(months, rate.found.value()), true});
                    }
                }
            }
        }
    }

    /// Twelve months by their rate with what was paid once on top.
    void addExtras() {
        constexpr int months = 12;
        for (std::size_t i = 0; i < amounts_.size(); ++i) {
            PensionAmount& whole = amounts_[i];
            const auto first =
                amounts_.begin() + static_cast<std::ptrdiff_t>(i - std::min(i, farthest));
            const auto end = amounts_.begin()
                             + static_cast<std::ptrdiff_t>(std::min(amounts_.size(), i + farthest));
            for (auto rate = first; rate != end && whole.canBePension(); ++rate) {
                const bool isRate = rate->isFactor && !rate->isBarred && !whole.isProven();
                const Decimal extra =
                    isRate ? whole.found.value() - rate->found.value() * months : Decimal();
                const bool isOnce = extra > 0 && extra < rate->found.value()
                                    && std::any_of(first, end, [&](const PensionAmount& one) {
                                           return !one.isBarred && one.found.value() == extra;
                                       });
                if (isOnce) {
                    whole.months = months;
                    whole.rate = rate->found.amount.place;
                    whole.checks.push_back({std::to_string(months) + " × "
                                                + shown(rate->found.value()) + " + " + shown(extra)
                                                + " = " + shown(whole.found.value()),
                                            true});
                }
            }
        }
    }

    /// A total by those above it in its column.
    void addUpColumns() {
        for (PensionAmount& whole : amounts_) {
            auto check = whole.canBePension() && !whole.found.isBelow ? columnCheck(whole.found)
                                                                      : std::nullopt;
            if (!check) {
                continue;
            }
            std::vector<PensionAmount*> parts;
            Decimal sum;
            for (auto part = amounts_.rbegin();
                 part != amounts_.rend() && sum < whole.found.value(); ++part) {
                const bool isAbove = part->found.page == whole.found.page
                                     && part->found.row < whole.found.row
                                     && isInColumn(part->found, whole.found);
                if (isAbove) {
                    sum = sum + part->found.value();
                    parts.push_back(&*part);
                }
            }
            if (sum != whole.found.value()) {
                continue; // what is left after something was set off
            }
            if (std::ranges::any_of(parts, [](const PensionAmount* part) {
                    return part->isTaxFree || part->isOthers;
                })) {
                whole.isBarred = true;
                continue;
            }
            for (PensionAmount* part : parts) {
                part->isPart = true;
            }
            whole.checks.push_back(std::move(*check));
        }
    }

    /// What is said to be taxed, where it stands a second time with a proof.
    void repeat() {
        std::map<Decimal, const PensionAmount*> proven; // the first of each value
        for (const PensionAmount& one : amounts_) {
            if (one.isProven() && one.canBePension()) {
                proven.emplace(one.found.value(), &one);
            }
        }
        for (PensionAmount& one : amounts_) {
            const auto other = one.isForTax ? proven.find(one.found.value()) : proven.end();
            if (other != proven.end() && one.canBePension() && !one.isProven()) {
                one.checks = other->second->checks;
            }
        }
    }

    static bool isInColumn(const FoundAmount& one, const FoundAmount& other) {
        return std::abs(one.amount.place.right - other.amount.place.right)
               <= alignment(*other.page);
    }

    /// A total by the amounts before it, or by those that explain it behind.
    void addUp() {
        for (std::size_t i = 0; i < amounts_.size(); ++i) {
            if (amounts_[i].canBePension()) {
                addUp(i, -1);
                addUp(i, 1);
            }
        }
    }

    void addUp(std::size_t total, int step) {
        Decimal sum;
        std::vector<std::size_t> parts;
        bool isBarred = false; ///< more than what is taxed
        for (auto at = static_cast<std::ptrdiff_t>(total) + step;
             at >= 0 && at < std::ssize(amounts_) && parts.size() < farthest; at += step) {
            const PensionAmount& part = amounts_[static_cast<std::size_t>(at)];
            if (part.isFactor || (part.isBarred && !part.isTaxFree && !part.isOthers)) {
                continue;
            }
            sum = sum + part.found.value();
            isBarred |= part.isTaxFree || part.isOthers;
            parts.push_back(static_cast<std::size_t>(at));
            if (sum >= amounts_[total].found.value()) {
                break;
            }
        }
        PensionAmount& whole = amounts_[total];
        if (parts.size() < 2 || sum != whole.found.value()) {
            return;
        }
        if (isBarred) {
            whole.isBarred = true;
            return;
        }
        for (const std::size_t part : parts) {
            amounts_[part].isPart = true;
        }
        std::vector<Decimal> values(parts.size());
        std::ranges::transform(parts, values.begin(),
                               [&](std::size_t part) { return amounts_[part].found.value(); });
        whole.checks.push_back({partsText("Teile", values, sum), true});
    }

    std::vector<PensionAmount>& amounts_;
    const DocumentRows& document_;
    Benefit benefit_;
    bool isGrossTaxed_; ///< what contributions were taken of is to be declared
};

/// Whether a newer year's amount stands beside one in its row, as the headings tell.
bool isOfOlderYear(const PageRows& page, std::size_t at, const RowAmount& amount) {
    const RowAmount* newest = runsOn(page.rows[at]) ? nullptr : newestIn(page, at);
    return newest != nullptr && newest != &amount;
}

/// What the words of the amount at an index of its row say.
PensionAmount told(PensionAmount one, std::size_t index, Benefit benefit) {
    const PageRows& page = *one.found.page;
    const Row& row = one.found.rowOf();
    const bool isRecognised = page.isRecognised;
    one.found.isBelow = runsOn(row);
    one.words = wordsOfClause(page, one.found.row, index);
    one.isTaxFree =
        findLabel(one.found.isBelow ? one.words : row, taxFree(), isRecognised) || endsInNo(row);
    one.isForTax = !one.isTaxFree && saysTaxed(one.words, isRecognised);
    one.isBarred = one.isTaxFree || findLabel(one.words, noPension(), isRecognised)
                   || isOfOlderYear(page, one.found.row, row.amounts[index])
                   || (namesAny(one.words, {Concept::wage}, isRecognised)
                       && !namesAny(one.words, {Concept::pension}, isRecognised));
    one.isFactor = findLabel(one.words, perMonth(), isRecognised).has_value();
    if (benefit == Benefit::allowances) {
        one.isOthers = findLabel(one.words, employers(), isRecognised).has_value();
        one.isBarred |=
            one.isOthers || findLabel(one.words, noAllowance(), isRecognised).has_value();
        one.isFactor |= findLabel(one.words, perDay(), isRecognised)
                        || isOneDay(one.words, one.found.value(), isRecognised);
    }
    return one;
}

} // namespace

std::vector<PensionAmount> pensionAmounts(const DocumentRows& document, Benefit benefit) {
    const bool hasForeign = std::ranges::any_of(document.pages, [](const PageRows& page) {
        return std::ranges::any_of(
            page.rows, [](const Row& row) { return std::ranges::any_of(row.words, isForeign); });
    });
    std::vector<PensionAmount> amounts;
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            for (std::size_t i = 0; i < row.amounts.size(); ++i) {
                const RowAmount& amount = row.amounts[i];
                const PrintedAmount& printed = amount.amount;
                const bool isYear = !printed.hasDecimals && !printed.hasMark // "2024 CHF 5.00"
                                    && printed.value >= 1990 && printed.value < 2100;
                const bool isTakenOff = benefit == Benefit::allowances && printed.value < 0;
                if (isYear || (printed.value < 1 && !isTakenOff)
                    || (!printed.isFirm() && !isInFrancs(row, amount))) {
                    continue;
                }
                amounts.push_back(
                    told({.found = {.page = &page, .row = at, .amount = amount}}, i, benefit));
                amounts.back().isBarred |=
                    isTakenOff
                    || (hasForeign && !isInFrancs(row, amount) && !isUnderFrancs(page, at, amount));
            }
        }
    }
    Arithmetic(amounts, document, benefit).run();
    return amounts;
}

} // namespace fiscarel
