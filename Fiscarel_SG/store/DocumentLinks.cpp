#include "Fiscarel_SG/store/DocumentLinks.h"

#include <string_view>

namespace fiscarel {

namespace {

using namespace taxcore;

/// Walks the whole case, so that a link added to a record later is found as well.
template <class T>
bool clearIn(T& value, const Uuid& document) {
    bool found = false;
    if constexpr (Record<T>) {
        forEachField(value, [&](std::string_view name, auto& field) {
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(field)>,
                                         std::optional<Uuid>>) {
                if (name == "documentID" && field == document) {
                    field.reset();
                    found = true;
                }
            } else {
                found = clearIn(field, document) || found;
            }
        });
    } else if constexpr (isList<T>) {
        for (auto& item : value) {
            found = clearIn(item, document) || found;
        }
    } else if constexpr (isOptional<T>) {
        found = value && clearIn(*value, document);
    }
    return found;
}

} // namespace

std::vector<std::string> appliedPaths(const TaxCase& taxCase, const StoredDocument& document) {
    std::vector<std::string> paths;
    if (document.year == taxCase.year && document.applied) {
        for (const AppliedValue& value : *document.applied) {
            if (auto path = countedPath(taxCase, value.path)) {
                paths.push_back(*std::move(path));
            }
        }
    }
    return paths;
}

std::map<std::string, Uuid> fieldSources(const TaxCase& taxCase,
                                         const std::vector<StoredDocument>& documents) {
    std::map<std::string, Uuid> sources;
    for (const StoredDocument& document : documents) {
        for (const std::string& path : appliedPaths(taxCase, document)) {
            sources[path] = document.id;
        }
    }
    return sources;
}

const AppliedValue* appliedAt(const TaxCase& taxCase, const StoredDocument& document,
                              const std::string& path) {
    if (document.year == taxCase.year && document.applied) {
        for (const AppliedValue& value : *document.applied) {
            if (countedPath(taxCase, value.path) == path) {
                return &value;
            }
        }
    }
    return nullptr;
}

bool clearDocumentLinks(TaxCase& taxCase, const Uuid& document) {
    return clearIn(taxCase, document);
}

} // namespace fiscarel
