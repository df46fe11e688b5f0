#include "TaxCore/result/Derivation.h"

#include "TaxCore/base/JsonWriter.h"

namespace taxcore {

template std::string toJson<Derivation>(const Derivation&, JsonStyle);

namespace {

std::string numbered(std::string_view name, int person) {
    return std::string(name) + (person > 0 ? std::to_string(person) : "");
}

/// A law that names only one side has nothing to say of the other.
Concerns sidesOf(const Law& law) noexcept {
    if (law.federal.empty() && !law.canton.empty()) {
        return Concerns::canton;
    }
    return law.canton.empty() && !law.federal.empty() ? Concerns::federal : Concerns::both;
}

} // namespace

using Draft = DerivationRecorder::Draft;

bool Draft::tellsCanton(Concerns concerns) const noexcept {
    return concerns_ != Concerns::federal && concerns != Concerns::federal;
}

bool Draft::tellsFederal(Concerns concerns) const noexcept {
    return concerns_ != Concerns::canton && concerns != Concerns::canton;
}

DerivationStep& Draft::add(DerivationStep::Kind kind, std::string_view text) {
    DerivationStep& step = steps_.emplace_back();
    step.kind = kind;
    step.text = text;
    return step;
}

DerivationStep& Draft::add(DerivationStep::Kind kind, std::string_view text, const Amounts& amounts,
                           Unit unit, Concerns concerns) {
    DerivationStep& step = add(kind, text);
    step.unit = unit;
    if (tellsCanton(concerns)) {
        step.canton = amounts.canton;
    }
    if (tellsFederal(concerns)) {
        step.federal = amounts.federal;
    }
    return step;
}

void Draft::cite(DerivationStep& step, const Law& law, Concerns concerns) const {
    if (!law.canton.empty() && tellsCanton(concerns)) {
        step.lawCanton = law.canton;
    }
    if (!law.federal.empty() && tellsFederal(concerns)) {
        step.lawFederal = law.federal;
    }
}

void Draft::input(std::string_view text, const Decimal& amount, const FieldPath& path, Unit unit) {
    add(DerivationStep::Kind::input, text, both(amount), unit).path = path.toString();
}

void Draft::line(std::string_view code, int person, std::string_view text, const Amounts& amounts,
                 Unit unit) {
    add(DerivationStep::Kind::line, text, amounts, unit).code = numbered(code, person);
}

void Draft::rule(const Law& law, std::string_view text, std::string_view key, const Amounts& values,
                 Unit unit, Concerns concerns) {
    const Concerns sides = concerns == Concerns::both ? sidesOf(law) : concerns;
    if (!tellsCanton(sides) && !tellsFederal(sides)) {
        return;
    }
    DerivationStep& step = add(DerivationStep::Kind::rule, text, values, unit, sides);
    step.ruleKey = key;
    cite(step, law, sides);
}

void Draft::step(std::string_view text, const Amounts& amounts, Unit unit) {
    add(DerivationStep::Kind::step, text, amounts, unit);
}

void Draft::cap(std::string_view text, const Amounts& limits) {
    add(DerivationStep::Kind::cap, text, limits, Unit::francs);
}

void Draft::threshold(std::string_view text, const Amounts& limits) {
    add(DerivationStep::Kind::threshold, text, limits, Unit::francs);
}

void Draft::rounding(std::string_view text) { add(DerivationStep::Kind::rounding, text); }

void Draft::fact(std::string_view text) { add(DerivationStep::Kind::fact, text); }

void Draft::fact(std::string_view text, const FieldPath& path) {
    add(DerivationStep::Kind::fact, text).path = path.toString();
}

void Draft::law(const Law& law, std::string_view text) {
    cite(add(DerivationStep::Kind::fact, text), law);
}

std::optional<Derivation> DerivationRecorder::first() && {
    return derivations_.empty() ? std::nullopt : std::optional(std::move(derivations_.front()));
}

void DerivationRecorder::keep(std::string code, std::string label, Draft&& draft,
                              const Amounts& amounts, Unit unit) {
    if (draft.steps_.empty() || (wanted_ && *wanted_ != code)) {
        return;
    }
    Derivation& kept = derivations_.emplace_back();
    kept.code = std::move(code);
    kept.label = std::move(label);
    kept.steps = std::move(draft.steps_);
    kept.unit = unit;
    if (draft.concerns_ != Concerns::federal) {
        kept.canton = amounts.canton;
    }
    if (draft.concerns_ != Concerns::canton) {
        kept.federal = amounts.federal;
    }
}

const DerivationStep* Derivation::repeats() const {
    if (steps.size() != 1) {
        return nullptr;
    }
    const DerivationStep& only = steps.front();
    const bool isSame = only.kind == DerivationStep::Kind::line && only.text == label
                        && only.canton == canton && only.federal == federal;
    return isSame ? &only : nullptr;
}

Derivation::Sides Derivation::sides() const {
    bool hasCanton = canton.has_value();
    bool hasFederal = federal.has_value();
    bool differs = canton != federal;
    for (const DerivationStep& step : steps) {
        hasCanton = hasCanton || step.canton;
        hasFederal = hasFederal || step.federal;
        differs = differs || step.canton != step.federal;
    }
    if (hasCanton && hasFederal) {
        return differs ? Sides::parted : Sides::alike;
    }
    return hasFederal ? Sides::federal : Sides::canton;
}

} // namespace taxcore
