#include "Fiscarel_SG/documents/kinds/PensionAmounts.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"

#include <algorithm>
#include <set>

namespace fiscarel {

namespace {

constexpr std::size_t farthest = 12; ///< amounts between a sum and its parts

const Labels& taxFree() {
    static const Labels words{"Hilflosen*",
                              "impotent*",
                              "grandi invalidi",
                              "grande invalido",
                              "Ergänzungsleistung*",
                              "prestations complémentaires",
                              "prestazioni complementari",
                              "Assistenzbeitrag*",
                              "contribution d'assistance",
                              "contributo per l'assistenza"};
    return words;
}

/// What stands on such papers and is no pension of the year.
const Labels& noPension() {
    static const Labels words{"*kapital*",
                              "*abfindung*",
                              "capital",
                              "capitale",
                              "*guthaben*",
                              "avoir",
                              "avere",
                              "averi",
                              "Vorjahr*",
                              "Vergleich",
                              "précédente",
                              "précédent",
                              "precedente",
                              "Mindest*",
                              "minimum",
                              "minimo",
                              "*gebühr*",
                              "Mahn*",
                              "Duplikat*",
                              "duplicat*",
                              "Zuschuss*",
                              "Krankenversicher*",
                              "assurance-maladie",
                              "cassa malati",
                              "Augmentation",
                              "Aumento",
                              "Erhöhung*",
                              "Quellensteuer*",
                              "impôt à la source",
                              "imposta alla fonte",
                              "voraussichtlich*",
                              "*kosten",
                              "frais",
                              "spese",
                              "limite*",
                              "*grenze*",
                              "Rückforderung*",
                              "Nachzahlung* für"};
    return words;
}

const Labels& perMonth() {
    static const Labels words{"monatlich*", "pro Monat",    "im Monat",     "je Monat",
                              "par mois",   "Monatsbetrag", "Monatsrente*", "mensuel*",
                              "al mese",    "mensil*",      "Monatsansatz", "p. M."};
    return words;
}

/// Words of a row as a row of their own.
void append(Row& words, const Row& row, std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < std::min(end, row.words.size()); ++i) {
        words.words.push_back(row.words[i]);
    }
}

bool isProse(const Row& row) { return row.words.size() >= 6 && cellsOf(row).size() == 1; }

bool endsSentence(const RowWord& word) {
    return word.text.size() > 4 && word.text.ends_with('.') && !word.folded.empty()
           && word.folded.find_first_of("0123456789") == std::string::npos;
}

/// Where the clause of an amount begins in its row: behind the amount or the sentence before.
std::size_t clauseStart(const Row& row, std::size_t amount) {
    std::size_t first = amount == 0 ? 0 : row.amounts[amount - 1].last + 1;
    for (std::size_t i = first; i < row.amounts[amount].first; ++i) {
        first = endsSentence(row.words[i]) ? i + 1 : first;
    }
    return first;
}

/// Whether a row goes on with what the one before it says.
bool goesOn(const Row& row) {
    const char first = row.words.front().text.empty() ? 'A' : row.words.front().text.front();
    return first >= 'a' && first <= 'z';
}

/// The next two words behind an amount, where no other clause begins: "Fr. 1'542.10 monatlich".
void appendBehind(const PageRows& page, std::size_t at, const RowAmount& amount, Row& words) {
    const Row& row = page.rows[at];
    const auto endsClause = [](const std::string& text) {
        return text.ends_with(',') || text.ends_with(';') || text.ends_with(')');
    };
    if (endsClause(row.words[amount.last].text)) {
        return;
    }
    for (std::size_t i = amount.last + 1; i < amount.last + 3; ++i) {
        const Row* from = i < row.words.size()        ? &row
                          : at + 1 < page.rows.size() ? &page.rows[at + 1]
                                                      : nullptr;
        const std::size_t word = from == &row ? i : i - row.words.size();
        if (from == nullptr || word >= from->words.size() || from->words[word].text.starts_with('(')
            || (from != &row && !goesOn(*from))) {
            return;
        }
        append(words, *from, word, word + 1);
        if (endsClause(from->words[word].text) || endsSentence(from->words[word])) {
            return;
        }
    }
}

/// What is told of an amount.
Row wordsOf(const PageRows& page, std::size_t at, std::size_t amount) {
    const Row& row = page.rows[at];
    const RowAmount& own = row.amounts[amount];
    Row words;
    if (!isProse(row)) {
        append(words, row, 0, row.amounts.front().first);
        append(words, row, row.amounts.back().last + 1, row.words.size());
        const Row heading = headingOver(page, at, own);
        append(words, heading, 0, heading.words.size());
        return words;
    }
    const std::size_t first = clauseStart(row, amount);
    if (first == 0 && at > 0 && isProse(page.rows[at - 1])) { // the clause began a line before
        const Row& before = page.rows[at - 1];
        std::size_t from = before.amounts.empty() ? 0 : before.amounts.back().last + 1;
        for (std::size_t i = from; i < before.words.size(); ++i) {
            from = endsSentence(before.words[i]) ? i + 1 : from;
        }
        append(words, before, from, before.words.size());
    }
    append(words, row, first, own.first);
    appendBehind(page, at, own, words);
    return words;
}

/// Currencies other than francs.
bool isForeign(const RowWord& word) {
    static const std::set<std::string> names{"eur", "euro", "usd", "gbp", "dollar", "pfund"};
    return names.contains(word.folded) || word.text == "€" || word.text == "$" || word.text == "£";
}

/// Whether an amount is in francs where a paper speaks of another currency too.
bool isInFrancs(const Row& row, const RowAmount& amount) {
    static const std::set<std::string> names{"chf", "fr", "sfr", "franken", "francs", "franchi"};
    const auto isAt = [&](std::size_t at) {
        return at < row.words.size() && names.contains(row.words[at].folded);
    };
    return amount.amount.hasCurrency || isAt(amount.last + 1)
           || (amount.first > 0 && isAt(amount.first - 1)) || isAt(amount.first);
}

/// Rates of exchange: "0.9637", which are no amounts.
std::vector<Decimal> ratesIn(const DocumentRows& document) {
    std::vector<Decimal> rates;
    for (const PageRows& page : document.pages) {
        for (const Row& row : page.rows) {
            for (const RowWord& word : row.words) {
                const std::size_t point = word.text.find('.');
                const bool isRate =
                    point != std::string::npos && point >= 1 && point <= 3
                    && word.text.size() - point >= 4 && word.text.size() - point <= 7
                    && word.text.find_first_not_of("0123456789.") == std::string::npos
                    && std::ranges::count(word.text, '.') == 1;
                if (const auto rate = Decimal::parse(word.text); isRate && rate) {
                    rates.push_back(*rate);
                }
            }
        }
    }
    return rates;
}

/// Bare numbers that may count months: "12 ×", "(3 Monate)".
std::set<int> monthCounts(const DocumentRows& document) {
    static const Labels months{"Monat*", "mois", "mesi", "mensilità"};
    std::set<int> counts{12};
    for (const PageRows& page : document.pages) {
        for (const Row& row : page.rows) {
            const bool isOfMonths = findLabel(row, months, page.isRecognised).has_value();
            for (const RowWord& word : row.words) {
                const std::string& text = word.folded;
                const bool isCount = !text.empty() && text.size() <= 2
                                     && text.find_first_not_of("0123456789") == std::string::npos;
                const bool isProduct = row.folded.find(" x ") != std::string::npos
                                       || std::ranges::any_of(row.words, [](const RowWord& one) {
                                              return one.text.find("×") != std::string::npos;
                                          });
                if (isCount && (isOfMonths || isProduct || !row.amounts.empty())) {
                    counts.insert(std::stoi(text));
                }
            }
        }
    }
    return counts;
}

class Arithmetic {
  public:
    Arithmetic(std::vector<PensionAmount>& amounts, const DocumentRows& document)
        : amounts_(amounts), document_(document) {}

    void run() {
        convert();
        multiply();
        addUp();
    }

  private:
    /// A foreign amount by the rate of exchange.
    void convert() {
        const auto rates = ratesIn(document_);
        for (PensionAmount& one : amounts_) {
            for (const PensionAmount& other : amounts_) {
                for (const Decimal& rate : rates) {
                    const Decimal value = other.found.value() * rate;
                    if (!one.isBarred && other.isBarred && one.checks.empty()
                        && (value - one.found.value()).abs() * 100 <= 1) {
                        one.checks.push_back({"Umrechnung: " + shown(other.found.value()) + " × "
                                                  + rate.toString() + " = "
                                                  + shown(one.found.value()),
                                              true});
                    }
                }
            }
        }
    }

    /// Months by their rate.
    void multiply() {
        const auto counts = monthCounts(document_);
        for (std::size_t i = 0; i < amounts_.size(); ++i) {
            const std::size_t first = i < farthest ? 0 : i - farthest;
            for (std::size_t j = first; j < std::min(amounts_.size(), i + farthest); ++j) {
                PensionAmount& rate = amounts_[j];
                PensionAmount& whole = amounts_[i];
                for (const int months : counts) {
                    const bool canBeWhole = !whole.isBarred || whole.isTaxFree;
                    const bool isProduct = months >= 2 && months <= 12 && canBeWhole
                                           && rate.found.value() >= 1
                                           && rate.found.value() * months == whole.found.value();
                    rate.isFactor |= isProduct;
                    if (isProduct && whole.months == 0) {
                        whole.months = months;
                        whole.checks.push_back({std::to_string(months) + " × "
                                                    + shown(rate.found.value()) + " = "
                                                    + shown(whole.found.value()),
                                                true});
                    }
                }
            }
        }
    }

    /// A total by the amounts before it, or by those that explain it behind.
    void addUp() {
        for (std::size_t i = 0; i < amounts_.size(); ++i) {
            if (amounts_[i].canBePension()) {
                addUp(i, -1);
                addUp(i, 1);
            }
        }
    }

    void addUp(std::size_t total, int step) {
        Decimal sum;
        std::vector<std::size_t> parts;
        bool hasTaxFree = false;
        for (auto at = static_cast<std::ptrdiff_t>(total) + step;
             at >= 0 && at < std::ssize(amounts_) && parts.size() < farthest; at += step) {
            const PensionAmount& part = amounts_[static_cast<std::size_t>(at)];
            if (part.isFactor || (part.isBarred && !part.isTaxFree)) {
                continue;
            }
            sum = sum + part.found.value();
            hasTaxFree |= part.isTaxFree;
            parts.push_back(static_cast<std::size_t>(at));
            if (sum >= amounts_[total].found.value()) {
                break;
            }
        }
        PensionAmount& whole = amounts_[total];
        if (parts.size() < 2 || sum != whole.found.value()) {
            return;
        }
        if (hasTaxFree) {
            whole.isBarred = true;
            return;
        }
        for (const std::size_t part : parts) {
            amounts_[part].isPart = true;
        }
        whole.checks.push_back({"Die Teile ergeben zusammen " + shown(whole.found.value()), true});
    }

    std::vector<PensionAmount>& amounts_;
    const DocumentRows& document_;
};

} // namespace

std::vector<PensionAmount> pensionAmounts(const DocumentRows& document) {
    const bool hasForeign = std::ranges::any_of(document.pages, [](const PageRows& page) {
        return std::ranges::any_of(
            page.rows, [](const Row& row) { return std::ranges::any_of(row.words, isForeign); });
    });
    std::vector<PensionAmount> amounts;
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            const Row& row = page.rows[at];
            for (std::size_t i = 0; i < row.amounts.size(); ++i) {
                const RowAmount& amount = row.amounts[i];
                const PrintedAmount& printed = amount.amount;
                const bool isYear = !printed.hasDecimals && !printed.hasMark // "2024 CHF 5.00"
                                    && printed.value >= 1990 && printed.value < 2100;
                if (isYear || printed.value < 1
                    || (!printed.isFirm() && !isInFrancs(row, amount))) {
                    continue;
                }
                PensionAmount one{
                    .found = {.page = &page, .row = at, .amount = amount, .isBelow = isProse(row)},
                    .words = wordsOf(page, at, i)};
                one.isTaxFree = findLabel(row, taxFree(), page.isRecognised).has_value();
                one.isBarred = one.isTaxFree || findLabel(one.words, noPension(), page.isRecognised)
                               || (hasForeign && !isInFrancs(row, amount));
                one.isFactor = findLabel(one.words, perMonth(), page.isRecognised).has_value();
                amounts.push_back(std::move(one));
            }
        }
    }
    Arithmetic(amounts, document).run();
    return amounts;
}

} // namespace fiscarel
