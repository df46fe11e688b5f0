#pragma once

#include "Fiscarel_SG/documents/ScanResult.h"
#include "TaxCore/model/TaxCase.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// What is needed to take a document's values over. The case and the documents are those of its
/// year; everything must outlive the calls.
struct ApplyContext {
    const taxcore::TaxCase& taxCase;
    const std::vector<StoredDocument>& documents; ///< all of the household, with this one
    const StoredDocument& document;
    const ScanResult& scan;
    /// Interest of a customer's account above this many francs a year is subject to withholding tax
    /// (Art. 5 Abs. 1 lit. c VStG).
    Decimal interestLimit;
};

/// Where a record that a document proposes goes.
struct RecordTarget {
    bool isIncluded = true;
    /// 1 or 2, for what belongs to an adult; 0: the user has yet to say whose it is, and nothing of
    /// it is taken over before.
    int person = 1;
    /// Of the case's list; absent: a new one. Without a meaning for what stands in no list.
    std::optional<Uuid> item;

    bool operator==(const RecordTarget&) const = default;
};

/// What becomes of a proposed value.
struct ValueChoice {
    bool isIncluded = true;
    std::string value; ///< as in `Proposal::value`

    bool operator==(const ValueChoice&) const = default;
};

/// What the user decides about a document: one entry for each record and each proposal.
struct ApplyChoice {
    std::vector<RecordTarget> records;
    std::vector<ValueChoice> values;

    bool operator==(const ApplyChoice&) const = default;
};

/// What applying does to one field.
struct PlannedValue {
    enum class Outcome {
        written,
        added,      ///< a share of a sum over several documents
        isComputed, ///< the return computes the same by itself; nothing is written
        unreadable  ///< the text is no value of the field; nothing is written
    };

    int proposal = 0;                  ///< index among the document's
    std::string path;                  ///< in the new case, items by position; empty: none
    std::optional<std::string> before; ///< JSON text of what it replaces; absent in a new record
    std::string after;                 ///< JSON text
    Outcome outcome = Outcome::written;

    bool operator==(const PlannedValue&) const = default;
};

/// The case as it would be, and what the document then stands behind.
struct ApplyPlan {
    taxcore::TaxCase taxCase;
    std::vector<PlannedValue> values;  ///< of the included proposals, in their order
    std::vector<AppliedValue> applied; ///< paths with items by identity
};

/// An item of the case that a record could go to.
struct ItemOption {
    Uuid id;
    std::string title; ///< may be empty
};

/// Whether a kind of record belongs to one adult, and whether it is an item of a list.
bool isOfAdult(ProposedRecord::Kind kind);
bool isListed(ProposedRecord::Kind kind);
/// Whether new ones can be made: not of children, whom the user enters.
bool canBeNew(ProposedRecord::Kind kind);

/// The items a record could go to, in the order of the case.
std::vector<ItemOption> itemOptions(const taxcore::TaxCase& taxCase, ProposedRecord::Kind kind,
                                    int person);

/// Whether a record is the total of a bank's statement: one entry in place of its accounts and
/// securities.
bool isStatementTotal(const ScanResult& scan, std::size_t record);

/// What is most likely right: persons by what was taken over before, then birth date, name or
/// employer, and nobody where a name fits neither adult or both; items by the document they were
/// taken from, the IBAN, or their name. Left out are the total of a statement whose accounts are
/// listed as well, what belongs to a child that cannot be told, and what names somebody other than
/// a return's only adult.
ApplyChoice suggestChoice(const ApplyContext& context);

/// Takes the included values over. An amount of a record in no list, such as the payments into
/// pillar 3a or a child's care, becomes the sum over the documents applied to it; applying a
/// document again replaces its own share, and takes it away where it no longer goes. A net salary
/// is only written where it is not what the certificate's other boxes give. Whoever takes over the
/// total of a statement after its entries, or the reverse, has those removed that came from it
/// before, as they would count twice.
ApplyPlan planApplying(const ApplyContext& context, const ApplyChoice& choice);

} // namespace fiscarel
