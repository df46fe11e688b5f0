// The review as text: which tips are still open, why the tax changed, what a plan wastes.

#include "cli/ReviewText.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace fiscarel::cli {
namespace {

using namespace taxcore;

TaxCase caseOf(TaxRegion region) {
    TaxCase taxCase{.year = 2025};
    taxCase.region = region;
    return taxCase;
}

Notice tip(const char* title, bool missed) {
    Notice notice;
    notice.level = Notice::Level::tip;
    notice.title = title;
    notice.saving = 100;
    if (missed) {
        notice.missed = true;
    }
    return notice;
}

std::string textWith(std::vector<Notice> tips) {
    Review review;
    review.tips = std::move(tips);
    return reviewText(caseOf(TaxRegion::stGallen), review);
}

bool has(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

constexpr const char* tooLate = "Zu spät für 2025 – ab 2026 beachten";
constexpr const char* byItself = "Jede Ersparnis ist für sich allein gerechnet";

TEST(ReviewText, putsMissedTipsApart) {
    const std::string both = textWith({tip("offen", false), tip("verpasst", true)});
    EXPECT_LT(both.find("Spartipps"), both.find("offen"));
    EXPECT_LT(both.find("offen"), both.find(tooLate));
    EXPECT_LT(both.find(tooLate), both.find("hätte CHF 100.00 gespart: verpasst"));
    EXPECT_LT(both.find("verpasst"), both.find(byItself));

    const std::string open = textWith({tip("offen", false)});
    EXPECT_FALSE(has(open, tooLate));
    EXPECT_FALSE(has(open, byItself)) << "one saving cannot be added to another";
    const std::string missed = textWith({tip("verpasst", true)});
    EXPECT_TRUE(has(missed, tooLate));
    EXPECT_TRUE(has(missed, "Für 2025 ist kein Tipp mehr offen."));
    const std::string none = textWith({});
    EXPECT_FALSE(has(none, tooLate));
    EXPECT_TRUE(has(none, "Es ist kein Tipp mit einer Ersparnis bekannt."));
}

TEST(ReviewText, tellsTheCausesOfAChangeOrWhyThereAreNone) {
    Review review;
    YearComparison change;
    change.before = 1'000;
    change.after = 1'015;
    change.ageing = 12;
    change.entries = 3;
    review.change = change;
    const std::string text = reviewText(caseOf(TaxRegion::stGallen), review);
    EXPECT_LT(text.find("durch Zeitablauf"), text.find("12.00"));
    EXPECT_LT(text.find("12.00"), text.find("durch die Angaben"));
    EXPECT_FALSE(has(text, "Geänderte Zeilen"));
    const LineChange both{"a", "Lohn", 1, 2, 1, 2};
    const LineChange federalOnly{"b", "Betreuung", 5, 5, 4, 5};
    review.change->lines = {both, federalOnly};
    const std::string lines = reviewText(caseOf(TaxRegion::stGallen), review);
    EXPECT_LT(lines.find("Geänderte Zeilen (Kanton)"), lines.find("Lohn"));
    EXPECT_FALSE(has(lines, "Betreuung")) << "its amount of the canton stayed";
    EXPECT_FALSE(
        has(reviewText(caseOf(TaxRegion::liechtenstein), review), "Geänderte Zeilen (Kanton)"));
    review.change.reset();
    review.changeMissing = "Für 2024 gibt es keine Regeln; der Vergleich mit dem Vorjahr fehlt.";
    EXPECT_TRUE(has(reviewText(caseOf(TaxRegion::stGallen), review), "Für 2024 gibt es keine"));
}

TEST(ReviewText, tellsWhatOfAPlanHasNoEffect) {
    BuyInPlan plan;
    plan.payments = {30'000};
    plan.saving = 1'950;
    Review review;
    review.buyInPlanning = {.plans = {plan}, .impossible = {}};
    EXPECT_FALSE(has(reviewText(caseOf(TaxRegion::liechtenstein), review), "ohne Wirkung"));
    review.buyInPlanning->plans.front().beyondLimit = 10'500;
    const std::string abroad = reviewText(caseOf(TaxRegion::liechtenstein), review);
    EXPECT_TRUE(has(abroad, "CHF 10’500 davon bleiben ohne Wirkung"));
    EXPECT_TRUE(has(abroad, "den Höchstbetrag für Pensionskassen"));
    const std::string home = reviewText(caseOf(TaxRegion::stGallen), review);
    EXPECT_TRUE(has(home, "das steuerbare Einkommen übersteigt"));
    EXPECT_FALSE(has(home, "Höchstbetrag für Pensionskassen"));
}

TEST(ReviewText, tellsWhyThereIsNoPlanOrThatItSavesNothing) {
    Review review;
    const auto text = [&](TaxRegion region) { return reviewText(caseOf(region), review); };
    constexpr const char* conditions = "Ein Vorbezug für Wohneigentum ist vorher zurückzuzahlen";
    review.buyInPlanning = {.plans = {}, .impossible = "Für Anna ist kein Einkauf möglich: X."};
    EXPECT_TRUE(has(text(TaxRegion::stGallen), "Für Anna ist kein Einkauf möglich: X."));
    EXPECT_FALSE(has(text(TaxRegion::stGallen), conditions));
    BuyInPlan plan;
    plan.payments = {1'000};
    review.buyInPlanning = {.plans = {plan}, .impossible = {}};
    EXPECT_TRUE(has(text(TaxRegion::stGallen), "Ein Einkauf würde nichts sparen."));
    EXPECT_FALSE(has(text(TaxRegion::stGallen), "In einem Jahr"));
    review.buyInPlanning->plans[0].saving = 0.05_dec;
    EXPECT_TRUE(has(text(TaxRegion::stGallen), "In einem Jahr"));
    EXPECT_TRUE(has(text(TaxRegion::stGallen), conditions));
    EXPECT_FALSE(has(text(TaxRegion::liechtenstein), conditions));
}

} // namespace
} // namespace fiscarel::cli
