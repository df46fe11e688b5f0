#include "tests/support/RuleChecker.h"

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/rulebook/LIRules.h"
#include "TaxCore/rulebook/RuleBook.h"
#include "tests/support/LIRuleChecker.h"

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <set>

namespace taxcore::testing {

namespace {

namespace dom = simdjson::dom;
namespace fs = std::filesystem;

constexpr std::size_t municipalityCount = 75;

/// What a number may be, by the first part its key contains.
const std::array ranges{
    Range{"grundsteuerpromille", 0, 0.8_dec},
    Range{"promille", 0, 10},
    Range{"steuerfuss", 40, 200},
    Range{"kath", 10, 40},
    Range{"evang", 10, 40},
    Range{"satz", 0, 1},
    Range{"anteil", 0, 1},
    Range{"reduktion", 0, 1},
    Range{"flatrate", 0, 1},
    Range{"abschreibungprojahr", 0, 1},
    Range{"prohundert", 0, 100},
    Range{"prokm", 0, 5},
    Range{"protag", 0, 100},
    Range{"arbeitstage", 200, 260},
    Range{"altersgrenze", 1, 25},
    Range{"minimum", 0, 100},
    Range{"", 0, 1'000'000},
};

void checkDeductions(const DeductionParams& params, RuleReport& report) {
    checkRanges(params, ranges, report);
    checkCitations(params.sources, "sources", report);
    checkPairs(params, {}, params.berufskosten.arbeitstageMax, report);
    report.require(params.versicherungen.alleinstehend <= params.versicherungen.gemeinsam,
                   "versicherungen", "less for a couple than for one");
    report.require(params.parteispendenAlleinstehend <= params.parteispendenGemeinsam,
                   "parteispendenGemeinsam", "less for a couple than for one");
    const ZweiverdienerParams& two = params.zweiverdiener;
    report.require(two.art == ZweiverdienerArt::betrag ? two.betrag > 0 && two.satz.isZero()
                                                       : two.satz > 0 && two.betrag.isZero(),
                   "zweiverdiener", "amount and rate do not suit the kind");
}

void checkExtras(const RuleBook& book, RuleReport& report) {
    const CantonExtraParams& extra = book.cantonalExtra;
    checkRanges(extra, ranges, report);
    report.require(extra.kapitalleistung.satzGemeinsam <= extra.kapitalleistung.satzAlleinstehend,
                   "kapitalleistung.satzGemeinsam", "more than for one");
    report.require(extra.vermoegen.einfacheSteuerPromille
                       == book.municipalities.vermoegenEinfacheSteuerPromille,
                   "vermoegen.einfacheSteuerPromille", "not that of the municipalities' file");
    // BVV 3 Art. 7 rules both authorities.
    report.require(book.cantonal.saeule3a == book.federal.saeule3a, "saeule3a",
                   "not as in the federal file");
}

/// The row of an income, -1 below the table.
int rowOf(const SGTariffTable& table, int income) {
    return income < table.from ? -1 : (income - table.from) / table.step;
}

/// The tax of the table on `from + row × step`, and 0 below it.
Decimal taxAt(const std::vector<Decimal>& rows, int row) {
    return row < 0 ? Decimal(0) : rows.at(static_cast<std::size_t>(row));
}

/// The rows of one tariff by themselves; false when there are too few to look at them further.
bool checkRows(const SGTariffTable& table, const std::vector<Decimal>& rows, int flatFrom,
               const std::string& key, RuleReport& report) {
    report.require((flatFrom - table.from) % table.step == 0, key + "FlatFrom", "between two rows");
    const auto needed = static_cast<std::size_t>(rowOf(table, flatFrom) + 1);
    if (rows.size() < std::max<std::size_t>(needed, 2)) {
        report.add(key, std::to_string(rows.size()) + " rows instead of " + std::to_string(needed));
        return false;
    }
    for (std::size_t i = 1; i < rows.size(); ++i) {
        if (rows[i] < rows[i - 1]) {
            report.add(item(key, i), "less than the row before");
        }
    }
    const Decimal jump =
        table.flatRateAbove * (flatFrom + table.step) - taxAt(rows, rowOf(table, flatFrom));
    report.require(jump >= 0 && jump < table.flatRateAbove * table.step, key + "FlatFrom",
                   "the flat rate does not join the last row");
    return true;
}

void checkProgression(const std::vector<Decimal>& rows, RuleReport& report) {
    const auto increase = [&](std::size_t row) { return rows[row] - rows[row - 1]; };
    for (std::size_t i = 2; i < rows.size(); ++i) {
        if (increase(i) < increase(i - 1)) {
            report.add(item("single", i), "the tariff is not progressive");
        }
    }
}

/// A couple's whole income is taxed at the rate of its half, cut to a step.
void checkSplitting(const SGTariffTable& table, RuleReport& report) {
    for (std::size_t i = 0; i < table.joint.size(); ++i) {
        const Decimal& tax = table.joint[i];
        if (i < table.single.size() && tax > table.single[i]) {
            report.add(item("joint", i), "more than for one");
        }
        const int income = table.from + static_cast<int>(i) * table.step;
        const int half = income / 2 / table.step * table.step;
        const int row = rowOf(table, half);
        if (row < static_cast<int>(table.single.size())
            && (tax * half - taxAt(table.single, row) * income).abs() > 0.005_dec * half) {
            report.add(item("joint", i), "not at the rate of half the income");
        }
    }
}

/// StG SG Art. 50
void checkTable(const SGTariffTable& table, RuleReport& report) {
    checkRanges(table, ranges, report);
    checkCitations({table.source}, "source", report);
    if (table.step <= 0) {
        report.add("step", "not positive");
        return;
    }
    const bool single = checkRows(table, table.single, table.singleFlatFrom, "single", report);
    const bool joint = checkRows(table, table.joint, table.jointFlatFrom, "joint", report);
    report.require(table.jointFlatFrom == 2 * table.singleFlatFrom, "jointFlatFrom",
                   "not twice that for one");
    const auto longest = static_cast<int>(std::max(table.single.size(), table.joint.size()));
    report.require(table.to == table.from + (longest - 1) * table.step, "to",
                   "not where the rows end");
    if (single && joint) {
        checkProgression(table.single, report);
        checkSplitting(table, report);
    }
}

/// DBG Art. 36
void checkBrackets(const std::vector<FederalBracket>& brackets, const Decimal& flatAb,
                   const Decimal& flatRate, const std::string& key, RuleReport& report) {
    if (brackets.empty()) {
        report.add(key, "no brackets");
        return;
    }
    report.require(brackets.front().steuer.isZero(), item(key, 0), "starts with a tax");
    const auto taxAtEnd = [](const FederalBracket& bracket, const Decimal& end) {
        return bracket.steuer + (end - bracket.ab) * bracket.proHundert / 100;
    };
    for (std::size_t i = 0; i < brackets.size(); ++i) {
        const FederalBracket& bracket = brackets[i];
        const std::string place = item(key, i);
        report.require((bracket.ab / 100).isInteger(), place + ".ab", "not full 100 francs");
        if (i == 0) {
            continue;
        }
        const FederalBracket& before = brackets[i - 1];
        report.require(before.ab < bracket.ab, place + ".ab", "does not rise");
        report.require(before.steuer < bracket.steuer, place + ".steuer", "does not rise");
        report.require(before.proHundert < bracket.proHundert, place + ".proHundert",
                       "does not rise");
        const Decimal cut = taxAtEnd(before, bracket.ab) - bracket.steuer;
        report.require(cut >= 0 && cut < 0.05_dec, place + ".steuer",
                       "does not continue the bracket before");
    }
    const FederalBracket& last = brackets.back();
    const Decimal jump = flatAb * flatRate - taxAtEnd(last, flatAb - 100);
    report.require(flatAb > last.ab && jump >= 0 && jump <= last.proHundert, key + "FlatAb",
                   "the flat rate does not join the last bracket");
}

void checkFederal(const FederalRules& rules, RuleReport& report) {
    checkRanges(rules, ranges, report);
    const FederalTariff& tariff = rules.tarif;
    checkBrackets(tariff.alleinstehend, tariff.alleinstehendFlatAb, tariff.flatSatz,
                  "tarif.alleinstehend", report);
    checkBrackets(tariff.verheiratet, tariff.verheiratetFlatAb, tariff.flatSatz,
                  "tarif.verheiratet", report);
}

/// The name as it is sorted: without letter case and umlauts.
std::string sortKey(std::string name) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 6> umlauts{
        {{"ä", "a"}, {"ö", "o"}, {"ü", "u"}, {"Ä", "a"}, {"Ö", "o"}, {"Ü", "u"}}};
    for (const auto& [umlaut, plain] : umlauts) {
        for (auto at = name.find(umlaut); at != std::string::npos; at = name.find(umlaut)) {
            name.replace(at, umlaut.size(), plain);
        }
    }
    return lowered(name);
}

std::vector<std::string> namesOf(const MunicipalityList& list) {
    std::vector<std::string> names;
    std::ranges::transform(list.municipalities, std::back_inserter(names), &Municipality::name);
    return names;
}

void checkMunicipalities(const MunicipalityList& list, RuleReport& report) {
    checkRanges(list, ranges, report);
    const std::vector<std::string> names = namesOf(list);
    report.require(names.size() == municipalityCount, "municipalities",
                   std::to_string(names.size()) + " of them");
    checkNames(names, "municipalities", report);
    report.require(std::ranges::is_sorted(names, {}, sortKey), "municipalities", "not sorted");
    const std::string usual = TaxCase().municipality;
    report.require(std::ranges::count(names, usual) == 1, "municipalities", "no " + usual);
    for (const Municipality& municipality : list.municipalities) {
        report.require(!municipality.parishes.empty(), municipality.name, "no parish");
        std::set<std::string> parishes;
        for (const Parish& parish : municipality.parishes) {
            report.require(isProperName(parish.name) && parishes.insert(parish.name).second,
                           municipality.name, "parish «" + parish.name + "»");
        }
        report.require(municipality.grundsteuerPromille.value_or(0.2_dec) >= 0.2_dec,
                       municipality.name, "property tax below the least of the law");
    }
}

std::string fileName(const char* kind, int year) {
    return std::string(kind) + "-" + std::to_string(year) + ".json";
}

constexpr const char* paramsFile = "sg-params";
constexpr const char* federalFile = "dbst";
constexpr const char* tariffFile = "sg-tarif";
constexpr const char* municipalitiesFile = "sg-steuerfuesse";
constexpr const char* liechtensteinFile = "li";

/// A rule file of one year.
struct RuleFile {
    const char* kind;
    const char* yearKey = "year";
    std::set<std::string_view> flags; ///< truth values that may stand beside the records
};

/// The year and the keys of one file.
template <Record... Parts>
void checkContent(const fs::path& folder, const RuleFile& file, int year, Complaints& complaints) {
    const std::string name = fileName(file.kind, year);
    RuleReport report(name, complaints);
    dom::parser parser;
    dom::element json;
    if (parser.load((folder / name).string()).get(json) != simdjson::SUCCESS) {
        report.add("the file", "missing or not JSON");
        return;
    }
    std::int64_t stated = 0;
    report.require(json[file.yearKey].get(stated) == simdjson::SUCCESS && stated == year,
                   file.yearKey, "not the year of the file name");
    for (const std::string_view flag : file.flags) {
        const auto value = json[flag];
        report.require(value.error() == simdjson::NO_SUCH_FIELD || value.is_bool(),
                       std::string(flag), "neither true nor false");
    }
    checkKeys<Parts...>(json, {}, report, file.flags);
}

void checkBook(const RuleBook& book, Complaints& complaints) {
    const auto report = [&](const char* kind) {
        return RuleReport(fileName(kind, book.year), complaints);
    };
    RuleReport params = report(paramsFile);
    checkDeductions(book.cantonal, params);
    checkExtras(book, params);
    RuleReport federal = report(federalFile);
    checkDeductions(book.federal, federal);
    checkFederal(book.federalRules, federal);
    RuleReport tariff = report(tariffFile);
    checkTable(book.sgTariff, tariff);
    RuleReport municipalities = report(municipalitiesFile);
    checkMunicipalities(book.municipalities, municipalities);
}

void addUnloaded(const RuleLoadError& error, Complaints& complaints) {
    complaints.push_back(error.fileName + ": " + error.description());
}

/// The files of St.Gallen and of the federation; `names` are the municipalities of the years
/// before.
void checkSwissFiles(const fs::path& folder, int year,
                     std::optional<std::vector<std::string>>& names, Complaints& complaints) {
    checkContent<DeductionParams, CantonExtraParams>(folder, {.kind = paramsFile}, year,
                                                     complaints);
    checkContent<DeductionParams, FederalRules>(folder, {.kind = federalFile}, year, complaints);
    checkContent<SGTariffTable>(folder, {.kind = tariffFile}, year, complaints);
    checkContent<MunicipalityList>(folder, {.kind = municipalitiesFile, .flags = {"vorlaeufig"}},
                                   year, complaints);
    RuleBookCache cache;
    const auto book = RuleBook::load(year, "SG", cache, RuleFiles(folder));
    if (!book) {
        addUnloaded(book.error(), complaints);
        return;
    }
    checkBook(**book, complaints);
    const std::vector<std::string> own = namesOf((*book)->municipalities);
    RuleReport(fileName(municipalitiesFile, year), complaints)
        .require(own == names.value_or(own), "municipalities", "not those of other years");
    names = own;
}

void checkLiechtensteinFile(const fs::path& folder, int year, Complaints& complaints) {
    checkContent<LIRules>(folder, {.kind = liechtensteinFile, .yearKey = "jahr"}, year, complaints);
    const auto rules = LIRules::load(year, RuleFiles(folder));
    if (!rules) {
        addUnloaded(rules.error(), complaints);
        return;
    }
    RuleReport report(fileName(liechtensteinFile, year), complaints);
    checkLIRules(**rules, report);
}

} // namespace

Complaints checkRuleFiles(const fs::path& folder) {
    Complaints complaints;
    std::set<std::string> known{"README.md"};
    std::optional<std::vector<std::string>> names;
    for (const int year : RuleBook::supportedYears) {
        for (const char* kind :
             {paramsFile, federalFile, tariffFile, municipalitiesFile, liechtensteinFile}) {
            known.insert(fileName(kind, year));
        }
        checkSwissFiles(folder, year, names, complaints);
        checkLiechtensteinFile(folder, year, complaints);
    }
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename();
        RuleReport(name, complaints)
            .require(known.contains(name), "the file", "of no supported year");
    }
    return complaints;
}

} // namespace taxcore::testing
