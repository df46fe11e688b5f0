#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of valuers, managers and insurers of buildings.

namespace corpus {
namespace {

const std::vector<Sheet> properties{
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

/// Boxes in columns: what is valued, before, now; what counts stands out at the foot.
void drawBoxes(Draft& draft) {
    const Facts facts = told(draft, "valuation");
    drawScript(draft, facts, R"(
        head 0 both
        title [Eröffnung der Grundstückschätzung|Anzeige Neuschätzung]
        line Gemeinde {place}, Grundstück Nr. {parcel}, {area} m²)");
    Paper& paper = draft.paper;
    const bool newFirst = draft.random.chance(50);
    const auto boxes = [&](const QString& label, const QString& before, const QString& now,
                           bool strong) {
        const double height = strong ? 10 : 7.5;
        const double base = paper.y + height - 2.6;
        paper.box(22, paper.y, 84, height, 0.15);
        paper.box(106, paper.y, 42, height, 0.15);
        paper.box(148, paper.y, 42, height, 0.15);
        paper.put(24, base, label, paper.fitted(label, {9, strong}, 80));
        paper.put(146, base, newFirst ? now : before, {9, strong && newFirst, Align::right});
        paper.put(188, base, newFirst ? before : now, {9, strong && !newFirst, Align::right});
        paper.y += height;
    };
    const auto values = [&](const QString& label, const QString& name, bool strong) {
        boxes(label, draft.m(facts.amounts.at("old" + name)),
              draft.m(facts.amounts.at(name == "" ? "value" : name)), strong);
    };
    paper.space(4);
    boxes(draft.one("Werte in CHF|Wertart"), draft.one("bisher|letzte Schätzung"),
          draft.one("neu|massgebend ab sofort"), false);
    values("Gebäude, Neuwert", "new", false);
    values("Gebäude, Zeitwert", "now", false);
    values("Boden", "land", false);
    values("Realwert", "real", false);
    values("Ertragswert", "yield", false);
    values(draft.one("Verkehrswert|Verkehrswert (Steuerwert)"), "", true);
    values(draft.one("Mietwert pro Jahr|Jährlicher Mietwert"), "rent", true);
    paper.space(5);
    paper.paragraph("Gebühr dieser Schätzung: " + draft.s(facts.amounts.at("charge")), {8});
}

/// Every value in a box of its own, its label at the top; only one of them is the tax's.
void drawMosaic(Draft& draft) {
    const Facts facts = told(draft, "valuation");
    drawScript(draft, facts, R"(
        head 6 one
        big [Schätzungsanzeige|Wertanzeige]
        line Gemeinde {place}, Parzelle Nr. {parcel})");
    Paper& paper = draft.paper;
    struct Box {
        double x;
        double y;
        double width;
        double height;
        QString label;
        const char* name;
        bool strong;
    };
    const double top = paper.y + 6;
    const std::vector<Box> boxes{
        {22, 0, 56, 16, "Neuwert der Gebäude", "new", false},
        {78, 0, 56, 16, "Versicherungswert", "cover", false},
        {134, 0, 56, 16, "Wert des Bodens", "land", false},
        {22, 20, 84, 22, draft.one("Verkehrswert|Amtlicher Verkehrswert"), "value", true},
        {106, 20, 84, 22, draft.one("Mietwert, jährlich|Mietwert im Jahr"), "rent", true},
        {22, 46, 42, 16, "Zeitwert", "now", false},
        {64, 46, 42, 16, "Realwert", "real", false},
        {106, 46, 42, 16, "Ertragswert", "yield", false},
        {148, 46, 42, 16, "Verkehrswert bisher", "old", false}};
    for (const Box& box : boxes) {
        paper.box(box.x, top + box.y, box.width, box.height, box.strong ? 0.5 : 0.15);
        paper.put(box.x + 2, top + box.y + 5, box.label, {8, box.strong});
        paper.put(box.x + box.width - 2, top + box.y + box.height - 3,
                  draft.f(facts.amounts.at(box.name)),
                  {box.strong ? 13.0 : 9.5, box.strong, Align::right});
    }
    paper.y = top + 70;
}

} // namespace

std::vector<Layout> lakeHousePapers() {
    std::vector<Layout> layouts = scripted({properties});
    layouts.push_back({"property", "l-boxes", false, "de", false, drawBoxes});
    layouts.push_back({"property", "l-mosaic", false, "de", false, drawMosaic});
    return layouts;
}

} // namespace corpus
