#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "Fiscarel_SG/documents/kinds/LabelledFields.h"

#include <algorithm>

namespace fiscarel {

namespace {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;
using Record = ProposedRecord::Kind;

/// The number of a policy that a row begins with: "Police 90.217280", "Vertrag Nr. 12-345.678".
std::string policyNumberIn(const Row& row, bool isRecognised) {
    static const Labels names{"Police*",   "Policen-Nr",      "Policennummer",
                              "Vertrag*",  "polizza",         "contrat",
                              "contratto", "Versicherung Nr", "Lebensversicherung*"};
    const auto place = findLabel(row, names, isRecognised);
    if (!place || place->first > 1) {
        return {};
    }
    for (std::size_t i = place->last + 1; i < std::min(row.words.size(), place->last + 4); ++i) {
        const std::string& text = row.words[i].text;
        const auto digits =
            std::ranges::count_if(text, [](char c) { return c >= '0' && c <= '9'; });
        if (digits >= 5 && !parseDay(text)) {
            return text;
        }
    }
    return {};
}

struct Policy {
    std::string number;
    RowRange rows;
};

/// The policies of a document, each up to the next.
std::vector<Policy> policiesOf(const DocumentRows& document) {
    std::vector<Policy> policies;
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size(); ++at) {
            std::string number = policyNumberIn(page.rows[at], page.isRecognised);
            const bool isKnown =
                number.empty() || std::ranges::any_of(policies, [&](const Policy& known) {
                    return known.number == number;
                });
            if (isKnown) {
                continue;
            }
            if (!policies.empty() && policies.back().rows.page == &page) {
                policies.back().rows.end = at;
            }
            policies.push_back({std::move(number), {&page, at, page.rows.size()}});
        }
    }
    return policies;
}

/// Policies of tied provision are no wealth until they are paid out. StHG Art. 13 with BVG Art. 84
bool isTied(const RowRange& rows) {
    static const Labels words{"3a",        "*Säule 3a", "gebunden*",  "liée",
                              "vincolat*", "pilier 3a", "pilastro 3a"};
    static const Labels free{"3b", "freie*", "libre", "libera"};
    const Row& heading = rows.page->rows[rows.first];
    if (findLabel(heading, free, rows.page->isRecognised)) {
        return false;
    }
    for (std::size_t at = rows.first; at < std::min(rows.end, rows.first + 3); ++at) {
        if (findLabel(rows.page->rows[at], words, rows.page->isRecognised)) {
            return true;
        }
    }
    return false;
}

} // namespace

bool isAccidentCover(const DocumentRows& document) {
    static const Labels accidents{
        "*unfallversicherung*", "Unfall-Versicherung*",    "Unfallprämie*",
        "assurance-accident*",  "assurances-accidents",    "assurance accident*",
        "primes accidents",     "assicurazione infortuni", "assicurazione contro gli infortuni",
        "premi infortuni",      "accident insurance"};
    // Health insurers cover accidents, too; of employers' and lives' others tell.
    static const Labels others{"*kranken*",
                               "*kranken-*",
                               "KVG",
                               "VVG",
                               "OKP",
                               "LAMal",
                               "LCA",
                               "AOS",
                               "AOMS",
                               "Grundversicherung*",
                               "*zusatzversicherung*",
                               "obligatorische*",
                               "*obligatoire*",
                               "*obbligatori*",
                               "assurance de base",
                               "assicurazione di base",
                               "complémentaire*",
                               "complementar*",
                               "supplementary",
                               "*soins",
                               "cure medico*",
                               "UVG",
                               "LAA",
                               "LAINF",
                               "*maladie*",
                               "malattia",
                               "malattie",
                               "health",
                               "*leben*",
                               "*rückkauf*",
                               "vie",
                               "rachat",
                               "vita",
                               "riscatto",
                               "*taggelder",
                               "indemnités journalières"};
    const std::string title = titleWords(document);
    return isAnyIn(title, accidents) && !isAnyIn(title, others)
           && isAnyIn(document.folded, wordsFor(Concept::premium));
}

bool isAnnuity(const DocumentRows& document) {
    static const Labels annuities{"*leibrente*",       "rente viagère*",    "rentes viagères",
                                  "rendita vitalizia", "rendite vitalizie", "life annuit*"};
    return isAnyIn(titleWords(document), annuities)
           && isAnyIn(document.folded, wordsFor(Concept::paid))
           && !isAnyIn(document.folded, wordsFor(Concept::surrender));
}

bool proposePolicies(const KindContext& context, ProposalDraft& draft) {
    const auto policies = policiesOf(context.document);
    if (policies.size() < 2) {
        return false;
    }
    for (const Policy& policy : policies) {
        std::optional<int> record;
        for (const LabelledField& field : labelledFields()) {
            const bool isOfPolicy = field.kind == StoredDocument::Kind::versicherung
                                    && field.record == Record::insurancePolicy && !field.isYear;
            const auto found = isOfPolicy && !isTied(policy.rows)
                                   ? findFirst({policy.rows}, field.wanted)
                                   : std::nullopt;
            if (!found || found->value() < 1) {
                continue;
            }
            if (!record) {
                record = draft.addRecord(recordWith(context.facts, Record::insurancePolicy,
                                                    "Lebensversicherung " + policy.number,
                                                    policy.rows.page->number));
                draft.add(*record, "company", context.facts.issuer.text,
                          {.witness = Witness::position,
                           .confidence = Confidence::medium,
                           .reason = "Steht oben auf dem Dokument.",
                           .page = context.facts.issuer.page,
                           .box = context.facts.issuer.box});
            }
            draft.add(*record, field.field, found->value(),
                      evidenceOf(*found, field.wanted, context.isKindClear,
                                 witnessChecks({policy.rows}, field.wanted, *found)));
        }
    }
    return true;
}

} // namespace fiscarel
