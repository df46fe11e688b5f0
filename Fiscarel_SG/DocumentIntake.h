#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/documents/Gathering.h"
#include "TaxCore/base/Uuid.h"
#endif

#include <QObject>
#include <QString>
#include <QThreadPool>
#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <stop_token>
#include <vector>

namespace fiscarel {

class AppStore;
class DocumentReadings;

/// Takes files and folders of the user among the documents of the selected year and lets them be
/// read; asks about those that are there already. On the main thread, lives as long as the program.
class DocumentIntake final : public QObject {
    Q_OBJECT

  public:
    /// Both must outlive it.
    DocumentIntake(AppStore& store, DocumentReadings& readings, QObject* parent = nullptr);
    /// Ends what is under way.
    ~DocumentIntake() override;
    DocumentIntake(const DocumentIntake&) = delete;
    DocumentIntake& operator=(const DocumentIntake&) = delete;
    DocumentIntake(DocumentIntake&&) = delete;
    DocumentIntake& operator=(DocumentIntake&&) = delete;

    /// Files and folders for the year that is selected now. With `instead` the first of them that
    /// comes in takes the place of that document; until then it stays.
    void take(std::vector<std::filesystem::path> picked,
              std::optional<taxcore::Uuid> instead = std::nullopt);

    bool isBusy() const noexcept { return isGathering_ || !coming_.empty() || isCopying_; }
    /// Of the files that are coming in, how many have come, and how many there are.
    std::size_t done() const noexcept { return done_; }
    std::size_t total() const noexcept { return total_; }
    /// What is to be said of what was picked, German, a sentence a line, until it was dismissed.
    const QString& message() const noexcept { return message_; }
    void dismissMessage();
    /// Files that are there already; they come in only when the user wants it.
    const std::vector<Twin>& twins() const noexcept { return twins_; }
    void keepTwins();
    void dropTwins();

  Q_SIGNALS:
    void changed();
    /// A document was removed because another file took its place; both by their titles.
    void replaced(const QString& former, const QString& now);

  private:
    using Paths = std::vector<std::filesystem::path>;
    /// What was picked at once.
    struct Picked {
        Paths files;
        int year = 0; ///< that it was picked for
        std::optional<taxcore::Uuid> instead;
    };
    struct Coming {
        std::filesystem::path file;
        int year = 0;
    };

    void gatherNext();
    void gathered(const Gathered& gathered, std::vector<Twin> twins, const Picked& picked);
    void addComing(const Paths& files, int year);
    void copyNext();
    void copied(const std::vector<taxcore::Uuid>& ids, std::optional<taxcore::Uuid> instead);
    void replace(const taxcore::Uuid& former, const taxcore::Uuid& now);

    AppStore& store_;
    DocumentReadings& readings_;
    std::vector<Picked> picked_; ///< while others are gathered
    std::vector<Coming> coming_;
    std::vector<Twin> twins_;
    /// Of the files that are coming or twins: the document whose place they take.
    std::map<std::filesystem::path, taxcore::Uuid> instead_;
    QString message_;
    std::size_t done_ = 0;
    std::size_t total_ = 0;
    bool isGathering_ = false;
    bool isCopying_ = false;
    std::stop_source end_;
    QThreadPool pool_;
};

} // namespace fiscarel
