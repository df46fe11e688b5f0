#include "tests/documents/corpus/layouts/facts/Tale.h"

// Life and accident insurance outside of the tied provision.

namespace corpus {

std::vector<Tale> policyTales() {
    return {
        {"lifeInsurer",
         "Hospiz Lebensversicherung AG|Vita Rhenana|Falknis Leben AG|Sonnrain Leben AG|"
         "Lebenskreis Genossenschaft|Flussblick Leben AG //"
         "Vie Plein-Soleil SA|Mutuelle Vie Rochebrune|Rive-Vie Assurances SA //"
         "Riva Vita SA|Mutua Vita Foce|Airone Vita SA"},
        {"noteValue", R"(
            note insurancePolicy one company:issuer surrenderValue=surrender sumInsured=sum)"},
        {"notePremium", "note householdDeductions one lifeInsurancePremiums=premium"},
        {"policy", R"(
            by versicherung @lifeInsurer; text number {#3}/{#5}; sum = francs(15000, 300000, 500)
            bonus = odd(40, 1900); bare = five(sum * int(10, 90) / 100); surrender = bare + bonus
            value = surrender; premium = odd(480, 7200); death = sum + francs(5000, 40000, 1000)
            date expiry = on(12, 1, year + int(3, 18)); use noteValue)"},
        {"policyWithPremium", "use policy; use notePremium"},
        // A tied policy has no value for the tax.
        {"policies", R"(
            by versicherung @lifeInsurer
            list policies of freie Vorsorge 3b|Einmaleinlage 3b|gebundene Vorsorge 3a
                text kind {what}; text number {#2}.{#6}; sum = francs(20000, 180000, 1000)
                bare = part(sum, int(120, 880)); bonus = odd(60, 2400); value = if(i = 3, 0, bare + bonus)
                surrender = value; if i < 3 : use noteValue
            end
            accept insurancePolicy - surrenderValue=value)"},
        {"unitPolicy", R"(
            by versicherung @lifeInsurer; text number {#8}
            list funds of Strategie Welle 35|Aktien Nachhaltig Fluss|Obligationen Ufer
                text name {what}; fixed3 units = int(12000, 320000); price = int(8500, 21000)
                value = (price * units + 500) / 1000
            end
            cost = part(value, int(6, 32)); surrender = value - cost; sum = francs(30000, 160000, 1000)
            death = francs(161000, 240000, 1000); premium = 12 * odd(80, 420); use noteValue; use notePremium)"},
        {"accidentCover", R"(
            by versicherung Unfallschutz Damm AG|Sicherheitsverein Furt // Accidents Rempart SA|Assurance La Digue
            text number {#2}.{#5}; first = odd(40, 260); second = odd(15, 140); premium = first + second
            death = francs(20000, 100000, 10000); disability = francs(110000, 300000, 10000)
            day = francs(20, 90, 5); note householdDeductions one accidentInsurancePremiums=premium)"},
        {"premiumBill", R"(
            by versicherung @lifeInsurer; dated on(int(2, 11), int(1, 28)); text number {#3}.{#6}
            date due = dated + 30; date expiry = on(6, 1, year + 12); saving = odd(600, 4800)
            risk = odd(60, 700); premium = saving + risk; half = part(premium, 515)
            sum = francs(20000, 150000, 1000); use notePremium; accept insurancePolicy - sumInsured=sum)"},
        {"lifeOffer", R"(
            by anderes @lifeInsurer; also versicherung; dated someday(); count premium = francs(1200, 6800, 100)
            list years 4
                count years = year + 5 * i; paid = premium * 5 * i; death = premium * 25
                surrender = part(paid, 700 + 80 * i)
            end
            premium = premium; sum = premium * 22; possible = part(premium * 20, 1310))"},
        {"contentsBill", R"(
            by anderes Hausrat und Haftpflicht Wehr AG|Sachversicherung Biberbau; also versicherung
            dated someday(); date due = dated + 30; text number {#9}; contents = odd(120, 420)
            liability = odd(80, 190); glass = odd(20, 60); stamp = part(contents + liability + glass, 50)
            total = contents + liability + glass + stamp; sum = francs(60000, 210000, 1000)
            limit = 1000000000; excess = francs(200, 500, 100))"},
    };
}

} // namespace corpus
