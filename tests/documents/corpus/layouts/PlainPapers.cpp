#include "tests/documents/corpus/layouts/Script.h"

// The plainest paper of each kind: a few lines or a small table.

namespace corpus {
namespace {

const std::vector<Sheet> provision{
    {"pillar3a", "form", "de,fr,it", false, "pillar", R"(
        head 6 one
        title Bescheinigung über Vorsorgebeiträge // Attestation concernant les cotisations de prévoyance // Attestazione dei contributi di previdenza
        line {one}, {ahv}, {birth}. Form. 21 EDP dfi
        form 1 ; Bescheinigungsjahr // Année // Anno ; {year}
        form 2 ; Vertrags-Nr. // No de contrat // N. di contratto ; {#3}.{#5}
        form 3 ; Anerkannte Vorsorgeform (Säule 3a): einbezahlte Beiträge // Forme reconnue (pilier 3a): cotisations versées // Forma riconosciuta (pilastro 3a): contributi versati ; {paid}
        form 4 ; 2. Säule: ordentliche Beiträge // 2e pilier: cotisations ordinaires // 2o pilastro: contributi ordinari ;
        form 5 ; 2. Säule: Beiträge für den Einkauf // 2e pilier: cotisations pour le rachat // 2o pilastro: contributi per il riscatto ;
        form 6 ; Bemerkungen // Observations // Osservazioni ;)"},
    {"pillar3a", "account", "de,fr,it", false, "pillar", R"(
        head 0 one
        title [Bescheinigung Vorsorgekonto 3a|Beitragsbescheinigung Säule 3a] {year} // Attestation compte de prévoyance 3a {year} // Attestazione conto previdenza 3a {year}
        entry Saldo per {start} // Solde au {start} // Saldo al {start} ; {opening~}
        sum [Einbezahlte Beiträge|Einzahlungen im Jahr|Vorsorgebeiträge Säule 3a|Abzugsfähige Beiträge] // Cotisations versées // Contributi versati ; {paid~}
        entry Zins // Intérêts // Interessi ; {interest~}
        rule
        entry Saldo per {end} // Solde au {end} // Saldo al {end} ; {closing~}
        small Art. 33 Abs. 1 lit. e DBG // Art. 33 al. 1 let. e LIFD // Art. 33 cpv. 1 lett. e LIFD)"},
    {"buyin", "letter", "de", false, "buyIn", R"(
        head 3 one
        title Bestätigung Einkauf in die berufliche Vorsorge
        entry Eingang der Zahlung ; {when}
        sum [Einkauf Pensionskasse|Einkaufssumme|Freiwilliger Einkauf|Einkauf in die Pensionskasse] ; {amount~}
        entry Verbleibende Einkaufsmöglichkeit ; {possible~}
        entry Altersguthaben per {end} ; {assets~}
        small Leistungen aus Einkäufen dürfen während drei Jahren nicht in Kapitalform bezogen werden (Art. 79b Abs. 3 BVG).)"},
};

const std::vector<Sheet> banks{
    {"bank", "letter", "de,fr,it", false, "oneAccount", R"(
        head 0 one
        title [Zins- und Saldobestätigung|Saldo- und Zinsausweis|Steuerbescheinigung Konto] per {end} // Attestation d'intérêts et de solde au {end} // Attestazione di interessi e saldo al {end}
        line {name}   IBAN {number}
        dots [Saldo|Kontostand|Guthaben|Kapital] per 31.12.{year} // Solde au 31.12.{year} // Saldo al 31.12.{year} ; {balance~}
        dots [Bruttozins|Habenzins brutto|Zinsertrag brutto|Zinsgutschrift brutto] {year} // [Intérêts bruts|Intérêts créanciers bruts] {year} // Interessi lordi {year} ; {interest~}
        dots Verrechnungssteuer 35% // Impôt anticipé 35% // Imposta preventiva 35% ; {tax~}
        dots Nettozins // Intérêts nets // Interessi netti ; {net~}
        small Zinssatz am Jahresende 0.75%. // Taux au 31.12.: 0.75%. // Tasso al 31.12.: 0.75%.)"},
    {"bank", "table", "de,fr,it", false, "accounts", R"(
        head 1 one
        title [Zinsausweis|Zinsbescheinigung|Steuerverzeichnis Konten] {year} // Attestation fiscale {year} // Certificato interessi {year}
        cols 22 122r 156r 190r
        th Konto / IBAN // Compte / IBAN // Conto / IBAN ; [Saldo 31.12.|Kapital 31.12.|Steuerwert] // Solde 31.12. // Saldo 31.12. ; [Zinsertrag brutto|Bruttozins|Ertrag] // Intérêts bruts // Interessi lordi ; Verr.-Steuer // Impôt antic. // Imp. prev.
        rule
        per accounts
        tr {name} ; {balance} ; {interest?} ; {tax?}
        small {number}
        endper
        rule
        tb Total CHF ; {balance} ; {interest} ; {tax})"},
    {"insurance", "list", "de", false, "policy", R"(
        head 0 one
        title Steuerwert Ihrer Lebensversicherung per {end}
        dots Police Nr. ; {number}
        dots Beginn / Ablauf ; 01.03.2009 / {expiry}
        dots Versicherungssumme ; {sum~}
        dots [Rückkaufswert inkl. Überschuss|Steuerwert (Rückkaufswert)|Rückkaufswert] ; {surrender~})"},
    {"insurance", "table", "de", false, "policyWithPremium", R"(
        head 1 one
        title Bescheinigung freie Vorsorge (Säule 3b) {year}
        cols 22 70r 110r 150r 190r
        th Police ; Todesfallkapital ; Vers.-Summe ; Jahresprämie ; Rückkaufswert
        rule
        tr {number} ; {death} ; {sum} ; {premium} ; {surrender})"},
    {"property", "notice", "de", false, "valuation", R"(
        head 0 one
        title Schätzungsanzeige
        entry Politische Gemeinde ; {place}
        entry Grundstück Nr. ; {parcel}
        entry Grundstücksfläche ; {area} m²
        entry Schätzungsdatum ; {visited}
        rule
        sum [Verkehrswert (amtlicher Wert)|Amtlicher Verkehrswert|Verkehrswert] ; {value~}
        sum [Mietwert pro Jahr|Amtlicher Mietwert|Mietwert] ; {rent~}
        entry Neuwert (Gebäudeversicherung) ; {new~}
        entry Realwert ; {real~})"},
    {"property", "buildings", "de", false, "valuation", R"(
        head 2 one
        title Amtliche Schätzung der Grundstücke, Gemeinde {place}
        line Parzelle {parcel}, Eigentümer {one}
        cols 22 96r 140r 190r
        th Objekt ; Volumen m³ ; Verkehrswert ; Mietwert
        rule
        tr Wohnhaus {building} ; 812 ; {main} ; {mainrent}
        tr Garage ; 78 ; {garage} ; {garagerent}
        rule
        tb Total amtlicher Wert ; 890 ; {value} ; {rent})"},
};

const std::vector<Sheet> household{
    {"premiums", "table", "de,fr,it", false, "premiums", R"(
        head 0 one
        title Prämienübersicht für die Steuererklärung {year} // Récapitulatif des primes pour la déclaration d'impôt {year} // Riepilogo dei premi per la dichiarazione d'imposta {year}
        line 80756{#15}
        cols 22 120r 150r 190r
        th Versicherung // Assurance // Assicurazione ; Monatlich // Par mois // Al mese ; Monate // Mois // Mesi ; Prämien CHF // Primes CHF // Premi CHF
        rule
        tr [Grundversicherung KVG|Obligatorische Krankenversicherung (OKP)|Krankenpflege KVG] // Assurance de base LAMal // Assicurazione di base LAMal ; {basicmonth} ; 12 ; {basic}
        tr [Zusatzversicherungen VVG|Spitalzusatz VVG|Zusatz ambulant VVG] // Assurances complémentaires LCA // Assicurazioni complementari LCA ; {extramonth} ; 12 ; {extra}
        rule
        tb [Prämien Total|Total Prämien|Prämien KVG und VVG total|Summe Prämien] // Total des primes // Totale premi ; ; ; {total}
        tr [Individuelle Prämienverbilligung (IPV)|Prämienverbilligung|Kantonaler Beitrag IPV] // Réduction individuelle des primes // Riduzione individuale dei premi ; ; ; {reduction?}
        gap 6
        bold Kostenbeteiligung // Participation aux coûts // Partecipazione ai costi
        tr Franchise // Franchise // Franchigia ; ; ; {franchise}
        tr Selbstbehalt 10% // Quote-part 10% // Aliquota 10% ; ; ; {retention})"},
    {"premiums", "bands", "de,fr,it", false, "premiums", R"(
        head 3 one
        title Steuerausweis {year} // Attestation fiscale {year} // Attestato fiscale {year}
        band Obligatorische Krankenpflegeversicherung (KVG) // Assurance obligatoire des soins (LAMal) // Assicurazione obbligatoria (LAMal) ; {basic~}
        band Zusatzversicherung nach VVG // Assurance complémentaire LCA // Assicurazione complementare LCA ; {extra~}
        band [Total bezahlte Prämien|Jahresprämie total|Prämientotal] // Total primes payées // Totale premi pagati ; {total~}
        band Prämienverbilligung // Réduction des primes // Riduzione dei premi ; {reduction~}
        band Nicht erstattete Kosten (Franchise, Selbstbehalt) // Frais non remboursés // Costi non rimborsati ; {sharing~}
        small AHV-Nr. {ahv}, Franchise 2500, Modell Hausarzt. // No AVS {ahv}, franchise 2500. // N. AVS {ahv}, franchigia 2500.)"},
    {"childcare", "months", "de", false, "care", R"(
        head 0 one
        title Betreuungskosten {year} – Bestätigung für die Steuern
        line Kind: {child}, geb. {childbirth}
        cols 22 90r 140r
        th Monat ; Tage ; [Betrag CHF|Betrag|Elternbeitrag|CHF]
        rule
        each months {month} ; {days} ; {part}
        rule
        tb [Total Betreuungskosten|Betreuungskosten total|Total Elternbeiträge|Summe|Jahrestotal|Bezahlt {year}] ; ; {total})"},
    {"childcare", "net", "de", false, "care", R"(
        head 2 one
        title Bestätigung Kinderbetreuung
        text Wir bestätigen, dass {child} (geb. {childbirth}) im Jahr {year} unsere Einrichtung an 2 Tagen pro Woche besucht hat.
        entry Kosten nach Tarif ; {full~}
        entry Beitrag der Gemeinde ; {subsidy~}
        rule
        sum [Von den Eltern bezahlt|Bezahlte Betreuungskosten|Elternbeitrag bezahlt] ; {total~})"},
    {"course", "confirmation", "de", false, "coursePaid", R"(
        head 2 one
        title Kursbestätigung
        entry Teilnehmerin / Teilnehmer ; {one}
        entry Kurs ; {course}
        entry Dauer ; 15.01.{year} – 28.06.{year}
        sum [Bezahlte Kurskosten|Kursgeld bezahlt|Kosten der Weiterbildung] ; {amount~}
        entry Präsenz ; 94%)"},
    {"donation", "single", "de", false, "gift", R"(
        head 2 one
        title [Spendenbescheinigung|Spendenquittung|Bestätigung Ihrer Spende]
        text Wir bestätigen dankend den Eingang Ihrer Spende für das Projekt «Dach über dem Kopf 2030».
        entry Spenderin / Spender ; {one}
        entry Datum der Gutschrift ; {when}
        sum [Betrag der Spende|Spendenbetrag|Ihre Spende|Spende CHF] ; {amount~}
        small Unsere Organisation ist wegen Gemeinnützigkeit steuerbefreit. Spendenkonto {iban})"},
    {"donation", "year", "de", false, "gifts", R"(
        head 0 one
        title Spendenbestätigung für das Jahr {year}
        line Mitglieder-Nr. {#6}
        cols 22 60 180r
        th Datum ; Zweck ; Betrag CHF
        rule
        each gifts {on} ; {why} ; {part}
        rule
        tb ; [Total Spenden|Spenden total|Total Ihrer Spenden] ; {total})"},
};

const char* const courseBill = R"(
        head 0 one
        title Rechnung {number} – Lehrgang
        cols 22 130r 190r
        th Bezeichnung ; Lektionen ; CHF
        rule
        tr [Kursgeld Führungsausbildung Modul 2|Studiengebühr|Kurskosten] ; 48 ; {fee}
        tr Lehrmittel ; ; {material}
        tr MWST ausgenommen (Art. 21 MWSTG) ; ; 0.00
        rule
        tb [Kurskosten total|Total Kurskosten|Total Rechnung|Rechnungstotal|Gesamtbetrag CHF] ; ; {amount}
        bill amount {number})";

const char* const tariffBill = R"(
        head 0 one
        title [Rechnung Nr.|Arztrechnung|Rechnung] {number} // Facture no {number} // Fattura n. {number}
        line Patient/in: {one}, {birth}   Rechnungsdatum: {dated} // Patient(e): {one}, {birth}   Date de facture: {dated} // Paziente: {one}, {birth}   Data fattura: {dated}
        cols 22 44 64 145r 165r 190r
        th Datum // Date // Data ; Tarif // Tarif // Tariffa ; Leistung // Prestation // Prestazione ; Menge // Quantité // Quantità ; TP-Wert // Val. pt // Val. pt ; Betrag // Montant // Importo
        rule
        each items {on} ; {code} ; {what} ; {count}.00 ; 0.83 ; {part}
        rule
        sum [Rechnungsbetrag|Gesamttotal|Total Rechnung|Rechnungstotal] // Montant de la facture // Importo della fattura ; {total!}
        bill total {number})";

const char* const dentistBill = R"(
        head 2 one
        title Honorarrechnung {number} vom {dated} // Note d'honoraires {number} du {dated} // Nota d'onorario {number} del {dated}
        line Behandlung von {one} // Traitement de {one} // Trattamento di {one}
        dots Zahnärztliche Leistungen (412 Taxpunkte zu 1.05) // Prestations dentaires (412 points à 1.05) // Prestazioni dentarie (412 punti a 1.05) ; {care}
        dots Zahntechnik // Laboratoire // Laboratorio ; {lab}
        dots MWST 0% // TVA 0% // IVA 0% ; 0.00
        rule
        sum [Total zu bezahlen|Rechnungsbetrag|Totalbetrag|Honorar total] // Total à payer // Totale da pagare ; {total!}
        bill total {number})";

const std::vector<Sheet> bills{
    {"course", "bill-qr", "de", true, "coursePaid", courseBill},
    {"course", "bill", "de", false, "coursePaid", courseBill},
    {"bill", "tariff-qr", "de,fr,it", true, "serviceBill", tariffBill},
    {"bill", "tariff", "de", false, "serviceBill", tariffBill},
    {"bill", "dentist-qr", "de,fr", true, "dentalBill", dentistBill},
    {"bill", "dentist", "de,it", false, "dentalBill", dentistBill},
};

const std::vector<Sheet> others{
    {"salary", "liechtenstein", "de", false, "principalityWage", R"(
        head 6 one
        bold FÜRSTENTUM LIECHTENSTEIN
        big Lohnausweis {year}
        line Geburtsdatum {birth}   PEID {#7}   Beschäftigt {from} – {until}
        form 1 ; Grundlohn inkl. 13. Monatslohn ; {base}
        form 2 ; Naturalbezüge, Privatanteil Geschäftswagen ;
        form 3 ; Gratifikationen, Boni, übrige Leistungen ; {bonus?}
        form 4 ; Bruttolohn total ; {gross}
        form 5 ; [Abzüglich Beiträge AHV/IV/FAK/ALV/NBU|Sozialabgaben AHV/IV/ALV/NBU|Beiträge AHV-IV-FAK, ALV, NBU] ; {social}
        form 6 ; Abzüglich ordentliche Beiträge Pensionskasse ; {bvg}
        form 7 ; Abzüglich Einkauf Pensionskasse ;
        form 8 ; [Nettolohn|Nettolohn total] ; {net}
        form 9 ; Lohnsteuerabzug 4% ; {wagetax}
        form 10 ; Spesen (nicht im Bruttolohn enthalten) ; {expenses})"},
    {"salary", "print-out", "de,fr,it", false, "wageWithBuyIn", R"(
        mono
        head 0 one
        title LOHNAUSWEIS FÜR DIE STEUERN {year} // CERTIFICAT DE SALAIRE {year} // CERTIFICATO DI SALARIO {year}
        line Personal-Nr. {#5}   AHV-Nr. {ahv} // No personnel {#5}   No AVS {ahv} // N. personale {#5}   N. AVS {ahv}
        line {from} - {until}
        entry Jahreslohn // Salaire annuel // Salario annuo ; {base~}
        entry Bonus ; {bonus?}
        rule
        entry Bruttolohn total // Salaire brut total // Salario lordo totale ; {gross~}
        entry ./. AHV/IV/EO/ALV/NBUV // ./. AVS/AI/APG/AC/AANP // ./. AVS/AI/IPG/AD/AINP ; {social~}
        entry ./. Pensionskasse ordentliche Beiträge // ./. LPP cotisations ordinaires // ./. LPP contributi ordinari ; {bvg~}
        entry ./. Pensionskasse Einkauf // ./. LPP rachat // ./. LPP riscatto ; {bvgbuy?}
        rule
        sum Nettolohn // Salaire net // Salario netto ; {net~}
        entry Pauschalspesen Repräsentation // Frais forfaitaires // Spese forfettarie ; {expenses~}
        small Beschäftigungsgrad 80%, 42 Wochenstunden. // Taux d'activité 80%, 42 heures. // Grado d'occupazione 80%, 42 ore.)"},
    {"other", "shares-annex", "de", false, "sharesAnnex", R"(
        head 0 one
        title Beiblatt zum Lohnausweis: Mitarbeiterbeteiligung {year}
        line Angaben zu den Beteiligungsrechten gemäss Ziffer 5 des Lohnausweises
        cols 22 74r 110r 150r 190r
        th Zuteilung ; Anzahl ; Kurs CHF ; Sperrfrist ; Geldwerter Vorteil
        rule
        each grants {on} ; {count} ; {price} ; 3 Jahre ; {part}
        rule
        tb Total, im Bruttolohn enthalten ; ; ; ; {part}
        text Die Arbeitnehmerbeiträge AHV/IV/EO/ALV von {social!} wurden vom Lohn abgezogen. Der Nettolohn ist dem Lohnausweis zu entnehmen.)"},
    {"other", "tax-return", "de", false, "assessment", R"(
        head 4 both
        title Steuererklärung {year} für natürliche Personen
        cols 22 36 150r 190r
        th Ziffer ; Einkünfte und Abzüge ; Kanton CHF ; Bund CHF
        rule
        each lines {no}.1 ; {what} ; {state} ; {federal?}
        rule
        tr 25 ; Steuerbares Einkommen ; {state} ; {federal}
        tr 40 ; Steuerbares Vermögen ; {wealth} ;)"},
};

} // namespace

std::vector<Layout> plainPapers() { return scripted({provision, banks, household, bills, others}); }

} // namespace corpus
