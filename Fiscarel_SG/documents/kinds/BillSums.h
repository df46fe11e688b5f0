#pragma once

#include "Fiscarel_SG/documents/kinds/AmountFinder.h"

#include <optional>
#include <vector>

namespace fiscarel {

/// An amount that others on the same bill lead to.
struct SummedAmount {
    FoundAmount found;
    std::optional<ProposalCheck> check; ///< the sum that holds; absent without one
};

/// The total that a net amount and the value added tax below it lead to, to five cents, whatever
/// its words; absent when no row of tax has both beside it.
std::optional<SummedAmount> totalWithTax(const std::vector<RowRange>& ranges);

/// An amount where it is printed as such; absent where it is not.
std::optional<FoundAmount> foundPrinted(const DocumentRows& document, const Decimal& value);

/// What several amounts come to, where that is printed: payments of a year, accounts; or the last,
/// which is the sum of the others. Absent for one alone and where their sum stands nowhere.
std::optional<SummedAmount> wholeOfParts(const DocumentRows& document,
                                         const std::vector<FoundAmount>& found);
/// Whether the same words, but for days and numbers, found them all.
bool haveOneLabel(const std::vector<FoundAmount>& found);

/// What the amounts of a list come to that one is part of: those above and below it in its column,
/// without what is barred or alien. Absent for less than two and where their sum stands nowhere.
std::optional<SummedAmount> wholeOfList(const DocumentRows& document, const FoundAmount& part,
                                        const Wanted& wanted);

/// The only day below each of several amounts, up to the next; empty where one has none or
/// more, or they follow each other as in a list.
std::vector<taxcore::Date> daysBelow(const std::vector<FoundAmount>& all);

/// A total that is the sum of its column without those of its parts that are something else; absent
/// where it has none.
std::optional<SummedAmount> withoutAlien(const FoundAmount& total, const Wanted& wanted);

/// What remains of a total without a part of it that is told apart, where that is printed.
std::optional<SummedAmount> withoutPart(const DocumentRows& document, const FoundAmount& total,
                                        const Decimal& part);

/// What became of amounts that a paper says were given back or borne by others.
struct Settled {
    bool isTold = false;              ///< the paper tells of such an amount
    std::optional<SummedAmount> rest; ///< what remains after them, where the figures prove it
};

/// Looks for amounts given back to somebody, or borne by a commune or an employer, beside one that
/// was found, and for what remains: the amount itself, when with them it is another printed one;
/// else the printed one that it is without them. `credits`: words of rows that tell of payments, as
/// a "Gutschrift" is on an account.
Settled afterGivenBack(const DocumentRows& document, const FoundAmount& found,
                       const Labels& credits = {});

/// What a bill comes to once the credits below its total took off what was billed by mistake, where
/// that is printed below them; absent without such credits.
std::optional<SummedAmount> afterCorrection(const FoundAmount& total);

/// The total that what is still open comes from, where what was paid before stands between.
FoundAmount beforeAdvance(const FoundAmount& open);
/// Whether an advance stands above an amount in its column, so that it may be what remains only.
bool isAfterAdvance(const FoundAmount& open);

/// What was billed of a total that includes the costs of a reminder or interest for delay. Absent
/// when it includes none. Without a check when it is printed nowhere.
std::optional<SummedAmount> withoutReminder(const FoundAmount& total);

/// What remains of an amount above when all amounts between are taken off, as the part of a patient
/// does of a hospital's bill; absent when no amount above leads to it.
std::optional<ProposalCheck> remainderCheck(const FoundAmount& rest);

/// That a share and what an insurer or the state bears, beside it in the same column, come to a
/// total that is printed and is not what remains to be paid.
std::optional<ProposalCheck> sharesCheck(const std::vector<RowRange>& ranges,
                                         const FoundAmount& share);

/// The total of a bill that is paid in several equal parts, by one of them.
struct Instalments {
    int count = 0;
    bool areOfOneYear = true; ///< as far as their days are told
};
/// Absent when a bill names no instalments, or its total is no multiple of that one.
std::optional<Instalments> instalmentsOf(const std::vector<RowRange>& ranges, const Decimal& total,
                                         const Decimal& part);

} // namespace fiscarel
