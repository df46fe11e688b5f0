#pragma once

#include "TaxCore/base/Decimal.h"
#include "TaxCore/base/EnumText.h"
#include "TaxCore/base/Moment.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/base/Uuid.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

using taxcore::Decimal;
using taxcore::Moment;
using taxcore::Uuid;

/// A rectangle on a page, as fractions of its width and height from the upper left corner.
struct PageBox {
    Decimal x;
    Decimal y;
    Decimal width;
    Decimal height;

    bool operator==(const PageBox&) const = default;
};
TAXCORE_RECORD(PageBox, x, y, width, height);

/// A value that was taken over from a document into a field of the case.
struct AppliedValue {
    std::string path;  ///< of the field, items by identity: "debts[<UUID>].amount"
    std::string value; ///< amounts with a point and without grouping, dates as 2025-12-31
    int page = 0;      ///< of the document, from 1; 0: not on a certain page
    std::optional<PageBox> box;

    bool operator==(const AppliedValue&) const = default;
};
TAXCORE_RECORD(AppliedValue, path, value, page, box);

/// An imported document: its copy in the data folder and what was read from it.
struct StoredDocument {
    enum class Kind {
        lohnausweis,
        krankenkasse,
        saeule3a,
        pensionskasse,
        steuerauszug,
        bankauszug,
        arztrechnung,
        spende,
        kinderbetreuung,
        weiterbildung,
        versicherung,
        liegenschaft,
        anderes
    };

    Uuid id = Uuid::random();
    int year = 0; ///< tax year it belongs to
    Kind kind = Kind::anderes;
    std::string title;
    std::string fileName; ///< within the documents folder, a plain name
    Moment importedAt;
    std::optional<Decimal> amount; ///< main recognised amount, francs
    std::optional<std::string> recognizedText;
    std::optional<std::string> issuer;
    bool isApplied = false;                           ///< its amounts were written into the case
    std::string note;                                 ///< the user's
    std::optional<std::vector<AppliedValue>> applied; ///< absent rather than empty
    std::optional<bool> isKindChosen; ///< true once the user has decided the kind, else absent

    bool hasChosenKind() const noexcept { return isKindChosen.value_or(false); }
    /// The user's decision, which no reading overrules.
    void chooseKind(Kind chosen) {
        kind = chosen;
        isKindChosen = true;
    }

    bool operator==(const StoredDocument&) const = default;
};
TAXCORE_RECORD(StoredDocument, id, year, kind, title, fileName, importedAt, amount, recognizedText,
               issuer, isApplied, note, applied, isKindChosen);

} // namespace fiscarel

template <>
struct taxcore::EnumTable<fiscarel::StoredDocument::Kind> {
    using enum fiscarel::StoredDocument::Kind;
    static constexpr std::array rows{
        EnumRow{lohnausweis, "lohnausweis", "Lohnausweis"},
        EnumRow{krankenkasse, "krankenkasse", "Krankenkasse"},
        EnumRow{saeule3a, "saeule3a", "Säule 3a"},
        EnumRow{pensionskasse, "pensionskasse", "Pensionskasse"},
        EnumRow{steuerauszug, "steuerauszug", "E-Steuerauszug"},
        EnumRow{bankauszug, "bankauszug", "Zins-/Saldobestätigung"},
        EnumRow{arztrechnung, "arztrechnung", "Arzt / Zahnarzt"},
        EnumRow{spende, "spende", "Spende"},
        EnumRow{kinderbetreuung, "kinderbetreuung", "Kinderbetreuung"},
        EnumRow{weiterbildung, "weiterbildung", "Weiterbildung"},
        EnumRow{versicherung, "versicherung", "Versicherung"},
        EnumRow{liegenschaft, "liegenschaft", "Liegenschaft"},
        EnumRow{anderes, "anderes", "Anderes"},
    };
};
namespace taxcore {
TAXCORE_ENUM_TABLE_CHECK(fiscarel::StoredDocument::Kind);
} // namespace taxcore
