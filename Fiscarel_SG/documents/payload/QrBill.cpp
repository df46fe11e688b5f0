#include "Fiscarel_SG/documents/payload/QrBill.h"

#include "Fiscarel_SG/documents/payload/PayloadXml.h"
#include "Fiscarel_SG/documents/text/DocumentAmount.h"
#include "TaxCore/base/Iban.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <vector>

namespace fiscarel {

using taxcore::Date;
using taxcore::Decimal;

namespace {

constexpr std::size_t longestCode = 4096; // a QR-bill has at most 997 characters

/// Where the elements stand, lines from 0.
enum Line : std::size_t {
    account = 3,
    payeeType = 4,
    payeeName = 5,
    payeeLine2 = 7,
    payeeTownLine = 9,
    amountLine = 18,
    currencyLine = 19,
    debtorName = 21,
    referenceLine = 28,
    messageLine = 29,
    billInformation = 31
};

std::string_view trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t\r");
    return begin == std::string_view::npos
               ? std::string_view()
               : text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    for (;;) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.push_back(trimmed(text.substr(0, end)));
        if (end == text.size()) {
            return lines;
        }
        text.remove_prefix(end + 1);
    }
}

std::string compact(std::string_view text) {
    std::string out(text);
    std::erase(out, ' ');
    return out;
}

/// Tag and content of "//S1/10/4711/11/240131"; "\/" is a slash within a content.
std::map<int, std::string> swicoParts(std::string_view text) {
    std::map<int, std::string> parts;
    const std::size_t begin = text.find("//S1/");
    if (begin == std::string_view::npos) {
        return parts;
    }
    std::vector<std::string> pieces(1);
    for (std::size_t at = begin + 5; at < text.size(); ++at) {
        if (text[at] == '\\' && at + 1 < text.size()) {
            pieces.back() += text[++at];
        } else if (text[at] == '/') {
            pieces.emplace_back();
        } else {
            pieces.back() += text[at];
        }
    }
    for (std::size_t i = 0; i + 1 < pieces.size(); i += 2) {
        int tag = 0;
        const auto [end, error] =
            std::from_chars(pieces[i].data(), pieces[i].data() + pieces[i].size(), tag);
        if (error == std::errc() && end == pieces[i].data() + pieces[i].size()) {
            parts.emplace(tag, pieces[i + 1]);
        }
    }
    return parts;
}

/// "240131", or the first day of "240101240131".
std::optional<Date> swicoDay(std::string_view text) {
    if (text.size() != 6 && text.size() != 12) {
        return std::nullopt;
    }
    return Date::parse("20" + std::string(text.substr(0, 6)));
}

/// Pairs of rate and net amount, "7.7:250;2.5:51.8": what they come to with their tax.
std::optional<Decimal> totalByTax(std::string_view text) {
    Decimal total;
    bool hasAny = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(';'), text.size());
        const std::string_view pair = text.substr(0, end);
        const std::size_t colon = pair.find(':');
        if (colon == std::string_view::npos) {
            return std::nullopt;
        }
        const auto rate = amountOf(pair.substr(0, colon));
        const auto net = amountOf(pair.substr(colon + 1));
        if (!rate || !net) {
            return std::nullopt;
        }
        total = total + (*net * (100 + *rate) / 100).roundPlain(2);
        hasAny = true;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return hasAny ? std::optional(total) : std::nullopt;
}

void readSwico(std::string_view text, QrBill& bill) {
    auto parts = swicoParts(text);
    bill.invoiceNumber = parts[10];
    bill.date = swicoDay(parts[11]);
    bill.totalByTax = totalByTax(parts[32]);
    const std::string& discount = parts[40];
    bill.discountPercent = amountOf(discount.substr(0, discount.find(':')));
}

} // namespace

std::optional<QrBill> parseQrBill(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        bytes.remove_prefix(3);
    }
    if (bytes.size() > longestCode) {
        return std::nullopt;
    }
    const auto lines = linesOf(bytes);
    const auto line = [&](std::size_t at) {
        return at < lines.size() ? lines[at] : std::string_view();
    };
    if (line(0) != "SPC" || !line(1).starts_with("02") || lines.size() <= currencyLine) {
        return std::nullopt;
    }
    QrBill bill{.iban = taxcore::compactIban(line(account)),
                .payee = std::string(line(payeeName)),
                .currency = std::string(line(currencyLine)),
                .debtor = std::string(line(debtorName)),
                .reference = compact(line(referenceLine)),
                .message = std::string(line(messageLine))};
    bill.payeeTown = line(payeeType) == "K" ? line(payeeLine2) : line(payeeTownLine);
    if (bill.currency != "CHF" && bill.currency != "EUR") {
        return std::nullopt;
    }
    if (taxcore::ibanFault(bill.iban)) {
        bill.iban.clear();
    }
    if (const std::string amount = compact(line(amountLine)); !amount.empty()) {
        bill.amount = amountOf(amount);
        if (!bill.amount || bill.amount->isNegative()) {
            return std::nullopt;
        }
    }
    if (bill.amount && bill.amount->isZero()) {
        bill.amount.reset(); // "not for payment"
    }
    for (std::size_t at = billInformation - 1; at < lines.size(); ++at) {
        if (lines[at].find("//S1/") != std::string_view::npos) {
            readSwico(lines[at], bill);
            break;
        }
    }
    return bill;
}

} // namespace fiscarel
