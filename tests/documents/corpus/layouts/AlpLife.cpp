#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of charities, parties, parishes and schools.

namespace corpus {
namespace {

const std::vector<Sheet> donations{
    {"donation", "a-party", "de", false, "party", R"(
        head 4 one
        title [Zuwendungen an die Partei {year}|Beitragsausweis {year}]
        text [Für Ihr Engagement danken wir herzlich. Von Ihnen sind eingegangen:|Folgende Beiträge haben Sie der Partei {year} geleistet:]
        entry Mitgliederbeitrag ; {member}
        entry Mandatsabgabe ; {mandate}
        entry Freie Gabe für die Wahlen ; {gift}
        rule
        text [Gesamthaft sind es {amount!}, die Sie als Zuwendung an politische Parteien abziehen können.|Zuwendungen an politische Parteien, einschliesslich Mitgliederbeitrag und Mandatsabgabe: {amount!}.]
        small Gemeinsam steuerpflichtige Ehepaare können im Kanton bis {limit!} abziehen.)"},
    {"donation", "a-goods", "de", false, "goods", R"(
        head 2 one
        bold [Dankesschreiben und Zuwendungsbestätigung|Bestätigung für Geld- und Sachspenden {year}]
        text [Liebe Familie {last}|Grüezi {one}]
        cols 22 52 186r
        tr {on} ; Geldspende ; {money}
        tr {given} ; Sachspende: {thing}, Verkehrswert ; {goods}
        tb ; [Zuwendungen gesamt|Total der Zuwendungen {year}] ; {amount}
        gap 3
        text [Dazu haben Sie {hours} Stunden unentgeltlich mitgearbeitet. Bewertet mit {hour!} wären das {work!}; Arbeit ist jedoch keine abziehbare Zuwendung.|Ihre {hours} Freiwilligenstunden (Gegenwert {work!}, {hour!} je Stunde) sind steuerlich nicht abziehbar.])"},
    {"donation", "a-parish", "de", false, "parish", R"(
        head 0 one
        title [Zahlungen an die Kirchgemeinde {year}|Ihre Zahlungen {year}]
        cols 22 60 186r
        th Eingang ; Verwendung ; CHF
        rule
        tr {on1} ; Kirchensteuer (keine Spende) ; {tax}
        tr {on2} ; Spende für die Renovation der Orgel ; {gift}
        tr {on3} ; Kollekte Missionswerk ; {mission}
        rule
        tr ; Alle Zahlungen ; {all}
        tb ; [davon Spenden, abziehbar|Spenden (ohne Kirchensteuer)] ; {amount})"},
    {"donation", "a-church-tax", "de", false, "churchTax", R"(
        head 5 one
        title [Kirchensteuer {year}: Schlussrechnung|Rechnung Kirchensteuer {year}]
        line {one}, einfache Steuer {simple!}, Steuerfuss {rate}
        dots Kirchensteuer ; {tax}
        dots Ausgleichssteuer 3 % ; {equal}
        sum Steuerbetrag ; {total}
        dots Bereits bezahlt ; {-paid}
        sum Zu bezahlen bis {due} ; {open}
        text Ihre Steuer ermöglicht Jugendarbeit, Seelsorge und Hilfswerke. Herzlichen Dank für Ihre Unterstützung! Über eine zusätzliche Spende freuen wir uns.)"},
    {"donation", "a-sponsor-months", "de", false, "sponsor", R"(
        head 6 one
        title [Patenschaft {year}|Ihre Patenschaft im Jahr {year}]
        line Patenkind: {godchild}
        cols 32r 60r 88r 116r 144r 172r
        th Januar ; Februar ; März ; April ; Mai ; Juni
        tr {m1} ; {m2} ; {m3} ; {m4} ; {m5} ; {m6}
        gap 3
        th Juli ; August ; Sept. ; Oktober ; Nov. ; Dez.
        tr {m7} ; {m8} ; {m9} ; {m10} ; {m11} ; {m12}
        gap 4
        above [Beiträge des Jahres, in der Steuererklärung abziehbar|Bestätigte Summe {year}] ; {amount!}
        small Monatsbeitrag {month!}, Geschenk zum Geburtstag {extra!}. Steuerbefreite Institution.)"},
    {"donation", "a-recit", "fr", false, "threeGifts", R"(
        head 1 one
        bold [Merci!|Votre soutien en {year}]
        text [Chère donatrice, cher donateur|Bonjour {one}]
        text [Le {on1} vous nous avez fait parvenir {gift1!}, puis {gift2!} le {on2} et enfin {gift3!} le {on3}. Vos dons de l'année {year} atteignent ainsi {amount!}.|Trois fois, en {year}, vous avez pensé à nous: {gift1!} le {on1}, {gift2!} le {on2} et {gift3!} le {on3}, soit {amount!} en tout.]
        text [Votre cotisation de membre ({fee!}) n'est pas déductible et n'y figure pas.|La cotisation de {fee!} n'est pas un don.])"},
    {"donation", "a-liberalita", "it", false, "threeGifts", R"(
        head 3 one
        title [Attestazione delle liberalità {year}|Offerte ricevute nel {year}]
        cols 44r 52 92
        th CHF ; Data ; Causale
        rule
        tr {fee} ; {feeon} ; Quota sociale (non deducibile)
        tr {gift1} ; {on1} ; Offerta
        tr {gift2} ; {on2} ; Offerta
        tr {gift3} ; {on3} ; In memoria
        rule
        tr {all} ; ; Versamenti complessivi
        tb {amount} ; ; [Liberalità deducibili|Offerte deducibili])"},
    {"donation", "a-charity-en", "en", false, "sponsor", R"(
        head 0 one
        bold [Donation receipt {year}|Your donations in {year}]
        text Dear {one}
        text [Thank you for your monthly gift of {month!} and your special gift of {extra!}. In {year} we received donations of {amount!} from you in total.|In {year} you donated a total of {amount!}: twelve standing orders of {month!} and one extra gift of {extra!}.]
        text [We are a tax-exempt charity in Switzerland, so you may deduct this amount.|Please enclose this letter with your Swiss tax return.])"},
};

const std::vector<Sheet> courses{
    {"course", "a-withdrawn", "de", false, "withdrawn", R"(
        head 0 one
        title [Abrechnung nach Austritt|Schlussabrechnung Kursabbruch] «{course}»
        line Teilnehmer/in {one}, Austritt am {left}
        cols 22 52 186r
        tr {paid} ; Kursgeld, bezahlt ; {fee}
        tr {paid} ; Kursmaterial, bezahlt ; {material}
        tr {back} ; [Rückzahlung nicht besuchter Teile|Erstattung der restlichen Module] ; {-refund}
        tr {back} ; Bearbeitungsgebühr, mit der Rückzahlung verrechnet ; {handling}
        rule
        tb ; [Ihre effektiven Kosten {year}|Nach der Rückzahlung bleiben zu Ihren Lasten] ; {amount})"},
    {"course", "a-both-learn", "de", false, "learners", R"(
        head 3 both
        title [Kursbestätigung {year}|Bezahlte Kurse {year}]
        cols 22 74 142 188r
        th Teilnehmende ; Kurs ; bezahlt am ; Kosten
        rule
        each learners {who} ; {course} ; {on} ; {part}
        rule
        tr Rechnungsempfänger: Familie {last} ; ; ; {all}
        small Die Kurse dienen der beruflichen Weiterbildung; jede Person zieht ihre Kosten ab.)"},
    {"course", "a-school-account", "de", false, "schoolAccount", R"(
        head 1 one
        title [Studierendenkonto {year}|Kontoauszug {year}] {course}
        cols 22 48 128r 158r 188r
        th Datum ; Text ; Soll ; Haben ; Saldo
        rule
        each lines {on} ; {what} ; {debit?} ; {credit?} ; {balance}
        rule
        tr ; Umsatz ; {charged} ; {amount} ; {open}
        text [Bezahlt haben Sie {year} demnach {amount!}; nur bezahlte Weiterbildungskosten sind abziehbar.|Für den Abzug der Weiterbildungskosten {year} zählen Ihre Zahlungen: {amount!}.])"},
    {"course", "a-facture-employeur", "fr", false, "shareOfFirm", R"(
        head 6 one
        title [Facture de formation|Facture] {number}
        text {course}. Participant(e): {one}. [Date de la facture|Établie le] {dated}
        mid Prix de la formation ; {price}
        mid Facturé à l'employeur {company} ; {-firm}
        rule
        sum [À votre charge|Montant à payer par le participant] ; {amount~}
        small Échéance {due}. Les frais de formation continue à votre charge sont déductibles.)"},
    {"course", "a-moduli", "it", false, "credits", R"(
        head 2 one
        title [Attestazione delle tasse di studio {year}|Costi di formazione continua {year}]
        line {one}, {birth}
        cols 22 104r 160r
        th Modulo ; ECTS ; CHF
        rule
        each modules {name} ; {credits} ; {part}
        tr Tassa d'esame ; ; {exam}
        tr Libri e dispense ; ; {books}
        rule
        tb [Pagato nel {year}|Costi di formazione pagati] ; ; {amount}
        small In caso di richiamo: {reminder!})"},
    {"course", "a-tuition-en", "en", false, "tuition", R"(
        head 4 one
        title [Statement of tuition fees|Confirmation of payment] {course}
        line Participant: {one}
        cols 22 60 110 170r
        th Instalment ; Date ; Status ; Tuition fee
        rule
        each parts {no} ; {day} ; {state} ; {part}
        rule
        tr Whole programme ; ; ; {all}
        gap 2
        text [Tuition received in the calendar year {year}: {amount!}. The last instalment of {next!} is payable next year.|We confirm that {one} paid tuition fees of {amount!} in {year}.])"},
};

/// Receipts of several collections, laid on one sheet and copied.
void receipts(Draft& draft) {
    const Facts facts = told(draft, "receipts");
    Paper& paper = draft.paper;
    paper.newPage();
    const QString heading = draft.one("Quittung|Spendenquittung|Beleg");
    double top = 18;
    for (const Facts& one : facts.lists.at("receipts")) {
        const double left = 18 + draft.random.between(0.0, 14.0);
        paper.box(left, top, 150, 66, 0.3);
        const double x = left + 6;
        paper.put(x, top + 10, draft.issuer.name, paper.fitted(draft.issuer.name, {11, true}, 88));
        paper.put(left + 144, top + 10, heading + " Nr. " + one.texts.at("number"),
                  {8, false, Align::right});
        paper.put(x, top + 16, draft.issuer.street + ", " + draft.issuer.place, {7.5});
        paper.put(x, top + 28, "erhalten von", {7.5});
        paper.put(x + 26, top + 28, draft.family.one.name(), {10});
        paper.put(x, top + 37, "für", {7.5});
        paper.put(x + 26, top + 37, one.texts.at("why"), {10});
        paper.put(x, top + 46, "den Betrag von", {7.5});
        paper.put(x + 26, top + 46, draft.s(one.amounts.at("part")), {12, true});
        paper.put(x, top + 58, draft.issuer.place.mid(5) + ", " + draft.date(one.dates.at("on")),
                  {8.5});
        paper.line(left + 96, top + 58, left + 142, top + 58);
        paper.put(left + 96, top + 62, "Unterschrift", {6.5});
        top += 74 + draft.random.between(0, 8);
    }
}

} // namespace

std::vector<Layout> alpLifePapers() {
    std::vector<Layout> layouts = scripted({donations, courses});
    layouts.push_back({"donation", "a-receipts", false, "de", false, receipts});
    return layouts;
}

} // namespace corpus
