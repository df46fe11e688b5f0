#include "Fiscarel_SG/documents/kinds/Pensions.h"

#include "Fiscarel_SG/documents/kinds/PensionAmounts.h"
#include "Fiscarel_SG/documents/kinds/People.h"
#include "Fiscarel_SG/documents/kinds/PlainAmount.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

using Record = ProposedRecord::Kind;
using enum Concept;

constexpr int mostFrancs = 100'000'000;

const Wanted& pensions() {
    static const Wanted wanted{
        {"Total Renten", "Total Rente", "Ausbezahlte Renten", "Rentenleistungen*",
         "Rentenzahlungen", "Bruttorente", "Rente brutto", "Ausgerichtete Renten",
         "Ausbezahlte Rente", "Jahresrente", "Jahresbetrag", "Total des rentes", "Rentes versées",
         "Rente annuelle", "Totale rendite", "Rendite versate", "Rendita annua"},
        {"Rentenart", "Quellensteuer", "Hilflosen*"},
        true,
        {{pension, total},
         {pension, paid},
         {pension, yearly},
         {pension, amount},
         {pension},
         {amount, paid}},
        {other, possible, rate}};
    return wanted;
}

/// Whether a paper comes from the state's insurances for old age and disability, and is no fund's.
bool isOfTheState(const DocumentRows& document) {
    static const Labels state{"*ausgleichskasse*",
                              "AHV-Rente*",
                              "AHV Renten",
                              "IV-Rente*",
                              "IV Renten",
                              "AHV/IV-Rente*",
                              "Rente der AHV",
                              "Rente der IV",
                              "Rentenbescheinigung der AHV",
                              "Renten der AHV",
                              "Renten der IV",
                              "Sozialversicherungsanstalt*",
                              "Sozialversicherungsstelle*",
                              "SVA",
                              "IV-Stelle*",
                              "AHV-Anstalt*",
                              "AHV-IV-FAK*",
                              "Rente AVS*",
                              "rentes AVS*",
                              "rente AI",
                              "rentes AI",
                              "rente de l'AVS",
                              "rente de l'AI",
                              "rentes de l'AVS",
                              "rentes de l'AI",
                              "caisse de compensation",
                              "office AI",
                              "cassa di compensazione",
                              "rendita AVS*",
                              "rendite AVS*",
                              "rendita AI",
                              "rendite AI",
                              "ufficio AI"};
    static const Labels funds{"*pensionskasse*",
                              "*personalvorsorge*",
                              "*sammelstiftung*",
                              "BVG",
                              "LPP",
                              "*vorsorgestiftung*",
                              "caisse de pension*",
                              "fondation de prévoyance",
                              "cassa pension*",
                              "Beruflichen Vorsorge",
                              "Lohnausweis"};
    std::string title;
    const PageRows& page = document.pages.front();
    for (const Row& row : page.rows) {
        title += page.number == 0 || row.middle() < page.height * 0.45 ? row.folded + ' ' : "";
    }
    return isAnyIn(title, state) && !isAnyIn(title, funds);
}

class PensionPaper {
  public:
    PensionPaper(const KindContext& context, ProposalDraft& draft)
        : context_(context), draft_(draft), amounts_(pensionAmounts(context.document)),
          isOfTheState_(isOfTheState(context.document)) {}

    bool propose(bool isProvenOnly) {
        return proposePeople() || proposeProven() || (!isProvenOnly && proposeNamed());
    }

  private:
    /// A couple's pensions, a row each.
    bool proposePeople() {
        static const Labels children{"*kinderrente*", "Kind",   "Kinder",    "enfant*",
                                     "d'enfant*",     "figli*", "completiv*"};
        std::vector<std::pair<NamedPerson, const PensionAmount*>> parts;
        const People people(context_.document);
        for (const PensionAmount& one : amounts_) {
            const Row& row = one.found.rowOf();
            const auto named = people.in(row);
            const bool isOwn = one.canBePension() && named.size() == 1 && !one.found.isBelow
                               && !findLabel(row, children, one.found.page->isRecognised);
            if (!isOwn) {
                continue;
            }
            if (std::ranges::any_of(parts, [&](const auto& part) {
                    return part.first.folded == named[0].folded;
                })) {
                return false; // which of the two is the year's is not told
            }
            parts.emplace_back(named[0], &one);
        }
        if (parts.size() < 2) {
            return false;
        }
        for (const auto& [person, amount] : parts) {
            const int record = addRecord(*amount, person.name);
            draft_.record(record).birthDate = person.birthDate;
            draft_.record(record).socialSecurityNumber.clear();
            put(record, *amount,
                amount->isProven() || amount->isPart ? Confidence::high : Confidence::medium);
        }
        return true;
    }

    /// How much speaks for a proven amount being what was paid in the year.
    static int weightOf(const PensionAmount& one) {
        const bool isRecognised = one.found.page->isRecognised;
        int weight = one.months == 0 ? 12 : 12 - one.months; // a part of a year before a whole one
        weight += findLabel(one.words, wordsFor(paid), isRecognised) ? 3 : 0;
        weight += findLabel(one.words, wordsFor(total), isRecognised) ? 2 : 0;
        return weight;
    }

    /// The amount that arithmetic proves: a sum before its parts.
    bool proposeProven() {
        const PensionAmount* best = nullptr;
        bool isDisputed = false;
        for (const PensionAmount& one : amounts_) {
            if (!one.canBePension() || !one.isProven() || one.isPart) {
                continue;
            }
            const bool isOther = best != nullptr && best->found.value() != one.found.value();
            const int ahead = best == nullptr ? 1 : weightOf(one) - weightOf(*best);
            isDisputed = isOther && ahead == 0 ? true : ahead > 0 ? false : isDisputed;
            best = ahead > 0 ? &one : best;
        }
        if (best == nullptr) {
            return false;
        }
        static const std::vector<Concept> whole{paid, total};
        const PensionAmount* more = largerThan(*best, whole);
        best = more != nullptr ? more : best;
        const bool isSure = !largerThan(*best, {pension}) && more == nullptr && !isDisputed
                            && saysWhatItIs(*best) && !isOfCouple(*best);
        put(addRecord(*best, {}), *best,
            isSure                                            ? Confidence::high
            : more == nullptr && largerThan(*best, {pension}) ? Confidence::low
                                                              : Confidence::medium);
        return true;
    }

    /// What some months prove may be a part of the year: then a larger amount counts that says
    /// so.
    const PensionAmount* largerThan(const PensionAmount& proven,
                                    const std::vector<Concept>& concepts) const {
        const auto larger = std::ranges::find_if(amounts_, [&](const PensionAmount& one) {
            return one.canBePension() && !one.isProven() && one.found.value() > proven.found.value()
                   && namesAny(one.words, concepts, one.found.page->isRecognised);
        });
        return proven.months == 0 || larger == amounts_.end() ? nullptr : &*larger;
    }

    static bool saysWhatItIs(const PensionAmount& one) {
        static const std::vector<Concept> concepts{pension, paid, total, yearly};
        return namesAny(one.words, concepts, one.found.page->isRecognised);
    }

    static bool isOfCouple(const PensionAmount& one) {
        static const Labels couples{"Ehepaar*", "Ehegatten", "époux", "couple", "coniugi"};
        return findLabel(one.words, couples, one.found.page->isRecognised).has_value();
    }

    /// The amount whose words are a pension's, where arithmetic proves none.
    bool proposeNamed() {
        const auto ranges = wholeDocument(context_.document);
        auto found = findAmounts(ranges, pensions());
        std::erase_if(found, [&](const FoundAmount& one) {
            return one.value().abs() < 1 || one.value().abs() >= mostFrancs || isRuledOut(one);
        });
        if (found.empty()) {
            return proposeOnly();
        }
        const auto summed = std::ranges::find_if(
            found, [](const FoundAmount& one) { return columnCheck(one).has_value(); });
        FoundAmount chosen = summed == found.end() ? found.back() : *summed;
        bool isDisputed =
            summed == found.end() && std::ranges::any_of(found, [&](const FoundAmount& one) {
                return one.value() != chosen.value();
            });
        if (auto whole = totalBelow(chosen)) { // supplements are part of it
            chosen = std::move(*whole);
            isDisputed = false;
        }
        Evidence evidence = evidenceOf(chosen, pensions(), context_.isKindClear && !isDisputed,
                                       witnessChecks(ranges, pensions(), chosen));
        if (isDisputed) {
            evidence.confidence = Confidence::low;
            evidence.reason += " An anderen Stellen steht ein anderer Betrag.";
        }
        add(addRecord({.found = chosen}, {}), chosen.value().abs(), std::move(evidence));
        return true;
    }

    /// Whether the place of an amount says that it is none of the year's pension.
    bool isRuledOut(const FoundAmount& found) const {
        return std::ranges::any_of(amounts_, [&](const PensionAmount& one) {
            return one.found.page == found.page && one.found.row == found.row
                   && one.found.amount.first == found.amount.first && !one.canBePension();
        });
    }

    bool proposeOnly() {
        static const std::vector<Concept> barred{balance, opening, interest,   possible,
                                                 other,   rate,    costSharing};
        const auto only = onlyAmount(wholeDocument(context_.document), barred);
        if (!only || isRuledOut(*only)) {
            return false;
        }
        add(addRecord({.found = *only}, {}), only->value(),
            plainEvidence(*only, context_.isKindClear));
        return true;
    }

    int addRecord(const PensionAmount& one, const std::string& person) {
        std::string title = isOfTheState_ ? "AHV/IV-Rente" : "Rente";
        if (!context_.facts.issuer.text.empty()) {
            title += ' ' + context_.facts.issuer.text;
        }
        ProposedRecord record =
            recordWith(context_.facts, isOfTheState_ ? Record::personIncome : Record::pension,
                       std::move(title), one.found.page->number);
        if (!person.empty()) {
            record.personName = person;
        }
        return draft_.addRecord(std::move(record));
    }

    void put(int record, const PensionAmount& one, Confidence most) {
        FoundAmount found = one.found;
        found.isBelow = false;
        const bool isFirst = found.amount.first == 0;
        found.label = isFirst ? one.words.words.empty() ? std::string() : one.words.words[0].text
                              : textBetween(found.rowOf(), 0, found.amount.first - 1);
        Evidence evidence = evidenceOf(found, pensions(), context_.isKindClear, one.checks);
        const bool isFirm = found.page->number != 0 && !found.amount.amount.wasCorrected;
        evidence.confidence = most == Confidence::high && isFirm
                                  ? Confidence::high
                                  : std::max({evidence.confidence, most, Confidence::medium});
        if (one.found.isBelow) {
            evidence.reason = "Steht so im Text.";
        }
        add(record, found.value(), std::move(evidence));
    }

    void add(int record, const Decimal& value, Evidence evidence) {
        draft_.add(record, isOfTheState_ ? "ahvPension" : "amount", value, std::move(evidence));
        if (!isOfTheState_) {
            draft_.add(record, "label", context_.facts.issuer.text,
                       {.witness = Witness::position,
                        .confidence = Confidence::medium,
                        .reason = "Steht oben auf dem Dokument.",
                        .page = context_.facts.issuer.page,
                        .box = context_.facts.issuer.box});
        }
    }

    const KindContext& context_;
    ProposalDraft& draft_;
    std::vector<PensionAmount> amounts_;
    bool isOfTheState_ = false;
};

} // namespace

bool proposePensions(const KindContext& context, bool isProvenOnly, ProposalDraft& draft) {
    return !context.document.pages.empty() && PensionPaper(context, draft).propose(isProvenOnly);
}

bool provesPension(const DocumentRows& document) {
    return std::ranges::any_of(pensionAmounts(document), [&](const PensionAmount& one) {
        return one.canBePension() && one.isProven() && isAnyIn(document.folded, wordsFor(pension))
               && (one.months == 0 || namesAny(one.words, {pension}, one.found.page->isRecognised));
    });
}

} // namespace fiscarel
