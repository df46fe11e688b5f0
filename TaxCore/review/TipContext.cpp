#include "TaxCore/review/TipContext.h"

#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/review/CheckParts.h"
#include "TaxCore/review/CheckText.h"

#include <algorithm>
#include <utility>

namespace taxcore::review {

std::string cited(const Law& law) {
    std::string text(law.canton);
    if (!law.federal.empty()) {
        text += text.empty() ? "" : ", ";
        text += law.federal;
    }
    return text;
}

std::string money(const Decimal& amount) { return MoneyFormat::chf(amount, 0, true); }

PersonDeductions& deductionsOf(TaxCase& taxCase, int person) {
    return person == 2 ? taxCase.deductions2 : taxCase.deductions1;
}

TipContext::TipContext(const CaseCalculator& calculator, const TaxCase& taxCase,
                       const TaxResult& base, Date today,
                       const std::vector<const TaxCase*>& otherYears)
    : calculator_(calculator), taxCase_(taxCase), base_(base), today_(today),
      otherYears_(otherYears), adults_(adultsOf(taxCase)) {}

Decimal TipContext::taxWith(const std::function<void(TaxCase&)>& change) const {
    TaxCase changed = taxCase_;
    change(changed);
    return Advisor::totalTax(calculator_.calculate(changed));
}

void TipContext::suggest(Suggestion suggestion) {
    const Decimal saving = Advisor::totalTax(base_) - taxWith(suggestion.change);
    suggest(std::move(suggestion), saving);
}

void TipContext::suggest(Suggestion suggestion, const Decimal& saving) {
    if (saving <= 0) {
        return;
    }
    Notice& tip = tips_.emplace_back();
    tip.id = std::move(suggestion.id);
    tip.level = Notice::Level::tip;
    tip.title = std::move(suggestion.title);
    tip.message = std::move(suggestion.message) + " (" + suggestion.law + ")";
    if (suggestion.inTheYear && today_.year() > taxCase_.year) {
        tip.missed = true;
        tip.message += " Für " + std::to_string(taxCase_.year)
                       + " ist die Frist vorbei; so viel hätte es gespart.";
    }
    tip.saving = saving;
    tip.area = std::string(suggestion.area);
    if (suggestion.path) {
        tip.path = suggestion.path->toString();
    }
}

std::vector<Notice> TipContext::ordered() && {
    std::ranges::stable_sort(tips_, {}, [](const Notice& tip) {
        return std::pair(tip.missed.value_or(false), -tip.saving.value_or(0));
    });
    return std::move(tips_);
}

std::string exampleSaves(const Decimal& costs) {
    return " Kosten von zum Beispiel " + money(costs) + " sparen so viel.";
}

void enterChildEducation(TipContext& c, std::string_view stem, const Law& law,
                         const std::string& deductible, const Decimal& example) {
    const auto mayCost = [&](const Child& child) {
        const bool learns = child.education == ChildEducation::ausbildung
                            || child.education == ChildEducation::schule;
        return learns && child.birthDate
               && ageAtEndOf(*child.birthDate, c.taxCase().year) >= schoolLeavingAge;
    };
    forEachItem(c.taxCase().children, [&](const Child& child, int index) {
        if (child.educationCosts > 0 || !mayCost(child)) {
            return;
        }
        c.suggest({.id = itemId(stem, index),
                   .area = "other",
                   .title = "Ausbildungskosten eintragen",
                   .message = "Für " + called(child, index)
                              + " sind keine Ausbildungskosten eingetragen. " + deductible
                              + exampleSaves(example),
                   .law = cited(law),
                   .path = FieldPath("children", "educationCosts").at(index),
                   .change = [&](TaxCase& changed) {
                       Child& own = changed.children[static_cast<std::size_t>(index)];
                       own.educationCosts = example + own.scholarships;
                   }});
    });
}

void computeVehicleValue(TipContext& c, const Law& law) {
    forEachItem(c.taxCase().vehicles, [&](const Vehicle& vehicle, int index) {
        // Whoever enters more than the price knows of a value that rises.
        if (!vehicle.taxValueOverride || *vehicle.taxValueOverride > vehicle.purchasePrice
            || !vehicle.purchaseYear) {
            return;
        }
        c.suggest({.id = itemId("tipp-fahrzeug", index),
                   .area = "wealth",
                   .title = "Zeitwert des Fahrzeugs ist tiefer",
                   .message = "Aus Kaufpreis und Alter ergibt sich ein tieferer Wert als der "
                              "eingetragene. Für Oldtimer und Sammlerfahrzeuge gilt das nicht, "
                              "dort zählt der Verkehrswert.",
                   .law = cited(law),
                   .path = FieldPath("vehicles", "taxValueOverride").at(index),
                   .change = [&](TaxCase& changed) {
                       changed.vehicles[static_cast<std::size_t>(index)].taxValueOverride.reset();
                   }});
    });
}

} // namespace taxcore::review
