#include "Fiscarel_SG/documents/kinds/SalaryColumns.h"

#include "Fiscarel_SG/documents/kinds/DocumentFacts.h"
#include "Fiscarel_SG/documents/kinds/FormHeader.h"
#include "Fiscarel_SG/documents/kinds/LetterHead.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"

#include <algorithm>

namespace fiscarel {

namespace {

Decimal grossOf(const SalaryForm& form) { return form.value(SalaryBox::gross).value_or(Decimal()); }

/// The wages under a row that names companies; empty where one of them does not add up, or a column
/// of no company is more than the sum of the others.
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
        const bool isCompany = namesCompany(heading.columns[i].cell.folded);
        const bool isWage = form && isProven(*form);
        if (isCompany && !isWage) {
            return {};
        }
        if (!isCompany) {
            whole = isWage ? std::optional(grossOf(*form)) : whole;
            continue;
        }
        form->page = &page;
        form->employer = heading.columns[i].words();
        sum = sum + grossOf(*form);
        forms.push_back(std::move(*form));
    }
    return whole && *whole != sum ? std::vector<SalaryForm>() : forms;
}

void readAbove(const DocumentRows& document, const DocumentFacts& facts, double top,
               SalaryForm& form) {
    static const Labels principality{"Fürstentum Liechtenstein", "PEID", "PEID-Nr", "BPVG"};
    const std::string employer = form.employer;
    readFormHeader(*form.page, top, form);
    form.employer = employer;
    form.isPension = false;
    form.isLiechtenstein = isAnyIn(document.folded, principality);
    form.year = facts.year ? facts.year : form.year;
    form.person = form.person.empty() ? facts.person.text : form.person;
}

} // namespace

std::vector<SalaryForm> readSalaryColumns(const DocumentRows& document) {
    if (!isAnyIn(document.folded, wordsFor(Concept::gross))) {
        return {};
    }
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            TableHeading heading = tableHeadingIn(page, at, false);
            const auto isCompany = [](const TableColumn& column) {
                return namesCompany(column.cell.folded);
            };
            const auto companies = std::ranges::count_if(heading.columns, isCompany);
            // What heads the labels is no column of amounts.
            heading.columns.erase(heading.columns.begin(),
                                  std::ranges::find_if(heading.columns, isCompany));
            auto forms = companies < 2 ? std::vector<SalaryForm>() : wagesUnder(page, heading);
            if (forms.size() < 2) {
                continue;
            }
            const DocumentFacts facts = readFacts(document);
            for (SalaryForm& form : forms) {
                readAbove(document, facts, page.rows[at].top, form);
            }
            return forms;
        }
    }
    return {};
}

} // namespace fiscarel
