// The chapters that explain: limits that applied, notices, the way to every amount, the documents.

#include "Fiscarel_SG/outputs/ReportParts.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

namespace fiscarel::outputs {

using namespace taxcore;

namespace {

using Kind = DerivationStep::Kind;
using Weight = ReportRow::Weight;

// Limits.

/// Whether a step may set a limit to the amount.
bool isLimit(const DerivationStep& step) {
    static constexpr std::array marks{"höchstens", "Höchst", "mindestens", "Mindest", "Nie mehr"};
    return step.unit == Unit::francs
           && (step.kind == Kind::cap
               || (step.kind == Kind::rule && std::ranges::any_of(marks, [&](const char* mark) {
                       return step.text.find(mark) != std::string::npos;
                   })));
}

/// The intermediate result that comes out after a step; null when it is the result itself.
const DerivationStep* outcome(const Derivation& derivation, std::size_t after) {
    for (std::size_t i = after + 1; i < derivation.steps.size(); ++i) {
        const DerivationStep& step = derivation.steps[i];
        if (step.kind == Kind::step && step.unit == Unit::francs) {
            return &step;
        }
    }
    return nullptr;
}

/// The limit of one side, where it decides: a threshold always, others where what comes out is just
/// as large.
std::string applied(const DerivationStep& limit, const std::optional<Decimal>& value,
                    const std::optional<Decimal>& result) {
    const bool decides = limit.kind == Kind::threshold || (value == result && !value->isZero());
    return value && decides ? money(*value) : std::string();
}

/// What a limit is called: "Verpflegung: im Jahr höchstens", "Selbstbehalt".
std::string limitName(const DerivationStep& limit, const DerivationStep* outcome) {
    constexpr std::string_view minus = "− ";
    if (outcome != nullptr && limit.kind == Kind::rule) {
        return outcome->text + ": " + limit.text;
    }
    if (limit.text == "höchstens" || limit.text == "mindestens") {
        return "Abzug " + limit.text;
    }
    return limit.text.starts_with(minus) ? limit.text.substr(minus.size()) : limit.text;
}

std::string lawOf(const DerivationStep& step) {
    return dotted({step.lawCanton.value_or(""), step.lawFederal.value_or("")});
}

/// The derivations in the order of the return, then those of the bill.
std::vector<const Derivation*> inOrder(const ReportMaterial& material) {
    std::vector<const Derivation*> ordered;
    std::set<std::string_view> seen;
    for (const TaxSection& section : material.result().sections) {
        for (const TaxLine& line : section.lines) {
            if (const Derivation* const reason = material.reason(line.code);
                reason != nullptr && seen.insert(reason->code).second) {
                ordered.push_back(reason);
            }
        }
    }
    for (const Derivation& derivation : material.derivations) {
        const auto isAmount = [](const std::optional<Decimal>& value) {
            return value && !value->isZero();
        };
        if ((isAmount(derivation.canton) || isAmount(derivation.federal))
            && derivation.repeats() == nullptr && seen.insert(derivation.code).second) {
            ordered.push_back(&derivation);
        }
    }
    return ordered;
}

/// "11 Schuldzinsen", as the return has the line.
std::string titleOf(const Derivation& derivation, const TaxLine* line) {
    return line == nullptr || line->ziffer.empty() ? derivation.label
                                                   : line->ziffer + " " + derivation.label;
}

/// The name in the note of a line that each person has of their own.
std::string personOf(const TaxLine* line, const TaxCase& taxCase) {
    if (line == nullptr || !line->note) {
        return {};
    }
    for (const Person& person : taxCase.persons()) {
        if (person.displayName() == *line->note) {
            return *line->note;
        }
    }
    return {};
}

void addLimits(ReportTable& rows, const Derivation& derivation, const ReportMaterial& material,
               bool twoSides) {
    const TaxLine* const line = material.result().line(derivation.code);
    std::pair<std::string, std::string> told;
    for (std::size_t i = 0; i < derivation.steps.size(); ++i) {
        const DerivationStep& step = derivation.steps[i];
        if (step.kind != Kind::threshold && !isLimit(step)) {
            continue;
        }
        const DerivationStep* const next = outcome(derivation, i);
        const std::string canton =
            applied(step, step.canton, next != nullptr ? next->canton : derivation.canton);
        const std::string federal =
            applied(step, step.federal, next != nullptr ? next->federal : derivation.federal);
        const bool isTold = told == std::pair(canton, federal); // by another name
        if ((canton.empty() && federal.empty()) || isTold) {
            continue;
        }
        told = {canton, federal};
        Cells cells{
            {titleOf(derivation, line), personOf(line, material.taxCase())},
            {limitName(step, next), dotted({canton.empty() ? "" : step.lawCanton.value_or(""),
                                            federal.empty() ? "" : step.lawFederal.value_or("")})},
            {canton}};
        if (twoSides) {
            cells.push_back({federal});
        }
        cells.push_back({.pageOf = material.reasonAnchor(derivation.code)});
        addRow(rows, std::move(cells)).link = material.reasonAnchor(derivation.code);
    }
}

// The way to every amount.

/// What a step rests on: whose entry, with its documents; another line; the law.
std::string basisOf(const DerivationStep& step, const ReportMaterial& material) {
    const std::string law = lawOf(step);
    if (step.path) {
        const std::string owner = material.sources.ownerOf(*step.path);
        const std::string documents = numberList(material.sources.documentsOf(*step.path));
        return dotted({owner.empty() && step.kind == Kind::input ? "Angabe" : owner,
                       documents.empty() ? "" : "Beleg " + documents, law});
    }
    if (step.code) {
        const TaxLine* const line = material.result().line(*step.code);
        return line == nullptr || line->ziffer.empty() ? std::string() : "Ziffer " + line->ziffer;
    }
    return law.empty() && step.kind == Kind::rounding ? std::string(label(step.kind)) : law;
}

std::string shown(const std::optional<Decimal>& value, const DerivationStep& step) {
    return value && step.unit ? inUnit(*value, *step.unit) : std::string();
}

/// An amount that concerns one side alone stands in its column.
void addReason(ReportTable& rows, const Derivation& derivation, const ReportMaterial& material,
               bool twoSides) {
    const TaxLine* const line = material.result().line(derivation.code);
    const auto inResult = [&](const std::optional<Decimal>& value) {
        return value ? inUnit(*value, derivation.unit) : std::string();
    };
    Cells head{{titleOf(derivation, line)}, {personOf(line, material.taxCase())}};
    if (twoSides) {
        head.push_back({inResult(derivation.canton)});
        head.push_back({inResult(derivation.federal)});
    } else {
        head.push_back({inResult(derivation.canton ? derivation.canton : derivation.federal)});
    }
    ReportRow& group = addRow(rows, std::move(head), Weight::group);
    group.anchor = material.reasonAnchor(derivation.code);
    for (const DerivationStep& step : derivation.steps) {
        Cells cells{{step.text}, {.text = {}, .note = basisOf(step, material)}};
        if (twoSides) {
            cells.push_back({shown(step.canton, step)});
            cells.push_back({shown(step.federal, step)});
        } else {
            cells.push_back({shown(step.canton ? step.canton : step.federal, step)});
        }
        ReportRow& row = addRow(rows, std::move(cells), Weight::detail);
        row.link = step.code && *step.code != derivation.code ? material.reasonAnchor(*step.code)
                                                              : Anchor();
    }
}

ReportTable reasonTable(const std::vector<const Derivation*>& derivations,
                        const ReportMaterial& material) {
    const bool twoSides = !material.isLiechtenstein();
    std::vector<ReportColumn> columns{textColumn("Betrag und Schritte"), textColumn("Grundlage"),
                                      amountColumn(twoSides ? "Kanton" : "CHF")};
    if (twoSides) {
        columns.push_back(amountColumn("Bund"));
    }
    ReportTable rows = table(std::move(columns));
    for (const Derivation* const derivation : derivations) {
        addReason(rows, *derivation, material, twoSides);
    }
    return rows;
}

// Documents.

/// The lines of the return that a document stands behind.
std::string usesOf(int number, const ReportMaterial& material) {
    std::string uses;
    std::set<std::string> named;
    for (const TaxLine& line : material.result().fields()) {
        const Derivation* const reason = material.reason(line.code);
        if (reason != nullptr && material.sources.documentsOf(*reason).contains(number)
            && named.insert(line.ziffer + line.label).second) {
            uses += (uses.empty() ? "" : "; ") + line.ziffer + (line.ziffer.empty() ? "" : " ")
                    + line.label;
        }
    }
    return uses;
}

} // namespace

ReportChapter limitsChapter(const ReportMaterial& material) {
    ReportChapter limits = chapter("Begrenzungen", "limits");
    const bool twoSides = !material.isLiechtenstein();
    std::vector<ReportColumn> columns{textColumn("Zeile"), textColumn("Grenze"),
                                      amountColumn(twoSides ? "Kanton" : "CHF")};
    if (twoSides) {
        columns.push_back(amountColumn("Bund"));
    }
    columns.push_back(pageColumn());
    ReportTable rows = table(std::move(columns));
    for (const Derivation* const derivation : inOrder(material)) {
        addLimits(rows, *derivation, material, twoSides);
    }
    if (!rows.rows.empty()) {
        limits.blocks.emplace_back(
            ReportText{"Höchst- und Mindestbeträge, die einen Betrag bestimmt haben, und "
                       "Selbstbehalte. Wo eine Spalte leer ist, hat die Grenze dort nicht "
                       "gegriffen."});
        limits.blocks.emplace_back(std::move(rows));
    }
    return limits;
}

ReportChapter noticesChapter(const ReportMaterial& material) {
    ReportChapter notices = chapter("Hinweise", "notices");
    ReportTable rows = table({labelColumn("Art"), textColumn("Hinweis")});
    std::set<std::string_view> told;
    for (const auto& list :
         {std::cref(material.input.notices), std::cref(material.result().notices)}) {
        for (const Notice& notice : list.get()) {
            if (told.insert(notice.id).second) {
                addRow(rows, {{std::string(label(notice.level))}, {notice.title, notice.message}});
            }
        }
    }
    if (!rows.rows.empty()) {
        notices.blocks.emplace_back(std::move(rows));
    }
    if (!material.input.notComputed.empty()) {
        notices.blocks.emplace_back(
            ReportHeading{"Was diese Berechnung nicht umfasst", 2, "notComputed"});
        for (const std::string& sentence : material.input.notComputed) {
            notices.blocks.emplace_back(ReportText{sentence, ReportText::Tone::faint});
        }
    }
    return notices;
}

ReportChapter reasonsChapter(const ReportMaterial& material) {
    ReportChapter reasons = chapter("Herleitungen", "reasons");
    if (material.reasons.empty()) {
        return reasons;
    }
    reasons.blocks.emplace_back(
        ReportText{"Der Weg zu jedem Betrag: die Angaben mit ihren Belegen, die Regeln mit dem "
                   "Gesetz, die Zwischenergebnisse."});
    const std::vector<const Derivation*> ordered = inOrder(material);
    auto next = ordered.begin();
    const auto add = [&](const std::string& title, const Anchor& anchor, const auto& belongs) {
        std::vector<const Derivation*> part;
        while (next != ordered.end() && belongs(**next)) {
            part.push_back(*next++);
        }
        if (!part.empty()) {
            reasons.blocks.emplace_back(ReportHeading{title, 2, anchor});
            reasons.blocks.emplace_back(reasonTable(part, material));
        }
    };
    int number = 0;
    for (const TaxSection& section : material.result().sections) {
        add(section.title, "reasons:" + std::to_string(++number), [&](const Derivation& one) {
            return std::ranges::find(section.lines, one.code, &TaxLine::code)
                   != section.lines.end();
        });
    }
    add("Steuerrechnung", "reasons:bill", [](const Derivation&) { return true; });
    return reasons;
}

ReportChapter documentsChapter(const ReportMaterial& material) {
    ReportChapter documents = chapter("Belege", "documents");
    if (material.sources.documents().empty()) {
        return documents;
    }
    ReportTable rows = table({labelColumn("Nr."), labelColumn("Art"), textColumn("Beleg"),
                              amountColumn("Betrag"), textColumn("Verwendet für")});
    int number = 0;
    for (const StoredDocument& document : material.sources.documents()) {
        ++number;
        const std::string uses = usesOf(number, material);
        addRow(rows, {{std::to_string(number)},
                      {std::string(label(document.kind))},
                      {document.title, dotted({document.issuer.value_or(""), document.note})},
                      {document.amount ? money(*document.amount) : std::string()},
                      {uses.empty() ? "–" : uses}});
    }
    documents.blocks.emplace_back(std::move(rows));
    return documents;
}

} // namespace fiscarel::outputs
