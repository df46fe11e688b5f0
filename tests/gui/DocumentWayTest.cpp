// A document all the way through the window and the reading process: from the paper that is dropped
// to the bill, and from the figure back to the paper.

#include "Fiscarel_SG/pages/documents/DocumentSheet.h"
#include "TaxCore/review/Advisor.h"
#include "tests/gui/OpenWindow.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QPdfWriter>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QUrl>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;

/// A salary certificate as a firm prints it, without a barcode.
QString certificateIn(const std::filesystem::path& folder) {
    const QString file = QString::fromStdString((folder / "Lohnausweis Beispiel.pdf").string());
    QPdfWriter writer(file);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setResolution(100);
    QPainter painter(&writer);
    painter.setFont(QFont(u"Liberation Sans"_s, 9));
    int y = 0;
    const auto line = [&](const QString& text, const QString& amount = {}) {
        painter.drawText(QPoint(0, y += 24), text);
        const int width = painter.fontMetrics().horizontalAdvance(amount);
        painter.drawText(QPoint(640 - width, y), amount);
    };
    line(u"Lohnausweis – Certificat de salaire – Certificato di salario"_s);
    line(u"C  AHV-Nr. 756.9217.0769.85"_s);
    line(u"D  Jahr 2025     E  von 01.01.2025 bis 31.12.2025"_s);
    line(u"H  Regula Beispiel, Rorschacherstrasse 1, 9000 St. Gallen"_s);
    line(u"1.  Lohn (soweit nicht unter Ziffer 2–7 aufzuführen) / Rente"_s, u"85'000"_s);
    line(u"8.  Bruttolohn total / Rente"_s, u"85'000"_s);
    line(u"9.  Beiträge AHV/IV/EO/ALV/NBUV"_s, u"5'440"_s);
    line(u"10.1  Berufliche Vorsorge, ordentliche Beiträge"_s, u"4'200"_s);
    line(u"11.  Nettolohn / Rente"_s, u"75'360"_s);
    line(u"I  Ort und Datum  St. Gallen, 15.01.2026"_s);
    line(u"Muster Textil AG"_s);
    line(u"Webergasse 3, 9000 St. Gallen"_s);
    return file;
}

TEST(DocumentWay, aCertificateChangesTheBillAndTheFigureLeadsBackToIt) {
    testing::OpenWindow program;
    program.readsForReal = true;
    program.open();
    program.store->chooseInitialRegion(taxcore::TaxRegion::stGallen);
    program.store->setYear(2025);
    taxcore::TaxCase taxCase = program.store->current();
    taxCase.person1.firstName = "Regula";
    taxCase.person1.lastName = "Beispiel";
    program.show(taxCase);
    const QString before = program.find<QLabel>(u"total"_s).text();
    program.click(u"nav:documents"_s);

    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(certificateIn(program.folder.path()))});
    QWidget& page = program.find(u"page:documents"_s);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&page, &enter);
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&page, &drop);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            return !program.desk->intake().isBusy() && program.desk->readings().count() == 0
                   && !program.store->documents().empty();
        },
        60'000));
    program.settle();

    const auto sheet = [&] {
        const auto all = program.window->findChildren<pages::DocumentSheet*>();
        return std::ranges::any_of(all, [](const auto* one) { return one->isVisible(); });
    };
    program.find<QWidget>(u"documents"_s).setFocus();
    program.press(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            return sheet() && program.isShown(u"apply"_s)
                   && program.find<QPushButton>(u"apply"_s).isEnabled();
        },
        30'000));
    program.click(u"apply"_s);
    program.settle();
    ASSERT_FALSE(sheet());

    const auto& salaries = program.store->current().income1.salaries;
    ASSERT_EQ(salaries.size(), 1U);
    EXPECT_EQ(salaries[0].grossSalary, Decimal(85'000));
    EXPECT_EQ(salaries[0].netSalary(), Decimal(75'360));
    const QString after = program.find<QLabel>(u"total"_s).text();
    EXPECT_NE(after, before);
    EXPECT_GT(taxcore::Advisor::totalTax(*program.store->result()), Decimal(0));

    ASSERT_TRUE(program.window->showField(u"income1.salaries[0].grossSalary"_s));
    program.settle();
    EXPECT_EQ(program.find<QLineEdit>(u"income1.salaries[0].grossSalary"_s).text(), u"85000"_s);
    program.click(u"clip:income1.salaries[0].grossSalary"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return sheet(); }, 30'000));
}

} // namespace
} // namespace fiscarel
