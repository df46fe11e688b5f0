#include "Fiscarel_SG/shell/SearchIndex.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/PagePaths.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/pages/overview/BillShares.h"
#include "Fiscarel_SG/shell/EverydayWords.h"

#include <algorithm>
#include <set>

namespace fiscarel::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

void addFields(std::vector<SearchEntry>& entries, const std::vector<forms::BoundField>& fields,
               const std::string& where, const taxcore::TaxCase& taxCase) {
    for (const forms::BoundField& field : fields) {
        if (field.shown(taxCase) && field.usable(taxCase)) {
            std::string words = field.label + " " + where + " " + field.help + " ";
            words += everydayWords(field.path);
            for (const forms::Option& option :
                 field.optionsFor ? field.optionsFor(taxCase) : field.options) {
                words += " " + option.label;
            }
            entries.push_back(
                {SearchEntry::Kind::field, field.label, where, field.path, searched(words)});
        }
    }
}

void addCard(std::vector<SearchEntry>& entries, const forms::Card& card, const std::string& where,
             const taxcore::TaxCase& taxCase) {
    const auto shown = [&](const forms::Condition& condition) {
        return !condition || condition(taxCase);
    };
    if (const auto* fields = std::get_if<forms::FieldsCard>(&card)) {
        if (shown(fields->shown)) {
            addFields(entries, fields->fields, forms::whereIn(where, *fields), taxCase);
        }
        return;
    }
    const auto& list = std::get<forms::ListCard>(card);
    if (!shown(list.shown)) {
        return;
    }
    std::string words = list.title + " " + list.itemName + " " + where + " " + list.help + " ";
    words += everydayWords(list.path);
    entries.push_back({SearchEntry::Kind::field, list.title, where, list.path, searched(words)});
    for (std::size_t i = 0; i < list.size(taxCase); ++i) {
        addFields(entries, list.fields(i), forms::whereIn(where, list, taxCase, i), taxCase);
    }
}

/// What comes first of the equally good: a line of the return, which only explains, comes after a
/// field whose title has the word, and before one that merely tells of it.
int weight(SearchEntry::Kind kind) {
    switch (kind) {
    case SearchEntry::Kind::page:
        return 0;
    case SearchEntry::Kind::field:
        return 1;
    case SearchEntry::Kind::document:
        return 2;
    case SearchEntry::Kind::line:
        break;
    }
    return 6;
}

/// Lower is better; absent when a word does not occur.
std::optional<int> rank(const SearchEntry& entry, const std::vector<std::string>& words) {
    const std::string title = searched(entry.title);
    const std::size_t spelledOut = title.find('\n') + 1;
    int sum = 0;
    for (const std::string& word : words) {
        if (entry.words.find(word) == std::string::npos) {
            return std::nullopt;
        }
        const std::size_t at = title.find(word);
        const bool begins = at == 0 || title.compare(spelledOut, word.size(), word) == 0;
        sum += begins ? 0 : at != std::string::npos ? 1 : 4;
    }
    return sum * 4 + weight(entry.kind);
}

} // namespace

std::vector<SearchEntry> searchEntries(const AppStore& store,
                                       const std::vector<forms::Page>& pages) {
    std::vector<SearchEntry> entries;
    for (const forms::Page& page : pages) {
        entries.push_back({SearchEntry::Kind::page, page.title, page.help, page.id,
                           searched(page.title + " " + page.help)});
        for (const forms::Section& section : page.sections) {
            if (section.shown && !section.shown(store.current())) {
                continue;
            }
            const std::string where = forms::whereIn(page, section, store.current());
            for (const forms::Card& card : section.cards) {
                addCard(entries, card, where, store.current());
            }
        }
    }
    if (const auto* result = store.result()) {
        for (const taxcore::TaxLine& line : result->fields()) {
            const std::string detail =
                line.ziffer.empty() ? "Zeile" : "Zeile, Ziffer " + line.ziffer;
            entries.push_back({SearchEntry::Kind::line, line.label, detail, line.code,
                               searched(line.label + " " + detail + " " + line.code)});
        }
    }
    if (const auto* result = store.result()) {
        for (const pages::BillShare& share :
             pages::billShares(*result, store.current().taxRegion())) {
            entries.push_back({SearchEntry::Kind::line, share.name, "Steuerrechnung", share.code,
                               searched(share.name + "steuer Steuerrechnung")});
        }
    }
    for (const StoredDocument& document : store.documents()) {
        const std::string detail = "Beleg " + std::to_string(document.year) + " · "
                                   + std::string(taxcore::label(document.kind));
        entries.push_back(
            {SearchEntry::Kind::document, document.title, detail, document.id.toString(),
             searched(document.title + " " + detail + " " + document.issuer.value_or("") + " "
                      + document.recognizedText.value_or("") + " " + document.note)});
    }
    return entries;
}

std::vector<SearchEntry> searchFor(const std::vector<SearchEntry>& entries,
                                   const std::string& query, std::size_t most) {
    const std::vector<std::string> words = wordsToSearch(query);
    std::vector<std::pair<int, const SearchEntry*>> found;
    for (const SearchEntry& entry : entries) {
        if (const auto place = rank(entry, words); place && !words.empty()) {
            found.emplace_back(*place, &entry);
        }
    }
    std::ranges::stable_sort(found, {}, &std::pair<int, const SearchEntry*>::first);
    std::vector<SearchEntry> best;
    for (std::size_t i = 0; i < std::min(most, found.size()); ++i) {
        best.push_back(*found[i].second);
    }
    return best;
}

} // namespace fiscarel::shell
