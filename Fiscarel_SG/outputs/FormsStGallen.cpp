// The forms of the canton of St.Gallen in their order. Numbers of forms are those that the tax
// office prints; enclosures without a known one go by their name.

#include "Fiscarel_SG/outputs/SharedForms.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/result/AdultEntries.h"

#include <utility>

namespace fiscarel::outputs {

using namespace taxcore;

namespace {

constexpr std::string_view mainForm = "Formular 1 – Steuererklärung";

void writePage1(FormWriter& writer) {
    static const std::vector household{
        entry<&TaxCase::registerNumber>("Registernummer"),
        entry<&TaxCase::municipality>("Wohngemeinde am 31. Dezember"),
        entry<&TaxCase::parish>("Kirchgemeinde"),
        entry<&TaxCase::civilStatus>("Zivilstand am 31. Dezember"),
    };
    static const std::vector person{
        entry<&Person::lastName>("Name"),          entry<&Person::firstName>("Vorname"),
        entry<&Person::birthDate>("Geburtsdatum"), entry<&Person::confession>("Konfession"),
        entry<&Person::profession>("Beruf"),       entry<&Person::employment>("Erwerbsart"),
        entry<&Person::employer>("Arbeitgeber"),
    };
    writePersonalDetails(writer, std::string(mainForm), household, person);
}

const std::vector<EntryOfLine>& besideLines() {
    static const std::vector<EntryOfLine> entries{
        {"householdIncome.otherIncomeDescription", "6.4", "Einkommensberechnung", 2,
         made<TaxCase>(ValueKind::text, "Übrige Einkünfte: Bezeichnung", {}, {""},
                       [](const TaxCase& taxCase) {
                           return FieldValue(taxCase.householdIncome.otherIncomeDescription);
                       })},
        {"householdDeductions.otherDeductionsDescription", "16.5", "Abzüge", 3,
         made<TaxCase>(ValueKind::text, "Übrige Abzüge: Bezeichnung", {}, {""},
                       [](const TaxCase& taxCase) {
                           return FieldValue(
                               taxCase.householdDeductions.otherDeductionsDescription);
                       })},
        {"householdDeductions.supportedPersons", "23.4", "Sozialabzüge", 3,
         made<TaxCase>(ValueKind::number, "Unterstützte Personen: Anzahl", {}, {""},
                       [](const TaxCase& taxCase) {
                           return FieldValue(taxCase.householdDeductions.supportedPersons);
                       })},
        {"otherAssetsDescription", "30.6", "Vermögensberechnung", 4,
         made<TaxCase>(
             ValueKind::text, "Übrige Vermögenswerte: Bezeichnung", {}, {""},
             [](const TaxCase& taxCase) { return FieldValue(taxCase.otherAssetsDescription); })},
    };
    return entries;
}

void writeSecurities(FormWriter& writer, const TaxResult& result) {
    static const std::vector fields{
        entry<&SecurityEntry::kind>("Art"),
        made<SecurityEntry>(ValueKind::text, "Code", {}, {"code"},
                            [](const SecurityEntry& entry) {
                                return FieldValue(std::string(rawValue(entry.code)));
                            }),
        entry<&SecurityEntry::institution>("Bank oder Schuldner"),
        entry<&SecurityEntry::description>("Bezeichnung"),
        entryAs<&SecurityEntry::ibanOrValor>(ValueKind::iban, "IBAN oder Valor"),
        entryAs<&SecurityEntry::quantity>(ValueKind::number, "Stückzahl oder Nennwert"),
        entry<&SecurityEntry::owner>("Gehört"),
        entry<&SecurityEntry::taxValue>("Steuerwert am 31. Dezember"),
        entryAs<&SecurityEntry::incomeWithWithholding>(ValueKind::rappen,
                                                       "Bruttoertrag A, mit Verrechnungssteuer"),
        entryAs<&SecurityEntry::incomeWithoutWithholding>(
            ValueKind::rappen, "Bruttoertrag B, ohne Verrechnungssteuer"),
    };
    writer.form("Wertschriften- und Guthabenverzeichnis", 4, "30.1");
    writer.list(
        writer.taxCase().securities, "securities", fields, recordTitle,
        [&](const SecurityEntry& entry) { return belongsToHousehold(entry, writer.taxCase()); });
    writer.part("Verrechnungssteuer");
    writer.amount("withholdingIncomeA", "Total der Bruttoerträge A", result.withholdingIncomeA,
                  result.withholdingIncomeA, "withholdingTaxRefund", ValueKind::rappen);
    writer.amount("withholdingTaxRefund", "Verrechnungssteueranspruch", result.withholdingTaxRefund,
                  result.withholdingTaxRefund, "withholdingTaxRefund", ValueKind::rappen);
}

void writeRealEstate(FormWriter& writer) {
    static const std::vector fields{
        entry<&RealEstate::description>("Bezeichnung"),
        entry<&RealEstate::municipality>("Gemeinde"),
        entry<&RealEstate::canton>("Kanton"),
        entry<&RealEstate::parcelNumber>("Grundstück-Nr."),
        entry<&RealEstate::use>("Nutzung"),
        entry<&RealEstate::isPrimaryResidence>("Am Wohnsitz dauernd selbst bewohnt"),
        entry<&RealEstate::taxValue>("Amtlicher Wert"),
        entry<&RealEstate::imputedRentalValue>("Mietwert laut Schätzung, ungekürzt"),
        entry<&RealEstate::rooms>("Anzahl Zimmer"),
        entry<&RealEstate::unusedRooms>("Davon dauernd nicht benützt"),
        entry<&RealEstate::rentalIncome>("Mietzinseinnahmen"),
        entry<&RealEstate::useFlatRateMaintenance>("Pauschalabzug für den Unterhalt"),
        made<RealEstate>(ValueKind::francs, "Effektive Unterhaltskosten", {},
                         {"actualMaintenanceCosts"},
                         [](const RealEstate& property) {
                             return property.useFlatRateMaintenance
                                        ? FieldValue{}
                                        : FieldValue(property.actualMaintenanceCosts);
                         }),
    };
    writer.form("Liegenschaften", 2, "5.1");
    writer.list(writer.taxCase().realEstate, "realEstate",
                withShares(fields, writer.taxCase().isJoint()), recordTitle);
}

FieldValue whenDriven(const WorkExpenses& work, FieldValue value) {
    return work.carKmOneWay.isZero() ? FieldValue{} : std::move(value);
}
FieldValue whenAway(const WorkExpenses& work, FieldValue value) {
    return work.weeklyStay ? std::move(value) : FieldValue{};
}

const std::vector<FormField<WorkExpenses>>& workFields() {
    using Work = WorkExpenses;
    static const std::vector fields{
        entry<&Work::publicTransportCost>("Öffentlicher Verkehr: Abonnement im Jahr"),
        made<Work>(ValueKind::francs, "Velo, E-Bike oder Kleinmotorrad", {},
                   {"bicycleCost", "useBicycle"},
                   [](const Work& work) {
                       return work.useBicycle ? FieldValue(work.bicycleCost) : FieldValue{};
                   }),
        made<Work>(ValueKind::text, "Privates Motorfahrzeug", {}, {"carIsMotorbike"},
                   [](const Work& work) {
                       return whenDriven(work,
                                         std::string(work.carIsMotorbike ? "Motorrad" : "Auto"));
                   }),
        made<Work>(ValueKind::number, "Kilometer pro Fahrt", {}, {"carKmOneWay"},
                   [](const Work& work) { return FieldValue(work.carKmOneWay); }),
        made<Work>(ValueKind::number, "Fahrten pro Tag", {}, {"carTripsPerDay"},
                   [](const Work& work) { return whenDriven(work, work.carTripsPerDay); }),
        made<Work>(ValueKind::number, "Arbeitstage mit dem Fahrzeug", {}, {"carWorkDays"},
                   [](const Work& work) { return whenDriven(work, work.carWorkDays); }),
        made<Work>(ValueKind::text, "Begründung für das Fahrzeug", {}, {"carJustification"},
                   [](const Work& work) { return whenDriven(work, work.carJustification); }),
        made<Work>(ValueKind::text, "Verpflegung", {}, {"meals"},
                   [](const Work& work) {
                       return work.meals == MealSituation::keine
                                  ? FieldValue{}
                                  : FieldValue(std::string(label(work.meals)));
                   }),
        made<Work>(ValueKind::number, "Tage mit auswärtiger Verpflegung", {}, {"mealDays"},
                   [](const Work& work) {
                       return work.meals == MealSituation::keine ? FieldValue{}
                                                                 : FieldValue(work.mealDays);
                   }),
        made<Work>(ValueKind::francs, "Übrige Berufskosten: effektive Kosten", {},
                   {"actualOtherCosts", "useActualOtherCosts"},
                   [](const Work& work) {
                       return work.useActualOtherCosts ? FieldValue(work.actualOtherCosts)
                                                       : FieldValue{};
                   }),
        made<Work>(ValueKind::number, "Wochenaufenthalt: Monate", {},
                   {"weeklyStayMonths", "weeklyStay"},
                   [](const Work& work) { return whenAway(work, work.weeklyStayMonths); }),
        made<Work>(ValueKind::francs, "Wochenaufenthalt: Zimmermiete pro Monat", {},
                   {"weeklyStayRoomPerMonth", "weeklyStay"},
                   [](const Work& work) { return whenAway(work, work.weeklyStayRoomPerMonth); }),
        made<Work>(ValueKind::number, "Wochenaufenthalt: Tage mit Verpflegung", {},
                   {"weeklyStayDays", "weeklyStay"},
                   [](const Work& work) { return whenAway(work, work.weeklyStayDays); }),
        made<Work>(ValueKind::yesNo, "Wochenaufenthalt: verbilligte Verpflegung", {},
                   {"weeklyStayMealsReduced", "weeklyStay"},
                   [](const Work& work) { return whenAway(work, work.weeklyStayMealsReduced); }),
        made<Work>(ValueKind::francs, "Nebenerwerb: effektive Kosten", {},
                   {"sideJobActualCosts", "sideJobUseActual"},
                   [](const Work& work) {
                       return work.sideJobUseActual ? FieldValue(work.sideJobActualCosts)
                                                    : FieldValue{};
                   }),
    };
    return fields;
}

void writeWorkAmounts(FormWriter& writer, const TaxResult& result, int person) {
    const auto at = static_cast<std::size_t>(person) - 1;
    if (!result.work.canton || !result.work.federal || at >= result.work.canton->size()
        || at >= result.work.federal->size()) {
        return;
    }
    const WorkExpenseBreakdown& canton = (*result.work.canton)[at];
    const WorkExpenseBreakdown& federal = (*result.work.federal)[at];
    const std::string code = "berufskosten" + std::to_string(person);
    struct Part {
        const char* name;
        const char* label;
        Decimal WorkExpenseBreakdown::*amount;
    };
    constexpr Part parts[] = {
        {"commute", "Abzug Fahrkosten", &WorkExpenseBreakdown::commute},
        {"meals", "Abzug Verpflegung", &WorkExpenseBreakdown::meals},
        {"other", "Abzug übrige Berufskosten", &WorkExpenseBreakdown::other},
        {"weeklyStay", "Abzug Wochenaufenthalt", &WorkExpenseBreakdown::weeklyStay},
        {"sideJob", "Abzug Nebenerwerb", &WorkExpenseBreakdown::sideJob},
    };
    for (const Part& part : parts) {
        writer.amount(code + "." + part.name, part.label, canton.*part.amount, federal.*part.amount,
                      code);
    }
}

void writeWork(FormWriter& writer, const TaxResult& result) {
    forEachAdult(writer.taxCase(), [&](const AdultEntries& adult) {
        writer.form("Formular 4 – Berufskosten", 3, "10");
        writer.part("Berufskosten", adult.number);
        const std::string place = "deductions" + std::to_string(adult.number) + ".work";
        writer.record(adult.deductions.work, {place, place}, workFields());
        writeWorkAmounts(writer, result, adult.number);
    });
}

void writeDebts(FormWriter& writer) {
    static const std::vector fields{
        entry<&Debt::creditor>("Gläubiger"),
        entry<&Debt::isBusiness>("Geschäftsschuld"),
        entry<&Debt::amount>("Schuld am 31. Dezember"),
        entry<&Debt::interest>("Bezahlte Schuldzinsen"),
    };
    writer.form("Schuldenverzeichnis", 3, "11");
    writer.list(writer.taxCase().debts, "debts", fields, recordTitle);
}

void writeChildcare(FormWriter& writer) {
    static const std::vector fields{
        entry<&Child::childcareProvider>("Betreuung durch"),
        entryAs<&Child::childcareCosts>(ValueKind::rappen, "Kosten der Drittbetreuung"),
        entry<&Child::childcareDaysWithMealsIncluded>("Tage mit inbegriffener Verpflegung"),
    };
    writer.form("Formular 10 – Kinderbetreuungskosten", 3, "16.2");
    writer.list(writer.taxCase().children, "children", fields, recordTitle,
                [&](const Child& child) { return isBornBy(child, writer.taxCase().year); });
}

void writeGifts(FormWriter& writer, std::string form, std::string ziffer, bool toParties) {
    writer.form(std::move(form), 3, std::move(ziffer));
    writer.list(writer.taxCase().householdDeductions.donations, "householdDeductions.donations",
                donationFields(), recordTitle, [toParties](const Donation& donation) {
                    return donation.isPoliticalParty == toParties;
                });
}

void writeMedical(FormWriter& writer) {
    using Deductions = HouseholdDeductions;
    static const std::vector flatRates{
        entry<&Deductions::dietFlatRate>("Pauschale für eine ärztlich verordnete Diät"),
        entry<&Deductions::disabilityFlatRate>("Pauschale bei Behinderung"),
    };
    const Deductions& deductions = writer.taxCase().householdDeductions;
    writer.form("Krankheits-, Unfall- und Behinderungskosten", 3, "21.1");
    writer.list(deductions.medicalCosts, "householdDeductions.medicalCosts", medicalFields(),
                recordTitle);
    writer.part("Pauschalen");
    writer.record(deductions, {"householdDeductions", "householdDeductions"}, flatRates);
}

void writeEducation(FormWriter& writer) {
    static const std::vector fields{
        entryAs<&Child::educationCosts>(ValueKind::rappen, "Selbst bezahlte Ausbildungskosten"),
        entryAs<&Child::scholarships>(ValueKind::rappen, "Erhaltene Stipendien"),
    };
    writer.form("Ausbildungskosten für Kinder", 3, "23.3");
    writer.list(writer.taxCase().children, "children", fields, recordTitle,
                [&](const Child& child) { return isDeductible(child, writer.taxCase().year); });
}

} // namespace

void writeStGallen(FormWriter& writer, const TaxResult& result) {
    writePage1(writer);
    writeLines(writer, result, mainForm, besideLines());
    writeSalaryCertificates(writer, 2, false);
    writePensions(writer, 2, "3.2");
    writeRealEstate(writer);
    writeCapitalPayments(writer, 2, "9");
    writeWork(writer, result);
    writeDebts(writer);
    writePremiums(writer, "Versicherungsprämien", 3, "14");
    writeChildcare(writer);
    writeGifts(writer, "Formular 5 – Parteispenden", "16.3", true);
    writeMedical(writer);
    writeGifts(writer, "Freiwillige Zuwendungen", "21.3", false);
    writeEducation(writer);
    writeSecurities(writer, result);
    writer.form("Lebens- und Rentenversicherungen", 4, "30.3");
    writer.list(writer.taxCase().insurances, "insurances", policyFields(), recordTitle);
    writer.form("Motorfahrzeuge", 4, "30.4");
    writer.list(writer.taxCase().vehicles, "vehicles", vehicleFields(), recordTitle);
}

} // namespace fiscarel::outputs
