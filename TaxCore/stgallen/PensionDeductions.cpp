#include "TaxCore/model/Household.h"
#include "TaxCore/stgallen/Calculation.h"
#include "TaxCore/stgallen/DeductionRules.h"
#include "TaxCore/stgallen/Explanations.h"
#include "TaxCore/stgallen/Law.h"
#include "TaxCore/stgallen/Notices.h"

namespace taxcore {

namespace {

/// Tells on what a contribution to pillar 3a is measured: earned income and what stands for it.
template <class Draft>
void explainEarnings(Draft& why, const Adult& adult, const Decimal& base) {
    explainEarned(why, adult);
    if (!adult.income.unemployment.isZero()) {
        why.input("Arbeitslosentaggelder", adult.income.unemployment,
                  adult.incomePath("unemployment"));
    }
    why.step("Erwerbseinkommen mit Arbeitslosentaggeldern", both(base));
}

template <class R>
void explainPillar3aRules(typename R::Draft& why, const Calculation<R>& c, const Adult& adult) {
    const auto value = [&](Decimal Saeule3aParams::*field) {
        return c.byRule([&](const DeductionParams& p) { return p.saeule3a.*field; });
    };
    if (adult.person.hasPensionFund) {
        why.fact("Mit Pensionskasse", FieldPath("person", "hasPensionFund").of(adult.number));
        why.rule(law::pillar3a, "Maximum mit Pensionskasse", "saeule3a.mitPensionskasse",
                 value(&Saeule3aParams::mitPensionskasse));
        return;
    }
    why.fact("Ohne Pensionskasse", FieldPath("person", "hasPensionFund").of(adult.number));
    why.rule(law::pillar3a, "Anteil am Erwerbseinkommen", "saeule3a.ohnePensionskasseSatz",
             value(&Saeule3aParams::ohnePensionskasseSatz), Unit::share);
    why.rule(law::pillar3a, "Maximum ohne Pensionskasse", "saeule3a.ohnePensionskasseMax",
             value(&Saeule3aParams::ohnePensionskasseMax));
}

template <class R>
void addPillar3aBuyIn(Calculation<R>& c, Adult& adult, bool withEarnings) {
    const Decimal& buyIn = adult.deductions.pillar3aBuyIn;
    auto line = c.lines.line({"einkauf3a", adult.number, "13.1", "Einkauf Säule 3a Person "});
    line.why.input("Einkauf in die Säule 3a", buyIn, adult.deductionPath("pillar3aBuyIn"));
    if (!withEarnings) {
        line.why.law(law::pillar3aBuyIn, "Ohne Erwerbseinkommen gibt es keinen Abzug");
        line.deduction({}, c.nameOf(adult));
        return;
    }
    const Amounts maximum =
        c.byRule([](const DeductionParams& p) { return p.saeule3a.mitPensionskasse; });
    line.why.rule(law::pillar3aBuyIn, "Einkauf höchstens (kleines Maximum)",
                  "saeule3a.mitPensionskasse", maximum);
    adult.pillar3aBuyIn = smaller(both(buyIn), maximum);
    if (adult.pillar3aBuyIn.canton < buyIn || adult.pillar3aBuyIn.federal < buyIn) {
        c.notify(notices::pillar3aBuyInLimit(adult.number));
    }
    line.deduction(adult.pillar3aBuyIn, c.nameOf(adult));
}

/// The rules behind the ceiling of insurance premiums.
template <class R>
void explainInsuranceCeiling(typename R::Draft& why, const Calculation<R>& c,
                             const InsuranceCeiling& ceiling) {
    const auto rule = [&](std::string_view text, std::string_view key,
                          Decimal VersicherungParams::*field) {
        why.rule(law::insurance, text, key,
                 c.byRule([&](const DeductionParams& p) { return p.versicherungen.*field; }));
    };
    rule(ceiling.joint ? "Höchstbetrag für gemeinsam Besteuerte"
                       : "Höchstbetrag für Alleinstehende",
         ceiling.joint ? "versicherungen.gemeinsam" : "versicherungen.alleinstehend",
         ceiling.base());
    if (ceiling.withoutPension) {
        rule("Zuschlag, weil niemand in die 2. Säule oder die Säule 3a einzahlt",
             ceiling.joint ? "versicherungen.zuschlagOhneVorsorgeGemeinsam"
                           : "versicherungen.zuschlagOhneVorsorgeAlleinstehend",
             ceiling.supplement());
    }
    if (ceiling.children > 0) {
        forEachItem(c.input.children, [&](const Child& child, int index) {
            if (isDeductible(child, c.input.year)) {
                why.fact(childLabel(child), FieldPath("children", "education").at(index));
            }
        });
        rule("Zuschlag pro Kind", "versicherungen.proKind", &VersicherungParams::proKind);
    }
    if (ceiling.supported != 0) {
        why.input("Unterstützte Personen", ceiling.supported,
                  FieldPath("householdDeductions", "supportedPersons"), Unit::number);
        rule("Zuschlag pro unterstützte Person", "versicherungen.proUnterstuetztePerson",
             &VersicherungParams::proUnterstuetztePerson);
    }
}

/// Interest of savings accounts, which shares the ceiling of the premiums.
template <class Draft>
Decimal savingsInterest(Draft& why, const TaxCase& taxCase) {
    Decimal interest;
    forEachItem(taxCase.securities, [&](const SecurityEntry& entry, int index) {
        if (entry.isSavingsAccount && entry.kind == AssetKind::konto
            && isPrivateAsset(entry, taxCase)) {
            interest += grossIncome(entry);
            explainGrossIncome(why, entry, index);
        }
    });
    if (!interest.isZero()) {
        why.step("Zinsen von Sparkonten", both(interest));
    }
    return interest;
}

} // namespace

template <class R>
void addPillar3a(Calculation<R>& c, Adult& adult) {
    const Decimal& paid = adult.deductions.pillar3a;
    const Decimal base = adult.earned() + adult.income.unemployment;
    const bool withEarnings = adult.earned() > 0 || adult.income.unemployment > 0;
    if (!withEarnings && (paid > 0 || adult.deductions.pillar3aBuyIn > 0)) {
        c.notify(notices::pillar3aWithoutEarnings(adult.number));
    }
    auto line = c.lines.line({"saeule3a", adult.number, "13.1", "Säule 3a Person "});
    line.why.input("Einzahlungen in die Säule 3a", paid, adult.deductionPath("pillar3a"));
    explainEarnings(line.why, adult, base);
    if (withEarnings) {
        const Amounts maximum = c.byRule([&](const DeductionParams& p) {
            return pillar3aMaximum(adult.person.hasPensionFund, base, p.saeule3a);
        });
        if constexpr (R::enabled) {
            explainPillar3aRules(line.why, c, adult);
        }
        line.why.cap("Abziehbar höchstens", maximum);
        adult.pillar3a = smaller(both(paid), maximum);
        if (adult.pillar3a.canton < paid || adult.pillar3a.federal < paid) {
            c.notify(notices::pillar3aMaximum(adult.number, maximum.canton));
        }
    } else {
        line.why.law(law::pillar3a, "Ohne Erwerbseinkommen gibt es keinen Abzug");
    }
    line.deduction(adult.pillar3a, c.nameOf(adult));
    addPillar3aBuyIn(c, adult, withEarnings);
}

template <class R>
void addPillar2(Calculation<R>& c, const Adult& adult) {
    c.plainDeduction({"saeule2", adult.number, "13.2", "Säule 2 (BVG) Einkäufe Person "},
                     law::pillar2, adult.deductions.pensionBuyIn,
                     adult.deductionPath("pensionBuyIn"), c.nameOf(adult));
}

template <class R>
void addInsurance(Calculation<R>& c) {
    auto line = c.lines.line({"versicherungen", 0, "14", "Versicherungsprämien und Sparzinsen"});
    const Decimal premiums = premiumsPaid(line.why, c.input.householdDeductions);
    line.why.step("Prämien abzüglich Verbilligung", both(premiums));
    const Decimal paid = premiums + savingsInterest(line.why, c.input);
    const InsuranceCeiling ceiling = insuranceCeiling(c.input);
    const PerJurisdiction<InsuranceBreakdown> breakdown = each(
        [&](const DeductionParams* p) {
            return InsuranceBreakdown{paid, ceiling.amount(p->versicherungen)};
        },
        c.params);
    if constexpr (R::enabled) {
        explainInsuranceCeiling(line.why, c, ceiling);
    }
    line.why.cap("Abziehbar höchstens",
                 each([](const InsuranceBreakdown& b) { return b.maximum; }, breakdown));
    c.result.insurance.canton = breakdown.canton;
    c.result.insurance.federal = breakdown.federal;
    line.deduction(each([](const InsuranceBreakdown& b) { return b.deduction(); }, breakdown));
}

template void addPillar3a(Calculation<NoRecorder>&, Adult&);
template void addPillar3a(Calculation<DerivationRecorder>&, Adult&);
template void addPillar2(Calculation<NoRecorder>&, const Adult&);
template void addPillar2(Calculation<DerivationRecorder>&, const Adult&);
template void addInsurance(Calculation<NoRecorder>&);
template void addInsurance(Calculation<DerivationRecorder>&);

} // namespace taxcore
