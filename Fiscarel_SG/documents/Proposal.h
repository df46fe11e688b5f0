#pragma once

#include "Fiscarel_SG/store/StoredDocument.h"
#include "TaxCore/base/Date.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// A record of the return that a document speaks of: one salary certificate, one account, one bill.
/// Which one of the case it becomes, and whose, is decided when the document is applied; what the
/// document tells for that decision stands here.
struct ProposedRecord {
    /// The record of the case whose fields the proposals name.
    enum class Kind {
        salaryCertificate,   ///< `SalaryCertificate` of an adult
        pension,             ///< `PensionIncome` of an adult
        personIncome,        ///< `PersonIncome` of an adult
        personDeductions,    ///< `PersonDeductions` of an adult
        householdDeductions, ///< `HouseholdDeductions`
        child,               ///< `Child`
        medicalCost,         ///< `MedicalCost`
        donation,            ///< `Donation`
        security,            ///< `SecurityEntry`
        debt,                ///< `Debt`
        insurancePolicy,     ///< `InsurancePolicy`
        realEstate           ///< `RealEstate`
    };

    Kind kind = Kind::salaryCertificate;
    std::string title; ///< German, what it is: "Lohnausweis Muster AG", "Konto CH12 …"
    int page = 0;      ///< where it begins, from 1; 0: on no certain page
    std::optional<int> year;
    std::string personName; ///< as printed; empty when the document names nobody
    std::optional<taxcore::Date> birthDate;
    std::string socialSecurityNumber; ///< 756.…, as printed
    std::string advice; ///< German, what the user must know before taking it over; empty: nothing

    bool operator==(const ProposedRecord&) const = default;
};
TAXCORE_RECORD(ProposedRecord, kind, title, page, year, personName, birthDate, socialSecurityNumber,
               advice);

/// Something by which a proposed value was tested.
struct ProposalCheck {
    std::string text; ///< German: "8 − 9 − 10.1 − 10.2 = 11"
    bool passed = false;

    bool operator==(const ProposalCheck&) const = default;
};
TAXCORE_RECORD(ProposalCheck, text, passed);

/// A value that a document states for a field of the return.
struct Proposal {
    /// How the value is known, the surest first.
    enum class Witness { payload, position, text };
    enum class Confidence { high, medium, low };

    int recordIndex = 0; ///< index of its record among the document's
    std::string field;   ///< of that record, as in the case: "grossSalary"
    std::string value; ///< as the case's JSON has it, texts without quotes: "68000.5", "2024-12-31"
    Witness witness = Witness::text;
    Confidence confidence = Confidence::low;
    std::string reason; ///< German, why it is trusted so far
    int page = 0;       ///< from 1; 0: on no certain page
    std::optional<PageBox> box;
    std::vector<ProposalCheck> checks;

    bool operator==(const Proposal&) const = default;
};
TAXCORE_RECORD(Proposal, recordIndex, field, value, witness, confidence, reason, page, box, checks);

} // namespace fiscarel

template <>
struct taxcore::EnumTable<fiscarel::ProposedRecord::Kind> {
    using enum fiscarel::ProposedRecord::Kind;
    static constexpr std::array rows{
        EnumRow{salaryCertificate, "salaryCertificate", "Lohnausweis"},
        EnumRow{pension, "pension", "Rente"},
        EnumRow{personIncome, "personIncome", "Einkommen"},
        EnumRow{personDeductions, "personDeductions", "Abzüge der Person"},
        EnumRow{householdDeductions, "householdDeductions", "Abzüge des Haushalts"},
        EnumRow{child, "child", "Kind"},
        EnumRow{medicalCost, "medicalCost", "Krankheitskosten"},
        EnumRow{donation, "donation", "Zuwendung"},
        EnumRow{security, "security", "Konto oder Wertschrift"},
        EnumRow{debt, "debt", "Schuld"},
        EnumRow{insurancePolicy, "insurancePolicy", "Lebensversicherung"},
        EnumRow{realEstate, "realEstate", "Liegenschaft"},
    };
};
template <>
struct taxcore::EnumTable<fiscarel::Proposal::Witness> {
    using enum fiscarel::Proposal::Witness;
    static constexpr std::array rows{
        EnumRow{payload, "payload", "Strichcode"},
        EnumRow{position, "position", "Stelle auf der Seite"},
        EnumRow{text, "text", "Text"},
    };
};
template <>
struct taxcore::EnumTable<fiscarel::Proposal::Confidence> {
    using enum fiscarel::Proposal::Confidence;
    static constexpr std::array rows{
        EnumRow{high, "high", "sicher"},
        EnumRow{medium, "medium", "wahrscheinlich"},
        EnumRow{low, "low", "unsicher"},
    };
};
namespace taxcore {
TAXCORE_ENUM_TABLE_CHECK(fiscarel::ProposedRecord::Kind);
TAXCORE_ENUM_TABLE_CHECK(fiscarel::Proposal::Witness);
TAXCORE_ENUM_TABLE_CHECK(fiscarel::Proposal::Confidence);
} // namespace taxcore
