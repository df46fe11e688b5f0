#include "Fiscarel_SG/paper/ReportPdf.h"

#include "Fiscarel_SG/outputs/ReportParts.h"
#include "tests/report/PdfFiles.h"
#include "tests/report/ReportCases.h"

#include <gtest/gtest.h>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

#include <algorithm>
#include <sstream>

namespace fiscarel {
namespace {

using namespace taxcore;
using outputs::money;

/// Lines of text without the blanks before them.
std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line.substr(std::min(line.find_first_not_of(" \f"), line.size())));
    }
    return lines;
}

/// The amounts that the result holds besides its lines, as texts.
std::vector<std::string> amountsOf(const TaxResult& result, bool liechtenstein) {
    std::vector<std::string> amounts;
    const auto add = [&](const Decimal& amount) { amounts.push_back(money(amount)); };
    const auto addAll = [&](const auto& record) {
        forEachField(record, [&](std::string_view, const auto& field) {
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(field)>, Decimal>) {
                add(field);
            }
        });
    };
    const TaxBill& bill = result.bill;
    for (const Decimal& figure :
         {bill.taxableIncomeCanton, bill.taxableWealth, bill.cantonTotal(),
          bill.municipalityTotal(), bill.cantonIncome, bill.municipalityIncome, bill.total()}) {
        add(figure);
    }
    amounts.push_back(outputs::percent(bill.municipalityRate));
    if (!liechtenstein) {
        for (const Decimal& figure :
             {bill.taxableIncomeFederal, bill.simpleIncomeTax, bill.simpleWealthTax,
              bill.churchIncome, bill.cantonWealth, bill.municipalityWealth, bill.churchWealth,
              bill.churchTotal(), bill.cantonAndMunicipalityTotal(), bill.federal,
              bill.federalBeforeChildReduction, bill.federalChildReduction,
              result.withholdingTaxRefund, result.withholdingIncomeA}) {
            add(figure);
        }
    }
    if (result.capitalPaymentTax && !liechtenstein) {
        addAll(*result.capitalPaymentTax);
    }
    for (const Jurisdiction which : allValues<Jurisdiction>()) {
        for (const auto& work : result.work[which].value_or(std::vector<WorkExpenseBreakdown>())) {
            addAll(work);
            add(work.total());
        }
        if (result.insurance[which]) {
            addAll(*result.insurance[which]);
            add(result.insurance[which]->deduction());
        }
    }
    return amounts;
}

/// Every line of the return stands in one line of the text: its number, then its amounts.
void expectLine(const std::vector<std::string>& lines, const TaxLine& line) {
    const auto has = [&](const std::string& text, const Decimal& amount) {
        return text.find(" " + money(amount)) != std::string::npos
               || text.find(" " + money(-amount)) != std::string::npos;
    };
    const bool found = std::ranges::any_of(lines, [&](const std::string& text) {
        return text.starts_with(line.ziffer) && has(text, line.canton)
               && has(text, line.federalOrCanton());
    });
    EXPECT_TRUE(found) << line.code << " " << money(line.canton);
}

TEST(ReportPdf, holdsEveryAmountOfTheResult) {
    const testing::TemporaryFolder folder;
    for (const testing::ReportCase& one : testing::reportCases()) {
        SCOPED_TRACE(one.name);
        const auto report = computedReport(one);
        const auto pdf = paper::reportPdf(report.document);
        ASSERT_TRUE(pdf) << pdf.error();
        EXPECT_LT(pdf->size(), 500'000U);
        const std::string text =
            testing::textOfPdf(testing::writeFile(folder.path() / "report.pdf", *pdf));
        const std::vector<std::string> lines = linesOf(text);
        for (const TaxLine& line : report.result.fields()) {
            expectLine(lines, line);
        }
        const bool li = one.taxCase.taxRegion() == TaxRegion::liechtenstein;
        for (const std::string& amount : amountsOf(report.result, li)) {
            // Parts of the work expenses that are 0 for both taxes have no line.
            EXPECT_TRUE(amount == "0.00" || text.find(amount) != std::string::npos) << amount;
        }
        for (const Notice& notice : report.result.notices) {
            EXPECT_NE(text.find(notice.title.substr(0, notice.title.find(' '))), std::string::npos)
                << notice.title;
        }
    }
}

TEST(ReportPdf, hasTitleLanguageOutlineLinksAndItsFonts) {
    const auto report = computedReport(testing::documentedCase());
    const std::string bytes = paper::reportPdf(report.document).value();
    QPDF pdf;
    pdf.processMemoryFile("report", bytes.data(), bytes.size());
    EXPECT_EQ(pdf.getRoot().getKey("/Lang").getUTF8Value(), "de-CH");
    EXPECT_TRUE(
        pdf.getRoot().getKey("/ViewerPreferences").getKey("/DisplayDocTitle").getBoolValue());
    EXPECT_EQ(pdf.getTrailer().getKey("/Info").getKey("/Title").getUTF8Value(),
              "Steuererklärung 2025 · Nora Rheintaler und Jonas Rheintaler");
    const auto outline = testing::outlineOf(bytes);
    for (const char* const wanted :
         {"Deckblatt", "Steuererklärung", "Abzüge", "Steuerrechnung", "Begrenzungen", "Hinweise",
          "Wertschriften- und Guthabenverzeichnis", "Schuldenverzeichnis", "Liegenschaften",
          "Zuwendungen und Parteispenden", "Belege", "Herleitungen"}) {
        EXPECT_NE(std::ranges::find(outline, wanted), outline.end()) << wanted;
    }
    int fonts = 0;
    int links = 0;
    for (QPDFObjectHandle object : pdf.getAllObjects()) {
        if (object.isDictionaryOfType("/FontDescriptor")) {
            ++fonts;
            EXPECT_TRUE(object.hasKey("/FontFile2") || object.hasKey("/FontFile3"));
        }
        links += object.isDictionaryOfType("/Annot", "/Link") ? 1 : 0;
    }
    EXPECT_GT(fonts, 0);
    EXPECT_GT(links, 50);
}

} // namespace
} // namespace fiscarel
