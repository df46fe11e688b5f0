#include "Fiscarel_SG/outputs/Enclosures.h"

#include "Fiscarel_SG/outputs/CaseEntries.h"
#include "Fiscarel_SG/outputs/SharedForms.h"
#include "Fiscarel_SG/store/DocumentLinks.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/result/AdultEntries.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace fiscarel::outputs {

using namespace taxcore;

namespace {

using Kind = StoredDocument::Kind;

/// Collects what the entries ask for; a Ziffer is given for both regions, "" where the region asks
/// for nothing.
class Needs {
  public:
    explicit Needs(const TaxCase& taxCase)
        : taxCase_(taxCase), liechtenstein_(taxCase.taxRegion() == TaxRegion::liechtenstein) {}

    struct Ziffern {
        const char* stGallen;
        const char* liechtenstein;
    };

    void add(bool asked, Kind kind, std::string label, std::string path, const Ziffern& ziffern,
             int person = 0) {
        const char* const ziffer = liechtenstein_ ? ziffern.liechtenstein : ziffern.stGallen;
        if (asked && *ziffer != '\0') {
            label.erase(label.find_last_not_of(' ') + 1); // behind which no name was entered
            needs_.push_back({std::move(label),
                              ziffer,
                              person,
                              person == 0 ? "" : FormWriter::nameOf(taxCase_, person),
                              kind,
                              std::move(path),
                              {},
                              {}});
        }
    }
    template <class R, class Use>
    void each(const std::vector<R>& items, const std::string& path, const Use& use) {
        for (std::size_t i = 0; i < items.size(); ++i) {
            use(items[i], path + "[" + std::to_string(i) + "]");
        }
    }

    void addIncome(const AdultEntries& adult);
    void addDeductions(const AdultEntries& adult);
    void addChildren();
    void addHousehold();
    void addWealth();

    std::vector<Enclosure> take() && {
        std::ranges::stable_sort(needs_, [](const Enclosure& a, const Enclosure& b) {
            if (a.ziffer != b.ziffer) {
                return isZifferBefore(a.ziffer, b.ziffer);
            }
            return a.person < b.person;
        });
        return std::move(needs_);
    }

  private:
    const TaxCase& taxCase_;
    bool liechtenstein_;
    std::vector<Enclosure> needs_;
};

void Needs::addIncome(const AdultEntries& adult) {
    each(adult.income.salaries, adult.incomePath("salaries").toString(),
         [&](const SalaryCertificate& certificate, std::string path) {
             const bool paid =
                 !certificate.grossSalary.isZero() || !certificate.netSalary().isZero();
             add(paid, Kind::lohnausweis, "Lohnausweis " + titleOf(certificate.employer, {}, ""),
                 std::move(path), {certificate.isMainEmployment ? "1.1" : "1.2", "11.11"},
                 adult.number);
         });
    each(adult.income.pensions, adult.incomePath("pensions").toString(),
         [&](const PensionIncome& pension, std::string path) {
             add(!pension.amount.isZero(), Kind::anderes,
                 "Rentenbescheinigung " + titleOf(pension.label, {}, ""), std::move(path),
                 {"3.2", "13.2"}, adult.number);
         });
    add(!adult.income.ahvPension.isZero(), Kind::anderes, "Rentenbescheinigung AHV/IV",
        adult.incomePath("ahvPension").toString(), {"3.1", "13.1"}, adult.number);
    add(!adult.income.dailyAllowances.isZero(), Kind::anderes, "Abrechnung der Taggelder",
        adult.incomePath("dailyAllowances").toString(), {"3.3", "13.4"}, adult.number);
    add(!adult.income.unemployment.isZero(), Kind::anderes, "Bescheinigung der Arbeitslosenkasse",
        adult.incomePath("unemployment").toString(), {"3.3", "13.4"}, adult.number);
}

void Needs::addDeductions(const AdultEntries& adult) {
    const PersonDeductions& own = adult.deductions;
    const auto path = [&](const char* field) { return adult.deductionPath(field).toString(); };
    add(own.work.useActualOtherCosts && !own.work.actualOtherCosts.isZero(), Kind::anderes,
        "Belege der übrigen Berufskosten", path("work.actualOtherCosts"), {"10", ""}, adult.number);
    add(!own.pillar3a.isZero(), Kind::saeule3a, "Bescheinigung Säule 3a", path("pillar3a"),
        {"13.1", ""}, adult.number);
    add(!own.pillar3aBuyIn.isZero(), Kind::saeule3a, "Bescheinigung Einkauf Säule 3a",
        path("pillar3aBuyIn"), {"13.1", ""}, adult.number);
    add(!own.pensionBuyIn.isZero(), Kind::pensionskasse, "Bescheinigung Einkauf Pensionskasse",
        path("pensionBuyIn"), {"13.2", "17"}, adult.number);
    add(!own.furtherEducation.isZero() && (liechtenstein_ || !own.furtherEducationFlatRate),
        Kind::weiterbildung, "Belege der Aus- und Weiterbildung", path("furtherEducation"),
        {"16.4", "18.4"}, adult.number);
}

void Needs::addChildren() {
    each(taxCase_.children, "children", [&](const Child& child, const std::string& path) {
        if (!isBornBy(child, taxCase_.year)) {
            return;
        }
        add(!child.childcareCosts.isZero(), Kind::kinderbetreuung,
            "Bestätigung der Kinderbetreuung für " + titleOf(child), path + ".childcareCosts",
            {"16.2", ""});
        add(!child.educationCosts.isZero()
                && (liechtenstein_ || isDeductible(child, taxCase_.year)),
            Kind::weiterbildung, "Belege der Ausbildungskosten für " + titleOf(child),
            path + ".educationCosts", {"23.3", "18.1"});
    });
}

void Needs::addHousehold() {
    const HouseholdDeductions& common = taxCase_.householdDeductions;
    const auto path = [](const char* field) { return "householdDeductions." + std::string(field); };
    add(!common.alimonyPaidPartner.isZero(), Kind::anderes, "Belege der Unterhaltsbeiträge",
        path("alimonyPaidPartner"), {"12.1", "18.6"});
    add(!common.alimonyPaidChildren.isZero(), Kind::anderes,
        "Belege der Unterhaltsbeiträge für Kinder", path("alimonyPaidChildren"), {"12.2", "18.6"});
    add(!common.healthInsurancePremiums.isZero(), Kind::krankenkasse,
        "Prämienübersicht der Krankenkasse", path("healthInsurancePremiums"), {"14", "17"});
    add(!common.lifeInsurancePremiums.isZero(), Kind::versicherung,
        "Prämienbestätigung der Lebensversicherung", path("lifeInsurancePremiums"), {"14", "17"});
    each(common.medicalCosts, path("medicalCosts"),
         [&](const MedicalCost& cost, const std::string& item) {
             add(!cost.gross.isZero(), Kind::arztrechnung, "Rechnung " + titleOf(cost), item,
                 {cost.isDisabilityRelated ? "21.2" : "21.1", "18.2"});
         });
    each(common.donations, path("donations"), [&](const Donation& gift, const std::string& item) {
        add(!gift.amount.isZero() && !(liechtenstein_ && gift.isPoliticalParty), Kind::spende,
            "Spendenbestätigung " + titleOf(gift), item,
            {gift.isPoliticalParty ? "16.3" : "21.3", "18.3"});
    });
}

void Needs::addWealth() {
    each(taxCase_.securities, "securities",
         [&](const SecurityEntry& entry, const std::string& path) {
             const bool isAccount = entry.kind == AssetKind::konto;
             const bool counts =
                 belongsToHousehold(entry, taxCase_) && !(liechtenstein_ && isBusinessAsset(entry));
             const char* const ziffer = isAccount                           ? "3.1"
                                        : entry.kind == AssetKind::darlehen ? "3.4"
                                                                            : "3.2";
             add(counts && !(entry.taxValue.isZero() && grossIncome(entry).isZero()),
                 isAccount ? Kind::bankauszug : Kind::steuerauszug,
                 (isAccount ? "Zins- und Saldobestätigung " : "Steuerauszug ") + titleOf(entry),
                 path, {"30.1", ziffer});
         });
    each(taxCase_.insurances, "insurances",
         [&](const InsurancePolicy& policy, const std::string& path) {
             add(!policy.surrenderValue.isZero(), Kind::versicherung,
                 "Bescheinigung des Rückkaufswerts " + titleOf(policy), path, {"30.3", "3.6"});
         });
    each(taxCase_.realEstate, "realEstate", [&](const RealEstate& home, const std::string& path) {
        add(!home.useFlatRateMaintenance && !home.actualMaintenanceCosts.isZero(),
            Kind::liegenschaft, "Rechnungen zum Unterhalt " + titleOf(home), path, {"15", ""});
    });
    each(taxCase_.debts, "debts", [&](const Debt& debt, const std::string& path) {
        add(!(debt.amount.isZero() && debt.interest.isZero()), Kind::bankauszug,
            "Schuld- und Zinsbescheinigung " + titleOf(debt), path, {"11", "5"});
    });
    each(taxCase_.capitalPayments, "capitalPayments",
         [&](const CapitalPayment& payment, const std::string& path) {
             const bool isPillar3a = payment.kind == CapitalPayment::Kind::saeule3a;
             add(!payment.amount.isZero(), isPillar3a ? Kind::saeule3a : Kind::pensionskasse,
                 "Bescheinigung der Kapitalleistung (" + std::string(label(payment.kind)) + ")",
                 path, {"9", ""});
         });
}

/// Whether a path is the entry or a field of it.
bool isWithin(std::string_view path, std::string_view entry) {
    return path.starts_with(entry) && (path.size() == entry.size() || path[entry.size()] == '.');
}

/// Covers what documents are tied to; those tied to something are put into `tied`.
void coverTied(std::vector<Enclosure>& needs, const TaxCase& taxCase,
               const std::vector<const StoredDocument*>& documents, std::set<Uuid>& tied) {
    const std::map<std::string, Uuid> links = linkedDocuments(taxCase);
    for (const StoredDocument* document : documents) {
        std::vector<std::string> paths = appliedPaths(taxCase, *document);
        for (const auto& [path, id] : links) {
            if (id == document->id) {
                paths.push_back(path);
            }
        }
        if (!paths.empty()) {
            tied.insert(document->id);
        }
        for (Enclosure& need : needs) {
            if (std::ranges::any_of(
                    paths, [&](const std::string& path) { return isWithin(path, need.path); })) {
                need.documents.push_back(document->id);
            }
        }
    }
}

void coverByKind(std::vector<Enclosure>& needs, const std::vector<const StoredDocument*>& documents,
                 const std::set<Uuid>& tied) {
    std::map<Kind, int> open;
    for (const Enclosure& need : needs) {
        open[need.kind] += need.isMissing() ? 1 : 0;
    }
    for (Enclosure& need : needs) {
        if (!need.isMissing() || need.kind == Kind::anderes) {
            continue;
        }
        for (const StoredDocument* document : documents) {
            if (document->kind == need.kind && !tied.contains(document->id)) {
                (open[need.kind] == 1 ? need.documents : need.candidates).push_back(document->id);
            }
        }
    }
}

} // namespace

std::vector<Uuid> Checklist::order() const {
    std::vector<Uuid> ordered;
    const auto append = [&](const std::vector<Uuid>& more) {
        for (const Uuid& id : more) {
            if (std::ranges::find(ordered, id) == ordered.end()) {
                ordered.push_back(id);
            }
        }
    };
    for (const Enclosure& enclosure : enclosures) {
        append(enclosure.documents);
        append(enclosure.candidates);
    }
    append(others);
    return ordered;
}

Checklist makeChecklist(const TaxCase& taxCase, const std::vector<StoredDocument>& documents) {
    std::vector<const StoredDocument*> ofYear;
    for (const StoredDocument& document : documents) {
        if (document.year == taxCase.year) {
            ofYear.push_back(&document);
        }
    }
    Needs needs(taxCase);
    forEachAdult(taxCase, [&](const AdultEntries& adult) {
        needs.addIncome(adult);
        needs.addDeductions(adult);
    });
    needs.addChildren();
    needs.addHousehold();
    needs.addWealth();
    Checklist checklist{std::move(needs).take(), {}};
    std::set<Uuid> tied;
    coverTied(checklist.enclosures, taxCase, ofYear, tied);
    coverByKind(checklist.enclosures, ofYear, tied);
    const std::vector<Uuid> asked = checklist.order();
    for (const StoredDocument* document : ofYear) {
        if (std::ranges::find(asked, document->id) == asked.end()) {
            checklist.others.push_back(document->id);
        }
    }
    return checklist;
}

} // namespace fiscarel::outputs
