#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of letters about money that hold nothing to enter.

namespace corpus {
namespace {

const std::vector<Sheet> letters{
    {"other", "l-meeting", "de", false, "meeting", R"(
        head 2 one
        title Einladung zur Generalversammlung vom {meeting}
        line Aktionärs-Nr. {holder}, eingetragene Namenaktien: {count} zu nominal {nominal!}
        bold Traktanden und Anträge
        text 1. Genehmigung von Lagebericht und Jahresrechnung {year} (Jahresgewinn {profit!})
        text 2. [Der Verwaltungsrat beantragt eine Dividende von {each!} je Aktie. Auf Ihren Bestand entfielen damit {gross!} brutto, nach 35 % Verrechnungssteuer ({tax!}) noch {net!}.|Antrag: Ausschüttung von {each!} brutto je Namenaktie, für Ihre {count} Aktien somit {gross!} (netto {net!}), zahlbar ab {due}.]
        text 3. Entlastung des Verwaltungsrats und Vergütungen von höchstens {board!}
        small Bitte senden Sie die Antwortkarte mit Ihrer Stimmrechtsvollmacht zurück.)"},
    {"other", "l-assemblee", "fr", false, "meeting", R"(
        head 5 one
        bold Convocation à l'assemblée générale ordinaire du {meeting}
        cols 22 150r 190r
        th Objet ; ; Montant
        rule
        tr Bénéfice de l'exercice {year} ; ; {profit}
        tr Dividende proposé par action ; ; {each}
        tr Vos actions nominatives ; {count} ;
        tr Dividende brut proposé ; ; {gross}
        tr Impôt anticipé 35 % ; ; {-tax}
        tr Versement net prévu le {due} ; ; {net}
        small Sous réserve de l'approbation par l'assemblée. Ceci n'est pas une attestation fiscale.)"},
    {"other", "l-grant", "de", false, "shareGrant", R"(
        head 1 one
        title [Zuteilung Mitarbeiteraktien|Ihre Teilnahme am Beteiligungsplan] {year}
        text Liebe Kollegin, lieber Kollege
        text [Wir freuen uns, Ihnen per {grant} {count} Mitarbeiteraktien zuzuteilen. Der Kurs lag bei {price!}, Ihr Vorzugspreis beträgt {own!} je Aktie.|Im Rahmen des Plans haben Sie {count} Aktien zu {own!} statt {price!} gezeichnet.]
        entry Marktwert der Zuteilung ; {worth}
        entry Von Ihnen zu bezahlen ; {paid}
        entry Zielbonus, nicht garantiert ; {bonus}
        text Die Aktien sind bis {free} gesperrt. Der geldwerte Vorteil wird mit dem Lohnausweis bescheinigt; dieses Schreiben dient nur Ihrer Information.)"},
    {"other", "l-reminder", "de", false, "creditReminder", R"(
        head 3 one
        title [2. Mahnung|Zahlungserinnerung] – Ihre Kreditrate
        text Leider haben wir für die Rate vom {billed} noch keine Zahlung erhalten. Ihr Kredit steht mit {rest!} zu Buche.
        cols 22 190r
        tr Rückständige Rate ; {open}
        tr Verzugszins 9 % seit {billed} ; {late}
        tr Mahnspesen ; {fee}
        rule
        tb Innert zehn Tagen zu überweisen ; {total}
        small Hat sich Ihre Zahlung mit diesem Brief gekreuzt, betrachten Sie ihn als gegenstandslos.)"},
    {"other", "l-sollecito", "it", false, "creditReminder", R"(
        head 6 one
        bold [Sollecito di pagamento|Secondo richiamo]
        text [La rata del {billed} non risulta ancora saldata. La preghiamo di versare {total!} entro dieci giorni (rata {open!}, interessi di mora {late!}, spese {fee!}).|Le ricordiamo che la rata di {open!} del {billed} è scaduta. Con interessi di mora di {late!} e spese di {fee!} l'importo dovuto è di {total!}.]
        text Residuo del credito: {rest!}.)"},
    {"other", "l-offer", "de", false, "loanOffer", R"(
        head 0 both
        title [Finanzierungsvorschlag für Ihr Eigenheim|Unverbindliche Hypothekarofferte]
        line Kaufpreis {price!}, Eigenmittel {own!}, Hypothek {loan!}
        cols 22 62 100r 128r 160r 190r
        th Modell ; ; Hypothek ; Zinssatz ; [Zins pro Jahr|Jahreszins] ; pro Monat
        rule
        each models {name} ; ; {loan} ; {rate} ; {year} ; {month}
        rule
        entry Amortisation pro Jahr ; {redemption}
        entry Unterhalt und Nebenkosten 1 % ; {upkeep}
        small Die Zinssätze sind indikativ und gelten am Tag des Ausdrucks. Der Abschluss setzt eine Prüfung voraus.)"},
    {"other", "l-proposition", "fr", false, "loanOffer", R"(
        head 4 both
        title [Proposition de financement|Offre de crédit hypothécaire (sans engagement)]
        text Pour l'achat de votre logement au prix de {price!}, avec {own!} de fonds propres, nous pouvons vous proposer:
        per models
        bold {name}, {rate}
        entry Montant du prêt ; {loan}
        entry Intérêts par an ; {year}
        endper
        small Amortissement annuel {redemption!}. Offre valable dix jours.)"},
    {"other", "l-advice", "de", false, "advice", R"(
        head 5 both
        bold [Ihr Beratungsgespräch: Zusammenfassung|Gedanken zu Ihrer Vorsorge]
        text Besten Dank für das angenehme Gespräch. Die folgenden Zahlen sind Beispiele und beruhen auf Annahmen.
        cols 22 120r 150
        tr Gewünschtes Einkommen nach der Pensionierung ; {need} ; pro Jahr
        tr AHV-Renten, geschätzt ; {ahv} ; pro Jahr
        tr Rente der Pensionskasse, geschätzt ; {fund} ; pro Jahr
        tb Einkommenslücke ; {gap} ; pro Jahr
        text [Mit einem Einkauf von {buyin!} in die Pensionskasse könnten Sie rund {saved!} Steuern sparen. Auch Einzahlungen von {pillar!} in die Säule 3a lohnen sich.|Empfehlung: jährlich {pillar!} in die Säule 3a, gestaffelte Einkäufe von {buyin!}; mögliche Steuerersparnis {saved!}.]
        text Ein Sparkapital von {capital!} brächte zurzeit etwa {interest!} Zins im Jahr. Unser Honorar für den Finanzplan beträgt {fee!}.)"},
    {"other", "l-order", "de", false, "order", R"(
        head 3 one
        title [Börsenabrechnung|Ausführungsbestätigung] – Kauf
        line Depot {depot}, Abschluss {traded}, Valuta {value}
        cols 22 60 110r 150r 190r
        th Valor ; Titel ; Anzahl ; Kurs ; Betrag
        rule
        tr {valor} ; Namenaktie Sägewerk Lotus ; {count} ; {price} ; {worth}
        tr ; Courtage ; ; ; {broker}
        tr ; Eidg. Umsatzabgabe ; ; ; {stamp}
        rule
        tb ; Zulasten Konto {iban} ; ; ; {total})"},
    {"other", "l-ordine", "it", false, "order", R"(
        head 1 one
        title [Conferma d'ordine|Nota di contrattazione]: acquisto
        colon Deposito ; {depot}
        colon Data di esecuzione ; {traded}
        entry {count} azioni, valore n. {valor}, corso {price} ; {worth}
        entry Commissione ; {broker}
        entry Tassa di negoziazione ; {stamp}
        sum A suo debito, valuta {value} ; {total})"},
    {"other", "l-half-year", "de", false, "halfYear", R"(
        head 4 one
        title [Semesterabschluss|Zwischenabschluss] per {half}
        line Sparkonto {iban}
        cols 22 150r 190r
        th ; Belastung ; Gutschrift
        rule
        tr Saldo am {start} ; ; {opening}
        tr Zins 1. Semester ; ; {interest}
        tr Kontoführung 1. Semester ; {fee} ;
        tb Saldo am {half} ; ; {balance}
        text Dies ist kein Steuerausweis. Die Bescheinigung für die Steuererklärung erhalten Sie im Januar.)"},
    {"other", "l-plan", "de", false, "paymentPlan", R"(
        head 2 both
        title [Zahlungsplan {next}|Vorschau Hypothekarzahlungen {next}]
        line Hypothek {number} über {loan!}, Zinssatz ab 1. Januar {next}: {rate}
        cols 22 90r 140r 190r
        th Fällig am ; Zins ; Amortisation ; Belastung
        rule
        each payments {on} ; {part} ; {back} ; {due}
        rule
        tb Voraussichtlich {next} ; {year} ; {back} ; {due}
        small [Die Angaben gelten für das kommende Jahr und dienen Ihrer Planung.|Planwerte, keine Bescheinigung für die Steuern.])"},
    {"other", "l-plan-fr", "fr", false, "paymentPlan", R"(
        head 6 both
        title [Plan de paiement {next}|Prévision de vos charges hypothécaires {next}]
        colon Prêt ; {number}, {loan!}, {rate} dès janvier {next}
        each payments !entry Échéance du {on}: intérêts ; {part}
        each payments !entry Échéance du {on}: amortissement ; {back}
        sum Total à prévoir en {next} ; {due}
        small Chiffres indicatifs; ce document n'est pas une attestation fiscale.)"},
    {"other", "l-leasing", "de", false, "leasing", R"(
        head 6 one
        title [Leasing-Jahresübersicht|Ihr Leasingvertrag im Jahr] {year}
        line Vertrag {number}, {car}
        entry Barkaufpreis ; {price}
        entry Kaution ; {deposit}
        entry Leasingraten (12 x {month}) ; {paid}
        entry darin enthaltener Zins ; {share}
        entry Kalkulatorischer Restwert {end} ; {rest}
        text [Private Leasingzinsen sind keine Schuldzinsen; weder Raten noch Restwert gehören in die Steuererklärung.|Leasingraten und -zinsen eines Privatfahrzeugs sind steuerlich nicht abziehbar; das Fahrzeug gehört der Leasinggeberin.])"},
    {"other", "l-leasing-fr", "fr", false, "leasing", R"(
        head 0 one
        bold Contrat de leasing {number}: récapitulatif {year}
        text [Vous avez versé douze mensualités de {month!}, soit {paid!}, dont {share!} au titre des intérêts. La valeur résiduelle de la {car} est de {rest!}.|Total des mensualités {year}: {paid!} (12 x {month!}), intérêts compris ({share!}). Valeur résiduelle: {rest!}.]
        text Les intérêts de leasing d'un véhicule privé ne sont pas déductibles. La caution de {deposit!} vous sera rendue.)"},
};

} // namespace

std::vector<Layout> lakeLetters() { return scripted({letters}); }

} // namespace corpus
