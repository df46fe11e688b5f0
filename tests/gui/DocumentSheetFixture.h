#pragma once

#include "Fiscarel_SG/pages/documents/DocumentSheet.h"
#include "TaxCore/demo/DemoData.h"
#include "TaxCore/review/Advisor.h"
#include "tests/gui/OpenWindow.h"
#include "tests/support/SheetPapers.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QTest>
#include <string>
#include <utility>

namespace fiscarel::testing {

using namespace Qt::Literals::StringLiterals;

/// The demo household's window with a document in it, and on top the sheet that confirms what was
/// read of it: opened with what a test lets the reader find, its pages drawn by the test.
class DocumentSheet : public ::testing::Test {
  protected:
    DocumentSheet() {
        program.open();
        program.store->chooseInitialRegion(taxcore::TaxRegion::stGallen);
        program.store->setYear(2025);
        program.show(taxcore::DemoData::household(taxcore::TaxRegion::stGallen, 2025));
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
    const taxcore::TaxCase& current() const { return program.store->current(); }
    const StoredDocument& document() const { return program.store->documents().at(0); }
    QString text(const QString& label) const { return program.find<QLabel>(label).text(); }
    bool isTicked(const QString& box) const { return program.find<QCheckBox>(box).isChecked(); }
    void choose(const QString& name, int index) const {
        auto& box = program.find<QComboBox>(name);
        box.setCurrentIndex(index);
        Q_EMIT box.activated(index);
        QCoreApplication::processEvents();
    }
    std::string tax(const taxcore::TaxCase& taxCase) const {
        return taxcore::Advisor::totalTax(program.store->calculator()->calculate(taxCase))
            .toString();
    }

    OpenWindow program;
    ScanResult scan;
    DrawnPages images{scan};
    Uuid id;
    QPointer<pages::DocumentSheet> sheet;
};

} // namespace fiscarel::testing
