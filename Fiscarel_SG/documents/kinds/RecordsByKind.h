#pragma once

#include "Fiscarel_SG/documents/kinds/KindMappers.h"

#include <map>
#include <optional>
#include <string_view>

namespace fiscarel {

/// Records of a document by their kind, made when the first value needs one.
class RecordsByKind {
  public:
    RecordsByKind(const KindContext& context, ProposalDraft& draft)
        : context_(context), draft_(draft) {}

    /// The record of a kind; a new one begins on `page`.
    int of(ProposedRecord::Kind kind, int page);
    std::optional<int> existing(ProposedRecord::Kind kind) const;
    /// Whether the record of a kind has a value for a field.
    bool has(ProposedRecord::Kind kind, std::string_view field) const;

  private:
    const KindContext& context_;
    ProposalDraft& draft_;
    std::map<ProposedRecord::Kind, int> indices_;
};

/// Premiums of a health insurer with what was reduced of them.
void proposePremiums(const KindContext& context, RecordsByKind& records, ProposalDraft& draft);
/// What the insured paid themselves, which is a cost of illness.
void proposeCostSharing(const KindContext& context, ProposalDraft& draft);

} // namespace fiscarel
