#include "Fiscarel_SG/documents/kinds/AccountTable.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/GridHeading.h"
#include "Fiscarel_SG/documents/kinds/SideColumns.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>

namespace fiscarel {

namespace {

bool isNamed(const Row& cell, Figure figure, bool isRecognised) {
    const Wanted& wanted = wantedOf(figure);
    const bool isMeant = findLabel(cell, wanted.labels, isRecognised)
                         || std::ranges::any_of(wanted.meanings, [&](const Meaning& meaning) {
                                return findMeaning(cell, meaning, isRecognised).has_value();
                            });
    return isMeant && !findLabel(cell, wanted.without, isRecognised)
           && !namesAny(cell, wanted.notMeant, isRecognised);
}

/// Whether a heading that tells of the tax heads an income: "Ertrag A", "mit VSt".
bool isIncome(const Row& cell, bool isRecognised) {
    static const Labels taxes{"con IP", "senza IP", "avec IA", "sans IA"};
    return !namesAny(cell, {Concept::balance, Concept::debt, Concept::net}, isRecognised)
           && (namesAny(cell, {Concept::interest, Concept::withholding, Concept::gross},
                        isRecognised)
               || isAnyIn(cell.folded, taxes));
}

/// Whether a column is that of the customer's debts where another one is that of the assets.
bool isDebitSide(const Row& cell) {
    static const Labels sides{"Soll", "débit", "au débit", "doit", "dare", "débits"};
    return isAnyIn(cell.folded, sides);
}

using Cells = std::vector<LabelPlace>;

std::size_t digitsIn(const Row& row, const LabelPlace& cell) {
    std::size_t digits = 0;
    for (std::size_t i = cell.first; i <= cell.last; ++i) {
        digits += countDigits(row.words[i].text);
    }
    return digits;
}

/// Whether a cell has more than one word for what it heads: "Saldo / Schuld", "reçus ou payés".
bool hasParts(const Row& cell) {
    static const Labels between{"oder", "bzw", "resp", "ou", "o"};
    return isAnyIn(cell.folded, between)
           || std::ranges::any_of(cell.words, [](const RowWord& word) {
                  return word.text.find('/') != std::string::npos;
              });
}

/// Whether a cell names both whom an amount may favour: "Solde en votre faveur (+) / en notre
/// faveur (–)".
bool namesBothFavours(const Row& cell) {
    static const Labels customers{"Ihren Gunsten",    "Ihre Gunsten",   "votre faveur",
                                  "vostro favore",    "suo favore",     "favore del cliente",
                                  "faveur du client", "Gunsten Kunde*", "Gunsten des Kunden"};
    static const Labels banks{"unseren Gunsten",     "unsere Gunsten", "notre faveur",
                              "nostro favore",       "Lasten",         "votre charge",
                              "suo carico",          "vostro carico",  "favore della banca",
                              "faveur de la banque", "Gunsten Bank",   "Gunsten der Bank"};
    return isAnyIn(cell.folded, customers) && isAnyIn(cell.folded, banks);
}

/// What a cell states that names one side of an account's page, or both: then each row says which.
std::optional<Figure> figureOfSides(const Row& cell, bool isRecognised) {
    static const Labels earned{"Haben*",     "Zinsertrag*", "Habenzins*", "actifs",
                               "créanciers", "créditeurs",  "attivi",     "creditori",
                               "reçus",      "ricevuti",    "Ertrag*",    "Zinsgutschrift*",
                               "crédités",   "accreditat*", "credito",    "gutgeschrieben*"};
    static const Labels charged{"Soll*",      "Schuldzins*", "*aufwand",   "passifs", "débiteurs",
                                "passivi",    "debitori",    "payés",      "pagati",  "Zinslast",
                                "*belastung", "débités",     "addebitat*", "debito",  "belastet*"};
    static const Labels kept{"Saldo",   "Guthaben*", "Vermögen*", "Kapital*", "solde",    "avoir*",
                             "fortune", "capital",   "avere",     "averi",    "capitale", "Haben"};
    static const Labels owed{"Schuld*", "Soll", "dette*",      "débit",   "debito",
                             "debiti",  "dare", "engagement*", "Kredit*", "Verpflichtung*"};
    if (namesBothFavours(cell)) {
        return namesAny(cell, {Concept::interest}, isRecognised) ? Figure::interest
                                                                 : Figure::balance;
    }
    const bool isParted = hasParts(cell);
    const bool isDebit = isDebitSide(cell);
    if ((!isParted && !isDebit) || namesAny(cell, {Concept::rate}, isRecognised)) {
        return std::nullopt;
    }
    const bool isOfInterest = namesAny(cell, {Concept::interest}, isRecognised);
    const Labels& one = isOfInterest ? earned : kept;
    const Labels& other = isOfInterest ? charged : owed;
    if (isParted && isAnyIn(cell.folded, one) && isAnyIn(cell.folded, other)) {
        return isOfInterest ? Figure::interest : Figure::balance;
    }
    if (!isDebit) {
        return std::nullopt;
    }
    return isOfInterest                 ? std::optional(Figure::debtInterest)
           : isAnyIn(cell.folded, kept) ? std::optional(Figure::debt)
                                        : std::nullopt;
}

/// "35 %", and nothing else.
bool isTaxRate(const Row& cell) {
    return !cell.words.empty() && cell.words[0].text.starts_with("35")
           && std::ranges::none_of(cell.folded, [](char c) { return c >= 'a' && c <= 'z'; });
}

/// "Zins %", "Zins in %": a rate, whatever it is of.
bool isRateInPercent(const Row& cell, bool isRecognised) {
    const bool hasPercent = std::ranges::any_of(
        cell.words, [](const RowWord& word) { return word.text == "%" || word.text == "(%)"; });
    const bool hasNumber = hasDigit(cell.folded);
    return hasPercent && !hasNumber && !namesAny(cell, {Concept::withholding}, isRecognised);
}

/// The year a cell speaks of; 0 when of none.
int yearIn(const Row& cell) {
    int year = 0;
    for (const RowWord& word : cell.words) {
        const auto day = parseDay(word.text);
        year = day ? day->year() : parseYear(word.text).value_or(year);
    }
    return year;
}

/// Whether a cell names a year, maybe with a currency or as "31.12.", and nothing else.
bool isYearOnly(const Row& cell) {
    return yearIn(cell) != 0 && std::ranges::none_of(cell.words, [](const RowWord& word) {
               const bool hasLetters =
                   std::ranges::any_of(word.folded, [](char c) { return c >= 'a' && c <= 'z'; });
               return hasLetters && !isFrancs(word.text) && word.folded != "in";
           });
}

/// Words of a column that tells what was paid back on a loan, or with it.
const Labels& repaidWords() {
    static const Labels words{"amortis*",    "Amortisation*",   "getilgt*",       "zurückbezahlt*",
                              "remboursé*",  "Abzahlung*",      "ammort*",        "rimborsat*",
                              "Tilgung*",    "Kapitalanteil*",  "quota capitale", "part capital",
                              "mensualité*", "part de capital", "Monatsrate*",    "Kreditrate*"};
    return words;
}

bool isOfRepayments(const AccountHeading& heading) {
    return std::ranges::any_of(heading.table.columns, [](const TableColumn& one) {
        return isAnyIn(one.cell.folded, repaidWords());
    });
}

/// What columns state that only tell a day, a currency, or that something was paid. They do so
/// beside others only.
void addPlainFigures(AccountHeading& heading, bool isRecognised) {
    static const Labels within{"davon", "dont", "di cui", "wovon", "darin"};
    const bool isRepaid = isOfRepayments(heading);
    static const Labels currency{"CHF", "in CHF", "en CHF", "Franken", "in Franken", "en francs"};
    static const Labels stands{"Stand*",   "Bestand",  "Betrag*",   "Wert*",      "Kapital*",
                               "état",     "montant",  "situation", "capital",    "importo",
                               "stato",    "valore",   "capitale",  "situazione", "Nominal*",
                               "Nennwert", "nominale", "nominal"};
    static const Labels earnings{"competenze", "proventi",     "redditi",  "oneri",  "Erträgnis*",
                                 "Zinserfolg", "Kapitalertr*", "produits", "revenus"};
    const bool hasStand = heading.states(Figure::balance) || heading.states(Figure::debt);
    const bool hasInterest =
        heading.states(Figure::interest) || heading.states(Figure::debtInterest);
    std::optional<Figure> before;
    for (std::size_t i = 0; i < heading.figures.size(); ++i) {
        const Row& cell = heading.table.columns[i].cell;
        auto& figure = heading.figures[i];
        const bool isOther = namesAny(cell,
                                      {Concept::other, Concept::opening, Concept::repayment,
                                       Concept::rate, Concept::fee},
                                      isRecognised)
                             || heading.table.columns[i].isOfWords;
        const bool isStand = !hasStand && hasInterest && isYearOnly(cell);
        if (!figure && !isOther && cell.words.size() <= 5 && (namesLastDay(cell) || isStand)) {
            figure = Figure::balance;
        } else if (!figure && !isOther && !hasInterest
                   && namesAny(cell, {Concept::paid}, isRecognised) && cell.words.size() <= 3) {
            figure = Figure::interest;
        } else if (!figure && !hasInterest && isRepaid && cell.words.size() <= 4
                   && isAnyIn(cell.folded, within)
                   && namesAny(cell, {Concept::interest, Concept::debtInterest}, isRecognised)
                   && !namesAny(cell, {Concept::rate, Concept::repayment}, isRecognised)) {
            figure = Figure::interest; // of each instalment: "dont intérêts"
        } else if (!figure && !isOther && !hasInterest && cell.words.size() <= 3
                   && isAnyIn(cell.folded, earnings)) {
            figure = Figure::interest;
        } else if (!figure && !isOther && !hasStand && cell.words.size() <= 4
                   && findLabel(cell, stands, isRecognised)) {
            figure = Figure::balance;
        } else if (!figure && before && cell.words.size() <= 2 && hasFrancs(cell)
                   && isAnyIn(cell.folded, currency)) {
            figure = before;
        }
        before = figure ? figure : before;
    }
}

/// Leaves columns of a year before the document's without a figure.
void dropPast(AccountHeading& heading, std::optional<int> year) {
    for (std::size_t i = 0; i < heading.figures.size(); ++i) {
        const int own = yearIn(heading.table.columns[i].cell);
        if (year && own != 0 && own < *year) {
            heading.figures[i].reset();
        }
    }
}

/// Of several columns for one figure only the one that counts keeps it.
void chooseColumns(AccountHeading& heading) {
    static const Labels taxValues{"Steuerwert*", "valeur fiscale", "valore fiscale"};
    const auto rankOf = [&](std::size_t at) {
        const Row& cell = heading.table.columns[at].cell;
        return std::tuple(hasFrancs(cell), isAnyIn(cell.folded, taxValues), yearIn(cell));
    };
    for (std::size_t i = 0; i < heading.figures.size(); ++i) {
        for (std::size_t j = i + 1; j < heading.figures.size() && heading.figures[i]; ++j) {
            if (heading.figures[i] == heading.figures[j]) {
                (rankOf(j) > rankOf(i) ? heading.figures[i] : heading.figures[j]).reset();
            }
        }
    }
}

/// How many figures the columns state, one that several state counted once.
std::size_t countFigures(const AccountHeading& heading) {
    std::set<Figure> figures;
    for (const auto& figure : heading.figures) {
        if (figure) {
            figures.insert(*figure);
        }
    }
    return figures.size();
}

/// Whether the table lists what is owed: it tells repayments, or stands under such a title.
bool listsLoans(const PageRows& page, std::size_t at, const AccountHeading& heading) {
    static const Labels titles{"Verpflichtung*", "Passiven",    "Kredite",          "Ausleihungen",
                               "Finanzierung*",  "engagement*", "passifs",          "crédits",
                               "passivi",        "impegni",     "crediti ipotecari"};
    using enum Figure;
    const bool isOwed = heading.states(debt) || heading.states(debtInterest);
    const bool isEarned =
        std::ranges::any_of(std::array{interest, taxedInterest, untaxedInterest, withholding},
                            [&](Figure figure) { return heading.states(figure); });
    const bool isRepaid = isOfRepayments(heading);
    if (isOwed && !isEarned) { // a balance beside a debt is what is kept
        return isRepaid || !heading.states(balance) || !heading.states(debt);
    }
    if (isRepaid || at == 0) {
        return isRepaid;
    }
    const Row& title = page.rows[at - 1];
    return title.words.size() <= 6 && !hasFirmAmount(title)
           && (isAnyIn(title.folded, titles)
               || namesAny(title, {Concept::debt}, page.isRecognised));
}

/// What a column states that is but the other side of the one before: "Saldo Soll", "Haben".
std::optional<Figure> otherSideOf(std::optional<Figure> before, const Row& cell) {
    using enum Figure;
    static const Labels credits{"Haben", "crédit", "avere"};
    if (!before || cell.words.size() != 1) {
        return std::nullopt;
    }
    if (isAnyIn(cell.folded, credits)) {
        return before == debt           ? std::optional(balance)
               : before == debtInterest ? std::optional(interest)
                                        : std::nullopt;
    }
    if (!isDebitSide(cell)) {
        return std::nullopt;
    }
    return before == balance    ? std::optional(debt)
           : before == interest ? std::optional(debtInterest)
                                : std::nullopt;
}

/// Leaves the heading of the names of rows without a figure, "Prestito  Interessi  Debito": names
/// or numbers of loans stand below it, and another column states the same or no amount stands
/// there.
void dropNames(const PageRows& page, AccountHeading& heading) {
    constexpr std::size_t rows = 6;
    constexpr std::size_t fewest = 4; // letters or digits of a name
    for (std::size_t i = 0; i < heading.figures.size(); ++i) {
        const auto figure = heading.figures[i];
        const LabelPlace& place = heading.table.columns[i].place;
        std::size_t names = 0;
        std::size_t numbers = 0;
        std::size_t amounts = 0;
        const std::size_t end = std::min(page.rows.size(), heading.row() + 1 + rows);
        for (std::size_t at = heading.row() + 1; figure && at < end; ++at) {
            const Row& row = page.rows[at];
            for (const LabelPlace& cell : hasFirmAmount(row) ? cellsOf(row) : Cells()) {
                const bool isText = roleOf(row, cell) == Role::text;
                const bool isBelow = std::abs(cell.left - place.left) <= alignment(page);
                names += isBelow && isText && lettersIn(row, cell) >= fewest ? 1U : 0U;
                numbers += isBelow && isText && digitsIn(row, cell) >= fewest ? 1U : 0U;
                amounts += !isText && cell.left < place.right && place.left < cell.right ? 1U : 0U;
            }
        }
        const bool isTwice = std::ranges::count(heading.figures, figure) >= 2;
        if ((isTwice && names >= 1) || (figure == Figure::debt && numbers >= 1 && amounts == 0)) {
            heading.figures[i].reset();
        }
    }
}

AccountHeading readHeading(const PageRows& page, TableHeading table) {
    AccountHeading heading{.table = std::move(table)};
    std::optional<Figure> before;
    for (const TableColumn& column : heading.table.columns) {
        const auto other = otherSideOf(before, column.cell);
        before = column.isOfWords ? std::nullopt
                 : other          ? other
                                  : figureOf(column.cell, page.isRecognised);
        heading.figures.push_back(before);
    }
    addSides(page, heading);
    dropNames(page, heading);
    return heading;
}

/// Whether one of the next rows has amounts under two of the figures.
bool hasRows(const PageRows& page, const AccountHeading& heading) {
    const std::size_t end = std::min(page.rows.size(), heading.row() + 6);
    for (std::size_t at = heading.row() + 1; at < end; ++at) {
        const Figures figures = figuresByColumn(page, at, heading);
        if (std::ranges::count_if(figures, [](const auto& one) { return one.has_value(); }) >= 2) {
            return true;
        }
    }
    return false;
}

/// How many amounts of the next rows a heading tells.
std::size_t amountsTold(const PageRows& page, const AccountHeading& heading) {
    constexpr std::size_t rows = 12;
    std::size_t told = 0;
    const std::size_t end = std::min(page.rows.size(), heading.row() + rows);
    for (std::size_t at = heading.row() + 1; at < end; ++at) {
        const Figures figures = figuresByColumn(page, at, heading);
        told += static_cast<std::size_t>(
            std::ranges::count_if(figures, [](const auto& one) { return one.has_value(); }));
    }
    return told;
}

/// With what its plain columns state, where the rows below bear it out.
AccountHeading completed(const PageRows& page, std::size_t at, AccountHeading heading,
                         std::optional<int> year) {
    dropPast(heading, year);
    AccountHeading plain = heading;
    addPlainFigures(plain, page.isRecognised);
    dropPast(plain, year);
    if (plain.figures != heading.figures) {
        chooseColumns(plain);
        if (hasRows(page, plain)) {
            for (std::size_t i = 0; i < plain.figures.size(); ++i) {
                plain.isPlain.push_back(plain.figures[i] != heading.figures[i]);
            }
            heading = std::move(plain);
        }
    }
    chooseColumns(heading);
    heading.isOfLoans = listsLoans(page, at, heading);
    return heading;
}

} // namespace

std::optional<Figure> figureOf(const Row& cell, bool isRecognised) {
    using enum Figure;
    static const Labels assets{"Aktiven", "Vermögen", "actifs", "attivi", "averi", "assets"};
    static const Labels debts{"Passiven", "Ausstand", "Ausstände",  "Schulden",
                              "passifs",  "passivi",  "liabilities"};
    static const Labels charges{"Aufwand", "Zinsaufwand", "charges", "oneri", "onere"};
    if ((cell.words.size() > 8 && !namesBothFavours(cell)) || isRateInPercent(cell, isRecognised)) {
        return std::nullopt;
    }
    if (const auto taxed = taxednessOf(cell); taxed && isIncome(cell, isRecognised)) {
        return *taxed ? taxedInterest : untaxedInterest;
    }
    if (const auto figure = figureOfSides(cell, isRecognised)) {
        return figure;
    }
    // What a debt's column says may be part of what an account's says, and the net part of the
    // gross.
    for (const Figure figure : {withholding, debtInterest, netInterest, interest, debt, balance}) {
        if (isNamed(cell, figure, isRecognised)) {
            return figure;
        }
    }
    if (cell.words.size() > 2) {
        return std::nullopt;
    }
    return isAnyIn(cell.folded, assets)    ? std::optional(balance)
           : isAnyIn(cell.folded, debts)   ? std::optional(debt)
           : isAnyIn(cell.folded, charges) ? std::optional(debtInterest)
           : isTaxRate(cell)               ? std::optional(withholding)
                                           : std::nullopt;
}

bool AccountHeading::states(Figure figure) const {
    return std::ranges::find(figures, std::optional(figure)) != figures.end();
}

std::size_t AccountHeading::count() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(figures, [](const auto& figure) { return figure.has_value(); }));
}

AccountHeading accountHeadingIn(const PageRows& page, std::size_t at, std::optional<int> year) {
    AccountHeading heading = readHeading(page, tableHeadingIn(page, at, false));
    AccountHeading both = readHeading(page, tableHeadingIn(page, at, true));
    // A second line may tell of two columns for one figure which is the other day's.
    if (!both.figures.empty() && countFigures(both) >= countFigures(heading)) {
        heading = std::move(both);
    }
    heading = completed(page, at, std::move(heading), year);
    if (TableHeading columns = gridHeadingIn(page, at); !columns.columns.empty()) {
        AccountHeading grid = completed(page, at, readHeading(page, std::move(columns)), year);
        if (grid.count() >= std::max<std::size_t>(heading.count(), 2)
            && amountsTold(page, grid) > amountsTold(page, heading)) {
            heading = std::move(grid);
        }
    }
    // Words of one label are no columns because some amounts below end where one of them does.
    const bool isOneCell = heading.count() >= 2 && cellsOf(page.rows[at]).size() == 1;
    return isOneCell && !hasRows(page, heading) ? AccountHeading() : heading;
}

Figures figuresByColumn(const PageRows& page, std::size_t at, const AccountHeading& heading) {
    const auto amounts =
        heading.table.amountsIn(page, at, [&](const RowAmount& amount, std::size_t column) {
            const bool isLarge = !amount.amount.isYearLike() && amount.amount.value >= 1000;
            return heading.figures[column] && (amount.amount.isFirm() || isLarge);
        });
    Figures figures;
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        if (amounts[i] != nullptr) {
            figures[static_cast<std::size_t>(*heading.figures[i])] =
                FoundAmount{.page = &page,
                            .row = at,
                            .amount = *amounts[i],
                            .label = heading.table.columns[i].words(),
                            .isAlone = heading.isPlain.empty() || !heading.isPlain[i]};
        }
    }
    return figures;
}

} // namespace fiscarel
