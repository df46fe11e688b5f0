#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/stgallen/Calculation.h"
#include "TaxCore/stgallen/DeductionRules.h"
#include "TaxCore/stgallen/Household.h"
#include "TaxCore/stgallen/Law.h"
#include "TaxCore/stgallen/Notices.h"

namespace taxcore {

namespace {

/// StG SG Art. 39, DBG Art. 26
template <class R>
void addWorkExpenses(Calculation<R>& c, Adult& adult) {
    auto line =
        c.lines.line({"berufskosten", adult.number, "10", "Berufskosten Person ", "Formular 4"});
    adult.work = each(
        [&](const DeductionParams* p) {
            return workExpenses(adult.employment, adult.deductions.work, p->berufskosten);
        },
        c.params);
    if constexpr (R::enabled) {
        explainWorkExpenses(line.why, adult.number, adult.employment, adult.deductions.work,
                            c.params, adult.work);
    }
    const auto isCut = [](const WorkExpenseBreakdown& b) { return b.commute < b.commuteUncapped; };
    std::optional<std::string> note = c.nameOf(adult);
    if (isCut(adult.work.canton) || isCut(adult.work.federal)) {
        note = "Begrenzt auf " + MoneyFormat::fr(c.params.canton->berufskosten.fahrkostenMax)
               + " (Kanton). Für die Bundessteuer gilt max. "
               + MoneyFormat::fr(c.params.federal->berufskosten.fahrkostenMax) + ".";
    }
    line.deduction(each([](const WorkExpenseBreakdown& b) { return b.total(); }, adult.work),
                   std::move(note));
    c.result.work.canton->push_back(adult.work.canton);
    c.result.work.federal->push_back(adult.work.federal);
}

/// Private interest counts up to the yield of the assets plus an allowance.
/// StG SG Art. 45 Abs. 1 Bst. a, DBG Art. 33 Abs. 1 Bst. a
template <class R>
void addDebtInterest(Calculation<R>& c) {
    auto line = c.lines.line({"schuldzinsen", 0, "11", "Schuldzinsen"});
    Decimal interest;
    int index = 0;
    for (const Debt& debt : c.input.debts) {
        if (!debt.isBusiness) {
            interest += debt.interest;
            line.why.input("Schuldzinsen", debt.interest, {"debts", 0, {}, index, "interest"});
        }
        ++index;
    }
    const Amounts allowance = c.rule(&DeductionParams::privateSchuldzinsenZuschlag);
    const Amounts limit = both(c.investmentYield) + allowance;
    line.why.step("Steuerbarer Ertrag aus Wertschriften, Beteiligungen und Liegenschaften",
                  both(c.investmentYield));
    line.why.rule(law::debtInterest, "Zuschlag", "privateSchuldzinsenZuschlag", allowance);
    line.why.cap("Private Schuldzinsen höchstens", limit);
    line.deduction(smaller(both(interest), limit));
    if (interest > limit.canton || interest > limit.federal) {
        c.notify(notices::debtInterestLimit(std::min(interest, limit.canton), allowance.canton));
    }
}

template <class R>
void addMaintenanceAndAnnuities(Calculation<R>& c) {
    const HouseholdDeductions& d = c.input.householdDeductions;
    const auto path = [](std::string_view field) {
        return FieldPath{"householdDeductions", 0, {}, -1, field};
    };
    c.plainDeduction({"unterhaltPartner", 0, "12.1", "Unterhaltsbeiträge an Geschiedene/Getrennte"},
                     law::maintenancePaid, d.alimonyPaidPartner, path("alimonyPaidPartner"));
    c.plainDeduction(
        {"unterhaltBezahltKinder", 0, "12.2", "Unterhaltsbeiträge für minderjährige Kinder"},
        law::maintenancePaid, d.alimonyPaidChildren, path("alimonyPaidChildren"));
    c.plainDeduction({"rentenleistungen", 0, "12.3", "Rentenleistungen"}, law::annuities,
                     d.annuityPayments, path("annuityPayments"));
}

template <class R>
void addPillar3aBuyIn(Calculation<R>& c, Adult& adult, bool withEarnings) {
    const Decimal& buyIn = adult.deductions.pillar3aBuyIn;
    auto line = c.lines.line({"einkauf3a", adult.number, "13.1", "Einkauf Säule 3a Person "});
    const Amounts maximum =
        each([](const DeductionParams* p) { return p->saeule3a.mitPensionskasse; }, c.params);
    line.why.input("Einkauf in die Säule 3a", buyIn, adult.deductionPath("pillar3aBuyIn"));
    if (!withEarnings) {
        line.why.law(law::pillar3aBuyIn, "Ohne Erwerbseinkommen gibt es keinen Abzug");
        line.deduction({}, c.nameOf(adult));
        return;
    }
    line.why.rule(law::pillar3aBuyIn, "Einkauf höchstens (kleines Maximum)",
                  "saeule3a.mitPensionskasse", maximum);
    const Amounts deducted = smaller(both(buyIn), maximum);
    if (deducted.canton < buyIn || deducted.federal < buyIn) {
        c.notify(notices::pillar3aBuyInLimit(adult.number));
    }
    adult.pension += deducted;
    line.deduction(deducted, c.nameOf(adult));
}

/// StG SG Art. 45 Abs. 1 Bst. e, DBG Art. 33 Abs. 1 Bst. e, BVV 3 Art. 7 Abs. 1
template <class R>
void addPillar3a(Calculation<R>& c, Adult& adult) {
    const Decimal& paid = adult.deductions.pillar3a;
    const bool hasPensionFund = adult.person.hasPensionFund;
    const Decimal base = adult.earned() + adult.income.unemployment;
    const bool withEarnings = adult.earned() > 0 || adult.income.unemployment > 0;
    if (!withEarnings && (paid > 0 || adult.deductions.pillar3aBuyIn > 0)) {
        c.notify(notices::pillar3aWithoutEarnings(adult.number));
    }
    auto line = c.lines.line({"saeule3a", adult.number, "13.1", "Säule 3a Person "});
    line.why.input("Einzahlungen in die Säule 3a", paid, adult.deductionPath("pillar3a"));
    line.why.step("Erwerbseinkommen mit Arbeitslosentaggeldern", both(base));
    Amounts deducted;
    if (withEarnings) {
        const Amounts maximum = each(
            [&](const DeductionParams* p) {
                return pillar3aMaximum(hasPensionFund, base, p->saeule3a);
            },
            c.params);
        if constexpr (R::enabled) {
            const auto value = [&](Decimal Saeule3aParams::*field) {
                return each([&](const DeductionParams* p) { return p->saeule3a.*field; }, c.params);
            };
            if (hasPensionFund) {
                line.why.rule(law::pillar3a, "Maximum mit Pensionskasse",
                              "saeule3a.mitPensionskasse",
                              value(&Saeule3aParams::mitPensionskasse));
            } else {
                line.why.rule(law::pillar3a, "Ohne Pensionskasse: Anteil am Erwerbseinkommen",
                              "saeule3a.ohnePensionskasseSatz",
                              value(&Saeule3aParams::ohnePensionskasseSatz));
                line.why.rule(law::pillar3a, "Ohne Pensionskasse: Maximum",
                              "saeule3a.ohnePensionskasseMax",
                              value(&Saeule3aParams::ohnePensionskasseMax));
            }
            line.why.cap("Abziehbar höchstens", maximum);
        }
        deducted = smaller(both(paid), maximum);
        if (deducted.canton < paid || deducted.federal < paid) {
            c.notify(notices::pillar3aMaximum(adult.number, maximum.canton));
        }
    } else {
        line.why.law(law::pillar3a, "Ohne Erwerbseinkommen gibt es keinen Abzug");
    }
    adult.pension += deducted;
    line.deduction(deducted, c.nameOf(adult));
    addPillar3aBuyIn(c, adult, withEarnings);
}

template <class R>
void addPillar2(Calculation<R>& c, Adult& adult) {
    c.plainDeduction({"saeule2", adult.number, "13.2", "Säule 2 (BVG) Einkäufe Person "},
                     law::pillar2, adult.deductions.pensionBuyIn,
                     adult.deductionPath("pensionBuyIn"), c.nameOf(adult));
    adult.pension += both(adult.deductions.pensionBuyIn);
}

/// The rules behind the ceiling of insurance premiums.
template <class R>
void explainInsuranceMax(typename R::Draft& why, const Calculation<R>& c) {
    const bool joint = c.input.isJoint();
    const auto rule = [&](std::string_view text, std::string_view key,
                          Decimal VersicherungParams::*field) {
        why.rule(
            law::insurance, text, key,
            each([&](const DeductionParams* p) { return p->versicherungen.*field; }, c.params));
    };
    if (joint) {
        rule("Höchstbetrag für gemeinsam Besteuerte", "versicherungen.gemeinsam",
             &VersicherungParams::gemeinsam);
    } else {
        rule("Höchstbetrag für Alleinstehende", "versicherungen.alleinstehend",
             &VersicherungParams::alleinstehend);
    }
    const bool pays = std::ranges::any_of(c.adults, [](const Adult& adult) {
        return paysIntoPension(adult.income, adult.deductions);
    });
    if (!pays) {
        rule("Zuschlag ohne Beiträge an die 2. Säule und die Säule 3a",
             joint ? "versicherungen.zuschlagOhneVorsorgeGemeinsam"
                   : "versicherungen.zuschlagOhneVorsorgeAlleinstehend",
             joint ? &VersicherungParams::zuschlagOhneVorsorgeGemeinsam
                   : &VersicherungParams::zuschlagOhneVorsorgeAlleinstehend);
    }
    rule("Zuschlag pro Kind", "versicherungen.proKind", &VersicherungParams::proKind);
    rule("Zuschlag pro unterstützte Person", "versicherungen.proUnterstuetztePerson",
         &VersicherungParams::proUnterstuetztePerson);
}

/// StG SG Art. 45 Abs. 1 Bst. g, DBG Art. 33 Abs. 1 Bst. g und Abs. 1bis
template <class R>
void addInsurance(Calculation<R>& c) {
    const HouseholdDeductions& d = c.input.householdDeductions;
    auto line = c.lines.line({"versicherungen", 0, "14", "Versicherungsprämien und Sparzinsen"});
    const auto premium = [&](std::string_view text, const Decimal& amount, std::string_view field) {
        if (!amount.isZero()) {
            line.why.input(text, amount, {"householdDeductions", 0, {}, -1, field});
        }
    };
    premium("Krankenversicherung", d.healthInsurancePremiums, "healthInsurancePremiums");
    premium("Unfallversicherung", d.accidentInsurancePremiums, "accidentInsurancePremiums");
    premium("Lebensversicherung", d.lifeInsurancePremiums, "lifeInsurancePremiums");
    premium("− individuelle Prämienverbilligung", d.premiumReduction, "premiumReduction");
    Decimal paid = notBelowZero(d.healthInsurancePremiums + d.accidentInsurancePremiums
                                + d.lifeInsurancePremiums - d.premiumReduction);
    Decimal interest;
    for (const SecurityEntry& entry : c.input.securities) {
        if (entry.isSavingsAccount && entry.kind == AssetKind::konto
            && isPrivateAsset(entry, c.input)) {
            interest += grossIncome(entry);
        }
    }
    paid += interest;
    const PerJurisdiction<InsuranceBreakdown> breakdown = each(
        [&](const DeductionParams* p) {
            return InsuranceBreakdown{paid, insuranceMax(c.input, p->versicherungen)};
        },
        c.params);
    if constexpr (R::enabled) {
        line.why.step("Prämien abzüglich Verbilligung", both(paid - interest));
        line.why.step("Zinsen von Sparkonten", both(interest));
        explainInsuranceMax(line.why, c);
        line.why.cap("Höchstbetrag mit Zuschlägen für Kinder und fehlende Vorsorge",
                     each([](const InsuranceBreakdown& b) { return b.maximum; }, breakdown));
    }
    c.result.insurance.canton = breakdown.canton;
    c.result.insurance.federal = breakdown.federal;
    line.deduction(each([](const InsuranceBreakdown& b) { return b.deduction(); }, breakdown));
}

/// StG SG Art. 44 Abs. 2, DBG Art. 32 Abs. 2 und 4
template <class R>
void addRealEstateCosts(Calculation<R>& c) {
    const auto& params = c.rules.cantonalExtra.liegenschaften;
    auto line = c.lines.line(
        {"liegenschaftskosten", 0, "15", "Unterhalts- und Verwaltungskosten Liegenschaften"});
    Decimal costs;
    bool flatRate = false;
    int index = 0;
    for (const RealEstate& property : c.input.realEstate) {
        const Decimal cost = maintenanceCosts(property, params);
        if (property.useFlatRateMaintenance) {
            flatRate = flatRate || !cost.isZero();
            line.why.rule(law::realEstateFlatRate, "Pauschale, Anteil am Mietwert und Mietertrag",
                          "liegenschaften.pauschalabzugSatz", both(params.pauschalabzugSatz));
            line.why.step("Pauschale", both(cost));
        } else {
            line.why.law(law::realEstateCosts, "Tatsächliche Kosten");
            line.why.input("Unterhalt und Verwaltung", property.actualMaintenanceCosts,
                           {"realEstate", 0, {}, index, "actualMaintenanceCosts"});
        }
        costs += cost;
        ++index;
    }
    std::optional<std::string> note;
    if (flatRate) {
        note = "Pauschale " + MoneyFormat::number(params.pauschalabzugSatz * 100)
               + " % des Mietwerts. Beim Bund beträgt sie für Gebäude bis zehn Jahre 10 %.";
    }
    line.deduction(both(costs), std::move(note));
}

/// StG SG Art. 44, DBG Art. 32 Abs. 1
template <class R>
void addAssetManagement(Calculation<R>& c) {
    auto line = c.lines.line({"verwaltungskosten", 0, "16.1", "Verwaltungskosten Wertschriften"});
    if (const auto& actual = c.input.householdDeductions.actualAssetManagementCosts) {
        line.why.law(law::assetManagement, "Tatsächliche Kosten statt der Pauschale");
        line.why.input("Verwaltungskosten", *actual,
                       {"householdDeductions", 0, {}, -1, "actualAssetManagementCosts"});
        line.deduction(both(*actual));
        return;
    }
    Decimal managed;
    for (const SecurityEntry& entry : c.input.securities) {
        if (entry.managedByThirdParty && isPrivateAsset(entry, c.input)) {
            managed += entry.taxValue;
        }
    }
    line.why.step("Steuerwert der fremdverwalteten Wertschriften", both(managed));
    line.why.rule(law::assetManagement, "Pauschale, in Promille", "verwaltungskostenPromille",
                  c.rule(&DeductionParams::verwaltungskostenPromille));
    line.why.rule(law::assetManagement, "Pauschale höchstens", "verwaltungskostenMax",
                  c.rule(&DeductionParams::verwaltungskostenMax));
    line.deduction(
        each([&](const DeductionParams* p) { return assetManagementFlatRate(managed, *p); },
             c.params),
        "Pauschale " + MoneyFormat::number(c.params.canton->verwaltungskostenPromille)
            + "‰ des fremdverwalteten Wertschriftenvermögens");
}

/// StG SG Art. 45 Abs. 1 Bst. h, DBG Art. 33 Abs. 3
template <class R>
void addChildcare(Calculation<R>& c) {
    auto line = c.lines.line(
        {"kinderbetreuung", 0, "16.2", "Kinderbetreuungskosten bei Drittbetreuung", "Formular 10"});
    Amounts total;
    int index = 0;
    for (const Child& child : c.input.children) {
        const Amounts amount = each(
            [&](const DeductionParams* p) { return childcare(child, c.input.year, *p); }, c.params);
        if (!child.childcareCosts.isZero()) {
            line.why.input("Betreuungskosten", child.childcareCosts,
                           {"children", 0, {}, index, "childcareCosts"});
            if (child.childcareDaysWithMealsIncluded != 0) {
                line.why.input("Tage mit inbegriffenem Essen", child.childcareDaysWithMealsIncluded,
                               {"children", 0, {}, index, "childcareDaysWithMealsIncluded"});
            }
            line.why.step("Abzug für dieses Kind", amount);
        }
        total += amount;
        ++index;
    }
    line.why.rule(law::childcare, "Kürzung pro Tag mit Essen",
                  "kinderbetreuungVerpflegungKuerzungProTag",
                  c.rule(&DeductionParams::kinderbetreuungVerpflegungKuerzungProTag));
    line.why.rule(law::childcare, "Höchstbetrag pro Kind", "kinderbetreuungMax",
                  c.rule(&DeductionParams::kinderbetreuungMax));
    line.deduction(total);
}

/// DBG Art. 33 Abs. 1 Bst. j
template <class R>
void addFurtherEducation(Calculation<R>& c, const Adult& adult) {
    const PersonDeductions& d = adult.deductions;
    auto line = c.lines.line(
        {"weiterbildung", adult.number, "16.4", "Berufsorientierte Aus-/Weiterbildung Person "});
    line.why.input("Aus- und Weiterbildungskosten", d.furtherEducation,
                   adult.deductionPath("furtherEducation"));
    if (d.furtherEducationFlatRate) {
        line.why.rule(law::furtherEducation, "Pauschale (0: keine vorgesehen)",
                      "weiterbildungPauschal", c.rule(&DeductionParams::weiterbildungPauschal));
    }
    line.why.rule(law::furtherEducation, "Kosten höchstens", "weiterbildungMax",
                  c.rule(&DeductionParams::weiterbildungMax));
    line.deduction(
        each([&](const DeductionParams* p) { return furtherEducation(d, *p); }, c.params),
        c.nameOf(adult));
}

/// What a spouse's two-earner deduction is measured on: earned income less the costs of earning it,
/// not below 0. DBG Art. 33 Abs. 2
Amounts twoEarnerBase(const Adult& adult) {
    const Amounts costs =
        each([](const WorkExpenseBreakdown& b) { return b.total(); }, adult.work) + adult.pension;
    return notBelowZero(both(adult.earned()) - costs);
}

/// DBG Art. 33 Abs. 2
template <class R>
void addTwoEarners(Calculation<R>& c) {
    if (c.adults.size() < 2) {
        return;
    }
    const bool cooperation = c.input.householdDeductions.significantCooperation;
    if (!cooperation && !(c.adults[0].earned() > 0 && c.adults[1].earned() > 0)) {
        return;
    }
    auto line = c.lines.line({"zweiverdiener", 0, "17", "Zweiverdienerabzug"});
    const Amounts first = twoEarnerBase(c.adults[0]);
    const Amounts second = twoEarnerBase(c.adults[1]);
    Amounts base = smaller(first, second);
    line.why.step("Erwerb Person 1 nach Berufskosten und Vorsorge", first);
    line.why.step("Erwerb Person 2 nach Berufskosten und Vorsorge", second);
    if (cooperation) {
        line.why.fact(
            "Erhebliche Mitarbeit im Betrieb: das gemeinsame Einkommen zählt je zur Hälfte.",
            {"householdDeductions", 0, {}, -1, "significantCooperation"});
        base = each([](const Decimal& common) { return common / 2; }, first + second);
    }
    line.why.law(law::twoEarners, "Massgebend ist das tiefere Einkommen");
    line.why.step("Tieferes Einkommen", base);
    if constexpr (R::enabled) {
        const auto value = [&](Decimal ZweiverdienerParams::*field) {
            return each([&](const DeductionParams* p) { return p->zweiverdiener.*field; },
                        c.params);
        };
        line.why.rule(law::twoEarners, "Fester Betrag (Kanton)", "zweiverdiener.betrag",
                      value(&ZweiverdienerParams::betrag));
        line.why.rule(law::twoEarners, "Anteil am tieferen Einkommen (Bund)", "zweiverdiener.satz",
                      value(&ZweiverdienerParams::satz));
        line.why.rule(law::twoEarners, "mindestens (Bund)", "zweiverdiener.min",
                      value(&ZweiverdienerParams::min));
        line.why.rule(law::twoEarners, "höchstens (Bund)", "zweiverdiener.max",
                      value(&ZweiverdienerParams::max));
        line.why.cap("nie mehr als das tiefere Einkommen", base);
    }
    line.deduction(
        each([](const DeductionParams* p,
                const Decimal& lower) { return twoEarnerDeduction(lower, p->zweiverdiener); },
             c.params, base));
}

/// DBG Art. 33 Abs. 1 Bst. i
template <class R>
void addPartyGifts(Calculation<R>& c) {
    auto line = c.lines.line({"parteispenden", 0, "16.3", "Parteispenden", "Formular 5"});
    Decimal gifts;
    int index = 0;
    for (const Donation& donation : c.input.householdDeductions.donations) {
        if (donation.isPoliticalParty) {
            gifts += donation.amount;
            line.why.input("Parteispende", donation.amount,
                           {"householdDeductions", 0, "donations", index, "amount"});
        }
        ++index;
    }
    const Amounts maximum =
        each([&](const DeductionParams* p) { return partyGiftMaximum(c.input, *p); }, c.params);
    line.why.rule(law::partyGifts, "Höchstbetrag",
                  c.input.isJoint() ? "parteispendenGemeinsam" : "parteispendenAlleinstehend",
                  maximum);
    line.deduction(smaller(both(gifts), maximum));
}

template <class R>
void addOtherDeductions(Calculation<R>& c) {
    const HouseholdDeductions& d = c.input.householdDeductions;
    const std::string& described = d.otherDeductionsDescription;
    auto line = c.lines.line({"uebrigeAbzuege", 0, "16.5", {}},
                             described.empty() ? "Übrige Abzüge" : described);
    line.why.input("Eingetragener Betrag", d.otherDeductions,
                   {"householdDeductions", 0, {}, -1, "otherDeductions"});
    line.deduction(both(d.otherDeductions));
}

} // namespace

template <class R>
void addDeductions(Calculation<R>& c) {
    c.lines.section("Abzüge", 3);
    c.result.work.canton.emplace();
    c.result.work.federal.emplace();
    for (Adult& adult : c.adults) {
        addWorkExpenses(c, adult);
    }
    addDebtInterest(c);
    addMaintenanceAndAnnuities(c);
    for (Adult& adult : c.adults) {
        addPillar3a(c, adult);
    }
    for (Adult& adult : c.adults) {
        addPillar2(c, adult);
    }
    addInsurance(c);
    addRealEstateCosts(c);
    addAssetManagement(c);
    addChildcare(c);
    for (const Adult& adult : c.adults) {
        addFurtherEducation(c, adult);
    }
    addTwoEarners(c);
    addPartyGifts(c);
    addOtherDeductions(c);

    auto total = c.lines.line({"totalAbzuege", 0, "18", "Total der Abzüge"});
    c.lines.explainSum(total);
    const Amounts deductions = Amounts{} - c.lines.sum();
    total.subtotal(deductions);

    auto net = c.lines.line({"nettoeinkommen", 0, "20", "Nettoeinkommen"});
    net.why.line("totalEinkuenfte", 0, "Total der Einkünfte", c.totalIncome);
    net.why.line("totalAbzuege", 0, "− Total der Abzüge", deductions);
    net.why.fact("Nie unter 0.");
    c.netIncome = notBelowZero(c.totalIncome - deductions);
    net.subtotal(c.netIncome);
}

template void addDeductions(Calculation<NoRecorder>&);
template void addDeductions(Calculation<DerivationRecorder>&);

} // namespace taxcore
