#pragma once

#include "tests/documents/corpus/layouts/Script.h"

// What the scripted papers tell, kind by kind; each notes the truth and names its facts.

namespace corpus {

/// A paper of a kind from one of several senders.
void issuedBy(Draft& draft, const char* kind, const std::vector<QString>& names);

Facts pillarFacts(Draft& draft);         ///< paid, opening, closing, interest, fee, limit; payments
Facts pillarCoupleFacts(Draft& draft);   ///< people, each with paid
Facts pillarBuyInFacts(Draft& draft);    ///< as pillarFacts, with late
Facts accountFacts(Draft& draft);        ///< one account: balance, interest, tax, net
Facts accountsFacts(Draft& draft);       ///< several in `accounts`, totals balance, interest, tax
Facts foreignAccountFacts(Draft& draft); ///< of a bank in Liechtenstein, no tax withheld
Facts loanFacts(Draft& draft);           ///< debt, interest, quarters, redemption, value
Facts loansFacts(Draft& draft);          ///< several in `loans`, totals debt, interest
Facts bankMixFacts(Draft& draft);        ///< accounts and a loan
Facts billFacts(Draft& draft);           ///< items, total, part, taxed, hourly
Facts paidBillFacts(Draft& draft);       ///< as billFacts, with advance and open
Facts creditedBillFacts(Draft& draft);   ///< as billFacts, with credit; total is what is left
Facts careFacts(Draft& draft);           ///< months, total, full, subsidy, meals, rate, deposit
Facts careTwoFacts(Draft& draft);        ///< children, total
Facts courseFacts(Draft& draft);         ///< items, fee, total, instalment, penalty
Facts instalmentFacts(Draft& draft);     ///< instalments, total, open
Facts giftFacts(Draft& draft);           ///< amount, when, goal
Facts giftsFacts(Draft& draft);          ///< gifts, total
Facts membershipFacts(Draft& draft);     ///< fee, amount, both
Facts propertyFacts(Draft& draft);       ///< value, rent, new, real, land, old; place, parcel
Facts premiumFacts(Draft& draft);        ///< basic, extra, total, reduction, net, sharing …
Facts premiumFamilyFacts(Draft& draft);  ///< people, totals
Facts policyFacts(Draft& draft);         ///< surrender, sum, premium, bonus, death
Facts policyPremiumFacts(Draft& draft);  ///< the same, the premium to be noted too
Facts buyInFacts(Draft& draft);          ///< amount, possible, assets, salary; when
Facts buyInsFacts(Draft& draft);         ///< payments, total
Facts pensionFacts(Draft& draft);        ///< month, year12, coming, one-off
Facts pensionPartsFacts(Draft& draft);   ///< parts, amount
Facts salaryFacts(Draft& draft);         ///< by the names of the form's boxes
Facts principalitySalaryFacts(Draft& draft);

} // namespace corpus
