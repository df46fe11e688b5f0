#include "TaxCore/stgallen/Explanations.h"

namespace taxcore {

namespace {

void addLine(DerivationRecorder::Draft& why, std::string_view code, int person,
             std::string_view text, const Amounts& amounts) {
    if (!isZero(amounts)) {
        why.line(code, person, text, amounts);
    }
}

} // namespace

void explainEarned(DerivationRecorder::Draft& why, const Adult& adult) {
    const int n = adult.number;
    addLine(why, "haupterwerb", n, "Haupterwerb", both(adult.employment.mainNet));
    addLine(why, "nebenerwerb", n, "Nebenerwerb", both(adult.employment.sideNet));
    addLine(why, "selbstaendig", n, "Selbständige Erwerbstätigkeit",
            both(adult.income.selfEmployment));
    addLine(why, "sitzungsgelder", n, "Sitzungsgelder, VR-Honorare", both(adult.income.boardFees));
    addLine(why, "gesellschaften", n, "Kollektiv-/Kommanditgesellschaften",
            both(adult.income.partnership));
}

void explainEarningCosts(DerivationRecorder::Draft& why, const Adult& adult) {
    const int n = adult.number;
    addLine(why, "berufskosten", n, "− Berufskosten", adult.workExpenses());
    addLine(why, "saeule3a", n, "− Säule 3a", adult.pillar3a);
    addLine(why, "einkauf3a", n, "− Einkauf Säule 3a", adult.pillar3aBuyIn);
    addLine(why, "saeule2", n, "− Einkäufe Säule 2", both(adult.deductions.pensionBuyIn));
}

void explainGrossIncome(DerivationRecorder::Draft& why, const SecurityEntry& entry, int index) {
    const auto tell = [&](std::string_view text, const Decimal& amount, std::string_view field) {
        if (!amount.isZero()) {
            why.input(text, amount, FieldPath("securities", field).at(index));
        }
    };
    tell("Bruttoertrag mit Verrechnungssteuer", entry.incomeWithWithholding,
         "incomeWithWithholding");
    tell("Bruttoertrag ohne Verrechnungssteuer", entry.incomeWithoutWithholding,
         "incomeWithoutWithholding");
}

} // namespace taxcore
