#include "tests/documents/corpus/layouts/facts/Tale.h"

// Shares and funds.

namespace corpus {

std::vector<Tale> securityTales() {
    return {
        // Swiss or not; sold in the year it has no value at the end, but may have an income.
        {"position", R"(
            count count = int(8, 480); price = odd(21, 310); proceeds = price * count
            value = if(sold, 0, proceeds); cost = five(proceeds * int(70, 130) / 100)
            income = five(proceeds * int(60, 360) / 10000) + 5; a = if(swiss, income, 0); b = income - a
            date moved = someday(); date paid = someday()
            note security who ibanOrValor:code institution:issuer quantity=if(sold,0,count*100) taxValue=value incomeWithWithholding=a incomeWithoutWithholding=b)"},
        {"held", R"(
            text name {what}; count sold = 0; text isin {isinUS}; if swiss : text isin {isinCH}
            text code {isin}; use position)"},
        {"byValor", R"(
            text name {what}; count sold = 0; text valor {#8}; if swiss : text valor {#7}
            text code {valor}; use position)"},
        {"register", R"(
            by steuerauszug @bank; also bankauszug
            list shares of Kraftwerke Tobelbach AG|Nordlys Shipping ASA : count swiss = i = 1; text kind Namenaktie; use byValor
            list funds of Alpenblick Aktien Welt|Alpenblick Immobilien : count swiss = i = 2; text kind Fonds; use byValor
            tax = a * 35 / 100; costs = odd(60, 620); use custody)"},
        // Deductible instead of the flat rate, as the household decides.
        {"custody", "accept householdDeductions - actualAssetManagementCosts=costs; acceptsums"},
        {"classes", R"(
            by steuerauszug @bank; also bankauszug
            item accounts everydayAccount @everyday
            list shares of Wasserwerke Sitter N|Blue Harbor Inc : count swiss = i = 1; use held
            list funds of Seerose Immo Schweiz A|Seerose World Equity : count swiss = i = 1; use held
            cash = accounts.balance; shares = shares.value; funds = funds.value
            all = cash + shares + funds; percent ofcash = cash * 10000 / all
            percent ofshares = shares * 10000 / all; percent offunds = funds * 10000 / all
            again shares percent of = value * 10000 / all
            again funds percent of = value * 10000 / all
            initial = five(all * int(88, 97) / 100); acceptsums)"},
        {"moves", R"(
            by steuerauszug @bank; also bankauszug
            list held of Segelwerft Arbon Nam.|Northwind Ferries Corp|Libellenfonds Obligationen // Chantier Naval Vully Nom.|Northwind Ferries Corp|Fonds Libellule Obligations // Cantiere Navale Ceresio Nom.|Northwind Ferries Corp|Fondo Libellula Obbligazioni
                count swiss = if(i = 2, 0, 1); use held
            end
            list sold of Lakeside Robotics Inc : text name {what}; text isin {isinUS}; text code {isin}; count swiss = 0; count sold = 1; use position
            tax = a * 35 / 100; costs = odd(60, 540); use custody)"},
    };
}

} // namespace corpus
