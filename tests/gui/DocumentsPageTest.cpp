#include "Fiscarel_SG/pages/documents/DocumentSheet.h"
#include "tests/gui/DocumentsPageFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using Kind = StoredDocument::Kind;
using DocumentsPage = testing::DocumentsPage;
namespace fs = std::filesystem;

TEST_F(DocumentsPage, readsWhatIsDroppedAndAttachesWhatItRead) {
    dropAndRead({file("Lohn.pdf"), file("Spende.pdf"), file("Kaputt.pdf"), file("Brief.docx")});
    const StoredDocument& salary = stored("Lohn");
    EXPECT_EQ(salary.kind, Kind::lohnausweis);
    EXPECT_EQ(salary.issuer, "Müller & Söhne AG");
    EXPECT_EQ(salary.amount, Decimal(68'000));
    EXPECT_EQ(stored("Spende").kind, Kind::spende) << "a payload names the kind";
    EXPECT_EQ(column(pages::DocumentModel::state),
              (QStringList{u"Nicht lesbar"_s, u"Offen"_s, u"Offen"_s}));
    EXPECT_TRUE(program.find<QLabel>(u"intakeMessage"_s).text().contains(u"«Brief.docx»"_s));
    const auto* const broken = dynamic_cast<pages::DocumentFilter&>(*table().model()).rowAt(0);
    EXPECT_EQ(broken->detail, u"Diese Datei ist mit einem Passwort geschützt."_s);

    reader.answers["Kaputt"] = {.text = "Police", .kind = Kind::versicherung, .pageCount = 1};
    select(u"Kaputt"_s);
    program.click(u"readDocumentAgain"_s);
    waitForReading();
    EXPECT_EQ(stored("Kaputt").kind, Kind::versicherung);
}

TEST_F(DocumentsPage, readsTwoAtATimeAndEndsWhatIsCancelled) {
    reader.hold();
    drop({file("a.pdf"), file("b.pdf"), file("c.pdf"), file("d.pdf")});
    ASSERT_TRUE(QTest::qWaitFor([&] { return reader.count() >= 1; }));
    EXPECT_EQ(program.desk->readings().count(), 4U);
    EXPECT_TRUE(program.find<QLabel>(u"readingNow"_s).text().startsWith(u"4 Belege"_s));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return column(pages::DocumentModel::state).contains(u"Seite 2 von 4"_s); }));

    // The cross in the line of one that is read.
    const auto line =
        static_cast<int>(column(pages::DocumentModel::state).indexOf(u"Seite 2 von 4"_s));
    const QString ended = titles().at(line);
    const QModelIndex index = table().model()->index(line, pages::DocumentModel::state);
    const auto& delegate = dynamic_cast<pages::DocumentDelegate&>(*table().itemDelegate());
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                      delegate.cancelPlace(optionAt(index), index).center());
    EXPECT_EQ(program.desk->readings().count(), 3U);
    EXPECT_FALSE(stored(ended.toStdString()).recognizedText);

    // The page goes, reading goes on.
    program.click(u"nav:overview"_s);
    program.click(u"nav:documents"_s);
    EXPECT_EQ(program.desk->readings().count(), 3U);
    program.click(u"cancelAllReadings"_s);
    EXPECT_EQ(program.desk->readings().count(), 0U);
    EXPECT_FALSE(program.isShown(u"readingNow"_s));
    for (const StoredDocument& document : program.store->documents()) {
        EXPECT_FALSE(document.recognizedText) << document.title;
    }

    reader.letGo();
    select(ended);
    program.click(u"readDocumentAgain"_s);
    waitForReading();
    EXPECT_TRUE(stored(ended.toStdString()).recognizedText);
    EXPECT_LE(reader.most(), 2);
}

TEST_F(DocumentsPage, endsWithReadingsUnderWay) {
    reader.hold();
    drop({file("a.pdf"), file("b.pdf"), file("c.pdf")});
    ASSERT_TRUE(QTest::qWaitFor([&] { return reader.count() >= 1; }));
    program.open(); // the program ends, and begins anew
    program.click(u"nav:documents"_s);
    EXPECT_EQ(program.desk->readings().count(), 0U);
    EXPECT_EQ(column(pages::DocumentModel::state),
              (QStringList{u"Nicht gelesen"_s, u"Nicht gelesen"_s, u"Nicht gelesen"_s}));
}

TEST_F(DocumentsPage, asksAboutTheSameContentOfAnyYear) {
    dropAndRead({file("Lohn.pdf", "gleich")});
    program.store->setYear(2026);
    program.settle();
    drop({file("Kopie.pdf", "gleich"), file("Neu.pdf")});
    EXPECT_EQ(titles(), QStringList{u"Neu"_s});
    EXPECT_TRUE(program.find<QLabel>(u"twins"_s)
                    .text()
                    .contains(u"«Kopie.pdf» liegt schon als «Lohn» im Steuerjahr 2025."_s));
    program.click(u"dropTwins"_s);
    EXPECT_FALSE(program.isShown(u"twins"_s));
    EXPECT_EQ(program.store->documents().size(), 2U);

    drop({file("Kopie.pdf", "gleich")});
    program.click(u"keepTwins"_s);
    waitForReading();
    EXPECT_EQ(titles(), (QStringList{u"Kopie"_s, u"Neu"_s}));
    EXPECT_EQ(reader.count(), 2) << "the same content is read once";
    EXPECT_EQ(stored("Kopie").kind, Kind::lohnausweis);
}

TEST_F(DocumentsPage, stillSaysAfterARestartWhyAFileWasNotRead) {
    const auto detail = [&] {
        return dynamic_cast<pages::DocumentFilter&>(*table().model()).rowAt(0)->detail;
    };
    const QString reason = u"Diese Datei ist mit einem Passwort geschützt."_s;
    dropAndRead({file("Kaputt.pdf", "gleich")});
    program.settle();
    program.open();
    EXPECT_TRUE(QTest::qWaitFor([&] { return detail() == reason; }, 10'000))
        << detail().toStdString();
    EXPECT_EQ(reader.count(), 1);

    // What could not be read is tried anew, and what could be is not forgotten for it.
    reader.answers["Kaputt"] = {.text = "Police", .kind = Kind::versicherung, .pageCount = 1};
    program.desk->readings().readAgain(stored("Kaputt").id);
    waitForReading();
    reader.answers["Kaputt"] = {.problem = "Diese Datei ist beschädigt."};
    program.desk->readings().readAgain(stored("Kaputt").id);
    waitForReading();
    program.open();
    EXPECT_FALSE(QTest::qWaitFor([&] { return detail().contains(u"beschädigt"_s); }, 300));
    EXPECT_EQ(column(pages::DocumentModel::state), QStringList{u"Offen"_s});
}

TEST_F(DocumentsPage, tellsTheProposedKindUntilAnotherIsDecided) {
    reader.answers["Gabe"] = {.text = "Danke", .proposedKind = Kind::spende, .pageCount = 1};
    reader.hold();
    drop({file("Gabe.pdf")});
    EXPECT_EQ(column(pages::DocumentModel::kind), QStringList{QString()}) << "not read yet";
    reader.letGo();
    waitForReading();
    EXPECT_EQ(stored("Gabe").kind, Kind::anderes);
    EXPECT_EQ(column(pages::DocumentModel::kind), QStringList{u"Spende"_s});
    choose(u"filterKind"_s, u"Spende"_s);
    EXPECT_EQ(titles(), QStringList{u"Gabe"_s});
    select(u"Gabe"_s);
    EXPECT_EQ(program.find<QComboBox>(u"documentKind"_s).currentText(), u"Spende"_s);
    program.store->updateDocument(Uuid(stored("Gabe").id), [](StoredDocument& document) {
        document.kind = Kind::versicherung;
    });
    program.settle();
    EXPECT_EQ(column(pages::DocumentModel::kind), QStringList{u"Versicherung"_s});
}

TEST_F(DocumentsPage, keepsWhatItRefusedUntilThatWasSeen) {
    drop({file("Brief.docx")});
    drop({file("Tabelle.xlsx"), file("Lohn.pdf")});
    const QString told = program.find<QLabel>(u"intakeMessage"_s).text();
    EXPECT_TRUE(told.contains(u"«Brief.docx»"_s)) << told.toStdString();
    EXPECT_TRUE(told.contains(u"«Tabelle.xlsx»"_s)) << told.toStdString();
    program.click(u"intakeSeen"_s);
    EXPECT_FALSE(program.isShown(u"intakeMessage"_s));
}

TEST_F(DocumentsPage, tellsWhatToDoNext) {
    const auto sheet = [&] { return program.window->findChild<pages::DocumentSheet*>(); };
    EXPECT_FALSE(program.isShown(u"checkFirst"_s));
    dropAndRead({file("Lohn.pdf"), file("Kaputt.pdf"), file("a.pdf")});
    EXPECT_EQ(program.find<QLabel>(u"documentsWaiting"_s).text(),
              u"2 Belege warten auf Ihre Prüfung."_s);
    program.click(u"checkFirst"_s);
    ASSERT_NE(sheet(), nullptr);
    EXPECT_TRUE(sheet()->isVisible());
    delete sheet();
    const auto line = static_cast<int>(titles().indexOf(u"Lohn"_s));
    const QModelIndex index = table().model()->index(line, pages::DocumentModel::state);
    const auto& delegate = dynamic_cast<pages::DocumentDelegate&>(*table().itemDelegate());
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                      delegate.actionPlace(optionAt(index), index).center());
    ASSERT_NE(sheet(), nullptr);
    delete sheet();
    // Of a file nobody can open another one is wanted.
    select(u"Kaputt"_s);
    EXPECT_TRUE(program.isShown(u"replaceDocument"_s));
    EXPECT_FALSE(program.isShown(u"applyDocument"_s));
    select(u"a"_s);
    EXPECT_FALSE(program.isShown(u"replaceDocument"_s));
    EXPECT_TRUE(program.isShown(u"applyDocument"_s));
}

TEST_F(DocumentsPage, filtersAndSearches) {
    dropAndRead({file("Lohn.pdf"), file("Spende.pdf"), file("Kaputt.pdf")});
    auto& search = program.find<QLineEdit>(u"searchDocuments"_s);
    search.setText(u"muller sohne"_s);
    EXPECT_EQ(titles(), QStringList{u"Lohn"_s});
    search.setText(u"GABE"_s);
    EXPECT_EQ(titles(), QStringList{u"Spende"_s});
    search.setText(u"nirgends"_s);
    EXPECT_TRUE(titles().isEmpty());
    EXPECT_TRUE(program.isShown(u"documentsEmpty"_s));
    search.clear();
    choose(u"filterKind"_s, u"Spende"_s);
    EXPECT_EQ(titles(), QStringList{u"Spende"_s});
    select(u"Spende"_s);
    // The user corrects the kind; the filter on the former one has nothing left to show.
    choose(u"documentKind"_s, u"Versicherung"_s);
    Q_EMIT program.find<QComboBox>(u"documentKind"_s)
        .activated(program.find<QComboBox>(u"documentKind"_s).currentIndex());
    program.settle();
    EXPECT_EQ(stored("Spende").kind, Kind::versicherung);
    EXPECT_EQ(titles().size(), 3);
    choose(u"filterState"_s, u"Nicht lesbar"_s);
    EXPECT_EQ(titles(), QStringList{u"Kaputt"_s});
}

TEST_F(DocumentsPage, movesADocumentToTheYearItSpeaksOf) {
    dropAndRead({file("Spende.pdf")});
    EXPECT_EQ(dynamic_cast<pages::DocumentFilter&>(*table().model()).rowAt(0)->detail,
              u"Beleg von 2026, nicht vom Steuerjahr 2025."_s);
    const QModelIndex index = table().model()->index(0, pages::DocumentModel::state);
    const auto& delegate = dynamic_cast<pages::DocumentDelegate&>(*table().itemDelegate());
    const QRect link = delegate.actionPlace(optionAt(index), index);
    ASSERT_FALSE(link.isEmpty());
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, link.center());
    program.settle();
    EXPECT_EQ(stored("Spende").year, 2026);
    EXPECT_TRUE(titles().isEmpty());
    program.store->setYear(2026);
    program.settle();
    EXPECT_EQ(titles(), QStringList{u"Spende"_s});
    EXPECT_FALSE(dynamic_cast<pages::DocumentFilter&>(*table().model()).rowAt(0)->otherYear);
}

TEST_F(DocumentsPage, removesSeveralByTheKeyboardAndBringsThemBack) {
    dropAndRead({file("a.pdf"), file("b.pdf"), file("c.pdf")});
    auto& badge = program.find<QPushButton>(u"nav:documents"_s);
    EXPECT_EQ(badge.accessibleName(), u"Belege, 3 nicht übernommen"_s);
    select(u"c"_s);
    program.press(Qt::Key_Down, Qt::ShiftModifier);
    program.press(Qt::Key_Delete);
    EXPECT_EQ(titles(), QStringList{u"a"_s});
    program.store->undo();
    program.store->undo();
    program.settle();
    EXPECT_EQ(titles().size(), 3);
    select(u"b"_s);
    program.press(Qt::Key_F2);
    program.type(u"Neuer Name"_s);
    program.press(Qt::Key_Tab);
    EXPECT_EQ(stored("Neuer Name").title, "Neuer Name");
}

TEST_F(DocumentsPage, opensTheSheetAlsoOfWhatIsNotReadYet) {
    drop({file("Lohn.pdf")});
    program.desk->readings().cancelAll();
    program.settle();
    select(u"Lohn"_s);
    program.press(Qt::Key_Return);
    const auto sheet = [&] { return program.window->findChild<pages::DocumentSheet*>(); };
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return sheet() != nullptr && sheet()->isVisible(); }, 10'000));
    EXPECT_EQ(stored("Lohn").kind, Kind::lohnausweis);
}

TEST_F(DocumentsPage, aFieldOpensTheDocumentItsValueCameFrom) {
    dropAndRead({file("Lohn.pdf")});
    taxcore::TaxCase taxCase = program.store->current();
    taxcore::SalaryCertificate certificate;
    certificate.employer = "Muster AG";
    certificate.grossSalary = Decimal(68'000);
    taxCase.income1.salaries = {certificate};
    const std::string path = "income1.salaries[" + certificate.id.toString() + "].grossSalary";
    program.store->applyDocument(stored("Lohn").id, taxCase,
                                 {{.path = path, .value = "68000", .page = 1}});
    program.settle();
    ASSERT_TRUE(program.window->showField(u"income1.salaries[0].grossSalary"_s));
    program.settle();
    EXPECT_FALSE(program.isShown(u"clip:income1.salaries[0].employer"_s));
    auto& clip = program.find<QToolButton>(u"clip:income1.salaries[0].grossSalary"_s);
    EXPECT_EQ(clip.accessibleName().left(9), u"Beleg zu "_s);
    program.click(clip);
    const auto* const sheet = program.window->findChild<pages::DocumentSheet*>();
    ASSERT_NE(sheet, nullptr);
    EXPECT_TRUE(sheet->isVisible());
    delete sheet;

    // With the document the link goes.
    program.store->deleteDocument(Uuid(stored("Lohn").id));
    program.settle();
    EXPECT_FALSE(program.isShown(u"clip:income1.salaries[0].grossSalary"_s));
}

} // namespace
} // namespace fiscarel
