#include "TaxCore/base/JsonReader.h"
#include "TaxCore/base/JsonWriter.h"
#include "tests/support/RandomCase.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <sstream>

namespace taxcore {
namespace {

using namespace std::string_literals;
using testing::RandomCase;
using Kind = JsonError::Kind;

TaxCase filled(std::string_view text) {
    auto household = fromJson<TaxCase>(text, JsonGaps::filled);
    if (!household) {
        ADD_FAILURE() << text << "\n" << household.error().message;
        return {};
    }
    return *household;
}

std::string repeated(std::string_view text, std::size_t times) {
    std::string result;
    for (; times > 0; --times) {
        result += text;
    }
    return result;
}

/// Neither exponent nor plus, neither leading zeros nor zeros at the end of a fraction.
bool isPlainNumber(std::string_view text) {
    text.remove_prefix(text.front() == '-' ? 1 : 0);
    const std::size_t point = text.find('.');
    const bool strayZero = (text.size() > 1 && text[0] == '0' && point != 1)
                           || (point != std::string_view::npos && text.back() == '0');
    return !strayZero && !text.starts_with('.') && !text.ends_with('.')
           && std::ranges::count(text, '.') <= 1
           && text.find_first_not_of("0123456789.") == std::string_view::npos;
}

/// What is wrong with the layout of a pretty text; empty when nothing is.
std::string layoutFault(const std::string& text) {
    std::vector<std::string> lastKeys;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t indent = line.find_first_not_of(' ');
        std::string rest = indent == std::string::npos ? "" : line.substr(indent);
        if (rest.empty() || rest.back() == ' ') {
            return "blank: " + line;
        }
        if (rest.back() == ',') {
            rest.pop_back();
        }
        if (rest == "}" || rest == "]") {
            lastKeys.pop_back();
        }
        if (indent != 2 * lastKeys.size()) {
            return "indentation: " + line;
        }
        if (rest.front() == '"') { // no list of ours holds plain texts
            const std::string key = rest.substr(1, rest.find('"', 1) - 1);
            if (key <= lastKeys.back()) {
                return "order: " + lastKeys.back() + " before " + key;
            }
            lastKeys.back() = key;
            if (rest.substr(key.size() + 2, 2) != ": ") {
                return "separator: " + line;
            }
            rest.erase(0, key.size() + 4);
        }
        if (rest == "{" || rest == "[") {
            lastKeys.emplace_back();
        } else if (const bool digit = rest[0] == '-' || (rest[0] >= '0' && rest[0] <= '9');
                   digit && !isPlainNumber(rest)) {
            return "number: " + line;
        }
    }
    return lastKeys.empty() && text.ends_with("}\n") ? "" : "the end";
}

/// The JSON text of a value with the keys of every object shuffled and absent values as null.
template <class T>
std::string shuffled(const T& value, RandomCase& random) {
    std::vector<std::string> parts;
    if constexpr (Record<T>) {
        forEachField(value, [&](std::string_view name, const auto& field) {
            const auto at = static_cast<std::ptrdiff_t>(random.below(parts.size() + 1));
            parts.insert(parts.begin() + at,
                         "\"" + std::string(name) + "\" :\t" + shuffled(field, random));
        });
    } else if constexpr (isList<T>) {
        for (const auto& item : value) {
            parts.push_back(shuffled(item, random));
        }
    } else if constexpr (isOptional<T>) {
        return value ? shuffled(*value, random) : "null";
    } else {
        return toJson(value, JsonStyle::compact);
    }
    std::string joined;
    for (const std::string& part : parts) {
        joined += (joined.empty() ? "" : " ,\r\n") + part;
    }
    return Record<T> ? "{" + joined + " }" : "[ " + joined + "]";
}

TEST(WrittenCase, readsBackEqualInBothStylesAndFromShuffledKeys) {
    RandomCase random(20250101);
    for (int i = 0; i < 2000; ++i) {
        const TaxCase household = random.next();
        const std::string pretty = toJson(household);
        const std::string compact = toJson(household, JsonStyle::compact);
        for (const std::string& text : {pretty, compact, shuffled(household, random)}) {
            const auto again = fromJson<TaxCase>(text);
            ASSERT_TRUE(again.has_value()) << again.error().message << "\n" << text;
            ASSERT_EQ(*again, household) << text;
            ASSERT_EQ(std::hash<TaxCase>{}(*again), std::hash<TaxCase>{}(household)) << text;
            ASSERT_EQ(toJson(*again), pretty);
            ASSERT_EQ(toJson(*again, JsonStyle::compact), compact);
        }
        ASSERT_EQ(layoutFault(pretty), "") << pretty;
        ASSERT_EQ(compact.find('\n'), std::string::npos);
    }
}

TEST(WrittenCase, looksAsFilesOfOursDo) {
    LICommute commute;
    commute.from = "Balzers\t\"Dorf\"\x01 ü/\\";
    commute.kmPerDay = Decimal::parse("12.50").value();
    commute.reimbursed = Decimal::parse("-1e21").value();
    EXPECT_EQ(toJson(commute), R"({
  "from": "Balzers\t\"Dorf\"\u0001 ü/\\",
  "kmPerDay": 12.5,
  "mealDays": 0,
  "mode": "inland",
  "reimbursed": -1000000000000000000000,
  "to": "",
  "workDays": 220
}
)");
    EXPECT_EQ(toJson(HouseholdDeductions{}, JsonStyle::compact).find("actualAssetManagementCosts"),
              std::string::npos);
}

TEST(WrittenCase, readsBackWhateverItsTextsHold) {
    TaxCase household;
    household.iban = "a\xff\xc3\x28ü\xed\xa0\x80";
    const auto read = fromJson<TaxCase>(toJson(household));
    ASSERT_TRUE(read.has_value()) << read.error().message;
    EXPECT_EQ(read->iban, "a\uFFFD\uFFFD(ü\uFFFD\uFFFD\uFFFD");
}

TEST(ReadCase, givesTheSameForEveryWayToWriteIt) {
    const std::pair<std::string, std::string> table[] = {
        {"\xEF\xBB\xBF{\"cash\":1}", R"({"cash":1})"},
        {R"({"\u0079ear":2025,"c\u0061sh":7})", R"({"cash":7,"year":2025})"},
        {" {\n\t\"cash\" :\r\n 1 } \n", R"({"cash":1})"},
        {R"({"cash":1.50e1,"otherAssets":-0.0,"businessAssets":25E-1})",
         R"({"cash":15,"otherAssets":0,"businessAssets":2.5})"},
        {R"({"year":2.025e3,"deductions1":{"work":{"mealDays":10.0}}})",
         R"({"year":2025,"deductions1":{"work":{"mealDays":10}}})"},
        {R"({"iban":"\u00fc\/\ud83d\ude00\b\u0000"})", "{\"iban\":\"ü/😀\\u0008\\u0000\"}"},
        {R"({"x":{"y":[1,-2.5e-3,true,null,"z",{},[]]},"cash":1,"Cash":2,"x":1e999})",
         R"({"cash":1})"},
        {R"({"parish":null,"region":null,"li":null,"person1":{"birthDate":null}})", "{}"},
        {R"({"person1":{"birthDate":"2015-02-28T23:00:00Z"}})",
         R"({"person1":{"birthDate":"2015-03-01"}})"},
        {R"({"li":{}})",
         R"({"li":{"commute1":{"mode":"inland","workDays":220},"useRealEstateFromList":true}})"},
        {R"({"li":{"commute1":null,"commute2":{"from":null,"workDays":null},"householdGoods":null}})",
         R"({"li":{}})"},
        {"{\"x\":" + repeated("[", 47) + "1" + repeated("]", 47) + "}", "{}"},
    };
    for (const auto& [text, plain] : table) {
        EXPECT_EQ(filled(text), filled(plain)) << text;
    }
    EXPECT_EQ(filled(R"({"li":{}})").li, LIExtras());
    EXPECT_EQ(filled(R"({"parish":""})").parish, "");
}

TEST(ReadCase, letsOnlyOptionalAndLiechtensteinKeysBeMissing) {
    TaxCase household;
    household.year = 2025;
    household.vehicles.emplace_back().purchaseYear = 2020;
    household.income1.salaries.emplace_back().employer = "Muster AG";
    household.li.emplace();
    const std::string complete = toJson(household);
    ASSERT_EQ(fromJson<TaxCase>(complete), household);

    const struct {
        std::string key;  ///< with its value and the comma that belongs to it
        std::string path; ///< empty where the key may be missing
    } table[] = {
        {"\n  \"iban\": \"\",", "iban"},
        {"\n  \"cash\": 0,", "cash"},
        {",\n  \"year\": 2025", "year"},
        {"\n        \"fieldF\": false,", "income1.salaries[0].fieldF"},
        {"\n      \"purchasePrice\": 0,", "vehicles[0].purchasePrice"},
        {",\n    \"supportedPersons\": 0", "householdDeductions.supportedPersons"},
        {",\n      \"purchaseYear\": 2020", ""},
        {",\n      \"workDays\": 220", ""},
        {"\n    \"householdGoods\": 0,", ""},
    };
    for (const auto& [key, path] : table) {
        const std::size_t at = complete.find(key);
        ASSERT_NE(at, std::string::npos) << key;
        const auto read = fromJson<TaxCase>(std::string(complete).erase(at, key.size()));
        ASSERT_EQ(read.has_value(), path.empty()) << key;
        if (!read) {
            EXPECT_EQ(read.error().kind, Kind::missingKey) << key;
            EXPECT_EQ(read.error().path, path);
            EXPECT_EQ(read.error().message, "Die Angabe «" + path + "» fehlt.");
        }
    }
}

struct BadText {
    std::string text;
    Kind kind;
    std::string path;
    std::string message;
};

template <class T = TaxCase>
void expectRefused(const BadText& bad) {
    const std::string shown = bad.text.substr(0, 200);
    const auto read = fromJson<T>(bad.text, JsonGaps::filled);
    ASSERT_FALSE(read.has_value()) << shown;
    EXPECT_EQ(static_cast<int>(read.error().kind), static_cast<int>(bad.kind)) << shown;
    EXPECT_EQ(read.error().path, bad.path) << shown;
    EXPECT_EQ(read.error().message, bad.message) << shown;
}

TEST(ReadCase, explainsContentThatDoesNotFit) {
    const std::string regions = "erlaubt sind «sg», «li».";
    const std::string tooLong = "«cash» ist eine Zahl mit mehr als 38 Stellen.";
    const std::string outOfRange = "ist eine Zahl ausserhalb des darstellbaren Bereichs.";
    const BadText table[] = {
        {R"({"cash":"12.50"})", Kind::wrongType, "cash", "«cash» muss eine Zahl sein."},
        {R"({"cash":null})", Kind::wrongType, "cash", "«cash» muss eine Zahl sein."},
        {R"({"iban":12})", Kind::wrongType, "iban", "«iban» muss ein Text sein."},
        {R"({"iban":null})", Kind::wrongType, "iban", "«iban» muss ein Text sein."},
        {R"({"year":1.5})", Kind::wrongType, "year", "«year» muss eine ganze Zahl sein."},
        {R"({"person1":[]})", Kind::wrongType, "person1", "«person1» muss ein Objekt sein."},
        {R"({"debts":{}})", Kind::wrongType, "debts", "«debts» muss eine Liste sein."},
        {R"({"debts":null})", Kind::wrongType, "debts", "«debts» muss eine Liste sein."},
        {R"({"debts":[{},7]})", Kind::wrongType, "debts[1]", "«debts[1]» muss ein Objekt sein."},
        {R"({"income2":{"salaries":[{},{"fieldG":1}]}})", Kind::wrongType,
         "income2.salaries[1].fieldG",
         "«income2.salaries[1].fieldG» muss «true» oder «false» sein."},
        {R"({"li":{"commute1":{"workDays":"220"}}})", Kind::wrongType, "li.commute1.workDays",
         "«li.commute1.workDays» muss eine Zahl sein."},
        {R"({"li":[]})", Kind::wrongType, "li", "«li» muss ein Objekt sein."},
        {"[]", Kind::wrongType, "", "Der Inhalt muss ein Objekt sein."},
        {"42", Kind::wrongType, "", "Der Inhalt muss ein Objekt sein."},
        {" \"Fall\" ", Kind::wrongType, "", "Der Inhalt muss ein Objekt sein."},
        {R"({"region":"liechtenstein"})", Kind::unknownValue, "region",
         "«region» hat einen unbekannten Wert; " + regions},
        {R"({"region":""})", Kind::unknownValue, "region",
         "«region» hat einen unbekannten Wert; " + regions},
        {R"({"li":{"commute2":{"mode":"Inland"}}})", Kind::unknownValue, "li.commute2.mode",
         "«li.commute2.mode» hat einen unbekannten Wert; erlaubt sind «inland», «ausland»."},
        {R"({"debts":[{"id":"6F1C0E52-9A04"}]})", Kind::invalidUuid, "debts[0].id",
         "«debts[0].id» ist keine gültige UUID."},
        {R"({"person1":{"birthDate":"29.02.2024"}})", Kind::invalidDate, "person1.birthDate",
         "«person1.birthDate» ist kein gültiges Datum wie «2025-12-31»."},
        {R"({"person2":{"birthDate":"2025-02-29"}})", Kind::invalidDate, "person2.birthDate",
         "«person2.birthDate» ist kein gültiges Datum wie «2025-12-31»."},
        {R"({"cash":1,"x":0,"c\u0061sh":1})", Kind::duplicateKey, "cash",
         "Die Angabe «cash» kommt doppelt vor."},
        {R"({"vehicles":[{"description":"","description":""}]})", Kind::duplicateKey,
         "vehicles[0].description", "Die Angabe «vehicles[0].description» kommt doppelt vor."},
        {"{\"cash\":1" + repeated("2", 38) + "}", Kind::number, "cash", tooLong},
        {"{\"cash\":0." + repeated("3", 10'000) + "}", Kind::number, "cash", tooLong},
        {R"({"cash":1e999})", Kind::number, "cash", "«cash» " + outOfRange},
        {R"({"cash":-1e-129})", Kind::number, "cash", "«cash» " + outOfRange},
        {R"({"year":2147483648})", Kind::number, "year", "«year» " + outOfRange},
        {R"({"year":-1e100})", Kind::number, "year", "«year» " + outOfRange},
    };
    for (const BadText& bad : table) {
        expectRefused(bad);
    }
    EXPECT_EQ(filled("{\"cash\":1" + repeated("0", 100) + "}").cash, Decimal::parse("1e100"));
}

TEST(ReadCase, explainsDamagedTextsWithTheirPlace) {
    const auto broken = [](const std::string& place) {
        return "Die Daten sind " + place + " kein gültiges JSON.";
    };
    const std::string top = "auf der obersten Ebene (Zeile 1)";
    const std::string name = "person1.firstName";
    const std::string atName = "bei «" + name + "» (Zeile 2)";
    const auto named = [](const std::string& content) {
        return "{\"cash\":1,\n\"person1\":{\"firstName\":\"" + content + "\",\n\"x\":1}\n}\n";
    };
    const std::string notUtf8 =
        "Die Daten enthalten " + atName + " Zeichen, die nicht in UTF-8 geschrieben sind.";
    const BadText table[] = {
        {"", Kind::truncated, "", "Die Daten brechen " + top + " ab."},
        {" \n\t\n ", Kind::truncated, "", "Die Daten brechen auf der obersten Ebene (Zeile 3) ab."},
        {"{} x", Kind::syntax, "", broken(top)},
        {"{}{}", Kind::syntax, "", broken(top)},
        {"{'cash':1}", Kind::syntax, "", broken(top)},
        {"{\"cash\":1,}", Kind::syntax, "cash", broken("bei «cash» (Zeile 1)")},
        {"{\"cash\" 1}", Kind::syntax, "cash", broken("bei «cash» (Zeile 1)")},
        {"{\"cash\":1 \"year\":2}", Kind::syntax, "cash", broken("bei «cash» (Zeile 1)")},
        {"{\n\"debts\":[{},\n]}", Kind::syntax, "debts[1]", broken("bei «debts[1]» (Zeile 3)")},
        {"{\"cash\":01}", Kind::syntax, "cash", broken("bei «cash» (Zeile 1)")},
        {"{\"cash\":1.}", Kind::syntax, "cash", broken("bei «cash» (Zeile 1)")},
        {"{\"li\":nulll}", Kind::syntax, "li", broken("bei «li» (Zeile 1)")},
        {"{\"x\":{\"y\":[0,tru]}}", Kind::syntax, "x.y[1]", broken("bei «x.y[1]» (Zeile 1)")},
        {"{\"x\":{\"y\":[0,00]}}", Kind::syntax, "x.y[1]", broken("bei «x.y[1]» (Zeile 1)")},
        {"{\"x\":[{\"y\":1,}]}", Kind::syntax, "x[0].y", broken("bei «x[0].y» (Zeile 1)")},
        {named("a\tb"), Kind::syntax, name, broken(atName)},
        {named("a\0b"s), Kind::syntax, name, broken(atName)},
        {named("\\q"), Kind::syntax, name, broken(atName)},
        {named("\\ü"), Kind::syntax, name, broken(atName)},
        {named("\\u12g4"), Kind::syntax, name, broken(atName)},
        {named("\\ud83d"), Kind::syntax, name, broken(atName)},
        {named("\\ud83d\\u0041"), Kind::syntax, name, broken(atName)},
        {named("\\ud83d\\ud83d"), Kind::syntax, name, broken(atName)},
        {named("\\ude00"), Kind::syntax, name, broken(atName)},
        {"{\"x\":\n\"\\ud83d\"\n}", Kind::syntax, "x", broken("bei «x» (Zeile 2)")},
    };
    for (const BadText& bad : table) {
        expectRefused(bad);
    }
    for (const char* bytes : {"\xC3(", "\x80", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80",
                              "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xFF"}) {
        expectRefused({named(bytes), Kind::encoding, name, notUtf8});
    }
}

TEST(ReadCase, refusesEveryTruncationWithASentence) {
    TaxCase household;
    household.year = 2025;
    household.person1.firstName = "Zoë \"\\ 😀";
    household.person1.birthDate = Date::of(1984, 2, 29);
    household.debts.emplace_back().amount = Decimal::parse("-0.05").value();
    const std::string text = toJson(household, JsonStyle::compact);
    for (std::size_t length = 0; length < text.size(); ++length) {
        const bool splitsCharacter = (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U;
        const auto read = fromJson<TaxCase>(text.substr(0, length));
        ASSERT_FALSE(read.has_value()) << length;
        EXPECT_EQ(read.error().kind, splitsCharacter ? Kind::encoding : Kind::truncated) << length;
        EXPECT_NE(read.error().message.find("(Zeile 1)"), std::string::npos) << length;
        EXPECT_TRUE(read.error().message.ends_with('.')) << length;
    }
    EXPECT_EQ(fromJson<TaxCase>(text), household);
}

TEST(ReadCase, refusesMonstrousTextsFastAndWithinMemory) {
    const std::string nested = "x" + repeated("[0]", 47);
    const BadText table[] = {
        {std::string(100U << 20U, '['), Kind::tooDeep, repeated("[0]", 48),
         "Die Daten sind bei «" + repeated("[0]", 48) + "» (Zeile 1) zu tief verschachtelt."},
        {"{\"x\":" + std::string(100U << 20U, '['), Kind::tooDeep, nested,
         "Die Daten sind bei «" + nested + "» (Zeile 1) zu tief verschachtelt."},
        {"{\"x\":" + repeated("[", 48) + repeated("]", 48) + "}", Kind::tooDeep, nested,
         "Die Daten sind bei «" + nested + "» (Zeile 1) zu tief verschachtelt."},
        {std::string(maxJsonSize + 1, ' '), Kind::tooLarge, "",
         "Die Daten sind grösser als 256 MB."},
    };
    const auto started = std::chrono::steady_clock::now();
    for (const BadText& bad : table) {
        expectRefused(bad);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(20));
    rusage used{};
    ASSERT_EQ(getrusage(RUSAGE_SELF, &used), 0);
    EXPECT_LT(used.ru_maxrss, 2L << 20U) << "kilobytes; the texts take half of it";
}

TEST(ReadCase, fillsGapsWithNewValues) {
    EXPECT_EQ(filled("{}"), TaxCase());
    EXPECT_EQ(filled("{}").taxRegion(), TaxRegion::stGallen);
    EXPECT_EQ(filled(R"({"region":"li"})").taxRegion(), TaxRegion::liechtenstein);
    EXPECT_EQ(filled(R"({"li":{"commute1":{"kmPerDay":30}}})").li->commute1.workDays, 220);

    const TaxCase household = filled(R"({"securities":[{"taxValue":5},{"kind":"krypto"}]})");
    ASSERT_EQ(household.securities.size(), 2U);
    EXPECT_NE(household.securities[0].id, household.securities[1].id);
    SecurityEntry expected;
    expected.id = household.securities[0].id;
    expected.taxValue = 5;
    EXPECT_EQ(household.securities[0], expected);
}

TEST(PatchedCase, keepsWhatThePatchLeavesOut) {
    TaxCase household = RandomCase(7).next();
    household.li.emplace().householdGoods = 5000;
    household.li->commute1.from = "Buchs";
    household.li->commute1.to = "Vaduz";
    household.parish = "Sevelen";
    household.debts.resize(3);
    TaxCase expected = household;
    ASSERT_TRUE(patchFromJson(household, "{}").has_value());
    EXPECT_EQ(household, expected);

    ASSERT_TRUE(patchFromJson(household, R"({"cash":12.5,"parish":null,"region":"li","debts":[],
        "income1":{"boardFees":7},"li":{"commute1":{"kmPerDay":30,"to":"Balzers"}}})")
                    .has_value());
    expected.cash = Decimal::parse("12.5").value();
    expected.parish.reset();
    expected.region = TaxRegion::liechtenstein;
    expected.debts.clear();
    expected.income1.boardFees = 7;
    expected.li->commute1.kmPerDay = 30;
    expected.li->commute1.to = "Balzers";
    EXPECT_EQ(household, expected);

    for (const char* bad : {R"({"cash":1,"debts":[{}],"year":"x"})", R"({"cash":1,"iban":"a")"}) {
        EXPECT_FALSE(patchFromJson(household, bad).has_value());
        EXPECT_EQ(household, expected) << "a refused patch changes nothing: " << bad;
    }
}

/// What a state file holds, as far as it matters here.
struct ByYear {
    std::map<int, TaxCase> cases;
};
TAXCORE_RECORD(ByYear, cases);

TEST(CasesByYear, readWithYearsForKeys) {
    const auto state = fromJson<ByYear>(
        R"({"selectedYear":2026,"cases":{"2026":{},"2025":{"year":2025,"cash":3}},"version":1})",
        JsonGaps::filled);
    ASSERT_TRUE(state.has_value());
    ASSERT_EQ(state->cases.size(), 2U);
    EXPECT_EQ(state->cases.at(2025).cash, 3);

    const BadText table[] = {
        {R"({"cases":{"2025 ":{}}})", Kind::wrongType, "cases.2025 ",
         "«cases.2025 » muss eine Jahreszahl sein."},
        {R"({"cases":{"99999999999":{}}})", Kind::wrongType, "cases.99999999999",
         "«cases.99999999999» muss eine Jahreszahl sein."},
        {R"({"cases":{"2025":{},"2025":{}}})", Kind::duplicateKey, "cases.2025",
         "Die Angabe «cases.2025» kommt doppelt vor."},
        {R"({"cases":{"2025":{"cash":true}}})", Kind::wrongType, "cases.2025.cash",
         "«cases.2025.cash» muss eine Zahl sein."},
    };
    for (const BadText& bad : table) {
        expectRefused<ByYear>(bad);
    }
}

} // namespace
} // namespace taxcore
