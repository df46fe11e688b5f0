#pragma once

#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/model/Enumerations.h"
#include "TaxCore/rulebook/RuleFiles.h"

#include <tl/expected.hpp>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace taxcore {

/// The rules of Liechtenstein for one year, as they stand in the rule file; immutable once loaded.
/// Field names are the keys of the file. Units: francs a year unless a comment says otherwise;
/// "percent" is 4 for 4 %. SteG Art. 5, 10, 12, 15, 16, 19 and 75, SteV Art. 12, 14
/// and 16
struct LIRules {
    /// One step of a tariff.
    struct Stufe {
        std::optional<Decimal>
            bis;       ///< upper bound of the income, inclusive; the last step has none
        Decimal satz;  ///< fraction of the whole income
        Decimal abzug; ///< francs off the result

        bool operator==(const Stufe&) const = default;
    };

    /// The national tariff, each list ascending by `bis`. SteG Art. 19 Abs. 1
    struct Tarif {
        std::vector<Stufe> alleinstehend;
        std::vector<Stufe> alleinerziehend;
        std::vector<Stufe> verheiratet;

        /// The list named like the kind.
        const std::vector<Stufe>& steps(LITariffKind kind) const noexcept;

        bool operator==(const Tarif&) const = default;
    };

    /// A municipality with its surcharge.
    struct Gemeinde {
        std::string name;
        Decimal zuschlag; ///< percent of the national tax

        bool operator==(const Gemeinde&) const = default;
    };

    int jahr = 0;
    bool vorlaeufig = false;   ///< the municipalities have not fixed their surcharges yet
    std::string quelle;        ///< citations of the sources
    Decimal sollertragProzent; ///< percent of the net wealth that counts as income
    Tarif tarif;
    std::vector<Gemeinde> gemeinden;  ///< in the order shown
    Decimal gewinnungskostenPauschal; ///< per person
    Decimal verpflegungProTag;        ///< francs a day
    Decimal verpflegungMax;           ///< per person
    Decimal fahrRappenBis10000;       ///< Rappen a kilometre, for the first 10'000 of the year
    Decimal fahrRappenUeber10000;     ///< Rappen a kilometre, for those beyond
    Decimal fahrMaxKmProTag;          ///< kilometres a day
    int fahrMaxTage = 0;              ///< days a year; a fare of the table is for that many
    Decimal pensionskasseMaxProzent;  ///< percent of the earned income
    Decimal privatAlleinstehend;
    Decimal privatVerheiratet;
    Decimal privatKindBis16;
    Decimal privatKind17bis20;
    Decimal privatKindAb21;
    Decimal kinderabzug;             ///< per child
    Decimal ausbildungKindMax;       ///< per child
    Decimal krankheitMaxProPerson;   ///< without an excess
    Decimal spendenMaxProzent;       ///< percent of the income
    Decimal spendeMinEinzel;         ///< francs, of a single donation
    Decimal weiterbildungMax;        ///< per person
    Decimal rentenFreibetragProzent; ///< percent of the AHV and IV pensions
    Decimal hausratFahrzeugFreibetragVerheiratet;
    Decimal hausratFahrzeugFreibetragUebrige;
    Decimal fahrzeugAbschreibungProzent; ///< percent a year of the declining value
    std::vector<std::string> fahrkostenOrte;
    /// Fares of a full year; row: where the way starts, column: where it ends, both as in
    /// `fahrkostenOrte`. A to B and B to A stand apart.
    std::vector<std::vector<Decimal>> fahrkostenMatrix;

    /// The rules of a year, kept for the life of the process; on a miss they are read from the
    /// files that ship with the program. A failure keeps nothing. Any thread may call it.
    static tl::expected<std::shared_ptr<const LIRules>, RuleLoadError> load(int year);

    /// The rules of a year read anew from `files` ("li-2025.json"). Every key must stand; nothing
    /// is sorted, completed or checked beyond that.
    static tl::expected<std::shared_ptr<const LIRules>, RuleLoadError> load(int year,
                                                                            const RuleFiles& files);

    /// Surcharge, in percent, of the first municipality of exactly this name; absent when there is
    /// none.
    std::optional<Decimal> zuschlag(std::string_view name) const;

    /// The fare of a full year, in francs, between the first places of exactly these names; absent
    /// when one is not in the table or the table has no such cell.
    std::optional<Decimal> fahrkostenInland(std::string_view von, std::string_view nach) const;

    bool operator==(const LIRules&) const = default;
};
TAXCORE_RECORD(LIRules::Stufe, bis, satz, abzug);
TAXCORE_RECORD(LIRules::Tarif, alleinstehend, alleinerziehend, verheiratet);
TAXCORE_RECORD(LIRules::Gemeinde, name, zuschlag);
TAXCORE_RECORD(LIRules, jahr, vorlaeufig, quelle, sollertragProzent, tarif, gemeinden,
               gewinnungskostenPauschal, verpflegungProTag, verpflegungMax, fahrRappenBis10000,
               fahrRappenUeber10000, fahrMaxKmProTag, fahrMaxTage, pensionskasseMaxProzent,
               privatAlleinstehend, privatVerheiratet, privatKindBis16, privatKind17bis20,
               privatKindAb21, kinderabzug, ausbildungKindMax, krankheitMaxProPerson,
               spendenMaxProzent, spendeMinEinzel, weiterbildungMax, rentenFreibetragProzent,
               hausratFahrzeugFreibetragVerheiratet, hausratFahrzeugFreibetragUebrige,
               fahrzeugAbschreibungProzent, fahrkostenOrte, fahrkostenMatrix);

} // namespace taxcore
