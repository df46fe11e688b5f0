#pragma once

// The state of one calculation while it runs; shared by the sections, never seen outside.

#include "TaxCore/base/Rounding.h"
#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/LineBuilder.h"
#include "TaxCore/result/PerJurisdiction.h"
#include "TaxCore/rulebook/RuleBook.h"
#include "TaxCore/stgallen/Adult.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace taxcore {

/// The state: what was read, what goes out, and what later sections need of earlier ones.
template <class Recorder>
struct Calculation {
    Calculation(const RuleBook& book, const TaxCase& taxCase, TaxResult& target, Recorder& recorder)
        : rules(book), input(taxCase), result(target),
          lines(target.sections, recorder), params{&book.cantonal, &book.federal} {
        adults.reserve(2);
        forEachAdult(taxCase, [&](const AdultEntries& entries) { adults.emplace_back(entries); });
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

    /// The yearly amounts that a rule gives on both sides.
    template <class Rule>
    Amounts byRule(const Rule& rule) const {
        return each([&](const DeductionParams* p) { return Decimal(rule(*p)); }, params);
    }
    /// A value of both rule files.
    Amounts rule(Decimal DeductionParams::*value) const {
        return {params.canton->*value, params.federal->*value};
    }

    /// In a joint household the lines of one person carry the name.
    std::optional<std::string> nameOf(const Adult& adult) const {
        return input.isJoint() ? std::optional(adult.person.displayName()) : std::nullopt;
    }

    /// Tells a line of the return that stands already, if it does, as what a later one builds on.
    template <class Draft>
    void quote(Draft& why, std::string_view code) const {
        if (const TaxLine* line = result.line(code)) {
            const Amounts amounts{line->canton, line->federalOrCanton()};
            why.line(code, 0, line->label,
                     line->kind == TaxLine::Kind::deduction ? Amounts{} - amounts : amounts);
        }
    }

    void notify(Notice notice) { result.notices.push_back(std::move(notice)); }

    /// A line for one amount of the case, the same for canton and federation.
    void plainIncome(const LineHead& head, const Law& law, const Decimal& amount,
                     const FieldPath& path, std::optional<std::string> note = {}) {
        auto line = lines.line(head);
        line.why.law(law, line.label());
        line.why.input("Eingetragener Betrag", amount, path);
        line.income(both(amount), std::move(note));
    }
    void plainDeduction(const LineHead& head, const Law& law, const Decimal& amount,
                        const FieldPath& path, std::optional<std::string> note = {}) {
        auto line = lines.line(head);
        line.why.law(law, line.label());
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

/// StG SG Art. 34, DBG Art. 21
template <class Recorder>
void addRealEstateIncome(Calculation<Recorder>& c);
/// StG SG Art. 44 Abs. 2, DBG Art. 32 Abs. 2 und 4
template <class Recorder>
void addRealEstateCosts(Calculation<Recorder>& c);

/// StG SG Art. 39, DBG Art. 26
template <class Recorder>
void addWorkExpenses(Calculation<Recorder>& c, Adult& adult);
/// DBG Art. 33 Abs. 2
template <class Recorder>
void addTwoEarners(Calculation<Recorder>& c);
/// With the buy-in. StG SG Art. 45 Abs. 1 Bst. e, DBG Art. 33 Abs. 1 Bst. e, BVV 3 Art. 7 und 7a
template <class Recorder>
void addPillar3a(Calculation<Recorder>& c, Adult& adult);
template <class Recorder>
void addPillar2(Calculation<Recorder>& c, const Adult& adult);
/// StG SG Art. 45 Abs. 1 Bst. g, DBG Art. 33 Abs. 1 Bst. g und Abs. 1bis
template <class Recorder>
void addInsurance(Calculation<Recorder>& c);

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
