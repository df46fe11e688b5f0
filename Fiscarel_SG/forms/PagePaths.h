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

/// Whether the field at a path can be gone to and edited on a page of this case.
bool isShown(const std::vector<Page>& pages, const std::string& path, const TaxCase& taxCase);

} // namespace fiscarel::forms
