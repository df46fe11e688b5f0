#include "TaxCore/base/Moment.h"

#include "TaxCore/base/IsoDateTime.h"

#include <algorithm>

namespace taxcore {

std::optional<Moment> Moment::parse(std::string_view text) noexcept {
    const auto written = IsoDateTime::parse(text);
    return written ? std::optional(Moment{written->utc().time_since_epoch().count()})
                   : std::nullopt;
}

std::string Moment::toString() const {
    using namespace std::chrono;
    const sys_seconds first = sys_days{year{1} / January / 1};
    const sys_seconds last = sys_days{year{10'000} / January / 1} - std::chrono::seconds{1};
    const sys_seconds instant = std::clamp(sys_seconds{std::chrono::seconds{seconds}}, first, last);
    const auto day = floor<days>(instant);
    const year_month_day date{day};
    const hh_mm_ss time{instant - day};
    std::string text = Date::of(int{date.year()}, static_cast<int>(unsigned{date.month()}),
                                static_cast<int>(unsigned{date.day()}))
                           .value_or(Date{})
                           .toString();
    const auto put = [&](std::size_t at, auto value) {
        text[at] = static_cast<char>('0' + value / 10);
        text[at + 1] = static_cast<char>('0' + value % 10);
    };
    put(11, time.hours().count());
    put(14, time.minutes().count());
    put(17, time.seconds().count());
    return text;
}

} // namespace taxcore
