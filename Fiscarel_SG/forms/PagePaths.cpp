#include "Fiscarel_SG/forms/PagePaths.h"

#include <algorithm>
#include <cstdlib>

namespace fiscarel::forms {

namespace {

/// What a page has of a path.
enum class Has { nothing, record, field };

Has has(const Card& card, const std::string& path) {
    const auto isAtPath = [&](const BoundField& field) { return field.path == path; };
    if (const auto* fields = std::get_if<FieldsCard>(&card)) {
        return std::ranges::any_of(fields->fields, isAtPath) ? Has::field : Has::nothing;
    }
    const auto& list = std::get<ListCard>(card);
    if (path == list.path) {
        return Has::field;
    }
    if (!path.starts_with(list.path + "[")) {
        return Has::nothing;
    }
    const auto index =
        static_cast<std::size_t>(std::strtoul(path.c_str() + list.path.size() + 1, nullptr, 10));
    return std::ranges::any_of(list.fields(index), isAtPath) ? Has::field : Has::record;
}

Has has(const Page& page, const std::string& path) {
    Has best = Has::nothing;
    for (const Section& section : page.sections) {
        for (const Card& card : section.cards) {
            best = std::max(best, has(card, path));
        }
    }
    return best;
}

} // namespace

const Page* pageWithPath(const std::vector<Page>& pages, const std::string& path) {
    const auto best =
        std::ranges::max_element(pages, {}, [&](const Page& page) { return has(page, path); });
    return best != pages.end() && has(*best, path) != Has::nothing ? &*best : nullptr;
}

} // namespace fiscarel::forms
