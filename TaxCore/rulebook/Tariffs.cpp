#include "TaxCore/rulebook/Tariffs.h"

#include "TaxCore/base/Rounding.h"

#include <algorithm>

namespace taxcore::Tariffs {

namespace {

Decimal cutToStep(const Decimal& taxable, int step) {
    if (step <= 0) {
        return taxable;
    }
    return (taxable / step).roundDown(0) * step;
}

} // namespace

Decimal sgSimpleIncomeTax(const Decimal& taxable, TariffKind kind, const SGTariffTable& table) {
    const Decimal income = cutToStep(taxable, table.step);
    if (income < table.from) {
        return 0;
    }
    const bool joint = kind == TariffKind::joint;
    const auto& rows = joint ? table.joint : table.single;
    const Decimal flatFrom = joint ? table.jointFlatFrom : table.singleFlatFrom;
    if (income <= flatFrom && table.step > 0) {
        const auto row = ((income - table.from) / table.step).roundDown(0).toInteger();
        if (row && static_cast<std::size_t>(*row) < rows.size()) {
            return rows[static_cast<std::size_t>(*row)];
        }
    }
    return toRappen(income * table.flatRateAbove);
}

Decimal sgSimpleIncomeRate(const Decimal& taxable, TariffKind kind, const SGTariffTable& table) {
    const Decimal income = cutToStep(taxable, table.step);
    return income > 0 ? sgSimpleIncomeTax(income, kind, table) / income : Decimal(0);
}

Decimal sgSimpleWealthTax(const Decimal& taxable, const Decimal& promille) {
    return toRappen(notBelowZero(taxable) * promille / 1000);
}

Decimal federalIncomeTax(const Decimal& taxable, TariffKind kind, const FederalTariff& tariff) {
    const Decimal income = cutToHundred(taxable);
    const bool joint = kind == TariffKind::joint;
    const auto& brackets = joint ? tariff.verheiratet : tariff.alleinstehend;
    if (income >= (joint ? tariff.verheiratetFlatAb : tariff.alleinstehendFlatAb)) {
        return cutToFiveRappen(income * tariff.flatSatz);
    }
    const auto bracket = std::find_if(brackets.rbegin(), brackets.rend(),
                                      [&](const FederalBracket& b) { return b.ab <= income; });
    if (bracket == brackets.rend()) {
        return 0;
    }
    return cutToFiveRappen(bracket->steuer + (income - bracket->ab) * bracket->proHundert / 100);
}

Decimal federalIncomeTaxNet(const Decimal& taxable, TariffKind kind, int children,
                            const FederalTariff& tariff) {
    const Decimal tax =
        federalIncomeTax(taxable, kind, tariff) - Decimal(children) * tariff.abzugProKind;
    return tax < notBelowZero(tariff.minimum) ? Decimal(0) : tax;
}

const LIRules::Stufe* stufeFor(const Decimal& income, const std::vector<LIRules::Stufe>& steps) {
    const auto step = std::ranges::find_if(
        steps, [&](const LIRules::Stufe& s) { return !s.bis || income <= *s.bis; });
    return step == steps.end() ? nullptr : &*step;
}

Decimal landessteuer(const Decimal& income, LITariffKind kind, const LIRules::Tarif& tariff) {
    const LIRules::Stufe* step = income > 0 ? stufeFor(income, tariff.steps(kind)) : nullptr;
    return step == nullptr ? Decimal(0)
                           : toFiveRappen(notBelowZero(income * step->satz - step->abzug));
}

Decimal gemeindezuschlag(const Decimal& landessteuer, const Decimal& percent) {
    return toFiveRappen(landessteuer * percent / 100);
}

} // namespace taxcore::Tariffs
