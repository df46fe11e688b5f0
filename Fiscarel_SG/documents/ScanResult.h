#pragma once

#include "Fiscarel_SG/documents/Proposal.h"
#include "Fiscarel_SG/store/StoredDocument.h"
#include "TaxCore/base/Json.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// An amount recognised in a document by its label.
struct ExtractedField {
    /// What the amount is; the raw value is its identity among the fields of a document.
    enum class Target {
        grossSalary,
        socialContributions,
        pensionContributions,
        pensionBuyIn,
        netSalary,
        pillar3a,
        pensionBuyInDirect,
        healthPremiums,
        donation,
        childcare,
        medical,
        accountBalance,
        accountInterest,
        education
    };

    Target target = Target::grossSalary;
    std::string label; ///< German, as it is shown
    Decimal value;     ///< francs, at least 1, with at most two decimals

    bool operator==(const ExtractedField&) const = default;
};
TAXCORE_RECORD(ExtractedField, target, label, value);

/// What is read from a document.
struct ScanResult {
    std::string text;                  ///< all of it, lines separated by line feeds
    std::vector<std::string> lines;    ///< trimmed, without empty ones
    std::vector<std::string> barcodes; ///< symbology, ":", first 40 characters of the payload
    StoredDocument::Kind kind = StoredDocument::Kind::anderes;
    std::optional<std::string> issuer; ///< the first line of 4 to 59 characters
    std::vector<ExtractedField> fields;

    // What the second reader adds, which knows places on the page and payloads of barcodes.
    std::optional<StoredDocument::Kind> proposedKind; ///< absent when nothing speaks for one
    bool kindIsCertain = false;                       ///< a payload names `proposedKind`
    std::vector<ProposedRecord> records;
    std::vector<Proposal> proposals;

    int pageCount = 0;                  ///< 0 when the file could not be opened
    std::optional<std::string> problem; ///< German, why not everything was read

    bool operator==(const ScanResult&) const = default;
};
TAXCORE_RECORD(ScanResult, text, lines, barcodes, kind, issuer, fields, proposedKind, kindIsCertain,
               records, proposals, pageCount, problem);

} // namespace fiscarel

template <>
struct taxcore::EnumTable<fiscarel::ExtractedField::Target> {
    using enum fiscarel::ExtractedField::Target;
    static constexpr std::array rows{
        EnumRow{grossSalary, "grossSalary", "Bruttolohn total (Ziffer 8)"},
        EnumRow{socialContributions, "socialContributions",
                "Beiträge AHV/IV/EO/ALV/NBUV (Ziffer 9)"},
        EnumRow{pensionContributions, "pensionContributions",
                "BVG ordentliche Beiträge (Ziffer 10.1)"},
        EnumRow{pensionBuyIn, "pensionBuyIn", "BVG Beiträge für den Einkauf (Ziffer 10.2)"},
        EnumRow{netSalary, "netSalary", "Nettolohn (Ziffer 11)"},
        EnumRow{pillar3a, "pillar3a", "Einbezahlte Beiträge Säule 3a"},
        EnumRow{pensionBuyInDirect, "pensionBuyInDirect", "Einkauf Pensionskasse"},
        EnumRow{healthPremiums, "healthPremiums", "Prämien (Total)"},
        EnumRow{donation, "donation", "Spende"},
        EnumRow{childcare, "childcare", "Betreuungskosten"},
        EnumRow{medical, "medical", "Rechnungsbetrag"},
        EnumRow{accountBalance, "accountBalance", "Saldo per 31.12."},
        EnumRow{accountInterest, "accountInterest", "Bruttozins"},
        EnumRow{education, "education", "Kurskosten"},
    };
};
namespace taxcore {
TAXCORE_ENUM_TABLE_CHECK(fiscarel::ExtractedField::Target);
} // namespace taxcore
namespace taxcore {
extern template tl::expected<fiscarel::ScanResult, JsonError>
    fromJson<fiscarel::ScanResult>(std::string_view, JsonGaps);
extern template std::string toJson<fiscarel::ScanResult>(const fiscarel::ScanResult&, JsonStyle);
} // namespace taxcore
