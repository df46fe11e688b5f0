#include "Fiscarel_SG/pages/overview/Scenario.h"

#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Rounding.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/review/CheckContext.h"
#include "TaxCore/review/PensionLimits.h"
#include "TaxCore/stgallen/DeductionRules.h"

#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace taxcore;
using taxcore::review::Adult;

namespace {

/// What is typed beyond this is a mistake, and nothing to play with.
constexpr int largestAmount = 100'000'000;
constexpr int fine = 100;
constexpr int coarse = 500;
constexpr int largestGift = 20'000;
constexpr int usualBuyIn = 50'000;
constexpr int usualMaintenance = 50'000;
constexpr int usualNewSalary = 120'000;
constexpr int referenceAge = 65; ///< AHVG Art. 21 Abs. 1

/// The case may have become a single person's meanwhile; the second one's entries are kept then.
PersonDeductions& deductionsOf(TaxCase& taxCase, int person) {
    return person == 2 ? taxCase.deductions2 : taxCase.deductions1;
}
PersonIncome& incomeOf(TaxCase& taxCase, int person) {
    return person == 2 ? taxCase.income2 : taxCase.income1;
}

std::string nameOf(const std::string& what, const Adult& adult, const TaxCase& taxCase) {
    const std::string& firstName = adult.person.firstName;
    return taxCase.isJoint() ? what + " – " + (firstName.empty() ? adult.called() : firstName)
                             : what;
}

template <class Item>
Item* find(std::vector<Item>& items, const Uuid& id) {
    const auto found = std::ranges::find(items, id, &Item::id);
    return found != items.end() ? &*found : nullptr;
}

void addPillar3a(std::vector<Lever>& levers, const Adult& adult, const TaxCase& taxCase,
                 const RuleBook& rules) {
    const Decimal& now = adult.deductions.pillar3a;
    const Decimal maximum =
        review::isTooOldForPillar3a(adult, taxCase.year)
            ? Decimal(0)
            : review::pillar3aMaximumOf(adult, rules.cantonal.saeule3a).value_or(0).roundDown(0);
    if (std::max(now, maximum) <= 0) {
        return;
    }
    levers.push_back({.id = adult.id("pillar3a"),
                      .label = nameOf("Säule 3a", adult, taxCase),
                      .help = "Einzahlungen des Jahres; abziehbar sind höchstens "
                              + MoneyFormat::fr(maximum) + ".",
                      .now = now,
                      .most = std::max(now, maximum),
                      .step = fine,
                      .apply = [number = adult.number](TaxCase& changed, const Decimal& value) {
                          deductionsOf(changed, number).pillar3a = value;
                      }});
}

void addBuyIn(std::vector<Lever>& levers, const Adult& adult, const TaxCase& taxCase) {
    const Decimal& now = adult.deductions.pensionBuyIn;
    if (!review::mayBuyIntoPensionFund(adult, taxCase.year) && now <= 0) {
        return;
    }
    levers.push_back({.id = adult.id("pensionBuyIn"),
                      .label = nameOf("Einkauf Pensionskasse", adult, taxCase),
                      .help = "Privat einbezahlt. Wie viel möglich ist, steht auf dem "
                              "Vorsorgeausweis.",
                      .now = now,
                      .most = std::max(now, Decimal(usualBuyIn)),
                      .step = coarse,
                      .apply = [number = adult.number](TaxCase& changed, const Decimal& value) {
                          deductionsOf(changed, number).pensionBuyIn = value;
                      }});
}

/// What is taken from a salary follows it: of 100 francs more, not all are income.
void scale(SalaryCertificate& certificate, const Decimal& gross) {
    const Decimal before = certificate.grossSalary;
    const auto scaled = [&](const Decimal& amount) {
        return toFiveRappen(amount * gross / before);
    };
    certificate.socialContributions = scaled(certificate.socialContributions);
    certificate.pensionContributions = scaled(certificate.pensionContributions);
    if (certificate.netSalaryOverride) {
        certificate.netSalaryOverride = scaled(*certificate.netSalaryOverride);
    }
    certificate.grossSalary = gross;
}

/// The certificate of the job that pays most; null without one.
const SalaryCertificate* mainSalary(const PersonIncome& income) {
    const auto found =
        std::ranges::max_element(income.salaries, {}, &SalaryCertificate::grossSalary);
    return found != income.salaries.end() && found->grossSalary > 0 ? &*found : nullptr;
}

/// One more or less: the salary there is, or that of a job nobody has yet.
void addSalary(std::vector<Lever>& levers, const Adult& adult, const TaxCase& taxCase) {
    const SalaryCertificate* const salary = mainSalary(adult.income);
    if (salary != nullptr) {
        levers.push_back(
            {.id = adult.id("salary"),
             .label = nameOf("Bruttolohn", adult, taxCase),
             .help = "Sozialabgaben und Pensionskasse ändern sich im gleichen Verhältnis.",
             .now = salary->grossSalary,
             .most = -((-salary->grossSalary * 2).roundDown(-4)),
             .step = coarse,
             .apply = [number = adult.number, id = salary->id](TaxCase& changed,
                                                               const Decimal& value) {
                 if (auto* own = find(incomeOf(changed, number).salaries, id)) {
                     scale(*own, value);
                 }
             }});
        return;
    }
    if (review::ageOf(adult, taxCase.year).value_or(0) > referenceAge
        || !adult.income.salaries.empty()) {
        return;
    }
    levers.push_back({.id = adult.id("newSalary"),
                      .label = nameOf("Neuer Lohn", adult, taxCase),
                      .help = "Nettolohn einer neuen Stelle, nach Abzug der Sozialabgaben.",
                      .most = usualNewSalary,
                      .step = coarse,
                      .apply = [number = adult.number](TaxCase& changed, const Decimal& value) {
                          auto& added = incomeOf(changed, number).salaries.emplace_back();
                          added.grossSalary = value;
                      }});
}

void addGifts(std::vector<Lever>& levers) {
    levers.push_back({.id = "gifts",
                      .label = "Weitere Spenden",
                      .help = "Zusätzlich zu den eingetragenen, an steuerbefreite Organisationen.",
                      .most = largestGift,
                      .step = fine,
                      .apply = [](TaxCase& changed, const Decimal& value) {
                          changed.householdDeductions.donations.emplace_back().amount = value;
                      }});
}

/// In Liechtenstein no costs of a property are deducted.
void addMaintenance(std::vector<Lever>& levers, const RealEstate& property, std::size_t index,
                    const RuleBook& rules) {
    const Decimal now =
        toWholeFrancs(maintenanceCosts(property, rules.cantonalExtra.liegenschaften));
    const std::string name = property.description.empty()
                                 ? "Liegenschaft " + std::to_string(index + 1)
                                 : property.description;
    levers.push_back({.id = "maintenance-" + property.id.toString(),
                      .label = "Unterhalt – " + name,
                      .help = property.useFlatRateMaintenance
                                  ? "Tatsächliche Kosten anstelle der Pauschale von "
                                        + MoneyFormat::fr(now) + "."
                                  : "Tatsächliche Kosten des Jahres, ohne was den Wert vermehrt.",
                      .now = now,
                      .most = std::max(now, Decimal(usualMaintenance)),
                      .step = coarse,
                      .apply = [id = property.id](TaxCase& changed, const Decimal& value) {
                          if (auto* own = find(changed.realEstate, id)) {
                              own->useFlatRateMaintenance = false;
                              own->actualMaintenanceCosts = value;
                          }
                      }});
}

} // namespace

int Lever::lastPosition() const {
    const Decimal steps = -((least - most) / step).roundDown(0);
    return static_cast<int>(std::max(steps, Decimal(1)).toInteger().value_or(1));
}

Decimal Lever::at(int position) const {
    return position >= lastPosition() ? most : least + Decimal(step) * std::max(position, 0);
}

int Lever::positionOf(const Decimal& value) const {
    if (value >= most) {
        return lastPosition();
    }
    const Decimal steps = ((value - least) / step).roundPlain(0);
    return std::clamp(static_cast<int>(steps.toInteger().value_or(0)), 0, lastPosition());
}

std::vector<Lever> leversOf(const TaxCase& taxCase, const CaseCalculator& calculator) {
    std::vector<Lever> levers;
    const RuleBook* const stGallen = calculator.stGallen();
    const std::vector<Adult> adults = review::adultsOf(taxCase);
    if (stGallen != nullptr) {
        for (const Adult& adult : adults) {
            addPillar3a(levers, adult, taxCase, *stGallen);
        }
    }
    for (const Adult& adult : adults) {
        addBuyIn(levers, adult, taxCase);
    }
    for (const Adult& adult : adults) {
        addSalary(levers, adult, taxCase);
    }
    addGifts(levers);
    if (stGallen != nullptr) {
        for (std::size_t i = 0; i < taxCase.realEstate.size(); ++i) {
            addMaintenance(levers, taxCase.realEstate[i], i, *stGallen);
        }
    }
    std::erase_if(levers, [](const Lever& lever) { return lever.most > largestAmount; });
    return levers;
}

void Scenario::setLevers(std::vector<Lever> levers) {
    levers_ = std::move(levers);
    const std::map<std::string, Decimal> before = std::exchange(moved_, {});
    for (const Lever& lever : levers_) {
        if (const auto found = before.find(lever.id); found != before.end()) {
            move(lever, found->second);
        }
    }
}

Decimal Scenario::value(const Lever& lever) const {
    const auto found = moved_.find(lever.id);
    return found != moved_.end() ? found->second : lever.now;
}

void Scenario::move(const Lever& lever, const Decimal& value) {
    const Decimal held = std::clamp(value, lever.least, lever.most);
    if (held == lever.now) {
        moved_.erase(lever.id);
    } else {
        moved_[lever.id] = held;
    }
}

TaxCase Scenario::applied(TaxCase taxCase) const {
    for (const Lever& lever : levers_) {
        if (isMoved(lever)) {
            lever.apply(taxCase, value(lever));
        }
    }
    return taxCase;
}

} // namespace fiscarel::pages
