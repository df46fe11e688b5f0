#include "tests/documents/corpus/layouts/facts/Tale.h"

// Premiums of health insurance. What the insured bore may be read as a cost of illness.

namespace corpus {

std::vector<Tale> premiumTales() {
    return {
        {"healthInsurer",
         "Gesundheitskasse Altmann|Helvida Krankenversicherung|Krankenkasse Murmelbach|"
         "Gesundbund Hochtal|Krankenkasse Wasserfall|Eisvogel Gesundheit AG //"
         "Caisse-maladie Moléson|Helvida Assurance-maladie|Caisse-maladie Bois-Joli|"
         "Santé Solidaire du Plateau|Caisse-maladie La Cascade|Martin-Pêcheur Santé SA //"
         "Cassa malati Basodino|Helvida Assicurazione malattia|Cassa malati Valserena|"
         "Salute Solidale|Cassa malati La Cascata|Airone Salute SA"},
        {"notePremiums", R"(
            note householdDeductions one healthInsurancePremiums=total premiumReduction=reduction)"},
        {"acceptSharing", R"(
            accept medicalCost - gross=franchise; accept medicalCost - gross=retention
            accept medicalCost - gross=sharing; accept medicalCost - gross=uncovered)"},
        {"premiums", R"(
            by krankenkasse @healthInsurer; basicmonth = odd(190, 520); extramonth = odd(9, 140)
            basic = 12 * basicmonth; extra = 12 * extramonth; total = basic + extra
            reduction = if(chance(60), odd(240, 2600), 0); net = total - reduction
            franchise = pick(30000, 50000, 100000, 150000, 200000, 250000); retention = odd(5, 700)
            sharing = franchise + retention; uncovered = odd(10, 380); use acceptSharing; use notePremiums)"},
        {"premiumsOfMembers", R"(
            by krankenkasse @healthInsurer; count reduced = chance(60)
            list people people one two child child2
                count grown = i < 3; basic = 12 * if(grown, odd(240, 480), odd(70, 130))
                extra = 12 * if(grown, odd(12, 120), odd(5, 22)); total = basic + extra
                reduction = if(reduced, 12 * odd(20, 60), 0); net = total - reduction
                franchise = if(grown, francs(60, 300, 20), 0); retention = odd(4, 90); levy = 6460
                sharing = franchise + retention; uncovered = odd(10, 380); use acceptSharing
            end
            use acceptSharing; use notePremiums)"},
        // In the course of the year the cover of accidents ended.
        {"premiumSteps", R"(
            by krankenkasse @healthInsurer
            list people people one two child
                count until = int(3, 9); count month = if(i < 3, odd(250, 460), odd(70, 130))
                list steps of Grundversicherung mit Unfall|Grundversicherung ohne Unfall|Spitalzusatz|Zahnpflege
                    skip if(i = 4, chance(40), 0)
                    count from = if(i = 2, until + 1, 1); count to = if(i = 1, until, 12)
                    count months = to - from + 1; text span {from}–{to}
                    month = if(i = 1, month, if(i = 2, part(month, 935), odd(6, 60))); part = month * months
                end
                total = part
            end
            reduction = if(chance(50), odd(600, 4200), 0); net = total - reduction; use notePremiums)"},
        {"premiumInvoices", R"(
            by krankenkasse @healthInsurer; count basic = odd(700, 1500); count extra = odd(40, 330)
            list invoices 4 : text number {#9}; date on = on(3 * i - 2, int(2, 9)); date paid = on(3 * i - 1, int(1, 28)); part = basic + extra
            total = part; basic = 4 * basic; extra = 4 * extra; accident = part(basic, 65)
            levy = 6460; before = total - odd(60, 400); reduction = 0; use notePremiums)"},
        {"nextPremiums", R"(
            by anderes @healthInsurer; also krankenkasse; dated on(10, int(2, 27))
            list people people one two child
                old = if(i < 3, odd(280, 430), odd(80, 110)); new = old + odd(4, 38)
                extra = if(i < 3, odd(14, 90), odd(5, 18)); sum = new + extra
            end)"},
    };
}

} // namespace corpus
