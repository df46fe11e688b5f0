#include "Fiscarel_SG/documents/kinds/PersonName.h"

#include "Fiscarel_SG/documents/kinds/LetterHead.h"
#include "Fiscarel_SG/documents/kinds/RowNames.h"
#include "Fiscarel_SG/documents/kinds/WageYear.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>

namespace fiscarel {

namespace {

bool isParticle(const RowWord& word) {
    static const Labels particles{"von", "de",  "del", "della", "di",
                                  "da",  "van", "du",  "dos",   "zu"};
    return isAnyIn(word.folded, particles);
}

bool isTitle(const RowWord& word) {
    static const Labels titles{"Dr", "Prof"};
    return isAnyIn(word.folded, titles);
}

bool isSalutation(const RowWord& word) {
    static const Labels abbreviated{"M", "Mme"};
    return isAnyIn(word.folded, salutations()) || isAnyIn(word.folded, abbreviated);
}

/// Whether a word is written as names are.
bool isNameWord(const RowWord& word) {
    return !hasDigit(word.text) && startsWithCapital(word.text) && word.folded.size() >= 2
           && word.text.find_first_of("/&%:()@_|·") == std::string::npos;
}

/// Whether words name what papers tell of: amounts, insurances, parts of a year, offices.
bool namesThing(const Row& words) {
    static const auto things = [] {
        using enum Concept;
        std::vector<Concept> all;
        for (int i = 0; i < static_cast<int>(last); ++i) {
            const auto one = static_cast<Concept>(i);
            if (one != limit && one != possible && one != donation) { // "Max", "Donato"
                all.push_back(one);
            }
        }
        return all;
    }();
    static const Labels offices{"Filiale*",
                                "Abteilung*",
                                "Arbeitgeber*",
                                "Arbeitnehmer*",
                                "Betrieb*",
                                "Stelle",
                                "Kostenstelle*",
                                "employeur",
                                "datore",
                                "Name",
                                "Vorname",
                                "Nom",
                                "Prénom",
                                "Nome",
                                "Cognome",
                                "Mitarbeit*",
                                "employé*",
                                "dipendent*",
                                "*nummer",
                                "Nr",
                                "Kunde",
                                "Kundin",
                                "*nehmer",
                                "*nehmerin",
                                "*inhaber*",
                                "*leistung*",
                                "prestation*",
                                "prestazion*",
                                "*spende*",
                                "*person",
                                "*datum",
                                "Eingang",
                                "Ausgabe",
                                "Seite",
                                "*police*",
                                "*ausweis",
                                "*bescheinigung*",
                                "*bestätigung*",
                                "*auszug",
                                "*vorsorge*",
                                "*versicherung*",
                                "attestation*",
                                "certificat*",
                                "attestazion*",
                                "*übersicht*",
                                "ID",
                                "UID",
                                "Depot*",
                                "Steuer*",
                                "Ablauf",
                                "Beginn",
                                "Adresse",
                                "indirizzo",
                                "Telefon",
                                "Datum",
                                "Geburts*",
                                "Date",
                                "Data"};
    return namesAny(words, things, false) || findLabel(words, offices, false)
           || namesPartOfYear(words) || namesWholeYear(words);
}

/// The words without families' names that are written as things are: "Bucher" as books, "Gross".
Row withoutSurnames(Row words) {
    static const Labels surnames{"Bucher",  "Gross",  "Conti",   "Billeter", "Steurer",
                                 "Kursawe", "Kasser", "Rentsch", "Lohner",   "Zahner",
                                 "Brutsch", "Franck", "Frank",   "Franken"};
    std::erase_if(words.words, [](const RowWord& word) { return isAnyIn(word.folded, surnames); });
    return words;
}

Row partOf(const Row& row, std::size_t first, std::size_t last) {
    Row part;
    part.top = row.top;
    part.bottom = row.bottom;
    part.words.assign(row.words.begin() + static_cast<std::ptrdiff_t>(first),
                      row.words.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    return part;
}

} // namespace

bool isPersonName(const Row& words) {
    constexpr std::size_t mostNames = 4;
    std::size_t names = 0;
    std::string folded;
    for (std::size_t i = 0; i < words.words.size(); ++i) {
        const RowWord& word = words.words[i];
        const bool isInside = names > 0 && i + 1 < words.words.size();
        if (word.text == "," || word.text == "-" || isParticle(word)
            || (names == 0 && isTitle(word)) || (isInside && isJoin(word))) {
            continue;
        }
        if (!isAnyIn(word.folded, salutations()) && !isNameWord(word)) {
            return false;
        }
        folded += word.folded + ' ';
        ++names;
    }
    return names >= 2 && names <= mostNames && !namesCompany(folded)
           && !namesThing(withoutSurnames(words));
}

std::optional<Run> personNameAt(const PageRows& page, const Row& row, std::size_t first) {
    if (first >= row.words.size()) {
        return std::nullopt;
    }
    const std::size_t end = runFrom(page, row, first).last + 1;
    while (first < end
           && (isSalutation(row.words[first]) || isParticle(row.words[first])
               || row.words[first].text == ":")) {
        ++first;
    }
    constexpr std::size_t mostWords = 10; // of four names with what joins them
    std::size_t after = first;
    while (after < end && after - first < mostWords
           && (isNameWord(row.words[after]) || isParticle(row.words[after])
               || (after > first && isJoin(row.words[after])))) {
        const RowWord& word = row.words[after++];
        if (std::string_view(",;.").find(word.text.back()) != std::string_view::npos
            && !isTitle(word)) {
            break;
        }
    }
    while (after > first && (isParticle(row.words[after - 1]) || isJoin(row.words[after - 1]))) {
        --after; // "Anna Muster de Lausanne" ends before what follows in small letters
    }
    while (after > first + 2 && namesThing(withoutSurnames(partOf(row, after - 1, after - 1)))) {
        --after; // "Anna Muster Datum 3.5.2024"
    }
    return after > first && isPersonName(partOf(row, first, after - 1))
               ? std::optional(Run{&row, first, after - 1})
               : std::nullopt;
}

} // namespace fiscarel
