// What somebody does to documents who does not wait, changes their mind or clicks twice.

#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/pages/documents/DocumentSheet.h"
#include "tests/gui/DocumentsPageFixture.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <functional>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using Kind = StoredDocument::Kind;
namespace fs = std::filesystem;

class DocumentsHaste : public testing::DocumentsPage {
  protected:
    const pages::DocumentSheet* sheet() const {
        return program.window->findChild<pages::DocumentSheet*>();
    }
    void pickInstead(const QString& title, const fs::path& picked) {
        select(title);
        QTimer::singleShot(0, program.window.get(), [picked] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->selectFile(QString::fromStdString(picked.string()));
            QMetaObject::invokeMethod(dialog, "accept");
        });
        program.find<QPushButton>(u"replaceDocument"_s).click();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !program.desk->intake().isBusy(); }, 10'000));
        waitForReading();
    }
    /// As it comes from a mouse: the second press is told as a double click.
    void clickTwice(const QPoint& at) const {
        QWidget* const lines = table().viewport();
        QTest::mouseClick(lines, Qt::LeftButton, {}, at);
        QTest::mouseDClick(lines, Qt::LeftButton, {}, at);
        QTest::mouseRelease(lines, Qt::LeftButton, {}, at);
    }
    void note(const std::string& title, const std::function<void(StoredDocument&)>& change) {
        program.store->updateDocument(Uuid(stored(title).id), change);
        program.settle();
    }
};

TEST_F(DocumentsHaste, aDocumentStaysUntilAnotherFileHasTakenItsPlace) {
    dropAndRead({file("Kaputt.pdf")});
    note("Kaputt", [](StoredDocument& document) {
        document.note = "Police der Eltern";
        document.chooseKind(Kind::versicherung);
    });
    const Uuid former = stored("Kaputt").id;
    pickInstead(u"Kaputt"_s, file("Kaputt.pdf"));
    EXPECT_TRUE(program.isShown(u"twins"_s));
    EXPECT_EQ(stored("Kaputt").id, former) << "the same file again brings nothing";
    program.click(u"dropTwins"_s);
    pickInstead(u"Kaputt"_s, file("Brief.docx"));
    EXPECT_TRUE(program.isShown(u"intakeMessage"_s));
    ASSERT_EQ(titles(), QStringList{u"Kaputt"_s}) << "an unusable one neither";
    EXPECT_EQ(stored("Kaputt").note, "Police der Eltern");

    pickInstead(u"Kaputt"_s, file("Neu.pdf"));
    ASSERT_EQ(titles(), QStringList{u"Neu"_s}) << "its name was the file's";
    EXPECT_EQ(stored("Neu").note, "Police der Eltern");
    EXPECT_EQ(stored("Neu").kind, Kind::versicherung);
    program.click(u"toastAnswer"_s);
    program.settle();
    EXPECT_EQ(stored("Kaputt").id, former);
}

TEST_F(DocumentsHaste, aNameOfTheUserAndTheYearStayWithAnotherFile) {
    dropAndRead({file("Kaputt.pdf", "gleich"), file("Lohn.pdf", "doppelt")});
    note("Kaputt", [](StoredDocument& document) { document.title = "Police 2025"; });
    const Uuid former = stored("Police 2025").id;
    pickInstead(u"Police 2025"_s, file("Kopie.pdf", "doppelt"));
    EXPECT_EQ(stored("Police 2025").id, former);
    program.store->setYear(2026);
    program.settle();
    program.click(u"keepTwins"_s);
    waitForReading();
    EXPECT_EQ(program.store->documents().size(), 2U);
    EXPECT_NE(stored("Police 2025").id, former);
    EXPECT_EQ(stored("Police 2025").year, 2025);
}

TEST_F(DocumentsHaste, filesComeIntoTheYearTheyWereDroppedOn) {
    QTimer::singleShot(0, program.window.get(), [this] { program.store->setYear(2026); });
    drop({file("a.pdf"), file("b.pdf")});
    ASSERT_EQ(program.store->year(), 2026);
    for (const StoredDocument& document : program.store->documents()) {
        EXPECT_EQ(document.year, 2025) << document.title;
    }
    EXPECT_EQ(program.store->documents().size(), 2U);
}

TEST_F(DocumentsHaste, theUsersKindStandsAgainstWhatIsProposed) {
    struct Row {
        const char* name;
        Kind read;
        Kind chosen;
    };
    for (const Row& row : {Row{"Erster", Kind::bankauszug, Kind::bankauszug},
                           Row{"Zweiter", Kind::anderes, Kind::anderes},
                           Row{"Dritter", Kind::bankauszug, Kind::spende}}) {
        reader.answers[row.name] = {
            .text = row.name, .kind = row.read, .proposedKind = Kind::lohnausweis, .pageCount = 1};
        dropAndRead({file(row.name + std::string(".pdf"))});
        const QString title = QString::fromLatin1(row.name);
        const QString chosen = qs(taxcore::label(row.chosen));
        select(title);
        auto& box = program.find<QComboBox>(u"documentKind"_s);
        EXPECT_EQ(box.currentText(), u"Lohnausweis"_s) << row.name;
        choose(u"documentKind"_s, chosen);
        Q_EMIT box.activated(box.currentIndex());
        program.settle();
        EXPECT_EQ(box.currentText(), chosen) << row.name;
        EXPECT_EQ(column(pages::DocumentModel::kind).at(titles().indexOf(title)), chosen);
        program.desk->readings().readAgain(Uuid(stored(row.name).id));
        waitForReading();
        EXPECT_EQ(column(pages::DocumentModel::kind).at(titles().indexOf(title)), chosen)
            << "read once more";
    }
}

TEST_F(DocumentsHaste, aDoubleClickOnALinkMeansOneDocument) {
    reader.answers["Alt"] = {
        .text = "Alt", .records = {{.title = "Alt", .year = 2026}}, .pageCount = 1};
    dropAndRead({file("Alt 1.pdf"), file("Alt 2.pdf"), file("Alt 3.pdf")});
    const auto moved = [&] {
        return std::ranges::count(program.store->documents(), 2026, &StoredDocument::year);
    };
    clickTwice(linkOf(0));
    program.settle();
    EXPECT_EQ(moved(), 1);
    EXPECT_EQ(sheet(), nullptr) << "nor is the next one opened";
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, linkOf(0));
    program.settle();
    EXPECT_EQ(moved(), 2);
    // Pressed at one document and let go at another it means neither.
    dropAndRead({file("Alt 4.pdf")});
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::mousePress(table().viewport(), Qt::LeftButton, {}, linkOf(0));
    QTest::mouseRelease(table().viewport(), Qt::LeftButton, {}, linkOf(1));
    EXPECT_EQ(moved(), 2);
}

TEST_F(DocumentsHaste, aDoubleClickOnTheCrossEndsOneReading) {
    reader.hold();
    drop({file("a.pdf"), file("b.pdf")});
    ASSERT_TRUE(QTest::qWaitFor([&] { return reader.count() >= 1; }));
    clickTwice(linkOf(0));
    program.settle();
    EXPECT_EQ(program.desk->readings().count(), 1U) << "and it does not begin again";
}

TEST_F(DocumentsHaste, theSheetOfADocumentThatIsGoneCloses) {
    dropAndRead({file("Lohn.pdf")});
    select(u"Lohn"_s);
    program.press(Qt::Key_Return);
    ASSERT_NE(sheet(), nullptr);
    program.store->deleteDocument(Uuid(stored("Lohn").id));
    EXPECT_FALSE(program.isShown(u"documentSheet"_s));
}

} // namespace
} // namespace fiscarel
