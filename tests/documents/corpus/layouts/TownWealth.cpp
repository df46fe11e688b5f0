#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of valuations, of 3a providers and of offices whose papers hold nothing to enter.

namespace corpus {
namespace {

const std::vector<Sheet> valuations{
    {"property", "n-buildings", "de", false, "valuedBuildings", R"(
        head 3 both
        title [Mitteilung über die Grundstückbewertung|Bewertungsblatt|Anzeige der amtlichen Bewertung]
        side Gemeinde ; {place} ; Kataster-Nr. / Grundstück ; {parcel}
        side Fläche m² ; {area} ; Augenschein ; {visited}
        gap 3
        cols 22 66 92r 118r 152r 186r
        th Gebäude ; Assek.-Nr. ; Baujahr ; m³ ; Neuwert ; Zeitwert
        rule
        each buildings {what} ; {number} ; {built} ; {volume} ; {new} ; {now}
        rule
        tr Total Bauten ; ; ; ; {new} ; {now}
        tr Bodenwert ; ; ; ; ; {land}
        tr Realwert (Zeitwert und Boden) ; ; ; ; ; {real}
        tr Ertragswert, Kapitalisierung 5,0 % ; ; ; ; ; {yield}
        gap 2
        band [Festgesetzter Verkehrswert|Verkehrswert (2 x Realwert + 1 x Ertragswert) : 3] ; {value~}
        band [Festgesetzter Mietwert pro Jahr|Mietwert, jährlich] ; {rent~}
        small Bewertungsgebühr {charge!}. Einsprache innert 30 Tagen schriftlich.)"},
    {"property", "n-decree", "de", false, "valuedBuildings", R"(
        head 5 one
        bold Verfügung betreffend [Schätzung von Grundeigentum|Neubewertung], Grundstück Nr. {parcel}, Grundbuch {place}
        text Erwägungen
        text [Die letzte Schätzung ergab einen Verkehrswert von {old!} und einen Mietwert von {oldrent!}. Sie liegt mehr als zehn Jahre zurück.|Der bisherige Verkehrswert von {old!} (Mietwert {oldrent!}) stammt aus der vorletzten Schätzungsperiode.]
        text Bewertet wurden Boden ({land!}) und Bauten (Neuwert {new!}, Zeitwert {now!}).
        bold verfügt:
        text [1. Der Verkehrswert wird mit Wirkung ab dem Steuerjahr {year} auf {value!} festgelegt. 2. Der jährliche Mietwert wird auf {rent!} festgelegt.|1. Verkehrswert neu: {value!}. 2. Mietwert neu: {rent!} je Jahr.] 3. Die Kosten von {charge!} trägt die Eigentümerschaft.
        page
        bold Rechtsmittel
        text Gegen diese Verfügung kann innert 30 Tagen seit Eröffnung schriftlich Einsprache erhoben werden. Ein Rekurs kostet in der Regel CHF 300.00 bis CHF 1'500.00.
        text Der Verkehrswert entspricht dem Preis, der im gewöhnlichen Geschäftsverkehr zu erzielen wäre. Der Mietwert entspricht dem Betrag, den Sie bei Vermietung einnehmen könnten.)"},
    {"property", "n-parcels", "de", false, "parcels", R"(
        head 0 one
        title [Zusammenstellung der Grundstückswerte|Grundbesitz in der Gemeinde {place}|Auszug Schätzungsverzeichnis]
        line Gemeinde {place}, Stichtag {end}
        cols 22 46 108r 150r 190r
        th Parzelle ; Beschrieb ; m² ; [Mietwert|Mietwert/Jahr] ; [Verkehrswert|Amtl. Verkehrswert]
        rule
        each parcels {parcel} ; {what} ; {area} ; {rent?} ; {value}
        rule
        tb ; Total aller Parzellen ; ; {rent} ; {value})"},
    {"property", "n-parcel-blocks", "de", false, "parcels", R"(
        head 1 both
        title Schätzungseröffnung {place}, {visited}
        per parcels
        gap 2
        bold Grundstück Nr. {parcel}, Gemeinde {place}
        line {what}, {area} m²
        below {value~} ; Verkehrswert ; {rent} ; Mietwert je Jahr
        endper
        small Kanzleigebühr {charge!} je Grundstück.)"},
    {"property", "n-unit", "de", false, "unit", R"(
        head 6 both
        title [Schätzung Stockwerkeigentum|Bewertung einer Eigentumswohnung]
        line {place}: Wohnung {rooms} Zimmer, Grundstück Nr. {parcel}, Wertquote {share} an Nr. {ground}
        grid 2
        cell Gemeinde ; {place}
        cell Grundstück Nr. ; {parcel}
        cell Verkehrswert ganzes Gebäude ; {whole}
        cell Neuwert ganzes Gebäude ; {new}
        cell [Verkehrswert Ihrer Einheit|Verkehrswert Stockwerkeinheit] ; {value}
        cell [Mietwert Ihrer Einheit pro Jahr|Jahresmietwert Stockwerkeinheit] ; {rent}
        cell Mietwert im Monat ; {month}
        cell Anteil Erneuerungsfonds ; {reserve}
        endgrid
        small Augenschein {visited}.)"},
    {"property", "n-rent-first", "de", false, "valuedBuildings", R"(
        head 4 one
        title [Kurzauskunft Schätzungswerte|Wertauskunft aus dem Register]
        line Grundstück Nr. {parcel} ({area} m²), Gemeinde {place}
        leftsum {rent} ; Mietwert (12 x {month})
        left {yield} ; Ertragswert
        left {real} ; Realwert
        leftsum {value} ; [Verkehrswert = Steuerwert|Verkehrswert, massgebend für die Vermögenssteuer]
        left {old} ; Verkehrswert der letzten Schätzung)"},
    {"property", "n-principality", "de", false, "principalityLand", R"(
        head 2 both
        title [Steuerschätzung Liegenschaften|Mitteilung Steuerschätzwert {year}]
        cols 22 70 110r 150r 190r
        th Gemeinde ; Parzelle ; Boden ; Gebäude ; [Steuerschätzwert|Steuerschätzungswert]
        rule
        tr {place} ; {parcel} ; {ground} ; {house} ; {value}
        gap 3
        line Gemeinde {place}, Parzelle Nr. {parcel}, {area} m²
        small Versicherungswert Gebäude {cover!}. Der Sollertrag (4 %) von {yield!} wird von Amtes wegen berechnet.)"},
    {"property", "n-principality-told", "de", false, "principalityLand", R"(
        head 1 one
        bold Steuerschätzwert Ihrer Liegenschaft
        text Guten Tag
        text [Der Steuerschätzwert der Parzelle Nr. {parcel} in der Gemeinde {place} beträgt {value!}. Davon entfallen {ground!} auf den Boden und {house!} auf die Bauten.|Für Ihre Parzelle Nr. {parcel}, Gemeinde {place} ({area} m²), gilt ein Steuerschätzwert von {value!} (Boden {ground!}, Bauten {house!}).]
        text [Der Verkehrswert wird auf rund {market!} geschätzt; er ist für die Steuer nicht von Belang.|Ein möglicher Kaufpreis ({market!}) ist für die Vermögensteuer unerheblich.])"},
    {"property", "n-cover", "de", false, "buildingCover", R"(
        head 0 both
        title [Versicherungsausweis Gebäude|Policennachtrag nach Schätzung|Schätzungsanzeige Gebäudeversicherung]
        side Gemeinde ; {place} ; Versicherungs-Nr. ; {house}
        side Grundstück ; {parcel} ; Rauminhalt m³ ; {volume}
        rule
        entry Neuwert bisher ; {before}
        sum Neuwert (Versicherungswert) ; {new}
        entry Zeitwert ; {now}
        text Dieser Wert dient der Versicherung. Er ist kein Steuerwert.)"},
    {"property", "n-cover-bill", "de", true, "buildingCover", R"(
        head 5 one
        title Prämienrechnung {year}, Gebäude Nr. {house}, {place}
        mid Versicherungssumme ; {new}
        mid Prämie Feuer und Elementar ; {premium}
        mid Beitrag Brandschutz ; {fire}
        mid Stempel ; {stamp}
        mid Zu zahlen bis {due} ; {total}
        bill total {house})"},
};

const std::vector<Sheet> pillarSheets{
    {"pillar3a", "n-portfolio", "de", false, "pillarFunds", R"(
        head 0 one
        title [Depotbericht 3a {year}|Jahresbericht Ihres Vorsorgeportfolios {year}|3a-Reporting {year}]
        cols 22 90 120r 144r 166r 190r
        th Anlage ; ISIN ; Anteile ; Kurs ; % ; Wert
        rule
        each funds {name} ; {isin} ; {units} ; {price} ; {weight} ; {worth}
        rule
        tb Depotwert {end} ; ; ; ; ; {worth}
        gap 4
        dots Wert am {start} ; {opening}
        dots [Eingezahlte Beiträge {year}|Ihre Einzahlungen {year} (steuerlich abziehbar)] ; {paid}
        dots [Übertrag aus anderer Vorsorgestiftung|Eingebrachtes 3a-Guthaben (nicht abziehbar)] ; {moved}
        dots Wertentwicklung ; {gain}
        dots Pauschalgebühr ; {-fee}
        small Höchstbetrag {year}: {limit!} (mit 2. Säule). Kontoguthaben, noch nicht angelegt: {cash!}. Vergangene Renditen sind keine Garantie für künftige.)"},
    {"pillar3a", "n-transfer", "de", false, "pillarFunds", R"(
        head 5 one
        title [Einzahlungen gebundene Vorsorge (3a) {year}|Säule 3a: Beitragsbestätigung {year}]
        line {one}, {birth}, AHV {ahv}
        cols 22 60 190r
        each payments {on} ; Einzahlung ; {part}
        tr {movedon} ; Übertrag von bisheriger Stiftung ; {moved}
        rule
        tr ; Gutschriften {year} insgesamt ; {gross}
        tr ; ./. Übertrag (kein Beitrag) ; {-moved}
        tb ; [Bescheinigter Beitrag {year}|Abzugsberechtigter Beitrag] ; {paid}
        page
        bold Gut zu wissen
        text Erwerbstätige mit Pensionskasse zahlten {year} höchstens {limit!} ein, ohne Pensionskasse 20 % des Erwerbseinkommens, höchstens {biglimit!}. Die Einzahlung muss bis zum letzten Bankwerktag des Jahres eingetroffen sein.
        text Ein Übertrag zwischen zwei Stiftungen ist keine Einzahlung. Beim Bezug fällt eine einmalige Steuer an; vorher sind Guthaben und Erträge steuerfrei.)"},
    {"pillar3a", "n-several", "de,fr,it", false, "severalPillars", R"(
        head 3 one
        title @title3a {year}
        line {one}
        line AHV/AVS {ahv}   Max. {limit!} / {biglimit!}
        cols 22 72 136r 190r
        th 3a-Nr. ; @account ; @paid3a ; @closing
        rule
        each accounts {number} ; {plan} ; {paid} ; {worth}
        rule
        tb @total ; ; {paid} ; {worth})"},
    {"pillar3a", "n-several-blocks", "de", false, "severalPillars", R"(
        head 1 one
        title [Sammelbescheinigung Säule 3a|Bescheinigung aller Vorsorgekonten 3a] {year}
        per accounts
        bold {plan} {number}
        entry Beitrag ; {paid}
        entry Wert {end} ; {worth}
        gap 1
        endper
        rule
        text [{one} hat über alle Konten {paid!} an die gebundene Vorsorge geleistet.|Beiträge über alle Konten: {paid!}. Versicherte Person: {one}.])"},
    {"pillar3a", "n-insured", "de", false, "pillarPolicy", R"(
        head 4 one
        title [Bescheinigung Vorsorgepolice 3a|Gebundene Vorsorgeversicherung: Prämienbescheinigung] {year}
        colon Police ; {policy}
        colon Versicherte Person ; {one}, {birth}
        dots Risikoprämie (Tod, Erwerbsunfähigkeit) ; {risk}
        dots Sparprämie ; {saving}
        sum [Bezahlte Prämien Säule 3a {year}|Geleistete Prämien (gebundene Vorsorge)] ; {paid}
        gap 3
        entry Zusatzbaustein der freien Vorsorge 3b ; {free}
        entry Todesfallkapital ; {death}
        entry Rente bei Erwerbsunfähigkeit ; {annuity}
        entry Rückkaufswert {end} (nicht steuerbar) ; {surrender})"},
    {"pillar3a", "n-insured-told", "de", false, "pillarPolicy", R"(
        head 2 one
        bold Ihre 3a-Police {policy}: [Angaben für die Steuererklärung|Steuerinformation] {year}
        text [Sehr geehrte Kundin, sehr geehrter Kunde|Guten Tag]
        text [Mit zwölf Monatsprämien zu {month!} haben Sie {year} insgesamt {paid!} in Ihre gebundene Vorsorge einbezahlt. Diesen Betrag dürfen Sie abziehen.|Ihre Prämien an die Säule 3a betrugen im Jahr {year} {paid!} (12 mal {month!}).]
        text [Überschussanteil {bonus!}, Rückkaufswert {surrender!}: Beides ist nicht zu deklarieren.|Der Rückkaufswert von {surrender!} bleibt bis zur Auszahlung steuerfrei.])"},
    {"pillar3a", "n-pair-told", "de", false, "pillarOfBoth", R"(
        head 5 both
        bold [Gebundene Vorsorge {year}|Ihre 3a-Konten im Jahr {year}]
        text Guten Tag {one}, guten Tag {two}
        text [Wir haben {year} von {one} {paid!} und von {two} {paid2!} als Beiträge an die Säule 3a erhalten.|{one} hat im Jahr {year} {paid!} in die Säule 3a eingelegt, {two} {paid2!}.]
        text [Die Vermögen betragen {worth!} und {worth2!}; sie gehören nicht in die Steuererklärung.|Zusammen sind das {both!}. Jede Person zieht ihren eigenen Beitrag ab.])"},
    {"pillar3a", "n-pilier", "fr", false, "pillarOfBoth", R"(
        head 6 both
        title [Attestation concernant les cotisations de prévoyance liée (3a)|Prévoyance liée 3a: attestation fiscale] {year}
        cols 22 86 126r 170r
        th Preneur de prévoyance ; Né(e) le ; Cotisations {year} ; Avoir
        rule
        tr {one} ; {birth} ; {paid} ; {worth}
        tr {two} ; {birth2} ; {paid2} ; {worth2}
        gap 3
        small L'avoir n'est pas imposable avant le versement.)"},
    {"pillar3a", "n-vincolata", "it", false, "pillarPolicy", R"(
        head 3 one
        title [Attestazione dei premi, previdenza vincolata 3a|Pilastro 3a: conferma fiscale] {year}
        text [Confermiamo che {one}, nato/a il {birth}, ha versato per la polizza {policy} premi del pilastro 3a.|Polizza {policy} di {one}, {birth}.]
        below {paid!} ; [Premi pagati nel {year} (3a)|Contributi versati al pilastro 3a] ; {surrender!} ; Valore di riscatto
        small Capitale in caso di decesso {death!}.)"},
};

const std::vector<Sheet> officePapers{
    {"other", "n-assessment", "de", false, "assessment", R"(
        head 0 both
        title [Veranlagungsberechnung {year}|Veranlagungsverfügung {year}|Definitive Veranlagung {year}]
        line Register-Nr. {register}
        cols 22 34 150r 190r
        th Ziff. ; Bezeichnung ; Kanton ; Bund
        rule
        each lines {no} ; {what} ; {state} ; {federal?}
        rule
        tb ; Steuerbares Einkommen ; {state} ; {federal}
        tr ; Liegenschaften, Verkehrswert ; {house} ;
        tr ; Schulden ; {-debts} ;
        tb ; Steuerbares Vermögen ; {wealth} ;
        text Abweichungen von Ihrer Steuererklärung: Berufskosten gekürzt, Zuwendungen gemäss Belegen. Weitere Begründung auf Anfrage.
        small Gegen diese Verfügung kann innert 30 Tagen Einsprache erhoben werden.)"},
    {"other", "n-tax-bill", "de", true, "taxBill", R"(
        head 5 one
        title [Steuerrechnung {year}|Schlussrechnung Staats- und Gemeindesteuern {year}]
        line Register-Nr. {register}, einfache Steuer {simple!}
        cols 22 120r 170r
        tr Staatssteuer ; 105 % ; {canton}
        tr Gemeindesteuer ; {rate} ; {commune}
        tr Kirchensteuer ; {churchrate} ; {church}
        tr Feuerwehrabgabe ; ; {fireduty?}
        tr Grundsteuer ; ; {land}
        tb Total Steuern ; ; {total}
        tr Ihre Zahlungen ; ; {-provisional}
        tr Verzugszins / Ausgleichszins ; ; {late}
        tr Zins zu Ihren Gunsten ; ; {-bonus}
        tb Zu bezahlen bis {due} ; ; {open}
        bill open {register})"},
    {"other", "n-instalments", "de", false, "taxBill", R"(
        head 4 both
        title Vorläufige Steuerrechnung {year} [in drei Raten|Akontorechnung]
        text Grundlage ist die letzte rechtskräftige Veranlagung. Voraussichtlicher Steuerbetrag: {total!}.
        left {third} ; 1. Rate, fällig am 31. Mai
        left {third} ; 2. Rate, fällig am 31. August
        left {third} ; 3. Rate, fällig am 31. Oktober
        small Für frühere Zahlungen vergüten wir einen Zins. Verzugszins {late!} aus dem Vorjahr ist enthalten.)"},
    {"other", "n-quote", "de", false, "quote", R"(
        head 3 one
        title [Kostenschätzung|Kostenvoranschlag|Offerte] für {one}
        each items !dots {what} ; {part}
        sum Voraussichtliche Kosten ; {total}
        text [Dies ist keine Rechnung. Je nach Befund liegen die Kosten zwischen {low!} und {high!}.|Der Voranschlag ist drei Monate gültig und noch nicht geschuldet. Abweichungen bis {high!} sind möglich.])"},
};

} // namespace

std::vector<Layout> townWealthPapers() {
    return scripted({valuations, pillarSheets, officePapers});
}

} // namespace corpus
