#include "Fiscarel_SG/documents/kinds/AccountPages.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/BesideAmounts.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "TaxCore/base/Iban.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace fiscarel {

namespace {

/// Whether words may be an account number, of this country or Liechtenstein also a misread one;
/// "al 31 dicembre 2024" is as long as one.
bool mayBeIban(const std::string& joined) {
    if (!taxcore::looksLikeIban(joined)) {
        return false;
    }
    const auto fault = taxcore::ibanFault(joined);
    const bool isOwn = joined.starts_with("CH") || joined.starts_with("LI");
    constexpr std::ptrdiff_t mostLetters = 5; // with those of the country; more are an ISIN's name
    const bool mayBeMisread =
        std::ranges::count_if(joined, [](char c) { return c >= 'A' && c <= 'Z'; }) <= mostLetters;
    return !fault || (isOwn && mayBeMisread && fault == taxcore::IbanFault::checkDigits);
}

constexpr std::size_t mostWords = 8; ///< that an account number is printed as
constexpr std::size_t longestIban = 34;

/// Adds a word to those of an account number, without brackets and marks around it.
void addPart(std::string& joined, std::string_view text) {
    joined += joined.empty() && text.starts_with('(') ? text.substr(1) : text;
    while (!joined.empty()
           && std::string_view(",).:;").find(joined.back()) != std::string_view::npos) {
        joined.pop_back();
    }
}

/// Whether the word before an amount names a foreign currency, or the one behind it where none
/// does before.
bool isForeign(const Row& row, const RowAmount& amount) {
    if (amount.first > 0) {
        const std::string& before = row.words[amount.first - 1].text;
        if (isFrancs(before) || isForeignCurrency(before)) {
            return isForeignCurrency(before);
        }
    }
    return amount.last + 1 < row.words.size() && isForeignCurrency(row.words[amount.last + 1].text);
}

/// The year at the end of "Guthaben'32.12.2021": a last day of December as recognition may take it.
std::optional<int> yearOfMisreadEnd(std::string_view text) {
    constexpr std::string_view month = "12.";
    constexpr std::size_t digits = 4;
    if (text.size() < month.size() + digits) {
        return std::nullopt;
    }
    const std::string_view number = text.substr(text.size() - digits);
    const bool isEnd = text.substr(0, text.size() - digits).ends_with(month);
    return isEnd ? parseYear(number) : std::nullopt;
}

/// Whether a row names the last day of a year before the document's, and none of its own: "fin
/// 2024".
bool isPast(const Row& row, std::optional<int> year) {
    static const Labels ends{"Ende", "fin", "fine"};
    const auto isBefore = [&](int own, std::size_t at) {
        const auto bare = parseYear(row.words[at].text);
        return bare && *bare < own;
    };
    bool isPast = false;
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        auto day = parseDay(row.words[i].text);
        if (!day && i + 2 < row.words.size()) {
            day = parseDay(row.words[i].text, row.words[i + 1].text, row.words[i + 2].text);
        }
        if (day && year && day->year() >= *year) {
            return false;
        }
        isPast |= day && year && day->month() == 12 && day->day() == 31;
        const auto end = day ? std::nullopt : yearOfMisreadEnd(row.words[i].text);
        isPast |= year && end && *end < *year;
        isPast |= year && i > 0 && isAnyIn(row.words[i - 1].folded, ends) && isBefore(*year, i);
    }
    return isPast;
}

/// Whether the words around an amount make it a limit that something stays below or goes above:
/// "bis Fr. 200", "weil der Zins Fr. 200.– nicht übersteigt".
bool isLimit(const Row& row, const RowAmount& amount) {
    static const Labels behind{"übersteig*", "überschreit*", "nicht erreich*", "dépass*",
                               "excèd*",     "excéd*",       "supera",         "superano",
                               "superava",   "eccede",       "oltrepass*",     "exceed*"};
    constexpr std::size_t farthest = 3; // words behind
    Row rest;
    for (std::size_t i = amount.last + 1; i < row.words.size() && i <= amount.last + farthest;
         ++i) {
        rest.words.push_back(row.words[i]);
        if (endsSentence(row, i)) {
            break;
        }
    }
    return followsBound(row, amount.first) || findLabel(rest, behind, false);
}

/// Whether an amount is told as a limit, as what was agreed on, lent once or is to be paid at
/// least, or as of the day of the letter: one of the words before it says so.
bool isAgreed(const Row& row, const RowAmount& amount, const Row* above) {
    static const Labels agreed{"*limite*",         "*Limit",           "Kreditrahmen*",
                               "ursprünglich*",    "Plafond*",         "*mindestzahlung*",
                               "paiement minimum", "initial*",         "originario",
                               "iniziale",         "pagamento minimo", "credit limit"};
    static const Labels once{"concess*", "accordé*", "gewährt*", "aufgenommen*"};
    static const Labels today{"oggi",         "heute",    "heutig*",     "aujourd'hui", "à ce jour",
                              "data odierna", "presente", "attualmente", "today"};
    static const Labels limits{"Höchstbetrag*",   "Maximalbetrag*",   "maximal*",
                               "Obergrenze*",     "Freigrenze*",      "Freibetrag*",
                               "Vorzugszins*",    "Deckung bis",      "gedeckt bis",
                               "gesichert bis",   "montant maximum",  "montant maximal",
                               "importo massimo", "garantis jusqu'à", "garantiti fino"};
    constexpr std::size_t near = 4; // words
    constexpr std::size_t inSentence = 10;
    const auto cells = cellsOf(row);
    const auto own = std::ranges::find_if(
        cells, [&](const LabelPlace& cell) { return cell.last >= amount.first; });
    const auto before = [&](std::size_t most, std::size_t first = 0) {
        std::string words;
        for (std::size_t i = amount.first; i > first && amount.first - i < most; --i) {
            if (endsSentence(row, i - 1)) {
                break;
            }
            words.insert(0, row.words[i - 1].folded + ' ');
            if (i == 1 && above != nullptr) { // the sentence began in the line above
                const std::size_t rest = most - (amount.first - i) - 1;
                for (std::size_t j = above->words.size();
                     j > 0 && above->words.size() - j < rest && !endsSentence(*above, j - 1); --j) {
                    words.insert(0, above->words[j - 1].folded + ' ');
                }
            }
        }
        return words;
    };
    const std::size_t sentence = own == cells.end() ? 0 : own->first; // no name in another column
    return isLimit(row, amount) || isAnyIn(before(inSentence, sentence), limits)
           || isAnyIn(before(near), agreed) || isAnyIn(before(near + 2, sentence), once)
           || isAnyIn(before(inSentence, sentence), today);
}

/// Whether a row states another currency in a cell of its own, and francs in none.
bool isRowForeign(const Row& row) {
    static const Labels own{"*fremdwährung",     "*kontowährung",    "Originalwährung",
                            "monnaie du compte", "devise du compte", "monnaie étrangère",
                            "valuta del conto",  "moneta del conto", "valuta estera"};
    bool isForeign = isAnyIn(row.folded, own);
    for (const LabelPlace& cell : cellsOf(row)) {
        const bool isOne = cell.first == cell.last;
        if (isOne && isFrancs(row.words[cell.first].text)) {
            return false;
        }
        isForeign |= isOne && isForeignCurrency(row.words[cell.first].text);
    }
    return isForeign;
}

bool hasForeign(const Row& row) {
    return std::ranges::any_of(row.words,
                               [](const RowWord& word) { return isForeignCurrency(word.text); });
}

/// Whether an amount stands under "in CHF".
bool isUnderFrancs(const PageRows& page, std::size_t at, const RowAmount& amount) {
    return hasFrancs(headingOver(page, at, amount));
}

/// Whether an amount stands under another currency or the rate of its exchange.
bool isUnderForeign(const PageRows& page, std::size_t at, const RowAmount& amount) {
    constexpr std::size_t most = 4; // words of such a heading
    const Row heading = headingOver(page, at, amount);
    return !heading.words.empty() && heading.words.size() <= most && !hasFrancs(heading)
           && (hasForeign(heading) || findLabel(heading, exchangeRates(), page.isRecognised));
}

/// Whether a row heads columns of which one is of another currency and one of francs.
bool headsCurrencies(const Row& row) {
    return hasForeign(row) && hasFrancs(row) && !hasFirmAmount(row) && cellsOf(row).size() >= 2;
}

bool isOfInterest(const RowWord& word) {
    static constexpr std::array<std::string_view, 3> parts{"zins", "interet", "interess"};
    return std::ranges::any_of(
        parts, [&](std::string_view part) { return word.folded.find(part) != std::string::npos; });
}

/// The words of a row that say that no tax was withheld from its interest, "(senza imposta
/// preventiva)". Only up to 200 francs, from which none is due (VStG Art. 5 para. 1 c): of more,
/// they are what matters.
std::optional<LabelPlace> untaxedIn(const Row& row, bool isRecognised) {
    static const Labels negations{"ohne", "kein*", "sans", "aucun*", "senza", "nessun*", "non"};
    constexpr std::size_t farthest = 3; // words between
    const auto tax = findLabel(row, wordsFor(Concept::withholding), isRecognised);
    const bool isSmall = std::ranges::all_of(row.amounts, [](const RowAmount& amount) {
        return !amount.amount.isFirm() || amount.amount.value.abs() <= 200;
    });
    for (std::size_t i = 0; tax && isSmall && i < tax->first; ++i) {
        const bool isNegation =
            tax->first - i <= farthest && isAnyIn(row.words[i].folded, negations);
        if (isNegation
            && std::any_of(row.words.begin(), row.words.begin() + static_cast<std::ptrdiff_t>(i),
                           isOfInterest)) {
            return LabelPlace{i, tax->last, row.words[i].place.left, tax->right};
        }
    }
    return std::nullopt;
}

/// Whether words go on to the amount of interest that is part of what was told before: "sono
/// compresi interessi passivi per 570.51 CHF".
bool statesAmount(const Row& row, std::size_t interest) {
    static const Labels leading{"per", "von", "di", "de", "pour", "da", "Höhe von", "à"};
    constexpr std::size_t farthest = 3; // words from the interest to its amount
    return std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
        std::size_t before = amount.first;
        while (before > interest + 1 && isFrancs(row.words[before - 1].text)) {
            --before;
        }
        return amount.amount.isFirm() && before > interest + 1 && before - interest <= farthest + 1
               && isAnyIn(row.words[before - 1].folded, leading);
    });
}

/// The words of a row that say, beside an income told as gross, that tax was withheld from it:
/// "Bruttozins (Verrechnungssteuer 35 % abgezogen)". Only above 200 francs, from which it is due
/// (VStG Art. 5 para. 1 c).
std::optional<LabelPlace> taxedIn(const Row& row, bool isRecognised) {
    const auto tax = findLabel(row, wordsFor(Concept::withholding), isRecognised);
    const auto gross = findLabel(row, wordsFor(Concept::gross), isRecognised);
    const auto amount =
        std::ranges::find_if(row.amounts, [](const RowAmount& one) { return one.amount.isFirm(); });
    if (!tax || !gross || amount == row.amounts.end() || gross->last >= tax->first
        || tax->first >= amount->first || amount->amount.value <= 200) {
        return std::nullopt;
    }
    const auto open = std::find_if(row.words.begin(), row.words.end(),
                                   [](const RowWord& word) { return word.text.starts_with('('); });
    const auto first = static_cast<std::size_t>(open - row.words.begin());
    Row aside;
    std::size_t last = first;
    while (last < amount->first) {
        aside.folded += row.words[last].folded + ' ';
        if (row.words[last++].text.ends_with(')')) {
            break;
        }
    }
    const bool isAside = first > gross->last && first <= tax->first && last > tax->last;
    return isAside && taxednessOf(aside, true).value_or(false) ? std::optional(LabelPlace{
               first, last - 1, row.words[first].place.left, row.words[last - 1].place.right})
                                                               : std::nullopt;
}

/// The words of a row that only add the rate to an amount before it, "4'131.00   tasso 1.35 %",
/// "CHF 3'071.25, au taux de 2.25 %".
std::optional<LabelPlace> rateIn(const Row& row, bool isRecognised) {
    constexpr std::size_t farthest = 3; // words from its name to the per cent
    const auto rate = findLabel(row, wordsFor(Concept::rate), isRecognised);
    const bool isBehind = rate && std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
                              return amount.amount.isFirm() && amount.last < rate->first;
                          });
    for (std::size_t i = rate ? rate->last + 1 : 0;
         isBehind && i < std::min(row.words.size(), rate->last + 1 + farthest); ++i) {
        if (row.words[i].text.find('%') != std::string::npos) {
            return LabelPlace{rate->first, i, rate->left, row.words[i].place.right};
        }
    }
    return std::nullopt;
}

/// Hides from a row what it only mentions: the interest that a balance includes, "inkl. Zins",
/// "intérêts compris", that what is gross is as well net, "lordo = netto", and that little
/// interest is not taxed.
void hideAsides(Row& row, bool isRecognised) {
    static const Labels before{"inkl",  "inklusive", "einschl*", "samt",       "y compris",
                               "incl*", "inclus*",   "compres*", "comprensiv*"};
    static const Labels behind{"compris*",       "inclus*",  "inbegriffen",
                               "eingeschlossen", "compres*", "eingerechnet"};
    constexpr std::size_t farthest = 2; // words between
    auto& words = row.words;
    const auto hide = [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i <= last; ++i) {
            words[i].folded.clear();
        }
    };
    const auto begin = findLabel(row, before, isRecognised);
    const auto end = findLabel(row, behind, isRecognised);
    bool isHidden = false;
    for (std::size_t i = 1; i < words.size(); ++i) {
        if (begin && begin->first > 0 && isOfInterest(words[i]) && begin->last < i
            && i - begin->last <= farthest && !statesAmount(row, i)) {
            hide(begin->first, i);
            isHidden = true;
        } else if (end && isOfInterest(words[i]) && i < end->first && end->first - i < farthest) {
            hide(i, end->last);
            isHidden = true;
        } else if (words[i - 1].text == "=" && i > 1) {
            const std::size_t net = words[i].folded.starts_with("net") ? i : i - 2;
            if (words[net].folded.starts_with("net")) {
                hide(net, net);
                isHidden = true;
            }
        }
    }
    if (const auto rate = rateIn(row, isRecognised)) {
        hide(rate->first, rate->last);
        isHidden = true;
    }
    for (RowWord& word : words) {
        const bool isYear = word.folded.starts_with("01 01 31 12")
                            || word.folded.starts_with("1 1 31 12"); // "01.01.-31.12.2024"
        if (isYear) {
            word.folded.clear();
            isHidden = true;
        }
    }
    static const Labels booked{"Gutschrift des Zinses",
                               "Gutschrift der Zinsen",
                               "Verbuchung der Zinsen",
                               "nach Zinsgutschrift",
                               "crédit des intérêts",
                               "comptabilisation des intérêts",
                               "bonification des intérêts",
                               "accredito degli interessi",
                               "capitalizzazione degli interessi"};
    const auto after = findLabel(row, booked, isRecognised);
    if (after && namesAny(row, {Concept::balance}, isRecognised)) { // which includes them
        hide(after->first, after->last);
        isHidden = true;
    }
    if (const auto untaxed = untaxedIn(row, isRecognised)) {
        hide(untaxed->first, untaxed->last);
        isHidden = true;
    }
    if (const auto taxed = taxedIn(row, isRecognised)) {
        hide(taxed->first, taxed->last);
        isHidden = true;
    }
    if (isHidden) {
        row.folded.clear();
        for (const RowWord& word : words) {
            row.folded += word.folded.empty() ? "" : word.folded + ' ';
        }
    }
}

} // namespace

std::optional<AccountNumber> ibanIn(const Row& row, std::size_t at) {
    for (std::size_t first = 0; first < row.words.size(); ++first) {
        std::string joined;
        for (std::size_t last = first; last < std::min(first + mostWords, row.words.size());
             ++last) {
            addPart(joined, row.words[last].text);
            if (joined.size() > longestIban) {
                break;
            }
            if (mayBeIban(joined)) {
                return AccountNumber{taxcore::compactIban(joined), at, first, last};
            }
        }
    }
    return std::nullopt;
}

bool isContactLine(const PageRows& page, const Row& row) {
    static const Labels contacts{"MWST*", "UID", "Tel", "Telefon", "TVA", "IVA", "BIC"};
    return page.number != 0 && row.middle() > page.height * 0.93 && isAnyIn(row.folded, contacts);
}

PageRows withoutOthers(PageRows page, std::optional<int> year) {
    // Without its amounts the words of a row would head those of the next one.
    std::erase_if(page.rows,
                  [&](const Row& row) { return hasFirmAmount(row) && isPast(row, year); });
    PageRows kept = page; // the headings are looked for in the page as it is
    bool isOfCurrencies = false;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        const Row& row = page.rows[at];
        const bool isOther = isRowForeign(row);
        isOfCurrencies |= headsCurrencies(row);
        constexpr std::size_t fewest = 6; // words of a line of text
        const Row* const lineAbove = at > 0 && page.rows[at - 1].words.size() >= fewest
                                             && cellsOf(page.rows[at - 1]).size() == 1
                                         ? &page.rows[at - 1]
                                         : nullptr;
        std::erase_if(kept.rows[at].amounts, [&](const RowAmount& amount) {
            return (isOther && !isUnderFrancs(page, at, amount)) || isForeign(row, amount)
                   || isAgreed(row, amount, lineAbove)
                   || (isOfCurrencies && isUnderForeign(page, at, amount));
        });
        hideAsides(kept.rows[at], page.isRecognised);
    }
    return kept;
}

} // namespace fiscarel
