#include "tests/documents/corpus/layouts/LakeFacts.h"

namespace corpus {

void lakeSender(Draft& draft, const char* kind, const std::vector<QString>& names) {
    draft.truth.kind = kind;
    draft.from(names, names);
    if (draft.random.chance(15)) {
        draft.money.fraction = AmountStyle::Fraction::hyphen;
        draft.money.place = AmountStyle::Currency::before;
        draft.money.currency = "Fr.";
    }
}

void lakeIdle(Draft& draft, const QStringList& alsoKinds, const std::vector<QString>& names) {
    lakeSender(draft, "anderes", names);
    draft.truth.alsoKinds = alsoKinds;
}

void acceptSums(Draft& draft) {
    const auto sumOf = [&draft](const char* kind, const char* field) {
        Cents sum = 0;
        for (const TruthRecord& record : draft.truth.records) {
            sum += record.kind == kind ? centsOf(record.values.value(field)).value_or(0) : 0;
        }
        return sum;
    };
    const auto accept = [&draft](const char* kind, const std::map<const char*, Cents>& values) {
        TruthRecord record;
        record.kind = kind;
        record.year = draft.year;
        for (const auto& [field, cents] : values) {
            record.amount(field, cents);
        }
        if (!record.values.isEmpty()) {
            draft.truth.accepted.push_back(record);
        }
    };
    const Cents value = sumOf("security", "taxValue");
    const Cents with = sumOf("security", "incomeWithWithholding");
    const Cents without = sumOf("security", "incomeWithoutWithholding");
    accept("security", {{"taxValue", value},
                        {"incomeWithWithholding", with},
                        {"incomeWithoutWithholding", without}});
    accept("security", {{"taxValue", value}, {"incomeWithWithholding", with + without}});
    accept("security", {{"taxValue", value}, {"incomeWithoutWithholding", with + without}});
    accept("debt", {{"amount", sumOf("debt", "amount")}, {"interest", sumOf("debt", "interest")}});
}

void total(Facts& facts, const char* list, const char* part, const char* name) {
    for (const Facts& item : facts.lists[list]) {
        facts.amounts[name] += item.amounts.at(part);
    }
}

void spread(Facts& facts, const char* list) {
    int place = 0;
    const std::vector<Facts> items = facts.lists.at(list);
    for (const Facts& item : items) {
        const QString number = QString::number(++place);
        for (const auto& [name, value] : item.amounts) {
            facts.amounts[name + number] = value;
        }
        for (const auto& [name, value] : item.texts) {
            facts.texts[name + number] = value;
        }
        for (const auto& [name, value] : item.dates) {
            facts.dates[name + number] = value;
        }
    }
}

} // namespace corpus
