#pragma once

#include "Fiscarel_SG/store/StoredDocument.h"
#include "TaxCore/model/TaxCase.h"

#include <map>
#include <string>
#include <vector>

namespace fiscarel {

/// The fields of a case that a document's values were taken over into, items by position; without
/// those of items that are gone.
std::vector<std::string> appliedPaths(const taxcore::TaxCase& taxCase,
                                      const StoredDocument& document);

/// The documents whose values stand in fields of a case, by the paths of the fields, items by
/// position. Where several do, as in a sum, the one of them that was imported last.
std::map<std::string, Uuid> fieldSources(const taxcore::TaxCase& taxCase,
                                         const std::vector<StoredDocument>& documents);

/// What of a document stands in the field at a path, items by position; null when nothing does.
const AppliedValue* appliedAt(const taxcore::TaxCase& taxCase, const StoredDocument& document,
                              const std::string& path);

/// Takes every link to a document out of a case; whether there was one.
bool clearDocumentLinks(taxcore::TaxCase& taxCase, const taxcore::Uuid& document);

} // namespace fiscarel
