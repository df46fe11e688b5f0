#include "TaxCore/base/MoneyFormat.h"

#include <string_view>

namespace taxcore {

std::string MoneyFormat::chf(const Decimal& amount, int decimals, bool withCurrency) {
    constexpr std::string_view groupMark = "’";
    const int places = decimals < 0 ? 0 : decimals;
    const Decimal rounded = amount.roundPlain(places);
    const std::string plain = rounded.abs().toString();
    const std::size_t point = plain.find('.');
    const std::string_view whole = std::string_view(plain).substr(0, point);

    std::string text = withCurrency ? "CHF " : "";
    if (rounded.isNegative()) {
        text += '-';
    }
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (i > 0 && (whole.size() - i) % 3 == 0) {
            text += groupMark;
        }
        text += whole[i];
    }
    if (places > 0) {
        const std::string fraction = point == std::string::npos ? "" : plain.substr(point + 1);
        text += '.';
        text += fraction;
        text.append(static_cast<std::size_t>(places) - fraction.size(), '0');
    }
    return text;
}

} // namespace taxcore
