#include "Fiscarel_SG/pages/overview/Progress.h"

#include <algorithm>

namespace fiscarel::pages {

using namespace taxcore;

namespace {

/// Things of a kind in words: "3 Kinder".
class Words {
  public:
    Words& add(std::size_t count, std::string_view one, std::string_view many) {
        if (count > 0) {
            text_ += (text_.empty() ? "" : ", ") + std::to_string(count) + " ";
            text_ += count == 1 ? one : many;
        }
        return *this;
    }
    const std::string& text() const noexcept { return text_; }

  private:
    std::string text_;
};

PageProgress page(std::string id, std::string title, const Words& words, bool otherEntries) {
    const bool hasEntries = otherEntries || !words.text().empty();
    std::string detail = !words.text().empty() ? words.text()
                         : hasEntries          ? "Angaben vorhanden"
                                               : "Noch nichts eingetragen";
    return {std::move(id), std::move(title), hasEntries, std::move(detail)};
}

/// What a household that is not joint keeps of a second person does not count.
TaxCase counted(TaxCase taxCase) {
    if (!taxCase.isJoint()) {
        taxCase.person2 = {};
        taxCase.income2 = {};
        taxCase.deductions2 = {};
    }
    return taxCase;
}

PageProgress family(const TaxCase& c) {
    const auto named =
        static_cast<std::size_t>((c.person1 != Person{} ? 1 : 0) + (c.person2 != Person{} ? 1 : 0));
    return page("family", "Familie",
                Words().add(named, "Person", "Personen").add(c.children.size(), "Kind", "Kinder"),
                !c.iban.empty() || !c.registerNumber.empty());
}

PageProgress income(const TaxCase& c) {
    return page("income", "Einkommen",
                Words()
                    .add(c.income1.salaries.size() + c.income2.salaries.size(), "Lohnausweis",
                         "Lohnausweise")
                    .add(c.income1.pensions.size() + c.income2.pensions.size(), "Rente", "Renten"),
                c.income1 != PersonIncome{} || c.income2 != PersonIncome{}
                    || c.householdIncome != HouseholdIncome{});
}

PageProgress work(const TaxCase& c) {
    const LIExtras li = c.liExtras();
    return page("work", "Berufskosten", {},
                c.deductions1.work != WorkExpenses{} || c.deductions2.work != WorkExpenses{}
                    || li.commute1 != LICommute{} || li.commute2 != LICommute{});
}

PageProgress pension(const TaxCase& c) {
    const auto paysIn = [](const PersonDeductions& d) {
        return d.pillar3a != 0 || d.pillar3aBuyIn != 0 || d.pensionBuyIn != 0;
    };
    const HouseholdDeductions& d = c.householdDeductions;
    const bool premiums = d.healthInsurancePremiums != 0 || d.accidentInsurancePremiums != 0
                          || d.lifeInsurancePremiums != 0 || d.premiumReduction != 0;
    return page("pension", "Vorsorge",
                Words().add(c.capitalPayments.size(), "Kapitalleistung", "Kapitalleistungen"),
                premiums || paysIn(c.deductions1) || paysIn(c.deductions2));
}

PageProgress other(const TaxCase& c) {
    const auto learns = [](const PersonDeductions& d) {
        return d.furtherEducation != 0 || d.furtherEducationFlatRate;
    };
    const bool children = std::ranges::any_of(c.children, [](const Child& child) {
        return child.childcareCosts != 0 || child.educationCosts != 0;
    });
    const HouseholdDeductions& d = c.householdDeductions;
    const bool rest = d.alimonyPaidPartner != 0 || d.alimonyPaidChildren != 0
                      || d.annuityPayments != 0 || d.otherDeductions != 0
                      || d.significantCooperation || d.dietFlatRate || d.disabilityFlatRate != 0
                      || d.supportedPersons != 0;
    return page("other", "Weitere Abzüge",
                Words()
                    .add(d.medicalCosts.size(), "Arztrechnung", "Arztrechnungen")
                    .add(d.donations.size(), "Spende", "Spenden"),
                rest || children || learns(c.deductions1) || learns(c.deductions2));
}

PageProgress wealth(const TaxCase& c) {
    return page("wealth", "Vermögen",
                Words()
                    .add(c.securities.size(), "Konto oder Wertschrift", "Konten und Wertschriften")
                    .add(c.insurances.size(), "Versicherung", "Versicherungen")
                    .add(c.vehicles.size(), "Fahrzeug", "Fahrzeuge")
                    .add(c.realEstate.size(), "Liegenschaft", "Liegenschaften")
                    .add(c.debts.size(), "Schuld", "Schulden"),
                c.cash != 0 || c.undividedEstatesWealth != 0 || c.otherAssets != 0
                    || c.businessAssets != 0 || c.liExtras().householdGoods != 0
                    || c.householdDeductions.actualAssetManagementCosts);
}

} // namespace

std::vector<PageProgress> progressOf(const TaxCase& taxCase, const std::vector<Notice>& notices) {
    const TaxCase c = counted(taxCase);
    std::vector<PageProgress> pages{family(c), income(c), work(c), pension(c), other(c), wealth(c)};
    for (PageProgress& one : pages) {
        one.open = static_cast<int>(std::ranges::count_if(notices, [&](const Notice& notice) {
            return notice.area == one.id && notice.level != Notice::Level::info;
        }));
    }
    return pages;
}

bool isUntouched(const TaxCase& taxCase) {
    TaxCase fresh{.year = taxCase.year};
    fresh.municipality = taxCase.municipality;
    fresh.parish = taxCase.parish;
    fresh.civilStatus = taxCase.civilStatus;
    fresh.region = taxCase.region;
    if (taxCase.liExtras() == LIExtras{}) {
        fresh.li = taxCase.li;
    }
    return fresh == taxCase;
}

} // namespace fiscarel::pages
