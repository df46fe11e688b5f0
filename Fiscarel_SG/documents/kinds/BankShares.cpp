#include "Fiscarel_SG/documents/kinds/BankShares.h"

#include "Fiscarel_SG/documents/kinds/HeldPieces.h"

#include <algorithm>

namespace fiscarel {

bool mentionsShares(const Row& row) {
    static const Labels shares{
        "*kassenobligation*",    "*anteilschein*", "*anteilscheine*",      "Genossenschaftsanteil*",
        "parts sociales",        "part sociale",   "obligation de caisse", "obligations de caisse",
        "bons de caisse",        "bon de caisse",  "certificats de part*", "obbligazione di cassa",
        "obbligazioni di cassa", "quote sociali",  "quota sociale",        "certificati di quota",
        "buoni di cassa",        "buono di cassa"};
    return isAnyIn(row.folded, shares);
}

std::optional<FoundAmount> sharesIn(const PageRows& page, std::size_t at) {
    static const Labels ofBanks{"*anteilschein*", "*anteil", "part sociale", "quota",
                                "certificat*"};
    static const Labels counts{"Anzahl",   "Stückzahl",       "nombre",
                               "quantité", "numero di quote", "quantità"};
    const Row& row = page.rows[at];
    const auto isCount = [&](const RowAmount& amount) {
        return !amount.amount.hasDecimals && amount.amount.value.isInteger()
               && amount.amount.value >= 1 && !amount.amount.isYearLike();
    };
    const auto count = findLabel(row, counts, page.isRecognised);
    const auto isPiece = [&](std::size_t word) {
        return word < row.words.size()
               && (isAnyIn(row.words[word].folded, ofBanks)
                   || isAnyIn(row.words[word].folded, pieceWords()));
    };
    for (const RowAmount& amount : row.amounts) {
        const bool isOrdinal = amount.first == 0 && row.words[amount.last].text.ends_with('.');
        const bool isBefore = !isOrdinal && isPiece(amount.last + 1);
        const bool isBeside = count && amount.first > count->last;
        if (isCount(amount) && (isBefore || isBeside)) {
            return FoundAmount{.page = &page,
                               .row = at,
                               .amount = amount,
                               .label = isBefore ? row.words[amount.last + 1].text
                                                 : textBetween(row, count->first, count->last)};
        }
    }
    static const Labels notes{"*obligation*",  "obbligazion*",   "bons de caisse",
                              "bon de caisse", "buoni di cassa", "buono di cassa"};
    return isAnyIn(row.folded, notes) ? toldPieces(page, at) : std::nullopt;
}

std::optional<FoundAmount> sharesIn(const RowRange& range) {
    for (std::size_t at = range.first; at < range.end; ++at) {
        if (auto found = sharesIn(*range.page, at)) {
            return found;
        }
    }
    return std::nullopt;
}

Figures figuresOfShares(const RowRange& range) {
    static const Wanted nominal{
        {"Nominalwert*", "Nennwert*", "Nominalbetrag", "Nominal", "valeur nominale",
         "montant nominal", "valore nominale", "importo nominale"},
        {"Zinssatz", "pro Stück", "pro Anteil*", "je Anteil*", "je Stück", "par part", "unitaire",
         "chaque part", "per quota", "unitario", "di ogni quota"}};
    static const Wanted dividend{{"Dividende*", "Bruttodividende", "Ausschüttung*", "Verzinsung*",
                                  "dividendo", "dividendi", "coupon*", "cedola", "cedole",
                                  "remunerazione", "rémunération", "intérêt statutaire",
                                  "intérêts statutaires", "interesse statutario", "Anteilzins*"},
                                 {"netto", "net", "nette", "netta", "Zinssatz", "taux", "tasso"}};
    // Told with the tax, "Interesse lordo (imposta preventiva dedotta)", which no account is.
    static const Wanted gross{{"Interesse lordo", "Interessi lordi", "Intérêt brut",
                               "Intérêts bruts", "Zins brutto", "Bruttozins*", "Bruttoertrag*",
                               "Rendement brut", "Reddito lordo", "Ertrag brutto", "Revenu brut"},
                              {"netto", "net", "nette", "netta", "Zinssatz", "taux", "tasso"}};
    Figures figures = figuresByLabel(range);
    auto& balance = figures[static_cast<std::size_t>(Figure::balance)];
    auto& income = figures[static_cast<std::size_t>(Figure::interest)];
    balance = balance ? balance : findFirst({range}, nominal);
    income = income ? income : findFirst({range}, dividend);
    income = income ? income : findFirst({range}, gross);
    return figures;
}

} // namespace fiscarel
