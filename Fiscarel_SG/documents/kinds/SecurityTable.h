#pragma once

#include "Fiscarel_SG/documents/kinds/KindMappers.h"

#include <optional>

namespace fiscarel {

/// Proposes the securities of a page's table: value, number held, income with and without
/// withholding tax. Sure is what number times price, a printed total or the tax claimed back
/// proves. The rows above and below their table, which may be of accounts and loans; absent when
/// the page lists no securities.
std::optional<PageRows> proposeSecurities(const KindContext& context, const PageRows& page,
                                          ProposalDraft& draft);

/// Whether a document has a table of securities that number times price proves, whatever else it
/// speaks of.
bool listsSecurities(const DocumentRows& document);

} // namespace fiscarel
