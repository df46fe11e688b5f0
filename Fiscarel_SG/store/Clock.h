#pragma once

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Moment.h"

#include <string>

namespace fiscarel {

using taxcore::Moment;

/// The time of day where the user is.
struct LocalTime {
    taxcore::Date date;
    int hour = 0;
    int minute = 0;
    int second = 0;

    /// "2026-03-01", as daily backups are named.
    std::string dayStamp() const;
    /// "2026-03-01-140509", as labelled backups are named.
    std::string secondStamp() const;

    bool operator==(const LocalTime&) const = default;
};

/// What time it is. Any thread may ask.
class Clock {
  public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    virtual Moment now() const = 0;
    /// An instant on the clocks of the user's time zone.
    virtual LocalTime localTime(Moment moment) const = 0;

    LocalTime local() const { return localTime(now()); }
};

/// The clock and the time zone of this machine.
class SystemClock final : public Clock {
  public:
    Moment now() const override;
    LocalTime localTime(Moment moment) const override;
};

} // namespace fiscarel
