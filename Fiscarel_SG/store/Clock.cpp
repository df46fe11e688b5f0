#include "Fiscarel_SG/store/Clock.h"

#include <chrono>
#include <ctime>

namespace fiscarel {

namespace {

std::string twoDigits(int value) {
    return {static_cast<char>('0' + value / 10), static_cast<char>('0' + value % 10)};
}

} // namespace

std::string LocalTime::dayStamp() const { return date.toString().substr(0, 10); }

std::string LocalTime::secondStamp() const {
    return dayStamp() + "-" + twoDigits(hour) + twoDigits(minute) + twoDigits(second);
}

Moment SystemClock::now() const {
    using namespace std::chrono;
    return {floor<seconds>(system_clock::now()).time_since_epoch().count()};
}

LocalTime SystemClock::localTime(Moment moment) const {
    const auto time = static_cast<std::time_t>(moment.seconds);
    std::tm parts = {};
    localtime_r(&time, &parts);
    return {taxcore::Date::of(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday)
                .value_or(taxcore::Date{}),
            parts.tm_hour, parts.tm_min, parts.tm_sec};
}

} // namespace fiscarel
