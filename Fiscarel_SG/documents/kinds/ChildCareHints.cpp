#include "Fiscarel_SG/documents/kinds/ChildCareHints.h"

#include "Fiscarel_SG/documents/kinds/People.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace fiscarel {

namespace {

/// Days of birth told in sentences and lists: "geb. 3.4.2019".
std::size_t birthdaysIn(const DocumentRows& document) {
    static const Labels births{"geb",  "geboren*", "né",   "née", "nés",
                               "nato", "nata",     "nati", "born"};
    std::set<std::string> days;
    for (const PageRows& page : document.pages) {
        for (const Row& row : page.rows) {
            for (std::size_t i = 0; i + 1 < row.words.size(); ++i) {
                std::string text = row.words[i + 1].text;
                while (!text.empty() && std::string_view("),;:").find(text.back()) != text.npos) {
                    text.pop_back();
                }
                if (isAnyIn(row.words[i].folded, births) && parseDay(text)) {
                    days.insert(parseDay(text)->toString());
                }
            }
        }
    }
    return days.size();
}

} // namespace

bool mayBeOfSeveralChildren(const DocumentRows& document, const std::string& issuer,
                            const std::optional<FoundAmount>& printed) {
    static const Labels several{"Ihre Kinder",  "Ihrer Kinder", "Ihren Kindern", "Eltern von",
                                "Kinder",       "Geschwister*", "Kind 2",        "2. Kind",
                                "vos enfants",  "enfants",      "fratrie",       "bambini",
                                "vostri figli", "figli",        "fratelli",      "i bimbi"};
    static const Labels together{"Famil*",          "beide",    "alle Kinder",      "zusammen",
                                 "ensemble",        "les deux", "insieme",          "both",
                                 "famigli*",        "entrambi", "tous les enfants", "tutti i figli",
                                 "tutti i bambini", "fratrie",  "fratelli"};
    const std::string name = foldWords(issuer);
    const auto isTold = [&](const PageRows& page) {
        return std::ranges::any_of(page.rows, [&](const Row& row) {
            return isAnyIn(row.folded, several) && !row.folded.starts_with(name);
        });
    };
    if (printed && isAnyIn(printed->rowOf().folded, together)) {
        return true;
    }
    const std::size_t told = std::max(People(document).born().size(), birthdaysIn(document));
    return told >= 2 || (told == 0 && std::ranges::any_of(document.pages, isTold));
}

bool hasMeals(const FoundAmount& total) {
    const PageRows& page = *total.page;
    return std::any_of(
        page.rows.begin(), page.rows.begin() + static_cast<std::ptrdiff_t>(total.row),
        [&](const Row& row) {
            const auto place = findLabel(row, wordsFor(Concept::meals), page.isRecognised);
            const bool isTabular = cellsOf(row).size() > 1 && page.number != 0;
            return place && isTabular
                   && !findLabel(row, wordsFor(Concept::deductible), page.isRecognised);
        });
}

} // namespace fiscarel
