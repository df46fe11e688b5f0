#pragma once

#include "Fiscarel_SG/cloud/CloudStatus.h"

#include <QDateTime>
#include <QString>
#include <cstddef>
#include <cstdint>

namespace fiscarel::pages {

// How the backup stands, in words. Times are told as of the machine's zone.

/// For the foot of the sidebar.
struct CloudLine {
    QString text;          ///< empty for who never signed in
    bool asksUser = false; ///< something on the page waits for the user

    bool operator==(const CloudLine&) const = default;
};
CloudLine cloudLine(const CloudStatus& status, const QDateTime& now);
/// How many questions and conflicts wait for the user.
std::size_t openPoints(const CloudStatus& status);

/// What is going on with a machine that is signed in, in one or two sentences.
QString cloudState(const CloudStatus& status, const QDateTime& now);
/// "12.4 MB von 1 GB belegt", of 1024 × 1024 bytes each, as the limits are set.
QString spaceText(std::int64_t used, std::int64_t allowed);
/// "das Steuerjahr 2024, 132 von 140 Angaben und 5 von 6 Belegen"
QString lossText(const StateLoss& loss);

} // namespace fiscarel::pages
