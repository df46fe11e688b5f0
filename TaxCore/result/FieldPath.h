#pragma once

#include <string>
#include <string_view>

namespace taxcore {

/// Where an input stands in the case: "income1.salaries[0].grossSalary". Cheap to make; the text is
/// put together only when somebody asks.
class FieldPath {
  public:
    /// A field of the case itself: FieldPath("cash").
    constexpr explicit FieldPath(std::string_view field) : record_(field) {}
    /// A field of a record or, with `at`, of the items of a list: FieldPath("debts", "interest").
    constexpr FieldPath(std::string_view record, std::string_view field)
        : record_(record), field_(field) {}
    /// The same within a record: FieldPath("income", "salaries", "grossSalary").
    constexpr FieldPath(std::string_view record, std::string_view inner, std::string_view field)
        : record_(record), inner_(inner), field_(field) {}

    /// The record of a person: "income" becomes "income2".
    constexpr FieldPath of(int person) const {
        FieldPath path = *this;
        path.person_ = person;
        return path;
    }
    /// An item of the innermost list.
    constexpr FieldPath at(int index) const {
        FieldPath path = *this;
        path.index_ = index;
        return path;
    }

    std::string toString() const;

  private:
    std::string_view record_;
    std::string_view inner_;
    std::string_view field_;
    int person_ = 0;
    int index_ = -1;
};

} // namespace taxcore
