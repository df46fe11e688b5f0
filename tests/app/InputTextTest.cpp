#include "Fiscarel_SG/forms/InputText.h"

#include "Fiscarel_SG/look/QtText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace fiscarel::forms {
namespace {

constexpr int year = 2025;

/// What a reader answered: "= 12.5" or the sentence.
std::string answer(const Read<Decimal>& read) {
    return read ? "= " + read->toString() : read.error();
}
std::string answer(const Read<int>& read) {
    return read ? "= " + std::to_string(*read) : read.error();
}
std::string answer(const Read<Date>& read) {
    return read ? "= " + formatDate(*read) : read.error();
}
std::string answer(const Read<std::string>& read) { return read ? "= " + *read : read.error(); }

struct Row {
    const char* typed;
    const char* expected; ///< the answer, or words of the sentence
};

template <class Parse, std::size_t count>
void expectAnswers(const Row (&rows)[count], Parse parse) {
    for (const Row& row : rows) {
        const std::string answered = answer(parse(row.typed));
        if (std::string_view(row.expected).starts_with("= ")) {
            EXPECT_EQ(answered, row.expected) << row.typed;
        } else {
            EXPECT_NE(answered.find(row.expected), std::string::npos)
                << row.typed << " gives: " << answered;
            EXPECT_TRUE(answered.ends_with('.')) << answered;
        }
    }
}

TEST(InputText, amountsAreReadAsTheyAreWrittenInSwitzerland) {
    const Row rows[] = {
        {"0", "= 0"},
        {"7", "= 7"},
        {"007", "= 7"},
        {"  12  ", "= 12"},
        {"12'345.50", "= 12345.5"},
        {"12’345,50", "= 12345.5"},
        {"12`345", "= 12345"},
        {"1´234´567", "= 1234567"},
        {"12 345.–", "= 12345"},
        {"12\u00A0345.50", "= 12345.5"},
        {"12\u202F345", "= 12345"},
        {"1\u2009234\u2009567.05", "= 1234567.05"},
        {"12.-", "= 12"},
        {"12.--", "= 12"},
        {"12,—", "= 12"},
        {"12.", "= 12"},
        {".5", "= 0.5"},
        {"0.05", "= 0.05"},
        {"CHF 12’345", "= 12345"},
        {"chf12345", "= 12345"},
        {"Fr. 500.-", "= 500"},
        {"Fr.50", "= 50"},
        {"SFr. 1'000", "= 1000"},
        {"500 Franken", "= 500"},
        {"12.50 CHF", "= 12.5"},
        {"-500", "= -500"},
        {"−500.05", "= -500.05"},
        {"–500", "= -500"},
        {"CHF -3", "= -3"},
        {"- CHF 3", "= -3"},
        {"+3", "= 3"},
        {"999999999999.99", "= 999999999999.99"},
    };
    expectAnswers(rows, [](const char* text) { return parseAmount(text); });
}

TEST(InputText, sumsAreComputedExactlyAndRoundedOnlyAtTheEnd) {
    const Row rows[] = {
        {"1200*12+300", "= 14700"},
        {"300+1200*12", "= 14700"},
        {"12 x 980", "= 11760"},
        {"12×980.50", "= 11766"},
        {"100-30-20", "= 50"},
        {"100/5/2", "= 10"},
        {"100 : 8", "= 12.5"},
        {"2*(3+4)", "= 14"},
        {"-(3+4)*2", "= -14"},
        {"5--3", "= 8"},
        {"5*-3", "= -15"},
        {"Fr. 20.- + Fr. 30.-", "= 50"},
        {"12.-+3", "= 15"},
        {"12. - 3", "= 9"},
        {"1'200 * 12", "= 14400"},
        {"0.1+0.2", "= 0.3"},
        {"100/3", "= 33.33"},
        {"200/3", "= 66.67"},
        {"-200/3", "= -66.67"},
        {"100/3*3", "= 100"},
        {"0.25/10", "= 0.03"},
        {"0.35*0.35", "= 0.12"},
        {"((((((((((((((((1))))))))))))))))", "= 1"},
        {"1200*", "Nach «1200*» fehlt noch eine Zahl"},
        {"1200*12+", "fehlt noch eine Zahl"},
        {"12-", "fehlt noch eine Zahl"},
        {"(1+2", "fehlt eine schliessende Klammer"},
        {"1+2)", "schliesst eine Klammer, die nicht offen ist"},
        {"1/0", "Durch null"},
        {"1/(3-3)", "Durch null"},
        {"(((((((((((((((((1)))))))))))))))))", "zu viele Klammern"},
        {"5---3", "kein Betrag"},
        {"2(3)", "kein Betrag"},
        {"()", "kein Betrag"},
        {"12.-3", "kein Betrag"},
        {"999999999999*2", "zu gross"},
        {"999999999999*999999999999*999999999999/0.01", "zu gross"},
    };
    expectAnswers(rows, [](const char* text) { return parseAmount(text); });
}

TEST(InputText, otherAmountsAreAnsweredWithWhatWouldBeRight) {
    const Row rows[] = {
        {"12.3.4", "«12.3.4» ist kein Betrag. Beispiel: 1’250.50 oder 12*980."},
        {"12.345", "Für Tausender schreiben Sie 12’345, für Rappen 12.34"},
        {"1,250", "drei Stellen nach dem Komma. Für Tausender schreiben Sie 1’250"},
        {"3+12.345", "«12.345»"},
        {"1'234.567", "höchstens zwei Stellen"},
        {"1.2345", "höchstens zwei Stellen"},
        {"1,234.50", "kein Betrag"},
        {"1.234,50", "kein Betrag"},
        {"1.234'50", "kein Betrag"},
        {"12'34", "Dreiergruppen"},
        {"1'2345", "Dreiergruppen"},
        {"1234'567", "Dreiergruppen"},
        {"12 34", "Dreiergruppen"},
        {"12'", "Dreiergruppen"},
        {"-.50", "zweifach lesen"},
        {"–.50", "zweifach lesen"},
        {"", "fehlt ein Betrag"},
        {"-", "kein Betrag"},
        {".", "kein Betrag"},
        {".-", "kein Betrag"},
        {"CHF", "kein Betrag"},
        {"abc", "«abc» ist kein Betrag"},
        {"12abc", "kein Betrag"},
        {"1e5", "kein Betrag"},
        {"8%", "kein Betrag"},
        {"NaN", "kein Betrag"},
        {"١٢", "kein Betrag"},
        {"\xFF\xFE", "kein Betrag"},
        {"EUR 12", "Hier stehen Franken"},
        {"12 €", "Hier stehen Franken"},
        {"1000000000000", "zu gross"},
        {"12345678901234567890123456789012345678901234567890", "zu gross"},
    };
    expectAnswers(rows, [](const char* text) { return parseAmount(text); });
    EXPECT_EQ(answer(parseAmount(std::string(100'000, '('))),
              "Das ist zu lang. Rechnen Sie in Schritten.");
    EXPECT_EQ(answer(parseAmount(std::string(20, 'a') + "öööööööööööööööööööööö")),
              "«" + std::string(20, 'a')
                  + "öööööööööö…» ist kein Betrag. Beispiel: 1’250.50 oder 12*980.");
}

TEST(InputText, numbersAreReadWithTheirUnit) {
    const Row rows[] = {
        {"12.5", "= 12.5"},
        {"12,5", "= 12.5"},
        {"12.345", "= 12.345"},
        {"12.5 km", "= 12.5"},
        {"12km", "= 12"},
        {"12'000", "= 12000"},
        {"-3", "= -3"},
        {"0.000001", "= 0.000001"},
        {"0.0000001", "höchstens sechs Stellen"},
        {"12 %", "«12 %» ist keine Zahl"},
        {"km", "keine Zahl"},
        {"1.2.3", "keine Zahl"},
        {"12.-", "keine Zahl"},
        {"3*4", "keine Zahl"},
        {"--3", "keine Zahl"},
        {"", "keine Zahl"},
        {"1'2", "Dreiergruppen"},
        {"1234567890123", "zu gross"},
    };
    expectAnswers(rows, [](const char* text) { return parseNumber(text, "km"); });
    EXPECT_EQ(answer(parseNumber("33.3%", "%")), "= 33.3");
    EXPECT_EQ(answer(parseNumber("5 x", "x")), "= 5");
}

TEST(InputText, countsAreWholeAndNotNegative) {
    const Row rows[] = {
        {"0", "= 0"},
        {"220", "= 220"},
        {"220 Tage", "= 220"},
        {"2'025", "= 2025"},
        {"12.0", "= 12"},
        {"999999999", "= 999999999"},
        {"12.5", "ganze Zahl, ohne Stellen"},
        {"-1", "nicht negativ"},
        {"1000000000", "zu gross"},
        {"99999999999999999999", "keine ganze Zahl"},
        {"zwölf", "«zwölf» ist keine ganze Zahl. Beispiel: 12."},
    };
    expectAnswers(rows, [](const char* text) { return parseInteger(text, "Tage"); });
}

TEST(InputText, datesAreReadAsTheyAreTyped) {
    const Row rows[] = {
        {"1.3.84", "= 01.03.1984"},
        {"01.03.1984", "= 01.03.1984"},
        {"1. 3. 1984", "= 01.03.1984"},
        {"1.3.2025", "= 01.03.2025"},
        {"1/3/84", "= 01.03.1984"},
        {"1-3-84", "= 01.03.1984"},
        {"1 3 84", "= 01.03.1984"},
        {"010384", "= 01.03.1984"},
        {"01031984", "= 01.03.1984"},
        {"2025-03-01", "= 01.03.2025"},
        {"2025–03–01", "= 01.03.2025"},
        {"29.2.24", "= 29.02.2024"},
        {"1.1.00", "= 01.01.2000"},
        {"31.12.26", "= 31.12.2026"}, // next year, as in a contract
        {"1.1.27", "= 01.01.1927"},
        {"1.1.2100", "= 01.01.2100"},
        {"30.2.2025", "Den 30. Februar gibt es nicht."},
        {"29.2.2025", "Den 29. Februar 2025 gibt es nicht: 2025 ist kein Schaltjahr."},
        {"29.2.1900", "1900 ist kein Schaltjahr"},
        {"31.4.25", "Den 31. April gibt es nicht."},
        {"0.3.84", "Den 0. März gibt es nicht."},
        {"3.13.84", "Einen Monat 13 gibt es nicht. Zuerst steht der Tag"},
        {"1.3.", "fehlt noch das Jahr"},
        {"1.3", "fehlt noch das Jahr"},
        {"1.3.198", "zwei oder vier Ziffern"},
        {"1.3.19845", "zwei oder vier Ziffern"},
        {"1.3.1899", "zwischen 1900 und 2100"},
        {"1.3.2101", "zwischen 1900 und 2100"},
        {"1", "kein Datum"},
        {"1..3.84", "kein Datum"},
        {"-1.3.84", "kein Datum"},
        {"1.3.84.5", "kein Datum"},
        {"123.3.84", "kein Datum"},
        {"10384", "kein Datum"},
        {"1*3*84", "kein Datum"},
        {"gestern", "«gestern» ist kein Datum. Beispiel: 1.3.1984."},
        {"", "kein Datum"},
    };
    expectAnswers(rows, [](const char* text) { return parseDate(text, year); });
    EXPECT_EQ(answer(parseDate("1.1.00", 2099)), "= 01.01.2100");
    EXPECT_EQ(answer(parseDate("1.1.99", 2099)), "= 01.01.2099");
}

TEST(InputText, accountNumbersAreGroupedAndVerified) {
    const Row rows[] = {
        {"CH93 0076 2011 6238 5295 7", "= CH93 0076 2011 6238 5295 7"},
        {"ch9300762011623852957", "= CH93 0076 2011 6238 5295 7"},
        {"IBAN: CH93-0076-2011-6238-5295-7", "= CH93 0076 2011 6238 5295 7"},
        {"CH93\u00A00076\u00A02011\u00A06238\u00A05295\u00A07", "= CH93 0076 2011 6238 5295 7"},
        {"LI21 0881 0000 2324 013A A", "= LI21 0881 0000 2324 013A A"},
        {"DE89370400440532013000", "= DE89 3704 0044 0532 0130 00"},
        {"CH93 0076 2011 6238 5295 8", "Prüfziffern passen nicht"},
        {"CH93 0076 2011 6238 5259 7", "Prüfziffern passen nicht"},
        {"CH93 0076 2011 6238 5295", "aus der Schweiz hat 21 Zeichen; hier ist es 1 zu wenig"},
        {"LI21 0881 0000 2324 013A A12",
         "aus Liechtenstein hat 21 Zeichen; hier sind es 2 zu viel"},
        {"DE89 3704", "15 bis 34 Zeichen; hier stehen 8"},
        {"80-470-3", "beginnt mit dem Land"},
        {"hallo", "beginnt mit dem Land"},
        {"", "beginnt mit dem Land"},
    };
    expectAnswers(rows, [](const char* text) { return parseIban(text); });
    EXPECT_EQ(groupIban("ch930"), "CH93 0");
    EXPECT_EQ(groupIban("CH93"), "CH93");
}

TEST(InputText, valuesAreShownGroupedAndTypedPlain) {
    struct Shown {
        const char* value;
        const char* grouped;
        const char* plain;
        const char* number;
    };
    for (const Shown& row : {
             Shown{"0", "0", "0", "0"},
             {"999", "999", "999", "999"},
             {"12345", "12’345", "12345", "12’345"},
             {"12345.5", "12’345.50", "12345.50", "12’345.5"},
             {"-1234567.05", "-1’234’567.05", "-1234567.05", "-1’234’567.05"},
             {"1000.125", "1’000.125", "1000.125", "1’000.125"},
         }) {
        const Decimal value = *Decimal::parse(row.value);
        EXPECT_EQ(formatAmount(value), row.grouped);
        EXPECT_EQ(formatPlain(value), row.plain);
        EXPECT_EQ(formatNumber(value), row.number);
    }
}

TEST(InputText, whatIsShownIsReadBackAsTheSame) {
    for (long long rappen = -2'000'000; rappen <= 200'000'000'000;
         rappen += 7'654'321 + rappen / 9) {
        const Decimal value = Decimal(rappen) / Decimal(100);
        for (const std::string& text : {formatAmount(value), formatPlain(value)}) {
            EXPECT_EQ(answer(parseAmount(text)), "= " + value.toString()) << text;
        }
        EXPECT_EQ(answer(parseNumber(formatNumber(value))), "= " + value.toString());
    }
    for (const Date date :
         {*Date::of(1900, 1, 1), *Date::of(2024, 2, 29), *Date::of(2100, 12, 31)}) {
        EXPECT_EQ(answer(parseDate(formatDate(date), year)), "= " + formatDate(date));
    }
}

TEST(InputText, namesAreComparedWithoutTheirDressing) {
    const auto plain = [](const char* name) { return utf8(foldedName(qs(name), Umlauts::plain)); };
    EXPECT_EQ(plain("St. Gallen"), plain("St.Gallen"));
    EXPECT_EQ(plain("ALTSTÄTTEN"), "altstatten");
    EXPECT_EQ(utf8(foldedName(qs("ALTSTÄTTEN"), Umlauts::spelledOut)), "altstaetten");
    EXPECT_EQ(plain("Genève"), "geneve");
    EXPECT_EQ(plain("Œuvre-1"), "œuvre1");
    EXPECT_NE(plain("Wil"), plain("Wildhaus-Alt St.Johann"));
    EXPECT_EQ(utf8(folded(qs("Säule 3a"), Umlauts::spelledOut)), "saeule 3a");
}

} // namespace
} // namespace fiscarel::forms
