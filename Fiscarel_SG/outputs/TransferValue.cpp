#include "Fiscarel_SG/outputs/FormField.h"
#include "TaxCore/base/Iban.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"

namespace fiscarel::outputs {

using namespace taxcore;

namespace {

constexpr std::string_view groupMark = "’";
constexpr std::size_t ibanGroup = 4;

Decimal cutTowardsZero(const Decimal& amount, int places) {
    return amount < 0 ? -(-amount).roundDown(places) : amount.roundDown(places);
}

std::string amountText(const Decimal& amount, ValueKind kind) {
    if (kind == ValueKind::number) {
        return MoneyFormat::number(amount);
    }
    if (kind == ValueKind::francs) {
        return MoneyFormat::chf(cutTowardsZero(amount, 0), 0, false);
    }
    const Decimal cut = cutTowardsZero(amount, 2);
    return MoneyFormat::chf(cut, cut.isInteger() ? 0 : 2, false);
}

std::string dateText(const Date& date) {
    const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    return two(date.day()) + "." + two(date.month()) + "." + std::to_string(date.year());
}

/// One line: a form field takes no other, and a table neither.
std::string lineText(std::string_view text) {
    std::string line;
    for (const char c : text) {
        const bool blank = static_cast<unsigned char>(c) <= ' ';
        if (!blank) {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    if (!line.empty() && line.back() == ' ') {
        line.pop_back();
    }
    return line;
}

std::string grouped(std::string_view text) {
    const std::string compact = compactIban(text);
    std::string groups;
    for (std::size_t at = 0; at < compact.size(); at += ibanGroup) {
        groups += (at == 0 ? "" : " ") + compact.substr(at, ibanGroup);
    }
    return groups;
}

} // namespace

bool isEmpty(const FieldValue& value) {
    struct Empty {
        bool operator()(std::monostate) const { return true; }
        bool operator()(bool yes) const { return !yes; }
        bool operator()(int number) const { return number == 0; }
        bool operator()(const Decimal& number) const { return number.isZero(); }
        bool operator()(const std::string& text) const { return lineText(text).empty(); }
        bool operator()(const Date&) const { return false; }
    };
    return std::visit(Empty{}, value);
}

std::string shownValue(const FieldValue& value, ValueKind kind) {
    struct Shown {
        ValueKind kind;
        std::string operator()(std::monostate) const { return {}; }
        std::string operator()(bool yes) const { return yes ? "Ja" : ""; }
        std::string operator()(int number) const {
            return number != 0 ? std::to_string(number) : std::string();
        }
        std::string operator()(const Decimal& number) const {
            return number.isZero() ? std::string() : amountText(number, kind);
        }
        std::string operator()(const std::string& text) const {
            return kind == ValueKind::iban && looksLikeIban(text) ? grouped(text) : lineText(text);
        }
        std::string operator()(const Date& date) const { return dateText(date); }
    };
    return std::visit(Shown{kind}, value);
}

std::string TransferRow::shown() const {
    return federal.empty() ? value : value + " / Bund " + federal;
}

std::string pasted(ValueKind kind, std::string_view shown) {
    if (kind == ValueKind::iban) {
        return looksLikeIban(shown) ? compactIban(shown) : std::string(shown);
    }
    std::string text(shown);
    if (kind == ValueKind::francs || kind == ValueKind::rappen) {
        for (std::size_t at = 0; (at = text.find(groupMark, at)) != std::string::npos;) {
            text.erase(at, groupMark.size());
        }
    }
    return text;
}

} // namespace fiscarel::outputs
