#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace fiscarel {

namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isSign(const RowWord& word) {
    const auto [code, length] = firstLetter(word.text);
    return length == word.text.size() && (isDash(code) || code == U'+');
}

/// The first amount of a row that does not end before a word.
std::vector<RowAmount>::const_iterator amountsFrom(const Row& row, std::size_t word) {
    return std::ranges::lower_bound(row.amounts, word, {}, &RowAmount::last);
}

} // namespace

Role roleOf(const Row& row, const LabelPlace& cell) {
    bool hasAmount = false;
    bool hasOther = false;
    auto next = amountsFrom(row, cell.first);
    for (std::size_t i = cell.first; i <= cell.last; ++i) {
        next += next != row.amounts.end() && next->last < i ? 1 : 0;
        const bool isAmount =
            next != row.amounts.end() && next->first <= i && next->amount.isFirm();
        hasAmount |= isAmount;
        const std::string& text = row.words[i].text;
        const bool isSide = hasAmount && sideMark(row.words[i]);
        hasOther |= !isAmount && !isSide && !isFrancs(text) && !isForeignCurrency(text)
                    && !isSign(row.words[i]);
    }
    return hasOther ? Role::text : hasAmount ? Role::amount : Role::currency;
}

std::optional<Side> sideMark(const RowWord& word) {
    static constexpr std::array<std::string_view, 15> owed{
        "S",     "Soll", "SOLL", "soll", "D",  "Débit", "DÉBIT", "débit",
        "Debit", "Dare", "DARE", "dare", "DR", "DB",    "Db"};
    static constexpr std::array<std::string_view, 15> kept{
        "H",      "Haben",   "HABEN", "haben", "C",     "Crédit", "CRÉDIT", "crédit",
        "Credit", "Credito", "Avere", "AVERE", "avere", "CR",     "Cr"};
    return std::ranges::find(owed, word.text) != owed.end()   ? std::optional(Side::owed)
           : std::ranges::find(kept, word.text) != kept.end() ? std::optional(Side::kept)
                                                              : std::nullopt;
}

bool hasFirmAmount(const Row& row) {
    return std::ranges::any_of(row.amounts,
                               [](const RowAmount& amount) { return amount.amount.isFirm(); });
}

bool hasFirmAmount(const Row& row, const LabelPlace& cell) {
    for (auto next = amountsFrom(row, cell.first);
         next != row.amounts.end() && next->last <= cell.last; ++next) {
        if (next->amount.isFirm() && cell.first <= next->first) {
            return true;
        }
    }
    return false;
}

bool hasFrancs(const Row& row) {
    return std::ranges::any_of(row.words, [](const RowWord& word) { return isFrancs(word.text); });
}

bool saysNone(const Row& row, const LabelPlace& cell) {
    static constexpr std::array<std::string_view, 18> words{
        "kein",   "keine", "keiner", "keines",    "entfallt", "aucun",
        "aucune", "neant", "nihil",  "nessun",    "nessuna",  "nessuno",
        "nulla",  "none",  "gratis", "kostenlos", "gratuit",  "gratuito"};
    return cell.first == cell.last
           && std::ranges::find(words, row.words[cell.first].folded) != words.end();
}

bool saysLeftOut(const Row& words) {
    static const Labels denials{
        "nicht enthalten",     "nicht inbegriffen", "nicht eingerechnet", "nicht berücksichtigt",
        "bereits bescheinigt", "pas compris*",      "pas inclus*",        "pas comptabilisé*",
        "déjà attesté*",       "non è compres*",    "non sono compres*",  "non è inclus*",
        "non sono inclus*",    "già attestat*",     "già certificat*",    "not included"};
    return findLabel(words, denials, false).has_value();
}

std::size_t lettersIn(const Row& row, const LabelPlace& cell) {
    std::size_t letters = 0;
    for (std::size_t i = cell.first; i <= cell.last; ++i) {
        letters += static_cast<std::size_t>(std::ranges::count_if(
            row.words[i].folded, [](char c) { return c >= 'a' && c <= 'z'; }));
    }
    return letters;
}

std::vector<RowWord> wordsOf(const Row& row, const LabelPlace& cell) {
    const auto begin = row.words.begin();
    return {begin + static_cast<std::ptrdiff_t>(cell.first),
            begin + static_cast<std::ptrdiff_t>(cell.last) + 1};
}

bool hasOnlyAmounts(const Row& row) {
    return hasFirmAmount(row) && std::ranges::none_of(cellsOf(row), [&](const LabelPlace& cell) {
               return roleOf(row, cell) == Role::text;
           });
}

bool endsSentence(const RowWord& word) {
    return word.text.size() > 4 && word.text.ends_with('.') && !word.folded.empty()
           && !hasDigit(word.folded);
}

bool endsSentence(const Row& row, std::size_t at) {
    const std::string& text = row.words[at].text;
    const bool isLeader = text.ends_with("..");
    if (isLeader || (!text.ends_with('.') && !text.ends_with('!') && !text.ends_with('?'))) {
        return false;
    }
    if (at + 1 < row.words.size() && row.words[at + 1].text.starts_with("Fr")) {
        return false;
    }
    const char next = at + 1 < row.words.size() ? row.words[at + 1].text.front() : 'A';
    if (isDayOfYear(text) && (next < 'A' || next > 'Z')) {
        return false; // "du 15.09. au 31.12."
    }
    static constexpr std::array<std::string_view, 5> subjects{"er", "il", "elle", "esso", "essa"};
    if (at + 1 < row.words.size()
        && std::ranges::find(subjects, row.words[at + 1].folded) != subjects.end()) {
        return false; // goes on about what the one before spoke of
    }
    const bool isNumber = !isLetter(text.front()) && text.size() <= 3;
    const bool isShort = text.size() <= 4 && isLetter(text.front());
    return !isNumber && !isShort;
}

} // namespace fiscarel
