#include "Fiscarel_SG/documents/kinds/RowNames.h"

#include "Fiscarel_SG/documents/kinds/FormHeader.h"
#include "Fiscarel_SG/documents/kinds/LetterHead.h"
#include "Fiscarel_SG/documents/kinds/PeopleWords.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <map>
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

/// Whether words stand together, not in columns beside each other.
bool areInOneCell(const Row& row, std::size_t first, std::size_t last) {
    return std::ranges::any_of(cellsOf(row), [&](const LabelPlace& cell) {
        return cell.first <= first && last <= cell.last;
    });
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

} // namespace

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

std::optional<NamedPerson> nameAt(const Row& row, std::size_t at) {
    const bool isName = at + 1 < row.words.size() && isCapitalised(row.words[at])
                        && isCapitalised(row.words[at + 1])
                        && !isAnyIn(row.words[at].folded, noNames())
                        && !isAnyIn(row.words[at + 1].folded, noNames());
    return isName ? std::optional(nameFrom(row, at, at + 1)) : std::nullopt;
}

std::optional<Date> dayAt(const Row& row, std::size_t at) {
    const auto day = parseDay(bare(row.words[at].text));
    return day || at + 2 >= row.words.size()
               ? day
               : parseDay(row.words[at].text, row.words[at + 1].text, bare(row.words[at + 2].text));
}

std::optional<NamedPerson> nameOfInsured(const Row& row, std::size_t at, const Row* above) {
    if (!isSocialSecurityNumber(bare(row.words[at].text))) {
        return std::nullopt;
    }
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

std::optional<NamedPerson> nameAboveDay(const Row& row, std::size_t day, const Row& above) {
    auto name = nameAbove(row, day, above);
    name = name ? std::move(name) : nameOver(row, day, above);
    return name ? std::move(name) : nameBrokenOff(above, day);
}

bool joinsNames(const Row& row, std::size_t at) {
    return at >= 1 && isJoin(row.words[at]) && isCapitalised(row.words[at - 1])
           && nameAt(row, at + 1) && areInOneCell(row, at - 1, at + 2);
}

} // namespace fiscarel
