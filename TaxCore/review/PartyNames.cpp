#include "TaxCore/review/PartyNames.h"

#include "TaxCore/review/CheckText.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <vector>

namespace taxcore::review {

namespace {

// All names are written as `plainWords` gives them.
using Names = std::span<const std::string_view>;

/// Nothing else is called like this: they tell a party wherever they stand.
constexpr std::array<std::string_view, 22> swissNames{"svp",
                                                      "jsvp",
                                                      "fdp",
                                                      "cvp",
                                                      "bdp",
                                                      "glp",
                                                      "jglp",
                                                      "evp",
                                                      "jevp",
                                                      "juso",
                                                      "gruenliberale",
                                                      "gruenliberalen",
                                                      "freisinn",
                                                      "freisinnige",
                                                      "freisinnigen",
                                                      "jungfreisinn",
                                                      "jungfreisinnige",
                                                      "jungfreisinnigen",
                                                      "jungsozialisten",
                                                      "jungsozialistinnen",
                                                      "sozialdemokraten",
                                                      "eidgenoessisch demokratische union"};
constexpr std::array<std::string_view, 5> liechtensteinNames{
    "vaterlaendische union", "fbp", "freie liste", "dpl", "demokraten pro liechtenstein"};

/// Other societies and places are called like this too.
constexpr std::array<std::string_view, 14> swissShortNames{"sp",
                                                           "edu",
                                                           "pda",
                                                           "jf",
                                                           "mitte",
                                                           "die mitte",
                                                           "junge mitte",
                                                           "die junge mitte",
                                                           "gruene",
                                                           "die gruene",
                                                           "die gruenen",
                                                           "junge gruene",
                                                           "die jungen gruenen",
                                                           "cvp die mitte"};
constexpr std::array<std::string_view, 2> liechtensteinShortNames{"vu", "fl"};

/// What stands beside the short name of a party, apart from municipalities.
constexpr std::array<std::string_view, 61> companions{
    // parts of a party
    "ortsgruppe", "ortssektion", "sektion", "kantonalsektion", "fraktion", "frauen", "senioren",
    "jugend", "60",
    // kinds of regions
    "kanton", "kantons", "stadt", "gemeinde", "region", "bezirk", "wahlkreis", "kreis",
    // regions
    "schweiz", "ch", "liechtenstein", "fl", "li", "st", "gallen", "sg", "ostschweiz", "rheintal",
    "werdenberg", "sarganserland", "toggenburg", "fuerstenland", "linthgebiet", "see", "gaster",
    "unterland", "oberland",
    // cantons
    "zuerich", "bern", "luzern", "uri", "schwyz", "obwalden", "nidwalden", "glarus", "zug",
    "freiburg", "solothurn", "basel", "schaffhausen", "appenzell", "ausserrhoden", "innerrhoden",
    "graubuenden", "aargau", "thurgau", "tessin", "waadt", "wallis", "neuenburg", "genf", "jura"};

/// "Ortspartei", "Bürgerpartei", "Partei der Arbeit".
bool isPartyWord(std::string_view word) {
    return word.ends_with("partei") && word != "gegenpartei";
}

/// Words joined by single blanks, with one at each end, so that names are found as whole words.
std::string joined(const std::vector<std::string>& words) {
    std::string text = " ";
    for (const std::string& word : words) {
        text += word + " ";
    }
    return text;
}

template <class Place>
bool isMunicipality(const std::string& word, const std::vector<Place>& places) {
    return std::ranges::any_of(places, [&](const Place& place) {
        return std::ranges::count(plainWords(place.name), word) > 0;
    });
}

/// `isPlace` tells whether a word is one of a municipality's name.
template <class IsPlace>
bool namesOneOf(std::string_view recipient, Names names, Names shortNames, const IsPlace& isPlace) {
    const std::vector<std::string> words = plainWords(recipient);
    const std::string text = joined(words);
    const auto spaced = [](std::string_view name) { return " " + std::string(name) + " "; };
    if (std::ranges::any_of(words, isPartyWord)
        || std::ranges::any_of(names, [&](std::string_view name) {
               return text.find(spaced(name)) != std::string::npos;
           })) {
        return true;
    }
    return std::ranges::any_of(shortNames, [&](std::string_view name) {
        if (!text.starts_with(spaced(name))) {
            return false;
        }
        const auto ofName = 1 + std::ranges::count(name, ' ');
        return std::all_of(words.begin() + ofName, words.end(), [&](const std::string& word) {
            return std::ranges::count(companions, word) > 0 || isPlace(word);
        });
    });
}

} // namespace

bool namesParty(std::string_view recipient, const RuleBook& rules) {
    return namesOneOf(recipient, swissNames, swissShortNames, [&](const std::string& word) {
        return isMunicipality(word, rules.municipalities.municipalities);
    });
}

bool namesParty(std::string_view recipient, const LIRules& rules) {
    return namesOneOf(
        recipient, liechtensteinNames, liechtensteinShortNames,
        [&](const std::string& word) { return isMunicipality(word, rules.gemeinden); });
}

} // namespace taxcore::review
