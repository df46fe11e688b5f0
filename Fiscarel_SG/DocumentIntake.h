#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/documents/Gathering.h"
#endif

#include <QObject>
#include <QString>
#include <QThreadPool>
#include <cstddef>
#include <filesystem>
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

    void take(std::vector<std::filesystem::path> picked);

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

  private:
    void gathered(const Gathered& gathered, std::vector<Twin> twins);
    void addComing(const std::vector<std::filesystem::path>& files);
    void copyNext();

    AppStore& store_;
    DocumentReadings& readings_;
    std::vector<std::filesystem::path> picked_; ///< while others are gathered
    std::vector<std::filesystem::path> coming_;
    std::vector<Twin> twins_;
    QString message_;
    std::size_t done_ = 0;
    std::size_t total_ = 0;
    bool isGathering_ = false;
    bool isCopying_ = false;
    std::stop_source end_;
    QThreadPool pool_;
};

} // namespace fiscarel
