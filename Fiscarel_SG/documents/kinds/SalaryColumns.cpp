#include "Fiscarel_SG/documents/kinds/SalaryColumns.h"

#include "Fiscarel_SG/documents/kinds/LetterHead.h"
#include "Fiscarel_SG/documents/kinds/PersonName.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/kinds/WageHolders.h"

#include <algorithm>

namespace fiscarel {

namespace {

Decimal grossOf(const SalaryForm& form) { return form.value(SalaryBox::gross).value_or(Decimal()); }

/// Whether a heading names whom the wage below belongs to, or who paid it.
bool namesHolder(const TableColumn& column) {
    return namesCompany(column.cell.folded) || isPersonName(column.cell);
}

/// Puts what a column's heading and its rows tell of whose wage it is.
void readColumnHolder(const TableColumn& column, const PageRows& part, SalaryForm& form) {
    if (namesCompany(column.cell.folded)) {
        form.employer = column.words();
        return;
    }
    form.person = column.words();
    for (const Row& row : part.rows) {
        readHolder(row, form);
    }
}

/// The wages under a row that names companies or people; empty where one of them does not add up,
/// or another column is more than the sum of theirs.
std::vector<SalaryForm> wagesUnder(const PageRows& page, const TableHeading& heading) {
    std::vector<LabelPlace> places;
    for (const TableColumn& column : heading.columns) {
        places.push_back(column.place);
    }
    const auto parts = columnsAsPages(page, heading.row + 1, places);
    std::vector<SalaryForm> forms;
    std::optional<Decimal> whole;
    Decimal sum;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        auto form = readWage({{&parts[i], 0, parts[i].rows.size()}});
        const bool isHeld = namesHolder(heading.columns[i]);
        const bool isWage = form && isProven(*form);
        if (isHeld && !isWage) {
            return {};
        }
        if (!isHeld) {
            whole = isWage ? std::optional(grossOf(*form)) : whole;
            continue;
        }
        form->page = &page;
        readColumnHolder(heading.columns[i], parts[i], *form);
        sum = sum + grossOf(*form);
        forms.push_back(std::move(*form));
    }
    return whole && *whole != sum ? std::vector<SalaryForm>() : forms;
}

/// The wages under a row, of one line or two, that names several whom they belong to.
std::vector<SalaryForm> wagesBelow(const PageRows& page, std::size_t at) {
    for (const bool withNext : {false, true}) {
        TableHeading heading = tableHeadingIn(page, at, withNext);
        const auto holders = std::ranges::count_if(heading.columns, namesHolder);
        if (holders < 2) {
            continue;
        }
        // What heads the labels is no column of amounts.
        heading.columns.erase(heading.columns.begin(),
                              std::ranges::find_if(heading.columns, namesHolder));
        if (auto forms = wagesUnder(page, heading); forms.size() >= 2) {
            return forms;
        }
    }
    return {};
}

} // namespace

std::vector<SalaryForm> readSalaryColumns(const DocumentRows& document) {
    if (!isAnyIn(document.folded, wordsFor(Concept::gross))) {
        return {};
    }
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            auto forms = wagesBelow(page, at);
            for (SalaryForm& form : forms) {
                readAroundWage(document, page.rows[at].top, form);
            }
            if (!forms.empty()) {
                return forms;
            }
        }
    }
    return {};
}

} // namespace fiscarel
