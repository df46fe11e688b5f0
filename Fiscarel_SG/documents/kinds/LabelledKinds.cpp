#include "Fiscarel_SG/documents/kinds/AmountFinder.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "Fiscarel_SG/documents/kinds/LabelledFields.h"

#include <algorithm>
#include <map>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

using Kind = StoredDocument::Kind;
using Record = ProposedRecord::Kind;

const char* titleOf(Kind kind) {
    switch (kind) {
    case Kind::saeule3a:
        return "Säule 3a";
    case Kind::pensionskasse:
        return "Einkauf in die Pensionskasse";
    case Kind::krankenkasse:
        return "Versicherungsprämien";
    case Kind::versicherung:
        return "Lebensversicherung";
    default:
        return "Liegenschaft";
    }
}

/// Records of a document by their kind, made when the first value needs one.
class RecordsByKind {
  public:
    RecordsByKind(const KindContext& context, ProposalDraft& draft)
        : context_(context), draft_(draft) {}

    int of(Record kind, int page) {
        const auto known = indices_.find(kind);
        if (known != indices_.end()) {
            return known->second;
        }
        std::string title = kind == Record::pension ? "Rente" : titleOf(context_.kind);
        if (!context_.facts.issuer.text.empty() && kind != Record::realEstate) {
            title += ' ' + context_.facts.issuer.text;
        }
        const int index =
            draft_.addRecord(recordWith(context_.facts, kind, std::move(title), page));
        indices_.emplace(kind, index);
        return index;
    }
    std::optional<int> existing(Record kind) const {
        const auto known = indices_.find(kind);
        return known == indices_.end() ? std::nullopt : std::optional(known->second);
    }

  private:
    const KindContext& context_;
    ProposalDraft& draft_;
    std::map<Record, int> indices_;
};

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

void proposeField(const KindContext& context, const LabelledField& row, RecordsByKind& records,
                  ProposalDraft& draft) {
    auto chosen = chooseFound(findAmounts(wholeDocument(context.document), row.wanted), row.below);
    if (!chosen) {
        return;
    }
    std::vector<ProposalCheck> checks;
    if (const auto check = columnCheck(chosen->found)) {
        checks.push_back(*check);
    }
    Evidence evidence = evidenceOf(chosen->found, row.wanted,
                                   context.isKindClear && !chosen->isDisputed, std::move(checks));
    if (chosen->isDisputed) {
        evidence.confidence = Confidence::low;
        evidence.reason += " An anderen Stellen steht ein anderer Betrag.";
    }
    draft.add(records.of(row.record, chosen->found.page->number), row.field,
              chosen->found.value().abs(), std::move(evidence));
}

const Wanted& grossPremiums() {
    static const Wanted wanted{
        {"Total Prämien brutto",
         "Bruttoprämie*",
         "Prämien brutto",
         "Total Prämien",
         "Total der Prämien",
         "Prämien total",
         "Total primes",
         "Total des primes",
         "Totale premi",
         "Totale dei premi",
         "Bezahlte Prämien",
         "Primes payées",
         "Premi pagati",
         "Prämientotal",
         "Jahresprämie total",
         "Jahresprämie",
         "Prime annuelle",
         "Premio annuo",
         "Total",
         "Totale"},
        {"netto", "nettes", "netti", "nach", "Verbilligung*", "net", "zu Ihren Lasten"}};
    return wanted;
}
const Wanted& netPremiums() {
    static const Wanted wanted{{"Total Prämien netto", "Nettoprämie*", "Prämien netto",
                                "Prämien nach Verbilligung", "Netto zu Ihren Lasten", "Total netto",
                                "Primes nettes", "Total net", "Premi netti", "Totale netto",
                                "Netto"},
                               {}};
    return wanted;
}
const Wanted& reductions() {
    static const Wanted wanted{{"Prämienverbilligung*", "Individuelle Prämienverbilligung", "IPV",
                                "Réduction de prime*", "Réduction des primes",
                                "Riduzione dei premi", "Riduzione individuale*",
                                "Riduzione del premio", "Subside*", "Verbilligung"},
                               {"nach", "après", "dopo", "netto", "nettes", "netti"}};
    return wanted;
}
/// Premiums by law, where no total is named.
const Wanted& singlePremiums() {
    static const Wanted wanted{{"Prämie*", "Prime*", "Premi*", "Grundversicherung", "KVG", "OKP",
                                "LAMal", "Zusatzversicherung*", "VVG", "LCA"},
                               {"Verbilligung*", "Prämienverbilligung*", "netto", "Monat",
                                "Franchise", "Réduction*", "Riduzione*"},
                               false};
    return wanted;
}

/// Premiums − reduction = net, where all three are printed.
std::vector<ProposalCheck> premiumChecks(const std::vector<RowRange>& ranges,
                                         const FoundAmount& gross) {
    std::vector<ProposalCheck> checks;
    if (const auto check = columnCheck(gross)) {
        checks.push_back(*check);
    }
    const auto reduction = findLast(ranges, reductions());
    const auto net = findLast(ranges, netPremiums());
    if (reduction && net) {
        const Decimal computed = gross.value() - reduction->value().abs();
        const bool holds = computed == net->value();
        checks.push_back({"Prämien − Verbilligung: " + shown(gross.value()) + " − "
                              + shown(reduction->value().abs()) + " = " + shown(computed)
                              + (holds ? "" : ", netto steht aber " + shown(net->value())),
                          holds});
    }
    return checks;
}

void proposePremiums(const KindContext& context, RecordsByKind& records, ProposalDraft& draft) {
    const auto ranges = wholeDocument(context.document);
    const auto gross = findLast(ranges, grossPremiums());
    if (gross && gross->value() >= 1) {
        draft.add(records.of(Record::householdDeductions, gross->page->number),
                  "healthInsurancePremiums", gross->value(),
                  evidenceOf(*gross, grossPremiums(), context.isKindClear,
                             premiumChecks(ranges, *gross)));
        return;
    }
    // Without a total the single premiums are added up.
    const auto single = findAmounts(ranges, singlePremiums());
    Decimal sum;
    for (const FoundAmount& one : single) {
        sum = sum + one.value().abs();
    }
    if (single.empty() || sum < 1) {
        return;
    }
    Evidence evidence = evidenceOf(single.back(), singlePremiums(), context.isKindClear);
    if (single.size() > 1) {
        evidence.reason = "Summe der einzelnen Prämien.";
        evidence.confidence = Confidence::low;
    }
    draft.add(records.of(Record::householdDeductions, single.back().page->number),
              "healthInsurancePremiums", sum, std::move(evidence));
}

/// What the insured paid themselves is a cost of illness.
void proposeCostSharing(const KindContext& context, ProposalDraft& draft) {
    static const Wanted own{
        {"Total Kostenbeteiligung*", "Nicht erstattete Kosten", "Nicht vergütete Kosten",
         "Frais non remboursés", "Costi non rimborsati", "Spese non rimborsate",
         "Total Kosten zu Ihren Lasten", "Ihre Kostenbeteiligung", "Kostenbeteiligung*",
         "zu Ihren Lasten", "Selbst bezahlt*", "Eigenanteil", "Participation aux coûts",
         "Participation aux frais", "à votre charge", "Partecipazione ai costi", "a suo carico"},
        {"Prämie*", "Primes", "Premi"}};
    const auto found = findLast(wholeDocument(context.document), own);
    if (!found || found->value() < 1) {
        return;
    }
    std::vector<ProposalCheck> checks;
    if (const auto check = columnCheck(*found)) {
        checks.push_back(*check);
    }
    const int record = draft.addRecord(recordWith(context.facts, Record::medicalCost,
                                                  "Kostenbeteiligung " + context.facts.issuer.text,
                                                  found->page->number));
    draft.record(record).advice = "Was die Kasse nicht vergütet hat. Rechnungen, die darin schon "
                                  "enthalten sind, nicht noch einmal eintragen.";
    Evidence evidence = evidenceOf(*found, own, context.isKindClear, std::move(checks));
    if (evidence.confidence == Confidence::high) {
        evidence.confidence = Confidence::medium; // it may be entered already, bill by bill
    }
    draft.add(record, "gross", found->value(), std::move(evidence));
    draft.add(record, "provider", context.facts.issuer.text,
              {.witness = Witness::position,
               .confidence = Confidence::medium,
               .reason = "Steht oben auf dem Dokument.",
               .page = context.facts.issuer.page,
               .box = context.facts.issuer.box});
}

bool isCapital(std::string_view word) { return !word.empty() && word[0] >= 'A' && word[0] <= 'Z'; }

/// Words of a property or an insurance that name it.
void proposeNames(const KindContext& context, const RecordsByKind& records, ProposalDraft& draft) {
    struct NameRow {
        Record record;
        const char* field;
        Labels labels;
    };
    static const std::vector<NameRow> rows{
        {Record::realEstate,
         "municipality",
         {"Gemeinde", "Commune", "Comune", "Politische Gemeinde"}},
        {Record::realEstate,
         "parcelNumber",
         {"Grundstück Nr.", "Grundstück-Nr.", "Grundstücknummer", "Grundstück", "Parzelle Nr.",
          "Parzellennummer", "Parzelle", "Parcelle n°", "Parcelle", "Particella n.", "Particella",
          "Mappale"}},
        {Record::realEstate,
         "description",
         {"Objekt", "Lage", "Strasse", "Adresse", "Objet", "Oggetto", "Ubicazione"}},
    };
    for (const NameRow& wanted : rows) {
        const auto record = records.existing(wanted.record);
        bool isDone = !record.has_value();
        for (const PageRows& page : context.document.pages) {
            for (const Row& row : page.rows) {
                auto label = findLabel(row, wanted.labels, page.isRecognised);
                if (isDone || !label || label->last + 1 >= row.words.size()
                    || (label->first > 2 && !isCapital(row.words[label->last + 1].text))) {
                    continue;
                }
                std::size_t first = label->last + 1;
                while (first + 1 < row.words.size()
                       && (row.words[first].folded.empty() || row.words[first].folded == "nr"
                           || row.words[first].folded == "n")) {
                    ++first;
                }
                const bool isNumber = wanted.field == std::string_view("parcelNumber");
                if (isNumber && row.words[first].text.find_first_of("0123456789") != 0) {
                    continue;
                }
                std::size_t last = first;
                while (last + 1 < row.words.size() && !row.words[last].text.ends_with(',')
                       && row.words[last + 1].place.left - row.words[last].place.right
                              < 1.8 * row.height()) {
                    ++last;
                }
                std::string name = textBetween(row, first, last);
                if (name.ends_with(',')) {
                    name.pop_back();
                }
                draft.add(*record, wanted.field, std::move(name),
                          {.witness = page.number == 0 ? Witness::text : Witness::position,
                           .confidence = Confidence::medium,
                           .reason = "Steht rechts von «"
                                     + textBetween(row, label->first, label->last) + "».",
                           .page = page.number});
                isDone = true;
            }
        }
    }
    if (const auto pension = records.existing(Record::pension)) {
        draft.add(*pension, "label", context.facts.issuer.text,
                  {.witness = Witness::position,
                   .confidence = Confidence::medium,
                   .reason = "Steht oben auf dem Dokument.",
                   .page = context.facts.issuer.page,
                   .box = context.facts.issuer.box});
    }
    if (const auto policy = records.existing(Record::insurancePolicy)) {
        draft.add(*policy, "company", context.facts.issuer.text,
                  {.witness = Witness::position,
                   .confidence = Confidence::medium,
                   .reason = "Steht oben auf dem Dokument.",
                   .page = context.facts.issuer.page,
                   .box = context.facts.issuer.box});
    }
}

} // namespace

void proposeLabelled(const KindContext& context, ProposalDraft& draft) {
    RecordsByKind records(context, draft);
    if (context.kind == Kind::krankenkasse) {
        proposePremiums(context, records, draft);
    }
    for (const LabelledField& row : labelledFields()) {
        if (row.kind != context.kind) {
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
    proposeNames(context, records, draft);
}

} // namespace fiscarel
