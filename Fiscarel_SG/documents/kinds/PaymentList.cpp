#include "Fiscarel_SG/documents/kinds/PaymentList.h"

#include "Fiscarel_SG/documents/kinds/RowSums.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>

namespace fiscarel {

namespace {

/// A row of a list with its day, the amount paid and the balance after it.
struct Payment {
    std::size_t row = 0;
    int year = 0;
    RowAmount amount;
    std::optional<Decimal> balance;
};

std::optional<taxcore::Date> dayOf(const Row& row) {
    if (row.words.empty()) {
        return std::nullopt;
    }
    const auto text = [&](std::size_t i) {
        return i < row.words.size() ? std::string_view(row.words[i].text) : std::string_view();
    };
    const auto day = parseDay(text(0));
    return day ? day : parseDay(text(0), text(1), text(2));
}

/// Whether a row of a list tells of something else than a payment.
bool isOther(const Row& row, bool isRecognised) {
    using enum Concept;
    static const Labels others{"*übertrag*", "Transfer*", "trasferiment*", "transfert*", "*bezug",
                               "Auszahlung", "retrait*",  "preliev*",      "Belastung*", "débit*",
                               "addebit*",   "Rück*",     "storn*",        "remb*",      "rimb*"};
    return isAnyIn(row.folded, others)
           || namesAny(row, {opening, interest, total, refunded, buyIn, fee, freePillar},
                       isRecognised);
}

bool isPayment(const Row& row, bool isRecognised) {
    using enum Concept;
    static const Labels incoming{"Bonifico",   "Bonifici",  "Accredito",       "Gutschrift",
                                 "Vergütung*", "Zahlung*",  "Dauerauftrag",    "Lastschrift*",
                                 "Virement*",  "versement", "ordre permanent", "ordine permanente"};
    return (namesAny(row, {contribution, paid}, isRecognised) || isAnyIn(row.folded, incoming))
           && !isOther(row, isRecognised);
}

/// Whether a row beside a list is neither a payment nor anything else that is known: maybe a
/// payment whose words were misread.
bool isUnknown(const Row& row, bool isRecognised) {
    const auto firm = std::ranges::count_if(
        row.amounts, [](const RowAmount& amount) { return amount.amount.isFirm(); });
    return firm >= 2 && !(dayOf(row) && isPayment(row, isRecognised))
           && !isOther(row, isRecognised);
}

std::vector<Payment> paymentsIn(const PageRows& page) {
    std::vector<Payment> payments;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        const Row& row = page.rows[at];
        const auto day = dayOf(row);
        if (!day || !isPayment(row, page.isRecognised)) {
            continue;
        }
        std::vector<RowAmount> firm;
        std::ranges::copy_if(row.amounts, std::back_inserter(firm), [](const RowAmount& amount) {
            return amount.amount.isFirm() && amount.amount.value >= 1;
        });
        if (firm.empty() || firm.size() > 2) {
            return {};
        }
        payments.push_back(
            {.row = at,
             .year = day->year(),
             .amount = firm.front(),
             .balance = firm.size() == 2 ? std::optional(firm.back().amount.value) : std::nullopt});
    }
    return payments;
}

/// Whether the balance beside each payment is that after the one before, and what came between.
bool haveRunningBalance(const PageRows& page, const std::vector<Payment>& payments) {
    if (std::ranges::any_of(page.rows,
                            [&](const Row& row) { return isUnknown(row, page.isRecognised); })) {
        return false;
    }
    return std::ranges::all_of(payments, [&](const Payment& payment) {
        const Row* before = nullptr;
        for (std::size_t at = payment.row; at-- > 0 && before == nullptr;) {
            const Row& row = page.rows[at];
            before = !row.amounts.empty() && row.amounts.back().amount.isFirm() ? &row : nullptr;
        }
        return payment.balance && before != nullptr
               && before->amounts.back().amount.value + payment.amount.amount.value
                      == *payment.balance;
    });
}

} // namespace

std::optional<PaymentList> paymentsOf(const DocumentRows& document, std::optional<int> year) {
    for (const PageRows& page : document.pages) {
        std::vector<Payment> payments = paymentsIn(page);
        if (year) { // others stand there to compare, or count for the year before
            std::erase_if(payments, [&](const Payment& one) { return one.year != *year; });
        }
        const bool hasTwo = payments.size() >= 2;
        const bool isOfOneYear = std::ranges::all_of(payments, [&](const Payment& payment) {
            return payment.year == payments.front().year;
        });
        const bool hasBalance = std::ranges::any_of(
            payments, [](const Payment& payment) { return payment.balance.has_value(); });
        const bool isRunning = hasTwo && haveRunningBalance(page, payments);
        if (!hasTwo || !isOfOneYear || (hasBalance && !isRunning)) {
            continue;
        }
        std::vector<FoundAmount> found;
        Decimal sum;
        for (const Payment& payment : payments) {
            sum = sum + payment.amount.amount.value;
            found.push_back({.page = &page, .row = payment.row, .amount = payment.amount});
        }
        const RowRange rows{&page, payments.front().row, payments.back().row + 1};
        if (auto printed = wholeOfParts(document, found)) {
            return PaymentList{rows, std::move(*printed)};
        }
        FoundAmount whole = found.back();
        whole.amount.amount.value = sum;
        whole.label = textBetween(page.rows[payments.back().row], 0, payments.back().amount.first);
        std::optional<ProposalCheck> check;
        if (isRunning) {
            check =
                ProposalCheck{"Der Saldo steigt mit jeder der " + std::to_string(payments.size())
                                  + " Einzahlungen um ihren Betrag",
                              true};
        }
        return PaymentList{rows, {std::move(whole), std::move(check)}};
    }
    return std::nullopt;
}

std::vector<SummedAmount> wholesOf(const DocumentRows& document, std::vector<FoundAmount> found) {
    std::vector<SummedAmount> wholes;
    for (FoundAmount& one : found) {
        const auto count = piecesAt(*one.page, one.row, one.amount);
        auto whole = count ? foundPrinted(document, one.value() * *count) : std::nullopt;
        if (whole) {
            whole->label = one.label;
            wholes.push_back(
                {std::move(*whole), ProposalCheck{productText(*count, one.value()), true}});
        } else if (!count) {
            wholes.push_back({std::move(one), std::nullopt});
        }
    }
    return wholes;
}

} // namespace fiscarel
