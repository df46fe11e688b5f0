#pragma once

#include "Fiscarel_SG/forms/Page.h"

#include <string>
#include <vector>

namespace fiscarel::pages {

// The cards of one person's professional costs, by region; the rules may be null.

std::vector<forms::Card> workCardsStGallen(const taxcore::RuleBook* rules, int number);
std::vector<forms::Card> workCardsLiechtenstein(const taxcore::LIRules* rules, int number);

/// "Höchstens 220 Tage; bei 60% Pensum 132.": the limit of days and how part-time work counts them.
std::string mostDaysText(int most);

/// Says that professional costs need a salary; there while the person has none.
forms::FieldsCard needsSalaryCard(int number);

} // namespace fiscarel::pages
