#pragma once

#include "Fiscarel_SG/pages/documents/DocumentDelegate.h"
#include "Fiscarel_SG/pages/documents/DocumentFilter.h"
#include "Fiscarel_SG/pages/documents/DocumentTable.h"
#include "tests/gui/OpenWindow.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <atomic>
#include <condition_variable>
#include <fstream>
#include <map>
#include <mutex>
#include <stdexcept>

namespace fiscarel::testing {

using namespace Qt::Literals::StringLiterals;
using Kind = StoredDocument::Kind;
namespace fs = std::filesystem;

/// Reads nothing, answers by what the name of the file contains, and can be held up.
class FakeReader {
  public:
    std::map<std::string, ScanResult> answers;

    DocumentReadings::Scan scan() {
        return [this](const fs::path& file, const ReadingOptions& options) {
            return read(file, options);
        };
    }
    void hold() { isHeld_ = true; }
    void letGo() {
        const std::scoped_lock lock(mutex_);
        isHeld_ = false;
        changed_.notify_all();
    }
    int count() const { return count_; }
    int most() const { return most_; }

  private:
    ScanResult read(const fs::path& file, const ReadingOptions& options) {
        ++count_;
        const int now = ++underWay_;
        most_ = std::max(most_.load(), now);
        options.progress(1, 4);
        {
            std::unique_lock lock(mutex_);
            const std::stop_callback wake(options.stop, [this] { changed_.notify_all(); });
            while (isHeld_ && !options.stop.stop_requested()) {
                changed_.wait_for(lock, std::chrono::milliseconds(5));
            }
        }
        --underWay_;
        if (options.stop.stop_requested()) {
            return {.problem = "Abgebrochen."};
        }
        for (const auto& [name, answer] : answers) {
            if (file.string().find(name) != std::string::npos) {
                return answer;
            }
        }
        return {.text = "Ein Beleg", .kind = Kind::anderes, .pageCount = 1};
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::atomic<bool> isHeld_ = false;
    std::atomic<int> count_ = 0;
    std::atomic<int> underWay_ = 0;
    std::atomic<int> most_ = 0;
};

/// The page of documents, with a reader that invents what it reads.
class DocumentsPage : public ::testing::Test {
  protected:
    FakeReader reader;
    OpenWindow program;

    void SetUp() override {
        reader.answers["Lohn"] = {.text = "Lohnausweis\nMüller & Söhne AG",
                                  .kind = Kind::lohnausweis,
                                  .issuer = "Müller & Söhne AG",
                                  .fields = {{.label = "Bruttolohn", .value = Decimal(68'000)}},
                                  .pageCount = 1};
        reader.answers["Spende"] = {.text = "Danke für Ihre Gabe",
                                    .kind = Kind::anderes,
                                    .proposedKind = Kind::spende,
                                    .kindIsCertain = true,
                                    .records = {{.title = "Spende", .year = 2026}},
                                    .pageCount = 1};
        reader.answers["Kaputt"] = {.problem = "Diese Datei ist mit einem Passwort geschützt."};
        program.scan = reader.scan();
        program.open();
        program.store->chooseInitialRegion(taxcore::TaxRegion::stGallen);
        program.store->setYear(2025);
        program.click(u"nav:documents"_s);
    }
    void TearDown() override { reader.letGo(); }

    fs::path file(const std::string& name, const std::string& content = {}) const {
        const fs::path path = program.root().parent_path() / "Eingang" / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path) << (content.empty() ? name : content);
        return path;
    }
    void drop(const std::vector<fs::path>& files) {
        QMimeData data;
        QList<QUrl> urls;
        for (const fs::path& one : files) {
            urls << QUrl::fromLocalFile(QString::fromStdString(one.string()));
        }
        data.setUrls(urls);
        QWidget& page = program.find(u"page:documents"_s);
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(&page, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&page, &event);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !program.desk->intake().isBusy(); }, 10'000));
    }
    void dropAndRead(const std::vector<fs::path>& files) {
        drop(files);
        waitForReading();
    }
    void waitForReading() {
        ASSERT_TRUE(QTest::qWaitFor([&] { return program.desk->readings().count() == 0; }, 10'000));
        program.settle();
    }
    const StoredDocument& stored(const std::string& title) const {
        const auto found =
            std::ranges::find(program.store->documents(), title, &StoredDocument::title);
        if (found == program.store->documents().end()) {
            throw std::runtime_error("no document is called " + title);
        }
        return *found;
    }
    pages::DocumentTable& table() const {
        return program.find<pages::DocumentTable>(u"documents"_s);
    }
    /// What stands in a column, line by line.
    QStringList column(pages::DocumentModel::Column column) const {
        QStringList texts;
        if (program.isShown(u"documents"_s)) {
            for (int line = 0; line < table().model()->rowCount(); ++line) {
                texts << table().model()->index(line, column).data().toString();
            }
        }
        return texts;
    }
    QStringList titles() const { return column(pages::DocumentModel::title); }
    void select(const QString& title) const {
        const int line = static_cast<int>(titles().indexOf(title));
        ASSERT_GE(line, 0) << title.toStdString();
        table().selectRow(line);
        table().setFocus();
    }
    QStyleOptionViewItem optionAt(const QModelIndex& index) const {
        QStyleOptionViewItem option;
        option.initFrom(&table());
        option.rect = table().visualRect(index);
        return option;
    }
    void choose(const QString& name, const QString& text) const {
        auto& box = program.find<QComboBox>(name);
        box.setCurrentIndex(box.findText(text));
        ASSERT_EQ(box.currentText(), text);
    }
    /// Where the link of a line is clicked.
    QPoint linkOf(int line) const {
        const QModelIndex index = table().model()->index(line, pages::DocumentModel::state);
        const auto& delegate = dynamic_cast<pages::DocumentDelegate&>(*table().itemDelegate());
        const QRect cross = delegate.cancelPlace(optionAt(index), index);
        return (cross.isEmpty() ? delegate.actionPlace(optionAt(index), index) : cross).center();
    }
};

} // namespace fiscarel::testing
