#include "Fiscarel_SG/cloud/StateMerge.h"
#include "TaxCore/base/RecordMerge.h"

#include <algorithm>

namespace fiscarel {

namespace {

using namespace taxcore;

// Below these, half of what there was is an everyday edit.
constexpr std::size_t graveDocuments = 3;
constexpr std::size_t graveFields = 10;

struct Tally {
    std::size_t filled = 0;
    std::size_t lost = 0;

    bool isGrave(std::size_t least) const noexcept { return lost >= least && 2 * lost >= filled; }
};

/// Counts what differs from a new record, and what of it does so no longer; `after` is null when
/// all of it is gone.
template <class T>
void count(const T& before, const T* after, const T& fresh, Tally& tally) {
    if constexpr (Record<T>) {
        boost::mp11::mp_for_each<Fields<T>>([&](auto field) {
            if (!Identified<T> || std::string_view(field.name) != "id") {
                count(before.*field.pointer, after ? &(after->*field.pointer) : nullptr,
                      fresh.*field.pointer, tally);
            }
        });
    } else if constexpr (isList<T>) {
        const T none;
        const detail::KeyedItems items(before);
        const detail::KeyedItems left(after ? *after : none);
        for (const auto& key : items.keys()) {
            count(*items.find(key), left.find(key), {}, tally);
        }
    } else if constexpr (detail::mergesWithin<T>) {
        if (before) {
            count(*before, after ? detail::ifThere(*after) : nullptr, {}, tally);
        }
    } else if (before != fresh) {
        ++tally.filled;
        tally.lost += !after || *after == fresh ? 1U : 0U;
    }
}

} // namespace

StateLoss lossBetween(const PersistedState& before, const PersistedState& after) {
    StateLoss loss;
    for (const auto& [year, taxCase] : before.cases) {
        const auto found = after.cases.find(year);
        const TaxCase fresh{.year = taxCase.year};
        Tally tally;
        count(taxCase, found == after.cases.end() ? nullptr : &found->second, fresh, tally);
        loss.fields += tally.lost;
        loss.fieldsBefore += tally.filled;
        if (tally.filled > 0 && tally.lost == tally.filled) {
            loss.years.push_back(year);
        } else if (tally.isGrave(graveFields)) {
            loss.halvedYears.push_back(year);
        }
    }
    const detail::KeyedItems kept(after.documents);
    const detail::KeyedItems had(before.documents);
    loss.documentsBefore = before.documents.size();
    loss.documents = static_cast<std::size_t>(std::ranges::count_if(
        had.keys(), [&](const auto& document) { return !kept.contains(document); }));
    return loss;
}

bool StateLoss::isGrave() const noexcept {
    return !years.empty() || !halvedYears.empty()
           || Tally{documentsBefore, documents}.isGrave(graveDocuments)
           || Tally{fieldsBefore, fields}.isGrave(graveFields);
}

} // namespace fiscarel
