#pragma once

#include "TaxCore/base/Date.h"

#include <chrono>
#include <optional>
#include <string_view>

// The reading of ISO 8601 texts behind `Date` and `Moment`.

namespace taxcore {

/// An ISO 8601 calendar date with, perhaps, a time of day.
struct IsoDateTime {
    Date date;
    struct Time {
        std::chrono::seconds sinceMidnight{0};      ///< up to 24 hours
        std::optional<std::chrono::seconds> offset; ///< of UTC; absent: Swiss local time
    };
    std::optional<Time> time;

    /// Absent for texts of any other form and for days and times that do not exist. Fractions of a
    /// second are skipped; a leap second and 24:00 are read as ISO 8601 allows them.
    static std::optional<IsoDateTime> parse(std::string_view text) noexcept;

    /// The instant; a date alone is its midnight, and what names no offset is Swiss local time.
    std::chrono::sys_seconds utc() const noexcept;
};

/// What Swiss clocks are ahead of UTC at an instant.
std::chrono::seconds swissOffset(std::chrono::sys_seconds utc) noexcept;

/// Midnight UTC of a day.
std::chrono::sys_seconds midnight(Date date) noexcept;

} // namespace taxcore
