#include "Fiscarel_SG/forms/UnreadCells.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/CellText.h"
#include "Fiscarel_SG/forms/UnreadNotice.h"
#include "Fiscarel_SG/look/QtText.h"

#include <cstdlib>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The path by which a field is found again wherever its record goes.
std::string lasting(const TaxCase& taxCase, const std::string& path) {
    return taxcore::lastingPath(taxCase, path).value_or(path);
}

/// The cells of which only one of two knows a text, or each another one.
std::set<UnreadCells::Cell>
difference(const std::map<UnreadCells::Cell, UnreadCells::Unread>& one,
           const std::map<UnreadCells::Cell, UnreadCells::Unread>& other) {
    std::set<UnreadCells::Cell> cells;
    for (const auto& [some, others] : {std::pair(&one, &other), std::pair(&other, &one)}) {
        for (const auto& [cell, unread] : *some) {
            const auto same = others->find(cell);
            if (same == others->end() || same->second.text != unread.text) {
                cells.insert(cell);
            }
        }
    }
    return cells;
}

} // namespace

UnreadCells::UnreadCells(const ListCard& card, const std::vector<BoundField>& columns,
                         AppStore& store, std::string pageId)
    : card_(card), columns_(columns), store_(store), pageId_(std::move(pageId)),
      year_(store.year()) {}

const UnreadCells::Unread* UnreadCells::at(const Cell& cell) const {
    const auto found = cells_.find(cell);
    return found != cells_.end() ? &found->second : nullptr;
}

std::optional<UnreadCells::Cell> UnreadCells::toTell() const {
    if (latestCell_ || cells_.empty()) {
        return latestCell_;
    }
    return cells_.begin()->first;
}

void UnreadCells::set(const Texts& texts) {
    const TaxCase& taxCase = store_.cases().at(year_);
    std::map<std::string, std::optional<UnreadText>> told;
    for (const auto& [cell, text] : texts) {
        const BoundField& column = columns_[static_cast<std::size_t>(cell.second)];
        const BoundField field = card_.fields(cell.first)[static_cast<std::size_t>(cell.second)];
        std::optional<UnreadText>& entry = told[field.path];
        const auto read = readCell(column, text.value_or(QString()), year_);
        if (!text || read) {
            continue;
        }
        latest_ = lasting(taxCase, field.path);
        under_[latest_] = field.get(taxCase);
        entry = unreadNotice(field, {.text = *text,
                                     .label = qs(card_.title + ": " + field.label),
                                     .problem = read.error(),
                                     .before = under_[latest_],
                                     .pageId = pageId_});
    }
    store_.setUnread(year_, std::move(told));
}

void UnreadCells::setPasted(const Texts& texts, const TaxCase& before) {
    const TaxCase& now = store_.current();
    paste_.reset();
    if (!(before == now)) { // otherwise there is nothing to undo
        paste_ = Paste{before, {}};
        for (const auto& [cell, text] : texts) {
            const auto column = static_cast<std::size_t>(cell.second);
            if (text) {
                paste_->paths.insert(lasting(now, card_.fields(cell.first)[column].path));
            }
        }
    }
    set(texts);
}

/// "donations[2].amount" as row and column.
std::optional<UnreadCells::Cell> UnreadCells::cellAt(const std::string& path) const {
    const std::size_t end = path.find(']', card_.path.size());
    if (!path.starts_with(card_.path + "[") || end == std::string::npos) {
        return std::nullopt;
    }
    const std::string first = card_.path + "[0" + path.substr(end);
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        if (columns_[column].path == first) {
            return Cell(std::strtoul(path.c_str() + card_.path.size() + 1, nullptr, 10),
                        static_cast<int>(column));
        }
    }
    return std::nullopt;
}

/// Whether a text belongs to its cell no longer, with what the cell holds by now.
bool UnreadCells::isOver(const std::string& path, const Value& now, bool isPasteTakenBack) const {
    const auto under = under_.find(path);
    return (under != under_.end() && under->second != now)
           || (isPasteTakenBack && paste_->paths.contains(path));
}

std::set<UnreadCells::Cell> UnreadCells::follow() {
    if (store_.year() != year_) {
        return {}; // the table gives way to that of another year
    }
    const TaxCase& taxCase = store_.current();
    const bool isPasteTakenBack = paste_ && paste_->before == taxCase;
    std::map<std::string, std::optional<UnreadText>> gone;
    std::map<Cell, Unread> found;
    latestCell_.reset();
    for (const auto& [year, path] : store_.unreadPlaces()) {
        const auto cell = year == year_ ? cellAt(path) : std::nullopt;
        const std::string* const text = cell ? store_.unreadText(path) : nullptr;
        if (text == nullptr) {
            continue;
        }
        const auto column = static_cast<std::size_t>(cell->second);
        const std::string key = lasting(taxCase, path);
        const Value now = card_.fields(cell->first)[column].get(taxCase);
        const auto read = readCell(columns_[column], qs(*text), year_);
        if (read || isOver(key, now, isPasteTakenBack)) {
            under_.erase(key);
            gone[path] = std::nullopt;
            continue;
        }
        under_.try_emplace(key, now);
        found[*cell] = {qs(*text), read.error()};
        if (key == latest_) {
            latestCell_ = cell;
        }
    }
    if (isPasteTakenBack) {
        paste_.reset();
    }
    std::set<Cell> changed = difference(cells_, found);
    cells_ = std::move(found);
    store_.setUnread(year_, std::move(gone)); // who hears it and follows finds nothing more to do
    return changed;
}

} // namespace fiscarel::forms
