#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Rounding.h"
#include "TaxCore/liechtenstein/LICalculation.h"
#include "TaxCore/liechtenstein/Law.h"
#include "TaxCore/liechtenstein/Notices.h"
#include "TaxCore/liechtenstein/WorkCosts.h"

#include <algorithm>

namespace taxcore::li {

namespace {

constexpr std::string_view formA2 = "Hilfsformular A2";
constexpr std::string_view formA3 = "Hilfsformular A3";

/// SteG Art. 16, SteV Art. 12 und 14
template <class R>
void addWorkCosts(Calculation<R>& c) {
    auto line = c.lines.line(
        {"580", 0, "16.1", "Gewinnungskosten (mindestens Pauschale CHF 1’600 pro Person)", formA2});
    c.result.work.canton.emplace();
    Decimal total;
    bool fareTable = false;
    for (const Adult& adult : c.adults) {
        const Decimal salary = adult.grossSalary();
        const WorkExpenseBreakdown costs = workCosts(salary, adult.commute, c.rules);
        if constexpr (R::enabled) {
            explainWorkCosts(line.why, adult, c.rules);
        }
        fareTable = fareTable || (salary > 0 && usesFareTable(adult.commute, c.rules));
        total += costs.total();
        c.result.work.canton->push_back(costs);
    }
    std::optional<std::string> note;
    if (fareTable) {
        note = "Fahrkosten Inland berechnet; bitte mit der amtlichen Tabelle vergleichen";
    }
    line.deduction(both(total), std::move(note));
}

/// What the salary certificates take off for social insurance. SteG Art. 16
template <class R, class Line>
Decimal socialContributions(const Calculation<R>& c, Line& line) {
    Decimal sum;
    for (const Adult& adult : c.adults) {
        sum += sumOf(line.why, "AHV/IV/FAK/ALV/NBU (Lohnausweis Ziffer 9)", adult.income.salaries,
                     &SalaryCertificate::socialContributions,
                     FieldPath("income", "salaries", "socialContributions").of(adult.number));
    }
    line.why.step("Sozialversicherungen", both(sum));
    return sum;
}

/// Contributions to pension funds, through the salary and private ones, up to a share of the
/// household's earned income. SteG Art. 16
template <class R, class Line>
Decimal pensionFund(Calculation<R>& c, Line& line) {
    Decimal paid;
    Decimal earned;
    for (const Adult& adult : c.adults) {
        const auto ofSalaries = [&](std::string_view text, Decimal SalaryCertificate::*amount,
                                    std::string_view field) {
            return sumOf(line.why, text, adult.income.salaries, amount,
                         FieldPath("income", "salaries", field).of(adult.number),
                         [&](const SalaryCertificate& certificate) {
                             return !(certificate.*amount).isZero();
                         });
        };
        paid += ofSalaries("Pensionskasse (Lohnausweis Ziffer 10.1)",
                           &SalaryCertificate::pensionContributions, "pensionContributions");
        paid += ofSalaries("Einkauf in die Pensionskasse (Lohnausweis Ziffer 10.2)",
                           &SalaryCertificate::pensionBuyIn, "pensionBuyIn");
        paid += adult.deductions.pensionBuyIn;
        if (!adult.deductions.pensionBuyIn.isZero()) {
            line.why.input("Einkauf in die Pensionskasse, privat bezahlt",
                           adult.deductions.pensionBuyIn, adult.deductionPath("pensionBuyIn"));
        }
        earned += adult.earned();
    }
    // A loss leaves no room, but it must not turn contributions into income.
    const Decimal maximum = notBelowZero(earned * c.rules.pensionskasseMaxProzent / 100);
    if (paid > maximum) {
        c.notify(notices::pensionFundMaximum(maximum));
    }
    line.why.step("Lohn, Organentschädigungen und selbständiger Erwerb", both(earned));
    line.why.rule(law::insurance, "Pensionskasse höchstens, Anteil daran",
                  "pensionskasseMaxProzent", both(c.rules.pensionskasseMaxProzent), Unit::percent);
    line.why.cap("Pensionskasse höchstens", both(maximum));
    const Decimal counted = std::min(paid, maximum);
    line.why.step("Pensionskasse abziehbar", both(counted));
    return counted;
}

/// The allowance for one child by its age at the year's end; without a birth date the lowest.
struct ChildAllowance {
    std::string_view text;
    std::string_view ruleKey;
    Decimal LIRules::*amount;
};
ChildAllowance childAllowance(const Child& child, int year) noexcept {
    constexpr int lastYoung = 16;
    constexpr int lastMiddle = 20;
    const int age = child.birthDate ? ageAtEndOf(*child.birthDate, year) : 0;
    if (age <= lastYoung) {
        return {"Zuschlag für ein Kind bis 16 Jahre", "privatKindBis16", &LIRules::privatKindBis16};
    }
    if (age <= lastMiddle) {
        return {"Zuschlag für ein Kind von 17 bis 20 Jahren", "privatKind17bis20",
                &LIRules::privatKind17bis20};
    }
    return {"Zuschlag für ein Kind ab 21 Jahren", "privatKindAb21", &LIRules::privatKindAb21};
}

/// What private insurances count at most for the household. SteG Art. 16, SteV Art. 16
template <class R, class Line>
Decimal privateAllowance(const Calculation<R>& c, Line& line) {
    const bool married = c.kind == LITariffKind::verheiratet;
    Decimal allowance = married ? c.rules.privatVerheiratet : c.rules.privatAlleinstehend;
    line.why.rule(law::insurance,
                  married ? "Höchstbetrag für Verheiratete" : "Höchstbetrag für Alleinstehende",
                  married ? "privatVerheiratet" : "privatAlleinstehend", both(allowance));
    forEachItem(c.input.children, [&](const Child& child, int index) {
        if (!isDeductible(child, c.input.year)) {
            return;
        }
        const ChildAllowance rule = childAllowance(child, c.input.year);
        allowance += c.rules.*rule.amount;
        if constexpr (R::enabled) {
            line.why.fact(
                childLabel(child),
                FieldPath("children", child.birthDate ? "birthDate" : "education").at(index));
        }
        line.why.rule(law::insurance, rule.text, rule.ruleKey, both(c.rules.*rule.amount));
    });
    return allowance;
}

/// SteG Art. 16, SteV Art. 16
template <class R>
void addInsurance(Calculation<R>& c) {
    auto line = c.lines.line({"590", 0, "17", "Versicherungsbeiträge"});
    const Decimal social = socialContributions(c, line);
    const Decimal pension = pensionFund(c, line);
    const Decimal premiums = premiumsPaid(line.why, c.input.householdDeductions);
    const InsuranceBreakdown breakdown{premiums, privateAllowance(c, line)};
    line.why.cap("Private Versicherungen höchstens", both(breakdown.maximum));
    line.why.step("Private Versicherungen abziehbar", both(breakdown.deduction()));
    c.result.insurance.canton = breakdown;
    const auto money = [](const Decimal& amount) { return MoneyFormat::chf(amount, 0, true); };
    line.deduction(both(social + pension + breakdown.deduction()),
                   "AHV/IV/FAK/ALV/NBU " + money(social) + " · Pensionskasse " + money(pension)
                       + " · private Versicherungen " + money(breakdown.deduction()));
}

/// SteG Art. 16
template <class R>
void addChildDeduction(Calculation<R>& c) {
    auto line = c.lines.line({"600", 0, "18", {}},
                             "Kinderabzug (" + std::to_string(c.children) + " × CHF 12’700)");
    if constexpr (R::enabled) {
        forEachItem(c.input.children, [&](const Child& child, int index) {
            if (isDeductible(child, c.input.year)) {
                line.why.fact(childLabel(child), FieldPath("children", "education").at(index));
            }
        });
    }
    line.why.rule(law::deductions, "Abzug pro Kind", "kinderabzug", both(c.rules.kinderabzug));
    line.why.step("Kinder", both(Decimal(c.children)), Unit::number);
    line.deduction(both(c.rules.kinderabzug * c.children));
}

/// SteG Art. 16
template <class R>
void addChildEducation(Calculation<R>& c) {
    auto line = c.lines.line({"610", 0, "18.1", "Ausbildungskosten für Kinder", formA3});
    line.why.rule(law::deductions, "Höchstbetrag pro Kind", "ausbildungKindMax",
                  both(c.rules.ausbildungKindMax));
    Decimal total;
    forEachItem(c.input.children, [&](const Child& child, int index) {
        if (!isBornBy(child, c.input.year)) {
            return;
        }
        const Decimal amount = std::min(notBelowZero(child.educationCosts - child.scholarships),
                                        c.rules.ausbildungKindMax);
        total += amount;
        if (!child.educationCosts.isZero()) {
            line.why.input("Ausbildungskosten", child.educationCosts,
                           FieldPath("children", "educationCosts").at(index));
            line.why.input("− Stipendien", child.scholarships,
                           FieldPath("children", "scholarships").at(index));
            line.why.step("Abzug für dieses Kind", both(amount));
        }
    });
    line.deduction(both(total));
}

/// Bills name no person, so that the maximum counts for the household. SteG Art. 16
template <class R>
void addMedicalCosts(Calculation<R>& c) {
    auto line = c.lines.line({"615", 0, "18.2", "Krankheits-, Unfall- und Zahnarztkosten", formA3});
    const Decimal costs = selfPaidBills(line.why, c.input.householdDeductions,
                                        [](const MedicalCost&) { return true; });
    const int persons = static_cast<int>(c.adults.size()) + c.children;
    const Decimal maximum = c.rules.krankheitMaxProPerson * persons;
    line.why.rule(law::deductions, "Höchstbetrag pro Person", "krankheitMaxProPerson",
                  both(c.rules.krankheitMaxProPerson));
    line.why.step("Erwachsene und Kinder", both(Decimal(persons)), Unit::number);
    line.why.cap("Abziehbar höchstens", both(maximum));
    line.deduction(both(std::min(costs, maximum)));
}

/// SteG Art. 16
template <class R>
void addDonations(Calculation<R>& c) {
    auto line = c.lines.line({"620", 0, "18.3", "Freiwillige Geldleistungen", formA3});
    line.why.rule(law::deductions, "Eine Spende zählt ab", "spendeMinEinzel",
                  both(c.rules.spendeMinEinzel));
    const Decimal gifts =
        sumOf(line.why, "Spende", c.input.householdDeductions.donations, &Donation::amount,
              FieldPath("householdDeductions", "donations", "amount"), [&](const Donation& gift) {
                  return !gift.isPoliticalParty && gift.amount >= c.rules.spendeMinEinzel;
              });
    const Decimal maximum = notBelowZero(c.totalIncome * c.rules.spendenMaxProzent / 100);
    line.why.line("575", 0, "Total Erwerb", both(c.totalIncome));
    line.why.rule(law::deductions, "Höchstens, Anteil am Erwerb", "spendenMaxProzent",
                  both(c.rules.spendenMaxProzent), Unit::percent);
    line.why.cap("Abziehbar höchstens", both(maximum));
    line.deduction(both(std::min(gifts, maximum)));
}

/// SteG Art. 16
template <class R>
void addFurtherEducation(Calculation<R>& c) {
    auto line =
        c.lines.line({"625", 0, "18.4", "Berufsorientierte Aus- und Weiterbildung", formA3});
    line.why.rule(law::deductions, "Höchstbetrag pro Person", "weiterbildungMax",
                  both(c.rules.weiterbildungMax));
    Decimal total;
    for (const Adult& adult : c.adults) {
        const Decimal& costs = adult.deductions.furtherEducation;
        total += std::min(costs, c.rules.weiterbildungMax);
        if (!costs.isZero()) {
            line.why.input("Aus- und Weiterbildungskosten", costs,
                           adult.deductionPath("furtherEducation"));
        }
    }
    line.deduction(both(total));
}

/// Most of the pensions of the first pillar is free. SteG Art. 15 und 16
template <class R>
void addPensionAllowance(Calculation<R>& c) {
    auto line = c.lines.line({"630", 0, "18.5", "Freibetrag 70 % auf AHV/IV-Renten", formA3});
    Decimal pensions;
    for (const Adult& adult : c.adults) {
        pensions += adult.income.ahvPension;
    }
    line.why.line("540", 0, "AHV- und IV-Renten", both(pensions));
    line.why.rule(law::pensionAllowance, "Davon frei", "rentenFreibetragProzent",
                  both(c.rules.rentenFreibetragProzent), Unit::percent);
    line.deduction(both(pensions * c.rules.rentenFreibetragProzent / 100));
}

/// SteG Art. 16
template <class R>
void addMaintenancePaid(Calculation<R>& c) {
    const HouseholdDeductions& d = c.input.householdDeductions;
    auto line = c.lines.line({"628", 0, "18.6", "Unterhaltsbeiträge (bezahlt)", formA3});
    line.why.law(law::deductions, "Bezahlte Unterhaltsbeiträge");
    line.why.input("An Geschiedene oder Getrennte", d.alimonyPaidPartner,
                   FieldPath("householdDeductions", "alimonyPaidPartner"));
    line.why.input("Für Kinder", d.alimonyPaidChildren,
                   FieldPath("householdDeductions", "alimonyPaidChildren"));
    line.deduction(both(d.alimonyPaidPartner + d.alimonyPaidChildren));
}

} // namespace

template <class R>
void addDeductions(Calculation<R>& c) {
    c.lines.section(
        {.title = "Abzüge und steuerfreie Beträge", .page = 3, .concerns = Concerns::canton});
    addWorkCosts(c);
    addInsurance(c);
    addChildDeduction(c);
    addChildEducation(c);
    addMedicalCosts(c);
    addDonations(c);
    addFurtherEducation(c);
    addPensionAllowance(c);
    addMaintenancePaid(c);

    auto total = c.lines.line({"640", 0, "19", "Total der Abzüge"});
    c.lines.explainSum(total);
    const Decimal deductions = -c.lines.sum().canton;
    total.subtotal(both(deductions));

    auto taxable = c.lines.line({"650", 0, "20", "Steuerbarer Gesamterwerb"});
    taxable.why.line("575", 0, "Total Erwerb", both(c.totalIncome));
    taxable.why.line("640", 0, "− Total der Abzüge", both(deductions));
    taxable.why.rounding("Nie unter 0, auf ganze 10 Franken abgerundet");
    c.taxable = cutToTen(notBelowZero(c.totalIncome - deductions));
    taxable.total(both(c.taxable));
}

template void addDeductions(Calculation<NoRecorder>&);
template void addDeductions(Calculation<DerivationRecorder>&);

} // namespace taxcore::li
