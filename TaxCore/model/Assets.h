#pragma once

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/base/Uuid.h"
#include "TaxCore/model/Enumerations.h"

#include <optional>
#include <string>
#include <vector>

namespace taxcore {

/// Kind of a line of the securities register.
enum class AssetKind { konto, wertschrift, steuerauszug, darlehen, krypto, anderes };

template <>
struct EnumTable<AssetKind> {
    using enum AssetKind;
    static constexpr std::array rows{
        EnumRow{konto, "konto", "Konto (Bank/Post)"},
        EnumRow{wertschrift, "wertschrift", "Wertschrift / Fonds"},
        EnumRow{steuerauszug, "steuerauszug", "Steuerauszug Bank (Total)"},
        EnumRow{darlehen, "darlehen", "Darlehen / Forderung"},
        EnumRow{krypto, "krypto", "Kryptowährung"},
        EnumRow{anderes, "anderes", "Andere Kapitalanlage"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(AssetKind);

/// Register code of a line; the raw value is the code printed in the register.
enum class AssetCode {
    none,
    business,
    usufruct,
    inheritance,
    gift,
    privateParticipation,
    businessParticipation
};

template <>
struct EnumTable<AssetCode> {
    using enum AssetCode;
    static constexpr std::array rows{
        EnumRow{none, "", "– kein Code"},
        EnumRow{business, "G", "G – Geschäftsvermögen"},
        EnumRow{usufruct, "N", "N – Nutzniessung"},
        EnumRow{inheritance, "E", "E – neu aus Erbschaft"},
        EnumRow{gift, "S", "S – neu aus Schenkung"},
        EnumRow{privateParticipation, "BP", "BP – Beteiligung ab 10% (privat)"},
        EnumRow{businessParticipation, "BG", "BG – Beteiligung ab 10% (geschäftlich)"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(AssetCode);

/// One line of the securities and account register; francs.
struct SecurityEntry {
    Uuid id = Uuid::random();
    AssetKind kind = AssetKind::konto;
    AssetCode code = AssetCode::none;
    std::string institution;
    std::string description;
    std::string ibanOrValor;
    std::optional<Decimal> quantity;
    Owner owner = Owner::gemeinsam;
    Decimal taxValue;                 ///< on 31 December
    Decimal incomeWithWithholding;    ///< gross, subject to withholding tax
    Decimal incomeWithoutWithholding; ///< gross, without withholding tax
    bool managedByThirdParty = false;
    bool isSavingsAccount = true;
    std::optional<Uuid> documentID;

    bool operator==(const SecurityEntry&) const = default;
};
TAXCORE_RECORD(SecurityEntry, id, kind, code, institution, description, ibanOrValor, quantity,
               owner, taxValue, incomeWithWithholding, incomeWithoutWithholding,
               managedByThirdParty, isSavingsAccount, documentID);

/// A life insurance that can be surrendered; francs.
struct InsurancePolicy {
    Uuid id = Uuid::random();
    std::string company;
    std::optional<int> startYear;
    std::optional<int> endYear;
    Decimal sumInsured;
    Decimal surrenderValue; ///< the taxable value

    bool operator==(const InsurancePolicy&) const = default;
};
TAXCORE_RECORD(InsurancePolicy, id, company, startYear, endYear, sumInsured, surrenderValue);

/// A private vehicle; francs.
struct Vehicle {
    Uuid id = Uuid::random();
    std::string description;
    Decimal purchasePrice;
    std::optional<int> purchaseYear;
    std::optional<Decimal> taxValueOverride; ///< replaces the computed tax value

    bool operator==(const Vehicle&) const = default;
};
TAXCORE_RECORD(Vehicle, id, description, purchasePrice, purchaseYear, taxValueOverride);

/// A debt on 31 December with the interest paid in the year; francs.
struct Debt {
    Uuid id = Uuid::random();
    std::string creditor;
    Decimal amount;
    Decimal interest;
    bool isBusiness = false;

    bool operator==(const Debt&) const = default;
};
TAXCORE_RECORD(Debt, id, creditor, amount, interest, isBusiness);

/// How a property is used.
enum class PropertyUse { selbstbewohnt, vermietet, gemischt };

template <>
struct EnumTable<PropertyUse> {
    using enum PropertyUse;
    static constexpr std::array rows{
        EnumRow{selbstbewohnt, "selbstbewohnt", "selbst bewohnt"},
        EnumRow{vermietet, "vermietet", "vermietet"},
        EnumRow{gemischt, "gemischt", "teils selbst bewohnt, teils vermietet"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(PropertyUse);

/// A property; francs.
struct RealEstate {
    Uuid id = Uuid::random();
    std::string description;
    std::string municipality;
    std::string canton = "SG";
    std::string parcelNumber;
    Decimal sharePerson1 = 50; ///< percent, information for the form
    Decimal sharePerson2 = 50;
    PropertyUse use = PropertyUse::selbstbewohnt;
    Decimal taxValue;           ///< official value
    Decimal imputedRentalValue; ///< full official value, before any reduction
    bool isPrimaryResidence = true;
    int rooms = 0;
    int unusedRooms = 0;
    Decimal rentalIncome;
    bool useFlatRateMaintenance = true;
    Decimal actualMaintenanceCosts;

    bool operator==(const RealEstate&) const = default;
};
TAXCORE_RECORD(RealEstate, id, description, municipality, canton, parcelNumber, sharePerson1,
               sharePerson2, use, taxValue, imputedRentalValue, isPrimaryResidence, rooms,
               unusedRooms, rentalIncome, useFlatRateMaintenance, actualMaintenanceCosts);

/// A lump-sum pension payment, taxed apart from the other income; francs.
struct CapitalPayment {
    enum class Kind { saeule3a, saeule2, uebrige };

    Uuid id = Uuid::random();
    Kind kind = Kind::saeule3a;
    Decimal amount;
    std::optional<Date> date;

    bool operator==(const CapitalPayment&) const = default;
};
TAXCORE_RECORD(CapitalPayment, id, kind, amount, date);

template <>
struct EnumTable<CapitalPayment::Kind> {
    using enum CapitalPayment::Kind;
    static constexpr std::array rows{
        EnumRow{saeule3a, "saeule3a", "Säule 3a"},
        EnumRow{saeule2, "saeule2", "Pensionskasse (2. Säule)"},
        EnumRow{uebrige, "uebrige", "übrige Kapitalleistung"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(CapitalPayment::Kind);

} // namespace taxcore
