#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"

#include <optional>
#include <string>

namespace fiscarel {

/// What the words of a document say it is.
struct KindVerdict {
    std::optional<StoredDocument::Kind> kind; ///< absent when nothing speaks for one
    /// It is told apart clearly enough for its amounts to be sure.
    bool isClear = false;
};

/// Whether amounts add up as those of a salary certificate do, or those of the year that a paper
/// tells apart from its months.
enum class WageProof { none, addsUp, ofYear };

/// Weighs the words of a document: titles and issuers at its top count double. Annexes on employee
/// shares, tax returns and shop receipts are none of the kinds that hold amounts, whatever they
/// mention.
KindVerdict weighKind(const DocumentRows& document, WageProof proof);

/// The folded words of the first page's upper part: sender, addressee, title.
std::string titleWords(const DocumentRows& document);

/// Whether the head of a document is that of accounts on rents and upkeep.
bool isPropertyAccount(const DocumentRows& document);

/// Whether a document certifies pensions that were paid.
bool isPensionPaper(const DocumentRows& document);

/// Whether the words are those of a bill for repairs of a building.
bool isRepairBill(const DocumentRows& document);

/// Whether a document is a bill for the insurance of a building that says that it is upkeep, or is
/// deducted: such premiums are upkeep of private property (DBG Art. 32 Abs. 2).
bool isBuildingPremium(const DocumentRows& document);

} // namespace fiscarel
