#pragma once

#include "tests/documents/corpus/layouts/Script.h"

// What the papers of a town's day care, practices, workshops, offices and 3a providers tell; each
// notes the truth and names its facts.

namespace corpus {

/// The kind of the paper, one of the names as its sender, and now and then amounts by hand
/// ("Fr. 1'234.-").
void sentBy(Draft& draft, const char* kind, const std::vector<QString>& names);

/// So many children of the household, at most three; the third is invented here.
std::vector<Someone> childrenOf(Draft& draft, int count);

Facts careYearFacts(Draft& draft);     ///< children (three), months; t1…t3, kid1…kid3, total
Facts carePairFacts(Draft& draft);     ///< the same of two children
Facts careMealsFacts(Draft& draft);    ///< c1…c12, v1…v12, care, meals, total
Facts dayFamilyFacts(Draft& draft);    ///< months with hours; care, meals, fee, total
Facts subsidyFacts(Draft& draft);      ///< children with full, commune, canton, net; net
Facts halfYearFacts(Draft& draft);     ///< months of a half year; amount, from, until
Facts careInvoicesFacts(Draft& draft); ///< invoices; invoiced, paid, open
Facts careModulesFacts(Draft& draft);  ///< children, each with modules and paid
Facts foreignCareFacts(Draft& draft);  ///< paid, meals, entry, aid; French and Italian senders
Facts dentistFacts(Draft& draft);      ///< items; care, lab, total, quote
Facts correctedFacts(Draft& draft);    ///< as dentistFacts, with credit and before
Facts hospitalFacts(Draft& draft);     ///< full, insurer, own
Facts pharmacyYearFacts(Draft& draft); ///< items; full, insurer, own
Facts reminderFacts(Draft& draft);     ///< amount, fee, interest, total; billed, doctor
Facts sessionsFacts(Draft& draft);     ///< items of a French or Italian therapist; total
Facts workshopFacts(Draft& draft);     ///< hours, material, net, vat, total; percent
Facts workshopPaidFacts(Draft& draft); ///< the same with discount, advance and rest
Facts valuationFacts(Draft& draft);    ///< buildings; value, rent, real, land, yield
Facts parcelsFacts(Draft& draft);      ///< parcels, each with value and rent; totals
Facts unitFacts(Draft& draft);         ///< a flat of a house: value, rent; whole, share
Facts principalityLandFacts(Draft& draft); ///< value, ground, house, market
Facts buildingCoverFacts(Draft& draft);    ///< new, premium, fire, stamp, total: nothing to enter
Facts assessmentFacts(Draft& draft);       ///< lines, taxable, wealth: nothing to enter
Facts taxBillFacts(Draft& draft);          ///< taxes, paid, interest, open: nothing to enter
Facts quoteFacts(Draft& draft);            ///< items, total: nothing to enter
Facts fundPillarFacts(Draft& draft);       ///< payments, funds; paid, moved, worth, gain, fee
Facts severalPillarsFacts(Draft& draft);   ///< accounts; paid, worth
Facts insuredPillarFacts(Draft& draft);    ///< paid, risk, saving, surrender, death
Facts pillarPairFacts(Draft& draft);       ///< paid, paid2, worth, worth2, both

} // namespace corpus
