#pragma once

#include "TaxCore/base/EnumText.h"
#include "TaxCore/base/Json.h"
#include "TaxCore/base/Record.h"
#include "TaxCore/result/PerJurisdiction.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace taxcore {

/// The legal basis of a rule. An empty side has no provision of its own.
struct Law {
    std::string_view canton;
    std::string_view federal;
};

/// Where an input stands in the case: "income1.salaries[0].grossSalary". Cheap to make; the text is
/// put together only when somebody asks.
struct FieldPath {
    std::string_view record;    ///< "income", "securities", or empty for a field of the case itself
    int person = 0;             ///< 1 or 2 behind the record's name; 0: none
    std::string_view list = {}; ///< "salaries"
    int index = -1;             ///< position in the list (the record's own without `list`)
    std::string_view field = {};

    std::string toString() const;
};

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
    std::optional<Decimal> canton;  ///< absent for facts
    std::optional<Decimal> federal; ///< absent: the same amount as `canton`

    bool operator==(const DerivationStep&) const = default;
};
TAXCORE_RECORD(DerivationStep, kind, text, path, code, ruleKey, lawCanton, lawFederal, canton,
               federal);

template <>
struct EnumTable<DerivationStep::Kind> {
    using enum DerivationStep::Kind;
    static constexpr std::array rows{
        EnumRow{input, "input", "Eingabe"},       EnumRow{line, "line", "Zeile"},
        EnumRow{rule, "rule", "Regel"},           EnumRow{step, "step", "Zwischenergebnis"},
        EnumRow{cap, "cap", "Höchstbetrag"},      EnumRow{threshold, "threshold", "Schwelle"},
        EnumRow{rounding, "rounding", "Rundung"}, EnumRow{fact, "fact", "Feststellung"},
    };
};
TAXCORE_ENUM_TABLE_CHECK(DerivationStep::Kind);

/// How one line of the return or one figure of the bill came about.
struct Derivation {
    std::string code;                  ///< of the line; for the bill the name of its field
    std::string label;                 ///< German
    std::vector<DerivationStep> steps; ///< in the order of the computation
    Decimal canton;
    std::optional<Decimal> federal; ///< absent: the same amount as `canton`

    bool operator==(const Derivation&) const = default;
};
TAXCORE_RECORD(Derivation, code, label, steps, canton, federal);

extern template std::string toJson<Derivation>(const Derivation&, JsonStyle);

/// The recorder of the plain calculation: records nothing and costs nothing.
struct NoRecorder {
    static constexpr bool enabled = false;

    struct Draft {
        constexpr void input(std::string_view, const Decimal&, const FieldPath&) const noexcept {}
        constexpr void line(std::string_view, int, std::string_view,
                            const Amounts&) const noexcept {}
        constexpr void rule(const Law&, std::string_view, std::string_view,
                            const Amounts&) const noexcept {}
        constexpr void step(std::string_view, const Amounts&) const noexcept {}
        constexpr void cap(std::string_view, const Amounts&) const noexcept {}
        constexpr void threshold(std::string_view, const Amounts&) const noexcept {}
        constexpr void rounding(std::string_view) const noexcept {}
        constexpr void fact(std::string_view) const noexcept {}
        constexpr void fact(std::string_view, const FieldPath&) const noexcept {}
        constexpr void law(const Law&, std::string_view) const noexcept {}
    };

    constexpr Draft draft() const noexcept { return {}; }
    template <class... T>
    constexpr void keep(const T&...) const noexcept {}
};

/// The recorder behind "Warum?": keeps the derivation of every line and figure.
class DerivationRecorder {
  public:
    static constexpr bool enabled = true;

    /// The steps of one line while it is being computed.
    class Draft {
      public:
        /// An entry of the case.
        void input(std::string_view text, const Decimal& amount, const FieldPath& path);
        /// The amount of another line (its code, with the person's number or 0).
        void line(std::string_view code, int person, std::string_view text, const Amounts& amounts);
        /// A value of the rule book under its key there.
        void rule(const Law& law, std::string_view text, std::string_view key,
                  const Amounts& values);
        void step(std::string_view text, const Amounts& amounts);
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
                            const Amounts& amounts);
        static void cite(DerivationStep& step, const Law& law);

        std::vector<DerivationStep> steps_;
    };

    Draft draft() const { return {}; }

    /// Keeps a finished derivation; one without steps tells nothing and is dropped.
    void keep(std::string code, std::string label, Draft&& draft, const Amounts& amounts);

    const std::vector<Derivation>& derivations() const noexcept { return derivations_; }

  private:
    std::vector<Derivation> derivations_;
};

} // namespace taxcore
