#include "Fiscarel_SG/documents/kinds/AccountFigures.h"

#include <algorithm>
#include <cmath>

namespace fiscarel {

namespace {

bool hasFirmAmounts(const Row& row) {
    return std::ranges::any_of(row.amounts,
                               [](const RowAmount& amount) { return amount.amount.isFirm(); });
}

/// The cells of a row, each as a row of its own.
std::vector<Row> cellRowsOf(const Row& row) {
    std::vector<Row> cells;
    for (const LabelPlace& place : cellsOf(row)) {
        Row cell{.top = row.top, .bottom = row.bottom};
        for (std::size_t i = place.first; i <= place.last; ++i) {
            cell.words.push_back(row.words[i]);
            cell.folded += row.words[i].folded + ' ';
        }
        cells.push_back(std::move(cell));
    }
    return cells;
}

double leftOf(const Row& cell) { return cell.words.front().place.left; }
double rightOf(const Row& cell) {
    double right = 0;
    for (const RowWord& word : cell.words) {
        right = std::max(right, word.place.right);
    }
    return right;
}

/// Puts the words of a heading's second line under those they go on.
void addLine(std::vector<Row>& cells, const Row& line) {
    for (Row& below : cellRowsOf(line)) {
        const auto above = std::ranges::find_if(cells, [&](const Row& cell) {
            return leftOf(cell) < rightOf(below) && leftOf(below) < rightOf(cell);
        });
        if (above != cells.end()) {
            above->words.insert(above->words.end(), below.words.begin(), below.words.end());
            above->folded += below.folded;
        }
    }
}

/// What a cell of a heading says its column is.
std::optional<Figure> figureOf(const Row& cell, bool isRecognised) {
    std::optional<Figure> found;
    using enum Figure;
    // What a debt's column says may be part of what an account's says, and the net part of the
    // gross.
    for (const Figure figure : {withholding, debtInterest, netInterest, interest, debt, balance}) {
        const Wanted& wanted = wantedOf(figure);
        const bool isNamed = findLabel(cell, wanted.labels, isRecognised)
                             || std::ranges::any_of(wanted.meanings, [&](const Meaning& meaning) {
                                    return findMeaning(cell, meaning, isRecognised).has_value();
                                });
        if (isNamed && !findLabel(cell, wanted.without, isRecognised)
            && !namesAny(cell, wanted.notMeant, isRecognised)) {
            return figure;
        }
    }
    return found;
}

/// Several headings that stand too near to each other to be told apart by their gaps, each by its
/// own words.
void splitHeading(const Row& cell, bool isRecognised, AccountHeading& heading) {
    std::vector<std::pair<std::size_t, LabelPlace>> found;
    for (std::size_t figure = 0; figure < figureCount; ++figure) {
        const Wanted& wanted = wantedOf(static_cast<Figure>(figure));
        auto place = findLabel(cell, wanted.labels, isRecognised);
        for (const Meaning& meaning : wanted.meanings) {
            place = place ? place : findMeaning(cell, meaning, isRecognised);
        }
        const bool isTaken =
            place && std::ranges::any_of(found, [&](const auto& other) {
                return other.second.first <= place->last && place->first <= other.second.last;
            });
        if (place && !isTaken) {
            found.emplace_back(figure, *place);
        }
    }
    for (const auto& [figure, place] : found) {
        if (!heading.columns[figure]) {
            heading.columns[figure] = place;
            heading.words[figure] = textBetween(cell, place.first, place.last);
        }
    }
}

/// The most amounts that stand in one of the rows below a heading.
std::size_t amountsBelow(const PageRows& page, std::size_t at) {
    std::ptrdiff_t most = 0;
    for (std::size_t below = at + 1; below < std::min(at + 4, page.rows.size()); ++below) {
        most = std::max(most, std::ranges::count_if(page.rows[below].amounts, [](const auto& one) {
                            return one.amount.isFirm();
                        }));
    }
    return static_cast<std::size_t>(most);
}

AccountHeading headingOf(const std::vector<Row>& cells, std::size_t row, bool isRecognised) {
    AccountHeading heading{.row = row};
    for (const Row& cell : cells) {
        const auto figure = figureOf(cell, isRecognised);
        if (!figure || cell.words.size() > 8) {
            continue;
        }
        const auto index = static_cast<std::size_t>(*figure);
        if (!heading.columns[index]) {
            heading.columns[index] =
                LabelPlace{0, cell.words.size() - 1, leftOf(cell), rightOf(cell)};
            heading.words[index] = textBetween(cell, 0, cell.words.size() - 1);
        }
    }
    return heading;
}

/// How far an amount is from the column of a label: 0 where they overlap.
double columnDistance(const RowAmount& amount, const LabelPlace& label) {
    const double byRight = std::abs(amount.place.right - label.right);
    const bool overlaps = amount.place.right > label.left && amount.place.left < label.right;
    return overlaps ? std::min(byRight, 1.0) : byRight;
}

/// Interest by what it is, which is surer than its label in recognised text: an amount above one of
/// 35 per cent of it, with what remains below.
void findInterestByTax(const RowRange& range, Figures& figures) {
    std::vector<FoundAmount> lasts;
    for (std::size_t at = range.first; at < range.end; ++at) {
        const Row& row = range.page->rows[at];
        if (!row.amounts.empty() && row.amounts.back().amount.isFirm()) {
            lasts.push_back({.page = range.page,
                             .row = at,
                             .amount = row.amounts.back(),
                             .label = "Zins",
                             .isAlone = false});
        }
    }
    for (std::size_t i = 0; i + 2 < lasts.size(); ++i) {
        const Decimal gross = lasts[i].value();
        const Decimal tax = lasts[i + 1].value();
        if (gross >= 1 && ((gross * 35 / 100) - tax).abs() <= Decimal(5) / 100
            && gross - tax == lasts[i + 2].value()) {
            const auto put = [&](Figure figure, const FoundAmount& amount) {
                auto& known = figures[static_cast<std::size_t>(figure)];
                if (!known || (range.page->isRecognised && known->value() != amount.value())) {
                    known = amount;
                }
            };
            put(Figure::interest, lasts[i]);
            put(Figure::withholding, lasts[i + 1]);
            put(Figure::netInterest, lasts[i + 2]);
            return;
        }
    }
}

} // namespace

std::size_t AccountHeading::count() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(columns, [](const auto& column) { return column.has_value(); }));
}

AccountHeading accountHeadingIn(const PageRows& page, std::size_t at) {
    const Row& row = page.rows[at];
    if (hasFirmAmounts(row) || row.words.empty()) {
        return {.row = at};
    }
    std::vector<Row> cells = cellRowsOf(row);
    AccountHeading heading = headingOf(cells, at, page.isRecognised);
    if (cells.size() > 1 && heading.count() > 0 && heading.count() < amountsBelow(page, at)) {
        AccountHeading split{.row = at};
        for (const Row& cell : cells) {
            splitHeading(cell, page.isRecognised, split);
        }
        heading = split.count() > heading.count() ? split : heading;
    }
    const bool goesOn = at + 1 < page.rows.size() && !hasFirmAmounts(page.rows[at + 1])
                        && page.rows[at + 1].top - row.bottom < row.height();
    if (goesOn && cells.size() >= 3 && !page.rows[at + 1].words.empty()
        && cellRowsOf(page.rows[at + 1]).size() >= 2) {
        addLine(cells, page.rows[at + 1]);
        const AccountHeading both = headingOf(cells, at + 1, page.isRecognised);
        return both.count() >= heading.count() ? both : heading;
    }
    return heading;
}

Figures figuresByColumn(const PageRows& page, std::size_t at, const AccountHeading& heading) {
    Figures figures;
    std::array<double, figureCount> distances{};
    distances.fill(page.width / 10);
    for (const RowAmount& amount : page.rows[at].amounts) {
        std::size_t nearest = figureCount;
        double least = page.width / 10;
        for (std::size_t i = 0; i < figureCount; ++i) {
            if (heading.columns[i] && columnDistance(amount, *heading.columns[i]) < least) {
                least = columnDistance(amount, *heading.columns[i]);
                nearest = i;
            }
        }
        const bool isLarge = !amount.amount.isYearLike() && amount.amount.value >= 1000;
        if (nearest < figureCount && (amount.amount.isFirm() || isLarge)
            && least < distances[nearest]) {
            figures[nearest] = FoundAmount{
                .page = &page, .row = at, .amount = amount, .label = heading.words[nearest]};
            distances[nearest] = least;
        }
    }
    return figures;
}

Figures figuresByLabel(const RowRange& range) {
    Figures figures;
    for (std::size_t i = 0; i < figureCount; ++i) {
        figures[i] = findFirst({range}, wantedOf(static_cast<Figure>(i)));
    }
    findInterestByTax(range, figures);
    return figures;
}

std::optional<ProposalCheck> movementCheck(const RowRange& range, const FoundAmount& closing) {
    static const Wanted opening{{"Anfangssaldo", "Eröffnungssaldo", "Saldovortrag",
                                 "Saldo per 01.01.*", "Saldo am 01.01*", "Solde initial",
                                 "Solde d'ouverture", "Saldo iniziale", "Saldo di apertura"},
                                {}};
    static const Wanted credits{
        {"Total Gutschriften", "Gutschriften", "Eingänge", "Crédits", "Accrediti"}, {}};
    static const Wanted debits{
        {"Total Belastungen", "Belastungen", "Ausgänge", "Débits", "Addebiti"}, {}};
    const auto first = findFirst({range}, opening);
    const auto in = findFirst({range}, credits);
    const auto out = findFirst({range}, debits);
    if (!first || !in || !out) {
        return std::nullopt;
    }
    const Decimal computed = first->value() + in->value().abs() - out->value().abs();
    const bool holds = computed == closing.value();
    return ProposalCheck{"Anfangssaldo + Gutschriften − Belastungen = " + shown(computed)
                             + (holds ? "" : ", als Schlusssaldo steht " + shown(closing.value())),
                         holds};
}

std::vector<ProposalCheck> interestChecks(const Figures& figures) {
    std::vector<ProposalCheck> checks;
    const auto& gross = figures[static_cast<std::size_t>(Figure::interest)];
    const auto& tax = figures[static_cast<std::size_t>(Figure::withholding)];
    const auto& net = figures[static_cast<std::size_t>(Figure::netInterest)];
    if (gross && tax && !tax->value().isZero()) {
        const Decimal computed = (gross->value() * 35 / 100).roundPlain(2);
        const bool holds = (computed - tax->value().abs()).abs() <= Decimal(5) / 100;
        checks.push_back(
            {"35 % von " + shown(gross->value()) + " = " + shown(computed)
                 + (holds ? "" : ", als Verrechnungssteuer steht " + shown(tax->value().abs())),
             holds});
    }
    if (gross && net) {
        const Decimal computed = gross->value() - (tax ? tax->value().abs() : Decimal());
        const bool holds = computed == net->value();
        checks.push_back({"Brutto − Verrechnungssteuer = " + shown(computed)
                              + (holds ? "" : ", netto steht aber " + shown(net->value())),
                          holds});
    }
    return checks;
}

} // namespace fiscarel
