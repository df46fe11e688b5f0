#include "Fiscarel_SG/outputs/SharedForms.h"

#include "TaxCore/model/Household.h"
#include "TaxCore/result/AdultEntries.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace fiscarel::outputs {

using namespace taxcore;

namespace {

const std::vector<FormField<Child>>& childFields() {
    static const std::vector fields{
        entry<&Child::lastName>("Name"),
        entry<&Child::firstName>("Vorname"),
        entry<&Child::birthDate>("Geburtsdatum"),
        entry<&Child::education>("Vorschulalter, Schule oder Ausbildung"),
        entry<&Child::school>("Schule oder Lehrfirma"),
        entry<&Child::educationUntil>("Ausbildung bis"),
        entry<&Child::livesInHousehold>("Lebt im gemeinsamen Haushalt"),
    };
    return fields;
}

const std::vector<FormField<SalaryCertificate>>& certificateFields() {
    static const std::vector fields{
        entry<&SalaryCertificate::employer>("Arbeitgeber"),
        made<SalaryCertificate>(
            ValueKind::text, "Haupt- oder Nebenerwerb", {}, {"isMainEmployment"},
            [](const SalaryCertificate& certificate) {
                return FieldValue(
                    std::string(certificate.isMainEmployment ? "Haupterwerb" : "Nebenerwerb"));
            }),
        entry<&SalaryCertificate::periodFrom>("Beschäftigt von", "E"),
        entry<&SalaryCertificate::periodTo>("Beschäftigt bis", "E"),
        entry<&SalaryCertificate::fieldF>("Unentgeltliche Beförderung zum Arbeitsort", "F"),
        entry<&SalaryCertificate::fieldG>("Kantinenverpflegung oder Lunch-Checks", "G"),
        entry<&SalaryCertificate::grossSalary>("Bruttolohn total", "8"),
        entry<&SalaryCertificate::socialContributions>("Beiträge AHV/IV/EO/ALV/NBUV", "9"),
        entry<&SalaryCertificate::pensionContributions>("BVG: ordentliche Beiträge", "10.1"),
        entry<&SalaryCertificate::pensionBuyIn>("BVG: Beiträge für den Einkauf", "10.2"),
        made<SalaryCertificate>(ValueKind::francs, "Nettolohn", "11", {"netSalaryOverride"},
                                [](const SalaryCertificate& certificate) {
                                    return FieldValue(certificate.netSalary());
                                }),
        entry<&SalaryCertificate::flatRateExpenses>("Pauschalspesen", "13"),
        entry<&SalaryCertificate::remarks>("Bemerkungen", "15"),
    };
    return fields;
}

/// A Ziffer as it is ordered: its number, then the digits behind the point one by one, since "3.84"
/// is a part of "3.8". Letters come before numbers, no Ziffer before both.
std::pair<int, std::string_view> placeOf(std::string_view ziffer) {
    constexpr int letters = -1000;
    if (ziffer.empty()) {
        return {2 * letters, {}};
    }
    int number = 0;
    const char* const end = ziffer.data() + ziffer.size();
    const auto [rest, status] = std::from_chars(ziffer.data(), end, number);
    if (status != std::errc{}) {
        return {letters, ziffer};
    }
    return {number, ziffer.substr(static_cast<std::size_t>(rest - ziffer.data()))};
}

/// Whose line it is, by its code; 0: the household's.
int personOf(std::string_view code) {
    constexpr std::array<std::pair<std::string_view, int>, 6> liechtenstein{
        {{"500", 1}, {"505", 2}, {"510", 1}, {"515", 2}, {"520", 1}, {"525", 2}}};
    for (const auto& [known, person] : liechtenstein) {
        if (code == known) {
            return person;
        }
    }
    const bool numbered = !code.empty() && (code.back() == '1' || code.back() == '2')
                          && (code.front() < '0' || code.front() > '9');
    return numbered ? code.back() - '0' : 0;
}

/// A row of the return before it is placed.
struct Placed {
    int page = 0;
    std::string order; ///< the Ziffer, or that of the line before where there is none
    std::string section;
    TransferRow row;
};

/// Notes that only name the person say nothing that the row does not.
std::string noteOf(const TaxLine& line, const std::string& name) {
    return line.note && *line.note != name ? *line.note : std::string();
}

Placed placed(const TaxCase& taxCase, const TaxLine& line, const TaxSection& section,
              const std::string& ziffer) {
    const auto text = [](const Decimal& value) {
        const std::string shown = shownValue(value, ValueKind::francs);
        return shown.empty() ? std::string("0") : shown;
    };
    Placed made{section.page, ziffer, section.title, {}};
    TransferRow& row = made.row;
    row.key = line.id();
    row.code = line.code;
    row.ziffer = line.ziffer;
    row.person = personOf(line.code);
    row.name = row.person == 0 ? std::string() : FormWriter::nameOf(taxCase, row.person);
    row.label = line.label;
    row.kind = ValueKind::francs;
    row.value = text(line.canton);
    if (std::string federal = text(line.federalOrCanton()); federal != row.value) {
        row.federal = std::move(federal);
    }
    const Person& person = row.person == 2 ? taxCase.person2 : taxCase.person1;
    row.note = noteOf(line, person.displayName());
    row.isComputed = line.kind == TaxLine::Kind::subtotal || line.kind == TaxLine::Kind::total;
    return made;
}

} // namespace

bool isZifferBefore(std::string_view a, std::string_view b) { return placeOf(a) < placeOf(b); }

std::string titleOf(std::string_view a, std::string_view b, std::string_view fallback) {
    const std::string first = shownValue(std::string(a), ValueKind::text);
    const std::string second = shownValue(std::string(b), ValueKind::text);
    std::string title = first + (first.empty() || second.empty() ? "" : ", ") + second;
    return title.empty() ? std::string(fallback) : title;
}
std::string titleOf(const MedicalCost& cost) {
    return titleOf(cost.provider, {}, "Rechnung ohne Namen");
}
std::string titleOf(const Donation& donation) {
    return titleOf(donation.recipient, {}, "Zuwendung ohne Namen");
}
std::string titleOf(const SecurityEntry& entry) {
    return titleOf(entry.institution, entry.description, label(entry.kind));
}
std::string titleOf(const Child& child) {
    const std::string name = child.firstName
                             + (child.firstName.empty() || child.lastName.empty() ? "" : " ")
                             + child.lastName;
    return titleOf(name, {}, "Kind ohne Namen");
}
std::string titleOf(const RealEstate& property) {
    return titleOf(property.description, property.municipality, "Liegenschaft ohne Namen");
}
std::string titleOf(const Debt& debt) {
    return titleOf(debt.creditor, {}, "Schuld ohne Gläubiger");
}
std::string titleOf(const InsurancePolicy& policy) {
    return titleOf(policy.company, {}, "Versicherung ohne Namen");
}
std::string titleOf(const Vehicle& vehicle) {
    return titleOf(vehicle.description, {}, "Fahrzeug ohne Namen");
}

void writePersonalDetails(FormWriter& writer, std::string form,
                          const std::vector<FormField<TaxCase>>& household,
                          const std::vector<FormField<Person>>& person) {
    const TaxCase& taxCase = writer.taxCase();
    writer.form(std::move(form), 1);
    writer.part("Haushalt");
    writer.record(taxCase, {}, household);
    forEachAdult(taxCase, [&](const AdultEntries& adult) {
        writer.part("Personalien", adult.number);
        const std::string place = "person" + std::to_string(adult.number);
        writer.record(adult.person, {place, place}, person);
    });
    writer.list(taxCase.children, "children", childFields(), recordTitle,
                [&](const Child& child) { return isBornBy(child, taxCase.year); });
    writer.part("Rückzahlungen");
    writer.record(taxCase, {}, {entryAs<&TaxCase::iban>(ValueKind::iban, "IBAN des Kontos")});
}

void writeLines(FormWriter& writer, const TaxResult& result, std::string_view form,
                const std::vector<EntryOfLine>& beside) {
    std::vector<Placed> rows;
    std::string before;
    for (const TaxSection& section : result.sections) {
        for (const TaxLine& line : section.lines) {
            const bool isSum =
                line.kind == TaxLine::Kind::subtotal || line.kind == TaxLine::Kind::total;
            before = line.ziffer.empty() ? before : line.ziffer;
            if (isSum || !line.canton.isZero() || !line.federalOrCanton().isZero()) {
                rows.push_back(placed(writer.taxCase(), line, section, before));
            }
        }
    }
    for (const EntryOfLine& entry : beside) {
        std::string value = shownValue(entry.field.read(writer.taxCase()), entry.field.kind);
        if (value.empty()) {
            continue;
        }
        Placed made{entry.page, std::string(entry.ziffer), std::string(entry.section), {}};
        made.row.key = entry.path;
        made.row.ziffer = entry.ziffer;
        made.row.label = entry.field.label;
        made.row.kind = entry.field.kind;
        made.row.value = std::move(value);
        made.row.paths = {std::string(entry.path)};
        rows.push_back(std::move(made));
    }
    std::ranges::stable_sort(rows, [](const Placed& a, const Placed& b) {
        if (a.page != b.page) {
            return a.page < b.page;
        }
        if (a.order != b.order) {
            return isZifferBefore(a.order, b.order);
        }
        return a.row.person < b.row.person;
    });
    for (Placed& made : rows) {
        writer.form(std::string(form), made.page);
        writer.part(std::move(made.section), made.row.person);
        writer.add(std::move(made.row));
    }
}

void writeSalaryCertificates(FormWriter& writer, int page, bool tellsCountry) {
    auto fields = certificateFields();
    if (tellsCountry) {
        fields.insert(fields.begin() + 1, entry<&SalaryCertificate::employerInLiechtenstein>(
                                              "Arbeitgeber in Liechtenstein"));
    }
    forEachAdult(writer.taxCase(), [&](const AdultEntries& adult) {
        writer.form("Lohnausweise", page);
        writer.list(
            adult.income.salaries, adult.incomePath("salaries").toString(), fields,
            [](const SalaryCertificate& certificate) {
                return titleOf(certificate.employer, {}, "Lohnausweis ohne Arbeitgeber");
            },
            adult.number);
    });
}

void writePensions(FormWriter& writer, int page, std::string ziffer) {
    static const std::vector fields{
        entry<&PensionIncome::label>("Auszahlende Stelle"),
        entry<&PensionIncome::amount>("Rente im Jahr"),
        made<PensionIncome>(
            ValueKind::number, "Steuerbarer Teil in Prozent", {}, {"taxablePercent"},
            [](const PensionIncome& pension) {
                return pension.amount.isZero() ? FieldValue{} : FieldValue(pension.taxablePercent);
            }),
    };
    forEachAdult(writer.taxCase(), [&](const AdultEntries& adult) {
        writer.form("Renten und Pensionen", page, ziffer);
        writer.list(
            adult.income.pensions, adult.incomePath("pensions").toString(), fields,
            [](const PensionIncome& pension) {
                return titleOf(pension.label, {}, "Rente ohne Namen");
            },
            adult.number);
    });
}

void writePremiums(FormWriter& writer, std::string form, int page, std::string ziffer) {
    using Deductions = HouseholdDeductions;
    static const std::vector fields{
        entry<&Deductions::healthInsurancePremiums>("Prämien der Krankenversicherung"),
        entry<&Deductions::accidentInsurancePremiums>("Prämien der Unfallversicherung"),
        entry<&Deductions::lifeInsurancePremiums>("Prämien der Lebensversicherung"),
        entry<&Deductions::premiumReduction>("Erhaltene Prämienverbilligung"),
    };
    writer.form(std::move(form), page, std::move(ziffer));
    writer.part("Bezahlte Prämien");
    writer.record(writer.taxCase().householdDeductions,
                  {"householdDeductions", "householdDeductions"}, fields);
}

void writeCapitalPayments(FormWriter& writer, int page, std::string ziffer) {
    static const std::vector fields{
        entry<&CapitalPayment::kind>("Art der Leistung"),
        entry<&CapitalPayment::date>("Ausbezahlt am"),
        entry<&CapitalPayment::amount>("Betrag"),
    };
    writer.form("Kapitalleistungen aus Vorsorge", page, std::move(ziffer));
    writer.list(writer.taxCase().capitalPayments, "capitalPayments", fields,
                [](const CapitalPayment& payment) { return std::string(label(payment.kind)); });
}

std::vector<FormField<RealEstate>> withShares(std::vector<FormField<RealEstate>> fields,
                                              bool isJoint) {
    if (isJoint) {
        constexpr std::ptrdiff_t behindParcel = 4;
        fields.insert(
            fields.begin() + behindParcel,
            {entryAs<&RealEstate::sharePerson1>(ValueKind::number, "Anteil Person 1 in Prozent"),
             entryAs<&RealEstate::sharePerson2>(ValueKind::number, "Anteil Person 2 in Prozent")});
    }
    return fields;
}

const std::vector<FormField<MedicalCost>>& medicalFields() {
    static const std::vector fields{
        entry<&MedicalCost::date>("Rechnungsdatum"),
        entry<&MedicalCost::provider>("Rechnungssteller"),
        entryAs<&MedicalCost::gross>(ValueKind::rappen, "Rechnungsbetrag"),
        entryAs<&MedicalCost::reimbursed>(ValueKind::rappen, "Von der Versicherung vergütet"),
        entry<&MedicalCost::isDisabilityRelated>("Behinderungsbedingt"),
    };
    return fields;
}

const std::vector<FormField<Donation>>& donationFields() {
    static const std::vector fields{
        entry<&Donation::date>("Datum"),
        entry<&Donation::recipient>("Empfänger"),
        entryAs<&Donation::amount>(ValueKind::rappen, "Betrag"),
    };
    return fields;
}

const std::vector<FormField<InsurancePolicy>>& policyFields() {
    static const std::vector fields{
        entry<&InsurancePolicy::company>("Versicherungsgesellschaft"),
        entry<&InsurancePolicy::startYear>("Abschlussjahr"),
        entry<&InsurancePolicy::endYear>("Ablaufjahr"),
        entry<&InsurancePolicy::sumInsured>("Versicherungssumme"),
        entry<&InsurancePolicy::surrenderValue>("Rückkaufswert"),
    };
    return fields;
}

const std::vector<FormField<Vehicle>>& vehicleFields() {
    static const std::vector fields{
        entry<&Vehicle::description>("Marke und Modell"),
        entry<&Vehicle::purchasePrice>("Kaufpreis"),
        entry<&Vehicle::purchaseYear>("Kaufjahr"),
        entry<&Vehicle::taxValueOverride>("Abweichender Steuerwert"),
    };
    return fields;
}

} // namespace fiscarel::outputs
