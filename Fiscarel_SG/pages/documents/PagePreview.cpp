#include "Fiscarel_SG/pages/documents/PagePreview.h"

#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/documents/PageImages.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::array zoomSteps{50, 67, 80, 100, 125, 150, 200, 300};
constexpr int widthAtFull = 794; ///< pixels of an A4 page at 100 %
constexpr int hardToRead = 55;   ///< percent; smaller, print cannot be read
constexpr int easyToRead = 80;
constexpr int edge = 12;
constexpr int gap = 12;
constexpr int leastWidth = 160;
/// Widths that pictures are asked for in, so that not every size is drawn anew.
constexpr std::array pictureWidths{700, 1000, 1400, 2000, 2800};
constexpr double aboveMark = 0.3; ///< where a mark comes to stand, of the height

} // namespace

PagePreview::PagePreview(PageImages& images, QWidget* parent)
    : QWidget(parent), images_(images), scroll_(new QScrollArea(this)),
      pageNumber_(new QLabel(this)), zoomShown_(new QLabel(this)), problem_(new QLabel(this)),
      tools_(new QWidget(this)) {
    setObjectName(u"preview"_s);
    pageNumber_->setObjectName(u"previewPage"_s);
    zoomShown_->setObjectName(u"previewZoom"_s);
    look::setRole(pageNumber_, "faint");
    look::setRole(zoomShown_, "faint");
    problem_->setObjectName(u"previewProblem"_s);
    problem_->setWordWrap(true);
    problem_->setAlignment(Qt::AlignCenter);
    problem_->setMargin(edge);
    look::setRole(problem_, "faint");
    problem_->hide();
    tools_->setLayout(makeTools());
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setWidgetResizable(true);
    scroll_->setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(scroll_);
    scroll_->setAccessibleName(u"Seiten des Belegs"_s);
    scroll_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    scroll_->viewport()->installEventFilter(this);
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(4);
    outer->addWidget(tools_);
    outer->addWidget(problem_, 1);
    outer->addWidget(scroll_, 1);
    connect(scroll_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        showPosition();
        askForPictures();
    });
}

QHBoxLayout* PagePreview::makeTools() {
    auto* const line = new QHBoxLayout;
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(4);
    const auto tool = [&](const QString& text, const QString& name, const char* objectName,
                          const auto& action) {
        auto* const button = new QToolButton(tools_);
        button->setText(text);
        button->setToolTip(name);
        button->setAccessibleName(name);
        button->setObjectName(QString::fromLatin1(objectName));
        button->setFocusPolicy(Qt::TabFocus);
        connect(button, &QToolButton::clicked, this, action);
        line->addWidget(button);
    };
    tool(u"‹"_s, u"Vorherige Seite (Ctrl+Bild auf)"_s, "previewPrevious",
         [this] { goToPage(currentPage() - 1); });
    line->addWidget(pageNumber_);
    tool(u"›"_s, u"Nächste Seite (Ctrl+Bild ab)"_s, "previewNext",
         [this] { goToPage(currentPage() + 1); });
    line->addStretch(1);
    tool(u"−"_s, u"Kleiner (Ctrl+−)"_s, "previewSmaller", [this] { zoomBy(-1); });
    line->addWidget(zoomShown_);
    tool(u"+"_s, u"Grösser (Ctrl++)"_s, "previewLarger", [this] { zoomBy(1); });
    tool(u"↔"_s, u"Seitenbreite (Ctrl+0)"_s, "previewFit", [this] { zoomToFit(); });
    return line;
}

void PagePreview::showFile(std::filesystem::path file, int pages) {
    file_ = std::move(file);
    problem_->hide();
    auto* const content = new QWidget;
    column_ = new QVBoxLayout(content);
    column_->setContentsMargins(edge, edge, edge, edge);
    column_->setSpacing(gap);
    sheets_.clear();
    for (int page = 1; page <= pages; ++page) {
        auto* const made = new PagePreviewSheet(page, content);
        connect(made, &PagePreviewSheet::markClicked, this, &PagePreview::markClicked);
        connect(made, &PagePreviewSheet::shapeFound, this, [this, made] {
            for (PagePreviewSheet* const other : sheets_) {
                other->setShape(made->shape()); // most likely, until their own pictures are there
            }
            arrange();
        });
        column_->addWidget(made, 0, Qt::AlignHCenter);
        sheets_.push_back(made);
    }
    column_->addStretch(1);
    scroll_->setWidget(content);
    scroll_->show();
    tools_->show();
    setMarks(marks_);
    arrange();
    showPosition();
}

void PagePreview::showProblem(const QString& sentence) {
    sheets_.clear();
    delete scroll_->takeWidget();
    column_ = nullptr;
    scroll_->hide();
    tools_->hide();
    problem_->setText(sentence);
    problem_->show();
}

void PagePreview::setMarks(const std::vector<PreviewMark>& marks) {
    marks_ = marks;
    for (PagePreviewSheet* const sheet : sheets_) {
        std::vector<PreviewMark> own;
        std::ranges::copy_if(marks, std::back_inserter(own),
                             [&](const PreviewMark& mark) { return mark.page == sheet->page(); });
        sheet->setMarks(std::move(own));
    }
}

void PagePreview::emphasise(int id, bool toRead) {
    const auto mark = std::ranges::find(marks_, id, &PreviewMark::id);
    for (PagePreviewSheet* const sheet : sheets_) {
        sheet->emphasise(id);
        sheet->setPlace(std::nullopt);
    }
    if (mark != marks_.end()) {
        if (PagePreviewSheet* const found = sheet(mark->page)) {
            if (toRead && !isSizeChosen_ && percentShown() < hardToRead) {
                isEnlarged_ = true;
                arrange();
            }
            bringIntoSight(*found, mark->box);
        }
    }
}

void PagePreview::showPlace(int page, const std::optional<PageBox>& box) {
    emphasise(-1);
    PagePreviewSheet* const found = sheet(page);
    if (found == nullptr) {
        return;
    }
    if (box) {
        found->setPlace(box);
        bringIntoSight(*found, *box);
    } else {
        goToPage(page);
    }
}

PagePreviewSheet* PagePreview::sheet(int page) const {
    const auto found = std::ranges::find(sheets_, page, &PagePreviewSheet::page);
    return found != sheets_.end() ? *found : nullptr;
}

void PagePreview::settle() {
    if (column_ != nullptr) {
        column_->activate();
        scroll_->widget()->adjustSize();
    }
}

/// Moves only when it is not well in sight already, so that the page does not jump.
void PagePreview::bringIntoSight(PagePreviewSheet& sheet, const PageBox& box) {
    settle();
    const QRect place = sheet.placeOf(box).translated(sheet.x(), topOf(sheet.page()));
    QScrollBar& across = *scroll_->horizontalScrollBar();
    QScrollBar& down = *scroll_->verticalScrollBar();
    const QRect seen(QPoint(across.value(), down.value()), scroll_->viewport()->size());
    if (place.top() < seen.top() + gap || place.bottom() > seen.bottom() - gap) {
        down.setValue(place.top() - static_cast<int>(aboveMark * seen.height()));
    }
    if (place.left() < seen.left() || place.right() > seen.right()) {
        across.setValue(place.center().x() - seen.width() / 2);
    }
}

int PagePreview::topOf(int page) const {
    int top = edge;
    for (const PagePreviewSheet* const sheet : sheets_) {
        if (sheet->page() == page) {
            break;
        }
        top += sheet->height() + gap;
    }
    return top;
}

int PagePreview::currentPage() const {
    const int middle = scroll_->verticalScrollBar()->value() + scroll_->viewport()->height() / 2;
    int page = 1;
    for (const PagePreviewSheet* const sheet : sheets_) {
        if (topOf(sheet->page()) <= middle) {
            page = sheet->page();
        }
    }
    return page;
}

void PagePreview::goToPage(int page) {
    if (sheets_.empty()) {
        return;
    }
    settle();
    const int last = static_cast<int>(sheets_.size());
    scroll_->verticalScrollBar()->setValue(topOf(std::clamp(page, 1, last)) - edge);
}

void PagePreview::zoomBy(int steps) {
    const int now = percentShown();
    isSizeChosen_ = true;
    const auto next = steps > 0 ? std::ranges::upper_bound(zoomSteps, now)
                                : std::ranges::lower_bound(zoomSteps, now);
    if (steps > 0) {
        zoom_ = next != zoomSteps.end() ? *next : zoomSteps.back();
    } else {
        zoom_ = next != zoomSteps.begin() ? *std::prev(next) : zoomSteps.front();
    }
    arrange();
}

void PagePreview::zoomToFit() {
    zoom_ = 0;
    isEnlarged_ = false;
    isSizeChosen_ = true;
    arrange();
}

int PagePreview::sheetWidth() const {
    if (zoom_ > 0) {
        return widthAtFull * zoom_ / 100;
    }
    const int least = isEnlarged_ ? widthAtFull * easyToRead / 100 : leastWidth;
    return std::max(least, scroll_->viewport()->width() - 2 * edge);
}

int PagePreview::percentShown() const {
    return (100 * sheetWidth() + widthAtFull / 2) / widthAtFull;
}

void PagePreview::arrange() {
    if (column_ == nullptr) {
        return;
    }
    QScrollBar& bar = *scroll_->verticalScrollBar();
    const int page = currentPage();
    const PagePreviewSheet* const current = sheet(page);
    const double part = current != nullptr && current->height() > 0
                            ? static_cast<double>(bar.value() - topOf(page)) / current->height()
                            : 0;
    for (PagePreviewSheet* const sheet : sheets_) {
        sheet->setSheetWidth(sheetWidth());
    }
    settle();
    if (current != nullptr && bar.value() > 0) {
        bar.setValue(topOf(page) + static_cast<int>(part * current->height()));
    }
    zoomShown_->setText(u"%1 %"_s.arg(percentShown()));
    showPosition();
    askForPictures();
}

void PagePreview::showPosition() {
    pageNumber_->setText(u"Seite %1 von %2"_s.arg(currentPage()).arg(sheets_.size()));
}

void PagePreview::askForPictures() {
    const int height = scroll_->viewport()->height();
    const int top = scroll_->verticalScrollBar()->value() - height;
    const int bottom = top + 3 * height;
    const int needed = static_cast<int>(sheetWidth() * devicePixelRatioF());
    const auto found = std::ranges::lower_bound(pictureWidths, needed);
    const int width = found != pictureWidths.end() ? *found : pictureWidths.back();
    for (PagePreviewSheet* const sheet : sheets_) {
        const int from = topOf(sheet->page());
        const bool isNear = from < bottom && from + sheet->height() > top;
        if (isNear && isVisible() && sheet->asked() < width) {
            ask(*sheet, width);
        }
    }
}

void PagePreview::ask(PagePreviewSheet& sheet, int width) {
    sheet.setAsked(width);
    images_.request(file_, sheet.page(), width,
                    [asker = QPointer<PagePreviewSheet>(&sheet)](const QImage& image) {
                        if (asker) {
                            asker->setImage(image);
                        }
                    });
}

bool PagePreview::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
        arrange();
    } else if (event->type() == QEvent::Wheel) {
        const auto* const wheel = static_cast<QWheelEvent*>(event);
        if (wheel->modifiers().testFlag(Qt::ControlModifier)) {
            zoomBy(wheel->angleDelta().y() > 0 ? 1 : -1);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace fiscarel::pages
