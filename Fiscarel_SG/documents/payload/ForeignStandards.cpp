#include "Fiscarel_SG/documents/payload/Mappers.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;
using Kind = StoredDocument::Kind;

namespace {

constexpr std::array standards{
    ForeignStandard{119, "Daten einer ganzen Steuererklärung (eCH-0119)", Kind::anderes},
    ForeignStandard{196, "Steuerauszug einer Bank (eCH-0196)", Kind::steuerauszug},
    ForeignStandard{248, "Bescheinigung einer Vorsorgeeinrichtung (eCH-0248)", Kind::saeule3a},
    ForeignStandard{275, "Bescheinigung einer Krankenkasse (eCH-0275)", Kind::krankenkasse},
};

/// Amounts by the names that elements and attributes of such certificates have.
struct NamedAmount {
    int standard;
    std::string_view name; ///< in lower case, part of the local name
    ProposedRecord::Kind record;
    const char* field;
};
constexpr std::array namedAmounts{
    NamedAmount{248, "pillar3a", ProposedRecord::Kind::personDeductions, "pillar3a"},
    NamedAmount{248, "purchase", ProposedRecord::Kind::personDeductions, "pensionBuyIn"},
    NamedAmount{248, "buyin", ProposedRecord::Kind::personDeductions, "pensionBuyIn"},
    NamedAmount{275, "premiumreduction", ProposedRecord::Kind::householdDeductions,
                "premiumReduction"},
    NamedAmount{275, "premium", ProposedRecord::Kind::householdDeductions,
                "healthInsurancePremiums"},
};

struct Named {
    std::string name; ///< in lower case
    Decimal value;
};

std::string lowered(std::string_view name) {
    std::string lower(localName(name));
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

/// Every amount of a document with its name; depth is bounded by the parser.
void collect(pugi::xml_node node, std::vector<Named>& found) {
    for (const pugi::xml_attribute attribute : node.attributes()) {
        if (const auto value = amountOf(attribute.value())) {
            found.push_back({lowered(attribute.name()), *value});
        }
    }
    if (const auto value = amountOf(node.text().get())) {
        found.push_back({lowered(node.name()), *value});
    }
    for (const pugi::xml_node child : node.children()) {
        collect(child, found);
    }
}

} // namespace

std::optional<ForeignStandard> foreignStandard(int number) {
    const auto row = std::ranges::find(standards, number, &ForeignStandard::number);
    return row == standards.end() ? std::nullopt : std::optional(*row);
}

int standardOf(pugi::xml_node root) {
    for (const pugi::xml_attribute attribute : root.attributes()) {
        const std::string_view name = attribute.name();
        const std::string_view value = attribute.value();
        const std::size_t at = value.find("eCH-0");
        const bool isOwn = name == "xmlns"
                           || (name.starts_with("xmlns:")
                               && std::string_view(root.name()).starts_with(name.substr(6)));
        if (isOwn && at != std::string_view::npos && at + 8 <= value.size()) {
            int number = 0;
            std::from_chars(value.data() + at + 4, value.data() + at + 8, number);
            return number;
        }
    }
    return 0;
}

bool proposeInstitutionCertificate(pugi::xml_node root, int standard, const JoinedPayload& payload,
                                   ProposalDraft& draft) {
    const auto names = foreignStandard(standard);
    if (!names) {
        return false;
    }
    std::vector<Named> found;
    collect(root, found);
    bool hasAny = false;
    for (const NamedAmount& row : namedAmounts) {
        const auto value = std::ranges::find_if(found, [&](const Named& named) {
            return row.standard == standard && named.name.starts_with("total")
                   && named.name.find(row.name) != std::string::npos && named.value >= 1;
        });
        if (value == found.end()) {
            continue;
        }
        const int record =
            draft.addRecord({.kind = row.record,
                             .title = names->name,
                             .page = payload.pages.front(),
                             .advice = "Bitte mit dem gedruckten Betrag vergleichen."});
        draft.add(record, row.field, value->value,
                  {.witness = Witness::payload,
                   .confidence = Confidence::medium,
                   .reason = "Aus dem Strichcode gelesen: Angabe «" + value->name + "».",
                   .page = payload.pages.front()});
        found.erase(value);
        hasAny = true;
    }
    return hasAny;
}

} // namespace fiscarel
