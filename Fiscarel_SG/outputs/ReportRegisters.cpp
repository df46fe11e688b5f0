// The registers: what was entered, item by item.

#include "Fiscarel_SG/outputs/ReportParts.h"
#include "TaxCore/result/AdultEntries.h"

#include <initializer_list>
#include <utility>

namespace fiscarel::outputs {

using namespace taxcore;

namespace {

using Weight = ReportRow::Weight;

/// Adds a register under its heading unless it is empty.
void add(ReportChapter& chapter, const char* title, ReportTable rows) {
    if (!rows.rows.empty()) {
        chapter.blocks.emplace_back(ReportHeading{title, 2, std::string("register:") + title});
        chapter.blocks.emplace_back(std::move(rows));
    }
}

template <class Item>
Decimal sumOf(const std::vector<Item>& items, Decimal Item::*amount) {
    Decimal sum;
    for (const Item& item : items) {
        sum += item.*amount;
    }
    return sum;
}

/// Empties columns: without content they are not shown.
void leaveOut(ReportTable& table, std::initializer_list<std::size_t> columns) {
    for (ReportRow& row : table.rows) {
        for (const std::size_t column : columns) {
            row.cells[column] = {};
        }
    }
}

/// A name for what has none.
std::string named(const std::string& text) { return text.empty() ? "ohne Bezeichnung" : text; }

std::string documentNumber(const ReportMaterial& material, const std::optional<Uuid>& document) {
    const int number = material.sources.numberOf(document);
    return number > 0 ? std::to_string(number) : std::string();
}

std::string periodText(const SalaryCertificate& salary) {
    const std::string from = dayText(salary.periodFrom);
    const std::string to = dayText(salary.periodTo);
    return from.empty() && to.empty() ? std::string() : from + " – " + to;
}

std::string percentText(const Decimal& percentage) {
    return percentage == 100 ? std::string() : percent(percentage) + " steuerbar";
}

ReportTable salaries(const ReportMaterial& material) {
    ReportTable rows = table({textColumn("Arbeitgeber"), amountColumn("Bruttolohn (8)"),
                              amountColumn("Sozialvers. (9)"), amountColumn("BVG (10)"),
                              amountColumn("Nettolohn (11)"), labelColumn("Beleg")});
    forEachAdult(material.taxCase(), [&](const AdultEntries& adult) {
        for (const SalaryCertificate& salary : adult.income.salaries) {
            const std::string boxes = std::string(salary.fieldF ? "Feld F" : "")
                                      + (salary.fieldF && salary.fieldG ? ", " : "")
                                      + (salary.fieldG ? "Feld G" : "");
            addRow(rows, {{named(salary.employer),
                           dotted({personName(material.taxCase(), adult.number),
                                   salary.isMainEmployment ? "Haupterwerb" : "Nebenerwerb",
                                   periodText(salary), boxes, salary.remarks})},
                          {money(salary.grossSalary)},
                          {money(salary.socialContributions)},
                          {money(salary.pensionContributions + salary.pensionBuyIn)},
                          {money(salary.netSalary())},
                          {documentNumber(material, salary.documentID)}});
        }
    });
    return rows;
}

ReportTable pensions(const ReportMaterial& material) {
    ReportTable rows = table({textColumn("Rente"), textColumn("Person"), amountColumn("CHF")});
    forEachAdult(material.taxCase(), [&](const AdultEntries& adult) {
        for (const PensionIncome& pension : adult.income.pensions) {
            addRow(rows, {{named(pension.label), percentText(pension.taxablePercent)},
                          {personName(material.taxCase(), adult.number)},
                          {money(pension.amount)}});
        }
    });
    return rows;
}

/// Whose an entry is; empty for what belongs to both.
std::string ownerName(const TaxCase& taxCase, Owner owner) {
    switch (owner) {
    case Owner::person1:
        return personName(taxCase, 1);
    case Owner::person2:
        return taxCase.isJoint() ? personName(taxCase, 2) : std::string(label(owner));
    case Owner::gemeinsam:
        return {};
    case Owner::kinder:
        break;
    }
    return std::string(label(owner));
}

/// The name in two lines: the institution, then what else tells the entry apart.
ReportCell securityName(const TaxCase& taxCase, const SecurityEntry& entry) {
    return {
        dotted({entry.institution, entry.description}).empty()
            ? named("")
            : dotted({entry.institution, entry.description}),
        dotted({std::string(label(entry.kind)), entry.ibanOrValor,
                entry.quantity ? "Anzahl " + MoneyFormat::number(*entry.quantity) : std::string(),
                ownerName(taxCase, entry.owner),
                entry.managedByThirdParty ? "durch Dritte verwaltet" : ""})};
}

ReportTable securities(const ReportMaterial& material) {
    const auto& entries = material.taxCase().securities;
    ReportTable rows = table(
        {labelColumn("Nr."), labelColumn("Code"), textColumn("Bezeichnung"),
         amountColumn(material.isLiechtenstein() ? "Wert 1. Januar" : "Steuerwert 31.12."),
         amountColumn("Ertrag mit VSt"), amountColumn("Ertrag ohne VSt"), labelColumn("Beleg")});
    int number = 0;
    for (const SecurityEntry& entry : entries) {
        addRow(rows, {{std::to_string(++number)},
                      {std::string(rawValue(entry.code))},
                      securityName(material.taxCase(), entry),
                      {money(entry.taxValue)},
                      {moneyOrNothing(entry.incomeWithWithholding)},
                      {moneyOrNothing(entry.incomeWithoutWithholding)},
                      {documentNumber(material, entry.documentID)}});
    }
    if (!entries.empty()) {
        addRow(rows,
               {{},
                {},
                {"Total"},
                {money(sumOf(entries, &SecurityEntry::taxValue))},
                {moneyOrNothing(sumOf(entries, &SecurityEntry::incomeWithWithholding))},
                {moneyOrNothing(sumOf(entries, &SecurityEntry::incomeWithoutWithholding))},
                {}},
               Weight::sum);
    }
    if (material.isLiechtenstein()) {
        leaveOut(rows, {1, 4, 5});
    }
    return rows;
}

std::string placeText(const RealEstate& property) {
    return dotted({property.municipality, property.canton,
                   property.parcelNumber.empty() ? "" : "Parzelle " + property.parcelNumber,
                   std::string(label(property.use)),
                   property.isPrimaryResidence ? "am Wohnsitz" : ""});
}

ReportTable properties(const ReportMaterial& material) {
    const TaxCase& taxCase = material.taxCase();
    ReportTable rows = table(
        {textColumn("Liegenschaft"),
         amountColumn(material.isLiechtenstein() ? "Steuerschätzwert 1. Januar" : "Steuerwert"),
         amountColumn("Mietwert"), amountColumn("Mietertrag"), amountColumn("Unterhalt")});
    for (const RealEstate& property : taxCase.realEstate) {
        addRow(rows, {{named(property.description), placeText(property)},
                      {money(property.taxValue)},
                      {moneyOrNothing(property.imputedRentalValue)},
                      {moneyOrNothing(property.rentalIncome)},
                      {property.useFlatRateMaintenance ? "Pauschale"
                                                       : money(property.actualMaintenanceCosts)}});
    }
    if (!rows.rows.empty()) {
        addRow(rows,
               {{"Total"},
                {money(sumOf(taxCase.realEstate, &RealEstate::taxValue))},
                {moneyOrNothing(sumOf(taxCase.realEstate, &RealEstate::imputedRentalValue))},
                {moneyOrNothing(sumOf(taxCase.realEstate, &RealEstate::rentalIncome))},
                {}},
               Weight::sum);
    }
    if (material.isLiechtenstein()) {
        leaveOut(rows, {2, 3, 4});
    }
    return rows;
}

ReportTable debts(const ReportMaterial& material) {
    const TaxCase& taxCase = material.taxCase();
    ReportTable rows =
        table({textColumn("Gläubiger"),
               amountColumn(material.isLiechtenstein() ? "Schuld 1. Januar" : "Schuld 31.12."),
               amountColumn("Schuldzinsen")});
    for (const Debt& debt : taxCase.debts) {
        addRow(rows, {{named(debt.creditor), debt.isBusiness ? "geschäftlich" : ""},
                      {money(debt.amount)},
                      {money(debt.interest)}});
    }
    if (!rows.rows.empty()) {
        addRow(rows,
               {{"Total"},
                {money(sumOf(taxCase.debts, &Debt::amount))},
                {money(sumOf(taxCase.debts, &Debt::interest))}},
               Weight::sum);
    }
    if (material.isLiechtenstein()) {
        leaveOut(rows, {2});
    }
    return rows;
}

ReportTable insurances(const TaxCase& taxCase) {
    ReportTable rows =
        table({textColumn("Lebensversicherung"), labelColumn("Beginn"), labelColumn("Ablauf"),
               amountColumn("Summe"), amountColumn("Rückkaufswert")});
    const auto year = [](const std::optional<int>& value) {
        return value ? std::to_string(*value) : std::string();
    };
    for (const InsurancePolicy& policy : taxCase.insurances) {
        addRow(rows, {{named(policy.company)},
                      {year(policy.startYear)},
                      {year(policy.endYear)},
                      {moneyOrNothing(policy.sumInsured)},
                      {money(policy.surrenderValue)}});
    }
    return rows;
}

ReportTable vehicles(const ReportMaterial& material) {
    ReportTable rows = table({textColumn("Fahrzeug"), labelColumn("Kaufjahr"),
                              amountColumn("Kaufpreis"), amountColumn("Steuerwert")});
    const TaxCase& taxCase = material.taxCase();
    for (const Vehicle& vehicle : taxCase.vehicles) {
        addRow(rows, {{named(vehicle.description)},
                      {vehicle.purchaseYear ? std::to_string(*vehicle.purchaseYear) : ""},
                      {money(vehicle.purchasePrice)},
                      {money(material.input.calculator.vehicleValue(vehicle, taxCase.year))}});
    }
    return rows;
}

ReportTable otherAssets(const TaxCase& taxCase) {
    ReportTable rows = table({textColumn("Übriges Vermögen"), amountColumn("CHF")});
    const auto entry = [&](const char* name, const Decimal& amount, const std::string& note = {}) {
        if (!amount.isZero()) {
            addRow(rows, {{name, note}, {money(amount)}});
        }
    };
    entry("Bargeld, Gold und Edelmetalle", taxCase.cash);
    entry("Anteile an unverteilten Erbschaften", taxCase.undividedEstatesWealth);
    entry("Geschäftsvermögen", taxCase.businessAssets);
    entry("Übrige Vermögenswerte", taxCase.otherAssets, taxCase.otherAssetsDescription);
    if (taxCase.taxRegion() == TaxRegion::liechtenstein) {
        entry("Hausrat", taxCase.liExtras().householdGoods);
    }
    return rows;
}

ReportTable donations(const ReportMaterial& material) {
    const auto& gifts = material.taxCase().householdDeductions.donations;
    ReportTable rows = table(
        {labelColumn("Datum"), textColumn("Empfänger"), amountColumn("CHF"), labelColumn("Beleg")});
    for (const Donation& gift : gifts) {
        addRow(rows, {{dayText(gift.date)},
                      {named(gift.recipient), gift.isPoliticalParty ? "politische Partei" : ""},
                      {money(gift.amount)},
                      {documentNumber(material, gift.documentID)}});
    }
    if (!gifts.empty()) {
        addRow(rows, {{}, {"Total"}, {money(sumOf(gifts, &Donation::amount))}, {}}, Weight::sum);
    }
    return rows;
}

ReportTable medicalCosts(const ReportMaterial& material) {
    const auto& bills = material.taxCase().householdDeductions.medicalCosts;
    ReportTable rows =
        table({labelColumn("Datum"), textColumn("Rechnung von"), amountColumn("Rechnung"),
               amountColumn("Vergütet"), amountColumn("Selbst bezahlt"), labelColumn("Beleg")});
    Decimal selfPaid;
    for (const MedicalCost& bill : bills) {
        addRow(rows, {{dayText(bill.date)},
                      {named(bill.provider), bill.isDisabilityRelated ? "behinderungsbedingt" : ""},
                      {money(bill.gross)},
                      {moneyOrNothing(bill.reimbursed)},
                      {money(bill.selfPaid())},
                      {documentNumber(material, bill.documentID)}});
        selfPaid += bill.selfPaid();
    }
    if (!bills.empty()) {
        addRow(rows,
               {{},
                {"Total"},
                {money(sumOf(bills, &MedicalCost::gross))},
                {moneyOrNothing(sumOf(bills, &MedicalCost::reimbursed))},
                {money(selfPaid)},
                {}},
               Weight::sum);
    }
    return rows;
}

} // namespace

ReportChapter incomeRegisters(const ReportMaterial& material) {
    ReportChapter registers = chapter("Beilagen zum Einkommen", "income");
    add(registers, "Lohnausweise", salaries(material));
    add(registers, "Renten und Pensionen", pensions(material));
    return registers;
}

ReportChapter wealthRegisters(const ReportMaterial& material) {
    const TaxCase& taxCase = material.taxCase();
    ReportChapter registers = chapter("Beilagen zum Vermögen", "wealth");
    // In Liechtenstein only the assets count, as they are on 1 January; what they yield does not.
    add(registers, "Wertschriften- und Guthabenverzeichnis", securities(material));
    add(registers, "Liegenschaften", properties(material));
    add(registers, "Schuldenverzeichnis", debts(material));
    add(registers, "Lebensversicherungen", insurances(taxCase));
    add(registers, "Fahrzeuge", vehicles(material));
    add(registers, "Übriges Vermögen", otherAssets(taxCase));
    return registers;
}

ReportChapter deductionRegisters(const ReportMaterial& material) {
    ReportChapter registers = chapter("Beilagen zu den Abzügen", "deductions");
    add(registers, "Zuwendungen und Parteispenden", donations(material));
    add(registers, "Krankheits-, Unfall- und Behinderungskosten", medicalCosts(material));
    return registers;
}

} // namespace fiscarel::outputs
