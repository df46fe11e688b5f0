#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of charities and schools.

namespace corpus {
namespace {

const std::vector<Sheet> donations{
    {"donation", "v-thanks", "de", false, "twoGifts", R"(
        head 5 one
        money hyphen
        bold [Ein herzliches Dankeschön|Dank und Ausweis für die Steuern]
        text [Liebe Gönnerin, lieber Gönner|Grüezi {one}]
        text [Zweimal haben Sie {year} an uns gedacht: am {on1} mit {gift1!} und am {on2} mit {gift2!}. Das macht zusammen {amount!}, die Sie in der Steuererklärung abziehen dürfen.|Mit {gift1!} im Frühjahr ({on1}) und {gift2!} vor Weihnachten ({on2}) haben Sie uns {year} insgesamt {amount!} anvertraut.]
        text [Für das nächste Vorhaben fehlen noch {project!}.|Der neue Brunnen kostet {project!}.]
        text Mit freundlichen Grüssen, {issuer})"},
    {"donation", "v-patron", "de", false, "patron", R"(
        head 6 one
        title [Jahresausweis für Gönner|Ausweis Zuwendungen] {year}
        cols 22 150r 190r
        th Einzahlungen ; [nicht abziehbar|Kauf] ; [abziehbar|Spende]
        rule
        tr [Freiwillige Zuwendungen|Gönnerspende] ; ; {amount}
        tr Lose der Tombola ; {lottery} ;
        tr Kalender {next} ; {calendar} ;
        rule
        tb [Abziehbare Zuwendungen|Spenden im Sinne des Steuergesetzes] ; ; {amount}
        small Von Ihnen insgesamt eingegangen: {all!}. Wir sind wegen Gemeinnützigkeit von der Steuer befreit.)"},
    {"donation", "v-dons", "fr", false, "gifts", R"(
        head 2 one
        title [Attestation de dons|Vos dons] {year}
        below {amount!} ; [Montant total de vos dons|Somme des dons reçus de {one}]
        text [Merci de votre fidélité. Voici le détail de vos versements:|Détail:]
        each gifts !dots {on} ; {part}
        small En {prev}, vous nous aviez confié {before!}. Institution reconnue d'utilité publique.)"},
};

const std::vector<Sheet> courses{
    {"course", "v-own-share", "de", false, "ownShare", R"(
        head 1 one
        title [Kostenausweis|Nachweis der selbst getragenen Kosten] «{course}»
        line Teilnehmer/in: {one}, Studienjahr {year}
        mid [Vollkosten des Lehrgangs|Kurspreis gemäss Vertrag] ; {price}
        mid [davon durch Arbeitgeber bezahlt|Rechnung an den Betrieb] ; {-employer}
        mid [davon Bundesbeitrag (Subjektfinanzierung)|Beitrag des Bundes] ; {-grant}
        rule
        sum [Selbst getragene Kosten {year}|Von Ihnen bezahlt {year}|Ihr Anteil an den Weiterbildungskosten] ; {amount~}
        small Eine Lektion kostet rechnerisch {lesson!}.)"},
    {"course", "v-modules", "de", false, "coursesInTwoYears", R"(
        head 3 one
        title [Zahlungsübersicht Nachdiplomkurs|Modulabrechnung] {one}
        cols 22 46 96 154r 190r
        th ; Thema ; Zahlung vom ; {prev} ; {year}
        rule
        each modules {name} ; {topic} ; {on} ; {earlier?} ; {part?}
        rule
        tb [Bezahlte Kurskosten|Zahlungen pro Jahr] ; ; ; {earlier} ; {amount}
        text [Abziehbar ist, was im Steuerjahr {year} bezahlt wurde: {amount!}.|Im Steuerjahr {year} haben Sie {amount!} für Ihre Weiterbildung bezahlt.]
        small Ganzer Lehrgang: {all!})"},
    {"course", "v-formation", "fr", false, "coursePaid", R"(
        head 0 one
        bold [Attestation de paiement – formation continue|Attestation de frais de formation]
        text [Nous attestons que {one} a suivi notre formation et s'est acquitté(e) le {paid} de la somme de {amount!}.|Pour sa formation continue, {one} nous a versé {amount!} en date du {paid}.]
        entry Écolage ; {fee}
        entry Matériel de cours ; {material}
        sum [Frais de formation {year}|Total payé] ; {amount}
        small En cas d'annulation tardive: {cancel!}.)"},
};

} // namespace

std::vector<Layout> valleyLifePapers() { return scripted({donations, courses}); }

} // namespace corpus
