#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/stgallen/Calculation.h"
#include "TaxCore/stgallen/DeductionRules.h"
#include "TaxCore/stgallen/Law.h"
#include "TaxCore/stgallen/Notices.h"

#include <functional>

namespace taxcore {

namespace {

bool disabilityRelated(const MedicalCost& bill) noexcept { return bill.isDisabilityRelated; }

std::string percent(const Decimal& fraction) { return MoneyFormat::number(fraction * 100) + "%"; }

/// Illness and accident costs above a share of the net income.
/// StG SG Art. 46 Bst. a, DBG Art. 33 Abs. 1 Bst. h
template <class R>
void addMedicalCosts(Calculation<R>& c) {
    const HouseholdDeductions& d = c.input.householdDeductions;
    auto total =
        c.lines.line({"krankheitskosten", 0, "21.1", "Krankheits- und Unfallkosten (Total)"});
    Amounts costs = both(selfPaidBills(total.why, d, std::not_fn(disabilityRelated)));
    if (d.dietFlatRate) {
        const Amounts diet = c.rule(&DeductionParams::diaetPauschale);
        costs += diet;
        total.why.rule(law::medicalCosts, "Pauschale für lebensnotwendige Diät", "diaetPauschale",
                       diet);
    }
    if (isZero(costs)) {
        return;
    }
    total.info(costs);

    auto threshold = c.lines.line({"krankheitSelbstbehalt", 0, "21.1", "abzüglich Selbstbehalt"});
    const Amounts share = c.rule(&DeductionParams::krankheitSelbstbehaltSatz);
    const Amounts limit = each([](const Decimal& rate, const Decimal& net) { return rate * net; },
                               share, c.netIncome);
    threshold.why.line("nettoeinkommen", 0, "Nettoeinkommen", c.netIncome);
    threshold.why.rule(law::medicalCosts, "Selbstbehalt, Anteil am Nettoeinkommen",
                       "krankheitSelbstbehaltSatz", share, Unit::share);
    threshold.info(limit, "Kanton " + percent(share.canton) + ", Bund " + percent(share.federal)
                              + " des Nettoeinkommens");

    auto line = c.lines.line({"krankheitAbzug", 0, "21.1", "Abzug Krankheits- und Unfallkosten"});
    line.why.law(law::medicalCosts, "Abziehbar ist, was den Selbstbehalt übersteigt");
    line.why.line("krankheitskosten", 0, "Kosten", costs);
    line.why.threshold("− Selbstbehalt", limit);
    line.deduction(notBelowZero(costs - limit));
    if (costs.canton < limit.canton && costs.federal < limit.federal) {
        c.notify(notices::medicalBelowThreshold(costs.canton, limit.canton));
    }
}

/// StG SG Art. 46, DBG Art. 33 Abs. 1 Bst. hbis
template <class R>
void addDisabilityCosts(Calculation<R>& c) {
    const HouseholdDeductions& d = c.input.householdDeductions;
    auto line = c.lines.line({"behinderung", 0, "21.2", "Behinderungsbedingte Kosten"});
    line.why.law(law::disabilityCosts, "Abziehbar ohne Selbstbehalt");
    if (!d.disabilityFlatRate.isZero()) {
        line.why.input("Pauschale", d.disabilityFlatRate,
                       FieldPath("householdDeductions", "disabilityFlatRate"));
    }
    line.deduction(both(d.disabilityFlatRate + selfPaidBills(line.why, d, disabilityRelated)));
}

/// StG SG Art. 46 Bst. c, DBG Art. 33a
template <class R>
void addDonations(Calculation<R>& c) {
    auto line = c.lines.line({"zuwendungen", 0, "21.3", "Freiwillige Zuwendungen"});
    const Decimal gifts =
        sumOf(line.why, "Spende", c.input.householdDeductions.donations, &Donation::amount,
              FieldPath("householdDeductions", "donations", "amount"),
              [](const Donation& gift) { return !gift.isPoliticalParty; });
    const Amounts minimum = c.rule(&DeductionParams::freiwilligeZuwendungenMin);
    line.why.rule(law::donations, "Abziehbar ab gesamthaft", "freiwilligeZuwendungenMin", minimum);
    line.why.line("nettoeinkommen", 0, "Nettoeinkommen", c.netIncome);
    line.why.rule(law::donations, "höchstens, Anteil am Nettoeinkommen",
                  "freiwilligeZuwendungenMaxSatz",
                  c.rule(&DeductionParams::freiwilligeZuwendungenMaxSatz), Unit::share);
    line.deduction(each(
        [&](const Decimal& net, const DeductionParams* p) { return giftDeduction(gifts, net, *p); },
        c.netIncome, c.params));
    if (gifts > 0 && gifts < minimum.canton) {
        c.notify(notices::donationsBelowMinimum(minimum.canton));
    }
}

/// One of the two lines of child deductions.
struct ChildDeductionLine {
    bool preschool = false; ///< the children that count here
    LineHead head;
    std::string_view ruleKey;
    Decimal DeductionParams::*amount;

    bool counts(const Child& child, int year) const {
        return isDeductible(child, year)
               && (child.education == ChildEducation::vorschule) == preschool;
    }
};

template <class R>
void explainChildDeduction(typename R::Draft& why, const Calculation<R>& c,
                           const ChildDeductionLine& kind) {
    forEachItem(c.input.children, [&](const Child& child, int index) {
        if (kind.counts(child, c.input.year)) {
            why.fact(childLabel(child) + ": " + std::string(label(child.education)),
                     FieldPath("children", "education").at(index));
        }
    });
    const auto uniform =
        each([](const DeductionParams* p) { return hasUniformChildDeduction(*p); }, c.params);
    if (!uniform.canton || !uniform.federal) {
        why.rule(law::childDeduction, "Abzug pro Kind", kind.ruleKey, c.rule(kind.amount),
                 Unit::francs, concerned({!uniform.canton, !uniform.federal}));
    }
    if (uniform.canton || uniform.federal) {
        why.rule(law::childDeduction, "Einheitlicher Abzug pro Kind", "kinderabzugEinheitlich",
                 c.rule(&DeductionParams::kinderabzugEinheitlich), Unit::francs,
                 concerned(uniform));
    }
}

/// How many children the line counts.
template <class R>
int addChildDeduction(Calculation<R>& c, const ChildDeductionLine& kind) {
    int count = 0;
    Amounts total;
    for (const Child& child : c.input.children) {
        if (kind.counts(child, c.input.year)) {
            ++count;
            total += c.byRule([&](const DeductionParams& p) { return childDeduction(child, p); });
        }
    }
    if (count > 0) {
        auto line = c.lines.line(kind.head,
                                 std::string(kind.head.label) + " (" + std::to_string(count) + ")");
        if constexpr (R::enabled) {
            explainChildDeduction(line.why, c, kind);
        }
        line.deduction(total);
    }
    return count;
}

/// StG SG Art. 48 Abs. 1 Bst. a Ziff. 1 und 2, DBG Art. 35 Abs. 1 Bst. a
template <class R>
void addChildDeductions(Calculation<R>& c) {
    const int young =
        addChildDeduction(c, {true,
                              {"kinderabzugVorschule", 0, "23.1", "Kinderabzug Vorschulalter"},
                              "kinderabzugVorschule",
                              &DeductionParams::kinderabzugVorschule});
    const int older =
        addChildDeduction(c, {false,
                              {"kinderabzugAusbildung", 0, "23.2", "Kinderabzug Schule/Ausbildung"},
                              "kinderabzugAusbildung",
                              &DeductionParams::kinderabzugAusbildung});
    if (young + older > 0 && c.input.householdDeductions.alimonyPaidChildren > 0) {
        c.notify(notices::childDeductionWithMaintenance());
    }
}

/// StG SG Art. 48 Abs. 1 Bst. a Ziff. 3
template <class R>
void addChildEducation(Calculation<R>& c) {
    auto line = c.lines.line({"ausbildungskosten", 0, "23.3", "Ausbildungskosten für Kinder"});
    line.why.rule(law::childEducation, "− Selbstbehalt pro Kind", "ausbildungskostenSelbstbehalt",
                  c.rule(&DeductionParams::ausbildungskostenSelbstbehalt));
    line.why.rule(law::childEducation, "Höchstbetrag pro Kind", "ausbildungskostenMax",
                  c.rule(&DeductionParams::ausbildungskostenMax));
    Amounts total;
    forEachItem(c.input.children, [&](const Child& child, int index) {
        if (!isDeductible(child, c.input.year)) {
            return;
        }
        const Amounts amount =
            c.byRule([&](const DeductionParams& p) { return childEducationCosts(child, p); });
        if (!child.educationCosts.isZero()) {
            line.why.input("Ausbildungskosten", child.educationCosts,
                           FieldPath("children", "educationCosts").at(index));
            line.why.input("− Stipendien", child.scholarships,
                           FieldPath("children", "scholarships").at(index));
            line.why.step("Abzug für dieses Kind", amount);
        }
        total += amount;
    });
    line.deduction(total);
}

/// DBG Art. 35 Abs. 1 Bst. b und c
template <class R>
void addFederalDeductions(Calculation<R>& c) {
    const int supported = c.input.householdDeductions.supportedPersons;
    auto support =
        c.lines.line({"unterstuetzung", 0, "23.4", "Abzug für unterstützte Personen (nur Bund)"});
    const Amounts perPerson = c.rule(&DeductionParams::unterstuetzungsabzug);
    support.why.input("Unterstützte Personen", supported,
                      FieldPath("householdDeductions", "supportedPersons"), Unit::number);
    support.why.rule(law::supportDeduction, "Abzug pro Person", "unterstuetzungsabzug", perPerson);
    support.deduction(each([&](const Decimal& amount) { return amount * supported; }, perPerson));

    if (c.input.isJoint()) {
        auto married = c.lines.line({"verheiratet", 0, "", "Verheiratetenabzug (nur Bund)"});
        const Amounts amount = c.rule(&DeductionParams::verheiratetenabzug);
        married.why.fact(label(c.input.civilStatus), FieldPath("civilStatus"));
        married.why.rule(law::marriedDeduction, "Abzug für Ehepaare", "verheiratetenabzug", amount);
        married.deduction(amount);
    }
}

} // namespace

template <class R>
void addNetIncomeDeductions(Calculation<R>& c) {
    c.lines.section({"Abzüge vom Nettoeinkommen", 3});
    addMedicalCosts(c);
    addDisabilityCosts(c);
    addDonations(c);
    c.taxableIncome = c.netIncome + c.lines.sum();
}

template <class R>
void addSocialDeductions(Calculation<R>& c) {
    const Amounts before = c.taxableIncome;
    c.lines.section({"Sozialabzüge", 3});
    addChildDeductions(c);
    addChildEducation(c);
    addFederalDeductions(c);

    auto taxable = c.lines.line({"steuerbaresEinkommen", 0, "24", "Steuerbares Einkommen"});
    taxable.why.line("nettoeinkommen", 0, "Nettoeinkommen", c.netIncome);
    taxable.why.step("Nach den Abzügen vom Nettoeinkommen", before);
    c.lines.explainSum(taxable);
    taxable.why.fact("Nie unter 0.");
    c.taxableIncome = notBelowZero(before + c.lines.sum());
    taxable.total(c.taxableIncome);
}

template void addNetIncomeDeductions(Calculation<NoRecorder>&);
template void addNetIncomeDeductions(Calculation<DerivationRecorder>&);
template void addSocialDeductions(Calculation<NoRecorder>&);
template void addSocialDeductions(Calculation<DerivationRecorder>&);

} // namespace taxcore
