#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/DocumentFacts.h"
#include "Fiscarel_SG/documents/kinds/FlatExpenses.h"
#include "Fiscarel_SG/documents/kinds/FormHeader.h"
#include "Fiscarel_SG/documents/kinds/People.h"
#include "Fiscarel_SG/documents/kinds/Prose.h"
#include "Fiscarel_SG/documents/kinds/SalaryColumns.h"
#include "Fiscarel_SG/documents/kinds/SalaryRun.h"
#include "Fiscarel_SG/documents/kinds/SalaryTable.h"
#include "Fiscarel_SG/documents/kinds/SalaryWords.h"
#include "Fiscarel_SG/documents/kinds/WageHolders.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <array>

namespace fiscarel {

namespace {

using enum Concept;

constexpr std::size_t mostCandidates = 6; ///< for a box

using Candidates = std::vector<std::optional<FoundAmount>>;

/// Whether more than its digits speak for an amount, or at least those do: "54795".
bool canBeWage(const FoundAmount& one) {
    return one.amount.amount.isFirm()
           || (!one.amount.amount.isYearLike() && one.value() >= 1000 && one.value() < 1'000'000);
}

/// Whether the words before an amount name a quarter or half of a year.
bool isOfQuarter(const FoundAmount& one) {
    static const Labels quarters{"Quartal*",  "*quartal", "*quartals*", "trimestr*", "Halbjahr*",
                                 "*halbjahr", "semestr*", "quarter",    "1. Hälfte", "2. Hälfte",
                                 "Q1",        "Q2",       "Q3",         "Q4"};
    const Row& row = one.rowOf();
    Row stub;
    stub.words.assign(row.words.begin(),
                      row.words.begin() + static_cast<std::ptrdiff_t>(one.amount.first));
    return !isProse(row, one.page->isRecognised)
           && findLabel(stub, quarters, one.page->isRecognised);
}

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
    const auto take = [&](std::vector<FoundAmount> amounts) {
        for (FoundAmount& amount : amounts) {
            const bool isKnown = std::ranges::any_of(found, [&](const auto& known) {
                return known->row == amount.row && known->page == amount.page
                       && known->value() == amount.value();
            });
            if (!isKnown && canBeWage(amount) && found.size() < mostCandidates) {
                found.push_back(std::move(amount));
            }
        }
    };
    for (const Wanted& one : ways) {
        take(findAmounts(ranges, one));
    }
    if (found.size() > 1) { // beside others a quarter's is none of the year
        std::erase_if(found, [](const auto& one) { return isOfQuarter(*one); });
    }
    return found;
}

Decimal valueOf(const std::optional<FoundAmount>& found) {
    return found ? found->value().abs() : Decimal();
}

bool isAmong(const FoundAmount& one, const Candidates& others) {
    return std::ranges::any_of(others, [&](const auto& other) { return areSame(*other, one); });
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

/// Whether the first of several amounts is the only one, or comes to all others.
bool isFirstTheWhole(const Candidates& all) {
    Decimal rest;
    bool areSame = true;
    for (std::size_t i = 1; i < all.size(); ++i) {
        rest = rest + valueOf(all[i]);
        areSame &= valueOf(all[i]) == valueOf(all[0]);
    }
    return all.empty() || areSame || rest == valueOf(all[0]);
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
        current_.isProven =
            deductions >= 1
            && isNetSalary(valueOf(current_.boxes[0]), deductions, valueOf(current_.boxes[1]));
        return current_.isProven;
    }

    Table table_;
    Choice current_;
};

/// Deductions that a letter names behind their amounts, before those it names otherwise.
Candidates deductionsBehind(const std::vector<RowRange>& ranges, const BoxWords& words) {
    Candidates found;
    for (FoundAmount& amount : findBehindInProse(ranges, words.wanted)) {
        if (canBeWage(amount) && found.size() < mostCandidates) {
            found.push_back(std::move(amount));
        }
    }
    return found;
}

double topOf(const SalaryForm& form) {
    double top = form.page->height;
    for (const auto& [box, amount] : form.boxes) {
        top = form.elsewhere.contains(box) ? top : std::min(top, amount.place.top);
    }
    return top;
}

/// Several wages below one another, each with a heading that tells whose or whence it is.
class SalaryBlocks {
  public:
    explicit SalaryBlocks(const DocumentRows& document)
        : document_(document), facts_(readFacts(document)), people_(document) {}

    std::vector<SalaryForm> read() const {
        static const Wanted wages{{},
                                  {"Arbeitgeber*", "employeur", "datore"},
                                  true,
                                  {{gross, wage}, {gross, total}, {gross}},
                                  {net, other, pension}};
        std::vector<SalaryForm> forms;
        const PageRows* page = nullptr;
        std::size_t heading = 0;
        const auto starts = findAmounts(wholeDocument(document_), wages);
        for (std::size_t i = 0; starts.size() > 1 && i < starts.size(); ++i) {
            const FoundAmount& start = starts[i];
            const bool isLast = i + 1 == starts.size() || starts[i + 1].page != start.page;
            const std::size_t end = isLast ? start.page->rows.size() : starts[i + 1].row;
            heading = start.page == page ? heading : 0;
            page = start.page;
            auto form = readWage({{start.page, start.row, end}});
            if (!form || !isProven(*form) || !readHeading(heading, start.row, *form)) {
                return {};
            }
            while (heading < end && page->rows[heading].top < bottomOf(*form)) {
                ++heading;
            }
            forms.push_back(std::move(*form));
        }
        return areWithoutTotal(forms) ? forms : std::vector<SalaryForm>();
    }

    /// Parts of one wage are followed by their total.
    static bool areWithoutTotal(const std::vector<SalaryForm>& forms) {
        Decimal sum;
        for (const SalaryForm& form : forms) {
            sum = sum + form.value(SalaryBox::gross).value_or(Decimal());
        }
        return forms.size() > 1
               && forms.back().value(SalaryBox::gross).value_or(Decimal()) * 2 != sum;
    }

  private:
    static double bottomOf(const SalaryForm& form) {
        double bottom = 0;
        for (const auto& [box, amount] : form.boxes) {
            bottom = std::max(bottom, amount.place.bottom);
        }
        return bottom;
    }

    /// What the rows above a wage tell; false when they name neither a person nor an employer.
    bool readHeading(std::size_t first, std::size_t end, SalaryForm& form) const {
        PageRows heading = *form.page;
        heading.rows.assign(form.page->rows.begin() + static_cast<std::ptrdiff_t>(first),
                            form.page->rows.begin() + static_cast<std::ptrdiff_t>(end));
        readFormHeader(heading, form.page->rows[end].top, form);
        form.isPension = false;
        form.isLiechtenstein = isOfPrincipality(document_);
        form.year = facts_.year;
        form.person.clear();
        for (const Row& row : heading.rows) {
            for (const NamedPerson& named : people_.in(row)) {
                form.person = named.name;
            }
            readEmployer(row, form);
        }
        const bool isNamed = !form.person.empty() || !form.employer.empty();
        form.person = form.person.empty() ? facts_.person.text : form.person;
        return isNamed || form.birthDate || !form.socialSecurityNumber.empty();
    }

    /// The first cell of a row with words only, the last such row above the wage being its own.
    void readEmployer(const Row& row, SalaryForm& form) const {
        const auto cells = cellsOf(row);
        if (cells.empty() || !row.amounts.empty()) {
            return;
        }
        const std::string text = textBetween(row, cells.front().first, cells.front().last);
        const auto named = people_.in(row);
        const bool isPerson = !named.empty() && named.front().first <= cells.front().last;
        static const Labels months{"Januar",   "Februar",  "März",   "April",     "Mai",
                                   "Juni",     "Juli",     "August", "September", "Oktober",
                                   "November", "Dezember", "Monat",  "mois",      "mese"};
        if (!isPerson && text.size() > 4 && text.find_first_of("0123456789:") == text.npos
            && startsWithCapital(text) && !isAnyIn(row.folded, months)) {
            form.employer = text;
        }
    }

    const DocumentRows& document_;
    DocumentFacts facts_;
    People people_;
};

/// Wages of which each has a page of its own, in whatever words; a copy counts once.
std::vector<SalaryForm> readPages(const DocumentRows& document) {
    std::vector<SalaryForm> forms;
    for (const PageRows& page : document.pages) {
        auto form =
            document.pages.size() < 2 ? std::nullopt : readWage({{&page, 0, page.rows.size()}});
        const bool isCopy =
            form && std::ranges::any_of(forms, [&](const SalaryForm& other) {
                return other.value(SalaryBox::gross) == form->value(SalaryBox::gross);
            });
        if (form && isProven(*form) && !isCopy) {
            form->isLiechtenstein = isOfPrincipality(document);
            readFormHeader(page, topOf(*form), *form);
            form->isPension = false;
            forms.push_back(std::move(*form));
        }
    }
    return SalaryBlocks::areWithoutTotal(forms) ? forms : std::vector<SalaryForm>();
}

} // namespace

std::optional<SalaryForm> readWage(const std::vector<RowRange>& ranges) {
    Table table;
    for (std::size_t box = 0; box < table.size(); ++box) {
        table[box] = candidatesOf(ranges, boxWords()[box]);
    }
    if (table[0].empty() || table[1].empty()) {
        return std::nullopt;
    }
    // Others leave a purchase out by its words: what they name too is none.
    std::erase_if(table[2], [&](const auto& one) {
        return isAmong(*one, table[3]) || isAmong(*one, table[4]);
    });
    Choice choice = Search(table).run();
    if (!choice.isProven) {
        Table behind = table;
        for (std::size_t box = 2; box < table.size(); ++box) {
            behind[box] = deductionsBehind(ranges, boxWords()[box]);
        }
        Choice other = Search(std::move(behind)).run();
        if (other.isProven) {
            choice = std::move(other);
        }
    }
    if (!choice.isProven) {
        for (const auto& first : table[0]) {
            for (const auto& last : table[1]) {
                if (auto form = readSalaryRun(*first, *last)) {
                    return form;
                }
            }
        }
    }
    const bool areFirm = std::ranges::all_of(
        choice.boxes, [](const auto& found) { return !found || found->amount.amount.isFirm(); });
    if (!choice.isProven && !areFirm) {
        return std::nullopt;
    }
    SalaryForm form{.page = choice.boxes[0]->page};
    for (std::size_t box = 0; box < choice.boxes.size(); ++box) {
        const auto& found = choice.boxes[box];
        // What is printed well and does not add up has parts that none of them is alone.
        if (!choice.isProven && box >= 2 && !isFirstTheWhole(table[box])
            && !choice.boxes[0]->page->isRecognised) {
            continue;
        }
        const bool isOther = found && found->page != form.page;
        if (!found || (isOther && !choice.isProven)) {
            continue;
        }
        const SalaryBox own = boxWords()[box].box;
        form.boxes[own] = inBox(own, found->amount);
        if (isOther) {
            form.elsewhere[own] = found->page;
        }
    }
    return form;
}

bool isProven(const SalaryForm& form) {
    const auto value = [&](SalaryBox box) { return form.value(box).value_or(Decimal()); };
    const Decimal deductions =
        value(SalaryBox::social) + value(SalaryBox::pensionFund) + value(SalaryBox::buyIn);
    const auto gross = form.value(SalaryBox::gross);
    const auto net = form.value(SalaryBox::net);
    return gross && net && deductions >= 1 && isNetSalary(*gross, deductions, *net);
}

std::vector<SalaryForm> readSalaryLists(const DocumentRows& document) {
    if (auto columns = readSalaryColumns(document); !columns.empty()) {
        return columns;
    }
    auto table = readSalaryTable(document);
    auto& ofTable = table.forms;
    if (ofTable.size() > 1) {
        const double top = topOf(ofTable.front());
        for (SalaryForm& one : ofTable) {
            readAroundWage(document, top, one);
        }
        return ofTable;
    }
    if (auto blocks = SalaryBlocks(document).read(); !blocks.empty()) {
        return blocks;
    }
    if (auto pages = readPages(document); pages.size() > 1) {
        return pages;
    }
    auto form = readWage(wholeDocument(document));
    // Of several rows that add up the table's own choice counts.
    if (!ofTable.empty() && (!form || !isProven(*form) || table.has(*form))) {
        form = std::move(ofTable.front());
    }
    if (!form) {
        return {};
    }
    form->isLiechtenstein = isOfPrincipality(document);
    readFormHeader(*form->page, topOf(*form), *form);
    readFlatExpenses(document, *form);
    return {std::move(*form)};
}

} // namespace fiscarel
