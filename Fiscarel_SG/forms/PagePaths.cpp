#include "Fiscarel_SG/forms/PagePaths.h"

#include <algorithm>
#include <cstdlib>

namespace fiscarel::forms {

namespace {

/// What a page has of a path.
enum class Has { nothing, record, field };

/// The position of the item that a path goes through; absent when it leads to none of the list.
std::optional<std::size_t> indexIn(const ListCard& list, const std::string& path) {
    if (!path.starts_with(list.path + "[")) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(std::strtoul(path.c_str() + list.path.size() + 1, nullptr, 10));
}

std::optional<BoundField> fieldOf(const std::vector<BoundField>& fields, const std::string& path) {
    const auto found = std::ranges::find(fields, path, &BoundField::path);
    return found != fields.end() ? std::optional(*found) : std::nullopt;
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
    const auto index = indexIn(list, path);
    return holds(list.shown, taxCase) && index && std::ranges::any_of(list.fields(*index), shows);
}

std::optional<BoundField> fieldOf(const Card& card, const std::string& path) {
    if (const auto* fields = std::get_if<FieldsCard>(&card)) {
        return fieldOf(fields->fields, path);
    }
    const auto& list = std::get<ListCard>(card);
    const auto index = indexIn(list, path);
    return index ? fieldOf(list.fields(*index), path) : std::nullopt;
}

Has has(const Card& card, const std::string& path) {
    const auto* const list = std::get_if<ListCard>(&card);
    if (fieldOf(card, path) || (list != nullptr && path == list->path)) {
        return Has::field;
    }
    return list != nullptr && indexIn(*list, path) ? Has::record : Has::nothing;
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

/// What a card has at a path: its field, else the item that the path leads to or through.
std::optional<PagePlace> placeIn(const Card& card, const std::string& section,
                                 const TaxCase& taxCase, const std::string& path) {
    std::optional<BoundField> field = fieldOf(card, path);
    if (const auto* fields = std::get_if<FieldsCard>(&card)) {
        return field ? std::optional<PagePlace>(
                   {field->label, whereIn(section, *fields), std::move(field), {}})
                     : std::nullopt;
    }
    const auto& list = std::get<ListCard>(card);
    const auto index = indexIn(list, path);
    if (!index) {
        return std::nullopt;
    }
    std::string where = whereIn(section, list, taxCase, *index);
    std::string label = field ? field->label : list.itemName;
    return PagePlace{std::move(label), std::move(where), std::move(field), list};
}

} // namespace

std::string whereIn(const Page& page, const Section& section, const TaxCase& taxCase) {
    return section.title ? page.title + " · " + section.title(taxCase) : page.title;
}

std::string whereIn(const std::string& section, const FieldsCard& card) {
    return card.title.empty() ? section : section + " · " + card.title;
}

std::string whereIn(const std::string& section, const ListCard& card, const TaxCase& taxCase,
                    std::size_t item) {
    const std::string title = card.summary(taxCase, item).title;
    return section + " · " + (title.empty() ? card.itemName : title);
}

std::optional<PagePlace> placeOf(const std::vector<Page>& pages, const TaxCase& taxCase,
                                 const std::string& path) {
    std::optional<PagePlace> best;
    for (const Page& page : pages) {
        for (const Section& section : page.sections) {
            for (const Card& card : section.cards) {
                auto place = placeIn(card, whereIn(page, section, taxCase), taxCase, path);
                if (place && place->field) {
                    return place;
                }
                const bool isOwner = place && place->list->add != nullptr;
                if (place && (!best || (isOwner && best->list->add == nullptr))) {
                    best = std::move(place);
                }
            }
        }
    }
    return best;
}

const Page* pageWithPath(const std::vector<Page>& pages, const std::string& path) {
    const auto best =
        std::ranges::max_element(pages, {}, [&](const Page& page) { return has(page, path); });
    return best != pages.end() && has(*best, path) != Has::nothing ? &*best : nullptr;
}

std::optional<BoundField> fieldWithPath(const std::vector<Page>& pages, const std::string& path) {
    for (const Page& page : pages) {
        for (const Section& section : page.sections) {
            for (const Card& card : section.cards) {
                if (auto found = fieldOf(card, path)) {
                    return found;
                }
            }
        }
    }
    return std::nullopt;
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
