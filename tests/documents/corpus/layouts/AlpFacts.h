#pragma once

#include "tests/documents/corpus/layouts/Script.h"

// What the papers of the alp's day care, foundations, funds, charities and schools tell; each notes
// the truth and names its facts. A list item of children has who, first, born.

namespace corpus {

/// "14 March 2024"
QString englishDate(QDate day);

// Day care.
Facts alpCostKindsFacts(Draft& draft);    ///< rows of costs with a1…a3, sum; n1…n3, net; meals
Facts alpMonthListFacts(Draft& draft);    ///< entries with month, first, days, part; t1, t2, total
Facts alpMonthBillFacts(Draft& draft);    ///< one month: items, care, meals, total; budget: no year
Facts alpCareRefundFacts(Draft& draft);   ///< quarters, charged, refund, left, paid, deposit
Facts alpFamilyTotalFacts(Draft& draft);  ///< total of two children, nothing of either
Facts alpCampFacts(Draft& draft);         ///< weeks with first, from, until, part; children
Facts alpPlaygroupFacts(Draft& draft);    ///< quarters, care, material, fee, all
Facts alpEmployerCareFacts(Draft& draft); ///< full, employer, paid
Facts alpCareRowsFacts(Draft& draft);     ///< children with full, discount, aid, net, meals; totals
Facts alpCarePairFacts(Draft& draft);     ///< the same of two children
Facts alpCareMonthsFacts(Draft& draft);   ///< months with days, care, meals, sum; totals
Facts alpCareExpatFacts(Draft& draft);    ///< one child: paid, meals, entry; in English
Facts alpDayMotherFacts(
    Draft& draft); ///< children with hours, rate, care, meals, back, paid; total

// Pillar 3a.
Facts alpRefusedFacts(Draft& draft);         ///< payments with in?, out?; got, back, paid
Facts alpGapFacts(Draft& draft);             ///< payments, paid, late, gap, all
Facts alpWaiverFacts(Draft& draft);          ///< premium, waived, paid, surrender
Facts alpTwoPoliciesFacts(Draft& draft);     ///< tied and free policy: risk, saving, premium
Facts alpContractColumnsFacts(Draft& draft); ///< payments with a1…a3, sum; t1…t3, paid
Facts alpLeftFacts(Draft& draft);    ///< opening, paid, moved (away), interest, fee, closing
Facts alpArrivedFacts(Draft& draft); ///< payments, moved (here), paid, worth
Facts alpCoupleContractsFacts(Draft& draft); ///< people with contracts; paid of each
Facts alpPillarFormFacts(Draft& draft);      ///< paid, whole francs

// Pension funds.
Facts alpBuyInInterestFacts(Draft& draft); ///< payments with part, interest, credit; totals
Facts alpBuyInSpousesFacts(Draft& draft);  ///< amount, amount2; when, when2
Facts alpBuyInWageFacts(Draft& draft);     ///< wage, private, all
Facts alpBuyInPlanFacts(Draft& draft);     ///< agreed, before, amount, rest
Facts alpBuyInFirmFacts(Draft& draft);     ///< firm, amount, all, possible

// Charities.
Facts alpPartyFacts(Draft& draft);       ///< member, mandate, gift, amount
Facts alpReceiptsFacts(Draft& draft);    ///< receipts with on, part, number: a gift each
Facts alpGoodsFacts(Draft& draft);       ///< money, goods, amount, hours
Facts alpParishFacts(Draft& draft);      ///< tax, gift, collection, amount
Facts alpChurchTaxFacts(Draft& draft);   ///< taxes of a parish: nothing to enter
Facts alpSponsorFacts(Draft& draft);     ///< months with m1…m12; month, amount
Facts alpAssociationFacts(Draft& draft); ///< fee, gifts, amount, all

// Schools.
Facts alpCancelledFacts(Draft& draft);     ///< fee, material, refund, amount
Facts alpLearnersFacts(Draft& draft);      ///< both spouses: course, on, part
Facts alpSchoolAccountFacts(Draft& draft); ///< lines with debit, credit, balance; amount, open
Facts alpCreditsFacts(Draft& draft);       ///< modules with credits, part; exam, books, amount
Facts alpFirmShareFacts(Draft& draft);     ///< price, firm, amount
Facts alpTuitionFacts(Draft& draft);       ///< instalments of two years: amount, next, all

} // namespace corpus
