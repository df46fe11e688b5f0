#include "TaxCore/demo/DemoData.h"

#include "TaxCore/demo/DemoParts.h"
#include "TaxCore/model/Household.h"

#include <string>

namespace taxcore::DemoData {

namespace {

void addPersons(TaxCase& household) {
    Person& first = household.person1;
    first.firstName = "Nora";
    first.lastName = "Rheintaler";
    first.birthDate = day(1986, 4, 17);
    first.confession = Confession::evangelischReformiert;
    first.profession = "Konstrukteurin";
    first.employer = "Werdenwerk Apparatebau AG";

    Person& second = household.person2;
    second.firstName = "Jonas";
    second.lastName = "Rheintaler";
    second.birthDate = day(1984, 11, 2);
    second.confession = Confession::roemischKatholisch;
    second.profession = "Pflegefachmann";
    second.employer = "Spitex Alvierblick";

    Child& older = household.children.emplace_back();
    older.id = demoId(1);
    older.firstName = "Lia";
    older.lastName = "Rheintaler";
    older.birthDate = day(household.year - 9, 6, 8);
    older.education = usualEducation(older.birthDate, household.year);
    older.school = "Primarschule Sevelen";
    older.childcareCosts = 1680;
    older.childcareProvider = "Mittagstisch Sevelen";

    Child& younger = household.children.emplace_back();
    younger.id = demoId(2);
    younger.firstName = "Emil";
    younger.lastName = "Rheintaler";
    younger.birthDate = day(household.year - 3, 9, 21);
    younger.education = usualEducation(younger.birthDate, household.year);
    younger.childcareCosts = 9840;
    younger.childcareDaysWithMealsIncluded = 92;
    younger.childcareProvider = "Kita Sunnaschii";
}

void addIncome(TaxCase& household) {
    SalaryCertificate& main = household.income1.salaries.emplace_back();
    main.id = demoId(11);
    main.employer = household.person1.employer;
    main.periodFrom = day(household.year, 1, 1);
    main.periodTo = day(household.year, 12, 31);
    main.grossSalary = 118'400;
    main.socialContributions = 7'591.20_dec;
    main.pensionContributions = 6'840;
    household.income1.boardFees = 1'200;

    SalaryCertificate& partTime = household.income2.salaries.emplace_back();
    partTime.id = demoId(12);
    partTime.employer = household.person2.employer;
    partTime.periodFrom = day(household.year, 1, 1);
    partTime.periodTo = day(household.year, 12, 31);
    partTime.grossSalary = 62'400;
    partTime.socialContributions = 3'993.60_dec;
    partTime.pensionContributions = 3'120;
    partTime.fieldG = true;
    SalaryCertificate& side = household.income2.salaries.emplace_back();
    side.id = demoId(13);
    side.employer = "Samariterverein Werdenberg";
    side.isMainEmployment = false;
    side.grossSalary = 4'200;
    side.socialContributions = 268.80_dec;
    household.income2.dailyAllowances = 640;
    household.householdIncome.undividedEstates = 350;
    household.householdIncome.simplifiedSettlementIncome = 900;
}

void addDeductions(TaxCase& household) {
    PersonDeductions& first = household.deductions1;
    first.work.carKmOneWay = 17;
    first.work.carWorkDays = 150;
    first.work.carJustification = "Zeitersparnis über 60 Minuten pro Tag";
    first.work.meals = MealSituation::auswaerts;
    first.work.mealDays = 150;
    first.pillar3a = 7'000;
    first.furtherEducation = 2'450;

    PersonDeductions& second = household.deductions2;
    second.work.publicTransportCost = 648;
    second.work.useBicycle = true;
    second.work.meals = MealSituation::auswaerts;
    second.work.mealDays = 96;
    second.pillar3a = 4'000;
    second.pensionBuyIn = 5'000;
    second.furtherEducationFlatRate = true;

    HouseholdDeductions& common = household.householdDeductions;
    common.healthInsurancePremiums = 11'208;
    common.lifeInsurancePremiums = 1'440;

    const auto bill = [&](int id, std::string provider, const Decimal& gross,
                          const Decimal& reimbursed, int month) {
        MedicalCost& cost = common.medicalCosts.emplace_back();
        cost.id = demoId(id);
        cost.date = day(household.year, month, 14);
        cost.provider = std::move(provider);
        cost.gross = gross;
        cost.reimbursed = reimbursed;
    };
    bill(21, "Zahnarztpraxis am Bach, Buchs", 4'380.40_dec, 0, 3);
    bill(22, "Krankenkasse, Franchise und Selbstbehalt", 1'150, 0, 12);
    bill(23, "Optik Werdenberg", 620, 180, 8);

    const auto gift = [&](int id, std::string recipient, const Decimal& amount, bool party) {
        Donation& donation = common.donations.emplace_back();
        donation.id = demoId(id);
        donation.date = day(household.year, 11, 20);
        donation.recipient = std::move(recipient);
        donation.amount = amount;
        donation.isPoliticalParty = party;
    };
    gift(31, "Bergrettung Alvier", 250, false);
    gift(32, "Stiftung Sonnenhof", 400, false);
    gift(33, "Ortspartei Sevelen", 150, true);
}

void addSecurities(TaxCase& household) {
    const auto entry = [&](int id, AssetKind kind, std::string institution, std::string description,
                           const Decimal& value) -> SecurityEntry& {
        SecurityEntry& line = household.securities.emplace_back();
        line.id = demoId(id);
        line.kind = kind;
        line.institution = std::move(institution);
        line.description = std::move(description);
        line.taxValue = value;
        line.isSavingsAccount = kind == AssetKind::konto;
        return line;
    };
    entry(41, AssetKind::konto, "Talbank Werdenberg", "Privatkonto", 18'264.35_dec)
        .incomeWithoutWithholding = 22.80_dec;
    entry(42, AssetKind::konto, "Talbank Werdenberg", "Sparkonto", 64'120.90_dec)
        .incomeWithWithholding = 480.90_dec;
    SecurityEntry& fund = entry(43, AssetKind::wertschrift, "Talbank Werdenberg",
                                "Indexfonds Aktien Schweiz", 38'450);
    fund.quantity = 310;
    fund.incomeWithWithholding = 918.60_dec;
    fund.managedByThirdParty = true;
    SecurityEntry& holding =
        entry(44, AssetKind::wertschrift, "Rheintaler Holzbau AG", "Familienaktien, 12 %", 24'000);
    holding.code = AssetCode::privateParticipation;
    holding.owner = Owner::person2;
    holding.incomeWithWithholding = 1'500;
    SecurityEntry& childrens =
        entry(45, AssetKind::konto, "Talbank Werdenberg", "Jugendsparkonto Lia", 3'210.55_dec);
    childrens.owner = Owner::kinder;
    childrens.incomeWithoutWithholding = 16.05_dec;
    household.cash = 1'500;
}

void addPossessions(TaxCase& household) {
    InsurancePolicy& policy = household.insurances.emplace_back();
    policy.id = demoId(51);
    policy.company = "Rütli Leben";
    policy.startYear = household.year - 11;
    policy.endYear = household.year + 14;
    policy.sumInsured = 50'000;
    policy.surrenderValue = 12'380;

    Vehicle& car = household.vehicles.emplace_back();
    car.id = demoId(52);
    car.description = "Kombi";
    car.purchasePrice = 32'500;
    car.purchaseYear = household.year - 2;
    household.undividedEstatesWealth = 9'000;

    RealEstate& home = household.realEstate.emplace_back();
    home.id = demoId(61);
    home.description = "Einfamilienhaus Rans";
    home.municipality = household.municipality;
    home.parcelNumber = "1187";
    home.taxValue = 612'000;
    home.imputedRentalValue = 19'800;
    home.rooms = 6;

    Debt& mortgage = household.debts.emplace_back();
    mortgage.id = demoId(71);
    mortgage.creditor = "Talbank Werdenberg";
    mortgage.amount = 465'000;
    mortgage.interest = 7'440;

    CapitalPayment& payment = household.capitalPayments.emplace_back();
    payment.id = demoId(81);
    payment.kind = CapitalPayment::Kind::saeule3a;
    payment.amount = 64'300;
    payment.date = day(household.year, 6, 30);
}

} // namespace

TaxCase family(int year) {
    TaxCase household{.year = year};
    household.parish = "Sevelen";
    household.registerNumber = "00.000.000";
    household.iban = "CH93 0076 2011 6238 5295 7";
    addPersons(household);
    addIncome(household);
    addDeductions(household);
    addSecurities(household);
    addPossessions(household);
    return household;
}

} // namespace taxcore::DemoData
