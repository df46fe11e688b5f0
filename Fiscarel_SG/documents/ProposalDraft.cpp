#include "Fiscarel_SG/documents/ProposalDraft.h"

#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"
#include "TaxCore/base/MoneyFormat.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

using Confidence = Proposal::Confidence;

const PageRows* DocumentRows::page(int number) const {
    const auto found = std::ranges::find(pages, number, &PageRows::number);
    return found == pages.end() ? nullptr : &*found;
}

int ProposalDraft::addRecord(ProposedRecord record) {
    for (std::string* text : {&record.title, &record.personName}) {
        *text = plainText(*text);
    }
    result_.records.push_back(std::move(record));
    return static_cast<int>(result_.records.size()) - 1;
}

void ProposalDraft::put(int record, std::string field, const std::string& value,
                        Evidence evidence) {
    const bool hasFailed = !std::ranges::all_of(evidence.checks, &ProposalCheck::passed);
    if (hasFailed) {
        evidence.confidence =
            evidence.witness == Proposal::Witness::payload ? Confidence::medium : Confidence::low;
    }
    result_.proposals.push_back({.recordIndex = record,
                                 .field = std::move(field),
                                 .value = value,
                                 .witness = evidence.witness,
                                 .confidence = evidence.confidence,
                                 .reason = std::move(evidence.reason),
                                 .page = evidence.page,
                                 .box = evidence.box,
                                 .checks = std::move(evidence.checks)});
}

void ProposalDraft::add(int record, std::string field, const Decimal& value, Evidence evidence) {
    put(record, std::move(field), value.toString(), std::move(evidence));
}

void ProposalDraft::add(int record, std::string field, std::string text, Evidence evidence) {
    text = plainText(text);
    if (!text.empty()) { // nothing but control characters is no text
        put(record, std::move(field), text, std::move(evidence));
    }
}

void ProposalDraft::add(int record, std::string field, const std::optional<taxcore::Date>& day,
                        Evidence evidence) {
    if (day) {
        put(record, std::move(field), isoDay(*day), std::move(evidence));
    }
}

void ProposalDraft::addTrue(int record, std::string field, Evidence evidence) {
    put(record, std::move(field), "true", std::move(evidence));
}

std::string shown(const Decimal& amount) {
    const std::string digits = taxcore::MoneyFormat::chf(amount.abs(), 2, false);
    return amount.roundPlain(2).isNegative() ? "−" + digits : digits;
}

std::string isoDay(const taxcore::Date& day) { return day.toString().substr(0, 10); }

bool isPrintedForm(const Decimal& value, const PrintedAmount& printed) {
    // Small amounts in whole francs say too little to be recognised by.
    return value.roundPlain(2) == printed.value
           || (!printed.hasDecimals && value.abs() >= 100
               && (value.roundPlain(0) == printed.value || value.roundDown(0) == printed.value));
}

ProposalCheck printedCheck(const Decimal& payload, const PrintedAmount& printed) {
    if (isPrintedForm(payload, printed)) {
        return {"Gedruckt steht derselbe Betrag: " + shown(printed.value), true};
    }
    return {"Der Strichcode nennt " + shown(payload) + ", gedruckt steht " + shown(printed.value),
            false};
}

std::optional<PrintedPlace> findPrinted(const DocumentRows& document, const Decimal& value,
                                        int onPage) {
    std::optional<PrintedPlace> rounded;
    for (const PageRows& page : document.pages) {
        if (onPage != 0 && page.number != onPage) {
            continue;
        }
        for (const Row& row : page.rows) {
            for (const RowAmount& amount : row.amounts) {
                const bool isSame = isPrintedForm(value, amount.amount);
                if (isSame && amount.amount.value == value.roundPlain(2)) {
                    return PrintedPlace{&page, &amount};
                }
                if (isSame && !rounded) {
                    rounded = PrintedPlace{&page, &amount};
                }
            }
        }
    }
    return rounded;
}

const RowAmount* findSum(const PageRows& page, const Decimal& sum) {
    constexpr int leastBare = 100; // less numbers houses, too
    bool isAmongAmounts = false;
    for (const Row& row : page.rows) {
        for (const RowAmount& one : row.amounts) {
            const PrintedAmount& amount = one.amount;
            if (amount.value.abs() != sum.abs()) {
                continue;
            }
            const bool isBare = !amount.isYearLike() && one.last + 1 == row.words.size();
            const bool isTold = (isAmongAmounts && sum.abs() >= leastBare)
                                || namesAny(row, {Concept::total}, page.isRecognised);
            if (amount.isFirm() || (isBare && isTold)) {
                return &one;
            }
        }
        isAmongAmounts |= hasFirmAmount(row);
    }
    return nullptr;
}

std::optional<PrintedPlace> findSum(const DocumentRows& document, const Decimal& sum) {
    for (const PageRows& page : document.pages) {
        if (const RowAmount* amount = findSum(page, sum)) {
            return PrintedPlace{&page, amount};
        }
    }
    return std::nullopt;
}

} // namespace fiscarel
