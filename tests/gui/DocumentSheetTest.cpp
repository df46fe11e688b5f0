#include "Fiscarel_SG/pages/documents/DocumentSheet.h"

#include "Fiscarel_SG/documents/Applying.h"
#include "Fiscarel_SG/documents/ScanSummary.h"
#include "Fiscarel_SG/pages/documents/PagePreviewSheet.h"
#include "Fiscarel_SG/pages/documents/ProposalText.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/demo/DemoData.h"
#include "TaxCore/review/Advisor.h"
#include "tests/gui/OpenWindow.h"
#include "tests/support/SheetPapers.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <set>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;
using Confidence = Proposal::Confidence;
using Kind = ProposedRecord::Kind;

/// The demo household's window with a document in it, and its sheet on top.
class DocumentSheet : public ::testing::Test {
  protected:
    DocumentSheet() {
        program.open();
        program.store->chooseInitialRegion(TaxRegion::stGallen);
        program.store->setYear(2025);
        program.show(DemoData::household(TaxRegion::stGallen, 2025));
        QImage picture(20, 28, QImage::Format_RGB32);
        picture.fill(Qt::white);
        const auto file = program.folder.path() / "Beleg.png";
        picture.save(QString::fromStdString(file.string()));
        program.store->importDocuments({file}, [this](const auto& ids) { id = ids.at(0); });
        program.settle();
    }
    ~DocumentSheet() override { delete sheet.data(); }

    void open(ScanResult read, int unreadablePage = 0) {
        scan = std::move(read);
        images.unreadable = unreadablePage;
        delete sheet.data();
        sheet = new pages::DocumentSheet(*program.store, id, scan, images, program.window.get());
        sheet->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(sheet));
        for (int i = 0; i < 40; ++i) {
            QCoreApplication::processEvents(); // the panels come some at a time
        }
    }
    const TaxCase& current() const { return program.store->current(); }
    const StoredDocument& document() const { return program.store->documents().at(0); }
    QString text(const QString& label) const { return program.find<QLabel>(label).text(); }
    bool isTicked(const QString& box) const { return program.find<QCheckBox>(box).isChecked(); }
    void choose(const QString& name, int index) const {
        auto& box = program.find<QComboBox>(name);
        box.setCurrentIndex(index);
        Q_EMIT box.activated(index);
        QCoreApplication::processEvents();
    }
    std::string tax(const TaxCase& taxCase) const {
        return Advisor::totalTax(program.store->calculator()->calculate(taxCase)).toString();
    }

    testing::OpenWindow program;
    ScanResult scan;
    testing::DrawnPages images{scan};
    Uuid id;
    QPointer<pages::DocumentSheet> sheet;
};

TEST_F(DocumentSheet, takesACertificateOverForTheRightPersonInOneStep) {
    const TaxCase before = current();
    const std::string taxBefore = tax(before);
    open(testing::salaryPaper());
    EXPECT_EQ(program.find<QComboBox>(u"person:0"_s).currentText(),
              QString::fromStdString(before.person2.firstName + " " + before.person2.lastName));
    EXPECT_TRUE(text(u"before:3"_s).contains(u"4’200"_s)) << text(u"before:3"_s).toStdString();
    EXPECT_TRUE(text(u"before:0"_s).contains(u"unverändert"_s));

    program.enter(u"proposal:3"_s, u"5000"_s);
    EXPECT_TRUE(program.find<QAbstractButton>(u"trust:3"_s).text().contains(u"geändert"_s));
    TaxCase expected = before;
    expected.income2.salaries[1].grossSalary = 5000;
    program.find<QLineEdit>(u"documentTitle"_s).clear();
    program.enter(u"documentTitle"_s, u"Samariter 2025"_s);
    int applied = 0;
    QObject::connect(sheet, &pages::DocumentSheet::applied, sheet, [&] { ++applied; });
    const QString effect = text(u"effect"_s);
    program.click(u"apply"_s);
    program.settle();

    EXPECT_EQ(applied, 1);
    EXPECT_FALSE(program.isShown(u"documentSheet"_s));
    const SalaryCertificate& salary = current().income2.salaries.at(1);
    EXPECT_EQ(salary.grossSalary, Decimal(5000));
    EXPECT_EQ(salary.pensionContributions, Decimal(3100));
    EXPECT_EQ(salary.periodTo, Date::of(2025, 12, 31));
    EXPECT_FALSE(salary.fieldG) << "unsure, so not ticked";
    EXPECT_EQ(current().income1, before.income1);
    EXPECT_EQ(document().title, "Samariter 2025");
    EXPECT_EQ(document().kind, StoredDocument::Kind::lohnausweis);
    EXPECT_TRUE(document().isApplied);
    EXPECT_NE(tax(current()), taxBefore);
    EXPECT_EQ(Advisor::totalTax(*program.store->result()).toString(), tax(current()));
    const auto shown = [](const std::string& amount) {
        return QString::fromStdString(
            MoneyFormat::chf(Decimal::parse(amount).value_or(0), 2, false));
    };
    EXPECT_TRUE(effect.contains(shown(taxBefore) + u" → "_s + shown(tax(current()))))
        << effect.toStdString();

    program.store->undo();
    EXPECT_EQ(current(), before);
    EXPECT_FALSE(document().isApplied);
}

TEST_F(DocumentSheet, anotherPersonGetsTheCertificateAsANewOne) {
    const TaxCase before = current();
    open(testing::salaryPaper());
    choose(u"person:0"_s, 0);
    EXPECT_EQ(program.find<QComboBox>(u"item:0"_s).currentText(), u"Neuer Eintrag"_s);
    EXPECT_FALSE(program.isShown(u"before:3"_s)) << "there is nothing that a new one replaces";
    program.click(u"apply"_s);
    ASSERT_EQ(current().income1.salaries.size(), before.income1.salaries.size() + 1);
    EXPECT_EQ(current().income1.salaries.back().grossSalary, Decimal(68000));
    EXPECT_EQ(current().income2, before.income2);
}

TEST_F(DocumentSheet, somebodyElsesPaperWaitsForThePerson) {
    const TaxCase before = current();
    ScanResult read = testing::salaryPaper();
    read.records[0].personName = "Étienne Deillon";
    open(read);
    EXPECT_TRUE(text(u"namedPerson:0"_s).contains(u"Étienne Deillon"_s));
    EXPECT_TRUE(text(u"nameWarning:0"_s).contains(u"passt zu niemandem"_s));
    EXPECT_EQ(program.find<QComboBox>(u"person:0"_s).currentIndex(), -1);
    EXPECT_TRUE(text(u"blocked"_s).contains(u"Person"_s));
    EXPECT_FALSE(program.find(u"apply"_s).isEnabled());
    program.press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(current(), before);
    choose(u"person:0"_s, 1);
    EXPECT_FALSE(program.isShown(u"blocked"_s));
    program.click(u"apply"_s);
    EXPECT_EQ(current().income1, before.income1);
    EXPECT_NE(current().income2, before.income2);
}

TEST_F(DocumentSheet, aCorrectedAmountIsFoundAgainWithThePersonChosenForIt) {
    ScanResult read;
    testing::addRecord(read,
                       {.kind = Kind::personDeductions,
                        .title = "Säule 3a",
                        .page = 1,
                        .personName = "Étienne Deillon"},
                       {{"pillar3a", "2000"}});
    open(read);
    choose(u"person:0"_s, 1);
    program.enter(u"proposal:0"_s, u"2500"_s);
    program.click(u"apply"_s);
    ASSERT_EQ(current().deductions2.pillar3a, Decimal(2500));
    open(read);
    EXPECT_EQ(program.find<QComboBox>(u"person:0"_s).currentIndex(), 1);
    EXPECT_EQ(program.find<QLineEdit>(u"proposal:0"_s).text(), u"2’500"_s);
    EXPECT_TRUE(isTicked(u"take:0"_s));
}

TEST_F(DocumentSheet, theKindChosenHereIsKeptAlsoAsTheOneReadByWords) {
    struct Row {
        std::optional<StoredDocument::Kind> chosen; ///< absent: what is proposed stays
        StoredDocument::Kind shown;
    };
    for (const Row& row : {Row{StoredDocument::Kind::anderes, StoredDocument::Kind::anderes},
                           Row{std::nullopt, StoredDocument::Kind::anderes},
                           Row{StoredDocument::Kind::spende, StoredDocument::Kind::spende}}) {
        open(testing::salaryPaper());
        if (row.chosen) {
            choose(u"documentKind"_s, static_cast<int>(*row.chosen));
        }
        program.click(u"fileOnly"_s);
        EXPECT_EQ(document().kind, row.shown);
        EXPECT_EQ(firstKind(document(), scan), row.shown);
        EXPECT_EQ(document().isKindChosen, true);
    }
}

TEST_F(DocumentSheet, tipsShowLettersAsTheyAre) {
    program.store->updateDocument(
        id, [](StoredDocument& stored) { stored.title = "Müller & Söhne <Textil>"; });
    ScanResult read = testing::salaryPaper();
    read.proposals[0].value = "Müller & Söhne <Textil>";
    read.proposals[0].reason = "Steht unter «Müller & Söhne <Textil>».";
    open(read);
    for (const QString& name : {u"documentTitle"_s, u"proposal:0"_s, u"trust:0"_s}) {
        const QString tip = program.find(name).toolTip();
        ASSERT_TRUE(Qt::mightBeRichText(tip)) << name.toStdString();
        QTextDocument drawn;
        drawn.setHtml(tip);
        EXPECT_TRUE(drawn.toPlainText().contains(u"Müller & Söhne <Textil>"_s))
            << drawn.toPlainText().toStdString();
    }
}

TEST_F(DocumentSheet, anEntryIsNotMadeWithoutItsAmount) {
    const std::size_t before = current().householdDeductions.donations.size();
    ScanResult read;
    testing::addRecord(read, {.kind = Kind::donation, .title = "Spende Luchsfreunde", .page = 1},
                       {{"amount", "250", Confidence::low}, {"recipient", "Luchsfreunde"}});
    open(read);
    EXPECT_TRUE(text(u"summary:0"_s).contains(u"Betrag bitte prüfen"_s))
        << text(u"summary:0"_s).toStdString();
    EXPECT_TRUE(text(u"blocked"_s).contains(u"ankreuzen"_s));
    EXPECT_FALSE(program.find(u"apply"_s).isEnabled());
    program.click(u"take:0"_s);
    EXPECT_FALSE(program.isShown(u"blocked"_s));
    program.click(u"apply"_s);
    ASSERT_EQ(current().householdDeductions.donations.size(), before + 1);
    EXPECT_EQ(current().householdDeductions.donations.back().amount, Decimal(250));
}

TEST_F(DocumentSheet, aFileNobodyCanReadCanBeRemovedHere) {
    ScanResult read;
    read.problem = "Dieses PDF ist beschädigt.";
    open(read);
    EXPECT_FALSE(program.isShown(u"apply"_s));
    program.click(u"removeDocument"_s);
    program.settle();
    EXPECT_FALSE(program.isShown(u"documentSheet"_s));
    EXPECT_TRUE(program.store->documents().empty());
    program.store->undo();
    EXPECT_EQ(program.store->documents().size(), 1U);
}

TEST(ProposalText, ibansStandInGroupsOfFour) {
    const std::vector<std::pair<std::string, QString>> rows{
        {"Konto CH4045083927719313402", u"Konto CH40 4508 3927 7193 1340 2"_s},
        {"CH4045083927719313402, LI21088100002324013AA",
         u"CH40 4508 3927 7193 1340 2, LI21 0881 0000 2324 013A A"_s},
        {"Konto CH40 4508 3927 7193 1340 2", u"Konto CH40 4508 3927 7193 1340 2"_s},
        {"Beleg AB12 34", u"Beleg AB12 34"_s},
    };
    for (const auto& [text, shown] : rows) {
        EXPECT_EQ(pages::withGroupedIbans(text), shown) << text;
    }
}

TEST_F(DocumentSheet, whatIsUnsureOrOfAnotherYearIsNotTickedByItself) {
    ScanResult read = testing::salaryPaper();
    read.proposals[0].confidence = Confidence::low;
    read.proposals[0].checks = {{"stimmt", true}};
    open(read);
    EXPECT_TRUE(isTicked(u"take:0"_s)) << "a check passed";
    EXPECT_FALSE(isTicked(u"take:6"_s));
    EXPECT_TRUE(text(u"warning:5"_s).contains(u"gedruckt steht 3’400.00"_s));
    EXPECT_FALSE(program.isShown(u"details:5"_s));
    program.click(u"trust:5"_s);
    EXPECT_TRUE(text(u"details:5"_s).contains(u"Steht rechts"_s));

    read.records[0].year = 2024;
    open(read);
    EXPECT_TRUE(text(u"yearNotice"_s).contains(u"2024"_s));
    EXPECT_FALSE(isTicked(u"record:0"_s));
    EXPECT_FALSE(isTicked(u"take:3"_s)) << "nor anything in it";
    EXPECT_FALSE(program.find(u"apply"_s).isEnabled());
    EXPECT_FALSE(program.find(u"proposal:3"_s).isEnabled());
    program.click(u"record:0"_s);
    EXPECT_TRUE(isTicked(u"take:3"_s));
    EXPECT_TRUE(program.find(u"apply"_s).isEnabled()) << "the user may decide otherwise";
}

TEST_F(DocumentSheet, aStatementGoesInEitherAsEntriesOrAsOneTotal) {
    const std::size_t before = current().securities.size();
    open(testing::statementPaper(12));
    EXPECT_TRUE(program.find<QRadioButton>(u"asEntries"_s).isChecked());
    EXPECT_TRUE(program.isShown(u"panel:11"_s));
    EXPECT_FALSE(program.isShown(u"panel:12"_s));
    program.click(u"asTotal"_s);
    EXPECT_FALSE(program.isShown(u"panel:0"_s));
    EXPECT_TRUE(program.isShown(u"panel:12"_s));
    program.click(u"apply"_s);
    ASSERT_EQ(current().securities.size(), before + 1);
    EXPECT_EQ(current().securities.back().kind, AssetKind::steuerauszug);
    EXPECT_EQ(current().securities.back().taxValue, Decimal(12660));

    // Opened again it shows what was taken over; the other way replaces it.
    open(testing::statementPaper(12));
    EXPECT_TRUE(program.find<QRadioButton>(u"asTotal"_s).isChecked());
    program.click(u"asEntries"_s);
    program.click(u"apply"_s);
    EXPECT_EQ(current().securities.size(), before + 12);
    EXPECT_NE(current().securities.back().kind, AssetKind::steuerauszug);
}

TEST_F(DocumentSheet, showsWhatWasTakenOverAndReplacesIt) {
    open(testing::salaryPaper());
    program.click(u"take:4"_s);
    program.enter(u"proposal:3"_s, u"5000"_s);
    program.click(u"apply"_s);
    open(testing::salaryPaper());
    EXPECT_FALSE(isTicked(u"take:4"_s));
    EXPECT_TRUE(isTicked(u"take:3"_s));
    EXPECT_EQ(program.find<QLineEdit>(u"proposal:3"_s).text(), u"5’000"_s);
    program.enter(u"proposal:3"_s, u"5100"_s);
    program.click(u"apply"_s);
    EXPECT_EQ(current().income2.salaries.at(1).grossSalary, Decimal(5100));
    EXPECT_EQ(current().income2.salaries.size(), 2U);
}

TEST_F(DocumentSheet, aSumOverDocumentsIsTold) {
    program.store->edit("Säule 3a", [](TaxCase& c) { c.deductions1.pillar3a = 3000; });
    const TaxCase taxCase = current();
    const auto file = program.folder.path() / "Zweiter.png";
    QImage(10, 14, QImage::Format_RGB32).save(QString::fromStdString(file.string()));
    std::vector<Uuid> others;
    program.store->importDocuments({file}, [&](const auto& ids) { others = ids; });
    program.store->applyDocument(others.at(0), taxCase,
                                 {{.path = "deductions1.pillar3a", .value = "3000"}});
    ScanResult read;
    testing::addRecord(read, {.kind = Kind::personDeductions, .title = "3a", .page = 1},
                       {{"pillar3a", "2000"}});
    open(read);
    EXPECT_TRUE(text(u"before:0"_s).contains(u"Summe aus 2 Belegen: 5’000"_s))
        << text(u"before:0"_s).toStdString();
    program.click(u"apply"_s);
    EXPECT_EQ(current().deductions1.pillar3a, Decimal(5000));
}

TEST_F(DocumentSheet, whatCannotBeReadStandsAtItsRowAndBlocks) {
    const TaxCase before = current();
    ScanResult read = testing::salaryPaper();
    read.proposals[3].value = "68'O00.-";
    open(read);
    EXPECT_EQ(program.find<QLineEdit>(u"proposal:3"_s).text(), u"68'O00.-"_s);
    EXPECT_TRUE(program.isShown(u"problem:3"_s));
    EXPECT_TRUE(text(u"blocked"_s).contains(u"nicht lesbar"_s));
    EXPECT_FALSE(program.find(u"apply"_s).isEnabled());
    sheet->findChild<QPushButton*>(u"apply"_s)->click();
    EXPECT_EQ(current(), before);

    program.click(u"take:3"_s);
    EXPECT_TRUE(program.find(u"apply"_s).isEnabled()) << "left out";
    program.enter(u"proposal:3"_s, u"68000"_s);
    EXPECT_TRUE(isTicked(u"take:3"_s)) << "what somebody enters is meant";
    EXPECT_TRUE(program.find(u"apply"_s).isEnabled());
    program.enter(u"proposal:4"_s, u"viel"_s);
    EXPECT_FALSE(program.find(u"apply"_s).isEnabled()) << "also what is typed here";
    program.enter(u"proposal:4"_s, u"4352.50"_s);
    program.click(u"apply"_s);
    EXPECT_EQ(current().income2.salaries.at(1).grossSalary, Decimal(68000));
}

TEST_F(DocumentSheet, everythingCanBeDoneByKeyboard) {
    open(testing::salaryPaper());
    std::set<QString> visited;
    for (int i = 0; i < 80; ++i) {
        const QWidget* const at = QApplication::focusWidget();
        ASSERT_NE(at, nullptr);
        visited.insert(at->objectName());
        EXPECT_TRUE(testing::isInSight(*at)) << at->objectName().toStdString();
        QAccessibleInterface* const spoken =
            QAccessible::queryAccessibleInterface(QApplication::focusWidget());
        EXPECT_FALSE(spoken->text(QAccessible::Name).trimmed().isEmpty())
            << at->objectName().toStdString();
        program.press(Qt::Key_Tab);
    }
    for (const char* const name :
         {"documentTitle", "documentKind", "record:0", "openRecord:0", "person:0", "item:0",
          "take:3", "proposal:3", "trust:3", "apply", "fileOnly", "cancelSheet", "previewLarger"}) {
        EXPECT_TRUE(visited.contains(QString::fromLatin1(name))) << name;
    }
    // Enter in a field finishes it, Control and Enter take everything over.
    program.find(u"proposal:3"_s).setFocus(Qt::TabFocusReason);
    program.type(u"6*1000"_s);
    program.press(Qt::Key_Return);
    ASSERT_TRUE(program.isShown(u"documentSheet"_s));
    EXPECT_EQ(program.find<QLineEdit>(u"proposal:3"_s).text(), u"6’000"_s);
    program.press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(program.isShown(u"documentSheet"_s));
    EXPECT_EQ(current().income2.salaries.at(1).grossSalary, Decimal(6000));
}

TEST_F(DocumentSheet, asksBeforeWhatWasChangedIsLost) {
    const TaxCase before = current();
    const auto answer = [&](const QString& button) {
        QTimer::singleShot(0, sheet, [button] {
            auto* const ask = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(ask, nullptr);
            for (QAbstractButton* const choice : ask->buttons()) {
                if (choice->text() == button) {
                    choice->click();
                }
            }
        });
    };
    open(testing::salaryPaper());
    program.press(Qt::Key_Escape);
    EXPECT_FALSE(program.isShown(u"documentSheet"_s)) << "nothing was changed";
    open(testing::salaryPaper());
    program.enter(u"proposal:3"_s, u"1"_s);
    answer(u"Weiter bearbeiten"_s);
    program.find<QPushButton>(u"cancelSheet"_s).click();
    EXPECT_TRUE(program.isShown(u"documentSheet"_s));
    answer(u"Verwerfen"_s);
    program.find<QPushButton>(u"cancelSheet"_s).click();
    EXPECT_FALSE(program.isShown(u"documentSheet"_s));
    EXPECT_EQ(current(), before);
    EXPECT_FALSE(document().isApplied);
}

TEST_F(DocumentSheet, pagesComeLaterAndMarksLeadToTheirRows) {
    images.atOnce = false;
    open(testing::statementPaper(40), 2);
    auto& first = program.find<pages::PagePreviewSheet>(u"sheetPage:1"_s);
    const QSize shape = first.size();
    EXPECT_GT(shape.height(), shape.width());
    images.deliver();
    EXPECT_EQ(first.size(), shape) << "the empty sheet had the page's form";
    const int asked = images.requests;
    EXPECT_LT(asked, 6) << "pages out of sight are not drawn";

    QTest::mouseClick(&first, Qt::LeftButton, {}, first.placeOf(*scan.proposals[3].box).center());
    EXPECT_EQ(QApplication::focusWidget(), &program.find(u"proposal:3"_s));
    EXPECT_TRUE(testing::isInSight(program.find(u"proposal:3"_s)));

    sheet->showPlace(6, scan.proposals[128].box);
    QCoreApplication::processEvents();
    EXPECT_GT(images.requests, asked);
    EXPECT_TRUE(text(u"previewPage"_s).startsWith(u"Seite 6"_s))
        << text(u"previewPage"_s).toStdString();
    program.press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_TRUE(text(u"previewPage"_s).startsWith(u"Seite 5"_s));
    const int width = first.width();
    program.press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(first.width(), width);
    program.press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(first.width(), width);
    delete sheet.data();
    images.deliver(); // for a sheet that is gone
}

TEST_F(DocumentSheet, saysWhenThereIsNoFileOrNothingWasFound) {
    std::filesystem::remove(program.store->fileOf(document()).value());
    open(testing::salaryPaper());
    EXPECT_TRUE(text(u"previewProblem"_s).contains(u"nicht vorhanden"_s));
    EXPECT_TRUE(program.isShown(u"proposal:3"_s)) << "the values are there all the same";

    open({.text = "Quittung", .pageCount = 1, .problem = "Seite 2 liess sich nicht lesen."});
    EXPECT_TRUE(text(u"readingProblem"_s).contains(u"Seite 2"_s));
    EXPECT_FALSE(program.isShown(u"apply"_s));
    choose(u"documentKind"_s, static_cast<int>(StoredDocument::Kind::spende));
    QString wanted;
    QObject::connect(sheet, &pages::DocumentSheet::fieldWanted, sheet,
                     [&](const QString& path) { wanted = path; });
    program.click(u"byHand:spende"_s);
    EXPECT_EQ(wanted, u"householdDeductions.donations"_s);
    EXPECT_EQ(document().kind, StoredDocument::Kind::spende) << "kept on the way there";
    EXPECT_FALSE(document().isApplied);
}

TEST_F(DocumentSheet, digitsToBeComparedAreSeenWhole) {
    const std::string number = "CH4045083927719313402";
    ScanResult read;
    testing::addRecord(read, {.kind = Kind::security, .title = "Konto", .page = 1},
                       {{"institution", "Bank"}, {"ibanOrValor", number}, {"taxValue", "1200"}});
    for (const int width : {1000, 1600}) {
        program.window->resize(width, 640);
        open(read);
        const auto& line = program.find<QLineEdit>(u"proposal:1"_s);
        const int room = line.width() - line.textMargins().left() - line.textMargins().right() - 20;
        EXPECT_GE(room, line.fontMetrics().horizontalAdvance(line.text())) << width;
        program.find(u"take:1"_s).setFocus(Qt::TabFocusReason);
        for (const char* const next : {"proposal:1", "trust:1", "take:2"}) {
            program.press(Qt::Key_Tab);
            EXPECT_EQ(QApplication::focusWidget()->objectName(), QString::fromLatin1(next));
        }
    }
}

TEST_F(DocumentSheet, aPageTooSmallToBeReadIsEnlargedForTheValueGoneTo) {
    program.window->resize(1000, 640);
    open(testing::salaryPaper());
    const auto size = [&] { return text(u"previewZoom"_s).chopped(2).toInt(); };
    const auto& page = program.find<pages::PagePreviewSheet>(u"sheetPage:1"_s);
    const auto isSeen = [&](std::size_t proposal) {
        const QRect place = page.placeOf(*scan.proposals[proposal].box);
        return page.visibleRegion().contains(place.center());
    };
    const int whole = size();
    ASSERT_LT(whole, 50) << "all of the page at first";
    program.click(u"proposal:3"_s);
    EXPECT_GE(size(), 80);
    EXPECT_TRUE(isSeen(3));
    program.click(u"proposal:7"_s);
    EXPECT_TRUE(isSeen(7));
    program.press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(size(), whole);
    program.click(u"proposal:3"_s);
    EXPECT_EQ(size(), whole) << "as the user wants it";

    program.window->resize(1600, 1000);
    open(testing::salaryPaper());
    const int large = size();
    program.click(u"proposal:3"_s);
    EXPECT_EQ(size(), large) << "it can be read";
}

TEST_F(DocumentSheet, aNameIsProposedAndTakenOnlyWhenAskedFor) {
    open(testing::salaryPaper());
    auto& name = program.find<QLineEdit>(u"documentTitle"_s);
    const QString before = name.text();
    EXPECT_EQ(before, u"Beleg"_s);
    program.click(u"suggestedTitle"_s);
    EXPECT_EQ(name.text(), u"Lohnausweis – Samariterverein Werdenberg"_s);
    EXPECT_FALSE(program.isShown(u"suggestedTitle"_s));
    EXPECT_EQ(document().title, "Beleg") << "not before it is taken over";
    name.undo();
    EXPECT_EQ(name.text(), before);
    choose(u"documentKind"_s, static_cast<int>(StoredDocument::Kind::spende));
    program.click(u"suggestedTitle"_s);
    EXPECT_EQ(name.text(), u"Spende – Samariterverein Werdenberg"_s);
    choose(u"documentKind"_s, static_cast<int>(StoredDocument::Kind::anderes));
    EXPECT_FALSE(program.isShown(u"suggestedTitle"_s));
    program.click(u"fileOnly"_s);
    EXPECT_EQ(document().title, "Spende – Samariterverein Werdenberg");
}

TEST_F(DocumentSheet, longTextsStayWithinASmallWindow) {
    program.window->resize(1000, 640);
    const std::string words = "Donaudampfschifffahrtsgesellschaftskapitänswitwenrentenkasse der "
                              "Gemeinnützigen Genossenschaft Oberwerdenberg und Umgebung";
    program.store->updateDocument(id, [&](StoredDocument& stored) { stored.title = words; });
    ScanResult read = testing::salaryPaper();
    read.records[0].title = words;
    read.records[0].advice = words;
    read.proposals[0].value = words;
    read.proposals[5].checks[0].text = words + words;
    open(read);
    EXPECT_LE(sheet->width(), 1000);
    EXPECT_LE(sheet->height(), 640);
    for (const QScrollArea* const area : sheet->findChildren<QScrollArea*>()) {
        EXPECT_LE(area->widget()->width(), area->viewport()->width());
    }
    for (const char* const name : {"apply", "trust:3", "proposal:3"}) {
        const QWidget& widget = program.find(QString::fromLatin1(name));
        EXPECT_LE(widget.mapTo(sheet, QPoint(widget.width(), 0)).x(), sheet->width()) << name;
    }
    EXPECT_GE(program.find(u"proposal:3"_s).width(), 160) << "an amount can be read whole";
}

} // namespace
} // namespace fiscarel
