#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/documents/PagePreviewSheet.h"
#endif

#include <QWidget>
#include <filesystem>
#include <optional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QScrollArea;
class QVBoxLayout;

namespace fiscarel::pages {

class PageImages;

/// The pages of a document one below the other, with the recognised values marked. Pages are asked
/// for when they come into sight.
class PagePreview final : public QWidget {
    Q_OBJECT

  public:
    /// `images` must outlive it.
    PagePreview(PageImages& images, QWidget* parent);

    /// Shows the pages of a file.
    void showFile(std::filesystem::path file, int pages);
    /// Says in one sentence why there are no pages to show.
    void showProblem(const QString& sentence);
    void setMarks(const std::vector<PreviewMark>& marks);
    /// Lets a mark stand out and brings it into sight; an id without a mark only takes the
    /// emphasis away. `toRead`: a page too small to be read is enlarged for it, unless the user
    /// has chosen a size.
    void emphasise(int id, bool toRead = false);
    /// Brings a place into sight and lets it stand out; without a box the beginning of the page.
    void showPlace(int page, const std::optional<PageBox>& box);

    int currentPage() const;
    void goToPage(int page);
    /// Steps of enlargement up or down.
    void zoomBy(int steps);
    void zoomToFit();

  Q_SIGNALS:
    void markClicked(int id);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QHBoxLayout* makeTools();
    /// Gives the sheets their sizes; what is in the middle stays there.
    void arrange();
    int sheetWidth() const;
    int percentShown() const;
    /// Asks for the pictures of what is in sight or nearly.
    void askForPictures();
    void ask(PagePreviewSheet& sheet, int width);
    void showPosition();
    PagePreviewSheet* sheet(int page) const;
    /// Where a page begins in the column, also while the layout has not followed yet.
    int topOf(int page) const;
    void bringIntoSight(PagePreviewSheet& sheet, const PageBox& box);
    /// The sheets' places follow their sizes.
    void settle();

    PageImages& images_;
    QScrollArea* scroll_;
    QVBoxLayout* column_ = nullptr;
    QLabel* pageNumber_;
    QLabel* zoomShown_;
    QLabel* problem_;
    QWidget* tools_;
    std::filesystem::path file_;
    std::vector<PagePreviewSheet*> sheets_;
    std::vector<PreviewMark> marks_;
    int zoom_ = 0;              ///< percent; 0: as wide as there is room
    bool isEnlarged_ = false;   ///< at least as large as can be read
    bool isSizeChosen_ = false; ///< by the user
};

} // namespace fiscarel::pages
