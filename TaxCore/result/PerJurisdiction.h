#pragma once

#include "TaxCore/base/Decimal.h"
#include "TaxCore/result/TaxResult.h"

#include <utility>

namespace taxcore {

/// A value for canton and federation side by side: the two taxes are computed together.
template <class T>
struct PerJurisdiction {
    T canton{};
    T federal{};

    constexpr const T& operator[](Jurisdiction which) const {
        return which == Jurisdiction::canton ? canton : federal;
    }

    bool operator==(const PerJurisdiction&) const = default;
};

/// Francs for canton and federation.
using Amounts = PerJurisdiction<Decimal>;

/// The same value for both.
template <class T>
constexpr PerJurisdiction<T> both(const T& value) {
    return {value, value};
}

/// `compute` of each side: `each(net, params, [](net, params) { … })`.
template <class Compute, class... T>
constexpr auto each(Compute&& compute, const PerJurisdiction<T>&... values) {
    using Value = decltype(compute(values.canton...));
    return PerJurisdiction<Value>{compute(values.canton...), compute(values.federal...)};
}

constexpr Amounts operator+(const Amounts& a, const Amounts& b) {
    return {a.canton + b.canton, a.federal + b.federal};
}
constexpr Amounts operator-(const Amounts& a, const Amounts& b) {
    return {a.canton - b.canton, a.federal - b.federal};
}
constexpr Amounts& operator+=(Amounts& a, const Amounts& b) { return a = a + b; }

constexpr bool isZero(const Amounts& amounts) {
    return amounts.canton.isZero() && amounts.federal.isZero();
}

} // namespace taxcore
