#include "Fiscarel_SG/documents/ScanSummary.h"

#include "Fiscarel_SG/documents/Applying.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

namespace fiscarel {

namespace {

bool isOf(const Proposal& proposal, std::size_t record) {
    return static_cast<std::size_t>(proposal.recordIndex) == record;
}

/// What says most about a record; of records with none of these their first amount does.
constexpr std::array<std::string_view, 8> foremost{
    "grossSalary", "taxValue",       "pillar3a",       "amount",
    "gross",       "surrenderValue", "childcareCosts", "healthInsurancePremiums"};

struct MainValue {
    ProposedRecord::Kind kind;
    std::string_view field;
    Decimal value;
};

std::ptrdiff_t rank(std::string_view field) {
    return std::ranges::find(foremost, field) - foremost.begin();
}

/// Absent when a record has no amount that is at all sure.
std::optional<MainValue> mainValueOf(const ScanResult& scan, std::size_t record) {
    std::optional<MainValue> main;
    for (const Proposal& proposal : scan.proposals) {
        if (!isOf(proposal, record) || proposal.field == "quantity"
            || proposal.confidence == Proposal::Confidence::low) {
            continue;
        }
        const auto amount = Decimal::parse(proposal.value);
        if (amount && !amount->isZero() && (!main || rank(proposal.field) < rank(main->field))) {
            main = {scan.records[record].kind, proposal.field, *amount};
        }
    }
    return main;
}

/// Below this a number found by words is rather a day or the number of a box.
constexpr int leastCredible = 32;

bool isYear(const Decimal& value) {
    return value >= 1'990 && value <= 2'100 && value.roundDown(0) == value;
}

} // namespace

std::vector<ExtractedField> credibleFields(const ScanResult& scan) {
    std::vector<ExtractedField> fields;
    if (scan.proposals.empty()) {
        std::ranges::copy_if(scan.fields, std::back_inserter(fields),
                             [](const ExtractedField& field) {
                                 return field.value >= leastCredible && !isYear(field.value);
                             });
    }
    return fields;
}

std::optional<Decimal> mainAmount(const ScanResult& scan) {
    std::optional<MainValue> first;
    for (std::size_t record = 0; record < scan.records.size(); ++record) {
        const auto main = mainValueOf(scan, record);
        if (!main) {
            continue;
        }
        if (isStatementTotal(scan, record)) {
            return main->value;
        }
        const bool isAlike = first && first->kind == main->kind;
        if (isAlike && first->field == main->field) {
            first->value += main->value;
        } else if (!first || (isAlike && rank(main->field) < rank(first->field))) {
            first = main;
        }
    }
    if (first) {
        return first->value;
    }
    const std::vector<ExtractedField> fields = credibleFields(scan);
    return fields.empty() ? std::nullopt : std::optional(fields.front().value);
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

namespace {

/// Who made the document out, as its proposals say.
std::optional<std::string> firstSource(const ScanResult& scan) {
    for (std::size_t record = 0; record < scan.records.size(); ++record) {
        if (std::string name = sourceName(scan, record); !name.empty()) {
            return name;
        }
    }
    return std::nullopt;
}

} // namespace

StoredDocument::Kind firstKind(const StoredDocument& document, const ScanResult& scan) {
    return !document.isApplied && !document.hasChosenKind() && document.kind == scan.kind
               ? scan.proposedKind.value_or(document.kind)
               : document.kind;
}

std::optional<std::string> issuerName(const ScanResult& scan) {
    auto name = firstSource(scan);
    return name ? std::move(name) : scan.issuer;
}

std::string titleFor(StoredDocument::Kind kind, const ScanResult& scan) {
    constexpr std::size_t leastName = 3; // a legal form alone is none
    const auto source = firstSource(scan);
    return source && source->size() >= leastName && kind != StoredDocument::Kind::anderes
               ? std::string(taxcore::label(kind)) + " – " + *source
               : std::string();
}

} // namespace fiscarel
