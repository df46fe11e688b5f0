#pragma once

#include "Fiscarel_SG/store/StoredDocument.h"

#include <string>
#include <string_view>
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

    bool operator==(const ScanResult&) const = default;
};

/// Decides by words what a document is and which amounts it states. Stateless, and callable from
/// any thread. Texts are UTF-8; letters with a mark count as one, however they are encoded.
///
/// These are plain rules of words in a fixed order, which decides where several would fit. They
/// know nothing of the place of a word on the page.
class DocumentScanner {
  public:
    /// Everything that follows from the recognised text and barcodes.
    static ScanResult read(std::string text, std::vector<std::string> barcodes);

    /// The kind of a document. A barcode stands as its symbology's name, ":" and its beginning.
    static StoredDocument::Kind classify(std::string_view text,
                                         const std::vector<std::string>& barcodes);

    /// The numbers of a line in their order: 1’234.50 is 1234.50, 120.– is 120, and 3,5 are two. A
    /// number with more digits than an amount can hold is left out.
    static std::vector<Decimal> amounts(std::string_view line);

    /// The amounts that matter in a document of a kind, in the order of its form. A label without
    /// an amount on its line or the one below is passed over.
    static std::vector<ExtractedField> extract(StoredDocument::Kind kind,
                                               const std::vector<std::string>& lines);
};

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
