#include "Fiscarel_SG/documents/SecondReader.h"

#include "Fiscarel_SG/documents/kinds/BoardFees.h"
#include "Fiscarel_SG/documents/kinds/CarriedOver.h"
#include "Fiscarel_SG/documents/kinds/EmployersShare.h"
#include "Fiscarel_SG/documents/kinds/KindMappers.h"
#include "Fiscarel_SG/documents/kinds/KindTitles.h"
#include "Fiscarel_SG/documents/kinds/OtherYears.h"
#include "Fiscarel_SG/documents/kinds/Pensions.h"
#include "Fiscarel_SG/documents/kinds/Property.h"
#include "Fiscarel_SG/documents/kinds/SecurityTable.h"
#include "Fiscarel_SG/documents/kinds/SlipMonths.h"
#include "Fiscarel_SG/documents/kinds/WageHolders.h"
#include "Fiscarel_SG/documents/kinds/WageYear.h"
#include "Fiscarel_SG/documents/payload/Mappers.h"
#include "Fiscarel_SG/documents/rows/PageArrangement.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <exception>
#include <set>

namespace fiscarel {

namespace {

using Kind = StoredDocument::Kind;

constexpr std::size_t mostPages = 500;
constexpr std::size_t mostTextBytes = std::size_t{4} << 20U;

DocumentRows rowsOf(const DocumentReading& reading) {
    DocumentRows document;
    for (const PageReading& page : reading.pages) {
        if (document.pages.size() < mostPages && !page.words.empty()) {
            document.pages.push_back(arranged(buildRows(page)));
        }
    }
    if (document.pages.empty()) {
        document.hasPlaces = false;
        const std::string_view text = std::string_view(reading.text).substr(0, mostTextBytes);
        document.pages.push_back(rowsOfText(text, false));
    }
    for (const PageRows& page : document.pages) {
        for (const Row& row : page.rows) {
            document.folded += row.folded + ' ';
        }
    }
    return document;
}

/// The first QR-bill, with its place.
std::optional<PlacedBill> findBill(const DocumentReading& reading, const DocumentRows& document) {
    for (const PageReading& page : reading.pages) {
        for (const PageSymbol& symbol : page.symbols) {
            if (symbol.symbology != PageSymbol::Symbology::qr) {
                continue;
            }
            if (auto bill = parseQrBill(symbol.bytes)) {
                PageRows size{.number = page.number, .width = page.width, .height = page.height};
                const PageRows* rows = document.page(page.number);
                return PlacedBill{std::move(*bill), page.number,
                                  pageBox(symbol.place, rows == nullptr ? size : *rows)};
            }
        }
    }
    return std::nullopt;
}

/// What was read from payloads.
struct PayloadVerdict {
    std::optional<Kind> kind;
    std::set<int> certificatePages; ///< whose certificates the payloads state
};

void readCertificates(const std::vector<JoinedPayload>& certificates,
                      const std::vector<SalaryForm>& forms, ProposalDraft& draft,
                      PayloadVerdict& verdict) {
    for (const JoinedPayload& payload : certificates) {
        if (payload.isComplete && proposeCertificate(payload, forms, draft)) {
            verdict.kind = Kind::lohnausweis;
            verdict.certificatePages.insert(payload.pages.begin(), payload.pages.end());
        }
    }
}

void readStatements(const DocumentReading& reading, const DocumentRows& document,
                    ProposalDraft& draft, PayloadVerdict& verdict) {
    for (const PageMark& mark : pageMarks(reading)) {
        if (const auto standard = foreignStandard(mark.standard)) {
            verdict.kind = standard->kind;
        }
    }
    for (const JoinedPayload& payload : statementPayloads(reading)) {
        const auto unpacked = payload.isComplete ? unpackZlib(payload.bytes) : std::nullopt;
        const auto xml = unpacked ? PayloadXml::parse(*unpacked) : std::nullopt;
        if (!xml) {
            continue;
        }
        const int number = standardOf(xml->root());
        if (proposeTaxStatement(xml->root(), payload, document, draft)) {
            verdict.kind = Kind::steuerauszug;
        } else if (const auto standard = foreignStandard(number)) {
            verdict.kind = standard->kind;
            proposeInstitutionCertificate(xml->root(), number, payload, draft);
        }
    }
}

bool namesBuyIn(const DocumentRows& document) {
    return isAnyIn(document.folded, wordsFor(Concept::buyIn));
}

bool titleNamesPension(const DocumentRows& document) {
    const PageRows& page = document.pages.front();
    return std::ranges::any_of(page.rows, [&](const Row& row) {
        return row.middle() < page.height * 0.45
               && namesAny(row, {Concept::pension}, page.isRecognised);
    });
}

/// Whether a paper speaks of a pension in whatever words.
bool namesAnyPension(const DocumentRows& document) {
    static const Labels words{"pension*",   "Ruhegehalt*", "Ruhegeld*",  "Altersleistung*",
                              "vieillesse", "retraite*",   "vecchiaia",  "survivant*",
                              "superstit*", "Hinterlass*", "Leibrente*", "*rente*",
                              "rendit*",    "vitaliz*",    "viager*",    "annuity"};
    return isAnyIn(document.folded, words) || isAnyIn(document.folded, wordsFor(Concept::pension));
}

/// Whether a form that serves wages and pensions states contributions, which only wages bear.
bool takesContributions(const DocumentRows& document, const std::string& title) {
    static const Labels forms{"Lohnausweis", "Certificat de salaire", "Certificato di salario"};
    return isAnyIn(title, forms) && std::ranges::any_of(document.pages, [](const PageRows& page) {
               return std::ranges::any_of(page.rows, [&](const Row& row) {
                   return !row.amounts.empty() && row.amounts.back().amount.isFirm()
                          && row.amounts.back().amount.value.abs() >= 1
                          && namesAny(row, {Concept::social}, page.isRecognised);
               });
           });
}

/// Whether a paper is one on a wage, though its amounts may not be found.
bool namesWage(const DocumentRows& document) {
    static const Labels certificates{
        "Bruttolohn*",   "Nettolohn*",         "Salaire brut", "Salaire net",       "Salario lordo",
        "Salario netto", "Lohn brutto",        "Lohn netto",   "Lohn nach Abzügen", "Monatslöhne",
        "Monatslohn",    "Lohnbescheinigung*", "gross salary", "net salary"};
    static const Labels pensions{"*rente", "*renten", "rente", "rentes", "rendita", "rendite"};
    const std::string title = titleWords(document);
    return (isAnyIn(document.folded, certificates) || hasWageTitle(document))
           && (!isAnyIn(title, pensions) || takesContributions(document, title));
}

void proposeProperty(const KindContext& context, ProposalDraft& draft) {
    const DocumentRows& document = context.document;
    const bool isAccount = isPropertyAccount(document) || hasDeductibleColumn(document)
                           || (isRepairBill(document) && tellsDeductibleUpkeep(document));
    if (isAccount && proposeManagement(context, draft)) {
        return;
    }
    if (isRepairBill(document) || isBuildingPremium(document)) {
        proposeBill(context, draft);
    } else {
        proposeLabelled(context, draft);
    }
}

void proposePensionFund(const KindContext& context, ProposalDraft& draft) {
    if (isPensionPaper(context.document)) {
        proposePensions(context, false, draft);
    } else if (namesBuyIn(context.document) || !proposePensions(context, true, draft)) {
        proposeLabelled(context, draft);
    }
}

void proposeLifeInsurance(const KindContext& context, ProposalDraft& draft) {
    if (isAnnuity(context.document)) {
        // Its surrender value is wealth; beside one only what is proven was paid out.
        const bool isWealth = isAnyIn(context.document.folded, wordsFor(Concept::surrender));
        if (!isWealth || !isAnyIn(context.document.folded, wordsFor(Concept::premium))) {
            proposePensions(context, isWealth, draft);
        }
        if (isWealth) {
            proposeLabelled(context, draft);
        }
    } else if (!proposePolicies(context, draft)) {
        proposeLabelled(context, draft);
    }
}

void proposeByKind(const KindContext& context, ProposalDraft& draft) {
    switch (context.kind) {
    case Kind::saeule3a:
        proposeLabelled(context, draft);
        proposeFreePolicies(context, draft);
        break;
    case Kind::krankenkasse:
        proposeLabelled(context, draft);
        break;
    case Kind::pensionskasse:
        proposePensionFund(context, draft);
        break;
    case Kind::versicherung:
        proposeLifeInsurance(context, draft);
        break;
    case Kind::liegenschaft:
        proposeProperty(context, draft);
        break;
    case Kind::bankauszug:
    case Kind::steuerauszug: // without its payload
        proposeAccounts(context, draft);
        break;
    case Kind::arztrechnung:
    case Kind::spende:
    case Kind::kinderbetreuung:
    case Kind::weiterbildung:
        proposeBill(context, draft);
        break;
    case Kind::lohnausweis:
    case Kind::anderes:
        break;
    }
}

/// The certificates by the form's own labels; where those do not add up, one by what its labels
/// mean.
std::vector<SalaryForm> readCertificatePages(const DocumentRows& document) {
    std::vector<SalaryForm> forms = readSalaryForms(document);
    const bool areProven = std::ranges::all_of(forms, isProven);
    if (forms.size() > 1 && areProven) {
        return forms;
    }
    auto lists = readSalaryLists(document);
    if (forms.size() > 1) {
        const bool areSame = lists.size() == forms.size() && std::ranges::all_of(lists, isProven);
        return areSame ? lists : forms;
    }
    const bool isOneProven = forms.size() == 1 && isProven(forms.front());
    const bool areBetter =
        lists.size() > 1
        || (lists.size() == 1 && !isOneProven
            && (forms.empty() ? !lists[0].isPension : isProven(lists[0]) || lists[0].isGuess));
    auto& best = areBetter ? lists : forms;
    if (best.size() == 1 && namesSeveralInsured(*best.front().page)) {
        best.clear(); // what several people earn together is nobody's wage
    }
    return std::move(best);
}

/// The certificates of a document with the pages they stand on.
struct WageReading {
    std::optional<DocumentRows> joined;   ///< its pages where a table goes on over several
    std::optional<WageYear> year;         ///< its pages where it states parts of the year too
    std::optional<DocumentRows> ownShare; ///< its pages where it states the employer's share too
    std::vector<SalaryForm> forms;
    WageProof proof = WageProof::none;
    bool isSlip = false; ///< of a month alone

    /// Whether they are of a month, or of one before the year's last with what adds up until it.
    bool isOfPart() const { return isSlip || (year && !year->isOver && forms.empty()); }

    void take(std::vector<SalaryForm> found, WageProof proven) {
        forms = std::move(found);
        proof = std::ranges::any_of(forms, isProven) ? proven : WageProof::none;
    }
};

/// Where parts of the year stand beside it or above it, the certificate of the year alone.
WageReading readAllShares(const DocumentRows& document) {
    WageReading wages{.year = yearBesideParts(document)};
    if (wages.year) {
        if (wages.year->isOver) {
            wages.take(readCertificatePages(wages.year->document), WageProof::ofYear);
        }
        return wages;
    }
    wages.year = yearBelowPart(document);
    if (wages.year) {
        wages.take(readCertificatePages(wages.year->document), WageProof::ofYear);
        if (wages.proof == WageProof::ofYear) {
            if (!wages.year->isOver) {
                wages.take({}, WageProof::none);
            }
            return wages;
        }
    }
    wages.year.reset();
    const WageSpan span = spanOfHead(document);
    wages.take(readCertificatePages(document),
               span == WageSpan::year ? WageProof::ofYear : WageProof::addsUp);
    if (span == WageSpan::month && wages.forms.size() == 1) {
        wages.take({}, WageProof::none);
        wages.isSlip = true;
    }
    return wages;
}

WageReading readWagesOf(const DocumentRows& document) {
    WageReading wages = readAllShares(document);
    if (wages.proof != WageProof::none || wages.isOfPart()) {
        return wages;
    }
    if (auto ownShare = withoutEmployersShare(document)) {
        WageReading other = readAllShares(*ownShare);
        if (other.proof != WageProof::none) {
            other.ownShare = std::move(ownShare);
            return other;
        }
    }
    return wages;
}

WageReading readWages(const DocumentRows& document) {
    auto joined = withoutCarried(document);
    if (!joined) {
        return readWagesOf(document);
    }
    WageReading wages = readWagesOf(*joined);
    wages.joined = std::move(joined);
    return wages;
}

/// What a document is by its words, and where these fail by what its amounts prove.
KindVerdict verdictOf(const DocumentRows& document, const WageReading& wages, bool hasBill) {
    const std::vector<SalaryForm>& forms = wages.forms;
    const KindVerdict verdict = weighKind(document, wages.proof);
    if (wages.isOfPart()) {
        return {.kind = Kind::anderes, .isClear = true};
    }
    if (allowanceOf(document)) {
        return {.kind = Kind::lohnausweis, .isClear = true};
    }
    const bool isExcluded = verdict.kind == Kind::anderes && verdict.isClear;
    if (!isExcluded && forms.empty() && isBoardPaper(document)) {
        return {.kind = Kind::lohnausweis, .isClear = true};
    }
    const bool isNothing = !verdict.kind || (verdict.kind == Kind::anderes && hasBill);
    const bool isOpen = isNothing || verdict.kind == Kind::anderes || !verdict.isClear;
    if (isOpen && isRepairBill(document) && (isNothing || tellsDeductibleUpkeep(document))) {
        return {.kind = Kind::liegenschaft};
    }
    if (!verdict.isClear && verdict.kind != Kind::bankauszug && verdict.kind != Kind::steuerauszug
        && forms.empty() && listsSecurities(document)) {
        return {.kind = Kind::steuerauszug, .isClear = true};
    }
    if (!verdict.kind && forms.empty() && !hasBill && listsAccounts(document)) {
        return {.kind = Kind::bankauszug};
    }
    const bool isUnlikely =
        !verdict.kind || verdict.kind == Kind::krankenkasse || verdict.kind == Kind::weiterbildung;
    if (isUnlikely && !hasBill && forms.empty() && titleNamesPension(document)
        && provesPension(document)) {
        return {.kind = Kind::lohnausweis}; // rates of exchange are no courses
    }
    return verdict;
}

void proposeAll(const DocumentReading& reading, ScanResult& result) {
    const DocumentRows document = rowsOf(reading);
    ProposalDraft draft(result);
    const auto certificates = certificatePayloads(reading);
    WageReading wages = certificates.empty() ? WageReading() : readWages(document);
    PayloadVerdict payloads;
    readCertificates(certificates, wages.forms, draft, payloads);
    readStatements(reading, document, draft, payloads);
    result.kindIsCertain = payloads.kind.has_value();
    result.proposedKind = payloads.kind;
    if (payloads.kind && payloads.kind != Kind::lohnausweis) {
        return; // its payload said all, what its pages look like need not be weighed
    }
    if (certificates.empty()) {
        wages = readWages(document);
    }
    const std::vector<SalaryForm>& forms = wages.forms;

    const auto bill = findBill(reading, document);
    const KindVerdict verdict = verdictOf(document, wages, bill.has_value());
    result.proposedKind = payloads.kind ? payloads.kind : verdict.kind;
    if (result.proposedKind == Kind::lohnausweis) {
        if (!payloads.kind && allowanceOf(document)) {
            const DocumentFacts facts = readFacts(document);
            proposeAllowances({document, facts, Kind::lohnausweis, verdict.isClear, bill}, draft);
            return;
        }
        if (!payloads.kind && forms.empty() && isBoardPaper(document)) {
            const DocumentFacts facts = readFacts(document);
            proposeBoardFees({document, facts, Kind::lohnausweis, verdict.isClear, bill}, draft);
            return;
        }
        for (const SalaryForm& form : forms) {
            if (!payloads.certificatePages.contains(form.page->number)) {
                proposeSalaryForm(form, draft);
            }
        }
        if (forms.empty() && !payloads.kind && namesAnyPension(document) && !namesWage(document)) {
            // a letter on a pension
            const DocumentFacts facts = readFacts(document);
            const DocumentRows own = withoutOtherYears(document, facts.year);
            proposePensions({own, facts, Kind::lohnausweis, verdict.isClear, bill}, false, draft);
        }
    } else if (verdict.kind) {
        const DocumentFacts facts = readFacts(document);
        const DocumentRows own = withoutOtherYears(document, facts.year);
        proposeByKind({own, facts, *verdict.kind, verdict.isClear, bill}, draft);
        const auto& proposals = result.proposals;
        const auto isBuyIn = [](const Proposal& one) { return one.field == "pensionBuyIn"; };
        if (verdict.kind == Kind::saeule3a && !proposals.empty()
            && std::ranges::all_of(proposals, isBuyIn)) {
            result.proposedKind = Kind::pensionskasse; // the same form serves both pillars
        }
    }
}

} // namespace

void propose(const DocumentReading& reading, ScanResult& result) {
    result.proposedKind.reset();
    result.kindIsCertain = false;
    result.records.clear();
    result.proposals.clear();
    try {
        proposeAll(reading, result);
    } catch (const std::exception&) {
        // Out of memory at most; what stands so far may lack its warnings.
        result.records.clear();
        result.proposals.clear();
    }
}

} // namespace fiscarel
