#include "Fiscarel_SG/documents/kinds/People.h"

#include "Fiscarel_SG/documents/kinds/PeopleWords.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <string_view>

namespace fiscarel {

People::People(const DocumentRows& document) {
    std::map<std::string, std::set<std::string>> inTables; // first names by family
    std::set<std::pair<std::string, std::string>> pairs;   // as they stand in tables
    std::set<std::pair<std::string, std::string>> cells;
    for (const PageRows& page : document.pages) {
        const Row* above = nullptr;
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            look(row, above);
            above = &row;
            for (const auto& name : {nameOverAmounts(page, at), nameOfAmount(row)}) {
                if (name) {
                    const std::string& first = row.words[name->first].folded;
                    const std::string& last = row.words[name->last].folded;
                    inTables[last].insert(first);
                    pairs.emplace(first, last);
                }
            }
            for (const NamedPerson& name : holdersIn(row)) {
                inTables[row.words[name.last].folded].insert(row.words[name.first].folded);
            }
            for (const LabelPlace& cell : cellsOf(row)) {
                if (cell.last == cell.first + 1 && nameAt(row, cell.first)) {
                    cells.emplace(row.words[cell.first].folded, row.words[cell.last].folded);
                }
            }
        }
    }
    takeReversed(pairs, cells);
    for (const auto& [family, firsts] : inTables) {
        if (firsts.size() >= 2) { // several of one family
            families_.insert(family);
        }
    }
}

std::vector<NamedPerson> People::in(const Row& row) const {
    std::vector<NamedPerson> named;
    const bool areTold = born_.size() >= 2;
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        const auto turned =
            !areTold && reversed_.contains(row.words[i].folded) ? nameAt(row, i) : std::nullopt;
        if (turned) {
            named.push_back(*turned);
            named.back().folded = row.words[i + 1].folded + ' ' + row.words[i].folded;
            ++i;
            continue;
        }
        const auto told = born_.find(row.words[i].folded);
        const bool isFull = i + 1 < row.words.size() && isFamily(row.words[i + 1].folded);
        if (!isCapitalised(row.words[i]) || isAnyIn(row.words[i].folded, noNames())
            || (isFull && row.words[i].text.ends_with(':'))) {
            continue;
        }
        if (areTold && told != born_.end()) {
            named.push_back(told->second);
            named.back().first = i;
            named.back().last = isFull ? i + 1 : i;
        } else if (!areTold && isFull) {
            named.push_back(nameFrom(row, i, i + 1));
            if (told != born_.end() && told->second.folded == named.back().folded) {
                named.back().birthDate = told->second.birthDate;
            }
        }
    }
    return named;
}

std::vector<NamedPerson> People::inCells(const Row& row) const {
    std::vector<NamedPerson> named;
    for (const LabelPlace& cell : cellsOf(row)) {
        Row own;
        own.words = wordsOf(row, cell);
        const auto first = couple_.find(own.words.front().folded);
        auto people = own.words.size() <= 4 ? in(own) : std::vector<NamedPerson>();
        if (people.empty() && own.words.size() == 1 && first != couple_.end()) {
            people.push_back(first->second);
        }
        if (people.size() == 1) {
            named.push_back(std::move(people.front()));
            named.back().first = cell.first;
            named.back().last = cell.last;
        }
    }
    const bool areSeveral =
        named.size() >= 2 && std::ranges::all_of(named, [&](const NamedPerson& one) {
            return std::ranges::count(named, one.folded, &NamedPerson::folded) == 1;
        });
    return areSeveral ? named : std::vector<NamedPerson>();
}

std::optional<NamedPerson> People::spouseOf(const Row& row) const {
    constexpr std::size_t most = 4; // words
    if (row.words.size() < 2 || row.words.size() > most || !row.amounts.empty()) {
        return std::nullopt;
    }
    const auto words = foldedTokens(row.folded);
    const NamedPerson* person = nullptr;
    for (const std::string& word : words) {
        const auto one = couple_.find(word);
        if (one != couple_.end() && person != nullptr) {
            return std::nullopt; // both
        }
        person = one != couple_.end() ? &one->second : person;
    }
    const auto names =
        person == nullptr ? std::vector<std::string>() : foldedTokens(person->folded);
    const bool areNames =
        person != nullptr && std::ranges::all_of(words, [&](const std::string& word) {
            return std::ranges::find(names, word) != names.end();
        });
    if (!areNames) {
        return std::nullopt;
    }
    NamedPerson spouse = *person;
    spouse.first = 0;
    spouse.last = row.words.size() - 1;
    return spouse;
}

void People::lookAtDay(const Row& row, std::size_t at, const Row* above) {
    const auto day = dayAt(row, at);
    if (!day) {
        return;
    }
    const auto told = nameAt(row, 0); // whose course or payment is of that day
    auto name = nameBefore(row, at);
    const bool isOther =
        told && name && name->last > told->last && isFamily(row.words[told->last].folded)
        && !isFamily(row.words[name->last].folded) && !isAnyIn(row.words[at - 1].folded, births());
    if (isOther) {
        return;
    }
    const Row* named = &row;
    if (!name && above != nullptr) {
        name = nameAboveDay(row, at, *above);
        named = above;
    }
    if (!name) {
        return;
    }
    if (name->last > name->first) {
        families_.insert(named->words[name->last].folded);
    }
    name->birthDate = day;
    born_.emplace(named->words[name->first].folded, *name);
}

void People::look(const Row& row, const Row* above) {
    static const Labels labels{"Kind",
                               "Child",
                               "Enfant",
                               "Bambino",
                               "Bambina",
                               "Versicherte Person",
                               "Personne assurée",
                               "Persona assicurata"};
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        lookAtDay(row, i, above);
        if (joinsNames(row, i)) {
            takeCouple(row, i);
        }
    }
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        const auto name = nameOfInsured(row, i, above);
        if (name && name->last > name->first) {
            families_.insert(name->folded.substr(name->folded.rfind(' ') + 1));
        }
    }
    for (std::string& family : familiesOfSaluted(row)) {
        families_.insert(std::move(family));
    }
    if (std::string family = familyOfCells(row); !family.empty()) {
        families_.insert(std::move(family));
    }
    for (const NamedPerson& child : listedChildren(row)) {
        if (child.last > child.first) {
            families_.insert(row.words[child.last].folded);
        }
        born_.emplace(row.words[child.first].folded, child);
    }
    const auto label = findLabel(row, labels, false);
    if (const auto name = label ? nameAt(row, label->last + 1) : std::nullopt) {
        families_.insert(row.words[name->last].folded);
    }
}

/// Families that stand before the first names of several in a table, where one of these is named
/// the other way round elsewhere: "Muster Anna" below an address of Anna Muster.
void People::takeReversed(const std::set<std::pair<std::string, std::string>>& inTables,
                          const std::set<std::pair<std::string, std::string>>& elsewhere) {
    for (const auto& [family, first] : inTables) {
        const std::string name = first + ' ' + family;
        const bool isTurned = elsewhere.contains({first, family})
                              || std::ranges::any_of(couple_, [&](const auto& one) {
                                     return one.second.folded == name;
                                 });
        const auto ofFamily = std::ranges::count(
            inTables, family, [](const auto& pair) { return std::string_view(pair.first); });
        if (isTurned && ofFamily >= 2) {
            reversed_.insert(family);
        }
    }
}

/// "Anna und Beat Muster", "Anna Muster und Beat Muster": by the word that joins them.
void People::takeCouple(const Row& row, std::size_t join) {
    NamedPerson second = *nameAt(row, join + 1);
    const auto full = join >= 2 ? nameAt(row, join - 2) : std::nullopt;
    families_.insert(row.words[second.last].folded);
    if (full) {
        families_.insert(row.words[full->last].folded);
    }
    NamedPerson first = full ? *full : nameFrom(row, join - 1, join - 1);
    if (!full) {
        first.name += second.name.substr(second.name.find(' '));
        first.folded += second.folded.substr(second.folded.find(' '));
    }
    couple_.emplace(row.words[full ? join - 2 : join - 1].folded, std::move(first));
    couple_.emplace(row.words[join + 1].folded, std::move(second));
}

bool namesTwo(const DocumentRows& document) {
    const People people(document);
    return std::ranges::any_of(document.pages, [&](const PageRows& page) {
        return std::ranges::any_of(page.rows,
                                   [&](const Row& row) { return people.in(row).size() >= 2; });
    });
}

} // namespace fiscarel
