#pragma once

#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/store/StoredDocument.h"

#include <vector>

namespace fiscarel {

/// Words of which any speaks for a kind. Weights: 6 and more name the document, 4 all but name it,
/// 2 fit it.
struct KindWords {
    StoredDocument::Kind kind;
    int weight = 0;
    Labels words;
};

/// The lists for all kinds, in German, French and Italian: titles, issuers, and what only papers of
/// the kind speak of. Each list counts once.
const std::vector<KindWords>& kindWords();

/// Who treats people: practices, hospitals, pharmacies.
const Labels& careProviders();

/// What bills of homes speak of, where people live and are cared for.
const Labels& homesOfCare();

/// What accounts of managers of buildings are called, or speak of.
const Labels& propertyAccounts();

/// What titles of such accounts call a home that is let.
const Labels& letHomes();

/// Those of bills, donations, day care, courses, policies and valuations among them.
const std::vector<KindWords>& kindWordsOfBills();

/// Words that make a document none of the kinds: one of each list, of the first one in the title.
struct KindExclusion {
    enum class Holds {
        withoutWage, ///< not where a wage adds up
        always,      ///< a wage that adds up may stand on such a paper too
        onMonths     ///< with a wage or without, but not on the slip of a whole year
    };
    std::vector<Labels> all;
    int weight = 0;
    Labels unless = {}; ///< with one of these in the title it is none
    Holds holds = Holds::withoutWage;
};

/// Annexes on employee shares, tax returns, assessments and tax bills, payslips, offers, insurances
/// of things, what benefits are computed from or change to, what parents pay each other, shop
/// receipts, plans for years to come, orders at an exchange, invitations, reminders of loans,
/// leases.
const std::vector<KindExclusion>& kindExclusions();

/// By what a paper says itself that it certifies nothing.
const Labels& denials();

} // namespace fiscarel
