#include "Fiscarel_SG/forms/PagePaths.h"

#include <algorithm>
#include <cstdlib>

namespace fiscarel::forms {

namespace {

/// What a page has of a path.
enum class Has { nothing, record, field };

std::size_t indexIn(const ListCard& list, const std::string& path) {
    return static_cast<std::size_t>(std::strtoul(path.c_str() + list.path.size() + 1, nullptr, 10));
}

bool holds(const Condition& condition, const TaxCase& taxCase) {
    return !condition || condition(taxCase);
}

bool shows(const Card& card, const std::string& path, const TaxCase& taxCase) {
    const auto shows = [&](const BoundField& field) {
        return field.path == path && field.shown(taxCase) && field.usable(taxCase);
    };
    if (const auto* fields = std::get_if<FieldsCard>(&card)) {
        return holds(fields->shown, taxCase) && std::ranges::any_of(fields->fields, shows);
    }
    const auto& list = std::get<ListCard>(card);
    return holds(list.shown, taxCase) && path.starts_with(list.path + "[")
           && std::ranges::any_of(list.fields(indexIn(list, path)), shows);
}

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
    return std::ranges::any_of(list.fields(indexIn(list, path)), isAtPath) ? Has::field
                                                                           : Has::record;
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

bool isShown(const std::vector<Page>& pages, const std::string& path, const TaxCase& taxCase) {
    for (const Page& page : pages) {
        for (const Section& section : page.sections) {
            const auto showsIt = [&](const Card& card) { return shows(card, path, taxCase); };
            if (holds(section.shown, taxCase) && std::ranges::any_of(section.cards, showsIt)) {
                return true;
            }
        }
    }
    return false;
}

} // namespace fiscarel::forms
