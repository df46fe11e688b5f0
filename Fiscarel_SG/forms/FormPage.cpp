#include "Fiscarel_SG/forms/FormPage.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/forms/TableView.h"
#include "Fiscarel_SG/look/ElidingButton.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

FormPage::FormPage(Page page, AppStore& store, const PageContext& context, QWidget* parent)
    : PageWidget(parent), page_(std::move(page)), store_(store),
      frame_(new look::PageFrame(qs(page_.title), labelText(page_.help), this)),
      jumps_(new QWidget(frame_)) {
    const EditorContext editors{context, [&store]() -> const TaxCase& { return store.current(); },
                                page_.id};
    auto* const jumps = new QHBoxLayout(jumps_);
    jumps->setContentsMargins(0, 0, 0, 0);
    jumps->setSpacing(18);
    frame_->column().addWidget(jumps_);
    for (const Section& section : page_.sections) {
        addSection(section, editors, *jumps);
    }
    jumps->addStretch(1);
    addNext();
    frame_->column().addStretch(1);
    followKeyboardAndFields();
    refresh();
    refreshResult();
}

void FormPage::addSection(const Section& section, const EditorContext& context,
                          QHBoxLayout& jumps) {
    SectionView view;
    view.widget = new QWidget(frame_);
    auto* const column = new QVBoxLayout(view.widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(look::PageFrame::cardSpacing);
    view.title = new QLabel(view.widget);
    view.title->setWordWrap(true); // names may be long
    look::setRole(view.title, "section");
    view.title->setVisible(section.title != nullptr);
    column->addWidget(view.title);
    for (const Card& card : section.cards) {
        view.cards.push_back(makeCard(card, store_, context, view.widget));
        column->addWidget(view.cards.back());
        connect(view.cards.back(), &CardView::partOpened, frame_, &look::PageFrame::showWhole);
        connect(view.cards.back(), &CardView::recordRemoved, this, &PageWidget::undoOffered);
        frame_->widen(view.cards.back()->wishedWidth());
    }
    if (section.title) {
        view.jump = new look::ElidingButton(jumps_);
        view.jump->setObjectName(u"jump:%1"_s.arg(sections_.size()));
        look::setRole(view.jump, "link");
        connect(view.jump, &QPushButton::clicked, this,
                [this, widget = view.widget] { frame_->showTop(widget); });
        jumps.addWidget(view.jump);
    }
    frame_->column().addWidget(view.widget);
    sections_.push_back(std::move(view));
}

void FormPage::addNext() {
    if (page_.nextId.empty()) {
        return;
    }
    auto* const next = new QPushButton(u"Weiter zu «%1»"_s.arg(qs(page_.nextTitle)), frame_);
    next->setObjectName(u"next"_s);
    look::setRole(next, "link");
    frame_->column().addWidget(next, 0, Qt::AlignRight);
    connect(next, &QPushButton::clicked, this, [this] { Q_EMIT pageWanted(qs(page_.nextId)); });
}

void FormPage::followKeyboardAndFields() {
    auto* const help = new QShortcut(QKeySequence(Qt::Key_F1), this);
    help->setContext(Qt::WidgetWithChildrenShortcut);
    connect(help, &QShortcut::activated, this, [] {
        for (QWidget* at = QApplication::focusWidget(); at != nullptr; at = at->parentWidget()) {
            if (auto* const row = qobject_cast<FieldRow*>(at)) {
                row->toggleHelp();
                return;
            }
            if (auto* const table = qobject_cast<TableView*>(at)) {
                table->toggleHelp();
                return;
            }
        }
    });
    // Fields that hang on another, as the parish on the municipality, follow it.
    for (FieldRow* const row : findChildren<FieldRow*>()) {
        connect(row, &FieldRow::written, this, [this](const std::string& path) {
            for (FieldRow* const other : findChildren<FieldRow*>()) {
                other->editor().refresh(qs(path));
            }
        });
    }
}

void FormPage::refresh() {
    const TaxCase& taxCase = store_.current();
    int titled = 0;
    for (std::size_t i = 0; i < sections_.size(); ++i) {
        const Section& section = page_.sections[i];
        const SectionView& view = sections_[i];
        const bool isShown = !section.shown || section.shown(taxCase);
        view.widget->setVisible(isShown);
        if (section.title) {
            view.title->setText(qs(section.title(taxCase)));
            view.widget->setAccessibleName(view.title->text());
            view.jump->setText(view.title->text());
            view.jump->setAccessibleName(u"Zu %1"_s.arg(view.title->text()));
            view.jump->setVisible(isShown);
            titled += isShown ? 1 : 0;
        }
        for (CardView* card : view.cards) {
            card->refresh();
        }
    }
    jumps_->setVisible(titled > 1);
}

void FormPage::refreshResult() {
    for (const SectionView& view : sections_) {
        for (CardView* card : view.cards) {
            card->refreshFigures();
        }
    }
}

QStringList FormPage::opened() const {
    QStringList records;
    for (const SectionView& view : sections_) {
        for (const CardView* card : view.cards) {
            if (const auto record = card->opened()) {
                records << qs(record->toString());
            }
        }
    }
    return records;
}

void FormPage::open(const QStringList& records) {
    std::vector<taxcore::Uuid> ids;
    for (const QString& record : records) {
        if (const auto id = taxcore::Uuid::parse(utf8(record))) {
            ids.push_back(*id);
        }
    }
    for (const SectionView& view : sections_) {
        for (CardView* card : view.cards) {
            card->openOneOf(ids);
        }
    }
}

bool FormPage::reveal(const std::string& path) {
    for (const SectionView& view : sections_) {
        for (CardView* card : view.cards) {
            if (!view.widget->isHidden() && !card->isHidden() && card->reveal(path)) {
                // The window's, which may not be the active one yet when a dialog led here.
                if (QWidget* const focused = window()->focusWidget()) {
                    frame_->show(focused);
                }
                return true;
            }
        }
    }
    return false;
}

} // namespace fiscarel::forms
