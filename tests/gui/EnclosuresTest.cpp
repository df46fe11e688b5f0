#include "tests/gui/OpenWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace fiscarel {
namespace {

using namespace Qt::Literals::StringLiterals;

/// From two dropped files to one PDF; the one that is no document is told, the other is in it.
TEST(Enclosures, areBundledIntoOnePdfThatTellsWhatIsMissing) {
    testing::OpenWindow program;
    program.open();
    program.store->chooseInitialRegion(taxcore::TaxRegion::stGallen);
    const QString folder = QString::fromStdString(program.root().parent_path().string());
    const QString picture = folder + u"/Lohnausweis.png"_s;
    const QString broken = folder + u"/Kaputt.pdf"_s;
    QImage image(300, 400, QImage::Format_RGB32);
    image.fill(Qt::white);
    ASSERT_TRUE(image.save(picture));
    QFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("kein PDF");
    file.close();

    program.click(u"nav:documents"_s);
    auto& save = program.find<QPushButton>(u"saveEnclosures"_s);
    EXPECT_FALSE(save.isEnabled()) << "nothing to bundle yet";
    program.store->importDocuments({picture.toStdString(), broken.toStdString()});
    ASSERT_TRUE(QTest::qWaitFor([&] { return save.isEnabled(); }, 20'000));

    const QString target = folder + u"/Beilagen.pdf"_s;
    QTimer::singleShot(0, &save, [&] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->selectFile(target);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    save.click();
    auto& message = program.find<QLabel>(u"enclosuresMessage"_s);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return message.text().startsWith(u"Gespeichert"_s); }, 20'000))
        << message.text().toStdString();
    EXPECT_TRUE(message.text().contains(u"Kaputt"_s)) << message.text().toStdString();
    QFile pdf(target);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.read(5) == "%PDF-");
}

} // namespace
} // namespace fiscarel
