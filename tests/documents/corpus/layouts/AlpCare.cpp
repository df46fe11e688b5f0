#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of day care: tables by kind of cost, by month and child, blocks side by side, letters.

namespace corpus {
namespace {

const std::vector<Sheet> careSheets{
    // Two children beside each other, each with an own column of labels and amounts.
    {"childcare", "a-side-by-side", "de", false, "twoSiblings", R"(
        head 2 one
        title [Betreuungskosten|Elternbeiträge|Kinderbetreuung, Nachweis] {year}
        cols 22 99r 110 187r
        tb {who1} ; ; {who2} ;
        tr geb. {born1} ; ; geb. {born2} ;
        tr [Volltarif|Kosten vor Abzügen] ; {full1} ; [Volltarif|Kosten vor Abzügen] ; {full2}
        tr Geschwisterrabatt ; {-discount1} ; Geschwisterrabatt ; {-discount2}
        tr [Subvention Gemeinde|Öffentlicher Beitrag] ; {-aid1} ; Subvention Gemeinde ; {-aid2}
        tb [Bezahlt für Betreuung|Elternanteil Betreuung] ; {net1} ; [Bezahlt für Betreuung|Elternanteil Betreuung] ; {net2}
        tr Verpflegung ; {meals1} ; Verpflegung ; {meals2}
        text Verpflegung ist nicht abziehbar. Beide Kinder zusammen: Betreuung {net!}, Verpflegung {meals!}.)"},
    {"childcare", "a-cost-kinds", "de", false, "costKinds", R"(
        head 0 both
        title [Kostenzusammenstellung {year}|Familienabrechnung {year}|Aufschlüsselung der Elternrechnungen {year}]
        cols 22 104r 130r 156r 190r
        th Kostenart ; {first1} ; {first2} ; {first3} ; [Familie|Summe]
        rule
        each care {what} ; {a1} ; {a2} ; {a3} ; {sum}
        tr [Beitrag der Wohngemeinde|Gemeindebeitrag] ; {-aid1} ; {-aid2} ; {-aid3} ; {-aid}
        tb [Kosten für die Steuererklärung|Betreuung netto|Abziehbar] ; {n1} ; {n2} ; {n3} ; {n}
        gap 2
        each extras {what} ; {a1} ; {a2} ; {a3} ; {sum}
        rule
        tb [Von Ihnen überwiesen|Rechnungstotal] ; {p1} ; {p2} ; {p3} ; {paid}
        gap 4
        line {who1} ({born1}), {who2} ({born2}), {who3} ({born3})
        small Essen, Windeln und Ausflüge gehören zu den Lebenshaltungskosten und können nicht abgezogen werden.)"},
    {"childcare", "a-month-by-child", "de", false, "monthsByChild", R"(
        head 4 both
        bold [Betreuungsnachweis {year}|Anwesenheit und Kosten {year}]: {who1}, {born1}, und {who2}, {born2}
        cols 22 60 120r 170r
        th Monat ; Kind ; Tage ; Franken
        rule
        each entries {month} ; {first} ; {days} ; {part}
        rule
        tb {year} ; {first1} ; ; {t1}
        tb {year} ; {first2} ; ; {t2}
        tr ; beide Kinder ; ; {total})"},
    {"childcare", "a-month-bill", "de", true, "careMonthBill", R"(
        head 1 one
        title [Monatsrechnung|Rechnung] {month}
        line Rechnung {number}, {child}. Zahlbar bis {due}
        entry {days} Tage zu {rate} ; {care}
        entry {days} Mahlzeiten zu 9.50 ; {meals}
        sum [Total {month}|Rechnungsbetrag] ; {total}
        small [Voraussichtliche Kosten des ganzen Jahres gemäss Vertrag|Budget für das Betreuungsjahr]: {budget!}. Vormonat {before!}, dankend erhalten. Die Jahresbestätigung folgt im Februar.
        bill total {number})"},
    {"childcare", "a-refund", "de", false, "careRefund", R"(
        head 6 one
        title [Jahresrechnung mit Gutschriften|Abrechnung {year} nach Rückvergütung]
        line {child}, geboren am {childbirth}
        cols 22 84 146r 186r
        th Quartal ; Rechnung vom ; Gutschrift ; Belastung
        rule
        each quarters {term} ; {on} ; ; {part}
        tr Betriebsferien, zu viel verrechnet ; ; {-closed} ;
        tr Krankheit mit Arztzeugnis ; ; {-ill} ;
        rule
        tr Umsatz ; ; {-back} ; {charged}
        gap 3
        sum [Nach Abzug der Gutschriften von Ihnen getragen|Effektive Betreuungskosten {year}|Ihnen verbleibende Kosten] ; {paid~}
        gap 2
        small Beim Austritt zahlen wir Ihnen das Depot von {deposit!} zurück; es ist keine Betreuungsleistung.)"},
    {"childcare", "a-family-total", "de", false, "careTotal", R"(
        head 5 both
        bold [Bestätigung für beide Kinder|Bestätigung {year}]
        text Guten Tag
        text [{who1} und {who2} besuchten {year} unsere Gruppen. Die gesamten Betreuungskosten beider Kinder, die Sie uns überwiesen haben, betragen {total!}.|Für die Betreuung Ihrer Kinder {who1} ({born1}) und {who2} ({born2}) haben Sie uns im Jahr {year} zusammen {total!} bezahlt. Mahlzeiten sind nicht enthalten.]
        text [Eine Aufteilung auf die Kinder stellen wir auf Wunsch zu.|Der Tagestarif von {rate!} gilt für beide Kinder.])"},
    {"childcare", "a-camps", "de", false, "camps", R"(
        head 2 both
        title [Ferienwochen {year}: Quittung|Betreute Ferienwochen {year}|Tageslager {year}, Übersicht für die Eltern]
        cols 22 52 82 112 170r
        th von ; bis ; Kind ; Angebot ; CHF
        each weeks {from} ; {until} ; {first} ; {what} ; {part}
        rule
        gap 3
        each children !colon {who}, {born} ; {paid!}
        gap 2
        text [Alles wurde vor den Wochen bezahlt, gesamthaft {total!}.|Bezahlt wurden {total!}; ein einzelner Tag kostet {day!}.])"},
    {"childcare", "a-playgroup", "de", false, "playgroup", R"(
        head 3 one
        bold [Quittung Spielgruppenjahr {year}|Spielgruppe: Zahlungen {year}]
        line {child}, {childbirth}
        cols 40r 48 150
        each quarters {part} ; {no}. Quartal ; {on}
        rule
        tb {care} ; [Betreuung durch Dritte (abzugsfähig)|Elternbeiträge der vier Quartale] ;
        tr {material} ; Bastelmaterial und Znüni ;
        tr {fee} ; Vereinsbeitrag ;
        rule
        tr {all} ; alle Zahlungen ;
        small Bastelmaterial, Znüni und Vereinsbeitrag gelten nicht als Betreuungskosten.)"},
    {"childcare", "a-firm-share", "de", false, "careAlone", R"(
        head 1 both
        title [Firmenkita: Jahresbestätigung|Betriebskindertagesstätte, Kostenausweis] {year}
        text [{firm} beteiligt sich an den Plätzen ihrer Mitarbeitenden und bezahlt ihren Anteil direkt an uns.|Die Plätze werden von {firm} mitgetragen.] Kind: {child}, {childbirth}
        side Vollkosten des Platzes ; {full} ; Anteil {firm} ; {-employer}
        below {paid!} ; [Anteil der Eltern, steuerlich massgebend|Eltern: bezahlt {year}] ; {month!} ; Vollkosten je Monat)"},
    {"childcare", "a-child-rows", "de", false, "siblings", R"(
        wide
        head 0 both
        title [Drei Kinder, ein Beleg: {year}|Tarifausweis Geschwister {year}|Elternabrechnung {year} je Kind]
        cols 22 76 104r 136r 168r 200r 232r 272r
        th Kind ; geboren ; Tage ; Normaltarif ; Geschwister 10 % ; Subvention ; [Elternbeitrag|Von den Eltern] ; Essen (separat)
        rule
        each children {who} ; {born} ; {days} ; {full} ; {-discount} ; {-aid} ; {net} ; {meals}
        rule
        tb ; ; ; {full} ; {-discount} ; {-aid} ; {net} ; {meals}
        gap 2
        small Der Elternbeitrag versteht sich ohne Essen. Insgesamt einbezahlt: {all!}.)"},
    {"childcare", "a-deux-enfants", "fr", false, "twoSiblings", R"(
        head 0 both
        title [Décompte annuel des parents {year}|Attestation {year} pour deux enfants]
        per children
        gap 2
        bold {who}, [né(e) le|date de naissance] {born}
        dots {days} jours au tarif plein ; {full}
        dots [Aide de la commune|Part de la commune] ; {-aid}
        dots Rabais fratrie ; {-discount}
        sum [À charge des parents, sans les repas|Frais de garde payés] ; {net}
        dots [Repas (non déductibles)|Repas, en sus] ; {meals}
        endper
        gap 3
        text [Pour les deux enfants, les frais de garde s'élèvent à {net!} et les repas à {meals!}.|Total versé, repas compris: {all!}.])"},
    {"childcare", "a-mesi", "it", false, "careMonths", R"(
        head 6 one
        title [Rendiconto delle rette {year}|Riepilogo {year} per la dichiarazione d'imposta]
        line {child}, {childbirth}
        cols 22 78r 112r 146r 186r
        th Mese ; Giorni ; Custodia ; Pasti ; Fattura
        rule
        each months {month} ; {days} ; {care} ; {meals} ; {sum}
        rule
        tb Totale {year} ; ; {care} ; {meals} ; {sum}
        text [Deducibili sono le sole spese di custodia; i pasti non si deducono.|Spese di custodia deducibili: {care!}.])"},
    {"childcare", "a-accueillante", "fr", false, "dayMother", R"(
        head 2 one
        title [Accueil familial de jour: décompte {year}|Heures de garde {year}]
        cols 22 78r 104r 134r 160r 190r
        th Enfant ; Heures ; Tarif ; Garde ; Remboursé ; [Payé|Net payé]
        rule
        each children {who} ; {hours} ; {rate} ; {care} ; {-back} ; {paid}
        rule
        tb [Ensemble|Famille] ; ; ; ; ; {total}
        small Repas facturés par l'accueillante: {meals!}, non compris.)"},
    {"childcare", "a-daycare-en", "en", false, "careInEnglish", R"(
        head 5 both
        title [Childcare statement for your tax return {year}|Confirmation of childcare payments {year}]
        text [Dear parents|Dear family {last}]
        text [We confirm that {child} (born {childbirthday}) attended our daycare in {year}.|This letter is for your Swiss tax return. Child: {child}, date of birth {childbirthday}.]
        cols 22 150r
        tr [Childcare fees paid by the parents|Care fees received (tax deductible)] ; {paid}
        tr Meals and snacks ; {meals}
        tr Registration fee ; {entry}
        tb Payments received in {year} ; {all}
        text [Meals and the registration fee are not childcare costs.|The deposit of {deposit!} will be refunded when your child leaves.])"},
};

} // namespace

std::vector<Layout> alpCarePapers() { return scripted({careSheets}); }

} // namespace corpus
