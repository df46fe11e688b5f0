#include "tests/gui/OpenWindow.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;

class ReportPage : public ::testing::Test {
  protected:
    testing::OpenWindow program_;

    void SetUp() override {
        program_.openDemo(taxcore::TaxRegion::stGallen);
        program_.window->showPage(u"report"_s);
        awaitPages();
    }
    /// They are set on another thread.
    void awaitPages() {
        program_.settle();
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return program_.find<QPushButton>(u"saveReport"_s).isEnabled(); }));
    }
    QString spoken(const QString& line) const {
        return program_.find<QAbstractButton>(line).accessibleName();
    }
};

TEST_F(ReportPage, aLineOfThePaperOpensItsReason) {
    program_.click(u"line:haupterwerb1"_s);
    EXPECT_TRUE(program_.find<QDialog>(u"reason"_s).isVisible());
    EXPECT_TRUE(spoken(u"line:haupterwerb1"_s).contains(u"Haupterwerb"_s));
}

TEST_F(ReportPage, anEditShowsInNewPages) {
    const QString before = spoken(u"line:total"_s);
    program_.store->edit("Angabe", [](taxcore::TaxCase& taxCase) {
        taxCase.income1.salaries[0].grossSalary += 50'000;
    });
    program_.store->edit("Angabe", [](taxcore::TaxCase& taxCase) {
        taxCase.income1.salaries[0].grossSalary += 50'000;
    });
    awaitPages();
    EXPECT_NE(spoken(u"line:total"_s), before);
}

TEST_F(ReportPage, pagesTurnAndChaptersAreFound) {
    const auto page = [&] { return program_.find<QLabel>(u"reportPageNumber"_s).text(); };
    EXPECT_TRUE(page().startsWith(u"Seite 1 von"_s));
    program_.click(u"nextPage"_s);
    program_.click(u"nextPage"_s);
    EXPECT_TRUE(page().startsWith(u"Seite 3 von"_s)) << page().toStdString();
    program_.click(u"zoomIn"_s);
    EXPECT_TRUE(page().startsWith(u"Seite 3 von"_s)) << page().toStdString();
    auto& chapters = program_.find<QComboBox>(u"reportChapters"_s);
    Q_EMIT chapters.activated(chapters.count() - 1);
    EXPECT_EQ(chapters.currentText(), u"Herleitungen"_s);
}

} // namespace
} // namespace fiscarel
