// The sheet as a window: keyboard, what is asked before a loss, pages and marks, room for what it
// shows.

#include "Fiscarel_SG/pages/documents/PagePreviewSheet.h"
#include "tests/gui/DocumentSheetFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QTextDocument>
#include <QTimer>
#include <filesystem>
#include <set>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;
using DocumentSheetWindow = testing::DocumentSheet;
using Kind = ProposedRecord::Kind;

TEST_F(DocumentSheetWindow, everythingCanBeDoneByKeyboard) {
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

TEST_F(DocumentSheetWindow, asksBeforeWhatWasChangedIsLost) {
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

TEST_F(DocumentSheetWindow, pagesComeLaterAndMarksLeadToTheirRows) {
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

TEST_F(DocumentSheetWindow, saysWhenThereIsNoFileOrNothingWasFound) {
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

TEST_F(DocumentSheetWindow, aFileNobodyCanReadCanBeRemovedHere) {
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

TEST_F(DocumentSheetWindow, digitsToBeComparedAreSeenWhole) {
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

TEST_F(DocumentSheetWindow, aPageTooSmallToBeReadIsEnlargedForTheValueGoneTo) {
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

TEST_F(DocumentSheetWindow, aNameIsProposedAndTakenOnlyWhenAskedFor) {
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

TEST_F(DocumentSheetWindow, tipsShowLettersAsTheyAre) {
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

TEST_F(DocumentSheetWindow, longTextsStayWithinASmallWindow) {
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
