#pragma once

#include "Fiscarel_SG/forms/Page.h"

#include <QString>
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel {
class AppStore;
}

namespace fiscarel::forms {

/// What stands in the cells of a table and cannot be read. The store keeps it, by record and field;
/// here it is found by row and column, for the year the table was made for.
class UnreadCells {
  public:
    using Cell = std::pair<std::size_t, int>; ///< row and column, both from 0
    /// What stands in cells; absent: it can be read.
    using Texts = std::map<Cell, std::optional<QString>>;

    struct Unread {
        QString text;    ///< as it was typed
        QString problem; ///< German: why it cannot be read, one sentence
    };

    /// `columns` are the fields of the card, bound to its first record; both outlive this.
    UnreadCells(const ListCard& card, const std::vector<BoundField>& columns, AppStore& store,
                std::string pageId);

    /// Null when what stands there can be read.
    const Unread* at(const Cell& cell) const;
    std::size_t size() const noexcept { return cells_.size(); }
    /// What was put in last, or else the first one; absent when all can be read.
    std::optional<Cell> toTell() const;

    /// Tells the store what cells of records hold, all as one; then `follow` finds it.
    void set(const Texts& texts);
    /// The same for what is pasted: once the case is again what it was before, the texts go.
    void setPasted(const Texts& texts, const TaxCase& before);
    /// Whether the last paste stands; false without one.
    bool isPasted() const noexcept { return paste_.has_value(); }
    /// Finds the texts after a change. One goes when its cell got another value meanwhile, as by
    /// undoing, or when it can be read by now. The cells that hold something else than before.
    std::set<Cell> follow();

  private:
    /// A paste that can be taken back.
    struct Paste {
        TaxCase before;
        std::set<std::string> paths; ///< lasting ones
    };

    std::optional<Cell> cellAt(const std::string& path) const;
    bool isOver(const std::string& path, const Value& now, bool isPasteTakenBack) const;

    const ListCard& card_;
    const std::vector<BoundField>& columns_;
    AppStore& store_;
    const std::string pageId_;
    const int year_;
    std::map<Cell, Unread> cells_;
    std::map<std::string, Value> under_; ///< what fields hold below texts, by lasting path
    std::string latest_;                 ///< the lasting path of the text put in last
    std::optional<Cell> latestCell_;
    std::optional<Paste> paste_;
};

} // namespace fiscarel::forms
