#include "Fiscarel_SG/documents/rows/GridEdges.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace fiscarel {

namespace {

using Cells = std::vector<LabelPlace>;

/// Whether a cell is a bare number, maybe with its unit: a value where labels stand beside it.
bool isNumber(const Row& row, const LabelPlace& cell) {
    return lettersIn(row, cell) < 3 && hasDigit(row.words[cell.first].text);
}

} // namespace

std::vector<LabelPlace> headsOf(const Row& row) {
    constexpr double widestNumber = 14; // points; of a box, not an amount
    constexpr double farthest = 1.6;    // heights from it to its label
    Cells heads = cellsOf(row);
    for (std::size_t i = 0; i + 1 < heads.size();) {
        const bool isNear = heads[i + 1].left - heads[i].right < farthest * row.height();
        if (isNear && heads[i].first == heads[i].last
            && heads[i].right - heads[i].left < widestNumber && lettersIn(row, heads[i]) == 0
            && isNumber(row, heads[i])) {
            heads[i + 1].first = heads[i].first;
            heads[i + 1].left = heads[i].left;
            heads.erase(heads.begin() + static_cast<std::ptrdiff_t>(i));
        } else {
            ++i;
        }
    }
    return heads;
}

bool hasOnlyValues(const Row& row) {
    return hasFirmAmount(row) && std::ranges::all_of(cellsOf(row), [&](const LabelPlace& cell) {
               return roleOf(row, cell) != Role::text || isNumber(row, cell);
           });
}

std::vector<double> pairEdges(const Row& row, bool areBare) {
    std::vector<double> edges;
    bool isAfterAmount = false;
    bool hasLabel = false;
    for (const LabelPlace& cell : cellsOf(row)) {
        const Role role = areBare && isNumber(row, cell) ? Role::amount : roleOf(row, cell);
        if (role == Role::text) {
            if ((hasLabel && !isAfterAmount) || lettersIn(row, cell) < 4) {
                return {};
            }
            if (isAfterAmount) {
                edges.push_back(cell.left);
            }
            hasLabel = true;
            isAfterAmount = false;
        } else if (role == Role::amount) {
            if (isAfterAmount || !hasLabel) {
                return {};
            }
            isAfterAmount = true;
        }
    }
    return isAfterAmount ? edges : std::vector<double>();
}

bool crossesEdges(const Row& row, const std::vector<double>& edges) {
    return std::ranges::any_of(cellsOf(row), [&](const LabelPlace& cell) {
        return std::ranges::any_of(edges, [&](double edge) {
            return cell.left < edge - aligned && cell.right > edge - 1;
        });
    });
}

bool fitsEdges(const Row& row, const std::vector<double>& edges) {
    const bool begins = std::ranges::any_of(cellsOf(row), [&](const LabelPlace& cell) {
        return std::ranges::any_of(
            edges, [&](double edge) { return std::abs(cell.left - edge) <= aligned; });
    });
    return begins && !crossesEdges(row, edges);
}

bool repeatsAtEdges(const Row& row, const std::vector<double>& edges) {
    const Cells cells = cellsOf(row);
    return !cells.empty() && std::ranges::all_of(edges, [&](double edge) {
        return std::ranges::any_of(cells, [&](const LabelPlace& cell) {
            return std::abs(cell.left - edge) <= aligned
                   && row.words[cell.first].folded == row.words[cells.front().first].folded;
        });
    });
}

bool isLeftOf(const Row& row, const std::vector<double>& edges) {
    return !row.words.empty() && row.words.back().place.right < edges.front() - aligned;
}

bool hasOnlyLabels(const Row& row) {
    return std::ranges::all_of(headsOf(row), [&](const LabelPlace& cell) {
        return lettersIn(row, cell) >= 2 && !saysNone(row, cell);
    });
}

std::optional<std::vector<std::size_t>> gridColumns(const Row& labels, const Row& values) {
    const Cells heads = headsOf(labels);
    const Cells cells = cellsOf(values);
    std::vector<std::size_t> columns;
    bool hasText = false;
    bool isLeft = true;
    for (const LabelPlace& cell : cells) {
        const auto under = [&](const LabelPlace& head) {
            return cell.left < head.right && head.left < cell.right;
        };
        const auto head = std::ranges::find_if(heads, under);
        if (head == heads.end() || std::any_of(std::next(head), heads.end(), [&](const auto& one) {
                return under(one);
            })) {
            return std::nullopt;
        }
        const auto index = static_cast<std::size_t>(head - heads.begin());
        if (!columns.empty() && columns.back() >= index) {
            return std::nullopt;
        }
        columns.push_back(index);
        const Role role = roleOf(values, cell);
        const bool isLabel = role == Role::text && cells.size() > 1
                             && startsSmall(values.words[cell.first].text)
                             && !saysNone(values, cell);
        if (isLabel || (role == Role::text && hasFirmAmount(values, cell))) {
            return std::nullopt; // a sentence, or labels before their values
        }
        hasText |= role == Role::text;
        isLeft &= std::abs(cell.left - head->left) <= aligned;
    }
    // Amounts that stand to the right under their heading, after a name, are a table's.
    return columns.empty() || (hasText && !isLeft) ? std::nullopt : std::optional(columns);
}

namespace {

/// "0.9412": more decimals than francs have.
bool isExchangeRate(const Row& row, const LabelPlace& cell) {
    constexpr std::size_t fewest = 4; // decimals
    const std::string_view text = row.words[cell.first].text;
    const auto point = text.find('.');
    return cell.first == cell.last && point != std::string_view::npos && point <= 3
           && hasOnlyDigits(text.substr(0, point)) && hasOnlyDigits(text.substr(point + 1))
           && text.size() - point > fewest;
}

} // namespace

bool isGridOfBoxes(const Row& labels, const Row& values) {
    const Cells heads = headsOf(labels);
    const Cells cells = cellsOf(values);
    // Boxes with numbers may hold an account's number or a day as well.
    const bool areNumbered = std::ranges::all_of(heads, [&](const LabelPlace& head) {
        return head.last > head.first && hasOnlyDigits(labels.words[head.first].text);
    });
    const bool areFilled =
        areNumbered ? std::ranges::all_of(cells,
                                          [&](const LabelPlace& cell) {
                                              return roleOf(values, cell) != Role::text
                                                     || isNumber(values, cell);
                                          })
                    : std::ranges::all_of(cells, [&](const LabelPlace& cell) {
                          return roleOf(values, cell) != Role::text || isExchangeRate(values, cell);
                      });
    if (heads.size() < 2 || heads.size() != cells.size() || !hasFirmAmount(values) || !areFilled) {
        return false;
    }
    for (std::size_t i = 0; i < heads.size(); ++i) {
        const double end = i + 1 < heads.size() ? heads[i + 1].left : cells[i].right + 1;
        if (lettersIn(labels, heads[i]) < 3 || cells[i].left < heads[i].left - aligned
            || cells[i].right > end) {
            return false;
        }
    }
    return true;
}

bool isGridOfBoxes(const Row& labels, const Row& lines, const Row& values) {
    const Cells heads = cellsOf(labels);
    const Cells below = cellsOf(lines);
    return !hasFirmAmount(labels) && !hasFirmAmount(lines)
           && std::ranges::equal(heads, below,
                                 [](const LabelPlace& head, const LabelPlace& line) {
                                     return std::abs(head.left - line.left) <= aligned;
                                 })
           && isGridOfBoxes(labels, values);
}

} // namespace fiscarel
