#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of banks, of lenders and of registers printed without a barcode.

namespace corpus {
namespace {

const std::vector<Sheet> banks{
    {"bank", "l-mixed-grid", "de", false, "mixed", R"(
        wide
        head 4 one
        title [Vermögen und Schulden in einer Tabelle|Ausweis für die Steuern – alle Produkte] {year}
        line Partnernummer {#4}-{#3}, Werte per {end} in CHF
        cols 22 40 92 160r 190r 214r 234r 255r 277r
        th Art ; Bezeichnung ; Nummer ; [Vermögenswert|Aktiven] ; [Ausstand|Passiven] ; [Ertrag A|A mit VSt] ; [VSt|35 %] ; [Ertrag B|B ohne VSt] ; [Aufwand|Zinsaufwand]
        rule
        each rows {kind} ; {name} ; {number} ; {balance?} ; {debt?} ; {a?} ; {tax?} ; {b?} ; {owed?}
        rule
        tb ; Alle Produkte ; ; {balance} ; {debt} ; {a} ; {tax} ; {b} ; {owed}
        small [Gebühren {fee!} sind im Aufwand nicht enthalten.|Nicht aufgeführt sind Kartengebühren von {fee!}.])"},
    {"bank", "l-mixed-grille", "fr", false, "mixed", R"(
        head 6 both
        title [Attestation d'intérêts et de capital|Relevé fiscal global|Attestation fiscale] {year}
        cols 22 46 104r 124r 148r 168r 190r
        th Genre ; Relation ; [Rendement brut|Revenu brut] ; [Imp. ant.|I.A. 35 %] ; [Intérêts débiteurs|Intérêts payés] ; Dette ; Fortune
        rule
        per rows
        tr {kind} ; {name} ; {a?} ; {tax?} ; {owed?} ; {debt?} ; {balance?}
        tr ; {number} ; {b?} ; ; ; ;
        endper
        rule
        tr ; Total avec impôt anticipé ; {a} ; {tax} ; ; ;
        tr ; Total sans impôt anticipé ; {b} ; ; ; ;
        tb ; Totaux au {end} ; ; ; {owed} ; {debt} ; {balance}
        small Première ligne: revenus soumis à l'impôt anticipé; seconde ligne: revenus non soumis.)"},
    {"bank", "l-mixed-griglia", "it", false, "mixed", R"(
        head 0 one
        title [Attestato di capitale e interessi|Distinta fiscale della relazione] {year}
        cols 22 58 104r 126r 156r 190r
        th Relazione ; Prodotto ; [Redditi con IP|Lordo con IP] ; [senza IP|Lordo senza IP] ; [Interessi passivi|Interessi a debito] ; [Saldo {end}|Stato al {end}]
        rule
        each depots {number} ; {name} ; {a?} ; {b?} ; ; {balance}
        each loans {number} ; {name} ; ; ; {interest} ; {-debt}
        each accounts {number} ; {name} ; {a?} ; {b?} ; ; {balance}
        rule
        entry Totale averi ; {balance}
        entry Totale debiti ; {-debt}
        entry [Imposta preventiva (IP) dedotta|Imposta preventiva (IP, 35 %)] ; {tax}
        entry Redditi lordi con IP ; {a}
        entry Redditi lordi senza IP ; {b}
        small Spese di tenuta conto: {fee!}.)"},
    {"bank", "l-cloture", "fr", false, "closed", R"(
        head 5 one
        bold [Clôture de votre compte|Décompte de clôture], {when}
        line {name}, IBAN {number}
        cols 22 140r 190r
        th ; [Débit|Doit] ; [Crédit|Avoir]
        rule
        tr Solde avant clôture ; ; {opening}
        tr [Intérêts créanciers bruts du 1er janvier au {when}|Intérêts créanciers bruts à la clôture] ; ; {interest}
        tr [Impôt anticipé 35 %|Impôt anticipé sur intérêts] ; {tax?} ;
        tr Frais de clôture ; {charge} ;
        rule
        tb [Viré sur le compte {target}|Montant viré en votre faveur] ; {payout} ;
        gap 3
        text Le compte ne présente plus d'avoir au 31 décembre {year}. Veuillez joindre ce décompte à votre déclaration d'impôt.)"},
    {"bank", "l-estinzione", "it", false, "closed", R"(
        head 2 one
        title Estinzione conto {number}
        text [Su sua richiesta abbiamo estinto il {when} la relazione «{name}». Dal 1° gennaio sono maturati interessi lordi di {interest!}.|Il conto «{name}» è stato chiuso il {when}; gli interessi lordi maturati nel {year} sono pari a {interest!}.]
        grid 2
        cell Saldo prima della chiusura ; {opening}
        cell Interessi lordi ; {interest}
        cell Imposta preventiva trattenuta ; {tax}
        cell Spese di chiusura ; {charge}
        cell Importo bonificato ; {payout}
        cell Saldo al 31.12.{year} ; 0.00
        endgrid)"},
    {"bank", "l-quarters", "de", false, "loans", R"(
        head 1 both
        title [Ihre Hypothekarzinsen|Zinsausweis Finanzierungen] {year}
        per loans
        bold {name} {number}
        cols 22 60 84 130r 190r
        th Fälligkeit ; Satz ; Tage ; Zins ; [Restkapital|Kapital]
        rule
        tr 01.01.{year} ; ; ; ; {before}
        each quarters {on} ; {rate} ; 90 ; {part} ;
        tr [Amortisation|Rückzahlung] ; ; ; ; {-redemption}
        tb [Summe {year}|Stand 31.12.{year}] ; ; ; {interest} ; {debt}
        rule
        gap 3
        endper
        gap 2
        entry [Hypotheken insgesamt|Gesamte Verpflichtung] ; {debt}
        entry [Zinsen insgesamt|Gesamte Zinszahlungen] ; {interest})"},
    {"bank", "l-tranches-fr", "fr", false, "tranches", R"(
        head 0 both
        title [Attestation d'intérêts hypothécaires|Relevé annuel du financement] {year}
        cols 22 108r 136r 164r 190r
        th ; {name1} ; {name2} ; {name3} ; Total
        rule
        tr N° de contrat ; {number1} ; {number2} ; {number3} ;
        tr Taux ; {rate1} ; {rate2} ; {rate3} ;
        tr Échéance ; {until1} ; {until2} ; {until3} ;
        tr [Capital au 1er janvier|Dette au 1er janvier] ; {before1} ; {before2} ; {before3} ; {before}
        tr Amortissement ; {redemption1} ; {redemption2} ; {redemption3} ; {redemption}
        tb [Capital dû au 31 décembre|Dette au 31 décembre] ; {debt1} ; {debt2} ; {debt3} ; {debt}
        tb [Intérêts payés {year}|Intérêts débités en {year}] ; {interest1} ; {interest2} ; {interest3} ; {interest}
        tr Intérêts courus, non échus ; {accrued1} ; {accrued2} ; {accrued3} ; {accrued})"},
    {"bank", "l-tranches-columns", "de", false, "tranches", R"(
        head 5 both
        title [Zinsbestätigung Hypothek in drei Tranchen|Finanzierungsausweis] {year}
        cols 22 90r 124r 158r 190r
        th ; {name1} ; {name2} ; {name3} ; Summe
        rule
        tb [Zinsen {year}|Belastete Zinsen {year}] ; {interest1} ; {interest2} ; {interest3} ; {interest}
        tr Zinssatz ; {rate1} ; {rate2} ; {rate3} ;
        tr Zinsbindung bis ; {until1} ; {until2} ; {until3} ;
        tr Marchzins 31.12. (nicht belastet) ; {accrued1} ; {accrued2} ; {accrued3} ; {accrued}
        rule
        tr [Schuld 31.12.{prev}|Anfangsschuld] ; {before1} ; {before2} ; {before3} ; {before}
        tr Amortisation ; {-redemption1} ; {-redemption2} ; {-redemption3} ; {-redemption}
        tb [Schuld 31.12.{year}|Schuld Ende Jahr] ; {debt1} ; {debt2} ; {debt3} ; {debt})"},
    {"bank", "l-renewed", "de", false, "renewedLoan", R"(
        head 3 one
        title [Steuerausweis Hypothek|Hypothekarausweis] {year}
        text Ihre Hypothek wurde am {change} abgelöst und unter neuer Nummer weitergeführt. Für beide Verträge erhalten Sie die Zinsen getrennt.
        cols 22 44 102r 126r 158r 190r
        th Vertrag ; Zeitraum ; Anfang ; [Veränderung|Abzahlung] ; [Schuldzins|Zins] ; [Schuld {end}|Ende Jahr]
        rule
        tr {old} ; 01.01. bis {change} ; {capital} ; {-redemption} ; {first} ; 0.00
        tr {fresh} ; {change} bis 31.12. ; {debt} ; ; {second} ; {debt}
        rule
        tb Zusammen ; ; ; ; {interest} ; {debt}
        small Bearbeitungsgebühr {charge!} gesondert belastet.)"},
    {"bank", "l-ipoteche", "it", false, "loans", R"(
        head 3 both
        title [Interessi ipotecari e capitale residuo|Conferma annuale dei crediti ipotecari] {year}
        per loans
        bold {name} n. {number}, tasso {rate}
        below {interest!} ; [Interessi pagati {year}|Interessi addebitati] ; {redemption!} ; Ammortamento ; {debt!} ; [Capitale residuo al {end}|Debito al {end}]
        rule
        gap 2
        endper
        text [Nel {year} ha pagato interessi per {interest!} su un debito complessivo di {debt!}.|Debito complessivo {debt!}, interessi complessivi {interest!}.]
        small Interessi maturati ma non ancora scaduti: {accrued!}.)"},
    {"bank", "l-cash-credit", "de", false, "cashCredit", R"(
        head 1 one
        title [Jahresausweis Privatkredit|Konsumkredit: Ausweis für die Steuererklärung] {year}
        line Vertrag {number}, ursprünglicher Kreditbetrag {original!}, Jahreszins {rate}
        left {before} ; Offen am {start}
        left {paid} ; 12 Raten zu {month}
        left {redemption} ; davon [Tilgung|Rückzahlung]
        left {cover} ; davon Prämie Ratenversicherung
        leftsum {interest} ; [davon Zins|davon Kreditzins (abziehbar)]
        leftsum {debt} ; [Restschuld am {end}|Offen am {end}])"},
    {"bank", "l-credit-prive", "fr", false, "cashCredit", R"(
        head 3 one
        title [Attestation annuelle de crédit|Crédit personnel: attestation fiscale] {year}
        text [Durant l'année {year}, vous avez versé 12 mensualités de {month!}, soit {paid!}. Ce montant comprend {interest!} d'intérêts et {cover!} de primes d'assurance.|Vos 12 mensualités de {month!} ({paid!}) comprennent des intérêts de {interest!} ainsi que des primes d'assurance de {cover!}.]
        text [Au 31 décembre {year}, le solde de votre crédit n° {number} s'élève à {debt!}.|Le solde dû au 31 décembre {year} (contrat {number}) se monte à {debt!}.] Une année auparavant, il était de {before!}.)"},
    {"bank", "l-plastic", "de", false, "creditCard", R"(
        head 4 one
        title [Kartenkonto: Zins- und Saldoausweis|Jahresausweis Kreditkarte] {year}
        line Karte {number}, Kartenlimite {limit!}
        cols 22 190r
        tr Saldovortrag zu Ihren Lasten {start} ; {before}
        tr + Einkäufe und Bezüge ; {spent}
        tr + Jahres- und Bearbeitungsgebühren ; {fees}
        tr + [Sollzinsen Teilzahlung|Teilzahlungszins] ; {interest}
        tr ./. Ihre Zahlungen ; {-paid}
        rule
        tb [= Geschuldeter Saldo {end}|= Saldo zu unseren Gunsten {end}] ; {debt}
        text [Für die Steuererklärung massgebend sind der geschuldete Saldo und die Teilzahlungszinsen.|In das Schuldenverzeichnis gehören der Saldo und die Zinsen, nicht aber Gebühren.] Mindestzahlung im Januar: {least!}.)"},
    {"bank", "l-pairs", "de", false, "foreignCurrencies", R"(
        head 6 one
        title [Fremdwährungskonten: Steuerwerte|Ausweis Konten in fremder Währung] {year}
        cols 22 112 150r 190r
        th ; Währung ; [Zins {year}|Bruttozins] ; [Guthaben {end}|Saldo {end}]
        rule
        per accounts
        tr {number} ; {code} ; {foreigninterest} ; {foreign}
        tr [Umrechnung zu|Gegenwert, Kurs] {course} ; CHF ; {interest} ; {balance}
        gap 2
        endper
        rule
        tb [Gegenwert aller Konten|Total] ; CHF ; {interest} ; {balance}
        tr darauf Verrechnungssteuer ; CHF ; {tax?} ;)"},
    {"bank", "l-devises", "fr", false, "foreignCurrencies", R"(
        head 4 one
        bold [Comptes en devises, état au {end}|Attestation d'avoirs en monnaies étrangères]
        per accounts
        band {name} {code} ; {number}
        below {foreign} {code} ; Solde en devise ; {course} ; Cours au {end} ; {balance} ; [Solde en CHF|Valeur fiscale CHF]
        below {foreigninterest} {code} ; Intérêts en devise ; {tax} ; Impôt anticipé CHF ; {interest} ; [Intérêts en CHF|Rendement brut CHF]
        endper)"},
    {"bank", "l-joint", "de", false, "jointAccounts", R"(
        head 2 both
        title [Zins- und Saldoausweis nach Inhabern|Kontenausweis Ehepaar] {year}
        cols 22 64 124r 154r 190r
        bold Gemeinschaftlich: {one} oder {two}
        th Konto ; IBAN ; [Zins brutto|Bruttozins] ; [VSt|VST 35 %] ; [Saldo|Bestand] {end}
        each joint {name} ; {number} ; {interest} ; {tax?} ; {balance}
        rule
        tr Zwischensumme gemeinschaftlich ; ; {interest} ; {tax?} ; {balance}
        gap 5
        bold Allein: {two}
        each own {name} ; {number} ; {interest} ; {tax?} ; {balance}
        rule
        tb Summe beider Inhaber ; ; {allinterest} ; {alltax?} ; {allbalance})"},
    {"bank", "l-minus", "de", false, "overdrawn", R"(
        head 1 one
        title [Kontenübersicht mit Minussaldo|Zins- und Kapitalbestätigung] {year}
        cols 22 106r 130r 154r 190r
        th Konto ; Habenzins ; Sollzins ; VSt ; Saldo {end}
        rule
        tr Lohnkonto {number} ; 0.00 ; {owed} ; ; {-debt}
        each accounts {number} ; {interest} ; 0.00 ; {tax?} ; {balance}
        rule
        text [Ein Minus bedeutet: Saldo zu Ihren Lasten. Ihre Überzugslimite beträgt {limit!}.|Beträge mit Minuszeichen sind Schulden Ihrerseits. Die Limite von {limit!} ist nicht überschritten.])"},
    {"bank", "l-fees-columns", "de", false, "feeColumns", R"(
        head 3 one
        title [Gebühren- und Steuerausweis|Zinsen, Steuern und Gebühren] {year}
        cols 22 112r 152r 190r
        line {name1}: {number1}   {name2}: {number2}
        th ; {name1} ; {name2} ; Zusammen
        rule
        tr Kontoführung ; {keeping1} ; {keeping2} ; {keeping}
        tr Karten ; {cards1} ; {cards2} ; {cards}
        tr Porto ; {post1} ; {post2} ; {post}
        tr Gebühren zusammen ; {fees1} ; {fees2} ; {fees}
        rule
        tr [Zins vor Verrechnungssteuer|Gutgeschriebener Zins, brutto] ; {interest1} ; {interest2} ; {interest}
        tr [Verrechnungssteuer|./. VSt] ; {tax1?} ; {tax2?} ; {tax?}
        tr Zins nach Verrechnungssteuer ; {net1} ; {net2} ;
        tb [Guthaben 31. Dezember|Kontostand 31. Dezember] ; {balance1} ; {balance2} ; {balance})"},
};

const std::vector<Sheet> registers{
    {"statement", "l-classes", "de", false, "classes", R"(
        head 0 one
        title [Vermögensausweis nach Anlageklassen|Bewertung Ihres Vermögens] per {end}
        line Anfangsbestand {start}: {initial!}
        cols 22 92r 116r 140r 162r 190r
        th Anlage ; Bestand ; Kurs ; Anteil ; [Ertrag {year}|Bruttoertrag] ; [Steuerwert|Marktwert CHF]
        rule
        tb Liquidität ; ; ; {ofcash} ; ; {cash}
        each accounts {name} {number} ; ; ; ; {interest} ; {balance}
        tb Aktien ; ; ; {ofshares} ; ; {shares}
        per shares
        tr {name} ; {count} ; {price} ; {of} ; {income} ; {value}
        small {isin}, Einstand {cost}
        endper
        tb Fonds ; ; ; {offunds} ; ; {funds}
        per funds
        tr {name} ; {count} ; {price} ; {of} ; {income} ; {value}
        small {isin}, Einstand {cost}
        endper
        rule
        tb Gesamtvermögen ; ; ; 100.0 % ; ; {all}
        entry Erträge mit Verrechnungssteuer ; {a}
        entry Erträge ohne Verrechnungssteuer ; {b})"},
    {"statement", "l-position-bands", "de", false, "classes", R"(
        head 3 one
        title [Ihre Anlagen Stück für Stück|Steuerangaben je Anlage] {year}
        per shares
        band {name} ; {isin}
        side Anzahl am {end} ; {count} ; [Steuerwert CHF|Wert CHF] ; {value}
        side Ertrag brutto mit VSt ; {a?} ; Ertrag brutto ohne VSt ; {b?}
        gap 2
        endper
        per funds
        band {name} ; {isin}
        side Anzahl am {end} ; {count} ; [Steuerwert CHF|Wert CHF] ; {value}
        side Ertrag brutto mit VSt ; {a?} ; Ertrag brutto ohne VSt ; {b?}
        gap 2
        endper
        per accounts
        band {name} ; {number}
        side Verrechnungssteuer ; {tax} ; Saldo CHF ; {balance}
        side Zins brutto mit VSt ; {a?} ; Zins brutto ohne VSt ; {b?}
        gap 2
        endper
        gap 3
        sum [Vermögen bei uns|Alle Anlagen und Konten], {end} ; {all})"},
    {"statement", "l-moves", "de", false, "moves", R"(
        head 5 one
        title [Ertragsaufstellung und Steuerwerte|Steuerreport Wertschriften] {year}
        cols 22 50 104r 122r 144r 166r 190r
        th Datum ; Vorgang ; Stück ; Kurs ; [ohne VSt|Ertrag o. VSt] ; [mit VSt|Ertrag m. VSt] ; Steuerwert
        rule
        per held
        bold {name}, ISIN {isin}
        tr {paid} ; [Ausschüttung|Dividende] ; ; ; {b?} ; {a?} ;
        tr {end} ; Bestand ; {count} ; {price} ; ; ; {value}
        gap 2
        endper
        per sold
        bold {name}, ISIN {isin}
        tr {paid} ; [Ausschüttung|Dividende] ; ; ; {b?} ; {a?} ;
        tr {moved} ; Verkauf, Erlös {proceeds} ; -{count} ; {price} ; ; ;
        tr {end} ; Bestand ; 0 ; ; ; ; 0.00
        gap 2
        endper
        rule
        tb ; Alle Titel ; ; ; {b} ; {a} ; {value}
        small Depotgebühr {costs!}.)"},
    {"statement", "l-titres", "fr", false, "moves", R"(
        head 2 one
        title [État des titres pour l'impôt|Relevé fiscal du dépôt {#6}] {year}
        text Valeurs en francs suisses. Colonne A: rendement brut soumis à l'impôt anticipé. Colonne B: non soumis.
        cols 22 88r 112r 138r 164r 190r
        th ; Nombre ; Cours ; [Valeur fiscale|Valeur imposable] ; [Rendement A|A] ; [Rendement B|B]
        rule
        per held
        tr {name} ; {count} ; {price} ; {value} ; {a?} ; {b?}
        small ISIN {isin}
        endper
        per sold
        tr {name} (vendu) ; 0 ; ; 0.00 ; {a?} ; {b?}
        small ISIN {isin}, vente du {moved}: {proceeds}
        endper
        rule
        tb Totaux ; ; ; {value} ; {a} ; {b}
        entry [Impôt anticipé à récupérer|Droit au remboursement] ; {tax}
        entry Droits de garde et frais ; {costs})"},
    {"statement", "l-titoli", "it", false, "moves", R"(
        head 3 one
        title [Elenco titoli|Distinta titoli e capitali] {year}
        cols 22 70 114r 136r 162r 190r
        th ISIN ; Titolo ; Reddito B ; Reddito A ; Quantità ; [Valore fiscale|Valore imponibile]
        rule
        each held {isin} ; {name} ; {b?} ; {a?} ; {count} ; {value}
        each sold {isin} ; {name} (venduto) ; {b?} ; {a?} ; 0 ; 0.00
        rule
        tb ; Totale ; {b} ; {a} ; ; {value}
        small A: con imposta preventiva ({tax!}), B: senza imposta preventiva. Spese di deposito {costs!}.)"},
};

} // namespace

std::vector<Layout> lakeBankPapers() { return scripted({banks, registers}); }

} // namespace corpus
