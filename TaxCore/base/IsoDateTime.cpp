#include "TaxCore/base/IsoDateTime.h"

#include <algorithm>
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

/// "Z", "+01:00", "+0100" or "+01"; no text at all is local time.
bool readOffset(Scanner& in, IsoDateTime::Time& time) noexcept {
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

/// The time behind the "T".
std::optional<IsoDateTime::Time> readTime(Scanner& in) noexcept {
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
    IsoDateTime::Time time;
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

} // namespace

std::chrono::seconds swissOffset(std::chrono::sys_seconds utc) noexcept {
    const auto [begin, end] = summerTime(year_month_day{floor<days>(utc)}.year());
    return utc >= begin && utc < end ? hours{2} : hours{1};
}

std::chrono::sys_seconds midnight(Date date) noexcept {
    return sys_days{year{date.year()} / month{static_cast<unsigned>(date.month())}
                    / day{static_cast<unsigned>(date.day())}};
}

std::optional<IsoDateTime> IsoDateTime::parse(std::string_view text) noexcept {
    Scanner in(text);
    const auto y = in.digits(4);
    const bool extended = in.accept('-');
    const auto m = in.digits(2);
    if (!y || !m || (extended && !in.accept('-'))) {
        return std::nullopt;
    }
    const auto d = in.digits(2);
    const auto date = d ? Date::of(*y, *m, *d) : std::nullopt;
    if (!date) {
        return std::nullopt;
    }
    if (in.atEnd()) {
        return IsoDateTime{*date, std::nullopt};
    }
    if (!in.accept('T') && !in.accept('t') && !in.accept(' ')) {
        return std::nullopt;
    }
    const auto time = readTime(in);
    return time ? std::optional(IsoDateTime{*date, time}) : std::nullopt;
}

std::chrono::sys_seconds IsoDateTime::utc() const noexcept {
    const sys_seconds written = midnight(date) + (time ? time->sinceMidnight : seconds{0});
    if (time && time->offset) {
        return written - *time->offset;
    }
    // The offset an hour before tells on which side of a change of the clocks the text stands.
    return written - swissOffset(written - swissOffset(written - hours{1}));
}

} // namespace taxcore
