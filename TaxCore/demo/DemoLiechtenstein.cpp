#include "TaxCore/demo/DemoData.h"
#include "TaxCore/demo/DemoParts.h"
#include "TaxCore/model/Household.h"

namespace taxcore::DemoData {

namespace {

void addPersons(TaxCase& household) {
    Person& first = household.person1;
    first.firstName = "Selina";
    first.lastName = "Ospelthaler";
    first.birthDate = day(1983, 2, 9);
    first.profession = "Buchhalterin";
    first.employer = "Drei Schwestern Treuhand AG";

    Person& second = household.person2;
    second.firstName = "Marco";
    second.lastName = "Ospelthaler";
    second.birthDate = day(1980, 9, 27);
    second.profession = "Polymechaniker";
    second.employer = "Rheinau Präzision AG, Sargans";

    const auto child = [&](int id, std::string firstName, const Date& born) -> Child& {
        Child& added = household.children.emplace_back();
        added.id = demoId(id);
        added.firstName = std::move(firstName);
        added.lastName = "Ospelthaler";
        added.birthDate = born;
        added.education = usualEducation(born, household.year);
        return added;
    };
    Child& student = child(1, "Aline", day(household.year - 18, 5, 3));
    student.school = "Gymnasium";
    student.educationCosts = 2'860;
    student.scholarships = 600;
    child(2, "Timo", day(household.year - 11, 10, 14));
}

void addIncome(TaxCase& household) {
    const auto salary = [&](PersonIncome& income, int id, const std::string& employer,
                            const Decimal& gross, const Decimal& social, const Decimal& pension) {
        SalaryCertificate& certificate = income.salaries.emplace_back();
        certificate.id = demoId(id);
        certificate.employer = employer;
        certificate.periodFrom = day(household.year, 1, 1);
        certificate.periodTo = day(household.year, 12, 31);
        certificate.grossSalary = gross;
        certificate.socialContributions = social;
        certificate.pensionContributions = pension;
    };
    salary(household.income1, 11, household.person1.employer, 58'240, 3'494.40_dec, 3'060);
    salary(household.income2, 12, household.person2.employer, 92'300, 5'907.20_dec, 5'980);
    household.income1.boardFees = 1'500;
    household.income2.dailyAllowances = 1'120;
    household.householdIncome.otherIncome = 480;

    LIExtras extras;
    extras.commute1.from = "Triesen";
    extras.commute1.to = "Vaduz";
    extras.commute1.workDays = 150;
    extras.commute1.mealDays = 60;
    extras.commute2.mode = LICommute::Mode::ausland;
    extras.commute2.kmPerDay = 38;
    extras.commute2.workDays = 215;
    extras.commute2.reimbursed = 600;
    extras.commute2.mealDays = 180;
    extras.householdGoods = 45'000;
    household.setLiExtras(extras);
}

void addDeductions(TaxCase& household) {
    household.deductions1.furtherEducation = 1'950;
    household.deductions2.pensionBuyIn = 4'000;

    HouseholdDeductions& common = household.householdDeductions;
    common.healthInsurancePremiums = 9'180;
    common.lifeInsurancePremiums = 960;
    MedicalCost& dentist = common.medicalCosts.emplace_back();
    dentist.id = demoId(21);
    dentist.date = day(household.year, 4, 22);
    dentist.provider = "Zahnarztpraxis Lindaplatz, Schaan";
    dentist.gross = 2'940.60_dec;
    MedicalCost& share = common.medicalCosts.emplace_back();
    share.id = demoId(22);
    share.date = day(household.year, 12, 5);
    share.provider = "Krankenkasse, Kostenbeteiligung";
    share.gross = 1'300;
    share.reimbursed = 350;
    Donation& gift = common.donations.emplace_back();
    gift.id = demoId(31);
    gift.date = day(household.year, 12, 12);
    gift.recipient = "Bergwacht Drei Schwestern";
    gift.amount = 300;
}

void addWealth(TaxCase& household) {
    const auto entry = [&](int id, AssetKind kind, std::string description, const Decimal& value) {
        SecurityEntry& added = household.securities.emplace_back();
        added.id = demoId(id);
        added.kind = kind;
        added.institution = "Talbank Vaduz";
        added.description = std::move(description);
        added.taxValue = value;
        added.isSavingsAccount = kind == AssetKind::konto;
    };
    entry(41, AssetKind::konto, "Privatkonto", 21'480.15_dec);
    entry(42, AssetKind::konto, "Sparkonto", 74'900);
    entry(43, AssetKind::wertschrift, "Indexfonds Aktien Welt", 52'315.50_dec);
    household.cash = 800;

    InsurancePolicy& policy = household.insurances.emplace_back();
    policy.id = demoId(51);
    policy.company = "Rütli Leben";
    policy.startYear = household.year - 9;
    policy.endYear = household.year + 16;
    policy.surrenderValue = 9'640;
    Vehicle& car = household.vehicles.emplace_back();
    car.id = demoId(52);
    car.description = "Kombi";
    car.purchasePrice = 41'500;
    car.purchaseYear = household.year - 2;

    RealEstate& home = household.realEstate.emplace_back();
    home.id = demoId(61);
    home.description = "Reihenhaus Triesen";
    home.municipality = household.municipality;
    home.canton = "FL";
    home.parcelNumber = "2214";
    home.taxValue = 385'000;
    Debt& mortgage = household.debts.emplace_back();
    mortgage.id = demoId(71);
    mortgage.creditor = "Talbank Vaduz";
    mortgage.amount = 310'000;
    mortgage.interest = 5'270;
}

} // namespace

TaxCase liechtensteinFamily(int year) {
    TaxCase household{.year = year};
    household.region = TaxRegion::liechtenstein;
    household.municipality = "Triesen";
    addPersons(household);
    addIncome(household);
    addDeductions(household);
    addWealth(household);
    return household;
}

} // namespace taxcore::DemoData
