#pragma once

#include "tests/documents/corpus/layouts/Script.h"

// What the papers of banks, valuers, managers and advisers by the lake tell; each notes the truth
// and names its facts.

namespace corpus {

/// The kind of the paper, one of the names as its sender, and now and then amounts by hand.
void lakeSender(Draft& draft, const char* kind, const std::vector<QString>& names);
/// A paper that holds nothing to enter; it may be taken for one of these kinds.
void lakeIdle(Draft& draft, const QStringList& alsoKinds, const std::vector<QString>& names);
/// Totals of accounts and of debts may be given besides the lines noted so far.
void acceptSums(Draft& draft);
/// Adds up an amount of the items of a list.
void total(Facts& facts, const char* list, const char* part, const char* name);
/// What the items of a list tell, with their place behind the name: balance1, balance2.
void spread(Facts& facts, const char* list);

// Banks: an account has name, number, balance, interest, tax, net, a (interest with tax withheld)
// and b (without), a loan name, number, rate, until, before, redemption, debt, interest, accrued.
Facts lakeMixFacts(Draft& draft);      ///< rows with all the columns; accounts, loans, depots
Facts lakeCardFacts(Draft& draft);     ///< accounts and at times a loan
Facts lakeClosureFacts(Draft& draft);  ///< a closed account: opening, charge, payout; when
Facts lakeQuartersFacts(Draft& draft); ///< loans, each with quarters: on, days, part
Facts lakeRenewedFacts(Draft& draft);  ///< old and fresh: a loan that took another's place
Facts lakeMatrixFacts(Draft& draft);   ///< three loans, spread
Facts lakeCreditFacts(Draft& draft);   ///< before, month, paid, interest, cover, redemption, debt
Facts lakePlasticFacts(Draft& draft);  ///< before, spent, fees, interest, paid, debt
Facts lakeRatesFacts(Draft& draft);    ///< accounts with code, course, foreign, foreigninterest
Facts lakeJointFacts(Draft& draft);    ///< joint, own: accounts of both and of the second
Facts lakeSignedFacts(Draft& draft);   ///< an overdrawn account: debt, owed; accounts
Facts lakeFeesFacts(Draft& draft);     ///< two accounts, spread, with keeping, cards, post, fees
Facts lakeClassFacts(Draft& draft);    ///< accounts, bonds, shares, funds; sums and weights
Facts lakePositionFacts(Draft& draft); ///< held: positions with moves; sold: one without a value

// Property.
Facts lakeValuesFacts(Draft& draft);     ///< value, rent and what else is valued, old and new
Facts lakeParcelFacts(Draft& draft);     ///< three parcels, spread
Facts lakeRentValueFacts(Draft& draft);  ///< value, rent, reduced, month, before
Facts lakeUpkeepFacts(Draft& draft);     ///< bills with kept, better; amount
Facts lakeFlatFacts(Draft& draft);       ///< items with whole, part; amount, fund, share
Facts lakeRentsFacts(Draft& draft);      ///< tenants with net, side; costs; rent, amount, payout
Facts lakeRentMonthsFacts(Draft& draft); ///< months with net, side, cost
Facts lakeCoverFacts(Draft& draft);      ///< buildings with new, premium: nothing to enter
Facts lakeLandTaxFacts(Draft& draft);    ///< value, rate, tax: nothing to enter

// Letters that hold nothing to enter.
Facts lakeMeetingFacts(Draft& draft);  ///< count, each, gross, tax, net, nominal
Facts lakeGrantFacts(Draft& draft);    ///< count, price, worth, own
Facts lakeReminderFacts(Draft& draft); ///< open, late, fee, total
Facts lakeOfferFacts(Draft& draft);    ///< models with loan, rate, year, month
Facts lakeAdviceFacts(Draft& draft);   ///< sums of an example
Facts lakeOrderFacts(Draft& draft);    ///< count, price, worth, broker, stamp, total
Facts lakeHalfYearFacts(Draft& draft); ///< balance, interest, tax on 30 June
Facts lakePlanFacts(Draft& draft);     ///< loan, payments of the coming year: on, part; year
Facts lakeLeasingFacts(Draft& draft);  ///< month, paid, share, rest

} // namespace corpus
