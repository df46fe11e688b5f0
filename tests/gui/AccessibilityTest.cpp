#include "Fiscarel_SG/look/Theme.h"
#include "tests/gui/AccessibilityWalk.h"
#include "tests/gui/Contrast.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QPushButton>
#include <map>
#include <vector>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using look::Theme;
using taxcore::TaxRegion;
using testing::contrast;
using testing::isBefore;
using testing::stopAt;
using testing::takesKeyboard;

class Accessibility : public ::testing::TestWithParam<TaxRegion> {
  protected:
    testing::OpenWindow program;

    /// The n-th record of every list of the page that is seen, opened.
    void openRecords(int n) {
        const QString end = u"[%1]"_s.arg(n);
        for (QPushButton* const head : program.window->findChildren<QPushButton*>()) {
            const QString name = head->objectName();
            if (head->isVisible() && name.startsWith(u"open:"_s) && name.endsWith(end)
                && !head->isChecked()) {
                head->click();
            }
        }
        program.settle();
    }
    template <class Look>
    void onEveryPage(const Look& look) {
        program.openDemo(GetParam());
        for (const auto& page : shell::MainWindow::pages()) {
            SCOPED_TRACE(page.id.toStdString());
            program.window->showPage(page.id);
            program.settle();
            for (const int record : {0, 1}) {
                openRecords(record);
                look();
            }
        }
    }
};

TEST_P(Accessibility, everyControlHasAName) {
    int controls = 0;
    const auto look = [&] { controls += testing::expectNames(*program.window); };
    onEveryPage(look);
    EXPECT_GT(controls, 500);
    for (const char* const name : {"search", "reason"}) {
        program.window->showReason(u"cantonTotal"_s);
        program.press(Qt::Key_K, Qt::ControlModifier);
        testing::expectNames(program.find<QDialog>(QString::fromLatin1(name)));
    }
}

TEST_P(Accessibility, theTabulatorGoesAsOneReads) {
    onEveryPage([&] { EXPECT_GE(testing::expectReadingOrder(program), 6); });
}

TEST_P(Accessibility, theTabulatorGoesDownTheReason) {
    program.openDemo(GetParam());
    program.window->showReason(u"cantonTotal"_s);
    program.settle();
    auto& dialog = program.find<QDialog>(u"reason"_s);
    std::vector<QPushButton*> doors;
    for (QWidget* at = dialog.nextInFocusChain(); at != &dialog; at = at->nextInFocusChain()) {
        if (auto* const door = qobject_cast<QPushButton*>(at); door && takesKeyboard(*door)) {
            doors.push_back(door);
        }
    }
    ASSERT_GE(doors.size(), 2U);
    for (std::size_t i = 1; i < doors.size(); ++i) {
        EXPECT_TRUE(isBefore(stopAt(*doors[i - 1], dialog).place, stopAt(*doors[i], dialog).place))
            << doors[i - 1]->text().toStdString() << " before " << doors[i]->text().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Demos, Accessibility,
                         ::testing::Values(TaxRegion::stGallen, TaxRegion::liechtenstein),
                         [](const auto& demo) {
                             return demo.param == TaxRegion::stGallen ? "StGallen"
                                                                      : "Liechtenstein";
                         });

TEST(Colours, textsAreReadableAndInputsAreSeen) {
    using Color = QColor Theme::*;
    const std::map<std::string, Color> texts{{"text", &Theme::text},       {"faint", &Theme::faint},
                                             {"accent", &Theme::accent},   {"error", &Theme::error},
                                             {"warning", &Theme::warning}, {"good", &Theme::good}};
    const std::map<std::string, Color> grounds{{"window", &Theme::window},
                                               {"sidebar", &Theme::sidebar},
                                               {"card", &Theme::card},
                                               {"soft", &Theme::soft}};
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 1e-9);
    for (const Theme& theme : {Theme::light(), Theme::dark()}) {
        SCOPED_TRACE(theme.isDark ? "dark" : "light");
        for (const auto& [text, textColor] : texts) {
            for (const auto& [ground, groundColor] : grounds) {
                EXPECT_GE(contrast(theme.*textColor, theme.*groundColor), 4.5)
                    << text << " on " << ground;
            }
        }
        EXPECT_GE(contrast(theme.onAccent, theme.accent), 4.5);
        EXPECT_GE(contrast(theme.strong, theme.card), 3);
        EXPECT_GE(contrast(theme.accent, theme.card), 3) << "the border of what has the keyboard";
        EXPECT_GE(contrast(theme.error, theme.card), 3) << "the border of what cannot be read";
    }
}

} // namespace
} // namespace fiscarel
