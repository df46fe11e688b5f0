#pragma once

#include "tests/documents/corpus/layouts/Script.h"

// What the papers of the valley's institutions tell; each notes the truth and names its facts.

namespace corpus {

// Banks: a list item has name, number, balance, interest, tax, net (accounts) or number, rate,
// debt, interest (loans).
Facts valleyRelationFacts(
    Draft& draft); ///< accounts, loans; assets, credit, tax, debts, paid, rest
Facts valleyCurrencyFacts(Draft& draft);  ///< accounts with code, rate, foreign, foreigninterest
Facts valleyOverdrawnFacts(Draft& draft); ///< an overdraft: debt, owed, commission; a saved account
Facts valleyClosedFacts(Draft& draft);    ///< a closed account: payout, when; one that goes on
Facts valleyPrincipalityFacts(Draft& draft); ///< as valleyCurrencyFacts, no tax withheld
Facts valleyTwoYearFacts(Draft& draft);      ///< accounts with before, interestbefore
Facts valleyFeeFacts(Draft& draft);          ///< one account, bookings with what, on, part; fees
Facts valleyTrancheFacts(Draft& draft);      ///< loans with before, redemption, accrued; totals
Facts valleyRegisterFacts(Draft& draft);     ///< shares, funds: valor, count, price, value, a, b
Facts valleyDebtRegisterFacts(Draft& draft); ///< loans with creditor; leasing

// Work and provision.
Facts valleySalaryFacts(Draft& draft); ///< month, thirteenth … ahv, alv, nbu, social, bvg, net
Facts valleySplitSalaryFacts(Draft& draft); ///< the same; social is to be added up by the reader
Facts valleyMonthsFacts(Draft& draft);      ///< months with the columns, totals
Facts valleyQuartersFacts(Draft& draft);    ///< gross1 … gross4, gross and so on
Facts valleyBoardFacts(Draft& draft);       ///< fee, sittings, gross, social, net
Facts valleyEmployersFacts(Draft& draft);   ///< jobs of both spouses
Facts valleyPrincipalitySalaryFacts(Draft& draft); ///< as valleySalaryFacts, wage tax
Facts valleyRisenPensionFacts(Draft& draft);       ///< first, second, count1, count2, amount
Facts valleyOldAgeFacts(Draft& draft);             ///< old-age pensions of both spouses
Facts valleyDisabilityFacts(Draft& draft);         ///< disability pension with a child's
Facts valleyFundChildrenFacts(Draft& draft);       ///< parts with name, month, part
Facts valleyLumpFacts(Draft& draft);               ///< month, amount, capital
Facts valleyForeignPensionFacts(Draft& draft);     ///< in euros with rate and francs
Facts valleyPolicyFacts(Draft& draft);        ///< policies; a tied one without a value for the tax
Facts valleyPolicyPremiumFacts(Draft& draft); ///< one policy with its premium
Facts valleyMembersFacts(Draft& draft);       ///< people; basic1 …, totals, sharing
Facts valleyBuyInFacts(Draft& draft);         ///< part1, part2, amount, repaid, assets
Facts valleyBuyInYearFacts(Draft& draft);     ///< opening, own, employer, amount, interest, closing

// Charities and schools.
Facts valleyGiftsFacts(Draft& draft);    ///< gift1, gift2, amount; on1, on2
Facts valleyPatronFacts(Draft& draft);   ///< amount, lottery, calendar, all
Facts valleyGiftListFacts(Draft& draft); ///< gifts, amount
Facts valleyOwnShareFacts(Draft& draft); ///< price, employer, grant, amount
Facts valleyModulesFacts(Draft& draft);  ///< modules paid in two years; amount, before
Facts valleyCourseFacts(Draft& draft);   ///< fee, material, amount

} // namespace corpus
