#include "tests/documents/corpus/measure/Report.h"

#include <gtest/gtest.h>

namespace corpus {
namespace {

TruthRecord security(Cents value, Cents income) {
    TruthRecord record;
    record.kind = "security";
    record.amount("taxValue", value).amount("incomeWithoutWithholding", income);
    return record;
}

Truth twoAccounts() {
    Truth truth;
    truth.kind = "bankauszug";
    truth.records = {security(100000, 500), security(250050, 0)};
    truth.accepted = {security(350050, 500)};
    truth.forbidden = QStringList{"35.00"};
    return truth;
}

ProposedValue value(const char* field, const char* text, Trust trust = Trust::high) {
    return {field, text, "position", trust};
}

struct Case {
    const char* name;
    std::vector<AnsweredRecord> records;
    int right;
    std::array<int, 3> wrong;
    std::array<int, 3> phantom;
};

TEST(DocumentMeasure, countsWhatIsRightWrongAndInvented) {
    const AnsweredRecord first{
        "security", "", "", {value("taxValue", "1000"), value("incomeWithoutWithholding", "5.00")}};
    const AnsweredRecord second{"security", "", "", {value("taxValue", "2500.5")}};
    const AnsweredRecord total{
        "security", "", "", {value("taxValue", "3500.50"), value("incomeWithoutWithholding", "5")}};
    const Case cases[] = {
        {"all of it", {first, second}, 3, {}, {}},
        {"in another order", {second, first}, 3, {}, {}},
        {"nothing", {}, 0, {}, {}},
        {"the total alone", {total}, 0, {}, {}},
        {"the total besides", {total, first, second}, 3, {}, {}},
        {"a wrong value",
         {first, {"security", "", "", {value("taxValue", "35", Trust::medium)}}},
         2,
         {0, 1, 0},
         {}},
        {"a zero for an empty field",
         {first,
          {"security",
           "",
           "",
           {value("taxValue", "2500.50"), value("incomeWithWithholding", "0")}}},
         3,
         {},
         {}},
        {"a value for an empty field",
         {first,
          {"security",
           "",
           "",
           {value("taxValue", "2500.50"), value("incomeWithWithholding", "35", Trust::low)}}},
         3,
         {},
         {0, 0, 1}},
        {"a record too many",
         {first, second, {"debt", "", "", {value("amount", "35")}}},
         3,
         {},
         {1, 0, 0}},
        {"a register line too many", {first, second, second}, 3, {}, {1, 0, 0}},
        {"two values for a field",
         {first,
          {"security", "", "", {value("taxValue", "2500.50"), value("taxValue", "9", Trust::low)}}},
         3,
         {0, 0, 1},
         {}},
    };
    for (const Case& one : cases) {
        Answer answer;
        answer.records = one.records;
        const Score score = scored(twoAccounts(), answer);
        EXPECT_EQ(score.wanted, 3) << one.name;
        EXPECT_EQ(score.right, one.right) << one.name;
        EXPECT_EQ(score.wrong, one.wrong) << one.name;
        EXPECT_EQ(score.phantom, one.phantom) << one.name;
    }
}

TEST(DocumentMeasure, theTotalOfOneAccountIsNoSecondOne) {
    Truth truth = twoAccounts();
    truth.records.pop_back();
    truth.accepted = truth.records;
    const AnsweredRecord account{
        "security", "", "", {value("taxValue", "1000"), value("incomeWithoutWithholding", "5.00")}};
    const AnsweredRecord other{"security", "", "", {value("taxValue", "35")}};
    EXPECT_EQ((std::array<int, 3>{}),
              scored(truth, Answer{"", "", {account, account}, ""}).phantom);
    EXPECT_EQ((std::array<int, 3>{1, 0, 0}),
              scored(truth, Answer{"", "", {account, other}, ""}).phantom);
}

TEST(DocumentMeasure, recordsThatExistOnceMayComeInParts) {
    Truth truth;
    TruthRecord record;
    record.kind = "householdDeductions";
    record.amount("healthInsurancePremiums", 480000).amount("premiumReduction", 60000);
    truth.records = {record};
    Answer answer;
    answer.records = {{"householdDeductions", "", "", {value("healthInsurancePremiums", "4800")}},
                      {"householdDeductions", "", "", {value("premiumReduction", "600")}}};
    const Score score = scored(truth, answer);
    EXPECT_EQ(score.right, 2);
    EXPECT_EQ(score.phantom, (std::array<int, 3>{}));
}

TEST(DocumentMeasure, readsTheAnswerOfTheReader) {
    const auto answer = Answer::fromJson(
        R"({"kind":"anderes","proposedKind":"bankauszug","records":[{"kind":"security"}],
            "proposals":[{"recordIndex":0,"field":"taxValue","value":"1000","confidence":"medium","witness":"text"},
                         {"recordIndex":7,"field":"taxValue","value":"1","confidence":"high","witness":"text"}]})");
    ASSERT_TRUE(answer);
    const Score score = scored(twoAccounts(), answer);
    EXPECT_EQ(score.right, 1);
    EXPECT_EQ(score.kindRight, 1);
    EXPECT_EQ(score.literalRight, 0);
    EXPECT_EQ(score.byWitness["text"].first, 1);
    EXPECT_FALSE(Answer::fromJson("no answer"));
    EXPECT_EQ(scored(twoAccounts(), std::nullopt).unanswered, 1);
}

TEST(DocumentMeasure, truthComesBackFromItsFile) {
    Truth truth = twoAccounts();
    truth.records[0].date("date", QDate(2024, 2, 29)).text("institution", "Bank «Ä»");
    truth.look = "scan";
    truth.payload = true;
    const auto back = Truth::fromJson(truth.json());
    ASSERT_TRUE(back);
    EXPECT_EQ(back->json(), truth.json());
}

TEST(DocumentMeasure, amountsInEveryFormOfTheCase) {
    EXPECT_EQ(centsOf("68000.5"), Cents{6800050});
    EXPECT_EQ(centsOf("22.936"), Cents{2294});
    EXPECT_EQ(centsOf("-3"), Cents{-300});
    EXPECT_EQ(centsOf("2024-12-31"), std::nullopt);
    EXPECT_EQ(centsOf("1'000"), std::nullopt);
}

TEST(DocumentMeasure, aimsSayWhatIsMissed) {
    Measured good{"a.pdf", twoAccounts(), {}};
    good.truth.look = "clean";
    good.score.files = good.score.kindRight = 1;
    good.score.wanted = good.score.right = 10;
    Measured bad = good;
    bad.truth.look = "scan";
    bad.score.right = 9;
    bad.score.phantom = {1, 0, 0};
    const QString text = report({good, bad});
    const auto lineWith = [&](const char* part) {
        for (const QString& line : text.split('\n')) {
            if (line.startsWith(part)) {
                return line;
            }
        }
        return QString();
    };
    EXPECT_TRUE(lineWith("amounts, clean").contains("reached"));
    EXPECT_TRUE(lineWith("amounts, scan").contains("MISSED"));
    EXPECT_TRUE(lineWith("amounts, photo").contains("not measured"));
    EXPECT_TRUE(lineWith("wrong or phantom").contains("MISSED"));
}

} // namespace
} // namespace corpus
