#include "Fiscarel_SG/outputs/ReportContent.h"
#include "Fiscarel_SG/paper/BundleDocuments.h"
#include "Fiscarel_SG/paper/ReportPdf.h"
#include "tests/report/PdfFiles.h"

#include <gtest/gtest.h>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <QImage>
#include <memory>

namespace fiscarel {
namespace {

using namespace paper;
namespace fs = std::filesystem;

/// A PDF of some pages that say a word.
std::string pdfThatSays(const std::string& word, int pages) {
    outputs::ReportContent content{.title = word};
    for (int i = 0; i < pages; ++i) {
        outputs::ReportChapter chapter{.title = word, .anchor = {}, .blocks = {}};
        chapter.blocks.emplace_back(outputs::ReportHeading{word, 1, {}});
        content.chapters.push_back(std::move(chapter));
    }
    return reportPdf(setOnPaper(content)).value();
}

std::string encrypted(const std::string& bytes, const char* userPassword) {
    QPDF pdf;
    pdf.processMemoryFile("plain", bytes.data(), bytes.size());
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.setR6EncryptionParameters(userPassword, "owner", true, true, true, true, true, true,
                                     qpdf_r3p_full, true);
    writer.write();
    const auto buffer = writer.getBufferSharedPointer();
    return {buffer->getBuffer(), buffer->getBuffer() + buffer->getSize()};
}

class BundleOfDocuments : public ::testing::Test {
  protected:
    testing::TemporaryFolder folder_;
    std::vector<BundleItem> items_;

    void add(const std::string& title, const std::string& bytes) {
        items_.push_back(
            {testing::writeFile(folder_.path() / std::to_string(items_.size()), bytes), title});
    }
    void addImage(const std::string& title, QSize size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::lightGray);
        const fs::path file = folder_.path() / (std::to_string(items_.size()) + ".png");
        image.save(QString::fromStdString(file.string()));
        items_.push_back({file, title});
    }
    std::string textOf(const Bundle& bundle) const {
        return testing::textOfPdf(testing::writeFile(folder_.path() / "bundle.pdf", bundle.pdf));
    }
};

TEST_F(BundleOfDocuments, standsInItsOrderWithoutWhatDoesNotRead) {
    const std::string sound = pdfThatSays("Zeitwort", 2);
    add("Lohnausweis", pdfThatSays("Hauptwort", 1));
    add("Verschlüsselt", encrypted(sound, "geheim"));
    add("Nur gegen Änderung geschützt", encrypted(sound, ""));
    add("Abgeschnitten", sound.substr(0, 300));
    add("Kein Beleg", "Dies ist ein Text.");
    add("Leer", "");
    addImage("Foto", {3000, 2000});
    items_.push_back({folder_.path() / "fehlt.pdf", "Verschwunden"});
    add("Zuletzt", pdfThatSays("Beiwort", 1));

    const Bundle bundle = bundleDocuments("Belege 2025", items_);
    EXPECT_EQ(bundle.pages, 5U);
    std::vector<std::size_t> missing;
    for (const BundleFault& fault : bundle.faults) {
        missing.push_back(fault.item);
        EXPECT_NE(fault.message.find("«" + items_[fault.item].title + "»"), std::string::npos);
    }
    EXPECT_EQ(missing, (std::vector<std::size_t>{1, 3, 4, 5, 7}));
    EXPECT_NE(bundle.faults.front().message.find("Passwort"), std::string::npos);
    EXPECT_EQ(testing::outlineOf(bundle.pdf),
              (std::vector<std::string>{"Belege 2025", "Lohnausweis",
                                        "Nur gegen Änderung geschützt", "Foto", "Zuletzt"}));
    const std::string text = textOf(bundle);
    const std::vector<std::string> order{"Abgeschnitten", "Hauptwort", "Zeitwort", "Beiwort"};
    std::size_t at = 0;
    for (const std::string& word : order) {
        at = text.find(word, at);
        ASSERT_NE(at, std::string::npos) << word;
    }
    QPDF pdf;
    pdf.processMemoryFile("bundle", bundle.pdf.data(), bundle.pdf.size());
    EXPECT_EQ(QPDFPageDocumentHelper(pdf).getAllPages().size(), bundle.pages + 1);
}

TEST_F(BundleOfDocuments, ofNothingIsNothing) {
    add("Kaputt", "%PDF-1.7 und weiter nichts");
    const Bundle bundle = bundleDocuments("Belege", items_);
    EXPECT_TRUE(bundle.pdf.empty());
    EXPECT_EQ(bundle.faults.size(), 1U);
    EXPECT_TRUE(bundleDocuments("Belege", {}).pdf.empty());
}

/// Cut or garbled anywhere, a document costs at most itself.
TEST_F(BundleOfDocuments, neverLosesTheRestToABrokenDocument) {
    const std::string sound = pdfThatSays("Hauptwort", 3);
    for (std::size_t at = 0; at < sound.size(); at += sound.size() / 60 + 1) {
        std::string garbled = sound;
        garbled.replace(at, std::min<std::size_t>(40, garbled.size() - at), 40, '\xA5');
        items_.clear();
        add("Gut", sound);
        add("Verfälscht", garbled);
        add("Abgeschnitten", sound.substr(0, at));
        const Bundle bundle = bundleDocuments("Belege", items_);
        ASSERT_FALSE(bundle.pdf.empty()) << at;
        EXPECT_GE(bundle.pages, 3U) << at;
        for (const BundleFault& fault : bundle.faults) {
            EXPECT_NE(fault.item, 0U) << at;
        }
    }
}

} // namespace
} // namespace fiscarel
