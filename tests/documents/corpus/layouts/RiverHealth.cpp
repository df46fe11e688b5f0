#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of health insurers, of practices and of homes.

namespace corpus {
namespace {

const std::vector<Sheet> premiums{
    // Each insurance a list of its own beside the other.
    {"premiums", "r-tiles", "de,fr,it", false, "premiumsOfMembers", R"(
        head 6 both
        title [Prämien der Familie|Steuerbescheinigung der Familie] {year} // [Primes de la famille|Attestation fiscale de la famille] {year} // [Premi della famiglia|Attestato fiscale della famiglia] {year}
        cols 22 100r 112 190r
        th Grundversicherung (KVG) // Assurance de base (LAMal) // Assicurazione di base (LAMal) ; ; Zusatzversicherungen (VVG) // Assurances complémentaires (LCA) // Assicurazioni complementari (LCA) ;
        each people {first} ; {basic} ; {first} ; {extra}
        rule
        tb ; {basic} ; ; {extra}
        gap 5
        sum [Prämien KVG und VVG|Summe beider Versicherungen] // [Primes LAMal et LCA|Total des deux assurances] // [Premi LAMal e LCA|Totale delle due assicurazioni] ; {total}
        entry Individuelle Prämienverbilligung // Réduction individuelle des primes // Riduzione individuale dei premi ; {reduction?}
        entry Prämien nach Verbilligung // Primes après réduction // Premi dopo la riduzione ; {net}
        rule
        entry Kostenbeteiligung (Franchise, Selbstbehalt) // Participation aux coûts (franchise, quote-part) // Partecipazione ai costi (franchigia, aliquota) ; {sharing})"},
    {"premiums", "r-steps", "de", false, "premiumSteps", R"(
        head 0 both
        title [Prämienausweis {year}|Übersicht der verrechneten Prämien {year}]
        cols 28 46 150r 190r
        gap 3
        bold {who1}, {born1}
        each steps1 {span} ; {what} ; {months} × {month} ; {part}
        tb ; [Prämien|Subtotal|Total Person] ; ; {total1}
        gap 3
        bold {who2}, {born2}
        each steps2 {span} ; {what} ; {months} × {month} ; {part}
        tb ; [Prämien|Subtotal|Total Person] ; ; {total2}
        gap 3
        bold {who3}, {born3}
        each steps3 {span} ; {what} ; {months} × {month} ; {part}
        tb ; [Prämien|Subtotal|Total Person] ; ; {total3}
        rule
        sum [Prämien aller Versicherten|Verrechnete Prämien der Familie] ; {total~}
        entry [Verbilligung durch den Kanton|Kantonaler Beitrag (IPV)] ; {reduction?}
        entry Von Ihnen bezahlt ; {net})"},
    {"premiums", "r-invoices", "de", false, "premiumInvoices", R"(
        head 5 one
        title [Kundenkonto {year}|Ihr Prämienkonto {year}]
        cols 22 60 96 134 190r
        th Rechnung ; gestellt ; bezahlt ; Zeitraum ; CHF
        rule
        each invoices {number} ; {on} ; {paid} ; 3 Monate ; {part}
        rule
        tb [Prämien {year}|Bezahlte Prämien {year}] ; ; ; ; {total}
        gap 3
        dots davon obligatorische Krankenpflege ; {basic}
        dots (darin Unfalldeckung) ; {accident}
        dots davon freiwillige Zusätze ; {extra}
        small Vorjahr {before!}. Rückvergütung Umweltabgaben {levy!}, bereits verrechnet.)"},
    {"premiums", "r-dit", "fr", false, "premiums", R"(
        head 2 one
        bold Votre déclaration d'impôt {year}
        text [Pour l'année {year}, vos primes se sont élevées à {total!} ({basic!} pour l'assurance obligatoire, {extra!} pour les complémentaires).|Nous vous avons facturé {total!} de primes en {year}, dont {basic!} selon la LAMal et {extra!} selon la LCA.]
        text [Le canton a pris en charge {reduction!} à titre de réduction des primes; il vous reste donc {net!}.|Réduction individuelle des primes reçue du canton: {reduction!}. Primes nettes: {net!}.]
        text Votre participation aux coûts: {sharing!} (franchise {franchise!}, quote-part {retention!}).)"},
    {"premiums", "r-raccontato", "it", false, "premiums", R"(
        head 4 one
        title [Attestazione dei premi|Conferma premi e costi] {year}
        below {total!} ; Premi fatturati (LAMal {basic} + LCA {extra}) ; {reduction!} ; Riduzione dei premi del Cantone
        below {net!} ; Premi a carico dell'assicurato ; {sharing!} ; Partecipazione ai costi
        small Franchigia {franchise!}, aliquota percentuale {retention!}.)"},
};

const std::vector<Sheet> bills{
    {"bill", "r-claim", "de,fr", true, "claim", R"(
        head 6 one
        bold [Rückforderungsbeleg|Rechnung Tiers Garant] {number} // [Justificatif de remboursement|Facture tiers garant] {number}
        side Patient/in // Patient(e) ; {one} ; Geburtsdatum // Date de naissance ; {birth}
        side Rechnungssteller GLN // Auteur facture GLN ; {gln} ; Gesetz // Loi ; KVG // LAMal
        side Rechnungsdatum // Date de facture ; {dated} ; AHV/AVS ; {ahv}
        rule
        cols 22 44 64 148r 164r 190r
        th Rechnungsdatum // Date de facture ; Tarif ; Leistung // Prestation ; TP // Pts ; × ; Betrag // Montant
        each items {on} ; {code} ; {what} ; {points} ; {point} ; {part}
        rule
        side Tarif ambulant // Tarif ambulatoire ; {tariff} ; Medikamente // Médicaments ; {drugs}
        side Labor // Laboratoire ; {lab} ; Fälliger Betrag // Montant dû ; {total}
        small Bitte bezahlen Sie die Rechnung und senden Sie diesen Beleg Ihrer Krankenkasse. // Veuillez régler la facture et remettre ce justificatif à votre assureur.
        bill total {number})"},
    {"bill", "r-rates", "de", true, "instalmentBill", R"(
        head 6 one
        title [Rechnung {number} mit Teilzahlung|Honorarrechnung {number} (Ratenvereinbarung)]
        line {what}, {one}, Rechnungsdatum {dated}
        cols 22 150r 190r
        tr Zahnärztliche Arbeit ; {care} ;
        tr Technische Arbeit (Labor) ; {lab} ;
        tr Material ; {material} ;
        tb [Gesamtbetrag der Behandlung|Rechnungsbetrag] ; ; {total}
        each rates !line {no}, fällig am {due}: {rate}
        bill rate {number}-1)"},
    {"bill", "r-spitex", "de", false, "homeCare", R"(
        head 0 one
        title [Rechnung Pflegeleistungen|Monatsrechnung] {month} {year}, Nr. {number}
        line Klient/in {one}, {birth}. Datum {dated}
        cols 22 112r 146r 190r
        th Leistung nach Art. 7 KLV ; Minuten ; Ansatz/Std. ; CHF
        each items {what} ; {minutes} ; {rate} ; {part}
        tr Zur Abrechnung mit dem Versicherer ; ; ; {insurer}
        tr Restfinanzierung der Gemeinde ; ; ; {rest}
        rule
        tr Patientenbeteiligung {days} Tage × {day} ; ; ; {own}
        tr Pflegematerial (nicht kassenpflichtig) ; ; ; {material}
        tb [Rechnung an Sie|Betrag zu Ihren Lasten], zahlbar bis {due} ; ; ; {total}
        small Vollkosten Pflege: {full!}. Der Anteil des Versicherers wird direkt verrechnet.)"},
    {"bill", "r-care-home", "de", false, "careHome", R"(
        head 3 one
        title [Heimrechnung|Monatsrechnung Aufenthalt] {month}
        line Bewohner/in {one}, Pflegestufe {level}, Nr. {number}, {dated}
        cols 22 108r 130r 160r 190r
        th ; Ansatz ; Tage ; Bewohner/in ; Dritte
        rule
        tr Pension (Zimmer und Verpflegung) ; {boardday} ; {days} ; {board} ;
        tr Betreuungstaxe ; {supportday} ; {days} ; {support} ;
        tr Pflege: Anteil Krankenversicherer ; ; ; ; {insurer}
        tr Pflege: Anteil Kanton und Gemeinde ; ; ; ; {rest}
        tr Pflege: Selbstbehalt Bewohner/in ; {ownday} ; {days} ; {own} ;
        tr Coiffeur, Getränke, Telefon ; ; ; {extras} ;
        rule
        tb [Lastschrift|Zu Ihren Lasten] ; ; ; {total} ;
        text [Als Krankheitskosten gilt der Selbstbehalt Pflege von {own!}; Pension und Verbrauch sind Lebenshaltung.|Für die Steuern: Pflegekosten zu Ihren Lasten {own!}.]
        small Kosten insgesamt {cost!}, Pflegekosten {care!}.)"},
    {"bill", "r-optician", "de,fr", false, "optician", R"(
        head 4 one
        title [Verkaufsbeleg|Rechnung] {number} // [Facture|Quittance] {number}
        line Kundin/Kunde: {one}, {dated} // Client(e): {one}, {dated}
        each items !left {part} ; {what} ({code})
        rule
        left {sum} ; Zwischensumme // Sous-total
        left {-discount} ; Rabatt 10 % // Rabais 10 %
        left {full} ; Auftragswert inkl. MWST // Valeur de la commande, TVA comprise
        left {-insurer} ; Direkt mit Ihrer Zusatzversicherung verrechnet // Pris en charge par votre assurance complémentaire
        leftsum {own} ; [Von Ihnen bezahlt (Karte)|Bezahlt mit Karte] // [Payé par vous (carte)|Montant payé par carte]
        left {vat} ; darin MWST 8.1 % // dont TVA 8.1 %)"},
    {"bill", "r-farmacia", "it", false, "pharmacyColumns", R"(
        head 1 one
        title [Acquisti in farmacia|Riepilogo annuo degli acquisti] {year}
        line Cliente {card}: {one}
        cols 22 68r 98r 112 160r 190r
        th Mese ; A suo carico ; Cassa malati ; Mese ; A suo carico ; Cassa malati
        rule
        each rows {month1} ; {free1?} ; {covered1?} ; {month2} ; {free2?} ; {covered2?}
        rule
        entry Fatturato direttamente alla cassa malati ; {covered}
        sum [Pagato da lei, non rimborsato|Totale a suo carico] ; {free}
        small Totale acquisti: {all!}.)"},
    {"bill", "r-rappel", "fr", false, "reminder", R"(
        head 3 one
        title [Deuxième rappel|Rappel de paiement]
        text [Sauf erreur, le solde de notre facture {number} du {billed} nous est encore dû.|Notre facture no {number} du {billed} n'a été payée qu'en partie.] Patient(e): {one}
        dots Honoraires et frais de laboratoire, facture du {billed} ; {total}
        dots Votre acompte du {part} ; {-paid}
        dots Solde de la facture ; {left}
        dots Frais de rappel ; {fee}
        sum A payer jusqu'au {due} ; {open!}
        small Sans paiement dans ce délai, nous engagerons une poursuite.)"},
    {"bill", "r-dates", "de", true, "sessionDates", R"(
        head 5 one
        bold [Rechnung|Honorarnote] {number}
        text [{one} besuchte {count} Sitzungen zu {minutes} Minuten an folgenden Tagen:|{count} Behandlungen ({minutes} Min.) von {one}:]
        cols 22 64 106 148
        each rows {on1} ; {on2} ; {on3} ; {on4}
        gap 2
        mid {count} × {rate} ; {sum}
        mid Bericht an die zuweisende Stelle ; {report}
        mid [Honorar|Rechnungsbetrag], zahlbar bis {due} ; {total!}
        small Kurzfristig abgesagte Termine: {fee!}.
        bill total {number})"},
};

} // namespace

std::vector<Layout> riverHealthPapers() { return scripted({premiums, bills}); }

} // namespace corpus
