// How the report is set: looked at in the pages themselves.

#include "tests/report/ReportCases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace fiscarel {
namespace {

using namespace paper;
using testing::ReportCase;

/// Where the letters of a line stand.
QRectF inkOfText(const PaperText& text) {
    return {text.at.x(), text.at.y() - leading(text.type) * 0.6, widthOf(text.type, text.text),
            leading(text.type) * 0.6};
}

/// Head and foot of the page stand in the margins.
bool isRunning(const PaperText& text) { return text.type == Type::running; }

void expectWithinMargins(const PaperPage& page) {
    constexpr double tolerance = 0.6;
    const QRectF content(marginLeft - tolerance, 0, contentWidth + 2 * tolerance, pageHeight);
    for (const PaperText& text : page.texts) {
        const QRectF ink = inkOfText(text);
        EXPECT_TRUE(ink.isEmpty() || content.contains(ink)) << text.text.toStdString();
        EXPECT_TRUE(isRunning(text) || text.at.y() <= pageHeight - marginBottom + tolerance)
            << text.text.toStdString();
    }
}

void expectNothingOverlaps(const PaperPage& page) {
    constexpr double touching = 0.5;
    std::vector<const PaperText*> texts;
    for (const PaperText& text : page.texts) {
        texts.push_back(&text);
    }
    std::ranges::sort(texts, {}, [](const PaperText* text) { return text->at.y(); });
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const QRectF one = inkOfText(*texts[i]).adjusted(0, touching, -touching, -touching);
        for (std::size_t j = i + 1; j < texts.size() && inkOfText(*texts[j]).top() < one.bottom();
             ++j) {
            EXPECT_FALSE(one.intersects(inkOfText(*texts[j])))
                << texts[i]->text.toStdString() << " / " << texts[j]->text.toStdString();
        }
    }
}

void expectGoodBreaks(const PaperPage& page) {
    using Kind = PaperBlock::Kind;
    ASSERT_FALSE(page.blocks.empty());
    EXPECT_NE(page.blocks.back().kind, Kind::heading);
    EXPECT_NE(page.blocks.back().kind, Kind::tableHead);
    for (std::size_t i = 1; i < page.blocks.size(); ++i) {
        EXPECT_GE(page.blocks[i].rect.top(), page.blocks[i - 1].rect.bottom() - 0.01);
    }
}

TEST(Paper, nothingIsCutNorOverlapsNorEndsAPageBadly) {
    for (const ReportCase& one : testing::reportCases()) {
        SCOPED_TRACE(one.name);
        const PaperDocument document = computedReport(one).document;
        ASSERT_GE(document.pages.size(), 3U);
        for (const PaperPage& page : document.pages) {
            SCOPED_TRACE(&page - document.pages.data() + 1);
            expectWithinMargins(page);
            expectNothingOverlaps(page);
            expectGoodBreaks(page);
        }
    }
}

TEST(Paper, aTableThatGoesOnRepeatsItsHeadAndLosesNoRow) {
    const auto report = computedReport(testing::overfullCase());
    std::set<QString> numbers;
    int pages = 0;
    for (const PaperPage& page : report.document.pages) {
        bool hasHead = false;
        int rows = 0;
        for (const PaperText& text : page.texts) {
            hasHead = hasHead || (text.type == Type::head && text.text.startsWith(u"Steuerwert"));
            const qsizetype at = text.text.indexOf(u"Talschaft Nr. ");
            if (at >= 0 && text.type == Type::body) {
                numbers.insert(text.text.mid(at + 14, 2).trimmed());
                ++rows;
            }
        }
        EXPECT_TRUE(rows == 0 || hasHead);
        pages += rows > 0 ? 1 : 0;
    }
    EXPECT_EQ(numbers.size(), 60U);
    EXPECT_GE(pages, 3);
}

TEST(Paper, everyLineLeadsToItsDerivationAndItsDocuments) {
    const auto report = computedReport(testing::documentedCase());
    std::map<std::string, const outputs::ReportRow*> rows;
    for (const auto& chapter : report.content.chapters) {
        for (const auto& block : chapter.blocks) {
            if (const auto* const table = std::get_if<outputs::ReportTable>(&block)) {
                for (const auto& row : table->rows) {
                    rows.emplace(row.code, &row);
                }
            }
        }
    }
    for (const taxcore::TaxLine& line : report.result.fields()) {
        ASSERT_TRUE(rows.contains(line.code)) << line.code;
        EXPECT_TRUE(report.document.places.contains(rows.at(line.code)->link)) << line.code;
    }
    const auto documentsOf = [&](const char* code) {
        const auto& cells = rows.at(code)->cells;
        return cells[cells.size() - 2].text;
    };
    EXPECT_EQ(documentsOf("haupterwerb1"), "1");
    EXPECT_EQ(documentsOf("saeule3a2"), "2");
    EXPECT_EQ(documentsOf("zuwendungen"), "3");
    EXPECT_EQ(documentsOf("schuldzinsen"), "");
}

TEST(Paper, textsOfUnknownOriginKeepTheirDirection) {
    EXPECT_EQ(paperText("a\u202Eb\x07"
                        "c\u200Bd"),
              u"a b c d");
    EXPECT_EQ(outputs::pdfFileName("Steuerbericht", {.year = 2025}), "Steuerbericht-2025.pdf");
    taxcore::TaxCase taxCase{.year = 2025};
    taxCase.person1.lastName = "Müller / ../é Жук";
    EXPECT_EQ(outputs::pdfFileName("Belege", taxCase), "Belege-2025-Mueller-e.pdf");
}

} // namespace
} // namespace fiscarel
