#pragma once

#include "Fiscarel_SG/documents/kinds/KindMappers.h"

namespace fiscarel {

/// Proposes what a paper on pensions says was paid out in its year: of the state's insurances as
/// income of the person, of others as a pension. What was paid is told by arithmetic first: the sum
/// of its parts, months by their rate, a foreign amount by its rate of exchange. Months' rates,
/// capital, other years and what is free of tax (allowances of the helpless) do not count. A couple
/// gets a record each. Does nothing and returns false where no amount proves itself and
/// `isProvenOnly`, or none is found.
bool proposePensions(const KindContext& context, bool isProvenOnly, ProposalDraft& draft);

/// What stands in for a wage: of the unemployment insurance, or for illness, accident, birth,
/// service.
enum class Allowance { unemployment, dailyAllowance };
/// Which of both a paper certifies by its head; absent for other papers, those on wages and on
/// premiums of such an insurance among them.
std::optional<Allowance> allowanceOf(const DocumentRows& document);

/// Proposes what a paper on allowances says that the insured themselves got, after contributions:
/// proven by arithmetic, or said to be what is taxed. Does nothing and returns false for other
/// papers, or where neither is found.
bool proposeAllowances(const KindContext& context, ProposalDraft& draft);

/// Whether a paper names a pension beside an amount that arithmetic proves to be one.
bool provesPension(const DocumentRows& document);

} // namespace fiscarel
