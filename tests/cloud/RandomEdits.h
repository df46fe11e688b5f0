#pragma once

#include "Fiscarel_SG/store/PersistedState.h"
#include "tests/support/RandomCase.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace fiscarel::testing {

using namespace taxcore;

/// Small random states and random edits of them, anywhere in them; the same seed makes the same.
class RandomEdits {
  public:
    explicit RandomEdits(std::uint64_t seed) : draw_(seed) {}

    PersistedState state() {
        PersistedState made;
        for (int year = 2024; year < 2026; ++year) {
            made.cases[year] = draw_.next();
            made.cases[year].year = year;
        }
        for (std::size_t i = below(5); i > 0; --i) {
            fill(made.documents.emplace_back());
        }
        for (std::size_t i = below(4); i > 0; --i) {
            edit(made.transferChecked);
        }
        if (!made.documents.empty()) {
            link(made);
        }
        return made;
    }

    void edit(PersistedState& state, std::size_t count) {
        for (; count > 0; --count) {
            switch (below(8)) {
            case 0:
                edit(state.transferChecked);
                break;
            case 1:
            case 2:
                edit(state.documents);
                break;
            case 3:
                editYears(state.cases);
                break;
            case 4:
                link(state);
                break;
            default:
                if (!state.cases.empty()) {
                    edit(std::next(state.cases.begin(), at(state.cases.size()))->second);
                }
            }
        }
    }

    std::size_t below(std::size_t limit) { return draw_.below(limit); }

  private:
    std::ptrdiff_t at(std::size_t size) { return static_cast<std::ptrdiff_t>(below(size)); }

    void fill(StoredDocument& document) {
        draw_.fill(document.id);
        document.year = 2025;
        draw_.fill(document.title);
        draw_.fill(document.note);
    }
    template <class T>
    void fill(T& value) {
        draw_.fill(value);
    }
    void fill(Moment& moment) { moment.seconds = static_cast<std::int64_t>(below(1'000)); }
    template <class T>
    void fill(std::optional<T>& value) {
        fill(value.emplace());
    }
    void fill(std::vector<AppliedValue>& list) {
        list.resize(1 + below(3));
        for (AppliedValue& value : list) {
            fill(value);
        }
    }

    template <class T>
    void edit(T& value) {
        if constexpr (Record<T>) {
            const std::size_t chosen = below(fieldCount<T>);
            std::size_t index = 0;
            forEachField(value, [&](std::string_view name, auto& field) {
                const bool isIdentity = name == "id" || name == "year";
                if (index++ == chosen && !isIdentity) {
                    edit(field);
                }
            });
        } else {
            fill(value);
        }
    }
    template <class T>
    void edit(std::optional<T>& value) {
        if (value && below(3) == 0) {
            value.reset();
        } else if (value && below(2) == 0) {
            edit(*value);
        } else {
            fill(value.emplace());
        }
    }
    template <class T>
    void edit(std::vector<T>& list) {
        const std::size_t what = list.empty() ? 0 : below(5);
        if (what == 0) {
            T item;
            fill(item);
            list.insert(list.begin() + at(list.size() + 1), item);
            return;
        }
        const auto item = list.begin() + at(list.size());
        if (what == 1) {
            list.erase(item);
        } else if (what == 2) {
            std::rotate(list.begin(), item, list.end());
        } else {
            edit(*item);
        }
    }
    void edit(std::map<int, std::set<std::string>>& ticks) {
        std::set<std::string>& ofYear = ticks[2024 + static_cast<int>(below(2))];
        const std::string row = std::to_string(below(6));
        if (ofYear.erase(row) == 0) {
            ofYear.insert(row);
        }
    }
    void editYears(std::map<int, TaxCase>& cases) {
        const int year = 2024 + static_cast<int>(below(4));
        if (!cases.contains(year)) {
            cases[year] = TaxCase{.year = year};
        } else if (below(4) == 0) {
            cases.erase(year);
        }
    }
    void link(PersistedState& state) {
        if (state.documents.empty() || state.cases.empty()) {
            return;
        }
        auto& donations = state.cases.rbegin()->second.householdDeductions.donations;
        if (donations.empty()) {
            fill(donations.emplace_back());
        }
        donations[below(donations.size())].documentID =
            state.documents[below(state.documents.size())].id;
    }

    taxcore::testing::RandomCase draw_;
};

} // namespace fiscarel::testing
