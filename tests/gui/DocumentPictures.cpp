// Takes pictures of the page of documents and of the sheet of each one, in light and dark, with the
// files of the command line, read by the reading process:
//   document-pictures FOLDER WIDTH HEIGHT FILE…
// Every file comes in under a short and a very long name as well, and one nobody can read.

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/SwissGerman.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"
#include "Fiscarel_SG/shell/MainWindow.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "Fiscarel_SG/store/QtServices.h"
#include "tests/support/FakeServices.h"
#include "tests/support/TemporaryFolder.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <fstream>

using namespace Qt::Literals::StringLiterals;
using namespace fiscarel;
namespace fs = std::filesystem;

namespace {

class Pictures {
  public:
    explicit Pictures(const QStringList& arguments)
        : folder_(arguments.value(1)),
          size_(arguments.value(2).toInt(), arguments.value(3).toInt()),
          persistence_(files_, clock_, data_.path() / "Brennick") {
        settings_.setNumber("selectedYear", 2025);
        settings_.setText("defaultRegion", "sg");
        store_ = std::make_unique<AppStore>(
            AppStore::Services{&persistence_, queue_, clock_, timers_, settings_},
            LaunchArguments{});
        desk_ = std::make_unique<pages::DocumentDesk>(*store_, files_, data_.path() / "gelesen");
        for (const QString& file : arguments.mid(4)) {
            picked_.emplace_back(file.toStdString());
        }
    }

    void take() {
        addLastYear();
        desk_->intake().take({copyOf("Kaputt.pdf"), copyOf("Brief.docx")});
        addAll("Beleg ");
        addAll("Steuerbescheinigung der Gemeinnützigen Genossenschaft Oberwerdenberg-Sargans ");
        for (const auto appearance : {look::Appearance::light, look::Appearance::dark}) {
            appearance_ = appearance == look::Appearance::light ? u"light"_s : u"dark"_s;
            settings_.setNumber("appearance", static_cast<int>(appearance));
            settings_.setText("lastPage", "documents");
            shell::MainWindow window(*store_, settings_, *desk_);
            window.resize(size_);
            window.show();
            QTest::qWait(appearance == look::Appearance::light ? 1'500 : 500);
            shoot(window, u"reading"_s);
            (void)QTest::qWaitFor([&] { return desk_->readings().count() == 0; }, 240'000);
            markOne();
            QTest::qWait(1'500);
            shootPage(window);
            shootSheets(window);
        }
    }

  private:
    fs::path copyOf(const std::string& name) {
        const fs::path path = data_.path() / name;
        std::ofstream(path) << name;
        return path;
    }
    void addLastYear() {
        store_->importDocuments({copyOf("Bank.pdf"), copyOf("Lohn.pdf")}, [this](const auto& ids) {
            int at = 0;
            for (const auto& id : ids) {
                store_->updateDocument(id, [&](StoredDocument& document) {
                    document.year = 2024;
                    document.kind = at++ == 0 ? StoredDocument::Kind::bankauszug
                                              : StoredDocument::Kind::lohnausweis;
                    document.issuer = "Genossenschaftsbank Oberwerdenberg";
                });
            }
        });
    }
    void addAll(const std::string& name) {
        std::vector<fs::path> some;
        int number = 0;
        for (const fs::path& file : picked_) {
            const fs::path copy =
                data_.path() / (name + std::to_string(++number) + file.extension().string());
            fs::copy_file(file, copy, fs::copy_options::overwrite_existing);
            some.push_back(copy);
        }
        desk_->intake().take(some);
        (void)QTest::qWaitFor([&] { return !desk_->intake().isBusy(); });
    }
    void markOne() {
        if (!store_->documents().empty()) {
            store_->updateDocument(Uuid(store_->documents().back().id),
                                   [](StoredDocument& document) { document.isApplied = true; });
        }
    }
    void shoot(QWidget& widget, const QString& name) const {
        QApplication::processEvents();
        widget.grab().save(u"%1/documents-%2-%3.png"_s.arg(folder_, name, appearance_));
    }
    void shootPage(shell::MainWindow& window) const {
        auto* const page = window.findChild<QWidget*>(u"page:documents"_s);
        QScrollBar& bar = *page->findChild<QScrollArea*>()->verticalScrollBar();
        page->findChild<QTableView*>(u"documents"_s)->selectRow(1);
        QTest::qWait(300);
        for (int part = 1; part < 5; ++part) {
            shoot(window, QString::number(part));
            if (bar.value() == bar.maximum()) {
                break;
            }
            bar.setValue(bar.value() + bar.pageStep() - 60);
        }
    }

    /// The sheet of each document that was picked.
    void shootSheets(shell::MainWindow& window) {
        auto* const table =
            window.findChild<QWidget*>(u"page:documents"_s)->findChild<QTableView*>(u"documents"_s);
        for (int row = 0; row < table->model()->rowCount(); ++row) {
            table->selectRow(row);
            table->setFocus();
            QTest::keyClick(table, Qt::Key_Return);
            QTest::qWait(2'500);
            for (QDialog* const sheet : window.findChildren<QDialog*>()) {
                if (sheet->isVisible()) {
                    shoot(*sheet, u"sheet"_s + QString::number(row));
                    sheet->reject();
                }
            }
            QTest::qWait(200);
        }
    }

    QString folder_;
    QSize size_;
    QString appearance_;
    std::vector<fs::path> picked_;
    fiscarel::testing::TemporaryFolder data_;
    PosixFiles files_;
    fiscarel::testing::FakeClock clock_;
    QtTimers timers_;
    fiscarel::testing::InlineQueue queue_;
    fiscarel::testing::MemorySettings settings_;
    Persistence persistence_;
    std::unique_ptr<AppStore> store_;
    std::unique_ptr<pages::DocumentDesk> desk_;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    look::speakSwissGerman(application);
    const QStringList arguments = QApplication::arguments();
    QDir().mkpath(arguments.value(1));
    Pictures(arguments).take();
    return 0;
}
