#include "TaxCore/stgallen/TaxCalculator.h"

#include "TaxCore/model/Household.h"
#include "TaxCore/stgallen/Bill.h"
#include "TaxCore/stgallen/Calculation.h"
#include "TaxCore/stgallen/Law.h"
#include "TaxCore/stgallen/Notices.h"

#include <algorithm>

namespace taxcore {

namespace {

/// Whether two confessions differ for the church tax: no church is no church.
bool differ(Confession a, Confession b) noexcept {
    const auto withoutChurch = [](Confession c) {
        return c == Confession::andere ? Confession::keine : c;
    };
    return withoutChurch(a) != withoutChurch(b);
}

/// Finds municipality and parish and tells what cannot be found.
template <class R>
void locate(Calculation<R>& c) {
    const Municipality* municipality = c.rules.municipalities.municipality(c.input.municipality);
    if (municipality == nullptr) {
        c.notify(notices::unknownMunicipality(c.input.municipality, c.input.year));
        c.notify(notices::missingMultiplier());
        return;
    }
    c.result.municipality = *municipality;
    if (c.input.parish) {
        if (const Parish* parish = municipality->parish(*c.input.parish)) {
            c.result.parish = *parish;
        }
    }
}

template <class T>
const T* pointerTo(const std::optional<T>& value) noexcept {
    return value ? &*value : nullptr;
}

/// StG SG Art. 52, DBG Art. 38
template <class R>
void addCapitalPayments(Calculation<R>& c) {
    c.lines.section({"Kapitalleistungen aus Vorsorge", 2});
    auto line = c.lines.line({"kapitalleistungen", 0, "9", "Total Kapitalleistungen aus Vorsorge"});
    line.why.law(law::capitalPayments, "Getrennt vom übrigen Einkommen besteuert");
    line.info(both(sumOf(line.why, "Kapitalleistung", c.input.capitalPayments,
                         &CapitalPayment::amount, FieldPath("capitalPayments", "amount"))));
}

template <class Recorder>
TaxResult run(const RuleBook& rules, const TaxCase& taxCase, Recorder& recorder) {
    TaxResult result;
    result.year = taxCase.year;
    result.sections.reserve(6);
    Calculation<Recorder> c(rules, taxCase, result, recorder);
    addIncome(c);
    addDeductions(c);
    addNetIncomeDeductions(c);
    addSocialDeductions(c);
    addWealth(c);
    addCapitalPayments(c);
    c.lines.finish();

    locate(c);
    if (taxCase.isJoint() && differ(taxCase.person1.confession, taxCase.person2.confession)) {
        c.notify(notices::mixedConfessions());
    }
    result.bill =
        makeBill(rules,
                 {taxCase, c.taxableIncome.canton, c.taxableIncome.federal, c.taxableWealth,
                  pointerTo(result.municipality), pointerTo(result.parish)},
                 recorder);
    result.capitalPaymentTax = taxCapitalPayments(rules, taxCase, result.bill, recorder);
    return result;
}

} // namespace

tl::expected<TaxCalculator, RuleBook::LoadError> TaxCalculator::forYear(int year) {
    return RuleBook::load(year, "SG").map([](auto book) { return TaxCalculator(std::move(book)); });
}

TaxResult TaxCalculator::calculate(const TaxCase& taxCase) const {
    NoRecorder recorder;
    return run(*rules_, taxCase, recorder);
}

std::vector<Derivation> TaxCalculator::explainAll(const TaxCase& taxCase) const {
    DerivationRecorder recorder;
    run(*rules_, taxCase, recorder);
    return std::move(recorder).derivations();
}

std::optional<Derivation> TaxCalculator::explain(const TaxCase& taxCase,
                                                 std::string_view code) const {
    DerivationRecorder recorder(code);
    run(*rules_, taxCase, recorder);
    return std::move(recorder).first();
}

WorkExpenseBreakdown TaxCalculator::workExpenses(const std::vector<SalaryCertificate>& salaries,
                                                 const WorkExpenses& p,
                                                 const BerufskostenParams& params) {
    return taxcore::workExpenses(EmploymentFacts(salaries), p, params);
}

TaxBill TaxCalculator::computeBill(const TaxCase& taxCase, const Decimal& taxableIncomeCanton,
                                   const Decimal& taxableIncomeFederal,
                                   const Decimal& taxableWealth, const Municipality* municipality,
                                   const Parish* parish) const {
    NoRecorder recorder;
    return makeBill(
        *rules_,
        {taxCase, taxableIncomeCanton, taxableIncomeFederal, taxableWealth, municipality, parish},
        recorder);
}

Decimal TaxCalculator::churchRate(const TaxCase& taxCase, const Parish* parish) const {
    return taxcore::churchRate(taxCase, parish, rules_->municipalities);
}

int TaxCalculator::age(Date of, int atEndOf) noexcept { return ageAtEndOf(of, atEndOf); }

ChildEducation TaxCalculator::suggestedEducation(const std::optional<Date>& birth,
                                                 int year) noexcept {
    return usualEducation(birth, year);
}

} // namespace taxcore
