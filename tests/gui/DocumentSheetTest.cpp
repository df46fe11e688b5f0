// What the sheet takes over from a paper: records, persons, years, sums and kinds.

#include "Fiscarel_SG/documents/Applying.h"
#include "Fiscarel_SG/documents/ScanSummary.h"
#include "Fiscarel_SG/pages/documents/ProposalText.h"
#include "TaxCore/base/MoneyFormat.h"
#include "tests/gui/DocumentSheetFixture.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;
using testing::DocumentSheet;
using Confidence = Proposal::Confidence;
using Kind = ProposedRecord::Kind;

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

} // namespace
} // namespace fiscarel
