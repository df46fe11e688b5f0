#include "Fiscarel_SG/forms/FormPage.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/forms/TableView.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

namespace fiscarel::forms {

FormPage::FormPage(Page page, AppStore& store, const PageContext& context, QWidget* parent)
    : PageWidget(parent), page_(std::move(page)), store_(store),
      frame_(new look::PageFrame(qs(page_.title), labelText(page_.help), this)) {
    const EditorContext editors{context, [&store]() -> const TaxCase& { return store.current(); }};
    for (const Section& section : page_.sections) {
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
            view.cards.push_back(makeCard(card, store, editors, view.widget));
            column->addWidget(view.cards.back());
            connect(view.cards.back(), &CardView::opened, frame_, &look::PageFrame::showWhole);
            frame_->widen(view.cards.back()->wishedWidth());
        }
        frame_->column().addWidget(view.widget);
        sections_.push_back(std::move(view));
    }
    frame_->column().addStretch(1);
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
    refresh();
    refreshResult();
}

void FormPage::refresh() {
    const TaxCase& taxCase = store_.current();
    for (std::size_t i = 0; i < sections_.size(); ++i) {
        const Section& section = page_.sections[i];
        const SectionView& view = sections_[i];
        view.widget->setVisible(!section.shown || section.shown(taxCase));
        if (section.title) {
            view.title->setText(qs(section.title(taxCase)));
            view.widget->setAccessibleName(view.title->text());
        }
        for (CardView* card : view.cards) {
            card->refresh();
        }
    }
}

void FormPage::refreshResult() {
    for (const SectionView& view : sections_) {
        for (CardView* card : view.cards) {
            card->refreshFigures();
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
