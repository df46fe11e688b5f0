#include "TaxCore/result/Derivation.h"

#include "TaxCore/base/JsonWriter.h"

namespace taxcore {

template std::string toJson<Derivation>(const Derivation&, JsonStyle);

namespace {

/// The federal amount where it is another one.
std::optional<Decimal> whereDifferent(const Amounts& amounts) {
    return amounts.federal == amounts.canton ? std::nullopt : std::optional(amounts.federal);
}

std::string numbered(std::string_view name, int person) {
    return std::string(name) + (person > 0 ? std::to_string(person) : "");
}

} // namespace

std::string FieldPath::toString() const {
    std::string path = numbered(record, person);
    if (!list.empty()) {
        path += ".";
        path += list;
    }
    if (index >= 0) {
        path += "[" + std::to_string(index) + "]";
    }
    if (!field.empty()) {
        path += path.empty() ? "" : ".";
        path += field;
    }
    return path;
}

DerivationStep& DerivationRecorder::Draft::add(DerivationStep::Kind kind, std::string_view text) {
    DerivationStep& step = steps_.emplace_back();
    step.kind = kind;
    step.text = text;
    return step;
}

DerivationStep& DerivationRecorder::Draft::add(DerivationStep::Kind kind, std::string_view text,
                                               const Amounts& amounts) {
    DerivationStep& step = add(kind, text);
    step.canton = amounts.canton;
    step.federal = whereDifferent(amounts);
    return step;
}

void DerivationRecorder::Draft::cite(DerivationStep& step, const Law& law) {
    if (!law.canton.empty()) {
        step.lawCanton = law.canton;
    }
    if (!law.federal.empty()) {
        step.lawFederal = law.federal;
    }
}

void DerivationRecorder::Draft::input(std::string_view text, const Decimal& amount,
                                      const FieldPath& path) {
    add(DerivationStep::Kind::input, text, both(amount)).path = path.toString();
}

void DerivationRecorder::Draft::line(std::string_view code, int person, std::string_view text,
                                     const Amounts& amounts) {
    add(DerivationStep::Kind::line, text, amounts).code = numbered(code, person);
}

void DerivationRecorder::Draft::rule(const Law& law, std::string_view text, std::string_view key,
                                     const Amounts& values) {
    DerivationStep& step = add(DerivationStep::Kind::rule, text, values);
    step.ruleKey = key;
    cite(step, law);
}

void DerivationRecorder::Draft::step(std::string_view text, const Amounts& amounts) {
    add(DerivationStep::Kind::step, text, amounts);
}

void DerivationRecorder::Draft::cap(std::string_view text, const Amounts& limits) {
    add(DerivationStep::Kind::cap, text, limits);
}

void DerivationRecorder::Draft::threshold(std::string_view text, const Amounts& limits) {
    add(DerivationStep::Kind::threshold, text, limits);
}

void DerivationRecorder::Draft::rounding(std::string_view text) {
    add(DerivationStep::Kind::rounding, text);
}

void DerivationRecorder::Draft::fact(std::string_view text) {
    add(DerivationStep::Kind::fact, text);
}

void DerivationRecorder::Draft::fact(std::string_view text, const FieldPath& path) {
    add(DerivationStep::Kind::fact, text).path = path.toString();
}

void DerivationRecorder::Draft::law(const Law& law, std::string_view text) {
    cite(add(DerivationStep::Kind::fact, text), law);
}

void DerivationRecorder::keep(std::string code, std::string label, Draft&& draft,
                              const Amounts& amounts) {
    if (!draft.steps_.empty()) {
        derivations_.push_back({std::move(code), std::move(label), std::move(draft.steps_),
                                amounts.canton, whereDifferent(amounts)});
    }
}

} // namespace taxcore
