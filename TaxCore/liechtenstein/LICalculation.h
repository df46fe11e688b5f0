#pragma once

// The state of one Liechtenstein calculation while it runs; never seen outside.

#include "TaxCore/model/Household.h"
#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/AdultEntries.h"
#include "TaxCore/result/LineBuilder.h"
#include "TaxCore/rulebook/LIRules.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace taxcore::li {

/// One adult who counts.
struct Adult : AdultEntries {
    LICommute commute;

    Decimal grossSalary() const {
        Decimal sum;
        for (const SalaryCertificate& certificate : income.salaries) {
            sum += certificate.grossSalary;
        }
        return sum;
    }
    Decimal selfEmployment() const { return income.selfEmployment + income.partnership; }
    /// What pension-fund contributions are measured on.
    Decimal earned() const { return grossSalary() + income.boardFees + selfEmployment(); }
    /// The code of a line that stands once per person.
    std::string_view code(std::string_view first, std::string_view second) const noexcept {
        return number == 1 ? first : second;
    }
};

template <class Recorder>
struct Calculation {
    Calculation(const LIRules& year, const TaxCase& taxCase, TaxResult& target, Recorder& recorder)
        : rules(year), input(taxCase), extras(taxCase.liExtras()), result(target),
          lines(target.sections, recorder), kind(liTariffOf(taxCase)),
          children(deductibleChildCount(taxCase)) {
        adults.reserve(2);
        forEachAdult(taxCase, [&](const AdultEntries& entries) {
            adults.push_back({entries, entries.number == 1 ? extras.commute1 : extras.commute2});
        });
    }

    const LIRules& rules;
    const TaxCase& input;
    LIExtras extras;
    TaxResult& result;
    LineBuilder<Recorder> lines;
    LITariffKind kind;
    int children;              ///< who give deductions in the year
    std::vector<Adult> adults; ///< one or two

    // What the sections leave for those behind them; francs.
    Decimal netWealth;
    Decimal notionalYield;
    Decimal totalIncome;
    Decimal taxable;

    void notify(Notice notice) { result.notices.push_back(std::move(notice)); }

    /// A line of income for one amount of the case.
    void plainIncome(const LineHead& head, const Law& law, const Decimal& amount,
                     const FieldPath& path) {
        auto line = lines.line(head);
        line.why.law(law, line.label());
        line.why.input("Eingetragener Betrag", amount, path);
        line.income(both(amount));
    }
};

// The sections in their order.
template <class Recorder>
void addWealth(Calculation<Recorder>& c);
template <class Recorder>
void addIncome(Calculation<Recorder>& c);
template <class Recorder>
void addDeductions(Calculation<Recorder>& c);
/// National tax, municipal surcharge and the bill. SteG Art. 19 und 75
template <class Recorder>
void addTaxes(Calculation<Recorder>& c);

/// The bill for a taxable income and a net wealth in francs: national tax and surcharge, each plain
/// to 5 Rappen, and the effective rate in percent to three places. SteG Art. 19 und 75
TaxBill makeBill(const LIRules& rules, const TaxCase& taxCase, const Decimal& taxable,
                 const Decimal& netWealth);

/// Value of a vehicle: an override as it stands, else the price less the yearly share of the
/// declining value for each calendar year since the purchase, plain to whole francs; a missing or
/// later year of purchase gives the price. SteG Art. 12
Decimal vehicleValue(const Vehicle& vehicle, int year, const LIRules& rules);

} // namespace taxcore::li
