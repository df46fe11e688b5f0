#pragma once

// One review while it runs; shared by the checks, never seen outside.

#include "TaxCore/result/AdultEntries.h"
#include "TaxCore/review/Checks.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace taxcore::review {

/// One adult who counts, as the checks look at them.
struct Adult : AdultEntries {
    /// "Person 1" or the name: how a sentence speaks of them.
    std::string called() const;
    /// Whether there is work or what stands for it: net salaries, a business (with a loss too),
    /// board fees, unemployment benefits or daily allowances.
    bool works() const;
    /// An id that stands once per person: "name-fehlt-1".
    std::string id(std::string_view stem) const;
};

/// Age at the year's end; absent without a birth date.
std::optional<int> ageOf(const Adult& adult, int year);

/// The adults of a case who count.
std::vector<Adult> adultsOf(const TaxCase& taxCase);

/// The household's case of a year among those that are known; null when it is not.
const TaxCase* caseOf(const std::vector<const TaxCase*>& cases, int year) noexcept;

/// What a check tells. `title` and `message` are German; the message says what to do.
struct Finding {
    /// Stable. Where it can recur it ends in the number of the person, the item or both (from 1) or
    /// in the path of the field.
    std::string id;
    /// Page: "family", "income", "work", "pension", "other", "wealth", "documents".
    std::string_view area;
    std::string title;
    std::string message;
    std::optional<FieldPath> path; ///< the field to go to
};

class CheckContext {
  public:
    CheckContext(const ReviewInput& input, std::vector<Notice>& findings);

    const TaxCase& taxCase;
    const TaxResult& result;
    const Date today;
    const std::vector<ReviewedDocument>& documents;
    const std::vector<const TaxCase*>& otherYears;
    const RuleBook* stGallen;        ///< null in Liechtenstein
    const LIRules* liechtenstein;    ///< null in St.Gallen
    const std::vector<Adult> adults; ///< one or two

    /// The figures are wrong or the return cannot be filed like this.
    void error(Finding finding) { add(Notice::Level::error, std::move(finding)); }
    /// Something is probably forgotten or mistaken.
    void warning(Finding finding) { add(Notice::Level::warning, std::move(finding)); }
    /// Good to know; nothing need be done.
    void info(Finding finding) { add(Notice::Level::info, std::move(finding)); }

  private:
    void add(Notice::Level level, Finding finding);

    std::vector<Notice>& findings_;
};

/// An id of an item of a list: "lohn-periode-1-2" for the second one of person 1.
std::string itemId(std::string_view stem, int index);

// The checks by the page their entries stand on.
void checkFamily(CheckContext& c);
void checkIncome(CheckContext& c);
void checkWork(CheckContext& c);
void checkPension(CheckContext& c);
void checkOther(CheckContext& c);
void checkWealth(CheckContext& c);
/// The part of the wealth page about the securities register.
void checkSecurities(CheckContext& c);
/// Signs of what the program does not compute: parts of a year, other cantons, tax at source.
void checkScope(CheckContext& c);
/// Negative amounts and counts and amounts out of scale, on all pages.
void checkAmounts(CheckContext& c);

} // namespace taxcore::review
