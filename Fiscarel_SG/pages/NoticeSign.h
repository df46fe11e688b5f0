#pragma once

#include "TaxCore/result/TaxResult.h"

#include <QString>

namespace fiscarel::pages {

/// How grave a notice is, in words, and the role of a label that says so.
struct NoticeSign {
    QString text;
    const char* role;

    static NoticeSign of(taxcore::Notice::Level level);
};

} // namespace fiscarel::pages
