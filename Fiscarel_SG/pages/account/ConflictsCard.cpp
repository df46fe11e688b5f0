#include "Fiscarel_SG/pages/account/ConflictsCard.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int sideWidth = 64;    ///< of "Hier" and "Andere"
constexpr int choiceWidth = 150; ///< of the buttons

QLabel* plainLabel(const QString& text, const char* role, QWidget* parent) {
    QLabel* const label = makeLabel(text, role, parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

ConflictsCard::ConflictsCard(AppStore& store, CloudService& service, QWidget* parent)
    : QFrame(parent), store_(store), service_(service), column_(new QVBoxLayout(this)),
      all_(new QPushButton(u"Alle so lassen, wie sie hier stehen"_s, this)) {
    look::setRole(this, "card");
    setObjectName(u"cloudConflicts"_s);
    column_->setContentsMargins(20, 16, 20, 16);
    column_->setSpacing(8);
    addLabel(*column_, u"Hier und anderswo verschieden geändert"_s, "heading");
    addLabel(
        *column_,
        u"Was nur auf einem Computer geändert wurde, ist zusammengeführt. Hier ist beides "
        "möglich: Bis Sie wählen, gilt, was hier steht; nur hier Gelöschtes bleibt so lange."_s,
        "faint");
    all_->setObjectName(u"cloudKeepHere"_s);
    look::setRole(all_, "link");
    connect(all_, &QPushButton::clicked, this, &ConflictsCard::settleAll);
    follow();
}

void ConflictsCard::follow() {
    const auto& conflicts = service_.status().conflicts;
    setVisible(!conflicts.empty());
    std::vector<ConflictText> texts = describe(store_, conflicts);
    if (conflicts != shown_ || texts != texts_) {
        shown_ = conflicts;
        texts_ = std::move(texts);
        rebuild();
    }
}

void ConflictsCard::rebuild() {
    const bool hasKeyboard = list_ != nullptr && list_->isAncestorOf(window()->focusWidget());
    QWidget* const old = list_;
    list_ = new QWidget(this);
    first_.clear();
    auto* const rows = new QVBoxLayout(list_);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(8);
    for (std::size_t i = 0; i < shown_.size(); ++i) {
        addConflict(*rows, i);
    }
    if (shown_.size() > 1) {
        addLine(*rows);
    }
    column_->addWidget(list_);
    column_->addWidget(all_, 0, Qt::AlignLeft);
    all_->setVisible(shown_.size() > 1);
    list_->show();
    if (hasKeyboard) {
        giveKeyboard(0);
    }
    if (old != nullptr) {
        old->hide();
        old->deleteLater(); // a click within it may have led here
    }
}

void ConflictsCard::addConflict(QVBoxLayout& column, std::size_t index) {
    const ConflictText& text = texts_[index];
    addLine(column);
    auto* const head = new QHBoxLayout;
    head->setSpacing(12);
    head->addWidget(plainLabel(text.label, "figure", list_), 1);
    if (QPushButton* const door = doorTo(index)) {
        head->addWidget(door, 0, Qt::AlignTop);
    }
    column.addLayout(head);
    column.addWidget(plainLabel(text.where, "small", list_));
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(6);
    grid->setColumnMinimumWidth(0, sideWidth);
    grid->setColumnStretch(1, 1);
    addChoice(*grid, index, false);
    addChoice(*grid, index, true);
    column.addLayout(grid);
}

void ConflictsCard::addChoice(QGridLayout& grid, std::size_t index, bool isOther) {
    const ConflictText& text = texts_[index];
    const int row = isOther ? 1 : 0;
    const QString& value = isOther ? text.theirs : text.ours;
    grid.addWidget(plainLabel(isOther ? u"Andere:"_s : u"Hier:"_s, "faint", list_), row, 0);
    QLabel* const shown = plainLabel(value, "", list_);
    shown->setObjectName(u"cloud%1:%2"_s.arg(isOther ? u"Theirs"_s : u"Ours"_s).arg(index));
    grid.addWidget(shown, row, 1);
    const MergeConflict& conflict = shown_[index];
    const bool isGone = !(isOther ? conflict.theirs : conflict.ours);
    auto* const button = new QPushButton(text.isWhole ? (isGone ? u"Löschen"_s : u"Behalten"_s)
                                         : isOther    ? u"Übernehmen"_s
                                                      : u"So lassen"_s,
                                         list_);
    button->setObjectName(u"cloud%1:%2"_s.arg(isOther ? u"Take"_s : u"Keep"_s).arg(index));
    button->setAccessibleName(u"%1, %2 %3: %4"_s.arg(button->text(), text.label,
                                                     isOther ? u"andere"_s : u"hier"_s, value));
    button->setFixedWidth(choiceWidth);
    grid.addWidget(button, row, 2, Qt::AlignTop);
    connect(button, &QPushButton::clicked, this,
            [this, index, isOther] { settle(index, isOther); });
    if (!isOther) {
        first_.push_back(button);
    }
}

QPushButton* ConflictsCard::doorTo(std::size_t index) {
    const ConflictText& text = texts_[index];
    if (text.path.empty() && text.document.empty()) {
        return nullptr;
    }
    auto* const door =
        new QPushButton(text.document.empty() ? u"Zum Feld"_s : u"Zum Beleg"_s, list_);
    door->setObjectName(u"cloudDoor:%1"_s.arg(index));
    door->setAccessibleName(u"%1: %2"_s.arg(door->text(), text.label));
    look::setRole(door, "textlink");
    connect(door, &QPushButton::clicked, this, [this, text, year = shown_[index].year] {
        if (!text.document.empty()) {
            Q_EMIT documentWanted(qs(text.document), {});
            return;
        }
        if (year != store_.year()) {
            store_.setYear(year); // the pages are made anew, this one too
        }
        Q_EMIT fieldWanted(qs(text.path));
    });
    return door;
}

/// Where the choice makes a step that can be undone, that is offered.
void ConflictsCard::settle(std::size_t index, bool takesOther) {
    const QString label = texts_[index].label;
    bool isStep = false;
    const auto watching =
        connect(&store_, &AppStore::historyChanged, this, [&isStep] { isStep = true; });
    const bool removes = !takesOther && texts_[index].isWhole && !shown_[index].ours;
    service_.settleConflict(index, takesOther);
    disconnect(watching);
    giveKeyboard(index);
    if (isStep && store_.undoName()) {
        Q_EMIT undoOffered(
            (removes ? u"«%1» ist gelöscht."_s : u"«%1» ist jetzt wie auf dem anderen Computer."_s)
                .arg(label));
    }
}

void ConflictsCard::settleAll() {
    service_.settleAllConflicts();
    giveKeyboard(0);
}

void ConflictsCard::giveKeyboard(std::size_t index) {
    if (!isVisible() && !shown_.empty()) {
        return; // the year changed, and the page was made anew
    }
    if (first_.empty()) {
        Q_EMIT keyboardLeft();
    } else {
        first_[std::min(index, first_.size() - 1)]->setFocus(Qt::OtherFocusReason);
    }
}

} // namespace fiscarel::pages
