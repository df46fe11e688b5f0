#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of employers, pensions, insurers and pension funds.

namespace corpus {
namespace {

const std::vector<Sheet> salaries{
    {"salary", "v-own-print", "de", false, "wageSocialSplit", R"(
        head 4 one
        title [Salärausweis|Jahresabrechnung Salär|Lohnzusammenzug] {year}
        line {one}, geboren {birth}, Pers.-Nr. {#5}, beschäftigt {from} bis {until}
        cols 22 110r 150r 190r
        tr Monatslohn 12 × {month} ; ; {year12} ;
        tr 13. Monatslohn ; ; {thirteenth} ;
        tr [Erfolgsbeteiligung|Einmalige Vergütung] ; ; {bonus?} ;
        tr Familienzulagen ; ; {children?} ;
        tb [Lohn vor Abzügen (brutto)|Summe aller Löhne, brutto] ; ; ; {gross}
        tr AHV/IV/EO 5.3 % ; ; {-avs} ;
        tr Arbeitslosenversicherung 1.1 % ; ; {-alv} ;
        tr Nichtberufsunfall (NBU) ; ; {-nbu} ;
        tr [Berufliche Vorsorge, Anteil Arbeitnehmer|Pensionskasse, Ihr Anteil] ; ; {-bvg} ;
        tb [Lohn nach Abzügen (netto)|Für die Steuern massgebend, netto] ; ; ; {net}
        tr Krankentaggeld ; ; {-sick} ;
        tr Vergütete Auslagen gemäss Belegen ; ; {expenses} ;
        tb [An Sie überwiesen|Bankvergütung im Jahr] ; ; ; {payout})"},
    {"salary", "v-months", "de", false, "wageMonths", R"(
        head 0 one
        title [Lohnkonto|Persönliches Lohnblatt] {one}, Jahr {year}
        line AHV-Nr. {ahv}, geb. {birth}
        cols 22 68r 94r 118r 144r 164r 190r
        th Monat ; Brutto ; [Sozialvers.|AHV/ALV/NBU] ; PK ; Netto ; Spesen ; Auszahlung
        rule
        each months {month} ; {gross} ; {social} ; {bvg} ; {net} ; {expenses} ; {payout}
        rule
        tb Total ; {gross} ; {social} ; {bvg} ; {net} ; {expenses} ; {payout}
        small Im November inbegriffen: 13. Monatslohn. PK = [Pensionskasse|berufliche Vorsorge].)"},
    {"salary", "v-trimestres", "fr", false, "wageQuarters", R"(
        head 3 one
        title [Récapitulation annuelle des salaires|Compte salaire annuel] {year}
        line {one}, né(e) le {birth}, AVS {ahv}
        cols 22 82r 108r 134r 160r 190r
        th ; 1er trim. ; 2e trim. ; 3e trim. ; 4e trim. ; Année
        rule
        tr [Rémunération brute|Salaires bruts] ; {gross1} ; {gross2} ; {gross3} ; {gross4} ; {gross}
        tr [AVS/AI/APG, AC, AANP|Charges sociales employé] ; {social1} ; {social2} ; {social3} ; {social4} ; {social}
        tr [Prévoyance (LPP)|2e pilier, part employé] ; {bvg1} ; {bvg2} ; {bvg3} ; {bvg4} ; {bvg}
        tb [Rémunération nette|Salaires nets] ; {net1} ; {net2} ; {net3} ; {net4} ; {net}
        tr Frais remboursés ; {expenses1} ; {expenses2} ; {expenses3} ; {expenses4} ; {expenses}
        tr Versé ; {payout1} ; {payout2} ; {payout3} ; {payout4} ; {payout}
        small 13e salaire compris dans le 4e trimestre.)"},
    {"salary", "v-cedolino", "it", false, "wage", R"(
        head 5 one
        title [Riepilogo annuo dei salari|Foglio paga annuo] {year}
        colon Collaboratore/trice ; {one}
        colon Nato/a il ; {birth}
        cols 22 36 120r 155r 190r
        th Cod. ; Voce ; ; Importo ; Totale
        rule
        tr 100 ; Salario mensile ; {month} × 12 ; {year12} ;
        tr 120 ; Tredicesima ; ; {thirteenth} ;
        tr 150 ; Premio di fedeltà ; ; {bonus?} ;
        tr 200 ; Assegni familiari ; ; {children?} ;
        tb ; [Totale lordo|Retribuzione lorda] ; ; ; {gross}
        tr 301 ; AVS/AI/IPG ; 5.3% ; {avs} ;
        tr 302 ; AD ; 1.1% ; {alv} ;
        tr 303 ; Infortuni non professionali ; ; {nbu} ;
        tb ; Totale AVS/AI/IPG/AD/AINP ; ; ; {-social}
        tr 310 ; [Cassa pensioni, quota dipendente|LPP contributo ordinario] ; ; {-bvg} ;
        tb ; [Retribuzione netta|Totale netto] ; ; ; {net}
        tr 401 ; Indennità malattia (premio) ; ; {-sick} ;
        tr 500 ; Rimborso spese ; ; {expenses} ;
        tb ; Bonifico ; ; ; {payout})"},
    {"salary", "v-board", "de", false, "board", R"(
        head 2 one
        money hyphen
        bold [Abrechnung Verwaltungsrat|Entschädigung als Mitglied des Verwaltungsrates] {year}
        text [Sehr geehrtes Mitglied, für Ihre Steuererklärung stellen wir Ihnen Ihre Bezüge zusammen.|Wie im Reglement vorgesehen, haben wir Ihnen folgende Bezüge abgerechnet.]
        dots [Festes Honorar|Grundhonorar] ; {fee}
        dots Sitzungsgelder {count} × {sitting} ; {sittings}
        sum [Honorare brutto|Bruttobezüge] ; {gross}
        dots AHV, IV, EO und ALV ; {-social}
        sum [Honorare netto|Nettobezüge] ; {net}
        dots Reiseauslagen (nach Beleg) ; {travel}
        sum Vergütet ; {payout}
        small Keine Pensionskasse. {one}, geboren {birth}, {ahv}.)"},
    {"salary", "v-employers", "de", false, "wagesOfBoth", R"(
        head 1 both
        title [Zusammenzug der Löhne|Lohnzusammenstellung Ehepaar] {year}
        per jobs
        band {firm} ; {who}
        line AHV {number}, geb. {born}
        side Bruttolohn ; {gross} ; [Abzüge AHV bis NBU|AHV/IV/EO/ALV/NBU] ; {social}
        side Spesen ; {expenses} ; [Abzug Pensionskasse|PK-Beitrag] ; {bvg}
        side Auszahlung ; {payout} ; Nettolohn ; {net}
        gap 3
        endper
        rule
        entry Nettolöhne der Familie ; {net})"},
    {"salary", "v-principality", "de", false, "principalityWage", R"(
        head 6 one
        title [Lohnbescheinigung zuhanden der Steuerverwaltung|Jahreslohnblatt] {year}
        line {one}, geb. {birth}, wohnhaft {home}
        mid [Gehalt samt 13. Monatsgehalt|Jahresgehalt brutto inkl. Zulagen] ; {gross}
        mid – AHV/IV/FAK ; {avs}
        mid – Arbeitslosenversicherung ; {alv}
        mid – Nichtbetriebsunfall ; {nbu}
        mid = Beiträge AHV, IV, FAK, ALV, NBU ; {social}
        mid – [Pensionsversicherung|Betriebliche Personalvorsorge] ; {bvg}
        rule
        mid [Gehalt netto|Verbleibendes Nettogehalt] ; {net}
        mid – Lohnsteuer, der Steuerverwaltung abgeliefert ; {wagetax}
        mid – Krankengeldversicherung ; {sick}
        small Fürstentum Liechtenstein. Ersatz von Auslagen {expenses!}, nicht im Gehalt enthalten.)"},
};

const std::vector<Sheet> pensions{
    {"pension", "v-risen", "de", false, "risenPension", R"(
        head 5 one
        bold [Ihre Rente im Jahr|Zur Steuererklärung] {year}
        text Guten Tag {one}
        text [Bis zum {change} haben Sie von uns {first!} im Monat erhalten. Seither richten wir, der Teuerung angepasst, {second!} im Monat aus, also {rise!} mehr.|Ihre Altersrente betrug zuerst {first!} monatlich. Ab {change} wurde sie um {rise!} auf {second!} erhöht.]
        text [Zusammengezählt haben wir Ihnen im Kalenderjahr {amount!} ausbezahlt ({count1} Monate {sum1!}, {count2} Monate {sum2!}).|In {count1} und {count2} Monaten ergibt das {sum1!} und {sum2!}, für das ganze Jahr {year} somit {amount!}.]
        text Die Rente ist vollumfänglich steuerbar. Geburtsdatum: {birth}.)"},
    {"pension", "v-old-age", "de", false, "oldAge", R"(
        head 0 both
        title [Bescheinigung über bezogene AHV-Renten|Rentenbescheinigung der AHV] {year}
        cols 22 82 138r 156r 190r
        th Berechtigte Person ; Versichertennummer ; Monatsbetrag ; ; [Jahresbetrag|Total {year}]
        rule
        each people {who} ; {number} ; {month} ; × 12 ; {part}
        rule
        tr Altersrenten des Ehepaars ; ; ; ; {both}
        text [Nicht zu versteuern ist die Hilflosenentschädigung von monatlich {help!} (im Jahr {helpyear!}).|Zusätzlich: Hilflosenentschädigung {helpyear!} (steuerfrei).]
        small Ab Januar {next}: {coming!} monatlich.)"},
    {"pension", "v-disability", "de", false, "disability", R"(
        head 4 one
        title [Ausweis über IV-Renten für die Steuerbehörde|IV-Rente: Bescheinigung] {year}
        colon Versichertennummer ; {ahv}
        text [Die Rente wird seit {since} ausgerichtet; im Steuerjahr waren es {months} Monate.|Anspruch ab {since}, {months} Monatsbetreffnisse.]
        cols 22 130r 190r
        th Leistung ; im Monat ; im Jahr {year}
        tr Invalidenrente ; {own} ; {ownyear}
        tr Kinderrente für {child} ; {kid} ; {kidyear}
        tb [Ausgerichtet|Zusammen an Sie bezahlt] ; ; {amount}
        small Verrechnete Mahngebühren früherer Beiträge: {arrears!}.)"},
    {"pension", "v-children", "de,fr", false, "pensionOfChildren", R"(
        head 6 one
        title [Leistungen / Prestations {year}|Invaliden- und Kinderrenten / Rentes d'invalidité {year}|Steuerbeleg – Pièce fiscale {year}]
        line {one}, {birth}, {ahv}
        per parts
        below {part!} ; {name}, 12 × {month}
        endper
        rule
        sum [Renten / Rentes {year}|Total Renten / Total des rentes] ; {amount~}
        entry [Altersguthaben / Avoir de vieillesse|Deckungskapital / Capital de couverture] ; {assets~})"},
    {"pension", "v-lump", "de", false, "lumpAndPension", R"(
        head 1 one
        title [Pensionierung: Leistungen im Jahr|Bescheinigung Altersleistungen] {year}
        entry Versicherte Person ; {one}, {birth}
        entry Altersrente ab ; {since}
        entry Rente pro Jahr ; {year12}
        entry Monatliche Rente ; {month}
        sum [Davon {year} ausgerichtet ({months} Monate)|Renten für {months} Monate im Jahr {year}] ; {amount}
        gap 4
        entry [Einmalige Kapitalabfindung|Bezug in Kapitalform] am {since} ; {capital}
        small Die Kapitalleistung wird gesondert besteuert und der Steuerverwaltung mit besonderem Formular gemeldet.)"},
    {"pension", "v-rentes", "fr", false, "risenPension", R"(
        head 2 one
        bold [Attestation de rentes|Rentes versées] {year}
        text [Nous attestons avoir versé à {one}, né(e) le {birth}, les rentes suivantes de la prévoyance professionnelle:|La personne assurée {one}, née le {birth}, a touché les prestations suivantes:]
        entry {count1} × {first} ; {sum1}
        entry {count2} × {second}, dès le {change} ; {sum2}
        sum [Montant imposable|Rentes de l'année|Total versé en {year}] ; {amount~}
        small Augmentation de {rise!} par mois. Aucun impôt à la source n'a été prélevé.)"},
    {"pension", "v-foreign", "de", false, "pensionInEuros", R"(
        head 3 one
        title [Leistungsbescheinigung {year} für Rentner mit Wohnsitz in der Schweiz|Bestätigung der Rentenzahlungen ins Ausland {year}]
        line {one}, geb. {birth}
        cols 22 110r 150r 190r
        th Zeitraum ; EUR pro Monat ; Monate ; EUR
        tr Januar bis Juni ; {first} ; 6 ;
        tr ab {july} ; {second} ; 6 ;
        tb Jahresrente EUR ; ; ; {euros}
        gap 3
        text [Umgerechnet zum Jahresmittelkurs von {rate} entspricht dies {francs!}.|Zum Mittelkurs {rate} ergibt sich ein Jahresbetrag von {francs!}.]
        small Zuschuss zur Krankenversicherung (in EUR, nicht enthalten): {subsidy} monatlich.)"},
};

const std::vector<Sheet> insurers{
    {"insurance", "v-policies", "de", false, "policies", R"(
        head 0 one
        title [Ihre Policen am {end}|Werte Ihrer Lebensversicherungen per {end}]
        per policies
        bold Police {number} – {kind}
        side [Versicherte Summe|Versicherungssumme] ; {sum} ; Rückkauf ohne Überschüsse ; {bare}
        side Überschüsse ; {bonus} ; [Steuerwert|Rückkaufswert für die Steuern] ; {value?}
        gap 4
        endper
        rule
        entry Steuerwerte insgesamt ; {value}
        small Policen der gebundenen Vorsorge sind nicht als Vermögen zu versteuern.)"},
    {"insurance", "v-valeur", "fr", false, "policyWithPremium", R"(
        head 4 one
        title [Valeur fiscale de votre assurance-vie|Attestation pour l'impôt sur la fortune] {year}
        line Police {number}, échéance {expiry}
        left {sum} ; [Somme assurée|Capital assuré en cas de vie]
        left {death} ; Capital en cas de décès
        left {bare} ; Rachat sans participation aux excédents
        left {bonus} ; Excédents accumulés
        leftsum {value} ; [Valeur de rachat au 31.12.{year}|Valeur imposable au 31 décembre]
        gap 3
        left {premium} ; [Prime annuelle payée|Primes encaissées en {year}])"},
    {"premiums", "v-members", "de", false, "premiumsOfMembers", R"(
        head 1 both
        title [Familienausweis {year}: Prämien und Kostenbeteiligung|Was Ihre Familie {year} bezahlt hat]
        cols 26 106r 116 190r
        per people
        bold {who}, {born}
        tr Prämie KVG ; {basic} ; Franchise ; {franchise?}
        tr Prämie VVG ; {extra} ; Selbstbehalt ; {retention}
        tr [Summe der Prämien|Prämien] ; {total} ; [Kosten zu Ihren Lasten|Selbst getragen] ; {sharing}
        tr Prämienverbilligung ; {reduction?} ; Nicht versichert ; {uncovered}
        gap 3
        endper
        rule
        title Ganze Familie
        tr [Prämien der Familie|Alle Prämien] ; {total} ; Kostenbeteiligung ; {sharing}
        tr [Verbilligungen|Verbilligung Kanton] ; {reduction?} ; Nicht versichert ; {uncovered})"},
    {"premiums", "v-famille", "fr", false, "premiumsOfMembers", R"(
        head 5 both
        title [Primes et frais de votre famille|Tableau annuel pour les impôts] {year}
        cols 22 90r 114r 138r 162r 190r
        th ; {first1} ; {first2} ; {first3} ; {first4} ; Famille
        rule
        tr Primes obligatoires (LAMal) ; {basic1} ; {basic2} ; {basic3} ; {basic4} ; {basic}
        tr Primes facultatives (LCA) ; {extra1} ; {extra2} ; {extra3} ; {extra4} ; {extra}
        tb [Primes, ensemble|Somme des primes] ; {total1} ; {total2} ; {total3} ; {total4} ; {total}
        tr Subside du canton ; {reduction1?} ; {reduction2?} ; {reduction3?} ; {reduction4?} ; {reduction?}
        gap 3
        tr Franchise à charge ; {franchise1?} ; {franchise2?} ; {franchise3?} ; {franchise4?} ; {franchise}
        tr Quote-part ; {retention1} ; {retention2} ; {retention3} ; {retention4} ; {retention}
        tb [Frais à votre charge|Participation totale] ; {sharing1} ; {sharing2} ; {sharing3} ; {sharing4} ; {sharing})"},
    {"premiums", "v-famiglia", "it", false, "premiumsOfMembers", R"(
        head 3 both
        title [Premi e costi di malattia della famiglia|Certificato per le imposte] {year}
        per people
        colon Assicurato/a ; {who}
        dots Cure obbligatorie (LAMal) ; {basic}
        dots Prodotti facoltativi (LCA) ; {extra}
        dots Costi a carico dell'assicurato ; {sharing}
        gap 2
        endper
        rule
        sum [Somma dei premi|Premi fatturati e pagati] {year} ; {total~}
        entry [Sussidio del Cantone|Riduzione individuale ricevuta] ; {reduction~}
        entry Costi a carico, tutta la famiglia ; {sharing~})"},
    {"premiums", "v-levy", "de", false, "premiumsOfMembers", R"(
        head 2 both
        title [Prämienrechnungen {year} im Überblick|Abrechnung Ihrer Prämien {year}]
        cols 22 84r 110r 138r 164r 190r
        th Versicherte ; KVG ; VVG ; [Brutto|KVG + VVG] ; [Verbilligung|IPV] ; Netto
        rule
        each people {who} ; {basic} ; {extra} ; {total} ; {reduction?} ; {net}
        rule
        tb Familie ; {basic} ; {extra} ; {total} ; {reduction?} ; {net}
        gap 3
        entry [Rückverteilung Umweltabgaben|Gutschrift Umweltabgaben des Bundes] ; {-levy}
        entry [Kostenbeteiligung aller Personen|An Behandlungen selbst bezahlt] ; {sharing})"},
};

const std::vector<Sheet> buyIns{
    {"buyin", "v-purposes", "de", false, "buyInPurposes", R"(
        head 0 one
        title [Freiwillige Einzahlungen|Bescheinigung freiwilliger Zahlungen] {year}
        cols 22 52 190r
        th Valuta ; Verwendung ; CHF
        rule
        tr {on1} ; Einkauf in die reglementarischen Leistungen ; {part1}
        tr {on2} ; Einkauf für die vorzeitige Pensionierung ; {part2}
        tb ; [Abziehbare Einkäufe|Vom Einkommen abziehbar] ; {amount}
        tr {on3} ; Rückzahlung Vorbezug Wohneigentum (nicht abziehbar) ; {repaid}
        small Weiterer Einkauf möglich bis {possible!}; vorher sind Vorbezüge zurückzuzahlen.)"},
    {"buyin", "v-rachat", "fr,it", false, "buyInPurposes", R"(
        head 2 one
        title [Rachats / Riscatti|LPP: rachats – riscatti] {year}
        line {one}, {ahv}
        entry {on1}: Rachat d'années / Riscatto di anni ; {part1~}
        entry {on2}: Retraite anticipée / Pensionamento anticipato ; {part2~}
        sum [Rachats déductibles / Riscatti deducibili|Total rachats / Totale riscatti] ; {amount~}
        gap 3
        entry {on3}: Remboursement EPL / Rimborso PPA ; {repaid~}
        entry Avoir / Avere {end} ; {assets~})"},
    {"buyin", "v-year", "de", false, "buyInYear", R"(
        head 5 one
        bold [Entwicklung Ihres Altersguthabens|Ihr Sparguthaben im Jahr] {year}
        side Stand {start} ; {opening} ; Ihre Beiträge (aus dem Lohn) ; {own}
        side Verzinsung ; {interest} ; Beiträge der Firma ; {employer}
        rule
        below {amount!} ; [Persönlicher Einkauf vom {when}, mit dieser Bescheinigung abziehbar|Einmaleinlage (Einkauf) vom {when}, privat bezahlt]
        below {closing!} ; Stand {end}
        text [Bitte legen Sie dieses Blatt der Steuererklärung bei.|Ihre Lohnabzüge stehen bereits im Lohnausweis.])"},
};

} // namespace

std::vector<Layout> valleyWorkPapers() { return scripted({salaries, pensions, insurers, buyIns}); }

} // namespace corpus
