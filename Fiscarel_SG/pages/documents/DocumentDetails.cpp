#include "Fiscarel_SG/pages/documents/DocumentDetails.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/documents/DocumentDelegate.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

using Kind = StoredDocument::Kind;

/// What is typed is not replaced under the user's hands.
void setUnlessTyped(QLineEdit& line, const std::string& text) {
    if (!line.hasFocus() && line.text() != qs(text)) {
        line.setText(qs(text));
        line.setCursorPosition(0);
    }
}

} // namespace

DocumentDetails::DocumentDetails(AppStore& store, DocumentDesk& desk, const DocumentModel& model,
                                 QWidget* parent)
    : QWidget(parent), store_(store), desk_(desk), model_(model), several_(new QLabel(this)),
      problem_(new QLabel(this)), fields_(new QWidget(this)), title_(new QLineEdit(fields_)),
      kind_(new QComboBox(fields_)), note_(new QLineEdit(fields_)) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 4, 0, 0);
    column->setSpacing(10);
    column->addWidget(fields_);
    column->addWidget(several_);
    problem_->setObjectName(u"documentProblem"_s);
    problem_->setWordWrap(true);
    look::setRole(problem_, "warning");
    column->addWidget(problem_);
    addFields();
    addButtons();
    show({});
}

void DocumentDetails::addFields() {
    title_->setObjectName(u"documentTitle"_s);
    title_->setAccessibleName(u"Titel des Belegs"_s);
    kind_->setObjectName(u"documentKind"_s);
    kind_->setAccessibleName(u"Art des Belegs"_s);
    for (const auto& row : taxcore::EnumTable<Kind>::rows) {
        kind_->addItem(qs(row.label), static_cast<int>(row.value));
    }
    kind_->setMaxVisibleItems(kind_->count());
    note_->setObjectName(u"documentNote"_s);
    note_->setAccessibleName(u"Notiz zum Beleg"_s);
    note_->setPlaceholderText(u"Notiz"_s);
    auto* const grid = new QGridLayout(fields_);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(10);
    grid->addWidget(title_, 0, 0);
    grid->addWidget(kind_, 0, 1);
    grid->addWidget(note_, 1, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    connect(title_, &QLineEdit::editingFinished, this, [this] {
        const std::string text = utf8(title_->text().trimmed());
        change([&](StoredDocument& document) {
            document.title = text.empty() ? document.title : text;
        });
    });
    connect(note_, &QLineEdit::editingFinished, this, [this] {
        change([&](StoredDocument& document) { document.note = utf8(note_->text().trimmed()); });
    });
    connect(kind_, &QComboBox::activated, this, [this](int index) {
        const auto kind = static_cast<Kind>(kind_->itemData(index).toInt());
        change([&](StoredDocument& document) { document.chooseKind(kind); });
    });
}

QPushButton* DocumentDetails::addButton(const QString& text, const QString& name,
                                        const std::function<void(const Uuid&)>& act) {
    auto* const button = new QPushButton(text, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, [this, act] {
        if (!shown_.empty()) {
            act(Uuid(shown_.front()));
        }
    });
    return button;
}

void DocumentDetails::addButtons() {
    apply_ = addButton(u"Prüfen und übernehmen …"_s, u"applyDocument"_s,
                       [this](const Uuid& id) { Q_EMIT openWanted(id); });
    look::setRole(apply_, "primary");
    replace_ = addButton(u"Andere Datei wählen …"_s, u"replaceDocument"_s,
                         [this](const Uuid& id) { Q_EMIT replaceWanted(id); });
    replace_->setToolTip(u"Eine andere Datei anstelle von dieser aufnehmen"_s);
    look::setRole(replace_, "primary");
    file_ = addButton(u"Öffnen"_s, u"openDocument"_s, [this](const Uuid&) { openFile(); });
    file_->setToolTip(u"Die Datei im zuständigen Programm öffnen"_s);
    move_ = addButton({}, u"moveDocument"_s, [this](const Uuid& id) { Q_EMIT moveWanted(id); });
    again_ = addButton(u"Nochmals lesen"_s, u"readDocumentAgain"_s,
                       [this](const Uuid& id) { desk_.readings().readAgain(id); });
    cancel_ = addButton(u"Lesen abbrechen"_s, u"cancelReading"_s,
                        [this](const Uuid& id) { desk_.readings().cancel(id); });
    remove_ = addButton(u"Entfernen"_s, u"removeDocument"_s,
                        [this](const Uuid&) { Q_EMIT removeWanted(); });
    remove_->setToolTip(u"Bis zum Beenden des Programms lässt sich ein entfernter Beleg mit Ctrl+Z "
                        "zurückholen."_s);
    look::setRole(remove_, "danger");
    auto* const line = new QHBoxLayout;
    line->setSpacing(8);
    for (QPushButton* const button : {apply_, replace_, file_, move_, again_, cancel_}) {
        line->addWidget(button);
    }
    line->addStretch(1);
    line->addWidget(remove_);
    static_cast<QVBoxLayout*>(layout())->addLayout(line);
}

void DocumentDetails::show(const std::vector<taxcore::Uuid>& selected) {
    if (shown_ != selected) { // what was typed belongs to the one shown before
        for (QLineEdit* const line : {title_, note_}) {
            if (line->hasFocus()) {
                Q_EMIT line->editingFinished();
                line->clearFocus();
            }
        }
    }
    shown_ = selected;
    const DocumentModel::Row* const row =
        selected.size() == 1 ? model_.rowAt(model_.lineOf(selected.front())) : nullptr;
    setVisible(!selected.empty());
    fields_->setVisible(row != nullptr);
    problem_->setVisible(row != nullptr && row->isWarning);
    several_->setVisible(selected.size() > 1);
    several_->setText(u"%1 Belege ausgewählt"_s.arg(selected.size()));
    for (QPushButton* const button : {apply_, replace_, file_, move_, again_, cancel_}) {
        button->setVisible(row != nullptr);
    }
    if (row != nullptr) {
        showOne(*row);
    }
}

void DocumentDetails::showOne(const DocumentModel::Row& row) {
    const StoredDocument* const shown = document();
    if (shown == nullptr) {
        return;
    }
    setUnlessTyped(*title_, shown->title);
    setUnlessTyped(*note_, shown->note);
    problem_->setText(row.advice.isEmpty() ? row.detail : row.detail + u' ' + row.advice);
    kind_->setCurrentIndex(kind_->findData(static_cast<int>(row.kind.value_or(shown->kind))));
    const bool isThere = row.state != DocumentState::missing && !store_.isDemo();
    apply_->setVisible(!row.isBroken);
    replace_->setVisible(row.isBroken);
    replace_->setEnabled(!row.progress);
    apply_->setEnabled(isThere && !row.progress);
    apply_->setText(shown->isApplied ? u"Nochmals prüfen …"_s : u"Prüfen und übernehmen …"_s);
    file_->setEnabled(isThere);
    move_->setVisible(row.canMove);
    move_->setText(row.canMove ? moveText(*row.otherYear) : QString());
    const bool hasProblem = row.state == DocumentState::unreadable
                            || row.state == DocumentState::unread
                            || (row.isWarning && !row.otherYear);
    again_->setVisible(isThere && hasProblem && !row.progress);
    again_->setText(row.state == DocumentState::unread ? u"Lesen"_s : u"Nochmals lesen"_s);
    cancel_->setVisible(row.progress.has_value());
}

void DocumentDetails::rename() {
    if (title_->isVisible()) {
        title_->setFocus(Qt::ShortcutFocusReason);
        title_->selectAll();
    }
}

const StoredDocument* DocumentDetails::document() const {
    if (shown_.size() != 1) {
        return nullptr;
    }
    const auto found = std::ranges::find(store_.documents(), shown_.front(), &StoredDocument::id);
    return found == store_.documents().end() ? nullptr : &*found;
}

void DocumentDetails::change(const std::function<void(StoredDocument&)>& change) {
    if (shown_.size() == 1) {
        store_.updateDocument(Uuid(shown_.front()), change);
    }
}

void DocumentDetails::openFile() {
    const StoredDocument* const shown = document();
    if (const auto file = shown != nullptr ? store_.fileOf(*shown) : std::nullopt) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(qs(file->string())));
    }
}

} // namespace fiscarel::pages
