#include "Fiscarel_SG/documents/kinds/AccountRows.h"

#include "Fiscarel_SG/documents/kinds/AssetCosts.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>

namespace fiscarel {

namespace {

/// "2025", also with a mark behind.
bool isYear(std::string_view text) {
    while (!text.empty() && std::string_view(".,:;)").find(text.back()) != std::string_view::npos) {
        text.remove_suffix(1);
    }
    return text.size() == 4 && parseYear(text);
}

} // namespace

bool namesDepot(const Row& row) {
    static const Labels depots{"*depot", "Depot*",  "Wertschriften*",
                               "dépôt",  "titres",  "dossier titres",
                               "titoli", "custody", "deposito titoli"};
    return isAnyIn(row.folded, depots);
}

bool hasName(const Row& row) {
    const auto firm = std::ranges::find_if(
        row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
    if (firm == row.amounts.end()) {
        return false;
    }
    return firm->first > 0 || std::ranges::any_of(cellsOf(row), [&](const LabelPlace& cell) {
               return roleOf(row, cell) == Role::text && lettersIn(row, cell) >= 3;
           });
}

bool isMarkedOwed(const Row& row) {
    return std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
        return amount.amount.isFirm() && amount.last + 1 < row.words.size()
               && sideMark(row.words[amount.last + 1]) == Side::owed;
    });
}

bool isCarried(const Row& row) {
    static const Labels carried{"Übertrag*", "Uebertrag*", "*vortrag", "report",  "reports",
                                "reporté*",  "reporter",   "riporto",  "riporti", "riportare",
                                "riportat*", "carried",    "forward"};
    const auto place = findLabel(row, carried, false);
    return place && place->first <= 1;
}

bool isNetOfAll(const Row& row) {
    static const Labels nets{"Nettovermögen*",    "Reinvermögen*",    "Netto-Vermögen*",
                             "fortune nette",     "avoirs nets",      "patrimonio netto",
                             "sostanza netta",    "averi netti",      "net assets",
                             "abzüglich Schuld*", "minus Schuld*",    "moins les dettes",
                             "dettes déduites",   "dedotti i debiti", "meno i debiti"};
    return isAnyIn(row.folded, nets);
}

bool statesNoBalance(const PageRows& page, std::size_t at) {
    const Row& row = page.rows[at];
    static const Labels kept{"abgezogen*", "einbehalten*", "abgeführt*", "trattenut*",
                             "dedott*",    "retenu*",      "déduit*",    "prélevé*"};
    const auto firm = std::ranges::count_if(
        row.amounts, [](const RowAmount& one) { return one.amount.isFirm(); });
    return statesAssetCosts(page, row)
           || (firm == 1 && namesAny(row, {Concept::withholding}, page.isRecognised)
               && !namesAny(row, {Concept::balance}, page.isRecognised)
               && (isAnyIn(row.folded, kept)
                   || !namesAny(row, {Concept::account}, page.isRecognised)));
}

bool beginsWithTime(const Row& row) {
    static const Labels periods{"Quartal*", "Semester",  "Halbjahr*", "Trimester",
                                "semestre", "trimestre", "quarter"};
    const auto& words = row.words;
    if (words.empty()) {
        return false;
    }
    if (parseDay(words[0].text)
        || (words.size() > 2 && parseDay(words[0].text, words[1].text, words[2].text))) {
        return true;
    }
    const auto period = findLabel(row, periods, false);
    constexpr std::size_t dayAndMonth = 6; // letters of "01.07."
    const std::string& first = words[0].text;
    const bool isDayOfMonth = first.size() >= dayAndMonth
                              && isDayOfYear(first.substr(0, dayAndMonth))
                              && first.find_first_of("0123456789", dayAndMonth) != dayAndMonth;
    const bool isPart = (period && period->first <= 1) || monthOf(words[0].folded) != 0;
    return isDayOfMonth || (isPart && hasFirmAmount(row));
}

bool namesCard(const Row& row) {
    static const Labels cards{"Kreditkarte*",    "*kreditkarte",     "Kartenkonto",
                              "carte de crédit", "cartes de crédit", "carta di credito",
                              "carte di credito"};
    return isAnyIn(row.folded, cards) && !namesAny(row, {Concept::fee}, false);
}

bool namesLoan(const PageRows& page, std::size_t at) {
    return namesCard(page.rows[at])
           || (namesAny(page.rows[at], {Concept::debt}, page.isRecognised)
               && !namesAny(page.rows[at], {Concept::account}, page.isRecognised));
}

bool hasNumber(const Row& row) {
    for (std::size_t i = 0; i < row.words.size(); ++i) {
        const std::string& text = row.words[i].text;
        const bool isAmount = std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
            return amount.amount.isFirm() && amount.first <= i && i <= amount.last;
        });
        if (!isAmount && !isYear(text) && !parseDay(text) && countDigits(text) >= 4) {
            return true;
        }
    }
    return false;
}

} // namespace fiscarel
