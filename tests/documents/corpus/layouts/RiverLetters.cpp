#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of pensions, of life insurers and of letters that yield nothing.

namespace corpus {
namespace {

const std::vector<Sheet> pensions{
    // Twelve payments as on a calendar, the date over each amount.
    {"pension", "r-calendar", "it", false, "pensionCalendar", R"(
        head 1 one
        title [Rendite versate nel|Conferma delle rendite] {year}
        line Beneficiario/a: {one}, nato/a il {birth}, {ahv}
        grid 6
        each months !cell {on} ; {part}
        endgrid
        side Rendita propria ; {own} ; Rendita per figli ; {kid}
        gap 3
        band [Rendite imponibili|Totale delle rendite versate] ; {amount!}
        small Capitale di previdenza al momento del pensionamento: {assets!}.)"},
    {"pension", "r-el", "de,fr", false, "supplement", R"(
        head 0 one
        title [Leistungsbestätigung|Zusammenstellung Ihrer Leistungen] {year} // [Attestation de prestations|Relevé de vos prestations] {year}
        line {one}, {birth}, {ahv}
        cols 22 112r 150r 190r
        th Leistung // Prestation ; pro Monat // par mois ; Jahr {year} // Année {year} ; steuerbar // imposable
        rule
        tr Altersrente der AHV // Rente de vieillesse AVS ; {month} ; {pension} ; ja // oui
        tr Ergänzungsleistung zur AHV // Prestation complémentaire à l'AVS ; {el} ; {elyear} ; nein // non
        tr EL: vergütete Krankheitskosten // PC: frais de maladie remboursés ;  ; {costs} ; nein // non
        rule
        tr Rente und EL // Rente et PC ;  ; {both} ; )"},
    {"pension", "r-avs", "it", false, "supplement", R"(
        head 5 one
        bold [Conferma per le imposte|Le Sue prestazioni nel] {year}
        text Gentile assicurata, egregio assicurato
        text [Nel {year} Le abbiamo versato una rendita di vecchiaia AVS di complessivi {pension!} ({month!} al mese).|La Sua rendita AVS è stata di {month!} al mese, vale a dire {pension!} in tutto il {year}.]
        text [Ha inoltre ricevuto {elyear!} di prestazioni complementari e {costs!} per spese di malattia, esenti da imposte.|Le prestazioni complementari di {elyear!} e le spese di malattia rimborsate ({costs!}) non sono imponibili.]
        small Assicurato/a: {one}, {birth}, {ahv})"},
    {"pension", "r-arrears", "de", false, "arrears", R"(
        head 5 one
        bold [Abrechnung Ihrer Invalidenrente|Steuerbescheinigung Invalidenrente] {year}
        line Versicherte Person {one}, {ahv}. Verfügung vom {decided}
        cols 22 104r 124r 190r
        th Zeitraum ; pro Monat ; Monate ; CHF
        tr Nachzahlung {from} bis {until} ; {before} ; {earlier} ; {arrears}
        tr Laufende Rente Januar bis Dezember {year} ; {now} ; 12 ; {current}
        rule
        tb [Renten, im Jahr {year} zu versteuern|Steuerbare Renten {year} (mit Nachzahlung)] ; ; ; {total}
        tr Verrechnet mit Vorschüssen des Sozialamtes ; ; ; {-offset}
        tr An Sie überwiesen ; ; ; {paid}
        small Die Nachzahlung für mehrere Jahre wird zum Satz einer jährlichen Rente besteuert.)"},
    {"pension", "r-annuity", "de,fr", false, "annuity", R"(
        head 2 one
        title [Leibrente: Bescheinigung|Ihre private Leibrente] {year} // [Rente viagère: attestation|Votre rente viagère privée] {year}
        line {one}, {birth}, Police {number}
        entry Garantierte Rente (4 Zahlungen) // Rente garantie (4 versements) ; {guaranteed}
        entry Überschussrente // Rente excédentaire ; {bonus}
        sum [Im Jahr ausbezahlte Leibrente|Ausbezahlte Renten] {year} // [Rente viagère versée pendant l'année|Rentes versées] {year} ; {amount~}
        entry Davon steuerbar 40 % // Part imposable 40 % ; {taxable}
        gap 3
        entry Einmaleinlage bei Abschluss // Prime unique à la conclusion ; {capital})"},
    {"pension", "r-quarter-rates", "de", false, "pensionQuarters", R"(
        head 3 one
        title [Jahresbestätigung der Pensionszahlungen|Mitteilung über Rentenbezüge] {year}
        line {one}, geb. {birth}, VSNR {number}; Monatspension EUR {month}, 14-mal jährlich
        cols 22 74r 116r 150r 190r
        th ; Zahlungen ; EUR ; Kurs EUR/CHF ; CHF
        rule
        each quarters {quarter} ; {count} ; {euros} ; {rate} ; {francs}
        rule
        tb {year} ; 14 ; {euros} ; ; {amount}
        text [Die Pension ist im Wohnsitzstaat zu versteuern; massgebend ist der Betrag in Franken: {amount!}.|Für Ihre Steuererklärung in der Schweiz: {amount!} (Summe der Frankenbeträge).])"},
    {"pension", "r-couple", "de", false, "pensionOfBoth", R"(
        head 6 both
        title [Rentenbescheinigungen|Bezogene Renten des Ehepaares] {year}
        per people
        bold {who}, geboren am {born}
        line AHV-Nr. {number}, {what} seit {since}
        below {month!} ; pro Monat ; {months} ; Anzahl Monate ; {part!} ; ausgerichtet {year}
        small Anwartschaft Partnerrente: {spouse!} im Monat.
        gap 3
        endper
        rule
        entry [Beide Renten|Zusammen] ; {both})"},
    {"pension", "r-withheld", "de", false, "withheldPension", R"(
        head 4 one
        title [Rentenabrechnung {year}|Jahresabrechnung Ihrer Rente {year}]
        line {one}, {birth}. Rente im Monat {month!}
        cols 22 34 190r
        tr + ; Altersrente, steuerbarer Betrag, 12 Monate ; {amount}
        tr – ; [in Ihrem Auftrag bezahlt: Krankenkassenprämien|Krankenkasse (Dauerauftrag)] ; {premium}
        tr – ; Beitrag Rentnervereinigung ; {union}
        rule
        tb = ; [auf Ihr Konto überwiesen|Gutschrift auf Ihrem Konto] ; {paid}
        text Keine Abzüge bewirken eine Kürzung der steuerbaren Rente.)"},
};

const std::vector<Sheet> insurers{
    {"insurance", "r-units", "de", false, "unitPolicy", R"(
        head 0 one
        title [Fondsgebundene Lebensversicherung: Stand {end}|Jahresauszug Fondspolice {year}]
        line Police {number}, versicherte Person {one}, freie Vorsorge (3b)
        cols 22 112r 146r 190r
        th Fonds ; Anteile ; Kurs CHF ; Wert CHF
        rule
        each funds {name} ; {units} ; {price} ; {value}
        rule
        tr [Fondsvermögen|Wert der Anteile] ; ; ; {value}
        tr Nicht getilgte Abschlusskosten ; ; ; {-cost}
        tb [Rückkaufswert am Jahresende|Steuerwert (Rückkaufswert)] ; ; ; {surrender}
        gap 3
        entry [Garantierte Versicherungssumme|Versicherungssumme bei Ablauf] ; {sum}
        entry Leistung im Todesfall ; {death}
        entry [Prämien im Jahr {year} bezahlt|Einbezahlte Jahresprämie] ; {premium})"},
    {"insurance", "r-polizza", "it", false, "unitPolicy", R"(
        head 2 one
        bold [Valore fiscale della Sua polizza|Polizza vita: dati per le imposte] {number}
        text [Al {end} le quote valevano {value!}; dedotte spese non ancora ammortizzate di {cost!}, il valore di riscatto è di {surrender!}.|Valore di riscatto al {end}: {surrender!}, ossia quote per {value!} meno {cost!} di spese.]
        text [Nel {year} ha versato premi per {premium!}. La somma assicurata è di {sum!}, in caso di decesso {death!}.|La polizza garantisce una somma assicurata di {sum!} ({death!} in caso di decesso). Premi incassati nel {year}: {premium!}.])"},
    {"insurance", "r-accident-cover", "de,fr", false, "accidentCover", R"(
        head 1 one
        title [Unfallversicherung: Prämienbestätigung|Bestätigung bezahlter Prämien (private Unfallversicherung)] {year} // [Assurance-accidents: attestation de primes|Attestation de primes payées (assurance-accidents privée)] {year}
        line Police {number}
        entry Versicherte Person // Personne assurée ; {one}
        entry Todesfallkapital // Capital en cas de décès ; {death}
        entry Invaliditätskapital // Capital en cas d'invalidité ; {disability}
        entry Spitaltaggeld // Indemnité journalière d'hospitalisation ; {day}
        gap 3
        dots {one} ; {first}
        dots {two} ; {second}
        sum [Bezahlte Prämie Unfallversicherung|Unfallprämie im Jahr] {year} // [Prime d'assurance-accidents payée|Primes accidents de l'année] {year} ; {premium~})"},
    {"insurance", "r-premium-bill", "de", true, "premiumBill", R"(
        head 6 one
        title [Prämienrechnung {year}|Jahresprämie {year}] Lebensversicherung
        line Police {number}, Ablauf {expiry}, Versicherungssumme {sum!}
        entry Sparprämie ; {saving}
        entry Risikoprämie (Tod und Prämienbefreiung) ; {risk}
        sum [Prämie|Jahresprämie] zahlbar bis {due} ; {premium}
        small Bei halbjährlicher Zahlung: zweimal {half!}.
        bill premium {number})"},
};

const std::vector<Sheet> nothings{
    {"other", "r-fund-statement", "de,fr", false, "fundStatement", R"(
        head 0 one
        title [Persönlicher Ausweis|Vorsorgeausweis] {end} // [Certificat personnel de prévoyance|Certificat de prévoyance] {end}
        line {one}, {birth}, {ahv}
        cols 22 150r 190r
        tr Jahreslohn / versicherter Lohn // Salaire annuel / assuré ; {salary} ; {insured}
        tr Beitrag Arbeitnehmer pro Jahr // Cotisation annuelle de l'employé ;  ; {own}
        tr Beitrag Arbeitgeber pro Jahr // Cotisation annuelle de l'employeur ;  ; {employer}
        tr Altersguthaben / Austrittsleistung // Avoir de vieillesse / sortie ; {assets} ; {exit}
        rule
        th Pensionierung mit // Retraite à ; Kapital // Capital ; Rente pro Jahr // Rente annuelle
        tr 58 ; {at58} ; {pension58}
        tr 65 ; {at65} ; {pension65}
        rule
        tr Invalidenrente pro Jahr // Rente d'invalidité annuelle ;  ; {disability}
        tr Ehegattenrente / Waisenrente pro Jahr // Rente de conjoint / d'orphelin annuelle ; {spouse} ; {orphan}
        tr Möglicher Einkauf // Rachat possible ;  ; {possible}
        tr Für Wohneigentum verfügbar // Montant disponible pour le logement ;  ; {home}
        small Hochrechnung mit 1.5 % Zins, ohne Gewähr. // Projection avec intérêt de 1.5 %, sans garantie.)"},
    {"other", "r-capital", "de", false, "capitalPaid", R"(
        head 5 one
        bold [Auszahlung Ihres Alterskapitals|Kapitalbezug statt Rente]
        text [Am {when} haben wir Ihnen Ihr Altersguthaben als Kapital ausbezahlt. Eine Rente wird nicht ausgerichtet.|Wie gewünscht erhalten Sie statt der Rente das ganze Kapital (Valuta {when}).]
        entry Altersguthaben ; {capital}
        entry Zins bis zur Auszahlung ; {interest}
        sum Kapitalleistung ; {paid~}
        text Die Kapitalleistung haben wir der Eidgenössischen Steuerverwaltung gemeldet. Sie wird getrennt vom übrigen Einkommen besteuert; Sie erhalten dafür eine besondere Rechnung.)"},
    {"other", "r-el-decision", "de", false, "supplementDecision", R"(
        head 3 one
        title [Verfügung Ergänzungsleistungen|Berechnungsblatt Ergänzungsleistungen] ab {start}
        line {one}, {ahv}
        cols 22 150r 190r
        tb Anerkannte Ausgaben ; ;
        tr Lebensbedarf ; {need} ;
        tr Mietzins ; {rent} ;
        tr Prämie obligatorische Krankenpflegeversicherung ; {premium} ; {costs}
        tb Anrechenbare Einnahmen ; ;
        tr Rente der AHV ; {avs} ;
        tr Rente der Pensionskasse ; {fund} ;
        tr Zinsen aus Sparguthaben ; {interest} ; {income}
        rule
        tb Ausgabenüberschuss im Jahr ; ; {gap}
        entry Ergänzungsleistung im Monat ; {month}
        small Ergänzungsleistungen sind steuerfrei. Gegen diese Verfügung kann innert 30 Tagen Einsprache erhoben werden.)"},
    {"other", "r-wage-agreement", "de", false, "wageAgreement", R"(
        head 1 one
        title [Lohnvereinbarung|Nachtrag zum Arbeitsvertrag|Ihr Lohn] {next}
        text [Wir freuen uns, Ihnen für {next} folgenden Lohn anzubieten.|Aufgrund Ihrer Leistungen passen wir Ihren Lohn per 1. Januar {next} an.]
        entry Bruttolohn im Monat bisher ; {before}
        sum Bruttolohn im Monat neu ; {month}
        entry Jahreslohn (13-mal) ; {year13}
        entry Bonus bei Erreichen aller Ziele ; {bonus}
        entry Spesenpauschale im Monat ; {lump}
        text Bitte senden Sie uns ein unterschriebenes Exemplar zurück.)"},
    {"other", "r-next-premiums", "de,fr", false, "nextPremiums", R"(
        head 2 both
        title [Ihre Prämien im Jahr|Prämienmitteilung für das Jahr] {next} // [Vos primes pour|Communication des primes] {next}
        cols 22 96r 124r 152r 190r
        th Versicherte Person // Personne assurée ; KVG bisher // LAMal actuelle ; KVG neu // LAMal nouvelle ; VVG // LCA ; pro Monat neu // par mois, dès janvier
        rule
        each people {who} ; {old} ; {new} ; {extra} ; {sum}
        rule
        tb ; ; ; ; {sum}
        text Sie können bis 30. November auf Ende Jahr kündigen oder die Franchise ändern. // Vous pouvez résilier ou changer de franchise jusqu'au 30 novembre.)"},
    {"other", "r-rise", "de", false, "pensionRise", R"(
        head 5 one
        bold [Neue Rente ab Januar {next}|Anpassung Ihrer Rente]
        text [Ihre monatliche Rente steigt auf den 1. Januar {next} von {before!} auf {month!}.|Der Stiftungsrat hat eine Teuerungszulage beschlossen: Statt {before!} erhalten Sie ab Januar {next} monatlich {month!}.]
        text Wir überweisen sie wie bisher auf Ihr Konto {account}. Haben Sie eine neue Adresse oder Bankverbindung, melden Sie uns dies bitte bis am 10. des Vormonats.
        text Die Rentenbescheinigung für die Steuern {year} erhalten Sie separat im Februar.)"},
    {"other", "r-contents", "de", true, "contentsBill", R"(
        head 6 one
        title Prämienrechnung [Hausrat- und Haftpflichtversicherung|Haushaltversicherung]
        line Police {number}, Selbstbehalt {excess!}
        cols 22 130r 190r
        th Versichert ; Summe ; Prämie
        tr Hausrat zum Neuwert ; {sum} ; {contents}
        tr Privathaftpflicht ; {limit} ; {liability}
        tr Glasbruch ; ; {glass}
        tr Eidg. Stempelabgabe 5 % ; ; {stamp}
        tb Zu zahlen bis {due} ; ; {total}
        bill total {number})"},
    {"other", "r-acomptes", "fr", false, "taxInstalments", R"(
        head 0 both
        title [Acomptes d'impôt|Bordereau provisoire] {year}
        text Revenu imposable présumé: {income!}. Fortune imposable présumée: {fortune!}.
        cols 22 40 190r
        th No ; Échéance ; Montant
        each parts {no} ; {due} ; {part}
        rule
        tb ; Total provisoire (canton et commune) ; {total}
        small Le décompte final sera établi après la taxation.)"},
    {"other", "r-offer", "de", false, "lifeOffer", R"(
        head 4 one
        title [Offerte Lebensversicherung|Ihr Vorschlag: gemischte Lebensversicherung]
        line Antragsteller/in {one}, geb. {birth}
        entry Jahresprämie ; {premium}
        entry Versicherungssumme ; {sum}
        cols 22 80r 135r 190r
        th Ende Jahr ; Prämien bis dann ; Rückkaufswert (Prognose) ; Todesfallleistung
        each years {years} ; {paid} ; {surrender} ; {death}
        small Mögliche Ablaufleistung bei 4 % Rendite: {possible!}. Unverbindlich, kein Vertrag.)"},
};

} // namespace

std::vector<Layout> riverLetterPapers() { return scripted({pensions, insurers, nothings}); }

} // namespace corpus
