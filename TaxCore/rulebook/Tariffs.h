#pragma once

#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/model/Enumerations.h"
#include "TaxCore/rulebook/LIRules.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace taxcore {

/// The canton's simple income tax by steps of income. StG SG Art. 50
struct SGTariffTable {
    int year = 0;
    std::string source;
    int step = 0;           ///< width of a row in francs
    int from = 0;           ///< income of the first row, francs
    int to = 0;             ///< income at which the table ends, francs (informative)
    Decimal flatRateAbove;  ///< fraction of the whole income above the table
    int singleFlatFrom = 0; ///< income above which the flat rate applies, francs
    int jointFlatFrom = 0;
    std::vector<Decimal> single; ///< simple tax in francs; row i stands for `from + i × step`
    std::vector<Decimal> joint;

    bool operator==(const SGTariffTable&) const = default;
};
TAXCORE_RECORD(SGTariffTable, year, source, step, from, to, flatRateAbove, singleFlatFrom,
               jointFlatFrom, single, joint);

/// One bracket of the federal tariff.
struct FederalBracket {
    Decimal ab;         ///< income from which it applies, francs
    Decimal steuer;     ///< tax at `ab`, francs
    Decimal proHundert; ///< tax for each further 100 francs

    bool operator==(const FederalBracket&) const = default;
};
TAXCORE_RECORD(FederalBracket, ab, steuer, proHundert);

/// The federal tariff. DBG Art. 36
struct FederalTariff {
    std::vector<FederalBracket> alleinstehend; ///< ascending by `ab`
    Decimal alleinstehendFlatAb;               ///< francs
    std::vector<FederalBracket> verheiratet;
    Decimal verheiratetFlatAb;
    Decimal flatSatz;     ///< fraction of the whole income from the flat threshold on
    Decimal abzugProKind; ///< francs off the tax
    Decimal minimum;      ///< a tax below is not levied, francs

    bool operator==(const FederalTariff&) const = default;
};
TAXCORE_RECORD(FederalTariff, alleinstehend, alleinstehendFlatAb, verheiratet, verheiratetFlatAb,
               flatSatz, abzugProKind, minimum);

/// Federal rules beside the deductions.
struct FederalRules {
    FederalTariff tarif;
    Decimal kapitalleistungAnteil; ///< fraction of the tariff at which capital payments are taxed

    bool operator==(const FederalRules&) const = default;
};
TAXCORE_RECORD(FederalRules, tarif, kapitalleistungAnteil);

/// Which part of a tariff answers for an income: a row or bracket by its position, the flat rate,
/// or none (the income is below the tariff).
struct TariffPlace {
    Decimal income; ///< cut as the tariff asks for, francs
    std::optional<std::size_t> row;
    bool flat = false;
};

/// Taxes on a taxable amount in francs. Pure functions; negative amounts give 0.
namespace Tariffs {

/// The rows of the canton's table and the brackets of the federal tariff for a kind of household.
const std::vector<Decimal>& rowsOf(const SGTariffTable& table, TariffKind kind) noexcept;
const std::vector<FederalBracket>& bracketsOf(const FederalTariff& tariff,
                                              TariffKind kind) noexcept;

/// The place in the canton's table; the income is cut to the table's step.
TariffPlace sgPlace(const Decimal& taxable, TariffKind kind, const SGTariffTable& table);

/// The place in the federal tariff; the income is cut to full 100 francs.
TariffPlace federalPlace(const Decimal& taxable, TariffKind kind, const FederalTariff& tariff);

/// Simple income tax of the canton: the income is cut to the table's step and looked up; above the
/// flat threshold of the tariff, and beyond the table's rows, the flat rate applies to the whole
/// income (rounded plain to 2 decimals). StG SG Art. 50
Decimal sgSimpleIncomeTax(const Decimal& taxable, TariffKind kind, const SGTariffTable& table);

/// Simple income tax divided by the income cut to the step: an unrounded fraction, 0 without
/// income.
Decimal sgSimpleIncomeRate(const Decimal& taxable, TariffKind kind, const SGTariffTable& table);

/// Simple wealth tax at a rate per mille, rounded plain to 2 decimals. StG SG Art. 65
Decimal sgSimpleWealthTax(const Decimal& taxable, const Decimal& promille);

/// Federal income tax before the reduction per child: the income is cut to full 100 francs, the tax
/// to the 5 Rappen below. DBG Art. 36 Abs. 1 and 2
Decimal federalIncomeTax(const Decimal& taxable, TariffKind kind, const FederalTariff& tariff);

/// Federal income tax after the reduction per child; a tax below the minimum is not levied.
/// DBG Art. 36 Abs. 2bis and 3
Decimal federalIncomeTaxNet(const Decimal& taxable, TariffKind kind, int children,
                            const FederalTariff& tariff);

/// The step of a Liechtenstein tariff that applies to an income: the first one that is open or
/// whose upper bound the income does not exceed. Null when the income lies above every bound, or
/// there are no steps.
const LIRules::Stufe* stufeFor(const Decimal& income, const std::vector<LIRules::Stufe>& steps);

/// National tax of Liechtenstein ("Landessteuer"): the whole income times the rate of its step less
/// the step's deduction, not below 0, rounded plain to 5 Rappen; 0 when no step applies. The law
/// rounds the deductions to francs, so that the tax may fall by some Rappen where a step begins.
/// SteG Art. 19
Decimal landessteuer(const Decimal& income, LITariffKind kind, const LIRules::Tarif& tariff);

/// Surcharge of a Liechtenstein municipality ("Gemeindesteuerzuschlag"): percent of the national
/// tax, rounded plain to 5 Rappen. SteG Art. 75
Decimal gemeindezuschlag(const Decimal& landessteuer, const Decimal& percent);

} // namespace Tariffs

} // namespace taxcore
