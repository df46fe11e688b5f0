#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of bills, day care, courses, donations and valuations of properties.

namespace corpus {
namespace {

const char* const everyLanguage = "de,fr,it";

const std::vector<Sheet> bills{
    {"bill", "amounts-first", everyLanguage, false, "serviceBill", R"(
        head 4 one
        title @titlebill {number}
        line @patient: {one}   @date: {dated}
        gap 3
        cols 44r 52 150 190r
        th CHF ; ; @date ;
        each items {part} ; {what} ; {on} ; {count}
        rule
        tb {total} ; @billtotal ; ;
        bill total {number})"},
    {"bill", "amounts-first-qr", "de,fr", true, "serviceBill", R"(
        head 6 one
        title @titlebill {number}, {dated}
        cols 44r 52 190r
        each items {part} ; {what} ; {code}
        rule
        tb {total} ; @billtotal ;
        bill total {number})"},
    {"bill", "cells", everyLanguage, false, "serviceBill", R"(
        head 6 one
        title @titlebill
        grid 3
        cell No ; {number}
        cell @date ; {dated}
        cell @patient ; {one}
        cell UID ; CHE-{#3}.{#3}.{#3}
        cell IBAN ; {iban}
        cell @billtotal ; {total!}
        endgrid
        each items !line {on}   {what}   {part})"},
    {"bill", "advance", "de", false, "paidBill", R"(
        head 0 one
        title @titlebill Nr. {number}
        line Datum: {dated}   @patient: {one}
        cols 22 48 130r 190r
        th Datum ; Leistung ; Anz. ; CHF
        rule
        each items {on} ; {what} ; {count} ; {part}
        rule
        tb [Rechnungstotal|Total Leistungen|Rechnungssumme] ; ; ; {total}
        tr [Anzahlung erhalten|Bereits bezahlt|Ihre Akontozahlung] ; ; ; {-advance}
        tb [Noch offen|Restbetrag|Saldo zu unseren Gunsten] ; ; ; {open}
        small Mahngebühr ab der 2. Mahnung {fee!})"},
    {"bill", "credit", "de", false, "creditedBill", R"(
        head 3 one
        title @titlebill {number} vom {dated}
        line @patient {one}
        each items !dots {what}, {on} ; {part}
        rule
        entry Zwischentotal ; {sum}
        entry [Gutschrift|Abzüglich Gutschrift|Rabatt] ; {-credit}
        sum @billtotal ; {total~}
        bill total {number})"},
    {"bill", "second-page", everyLanguage, false, "serviceBill", R"(
        head 1 one
        title @titlebill {number}
        line @date {dated}   @patient {one}
        cols 22 50 80 190r
        each items {on} ; {code} ; {what} ; {part}
        each items {on} ; {code} ; 5 min ; 0.00
        page
        band @billtotal ; {total~}
        line @payto {iban})"},
    {"bill", "letter", "de", false, "serviceBill", R"(
        head 5 one
        bold Rechnung {number}
        text Sehr geehrte Patientin, sehr geehrter Patient
        text [Für unsere Bemühungen stellen wir Ihnen {total!} in Rechnung.|Für die Behandlung von {one} verrechnen wir Ihnen total {total!}.|Wir erlauben uns, Ihnen für die Sitzungen {total!} zu verrechnen.] Datum: {dated}.
        text Unser Stundenansatz beträgt {rate!}. Bitte bezahlen Sie bis {due}. Nicht abgesagte Termine kosten {fee!}.)"},
    {"bill", "tax-columns", everyLanguage, false, "serviceBill", R"(
        head 2 one
        title @titlebill
        line No {number} / {dated} / {one}
        cols 22 104r 120r 150r 190r
        th @account ; x ; % ; CHF ; @total
        rule
        each items {what} ; {count} ; 8.1 ; ; {part}
        rule
        tb @billtotal ; ; ; CHF ; {total})"},
};

const std::vector<Sheet> careSheets{
    {"childcare", "amounts-first", "de", false, "care", R"(
        head 4 one
        title [Steuerbescheinigung Kinderbetreuung|Betreuungsausweis|Ausweis Betreuungskosten] {year}
        colon Kind ; {child}, {childbirth}
        left {full} ; Volltarif
        left {-subsidy} ; [Subvention|Beitrag Kanton und Gemeinde]
        leftsum {total} ; [Elternbeiträge netto|Ihre Kosten|Kosten zu Ihren Lasten|Fremdbetreuungskosten])"},
    {"childcare", "cells", "de", false, "care", R"(
        head 6 one
        title Bescheinigung [Kita-Kosten|familienergänzende Betreuung] {year}
        grid 2
        cell Kind ; {child}
        cell Geburtsdatum ; {childbirth}
        cell Tagesansatz ; {rate~}
        cell Depot ; {deposit~}
        cell davon Verpflegung ; {meals~}
        cell [Bezahlte Elternbeiträge|Betreuungskosten {year}|Total bezahlt|Betreuungstaxen] ; {total~}
        endgrid)"},
    {"childcare", "two-children", "de", false, "careOfTwo", R"(
        head 3 both
        title [Betreuungskosten|Elternbeiträge|Kosten der Tagesbetreuung] {year}
        cols 22 90 190r
        th Kind ; Geburtsdatum ; [Bezahlt CHF|Kosten CHF|Betreuungskosten]
        rule
        each children {who} ; {born} ; {paid}
        rule
        tb Total Familie ; ; {total}
        small Tagestarif {rate!})"},
    {"childcare", "two-above", "de", false, "careOfTwo", R"(
        head 1 one
        title [Bestätigung für die Steuererklärung|Steuerbestätigung Betreuung] {year}
        each children !bold {who}, geb. {born}
        each children !above [Bezahlte Betreuungskosten|Betreuung {year}] {who} ; {paid!}
        above Zusammen ; {total!})"},
    {"childcare", "letter", "de", false, "care", R"(
        head 2 one
        bold Bestätigung [Kinderbetreuungskosten|Drittbetreuung] {year}
        text Liebe Eltern
        text [Für {child} (geboren {childbirth}) haben Sie {year} Betreuungskosten von {total!} bezahlt.|Wir bestätigen den Erhalt von {total!} für die Betreuung von {child} ({childbirth}) im Jahr {year}.|Die Kosten für die Betreuung Ihres Kindes {child} beliefen sich {year} auf {total!}.]
        text Der Tarif von {rate!} pro Tag gilt bis Juli {next}.)"},
    {"childcare", "halves", "de", false, "care", R"(
        head 5 one
        title Zusammenstellung {child} {year}
        dots 1. Semester ; {half}
        dots 2. Semester ; {otherhalf}
        sum [Total Betreuung|Total Kinderbetreuung|Summe Elternbeiträge] ; {total}
        entry davon Mahlzeiten ; {meals})"},
};

const std::vector<Sheet> courses{
    {"course", "amounts-first", "de", false, "courseCosts", R"(
        head 4 one
        title [Rechnung|Kursrechnung|Studienrechnung] {number}
        line {course}
        left {fee} ; [Kursgeld|Schulgeld|Studiengebühr]
        left {books} ; [Lehrmittel|Unterlagen|Bücher]
        left {exam} ; [Prüfungsgebühr|Diplomgebühr]
        leftsum {total} ; [Total|Rechnungsbetrag|Gesamtkosten|Zu bezahlen])"},
    {"course", "cells", "de", false, "courseCosts", R"(
        head 6 one
        title Bestätigung [Kursbesuch|Weiterbildungskosten]
        grid 2
        cell Teilnehmende Person ; {one}
        cell Lehrgang ; {course}
        cell Dauer ; {start} – {end}
        cell Lektionen ; {#2}
        cell Annullationskosten ; {penalty~}
        cell [Bezahlte Kosten|Weiterbildungskosten|Kosten total|Bezahltes Kursgeld] ; {total~}
        endgrid)"},
    {"course", "instalments", "de", false, "courseInstalments", R"(
        head 0 one
        title Kontoauszug {course}
        cols 22 60 110 190r
        th Rate ; fällig ; bezahlt ; CHF
        rule
        each parts {no} ; {on} ; [ja|ok] ; {part}
        rule
        tb [Total bezahlt {year}|Bezahlte Raten|Einbezahlt im Jahr {year}] ; ; ; {total}
        tr Noch offen {next} ; ; ; {open}
        tr Gesamtpreis ; ; ; {price})"},
    {"course", "letter", "de", false, "courseCosts", R"(
        head 1 one
        bold Bestätigung [Ihrer Weiterbildung|der Kurskosten] {year}
        text [{one} hat den Lehrgang «{course}» besucht und dafür {total!} bezahlt.|Für den Kurs «{course}» haben wir von Ihnen {year} Kurskosten von {total!} erhalten.]
        text [Darin enthalten sind {books!} für Lehrmittel.|Bei Rückzug fallen {penalty!} an.])"},
    {"course", "plan", "de", false, "courseCosts", R"(
        head 3 one
        title Anmeldung {course}
        band [Kurspreis|Lehrgangskosten|Kurskosten] inkl. Unterlagen und Prüfung ; {total~}
        small Zahlbar auch in 4 Raten zu {instalment!}. Abmeldung nach Kursbeginn: {penalty!}.
        line Kursbeginn {someday}, Raum 3.{#2})"},
    {"course", "above", "de", false, "courseInstalments", R"(
        head 2 one
        title Steuerbescheinigung Weiterbildung {year}
        above Ausbildung ; {course}
        above [Im Jahr {year} bezahlt|Bezahlte Studiengebühren {year}|Ausbildungskosten {year}] ; {total!}
        above Offen per {end} ; {open!})"},
};

const std::vector<Sheet> donations{
    {"donation", "amounts-first", "de", false, "gifts", R"(
        head 4 one
        title [Spendenausweis|Steuerbestätigung Spenden|Zuwendungsbestätigung] {year}
        cols 44r 52 110
        th CHF ; Datum ; Art
        each gifts {part} ; {on} ; {why}
        rule
        tb {total} ; [Gesamttotal|Spendentotal|Summe] ;)"},
    {"donation", "cells", "de", false, "gift", R"(
        head 6 one
        title [Quittung|Spendenbestätigung|Beleg für Ihre Steuererklärung]
        grid 2
        cell Spender/in ; {one}
        cell Eingang ; {when}
        cell [Betrag|Spende|Gabe|Spendensumme] ; {amount!}
        cell Verdankungs-Nr. ; {#6}
        endgrid
        small Unser Spendenziel {next}: {goal!})"},
    {"donation", "letter", "de", false, "gift", R"(
        head 5 one
        bold [Danke für Ihre Spende|Spendenverdankung|Ihre Unterstützung]
        text Liebe Spenderin, lieber Spender
        text [Ihre Spende von {amount!} ist am {when} bei uns eingetroffen.|Am {when} durften wir Ihre Gabe von {amount!} entgegennehmen.|Wir danken für Ihren Beitrag von {amount!} (Eingang {when}).]
        text Mit {well!} schenken Sie einem Kind eine Schulmappe. Bis Ende Jahr brauchen wir noch {goal!}.)"},
    {"donation", "membership", "de", false, "membership", R"(
        head 0 one
        title Jahresbestätigung {year}
        entry [Mitgliederbeitrag|Jahresbeitrag (Mitgliedschaft)] ; {fee~}
        sum [Spende|Freiwillige Spende|Spenden {year}|Abzugsfähige Spende] ; {amount~}
        entry Einzahlungen ; {both~}
        small Mitgliederbeiträge sind nicht abziehbar.)"},
    {"donation", "above", "de", false, "gifts", R"(
        head 2 one
        title Bescheinigung über Zuwendungen
        above Name ; {one}
        above [Spenden vom {start} bis {end}|Total Ihrer Gaben {year}|Spendenbetrag {year}] ; {total!}
        above Steuerbefreit seit ; [1998|2004|1976])"},
    {"donation", "second-page", "de", false, "gifts", R"(
        head 1 one
        title Ihre Spenden {year} im Überblick
        each gifts !dots {why} {on} ; {part}
        page
        band [Spenden {year} insgesamt|Total Spenden|Gesamtspende] ; {total~}
        small {issuer}, {phone})"},
    {"donation", "block", "de", false, "gifts", R"(
        head 3 one
        bold Bestätigung für das Steueramt
        text [Wir bestätigen, im Jahr {year} von {one} Spenden von insgesamt {total!} erhalten zu haben.|{one} hat unsere Arbeit {year} mit Spenden von {total!} unterstützt.]
        small Anzahl Spenden siehe unten
        each gifts !line {on} {part})"},
};

const std::vector<Sheet> properties{
    {"property", "amounts-first", "de", false, "valuation", R"(
        head 4 one
        title [Eröffnung der Schätzung|Amtliche Schätzung|Schätzungsprotokoll]
        colon Gemeinde ; {place}
        colon [Grundstück Nr.|Parzelle Nr.] ; {parcel}
        leftsum {value} ; [Verkehrswert|Steuerwert|Amtlicher Verkehrswert]
        leftsum {rent} ; [Mietwert|Mietwert jährlich|Eigenmietwert]
        left {new} ; Neuwert
        left {real} ; Realwert)"},
    {"property", "table", "de", false, "valuation", R"(
        head 0 one
        title Schätzungsmitteilung Gemeinde {place}
        line Grundstück Nr. {parcel}, {area} m²
        cols 22 62 100r 130r 160r 190r
        th Gebäude ; Baujahr ; Neuwert ; Realwert ; [Mietwert|Mietwert p.a.] ; [Verkehrswert|Verkehrswert CHF]
        rule
        tr {building} ; {built} ; {new} ; {real} ; {rent} ; {value})"},
    {"property", "old-and-new", "de", false, "valuation", R"(
        head 3 one
        title [Neuschätzung|Revisionsschätzung|Periodische Neubewertung]
        line Politische Gemeinde: {place}   Parzellen-Nr.: {parcel}
        cols 22 140r 190r
        th ; bisher ; neu
        rule
        tr [Verkehrswert|Amtlicher Verkehrswert|Steuerwert] ; {old} ; {value}
        tr [Mietwert|Mietwert im Jahr|Eigenmietwert] ; {oldrent} ; {rent}
        small Gebühr {charge!}, Rekurs innert 14 Tagen)"},
    {"property", "letter", "de", false, "valuation", R"(
        head 5 one
        bold Schätzung Grundstück Nr. {parcel}, Gemeinde {place}
        text Sehr geehrte Eigentümerin, sehr geehrter Eigentümer
        text [Die Schätzungskommission hat den Verkehrswert auf {value!} und den Mietwert auf {rent!} festgelegt.|Nach der Besichtigung beträgt der Verkehrswert neu {value!}, der jährliche Mietwert {rent!}.]
        text Die Kosten der Schätzung betragen {charge!}. Der Neuwert der Gebäude ist {new!}.)"},
    {"property", "numbered", "de", false, "valuation", R"(
        head 6 one
        big Schätzungsausweis
        form 1 ; Gemeinde ; {place}
        form 2 ; Grundstück Nr. ; {parcel}
        form 3 ; Fläche ; {area} m²
        form 4 ; Neuwert ; {new}
        form 5 ; Realwert ; {real}
        form 6 ; [Mietwert jährlich|Jahresmietwert|Mietwert] ; {rent}
        form 7 ; [Verkehrswert|Amtlicher Wert|Verkehrswert gerundet] ; {value})"},
    {"property", "side", "de", false, "valuation", R"(
        head 1 one
        title Auszug aus dem Schätzungsregister
        side Gemeinde ; {place} ; Grundstück-Nr. ; {parcel}
        side Baujahr ; {built} ; Fläche ; {area} m²
        rule
        side [Verkehrswert|Steuerwert] ; {value} ; [Mietwert|Mietwert p. a.] ; {rent}
        side Landwert ; {land} ; Mietwert pro Monat ; {month})"},
};

} // namespace

std::vector<Layout> scriptedLifePapers() {
    return scripted({bills, careSheets, courses, donations, properties});
}

} // namespace corpus
