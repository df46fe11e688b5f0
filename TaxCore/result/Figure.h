#pragma once

#include "TaxCore/result/Derivation.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace taxcore {

/// What a figure of the bill is called and counts.
struct Figure {
    std::string_view code; ///< the name of its field
    std::string_view label;
    Concerns concerns = Concerns::canton;
    Unit unit = Unit::francs;
};

/// Keeps the derivation of a figure and hands the figure on.
template <class Recorder, class Explain>
Decimal figure(Recorder& recorder, const Figure& head, const Decimal& amount,
               const Explain& explain) {
    if constexpr (Recorder::enabled) {
        auto why = recorder.draft(head.concerns);
        explain(why);
        recorder.keep(std::string(head.code), std::string(head.label), std::move(why), both(amount),
                      head.unit);
    }
    return amount;
}

/// A figure of the bill that another one builds on.
struct FigurePart {
    std::string_view code;
    std::string_view label;
    Decimal amount;
};

/// The key of an item of a list in a rule file: "gemeinden[3]".
inline std::string itemKey(std::string_view list, std::size_t index) {
    return std::string(list) + "[" + std::to_string(index) + "]";
}

/// The position of the first item of a name.
template <class T>
std::optional<std::size_t> positionOf(const std::vector<T>& items, std::string_view name) {
    const auto found = std::ranges::find(items, name, &T::name);
    return found == items.end() ? std::nullopt
                                : std::optional(static_cast<std::size_t>(found - items.begin()));
}

} // namespace taxcore
