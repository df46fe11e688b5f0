#include "Fiscarel_SG/documents/kinds/SalaryTable.h"

#include "Fiscarel_SG/documents/kinds/SalaryWords.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"

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

class SalaryTable {
  public:
    SalaryTable(const PageRows& page, TableHeading heading)
        : page_(page), heading_(std::move(heading)) {
        for (const TableColumn& column : heading_.columns) {
            boxes_.push_back(boxOf(column.cell, page.isRecognised));
        }
        keepSurest(SalaryBox::gross);
        keepSurest(SalaryBox::net);
    }

    bool isOne() const {
        const auto has = [&](SalaryBox box) {
            return std::ranges::any_of(
                boxes_, [box](const auto& one) { return one && one->words->box == box; });
        };
        return has(SalaryBox::gross) && has(SalaryBox::net);
    }

    std::optional<SalaryForm> read() const {
        std::optional<SalaryForm> found;
        std::optional<int> newest;
        const std::size_t end = std::min(page_.rows.size(), heading_.row + 1 + farthest);
        for (std::size_t at = heading_.row + 1; at < end; ++at) {
            auto form = formIn(at);
            if (!form) {
                continue;
            }
            const Row& row = page_.rows[at];
            if (namesAny(row, {Concept::total}, page_.isRecognised)) {
                return form;
            }
            const auto year = yearAtStart(row);
            if (found && (!newest || !year)) {
                return std::nullopt; // several that no total adds up
            }
            if (!found || *year > *newest) {
                found = std::move(form);
                newest = year;
            }
        }
        return found;
    }

  private:
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
        const auto number = parseAmount(row.words.empty() ? std::string() : row.words.front().text);
        const auto year = number && number->isYearLike() ? number->value.toInteger() : std::nullopt;
        return year ? std::optional(static_cast<int>(*year)) : std::nullopt;
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
            RowAmount amount = *amounts[i];
            amount.amount.value = amount.amount.value.abs();
            const auto [known, isNew] = form.boxes.emplace(boxes_[i]->words->box, amount);
            if (!isNew) {
                Decimal& value = known->second.amount.value;
                value = value + amount.amount.value;
            }
        }
        return isProven(form) ? std::optional(std::move(form)) : std::nullopt;
    }

    const PageRows& page_;
    TableHeading heading_;
    std::vector<std::optional<ColumnBox>> boxes_; ///< by column
};

} // namespace

std::optional<SalaryForm> readSalaryTable(const DocumentRows& document) {
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            for (const bool withNext : {false, true}) {
                const SalaryTable table(page, tableHeadingIn(page, at, withNext));
                if (!table.isOne()) {
                    continue;
                }
                if (auto form = table.read()) {
                    return form;
                }
            }
        }
    }
    return std::nullopt;
}

} // namespace fiscarel
