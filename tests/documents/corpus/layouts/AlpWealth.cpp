#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of pillar 3a and of buy-ins into pension funds.

namespace corpus {
namespace {

const std::vector<Sheet> pillars{
    {"pillar3a", "a-refused", "de", false, "pillarRefused", R"(
        head 0 one
        title [Kontobewegungen Säule 3a {year} mit Rückweisung|Beiträge 3a {year}: Überschreitung des Höchstbetrags]
        line {one}, Vorsorgenummer {number}
        cols 22 54 140r 186r
        th Valuta ; Vorgang ; Eingang ; Rückzahlung
        rule
        each payments {on} ; Überweisung ; {part} ;
        tr {returned} ; [über dem Maximum, zurückbezahlt|Rückweisung Überschuss] ; ; {back}
        rule
        tr ; Eingänge und Rückzahlungen ; {got} ; {back}
        tb ; [Anerkannter Beitrag {year}|Verbleibender, abzugsfähiger Beitrag] ; {paid} ;
        gap 3
        text [Der Betrag von {back!} übersteigt das gesetzliche Maximum und wurde auf Ihr Bankkonto zurückvergütet.|Wir mussten {back!} zurückweisen. Er darf nicht abgezogen werden.])"},
    {"pillar3a", "a-gap", "de", false, "pillarGap", R"(
        head 5 one
        title [Beiträge und nachträgliche Einkäufe {year}|Bescheinigung 3a {year} (Art. 7 und 7a BVV 3)]
        line {one}, {birth}, {ahv}
        bold A. Ordentliche Beiträge {year}
        each payments !mid {on} ; {part}
        mid [Ordentliche Beiträge|Summe A] ; {paid}
        gap 3
        bold B. Einkauf zum Ausgleich von Beitragslücken
        cols 22 60 104r 146r 186r
        th Valuta ; Lückenjahr ; damals bezahlt ; Maximum ; Einkauf
        tr {lateon} ; {prev} ; {paidbefore} ; {limit} ; {late}
        rule
        mid Total A und B ; {all}
        small Beide Teile sind im Jahr {year} einzeln zu deklarieren. Ein Einkauf ist nur möglich, wenn der ordentliche Beitrag des Jahres voll bezahlt ist oder wird.)"},
    {"pillar3a", "a-waiver", "de", false, "pillarWaiver", R"(
        head 1 one
        title [Prämienausweis 3a mit Prämienbefreiung|Gebundene Vorsorgepolice: Prämien] {year}
        text [Seit Ihrer Erwerbsunfähigkeit übernehmen wir einen Teil der Prämien.|Während der Erwerbsunfähigkeit (bis {until}) waren Sie von der Prämie befreit.]
        cols 22 112r 146r 186r
        th Police {number} ; Monate ; Prämie ; CHF
        tr Vertragliche Prämie ; 12 ; {month} ; {premium}
        tr [Prämienbefreiung, durch uns getragen|Vom Versicherer übernommen] ; {waivedmonths} ; {month} ; {-waived}
        rule
        tb [Von Ihnen bezahlte Prämie|Selbst bezahlt, abzugsfähig (3a)] ; {paidmonths} ; {month} ; {paid}
        gap 3
        small Rückkaufswert {end} {surrender!}, Erwerbsunfähigkeitsrente {annuity!} im Jahr; die Rente wird separat bescheinigt.)"},
    {"pillar3a", "a-two-policies", "de", false, "twoPolicies", R"(
        head 3 one
        title [Ihre Policen im Steuerjahr {year}|Prämienzusammenstellung {year} (3a und 3b)]
        cols 22 80 118r 152r 188r
        th Vertragsart ; Police ; Risikoteil ; Sparteil ; Prämie
        rule
        tr Gebundene Vorsorge (Säule 3a) ; {tiednumber} ; {tiedrisk} ; {tiedsaving} ; {tiedpremium}
        tr Freie Vorsorge (Säule 3b) ; {freenumber} ; {freerisk} ; {freesaving} ; {freepremium}
        rule
        tr Zusammen ; ; {risk} ; {saving} ; {premium}
        text [Abziehbar als Beitrag an die Säule 3a ist die ganze Prämie der gebundenen Police, Risiko- und Sparteil.|Die Prämie 3b gehört zu den Versicherungsprämien, jene der Säule 3a zu den Vorsorgebeiträgen.])"},
    {"pillar3a", "a-contract-columns", "de", false, "pillarColumns", R"(
        head 6 one
        big 3a-[Übersicht|Jahresblatt] {year}
        line {one}, {birth}
        cols 22 86r 118r 150r 186r
        th Eingang ; Topf 1 ; Topf 2 ; Topf 3 ; [alle Töpfe|Summe]
        rule
        each rows {on} ; {a1?} ; {a2?} ; {a3?} ; {sum}
        rule
        tb [Einzahlungen|Beiträge] {year} ; {a1} ; {a2} ; {a3} ; {paid}
        tr Wert {end} ; {worth1} ; {worth2} ; {worth3} ;
        small Maximum {limit!} über alle Töpfe und alle Stiftungen zusammen.)"},
    {"pillar3a", "a-sortie", "fr", false, "pillarLeft", R"(
        head 0 one
        title [Relevé {year} du compte de prévoyance 3a|Compte 3a no {number}: mouvements {year}]
        cols 22 58 146r 188r
        th Date ; Libellé ; Débit ; Crédit
        rule
        tr {start} ; Report ; ; {opening}
        each payments {on} ; Versement du preneur ; ; {part}
        tr {movedon} ; Transfert à une autre fondation ; {moved} ;
        tr {end} ; Intérêts ; ; {interest}
        tr {end} ; Frais ; {fee} ;
        rule
        tr {end} ; Avoir ; ; {closing}
        gap 4
        text [Les versements de l'année, soit {paid!}, sont déductibles. Le transfert n'est ni un retrait ni un versement.|Montant à déduire du revenu: {paid!}. Maximum légal: {limit!}.])"},
    {"pillar3a", "a-securities-en", "en", false, "pillarArrived", R"(
        head 4 one
        title [Pillar 3a tax certificate {year}|Tax statement {year}: tied pension provision (pillar 3a)]
        line {one}, AHV no. {ahv}, contract {number}
        cols 22 82 170r
        th Value date ; Transaction ; CHF
        rule
        tr {movedday} ; Transfer from another 3a foundation ; {moved}
        each payments {day} ; Contribution ; {part}
        rule
        tb ; [Tax-deductible contributions|Contributions paid in {year}] ; {paid}
        gap 4
        entry Performance after fees ; {gain}
        entry Market value on 31 December {year} ; {worth}
        small Transfers between foundations are not contributions. The market value is not taxable.)"},
    {"pillar3a", "a-deux-contrats", "fr", false, "pillarContracts", R"(
        head 3 both
        title [Prévoyance liée: versements {year} par contrat|Attestation 3a {year} pour le couple]
        per people
        gap 3
        bold {who}   No AVS {number}
        each contracts !side Contrat {no} ; {part} ; avoir ; {worth}
        sum [Versements {year} à déduire|Total à déclarer] {who} ; {paid}
        endper
        gap 3
        small Chaque conjoint déduit ses propres versements. L'avoir n'est pas imposable.)"},
    {"pillar3a", "a-trasferimento", "it", false, "pillarLeft", R"(
        head 5 one
        bold [Previdenza vincolata {year}: dichiarazione|Conferma {year} per le autorità fiscali (3a)]
        text [Gentile cliente|Egregia signora, egregio signore]
        text [Nel {year} ha versato sul conto di previdenza {number} l'importo di {paid!}, deducibile dal reddito.|Confermiamo i suoi versamenti {year} al pilastro 3a, complessivamente {paid!}.]
        text [Il {movedon} abbiamo trasferito {moved!} a un'altra fondazione. Questo trasferimento non incide sulle imposte.|Il trasferimento di {moved!} a un'altra fondazione ({movedon}) non va dichiarato.]
        below {opening} ; Avere {start} ; {interest} ; Interessi ; {closing} ; Avere {end})"},
};

const std::vector<Sheet> buyIns{
    {"buyin", "a-interest", "de", false, "buyIns", R"(
        head 0 one
        title [Gutschrift freiwilliger Einkäufe {year}|Einkäufe {year} mit Verzinsung]
        cols 22 88r 136r 186r
        th Eingang ; Einkauf ; Zins 1,5 % bis {end} ; gutgeschrieben
        rule
        each payments {on} ; {part} ; {interest} ; {credit}
        rule
        tb {year} ; {part} ; {interest} ; {credit}
        text [Vom Einkommen abziehbar sind die Einkäufe ohne Zins.|Der Zins ist nicht steuerbar und nicht abziehbar.]
        small Altersguthaben {end}: {assets!})"},
    {"buyin", "a-spouses", "de", false, "buyInsOfBoth", R"(
        head 1 both
        bold [Einkäufe {year} für beide Ehegatten|Ihre Einkäufe in die 2. Säule {year}]
        text [Liebe Versicherte|Sehr geehrte Versicherte]
        text [Sie sind beide bei uns versichert und haben {year} Einkäufe geleistet: {one} am {when} {amount!}, {two} am {when2} {amount2!}.|Im Steuerjahr {year} haben wir von {one} einen Einkauf von {amount!} ({when}) und von {two} einen solchen von {amount2!} ({when2}) verbucht.]
        text [Noch möglich sind {possible!} beziehungsweise {possible2!}.|Die Lücken betragen danach {possible!} und {possible2!}.])"},
    {"buyin", "a-wage-and-private", "de", false, "buyInByWage", R"(
        head 6 one
        title [Einkauf von Leistungen {year}|Nachweis der Einkäufe {year}]
        line {one}, {ahv}
        cols 22 130r 186r
        th ; [Lohnausweis Ziffer 10.2|über den Lohn] ; [privat überwiesen|direkt an uns]
        rule
        tr Monatlicher Lohnabzug, 12 mal {month} ; {wage} ;
        tr Einmalige Zahlung vom {when} ; ; {private}
        rule
        tb Einkäufe ; {wage} ; {private}
        gap 3
        text [Was über den Lohn lief, ist im Nettolohn schon berücksichtigt. Zusätzlich abziehen können Sie {private!}.|In der Steuererklärung abzuziehen: {private!}. Die übrigen Einkäufe stehen im Lohnausweis.]
        small Insgesamt gutgeschrieben: {all!})"},
    {"buyin", "a-rachat-plan", "fr", false, "buyInPlan", R"(
        head 2 one
        title [Rachat échelonné de prestations|Plan de rachat: état au {end}]
        dots Rachat convenu ; {agreed}
        dots Versé les années précédentes ; {before}
        sum [Versé en {year} (déductible en {year})|Rachat de l'année {year}] ; {amount}
        dots À verser jusqu'en {next} ; {rest}
        gap 3
        text [Votre versement nous est parvenu le {when}.|Date de réception du versement: {when}.] Personne assurée: {one}, {ahv}.)"},
    {"buyin", "a-riscatto-ditta", "it", false, "buyInWithFirm", R"(
        head 4 one
        title [Riscatto di prestazioni LPP {year}|Attestazione di riscatto {year}]
        cols 22 70 186r
        th Valuta ; Provenienza ; CHF
        tr {when} ; Contributo del datore di lavoro al riscatto ; {firm}
        tr {when} ; [Versamento privato della persona assicurata|Riscatto pagato dalla persona assicurata] ; {amount}
        rule
        tr ; Accreditato ; {all}
        gap 3
        band [Riscatto deducibile|Importo deducibile nella dichiarazione {year}] ; {amount}
        small Riscatto ancora possibile: {possible!})"},
    {"buyin", "a-purchase-en", "en", false, "buyInPlan", R"(
        head 5 one
        bold [Confirmation of voluntary purchase of pension benefits|Pension fund purchase {year}]
        text Dear {one}
        text [We received your payment of {amount!} on {day} and credited it as a voluntary purchase. It can be deducted from your taxable income for {year}.|Your voluntary purchase (Einkauf) of {amount!}, received on {day}, is deductible in the tax year {year}.]
        text [In earlier years you purchased benefits of {before!}.|Earlier purchases amount to {before!}.] The remaining gap is {rest!}. Capital may not be withdrawn within three years.)"},
};

/// A form whose amounts stand in two boxes, francs and rappen, as on a payment slip.
void twoBoxes(Draft& draft) {
    const Facts facts = told(draft, "pillarForm");
    Paper& paper = draft.paper;
    paper.newPage();
    draft.letterHead(draft.random.between(0, 3), draft.family.one.name());
    paper.lineOf(draft.one("Bescheinigung über Vorsorgebeiträge (Säule 3a)|Vorsorgebeiträge 3a, "
                           "Beilage zur Steuererklärung"),
                 {12, true});
    paper.space(4);
    const auto field = [&](const QString& number, const QString& label, const QString& text) {
        paper.put(paper.left, paper.y + 6, number, {8, true});
        paper.put(paper.left + 8, paper.y + 6, label, paper.fitted(label, {8.5}, 86));
        paper.box(120, paper.y, 70, 9, 0.15);
        paper.put(123, paper.y + 6.2, text, {9.5});
        paper.y += 11;
    };
    const auto amount = [&](const QString& number, const QString& label, Cents cents) {
        draft.m(cents);
        QString francs = QString::number(cents / 100);
        if (francs.size() > 3 && !draft.money.mark.isEmpty()) {
            francs.insert(francs.size() - 3, draft.money.mark);
        }
        paper.put(paper.left, paper.y + 6, number, {8, true});
        paper.put(paper.left + 8, paper.y + 6, label, paper.fitted(label, {8.5}, 86));
        paper.box(120, paper.y, 54, 9, 0.15);
        paper.box(175, paper.y, 15, 9, 0.15);
        paper.put(172, paper.y + 6.2, francs, {9.5, false, Align::right});
        paper.put(182.5, paper.y + 6.2, "00", {9.5, false, Align::centre});
        paper.y += 11;
    };
    field("1", "Vorsorgenehmerin, Vorsorgenehmer", draft.family.one.name());
    field("2", "Versichertennummer AHV", draft.family.one.number);
    field("3", "Geburtsdatum", draft.date(draft.family.one.birth));
    field("4", "Bescheinigung für das Jahr", QString::number(draft.year));
    paper.put(172, paper.y + 3, "Fr.", {7, false, Align::right});
    paper.put(182.5, paper.y + 3, "Rp.", {7, false, Align::centre});
    paper.space(5);
    amount("5",
           draft.one("Im Jahr bezahlte Prämien und Beiträge|Abziehbare Beiträge des Jahres (Art. "
                     "82 BVG)"),
           facts.amounts.at("paid"));
    amount("6", "Deckungskapital am Jahresende (nicht steuerbar)", facts.amounts.at("worth"));
}

} // namespace

std::vector<Layout> alpWealthPapers() {
    std::vector<Layout> layouts = scripted({pillars, buyIns});
    layouts.push_back({"pillar3a", "a-two-boxes", false, "de", false, twoBoxes});
    return layouts;
}

} // namespace corpus
