#include "tests/documents/corpus/layouts/facts/Tale.h"

// What stands in for wages: unemployment, accidents, births.

namespace corpus {

std::vector<Tale> benefitTales() {
    return {
        {"jobless", R"(
            by lohnausweis Arbeitslosenkasse Ufer|Kasse für Stellensuchende Ost // Caisse de chômage du Léman-Est|Caisse chômage Solidarité
            also versicherung,pensionskasse,krankenkasse,anderes
            day = odd(110, 320); count first = int(1, 7)
            list months int(4, 6)
                month month = first + i - 1; count days = int(11, 23); gross = days * day
                avs = part(gross, 53); bvg = part(gross, 6); nbu = part(gross, 25)
                net = gross - avs - bvg - nbu
            end
            count days = gross / day; insured = part(day * 217 / 10, 1250)
            note personIncome one unemployment=net)"},
        {"accidentDays", R"(
            by lohnausweis Unfallkasse Gewerbe Ost|Betriebsunfall Versicherungsverein|Arbeitsschutz UVG
            also versicherung,pensionskasse,krankenkasse,anderes
            rate = odd(120, 290); date accident = on(int(1, 6), int(1, 28)); date at = accident + 3
            list periods 3
                count share = if(i = 1, 100, if(i = 2, 50, 25)); text percent {share} %
                count days = int(12, 58); date from = at + 60 * (i - 1); date until = from + days - 1
                rate = part(rate, share * 10); part = days * rate
            end
            total = part; insured = part(rate * 365, 1250); doctor = odd(300, 5200)
            text case {#2}.{#5}; note personIncome one dailyAllowances=total)"},
        {"maternity", R"(
            by lohnausweis Ausgleichskasse // Caisse de compensation des Métiers du Lac|Caisse AVS Commerce et Industrie Ouest // Cassa di compensazione Artigiani Riuniti|Cassa AVS Piccole Imprese
            also versicherung,pensionskasse,krankenkasse,anderes
            firstname Lea // Maude|Coralie|Zélie // Marzia|Delia|Ornella
            day = odd(70, 190); date birthday = on(int(1, 7), int(1, 28))
            list periods 2
                count days = if(i = 1, 28, 70); gross = days * day; social = part(gross, 64); net = gross - social
                date from = birthday + if(i = 1, 0, 28); date until = from + days - 1
                text whom Sie // vous-même // Lei
                if i = 1 : text whom Arbeitgeber // votre employeur // datore di lavoro
            end
            net = net2; note personIncome one dailyAllowances=net)"},
    };
}

} // namespace corpus
