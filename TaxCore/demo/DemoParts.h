#pragma once

#include "TaxCore/base/Date.h"
#include "TaxCore/base/Uuid.h"

#include <cstddef>
#include <string>

namespace taxcore::DemoData {

/// Fixed identities, so that a demo is the same every time.
inline Uuid demoId(int number) {
    std::string text = "0DE30000-0000-4000-8000-000000000000";
    for (std::size_t at = text.size() - 1; number > 0; --at, number /= 10) {
        text[at] = static_cast<char>('0' + number % 10);
    }
    return Uuid::parse(text).value_or(Uuid());
}

inline Date day(int year, int month, int dayOfMonth) {
    return Date::of(year, month, dayOfMonth).value_or(Date());
}

} // namespace taxcore::DemoData
