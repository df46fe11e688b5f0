#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of valuers, managers and insurers of buildings.

namespace corpus {
namespace {

const std::vector<Sheet> properties{
    // Three columns: what is valued, before, now; what counts stands out at the foot.
    {"property", "l-boxes", "de", false, "valuation", R"(
        head 0 both
        title [Eröffnung der Grundstückschätzung|Anzeige Neuschätzung]
        line Gemeinde {place}, Grundstück Nr. {parcel}, {area} m²
        cols 24 146r 188r
        th [Werte in CHF|Wertart] ; [neu|massgebend ab sofort] ; [bisher|letzte Schätzung]
        rule
        tr Gebäude, Neuwert ; {new} ; {oldnew}
        tr Gebäude, Zeitwert ; {now} ; {oldnow}
        tr Boden ; {land} ; {oldland}
        tr Realwert ; {real} ; {oldreal}
        tr Ertragswert ; {yield} ; {oldyield}
        rule
        tb [Verkehrswert|Verkehrswert (Steuerwert)] ; {value} ; {old}
        tb [Mietwert pro Jahr|Jährlicher Mietwert] ; {rent} ; {oldrent}
        small Gebühr dieser Schätzung: {charge!})"},
    // Every value in a box of its own, its label at the top; only one of them is the tax's.
    {"property", "l-mosaic", "de", false, "valuation", R"(
        head 6 one
        big [Schätzungsanzeige|Wertanzeige]
        line Gemeinde {place}, Parzelle Nr. {parcel}
        grid 3
        cell Neuwert der Gebäude ; {new~}
        cell Versicherungswert ; {cover~}
        cell Wert des Bodens ; {land~}
        endgrid
        grid 2
        cell [Verkehrswert|Amtlicher Verkehrswert] ; {value~}
        cell [Mietwert, jährlich|Mietwert im Jahr] ; {rent~}
        endgrid
        grid 4
        cell Zeitwert ; {now~}
        cell Realwert ; {real~}
        cell Ertragswert ; {yield~}
        cell Verkehrswert bisher ; {old~}
        endgrid)"},
    {"property", "l-parcel-columns", "de", false, "parcelsElsewhere", R"(
        head 5 both
        title [Ihre Grundstücke: amtliche Werte|Amtliche Werte je Grundstück], Stand {end}
        cols 22 98r 144r 190r
        th ; {what1} ; {what2} ; {what3}
        rule
        tr [Politische Gemeinde|Gemeinde] ; {place1} ; {place2} ; {place3}
        tr Grundstück Nr. ; {parcel1} ; {parcel2} ; {parcel3}
        tr Fläche m² ; {area1} ; {area2} ; {area3}
        tr Neuwert Bauten ; {new1} ; {new2} ; {new3}
        tr Bodenwert ; {land1} ; {land2} ; {land3}
        tb [Verkehrswert|Amtlicher Verkehrswert] ; {value1} ; {value2} ; {value3}
        tb [Mietwert pro Jahr|Jahresmietwert] ; {rent1} ; {rent2} ; {rent3})"},
    {"property", "l-rental-value", "de", false, "valuation", R"(
        head 1 one
        bold [Mitteilung Eigenmietwert|Eigenmietwert Ihrer Liegenschaft] ab {year}
        line Gemeinde {place}, Grundstück Nr. {parcel}
        text [Der Mietwert Ihres Einfamilienhauses wurde überprüft. Er wird von {before!} auf {rent!} im Jahr angehoben (12 x {month!}). Der Verkehrswert bleibt bei {value!}.|Wir haben den Mietwert neu ermittelt: {rent!} pro Jahr, das sind {month!} im Monat. Bisher waren es {before!}. Unverändert gilt der Verkehrswert von {value!}.]
        text [Bewohnen Sie das Haus selbst, wird der Mietwert am Wohnsitz von Amtes wegen um 30 % ({reduction!}) auf {reduced!} gesenkt. In der Steuererklärung geben Sie den vollen Wert an.|Für selbst bewohntes Eigentum am Wohnsitz rechnet das Steueramt mit 70 %, also {reduced!}; anzugeben ist der volle Mietwert.])"},
    {"property", "l-rental-grid", "de", false, "valuation", R"(
        head 4 one
        title [Mietwertblatt|Berechnung Mietwert] {place} Nr. {parcel}
        line Gemeinde: {place}   Grundstück Nr.: {parcel}   Fläche: {area} m²
        grid 3
        cell Mietwert im Monat ; {month}
        cell [Mietwert im Jahr, 100 %|Mietwert jährlich (voll)] ; {rent}
        cell 70 % bei Eigengebrauch ; {reduced}
        cell Mietwert vor der Überprüfung ; {before}
        cell [Amtlicher Verkehrswert|Verkehrswert] ; {value}
        cell Marktpreisindikation ; {market}
        endgrid)"},
    {"property", "l-valeurs", "fr", false, "valuation", R"(
        head 2 both
        title [Avis d'estimation|Notification de la nouvelle estimation]
        line Commune de {place}, parcelle n° {parcel}, {area} m²
        cols 22 140r 190r
        th ; [Ancienne estimation|Jusqu'ici] ; [Nouvelle estimation|Dès {year}]
        rule
        tr Valeur à neuf du bâtiment ; {oldnew} ; {new}
        tr Valeur du terrain ; {oldland} ; {land}
        tr Valeur de rendement ; {oldyield} ; {yield}
        tb [Valeur fiscale|Estimation fiscale] ; {old} ; {value}
        tb [Valeur locative annuelle|Valeur locative par an] ; {oldrent} ; {rent}
        small Émolument {charge!}. Réclamation dans les 30 jours.)"},
    {"property", "l-stima", "it", false, "valuation", R"(
        head 6 one
        title [Avviso di stima|Comunicazione dei valori ufficiali]
        text [Egregi signori, per il fondo particella n. {parcel} nel Comune di {place} valgono dal {year} i seguenti valori.|Per la particella n. {parcel}, Comune di {place}, sono stati stabiliti i valori seguenti.]
        below {value!} ; [Valore di stima ufficiale|Valore di stima] ; {rent!} ; Valore locativo annuo
        small Valore a nuovo {new!}, valore reale {real!}. Stima precedente {old!}, valore locativo precedente {oldrent!}.)"},
    {"property", "l-upkeep", "de", false, "upkeepBills", R"(
        head 0 both
        title [Zusammenstellung Liegenschaftsunterhalt|Unterhaltsrechnungen Ihrer Liegenschaft] {year}
        line Gemeinde {place}, Grundstück Nr. {parcel}
        cols 22 46 88 136r 164r 190r
        th Rechnung vom ; Firma ; Arbeit ; Betrag ; [werterhaltend|abziehbar] ; [wertvermehrend|nicht abziehbar]
        rule
        each bills {on} ; {firm} ; {what} ; {bill} ; {kept?} ; {better?}
        rule
        tb Total ; ; ; {bill} ; {kept} ; {better}
        text [Als Unterhalt können Sie {kept!} geltend machen.|Abziehbarer Liegenschaftsunterhalt {year}: {kept!}.]
        small Förderbeitrag von {grant!} wird erst {next} ausbezahlt.)"},
    {"property", "l-condominium", "de", false, "condominium", R"(
        head 5 one
        title Stockwerkeigentümergemeinschaft {street}: [Jahresrechnung|Abrechnung] {year}
        line Einheit {unit}, Wertquote {quota}
        cols 22 146r 190r
        th Kosten ; Liegenschaft ; Ihr Anteil
        rule
        each running {what} ; {whole} ; {part}
        each upkeep {what} ; {whole} ; {part}
        rule
        tb Gesamtkosten ; {whole} ; {part}
        tr Ihre Akontozahlungen ; ; {-advance}
        tr Noch zu zahlen ; ; {open}
        gap 4
        bold [Für Ihre Steuererklärung|Steuerliche Angaben]
        tr [Abzugsfähiger Liegenschaftsunterhalt (mit Fondseinlage)|Unterhalt, Versicherung, Verwaltung, Fondseinlage (abziehbar)] ; ; {amount}
        tr Anteil am Erneuerungsfonds {end} ; {fund} ; {share}
        tr Zinsanteil Erneuerungsfonds ; ; {earned})"},
    {"property", "l-ppe", "fr", false, "condominium", R"(
        head 3 one
        bold PPE {street}, lot {unit} ({quota}): [décompte|comptes] {year}
        text [Votre part aux frais d'entretien, d'assurance et d'administration, y compris le versement au fonds de rénovation, s'élève à {amount!}; ce montant est déductible.|Frais d'entretien déductibles pour votre lot: {amount!}, versement au fonds de rénovation compris.]
        cols 22 146r 190r
        th ; Immeuble ; [Votre part|Votre lot]
        each upkeep {what} ; {whole} ; {part}
        rule
        each running {what} (non déductible) ; {whole} ; {part}
        rule
        tb Total des charges ; {whole} ; {part}
        small Fonds de rénovation au {end}: {fund!}, votre part {share!}. Acomptes versés {advance!}.)"},
    {"property", "l-rents", "de", false, "rents", R"(
        head 2 both
        title [Mietzinsabrechnung|Abrechnung der Verwaltung] {year}, {street}
        cols 22 54 112r 150r 190r
        th Objekt ; Mieterschaft ; [Mietzins netto|Nettomiete] ; [Nebenkosten akonto|NK akonto] ; Einnahmen
        rule
        each tenants {flat} ; {who} ; {net} ; {side} ; {all}
        rule
        tb [Eingegangene Mieten|Mieterträge] ; ; {rent} ; {side} ; {all}
        gap 4
        each costs {what} ; ; ; ; {part}
        rule
        tb [Unterhalt und Verwaltung (abziehbar)|Liegenschaftsunterhalt, abziehbar] ; ; ; ; {amount}
        tr Heiz- und Nebenkosten der Mieter ; ; ; ; {heating}
        rule
        tb Auszahlung an Sie ; ; ; ; {payout})"},
    {"property", "l-affitti", "it", false, "rentMonths", R"(
        head 0 one
        title [Rendiconto di gestione|Conteggio affitti] {year}, {street}
        cols 22 92r 124r 158r
        th Mese ; Pigione netta ; Acconto spese ; [Manutenzione|Spese di manutenzione]
        rule
        each months {month} ; {net} ; {side} ; {cost?}
        rule
        tb Totale {year} ; {net} ; {side} ; {cost}
        gap 3
        entry Versato sul suo conto ; {payout}
        small Deposito di garanzia dell'inquilino {deposit!}.)"},
    {"property", "l-loyers", "fr", false, "rentMonths", R"(
        head 1 one
        title [Compte de gérance|Décompte des loyers] {year}
        line Appartement en location, {street}
        dots [Loyers nets encaissés|Loyers encaissés sans les charges] ; {net}
        dots Acomptes de charges des locataires ; {side}
        dots [Entretien et réparations|Frais d'entretien de l'immeuble] ; {-cost}
        sum Versé en {year} ; {payout}
        small Garantie de loyer déposée: {deposit!}.)"},
    {"other", "l-cover-buildings", "de", true, "coverOfBuildings", R"(
        head 3 one
        title [Prämienrechnung Gebäude|Rechnung Gebäudeversicherung] {year}
        line Gemeinde {place}, Grundstück Nr. {parcel}
        cols 22 58 102r 130r 158r 190r
        th Gebäude ; Vers.-Nr. ; [Neuwert|Versicherungswert] ; Prämie ; Brandschutz ; Betrag
        rule
        each buildings {what} ; {number} ; {new} ; {premium} ; {guard} ; {sum}
        rule
        tb Total, fällig {due} ; ; {new} ; {premium} ; {guard} ; {sum}
        small Selbstbehalt {retention!} je Ereignis.
        bill sum {place} {parcel})"},
    {"other", "l-land-tax", "de", true, "landTax", R"(
        head 4 one
        title [Grundsteuerrechnung|Rechnung Grundsteuer] {year}
        line Gemeinde {place}, Grundstück Nr. {parcel}, {area} m²
        mid Bemessungsgrundlage: Verkehrswert ; {value}
        mid Steuersatz ; {rate}
        mid Grundsteuer {year} ; {tax}
        mid Ausgleichszins ; {late}
        sum [Rechnungsbetrag|Zu bezahlen] bis {due} ; {total}
        bill total {parcel})"},
};

} // namespace

std::vector<Layout> lakeHousePapers() { return scripted({properties}); }

} // namespace corpus
