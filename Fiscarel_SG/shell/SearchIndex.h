#pragma once

#include "Fiscarel_SG/forms/Page.h"

#include <string>
#include <vector>

namespace fiscarel {
class AppStore;
}

namespace fiscarel::shell {

/// Something that can be searched for and jumped to.
struct SearchEntry {
    enum class Kind { page, field, line, document };

    Kind kind = Kind::page;
    std::string title;  ///< "Bruttolohn (Ziffer 8)"
    std::string detail; ///< "Einkommen · Muster AG"
    std::string target; ///< page id, field path, line code or document id
    std::string words;  ///< what is looked in, folded
};

/// All that there is in the current year.
std::vector<SearchEntry> searchEntries(const AppStore& store,
                                       const std::vector<forms::Page>& pages);

/// The entries in which every word of a query occurs, best first: words at the beginning of a title
/// before words within, titles before details. Letter case and umlauts do not matter.
std::vector<SearchEntry> searchFor(const std::vector<SearchEntry>& entries,
                                   const std::string& query, std::size_t most = 30);

} // namespace fiscarel::shell
