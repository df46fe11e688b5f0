#include "tests/documents/corpus/layouts/facts/Tale.h"

// Layouts of pillar 3a, of banks and of health insurers.

namespace corpus {
namespace {

const char* const everyLanguage = "de,fr,it";

const std::vector<Sheet> pillars{
    {"pillar3a", "amounts-first", everyLanguage, false, "pillar", R"(
        head 5 one
        title @title3a {year}
        colon @person ; {one}
        colon @contract ; {#3}.{#6}
        gap 5
        left CHF ;
        left {opening} ; @opening
        leftsum {paid} ; @paid3a
        left {interest} ; @interest3a
        left {-fee} ; @fees
        rule
        left {closing} ; @closing)"},
    {"pillar3a", "cells", everyLanguage, false, "pillar", R"(
        head 6 one
        title @title3a
        grid 2
        cell @person ; {one}
        cell @born ; {birth}
        cell @ahvno ; {ahv}
        cell @contract ; {#8}
        cell @paid3a {year} ; {paid!}
        cell @closing ; {closing!}
        cell @interest3a ; {interest!}
        cell @limit ; {limit!}
        endgrid
        small {issuer}, {phone})"},
    {"pillar3a", "movements", everyLanguage, false, "pillar", R"(
        head 0 one
        title @title3a {year}
        line IBAN {iban}
        gap 3
        cols 22 60 145r 190r
        th @date ; ; @amount ; @closing
        rule
        tr {start} ; @opening ; ; {opening}
        each payments {on} ; 3a ; {part}
        tr {end} ; @interest3a ; {interest} ;
        rule
        tb ; @paid3a ; {paid} ;
        tb {end} ; @closing ; ; {closing})"},
    {"pillar3a", "letter", "de", false, "pillar", R"(
        head 1 one
        bold @title3a {year}
        text [Guten Tag|Sehr geehrte Damen und Herren|Liebe Kundin, lieber Kunde]
        text [Wir bestätigen, dass im Kalenderjahr {year} Beiträge in der Höhe von {paid!} auf Ihr Vorsorgekonto {#9} einbezahlt wurden.|Sie haben {year} insgesamt {paid!} in die Säule 3a (Vertrag {#6}) einbezahlt.|Auf Ihrem 3a-Konto {#7} sind {year} Einzahlungen von total {paid!} eingegangen. Diese dürfen Sie vom steuerbaren Einkommen abziehen.]
        maybe 60 text [Das Vorsorgevermögen beträgt per {end} {closing!} und muss nicht deklariert werden.|Ende Jahr lagen {closing!} auf Ihrem Konto; dieser Wert ist steuerfrei.]
        maybe 60 small Höchstbetrag {year} für Personen mit Pensionskasse: {limit!}. Kontoführung {fee!} pro Jahr.)"},
    {"pillar3a", "couple", everyLanguage, false, "pillarOfBoth", R"(
        head 3 both
        title @title3a {year}
        cols 22 78 112 190r
        th @person ; @born ; @contract ; @paid3a
        rule
        tr {one} ; {birth} ; {#7} ; {paid~}
        tr {two} ; {birth2} ; {#7} ; {paid2~}
        rule
        tb @total ; ; ; {both~})"},
    {"pillar3a", "numbered", everyLanguage, false, "pillarWithLate", R"(
        head 6 one
        big @title3a
        form 1 ; @person ; {one}
        form 2 ; @ahvno ; {ahv}
        form 3 ; @contract ; {#9}
        form 4a ; @paid3a ; {paid}
        form 4b ; [Einkauf Säule 3a (nachträglich)|Nachzahlung für Beitragslücken|Einkauf in die 3a / rachat 3a] ; {late}
        form 5 ; @closing ; {closing}
        form 6 ; @limit ; {limit}
        small {issuer}, {early})"},
    {"pillar3a", "bilingual", "de,fr", false, "pillar", R"(
        head 4 one
        title @title3a:de / @title3a:fr
        line {one}, {birth}
        gap 4
        entry @contract:de / @contract:fr ; {#4}-{#5}
        entry @opening:de / @opening:fr ; {opening}
        sum @paid3a:de / @paid3a:fr ; {paid}
        entry @interest3a:de / @interest3a:fr ; {interest}
        entry @closing:de / @closing:fr ; {closing}
        small Art. 82 BVG / LPP; Form. 21 EDP)"},
    {"pillar3a", "second-page", "de", false, "pillar", R"(
        head 2 one
        title Vorsorgeauszug {year}
        cols 22 60 190r
        th Datum ; Buchung ; CHF
        rule
        each payments {on} ; [Einzahlung|Gutschrift] ; {part}
        tr {end} ; Zins ; {interest}
        text Die Bescheinigung für das Steueramt finden Sie auf der nächsten Seite.
        page
        title @title3a {year}
        colon @person ; {one}
        sum @paid3a ; {paid~}
        entry @closing ; {closing~})"},
};

const std::vector<Sheet> banks{
    {"bank", "amounts-first", everyLanguage, false, "oneAccount", R"(
        head 4 one
        title @titlebank {year}
        line {name}, {number}
        gap 4
        leftsum {balance~} ; @balance {end}
        left {interest~} ; @interest {year}
        left {tax~} ; @vst
        left {net~} ; @netinterest)"},
    {"bank", "cells", everyLanguage, false, "oneAccount", R"(
        head 6 one
        title @titlebank {end}
        grid 3
        cell IBAN ; {number}
        cell @account ; {name}
        cell BIC ; [RAIFXX22|BBCAXX2S]
        cell @interest ; {interest}
        cell @vst ; {tax}
        cell @balance {end} ; {balance}
        endgrid
        small {issuer} · {phone} · CHF)"},
    {"bank", "above", everyLanguage, false, "oneAccount", R"(
        head 1 one
        title @titlebank
        line {number}   {name}
        gap 3
        above @balance {end} ; {balance!}
        above @interest {start} – {end} ; {interest!}
        above @vst ; {tax!}
        small 0.25 % – 0.80 %)"},
    {"bank", "several-columns", everyLanguage, false, "accounts", R"(
        head 0 one
        title @titlebank {year}
        cols 22 82 128r 158r 190r
        th IBAN ; @account ; @interest CHF ; @vst ; @balance CHF
        rule
        each accounts {number} ; {name} ; {interest?} ; {tax?} ; {balance}
        rule
        tb @total ; ; {interest} ; {tax?} ; {balance})"},
    {"bank", "several-blocks", everyLanguage, false, "accounts", R"(
        head 5 one
        title @titlebank {year}
        cols 22 120r 190r
        each accounts !bold {name}  {number}
        gap 1
        each accounts {name} – @interest ; ; {interest}
        rule
        each accounts {name} – @balance {end} ; ; {balance}
        rule
        tb @total @balance ; ; {balance}
        tb @total @interest ; ; {interest})"},
    {"bank", "told-letter", "de", false, "oneAccount", R"(
        head 2 one
        bold @titlebank {year}
        text Guten Tag
        text [Für Ihre Steuererklärung bestätigen wir für das Konto {number} einen Saldo von {balance!} per {end}. Die Zinsen des Jahres belaufen sich auf {interest!} brutto.|Ihr Konto {number} ({name}) wies am {end} ein Guthaben von {balance!} auf. Der Bruttozins {year} betrug {interest!}.]
        maybe 70 text Der Umsatz auf dem Konto betrug {moved!}. Der Einlegerschutz umfasst CHF 100'000.
        small Dieses Schreiben trägt keine Unterschrift.)"},
    {"bank", "principality", "de", false, "principalityAccountAlone", R"(
        head 3 one
        title @titlebank {end}
        entry Kundenstamm ; {#3}.{#3}
        entry Kontonummer ; {number}
        entry Kontoart ; {name}
        rule
        sum @balance CHF ; {balance}
        entry @interest CHF ; {interest}
        small Liechtensteinische Banken ziehen keine Verrechnungssteuer ab.)"},
    {"bank", "mortgage-cells", everyLanguage, false, "oneLoan", R"(
        head 6 one
        title [{number}|Nr. {number}] {year}
        grid 2
        cell @debt {end} ; {debt!}
        cell @debtinterest {year} ; {interest!}
        cell % ; {rate}
        cell @contract ; {number}
        endgrid)"},
    {"bank", "mortgage-list", everyLanguage, false, "oneLoan", R"(
        head 4 both
        title @debtinterest {year}
        line @contract {number}
        cols 22 100r 190r
        th @date ; % ; CHF
        each quarters {on} ; {rate} ; {part}
        rule
        tb @debtinterest {year} ; ; {interest}
        gap 4
        entry @debt {start} ; {before}
        entry Amortisation ; {-redemption}
        sum @debt {end} ; {debt})"},
    {"bank", "mortgages", everyLanguage, false, "loans", R"(
        head 0 one
        title @debtinterest, @debt {end}
        cols 22 74 128r 158r 192r
        th @contract ; @account ; % ; @debtinterest ; @debt
        rule
        each loans {number} ; {name} ; {rate} ; {interest} ; {debt}
        rule
        tb @total CHF ; ; ; {interest} ; {debt})"},
    {"bank", "mortgage-letter", "de", false, "oneLoan", R"(
        head 5 one
        bold Zinsbestätigung [Hypothek|Darlehen|Baukredit] {number}
        text Sehr geehrte Kundin, sehr geehrter Kunde
        text [Wir bescheinigen Ihnen für {year} Schuldzinsen von {interest!}. Die Schuld betrug am {end} {debt!}.|Per {end} beträgt die Hypothek {debt!}; an Zinsen haben wir Ihnen {year} {interest!} belastet.]
        maybe 60 text Als Sicherheit dient die Liegenschaft mit einem Belehnungswert von {value!}. Im Jahr wurden {redemption!} amortisiert.)"},
    {"bank", "assets-and-debts", everyLanguage, false, "accountsAndLoan", R"(
        head 1 one
        title @titlebank {year}
        cols 22 118r 150r 190r
        th @account ; @interest ; @vst ; @balance
        rule
        each accounts {name} {number} ; {interest?} ; {tax?} ; {balance}
        gap 8
        th @contract ; @debtinterest ; % ; @debt
        rule
        each loans {number} ; {interest} ; {rate} ; {debt})"},
};

const std::vector<Sheet> insurers{
    {"premiums", "amounts-first", everyLanguage, false, "premiums", R"(
        head 4 one
        title @titlepremium {year}
        colon @person ; {one}
        gap 3
        left CHF ;
        left {basic} ; @basic
        left {extra} ; @extra
        leftsum {total} ; @premiums
        left {reduction?} ; @reduction
        gap 4
        left {sharing} ; @sharing)"},
    {"premiums", "cells", everyLanguage, false, "premiums", R"(
        head 6 one
        title @titlepremium {year}
        grid 3
        cell @basic ; {basic~}
        cell @extra ; {extra~}
        cell @premiums ; {total~}
        cell @reduction ; {reduction?}
        cell @franchise ; {franchise~}
        cell @retention ; {retention~}
        endgrid)"},
    {"premiums", "family", everyLanguage, false, "premiumsOfMembers", R"(
        head 0 both
        title @titlepremium {year}
        cols 22 105r 145r 190r
        th @person ; @premiums ; @extra ; @basic
        rule
        each people {who} ; {total} ; {extra} ; {basic}
        rule
        tb @total ; {total} ; {extra} ; {basic}
        entry @reduction ; {reduction?}
        gap 5
        entry @franchise ; {franchise}
        entry @retention ; {retention})"},
    {"premiums", "two-columns", everyLanguage, false, "premiums", R"(
        head 5 one
        title @titlepremium {year}
        side @basic ; {basic} ; @franchise ; {franchise}
        side @extra ; {extra} ; @retention ; {retention}
        rule
        side @premiums ; {total} ; @sharing ; {sharing}
        side @reduction ; {reduction?} ; ; )"},
    {"premiums", "letter", "de", false, "premiums", R"(
        head 2 one
        bold @titlepremium {year}
        text [Sie haben uns im Jahr {year} Prämien von insgesamt {total!} bezahlt, davon {basic!} für die obligatorische Krankenpflegeversicherung und {extra!} für Zusatzversicherungen.|Die Prämien {year} für KVG ({basic!}) und VVG ({extra!}) ergeben zusammen {total!}.]
        text Die kantonale Prämienverbilligung beträgt {reduction!}.
        text [An Ihren Behandlungskosten haben Sie sich mit {sharing!} beteiligt.|Ihre Kostenbeteiligung: {sharing!} (Franchise {franchise!}, Selbstbehalt {retention!}).])"},
    {"premiums", "reduced", everyLanguage, false, "premiums", R"(
        head 3 one
        title @titlepremium {year}
        dots @basic (12 x {basicmonth}) ; {basic}
        dots @extra (12 x {extramonth}) ; {extra}
        sum @premiums ; {total}
        dots @reduction ; {-reduction}
        sum @netpremium ; {net}
        gap 6
        bold @sharing
        dots @franchise ; {franchise}
        dots @retention ; {retention})"},
    {"premiums", "second-page", everyLanguage, false, "premiumsOfMembers", R"(
        head 1 one
        title @titlepremium {year}
        cols 22 120r 190r
        each people !bold {who}
        each people {who} @basic ; ; {basic}
        each people {who} @extra ; ; {extra}
        page
        band @premiums {year} ; {total~}
        band @reduction ; {reduction~}
        band @sharing ; {sharing~})"},
};

} // namespace

std::vector<Layout> scriptedMoneyPapers() { return scripted({pillars, banks, insurers}); }

} // namespace corpus
