#pragma once

#include "TaxCore/base/EnumText.h"
#include "TaxCore/base/Json.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/result/FieldPath.h"
#include "TaxCore/result/PerJurisdiction.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace taxcore {

/// The legal basis of a rule. An empty side has no provision of its own; a rule with one side only
/// concerns that side alone.
struct Law {
    std::string_view canton;
    std::string_view federal;
};

/// Whose tax a figure or a step belongs to.
enum class Concerns { both, canton, federal };

/// The sides for which something holds; it must hold for one at least.
constexpr Concerns concerned(const PerJurisdiction<bool>& holds) noexcept {
    if (holds.canton && holds.federal) {
        return Concerns::both;
    }
    return holds.canton ? Concerns::canton : Concerns::federal;
}

/// What the number of a step counts.
enum class Unit {
    francs,
    share,    ///< a fraction; 0.2 is shown as 20%
    percent,  ///< 105 is shown as 105%
    perMille, ///< 1.7 is shown as 1.7‰
    number,   ///< days, kilometres, persons, a year
};

template <>
struct EnumTable<Unit> {
    using enum Unit;
    static constexpr std::array rows{
        EnumRow{francs, "francs", "Franken"},   EnumRow{share, "share", "Anteil"},
        EnumRow{percent, "percent", "Prozent"}, EnumRow{perMille, "perMille", "Promille"},
        EnumRow{number, "number", "Anzahl"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(Unit);

/// One step of the way to a figure.
struct DerivationStep {
    enum class Kind {
        input,     ///< an entry of the case (`path`)
        line,      ///< the amount of another line or figure (`code`)
        rule,      ///< a value of the rule book (`ruleKey`) with its legal basis
        step,      ///< an intermediate result
        cap,       ///< the limit that applies
        threshold, ///< the limit that must be reached or is taken off
        rounding,  ///< what the law rounds
        fact,      ///< something decided without an amount
    };

    Kind kind = Kind::step;
    std::string text; ///< German
    std::optional<std::string> path;
    std::optional<std::string> code;
    std::optional<std::string> ruleKey; ///< "saeule3a.mitPensionskasse"
    std::optional<std::string> lawCanton;
    std::optional<std::string> lawFederal;
    std::optional<Unit> unit;       ///< absent for steps without an amount
    std::optional<Decimal> canton;  ///< absent where the step does not concern the canton
    std::optional<Decimal> federal; ///< absent where it does not concern the federation

    bool operator==(const DerivationStep&) const = default;
};
TAXCORE_RECORD(DerivationStep, kind, text, path, code, ruleKey, lawCanton, lawFederal, unit, canton,
               federal);

template <>
struct EnumTable<DerivationStep::Kind> {
    using enum DerivationStep::Kind;
    static constexpr std::array rows{
        EnumRow{input, "input", "Eingabe"},       EnumRow{line, "line", "Zeile"},
        EnumRow{rule, "rule", "Regel"},           EnumRow{step, "step", "Zwischenergebnis"},
        EnumRow{cap, "cap", "Höchstbetrag"},      EnumRow{threshold, "threshold", "Schwelle"},
        EnumRow{rounding, "rounding", "Rundung"}, EnumRow{fact, "fact", "Umstand"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(DerivationStep::Kind);

/// How one line of the return or one figure of the bill came about.
struct Derivation {
    std::string code;                  ///< of the line; for the bill the name of its field
    std::string label;                 ///< German
    std::vector<DerivationStep> steps; ///< in the order of the computation
    Unit unit = Unit::francs;
    std::optional<Decimal> canton;  ///< absent for a figure of the federal tax alone
    std::optional<Decimal> federal; ///< absent for a figure of the canton alone

    /// Whose amounts a derivation tells.
    enum class Sides {
        canton,  ///< the canton's alone, or those of a tax without parts
        federal, ///< the federation's alone
        alike,   ///< both, and they are the same in every step
        parted   ///< both, and somewhere they differ
    };
    Sides sides() const;

    /// The line that this figure merely repeats under another name; null for one with a way of its
    /// own.
    const DerivationStep* repeats() const;

    bool operator==(const Derivation&) const = default;
};
TAXCORE_RECORD(Derivation, code, label, steps, unit, canton, federal);

extern template std::string toJson<Derivation>(const Derivation&, JsonStyle);

/// The recorder of the plain calculation: records nothing and costs nothing.
struct NoRecorder {
    static constexpr bool enabled = false;

    struct Draft {
        constexpr void input(std::string_view, const Decimal&, const FieldPath&,
                             Unit = Unit::francs) const noexcept {}
        constexpr void line(std::string_view, int, std::string_view, const Amounts&,
                            Unit = Unit::francs) const noexcept {}
        constexpr void rule(const Law&, std::string_view, std::string_view, const Amounts&,
                            Unit = Unit::francs, Concerns = Concerns::both) const noexcept {}
        constexpr void step(std::string_view, const Amounts&, Unit = Unit::francs) const noexcept {}
        constexpr void cap(std::string_view, const Amounts&) const noexcept {}
        constexpr void threshold(std::string_view, const Amounts&) const noexcept {}
        constexpr void rounding(std::string_view) const noexcept {}
        constexpr void fact(std::string_view) const noexcept {}
        constexpr void fact(std::string_view, const FieldPath&) const noexcept {}
        constexpr void law(const Law&, std::string_view) const noexcept {}
    };

    constexpr Draft draft(Concerns = Concerns::both) const noexcept { return {}; }
    template <class... T>
    constexpr void keep(const T&...) const noexcept {}
};

/// The recorder behind "Warum?": keeps the derivation of every line and figure.
class DerivationRecorder {
  public:
    static constexpr bool enabled = true;

    DerivationRecorder() = default;
    /// Keeps only the derivation of one code.
    explicit DerivationRecorder(std::string_view wanted) : wanted_(wanted) {}

    /// The steps of one line while it is being computed. Steps tell only the sides that the line
    /// concerns.
    class Draft {
      public:
        explicit Draft(Concerns concerns) : concerns_(concerns) {}

        /// An entry of the case.
        void input(std::string_view text, const Decimal& amount, const FieldPath& path,
                   Unit unit = Unit::francs);
        /// The amount of another line (its code, with the person's number or 0).
        void line(std::string_view code, int person, std::string_view text, const Amounts& amounts,
                  Unit unit = Unit::francs);
        /// A value of the rule book under its key there; `concerns` limits it further to the side
        /// where it applies.
        void rule(const Law& law, std::string_view text, std::string_view key,
                  const Amounts& values, Unit unit = Unit::francs,
                  Concerns concerns = Concerns::both);
        void step(std::string_view text, const Amounts& amounts, Unit unit = Unit::francs);
        void cap(std::string_view text, const Amounts& limits);
        void threshold(std::string_view text, const Amounts& limits);
        void rounding(std::string_view text);
        void fact(std::string_view text);
        /// A decision that rests on an entry which is no amount.
        void fact(std::string_view text, const FieldPath& path);
        /// A rule of law that has no value in the rule book.
        void law(const Law& law, std::string_view text);

      private:
        friend class DerivationRecorder;
        DerivationStep& add(DerivationStep::Kind kind, std::string_view text);
        DerivationStep& add(DerivationStep::Kind kind, std::string_view text,
                            const Amounts& amounts, Unit unit, Concerns concerns = Concerns::both);
        void cite(DerivationStep& step, const Law& law, Concerns concerns = Concerns::both) const;
        /// Whether a step that concerns `concerns` tells something of a side of this line.
        bool tellsCanton(Concerns concerns) const noexcept;
        bool tellsFederal(Concerns concerns) const noexcept;

        Concerns concerns_;
        std::vector<DerivationStep> steps_;
    };

    Draft draft(Concerns concerns = Concerns::both) const { return Draft(concerns); }

    /// Keeps a finished derivation; one without steps tells nothing and is dropped.
    void keep(std::string code, std::string label, Draft&& draft, const Amounts& amounts,
              Unit unit = Unit::francs);

    /// What was kept.
    std::vector<Derivation> derivations() && { return std::move(derivations_); }
    /// The first that was kept, if any.
    std::optional<Derivation> first() &&;

  private:
    std::optional<std::string_view> wanted_;
    std::vector<Derivation> derivations_;
};

} // namespace taxcore
