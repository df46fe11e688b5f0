#include "TaxCore/base/Date.h"

#include "TaxCore/base/IsoDateTime.h"

namespace taxcore {

std::optional<Date> Date::of(int y, int m, int d) noexcept {
    if (y < 1 || y > 9999 || m < 1 || m > 12 || d < 1 || d > 31) {
        return std::nullopt;
    }
    if (!(std::chrono::year{y} / std::chrono::month{static_cast<unsigned>(m)}
          / std::chrono::day{static_cast<unsigned>(d)})
             .ok()) {
        return std::nullopt;
    }
    Date date;
    date.year_ = static_cast<short>(y);
    date.month_ = static_cast<signed char>(m);
    date.day_ = static_cast<signed char>(d);
    return date;
}

std::optional<Date> Date::parse(std::string_view text) noexcept {
    using namespace std::chrono;
    const auto written = IsoDateTime::parse(text);
    if (!written || !written->time) {
        return written ? std::optional(written->date) : std::nullopt;
    }
    sys_seconds local = midnight(written->date) + written->time->sinceMidnight;
    if (written->time->offset) {
        const sys_seconds utc = written->utc();
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
