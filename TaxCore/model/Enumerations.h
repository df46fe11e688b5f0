#pragma once

#include "TaxCore/base/EnumText.h"

namespace taxcore {

/// Civil status on 31 December.
enum class CivilStatus {
    ledig,
    verheiratet,
    eingetragenePartnerschaft,
    getrennt,
    geschieden,
    verwitwet,
};

template <>
struct EnumTable<CivilStatus> {
    using enum CivilStatus;
    static constexpr std::array rows{
        EnumRow{ledig, "ledig", "ledig"},
        EnumRow{verheiratet, "verheiratet", "verheiratet"},
        EnumRow{eingetragenePartnerschaft, "eingetragenePartnerschaft",
                "eingetragene Partnerschaft"},
        EnumRow{getrennt, "getrennt", "getrennt"},
        EnumRow{geschieden, "geschieden", "geschieden"},
        EnumRow{verwitwet, "verwitwet", "verwitwet"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(CivilStatus);

/// Spouses and registered partners who live together are taxed jointly.
/// StG SG Art. 20, DBG Art. 9
constexpr bool isJoint(CivilStatus status) noexcept {
    return status == CivilStatus::verheiratet || status == CivilStatus::eingetragenePartnerschaft;
}

/// Denomination; it decides the church tax.
enum class Confession {
    keine,
    roemischKatholisch,
    evangelischReformiert,
    christkatholisch,
    andere
};

template <>
struct EnumTable<Confession> {
    using enum Confession;
    static constexpr std::array rows{
        EnumRow{keine, "keine", "keine / konfessionslos"},
        EnumRow{roemischKatholisch, "roemischKatholisch", "römisch-katholisch"},
        EnumRow{evangelischReformiert, "evangelischReformiert", "evangelisch-reformiert"},
        EnumRow{christkatholisch, "christkatholisch", "christkatholisch"},
        EnumRow{andere, "andere", "andere (keine Kirchensteuer)"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(Confession);

/// Kind of gainful activity.
enum class EmploymentKind { unselbstaendig, selbstaendig, nichtErwerbstaetig };

template <>
struct EnumTable<EmploymentKind> {
    using enum EmploymentKind;
    static constexpr std::array rows{
        EnumRow{unselbstaendig, "unselbstaendig", "unselbständig"},
        EnumRow{selbstaendig, "selbstaendig", "selbständig"},
        EnumRow{nichtErwerbstaetig, "nichtErwerbstaetig", "nicht erwerbstätig"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(EmploymentKind);

/// Stage of education of a child; children without any give no child deduction.
enum class ChildEducation { vorschule, schule, ausbildung, keine };

template <>
struct EnumTable<ChildEducation> {
    using enum ChildEducation;
    static constexpr std::array rows{
        EnumRow{vorschule, "vorschule", "noch nicht schulpflichtig"},
        EnumRow{schule, "schule", "Kindergarten / Volksschule"},
        EnumRow{ausbildung, "ausbildung", "Lehre / Mittelschule / Studium"},
        EnumRow{keine, "keine", "keine Ausbildung (kein Abzug)"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(ChildEducation);

/// Who owns an asset.
enum class Owner { person1, person2, gemeinsam, kinder };

template <>
struct EnumTable<Owner> {
    using enum Owner;
    static constexpr std::array rows{
        EnumRow{person1, "person1", "Person 1"},
        EnumRow{person2, "person2", "Person 2"},
        EnumRow{gemeinsam, "gemeinsam", "gemeinsam"},
        EnumRow{kinder, "kinder", "Kinder"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(Owner);

/// Where the household is taxed.
enum class TaxRegion { stGallen, liechtenstein };

template <>
struct EnumTable<TaxRegion> {
    using enum TaxRegion;
    static constexpr std::array rows{
        EnumRow{stGallen, "sg", "St.Gallen"},
        EnumRow{liechtenstein, "li", "Liechtenstein"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(TaxRegion);

/// The tariff a household is taxed by: `joint` for couples and single parents.
enum class TariffKind { single, joint };

template <>
struct EnumTable<TariffKind> {
    using enum TariffKind;
    static constexpr std::array rows{
        EnumRow{single, "single", "Alleinstehende"},
        EnumRow{joint, "joint", "Verheiratete und Alleinerziehende"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(TariffKind);

/// The tariff by which Liechtenstein taxes a household; registered partners count as married.
/// SteG Art. 19 Abs. 1
enum class LITariffKind { alleinstehend, alleinerziehend, verheiratet };

template <>
struct EnumTable<LITariffKind> {
    using enum LITariffKind;
    static constexpr std::array rows{
        EnumRow{alleinstehend, "alleinstehend", "Alleinstehende"},
        EnumRow{alleinerziehend, "alleinerziehend", "Alleinerziehende"},
        EnumRow{verheiratet, "verheiratet", "Verheiratete und eingetragene Partnerschaften"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(LITariffKind);

} // namespace taxcore
