#pragma once

#include "TaxCore/model/Assets.h"
#include "TaxCore/result/Derivation.h"
#include "TaxCore/stgallen/Adult.h"

namespace taxcore {

// Steps that several lines tell alike; nothing is told without a recorder.

/// Of which lines the earned income consists.
void explainEarned(DerivationRecorder::Draft& why, const Adult& adult);
inline void explainEarned(NoRecorder::Draft&, const Adult&) noexcept {}

/// The work expenses and the payments into pillars 2 and 3a that came off it.
void explainEarningCosts(DerivationRecorder::Draft& why, const Adult& adult);
inline void explainEarningCosts(NoRecorder::Draft&, const Adult&) noexcept {}

/// Both gross incomes of a register entry, so far as there are any; `index` is its place there.
void explainGrossIncome(DerivationRecorder::Draft& why, const SecurityEntry& entry, int index);
inline void explainGrossIncome(NoRecorder::Draft&, const SecurityEntry&, int) noexcept {}

} // namespace taxcore
