#pragma once

#include "Fiscarel_SG/forms/Page.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel::forms {

/// The page on which the field, list or record at a path of the case stands; null when none has it.
/// The records of a list may stand on two pages, each with fields of its own: the page with the
/// field itself goes before one that only has its record.
const Page* pageWithPath(const std::vector<Page>& pages, const std::string& path);

/// The field at a path as the pages declare it; absent when none does. Items of lists need not be
/// there yet.
std::optional<BoundField> fieldWithPath(const std::vector<Page>& pages, const std::string& path);

/// A field or an item of a list with where it stands, as people are told.
struct PagePlace {
    std::string label; ///< "Schuldzinsen"; of an item what its list calls one, "Schuld"
    std::string where; ///< "Vermögen · Kantonalbank"
    std::optional<BoundField> field; ///< absent for an item as a whole, and for what no page edits
    std::optional<ListCard> list;    ///< of an item, and of a field within one
};
/// Of what stands at a path of a case, items by position; absent when no page has anything of it.
/// An item that is not there goes by what its list calls one.
std::optional<PagePlace> placeOf(const std::vector<Page>& pages, const TaxCase& taxCase,
                                 const std::string& path);

// Where cards, fields and items stand, from the page down.

/// "Einkommen · Anna Muster"
std::string whereIn(const Page& page, const Section& section, const TaxCase& taxCase);
/// The same with the title of the card.
std::string whereIn(const std::string& section, const FieldsCard& card);
/// The same with the title of an item, or what the list calls one.
std::string whereIn(const std::string& section, const ListCard& card, const TaxCase& taxCase,
                    std::size_t item);

/// Whether the field at a path can be gone to and edited on a page of this case.
bool isShown(const std::vector<Page>& pages, const std::string& path, const TaxCase& taxCase);

} // namespace fiscarel::forms
