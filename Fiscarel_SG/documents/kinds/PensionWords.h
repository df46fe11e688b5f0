#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"

namespace fiscarel {

// What words of papers on pensions and allowances say of an amount beside them.

/// Benefits that are not taxed: supplementary ones, allowances of the helpless.
const Labels& taxFree();
/// "nein" at the end of a row under a heading such as "steuerbar".
bool endsInNo(const Row& row);
/// That the amount is the one to declare; a share of it is not.
bool saysTaxed(const Row& words, bool isRecognised);
/// That it is the amount before deductions that is to be declared.
bool saysGrossTaxed(const DocumentRows& document);

/// What stands on papers on pensions and is none of the year: capital, fees, other years.
const Labels& noPension();
/// Who gets the allowances of those whom he goes on paying.
const Labels& employers();
/// Whether one is named, and not only to say that he got nothing.
bool namesEmployer(const DocumentRows& document);
/// What stands on papers on allowances and is none that the insured got: what went to the employer,
/// and what the allowance is computed from.
const Labels& noAllowance();

/// Whether a paper comes from the state's insurances for old age and disability, and is no fund's.
bool isOfTheState(const DocumentRows& document);
/// Whether a paper says that something began within a year, after its first day: "ab 1.7.2025",
/// "Beginn 1. Juli 2025".
bool beginsWithin(const DocumentRows& document, int year);
/// Whether words tell of a time that begins after a year: "dès 2025", "ab Januar 2025".
bool beginsAfter(const Row& words, int year);

const Labels& perMonth();
const Labels& perDay();
/// The allowance of a day, by its name: "Taggeld brutto 235.65".
bool isOneDay(const Row& words, const Decimal& value, bool isRecognised);

} // namespace fiscarel
