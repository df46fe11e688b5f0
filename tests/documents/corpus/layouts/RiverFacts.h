#pragma once

#include "tests/documents/corpus/layouts/Facts.h"

#include <initializer_list>

// What the papers along the river tell, and how those are set that no script can tell.

namespace corpus {

/// The words of a label in the three languages, by the name a script calls it.
struct RiverWord {
    const char* name;
    const char* german;
    const char* french;
    const char* italian;
};
void riverWords(Draft& draft, Facts& facts, std::initializer_list<RiverWord> words);
/// Thousandths of an amount, to five centimes.
Cents riverPart(Cents whole, int permille);
/// Nothing of it belongs in the return; it may be taken for one of these kinds.
void riverNothing(Draft& draft, const QStringList& alsoKinds, const std::vector<QString>& names);
/// A cost of illness of the first of the household.
TruthRecord riverCost(const Draft& draft, Cents gross);

// Work: month, thirteenth, overtime, children, gross, ahv, alv, nbu, social, bvg, net.
Facts riverPayFacts(Draft& draft);
Facts riverSplitPayFacts(Draft& draft);     ///< the same; social is to be added up by the reader
Facts riverMonthsPayFacts(Draft& draft);    ///< gross1 … gross12 and so on, with the year
Facts riverHomeHelpFacts(Draft& draft);     ///< months with hours and part; wage, holiday …
Facts riverSimplifiedFacts(Draft& draft);   ///< gross, social, tax, net; nothing to enter
Facts riverJoblessFacts(Draft& draft);      ///< months with days; gross, ahv, bvg, nbu, net
Facts riverAccidentDaysFacts(Draft& draft); ///< periods with days, rate, percent, part; total
Facts riverMaternityFacts(Draft& draft);    ///< periods; gross, social, net of each recipient
Facts riverCouncilFacts(Draft& draft);      ///< rows of two sittings; lump, gross, social, net
Facts riverWageTaxFacts(Draft& draft);      ///< months; gross, social, bvg, net, wagetax
Facts riverCorrectedPayFacts(Draft& draft); ///< pay with old… and diff… of each
Facts riverSecondPayFacts(Draft& draft);    ///< a second employer's, smaller

// Pensions and life insurers.
Facts riverSupplementFacts(Draft& draft);    ///< month, pension, el, elyear, both
Facts riverArrearsFacts(Draft& draft);       ///< periods; total, offset, paid, current
Facts riverAnnuityFacts(Draft& draft);       ///< guaranteed, bonus, amount, taxable, capital
Facts riverForeignFacts(Draft& draft);       ///< quarters with euros, rate, francs; amount
Facts riverCoupleFacts(Draft& draft);        ///< people with month, part, child
Facts riverCalendarFacts(Draft& draft);      ///< months with on, part; own, kid, amount
Facts riverWithheldFacts(Draft& draft);      ///< month, amount, premium, rent, paid
Facts riverUnitsFacts(Draft& draft);         ///< funds; value, cost, surrender, sum, premium
Facts riverAccidentCoverFacts(Draft& draft); ///< death, disability, daily, stamp, premium
Facts riverPremiumBillFacts(Draft& draft);   ///< premium, waiver, rider, total, sum

// Health.
Facts riverPanelFacts(Draft& draft);       ///< people with basic, extra; totals, reduction, net
Facts riverStepsFacts(Draft& draft);       ///< steps1 … steps3, total1 …, total
Facts riverInvoicesFacts(Draft& draft);    ///< invoices; basic, accident, extra, total
Facts riverToldFacts(Draft& draft);        ///< one person's premiums and cost sharing
Facts riverClaimFacts(Draft& draft);       ///< items; tariff, drugs, lab, total
Facts riverInstalmentsFacts(Draft& draft); ///< items, lab, total; instalments
Facts riverHomeCareFacts(Draft& draft);    ///< items; full, insurer, commune, own, material, total
Facts riverCareHomeFacts(Draft& draft);    ///< board, care, insurer, canton, own, extras, total
Facts riverOpticianFacts(Draft& draft);    ///< items, sum, discount, insurer, own
Facts riverPharmacyFacts(Draft& draft);    ///< rows of two months; free, covered
Facts riverSessionsFacts(Draft& draft);    ///< rows of four sessions; count, rate, total

Facts riverReminderFacts(Draft& draft); ///< total, paid, left, fee, open

// Letters that yield nothing.
Facts riverFundStatementFacts(Draft& draft);
Facts riverCapitalFacts(Draft& draft);
Facts riverSupplementDecisionFacts(Draft& draft);
Facts riverWageAgreementFacts(Draft& draft);
Facts riverNextPremiumsFacts(Draft& draft);
Facts riverRiseFacts(Draft& draft);
Facts riverContentsFacts(Draft& draft);
Facts riverTaxInstalmentsFacts(Draft& draft);
Facts riverOfferFacts(Draft& draft);

} // namespace corpus
