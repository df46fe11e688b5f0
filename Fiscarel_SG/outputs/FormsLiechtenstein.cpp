// The return of Liechtenstein and its enclosures in their order.

#include "Fiscarel_SG/outputs/SharedForms.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/result/AdultEntries.h"

#include <utility>

namespace fiscarel::outputs {

using namespace taxcore;

namespace {

constexpr std::string_view mainForm = "Steuererklärung";
constexpr std::string_view formA1 = "Hilfsformular A1";
constexpr std::string_view formA2 = "Hilfsformular A2";
constexpr std::string_view formA3 = "Hilfsformular A3";

void writePage1(FormWriter& writer) {
    static const std::vector household{
        entry<&TaxCase::registerNumber>("Registernummer"),
        entry<&TaxCase::municipality>("Wohngemeinde"),
        entry<&TaxCase::civilStatus>("Zivilstand"),
    };
    static const std::vector person{
        entry<&Person::lastName>("Name"),          entry<&Person::firstName>("Vorname"),
        entry<&Person::birthDate>("Geburtsdatum"), entry<&Person::profession>("Beruf"),
        entry<&Person::employment>("Erwerbsart"),  entry<&Person::employer>("Arbeitgeber"),
    };
    writePersonalDetails(writer, std::string(mainForm), household, person);
}

const std::vector<EntryOfLine>& besideLines() {
    static const std::vector<EntryOfLine> entries{
        {"otherAssetsDescription", "3.9", "Vermögen per 1. Januar", 2,
         made<TaxCase>(
             ValueKind::text, "Übrige Vermögenswerte: Bezeichnung", {}, {""},
             [](const TaxCase& taxCase) { return FieldValue(taxCase.otherAssetsDescription); })},
        {"householdIncome.otherIncomeDescription", "14.7", "Erwerb im In- und Ausland", 3,
         made<TaxCase>(ValueKind::text, "Übriger Erwerb: Bezeichnung", {}, {""},
                       [](const TaxCase& taxCase) {
                           return FieldValue(taxCase.householdIncome.otherIncomeDescription);
                       })},
    };
    return entries;
}

/// The Ziffer of the register entry, as the calculation files it.
std::string_view zifferOf(AssetKind kind) {
    switch (kind) {
    case AssetKind::konto:
        return "3.1";
    case AssetKind::darlehen:
        return "3.4";
    default:
        return "3.2";
    }
}

const std::vector<FormField<RealEstate>>& propertyFields() {
    static const std::vector fields{
        entry<&RealEstate::description>("Bezeichnung"),
        entry<&RealEstate::municipality>("Gemeinde"),
        entry<&RealEstate::canton>("Kanton oder Land"),
        entry<&RealEstate::parcelNumber>("Grundstück-Nr."),
        entry<&RealEstate::taxValue>("Steuerschätzwert am 1. Januar"),
    };
    return fields;
}

/// The items of a list that count, each a part under a Ziffer of its own.
template <class R, class Counts>
void writeAt(FormWriter& writer, std::string_view ziffer, const std::vector<R>& items,
             std::string_view path, const std::vector<FormField<R>>& fields, const Counts& counts) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (counts(items[i])) {
            writer.part(titleOf(items[i]), 0, std::string(ziffer));
            writer.record(items[i], FormWriter::place(path, items[i].id, i), fields);
        }
    }
}

void writeHomes(FormWriter& writer) {
    writer.form("Grundeigentum in Liechtenstein", 2);
    writeAt(
        writer, "1.1", writer.taxCase().realEstate, "realEstate",
        withShares(propertyFields(), writer.taxCase().isJoint()), [&](const RealEstate& property) {
            return isInLiechtenstein(property) && writer.taxCase().liExtras().useRealEstateFromList;
        });
}

void writeA1(FormWriter& writer) {
    static const std::vector securities{
        entry<&SecurityEntry::kind>("Art"),
        entry<&SecurityEntry::institution>("Bank oder Schuldner"),
        entry<&SecurityEntry::description>("Bezeichnung"),
        entryAs<&SecurityEntry::ibanOrValor>(ValueKind::iban, "IBAN oder Valor"),
        entryAs<&SecurityEntry::quantity>(ValueKind::number, "Stückzahl oder Nennwert"),
        entry<&SecurityEntry::owner>("Gehört"),
        entry<&SecurityEntry::taxValue>("Wert am 1. Januar"),
    };
    static const std::vector debts{
        entry<&Debt::creditor>("Gläubiger"),
        entry<&Debt::isBusiness>("Geschäftsschuld"),
        entry<&Debt::amount>("Schuld am 1. Januar"),
    };
    const TaxCase& taxCase = writer.taxCase();
    const auto all = [](const auto&) { return true; };
    writer.form(std::string(formA1), 2);
    writeAt(writer, "1.2", taxCase.realEstate, "realEstate",
            withShares(propertyFields(), taxCase.isJoint()),
            [](const RealEstate& property) { return !isInLiechtenstein(property); });
    for (const std::string_view ziffer : {"3.1", "3.2", "3.4"}) {
        writeAt(writer, ziffer, taxCase.securities, "securities", securities,
                [&](const SecurityEntry& entry) {
                    return isPrivateAsset(entry, taxCase) && zifferOf(entry.kind) == ziffer;
                });
    }
    writeAt(writer, "3.6", taxCase.insurances, "insurances", policyFields(), all);
    writeAt(writer, "3.82", taxCase.vehicles, "vehicles", vehicleFields(), all);
    writeAt(writer, "5", taxCase.debts, "debts", debts, all);
}

const std::vector<FormField<LICommute>>& commuteFields() {
    static const std::vector fields{
        entry<&LICommute::mode>("Arbeitsort"),
        made<LICommute>(ValueKind::text, "Wohnort", {}, {"from"},
                        [](const LICommute& way) { return FieldValue(way.from); }),
        made<LICommute>(ValueKind::text, "Arbeitsort: Gemeinde", {}, {"to"},
                        [](const LICommute& way) { return FieldValue(way.to); }),
        made<LICommute>(ValueKind::number, "Kilometer pro Tag, hin und zurück", {}, {"kmPerDay"},
                        [](const LICommute& way) {
                            return way.mode == LICommute::Mode::ausland ? FieldValue(way.kmPerDay)
                                                                        : FieldValue{};
                        }),
        entry<&LICommute::workDays>("Arbeitstage im Jahr"),
        entry<&LICommute::reimbursed>("Vom Arbeitgeber vergütete Fahrkosten"),
        entry<&LICommute::mealDays>("Tage mit auswärtiger Verpflegung"),
    };
    return fields;
}

void writeA2(FormWriter& writer, const TaxResult& result) {
    const LIExtras extras = writer.taxCase().liExtras();
    forEachAdult(writer.taxCase(), [&](const AdultEntries& adult) {
        const std::string number = std::to_string(adult.number);
        const std::string place = "li.commute" + number;
        const auto at = static_cast<std::size_t>(adult.number) - 1;
        if (!result.work.canton || at >= result.work.canton->size()) {
            return;
        }
        const WorkExpenseBreakdown& costs = (*result.work.canton)[at];
        if (costs.total().isZero()) { // without a salary there is no way to work
            return;
        }
        writer.form(std::string(formA2), 3, "16.1");
        writer.part("Gewinnungskosten", adult.number);
        writer.record(adult.number == 2 ? extras.commute2 : extras.commute1, {place, place},
                      commuteFields());
        const auto amount = [&](const char* name, const char* label, const Decimal& value) {
            writer.amount("580." + number + "." + name, label, value, value, "580");
        };
        amount("commute", "Fahrkosten", costs.commute);
        amount("meals", "Verpflegung", costs.meals);
        amount("other", "Differenz zur Pauschale", costs.other);
    });
}

void writeA3(FormWriter& writer) {
    using Deductions = HouseholdDeductions;
    static const std::vector education{
        entry<&Child::school>("Schule oder Lehrfirma"),
        entryAs<&Child::educationCosts>(ValueKind::rappen, "Selbst bezahlte Ausbildungskosten"),
        entryAs<&Child::scholarships>(ValueKind::rappen, "Erhaltene Stipendien"),
    };
    static const std::vector further{
        entryAs<&PersonDeductions::furtherEducation>(ValueKind::rappen, "Kosten der Weiterbildung"),
    };
    static const std::vector maintenance{
        entry<&Deductions::alimonyPaidPartner>("Bezahlt an Geschiedene oder Getrennte"),
        entry<&Deductions::alimonyPaidChildren>("Bezahlt für minderjährige Kinder"),
    };
    const TaxCase& taxCase = writer.taxCase();
    const Deductions& deductions = taxCase.householdDeductions;
    writer.form(std::string(formA3), 3);
    writeAt(writer, "18.1", taxCase.children, "children", education, [&](const Child& child) {
        return isBornBy(child, taxCase.year)
               && !(child.educationCosts.isZero() && child.scholarships.isZero());
    });
    writeAt(writer, "18.2", deductions.medicalCosts, "householdDeductions.medicalCosts",
            medicalFields(), [](const MedicalCost&) { return true; });
    writeAt(writer, "18.3", deductions.donations, "householdDeductions.donations", donationFields(),
            [](const Donation& donation) { return !donation.isPoliticalParty; });
    forEachAdult(taxCase, [&](const AdultEntries& adult) {
        const std::string place = "deductions" + std::to_string(adult.number);
        writer.part("Weiterbildung", adult.number, "18.4");
        writer.record(adult.deductions, {place, place}, further);
    });
    writer.part("Unterhaltsbeiträge", 0, "18.6");
    writer.record(deductions, {"householdDeductions", "householdDeductions"}, maintenance);
}

} // namespace

void writeLiechtenstein(FormWriter& writer, const TaxResult& result) {
    writePage1(writer);
    writeLines(writer, result, mainForm, besideLines());
    writeHomes(writer);
    writeA1(writer);
    writeSalaryCertificates(writer, 3, true);
    writePensions(writer, 3, "13.2");
    writeA2(writer, result);
    writePremiums(writer, "Versicherungsbeiträge", 3, "17");
    writeA3(writer);
    writeCapitalPayments(writer, 4, {});
}

} // namespace fiscarel::outputs
