#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/BillSums.h"
#include "Fiscarel_SG/documents/kinds/ColumnTotal.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "Fiscarel_SG/documents/kinds/LabelledFields.h"
#include "Fiscarel_SG/documents/kinds/PaymentList.h"
#include "Fiscarel_SG/documents/kinds/PersonParts.h"
#include "Fiscarel_SG/documents/kinds/PlainAmount.h"
#include "Fiscarel_SG/documents/kinds/Property.h"
#include "Fiscarel_SG/documents/kinds/Prose.h"
#include "Fiscarel_SG/documents/kinds/RecordsByKind.h"

#include <algorithm>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

using Kind = StoredDocument::Kind;
using Record = ProposedRecord::Kind;

/// The year of a day or the year itself right of a label.
void proposeYear(const KindContext& context, const LabelledField& wanted, RecordsByKind& records,
                 ProposalDraft& draft) {
    for (const PageRows& page : context.document.pages) {
        for (const Row& row : page.rows) {
            const auto label = findLabel(row, wanted.wanted.labels, page.isRecognised);
            if (!label) {
                continue;
            }
            for (std::size_t i = label->last + 1; i < row.words.size(); ++i) {
                const auto day = parseDay(row.words[i].text);
                const auto number = parseAmount(row.words[i].text);
                if (!day && !(number && number->isYearLike())) {
                    continue;
                }
                const Decimal year = day ? Decimal(day->year()) : number->value;
                draft.add(
                    records.of(wanted.record, page.number), wanted.field, year,
                    {.witness = page.number == 0 ? Witness::text : Witness::position,
                     .confidence = Confidence::medium,
                     .reason =
                         "Steht rechts von «" + textBetween(row, label->first, label->last) + "».",
                     .page = page.number,
                     .box = page.number == 0 ? std::nullopt : pageBox(row.words[i].printed, page)});
                return;
            }
        }
    }
}

/// The best of several finds: a total before single rows; different values make it doubtful.
struct Chosen {
    FoundAmount found;
    bool isDisputed = false;
    std::optional<ProposalCheck> check = std::nullopt; ///< that proves it
};

std::optional<Chosen> chooseFound(std::vector<FoundAmount> found, int below) {
    std::erase_if(found, [&](const FoundAmount& one) {
        return one.value().abs() < 1 || one.value().abs() >= below;
    });
    if (found.empty()) {
        return std::nullopt;
    }
    const bool isDisputed = std::ranges::any_of(
        found, [&](const FoundAmount& one) { return one.value() != found.front().value(); });
    for (FoundAmount& one : found) {
        if (columnCheck(one)) {
            return Chosen{std::move(one), false};
        }
    }
    return Chosen{std::move(found.back()), isDisputed};
}

/// A paper for several people, as spouses get for their pillar 3a: a record for each.
bool proposePeople(const KindContext& context, const LabelledField& row, ProposalDraft& draft) {
    const std::string_view field = row.field;
    const bool isMain =
        field == "pillar3a" || (field == "pensionBuyIn" && context.kind == Kind::pensionskasse);
    if (!isMain) {
        return false;
    }
    if (std::ranges::any_of(draft.result().proposals,
                            [&](const Proposal& one) { return one.field == field; })) {
        return true; // each has theirs already
    }
    auto parts = findPersonAmounts(context.document, row.wanted);
    if (parts.empty()) {
        parts = findPeopleInProse(context.document, row.wanted);
    }
    std::erase_if(parts, [&](const PersonAmount& one) { return one.found.value() >= row.below; });
    for (const PersonAmount& part : parts) {
        ProposedRecord record =
            recordWith(context.facts, row.record, part.person.name, part.found.page->number);
        record.personName = part.person.name;
        record.birthDate = part.person.birthDate;
        record.socialSecurityNumber.clear();
        Evidence evidence = evidenceOf(part.found, row.wanted, context.isKindClear);
        draft.add(draft.addRecord(std::move(record)), row.field, part.found.value(),
                  std::move(evidence));
    }
    return !parts.empty();
}

/// The total of the column that holds what is deducted, beside others that do not.
std::optional<FoundAmount> totalOfColumn(const KindContext& context, const LabelledField& row) {
    using enum Concept;
    static const Wanted tied{
        {},
        {"nicht", "non", "not", "Vorjahr*"},
        true,
        {{pillar3a}},
        {balance, buyIn, occupational, freePillar, lifeCover, interest, surrender, taxValue, limit},
        {opening, balance, interest, buyIn, occupational, freePillar}};
    const bool isBuyIn = row.field == std::string_view("pensionBuyIn") && row.wanted.labels.empty();
    const bool isPillar = row.field == std::string_view("pillar3a");
    auto whole = isBuyIn    ? columnTotal(context.document, row.wanted)
                 : isPillar ? columnTotal(context.document, tied)
                            : std::nullopt;
    const bool isPure =
        whole && whole->value() < row.below
        && !(isPillar
             && (includesAlien(*whole, tied)
                 || namesAny(whole->rowOf(), tied.alien, whole->page->isRecognised)));
    return isPure ? std::move(whole) : std::nullopt;
}

/// What the contributions of a table come to, where that is told outside of it.
std::optional<SummedAmount> sumOfColumn(const KindContext& context, const LabelledField& row) {
    using enum Concept;
    static const Wanted contributions{
        {},
        {"nicht", "non", "not", "Vorjahr*"},
        true,
        {{contribution}, {paid}},
        {balance, buyIn, occupational, freePillar, lifeCover, interest, surrender, taxValue, limit,
         opening, other, possible},
        {freePillar, buyIn, occupational, opening, interest, balance}};
    const bool isMeant = row.field == std::string_view("pillar3a") && !row.wanted.labels.empty();
    auto whole =
        isMeant ? columnSum(context.document, contributions, context.facts.year) : std::nullopt;
    return whole && whole->found.value() < row.below ? std::move(whole) : std::nullopt;
}

bool areIn(const RowRange& rows, const std::vector<FoundAmount>& all) {
    return std::ranges::all_of(all, [&](const FoundAmount& one) {
        return one.page == rows.page && one.row >= rows.first && one.row < rows.end;
    });
}

/// Whether amounts are as many payments of the same, each called by its own day or number.
bool areInstalments(const std::vector<FoundAmount>& all) {
    constexpr std::size_t fewest = 3;
    return all.size() >= fewest && haveOneLabel(all)
           && std::ranges::all_of(all, [&](const FoundAmount& one) {
                  return one.value() == all.front().value()
                         && std::ranges::count(all, one.label, &FoundAmount::label) == 1;
              });
}

/// What the payments of a year come to, where one of them is told with their number; absent where
/// several such are.
std::optional<SummedAmount> wholeOfPieces(const DocumentRows& document,
                                          const std::vector<FoundAmount>& all) {
    std::optional<SummedAmount> only;
    for (SummedAmount& whole : wholesOf(document, all)) {
        if (whole.check && only && only->found.value() != whole.found.value()) {
            return std::nullopt;
        }
        only = whole.check ? std::optional(std::move(whole)) : std::move(only);
    }
    return only;
}

void proposeField(const KindContext& context, const LabelledField& row, RecordsByKind& records,
                  ProposalDraft& draft) {
    const bool isAlone = row.beside != nullptr && !records.has(row.record, row.beside);
    if (isAlone || records.has(row.record, row.field) || proposePeople(context, row, draft)) {
        return;
    }
    const auto ranges = wholeDocument(context.document);
    auto column = totalOfColumn(context, row);
    auto all = column ? std::vector{*column} : findAmounts(ranges, row.wanted);
    const bool isPillar = row.field == std::string_view("pillar3a");
    const auto pieces = isPillar && !column ? wholeOfPieces(context.document, all) : std::nullopt;
    auto whole = pieces                          ? pieces
                 : isPillar && all.empty()       ? sumOfColumn(context, row)
                 : isPillar && haveOneLabel(all) ? wholeOfParts(context.document, all)
                                                 : std::nullopt;
    auto list =
        isPillar && !whole ? paymentsOf(context.document, context.facts.year) : std::nullopt;
    if (list && !(all.empty() ? list->whole.check.has_value() : areIn(list->rows, all))) {
        list.reset(); // what else was found may be their total
    }
    if (isPillar && !whole && !list && areInstalments(all)) {
        return; // what they come to is not told
    }
    const bool isUnproven = list && !list->whole.check;
    auto chosen =
        whole  ? std::optional(Chosen{std::move(whole->found), false, whole->check})
        : list ? std::optional(Chosen{std::move(list->whole.found), false, list->whole.check})
               : chooseFound(std::move(all), row.below);
    if (!chosen) {
        return;
    }
    for (const Proposal& other : draft.result().proposals) {
        if (isPillar && other.field == "pillar3aBuyIn") {
            auto rest = withoutPart(context.document, chosen->found,
                                    Decimal::parse(other.value).value_or(Decimal()));
            chosen = rest ? Chosen{std::move(rest->found), false, rest->check} : std::move(chosen);
        }
    }
    static const Labels credits{"Gutschrift*", "gutgeschrieben*"}; // what an account receives
    const Settled given =
        isPillar ? afterGivenBack(context.document, chosen->found, credits) : Settled{};
    if (given.rest) { // beyond the maximum, say
        chosen = Chosen{given.rest->found, false, given.rest->check};
    }
    auto checks = chosen->check ? std::vector{*chosen->check}
                                : witnessChecks(ranges, row.wanted, chosen->found);
    Evidence evidence = evidenceOf(chosen->found, row.wanted,
                                   context.isKindClear && !chosen->isDisputed, std::move(checks));
    if (isPillar && namesTwo(context.document)) { // each deducts their own
        evidence.confidence = Confidence::low;
        evidence.reason += " Das Dokument nennt zwei Personen.";
    }
    if (isUnproven || (isPillar && !chosen->found.isAlone)) { // balances stand beside
        evidence.confidence = Confidence::low;
    }
    if (given.isTold && !given.rest) {
        evidence.confidence = Confidence::low;
        evidence.reason += " Das Dokument nennt auch eine Rückzahlung.";
    }
    if (chosen->isDisputed) {
        evidence.confidence = Confidence::low;
        evidence.reason += " An anderen Stellen steht ein anderer Betrag.";
    }
    draft.add(records.of(row.record, chosen->found.page->number), row.field,
              chosen->found.value().abs(), std::move(evidence));
}

/// Whose policy it is.
void proposeSenders(const KindContext& context, const RecordsByKind& records,
                    ProposalDraft& draft) {
    if (const auto policy = records.existing(Record::insurancePolicy)) {
        draft.add(*policy, "company", context.facts.issuer.text, issuerEvidence(context.facts));
    }
}

/// The field that papers of a kind are made for, where nothing but its words is missing.
void proposeOnlyAmount(const KindContext& context, RecordsByKind& records, ProposalDraft& draft) {
    using enum Concept;
    static const std::vector<Concept> barred{balance, opening, interest,   possible,
                                             other,   rate,    costSharing};
    const auto field = std::ranges::find_if(labelledFields(), [&](const LabelledField& row) {
        return row.kind == context.kind && row.field != std::string_view("pillar3aBuyIn")
               && !row.isYear;
    });
    const auto found = onlyAmount(wholeDocument(context.document), barred);
    if (field == labelledFields().end() || !found || found->value() >= field->below
        || context.kind == Kind::krankenkasse) {
        return;
    }
    draft.add(records.of(field->record, found->page->number), field->field, found->value(),
              plainEvidence(*found, context.isKindClear));
}

void proposeFields(const KindContext& context, ProposalDraft& draft) {
    RecordsByKind records(context, draft);
    if (context.kind == Kind::krankenkasse) {
        proposePremiums(context, records, draft);
    }
    const bool isAccident = context.kind == Kind::versicherung && isAccidentCover(context.document);
    for (const LabelledField& row : labelledFields()) {
        const bool isOfAccident = row.field == std::string_view("accidentInsurancePremiums");
        if (row.kind != context.kind
            || (row.kind == Kind::versicherung && isOfAccident != isAccident)) {
            continue;
        }
        if (row.isYear) {
            proposeYear(context, row, records, draft);
        } else {
            proposeField(context, row, records, draft);
        }
    }
    if (context.kind == Kind::krankenkasse) {
        proposeCostSharing(context, draft);
    }
    if (!draft.hasRecords() && !isAccident) {
        proposeOnlyAmount(context, records, draft);
    }
    proposeSenders(context, records, draft);
    if (const auto property = records.existing(Record::realEstate)) {
        nameProperty(context.document, *property, draft);
    }
}

/// A paper on several parcels: a record for each.
bool proposeParcels(const KindContext& context, ProposalDraft& draft) {
    if (context.kind != Kind::liegenschaft) {
        return false;
    }
    const auto parcels = parcelsOf(context.document);
    const std::size_t from = draft.result().proposals.size();
    for (const DocumentRows& parcel : parcels) {
        proposeFields({parcel, context.facts, context.kind, context.isKindClear, {}}, draft);
    }
    confirmParcels(context, from, draft);
    return draft.result().proposals.size() > from;
}

} // namespace

void proposeLabelled(const KindContext& context, ProposalDraft& draft) {
    if (!proposeParcels(context, draft)) {
        proposeFields(context, draft);
    }
}

} // namespace fiscarel
