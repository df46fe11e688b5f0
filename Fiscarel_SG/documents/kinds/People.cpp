#include "Fiscarel_SG/documents/kinds/People.h"

#include "Fiscarel_SG/documents/kinds/FormHeader.h"
#include "Fiscarel_SG/documents/kinds/LetterHead.h"
#include "Fiscarel_SG/documents/kinds/PeopleWords.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <string_view>

namespace fiscarel {

namespace {

using taxcore::Date;

std::string_view bare(std::string_view word) {
    if (word.starts_with('(')) {
        word.remove_prefix(1);
    }
    while (!word.empty() && std::string_view(",;:.()").find(word.back()) != word.npos) {
        word.remove_suffix(1);
    }
    return word;
}

bool isCapitalised(const RowWord& word) {
    const std::string_view text = bare(word.text);
    if (text.size() < 2 || text.find_first_of("0123456789/&|·") != text.npos) {
        return false;
    }
    const bool isCapital =
        (text[0] >= 'A' && text[0] <= 'Z') || static_cast<unsigned char>(text[0]) >= 0x80;
    const bool goesOnSmall = !(text[1] >= 'A' && text[1] <= 'Z');
    return isCapital && goesOnSmall;
}

/// Whether words stand together, not in columns beside each other.
bool areInOneCell(const Row& row, std::size_t first, std::size_t last) {
    return std::ranges::any_of(cellsOf(row), [&](const LabelPlace& cell) {
        return cell.first <= first && last <= cell.last;
    });
}

bool isJoin(const RowWord& word) {
    return word.folded == "und" || word.folded == "et" || word.folded == "e" || word.text == "&";
}

NamedPerson nameFrom(const Row& row, std::size_t first, std::size_t last) {
    NamedPerson name{.first = first, .last = last};
    for (std::size_t i = first; i <= last; ++i) {
        name.folded += (i == first ? "" : " ") + row.words[i].folded;
        name.name += (i == first ? "" : " ") + std::string(bare(row.words[i].text));
    }
    return name;
}

/// Two or three capitalised words that end at or before a word, next to it.
std::optional<NamedPerson> nameBefore(const Row& row, std::size_t end) {
    std::size_t last = end;
    std::string between;
    while (last > 0 && !isCapitalised(row.words[last - 1])) {
        const std::string& word = row.words[--last].folded;
        between += word + ' ';
        if (end - last > 4 || (!row.amounts.empty() && !word.empty() && !isAnyIn(word, births()))) {
            return std::nullopt;
        }
    }
    const bool isBirth = isAnyIn(between, plainBirths());
    if (!row.amounts.empty() && !isBirth && isAnyIn(between, births())) {
        return std::nullopt;
    }
    while (last > 0 && isAnyIn(row.words[last - 1].folded, noNames())) {
        --last;
    }
    std::size_t first = last;
    while (first > 0 && last - first < 3 && isCapitalised(row.words[first - 1])
           && (first == last || areInOneCell(row, first - 1, first))
           && !isAnyIn(row.words[first - 1].folded, noNames())
           && (first == last || !row.words[first - 1].text.ends_with(":"))) {
        --first;
    }
    // "Lea, geboren am 19.1.2016": so a first name alone is one too.
    const std::size_t fewest = isBirth ? 1 : 2;
    return last - first >= fewest ? std::optional(nameFrom(row, first, last - 1)) : std::nullopt;
}

/// Two capitalised words from a word on.
std::optional<NamedPerson> nameAt(const Row& row, std::size_t at) {
    const bool isName = at + 1 < row.words.size() && isCapitalised(row.words[at])
                        && isCapitalised(row.words[at + 1])
                        && !isAnyIn(row.words[at].folded, noNames())
                        && !isAnyIn(row.words[at + 1].folded, noNames());
    return isName ? std::optional(nameFrom(row, at, at + 1)) : std::nullopt;
}

/// The name right above a day of birth that begins its cell: "geb. 10.07.2018".
std::optional<NamedPerson> nameAbove(const Row& row, std::size_t day, const Row& above) {
    std::size_t first = day;
    static const Labels links{"Data", "di", "Date", "de"}; // "Data di nascita"
    while (first > 0 && day - first < 3
           && (isAnyIn(row.words[first - 1].folded, births())
               || (first < day && isAnyIn(row.words[first - 1].folded, links)))) {
        --first;
    }
    if (first == day) {
        return std::nullopt;
    }
    const double left = row.words[first].place.left;
    for (std::size_t i = 0; i < above.words.size(); ++i) {
        const double offset = above.words[i].place.left - left;
        if (offset > -row.height() && offset < row.height()) {
            return nameAt(above, i);
        }
    }
    return std::nullopt;
}

/// The name in the cell above a day of birth in a row of them: "Date de naissance   1.2.1980 ...".
std::optional<NamedPerson> nameOver(const Row& row, std::size_t day, const Row& above) {
    static const Labels labels{"Geburtsdatum",    "Geburtstag",    "Date de naissance",
                               "Data di nascita", "Date of birth", "geboren",
                               "né le",           "née le"};
    const auto label = findLabel(row, labels, false);
    if (!label || label->last >= day) {
        return std::nullopt;
    }
    const PagePlace& place = row.words[day].place;
    for (const LabelPlace& cell : cellsOf(above)) {
        const bool isOver = cell.left < place.right && place.left < cell.right;
        if (isOver && cell.last == cell.first + 1) {
            return nameAt(above, cell.first);
        }
    }
    return std::nullopt;
}

/// The name that the row above breaks off with before a day that begins its row: "und Roman
/// Muster," "18.10.2021".
std::optional<NamedPerson> nameBrokenOff(const Row& above, std::size_t day) {
    const bool isOpen = day == 0 && !above.words.empty() && above.words.back().text.ends_with(',')
                        && isCapitalised(above.words.back());
    return isOpen ? nameBefore(above, above.words.size()) : std::nullopt;
}

/// Whom a social security number is of: the name before it, or the cell above it.
std::optional<NamedPerson> nameOfInsured(const Row& row, std::size_t at, const Row* above) {
    std::optional<NamedPerson> before = nameBefore(row, at);
    if (before || above == nullptr) {
        return before;
    }
    const PagePlace& place = row.words[at].place;
    for (const LabelPlace& cell : cellsOf(*above)) {
        const bool isOver = cell.left < place.right && place.left < cell.right;
        if (isOver && (cell.last == cell.first + 1 || cell.last == cell.first + 2)) {
            return nameAt(*above, cell.last - 1); // "Madame Anna Muster", too
        }
    }
    return std::nullopt;
}

/// The family of two or more cells that are each a name of it and nothing else.
std::string familyOfCells(const Row& row) {
    std::map<std::string, int> counts;
    for (const LabelPlace& cell : cellsOf(row)) {
        const auto name = cell.last == cell.first + 1 ? nameAt(row, cell.first) : std::nullopt;
        if (name && ++counts[row.words[name->last].folded] >= 2) {
            return row.words[name->last].folded;
        }
    }
    return {};
}

/// The families of those whom a salutation names: "die Rente von Frau Anna Muster".
std::vector<std::string> familiesOfSaluted(const Row& row) {
    std::vector<std::string> families;
    for (std::size_t i = 1; i < row.words.size(); ++i) {
        const auto name =
            isAnyIn(row.words[i - 1].folded, salutations()) ? nameAt(row, i) : std::nullopt;
        if (name) {
            families.push_back(row.words[name->last].folded);
        }
    }
    return families;
}

/// The day that begins with a word.
std::optional<Date> dayAt(const Row& row, std::size_t at) {
    const auto day = parseDay(bare(row.words[at].text));
    return day || at + 2 >= row.words.size()
               ? day
               : parseDay(row.words[at].text, row.words[at + 1].text, bare(row.words[at + 2].text));
}

/// The names a list strings together behind a word for several children: "Kinder: Lea, Mia und Noah
/// Muster". Empty when there are not several.
std::vector<NamedPerson> listedChildren(const Row& row) {
    static const Labels words{"Kinder",     "Kindern",     "Eltern von", "Geschwister", "enfants",
                              "parents de", "genitori di", "bambini",    "figli"};
    const auto label = findLabel(row, words, false);
    std::vector<NamedPerson> names;
    for (std::size_t i = label ? label->last + 1 : row.words.size(); i < row.words.size();) {
        std::size_t end = i;
        while (end < row.words.size() && isCapitalised(row.words[end])
               && !isAnyIn(row.words[end].folded, noNames())
               && (end == i || !row.words[end - 1].text.ends_with(','))) {
            ++end;
        }
        if (end == i || end - i > 3) {
            break;
        }
        names.push_back(nameFrom(row, i, end - 1));
        const bool goesOn = row.words[end - 1].text.ends_with(',');
        const bool isJoined = !goesOn && end < row.words.size() && isJoin(row.words[end]);
        if (!goesOn && !isJoined) {
            break;
        }
        i = end + (isJoined ? 1 : 0);
    }
    return names.size() >= 2 ? names : std::vector<NamedPerson>();
}

/// Whether a name's two words are what an amount is for: "Freie Vorsorge", "Betreuung Montag".
bool namesThing(const Row& row, const NamedPerson& name) {
    using enum Concept;
    static const std::vector<Concept> things{
        pillar3a, freePillar,   occupational, childcare, course,  donation, premium, amount,
        fee,      contribution, account,      meals,     insured, interest, total};
    Row words;
    words.words = {row.words[name.first], row.words[name.last]};
    static const Labels more{"*vorsorge*", "*versicherung*", "*prévoyance*", "*previdenza*"};
    return namesAny(words, things, false) || findLabel(words, more, false);
}

/// The name that is all a row says before its amounts, or all its first cell says; a bullet or the
/// word for a sum may stand before it.
std::optional<NamedPerson> nameOfAmount(const Row& row) {
    const auto endsName = [](const RowWord& word) {
        return hasDigit(word.text) || word.folded.empty() || isFrancs(word.text);
    };
    const bool isFirm = std::ranges::any_of(
        row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
    if (!isFirm) {
        return std::nullopt;
    }
    std::size_t first = !row.words.empty() && row.words[0].folded.empty() ? 1 : 0;
    while (first < row.words.size() && isAnyIn(row.words[first].folded, sumsOf())) {
        ++first;
    }
    std::size_t end = first;
    while (end < row.words.size() && !endsName(row.words[end])) {
        ++end;
    }
    for (const LabelPlace& cell : cellsOf(row)) {
        if (cell.first <= first && first <= cell.last) {
            end = std::min(end, cell.last + 1);
        }
    }
    const bool isName = end >= first + 2 && end <= first + 3;
    auto name = isName ? nameAt(row, first) : std::nullopt;
    return name && !namesThing(row, *name) ? name : std::nullopt;
}

/// The name that is all a row's first cell says where amounts follow below, as that of a child over
/// its costs.
std::optional<NamedPerson> nameOverAmounts(const PageRows& page, std::size_t at) {
    constexpr std::size_t farthest = 3;
    const Row& row = page.rows[at];
    const auto cells = cellsOf(row);
    if (cells.empty() || cells.front().last != cells.front().first + 1 || hasFirmAmount(row)) {
        return std::nullopt;
    }
    const auto first = page.rows.begin() + static_cast<std::ptrdiff_t>(at) + 1;
    const auto count = std::min(farthest, page.rows.size() - at - 1);
    const bool headsAmounts = std::any_of(first, first + static_cast<std::ptrdiff_t>(count),
                                          [](const Row& below) { return hasFirmAmount(below); });
    auto name = headsAmounts ? nameAt(row, cells.front().first) : std::nullopt;
    return name && !namesThing(row, *name) ? name : std::nullopt;
}

/// Whom the cells of a row name behind the word for whose contract or account it is:
/// "Stipulante: Anna Muster   Stipulante: Beat Muster".
std::vector<NamedPerson> holdersIn(const Row& row) {
    static const Labels labels{"Versicherungsnehmer*",
                               "Vorsorgenehmer*",
                               "Kontoinhaber*",
                               "Inhaber*",
                               "Versicherte*",
                               "Preneur*",
                               "Preneuse*",
                               "Titulaire*",
                               "Assuré*",
                               "Titolare",
                               "Intestatari*",
                               "Stipulante",
                               "Contraente",
                               "Assicurat*",
                               "Avente diritto",
                               "Policyholder*",
                               "Account holder"};
    std::vector<NamedPerson> holders;
    for (std::size_t from = 0; const auto label = findLabel(row, labels, false, from);) {
        if (const auto name = nameAt(row, label->last + 1)) {
            holders.push_back(*name);
        }
        from = label->last + 1;
    }
    return holders;
}

} // namespace

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
        if (const auto day = dayAt(row, i)) {
            const auto told = nameAt(row, 0); // whose course or payment is of that day
            auto name = nameBefore(row, i);
            const bool isOther = told && name && name->last > told->last
                                 && isFamily(row.words[told->last].folded)
                                 && !isFamily(row.words[name->last].folded)
                                 && !isAnyIn(row.words[i - 1].folded, births());
            if (isOther) {
                continue;
            }
            if (!name && above != nullptr) {
                name = nameAbove(row, i, *above);
                name = name ? name : nameOver(row, i, *above);
                name = name ? name : nameBrokenOff(*above, i);
                if (name) {
                    families_.insert(above->words[name->last].folded);
                    name->birthDate = day;
                    born_.emplace(above->words[name->first].folded, *name);
                }
                continue;
            }
            if (name) {
                if (name->last > name->first) {
                    families_.insert(row.words[name->last].folded);
                }
                name->birthDate = day;
                born_.emplace(row.words[name->first].folded, *name);
            }
        }
        if (isJoin(row.words[i]) && i >= 1 && isCapitalised(row.words[i - 1]) && nameAt(row, i + 1)
            && areInOneCell(row, i - 1, i + 2)) {
            // "Anna Muster und Beat Muster", "Anna und Beat Muster"
            takeCouple(row, i);
            for (const auto& name :
                 {i >= 2 ? nameAt(row, i - 2) : std::nullopt, nameAt(row, i + 1)}) {
                if (name) {
                    families_.insert(row.words[name->last].folded);
                }
            }
        }
    }
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        const auto name = isSocialSecurityNumber(bare(row.words[i].text))
                              ? nameOfInsured(row, i, above)
                              : std::nullopt;
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
