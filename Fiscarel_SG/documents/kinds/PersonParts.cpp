#include "Fiscarel_SG/documents/kinds/PersonParts.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"

#include <algorithm>
#include <set>

namespace fiscarel {

namespace {

/// A name of two or more words in a row.
struct Name {
    std::string folded;
    std::string text;
    std::string family;    ///< its last word, folded
    std::size_t first = 0; ///< index of its first word in the row
    std::size_t last = 0;
};

std::string_view bare(std::string_view word) {
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

bool isJoin(const RowWord& word) {
    return word.folded == "und" || word.folded == "et" || word.folded == "e" || word.text == "&";
}

Name nameFrom(const Row& row, std::size_t first, std::size_t last) {
    Name name{.family = row.words[last].folded, .first = first, .last = last};
    for (std::size_t i = first; i <= last; ++i) {
        name.folded += (i == first ? "" : " ") + row.words[i].folded;
        name.text += (i == first ? "" : " ") + std::string(bare(row.words[i].text));
    }
    return name;
}

/// Words that stand beside names and are written with a capital too.
const Labels& noNames() {
    static const Labels words{
        "Kind",   "Kinder",    "Name",         "Vorname",  "Enfant",  "Enfants", "Nom",
        "Prénom", "Nome",      "Cognome",      "Herr",     "Frau",    "Madame",  "Monsieur",
        "Signor", "Signora",   "Person",       "Tochter",  "Sohn",    "Bambino", "Bambina",
        "Geb",    "Geboren",   "Geburtsdatum", "Total",    "Familie", "Famille", "Famiglia",
        "Januar", "Februar",   "März",         "April",    "Mai",     "Juni",    "Juli",
        "August", "September", "Oktober",      "November", "Dezember"};
    return words;
}

/// Two or three capitalised words that end at or before a word, next to it.
std::optional<Name> nameBefore(const Row& row, std::size_t end) {
    std::size_t last = end;
    while (last > 0 && !isCapitalised(row.words[last - 1])) {
        if (end - last > 3 || !row.amounts.empty()) {
            return std::nullopt;
        }
        --last;
    }
    while (last > 0 && isAnyIn(row.words[last - 1].folded, noNames())) {
        --last;
    }
    std::size_t first = last;
    while (first > 0 && last - first < 3 && isCapitalised(row.words[first - 1])
           && !isAnyIn(row.words[first - 1].folded, noNames())
           && (first == last || !row.words[first - 1].text.ends_with(':'))) {
        --first;
    }
    return last - first >= 2 ? std::optional(nameFrom(row, first, last - 1)) : std::nullopt;
}

/// Two capitalised words from a word on.
std::optional<Name> nameAt(const Row& row, std::size_t at) {
    const bool isName = at + 1 < row.words.size() && isCapitalised(row.words[at])
                        && isCapitalised(row.words[at + 1])
                        && !isAnyIn(row.words[at].folded, noNames())
                        && !isAnyIn(row.words[at + 1].folded, noNames());
    return isName ? std::optional(nameFrom(row, at, at + 1)) : std::nullopt;
}

/// The family names of the people a document tells.
class Families {
  public:
    explicit Families(const DocumentRows& document) {
        for (const PageRows& page : document.pages) {
            for (const Row& row : page.rows) {
                look(row);
            }
        }
    }

    /// The people a row names.
    std::vector<Name> namesIn(const Row& row) const {
        std::vector<Name> names;
        for (std::size_t i = 1; i < row.words.size(); ++i) {
            const bool isFamily = names_.contains(row.words[i].folded);
            if (isFamily && isCapitalised(row.words[i - 1])
                && !isAnyIn(row.words[i - 1].folded, noNames())
                && !row.words[i - 1].text.ends_with(':')) {
                names.push_back(nameFrom(row, i - 1, i));
            }
        }
        return names;
    }

  private:
    void look(const Row& row) {
        static const Labels labels{"Kind",
                                   "Enfant",
                                   "Bambino",
                                   "Bambina",
                                   "Versicherte Person",
                                   "Personne assurée",
                                   "Persona assicurata"};
        for (std::size_t i = 0; i < row.words.size(); ++i) {
            if (parseDay(row.words[i].text)
                || (i + 2 < row.words.size()
                    && parseDay(row.words[i].text, row.words[i + 1].text, row.words[i + 2].text))) {
                add(nameBefore(row, i));
            }
            if (isJoin(row.words[i]) && i >= 2 && nameAt(row, i + 1)) {
                add(nameAt(row, i - 2));
                add(nameAt(row, i + 1));
            }
        }
        if (const auto label = findLabel(row, labels, false)) {
            add(nameAt(row, label->last + 1));
        }
    }

    void add(const std::optional<Name>& name) {
        if (name) {
            names_.insert(name->family);
        }
    }

    std::set<std::string> names_;
};

bool isWorthy(const RowAmount& amount) {
    return amount.amount.isFirm() && amount.amount.value >= 1;
}

class Search {
  public:
    Search(const DocumentRows& document, const Wanted& wanted)
        : document_(document), wanted_(wanted), families_(document) {}

    std::vector<PersonAmount> run() {
        for (void (Search::*const way)() : {&Search::byRow, &Search::byColumn, &Search::byBlock}) {
            found_.clear();
            (this->*way)();
            std::set<std::string> people;
            for (const PersonAmount& one : found_) {
                people.insert(one.name);
            }
            if (people.size() >= 2 && people.size() == found_.size()) {
                return found_;
            }
        }
        return {};
    }

  private:
    /// "Anna Muster, 12.3.2015   4’500.00"
    void byRow() {
        for (const PageRows& page : document_.pages) {
            for (std::size_t at = 0; at < page.rows.size(); ++at) {
                const Row& row = page.rows[at];
                const auto names = families_.namesIn(row);
                const bool isOther = findLabel(row, wanted_.without, page.isRecognised)
                                     || namesAny(row, wanted_.notMeant, page.isRecognised);
                if (names.size() != 1 || isOther || !std::ranges::any_of(row.amounts, isWorthy)) {
                    continue;
                }
                const LabelPlace place{names[0].first, names[0].last,
                                       row.words[names[0].first].place.left,
                                       row.words[names[0].last].place.right};
                auto hit = amountFor({&page, 0, page.rows.size()}, at, place, wanted_);
                if (hit && hit->row == at && hit->isAlone && isWorthy(hit->amount)) {
                    add(names[0], std::move(*hit));
                }
            }
        }
    }

    /// A heading of names over columns of amounts.
    void byColumn() {
        for (const PageRows& page : document_.pages) {
            for (std::size_t at = 0; at < page.rows.size() && found_.size() < 2; ++at) {
                found_.clear(); // a single one stands under a heading by chance
                const auto names = families_.namesIn(page.rows[at]);
                if (names.size() < 2 || page.number == 0) {
                    continue;
                }
                const RowRange below{&page, at + 1, page.rows.size()};
                const auto hit = findFirst({below}, wanted_);
                if (hit) {
                    addColumns(page, page.rows[at], names, hit->row);
                }
            }
        }
    }

    void addColumns(const PageRows& page, const Row& heading, const std::vector<Name>& names,
                    std::size_t at) {
        for (const RowAmount& amount : page.rows[at].amounts) {
            for (const Name& name : names) {
                const double left = heading.words[name.first].place.left;
                const double right = heading.words[name.last].place.right;
                if (isWorthy(amount) && amount.place.left < right && left < amount.place.right) {
                    add(name, {.page = &page, .row = at, .amount = amount, .label = name.text});
                }
            }
        }
    }

    /// A name above the rows that are about it.
    void byBlock() {
        for (const PageRows& page : document_.pages) {
            std::vector<std::pair<std::size_t, Name>> starts;
            for (std::size_t at = 0; at < page.rows.size(); ++at) {
                const auto names = families_.namesIn(page.rows[at]);
                if (names.size() == 1
                    && (starts.empty() || starts.back().second.folded != names[0].folded)) {
                    starts.emplace_back(at, names[0]);
                }
            }
            for (std::size_t i = 0; i < starts.size(); ++i) {
                const bool isLast = i + 1 == starts.size();
                const std::size_t end = isLast ? page.rows.size() : starts[i + 1].first;
                auto hit = findFirst({RowRange{&page, starts[i].first, end}}, wanted_);
                if (hit && isLast) {
                    hit = withoutCommonTotal(page, starts[i].first, std::move(*hit));
                }
                if (hit && hit->value() >= 1) {
                    add(starts[i].second, std::move(*hit));
                }
            }
        }
    }

    /// What stands behind the last name may be the total of all: then the amount above it counts.
    std::optional<FoundAmount> withoutCommonTotal(const PageRows& page, std::size_t first,
                                                  FoundAmount hit) const {
        Decimal others;
        for (const PersonAmount& one : found_) {
            others = others + one.found.value();
        }
        auto own = findFirst({RowRange{&page, first, hit.row}}, wanted_);
        return own && own->value() + others == hit.value() ? std::move(own)
                                                           : std::optional(std::move(hit));
    }

    void add(const Name& name, FoundAmount found) {
        found_.push_back({name.text, std::move(found)});
    }

    const DocumentRows& document_;
    const Wanted& wanted_;
    Families families_;
    std::vector<PersonAmount> found_;
};

} // namespace

std::vector<PersonAmount> findPersonAmounts(const DocumentRows& document, const Wanted& wanted) {
    return Search(document, wanted).run();
}

} // namespace fiscarel
