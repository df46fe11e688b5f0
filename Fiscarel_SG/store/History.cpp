#include "Fiscarel_SG/store/History.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

void History::record(Edit edit) {
    undone_.clear();
    if (merge(edit)) {
        return;
    }
    done_.push_back(std::move(edit));
    if (done_.size() > longest) {
        done_.erase(done_.begin());
    }
    mayMerge_ = true;
}

/// Whether the edit became part of the last one.
bool History::merge(const Edit& edit) {
    if (!mayMerge_ || done_.empty() || edit.mergeKey.empty()) {
        return false;
    }
    Edit& last = done_.back();
    if (last.mergeKey != edit.mergeKey || edit.at.seconds - last.at.seconds > mergeSeconds) {
        return false;
    }
    last.cases.front().after = edit.cases.front().after;
    last.at = edit.at;
    // Typing something and taking it back letter by letter is no edit.
    if (*last.cases.front().before == *last.cases.front().after) {
        done_.pop_back();
        mayMerge_ = false;
    }
    return true;
}

std::optional<std::string> History::undoName() const {
    return done_.empty() ? std::nullopt : std::optional(done_.back().name);
}

std::optional<std::string> History::redoName() const {
    return undone_.empty() ? std::nullopt : std::optional(undone_.back().name);
}

std::optional<Edit> History::undo(PersistedState& state) {
    mayMerge_ = false;
    return step(done_, undone_, Direction::back, state);
}

std::optional<Edit> History::redo(PersistedState& state) {
    mayMerge_ = false;
    return step(undone_, done_, Direction::forth, state);
}

std::optional<Edit> History::step(std::vector<Edit>& from, std::vector<Edit>& to,
                                  Direction direction, PersistedState& state) {
    while (!from.empty()) {
        Edit edit = std::move(from.back());
        from.pop_back();
        if (apply(edit, direction, state)) {
            to.push_back(edit);
            return edit;
        }
    }
    return std::nullopt;
}

namespace {

/// The document with the change made in it; absent when it is gone or holds something else by now.
std::optional<StoredDocument> changed(const Edit::OfDocument& edit, bool back,
                                      const std::vector<StoredDocument>& documents) {
    const StoredDocument& from = back ? edit.after : edit.before;
    const StoredDocument& to = back ? edit.before : edit.after;
    const auto found = std::ranges::find(documents, from.id, &StoredDocument::id);
    if (found == documents.end()) {
        return std::nullopt;
    }
    StoredDocument document = *found;
    bool applies = true;
    boost::mp11::mp_for_each<taxcore::Fields<StoredDocument>>([&](auto field) {
        if (from.*field.pointer != to.*field.pointer) {
            applies = applies && document.*field.pointer == from.*field.pointer;
            document.*field.pointer = to.*field.pointer;
        }
    });
    return applies ? std::optional(document) : std::nullopt;
}

} // namespace

/// False, with the state unchanged, when the edit does not apply.
bool History::apply(const Edit& edit, Direction direction, PersistedState& state) {
    const bool back = direction == Direction::back;
    std::vector<std::pair<int, taxcore::TaxCase>> cases;
    for (const Edit::OfCase& part : edit.cases) {
        const auto found = state.cases.find(part.year);
        if (found == state.cases.end() && part.after) {
            return false;
        }
        // What was removed is as a new case, which the selected year has in its place.
        const taxcore::TaxCase fresh{.year = part.year};
        const taxcore::TaxCase& after = part.after ? *part.after : fresh;
        auto& taxCase =
            cases.emplace_back(part.year, found == state.cases.end() ? fresh : found->second)
                .second;
        const bool applies =
            rebase(back ? after : *part.before, back ? *part.before : after, taxCase);
        if (!applies || (!back && !part.after && taxCase != fresh)) {
            return false;
        }
    }
    std::optional<StoredDocument> document;
    if (edit.document) {
        document = changed(*edit.document, back, state.documents);
        if (!document) {
            return false;
        }
    }
    if (edit.removed) {
        auto& documents = state.documents;
        const auto found =
            std::ranges::find(documents, edit.removed->document.id, &StoredDocument::id);
        if ((found == documents.end()) == (direction == Direction::forth)) {
            return false;
        }
        if (direction == Direction::forth) {
            documents.erase(found);
        } else {
            const std::size_t at = std::min(edit.removed->position, documents.size());
            documents.insert(documents.begin() + static_cast<std::ptrdiff_t>(at),
                             edit.removed->document);
        }
    }
    if (document) {
        *std::ranges::find(state.documents, document->id, &StoredDocument::id) = *document;
    }
    for (auto& [year, taxCase] : cases) {
        state.cases[year] = std::move(taxCase);
    }
    for (const Edit::OfCase& part : edit.cases) {
        if (!back && !part.after) {
            state.cases.erase(part.year);
        }
    }
    return true;
}

void History::dropStale(const PersistedState& state) {
    mayMerge_ = false;
    dropStale(done_, Direction::back, state);
    dropStale(undone_, Direction::forth, state);
}

void History::dropStale(std::vector<Edit>& edits, Direction direction, PersistedState state) {
    // The newest applies to the state as it is, each earlier one to what the later ones leave.
    std::ranges::reverse(edits);
    std::erase_if(edits, [&](const Edit& edit) { return !apply(edit, direction, state); });
    std::ranges::reverse(edits);
}

} // namespace fiscarel
