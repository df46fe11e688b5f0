#include "tests/cloud/EditJournal.h"

#include <algorithm>

namespace fiscarel::testing {

namespace {

std::optional<std::string> at(const FlatState& state, const std::string& place) {
    const std::string* const found = state.find(place);
    return found ? std::optional(*found) : std::nullopt;
}

/// A conflict's place as the flat state names it.
std::string placeOf(const MergeConflict& conflict) {
    if (conflict.year == 0) {
        return conflict.path;
    }
    const std::string year = "cases[" + std::to_string(conflict.year) + "]";
    return conflict.path.empty() ? year : year + "." + conflict.path;
}

int yearOf(const std::string& place) {
    return place.starts_with("cases[") ? std::stoi(place.substr(6)) : 0;
}

/// Whether a value is the one of a place in a new case or in a new item of a list, or none.
bool isNew(const std::string& place, const std::optional<std::string>& value) {
    if (!value
        || (place.find('[', 6) != std::string::npos
            && (value == "\"\"" || value == "0" || value == "false"))) {
        return true;
    }
    const int year = yearOf(place);
    PersistedState fresh;
    fresh.cases[year] = taxcore::TaxCase{.year = year, .li = taxcore::LIExtras{}};
    return year != 0 && at(FlatState(fresh), place) == value;
}

} // namespace

void EditJournal::record(
    const std::string& who, const PersistedState& before, const PersistedState& after,
    const std::function<std::vector<SharedStatePointer>(const std::string&)>& common) {
    if (before == after) {
        return;
    }
    const FlatState was(before);
    const FlatState is(after);
    std::map<std::string, std::vector<FlatState>> bases; // by machine, as they are needed
    const auto isInCommon = [&](const std::string& machine, const std::string& place,
                                const std::optional<std::string>& value) {
        const auto [known, isNew] = bases.try_emplace(machine);
        for (const SharedStatePointer& one :
             isNew ? common(machine) : std::vector<SharedStatePointer>{}) {
            known->second.emplace_back(one->state);
        }
        return std::ranges::any_of(known->second,
                                   [&](const FlatState& base) { return at(base, place) == value; });
    };
    const auto add = [&](const std::string& place, const std::optional<std::string>& value) {
        Edit edit{who, place, value, false, beforeJoining};
        std::set<std::string> editors;
        for (const Edit& earlier : edits_) {
            if (earlier.place == place) {
                editors.insert(earlier.who);
            }
        }
        edit.takesBack = std::ranges::any_of(
            editors, [&](const std::string& machine) { return isInCommon(machine, place, value); });
        // A record that both sides made: what is as in a new one yields.
        edit.isLenient = edit.isLenient || (!at(was, place) && isNew(place, value));
        edits_.push_back(std::move(edit));
    };
    for (const auto& [place, value] : is.leaves) {
        if (at(was, place) != value) {
            add(place, value);
        }
    }
    for (const auto& [place, value] : was.leaves) {
        if (!is.leaves.contains(place)) {
            add(place, std::nullopt);
        }
    }
}

void EditJournal::excuse(const std::string& who, std::size_t from) {
    for (std::size_t i = from; i < edits_.size(); ++i) {
        edits_[i].isExcused = edits_[i].isExcused || edits_[i].who == who;
    }
}

void EditJournal::shown(const std::vector<MergeConflict>& conflicts) {
    for (const MergeConflict& conflict : conflicts) {
        const std::string text = placeOf(conflict) + "\n" + conflict.ours.value_or("-") + "\n"
                                 + conflict.theirs.value_or("-");
        if (conflicts_.insert(text).second) {
            all_.push_back(conflict);
        }
    }
}

/// By a later edit of the same place, or by a later removal of what it lies in.
bool EditJournal::isReplaced(std::size_t index) const {
    const Edit& edit = edits_[index];
    return std::any_of(
        edits_.begin() + static_cast<std::ptrdiff_t>(index) + 1, edits_.end(),
        [&](const Edit& later) {
            const bool removesWhole = !later.value && later.place.ends_with('?');
            return !later.isExcused
                   && (later.place == edit.place
                       || (removesWhole
                           && FlatState::isWithin(edit.place,
                                                  later.place.substr(0, later.place.size() - 1))));
        });
}

bool EditJournal::isShown(const Edit& edit) const {
    return std::ranges::any_of(all_, [&](const MergeConflict& conflict) {
        const std::string place = placeOf(conflict);
        if (place == edit.place) {
            return conflict.ours == edit.value || conflict.theirs == edit.value;
        }
        return FlatState::isWithin(edit.place, place);
    });
}

bool EditJournal::isLenient(const Edit& edit) const {
    return (isLenient_ || edit.isLenient || lenientYears_.contains(yearOf(edit.place)))
           && isNew(edit.place, edit.value);
}

std::vector<std::string> EditJournal::lost(const PersistedState& end) const {
    const FlatState final(end);
    std::vector<std::string> lost;
    for (std::size_t i = 0; i < edits_.size(); ++i) {
        const Edit& edit = edits_[i];
        if (edit.isExcused || edit.takesBack || at(final, edit.place) == edit.value || isShown(edit)
            || isReplaced(i) || isLenient(edit)) {
            continue;
        }
        std::string told = edit.who + ": " + edit.place + " = " + edit.value.value_or("(removed)")
                           + ", in the end " + at(final, edit.place).value_or("(none)") + "; edit "
                           + std::to_string(i) + ", the place's:";
        for (std::size_t j = 0; j < edits_.size(); ++j) {
            if (edits_[j].place == edit.place) {
                told += " " + std::to_string(j) + " " + edits_[j].who + " "
                        + edits_[j].value.value_or("(removed)")
                        + (edits_[j].isExcused ? " (not saved)" : "");
            }
        }
        lost.push_back(std::move(told));
    }
    return lost;
}

} // namespace fiscarel::testing
