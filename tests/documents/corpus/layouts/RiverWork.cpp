#include "tests/documents/corpus/layouts/facts/Tale.h"

#include <algorithm>

// Layouts of employers, of funds that pay daily allowances and of authorities.

namespace corpus {
namespace {

struct Posting {
    QString what;
    Cents cents = 0;
    bool sum = false;
};

/// A framed list of its own: its lines do not stand level with those of the list beside it.
double panel(Draft& draft, double x, double step, const QString& title,
             const std::vector<Posting>& postings) {
    Paper& paper = draft.paper;
    const double top = paper.y;
    const double width = 81;
    double y = top + 6;
    paper.fill(x, top, width, 8, QColor(224, 230, 238));
    paper.put(x + 2, y - 0.5, title, paper.fitted(title, {9, true}, width - 4));
    y += 3;
    for (const Posting& one : postings) {
        if (one.cents == 0) {
            continue;
        }
        y += step;
        if (one.sum) {
            y += 2;
            paper.line(x + 2, y - 4.4, x + width - 2, y - 4.4, 0.2);
        }
        const QString digits = draft.m(one.cents);
        const Type type{8.5, one.sum};
        const double room = width - 6 - paper.width(digits, type);
        paper.put(x + 2, y, one.what, paper.fitted(one.what, type, room));
        paper.put(x + width - 2, y, digits, {8.5, one.sum, Align::right});
    }
    y += 4;
    paper.box(x, top, width, y - top, 0.2);
    return y;
}

void drawPanels(Draft& draft) {
    const Facts facts = told(draft, "wageSocialSplit");
    const bool compact = draft.random.chance(50);
    const QByteArray head = compact ? "head 6 one" : "head 1 one";
    const QByteArray script = head + R"(
        title [Lohnbescheinigung für das Jahr|Jahreslohn, Aufstellung] {year} // [Récapitulation de salaire|Salaire annuel] {year} // [Distinta del salario|Conteggio annuo del salario] {year}
        line {one}, {ahv}, geboren am {birth} // {one}, {ahv}, né(e) le {birth} // {one}, {ahv}, nato/a il {birth})";
    drawScript(draft, facts, script);
    const auto a = [&](const char* name) { return facts.amounts.at(name); };
    Paper& paper = draft.paper;
    paper.space(3);
    const double leftEnd = panel(
        draft, 22, 5.6, draft.t("Einkünfte|Bezüge", "Revenus|Gains", "Entrate|Retribuzioni"),
        {{draft.t("Monatslöhne", "Salaires mensuels", "Salari mensili"), a("year12")},
         {draft.t("13. Monatslohn", "13e salaire", "Tredicesima"), a("thirteenth")},
         {draft.t("Überzeit", "Heures supplémentaires", "Ore straordinarie"), a("overtime")},
         {draft.t("Kinderzulagen", "Allocations pour enfants", "Assegni per figli"), a("children")},
         {draft.t("Summe der Einkünfte|Bruttolohn", "Total brut|Salaire brut",
                  "Totale lordo|Salario lordo"),
          a("gross"), true}});
    const double rightEnd =
        panel(draft, 109, 6.9, draft.t("Abzüge", "Retenues|Déductions", "Trattenute|Deduzioni"),
              {{"AHV/IV/EO", draft.language == "de" ? a("avs") : 0},
               {draft.t("", "AVS/AI/APG", "AVS/AI/IPG"), draft.language == "de" ? 0 : a("avs")},
               {draft.t("ALV", "AC", "AD"), a("alv")},
               {draft.t("NBU", "AANP", "AINP"), a("nbu")},
               {draft.t("Pensionskasse", "LPP|Caisse de pension", "LPP|Cassa pensioni"), a("bvg")},
               {draft.t("Summe der Abzüge", "Total des retenues", "Totale trattenute"),
                a("deductions"), true}});
    paper.y = std::max(leftEnd, rightEnd) + 5;
    paper.fill(paper.left, paper.y, 168, 10, QColor(240, 236, 220));
    paper.put(paper.left + 2, paper.y + 6.6,
              draft.t("Nettolohn|Lohn nach Abzügen", "Salaire net", "Salario netto"), {11, true});
    paper.put(paper.right - 2, paper.y + 6.6, draft.s(a("net")), {11, true, Align::right});
    paper.y += 16;
}

/// A row of the year's account: what it is called, its twelve months and their sum.
QString acrossRow(const char* command, const QString& label, const QString& name) {
    QString row = QString(command) + " " + label;
    for (int month = 1; month <= 12; ++month) {
        row += QString(" ; {%1%2?}").arg(name).arg(month);
    }
    return row + " ; {" + name + "?}\n";
}

void drawMonthsAcross(Draft& draft) {
    const Facts facts = told(draft, "wageMonthsAcross");
    QString script = "wide\nhead 4 one\ntitle [Lohnkonto {year}|Jahreslohnkonto {year}|Lohnblatt "
                     "{year}], {one}\nline AHV-Nummer {ahv}, Geburtsdatum {birth}\ncols 22";
    for (int month = 0; month <= 12; ++month) {
        script += QString(" %1r").arg(month == 12 ? 277.0 : 72 + 16.6 * month, 0, 'f', 1);
    }
    script += "\nth ; Jan ; Feb ; Mrz ; Apr ; Mai ; Jun ; Jul ; Aug ; Sep ; Okt ; Nov ; Dez ; "
              "Jahr\nrule\n";
    script += acrossRow("tr", "Monatslohn", "salary") + acrossRow("tr", "13. Lohn", "thirteenth")
              + acrossRow("tr", "[Überstunden|Zuschläge]", "extra")
              + acrossRow("tr", "Kinderzulagen", "children")
              + acrossRow("tb", "[Brutto|Bruttolohn|Lohn brutto]", "gross") + "gap 2\n"
              + acrossRow("tr", "[AHV, ALV, NBU|AHV bis NBU]", "social")
              + acrossRow("tr", "[PK|Pensionskasse|BVG]", "bvg")
              + acrossRow("tb", "[Netto|Nettolohn|Lohn netto]", "net") + "gap 2\n"
              + acrossRow("tr", "Spesen", "travel")
              + acrossRow("tr", "[Bank|Überwiesen|Zahlung]", "payout");
    drawScript(draft, facts, script.toUtf8().constData());
}

void drawTwoFirms(Draft& draft) {
    const Facts first = told(draft, "wage");
    drawScript(draft, first, R"(
        head 0 one
        title [Lohnmeldung|Bescheinigung Lohnbezug] {year}
        line Versicherte Person {one}, {ahv}, geboren am {birth}
        cols 22 30 150r 190r
        tr A ; Lohn einschliesslich 13. Monatslohn und Zulagen ; ; {gross}
        tr B ; Arbeitnehmerbeiträge AHV/IV/EO/ALV/NBU ; {social} ;
        tr C ; Arbeitnehmerbeiträge berufliche Vorsorge ; {bvg} ;
        tr D ; [B und C|Abzüge B + C] ; ; {deductions}
        tb E ; Nettolohn [(A – D)|A abzüglich D] ; ; {net}
        small Spesenersatz nach Beleg {travel!}. Seite 1 von 1)");
    const Facts second = told(draft, "secondWage");
    drawScript(draft, second, R"(
        head 5 one
        bold [Lohnausweis Nebenamt|Bestätigung der Entlöhnung] {year}
        text Wir haben {one} (geb. {birth}) im Jahr {year} wie folgt entlöhnt:
        leftsum {gross} ; Lohn brutto
        left {-social} ; [AHV, IV, EO, ALV, NBUV|AHV/IV/EO, ALV und NBU]
        left {-bvg} ; [Vorsorgestiftung, Ihr Anteil|BVG Arbeitnehmer]
        leftsum {net} ; Lohn netto
        text Für den Verein / die Firma: {issuer})");
}

const std::vector<Sheet> salaries{
    // As a line printer sets it: signs of one width, what is taken off with a minus.
    {"salary", "r-printout", "de,it", false, "wage", R"(
        mono
        head 5 one
        bold [JAHRESZUSAMMENZUG LOHNARTEN|LOHNARTENLISTE KUMULIERT] 01-12/{year} // // [ELENCO CUMULATIVO DELLE VOCI|RIEPILOGO VOCI SALARIALI] 01-12/{year}
        line PERS {#6} {one} GEB. {birth} {ahv} // // DIP {#6} {one} NATO {birth} {ahv}
        cols 22 38 146r 188r
        tr 1005 ; MONATSLOHN // // SALARIO MENSILE ; 12,00 ; {year12}
        tr 1015 ; UEBERZEIT // // STRAORDINARI ; ; {overtime?}
        tr 1210 ; 13. MONATSLOHN // // TREDICESIMA ; 1,00 ; {thirteenth}
        tr 3020 ; KINDERZULAGE // // ASSEGNI FAMILIARI ; ; {children?}
        tr 5000 ; BRUTTOLOHN // // SALARIO LORDO ; ; {gross}
        tr 5010 ; AHV-BEITRAG // // CONTRIBUTO AVS ; 5,300 % ; {-avs}
        tr 5020 ; ALV-BEITRAG // // CONTRIBUTO AD ; 1,100 % ; {-alv}
        tr 5040 ; NBUV-BEITRAG // // CONTRIBUTO AINP ; ; {-nbu}
        tr 5049 ; TOTAL AHV/ALV/NBUV // // TOTALE AVS/AD/AINP ; ; {-social}
        tr 5050 ; BVG-BEITRAG // // CONTRIBUTO LPP ; ; {-bvg}
        tr 6000 ; NETTOLOHN // // SALARIO NETTO ; ; {net}
        tr 6050 ; REISESPESEN // // SPESE DI VIAGGIO ; ; {travel}
        tr 6600 ; AUSZAHLUNG // // VERSAMENTO ; ; {paidout}
        tr 9010 ; AG-ANTEIL AHV // // QUOTA DATORE AVS ; ; {ahvfirm}
        tr 9050 ; AG-ANTEIL BVG // // QUOTA DATORE LPP ; ; {bvgfirm}
        tr 9070 ; FAMILIENAUSGLEICHSKASSE // // CASSA ASSEGNI FAMILIARI ; ; {famfirm})"},
    // A card for each month, then the reckoning in a sentence and few figures.
    {"salary", "r-home-help", "de", false, "homeHelp", R"(
        head 6 one
        title [Lohn im Privathaushalt|Lohnabrechnung Haushalthilfe] {year}
        line {one}, geb. {birth}, AHV {ahv}; Stundenlohn {rate!}
        grid 4
        each months !cell {month}: {hours} Std. ; {part}
        endgrid
        text Total {hours} Stunden = {wage!}. Ferienzuschlag 8.33 % = {holiday!}.
        entry Lohn brutto mit Ferienzuschlag ; {gross}
        entry AHV/IV/EO 5.3 % ; {-avs}
        entry ALV 1.1 % ; {-alv}
        entry [Abzüge zusammen|Sozialabzüge total] ; {-social}
        sum Lohn netto ; {net}
        small Ordentliches Verfahren. Keine Pensionskasse, da unter der Eintrittsschwelle. NBU nicht versichert.)"},
    {"salary", "r-jobless", "de,fr", false, "jobless", R"(
        head 4 one
        title [Bescheinigung über bezogene Leistungen|Leistungsbezug] {year} // [Attestation des indemnités versées|Récapitulatif des indemnités] {year}
        line {one}, {birth}, {ahv}
        side Taggeld brutto // Indemnité journalière brute ; {day} ; Versicherter Verdienst im Monat // Gain assuré par mois ; {insured}
        gap 3
        cols 22 72r 96r 120r 142r 164r 190r
        th [Kontrollperiode|Monat] // [Période de contrôle|Mois] ; [Taggelder|Tage] // [Indemnités|Jours] ; Brutto // Brut ; AHV/IV/EO // AVS/AI/APG ; BVG // LPP ; NBU // AANP ; Netto // Net
        rule
        each months {month} ; {days} ; {gross} ; {avs} ; {bvg} ; {nbu} ; {net}
        rule
        tb [Jahr|Zusammen] // [Année|Ensemble] ; {days} ; {gross} ; {avs} ; {bvg} ; {nbu} ; {net}
        text In die Steuererklärung gehört der Betrag in der Spalte «Netto». // Le montant de la colonne «Net» est à reporter dans la déclaration d'impôt.)"},
    {"salary", "r-accident-days", "de", false, "accidentDays", R"(
        head 5 one
        bold [Steuerausweis Taggelder {year}|Bestätigung der Taggelder {year}], Schaden {case}
        text [Für die Folgen Ihres Unfalls vom {accident} haben wir Ihnen folgende Taggelder ausgerichtet.|Unfall vom {accident}: Taggeldleistungen]
        per periods
        mid {from} bis {until}, Arbeitsunfähigkeit {percent}: {days} Tage zu {rate} ; {part}
        endper
        rule
        mid [Taggelder des Jahres|Ausgerichtete Taggelder|Taggeldsumme] ; {total!}
        small Das volle Taggeld beträgt {rate!} (80 % von {insured!} durch 365). Heilungskosten von {doctor!} haben wir direkt bezahlt; sie sind nicht zu versteuern.)"},
    {"salary", "r-maternite", "fr", false, "maternity", R"(
        head 2 one
        title [Allocation de maternité|Allocations pour perte de gain (maternité)] {year}
        line Assurée: {one}, {ahv}. Naissance le {birthday}. Indemnité journalière {day!}
        cols 22 72 108r 130r 160r 190r
        th Période ; Versé à ; Jours ; Brut ; AVS/AI/APG/AC ; Net
        rule
        each periods {from} – {until} ; {whom} ; {days} ; {gross} ; {-social} ; {net}
        rule
        text [Seules les allocations qui vous ont été versées directement sont à déclarer, soit {net!} net. Le reste figure sur votre certificat de salaire.|Montant à déclarer: {net!} (versé sur votre compte). L'allocation versée à l'employeur est comprise dans votre salaire.])"},
    {"salary", "r-maternita", "it", false, "maternity", R"(
        head 0 one
        title [Indennità di maternità|Indennità per perdita di guadagno] {year}
        line {one}, N. AVS {ahv}, parto del {birthday}
        per periods
        bold Dal {from} al {until}, versata a: {whom}
        side Giorni {days} ; {gross} ; Contributi AVS/AI/IPG/AD ; {-social}
        entry Indennità netta ; {net}
        gap 2
        endper
        rule
        sum [Da dichiarare: indennità nette versate a Lei|Reddito imponibile (versato direttamente)] ; {net~}
        small Indennità giornaliera {day!}. La parte versata al datore di lavoro figura nel certificato di salario.)"},
    {"salary", "r-council", "de", false, "council", R"(
        head 1 one
        title [Entschädigung Behördenmitglied|Sitzungsgelder und Pauschalen] {year}
        line {one}, geb. {birth}, {ahv}
        each rows !side {on1} {body1} ; {a1} ; {on2} {body2} ; {a2}
        rule
        entry Sitzungsgelder gemäss Liste ; {sittings}
        entry [Jahrespauschale|Grundentschädigung Behörde] ; {lump}
        sum [Entschädigung brutto|Bruttolohn] ; {gross}
        entry Beiträge AHV/IV/EO/ALV ; {-social}
        sum [Entschädigung netto|Nettolohn] ; {net}
        entry Spesenpauschale, bewilligt ; {expenses}
        entry Auszahlung im Dezember ; {payout})"},
    {"salary", "r-wagetax", "de", false, "wageTaxMonths", R"(
        head 3 one
        title [Lohnsteuerausweis|Lohn- und Lohnsteuerkonto] {year}
        line {one}, geboren {birth}, PEID {#7}
        cols 22 56r 76r 94r 112r 134r 152r 170r 190r
        th Monat ; Lohn ; AHV ; ALV ; NBU ; Pension ; Netto ; Steuer ; Zahlung
        rule
        each months {month} ; {gross} ; {avs} ; {alv} ; {nbu} ; {bvg} ; {net} ; {wagetax} ; {payout}
        rule
        tb ; {gross} ; {avs} ; {alv} ; {nbu} ; {bvg} ; {net} ; {wagetax} ; {payout}
        gap 4
        grid 3
        cell [Bruttolohn|Jahresbruttolohn] ; {gross}
        cell Beiträge AHV/IV/FAK, ALV, NBU ; {social}
        cell [Pensionskasse Arbeitnehmer|Betriebliche Vorsorge] ; {bvg}
        cell [Nettolohn|Jahresnettolohn] ; {net}
        cell Lohnsteuer (4 %), abgeliefert ; {wagetax}
        cell Gemeinde ; {home}
        endgrid)"},
    {"salary", "r-corrected", "de", false, "correctedWage", R"(
        head 0 one
        title [Berichtigte Lohnbescheinigung|Korrektur Ihres Lohnausweises|Ersatz-Lohnausweis] {year}
        text [Unser Lohnausweis vom {first} enthielt eine Prämie nicht. Bitte verwenden Sie für die Steuererklärung die Spalte «richtig».|Die Bescheinigung vom {first} ist ungültig. Massgebend sind die Beträge unter «richtig».]
        line {one}, geboren {birth}, Anstellung {from} bis {until}
        cols 22 118r 154r 190r
        th CHF ; bisher ; Unterschied ; richtig
        rule
        tr [Bruttolohn total|Lohn brutto] ; {oldgross} ; {diffgross} ; {gross}
        tr [AHV/IV/EO/ALV/NBUV|Beiträge AHV, ALV, NBU] ; {oldsocial} ; {diffsocial} ; {social}
        tr [Berufliche Vorsorge|Pensionskasse, ordentlich] ; {oldbvg} ; {diffbvg} ; {bvg}
        tb [Nettolohn|Lohn netto] ; {oldnet} ; {diffnet} ; {net})"},
};

const std::vector<Sheet> nothings{
    {"other", "r-simplified", "de", false, "simplifiedWage", R"(
        head 0 one
        title [Bescheinigung vereinfachtes Abrechnungsverfahren|Abrechnung nach dem vereinfachten Verfahren (BGSA)] {year}
        text Arbeitgeber: {household}. Arbeitnehmerin, Arbeitnehmer: {one}, {ahv}
        dots Lohn brutto ; {gross}
        dots Beiträge AHV/IV/EO/ALV ; {-social}
        dots Quellensteuer 5 % (Bund, Kanton und Gemeinde) ; {-tax}
        sum Ausbezahlt ; {net}
        text [Mit der Quellensteuer sind die Steuern auf diesem Lohn abschliessend bezahlt. Er ist nicht mehr als Einkommen zu deklarieren.|Dieser Lohn ist durch den Steuerabzug von 5 % endgültig besteuert und gehört nicht in die Steuererklärung.])"},
    {"other", "r-simplifiee", "fr", false, "simplifiedWage", R"(
        head 4 one
        title [Attestation selon la procédure simplifiée|Procédure de décompte simplifiée (LTN)] {year}
        colon Employeur ; {household}
        leftsum {gross} ; Salaire brut
        left {-social} ; Cotisations AVS/AI/APG/AC
        left {-tax} ; Impôt à la source 5 %
        leftsum {net} ; Salaire versé
        text [L'impôt de 5 % est libératoire: ce salaire n'est pas à déclarer.|Ce revenu est imposé définitivement et ne doit plus figurer dans la déclaration d'impôt.])"},
};

} // namespace

std::vector<Layout> riverWorkPapers() {
    std::vector<Layout> layouts = scripted({salaries, nothings});
    layouts.push_back({"salary", "r-panels", false, "de,fr,it", false, drawPanels});
    layouts.push_back({"salary", "r-months-across", false, "de", false, drawMonthsAcross});
    layouts.push_back({"salary", "r-two-firms", false, "de", false, drawTwoFirms});
    return layouts;
}

} // namespace corpus
