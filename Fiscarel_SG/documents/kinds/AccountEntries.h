#pragma once

#include "Fiscarel_SG/documents/kinds/AccountFigures.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"

#include <cstddef>
#include <string>
#include <vector>

namespace fiscarel {

/// An account number in its row.
struct AccountNumber {
    std::string text; ///< compact
    std::size_t row = 0;
    std::size_t first = 0; ///< index of its first word in the row
    std::size_t last = 0;
};

/// An account or a loan as a document states it.
struct AccountEntry {
    Figures figures;
    std::string number;                  ///< compact; empty when none is printed
    std::string creditor;                ///< of a loan in a list of several; else the issuer is
    RowRange range;                      ///< where its words stand
    bool isLoan = false;                 ///< owed, whatever its figures are called
    bool isDepot = false;                ///< securities kept for the customer
    std::optional<FoundAmount> quantity; ///< of the bank's shares, or of what is kept
    std::optional<ProposalCheck> pieces; ///< that number times price is the balance
    std::string security;                ///< its number; empty when none is printed
};

/// Puts each figure where it belongs: what is owed, or below zero, is a debt with its interest.
void settle(AccountEntry& entry);

/// Proposes accounts and loans. Amounts that add up to one printed beside them are sure.
void proposeEntries(const KindContext& context, const std::vector<AccountEntry>& entries,
                    ProposalDraft& draft);

} // namespace fiscarel
