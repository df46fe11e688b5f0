#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"

#include <set>
#include <string>
#include <vector>

namespace fiscarel {

/// The months that words name, by their names, short ones as over narrow columns, or "12/2024";
/// "Jan-Dez" is two of them.
std::set<int> monthsOf(const Row& words);
/// Whether months are the first and the last of a year.
bool isWholeSpan(const std::set<int>& months);
/// Whether words name a year by a word or its number.
bool namesYear(const Row& words);

/// What may be the months a slip is for, by their names or else by days, those of earlier years
/// left out: somebody was born or engaged then.
class SlipMonths {
  public:
    void add(const Row& row);

    std::set<int> named() const { return recent(named_); }
    std::set<int> ofDays() const { return recent(days_); }
    /// Whether they are the year's last or all of it.
    bool areOver() const;

  private:
    struct Month {
        int year = 0; ///< 0 where it is not told
        int month = 0;
    };

    void addNumbers(const std::string& text);
    std::set<int> recent(const std::vector<Month>& all) const;

    std::vector<Month> named_;
    std::vector<Month> days_;
    int newest_ = 0;
};

/// What the head of a paper on a wage says that it is for.
enum class WageSpan { unknown, month, year };
WageSpan spanOfHead(const DocumentRows& document);

} // namespace fiscarel
