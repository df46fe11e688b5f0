#include "Fiscarel_SG/documents/kinds/SalaryTable.h"

#include "Fiscarel_SG/documents/kinds/LetterHead.h"
#include "Fiscarel_SG/documents/kinds/PersonName.h"
#include "Fiscarel_SG/documents/kinds/SalaryColumns.h"
#include "Fiscarel_SG/documents/kinds/SalaryWords.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/kinds/WageHolders.h"
#include "Fiscarel_SG/documents/kinds/WageYear.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <map>
#include <vector>

namespace fiscarel {

namespace {

constexpr std::size_t farthest = 30; ///< rows below a heading

/// The box a column is for, with how surely its words say so: the lower the surer.
struct ColumnBox {
    const BoxWords* words = nullptr;
    std::size_t rank = 0;
};

std::optional<ColumnBox> boxOf(const Row& cell, bool isRecognised) {
    for (const BoxWords& words : boxWords()) {
        const Wanted& wanted = words.wanted;
        if (findLabel(cell, wanted.without, isRecognised)
            || namesAny(cell, wanted.notMeant, isRecognised)) {
            continue;
        }
        for (std::size_t rank = 0; rank < wanted.meanings.size(); ++rank) {
            if (findMeaning(cell, wanted.meanings[rank], isRecognised)) {
                return ColumnBox{&words, rank};
            }
        }
        if (findLabel(cell, words.vague, isRecognised)) {
            return ColumnBox{&words, wanted.meanings.size()};
        }
    }
    return std::nullopt;
}

/// Whether a column is of what an employer keeps back of a wage besides contributions.
bool isKeptColumn(const Row& cell, bool isRecognised) {
    static const Labels taxes{"IS", "impôt", "imp", "ritenuta fonte"}; // of columns only
    return isKeptBack(cell, isRecognised) || findLabel(cell, taxes, isRecognised);
}

class SalaryTable {
  public:
    SalaryTable(const PageRows& page, TableHeading heading)
        : page_(page), heading_(std::move(heading)) {
        for (const TableColumn& column : heading_.columns) {
            boxes_.push_back(boxOf(column.cell, page.isRecognised));
            areKept_.push_back(isKeptColumn(column.cell, page.isRecognised));
        }
        keepSurest(SalaryBox::gross);
        keepSurest(SalaryBox::net);
    }

    bool isOne() const {
        const auto has = [&](SalaryBox box) {
            return std::ranges::any_of(
                boxes_, [box](const auto& one) { return one && one->words->box == box; });
        };
        return has(SalaryBox::gross)
               && (has(SalaryBox::net) || has(SalaryBox::social) || has(SalaryBox::pensionFund));
    }

    /// The wages it states: one for each of several people or employers, else the year's.
    SalaryTableReading read() const {
        SalaryTableReading reading{.page = &page_};
        std::vector<Line> lines;
        const std::size_t end = std::min(page_.rows.size(), heading_.row + 1 + farthest);
        for (std::size_t at = heading_.row + 1; at < end; ++at) {
            if (auto form = formIn(at)) {
                lines.push_back({std::move(*form), at, stubOf(at)});
                reading.rows.insert(at);
            }
        }
        reading.forms = heldBySeveral(lines);
        if (reading.forms.empty()) {
            auto one = whole(lines);
            one = one ? std::move(one) : newest(lines);
            reading.forms = one ? std::vector{std::move(*one)} : std::vector<SalaryForm>();
        }
        return reading;
    }

  private:
    /// A row that states a wage.
    struct Line {
        SalaryForm form;
        std::size_t at = 0;
        Row stub; ///< the words before its amounts
    };

    Row stubOf(std::size_t at) const {
        const Row& row = page_.rows[at];
        Row stub;
        const auto first = std::ranges::find_if( // the year of a row is none
            row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
        const auto end = first == row.amounts.end() ? row.words.size() : first->first;
        for (std::size_t i = 0; i < end; ++i) {
            stub.words.push_back(row.words[i]);
            stub.folded += row.words[i].folded + ' ';
        }
        return stub;
    }

    static bool isPart(const Line& line) { return namesPartOfYear(line.stub); }

    /// Whether a row adds up others; that of the year does where others are parts of it.
    bool isWhole(const Line& line, bool hasParts) const {
        return !isPart(line) && !namesAny(line.stub, {Concept::other}, page_.isRecognised)
               && (namesAny(line.stub, {Concept::total}, page_.isRecognised)
                   || (hasParts && namesWholeYear(line.stub)));
    }

    /// The row that adds up others: the one that the others of its kind come to, else the last.
    std::optional<SalaryForm> whole(const std::vector<Line>& lines) const {
        const bool hasParts = std::ranges::count_if(lines, isPart) >= 2;
        std::vector<const SalaryForm*> wholes;
        Decimal sum;
        for (const Line& line : lines) {
            if (isWhole(line, hasParts)) {
                wholes.push_back(&line.form);
                sum = sum + grossOf(line.form);
            }
        }
        const auto found = std::ranges::find_if(
            wholes, [&](const SalaryForm* one) { return grossOf(*one) * 2 == sum; });
        if (wholes.empty()) {
            return std::nullopt;
        }
        return found != wholes.end() ? **found : *wholes.back();
    }

    static Decimal grossOf(const SalaryForm& form) {
        return form.value(SalaryBox::gross).value_or(Decimal());
    }

    /// The only wage, or of several under years the newest.
    static std::optional<SalaryForm> newest(const std::vector<Line>& lines) {
        const Line* found = nullptr;
        for (const Line& line : lines) {
            const auto year = yearAtStart(line.stub);
            if (found != nullptr && (!year || !yearAtStart(found->stub))) {
                return std::nullopt; // several that no total adds up
            }
            if (found == nullptr || *year > *yearAtStart(found->stub)) {
                found = &line;
            }
        }
        return found != nullptr ? std::optional(found->form) : std::nullopt;
    }

    /// Whether the column of the rows' own words is headed as one of people.
    bool isListOfPeople() const {
        static const Labels people{
            "Name",       "Vorname",      "Mitarbeit*", "Arbeitnehmer*", "Person*",   "Angestellt*",
            "nom",        "prénom",       "employé*",   "collaborat*",   "salarié*",  "nome",
            "cognome",    "dipendent*",   "impiegat*",  "employee*",     "personnel", "lavorator*",
            "nominativo", "travailleur*", "personnes"};
        const std::size_t first = heading_.row == 0 ? 0 : heading_.row - 1;
        for (std::size_t at = first; at <= heading_.row; ++at) {
            if (findLabel(page_.rows[at], people, page_.isRecognised)) {
                return true;
            }
        }
        return false;
    }

    /// Several wages of which each row tells whose it is or who paid it; empty when not all do.
    std::vector<SalaryForm> heldBySeveral(const std::vector<Line>& lines) const {
        std::vector<SalaryForm> held;
        for (const Line& line : lines) {
            if (isWhole(line, false)) {
                continue;
            }
            SalaryForm form = line.form;
            readHolder(line.stub, form);
            const std::size_t end = std::min(page_.rows.size(), line.at + 3);
            for (std::size_t at = line.at + 1; at < end && !hasFirmAmount(page_.rows[at]); ++at) {
                readHolder(page_.rows[at], form);
            }
            const Row name = namePart(line.stub);
            const bool isTime = isPart(line) || namesWholeYear(line.stub);
            const std::string words = textOf(name);
            const bool isTold = form.birthDate || !form.socialSecurityNumber.empty();
            if (namesCompany(line.stub.folded)) {
                form.employer = words;
            } else if (isTold || isPersonName(name) || (isListOfPeople() && !isTime)) {
                form.person = words;
            } else {
                return {};
            }
            held.push_back(std::move(form));
        }
        return held.size() > 1 ? held : std::vector<SalaryForm>();
    }

    /// The words of the first cell before a number or a day.
    static Row namePart(const Row& stub) {
        Row name;
        const auto cells = cellsOf(stub);
        for (std::size_t i = 0; i < stub.words.size(); ++i) {
            const RowWord& word = stub.words[i];
            if (i > cells.front().last && !name.words.empty()) {
                break;
            }
            if (hasDigit(word.text)) {
                if (name.words.empty()) {
                    continue; // "1. Anna Muster"
                }
                break;
            }
            name.words.push_back(word);
            name.folded += word.folded + ' ';
        }
        return name;
    }

    static std::string textOf(const Row& words) {
        return words.words.empty() ? std::string() : textBetween(words, 0, words.words.size() - 1);
    }

    /// Of several columns for a box only the one whose words are surest.
    void keepSurest(SalaryBox box) {
        std::optional<ColumnBox>* surest = nullptr;
        for (auto& one : boxes_) {
            if (!one || one->words->box != box) {
                continue;
            }
            if (surest != nullptr && (*surest)->rank <= one->rank) {
                one.reset();
                continue;
            }
            if (surest != nullptr) {
                surest->reset();
            }
            surest = &one;
        }
    }

    static std::optional<int> yearAtStart(const Row& row) {
        return row.words.empty() ? std::nullopt : parseYear(row.words.front().text);
    }

    /// The wage a row states; columns for one box are added. Absent where it does not add up.
    std::optional<SalaryForm> formIn(std::size_t at) const {
        const auto amounts =
            heading_.amountsIn(page_, at, [&](const RowAmount& amount, std::size_t column) {
                return boxes_[column] && amount.amount.isFirm();
            });
        SalaryForm form{.page = &page_};
        for (std::size_t i = 0; i < amounts.size(); ++i) {
            if (amounts[i] == nullptr) {
                continue;
            }
            const SalaryBox box = boxes_[i]->words->box;
            const RowAmount amount = inBox(box, *amounts[i]);
            const auto [known, isNew] = form.boxes.emplace(box, amount);
            if (!isNew) {
                Decimal& value = known->second.amount.value;
                value = value + amount.amount.value;
            }
        }
        if (!isProven(form)) {
            takeNetApart(at, form);
        }
        if (isProven(form)) {
            return form;
        }
        return namedByOrder(at);
    }

    /// The wage of a row some of whose deductions their headings do not name, by their order: all
    /// that is taken off stands between the gross and the net one.
    std::optional<SalaryForm> namedByOrder(std::size_t at) const {
        const PageRows row = rowAsPage(page_, at, heading_);
        auto form = readWage({{&row, 0, row.rows.size()}});
        if (!form || !isProven(*form)) {
            return std::nullopt;
        }
        form->page = &page_;
        form->elsewhere.clear();
        return form;
    }

    /// The net wage of a row that has none: stated below the table, or what was paid, with all
    /// that was kept back besides.
    void takeNetApart(std::size_t at, SalaryForm& form) const {
        const auto value = [&](SalaryBox box) { return form.value(box).value_or(Decimal()); };
        const Decimal net = value(SalaryBox::gross) - value(SalaryBox::social)
                            - value(SalaryBox::pensionFund) - value(SalaryBox::buyIn);
        if (const RowAmount* stated = net > 0 ? statedNet(at, net) : nullptr) {
            form.boxes.insert_or_assign(SalaryBox::net, *stated);
            return;
        }
        const auto amounts = heading_.amountsIn(
            page_, at, [](const RowAmount& amount, std::size_t) { return amount.amount.isFirm(); });
        Decimal kept;
        for (std::size_t i = 0; i < amounts.size(); ++i) {
            kept = kept + (areKept_[i] && amounts[i] ? amounts[i]->amount.value.abs() : Decimal());
        }
        for (std::size_t i = 0; i < amounts.size(); ++i) {
            const bool isTold =
                kept > 0 || namesAny(heading_.columns[i].cell, {Concept::paid}, page_.isRecognised);
            const bool isPaid = amounts[i] != nullptr && isTold && !areKept_[i]
                                && (!boxes_[i] || boxes_[i]->words->box == SalaryBox::net);
            if (isPaid && amounts[i]->amount.value.abs() + kept == net) {
                RowAmount whole = *amounts[i];
                whole.amount.value = net;
                form.boxes.insert_or_assign(SalaryBox::net, whole);
            }
        }
    }

    /// An amount outside a row that is called the net wage and comes to a value.
    const RowAmount* statedNet(std::size_t at, const Decimal& net) const {
        for (std::size_t other = 0; other < page_.rows.size(); ++other) {
            const Row& row = page_.rows[other];
            const auto found = std::ranges::find_if(row.amounts, [&](const RowAmount& amount) {
                return amount.amount.isFirm() && amount.amount.value == net;
            });
            if (other != at && found != row.amounts.end()
                && namesAny(row, {Concept::net}, page_.isRecognised)
                && !namesAny(row, {Concept::gross}, page_.isRecognised)) {
                return &*found;
            }
        }
        return nullptr;
    }

    const PageRows& page_;
    TableHeading heading_;
    std::vector<std::optional<ColumnBox>> boxes_; ///< by column
    std::vector<bool> areKept_; ///< whether a column is of what is kept back besides
};

} // namespace

bool SalaryTableReading::has(const SalaryForm& form) const {
    const auto gross = form.boxes.find(SalaryBox::gross);
    return form.page == page && gross != form.boxes.end()
           && std::ranges::any_of(rows, [&](std::size_t at) {
                  return std::ranges::any_of(page->rows[at].amounts, [&](const RowAmount& amount) {
                      return amount.place.top == gross->second.place.top
                             && amount.place.left == gross->second.place.left;
                  });
              });
}

SalaryTableReading readSalaryTable(const DocumentRows& document) {
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            for (const bool withNext : {false, true}) {
                const SalaryTable table(page, tableHeadingIn(page, at, withNext));
                if (!table.isOne()) {
                    continue;
                }
                if (auto reading = table.read(); !reading.forms.empty()) {
                    return reading;
                }
            }
        }
    }
    return {};
}

} // namespace fiscarel
