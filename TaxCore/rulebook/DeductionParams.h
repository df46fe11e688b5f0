#pragma once

#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/EnumText.h"
#include "TaxCore/base/Record.h"

#include <string>
#include <vector>

namespace taxcore {

// The amounts, rates and limits of one tax authority and year, as they stand in its rule file.
// Field names are the keys of the file. Units: francs unless a comment says otherwise; "fraction"
// is a rate such as 0.2 for 20 %.

/// Professional costs. StG SG Art. 39, DBG Art. 26
struct BerufskostenParams {
    Decimal fahrkostenMax;
    Decimal veloMax;
    Decimal autoProKm;      ///< francs a kilometre
    Decimal motorradProKm;  ///< francs a kilometre
    int arbeitstageMax = 0; ///< days a year
    Decimal verpflegungProTag;
    Decimal verpflegungMax;
    Decimal verpflegungVerbilligtProTag;
    Decimal verpflegungVerbilligtMax;
    Decimal schichtProTag;
    Decimal schichtMax;
    Decimal uebrigePauschalBasis;
    Decimal uebrigePauschalSatz; ///< fraction of the net salary
    Decimal uebrigePauschalMin;
    Decimal uebrigePauschalMax;
    Decimal wochenaufenthaltZimmerMinProMonat;
    Decimal wochenaufenthaltZimmerMaxProMonat;
    Decimal wochenaufenthaltVerpflegungProTag;
    Decimal wochenaufenthaltVerpflegungMax;
    Decimal wochenaufenthaltVerpflegungVerbilligtProTag;
    Decimal wochenaufenthaltVerpflegungVerbilligtMax;
    Decimal nebenerwerbSatz; ///< fraction of the side job's net salary
    Decimal nebenerwerbMin;
    Decimal nebenerwerbMax;

    bool operator==(const BerufskostenParams&) const = default;
};
TAXCORE_RECORD(BerufskostenParams, fahrkostenMax, veloMax, autoProKm, motorradProKm, arbeitstageMax,
               verpflegungProTag, verpflegungMax, verpflegungVerbilligtProTag,
               verpflegungVerbilligtMax, schichtProTag, schichtMax, uebrigePauschalBasis,
               uebrigePauschalSatz, uebrigePauschalMin, uebrigePauschalMax,
               wochenaufenthaltZimmerMinProMonat, wochenaufenthaltZimmerMaxProMonat,
               wochenaufenthaltVerpflegungProTag, wochenaufenthaltVerpflegungMax,
               wochenaufenthaltVerpflegungVerbilligtProTag,
               wochenaufenthaltVerpflegungVerbilligtMax, nebenerwerbSatz, nebenerwerbMin,
               nebenerwerbMax);

/// Maxima of pillar 3a. BVV 3 Art. 7 Abs. 1
struct Saeule3aParams {
    Decimal mitPensionskasse;
    Decimal ohnePensionskasseSatz; ///< fraction of the earned income
    Decimal ohnePensionskasseMax;

    bool operator==(const Saeule3aParams&) const = default;
};
TAXCORE_RECORD(Saeule3aParams, mitPensionskasse, ohnePensionskasseSatz, ohnePensionskasseMax);

/// Maxima of insurance premiums and savings interest.
struct VersicherungParams {
    Decimal gemeinsam;
    Decimal alleinstehend;
    Decimal zuschlagOhneVorsorgeGemeinsam; ///< added when nobody pays into pillar 2 or 3a
    Decimal zuschlagOhneVorsorgeAlleinstehend;
    Decimal proKind;
    Decimal proUnterstuetztePerson;

    bool operator==(const VersicherungParams&) const = default;
};
TAXCORE_RECORD(VersicherungParams, gemeinsam, alleinstehend, zuschlagOhneVorsorgeGemeinsam,
               zuschlagOhneVorsorgeAlleinstehend, proKind, proUnterstuetztePerson);

/// How the two-earner deduction is found.
enum class ZweiverdienerArt {
    betrag, ///< the fixed amount `betrag`
    satz,   ///< the fraction `satz` of the lower income, between `min` and `max`
};

template <>
struct EnumTable<ZweiverdienerArt> {
    using enum ZweiverdienerArt;
    static constexpr std::array rows{
        EnumRow{betrag, "betrag", "fester Betrag"},
        EnumRow{satz, "satz", "Anteil am tieferen Einkommen"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(ZweiverdienerArt);

/// Two-earner deduction.
struct ZweiverdienerParams {
    ZweiverdienerArt art = ZweiverdienerArt::betrag;
    Decimal betrag;
    Decimal satz; ///< fraction
    Decimal min;
    Decimal max;

    bool operator==(const ZweiverdienerParams&) const = default;
};
TAXCORE_RECORD(ZweiverdienerParams, art, betrag, satz, min, max);

/// The deductions of one authority.
struct DeductionParams {
    int year = 0;
    std::vector<std::string> sources; ///< citations of the legal sources
    BerufskostenParams berufskosten;
    Saeule3aParams saeule3a;
    VersicherungParams versicherungen;
    Decimal verwaltungskostenPromille; ///< per mille of the securities managed by third parties
    Decimal verwaltungskostenMax;
    Decimal kinderbetreuungMax;          ///< per child
    int kinderbetreuungAltersgrenze = 0; ///< years
    Decimal kinderbetreuungVerpflegungKuerzungProTag;
    Decimal parteispendenAlleinstehend;
    Decimal parteispendenGemeinsam;
    Decimal weiterbildungMax;
    Decimal weiterbildungPauschal; ///< 0: no flat rate
    ZweiverdienerParams zweiverdiener;
    Decimal krankheitSelbstbehaltSatz; ///< fraction of the net income
    Decimal diaetPauschale;
    Decimal freiwilligeZuwendungenMin;
    Decimal freiwilligeZuwendungenMaxSatz; ///< fraction of the net income
    Decimal privateSchuldzinsenZuschlag;
    Decimal kinderabzugVorschule;
    Decimal kinderabzugAusbildung;
    Decimal kinderabzugEinheitlich; ///< above 0: one amount for every child
    Decimal ausbildungskostenMax;   ///< per child
    Decimal ausbildungskostenSelbstbehalt;
    Decimal unterstuetzungsabzug;
    Decimal verheiratetenabzug;

    bool operator==(const DeductionParams&) const = default;
};
TAXCORE_RECORD(DeductionParams, year, sources, berufskosten, saeule3a, versicherungen,
               verwaltungskostenPromille, verwaltungskostenMax, kinderbetreuungMax,
               kinderbetreuungAltersgrenze, kinderbetreuungVerpflegungKuerzungProTag,
               parteispendenAlleinstehend, parteispendenGemeinsam, weiterbildungMax,
               weiterbildungPauschal, zweiverdiener, krankheitSelbstbehaltSatz, diaetPauschale,
               freiwilligeZuwendungenMin, freiwilligeZuwendungenMaxSatz,
               privateSchuldzinsenZuschlag, kinderabzugVorschule, kinderabzugAusbildung,
               kinderabzugEinheitlich, ausbildungskostenMax, ausbildungskostenSelbstbehalt,
               unterstuetzungsabzug, verheiratetenabzug);

/// What only the canton's rule file carries.
struct CantonExtraParams {
    struct Vermoegen {
        Decimal sozialabzugProPerson;
        Decimal sozialabzugProKind;
        Decimal einfacheSteuerPromille; ///< per mille

        bool operator==(const Vermoegen&) const = default;
    };
    struct Liegenschaften {
        Decimal eigenmietwertReduktion; ///< fraction
        Decimal pauschalabzugSatz;      ///< fraction of the rental value

        bool operator==(const Liegenschaften&) const = default;
    };
    struct Kapitalleistung {
        Decimal satzGemeinsam;     ///< fraction
        Decimal satzAlleinstehend; ///< fraction

        bool operator==(const Kapitalleistung&) const = default;
    };

    Vermoegen vermoegen;
    Liegenschaften liegenschaften;
    Decimal fahrzeugAbschreibungProJahr; ///< fraction of the purchase price a year
    Kapitalleistung kapitalleistung;
    Decimal verrechnungssteuerSatz; ///< fraction
    Decimal verrechnungssteuerFreigrenzeZins;

    bool operator==(const CantonExtraParams&) const = default;
};
TAXCORE_RECORD(CantonExtraParams::Vermoegen, sozialabzugProPerson, sozialabzugProKind,
               einfacheSteuerPromille);
TAXCORE_RECORD(CantonExtraParams::Liegenschaften, eigenmietwertReduktion, pauschalabzugSatz);
TAXCORE_RECORD(CantonExtraParams::Kapitalleistung, satzGemeinsam, satzAlleinstehend);
TAXCORE_RECORD(CantonExtraParams, vermoegen, liegenschaften, fahrzeugAbschreibungProJahr,
               kapitalleistung, verrechnungssteuerSatz, verrechnungssteuerFreigrenzeZins);

} // namespace taxcore
