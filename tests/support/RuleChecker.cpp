#include "tests/support/RuleChecker.h"

#include "TaxCore/model/TaxCase.h"

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>

namespace taxcore::testing {

namespace {

namespace dom = simdjson::dom;
namespace fs = std::filesystem;

constexpr std::size_t municipalityCount = 75;

/// Collects the complaints about one file.
class Report {
  public:
    Report(std::string file, Complaints& complaints)
        : file_(std::move(file)), complaints_(complaints) {}

    void add(const std::string& place, const std::string& fault) {
        complaints_.push_back(file_ + ": " + place + ": " + fault);
    }
    void require(bool holds, const std::string& place, const std::string& fault) {
        if (!holds) {
            add(place, fault);
        }
    }

  private:
    std::string file_;
    Complaints& complaints_;
};

std::string join(const std::string& path, std::string_view key) {
    return path.empty() ? std::string(key) : path + "." + std::string(key);
}

std::string item(const std::string& path, std::size_t index) {
    return path + "[" + std::to_string(index) + "]";
}

template <Record... Parts>
void checkKeys(dom::element json, const std::string& path, Report& report,
               const std::set<std::string_view>& flags = {});

/// Looks for records below a value. Whether plain values are of the right type shows when the book
/// is read.
template <class T>
void checkBelow(dom::element json, const std::string& path, Report& report) {
    if constexpr (Record<T>) {
        checkKeys<T>(json, path, report);
    } else if constexpr (isOptional<T>) {
        checkBelow<typename T::value_type>(json, path, report);
    } else if constexpr (isList<T>) {
        dom::array list;
        std::size_t index = 0;
        if (json.get(list) == simdjson::SUCCESS) {
            for (const dom::element entry : list) {
                checkBelow<typename T::value_type>(entry, item(path, index++), report);
            }
        }
    }
}

template <Record... Parts>
void checkKeys(dom::element json, const std::string& path, Report& report,
               const std::set<std::string_view>& flags) {
    dom::object object;
    if (json.get(object) != simdjson::SUCCESS) {
        report.add(path, "not an object");
        return;
    }
    std::set<std::string_view> unread;
    for (const auto [key, value] : object) {
        report.require(unread.insert(key).second, join(path, key), "stands twice");
    }
    const auto readPart = [&](const auto& part) {
        forEachField(part, [&](std::string_view name, const auto& field) {
            using Value = std::remove_cvref_t<decltype(field)>;
            const std::string place = join(path, name);
            if (unread.erase(name) > 0) {
                checkBelow<Value>(object[name], place, report);
            } else {
                report.require(isOptional<Value>, place, "missing key");
            }
        });
    };
    (readPart(Parts{}), ...);
    for (const std::string_view key : unread) {
        report.require(flags.contains(key), join(path, key), "unknown key");
    }
}

struct Range {
    std::string_view part; ///< of a key, in lower case
    Decimal least;
    Decimal most;
};

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

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

const Range& rangeOf(std::string_view key) {
    const std::string name = lowered(key);
    return *std::ranges::find_if(
        ranges, [&](const Range& range) { return name.find(range.part) != std::string::npos; });
}

/// Every number below a value; those of a list have the range of the list.
template <class T>
void checkRanges(const T& value, Report& report, const std::string& path = {},
                 const Range& range = ranges.back()) {
    if constexpr (Record<T>) {
        forEachField(value, [&](std::string_view name, const auto& field) {
            checkRanges(field, report, join(path, name), rangeOf(name));
        });
    } else if constexpr (isOptional<T>) {
        if (value) {
            checkRanges(*value, report, path, range);
        }
    } else if constexpr (isList<T>) {
        for (std::size_t i = 0; i < value.size(); ++i) {
            checkRanges(value[i], report, item(path, i), range);
        }
    } else if constexpr (std::is_convertible_v<T, Decimal>) {
        const Decimal number = value;
        if (number < range.least || number > range.most) {
            report.add(path, number.toString() + " is out of range");
        }
    }
}

void checkCitations(const std::vector<std::string>& citations, const std::string& key,
                    Report& report) {
    report.require(!citations.empty(), key, "no citation");
    for (const std::string& citation : citations) {
        report.require(citation.find_first_not_of(" \t\n") != std::string::npos, key,
                       "empty citation");
    }
}

/// `name` with its part `from` exchanged; empty when it has no such part.
std::string exchanged(std::string name, std::string_view from, std::string_view to) {
    const auto at = name.find(from);
    return at == std::string::npos ? std::string() : name.replace(at, from.size(), to);
}

/// Siblings whose names make one the bound of the other.
template <Record T>
void checkPairs(const T& record, const std::string& path, int workDays, Report& report) {
    std::map<std::string, Decimal> numbers;
    forEachField(record, [&](std::string_view name, const auto& field) {
        using Value = std::remove_cvref_t<decltype(field)>;
        if constexpr (Record<Value>) {
            checkPairs(field, join(path, name), workDays, report);
        } else if constexpr (std::is_same_v<Value, Decimal>) {
            numbers.emplace(name, field);
        }
    });
    for (const auto& entry : numbers) {
        const std::string& name = entry.first;
        const auto notAbove = [&](const std::string& other, const Decimal& factor) {
            if (const auto bound = numbers.find(other); bound != numbers.end()) {
                report.require(entry.second <= bound->second * factor, join(path, name),
                               "more than " + other + " allows");
            }
        };
        notAbove(exchanged(name, "Min", "Max"), 1);
        notAbove(exchanged(name, "min", "max"), 1);
        notAbove(exchanged(name, "Verbilligt", ""), 1);
        // A yearly maximum that no year of work reaches would be no maximum.
        notAbove(exchanged(name, "Max", "ProTag"), workDays);
    }
}

void checkDeductions(const DeductionParams& params, Report& report) {
    checkRanges(params, report);
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

void checkExtras(const RuleBook& book, Report& report) {
    const CantonExtraParams& extra = book.cantonalExtra;
    checkRanges(extra, report);
    report.require(extra.kapitalleistung.satzGemeinsam <= extra.kapitalleistung.satzAlleinstehend,
                   "kapitalleistung.satzGemeinsam", "more than for one");
    report.require(extra.vermoegen.einfacheSteuerPromille
                       == book.municipalities.vermoegenEinfacheSteuerPromille,
                   "vermoegen.einfacheSteuerPromille", "not that of the municipalities' file");
    // BVV 3 Art. 7 rules both authorities.
    report.require(book.cantonal.saeule3a == book.federal.saeule3a, "saeule3a",
                   "not as in the federal file");
}

/// The tax of the table on `from + row × step`, and 0 below it.
Decimal taxAt(const std::vector<Decimal>& rows, int row) {
    return row < 0 ? Decimal(0) : rows.at(static_cast<std::size_t>(row));
}

/// StG SG Art. 50
void checkTable(const SGTariffTable& table, Report& report) {
    checkRanges(table, report);
    checkCitations({table.source}, "source", report);
    if (table.step <= 0) {
        report.add("step", "not positive");
        return;
    }
    const auto rowOf = [&](int income) {
        return income < table.from ? -1 : (income - table.from) / table.step;
    };
    const auto checkList = [&](const std::vector<Decimal>& rows, int flatFrom,
                               const std::string& key) {
        report.require((flatFrom - table.from) % table.step == 0, key + "FlatFrom",
                       "between two rows");
        const auto needed = static_cast<std::size_t>(rowOf(flatFrom) + 1);
        if (rows.size() < std::max<std::size_t>(needed, 2)) {
            report.add(key,
                       std::to_string(rows.size()) + " rows instead of " + std::to_string(needed));
            return false;
        }
        for (std::size_t i = 1; i < rows.size(); ++i) {
            if (rows[i] < rows[i - 1]) {
                report.add(item(key, i), "less than the row before");
            }
        }
        const Decimal jump =
            table.flatRateAbove * (flatFrom + table.step) - taxAt(rows, rowOf(flatFrom));
        report.require(jump >= 0 && jump < table.flatRateAbove * table.step, key + "FlatFrom",
                       "the flat rate does not join the last row");
        return true;
    };
    const bool single = checkList(table.single, table.singleFlatFrom, "single");
    const bool joint = checkList(table.joint, table.jointFlatFrom, "joint");
    report.require(table.jointFlatFrom == 2 * table.singleFlatFrom, "jointFlatFrom",
                   "not twice that for one");
    const auto longest = static_cast<int>(std::max(table.single.size(), table.joint.size()));
    report.require(table.to == table.from + (longest - 1) * table.step, "to",
                   "not where the rows end");
    if (!single || !joint) {
        return;
    }
    for (std::size_t i = 2; i < table.single.size(); ++i) {
        const auto increase = [&](std::size_t row) {
            return table.single[row] - table.single[row - 1];
        };
        if (increase(i) < increase(i - 1)) {
            report.add(item("single", i), "the tariff is not progressive");
        }
    }
    for (std::size_t i = 0; i < table.joint.size(); ++i) {
        const Decimal& tax = table.joint[i];
        if (i < table.single.size() && tax > table.single[i]) {
            report.add(item("joint", i), "more than for one");
        }
        // The whole income is taxed at the rate of its half, cut to a step.
        const int income = table.from + static_cast<int>(i) * table.step;
        const int half = income / 2 / table.step * table.step;
        if (rowOf(half) < static_cast<int>(table.single.size())
            && (tax * half - taxAt(table.single, rowOf(half)) * income).abs() > 0.005_dec * half) {
            report.add(item("joint", i), "not at the rate of half the income");
        }
    }
}

/// DBG Art. 36
void checkBrackets(const std::vector<FederalBracket>& brackets, const Decimal& flatAb,
                   const Decimal& flatRate, const std::string& key, Report& report) {
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

void checkFederal(const FederalRules& rules, Report& report) {
    checkRanges(rules, report);
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

bool isProperName(const std::string& name) {
    return !name.empty() && name.front() != ' ' && name.back() != ' ';
}

std::vector<std::string> namesOf(const MunicipalityList& list) {
    std::vector<std::string> names;
    std::ranges::transform(list.municipalities, std::back_inserter(names), &Municipality::name);
    return names;
}

void checkMunicipalities(const MunicipalityList& list, Report& report) {
    checkRanges(list, report);
    const std::vector<std::string> names = namesOf(list);
    report.require(names.size() == municipalityCount, "municipalities",
                   std::to_string(names.size()) + " of them");
    report.require(std::set<std::string>(names.begin(), names.end()).size() == names.size(),
                   "municipalities", "two of one name");
    report.require(std::ranges::is_sorted(names, {}, sortKey), "municipalities", "not sorted");
    const std::string usual = TaxCase().municipality;
    report.require(std::ranges::count(names, usual) == 1, "municipalities", "no " + usual);
    for (const Municipality& municipality : list.municipalities) {
        report.require(isProperName(municipality.name), "municipalities", "blank in a name");
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

/// The year and the keys of one file; `flags` are truth values that may stand beside the records.
/// A file without records need only be JSON.
template <Record... Parts>
void checkContent(const fs::path& folder, const char* kind, int year, Complaints& complaints,
                  const std::set<std::string_view>& flags = {}) {
    const char* yearKey = sizeof...(Parts) > 0 ? "year" : "jahr";
    const std::string name = fileName(kind, year);
    Report report(name, complaints);
    dom::parser parser;
    dom::element json;
    if (parser.load((folder / name).string()).get(json) != simdjson::SUCCESS) {
        report.add("the file", "missing or not JSON");
        return;
    }
    std::int64_t stated = 0;
    report.require(json[yearKey].get(stated) == simdjson::SUCCESS && stated == year, yearKey,
                   "not the year of the file name");
    for (const std::string_view flag : flags) {
        const auto value = json[flag];
        report.require(value.error() == simdjson::NO_SUCH_FIELD || value.is_bool(),
                       std::string(flag), "neither true nor false");
    }
    if constexpr (sizeof...(Parts) > 0) {
        checkKeys<Parts...>(json, {}, report, flags);
    }
}

void checkBook(const RuleBook& book, Complaints& complaints) {
    const auto report = [&](const char* kind) {
        return Report(fileName(kind, book.year), complaints);
    };
    Report params = report(paramsFile);
    checkDeductions(book.cantonal, params);
    checkExtras(book, params);
    Report federal = report(federalFile);
    checkDeductions(book.federal, federal);
    checkFederal(book.federalRules, federal);
    Report tariff = report(tariffFile);
    checkTable(book.sgTariff, tariff);
    Report municipalities = report(municipalitiesFile);
    checkMunicipalities(book.municipalities, municipalities);
}

} // namespace

Complaints checkRuleFiles(const fs::path& folder) {
    Complaints complaints;
    std::set<std::string> known{"README.md"};
    RuleBookCache cache;
    std::optional<std::vector<std::string>> names;
    for (const int year : RuleBook::supportedYears) {
        for (const char* kind :
             {paramsFile, federalFile, tariffFile, municipalitiesFile, liechtensteinFile}) {
            known.insert(fileName(kind, year));
        }
        checkContent<DeductionParams, CantonExtraParams>(folder, paramsFile, year, complaints);
        checkContent<DeductionParams, FederalRules>(folder, federalFile, year, complaints);
        checkContent<SGTariffTable>(folder, tariffFile, year, complaints);
        checkContent<MunicipalityList>(folder, municipalitiesFile, year, complaints,
                                       {"vorlaeufig"});
        checkContent<>(folder, liechtensteinFile, year, complaints);
        const auto book = RuleBook::load(year, "SG", cache, RuleFiles(folder));
        if (!book) {
            complaints.push_back(book.error().fileName + ": " + book.error().description());
            continue;
        }
        checkBook(**book, complaints);
        const std::vector<std::string> own = namesOf((*book)->municipalities);
        Report(fileName(municipalitiesFile, year), complaints)
            .require(own == names.value_or(own), "municipalities", "not those of other years");
        names = own;
    }
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename();
        Report(name, complaints).require(known.contains(name), "the file", "of no supported year");
    }
    return complaints;
}

std::shared_ptr<const RuleBook> shippedRules(int year) {
    static RuleBookCache cache;
    return RuleBook::load(year, "SG", cache, RuleFiles(FISCAREL_RULES_DIR)).value();
}

RuleCopy::RuleCopy() {
    std::string pattern = (fs::temp_directory_path() / "rules-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    folder_ = pattern;
    fs::copy(FISCAREL_RULES_DIR, folder_, fs::copy_options::recursive);
}

RuleCopy::~RuleCopy() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

std::string RuleCopy::text(const std::string& file) const {
    std::ifstream stream(folder_ / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void RuleCopy::write(const std::string& file, std::string_view text) const {
    std::ofstream(folder_ / file, std::ios::binary) << text;
}

void RuleCopy::remove(const std::string& file) const { fs::remove(folder_ / file); }

void RuleCopy::replace(const std::string& file, std::string_view find, std::string_view put) const {
    std::string content = text(file);
    const auto at = content.find(find);
    if (at == std::string::npos) {
        throw std::runtime_error(file + " does not hold " + std::string(find));
    }
    write(file, content.replace(at, find.size(), put));
}

} // namespace taxcore::testing
