#pragma once

#include "Fiscarel_SG/documents/kinds/DocumentFacts.h"
#include "Fiscarel_SG/documents/kinds/KindEvidence.h"
#include "Fiscarel_SG/documents/payload/QrBill.h"

#include <optional>

namespace fiscarel {

/// A QR-bill with its place in the document.
struct PlacedBill {
    QrBill bill;
    int page = 0;
    std::optional<PageBox> box;
};

/// What a mapper of a kind knows of a document.
struct KindContext {
    const DocumentRows& document;
    const DocumentFacts& facts;
    StoredDocument::Kind kind;
    bool isKindClear = false;
    std::optional<PlacedBill> bill;
};

// Each proposes for documents of its kinds what it finds; nothing when it finds nothing.

/// Pillar 3a, buy-ins, premiums, life insurances and valuations: amounts by their labels.
void proposeLabelled(const KindContext& context, ProposalDraft& draft);
/// A paper on several life insurances: each a record, without those of tied provision, which are no
/// taxable wealth. False when it is not about several.
bool proposePolicies(const KindContext& context, ProposalDraft& draft);
/// The premium of the one policy of free provision that a paper on tied ones states beside them.
void proposeFreePolicies(const KindContext& context, ProposalDraft& draft);
/// Whether a paper certifies the premiums of an insurance against accidents alone, no matter what
/// sums it pays: those are no wealth.
bool isAccidentCover(const DocumentRows& document);
/// Whether a paper certifies what a life annuity paid, and no value of it.
bool isAnnuity(const DocumentRows& document);
/// Accounts with their balance and interest, and loans.
void proposeAccounts(const KindContext& context, ProposalDraft& draft);
/// Whether a document has a table of accounts by their numbers, whatever it is called.
bool listsAccounts(const DocumentRows& document);
/// Bills and receipts: medical costs, day care, courses, donations, repairs.
void proposeBill(const KindContext& context, ProposalDraft& draft);

} // namespace fiscarel
