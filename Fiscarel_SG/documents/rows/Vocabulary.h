#pragma once

#include "Fiscarel_SG/documents/rows/RowLabels.h"

#include <initializer_list>
#include <vector>

namespace fiscarel {

/// What words of Swiss and Liechtenstein documents mean, whatever the wording and language. A label
/// is made of several: "Einbezahlte Beiträge", "versements effectués" and "versamenti effettuati"
/// are `paid` and `contribution`.
enum class Concept {
    paid,
    contribution,
    total,
    gross,
    net,
    yearly,
    amount,
    balance,
    opening,
    interest,
    ofDebt, ///< goes with interest: "hypothécaires", "passivi"
    debtInterest,
    rate,
    withholding,
    debt,
    repayment,
    pillar3a,
    occupational,
    ordinary,
    buyIn,
    possible,
    premium,
    basicInsurance,
    extraInsurance,
    accident,
    reduction,
    costSharing,
    refunded,
    benefit,
    payable,
    invoice,
    fee,
    donation,
    childcare,
    parents,
    publicShare,
    course,
    surrender,
    insured,
    lifeCover,
    taxValue,
    officialValue,
    rentalValue,
    other, ///< values that stand beside the wanted one: of last year, forecast, per month
    pension,
    wage,
    social, ///< contributions to the state's insurances, taken from a wage
    account,
    medical,
    deductible, ///< what the tax law lets one deduct
    notDeductible,
    meals,
    limit,      ///< how much the law allows at most
    tax,        ///< what a parish or commune raises
    membership, ///< what buys something: fees of members, tickets, things
    freePillar, ///< 3b
    rent,
    upkeep, ///< of a building
    last,   ///< number of concepts
};

/// A label as what it means: all of these in one row or clause, in any order. The first is what the
/// amount is, the others what tells it apart.
using Meaning = std::vector<Concept>;

/// The words for a concept in German, French and Italian.
const Labels& wordsFor(Concept meant);

/// Where a row says all of a meaning: from the first to the last of its words.
std::optional<LabelPlace> findMeaning(const Row& row, const Meaning& meaning, bool isRecognised);
/// Whether a row names one of several concepts.
bool namesAny(const Row& row, const std::vector<Concept>& concepts, bool isRecognised);

} // namespace fiscarel
