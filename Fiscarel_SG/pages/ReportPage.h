#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/look/PageWidget.h"
#include "Fiscarel_SG/pages/PaperSheet.h"
#endif

#include <QThreadPool>
#include <atomic>
#include <functional>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QToolButton;
class QVBoxLayout;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

/// The report as it will be printed, page under page; every line of the return is a door to its
/// reason. The pages are set, written and printed off the main thread.
class ReportPage final : public look::PageWidget {
    Q_OBJECT

  public:
    ReportPage(AppStore& store, QWidget* parent);
    /// Waits for what is under way.
    ~ReportPage() override;
    ReportPage(const ReportPage&) = delete;
    ReportPage& operator=(const ReportPage&) = delete;
    ReportPage(ReportPage&&) = delete;
    ReportPage& operator=(ReportPage&&) = delete;

    void refresh() override {}
    void refreshResult() override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QHBoxLayout* makeActions();
    QHBoxLayout* makeNavigation();
    void makeSheets();
    void show(PaperSheet::Document document);
    void showProblem(const QString& sentence);
    void applyZoom();
    void zoomBy(int steps);
    void goTo(const paper::PaperPlace& place);
    void goToPage(int page);
    int currentPage() const;
    void showCurrentPage();
    void save();
    void print();
    /// Runs work that answers with a sentence when it fails, and tells how it went.
    void run(const QString& meanwhile, const QString& done,
             std::function<std::optional<std::string>()> work);

    AppStore& store_;
    QScrollArea* scroll_;
    QVBoxLayout* column_ = nullptr; ///< of the sheets
    QLabel* message_;
    QPushButton* save_ = nullptr;
    QPushButton* print_ = nullptr;
    QComboBox* chapters_ = nullptr;
    QLabel* pageNumber_ = nullptr;
    QLabel* zoomShown_ = nullptr;
    std::vector<PaperSheet*> sheets_;
    PaperSheet::Document document_;
    std::string suggestedName_;
    int zoom_ = 0;            ///< percent; 0: as wide as there is room
    double scale_ = 1;        ///< pixels for a point
    std::atomic<int> wanted_; ///< the number of the newest setting that was asked for
    QThreadPool pool_;
};

} // namespace fiscarel::pages
