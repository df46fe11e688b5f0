#include "TaxCore/liechtenstein/LICalculation.h"
#include "TaxCore/liechtenstein/Law.h"

namespace taxcore::li {

namespace {

/// A line that stands once per person, with the name.
template <class R>
auto personalLine(Calculation<R>& c, const Adult& adult, const LineHead& head) {
    return c.lines.line(head, std::string(head.label) + " – " + adult.person.displayName());
}

template <class R>
void addSalaries(Calculation<R>& c, const Adult& adult) {
    auto line = personalLine(
        c, adult, {adult.code("500", "505"), 0, "11.11", "Erwerb gemäss Lohnausweis (brutto)"});
    line.why.law(law::earnings, "Unselbständiger Erwerb");
    line.income(both(sumOf(line.why, "Bruttolohn total (Ziffer 8)", adult.income.salaries,
                           &SalaryCertificate::grossSalary,
                           FieldPath("income", "salaries", "grossSalary").of(adult.number))));
}

template <class R>
void addBoardFees(Calculation<R>& c, const Adult& adult) {
    auto line =
        personalLine(c, adult, {adult.code("510", "515"), 0, "11.3", "Organentschädigungen"});
    line.why.law(law::earnings, "Entschädigungen für Organe juristischer Personen");
    line.why.input("Eingetragener Betrag", adult.income.boardFees, adult.incomePath("boardFees"));
    line.income(both(adult.income.boardFees));
}

template <class R>
void addSelfEmployment(Calculation<R>& c, const Adult& adult) {
    auto line = personalLine(
        c, adult, {adult.code("520", "525"), 0, "12.11", "Erwerb aus selbständiger Tätigkeit"});
    line.why.law(law::earnings, "Selbständiger Erwerb");
    line.why.input("Selbständige Tätigkeit", adult.income.selfEmployment,
                   adult.incomePath("selfEmployment"));
    line.why.input("Anteil an Personengesellschaften", adult.income.partnership,
                   adult.incomePath("partnership"));
    line.income(both(adult.selfEmployment()));
}

/// One amount of each adult, summed for the household.
template <class R, class Line>
Decimal sumOfAdults(const Calculation<R>& c, Line& line, std::string_view text,
                    Decimal PersonIncome::*amount, std::string_view field) {
    Decimal sum;
    for (const Adult& adult : c.adults) {
        const Decimal& part = adult.income.*amount;
        sum += part;
        if (!part.isZero()) {
            line.why.input(text, part, adult.incomePath(field));
        }
    }
    return sum;
}

template <class R>
void addPensions(Calculation<R>& c) {
    auto first = c.lines.line({"540", 0, "13.1", "AHV- und IV-Renten"});
    first.why.law(law::earnings, "Renten");
    first.income(
        both(sumOfAdults(c, first, "AHV/IV-Renten", &PersonIncome::ahvPension, "ahvPension")));

    auto second = c.lines.line({"545", 0, "13.2", "Renten aus beruflicher Vorsorge und Pensionen"});
    second.why.law(law::earnings, "Renten und Pensionen");
    Decimal taxable;
    for (const Adult& adult : c.adults) {
        taxable += taxablePensions(second.why, adult.number, adult.income);
    }
    second.income(both(taxable));

    auto allowances =
        c.lines.line({"555", 0, "13.4", "Taggelder (ALV, Krankenkasse, Unfallversicherung)"});
    allowances.why.law(law::earnings, "Ersatz für Erwerb");
    const Decimal daily =
        sumOfAdults(c, allowances, "Taggelder", &PersonIncome::dailyAllowances, "dailyAllowances");
    const Decimal unemployment = sumOfAdults(c, allowances, "Arbeitslosentaggelder",
                                             &PersonIncome::unemployment, "unemployment");
    allowances.income(both(daily + unemployment));
}

/// Two entries of the household on one line.
template <class R>
void addPair(Calculation<R>& c, const LineHead& head, std::string_view basis,
             const std::pair<std::string_view, std::string_view>& texts,
             Decimal HouseholdIncome::*one, std::string_view oneField,
             Decimal HouseholdIncome::*other, std::string_view otherField) {
    const HouseholdIncome& income = c.input.householdIncome;
    auto line = c.lines.line(head);
    line.why.law(law::earnings, basis);
    line.why.input(texts.first, income.*one, FieldPath("householdIncome", oneField));
    line.why.input(texts.second, income.*other, FieldPath("householdIncome", otherField));
    line.income(both(income.*one + income.*other));
}

} // namespace

template <class R>
void addIncome(Calculation<R>& c) {
    c.lines.section(
        {.title = "Erwerb im In- und Ausland", .page = 3, .concerns = Concerns::canton});
    for (const Adult& adult : c.adults) {
        addSalaries(c, adult);
    }
    for (const Adult& adult : c.adults) {
        addBoardFees(c, adult);
    }
    for (const Adult& adult : c.adults) {
        addSelfEmployment(c, adult);
    }
    addPensions(c);
    addPair(c, {"565", 0, "14.5", "Unterhaltsbeiträge"}, "Erhaltene Unterhaltsbeiträge",
            {"Für sich", "Für Kinder"}, &HouseholdIncome::alimonyReceivedSelf,
            "alimonyReceivedSelf", &HouseholdIncome::alimonyReceivedChildren,
            "alimonyReceivedChildren");

    auto notional = c.lines.line({"570", 0, "14.6", "Sollertrag (aus Ziffer 7)"});
    notional.why.law(law::notionalYield, "Der Sollertrag des Vermögens zählt als Erwerb");
    notional.why.line("885", 0, "Sollertrag", both(c.notionalYield));
    notional.income(both(c.notionalYield));

    addPair(c, {"568", 0, "14.7", "Übriger Erwerb"}, "Übriger Erwerb",
            {"Unverteilte Erbschaften", "Übrige Einkünfte"}, &HouseholdIncome::undividedEstates,
            "undividedEstates", &HouseholdIncome::otherIncome, "otherIncome");

    auto total = c.lines.line({"575", 0, "15", "Total Erwerb"});
    c.lines.explainSum(total);
    c.totalIncome = c.lines.sum().canton;
    total.subtotal(c.lines.sum());
}

template void addIncome(Calculation<NoRecorder>&);
template void addIncome(Calculation<DerivationRecorder>&);

} // namespace taxcore::li
