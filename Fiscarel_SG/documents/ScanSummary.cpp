#include "Fiscarel_SG/documents/ScanSummary.h"

#include "Fiscarel_SG/documents/Applying.h"

#include <algorithm>
#include <array>

namespace fiscarel {

namespace {

bool isOf(const Proposal& proposal, std::size_t record) {
    return static_cast<std::size_t>(proposal.recordIndex) == record;
}

/// The first amount of a record; absent when it has none that is at all sure.
std::optional<Decimal> amountOf(const ScanResult& scan, std::size_t record) {
    for (const Proposal& proposal : scan.proposals) {
        if (isOf(proposal, record) && proposal.field != "quantity"
            && proposal.confidence != Proposal::Confidence::low) {
            if (const auto amount = Decimal::parse(proposal.value); amount && !amount->isZero()) {
                return *amount;
            }
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<Decimal> mainAmount(const ScanResult& scan) {
    std::optional<Decimal> first;
    for (std::size_t record = 0; record < scan.records.size(); ++record) {
        const auto amount = amountOf(scan, record);
        if (amount && isStatementTotal(scan, record)) {
            return amount;
        }
        first = first ? first : amount;
    }
    if (first || !scan.proposals.empty()) {
        return first;
    }
    return scan.fields.empty() ? std::nullopt : std::optional(scan.fields.front().value);
}

std::string sourceName(const ScanResult& scan, std::size_t record) {
    static constexpr std::array<std::string_view, 7> names{
        "employer", "label", "institution", "creditor", "provider", "recipient", "company"};
    for (const Proposal& proposal : scan.proposals) {
        if (isOf(proposal, record) && std::ranges::find(names, proposal.field) != names.end()) {
            return proposal.value;
        }
    }
    return {};
}

std::optional<std::string> issuerName(const ScanResult& scan) {
    for (std::size_t record = 0; record < scan.records.size(); ++record) {
        if (std::string name = sourceName(scan, record); !name.empty()) {
            return name;
        }
    }
    return scan.issuer;
}

} // namespace fiscarel
