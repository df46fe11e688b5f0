#pragma once

// Parts of the checks of a page that stand in files of their own, and what tips share with them.

#include "TaxCore/review/CheckContext.h"

namespace taxcore::review {

/// The children, on the page "family".
void checkChildren(CheckContext& c);
/// The salary certificates of one adult, on the page "income".
void checkSalaries(CheckContext& c, const Adult& adult);
/// Certificates that stand twice, in the whole household.
void checkRepeatedSalaries(CheckContext& c);
/// Professional costs by the rules of Liechtenstein, on the page "work".
void checkWorkInLiechtenstein(CheckContext& c, const LIRules& rules);

/// Days of the year as entered on the page "work".
struct WorkDays {
    std::string_view stem;  ///< of the notice's id
    std::string_view where; ///< how the sentence begins: "Beim Arbeitsweg"
    FieldPath path;
    int entered = 0;
};
/// More days than the region counts at most.
void checkDays(CheckContext& c, const Adult& adult, const WorkDays& days, int most);

/// School is compulsory about until this age.
inline constexpr int schoolLeavingAge = 16;

/// Whether somebody with a room at the place of work drives there from home on more days than once
/// a week and in the months without the room.
bool drivesDailyBesideWeeklyStay(const WorkExpenses& work, const BerufskostenParams& rules);

/// Whether a property without the code of Liechtenstein is probably there all the same: it lies in
/// a municipality of the country, or its code is missing or still that of a new entry.
bool mayBeAtHome(const RealEstate& property, const LIRules& rules);

} // namespace taxcore::review
