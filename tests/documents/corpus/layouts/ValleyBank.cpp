#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of banks and of registers printed without a barcode.

namespace corpus {
namespace {

const std::vector<Sheet> banks{
    {"bank", "v-relation", "de", false, "relation", R"(
        head 1 both
        title [Ihre Kundenbeziehung auf einen Blick|Gesamtübersicht für die Steuererklärung|Zins- und Kapitalausweis] {year}
        line Stamm-Nr. {#3}.{#4}   Alle Beträge in CHF, Stichtag {end}
        gap 2
        bold [Was wir Ihnen schulden|Ihr Geld bei uns|Guthaben]
        cols 22 62 132r 158r 190r
        th [Vertrag|Konto-Nr.] ; Produkt ; [Zins {year}|gutgeschrieben] ; [davon VSt|VSt 35 %] ; [Stand|am 31.12.]
        rule
        each accounts {number} ; {name} ; {interest} ; {tax?} ; {balance}
        tb Zwischentotal ; ; {credit} ; {tax?} ; {assets}
        gap 6
        bold [Was Sie uns schulden|Ihre Finanzierung|Verpflichtungen]
        th [Vertrag|Kredit-Nr.] ; Produkt ; [Zins {year}|belastet] ; Satz ; [Schuld|am 31.12.]
        rule
        each loans {number} ; {name} ; {interest} ; {rate} ; {-debt}
        tb Zwischentotal ; ; {paid} ; ; {-debts}
        gap 3
        entry [Guthaben abzüglich Schulden|Saldo der Beziehung] ; {-rest}
        small [Für die Kontoführung wurden {fee!} belastet; diese Spesen sind nicht abziehbar.|Kontoführung und Versand {year}: {fee!}.])"},
    {"bank", "v-currencies", "de", false, "currencies", R"(
        head 0 one
        title [Steuerverzeichnis Konten|Vermögen und Ertrag in allen Währungen] {year}
        cols 22 56 66 98r 116r 138r 162r 190r
        th ; Whg. ; ; Saldo ; Kurs ; Zins ; [Zins CHF|in CHF] ; [Saldo CHF|Wert CHF]
        rule
        per accounts
        tr {name} ; {code} ; ; {foreign} ; {rate} ; {foreigninterest} ; {interest} ; {balance}
        small {number}
        endper
        rule
        tb Summe in Franken ; ; ; ; ; ; {interest} ; {balance}
        gap 2
        entry [darauf zurückbehalten: 35 % an die Eidgenossenschaft|abgezogene Verrechnungssteuer] ; {tax?}
        small Kurse der Eidgenössischen Steuerverwaltung per {end}. Kartengebühren {fee!} sind nicht enthalten.)"},
    {"bank", "v-releve", "fr", false, "twoYears", R"(
        head 2 one
        title [Avoirs et intérêts|État de vos comptes pour la déclaration d'impôt|Bouclement annuel] {year}
        text Madame, Monsieur, nous vous indiquons ci-après les chiffres à reporter dans votre déclaration.
        cols 22 130r 160r 190r
        per accounts
        bold {name}  {number}
        th ; ; au 31.12.{year} ; au 31.12.{prev}
        tr [Fortune|Avoir en compte|Solde en votre faveur] ; ; {balance} ; {before}
        tr [Intérêts crédités, bruts|Rendement brut de l'exercice] ; ; {interest} ; {interestbefore}
        tr [dont impôt anticipé retenu|Impôt anticipé 35 %] ; ; {tax} ;
        tr Frais de tenue de compte ; ; {fee} ;
        rule
        endper
        tb Ensemble des avoirs ; ; {balance} ; {before}
        tb Ensemble des intérêts ; ; {interest} ; {interestbefore}
        small Le présent relevé est établi sans signature.)"},
    {"bank", "v-estratto", "it", false, "relation", R"(
        head 4 one
        title [Situazione patrimoniale per la dichiarazione d'imposta|Riepilogo fiscale|Attestato per l'autorità fiscale] {year}
        per accounts
        bold {name}
        entry Relazione IBAN ; {number}
        entry [Averi al 31 dicembre {year}|Consistenza al 31.12.{year}] ; {balance~}
        entry [Interessi accreditati (lordi)|Interessi attivi lordi] ; {interest~}
        entry [meno imposta preventiva|Trattenuta imposta preventiva 35 %] ; {-tax}
        gap 3
        endper
        per loans
        bold {name} {number}
        entry [Nostro credito al 31.12.{year}|Importo dovuto al 31 dicembre {year}] ; {debt~}
        entry [Interessi pagati nel corso dell'anno|Interessi a suo carico] ; {interest~}
        entry Tasso ; {rate}
        gap 3
        endper
        rule
        colon Totale averi ; {assets!}
        colon Totale debiti ; {debts!}
        small Spese di gestione {fee!}, non deducibili.)"},
    {"bank", "v-overdrawn", "de", false, "overdrawn", R"(
        head 5 one
        bold [Kontoabschluss und Steuerbestätigung|Zinsausweis Kontokorrent] {year}
        line Kontokorrent mit Limite {limit!}, {number}
        cols 22 150r 190r
        th ; Soll ; Haben
        rule
        tr [Belastete Zinsen|Sollzinsen] 1.1.–31.12. ; {owed} ;
        tr Habenzinsen ; ; 0.00
        tr Kreditkommission ; {commission} ;
        tr Porti und Spesen ; {postage} ;
        tb Belastungen insgesamt ; {charged} ;
        gap 2
        sum [Saldo per {end} zu unseren Gunsten|Negativsaldo {end}] ; {-debt}
        gap 5
        per accounts
        bold {name}, {number}
        tr [Saldo per {end} zu Ihren Gunsten|Guthaben am {end}] ; ; {balance}
        tr Habenzinsen brutto ; ; {interest}
        tr [Verrechnungssteuer|an die ESTV abgeliefert] ; {tax?} ;
        endper
        small Kommissionen und Spesen gelten nicht als Schuldzinsen.)"},
    {"bank", "v-closed", "de", false, "closedAndOpen", R"(
        head 3 one
        title [Ausweis für das Steuerjahr|Bescheinigung der Konten] {year}
        cols 22 190r
        per closed
        bold {name}   {number}
        text [Dieses Konto wurde am {when} aufgehoben; ausbezahlt wurden {payout!}.|Saldiert per {when}. Schlusszahlung an Sie: {payout!}.]
        tr [Zins bis zur Saldierung, brutto|Marchzins bei Auflösung (brutto)] ; {interest}
        tr abzüglich Verrechnungssteuer ; {tax}
        tr Gebühr für die Aufhebung ; {charge}
        tb Kontostand {end} ; 0.00
        rule
        endper
        per accounts
        bold {name}   {number}
        tr [Zins im Jahr {year}, brutto|Bruttozins] ; {interest}
        tr abzüglich Verrechnungssteuer ; {tax}
        tb Kontostand {end} ; {balance}
        endper)"},
    {"bank", "v-principality", "de", false, "principalityCurrencies", R"(
        head 6 both
        title Vermögensbestätigung per {end}
        text [Als Bank mit Sitz im Fürstentum Liechtenstein behalten wir auf Zinsen keine Steuer zurück. Die Erträge sind brutto angegeben.|Die Zinsen wurden ohne Abzug einer Quellen- oder Verrechnungssteuer gutgeschrieben.]
        per accounts
        band {name} ({code}) ; {number}
        side Saldo {code} ; {foreign} ; Kurs {rate}, Wert CHF ; {balance}
        side Zinsen {code} ; {foreigninterest} ; [Zinsertrag in CHF|Ertrag CHF] ; {interest}
        endper
        gap 2
        sum Vermögen total CHF ; {balance}
        entry Zinsertrag total CHF ; {interest}
        entry Bezogene Dienstleistungen (Gebühren) CHF ; {fee})"},
    {"bank", "v-two-years", "de", false, "twoYears", R"(
        head 4 one
        money spaced
        title Steuerbescheinigung für Kontoinhaber, Ausgabe Januar {next}
        per accounts
        cols 22 118r 190r
        bold {number}  ({name})
        th ; 31.12.{prev} ; 31.12.{year}
        tr [Kapital|Einlage|Guthaben] ; {before} ; {balance}
        tr [Zins vor Abzug|Zins brutto] ; {interestbefore} ; {interest}
        tr VSt ; ; {tax?}
        tr Gebühren ; ; {-fee}
        gap 4
        endper
        cols 22 118r 190r
        rule
        tb Kapital aller Konten ; {before} ; {balance})"},
    {"bank", "v-fees", "de", false, "bookedFees", R"(
        head 2 one
        title Gebühren und Zinsen {year}
        line {name} {number}
        cols 22 50 190r
        th Valuta ; Text ; Belastung
        rule
        each bookings {on} ; {what} ; {part}
        tb ; Gebühren total ; {fees}
        gap 6
        bold [Angaben für Ihre Steuererklärung|In das Wertschriftenverzeichnis zu übertragen]
        below {interest!} ; [Bruttozins, Valuta {end}|Zins {year} brutto]
        below {tax!} ; davon Verrechnungssteuer
        below {balance!} ; [Saldo per {end}|Guthaben am Jahresende])"},
    {"bank", "v-tranches", "de", false, "loans", R"(
        head 0 both
        title [Finanzierung Ihrer Liegenschaft: Jahresausweis|Zins- und Amortisationsausweis] {year}
        line Rahmenvertrag {#6}, Grundpfandverschreibung nominal {pledge!}
        cols 22 44 88r 114r 136r 160r 190r
        th ; Laufzeit bis ; 1. Januar ; amortisiert ; Zinssatz ; [Zins bezahlt|bezahlt] ; 31. Dezember
        rule
        each loans {name} ; {until} ; {before} ; {redemption} ; {rate} ; {interest} ; {debt}
        rule
        tb Alle ; ; {before} ; {redemption} ; ; {interest} ; {debt}
        gap 3
        entry [Aufgelaufener, noch nicht belasteter Zins|Marchzins, im neuen Jahr fällig] ; {accrued}
        entry Schätzgebühr ; {fee})"},
};

const std::vector<Sheet> registers{
    {"statement", "v-securities", "de", false, "register", R"(
        head 6 one
        title [Wertschriftenverzeichnis|Depotauszug für die Steuererklärung|Steuerliche Aufstellung Depot {#6}] {year}
        line Steuerwerte und Erträge in CHF. A = mit, B = ohne Verrechnungssteuer.
        cols 22 42 104r 122r 148r 169r 190r
        th Valor ; Titel ; Anzahl ; Kurs ; Steuerwert ; [Ertrag A|A brutto] ; [Ertrag B|B brutto]
        rule
        each shares {valor} ; {name}, {kind} ; {count} ; {price} ; {value} ; {a?} ; {b?}
        each funds {valor} ; {name}, {kind} ; {count} ; {price} ; {value} ; {a?} ; {b?}
        rule
        tb ; Gesamttotal ; ; ; {value} ; {a} ; {b}
        entry [Anspruch Verrechnungssteuer|Rückforderbare VSt auf A] ; {tax})"},
    {"statement", "v-classes", "de", false, "register", R"(
        head 3 one
        bold Jahresausweis Vermögensanlagen {year}
        line Depot {#4}-{#5}, per {end}
        cols 22 102r 128r 160r 190r
        th ; Anzahl ; Kurs ; Ertrag ; [Steuerwert|Wert {end}]
        rule
        bold Aktien
        per shares
        tr {name} ({valor}) ; {count} ; {price} ; ; {value}
        tr [Dividende mit Verrechnungssteuer|Ertrag mit VSt] ; ; ; {a?} ;
        tr [Dividende ohne Verrechnungssteuer|Ertrag ohne VSt] ; ; ; {b?} ;
        endper
        bold Anlagefonds
        per funds
        tr {name} ({valor}) ; {count} ; {price} ; ; {value}
        tr [Ausschüttung mit Verrechnungssteuer|Ertrag mit VSt] ; ; ; {a?} ;
        tr [Ausschüttung ohne Verrechnungssteuer|Ertrag ohne VSt] ; ; ; {b?} ;
        endper
        rule
        tb Alles ; ; ; ; {value}
        entry [Depotgebühren und Verwaltung|Kosten der Vermögensverwaltung] ; {costs})"},
    {"statement", "v-debts", "de", false, "debtRegister", R"(
        head 4 both
        title [Verzeichnis der Schulden|Zusammenstellung Schulden und Schuldzinsen] {year}
        cols 22 82 152r 190r
        th Gläubiger ; Art ; [Zins {year}|Schuldzins] ; [Schuld {end}|Betrag {end}]
        rule
        each loans {creditor} ; {name} ; {interest} ; {debt}
        rule
        tb [Zu übertragen|Übertrag in die Steuererklärung] ; ; {interest} ; {debt}
        small [Leasingraten von {leasing!} im Monat sind weder Schuld noch Schuldzins.|Nicht aufgeführt: Leasing Personenwagen, {leasing!} pro Monat.])"},
};

} // namespace

std::vector<Layout> valleyBankPapers() { return scripted({banks, registers}); }

} // namespace corpus
