#include "TaxCore/result/UnitText.h"

#include "TaxCore/base/MoneyFormat.h"

#include <algorithm>

namespace taxcore {

namespace {

constexpr int mostDecimals = 6;

/// Francs with Rappen, or with the further decimals they have.
std::string francs(const Decimal& value) {
    const std::string plain = value.roundPlain(mostDecimals).toString();
    const std::size_t point = plain.find('.');
    const std::size_t decimals = point == std::string::npos ? 0 : plain.size() - point - 1;
    return MoneyFormat::chf(value, std::max(2, static_cast<int>(decimals)), false);
}

} // namespace

std::string unitText(const Decimal& value, Unit unit) {
    switch (unit) {
    case Unit::francs:
        return francs(value);
    case Unit::share:
        return MoneyFormat::number((value * 100).roundPlain(mostDecimals)) + "%";
    case Unit::percent:
        return MoneyFormat::number(value.roundPlain(mostDecimals)) + "%";
    case Unit::perMille:
        return MoneyFormat::number(value.roundPlain(mostDecimals)) + "‰";
    case Unit::number:
        break;
    }
    return MoneyFormat::number(value);
}

} // namespace taxcore
