#include "Fiscarel_SG/outputs/ReportParts.h"

#include "TaxCore/result/UnitText.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace fiscarel::outputs {

using namespace taxcore;

ReportMaterial::ReportMaterial(const ReportInput& given)
    : input(given), derivations(given.calculator.explainAll(given.taxCase)),
      sources(given.taxCase, given.documents) {
    for (const Derivation& derivation : derivations) {
        reasons.emplace(derivation.code, &derivation);
    }
}

const Derivation* ReportMaterial::reason(std::string_view code) const {
    const auto found = reasons.find(code);
    if (found == reasons.end()) {
        return nullptr;
    }
    const DerivationStep* const line = found->second->repeats();
    return line == nullptr ? found->second : reason(*line->code);
}

Anchor ReportMaterial::reasonAnchor(std::string_view code) const {
    const Derivation* const derivation = reason(code);
    return derivation != nullptr ? "why:" + derivation->code : Anchor();
}

std::string ReportMaterial::documentsOf(std::string_view code) const {
    const Derivation* const derivation = reason(code);
    return derivation != nullptr ? numberList(sources.documentsOf(*derivation)) : std::string();
}

namespace {

/// The minus sign that is as wide as a digit.
std::string withMinus(std::string text) {
    if (text.starts_with('-')) {
        text.replace(0, 1, "\u2212");
    }
    return text;
}

} // namespace

std::string money(const Decimal& francs) { return withMinus(MoneyFormat::chf(francs, 2, false)); }

std::string moneyOrNothing(const Decimal& francs) {
    return francs.isZero() ? std::string() : money(francs);
}

std::string percent(const Decimal& value) { return MoneyFormat::number(value) + "%"; }

std::string inUnit(const Decimal& value, Unit unit) { return withMinus(unitText(value, unit)); }

std::string dayText(const std::optional<Date>& date) {
    if (!date) {
        return {};
    }
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%02d.%02d.%04d", date->day(), date->month(),
                  date->year());
    return text.data();
}

std::string dotted(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) {
        text += (text.empty() || part.empty() ? "" : " · ") + part;
    }
    return text;
}

std::string personName(const TaxCase& taxCase, int number) {
    const Person& person = number == 1 ? taxCase.person1 : taxCase.person2;
    const bool nameless = person.firstName.empty() && person.lastName.empty();
    return nameless && taxCase.isJoint() ? "Person " + std::to_string(number)
                                         : person.displayName();
}

std::string householdName(const TaxCase& taxCase) {
    return personName(taxCase, 1) + (taxCase.isJoint() ? " und " + personName(taxCase, 2) : "");
}

ReportTable table(std::vector<ReportColumn> columns) {
    return {.columns = std::move(columns), .rows = {}};
}

ReportRow& addRow(ReportTable& table, Cells cells, ReportRow::Weight weight) {
    return table.rows.emplace_back(ReportRow{.cells = std::move(cells), .weight = weight});
}

ReportChapter chapter(std::string title, Anchor anchor) {
    ReportHeading heading{title, 1, anchor};
    return {.title = std::move(title), .anchor = std::move(anchor), .blocks = {std::move(heading)}};
}

bool hasContent(const ReportChapter& chapter) { return chapter.blocks.size() > 1; }

} // namespace fiscarel::outputs
