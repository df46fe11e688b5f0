#include "Fiscarel_SG/documents/kinds/SlipMonths.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace fiscarel {

namespace {

/// The month of a folded word, by its name or what heads narrow columns; 0 for other words.
int monthOfHeading(std::string_view word) {
    struct Short {
        std::string_view name;
        int month;
    };
    static constexpr std::array names{
        Short{"jan", 1},  Short{"janv", 1}, Short{"gen", 1},  Short{"feb", 2},  Short{"fev", 2},
        Short{"fevr", 2}, Short{"mar", 3},  Short{"mrz", 3},  Short{"apr", 4},  Short{"avr", 4},
        Short{"mag", 5},  Short{"jun", 6},  Short{"giu", 6},  Short{"jul", 7},  Short{"juil", 7},
        Short{"lug", 7},  Short{"aug", 8},  Short{"ago", 8},  Short{"sep", 9},  Short{"sept", 9},
        Short{"set", 9},  Short{"sett", 9}, Short{"okt", 10}, Short{"oct", 10}, Short{"ott", 10},
        Short{"nov", 11}, Short{"dez", 12}, Short{"dec", 12}, Short{"dic", 12},
    };
    if (const int month = monthOf(word)) {
        return month;
    }
    const auto found = std::ranges::find(names, word, &Short::name);
    return found == names.end() ? 0 : found->month;
}

/// The month of "12/2024" or "12.2024"; 0 for other words.
int monthOfNumbers(std::string_view text) {
    const std::size_t mark = text.find_first_of("./-");
    const bool isForm =
        (mark == 1 || mark == 2) && text.size() == mark + 5
        && std::ranges::count_if(text, isDigit) == static_cast<std::ptrdiff_t>(text.size() - 1);
    const int month = isForm ? smallNumber(text.substr(0, mark), 2).value_or(0) : 0;
    return month <= 12 ? month : 0;
}

/// The year a text begins with; 0 where it does with none.
int yearIn(std::string_view text) { return yearOf2000s(text.substr(0, 4)).value_or(0); }

/// Whether a word is a day's number: "14", "1.", "1er".
bool isDayNumber(const RowWord& word) {
    const std::string_view text = word.text;
    const auto count =
        static_cast<std::size_t>(std::ranges::find_if_not(text, isDigit) - text.begin());
    const auto day = smallNumber(text.substr(0, count), 2);
    return day && *day <= 31 && text.size() - count <= 3;
}

/// Words of a title or label that says which time a wage is for.
const Labels& wageTitles() {
    static const Labels words{
        "*lohn",    "Lohnblatt", "*abrechnung",      "*zettel",   "Salär",   "*salär",
        "*gehalt",  "Bezüge",    "salaire*",         "paie",      "paye",    "décompte",
        "fiche",    "bulletin",  "traitement*",      "stipendi*", "salari*", "paga",
        "cedolino", "conteggio", "retribuzion*",     "payslip",   "salary",  "wages",
        "Monat",    "*monat",    "Abrechnungsmonat", "mois",      "mese",    "month",
        "Periode",  "*periode",  "période",          "periodo",   "period",  "rémunération*"};
    return words;
}

bool isDay(const RowWord& word, int month, int day) {
    const auto found = parseDay(word.text);
    return (found && found->month() == month && found->day() == day)
           || word.folded == (std::string(day == 1 ? "01 01" : "31 12"));
}

const Labels& wordsForYear() {
    static const Labels words{"Jahr",  "Jahres*", "Gesamtjahr", "année", "annuel*", "annua*",
                              "annuo", "annui",   "anno",       "year",  "annual",  "yearly"};
    return words;
}

/// Whether a title tells that a wage is for a whole year; a year's number alone does not.
bool tellsWholeYear(const Row& row) {
    const auto& words = row.words;
    const auto has = [&](int month, int day) {
        return std::ranges::any_of(words,
                                   [&](const RowWord& word) { return isDay(word, month, day); });
    };
    return isWholeSpan(monthsOf(row)) || (has(1, 1) && has(12, 31))
           || findLabel(row, wordsForYear(), false).has_value();
}

} // namespace

std::set<int> monthsOf(const Row& words) {
    std::set<int> months;
    for (const RowWord& word : words.words) {
        months.insert(monthOfNumbers(word.text));
        for (const std::string& token : foldedTokens(word.text)) {
            months.insert(monthOfHeading(token));
        }
    }
    months.erase(0);
    return months;
}

bool isWholeSpan(const std::set<int>& months) { return months == std::set<int>{1, 12}; }

bool namesYear(const Row& words) {
    static const Labels numbers{"*jahr", "20*"};
    return findLabel(words, wordsForYear(), false) || findLabel(words, numbers, false);
}

void SlipMonths::add(const Row& row) {
    const auto& words = row.words;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (const auto day = parseDay(words[i].text)) {
            days_.push_back({day->year(), day->month()});
            newest_ = std::max(newest_, day->year());
            continue;
        }
        addNumbers(words[i].text);
        const auto tokens = foldedTokens(words[i].text);
        for (std::size_t token = 0; token < tokens.size(); ++token) {
            const bool isLast = token + 1 == tokens.size();
            const int year = isLast ? yearIn(i + 1 < words.size() ? words[i + 1].text : "")
                                    : yearIn(tokens[token + 1]);
            // Short ones may be words of a text.
            const int month = year != 0 ? monthOfHeading(tokens[token]) : monthOf(tokens[token]);
            if (month != 0) {
                const bool isOfDay = token == 0 && i > 0 && isDayNumber(words[i - 1]);
                (isOfDay ? days_ : named_).push_back({year, month});
                newest_ = std::max(newest_, year);
            }
        }
        if (i + 2 < words.size() && words[i + 1].text == "/") {
            addNumbers(words[i].text + '/' + words[i + 2].text);
        }
    }
}

bool SlipMonths::areOver() const {
    const auto months = named().empty() ? ofDays() : named();
    return months == std::set<int>{12} || isWholeSpan(months);
}

void SlipMonths::addNumbers(const std::string& text) {
    if (const int month = monthOfNumbers(text)) {
        const int year = std::stoi(text.substr(text.size() - 4));
        named_.push_back({year, month});
        newest_ = std::max(newest_, year);
    }
}

std::set<int> SlipMonths::recent(const std::vector<Month>& all) const {
    std::set<int> months;
    for (const Month& one : all) {
        if (one.year == 0 || one.year >= newest_) {
            months.insert(one.month);
        }
    }
    return months;
}

WageSpan spanOfHead(const DocumentRows& document) {
    static const Labels certificates{"*ausweis*", "*bescheinigung*", "*bestätigung*", "attest*",
                                     "certific*", "conferma*",       "confirmation",  "statement"};
    // "Lohn ab Mai 2024", "Service de paie, en janvier".
    static const Labels sinceWhen{"ab",    "seit",    "im",       "bis",     "Eintritt*",
                                  "dès",   "depuis",  "jusqu*",   "en",      "dal",
                                  "dalla", "fino",    "entrée",   "entrata", "since",
                                  "from",  "service", "servizio", "ufficio", "until"};
    if (document.pages.empty()) {
        return WageSpan::unknown;
    }
    bool isMonth = false;
    bool isYear = false;
    for (const Row& row : document.pages.front().rows) {
        if (hasFirmAmount(row)) {
            break;
        }
        if (isAnyIn(row.folded, certificates)) {
            return WageSpan::unknown;
        }
        if (!isAnyIn(row.folded, wageTitles()) || isAnyIn(row.folded, sinceWhen)) {
            continue;
        }
        SlipMonths months;
        months.add(row);
        isYear |= tellsWholeYear(row);
        isMonth |= months.named().size() == 1;
    }
    return isYear == isMonth ? WageSpan::unknown : isYear ? WageSpan::year : WageSpan::month;
}

} // namespace fiscarel
