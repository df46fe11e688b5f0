#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/FormHeader.h"
#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

#include <algorithm>
#include <array>

namespace fiscarel {

namespace {

using enum Concept;

constexpr std::size_t mostCandidates = 6; ///< for a box

struct BoxWords {
    SalaryBox box;
    Wanted wanted;
    Labels vague = {}; ///< words that mean it among the amounts of a wage only
};

/// What a list calls the boxes of the form; the surest meaning first.
const std::array<BoxWords, 5>& boxWords() {
    static const Labels employers{"Arbeitgeber*", "employeur", "datore"};
    static const std::array<BoxWords, 5> rows{
        BoxWords{SalaryBox::gross,
                 {{},
                  employers,
                  true,
                  {{gross, wage, total},
                   {gross, wage},
                   {gross, total},
                   {gross},
                   {wage, total},
                   {wage, yearly},
                   {wage}},
                  {net, other, pension}}},
        BoxWords{SalaryBox::net,
                 {{}, employers, true, {{net, wage}, {net}}, {gross, other, pension}}},
        BoxWords{SalaryBox::buyIn, {{}, employers, true, {{buyIn}}, {possible}}},
        BoxWords{SalaryBox::social,
                 {{}, employers, true, {{social, total}, {social}}, {gross, net, buyIn, pension}}},
        BoxWords{SalaryBox::pensionFund,
                 {{},
                  employers,
                  true,
                  {{occupational, total}, {occupational}, {ordinary}},
                  {gross, net, buyIn, social, pension}},
                 {"*vorsorge*", "PK", "PK-*", "prévoyance*", "previdenza*", "Altersvorsorge*"}},
    };
    return rows;
}

using Candidates = std::vector<std::optional<FoundAmount>>;

/// All amounts that may be a box, the surest first; of deductions also none.
Candidates candidatesOf(const std::vector<RowRange>& ranges, const BoxWords& words) {
    Candidates found;
    std::vector<Wanted> ways;
    for (const Meaning& meaning : words.wanted.meanings) {
        ways.push_back(words.wanted);
        ways.back().meanings = {meaning};
    }
    ways.push_back(words.wanted);
    ways.back().meanings.clear();
    ways.back().labels = words.vague;
    for (const Wanted& one : ways) {
        for (FoundAmount& amount : findAmounts(ranges, one)) {
            const bool isKnown = std::ranges::any_of(found, [&](const auto& known) {
                return known->row == amount.row && known->page == amount.page
                       && known->value() == amount.value();
            });
            if (!isKnown && amount.amount.amount.isFirm() && found.size() < mostCandidates) {
                found.push_back(std::move(amount));
            }
        }
    }
    return found;
}

Decimal valueOf(const std::optional<FoundAmount>& found) {
    return found ? found->value().abs() : Decimal();
}

/// The contributions of a list that names each insurance apart, as one.
std::optional<FoundAmount> sumOf(const Candidates& parts) {
    if (parts.size() < 2) {
        return std::nullopt;
    }
    FoundAmount whole = *parts.front();
    Decimal sum;
    for (const auto& part : parts) {
        sum = sum + valueOf(part);
    }
    whole.amount.amount.value = sum;
    return whole;
}

/// Candidates by box, in the order of `boxWords`.
using Table = std::array<Candidates, 5>;

/// The choice of one candidate for each box: the first that adds up, else the first of all.
struct Choice {
    std::array<std::optional<FoundAmount>, 5> boxes;
    bool isProven = false;
};

class Search {
  public:
    explicit Search(Table table) : table_(std::move(table)) {}

    Choice run() {
        Choice first;
        for (std::size_t box = 0; box < table_.size(); ++box) {
            first.boxes[box] = table_[box].empty() ? std::nullopt : table_[box].front();
            current_.boxes[box] = std::nullopt;
            if (box >= 2) {
                if (auto sum = sumOf(table_[box])) {
                    table_[box].push_back(std::move(sum));
                }
                if (table_[box].empty()) { // what is printed is not left out
                    table_[box].push_back(std::nullopt);
                }
            }
        }
        return tryBox(0) ? current_ : first;
    }

  private:
    bool tryBox(std::size_t box) {
        if (box == table_.size()) {
            return addsUp();
        }
        for (const auto& candidate : table_[box]) {
            current_.boxes[box] = candidate;
            const bool isUsed = candidate && isTaken(box, *candidate);
            if (!isUsed && tryBox(box + 1)) {
                return true;
            }
        }
        return false;
    }

    bool isTaken(std::size_t box, const FoundAmount& candidate) const {
        return std::any_of(current_.boxes.begin(),
                           current_.boxes.begin() + static_cast<std::ptrdiff_t>(box),
                           [&](const auto& other) {
                               return other && other->page == candidate.page
                                      && other->amount.first == candidate.amount.first
                                      && other->row == candidate.row;
                           });
    }

    bool addsUp() {
        const Decimal deductions =
            valueOf(current_.boxes[2]) + valueOf(current_.boxes[3]) + valueOf(current_.boxes[4]);
        const auto check =
            netSalaryCheck(valueOf(current_.boxes[0]), deductions, valueOf(current_.boxes[1]));
        current_.isProven = check && check->passed && deductions >= 1;
        return current_.isProven;
    }

    Table table_;
    Choice current_;
};

bool isLiechtenstein(const DocumentRows& document) {
    static const Labels names{"Fürstentum Liechtenstein", "PEID", "PEID-Nr", "BPVG"};
    return isAnyIn(document.folded, names);
}

} // namespace

bool isProven(const SalaryForm& form) {
    const auto value = [&](SalaryBox box) { return form.value(box).value_or(Decimal()); };
    const Decimal deductions =
        value(SalaryBox::social) + value(SalaryBox::pensionFund) + value(SalaryBox::buyIn);
    const auto check =
        netSalaryCheck(form.value(SalaryBox::gross), deductions, form.value(SalaryBox::net));
    return check && check->passed && deductions >= 1;
}

std::optional<SalaryForm> readSalaryList(const DocumentRows& document) {
    const auto ranges = wholeDocument(document);
    Table table;
    for (std::size_t box = 0; box < table.size(); ++box) {
        table[box] = candidatesOf(ranges, boxWords()[box]);
    }
    if (table[0].empty() || table[1].empty()) {
        return std::nullopt;
    }
    const Choice choice = Search(std::move(table)).run();
    SalaryForm form{.page = choice.boxes[0]->page, .isLiechtenstein = isLiechtenstein(document)};
    double top = choice.boxes[0]->rowOf().top;
    for (std::size_t box = 0; box < choice.boxes.size(); ++box) {
        if (const auto& found = choice.boxes[box]; found && found->page == form.page) {
            form.boxes[boxWords()[box].box] = found->amount;
            form.boxes[boxWords()[box].box].amount.value = found->value().abs();
            top = std::min(top, found->rowOf().top);
        }
    }
    readFormHeader(*form.page, top, form);
    return form;
}

} // namespace fiscarel
