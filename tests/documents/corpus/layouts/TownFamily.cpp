#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of day care in all its forms, of practices and of workshops.

namespace corpus {
namespace {

const std::vector<Sheet> careSheets{
    {"childcare", "n-year-across", "de", false, "careTable", R"(
        wide
        head 0 both
        title [Zahlungsübersicht {year} Ihrer Kinder|Familienblatt {year}|Verrechnete und bezahlte Elternbeiträge {year}]
        cols 22 80r 95r 110r 125r 140r 155r 170r 185r 200r 215r 230r 245r 275r
        th Name des Kindes ; Jan ; Feb ; Mrz ; Apr ; Mai ; Jun ; Jul ; Aug ; Sep ; Okt ; Nov ; Dez ; [Jahr|Summe|{year}]
        rule
        each children {who} ; {m1?} ; {m2?} ; {m3?} ; {m4?} ; {m5?} ; {m6?} ; {m7?} ; {m8?} ; {m9?} ; {m10?} ; {m11?} ; {m12?} ; {paid}
        rule
        tb [Familie|alle Kinder] ; {m1?} ; {m2?} ; {m3?} ; {m4?} ; {m5?} ; {m6?} ; {m7?} ; {m8?} ; {m9?} ; {m10?} ; {m11?} ; {m12?} ; {paid}
        gap 3
        small Im Juli sind Betriebsferien. Alle Angaben in Schweizer Franken, ohne Gewähr. Tagessatz Säuglinge {rate!}.
        small Der Abzug beim Bund ist auf {cap!} je Kind begrenzt; massgebend sind die Wegleitungen von Kanton und Bund.)"},
    {"childcare", "n-halves-across", "de", false, "careMonths", R"(
        head 5 one
        bold [Beleg Nr. {#5} zuhanden der Steuerbehörde|Betreuung und Verpflegung im Kalenderjahr {year}|Auszug aus dem Familienkonto {year}]
        line {child}, {childbirth}
        gap 2
        cols 22 72r 92r 112r 132r 152r 172r
        th {year} ; Januar ; Februar ; März ; April ; Mai ; Juni
        tr Betreuung ; {care1} ; {care2} ; {care3} ; {care4} ; {care5} ; {care6}
        tr Essen ; {meals1} ; {meals2} ; {meals3} ; {meals4} ; {meals5} ; {meals6}
        tb Rechnung ; {sum1} ; {sum2} ; {sum3} ; {sum4} ; {sum5} ; {sum6}
        gap 4
        th ; Juli ; August ; September ; Oktober ; November ; Dezember
        tr Betreuung ; {care7} ; {care8} ; {care9} ; {care10} ; {care11} ; {care12}
        tr Essen ; {meals7} ; {meals8} ; {meals9} ; {meals10} ; {meals11} ; {meals12}
        tb Rechnung ; {sum7} ; {sum8} ; {sum9} ; {sum10} ; {sum11} ; {sum12}
        gap 6
        mid [Betreuung ohne Verpflegung, steuerlich abziehbar|Reine Betreuungskosten (ohne Essen)|Abzugsfähige Kosten der Betreuung, ohne Mahlzeiten] ; {care}
        mid [Verpflegung, nicht abziehbar|Essensgeld (nicht abzugsfähig)] ; {meals}
        mid Rechnungen {year} insgesamt ; {sum}
        gap 4
        small Mittagessen und Zvieri {meal!} je Tag. Höchstabzug direkte Bundessteuer {cap!}. Wir bitten Sie, diesen Beleg aufzubewahren; eine zweite Ausfertigung ist kostenpflichtig.)"},
    {"childcare", "n-children-columns", "de", false, "careTable", R"(
        head 3 one
        title [Elternkonto {year}|Auflistung der Betreuungsrechnungen {year}|Was Sie {year} für die Kita bezahlt haben]
        cols 22 88r 120r 152r 190r
        th Monat ; {first1} ; {first2} ; {first3} ; zusammen
        rule
        each months {month} ; {a1?} ; {a2?} ; {a3?} ; {sum?}
        rule
        tb [Jahrestotal|Jahr {year}|Bezahlt] ; {paid1} ; {paid2} ; {paid3} ; {paid}
        gap 3
        small {who1}, geb. {born1}; {who2}, geb. {born2}; {who3}, geb. {born3}. Geschwisterrabatt von 10 % ist berücksichtigt.)"},
    {"childcare", "n-told-pair", "de", false, "careOfTwo", R"(
        head 1 both
        bold [Zum Ausfüllen Ihrer Steuererklärung|Elternbeiträge {year}|Ihre Anfrage vom {early}]
        text [Liebe Familie {last}|Guten Tag Frau und Herr {last}|Liebe Eltern von {first1} und {first2}]
        text [Gerne teilen wir Ihnen mit, was Sie uns im vergangenen Jahr überwiesen haben: für {first1} (geboren am {born1}) {paid1!} und für {first2} (geboren am {born2}) {paid2!}.|Im Jahr {year} wurde {who1}, geboren {born1}, an zwei Tagen in der Woche bei uns betreut. Dafür gingen {paid1!} ein. Für das Geschwister {who2}, geboren {born2}, waren es {paid2!}.|Sie haben uns {year} {paid1!} für {who1} bezahlt. Die Betreuung von {who2} kostete Sie {paid2!}.]
        maybe 60 text [Beide Beträge ergeben {total!}.|Das macht für Ihre Familie {total!}.]
        text [Ab August {next} kostet ein Tag neu {rate!}; das Depot bleibt unverändert.|Bitte beachten Sie: Der Tagesansatz steigt ab {next} auf {rate!}.]
        text Herzliche Grüsse
        line {issuer}, Leitung)"},
    {"childcare", "n-day-family", "de", false, "careMonths", R"(
        head 6 one
        title [Jahresabrechnung Tagesfamilie {year}|Stundenabrechnung {year}|Jahresrapport der Tagesmutter {year}]
        line Tageskind {child}, geboren {childbirth}. Vereinbarter Stundenansatz {rate!}
        cols 22 70r 104r 138r 172r
        th Monat ; Stunden ; Betreuung ; Mahlzeiten ; verrechnet
        rule
        each months {month} ; {hours} ; {care} ; {meals} ; {sum}
        rule
        tr Vermittlung ; ; ; ; {fee}
        tb Total {year} ; ; ; ; {total}
        gap 5
        text [Davon können Sie als Kosten der Drittbetreuung {care!} geltend machen. Mahlzeiten ({meals!}) und die Vermittlungsgebühr gehören nicht dazu.|Für die Steuern massgebend: {care!} (nur Betreuungsstunden, ohne Mahlzeiten und Gebühren).])"},
    {"childcare", "n-subsidised", "de", false, "subsidised", R"(
        head 2 one
        title [Abrechnung mit Beiträgen der öffentlichen Hand {year}|Elternbeitrag nach Tarifreglement, Jahr {year}|Einkommensabhängiger Tarif: Jahresausweis {year}]
        text [Sie bezahlen einen Tarif nach wirtschaftlicher Leistungsfähigkeit. Die öffentliche Hand trägt den Rest.|Der Elterntarif richtet sich nach dem steuerbaren Einkommen und Vermögen des Haushalts.]
        line Massgebendes Einkommen {income!}, steuerbares Vermögen {wealth!} gemäss letzter Veranlagung
        per children
        gap 3
        bold {who}, {born}
        dots {days} Betreuungstage zum Vollkostentarif ; {full}
        dots [Anteil Politische Gemeinde|Verbilligung durch die Gemeinde] ; {-commune}
        dots [Beitrag des Kantons (Familienergänzung)|Kantonale Mittel] ; {-canton}
        sum [Von den Eltern getragen|Ihr Anteil für {first}|Elternanteil nach Abzug der Beiträge] ; {net}
        endper
        gap 4
        small Beiträge der öffentlichen Hand {year}: Gemeinde {commune!}, Kanton {canton!}. Sie werden direkt mit uns abgerechnet.)"},
    {"childcare", "n-half-year", "de", false, "careHalfYear", R"(
        head 4 one
        title [Semesterbestätigung|Quittung Elternbeiträge {term} {year}|Bestätigung {term} {year}]
        text [Diese Bestätigung ersetzt jene vom Vormonat.|Sie erhalten zweimal im Jahr eine Bestätigung; bitte legen Sie beide der Steuererklärung bei.]
        text Kind: {child} ({childbirth}), Gruppe [Fuchs|Igel|Dachs]
        text [Zeitraum|Abrechnungsperiode] {from} bis {until}
        cols 22 84r 150r
        th ; Tage ; [eingegangen|gutgeschrieben]
        each months {month} ; {days} ; {part}
        rule
        tb [Im Halbjahr erhalten|Eingegangene Beiträge|Total der Periode] ; ; {amount}
        gap 3
        small Tarif ganzer Tag {rate!}, halber Tag {half!}; einmalige Einschreibegebühr {entry!} (im Vorjahr verrechnet). Abzug Bund höchstens {cap!} je Kind und Jahr.)"},
    {"childcare", "n-invoices", "de", false, "careInvoices", R"(
        head 0 one
        title [Offene und bezahlte Rechnungen {year}|Debitorenauszug {year}|Kundenkonto {#5}: Bewegungen {year}]
        line Betreuung von {child}, {childbirth}
        cols 22 46 72 122r 156r 190r
        th Rechnung ; Datum ; Leistung ; fakturiert ; bezahlt ; offen
        rule
        each invoices {number} ; {on} ; {month} ; {part} ; {got?} ; {left?}
        rule
        tb Summen ; ; ; {invoiced} ; {paid} ; {open}
        text [Im Kalenderjahr {year} bei uns eingegangen und damit abzugsfähig: {paid!}.|Für Ihre Steuererklärung {year} zählen die bezahlten Rechnungen von {paid!}.])"},
    {"childcare", "n-modules", "de", false, "careModules", R"(
        head 3 both
        title [Modulabrechnung {year}|Tagesstrukturen: Kosten im Kalenderjahr {year}|Schulergänzende Betreuung, Ausweis {year}]
        cols 24 118r 146r 186r
        per children
        gap 2
        bold {who}  ({born})
        th Modul ; Anzahl ; Ansatz ; Franken
        each modules {what} ; {count} x ; {rate} ; {part}
        tb [Zwischentotal|Kosten] {first} ; ; ; {paid}
        endper
        rule
        tb [Belastet auf Ihrem Elternkonto|Gesamthaft] ; ; ; {total}
        small Schuljahr {term} und folgendes. Austritte sind 4 Wochen im Voraus zu melden.)"},
    {"childcare", "n-creche", "fr", false, "careAlone", R"(
        head 2 one
        title [Attestation de frais de garde {year}|Attestation pour la déclaration d'impôt {year}|Frais de garde par des tiers {year}]
        text [Nous attestons que l'enfant {child}, né(e) le {childbirth}, a fréquenté notre institution du {start} au {end}.|L'enfant {child} ({childbirth}) a été accueilli(e) dans notre structure durant l'année {year}.]
        below {paid!} ; [Frais de garde payés par les parents|Contribution des parents, hors repas|Montant encaissé pour la garde] ; {aid!} ; Subvention communale
        text [Les repas, par {meals!}, ont été facturés séparément et ne sont pas compris.|Finance d'inscription: {entry!}. Repas facturés à part: {meals!}.])"},
    {"childcare", "n-nido", "it", false, "careAlone", R"(
        head 5 one
        title [Attestazione delle spese di custodia {year}|Dichiarazione per uso fiscale {year}|Rette {year}]
        line Bambino/a: {child}, nato/a il {childbirth}
        entry Retta intera ; {gross}
        entry Sussidio del Comune ; {-aid}
        sum [Spese di custodia a carico dei genitori|Rette pagate nel {year}|Totale pagato dai genitori] ; {paid}
        entry Pasti (non deducibili, fatturati a parte) ; {meals}
        small Tassa d'iscrizione {entry!})"},
};

const std::vector<Sheet> healthBills{
    {"bill", "n-dentist", "de", false, "dentalBill", R"(
        head 0 one
        title [Honorarrechnung|Zahnbehandlung, Rechnung|Faktura] {number}
        line Patient/in {one}, {birth}. Taxpunktwert {point}
        cols 22 44 60 72 134r 152r 190r
        th Datum ; Tarif ; Zahn ; Leistung ; Anz. ; TP ; Betrag
        rule
        each items {on} ; {code} ; {tooth} ; {what} ; {count} ; {points} ; {part}
        rule
        tr Zahnärztliche Leistungen ; ; ; ; ; ; {care}
        tr Zahntechnisches Labor laut Beilage ; ; ; ; ; ; {lab}
        tb [Rechnungsbetrag|Honorar gesamt|Geschuldeter Betrag] ; ; ; ; ; ; {total}
        gap 2
        text [Wir danken für Ihr Vertrauen. Nicht eingehaltene Termine verrechnen wir mit CHF 120.00.|Ratenzahlung ist möglich: drei Raten, Gebühr Fr. 20.-.]
        small Kostenvoranschlag {quote!}. [Zahlbar netto bis {due}.|Zahlungsfrist {due}, danach 5 % Verzugszins.])"},
    {"bill", "n-corrected", "de", false, "correctedBill", R"(
        head 5 one
        bold [Korrigierte Rechnung {number}|Ersatzrechnung {number} (ersetzt jene vom {first})|Rechnungskorrektur {number}]
        text [Auf unserer Rechnung vom {first} über {before!} wurde die Position {wrong} doppelt erfasst. Wir entschuldigen uns dafür.|Sie haben recht: Die Position {wrong} der Rechnung vom {first} ({before!}) war falsch.]
        cols 22 60 190r
        tr {first} ; Rechnung ; {before}
        tr {dated} ; Gutschrift Position {wrong} ; {-credit}
        rule
        tb {dated} ; [Neuer Rechnungsbetrag|Richtiger Betrag|Korrigiertes Total] ; {total}
        text Bitte bezahlen Sie nur den neuen Betrag bis {due}. Behandelte Person: {one}.)"},
    {"bill", "n-hospital", "de", false, "hospitalBill", R"(
        head 1 one
        title Rechnungskopie [Stationärer Aufenthalt|Spitalbehandlung|Aufenthalt], Fall {case}
        side Eintritt ; {in} ; Austritt ; {out}
        side Patient/in ; {one} ; Rechnungsdatum ; {dated}
        rule
        cols 22 190r
        tr Fallpauschale und Zuschläge ; {full}
        tr [davon Wohnkanton (55 %)|Finanzierung durch den Kanton] ; {-canton}
        tr [Vom Krankenversicherer direkt bezahlt|Anteil Versicherer (Tiers payant)] ; {-insurer}
        tb [Von Ihnen zu bezahlen|Ihr Anteil|Zu Lasten Patient/in] ; {own}
        gap 3
        text [Ihr Anteil umfasst ärztliche Leistungen, welche die Grundversicherung nicht deckt. Franchise und Selbstbehalt stellt Ihr Versicherer in Rechnung.|Spitalbeitrag nach KVG: CHF 15.00 pro Tag, wird vom Krankenversicherer erhoben und ist hier nicht enthalten.])"},
    {"bill", "n-pharmacy-year", "de", false, "pharmacyYear", R"(
        head 3 one
        title [Ihre Bezüge im Jahr {year}|Kundenauszug {year}|Medikamentenbezüge {year}]
        line Kundenkarte {#4} {#4}, {one}
        cols 22 44 126r 158r 190r
        th Bezug ; Artikel ; Preis ; Kasse ; bar bezahlt
        rule
        each items {on} ; {what} ; {full} ; {insurer?} ; {own?}
        rule
        tb {year} ; ; {full} ; {insurer} ; {own}
        text [Selbst bezahlt haben Sie {own!}; der Rest wurde direkt mit Ihrer Kasse abgerechnet.|Die Spalte «bar bezahlt» ({own!}) wurde nicht der Krankenkasse verrechnet.])"},
    {"bill", "n-reminder", "de", false, "reminderOfAgency", R"(
        head 2 one
        title [2. Mahnung|Letzte Mahnung|Zahlungserinnerung]
        text [Folgende Rechnung ist noch nicht beglichen|Trotz unserer Erinnerung fehlt uns Ihre Zahlung]:
        cols 22 60 190r
        th vom ; Leistungserbringer ; CHF
        tr {billed} ; {doctor}, Rechnung {number} für {one} ; {amount}
        tr {dated} ; Mahnspesen ; {fee}
        tr {dated} ; Verzugszins 5 % ; {interest}
        rule
        tb {due} ; [Fällig mit Spesen|Jetzt zu überweisen] ; {total}
        text Sollte sich Ihre Zahlung mit diesem Schreiben gekreuzt haben, betrachten Sie es als gegenstandslos. Eine Betreibung kostet weitere CHF 73.30.
        small Im Auftrag von {doctor}. Nach Ablauf der Frist folgt die Betreibung.)"},
    {"bill", "n-seances", "fr", true, "sessions", R"(
        head 4 one
        title [Note d'honoraires|Facture no] {number}
        line Patient(e): {one}, {birth}. Lausanne, {dated}
        text [{count} séances à {rate!}, aux dates suivantes:|Traitement ambulatoire, {count} séances ({rate!} la séance):]
        each items !mid Séance du {on} ; {part}
        rule
        mid [Montant dû|Net à payer|Honoraires] ; {total}
        bill total {number})"},
    {"bill", "n-sedute", "it", false, "sessions", R"(
        head 6 one
        title [Nota d'onorario|Fattura n.] {number}
        line Paziente {one}, {birth}. Data {dated}
        text [Per {count} sedute a {rate!} ci permettiamo di fatturarle {total!}, pagabili entro 30 giorni.|Totale per le {count} sedute indicate (tariffa {rate!}): {total!}.]
        each items !line {on}: 1 seduta di 45 minuti)"},
};

const std::vector<Sheet> workBills{
    {"bill", "n-workshop-hours", "de", false, "workshop", R"(
        head 0 both
        title [Regierechnung|Rechnung nach Aufwand|Schlussabrechnung Unterhaltsarbeiten] {number}
        line Objekt: {object}, Instandstellung [Fenster|Fassade|Treppenhaus]
        cols 22 50 112r 146r 190r
        th Tag ; Arbeitskraft ; Std. ; Ansatz ; Betrag
        each hours {on} ; {what} ; {hours} ; {rate} ; {part}
        tr ; Arbeit ; ; ; {labour}
        gap 2
        each goods  ; {what} ; ; ; {part}
        tr ; Material ; ; ; {goods}
        rule
        tr ; Total exkl. MWST ; ; ; {net}
        tr ; MWST {percent} % ; ; ; {vat}
        tb ; [Total inkl. MWST|Rechnungsbetrag inkl. Steuer] ; ; ; {total})"},
    {"bill", "n-workshop-paid", "de", false, "workshopPaid", R"(
        head 4 both
        title [Schlussrechnung|Abschlussrechnung] {number} vom {dated}
        text [Sanierung an Ihrer Liegenschaft {object}: Ersatz wie bestehend, gemäss Werkvertrag.|Reparatur und Unterhalt {object}, gemäss Auftrag.]
        dots Arbeitsleistung gemäss Rapporten ; {labour}
        dots Material und Nebenkosten ; {goods}
        dots Rabatt 3 % ; {-discount}
        dots Netto ; {net}
        dots Mehrwertsteuer {percent} % von {net} ; {vat}
        sum [Werklohn inkl. MWST|Gesamtrechnung|Total der Arbeiten] ; {total}
        dots [Geleistete Akontozahlung|Abzüglich Teilzahlung] ; {-advance}
        sum [Restzahlung|Saldo] ; {rest})"},
    {"bill", "n-artisan", "fr,it", false, "workshop", R"(
        head 3 one
        title Facture / Fattura No {number}
        line {object}
        each hours !dots {on}  {what}, {hours} h x {rate} ; {part}
        each goods !dots {what} ; {part}
        rule
        entry HT / IVA escl. ; {net}
        entry TVA / IVA {percent} % ; {vat}
        sum [Total TTC / Totale IVA incl.|TTC / IVA incl. CHF] ; {total~})"},
};

} // namespace

std::vector<Layout> townFamilyPapers() { return scripted({careSheets, healthBills, workBills}); }

} // namespace corpus
