#include "Fiscarel_SG/documents/kinds/RecordsByKind.h"

#include <algorithm>
#include <string>
#include <utility>

namespace fiscarel {

namespace {

using Kind = StoredDocument::Kind;

const char* titleOf(Kind kind) {
    switch (kind) {
    case Kind::saeule3a:
        return "Säule 3a";
    case Kind::pensionskasse:
        return "Einkauf in die Pensionskasse";
    case Kind::krankenkasse:
        return "Versicherungsprämien";
    case Kind::versicherung:
        return "Lebensversicherung";
    default:
        return "Liegenschaft";
    }
}

} // namespace

int RecordsByKind::of(ProposedRecord::Kind kind, int page) {
    const auto known = indices_.find(kind);
    if (known != indices_.end()) {
        return known->second;
    }
    std::string title = titleOf(context_.kind);
    if (!context_.facts.issuer.text.empty() && kind != ProposedRecord::Kind::realEstate) {
        title += ' ' + context_.facts.issuer.text;
    }
    const int index = draft_.addRecord(recordWith(context_.facts, kind, std::move(title), page));
    indices_.emplace(kind, index);
    return index;
}

std::optional<int> RecordsByKind::existing(ProposedRecord::Kind kind) const {
    const auto known = indices_.find(kind);
    return known == indices_.end() ? std::nullopt : std::optional(known->second);
}

bool RecordsByKind::has(ProposedRecord::Kind kind, std::string_view field) const {
    const auto record = existing(kind);
    return record && std::ranges::any_of(draft_.result().proposals, [&](const Proposal& one) {
               return one.recordIndex == *record && one.field == field;
           });
}

} // namespace fiscarel
