#include "Fiscarel_SG/documents/kinds/DocumentFacts.h"

#include "Fiscarel_SG/documents/kinds/DocumentPerson.h"
#include "Fiscarel_SG/documents/kinds/FormHeader.h"
#include "Fiscarel_SG/documents/kinds/LetterHead.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <map>

namespace fiscarel {

using taxcore::Date;

namespace {

constexpr double upperPart = 0.4; ///< of a page, where titles stand

/// Years by how clearly they are meant: named as the year, as end of the year, in any date.
class YearVotes {
  public:
    /// `isTitle`: the row stands in the upper part of the first page.
    void look(const Row& row, bool isTitle) {
        static const Labels names{
            "Steuerjahr",         "Jahr",         "Jahre",   "Steuerperiode", "Beitragsjahr",
            "Bescheinigungsjahr", "Kalenderjahr", "Année",   "Année fiscale", "Anno",
            "Anno fiscale",       "Exercice",     "Periode", "Période",       "Periodo"};
        std::vector<std::string_view> texts;
        for (const RowWord& word : row.words) {
            texts.emplace_back(word.text);
        }
        const std::vector<bool> barred = wordsWithoutAmount(texts); // parts of account numbers
        for (std::size_t i = 0; i < row.words.size(); ++i) {
            if (const auto day = dayAt(row, i)) {
                vote(day->year(), day->month() == 12 && day->day() == 31 ? 5 : 1);
                i += parseDay(row.words[i].text) ? 0U : 2U;
            } else if (const auto year = yearIn(row.words[i].text); year && !isPlace(row, i)) {
                std::string before;
                for (std::size_t j = i > 3 ? i - 3 : 0; j < i; ++j) {
                    before += row.words[j].folded + ' ';
                }
                const bool isNamed = isAnyIn(before, names);
                const bool isInNumber = (i > 0 && barred[i] && barred[i - 1])
                                        || (i + 1 < barred.size() && barred[i] && barred[i + 1]);
                static const Labels since{"seit", "depuis", "dal", "since", "dès"};
                const bool isSince = (i > 0 && isAnyIn(row.words[i - 1].folded, since))
                                     || isAnyIn(before, beginnings());
                const int month = i > 0 ? monthOf(row.words[i - 1].folded) : 0;
                if (!isSince && (isNamed || !isInNumber)) {
                    vote(*year, isNamed       ? 8
                                : month == 12 ? 3
                                : month != 0  ? 1 // of a letter: "im Januar 2025"
                                : isTitle     ? 6
                                              : 2);
                }
            }
        }
    }

    /// What happened in a year that the paper is not about: "ouvert en 2019".
    static const Labels& beginnings() {
        static const Labels words{"eröffnet*", "gegründet*", "geboren", "ouvert*", "fondé*",
                                  "né",        "née",        "apert*",  "fondat*", "nato",
                                  "nata",      "opened",     "born",    "founded"};
        return words;
    }

    /// Of two years side by side the later one: the other is there to compare.
    std::optional<int> best() const {
        const auto most =
            std::max_element(votes_.rbegin(), votes_.rend(),
                             [](const auto& a, const auto& b) { return a.second < b.second; });
        return most == votes_.rend() ? std::nullopt : std::optional(most->first);
    }

  private:
    static std::optional<int> yearIn(std::string_view word) {
        while (!word.empty()
               && std::string_view(".,:;)").find(word.back()) != std::string_view::npos) {
            word.remove_suffix(1);
        }
        return yearOf2000s(word);
    }

    static std::optional<Date> dayAt(const Row& row, std::size_t at) {
        const auto text = [&](std::size_t i) -> std::string_view {
            return i < row.words.size() ? std::string_view(row.words[i].text) : std::string_view();
        };
        const auto day = parseDay(text(at));
        return day ? day : parseDay(text(at), text(at + 1), text(at + 2));
    }

    /// "2000 Neuchâtel": a postal code before a name, and nothing before it but a street.
    static bool isPlace(const Row& row, std::size_t at) {
        const auto endsStreet = [](const RowWord& word) {
            return word.text.ends_with(',') || isSeparator(word);
        };
        if (at + 1 >= row.words.size() || (at > 0 && !endsStreet(row.words[at - 1]))) {
            return false;
        }
        const char next = row.words[at + 1].text.front();
        return next >= 'A' && next <= 'Z' && row.words[at + 1].text.size() > 2;
    }

    void vote(int year, int weight) {
        if (year >= 2000 && year <= 2100) {
            votes_[year] += weight;
        }
    }

    std::map<int, int> votes_;
};

/// The first day of a row from a word on, in figures or words.
std::optional<Date> dayFrom(const Row& row, std::size_t from) {
    for (std::size_t i = from; i < row.words.size(); ++i) {
        if (const auto day = parseDay(row.words[i].text)) {
            return day;
        }
        if (i + 2 < row.words.size()) {
            if (const auto day =
                    parseDay(row.words[i].text, row.words[i + 1].text, row.words[i + 2].text)) {
                return day;
            }
        }
    }
    return std::nullopt;
}

void readDays(const PageRows& page, DocumentFacts& facts) {
    static const Labels birth{"Geburtsdatum",      "geboren am", "geb",    "geboren",
                              "Date de naissance", "né le",      "née le", "Data di nascita",
                              "nato il",           "nata il"};
    static const Labels issue{"Rechnungsdatum",     "Datum", "Date de facture",
                              "Date de la facture", "Date",  "Data fattura",
                              "Data della fattura", "Data",  "vom"};
    std::optional<Date> placed;
    for (const Row& row : page.rows) {
        const auto born = findLabel(row, birth, page.isRecognised);
        if (born && !facts.birthDate) {
            facts.birthDate = dayFrom(row, born->last + 1);
        }
        const auto label = findLabel(row, issue, page.isRecognised);
        if (label && !facts.issued && !born) {
            facts.issued = dayFrom(row, label->last + 1);
        }
        // "St.Gallen, 14. Januar 2025"
        if (!placed && row.words.size() >= 2 && row.words.size() <= 6
            && row.words.front().text.ends_with(',')) {
            placed = dayFrom(row, 1);
        }
    }
    if (!facts.issued) {
        facts.issued = placed;
    }
}

} // namespace

DocumentFacts readFacts(const DocumentRows& document) {
    DocumentFacts facts;
    YearVotes votes;
    for (const PageRows& page : document.pages) {
        for (const Row& row : page.rows) {
            votes.look(row,
                       &page == &document.pages.front() && row.middle() < page.height * upperPart);
            if (facts.socialSecurityNumber.empty()) {
                facts.socialSecurityNumber = socialSecurityNumberIn(row);
            }
        }
        readDays(page, facts);
        if (facts.issuer.text.empty()) {
            facts.issuer = findIssuer(page, findAddressee(page, page.height));
        }
        if (facts.person.text.empty()) {
            facts.person = findPerson(page);
        }
    }
    facts.year = votes.best();
    return facts;
}

std::optional<int> yearTold(const PageRows& page, double bottom) {
    YearVotes votes;
    for (const Row& row : page.rows) {
        if (row.middle() < bottom) {
            votes.look(row, row.middle() < page.height * upperPart);
        }
    }
    return votes.best();
}

Evidence issuerEvidence(const DocumentFacts& facts) {
    using Witness = Proposal::Witness;
    return {.witness = facts.issuer.page == 0 ? Witness::text : Witness::position,
            .confidence = Proposal::Confidence::medium,
            .reason = "Steht oben auf dem Dokument.",
            .page = facts.issuer.page,
            .box = facts.issuer.box};
}

ProposedRecord recordWith(const DocumentFacts& facts, ProposedRecord::Kind kind, std::string title,
                          int page) {
    return {.kind = kind,
            .title = std::move(title),
            .page = page,
            .year = facts.year,
            .personName = facts.person.text,
            .birthDate = facts.birthDate,
            .socialSecurityNumber = facts.socialSecurityNumber};
}

} // namespace fiscarel
