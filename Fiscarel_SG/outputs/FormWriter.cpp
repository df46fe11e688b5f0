#include "Fiscarel_SG/outputs/FormWriter.h"

#include <map>
#include <utility>

namespace fiscarel::outputs {

using namespace taxcore;

void FormWriter::form(std::string title, int page, std::string ziffer) {
    place_ = {};
    place_.form = std::move(title);
    place_.page = page;
    place_.item = -1;
    formZiffer_ = std::move(ziffer);
    place_.ziffer = formZiffer_;
}

void FormWriter::part(std::string title, int person, std::string ziffer) {
    place_.part = std::move(title);
    place_.person = person;
    place_.name = person == 0 ? std::string() : nameOf(taxCase_, person);
    place_.ziffer = ziffer.empty() ? formZiffer_ : std::move(ziffer);
    ++place_.item;
}

void FormWriter::amount(std::string key, std::string label, const Decimal& canton,
                        const Decimal& federal, std::string code, ValueKind kind) {
    if (canton.isZero() && federal.isZero()) {
        return;
    }
    const auto text = [kind](const Decimal& value) {
        return value.isZero() ? std::string("0") : shownValue(value, kind);
    };
    TransferRow row;
    row.key = std::move(key);
    row.label = std::move(label);
    row.kind = kind;
    row.value = text(canton);
    if (std::string other = text(federal); other != row.value) {
        row.federal = std::move(other);
    }
    row.code = std::move(code);
    add(std::move(row));
}

void FormWriter::add(TransferRow row) {
    row.form = place_.form;
    row.page = place_.page;
    row.person = place_.person;
    row.name = place_.name;
    row.part = place_.part;
    row.item = place_.item;
    if (row.ziffer.empty()) {
        row.ziffer = place_.ziffer;
    }
    rows_.push_back(std::move(row));
}

std::vector<TransferRow> FormWriter::take() && {
    std::map<std::string, int> seen;
    for (TransferRow& row : rows_) {
        if (const int times = ++seen[row.key]; times > 1) { // items of one identity, from files
            row.key += "#" + std::to_string(times);
        }
    }
    return std::move(rows_);
}

RecordPlace FormWriter::place(std::string_view list, const Uuid& id, std::size_t index) {
    return {std::string(list) + "[" + std::to_string(index) + "]",
            std::string(list) + "[" + id.toString() + "]"};
}

std::string FormWriter::nameOf(const TaxCase& taxCase, int person) {
    const Person& adult = person == 2 ? taxCase.person2 : taxCase.person1;
    return adult.firstName.empty() && adult.lastName.empty() ? "Person " + std::to_string(person)
                                                             : adult.displayName();
}

} // namespace fiscarel::outputs
