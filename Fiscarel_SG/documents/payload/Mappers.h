#pragma once

#include "Fiscarel_SG/documents/PageReading.h"
#include "Fiscarel_SG/documents/ProposalDraft.h"
#include "Fiscarel_SG/documents/kinds/SalaryForm.h"
#include "Fiscarel_SG/documents/payload/JoinedPayload.h"
#include "Fiscarel_SG/documents/payload/PayloadXml.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

// One mapper for each standard of structured data; they propose from a payload, with the printed
// text as second witness, and tell whether they could.

/// Salary (`S`) and pension (`A`) certificates of the Swissdec barcode. `forms` are the printed
/// ones.
bool proposeCertificate(const JoinedPayload& payload, const std::vector<SalaryForm>& forms,
                        ProposalDraft& draft);

/// A bank's tax statement, eCH-0196 2.0 to 2.2: an entry for each account, security and debt, and
/// one for the total.
bool proposeTaxStatement(pugi::xml_node statement, const JoinedPayload& payload,
                         const DocumentRows& document, ProposalDraft& draft);

/// Other standards that travel in the same barcodes; German names for those that are only
/// recognised.
struct ForeignStandard {
    int number = 0; ///< "119": eCH-0119
    const char* name = "";
    StoredDocument::Kind kind = StoredDocument::Kind::anderes;
};
std::optional<ForeignStandard> foreignStandard(int number);
/// The number of the eCH standard a root element's namespace names: 196; 0 for none.
int standardOf(pugi::xml_node root);

/// A certificate of an institution of the second pillar or pillar 3a (eCH-0248) or of a health
/// insurer (eCH-0275), by the names of its elements and attributes.
bool proposeInstitutionCertificate(pugi::xml_node root, int standard, const JoinedPayload& payload,
                                   ProposalDraft& draft);

} // namespace fiscarel
