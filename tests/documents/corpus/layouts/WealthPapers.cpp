#include "tests/documents/corpus/layouts/Layout.h"

// Life insurances and official valuations of properties.

namespace corpus {
namespace {

struct Policy {
    QString number;
    Cents sum = 0;
    Cents surrender = 0;
    Cents premium = 0;
};

Policy policy(Draft& draft) {
    draft.truth.kind = "versicherung";
    draft.from({"Alvier Lebensversicherung AG", "Säntis Leben"},
               {"Leben & Zukunft Versicherungen AG", "Linthleben"});
    Policy made{draft.random.digits(2) + "." + draft.random.digits(6),
                draft.francs(20000, 250000, 1000), 0, 0};
    made.surrender =
        made.sum * draft.random.between(15, 85) / 100 / 5 * 5 + draft.random.between(0, 9);
    made.premium = draft.odd(600, 6000);
    draft.record("insurancePolicy", draft.family.one)
        .text("company", draft.issuer.name)
        .amount("surrenderValue", made.surrender)
        .amount("sumInsured", made.sum);
    return made;
}

void heldPolicyProse(Draft& draft) {
    const Policy made = policy(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(2, draft.family.one.name());
    p.lineOf("Vertrag " + made.number, {12, true});
    p.space(4);
    p.paragraph("Sehr geehrte Kundin, sehr geehrter Kunde", {10});
    p.space(3);
    p.paragraph("Ende " + QString::number(draft.year)
                    + " hatte Ihre kapitalbildende Versicherung über eine Summe von "
                    + draft.s(made.sum) + " einen steuerlich massgebenden Rückkaufswert von "
                    + draft.s(made.surrender) + ". Der prognostizierte Ablaufwert von "
                    + draft.s(made.sum + made.surrender / 3)
                    + " ist nicht garantiert. Berechnungszins 1.75%.",
                {10});
}

void heldPolicyCards(Draft& draft) {
    const Policy made = policy(draft);
    draft.record("householdDeductions", draft.family.one)
        .amount("lifeInsurancePremiums", made.premium);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(3, draft.family.one.name());
    p.lineOf("Angaben für Ihre Steuererklärung " + QString::number(draft.year), {13, true});
    p.space(6);
    const auto pair = [&](const QString& label, const QString& value) {
        p.lineOf(label, {7.5});
        p.lineOf(value, {11, true});
        p.space(2);
    };
    pair("Rückkaufswert am Jahresende", draft.s(made.surrender));
    pair("Garantierte Leistung (Versicherungssumme)", draft.s(made.sum));
    pair("Im Jahr bezahlte Prämien", draft.s(made.premium));
    pair("Vertragsnummer", made.number);
}

struct Property {
    QString municipality;
    QString parcel;
    Cents value = 0;
    Cents rent = 0;
};

Property property(Draft& draft) {
    draft.truth.kind = "liegenschaft";
    draft.from({"Amt für Grundstückschätzung Region Ost", "Grundbuchamt und Schätzungswesen Wil"},
               {"Fachstelle Liegenschaftenbewertung", "Gemeindekanzlei, Abteilung Schätzung"});
    static const std::vector<QString> municipalities{"Gossau", "Wil",     "Uzwil",   "Altstätten",
                                                     "Flawil", "Wattwil", "Sargans", "Rorschach"};
    Property made{draft.random.pick(municipalities),
                  draft.random.digits(draft.random.between(3, 4)),
                  draft.francs(280000, 1900000, 1000), 0};
    made.rent = made.value * draft.random.between(22, 40) / 1000 / 1000 * 1000;
    draft.record("realEstate")
        .amount("taxValue", made.value)
        .amount("imputedRentalValue", made.rent)
        .text("municipality", made.municipality)
        .text("parcelNumber", made.parcel);
    return made;
}

void heldDecision(Draft& draft) {
    const Property made = property(draft);
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(1, draft.family.one.name());
    p.lineOf("Verfügung über die Neubewertung", {13, true});
    p.space(4);
    p.paragraph("Für das Grundstück Nr. " + made.parcel + " in der Gemeinde " + made.municipality
                    + " wird der Steuerwert mit Wirkung ab 31.12." + QString::number(draft.year)
                    + " auf " + draft.s(made.value) + " und der Eigenmietwert auf "
                    + draft.s(made.rent)
                    + " im Jahr festgesetzt. Die bisherige Bewertung lautete auf "
                    + draft.s(made.value * 9 / 10 / 100000 * 100000) + ". Die Gebühr von "
                    + draft.s(45000) + " wird separat in Rechnung gestellt.",
                {10});
}

void heldForm(Draft& draft) {
    const Property made = property(draft);
    draft.dated = draft.day(); // the only date on the sheet
    Paper& p = draft.paper;
    p.newPage();
    draft.letterHead(3, draft.family.one.name());
    p.lineOf("Bewertungsblatt Liegenschaft", {14, true});
    const double top = p.y + 6;
    const auto cell = [&](double x, double y, double width, const QString& label,
                          const QString& value) {
        p.box(x, y, width, 13, 0.2);
        p.put(x + 2, y + 4, label, {6.5});
        p.put(x + width - 2, y + 10.5, value, {10, false, Align::right});
    };
    cell(22, top, 56, "Gemeinde", made.municipality);
    cell(78, top, 56, "Grundstück-Nr.", made.parcel);
    cell(134, top, 56, "Baujahr", QString::number(draft.random.between(1931, 2015)));
    cell(22, top + 13, 84, "Eigenmietwert jährlich (100%)", draft.m(made.rent));
    cell(106, top + 13, 84, "Vermögenssteuerwert", draft.m(made.value));
    cell(22, top + 26, 84, "Zeitwert Gebäude", draft.m(made.value * 7 / 10));
    cell(106, top + 26, 84, "Landwert", draft.m(made.value * 3 / 10));
}

} // namespace

std::vector<Layout> insurancePapers() {
    return {{"insurance", "prose", true, "de", false, heldPolicyProse},
            {"insurance", "pairs", true, "de", false, heldPolicyCards}};
}

std::vector<Layout> propertyPapers() {
    return {{"property", "decision", true, "de", false, heldDecision},
            {"property", "cells", true, "de", false, heldForm}};
}

} // namespace corpus
