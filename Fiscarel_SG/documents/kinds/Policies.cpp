#include "Fiscarel_SG/documents/kinds/BillSums.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "Fiscarel_SG/documents/kinds/LabelledFields.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/kinds/TableHeading.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <deque>

namespace fiscarel {

namespace {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;
using Record = ProposedRecord::Kind;

const Labels& policyNames() {
    static const Labels names{"Police*",   "Policen-Nr",      "Policennummer",
                              "Vertrag*",  "polizza",         "contrat",
                              "contratto", "Versicherung Nr", "Lebensversicherung*"};
    return names;
}

bool isNumber(const std::string& text) {
    constexpr std::size_t fewest = 5; // digits
    return countDigits(text) >= fewest && !parseDay(text);
}

/// The number of a policy that a row begins with: "Police 90.217280", "Vertrag Nr. 12-345.678".
std::string policyNumberIn(const Row& row, bool isRecognised) {
    std::optional<LabelPlace> place;
    for (const Label& name : policyNames()) { // "Contratto 2: Polizza mista   n. 12.345.678"
        const auto named = findLabel(row, name, isRecognised);
        place = named && named->first <= 1 ? named : place;
    }
    if (!place) {
        return {};
    }
    static const Labels ofFirms{"IBAN", "MWST*", "TVA", "IVA", "UID", "CHE", "CHE*", "Tel*"};
    const std::size_t end = hasFirmAmount(row) ? place->last + 4 : row.words.size();
    for (std::size_t i = place->last + 1; i < std::min(row.words.size(), end); ++i) {
        if (isAnyIn(row.words[i].folded, ofFirms)) { // "Muster Lebensversicherung AG, Tel. ..."
            break;
        }
        if (isNumber(row.words[i].text)) {
            return row.words[i].text;
        }
    }
    return {};
}

struct Policy {
    std::string number;
    RowRange rows;
};

/// Whether a table's first column holds the numbers of policies.
bool listsPolicies(const TableHeading& heading, bool isRecognised) {
    return heading.columns.size() >= 3
           && findLabel(heading.columns.front().cell, policyNames(), isRecognised);
}

/// The year a column's heading tells, and its other words.
std::pair<int, std::string> yearAndWords(const TableColumn& column) {
    std::pair<int, std::string> told{0, {}};
    for (const RowWord& word : column.cell.words) {
        const auto day = parseDay(word.text);
        const auto year = parseYear(word.text);
        if (day || year) {
            told.first = day ? day->year() : *year;
        } else {
            told.second += word.folded + ' ';
        }
    }
    return told;
}

/// Takes the words off columns of former years: beside them stands the same of a later one.
void silenceFormer(TableHeading& heading) {
    std::vector<std::pair<int, std::string>> told;
    std::ranges::transform(heading.columns, std::back_inserter(told), yearAndWords);
    for (std::size_t i = 0; i < told.size(); ++i) {
        const bool isFormer = told[i].first != 0 && std::ranges::any_of(told, [&](const auto& one) {
                                  return one.second == told[i].second && one.first > told[i].first;
                              });
        if (isFormer) {
            heading.columns[i].cell.words.clear();
            heading.columns[i].cell.folded.clear();
        }
    }
}

/// The policies of a table, of which each row is one. `parts` keeps them as pages.
std::vector<Policy> policiesOfTable(const DocumentRows& document, std::deque<PageRows>& parts) {
    std::vector<Policy> policies;
    for (const PageRows& page : document.pages) {
        std::optional<TableHeading> heading;
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            for (const bool withNext : {false, true}) {
                TableHeading found = tableHeadingIn(page, at, withNext);
                if (listsPolicies(found, page.isRecognised)) {
                    silenceFormer(found);
                    heading = std::move(found);
                }
            }
            const Row& row = page.rows[at];
            if (heading && at > heading->row && hasFirmAmount(row)
                && isNumber(row.words.front().text)) {
                PageRows& part = parts.emplace_back(rowAsPage(page, at, *heading));
                std::erase_if(part.rows, hasOnlyAmounts); // under no words
                if (!part.rows.empty()) {
                    policies.push_back({row.words.front().text, {&part, 0, part.rows.size()}});
                }
            }
        }
    }
    return policies;
}

/// The policies whose numbers stand beside each other, each heading a column. `parts` keeps them
/// as pages.
std::vector<Policy> policiesOfColumns(const DocumentRows& document, std::deque<PageRows>& parts) {
    for (const PageRows& page : document.pages) {
        for (std::size_t at = 0; at < page.rows.size() && page.number != 0; ++at) {
            const Row& row = page.rows[at];
            const auto label = findLabel(row, policyNames(), page.isRecognised);
            std::vector<Policy> policies;
            std::vector<LabelPlace> columns;
            for (const LabelPlace& cell : cellsOf(row)) {
                std::string text = textBetween(row, cell.first, cell.last);
                const bool isDay = parseDay(row.words[cell.last].text).has_value();
                if (label && cell.first > label->last && isNumber(text) && !isDay) {
                    policies.push_back({std::move(text), {}});
                    columns.push_back(cell);
                }
            }
            if (policies.size() < 2 || label->first > 1) {
                continue;
            }
            const auto pages = columnsAsPages(page, at, columns);
            for (std::size_t i = 0; i < pages.size(); ++i) {
                const PageRows& part = parts.emplace_back(pages[i]);
                policies[i].rows = {&part, 0, part.rows.size()};
            }
            return policies;
        }
    }
    return {};
}

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
    if (rows.page == nullptr || rows.first >= rows.end) {
        return false;
    }
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

/// What amounts come to though it is printed nowhere.
void proposeSum(const KindContext& context, const LabelledField& field,
                const std::vector<FoundAmount>& parts, ProposalDraft& draft) {
    std::vector<Decimal> values;
    std::ranges::transform(parts, std::back_inserter(values), &FoundAmount::value);
    Decimal sum;
    for (const Decimal& value : values) {
        sum = sum + value;
    }
    Evidence evidence = evidenceOf(parts.front(), field.wanted, context.isKindClear);
    evidence.reason = togetherText(values, sum) + '.'; // says how, but proves nothing
    const int record = draft.addRecord(recordWith(
        context.facts, field.record, "Lebensversicherungen", parts.front().page->number));
    draft.add(record, field.field, sum, std::move(evidence));
}

/// The premiums of all policies together: their sum as printed, else where each policy tells its
/// own.
void proposeAllPremiums(const KindContext& context, const std::vector<Policy>& policies,
                        ProposalDraft& draft) {
    const auto field =
        std::ranges::find(labelledFields(), std::string_view("lifeInsurancePremiums"),
                          [](const LabelledField& one) { return std::string_view(one.field); });
    std::vector<FoundAmount> premiums;
    bool areAllTold = true;
    for (const Policy& policy : policies) {
        auto premium = isTied(policy.rows) ? std::nullopt : findFirst({policy.rows}, field->wanted);
        if (premium && premium->value() >= 1) {
            premiums.push_back(std::move(*premium));
        } else {
            areAllTold &= isTied(policy.rows);
        }
    }
    if (premiums.size() < 2) {
        return;
    }
    const auto whole = wholeOfParts(context.document, premiums);
    if (!whole && areAllTold) {
        proposeSum(context, *field, premiums, draft);
    }
    if (!whole) {
        return;
    }
    const int record = draft.addRecord(recordWith(
        context.facts, field->record, "Lebensversicherungen", whole->found.page->number));
    draft.add(record, field->field, whole->found.value(),
              evidenceOf(whole->found, field->wanted, context.isKindClear, {*whole->check}));
}

/// Whether the first rows of a policy call it one of free provision.
bool isFree(const RowRange& rows) {
    static const Labels free{
        "3b",     "freie Vorsorge", "freien Vorsorge", "prévoyance libre", "previdenza libera",
        "libera", "libre"};
    for (std::size_t at = rows.first; at < std::min(rows.end, rows.first + 3); ++at) {
        if (findLabel(rows.page->rows[at], free, rows.page->isRecognised)) {
            return true;
        }
    }
    return false;
}

} // namespace

void proposeFreePolicies(const KindContext& context, ProposalDraft& draft) {
    if (!isAnyIn(context.document.folded, wordsFor(Concept::freePillar))
        && !isAnyIn(context.document.folded, {"libera", "libre"})) {
        return;
    }
    const auto policies = policiesOf(context.document);
    const auto free =
        std::ranges::count_if(policies, [](const Policy& policy) { return isFree(policy.rows); });
    const bool isTold = std::ranges::all_of(
        policies, [](const Policy& policy) { return isFree(policy.rows) != isTied(policy.rows); });
    if (!isTold || free != 1 || policies.size() < 2) {
        return;
    }
    const auto own =
        std::ranges::find_if(policies, [](const Policy& policy) { return isFree(policy.rows); });
    const auto field =
        std::ranges::find(labelledFields(), std::string_view("lifeInsurancePremiums"),
                          [](const LabelledField& one) { return std::string_view(one.field); });
    const auto premium = findFirst({own->rows}, field->wanted);
    if (!premium || premium->value() < 1) {
        return;
    }
    const int record = draft.addRecord(recordWith(
        context.facts, field->record, "Lebensversicherung " + own->number, own->rows.page->number));
    draft.add(record, field->field, premium->value(),
              evidenceOf(*premium, field->wanted, context.isKindClear));
}

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
           && isAnyIn(document.folded, wordsFor(Concept::paid));
}

bool proposePolicies(const KindContext& context, ProposalDraft& draft) {
    std::deque<PageRows> parts;
    auto policies = policiesOfTable(context.document, parts);
    if (policies.size() < 2) {
        policies = policiesOfColumns(context.document, parts);
    }
    if (policies.size() < 2) {
        policies = policiesOf(context.document);
    }
    if (policies.size() < 2) {
        return false;
    }
    proposeAllPremiums(context, policies, draft);
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
                          issuerEvidence(context.facts));
            }
            draft.add(*record, field.field, found->value(),
                      evidenceOf(*found, field.wanted, context.isKindClear,
                                 witnessChecks({policy.rows}, field.wanted, *found)));
        }
    }
    return true;
}

} // namespace fiscarel
