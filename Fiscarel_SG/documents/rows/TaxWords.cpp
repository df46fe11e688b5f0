#include "Fiscarel_SG/documents/rows/TaxWords.h"

#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <utility>

namespace fiscarel {

namespace {

bool shorten(Row& row, const Labels& phrases, const char* word, bool isRecognised) {
    const auto place = findLabel(row, phrases, isRecognised);
    if (!place || place->first == place->last) {
        return false;
    }
    row.words[place->first].folded = word;
    for (std::size_t i = place->first + 1; i <= place->last; ++i) {
        row.words[i].folded.clear();
    }
    return true;
}

} // namespace

void shortenTaxWords(PageRows& page) {
    static const Labels before{"vor Verrechnungssteuer",
                               "vor Abzug der Verrechnungssteuer",
                               "vor VSt",
                               "avant impôt anticipé",
                               "avant l'impôt anticipé",
                               "avant déduction de l'impôt anticipé",
                               "avant IA",
                               "prima dell'imposta preventiva",
                               "prima della deduzione dell'imposta preventiva",
                               "al lordo dell'imposta preventiva",
                               "prima dell'IP",
                               "before withholding tax"};
    static const Labels after{"nach Verrechnungssteuer",
                              "nach Abzug der Verrechnungssteuer",
                              "nach VSt",
                              "après impôt anticipé",
                              "après l'impôt anticipé",
                              "après déduction de l'impôt anticipé",
                              "après IA",
                              "dopo l'imposta preventiva",
                              "dopo imposta preventiva",
                              "dopo la deduzione dell'imposta preventiva",
                              "al netto dell'imposta preventiva",
                              "dopo l'IP",
                              "after withholding tax"};
    static const Labels favours{"a suo credito",      "a vostro credito",  "a tuo credito",
                                "al suo credito",     "à votre crédit",    "à son crédit",
                                "au crédit de votre", "a credito del suo", "a suo avere"};
    for (Row& row : page.rows) {
        if (const auto place = findLabel(row, favours, page.isRecognised)) {
            row.words[place->last].folded = "favore"; // is no loan
        }
        const bool isGross = shorten(row, before, "brutto", page.isRecognised);
        const bool isNet = shorten(row, after, "netto", page.isRecognised);
        if (isGross || isNet) {
            row = rowOfWords(std::move(row.words), page.isRecognised);
        }
    }
}

} // namespace fiscarel
