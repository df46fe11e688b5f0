#include "Fiscarel_SG/pages/documents/DocumentSheet.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/KeyboardOrder.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/documents/PagePreview.h"
#include "Fiscarel_SG/pages/documents/ProposalByHand.h"
#include "Fiscarel_SG/pages/documents/ProposalDesk.h"
#include "Fiscarel_SG/pages/documents/ProposalHead.h"
#include "Fiscarel_SG/pages/documents/ProposalRow.h"
#include "Fiscarel_SG/pages/documents/ProposalText.h"
#include "Fiscarel_SG/pages/documents/RecordPanel.h"
#include "Fiscarel_SG/pages/overview/MoneyText.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize usualSize{1180, 780};
constexpr int aroundSheet = 40;         ///< pixels the window behind is larger at least
constexpr std::size_t panelsAtOnce = 4; ///< made in one go, so that the window stays alive
constexpr int aroundFocus = 60;         ///< pixels seen above and below
constexpr int leastDecisions = 560;     ///< pixels
constexpr std::size_t openValues = 24;  ///< with no more values than these all records are open

StoredDocument documentOf(const AppStore& store, const Uuid& id) {
    const auto found = std::ranges::find(store.documents(), id, &StoredDocument::id);
    return found != store.documents().end() ? *found : StoredDocument{.id = id};
}

} // namespace

DocumentSheet::DocumentSheet(AppStore& store, const Uuid& document, ScanResult scan,
                             PageImages& images, QWidget* parent)
    : QDialog(parent), store_(store), scan_(std::move(scan)),
      desk_(std::make_unique<ProposalDesk>(store, documentOf(store, document), scan_)),
      preview_(new PagePreview(images, this)), effect_(new QLabel(this)),
      blocked_(new QLabel(this)) {
    setObjectName(u"documentSheet"_s);
    setWindowTitle(u"Beleg prüfen und übernehmen"_s);
    setModal(true);
    auto* const sides = new QHBoxLayout;
    sides->setSpacing(16);
    sides->addWidget(preview_, 9);
    sides->addWidget(makeDecisions(), 11);
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(16, 14, 16, 14);
    outer->setSpacing(10);
    outer->addLayout(sides, 1);
    outer->addLayout(makeFoot());
    showPages();
    addShortcuts();
    desk_->changed = [this] {
        isDecided_ = true;
        refresh();
    };
    connect(preview_, &PagePreview::markClicked, this, &DocumentSheet::focusValue);
    connect(&store_, &AppStore::currentChanged, this, [this] {
        const bool wasDecided = isDecided_; // not by this
        desk_->caseChanged();
        isDecided_ = wasDecided;
    });
    connect(&store_, &AppStore::documentsChanged, this, [this] {
        if (std::ranges::find(store_.documents(), desk_->document().id, &StoredDocument::id)
            == store_.documents().end()) {
            QDialog::reject();
            Q_EMIT gone();
        }
    });
    refresh();
    const QSize room =
        parent != nullptr ? parent->window()->size() - QSize(aroundSheet, aroundSheet) : usualSize;
    resize(usualSize.boundedTo(room));
    QTimer::singleShot(0, this, &DocumentSheet::addPanels);
}

DocumentSheet::~DocumentSheet() = default;

void DocumentSheet::showPages() {
    const auto file = store_.fileOf(desk_->document());
    if (!file) {
        preview_->showProblem(
            u"Die Datei dieses Belegs ist nicht vorhanden. Die gelesenen Werte stehen rechts."_s);
        return;
    }
    if (scan_.pageCount <= 0) {
        preview_->showProblem(u"Die Seiten dieses Belegs lassen sich nicht anzeigen."_s);
        return;
    }
    markValues();
    preview_->showFile(*file, scan_.pageCount);
}

/// What is no choice now is not marked either: a total and its entries lie at the same places.
void DocumentSheet::markValues() {
    std::vector<PreviewMark> marks;
    for (std::size_t i = 0; i < scan_.proposals.size(); ++i) {
        const Proposal& proposal = scan_.proposals[i];
        if (proposal.page <= 0 || !proposal.box || desk_->isSetAside(proposal.recordIndex)) {
            continue;
        }
        const int index = static_cast<int>(i);
        const forms::BoundField* const field = desk_->declaration(index);
        marks.push_back(
            {.id = index,
             .page = proposal.page,
             .box = *proposal.box,
             .name = u"%1 (%2)"_s.arg(qs(field != nullptr ? field->label : proposal.field),
                                      qs(taxcore::label(proposal.confidence))),
             .confidence = proposal.confidence});
    }
    marksTotal_ = desk_->takesTotal();
    preview_->setMarks(marks);
}

QWidget* DocumentSheet::makeDecisions() {
    scroll_ = new QScrollArea(this);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setWidgetResizable(true);
    scroll_->setMinimumWidth(leastDecisions);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* const content = new QWidget;
    column_ = new QVBoxLayout(content);
    column_->setContentsMargins(0, 0, 10, 0);
    column_->setSpacing(10);
    head_ = new ProposalHead(*desk_, content);
    column_->addWidget(head_);
    connect(head_, &ProposalHead::yearWanted, this, &DocumentSheet::moveToYear);
    if (scan_.problem) {
        addLabel(*column_, labelText("⚠ " + *scan_.problem), "warning")
            .setObjectName(u"readingProblem"_s);
    }
    if (scan_.proposals.empty() && !isEmptyFile()) {
        byHand_ = new ProposalByHand(*desk_, content);
        byHand_->showKind(head_->kind());
        column_->addWidget(byHand_);
        connect(head_, &ProposalHead::kindChanged, this,
                [this] { byHand_->showKind(head_->kind()); });
        // What was entered about the document itself is kept on the way there.
        connect(byHand_, &ProposalByHand::fieldWanted, this, [this](const QString& path) {
            file();
            Q_EMIT fieldWanted(path);
        });
        connect(byHand_, &ProposalByHand::pageWanted, this, [this](const QString& id) {
            file();
            Q_EMIT pageWanted(id);
        });
    }
    column_->addStretch(1);
    scroll_->setWidget(content);
    return scroll_;
}

QHBoxLayout* DocumentSheet::makeFoot() {
    auto* const line = new QHBoxLayout;
    line->setSpacing(8);
    auto* const words = new QVBoxLayout;
    words->setSpacing(2);
    effect_->setObjectName(u"effect"_s);
    effect_->setWordWrap(true);
    blocked_->setObjectName(u"blocked"_s);
    blocked_->setWordWrap(true);
    words->addWidget(effect_);
    words->addWidget(blocked_);
    line->addLayout(words, 1);
    const auto button = [&](const QString& text, const char* name, const auto& action) {
        auto* const made = new QPushButton(text, this);
        made->setObjectName(QString::fromLatin1(name));
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, action);
        line->addWidget(made, 0, Qt::AlignBottom);
        return made;
    };
    button(u"Abbrechen"_s, "cancelSheet", [this] { reject(); });
    const bool hasValues = !scan_.proposals.empty();
    QPushButton* const only =
        button(hasValues ? u"Nur ablegen"_s : u"Ablegen"_s, "fileOnly", [this] { file(); });
    only->setToolTip(u"Behält Name und Art des Belegs und übernimmt keine Werte"_s);
    QPushButton* main = only;
    if (isUnreadable()) {
        QPushButton* const remove =
            button(u"Entfernen"_s, "removeDocument", [this] { removeDocument(); });
        main = isEmptyFile() ? remove : nullptr; // what to do with another only the user can say
    }
    apply_ = button(u"Übernehmen"_s, "apply", [this] { apply(); });
    apply_->setVisible(hasValues);
    main = hasValues ? apply_ : main;
    if (main != nullptr) {
        look::setRole(main, "primary");
        main->setDefault(true);
    }
    return line;
}

void DocumentSheet::addShortcuts() {
    const auto add = [this](const QKeySequence& keys, const auto& action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(QKeySequence::ZoomIn, [this] { preview_->zoomBy(1); });
    add(QKeySequence::ZoomOut, [this] { preview_->zoomBy(-1); });
    add(Qt::CTRL | Qt::Key_0, [this] { preview_->zoomToFit(); });
    add(Qt::CTRL | Qt::Key_PageUp, [this] { preview_->goToPage(preview_->currentPage() - 1); });
    add(Qt::CTRL | Qt::Key_PageDown, [this] { preview_->goToPage(preview_->currentPage() + 1); });
    add(Qt::CTRL | Qt::Key_Return, [this] { apply_->click(); });
    add(Qt::CTRL | Qt::Key_Enter, [this] { apply_->click(); });
}

void DocumentSheet::addPanels() {
    const std::size_t all = scan_.records.size();
    const std::size_t atOnce = scan_.proposals.size() <= openValues ? 1 : panelsAtOnce;
    const std::size_t until = std::min(all, panels_.size() + atOnce);
    while (panels_.size() < until) {
        addPanel(static_cast<int>(panels_.size()));
    }
    if (panels_.size() < all) {
        QTimer::singleShot(0, this, &DocumentSheet::addPanels);
    } else {
        focusFirst();
    }
}

void DocumentSheet::addPanel(int record) {
    auto* const panel = new RecordPanel(*desk_, record, column_->parentWidget());
    panels_.push_back(panel);
    column_->insertWidget(column_->count() - 1, panel); // before the stretch
    connect(panel, &RecordPanel::focused, preview_, &PagePreview::emphasise);
    connect(panel, &RecordPanel::fieldWanted, this, [this](const QString& path) {
        file();
        Q_EMIT fieldWanted(path);
    });
    panel->open(scan_.proposals.size() <= openValues);
}

/// As things stand; panels are made and filled at any time.
bool DocumentSheet::focusNextPrevChild(bool next) {
    std::vector<QWidget*> stops = look::inLayoutOrder(*layout());
    std::erase_if(stops, [this](const QWidget* widget) {
        return widget != focusWidget() && (!widget->isVisible() || !widget->isEnabled());
    });
    if (stops.empty()) {
        return false;
    }
    if (!next) {
        std::ranges::reverse(stops);
    }
    const auto now = std::ranges::find(stops, focusWidget());
    const bool isLast = now == stops.end() || now + 1 == stops.end();
    QWidget* const to = isLast ? stops.front() : *(now + 1);
    to->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    if (scroll_->isAncestorOf(to)) {
        scroll_->ensureWidgetVisible(to, 0, aroundFocus);
    }
    return true;
}

void DocumentSheet::refresh() {
    head_->refresh();
    if (marksTotal_ != desk_->takesTotal()) {
        markValues();
    }
    for (RecordPanel* const panel : panels_) {
        panel->refresh();
    }
    showEffect();
    showBlocked();
}

void DocumentSheet::showEffect() {
    const auto effect = scan_.proposals.empty() ? std::nullopt : desk_->effect();
    effect_->setVisible(effect.has_value());
    if (!effect) {
        return;
    }
    const Decimal difference = effect->after - effect->before;
    look::setRole(effect_, changeRole(difference));
    effect_->setText(difference.isZero()
                         ? u"Steuer: CHF %1, unverändert"_s.arg(rappen(effect->before))
                         : u"Steuer: CHF %1 → %2 (%3)"_s.arg(
                             rappen(effect->before), rappen(effect->after), change(difference, 2)));
}

void DocumentSheet::showBlocked() {
    const int unreadable = desk_->unreadableCount();
    const int year = desk_->document().year;
    QString sentence;
    if (unreadable > 0) {
        sentence = (unreadable == 1 ? u"Ein Wert ist nicht lesbar. "_s
                                    : u"%1 Werte sind nicht lesbar. "_s.arg(unreadable))
                   + u"Bitte berichtigen oder das Häkchen entfernen."_s;
    } else if (year != store_.year()) {
        sentence =
            u"Dieser Beleg liegt beim Jahr %1. Bitte zuerst dieses Steuerjahr wählen."_s.arg(year);
    } else if (const auto record = desk_->withoutPerson()) {
        sentence = u"Wem gehört «%1»? Bitte die Person wählen."_s.arg(
            withGroupedIbans(desk_->record(*record).title));
    } else if (const auto incomplete = desk_->withoutAmount()) {
        sentence = u"Der Betrag von «%1» ist nicht angekreuzt: bitte prüfen und ankreuzen."_s.arg(
            withGroupedIbans(desk_->record(*incomplete).title));
    } else if (!scan_.proposals.empty() && !desk_->canApply()) {
        sentence = u"Es ist nichts angekreuzt."_s;
    }
    look::setRole(blocked_, unreadable > 0 ? "error" : "note");
    blocked_->setText(sentence);
    blocked_->setVisible(!sentence.isEmpty());
    apply_->setEnabled(desk_->canApply());
}

void DocumentSheet::showPlace(int page, const std::optional<PageBox>& box) {
    isPlaced_ = true;
    preview_->showPlace(page, box);
}

void DocumentSheet::focusValue(int proposal) {
    const auto record = static_cast<std::size_t>(desk_->proposal(proposal).recordIndex);
    if (record >= panels_.size()) {
        return;
    }
    if (ProposalRow* const row = panels_[record]->row(proposal)) {
        column_->activate();
        QCoreApplication::sendPostedEvents(column_->parentWidget(), QEvent::LayoutRequest);
        scroll_->ensureWidgetVisible(row, 0, aroundFocus);
        row->focusValue();
    }
}

/// The first value, so that its place on the page is seen at once.
void DocumentSheet::focusFirst() {
    if (isPlaced_ || panels_.empty()) {
        preview_->setFocus(Qt::OtherFocusReason);
        return;
    }
    const auto seen =
        std::ranges::find_if(panels_, [](const RecordPanel* panel) { return !panel->isHidden(); });
    if (seen != panels_.end()) {
        (*seen)->focusFirst();
    }
}

/// Enter in a field finishes what is typed there; it does not take everything over.
void DocumentSheet::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && qobject_cast<QLineEdit*>(focusWidget()) != nullptr) {
        focusNextChild();
        return;
    }
    QDialog::keyPressEvent(event);
}

void DocumentSheet::apply() {
    if (!desk_->canApply()) {
        return;
    }
    const QString title = qs(head_->title());
    disconnect(&store_, nullptr, this, nullptr);
    keepNameAndKind();
    desk_->apply();
    accept();
    Q_EMIT applied(title);
}

void DocumentSheet::file() {
    const QString title = qs(head_->title());
    keepNameAndKind();
    accept();
    Q_EMIT filed(title);
}

void DocumentSheet::removeDocument() {
    const QString title = qs(head_->title());
    disconnect(&store_, nullptr, this, nullptr);
    store_.deleteDocument(Uuid(desk_->document().id));
    accept();
    Q_EMIT removed(title);
}

bool DocumentSheet::isUnreadable() const {
    return scan_.problem && scan_.text.empty() && scan_.proposals.empty();
}

/// Then there is nothing that could be entered by hand either.
bool DocumentSheet::isEmptyFile() const {
    const auto file = store_.fileOf(desk_->document());
    std::error_code fault;
    return isUnreadable() && file && std::filesystem::file_size(*file, fault) == 0 && !fault;
}

void DocumentSheet::keepNameAndKind() {
    store_.updateDocument(desk_->document().id, [this](StoredDocument& document) {
        document.title = head_->title();
        if (head_->isKindDecided()) {
            document.chooseKind(head_->kind());
        }
    });
}

void DocumentSheet::moveToYear(int year) {
    store_.updateDocument(desk_->document().id,
                          [year](StoredDocument& document) { document.year = year; });
    file();
}

bool DocumentSheet::isEdited() const { return isDecided_ || head_->isEdited(); }

void DocumentSheet::reject() {
    if (isEdited()) {
        QMessageBox ask(QMessageBox::NoIcon, u"Beleg"_s, u"Änderungen verwerfen?"_s,
                        QMessageBox::NoButton, this);
        ask.setInformativeText(u"Was Sie hier geändert haben, geht verloren."_s);
        ask.setObjectName(u"discardChanges"_s);
        QPushButton* const stay = ask.addButton(u"Weiter bearbeiten"_s, QMessageBox::RejectRole);
        QPushButton* const discard = ask.addButton(u"Verwerfen"_s, QMessageBox::DestructiveRole);
        discard->setObjectName(u"discard"_s);
        ask.setDefaultButton(stay);
        ask.setEscapeButton(stay);
        ask.exec();
        if (ask.clickedButton() != discard) {
            return;
        }
    }
    QDialog::reject();
}

} // namespace fiscarel::pages
