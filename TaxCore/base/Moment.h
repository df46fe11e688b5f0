#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace taxcore {

/// An instant, to the second.
struct Moment {
    std::int64_t seconds = 0; ///< since 1970-01-01T00:00:00Z, without leap seconds

    /// Reads an ISO 8601 date or date-time with any offset; without one it is Swiss local time.
    /// Fractions of a second are cut. Absent for any other text.
    static std::optional<Moment> parse(std::string_view text) noexcept;

    /// The form kept in files, in UTC: "2026-03-01T13:05:09Z". Instants outside the years 1 to 9999
    /// are written as the nearest one within.
    std::string toString() const;

    friend constexpr auto operator<=>(const Moment&, const Moment&) noexcept = default;
};

} // namespace taxcore

template <>
struct std::hash<taxcore::Moment> {
    std::size_t operator()(const taxcore::Moment& moment) const noexcept {
        return std::hash<std::int64_t>{}(moment.seconds);
    }
};
