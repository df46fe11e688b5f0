#include "Fiscarel_SG/documents/kinds/PensionWords.h"
#include "Fiscarel_SG/documents/kinds/Pensions.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"

#include <algorithm>
#include <vector>

namespace fiscarel {

namespace {

const Labels& allowances() {
    static const Labels words{"Taggeld*",
                              "Krankentaggeld*",
                              "Krankheitstaggeld*",
                              "Unfalltaggeld*",
                              "Arbeitslosentaggeld*",
                              "Mutterschaftstaggeld*",
                              "IV-Taggeld*",
                              "Mutterschaftsentschädigung*",
                              "Mutterschaftsgeld*",
                              "Vaterschaftsentschädigung*",
                              "Elternschaftsentschädigung*",
                              "Entschädigung des andern Elternteils",
                              "Betreuungsentschädigung*",
                              "Adoptionsentschädigung*",
                              "Erwerbsersatz*",
                              "Erwerbsausfallentschädigung*",
                              "EO-Entschädigung*",
                              "Arbeitslosenentschädigung*",
                              "indemnité journalière",
                              "indemnités journalières",
                              "indemnités journalières",
                              "indemnité journalière",
                              "indemnités de chômage",
                              "indemnité de chômage",
                              "indemnités chômage",
                              "prestations de chômage",
                              "allocation de maternité",
                              "allocations de maternité",
                              "allocation de paternité",
                              "allocation de prise en charge",
                              "allocations pour perte de gain",
                              "allocation pour perte de gain",
                              "indennità giornalier*",
                              "indennità di disoccupazione",
                              "indennità di maternità",
                              "indennità di paternità",
                              "indennità per perdita di guadagno",
                              "indennità di perdita di guadagno",
                              "daily allowance*",
                              "daily benefit*",
                              "maternity allowance",
                              "paternity allowance",
                              "unemployment benefit*"};
    return words;
}

/// What the papers of who pays the unemployed call it for short.
const Labels& benefits() {
    static const Labels words{"Taggeld*",   "Entschädigung*", "indemnité", "indemnités",
                              "prestation", "prestations",    "indennità", "prestazioni"};
    return words;
}

/// Who pays the unemployed, and what only their papers name.
const Labels& ofUnemployed() {
    static const Labels words{"Arbeitslosenkasse*",
                              "Arbeitslosentaggeld*",
                              "Arbeitslosenent*",
                              "Stellensuchend*",
                              "Stellenlos*",
                              "caisse de chômage",
                              "caisse chômage",
                              "indemnités de chômage",
                              "indemnité de chômage",
                              "indemnités chômage",
                              "prestations de chômage",
                              "cassa disoccupazione",
                              "cassa di disoccupazione",
                              "indennità di disoccupazione",
                              "unemployment*"};
    return words;
}

/// Papers on wages, premiums and offers name allowances too.
const Labels& others() {
    static const Labels words{"Lohnausweis*",
                              "Lohnbescheinigung*",
                              "Lohnabrechnung*",
                              "Lohnkonto*",
                              "Salärausweis*",
                              "Arbeitgeberbescheinigung*",
                              "*prämie*",
                              "*prämien*",
                              "*offerte*",
                              "Antrag*",
                              "certificat de salaire",
                              "fiche de salaire",
                              "décompte de salaire",
                              "prime",
                              "primes",
                              "offre",
                              "certificato di salario",
                              "conteggio di salario",
                              "premio",
                              "premi",
                              "offerta",
                              "salary certificate",
                              "premium*"};
    return words;
}

/// What stands above the first amount of a paper: its head.
std::string headOf(const DocumentRows& document) {
    std::string head;
    const PageRows& page = document.pages.front();
    for (const Row& row : page.rows) {
        if (hasFirmAmount(row) || (page.number != 0 && row.middle() > page.height * 0.45)) {
            break;
        }
        head += row.folded + ' ';
    }
    return head;
}

/// What the head of an insurer's paper names whose rows tell that it paid allowances.
const Labels& losses() {
    static const Labels words{"UVG*",
                              "Unfall*",
                              "*unfall",
                              "Krankheit*",
                              "*versicherung",
                              "*leistungen",
                              "LAA",
                              "LAINF",
                              "SUVA",
                              "accident*",
                              "maladie",
                              "sinistre*",
                              "prestations",
                              "perte de gain",
                              "infortun*",
                              "malattia",
                              "prestazioni",
                              "perdita di guadagno",
                              "benefits",
                              "Leistungsabrechnung*",
                              "Arbeitsunfähig*",
                              "incapacité",
                              "incapacità",
                              "Schaden*",
                              "Schadenfall*"};
    return words;
}

/// Whether a row tells of what the insured themselves got.
bool isForInsured(const Row& row, bool isRecognised) {
    static const Labels words{"an Sie", "Ihnen", "à vous", "vous", "a Lei", "to you"};
    return findLabel(row, words, isRecognised) || saysTaxed(row, isRecognised);
}

/// Whether a row states an amount of allowances, by their full name; `forInsured`: and says that
/// they got it.
bool statesAllowance(const DocumentRows& document, bool forInsured) {
    static const Labels names{"Taggelder",
                              "*taggelder",
                              "Taggeldleistung*",
                              "indemnités journalières",
                              "indennità giornaliere",
                              "daily allowances"};
    return std::ranges::any_of(document.pages, [&](const PageRows& page) {
        return std::ranges::any_of(page.rows, [&](const Row& row) {
            const auto name = findLabel(row, names, page.isRecognised);
            return name && (!forInsured || isForInsured(row, page.isRecognised))
                   && std::ranges::any_of(row.amounts, [&](const RowAmount& amount) {
                          return amount.amount.isFirm() && amount.amount.value >= 1
                                 && amount.first > name->last;
                      });
        });
    });
}

/// Whether an insurer's paper on a loss states allowances among what it paid. Papers on wages and
/// on premiums do so too.
bool isOfLoss(const DocumentRows& document, const std::string& head) {
    static const Labels premiums{"*prämie", "*prämien", "prime",   "primes",
                                 "premio",  "premi",    "premium*"};
    static const std::vector<std::vector<Concept>> wages{{Concept::gross, Concept::wage},
                                                         {Concept::net, Concept::wage}};
    const bool isOther = isAnyIn(document.folded, premiums)
                         || std::ranges::any_of(wages, [&](const std::vector<Concept>& wage) {
                                return std::ranges::all_of(wage, [&](Concept meant) {
                                    return isAnyIn(document.folded, wordsFor(meant));
                                });
                            });
    // Cures that an insurer pays leave the patient a share; wages are paid on by the employer.
    const bool isOfCosts = isAnyIn(document.folded, wordsFor(Concept::costSharing));
    return !isOther && !isOfCosts && isAnyIn(head, losses())
           && statesAllowance(document, namesEmployer(document));
}

/// Whether the head of a paper says that it certifies what was paid.
bool certifiesPayment(const std::string& head) {
    static const Labels words{
        "Bescheinigung*", "*bescheinigung", "Bestätigung*",  "ausgerichtet*", "ausbezahlt*",
        "attestation*",   "versée*",        "attestazione*", "versat*",       "Taggeldabrechnung*"};
    return isAnyIn(head, words);
}

} // namespace

std::optional<Allowance> allowanceOf(const DocumentRows& document) {
    if (document.pages.empty()) {
        return std::nullopt;
    }
    const std::string head = headOf(document);
    const bool isUnemployed = isAnyIn(head, ofUnemployed());
    const bool isAllowance =
        isAnyIn(head, allowances())
        || (isUnemployed
            && (isAnyIn(document.folded, allowances()) || isAnyIn(document.folded, benefits())))
        || isOfLoss(document, head);
    static const Labels policies{"Police*", "polizza"}; // or only the number of one
    if (!isAllowance || isAnyIn(head, others())
        || (isAnyIn(head, policies) && !certifiesPayment(head))) {
        return std::nullopt;
    }
    return isUnemployed ? Allowance::unemployment : Allowance::dailyAllowance;
}

} // namespace fiscarel
