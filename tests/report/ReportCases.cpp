#include "tests/report/ReportCases.h"

#include "TaxCore/demo/DemoData.h"
#include "TaxCore/regions/CaseCalculator.h"
#include "TaxCore/review/Review.h"
#include "tests/support/CaseFile.h"

namespace fiscarel::testing {

using namespace taxcore;

namespace {

constexpr int year = 2025;

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

} // namespace

ReportCase overfullCase() {
    constexpr int securities = 60;
    TaxCase taxCase = DemoData::family(year);
    taxCase.person1.firstName = "Maximiliana Annabarbara Euphrosyne";
    taxCase.person1.lastName = "von Hohenlandenberg-Breitenlandenberg-Zuckschwerdt";
    taxCase.person2.lastName = repeated("Ununterbrochenerlangername", 8);
    taxCase.person1.profession = repeated("Leitende Sachbearbeiterin für Sonderfragen, ", 6);
    taxCase.income1.salaries[0].remarks = repeated("Bemerkung ohne Ende. ", 300);
    taxCase.householdDeductions.otherDeductions = Decimal(1);
    for (int i = 1; i <= securities; ++i) {
        SecurityEntry& entry = taxCase.securities.emplace_back();
        entry.institution = "Kantonale Spar- und Leihkasse der Talschaft Nr. " + std::to_string(i);
        entry.description =
            "Anlagefonds «Nachhaltige Schwellenländeraktien ausschüttend, Klasse B» Tranche "
            + std::to_string(i);
        entry.ibanOrValor = "CH01234567" + std::to_string(10 + i);
        entry.kind = AssetKind::wertschrift;
        entry.taxValue = Decimal(i * 1'000'003);
        entry.incomeWithWithholding = Decimal(i * 13);
    }
    taxCase.debts.emplace_back().creditor = "Банк / 銀行 / مصرف \u202Eelbrev\u202C \x07 Ende";
    taxCase.debts.back().amount = Decimal::parse("123456789012345.65").value();
    taxCase.realEstate[0].description = repeated("Wohnundgeschäftshausüberbauung", 9);
    return {"overfull", std::move(taxCase)};
}

ReportCase documentedCase() {
    ReportCase made{"documented", DemoData::family(year)};
    const auto add = [&](StoredDocument::Kind kind, std::string title) -> StoredDocument& {
        StoredDocument& document = made.documents.emplace_back();
        document.year = year;
        document.kind = kind;
        document.title = std::move(title);
        return document;
    };
    add(StoredDocument::Kind::anderes, "Beleg des Vorjahrs").year = year - 1;
    made.taxCase.income1.salaries[0].documentID =
        add(StoredDocument::Kind::lohnausweis, "Lohnausweis Werdenwerk").id;
    add(StoredDocument::Kind::saeule3a, "Bescheinigung 3a").applied = {
        {AppliedValue{.path = "deductions2.pillar3a", .value = "4’000"}}};
    made.taxCase.householdDeductions.donations[1].documentID =
        add(StoredDocument::Kind::spende, "Spende Sonnenhof").id;
    return made;
}

std::vector<ReportCase> reportCases() {
    std::vector<ReportCase> cases{{"demoStGallen", DemoData::family(year)},
                                  {"demoLiechtenstein", DemoData::liechtensteinFamily(year)},
                                  {"empty", TaxCase{.year = year}},
                                  overfullCase(),
                                  documentedCase()};
    for (const char* const region : {"sg", "li"}) {
        for (const auto& file : taxcore::testing::readCaseFiles(region)) {
            cases.push_back({file.path.stem().string(), file.household});
        }
    }
    return cases;
}

ComputedReport computedReport(const ReportCase& one) {
    const CaseCalculator calculator = CaseCalculator::forCase(one.taxCase).value();
    const Date today = Date::of(year + 1, 2, 14).value();
    ComputedReport made{calculator.calculate(one.taxCase), {}, {}};
    const Review review = Review::of({calculator, one.taxCase, made.result, today, {}});
    made.content = outputs::reportContent({.taxCase = one.taxCase,
                                           .result = made.result,
                                           .calculator = calculator,
                                           .notices = review.notices,
                                           .notComputed = review.notComputed,
                                           .documents = one.documents,
                                           .madeOn = today});
    made.document = paper::setOnPaper(made.content);
    return made;
}

} // namespace fiscarel::testing
