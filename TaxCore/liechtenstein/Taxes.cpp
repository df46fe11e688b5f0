#include "TaxCore/base/Rounding.h"
#include "TaxCore/liechtenstein/LICalculation.h"
#include "TaxCore/liechtenstein/Law.h"
#include "TaxCore/liechtenstein/Notices.h"
#include "TaxCore/result/Figure.h"
#include "TaxCore/result/Sums.h"
#include "TaxCore/rulebook/Tariffs.h"

namespace taxcore::li {

namespace {

/// Percent of the national tax where the municipality is not known: a full surcharge, so that the
/// total is never understated.
constexpr int fallbackSurcharge = 150;

/// The step of the tariff that applies to the taxable income.
void explainNationalTax(DerivationRecorder::Draft& why, const TaxCase& taxCase,
                        const Decimal& taxable, LITariffKind kind, const LIRules& rules) {
    why.line("650", 0, "Steuerbarer Gesamterwerb", both(taxable));
    why.fact(label(taxCase.civilStatus), FieldPath("civilStatus"));
    if (kind == LITariffKind::alleinerziehend) {
        forEachItem(taxCase.children, [&](const Child& child, int index) {
            if (isDeductible(child, taxCase.year)) {
                why.fact(childLabel(child), FieldPath("children", "education").at(index));
            }
        });
    }
    why.law(law::tariff, "Tarif: " + std::string(label(kind)));
    const auto& steps = rules.tarif.steps(kind);
    const LIRules::Stufe* step = Tariffs::stufeFor(taxable, steps);
    if (step == nullptr) {
        why.fact("Keine Tarifstufe reicht so weit.");
        return;
    }
    const std::string key = itemKey("tarif." + std::string(rawValue(kind)),
                                    static_cast<std::size_t>(step - steps.data()));
    if (step->bis) {
        why.rule(law::tariff, "Die Stufe reicht bis", key + ".bis", both(*step->bis));
    }
    why.rule(law::tariff, "Satz der Stufe, vom ganzen Betrag", key + ".satz", both(step->satz),
             Unit::share);
    why.rule(law::tariff, "− Abzug der Stufe", key + ".abzug", both(step->abzug));
    why.rounding("Nie unter 0, auf 5 Rappen");
}

/// Where the municipal surcharge comes from.
void explainSurcharge(DerivationRecorder::Draft& why, const TaxCase& taxCase,
                      const LIRules& rules) {
    if (const auto index = positionOf(rules.gemeinden, taxCase.municipality)) {
        why.fact("Gemeinde " + taxCase.municipality, FieldPath("municipality"));
        why.rule(law::surcharge, "Gemeindezuschlag", itemKey("gemeinden", *index) + ".zuschlag",
                 both(rules.gemeinden[*index].zuschlag), Unit::percent);
        if (rules.vorlaeufig) {
            why.fact("Vorläufig wie im Vorjahr, bis die Gemeinde ihn Ende Jahr festlegt.");
        }
        return;
    }
    why.fact("Die Gemeinde ist nicht in der Liste – gerechnet wird mit einem vollen Zuschlag.",
             FieldPath("municipality"));
    why.step("Angenommener Zuschlag", both(Decimal(fallbackSurcharge)), Unit::percent);
}

/// The lines of the tax itself.
template <class R>
void addTaxLines(Calculation<R>& c) {
    const TaxBill& bill = c.result.bill;
    c.lines.section({.title = "Steuerberechnung", .page = 4, .concerns = Concerns::canton});
    auto national = c.lines.line({"660", 0, "", "Landessteuer"});
    if constexpr (R::enabled) {
        explainNationalTax(national.why, c.input, c.taxable, c.kind, c.rules);
    }
    national.subtotal(both(bill.cantonIncome));

    auto municipal = c.lines.line({"670", 0, "", "Gemeindezuschlag"});
    municipal.why.line("660", 0, "Landessteuer", both(bill.cantonIncome));
    municipal.why.line("municipalityRate", 0, "Gemeindezuschlag", both(bill.municipalityRate),
                       Unit::percent);
    municipal.why.law(law::surcharge, "Landessteuer mal Zuschlag");
    municipal.why.rounding("Auf 5 Rappen");
    municipal.subtotal(both(bill.municipalityIncome));

    auto total = c.lines.line({"680", 0, "", "Total Steuern"});
    total.why.line("660", 0, "Landessteuer", both(bill.cantonIncome));
    total.why.line("670", 0, "Gemeindezuschlag", both(bill.municipalityIncome));
    total.total(both(bill.total()));

    auto payments = c.lines.line({"690", 0, "", "Total Kapitalleistungen aus Vorsorge"});
    payments.info(both(sumOf(payments.why, "Kapitalleistung", c.input.capitalPayments,
                             &CapitalPayment::amount, FieldPath("capitalPayments", "amount"))));
}

/// The figures of the bill under their own names; most of them stand as a line already.
template <class R>
void explainBill(Calculation<R>& c) {
    const TaxBill& bill = c.result.bill;
    const auto tell = [&](const Figure& head, const Decimal& amount, const auto& explain) {
        figure(c.lines.recorder(), head, amount, explain);
    };
    const auto sameAs = [&](std::string_view code, std::string_view label, std::string_view line,
                            const Decimal& amount) {
        tell({code, label}, amount, [&](auto& why) { why.line(line, 0, label, both(amount)); });
    };
    tell({"cantonRate", "Landessteuer in Prozent", Concerns::canton, Unit::percent},
         bill.cantonRate,
         [](auto& why) { why.law(law::tariff, "Der Tarif gilt ohne Steuerfuss"); });
    tell({"municipalityRate", "Gemeindezuschlag in Prozent", Concerns::canton, Unit::percent},
         bill.municipalityRate, [&](auto& why) { explainSurcharge(why, c.input, c.rules); });
    sameAs("simpleIncomeTax", "Landessteuer", "660", bill.simpleIncomeTax);
    sameAs("cantonIncome", "Landessteuer", "660", bill.cantonIncome);
    sameAs("municipalityIncome", "Gemeindezuschlag", "670", bill.municipalityIncome);
    sameAs("taxableIncomeCanton", "Steuerbarer Gesamterwerb", "650", bill.taxableIncomeCanton);
    sameAs("cantonTotal", "Landessteuer", "660", bill.cantonTotal());
    sameAs("municipalityTotal", "Gemeindezuschlag", "670", bill.municipalityTotal());
    sameAs("cantonAndMunicipalityTotal", "Total Steuern", "680", bill.cantonAndMunicipalityTotal());
    sameAs("total", "Total Steuern", "680", bill.total());
    tell({"taxableWealth", "Steuerbares Vermögen"}, bill.taxableWealth, [&](auto& why) {
        why.line("880", 0, "Gesamtvermögen", both(c.netWealth));
        why.fact("Nie unter 0.");
    });
    tell({"simpleIncomeRatePercent", "Steuern in Prozent des Gesamterwerbs", Concerns::canton,
          Unit::percent},
         bill.simpleIncomeRatePercent, [&](auto& why) {
             why.line("680", 0, "Total Steuern", both(bill.total()));
             why.line("650", 0, "Geteilt durch den steuerbaren Gesamterwerb", both(c.taxable));
             why.rounding("Auf drei Stellen");
         });
}

} // namespace

TaxBill makeBill(const LIRules& rules, const TaxCase& taxCase, const Decimal& taxable,
                 const Decimal& netWealth) {
    const LITariffKind kind = liTariffOf(taxCase);
    TaxBill bill;
    bill.kind = kind == LITariffKind::alleinstehend ? TariffKind::single : TariffKind::joint;
    bill.taxableIncomeCanton = taxable;
    bill.taxableWealth = notBelowZero(netWealth);
    bill.simpleIncomeTax = Tariffs::landessteuer(taxable, kind, rules.tarif);
    bill.cantonRate = 100;
    bill.municipalityRate = rules.zuschlag(taxCase.municipality).value_or(fallbackSurcharge);
    bill.cantonIncome = bill.simpleIncomeTax;
    bill.municipalityIncome =
        Tariffs::gemeindezuschlag(bill.simpleIncomeTax, bill.municipalityRate);
    if (taxable > 0) {
        bill.simpleIncomeRatePercent = (bill.total() / taxable * 100).roundPlain(3);
    }
    return bill;
}

template <class R>
void addTaxes(Calculation<R>& c) {
    c.result.bill = makeBill(c.rules, c.input, c.taxable, c.netWealth);
    if (!c.rules.zuschlag(c.input.municipality)) {
        c.notify(notices::unknownMunicipality());
    }
    if (c.rules.vorlaeufig) {
        c.notify(notices::provisionalSurcharge(c.rules.jahr));
    }
    if constexpr (R::enabled) {
        explainBill(c);
    }
    addTaxLines(c);
}

template void addTaxes(Calculation<NoRecorder>&);
template void addTaxes(Calculation<DerivationRecorder>&);

} // namespace taxcore::li
