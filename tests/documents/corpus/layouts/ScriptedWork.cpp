#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of salaries, pensions, buy-ins and life insurances.

namespace corpus {
namespace {

const char* const everyLanguage = "de,fr,it";

const std::vector<Sheet> salaries{
    {"salary", "two-columns", everyLanguage, false, "wageWithBuyIn", R"(
        head 6 one
        title @titlesalary {year}
        line @ahvno {ahv}   @born {birth}   {from} – {until}
        gap 3
        side @base ; {base} ; @social ; {social}
        side @bonus ; {bonus?} ; @bvg ; {bvg?}
        side ; ; @bvgbuy ; {bvgbuy?}
        rule
        side @gross ; {gross} ; @total ; {deductions}
        rule
        sum @net ; {net~})"},
    {"salary", "amounts-first", everyLanguage, false, "wageWithBuyIn", R"(
        head 4 one
        title @titlesalary {year}
        colon @person ; {one}, {birth}
        gap 4
        left CHF ;
        left {base} ; @base
        left {bonus?} ; @bonus
        leftsum {gross} ; @gross
        left {-social} ; @social
        left {bvg?} ; @bvg
        left {bvgbuy?} ; @bvgbuy
        rule
        leftsum {net} ; @net)"},
    {"salary", "cells", everyLanguage, false, "wageWithBuyIn", R"(
        head 0 one
        title @titlesalary {from} – {until}
        grid 3
        cell @ahvno ; {ahv}
        cell @born ; {birth}
        cell @expenses ; {expenses?}
        cell @gross ; {gross}
        cell @social ; {social}
        cell @bvg ; {bvg?}
        cell @bvgbuy ; {bvgbuy?}
        cell @net ; {net}
        endgrid)"},
    {"salary", "numbered", everyLanguage, false, "wageWithBuyIn", R"(
        head 6 one
        big @titlesalary {year}
        line {from} – {until}   {ahv}
        form 1 ; @base ; {base}
        form 2 ; @bonus ; {bonus?}
        form 3 ; @gross ; {gross}
        form 4 ; @social ; {social}
        form 5 ; @bvg ; {bvg?}
        form 6 ; @bvgbuy ; {bvgbuy?}
        form 7 ; @net ; {net}
        form 8 ; @expenses ; {expenses?}
        small {issuer}, {phone}, 42 h, 100%)"},
    {"salary", "principality-list", "de", false, "principalityWage", R"(
        head 4 one
        big Lohnausweis [zur Steuererklärung|] {year}
        line PEID-Nr. {#7}   geboren {birth}   Beschäftigung {from} bis {until}
        gap 3
        cols 22 30 160r 190r
        th ; ; CHF ; CHF
        tr 1. ; @base ; {base} ;
        tr 2. ; @bonus ; {bonus?} ;
        tb 3. ; @gross ; ; {gross}
        tr 4. ; [AHV/IV/FAK, ALV, NBU Anteil Arbeitnehmer|Beiträge AHV-IV-FAK/ALV/NBUV|Sozialabgaben AHV/IV/FAK, ALV, Nichtbetriebsunfall] ; {social} ;
        tr 5. ; [Betriebliche Personalvorsorge|Pensionskasse (Arbeitnehmerbeitrag)|Beiträge an die Vorsorgeeinrichtung] ; {bvg?} ;
        tr 6. ; @bvgbuy ; {bvgbuy?} ;
        rule
        tb 7. ; @net ; ; {net}
        tr 8. ; [Abgeführte Lohnsteuer|Lohnsteuer 4 %] ; {atsource?} ;
        small Ausgestellt von {issuer}, {town}, am {early})"},
    {"salary", "principality-cells", "de", false, "principalityWage", R"(
        head 5 one
        title Fürstentum Liechtenstein – Lohnausweis {year}
        grid 2
        cell Arbeitnehmer/in ; {one}
        cell PEID ; {#6}
        cell @gross ; {gross~}
        cell [AHV/IV/FAK/ALV/NBU|Abzüge AHV, IV, FAK, ALV und NBU] ; {social~}
        cell [Pensionskasse|BPVG-Beiträge|Personalvorsorge] ; {bvg?}
        cell @bvgbuy ; {bvgbuy?}
        cell @net ; {net~}
        cell Lohnsteuer ; {atsource?}
        endgrid)"},
    {"salary", "journal", "de", false, "wageWithBuyIn", R"(
        head 5 one
        title Lohnkonto-Abschluss / @titlesalary {year}
        cols 22 34 110r 150r 190r
        th LA ; Bezeichnung ; Ansatz ; Betrag ; Total
        rule
        tr 1000 ; @base ; ; {base} ;
        tr 1200 ; @bonus ; ; {bonus?} ;
        tb ; @gross ; ; ; {gross}
        tr 5010 ; @social ; 6.4 % ; ; {-social}
        tr 5050 ; @bvg ; ; ; {bvg?}
        tr 5060 ; @bvgbuy ; ; ; {bvgbuy?}
        tb ; @net ; ; ; {net}
        tr 3000 ; Kinderzulagen ; ; {outside} ;
        tr 6000 ; Spesen ; ; {expenses?} ;
        tb ; Auszahlung ; ; ; {paidout}
        small Arbeitgeberbeiträge AHV/IV/EO/ALV {employer})"},
    {"salary", "letter", "de", false, "wageWithBuyIn", R"(
        head 2 one
        bold Lohnbestätigung {year}
        text Hiermit bestätigen wir, dass {one}, geboren {birth}, vom {from} bis {until} bei uns angestellt war und folgende Bezüge hatte:
        mid @gross ; {gross!}
        mid @social ; {social!}
        mid @bvg ; {bvg?}
        mid @bvgbuy ; {bvgbuy?}
        mid @net ; {net!}
        text Freundliche Grüsse
        text {issuer})"},
};

const std::vector<Sheet> pensions{
    {"pension", "amounts-first", "de", false, "pension", R"(
        head 4 one
        title [Rentenausweis|Bescheinigung der Rente|Steuerausweis Renten] {year}
        colon @ahvno ; {ahv}
        left {month} ; [Monatsrente|Rente je Monat]
        leftsum {amount} ; [Rente im Kalenderjahr|Jahresrente|Rentensumme|Steuerbare Rente {year}]
        left 0.00 ; Quellensteuer
        small Ab {early}: {coming} monatlich.)"},
    {"pension", "above", "de", false, "pension", R"(
        head 1 one
        title Rentenbescheinigung für die Steuern
        above Empfänger/in ; {one}, {birth}
        above [Rentenart|Leistungsart] ; [Altersrente|Invalidenrente|Ehegattenrente]
        above [Jahresbetrag {year}|Ausgerichtete Leistungen {year}|Bruttorente {year}|Total der Rentenzahlungen] ; {amount!})"},
    {"pension", "parts", "de", false, "pensionParts", R"(
        head 0 one
        title [Leistungsausweis|Rentenbestätigung|Ausweis über bezogene Renten] {year}
        line Vers.-Nr. {ahv}, geb. {birth}
        cols 22 110r 150r 190r
        th Leistung ; monatlich ; Anzahl ; Total CHF
        rule
        each parts {name} ; {month} ; 12 ; {part}
        rule
        tb [Summe der Renten|Steuerbarer Betrag|Total Leistungen|Renten insgesamt|Total Rente|Rente total|Total ausbezahlte Rente] ; ; ; {amount})"},
    {"pension", "letter", "de", false, "pension", R"(
        head 5 one
        bold [Ihre Rentenleistungen|Bescheinigung über Rentenleistungen] {year}
        text Sehr geehrte Damen und Herren
        text [Im Jahr {year} haben wir Ihnen Renten im Betrag von {amount!} ausbezahlt.|Wir haben Ihnen von Januar bis Dezember {year} eine Rente von total {amount!} überwiesen (monatlich {month!}).|Die an Sie ausbezahlte Altersrente beläuft sich für {year} auf {amount!}.]
        text Dieser Betrag ist zu 100 % als Einkommen zu versteuern. Ihre Personalien: {one}, {birth}.)"},
    {"pension", "numbered", "de", false, "pension", R"(
        head 6 one
        big Rentenbescheinigung {year}
        form A ; Rentenbezüger/in ; {one}
        form B ; @born ; {birth}
        form C ; @ahvno ; {ahv}
        form D ; [Rente aus beruflicher Vorsorge, Jahrestotal|Rente aus beruflicher Vorsorge, Bruttobetrag|Ausbezahlte Renten 01.01. – 31.12.|Rentenleistungen brutto|Total Renten {year}] ; {amount}
        form E ; Kapitalleistung ;
        form F ; Quellensteuerabzug ;)"},
    {"pension", "months", "de", false, "pension", R"(
        head 3 one
        title Auszahlungen {year}
        cols 22 90r 140r
        th Monate ; CHF ; kumuliert
        tr Januar – November, je ; {month} ;
        tr Dezember ; {month} ; {amount}
        rule
        sum [Total ausgerichtete Rente|Rentenbezug im Steuerjahr|Jahresrente] ; {amount~}
        entry @born ; {birth})"},
};

const std::vector<Sheet> buyIns{
    {"buyin", "amounts-first", "de", false, "buyIn", R"(
        head 4 one
        title [Einkaufsbestätigung|Bestätigung über Ihren Einkauf|Steuerbescheinigung Einkauf] {year}
        left {before} ; [Maximal mögliche Einkaufssumme vor Zahlung|Deckungslücke vor Einkauf]
        leftsum {amount} ; [Geleisteter Einkauf vom {when}|Einkauf in die vollen Leistungen|Abzugsfähiger Einkauf|Einbezahlter Einkauf]
        left {possible} ; [Noch möglicher Einkauf|Restlicher Einkauf]
        small Sperrfrist 3 Jahre, Art. 79b BVG)"},
    {"buyin", "cells", "de", false, "buyIn", R"(
        head 6 one
        title Bescheinigung [Einkauf 2. Säule|freiwilliger Einkauf] {year}
        grid 2
        cell Versicherte Person ; {one}
        cell @ahvno ; {ahv}
        cell [Einkaufsbetrag|Betrag des Einkaufs|Einkauf von Beitragsjahren] ; {amount~}
        cell Valuta ; {when}
        cell Altersguthaben ; {assets~}
        cell Versicherter Lohn ; {salary~}
        endgrid)"},
    {"buyin", "told-letter", "de", false, "buyIn", R"(
        head 1 one
        bold Freiwilliger Einkauf in die Pensionskasse
        text [Wir haben am {when} Ihre Zahlung von {amount!} erhalten und als Einkauf verbucht.|Ihr Einkauf von {amount!} vom {when} wurde Ihrem Altersguthaben gutgeschrieben.|Gerne bestätigen wir den Eingang von {amount!} als Einkauf in die reglementarischen Leistungen.]
        text [Weitere Einkäufe sind bis {possible!} möglich.|Ihr Altersguthaben beläuft sich neu auf {assets!}.])"},
    {"buyin", "movements", "de", false, "buyIns", R"(
        head 0 one
        title Bescheinigung [über Einkäufe|der Einkäufe in die Pensionskasse] {year}
        cols 22 80 190r
        th Zahlungseingang ; Zweck ; CHF
        rule
        each payments {on} ; [Einkauf fehlende Jahre|Einkauf|Pers. Einkauf] ; {part}
        rule
        tb [Einkauf total|Total Einkäufe|Total der Einkäufe {year}|Einkäufe insgesamt] ; ; {total})"},
    {"buyin", "numbered", "de", false, "buyIn", R"(
        head 6 one
        big Bescheinigung über Vorsorgebeiträge
        form a ; @person ; {one}
        form b ; Bescheinigungsjahr ; {year}
        form c ; Ordentliche Beiträge (nicht im Lohnausweis) ;
        form d ; [Einkaufsbeiträge 2. Säule|Beiträge für Einkauf 2. Säule|Einkauf von Vorsorgeleistungen 2. Säule|2. Säule: Beiträge für den Einkauf] ; {amount}
        form e ; Säule 3a ;)"},
    {"buyin", "account", "de", false, "buyIn", R"(
        head 2 one
        title Kontoauszug Altersguthaben {year}
        dots [Sparbeiträge Arbeitnehmer und Arbeitgeber|Altersgutschriften] ; 0.00
        dots [Freiwillige Einkäufe|Einkauf {when}|Persönlicher Einkauf Pensionskasse] ; {amount}
        dots Zins 1.25 % ; [0.00|]
        sum Altersguthaben {end} ; {assets}
        small Mögliche Einkaufssumme: {possible!})"},
    {"buyin", "second-page", "de", false, "buyIns", R"(
        head 3 one
        title Ihre Einkäufe {year}
        each payments !entry Einzahlung vom {on} ; {part~}
        entry Altersguthaben {end} ; {assets~}
        page
        bold Bescheinigung für die Steuerbehörde
        sum [Abzugsfähige Einkäufe|Einkauf Pensionskasse total|Total Einkauf] {year} ; {total~})"},
};

const std::vector<Sheet> policies{
    {"insurance", "amounts-first", "de", false, "policy", R"(
        head 4 one
        title [Steuerwertbescheinigung|Bescheinigung Rückkaufswert|Wertausweis] {year}
        colon Police ; {number}
        leftsum {surrender} ; [Rückkaufswert {end}|Steuerwert|Steuerlicher Wert mit Überschüssen]
        left {sum} ; [Versicherte Summe|Versicherungssumme|Erlebensfallkapital]
        left {death} ; Todesfallleistung
        left {bonus} ; Überschussanteil)"},
    {"insurance", "cells", "de", false, "policy", R"(
        head 6 one
        title Lebensversicherung – [Angaben für das Steueramt|Steuerauszug] {year}
        grid 3
        cell Police ; {number}
        cell Ablauf ; [2031|2036|2040]
        cell Überschussguthaben ; {bonus}
        cell [Versicherungssumme|Versicherte Leistung] ; {sum}
        cell Todesfallkapital ; {death}
        cell [Rückkaufswert|Steuerwert {end}|Rückkaufswert inkl. Überschuss] ; {surrender}
        endgrid)"},
    {"insurance", "above", "de", false, "policyWithPremium", R"(
        head 1 one
        title Steuerbescheinigung Police {number}
        above [Rückkaufswert per {end}|Steuerbarer Rückkaufswert] ; {surrender!}
        above [Versicherungssumme|Versichertes Kapital] ; {sum!}
        above [Jahresprämie|Bezahlte Prämie {year}|Prämien im Jahr {year}] ; {premium!})"},
    {"insurance", "letter", "de", false, "policy", R"(
        head 5 one
        bold Steuerwert Ihrer Police {number}
        text [Der Rückkaufswert Ihrer Lebensversicherung betrug am {end} {surrender!}. Versichert ist eine Summe von {sum!}.|Für die Versicherungssumme von {sum!} bescheinigen wir per {end} einen Steuerwert von {surrender!}.]
        small Im Todesfall werden {death!} fällig. Überschüsse des Jahres: {bonus!}.)"},
    {"insurance", "steps", "de", false, "policyWithPremium", R"(
        head 2 one
        title Wertbestätigung {year}, Vertrag {number}
        cols 22 190r
        th Position ; CHF
        rule
        tr Prämien {year} ; {premium}
        tr [Versicherungssumme|Garantiekapital (Versicherungssumme)] ; {sum}
        tr Rückkaufswert ohne Überschuss ; {bare}
        tb [Rückkaufswert total|Rückkaufswert mit Überschuss|Massgebender Rückkaufswert] ; {surrender})"},
    {"insurance", "numbered", "de", false, "policy", R"(
        head 6 one
        big Vermögenssteuer: Lebensversicherungen {year}
        form 1 ; Police Nr. ; {number}
        form 2 ; [Versicherungssumme|Versicherungskapital|Versicherungssumme im Erlebensfall] ; {sum}
        form 3 ; [Steuerwert|Rückkaufswert|Rückkaufswert inkl. Gewinnanteile] ; {surrender}
        form 4 ; Leibrente, jährlich ;)"},
};

} // namespace

std::vector<Layout> scriptedWorkPapers() {
    return scripted({salaries, pensions, buyIns, policies});
}

} // namespace corpus
