#include "TaxCore/demo/DemoData.h"
#include "tests/gui/OpenWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QMouseEvent>
#include <QPrintDialog>
#include <QPrinter>
#include <QTableView>
#include <algorithm>
#include <set>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

class TransferPage : public ::testing::Test {
  protected:
    testing::OpenWindow program;

    void openDemo(TaxRegion region = TaxRegion::stGallen) {
        program.openDemo(region);
        openPage();
    }
    void openPage() {
        program.window->showPage(u"transfer"_s);
        program.settle();
    }
    QTableView& table() { return program.find<QTableView>(u"transferTable"_s); }
    QString progress() { return program.find<QLabel>(u"transferProgress"_s).text(); }

    enum Column { tick, ziffer, label, canton, copyCanton, federal, copyFederal };

    /// The cell of the first row whose label begins so.
    QModelIndex cell(const QString& text, Column column) {
        const auto* const model = table().model();
        for (int row = 0; row < model->rowCount(); ++row) {
            const QModelIndex at = model->index(row, label);
            if (at.data().toString().startsWith(text) && (at.flags() & Qt::ItemIsSelectable) != 0) {
                return at.siblingAtColumn(column);
            }
        }
        return {};
    }
    void click(const QModelIndex& index, int x = -1) {
        table().scrollTo(index);
        program.settle();
        const QRect place = table().visualRect(index);
        const QPoint point = x < 0 ? place.center() : QPoint(place.left() + x, place.center().y());
        QWidget* const view = table().viewport();
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, point, view->mapToGlobal(point), Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                              Qt::NoModifier);
            QApplication::sendEvent(view, &event);
        }
        program.settle();
    }
    static QString clipboard() { return QApplication::clipboard()->text(); }
};

TEST_F(TransferPage, copiesAValueAndTicksItsRow) {
    openDemo();
    const QModelIndex salary = cell(u"Haupterwerb (Nettolohn) · Nora"_s, copyCanton);
    ASSERT_TRUE(salary.isValid());
    click(salary);
    EXPECT_EQ(clipboard(), u"103968"_s);
    EXPECT_EQ(salary.data().toString(), u"kopiert"_s);
    click(cell(u"Berufskosten · Nora"_s, copyFederal));
    EXPECT_EQ(clipboard(), u"8669"_s);
    EXPECT_EQ(cell(u"Haupterwerb"_s, copyCanton).data().toString(), u"Kopieren"_s);

    const int all = progress().section(u' ', 2, 2).toInt();
    EXPECT_GT(all, 150);
    click(cell(u"Haupterwerb"_s, tick), 12);
    EXPECT_EQ(progress(), u"1 von %1 übertragen"_s.arg(all));
    EXPECT_EQ(program.store->transferChecked().at(2025),
              std::set<std::string>{"haupterwerb1=103’968"});
    click(cell(u"Haupterwerb"_s, tick), 12);
    EXPECT_EQ(progress(), u"0 von %1 übertragen"_s.arg(all));
}

TEST_F(TransferPage, theKeyboardGoesThroughTheValues) {
    openDemo();
    table().setFocus();
    table().setCurrentIndex(cell(u"Zweiverdienerabzug"_s, label));
    QStringList copied;
    for (int i = 0; i < 3; ++i) {
        testing::OpenWindow::press(Qt::Key_C, Qt::ControlModifier);
        copied << clipboard();
    }
    EXPECT_EQ(copied, (QStringList{u"500"_s, u"14100"_s, u"63060"_s}));
    table().setCurrentIndex(cell(u"Zweiverdienerabzug"_s, label));
    testing::OpenWindow::press(Qt::Key_Space);
    EXPECT_EQ(program.store->transferChecked().at(2025),
              std::set<std::string>{"zweiverdiener=500 / Bund 14’100"});
    EXPECT_EQ(table().currentIndex().siblingAtColumn(label).data(), u"Zweiverdienerabzug"_s);
    testing::OpenWindow::press(Qt::Key_Return);
    program.settle();
    EXPECT_TRUE(program.isShown(u"reason"_s));
}

TEST_F(TransferPage, showsOpenFieldsOfAFormOnly) {
    openDemo();
    auto& forms = program.find<QComboBox>(u"transferForm"_s);
    forms.setCurrentIndex(forms.findData(u"Schuldenverzeichnis"_s));
    ASSERT_EQ(table().model()->rowCount(), 5) << "two headings and three fields";
    program.find<QCheckBox>(u"openOnly"_s).setChecked(true);
    click(cell(u"Gläubiger"_s, tick), 12);
    EXPECT_EQ(table().model()->rowCount(), 4);
    EXPECT_EQ(forms.currentText(), u"Schuldenverzeichnis (2 offen)"_s);
    click(cell(u"Bezahlte Schuldzinsen"_s, label));
    EXPECT_FALSE(program.isShown(u"transferTable"_s)) << "the entry is shown on its page";
}

TEST_F(TransferPage, ticksOutliveRestartYearAndEdits) {
    program.open();
    program.store->chooseInitialRegion(TaxRegion::stGallen);
    program.show(DemoData::family(2025));
    openPage();
    click(cell(u"Haupterwerb"_s, tick), 12);
    click(cell(u"Schuldzinsen"_s, tick), 12);
    program.store->setYear(2026);
    program.settle();
    EXPECT_TRUE(progress().startsWith(u"0 von"_s));
    program.store->setYear(2025);
    program.settle();
    EXPECT_TRUE(progress().startsWith(u"2 von"_s));

    program.window.reset();
    program.store.reset();
    program.open();
    openPage();
    EXPECT_TRUE(progress().startsWith(u"2 von"_s)) << progress().toStdString();

    program.store->edit("Bruttolohn", [](TaxCase& taxCase) {
        taxCase.income1.salaries[0].grossSalary += 1'000;
        std::ranges::reverse(taxCase.income2.salaries);
    });
    program.settle();
    EXPECT_TRUE(progress().endsWith(u"· 1 seither geändert"_s)) << progress().toStdString();
    EXPECT_TRUE(cell(u"Haupterwerb"_s, label).data().toString().endsWith(u"bisher 103’968"_s));
    click(cell(u"Haupterwerb"_s, tick), 12);
    EXPECT_EQ(program.store->transferChecked().at(2025),
              (std::set<std::string>{"haupterwerb1=104’968", "schuldzinsen=7’440"}));

    program.store->edit("Schulden", [](TaxCase& taxCase) { taxCase.debts.clear(); });
    program.settle();
    const QModelIndex gone = cell(u"Schuldzinsen – nicht mehr"_s, tick);
    ASSERT_TRUE(gone.isValid());
    click(gone, 12);
    EXPECT_EQ(program.store->transferChecked().at(2025),
              std::set<std::string>{"haupterwerb1=104’968"});
}

TEST_F(TransferPage, staysQuickWithALargeRegister) {
    openDemo();
    TaxCase taxCase = DemoData::family(2025);
    for (int i = 0; i < 60; ++i) {
        SecurityEntry entry = taxCase.securities[2];
        entry.id = Uuid::random();
        taxCase.securities.push_back(entry);
    }
    program.show(taxCase);
    program.settle();
    EXPECT_GT(table().model()->rowCount(), 600);
    QElapsedTimer clock;
    clock.start();
    click(cell(u"Haupterwerb"_s, tick), 12);
    EXPECT_LT(clock.elapsed(), 1'000) << "milliseconds, sanitizers included";
    RecordProperty("milliseconds", static_cast<int>(clock.elapsed()));
}

TEST_F(TransferPage, asksForAPrinterWithoutBlocking) {
    openDemo();
    program.click(u"transferPrint"_s);
    const auto dialogs = program.window->findChildren<QPrintDialog*>();
    ASSERT_EQ(dialogs.size(), 1);
    const QString file = QString::fromStdString((program.folder.path() / "liste.pdf").string());
    dialogs.front()->printer()->setOutputFileName(file);
    Q_EMIT dialogs.front()->accepted(dialogs.front()->printer());
    dialogs.front()->reject();
    QFile pdf(file);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.readAll().startsWith("%PDF"));
}

TEST_F(TransferPage, hasOneColumnOfValuesInLiechtenstein) {
    openDemo(TaxRegion::liechtenstein);
    EXPECT_TRUE(table().isColumnHidden(federal));
    EXPECT_EQ(cell(u"Organentschädigungen"_s, ziffer).data().toString(), u"11.3  510"_s);
}

} // namespace
} // namespace fiscarel
