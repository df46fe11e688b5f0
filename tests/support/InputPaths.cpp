#include "tests/support/InputPaths.h"

#include <iterator>
#include <string_view>
#include <type_traits>

namespace fiscarel::testing {

namespace {

using namespace taxcore;

template <class T>
void complete(T& value) {
    if constexpr (Record<T>) {
        taxcore::forEachField(value, [](std::string_view, auto& field) { complete(field); });
    } else if constexpr (isList<T>) {
        complete(value.emplace_back());
    } else if constexpr (isOptional<T>) {
        complete(value.emplace());
    }
}

template <class T>
void walk(const std::string& path, const T& value, std::vector<std::string>& paths) {
    if constexpr (Record<T>) {
        taxcore::forEachField(value, [&](std::string_view name, const auto& field) {
            if (name != "id" && name != "documentID") {
                walk(path.empty() ? std::string(name) : path + "." + std::string(name), field,
                     paths);
            }
        });
    } else if constexpr (isList<T>) {
        for (std::size_t i = 0; i < value.size(); ++i) {
            walk(path + "[" + std::to_string(i) + "]", value[i], paths);
        }
    } else if constexpr (isOptional<T>) {
        if (value) {
            walk(path, *value, paths);
        }
    } else {
        paths.push_back(path);
    }
}

void append(std::vector<forms::BoundField>& fields, std::vector<forms::BoundField> more) {
    fields.insert(fields.end(), std::make_move_iterator(more.begin()),
                  std::make_move_iterator(more.end()));
}

} // namespace

TaxCase fullCase(int year, TaxRegion region) {
    TaxCase taxCase;
    complete(taxCase);
    taxCase.year = year;
    taxCase.region = region;
    return taxCase;
}

std::vector<std::string> inputPaths(const TaxCase& taxCase) {
    std::vector<std::string> paths;
    walk({}, taxCase, paths);
    std::erase(paths, "year");
    std::erase(paths, "region");
    return paths;
}

std::vector<forms::BoundField> fieldsOf(const forms::Page& page, const TaxCase& taxCase) {
    std::vector<forms::BoundField> fields;
    for (const forms::Section& section : page.sections) {
        for (const forms::Card& card : section.cards) {
            if (const auto* plain = std::get_if<forms::FieldsCard>(&card)) {
                append(fields, plain->fields);
                continue;
            }
            const auto& list = std::get<forms::ListCard>(card);
            for (std::size_t at = 0; at < list.size(taxCase); ++at) {
                append(fields, list.fields(at));
            }
        }
    }
    return fields;
}

} // namespace fiscarel::testing
