#include "Fiscarel_SG/pages/ReportPage.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/FileDialogs.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/outputs/ReportContent.h"
#include "Fiscarel_SG/pages/PaperPrinting.h"
#include "Fiscarel_SG/paper/ReportPdf.h"
#include "Fiscarel_SG/store/PosixFiles.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

namespace {

constexpr double pixelsPerPoint = 96.0 / 72; ///< at 100 %
constexpr std::array zoomSteps{50, 67, 80, 100, 125, 150, 200, 300};
constexpr int sheetGap = 16;
constexpr int edge = 24;
constexpr int buttonEdges = 34;    ///< of a button beside its text, both sides
constexpr int widestFitting = 980; ///< pixels of a page that is as wide as there is room

/// All that a report is made of, copied, so that another thread can make it.
struct ReportJob {
    TaxCase taxCase;
    TaxResult result;
    CaseCalculator calculator;
    std::vector<Notice> notices;
    std::vector<std::string> notComputed;
    std::vector<StoredDocument> documents;

    PaperSheet::Document make() const {
        return std::make_shared<const paper::PaperDocument>(
            paper::setOnPaper(outputs::reportContent({.taxCase = taxCase,
                                                      .result = result,
                                                      .calculator = calculator,
                                                      .notices = notices,
                                                      .notComputed = notComputed,
                                                      .documents = documents,
                                                      .madeOn = SystemClock().local().date})));
    }
};

QToolButton* addTool(QHBoxLayout& line, const QString& text, const QString& name,
                     const char* objectName) {
    auto* const tool = new QToolButton;
    tool->setText(text);
    tool->setToolTip(name);
    tool->setAccessibleName(name);
    tool->setObjectName(QString::fromLatin1(objectName));
    line.addWidget(tool);
    return tool;
}

} // namespace

ReportPage::ReportPage(AppStore& store, QWidget* parent)
    : PageWidget(parent), store_(store), scroll_(new QScrollArea(this)), message_(new QLabel(this)),
      wanted_(0) {
    pool_.setMaxThreadCount(1);
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    auto* const top = new QVBoxLayout;
    top->setContentsMargins(edge, 20, edge, 10);
    top->setSpacing(6);
    auto* const title = new QLabel(u"Bericht"_s, this);
    look::setRole(title, "title");
    auto* const titleLine = new QHBoxLayout;
    titleLine->addWidget(title);
    titleLine->addStretch(1);
    titleLine->addLayout(makeNavigation());
    top->addLayout(titleLine);
    auto* const help = new QLabel(u"Wie er gedruckt wird. Ein Klick auf eine Zeile zeigt, woher "
                                  "der Betrag kommt."_s,
                                  this);
    help->setWordWrap(true);
    look::setRole(help, "faint");
    top->addWidget(help);
    top->addSpacing(4);
    top->addLayout(makeActions());
    message_->setWordWrap(true);
    message_->setObjectName(u"reportMessage"_s);
    message_->hide();
    top->addWidget(message_);
    outer->addLayout(top);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidgetResizable(true);
    scroll_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    outer->addWidget(scroll_, 1);
    connect(scroll_->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &ReportPage::showCurrentPage);
    refreshResult();
}

ReportPage::~ReportPage() {
    ++wanted_;
    pool_.waitForDone();
}

QHBoxLayout* ReportPage::makeActions() {
    auto* const line = new QHBoxLayout;
    save_ = new QPushButton(u"Als PDF speichern …"_s, this);
    save_->setObjectName(u"saveReport"_s);
    look::setRole(save_, "primary");
    QFont strong = save_->font(); // its letters are wider than those it was measured with
    strong.setWeight(QFont::DemiBold);
    save_->setMinimumWidth(QFontMetrics(strong).horizontalAdvance(save_->text()) + buttonEdges);
    print_ = new QPushButton(u"Drucken …"_s, this);
    print_->setObjectName(u"printReport"_s);
    line->addWidget(save_);
    line->addWidget(print_);
    line->addStretch(1);
    connect(save_, &QPushButton::clicked, this, &ReportPage::save);
    connect(print_, &QPushButton::clicked, this, &ReportPage::print);
    return line;
}

QHBoxLayout* ReportPage::makeNavigation() {
    auto* const line = new QHBoxLayout;
    line->setSpacing(6);
    chapters_ = new QComboBox(this);
    chapters_->setObjectName(u"reportChapters"_s);
    chapters_->setAccessibleName(u"Kapitel"_s);
    chapters_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    chapters_->setMinimumContentsLength(14);
    pageNumber_ = new QLabel(this);
    pageNumber_->setObjectName(u"reportPageNumber"_s);
    zoomShown_ = new QLabel(this);
    line->addWidget(chapters_);
    const auto tool = [&](const QString& text, const QString& name, const char* objectName,
                          const auto& action) {
        connect(addTool(*line, text, name, objectName), &QToolButton::clicked, this, action);
    };
    tool(u"‹"_s, u"Vorherige Seite"_s, "previousPage", [this] { goToPage(currentPage() - 1); });
    line->addWidget(pageNumber_);
    tool(u"›"_s, u"Nächste Seite"_s, "nextPage", [this] { goToPage(currentPage() + 1); });
    tool(u"−"_s, u"Kleiner"_s, "zoomOut", [this] { zoomBy(-1); });
    line->addWidget(zoomShown_);
    tool(u"+"_s, u"Grösser"_s, "zoomIn", [this] { zoomBy(1); });
    tool(u"↔"_s, u"Seitenbreite"_s, "zoomFit", [this] {
        zoom_ = 0;
        applyZoom();
    });
    connect(chapters_, &QComboBox::activated, this, [this](int index) {
        const auto at = static_cast<std::size_t>(chapters_->itemData(index).toInt());
        if (document_ && at < document_->outline.size()) {
            goTo(document_->outline[at].place);
        }
    });
    return line;
}

void ReportPage::refreshResult() {
    const int number = ++wanted_;
    const auto* const result = store_.result();
    const CaseCalculator* const calculator = store_.calculator();
    save_->setEnabled(false);
    print_->setEnabled(false);
    if (result == nullptr || calculator == nullptr) {
        document_.reset();
        makeSheets();
        showProblem(u"Ohne Regeln für dieses Jahr gibt es keinen Bericht."_s);
        return;
    }
    suggestedName_ = outputs::pdfFileName("Steuerbericht", store_.current());
    auto job = std::make_shared<const ReportJob>(
        ReportJob{store_.current(), *result, *calculator, store_.review().notices,
                  store_.review().notComputed, store_.documents()});
    pool_.start([this, number, job] {
        if (number != wanted_) {
            return; // a newer one waits
        }
        QMetaObject::invokeMethod(this, [this, number, document = job->make()] {
            if (number == wanted_) {
                show(document);
            }
        });
    });
}

void ReportPage::show(PaperSheet::Document document) {
    const int position = scroll_->verticalScrollBar()->value();
    document_ = std::move(document);
    message_->hide();
    save_->setEnabled(true);
    print_->setEnabled(true);
    chapters_->clear();
    for (std::size_t i = 0; i < document_->outline.size(); ++i) {
        if (const auto& entry = document_->outline[i]; entry.level == 1) {
            chapters_->addItem(entry.title, static_cast<int>(i));
        }
    }
    makeSheets();
    scroll_->verticalScrollBar()->setValue(position);
    showCurrentPage();
}

void ReportPage::showProblem(const QString& sentence) {
    message_->setText(sentence);
    look::setRole(message_, "error");
    message_->show();
}

void ReportPage::makeSheets() {
    sheets_.clear();
    auto* const content = new QWidget(scroll_);
    column_ = new QVBoxLayout(content);
    column_->setContentsMargins(edge, 6, edge, edge);
    column_->setSpacing(sheetGap);
    for (std::size_t i = 0; document_ && i < document_->pages.size(); ++i) {
        auto* const sheet = new PaperSheet(document_, i, content);
        column_->addWidget(sheet, 0, Qt::AlignHCenter);
        connect(sheet, &PaperSheet::lineClicked, this, &ReportPage::reasonWanted);
        connect(sheet, &PaperSheet::linkClicked, this, [this](const QString& anchor) {
            goTo(document_->places.at(anchor.toStdString()));
        });
        sheets_.push_back(sheet);
    }
    column_->addStretch(1);
    applyZoom();
    if (QWidget* const old = scroll_->takeWidget()) {
        old->hide();
        old->deleteLater(); // a click within it may have led here
    }
    scroll_->setWidget(content);
    content->adjustSize();
}

void ReportPage::applyZoom() {
    const double room = std::min(scroll_->viewport()->width() - 2 * edge, widestFitting);
    const double fitting = std::max(room / paper::pageWidth, 0.3);
    scale_ = zoom_ > 0 ? zoom_ * pixelsPerPoint / 100 : fitting;
    for (PaperSheet* const sheet : sheets_) {
        sheet->setScale(scale_);
    }
    zoomShown_->setText(u"%1 %"_s.arg(qRound(scale_ / pixelsPerPoint * 100)));
}

void ReportPage::zoomBy(int steps) {
    const int now = qRound(scale_ / pixelsPerPoint * 100);
    const int page = currentPage();
    if (steps > 0) {
        const auto* const next = std::ranges::upper_bound(zoomSteps, now);
        zoom_ = next == zoomSteps.end() ? zoomSteps.back() : *next;
    } else {
        const auto* const next = std::ranges::lower_bound(zoomSteps, now);
        zoom_ = next == zoomSteps.begin() ? zoomSteps.front() : *(next - 1);
    }
    applyZoom();
    goToPage(page);
}

void ReportPage::resizeEvent(QResizeEvent* event) {
    PageWidget::resizeEvent(event);
    if (zoom_ == 0) {
        applyZoom();
    }
}

void ReportPage::goTo(const paper::PaperPlace& place) {
    if (place.page < 0 || place.page >= static_cast<int>(sheets_.size())) {
        return;
    }
    column_->activate();
    constexpr double above = 30; // points shown above the place
    const QWidget& sheet = *sheets_[static_cast<std::size_t>(place.page)];
    scroll_->verticalScrollBar()->setValue(
        sheet.y() + qRound(std::max(0.0, place.y - above) * scale_) - sheetGap / 2);
}

void ReportPage::goToPage(int page) { goTo({page, 0}); }

int ReportPage::currentPage() const {
    const int middle = scroll_->verticalScrollBar()->value() + scroll_->viewport()->height() / 2;
    const auto after =
        std::ranges::find_if(sheets_, [&](const PaperSheet* sheet) { return sheet->y() > middle; });
    return std::max(0, static_cast<int>(after - sheets_.begin()) - 1);
}

void ReportPage::showCurrentPage() {
    const int page = currentPage();
    pageNumber_->setText(sheets_.empty() ? QString()
                                         : u"Seite %1 von %2"_s.arg(page + 1).arg(sheets_.size()));
    for (int i = chapters_->count() - 1; i >= 0 && document_; --i) {
        const auto at = static_cast<std::size_t>(chapters_->itemData(i).toInt());
        if (document_->outline[at].place.page <= page) {
            chapters_->setCurrentIndex(i);
            break;
        }
    }
}

void ReportPage::save() {
    const QString file = look::askWhereToSave(this, u"Bericht als PDF speichern"_s,
                                              qs(suggestedName_), {u"PDF"_s, u"pdf"_s});
    if (file.isEmpty() || !document_) {
        return;
    }
    run(u"Das PDF wird geschrieben …"_s, u"Gespeichert: %1"_s.arg(file),
        [document = document_, file = utf8(file)]() -> std::optional<std::string> {
            const auto pdf = paper::reportPdf(*document);
            if (!pdf) {
                return pdf.error();
            }
            const auto written = PosixFiles().write(file, *pdf);
            return written ? std::nullopt
                           : std::optional("Der Bericht ist nicht gespeichert: "
                                           + written.error().description());
        });
}

void ReportPage::print() {
    if (!document_) {
        return;
    }
    const auto printer = printerFor(*document_);
    QPrintDialog dialog(printer.get(), this);
    dialog.setWindowTitle(u"Bericht drucken"_s);
    dialog.setMinMax(1, static_cast<int>(document_->pages.size()));
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    run(u"Der Bericht wird gedruckt …"_s, u"Der Bericht ist beim Drucker."_s,
        [document = document_, printer] { return printPages(*document, *printer); });
}

void ReportPage::run(const QString& meanwhile, const QString& done,
                     std::function<std::optional<std::string>()> work) {
    message_->setText(meanwhile);
    look::setRole(message_, "faint");
    message_->show();
    pool_.start([this, done, work = std::move(work)] {
        QMetaObject::invokeMethod(this, [this, done, problem = work()] {
            if (problem) {
                showProblem(qs(*problem));
            } else {
                message_->setText(done);
                look::setRole(message_, "good");
                message_->show();
            }
        });
    });
}

} // namespace fiscarel::pages
