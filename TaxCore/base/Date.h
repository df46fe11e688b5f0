#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace taxcore {

/// A calendar day of the Gregorian calendar, years 1 to 9999; always a day that exists.
class Date {
  public:
    /// 1 January of the year 1; a placeholder, never a meaningful day.
    constexpr Date() noexcept = default;

    /// Absent when the day does not exist (30 February, month 13, year 0).
    static std::optional<Date> of(int year, int month, int day) noexcept;

    /// Reads an ISO 8601 calendar date ("2015-03-01", "20150301") or date-time with or without
    /// offset ("2015-02-28T23:00:00Z", "2015-03-01T00:00+01:00"). A date-time with an offset
    /// counts as the day it falls on in Swiss local time; one without is local already. Absent for
    /// any other text and for days and times that do not exist.
    static std::optional<Date> parse(std::string_view text) noexcept;

    /// The form kept in files: midnight UTC, "2015-03-01T00:00:00Z".
    std::string toString() const;

    constexpr int year() const noexcept { return year_; }
    constexpr int month() const noexcept { return month_; }
    constexpr int day() const noexcept { return day_; }

    friend constexpr auto operator<=>(const Date&, const Date&) noexcept = default;

  private:
    short year_ = 1;
    signed char month_ = 1;
    signed char day_ = 1;
};

/// Age in completed years on a day; negative before birth. Somebody born on 29 February turns a
/// year older on 1 March of a common year.
int completedYears(Date birth, Date on) noexcept;

} // namespace taxcore

template <>
struct std::hash<taxcore::Date> {
    std::size_t operator()(const taxcore::Date& date) const noexcept {
        const auto part = [](int value) { return static_cast<std::size_t>(value); };
        return part(date.year()) * 512 + part(date.month()) * 32 + part(date.day());
    }
};
