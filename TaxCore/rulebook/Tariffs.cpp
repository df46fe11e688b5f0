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

const std::vector<Decimal>& rowsOf(const SGTariffTable& table, TariffKind kind) noexcept {
    return kind == TariffKind::joint ? table.joint : table.single;
}

const std::vector<FederalBracket>& bracketsOf(const FederalTariff& tariff,
                                              TariffKind kind) noexcept {
    return kind == TariffKind::joint ? tariff.verheiratet : tariff.alleinstehend;
}

TariffPlace sgPlace(const Decimal& taxable, TariffKind kind, const SGTariffTable& table) {
    TariffPlace place{.income = cutToStep(taxable, table.step), .row = {}, .flat = false};
    if (place.income < table.from) {
        return place;
    }
    const Decimal flatFrom = kind == TariffKind::joint ? table.jointFlatFrom : table.singleFlatFrom;
    if (place.income <= flatFrom && table.step > 0) {
        const auto row = ((place.income - table.from) / table.step).roundDown(0).toInteger();
        if (row && static_cast<std::size_t>(*row) < rowsOf(table, kind).size()) {
            place.row = static_cast<std::size_t>(*row);
        }
    }
    place.flat = !place.row;
    return place;
}

TariffPlace federalPlace(const Decimal& taxable, TariffKind kind, const FederalTariff& tariff) {
    TariffPlace place{.income = cutToHundred(taxable), .row = {}, .flat = false};
    const bool joint = kind == TariffKind::joint;
    if (place.income >= (joint ? tariff.verheiratetFlatAb : tariff.alleinstehendFlatAb)) {
        place.flat = true;
        return place;
    }
    const auto& brackets = bracketsOf(tariff, kind);
    const auto above = std::ranges::find_if(
        brackets.rbegin(), brackets.rend(),
        [&](const FederalBracket& bracket) { return bracket.ab <= place.income; });
    if (above != brackets.rend()) {
        place.row = static_cast<std::size_t>(brackets.rend() - above) - 1;
    }
    return place;
}

Decimal sgSimpleIncomeTax(const Decimal& taxable, TariffKind kind, const SGTariffTable& table) {
    const TariffPlace place = sgPlace(taxable, kind, table);
    if (place.row) {
        return rowsOf(table, kind)[*place.row];
    }
    return place.flat ? toRappen(place.income * table.flatRateAbove) : Decimal(0);
}

Decimal sgSimpleIncomeRate(const Decimal& taxable, TariffKind kind, const SGTariffTable& table) {
    const Decimal income = cutToStep(taxable, table.step);
    return income > 0 ? sgSimpleIncomeTax(income, kind, table) / income : Decimal(0);
}

Decimal sgSimpleWealthTax(const Decimal& taxable, const Decimal& promille) {
    return toRappen(notBelowZero(taxable) * promille / 1000);
}

Decimal federalIncomeTax(const Decimal& taxable, TariffKind kind, const FederalTariff& tariff) {
    const TariffPlace place = federalPlace(taxable, kind, tariff);
    if (place.flat) {
        return cutToFiveRappen(place.income * tariff.flatSatz);
    }
    if (!place.row) {
        return 0;
    }
    const FederalBracket& bracket = bracketsOf(tariff, kind)[*place.row];
    return cutToFiveRappen(bracket.steuer + (place.income - bracket.ab) * bracket.proHundert / 100);
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
