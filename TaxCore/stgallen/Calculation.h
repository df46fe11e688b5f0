#pragma once

// The state of one calculation while it runs; shared by the sections, never seen outside.

#include "TaxCore/base/Rounding.h"
#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/LineBuilder.h"
#include "TaxCore/result/PerJurisdiction.h"
#include "TaxCore/rulebook/RuleBook.h"
#include "TaxCore/stgallen/WorkExpenses.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace taxcore {

/// One adult who counts, with what later steps need of earlier ones.
struct Adult {
    Adult(int n, const Person& who, const PersonIncome& earns, const PersonDeductions& deducts)
        : number(n), person(who), income(earns), deductions(deducts), employment(earns.salaries) {}

    int number; ///< 1 or 2
    const Person& person;
    const PersonIncome& income;
    const PersonDeductions& deductions;
    EmploymentFacts employment;
    PerJurisdiction<WorkExpenseBreakdown> work;
    Amounts pension; ///< pillar 3a, its buy-in and pension-fund buy-ins as deducted

    /// Earned income: salaries, side jobs, self-employment, partnerships and board fees.
    Decimal earned() const {
        return employment.mainNet + employment.sideNet + income.selfEmployment + income.partnership
               + income.boardFees;
    }
    FieldPath incomePath(std::string_view field) const { return {"income", number, {}, -1, field}; }
    FieldPath deductionPath(std::string_view field) const {
        return {"deductions", number, {}, -1, field};
    }
};

template <class Recorder>
struct Calculation {
    Calculation(const RuleBook& book, const TaxCase& taxCase, TaxResult& target, Recorder& recorder)
        : rules(book), input(taxCase), result(target),
          lines(target.sections, recorder), params{&book.cantonal, &book.federal} {
        adults.reserve(2);
        adults.emplace_back(1, taxCase.person1, taxCase.income1, taxCase.deductions1);
        if (taxCase.isJoint()) {
            adults.emplace_back(2, taxCase.person2, taxCase.income2, taxCase.deductions2);
        }
    }

    const RuleBook& rules;
    const TaxCase& input;
    TaxResult& result;
    LineBuilder<Recorder> lines;
    PerJurisdiction<const DeductionParams*> params;
    std::vector<Adult> adults; ///< one or two

    // What the sections leave for those behind them.
    Amounts totalIncome;
    Decimal investmentYield; ///< securities, participations after relief, real estate
    Amounts netIncome;       ///< not below 0
    Amounts taxableIncome;
    Decimal taxableWealth;

    /// A value of both rule files.
    Amounts rule(Decimal DeductionParams::*value) const {
        return {params.canton->*value, params.federal->*value};
    }

    /// In a joint household the lines of one person carry the name.
    std::optional<std::string> nameOf(const Adult& adult) const {
        return input.isJoint() ? std::optional(adult.person.displayName()) : std::nullopt;
    }

    void notify(Notice notice) { result.notices.push_back(std::move(notice)); }

    /// A line for one amount of the case, the same for canton and federation.
    void plainIncome(const LineHead& head, const Law& law, const Decimal& amount,
                     const FieldPath& path, std::optional<std::string> note = {}) {
        auto line = lines.line(head);
        line.why.law(law, head.label);
        line.why.input("Eingetragener Betrag", amount, path);
        line.income(both(amount), std::move(note));
    }
    void plainDeduction(const LineHead& head, const Law& law, const Decimal& amount,
                        const FieldPath& path, std::optional<std::string> note = {}) {
        auto line = lines.line(head);
        line.why.law(law, head.label);
        line.why.input("Eingetragener Betrag", amount, path);
        line.deduction(both(amount), std::move(note));
    }
};

inline Amounts notBelowZero(const Amounts& amounts) {
    return {notBelowZero(amounts.canton), notBelowZero(amounts.federal)};
}
inline Amounts smaller(const Amounts& a, const Amounts& b) {
    return {std::min(a.canton, b.canton), std::min(a.federal, b.federal)};
}

// The sections in their order.
template <class Recorder>
void addIncome(Calculation<Recorder>& c);
template <class Recorder>
void addDeductions(Calculation<Recorder>& c);
template <class Recorder>
void addNetIncomeDeductions(Calculation<Recorder>& c);
template <class Recorder>
void addSocialDeductions(Calculation<Recorder>& c);
template <class Recorder>
void addWealth(Calculation<Recorder>& c);

} // namespace taxcore
