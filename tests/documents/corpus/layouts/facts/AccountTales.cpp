#include "tests/documents/corpus/layouts/facts/Tale.h"

// Accounts, loans and cards.

namespace corpus {

std::vector<Tale> accountTales() {
    return {
        {"bank",
         "Bergbank Calfeisen AG|Genossenschaftsbank Neckertal|Leihkasse Obertoggenthal|"
         "Talbank Steinachtobel AG|Seebank Hafenegg AG|Bankhaus Möwe & Söhne //"
         "Banque de la Broye SA|Caisse Mutuelle Ajoie|Crédit Mutuel des Combes|"
         "Caisse d'Épargne de la Sauge|Banque des Roselières SA|Mouette & Fils, banquiers //"
         "Banca Verbano SA|Cassa Mutua Onsernone|Cassa Rurale Tre Ponti|"
         "Credito Valligiano SA|Banca del Canneto SA|Gabbiano & Figli"},
        {"everyday",
         "Lohnkonto|Alltagskonto|Zahlungskonto Familie|Privatkonto Plus|Girokonto privat //"
         "Compte salaire|Compte courant privé|Compte de famille|Compte ménage //"
         "Conto salario|Conto quotidiano|Conto famiglia|Conto pagamenti"},
        {"saved", "Sparkonto|Anlagesparkonto|Sparheft|Sparkonto 60+|Vermögenssparen|Ferienkonto //"
                  "Compte d'épargne|Livret d'épargne|Compte épargne 60+|Compte vacances //"
                  "Conto di risparmio|Libretto di risparmio|Conto risparmio 60+|Conto vacanze"},
        {"setaside",
         "Geschenksparkonto|Jugendsparkonto|Mietkaution //"
         "Épargne jeunesse|Garantie de loyer // Risparmio gioventù|Garanzia di locazione"},
        {"fixedloan", "Festhypothek|Fixhypothek 8 Jahre|1. Hypothek //"
                      "Hypothèque à taux fixe|Prêt hypothécaire // Ipoteca fissa|Mutuo ipotecario"},
        {"floatingloan", "SARON-Hypothek|Rollhypothek|Geldmarkthypothek //"
                         "Hypothèque Saron|Prêt à taux variable // Ipoteca Saron|Mutuo variabile"},
        // What every account tells; interest of up to 200 francs a year is paid in full.
        {"entry", R"(
            net = interest - tax; a = if(tax > 0, interest, 0); b = interest - a; debt = 0; owed = 0
            note security who ibanOrValor:number institution:issuer taxValue=balance incomeWithWithholding=a incomeWithoutWithholding=b)"},
        {"account", R"(
            text number {iban}; tax = if(interest > 20000, interest * 35 / 100, 0); use entry)"},
        {"principalityAccount", "text number {ibanLI}; tax = 0; use entry"},
        {"everydayAccount", R"(
            balance = some(250, 39000); interest = five(balance * int(1, 25) / 10000) + 5; use account)"},
        {"savings", R"(
            balance = some(6000, 150000); interest = five(balance * int(20, 120) / 10000) + 5; use account)"},
        {"loanTerms", R"(
            debt = francs(60000, 560000, 1000); percent rate = int(88, 279)
            interest = five(debt * rate / 10000); owed = interest; balance = 0; a = 0; b = 0; tax = 0
            text number {#3}.{#5}; date until = on(9, 30, year + int(1, 8))
            redemption = francs(1000, 9000, 500); before = debt + redemption
            accrued = five(interest / 8); value = to(debt * 3 / 2, 100000)
            list quarters 4 : date on = last(3 * i); part = if(i < 4, five(interest / 4), interest - 3 * five(interest / 4)))"},
        {"loan", "use loanTerms; note debt who creditor:issuer amount=debt interest=interest"},
        {"oneAccount", R"(
            by bankauszug @bank; text name @saved
            balance = some(90, 120000); interest = if(chance(10), 0, odd(1, 720)); use account
            moved = balance + odd(2000, 40000))"},
        {"accounts", R"(
            by bankauszug @bank
            item accounts everydayAccount @everyday; item accounts savings @saved
            if chance(50) : item accounts savings @setaside)"},
        {"accountsAndLoan", "use accounts; item loans loan Hypothek // Hypothèque // Ipoteca"},
        {"principalityAccountAlone", R"(
            by bankauszug Bank am Dreischwesternweg AG|Fürstensteig Privatbank AG; principality
            text name @saved; balance = some(90, 120000); interest = odd(1, 720)
            use principalityAccount)"},
        {"oneLoan", "by bankauszug @bank; text name @fixedloan; use loan"},
        {"loans", R"(
            by bankauszug @bank; item loans loan @fixedloan; item loans loan @floatingloan
            if chance(50) : item loans loan Baukredit // Crédit de construction // Credito edilizio
            pledge = before + francs(50000, 200000, 10000); fee = francs(60, 240, 20); acceptsums)"},
        {"tranches", R"(
            by bankauszug @bank
            item loans loan Tranche A // Tranche A // Quota A
            item loans loan Tranche B // Tranche B // Quota B
            item loans loan Tranche C // Tranche C // Quota C
            acceptsums)"},
        {"cards", R"(
            use accounts; item accounts savings @setaside
            if chance(60) : item loans loan @fixedloan
            acceptsums)"},
        {"relation", R"(
            use accounts; item loans loan @fixedloan; item loans loan @floatingloan
            assets = accounts.balance; credit = accounts.interest; tax = accounts.tax
            debts = loans.debt; paid = loans.interest; rest = abs(debts - assets)
            fee = francs(24, 96, 12); acceptsums)"},
        // Every product as a row with the same columns.
        {"mixed", R"(
            by bankauszug @bank
            item accounts everydayAccount @everyday; item accounts savings @saved
            item loans loan @fixedloan; if chance(50) : item loans loan @floatingloan
            item depots depot Wertschriftendepot|Depot // Dépôt de titres|Dossier titres // Deposito titoli|Dossier titoli
            again accounts text kind Konto // Compte // Conto
            again loans text kind Kredit // Crédit // Credito
            again depots text kind Depot // Titres // Titoli
            join rows accounts loans depots
            fee = odd(20, 260); acceptsums)"},
        {"depot", R"(
            balance = some(18000, 260000); text number {#3}-{#6}; debt = 0; owed = 0
            a = five(balance * int(40, 140) / 10000) + 5; b = five(balance * int(20, 110) / 10000) + 5
            interest = a + b; tax = a * 35 / 100
            note security who institution:issuer taxValue=balance incomeWithWithholding=a incomeWithoutWithholding=b)"},
        {"inCurrency", R"(
            fixed4 rate = if(code = 1, 10000, if(code = 2, int(9200, 9890), int(7900, 9300)))
            foreign = some(1500, 64000); foreigninterest = five(foreign * int(10, 240) / 10000)
            balance = (foreign * rate + 5000) / 10000; interest = (foreigninterest * rate + 5000) / 10000
            text name Fremdwährungskonto // Compte en devises // Conto in valuta; text course {rate})"},
        {"currencies", R"(
            by bankauszug @bank
            list accounts of CHF|EUR|USD : count code = i; text code {what}; use inCurrency; use account
            fee = odd(24, 180); acceptsums)"},
        {"foreignCurrencies", R"(
            by bankauszug @bank
            list accounts of EUR|USD : count code = i + 1; text code {what}; use inCurrency; use account
            acceptsums)"},
        {"principalityCurrencies", R"(
            by bankauszug Burghalde Privatbank AG|Rheindamm Bank AG|Bank Silum & Partner; principality
            list accounts of CHF|EUR|USD : count code = i; text code {what}; use inCurrency; use principalityAccount
            fee = odd(24, 180); acceptsums)"},
        {"overdrawn", R"(
            by bankauszug @bank; text number {iban}
            debt = some(300, 32000); owed = five(debt * int(600, 1150) / 10000) + 5
            commission = odd(20, 190); postage = odd(4, 40); charged = owed + commission + postage
            limit = (debt / 500000 + 1) * 500000
            note debt who creditor:issuer amount=debt interest=owed
            item accounts savings @saved; item accounts everydayAccount @everyday; acceptsums)"},
        {"closure", R"(
            opening = some(2000, 90000); balance = 0; interest = five(opening * int(20, 110) / 10000) + 5
            use account; charge = francs(10, 60, 5); payout = opening + net - charge
            debits = tax + charge; date when = on(int(2, 11), 20); text target {iban})"},
        {"closed", "by bankauszug @bank; text name @saved; use closure"},
        {"closedAndOpen", R"(
            by bankauszug @bank; item closed closure @saved; item accounts everydayAccount @everyday)"},
        {"twoYears", R"(
            by bankauszug @bank
            list accounts 2
                text name @saved; if i = 1 : text name @everyday
                use savings; before = some(600, 110000); fee = odd(12, 84)
                interestbefore = five(before * int(5, 60) / 10000) + 5
            end
            acceptsums)"},
        {"bookedFees", R"(
            by bankauszug @bank; text name @everyday; use everydayAccount
            list bookings of Kontoführung 1. Quartal|Debitkarte, Jahresgebühr|Auslandzahlung, Spesen|Kontoführung 2. Semester : date on = on(3 * i, int(1, 28)); part = odd(3, 72)
            fees = part)"},
        {"feeColumns", R"(
            by bankauszug @bank
            list accounts 2
                text name @saved; if i = 1 : text name @everyday
                use savings; keeping = francs(12, 72, 6); cards = francs(30, 120, 10)
                post = odd(2, 24); fees = keeping + cards + post
            end
            acceptsums)"},
        {"jointAccounts", R"(
            by bankauszug @bank; item joint everydayAccount @everyday; item joint savings @saved
            list own people two : text name @saved; use savings
            allbalance = balance; allinterest = interest; alltax = tax
            balance = joint.balance; interest = joint.interest; tax = joint.tax; acceptsums)"},
        {"debtRegister", R"(
            by bankauszug Treuhandbüro Löwenzahn|Buchhaltungsstube Weiher GmbH; also steuerauszug
            list loans of Talbank Steinachtobel AG|Leihkasse Obertoggenthal|Erbengemeinschaft Loretan
                text creditor {what}; use loanTerms
                text name Darlehen; if i < 3 : text name {i}. Hypothek
                note debt who creditor:creditor amount=debt interest=interest
            end
            leasing = odd(280, 620); acceptsums)"},
        {"renewedLoan", R"(
            by bankauszug @bank
            capital = francs(180000, 640000, 5000); redemption = francs(5000, 20000, 1000)
            debt = capital - redemption; first = five(capital * int(60, 120) / 10000) + 5
            second = five(debt * int(45, 95) / 10000) + 5; interest = first + second
            charge = francs(100, 400, 50); date change = on(int(4, 9), 30)
            text old {#3}.{#5}; text fresh {#3}.{#5}
            note debt who creditor:issuer interest=first
            note debt who creditor:issuer amount=debt interest=second; acceptsums)"},
        {"cashCredit", R"(
            by bankauszug Kreditinstitut Ankerplatz AG|Barkredit Seerose AG // Institut de crédit La Bouée SA|Prêt Nénuphar SA
            before = some(9000, 58000); month = part(before, 27); paid = 12 * month
            interest = five(before * int(560, 940) / 10000); cover = five(month / 3)
            redemption = paid - interest - cover; debt = before - redemption
            original = (before / 500000 + 2) * 500000
            text number {#2}/{#6}; percent rate = int(650, 995)
            note debt who creditor:issuer amount=debt interest=interest)"},
        {"creditCard", R"(
            by bankauszug Kartenzentrum Libelle AG|Wellenkarte Services AG
            before = some(200, 3000); spent = some(8000, 32000); fees = francs(50, 250, 10)
            interest = odd(40, 690); debt = some(700, 6900)
            paid = before + spent + fees + interest - debt
            limit = francs(8000, 15000, 1000); least = five(debt / 20); text number XXXX XXXX XXXX {#4}
            note debt who creditor:issuer amount=debt interest=interest)"},
    };
}

} // namespace corpus
