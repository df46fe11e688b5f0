#include "Fiscarel_SG/shell/EverydayWords.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace fiscarel::shell {

namespace {

/// By the end of a path without its positions.
constexpr std::pair<std::string_view, std::string_view> words[] = {
    {"salaries", "Gehalt Job Stelle Arbeit Anstellung"},
    {"employerInLiechtenstein", "Grenzgänger Grenzgang Pendler"},
    {"commute1.mode", "Grenzgänger Grenzgang Pendler Arbeitsweg Auto"},
    {"commute2.mode", "Grenzgänger Grenzgang Pendler Arbeitsweg Auto"},
    {"boardFees", "Verwaltungsrat Behörde"},
    {"ahvPension", "Altersrente Pensionierung IV-Rente"},
    {"dailyAllowances", "Krankentaggeld Unfalltaggeld Mutterschaft Militär EO Erwerbsersatz"},
    {"unemployment", "RAV Arbeitslosenkasse"},
    {"publicTransportCost", "GA Halbtax Abo Ostwind Zug Bus Bahn"},
    {"carKmOneWay", "Kilometer Autokosten"},
    {"mealDays", "Mittagessen Kantine"},
    {"pillar3a", "dritte Säule 3. Säule Vorsorgekonto Freizügigkeit"},
    {"pensionBuyIn", "Pensionskasse BVG Nachzahlung"},
    {"furtherEducation", "Kurs Schule Studium Ausbildung"},
    {"healthInsurancePremiums", "Krankenkasse Prämie KVG Zusatzversicherung"},
    {"premiumReduction", "IPV Verbilligung"},
    {"lifeInsurancePremiums", "Säule 3b Police"},
    {"alimonyPaidPartner", "Alimente Unterhalt Scheidung Trennung"},
    {"alimonyPaidChildren", "Alimente Unterhalt Kind"},
    {"alimonyReceivedSelf", "Alimente Scheidung Trennung"},
    {"alimonyReceivedChildren", "Alimente Kind"},
    {"medicalCosts", "Arzt Zahnarzt Spital Brille Medikamente Apotheke Selbstbehalt Franchise"},
    {"donations", "Hilfswerk gemeinnützig Partei"},
    {"childcareCosts", "Kita Krippe Hort Tagesmutter Tagesschule"},
    {"securities", "Bank Konto Sparkonto Aktien Fonds Depot Krypto Bitcoin"},
    {"cash", "Bargeld Gold"},
    {"vehicles", "Auto Wagen Töff Leasing"},
    {"realEstate", "Haus Wohnung Eigenheim Stockwerkeigentum Boden Grundstück Eigenmietwert"},
    {"debts", "Hypothek Kredit Darlehen Kreditkarte Leasing Schuldzins"},
    {"capitalPayments", "Kapitalbezug Auszahlung Pensionskasse Freizügigkeit"},
    {"supportedPersons", "Eltern unterstützen Unterstützung"},
    {"iban", "Rückerstattung Kontonummer Auszahlung"},
};

std::string withoutPositions(std::string_view path) {
    std::string plain;
    bool within = false;
    for (const char c : path) {
        within = c == '[' || (within && c != ']');
        if (!within && c != ']') {
            plain += c;
        }
    }
    return plain;
}

} // namespace

std::string_view everydayWords(std::string_view path) {
    const std::string plain = withoutPositions(path);
    const auto found = std::ranges::find_if(words, [&](const auto& row) {
        const std::size_t rest = plain.size() - std::min(plain.size(), row.first.size());
        return plain.ends_with(row.first) && (rest == 0 || plain[rest - 1] == '.');
    });
    return found == std::end(words) ? std::string_view() : found->second;
}

} // namespace fiscarel::shell
