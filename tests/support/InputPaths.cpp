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

void forEachCard(const std::vector<forms::Page>& pages,
                 const std::function<void(const forms::Section&, const forms::Card&)>& visit) {
    for (const forms::Page& page : pages) {
        for (const forms::Section& section : page.sections) {
            for (const forms::Card& card : section.cards) {
                visit(section, card);
            }
        }
    }
}

bool holds(const forms::Condition& condition, const TaxCase& taxCase) {
    return !condition || condition(taxCase);
}

const forms::Condition& shownOf(const forms::Card& card) {
    return std::visit([](const auto& any) -> const forms::Condition& { return any.shown; }, card);
}

std::vector<std::string> figuresOf(const forms::Card& card, const TaxCase& taxCase,
                                   const TaxResult& result) {
    const forms::Figures& figures =
        std::visit([](const auto& any) -> const forms::Figures& { return any.figures; }, card);
    std::vector<std::string> texts;
    if (figures) {
        for (const forms::Figure& figure : figures(taxCase, result)) {
            texts.push_back(figure.label + ": " + figure.text
                            + (figure.note.empty() ? "" : " (" + figure.note + ")"));
        }
    }
    return texts;
}

std::vector<std::string> textsOf(const std::vector<forms::Page>& pages, const TaxCase& taxCase) {
    std::vector<std::string> texts;
    for (const forms::Page& page : pages) {
        texts.insert(texts.end(), {page.title, page.help});
    }
    forEachCard(pages, [&](const forms::Section& section, const forms::Card& card) {
        if (section.title) {
            texts.push_back(section.title(taxCase));
        }
        std::visit(
            [&](const auto& any) {
                texts.insert(texts.end(), {any.title, any.help});
            },
            card);
        if (const auto* list = std::get_if<forms::ListCard>(&card)) {
            texts.insert(texts.end(), {list->itemName, list->emptyText});
        }
        for (const forms::BoundField& field : fieldsOf(card, taxCase)) {
            texts.insert(texts.end(), {field.label, field.help});
            for (const forms::Option& option : field.options) {
                texts.insert(texts.end(), {option.label, option.wording});
            }
        }
    });
    return texts;
}

std::vector<forms::BoundField> fieldsOf(const forms::Card& card, const TaxCase& taxCase) {
    if (const auto* plain = std::get_if<forms::FieldsCard>(&card)) {
        return plain->fields;
    }
    const auto& list = std::get<forms::ListCard>(card);
    std::vector<forms::BoundField> fields;
    for (std::size_t at = 0; at < list.size(taxCase); ++at) {
        append(fields, list.fields(at));
    }
    return fields;
}

std::vector<forms::BoundField> fieldsOf(const forms::Page& page, const TaxCase& taxCase) {
    std::vector<forms::BoundField> fields;
    for (const forms::Section& section : page.sections) {
        for (const forms::Card& card : section.cards) {
            append(fields, fieldsOf(card, taxCase));
        }
    }
    return fields;
}

} // namespace fiscarel::testing
