#pragma once

#include "Fiscarel_SG/store/StoredDocument.h"
#include "TaxCore/model/TaxCase.h"

#include <string>
#include <vector>

namespace fiscarel::outputs {

/// A document that belongs to an entry of the return.
struct Enclosure {
    std::string label;  ///< German: "Lohnausweis Muster AG"
    std::string ziffer; ///< of the return
    int person = 0;     ///< 1 or 2; 0: the household
    std::string name;   ///< of that person; empty for the household
    StoredDocument::Kind kind = StoredDocument::Kind::anderes;
    std::string path; ///< of the entry: an item of a list or a field
    /// Those that cover it: linked to the entry, taken over into it, or the only ones of their kind
    /// where only this entry asks for the kind.
    std::vector<taxcore::Uuid> documents;
    /// Documents of its kind that are tied to no entry, where several entries ask for the kind.
    std::vector<taxcore::Uuid> candidates;

    bool isMissing() const noexcept { return documents.empty(); }

    bool operator==(const Enclosure&) const = default;
};

/// What is to be handed in with the return, ascending by Ziffer.
struct Checklist {
    std::vector<Enclosure> enclosures;
    std::vector<taxcore::Uuid> others; ///< documents of the year that no entry asks for

    /// The documents in the order in which they are bundled, each once; the others at the end.
    std::vector<taxcore::Uuid> order() const;

    bool operator==(const Checklist&) const = default;
};

/// The checklist of a case with the documents of its year; those of other years are left aside.
Checklist makeChecklist(const taxcore::TaxCase& taxCase,
                        const std::vector<StoredDocument>& documents);

} // namespace fiscarel::outputs
