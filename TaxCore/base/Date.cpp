#include "TaxCore/base/Date.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace taxcore {

namespace {

using namespace std::chrono;

/// A cursor over the digits and marks of an ISO 8601 text.
class Scanner {
  public:
    explicit Scanner(std::string_view text) noexcept : rest_(text) {}

    bool atEnd() const noexcept { return rest_.empty(); }

    bool accept(char mark) noexcept {
        if (rest_.empty() || rest_.front() != mark) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    /// Exactly `count` digits; absent when there are fewer.
    std::optional<int> digits(int count) noexcept {
        int value = 0;
        for (int i = 0; i < count; ++i) {
            if (!startsWithDigit()) {
                return std::nullopt;
            }
            value = value * 10 + (rest_.front() - '0');
            rest_.remove_prefix(1);
        }
        return value;
    }

    bool startsWithDigit() const noexcept {
        return !rest_.empty() && rest_.front() >= '0' && rest_.front() <= '9';
    }

    void skipDigits() noexcept {
        while (startsWithDigit()) {
            rest_.remove_prefix(1);
        }
    }

  private:
    std::string_view rest_;
};

struct TimeOfDay {
    seconds sinceMidnight{0};
    std::optional<seconds> offset; ///< absent: local time
};

/// "Z", "+01:00", "+0100" or "+01"; no text at all is local time.
bool readOffset(Scanner& in, TimeOfDay& time) noexcept {
    if (in.atEnd()) {
        return true;
    }
    if (in.accept('Z') || in.accept('z')) {
        time.offset = seconds{0};
        return in.atEnd();
    }
    const bool west = in.accept('-');
    if (!west && !in.accept('+')) {
        return false;
    }
    const auto hour = in.digits(2);
    if (!hour || *hour > 23) {
        return false;
    }
    int minute = 0;
    if (!in.atEnd()) {
        in.accept(':');
        const auto digits = in.digits(2);
        if (!digits || *digits > 59) {
            return false;
        }
        minute = *digits;
    }
    const seconds distance = hours{*hour} + minutes{minute};
    time.offset = west ? -distance : distance;
    return in.atEnd();
}

/// The time behind the "T". Fractions of a second do not matter for the day and are skipped; a
/// leap second and 24:00 are read as ISO 8601 allows them.
std::optional<TimeOfDay> readTime(Scanner& in) noexcept {
    const auto hour = in.digits(2);
    if (!hour || *hour > 24) {
        return std::nullopt;
    }
    int minute = 0;
    int second = 0;
    if (in.accept(':') || in.startsWithDigit()) {
        const auto digits = in.digits(2);
        if (!digits || *digits > 59) {
            return std::nullopt;
        }
        minute = *digits;
        if (in.accept(':') || in.startsWithDigit()) {
            const auto more = in.digits(2);
            if (!more || *more > 60) {
                return std::nullopt;
            }
            second = std::min(*more, 59); // a leap second belongs to the day it ends
            if (in.accept('.') || in.accept(',')) {
                if (!in.startsWithDigit()) {
                    return std::nullopt;
                }
                in.skipDigits();
            }
        }
    }
    if (*hour == 24 && (minute != 0 || second != 0)) {
        return std::nullopt;
    }
    TimeOfDay time;
    time.sinceMidnight = hours{*hour} + minutes{minute} + seconds{second};
    if (!readOffset(in, time)) {
        return std::nullopt;
    }
    return time;
}

/// The two instants between which Swiss summer time applied in a year; equal when it did not.
/// Switzerland had summer time in 1941 and 1942 and has had it without a break since 1981; it ended
/// in September until 1995 and ends in October since, always at 01:00 UTC since 1981.
std::pair<sys_seconds, sys_seconds> summerTime(year y) noexcept {
    if (y == year{1941}) {
        return {sys_days{y / May / 5}, sys_days{y / October / 6}};
    }
    if (y == year{1942}) {
        return {sys_days{y / May / 4}, sys_days{y / October / 5}};
    }
    if (y < year{1981}) {
        return {sys_seconds{}, sys_seconds{}};
    }
    const month end = y < year{1996} ? September : October;
    return {sys_days{y / March / Sunday[last]} + hours{1},
            sys_days{y / end / Sunday[last]} + hours{1}};
}

year_month_day calendarDay(int y, int m, int d) noexcept {
    return {year{y}, month{static_cast<unsigned>(m)}, day{static_cast<unsigned>(d)}};
}

seconds swissOffset(sys_seconds utc) noexcept {
    const auto [begin, end] = summerTime(year_month_day{floor<days>(utc)}.year());
    return utc >= begin && utc < end ? hours{2} : hours{1};
}

} // namespace

std::optional<Date> Date::of(int y, int m, int d) noexcept {
    if (y < 1 || y > 9999 || m < 1 || m > 12 || d < 1 || d > 31) {
        return std::nullopt;
    }
    if (!calendarDay(y, m, d).ok()) {
        return std::nullopt;
    }
    Date date;
    date.year_ = static_cast<short>(y);
    date.month_ = static_cast<signed char>(m);
    date.day_ = static_cast<signed char>(d);
    return date;
}

std::optional<Date> Date::parse(std::string_view text) noexcept {
    Scanner in(text);
    const auto y = in.digits(4);
    const bool extended = in.accept('-');
    const auto m = in.digits(2);
    if (!y || !m || (extended && !in.accept('-'))) {
        return std::nullopt;
    }
    const auto d = in.digits(2);
    const auto written = d ? of(*y, *m, *d) : std::nullopt;
    if (!written || in.atEnd()) {
        return written;
    }
    if (!in.accept('T') && !in.accept('t') && !in.accept(' ')) {
        return std::nullopt;
    }
    const auto time = readTime(in);
    if (!time) {
        return std::nullopt;
    }
    sys_seconds local = sys_days{calendarDay(*y, *m, *d)} + time->sinceMidnight;
    if (time->offset) {
        const sys_seconds utc = local - *time->offset;
        local = utc + swissOffset(utc);
    }
    const year_month_day swiss{floor<days>(local)};
    return of(int{swiss.year()}, static_cast<int>(unsigned{swiss.month()}),
              static_cast<int>(unsigned{swiss.day()}));
}

std::string Date::toString() const {
    std::string text = "0000-00-00T00:00:00Z";
    const auto put = [&](std::size_t lastDigit, int value, int count) {
        for (int i = 0; i < count; ++i, value /= 10) {
            text[lastDigit - static_cast<std::size_t>(i)] = static_cast<char>('0' + value % 10);
        }
    };
    put(3, year_, 4);
    put(6, month_, 2);
    put(9, day_, 2);
    return text;
}

int completedYears(Date birth, Date on) noexcept {
    const bool birthdayAhead =
        on.month() < birth.month() || (on.month() == birth.month() && on.day() < birth.day());
    return on.year() - birth.year() - (birthdayAhead ? 1 : 0);
}

} // namespace taxcore
