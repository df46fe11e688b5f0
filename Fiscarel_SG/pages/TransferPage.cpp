#include "Fiscarel_SG/pages/TransferPage.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/outputs/TransferHtml.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/InputPages.h"
#include "Fiscarel_SG/pages/PageParts.h"
#include "Fiscarel_SG/pages/transfer/TransferModel.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTextDocument>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;
using outputs::Tick;
using outputs::TransferRow;

namespace {

constexpr int copiedTime = 1'500; ///< milliseconds for which «kopiert» stands
constexpr int rowHeight = 28;
constexpr int leastHeight = 300;

bool isLink(int column) {
    return column == TransferModel::label || column == TransferModel::copyCanton
           || column == TransferModel::copyFederal;
}

/// Underlines under the mouse what a click does something with.
class LinkDelegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const bool selectable = (index.flags() & Qt::ItemIsSelectable) != 0;
        if (isLink(index.column()) && selectable && (option->state & QStyle::State_MouseOver)) {
            option->font.setUnderline(true);
        }
    }
};

void addLabels(std::map<std::string, QString>& labels, const std::vector<forms::Page>& pages,
               const TaxCase& taxCase) {
    const auto add = [&](const std::vector<forms::BoundField>& fields) {
        for (const forms::BoundField& field : fields) {
            labels.emplace(field.path, qs(field.label));
        }
    };
    for (const forms::Page& page : pages) {
        for (const forms::Section& section : page.sections) {
            for (const forms::Card& card : section.cards) {
                if (const auto* const plain = std::get_if<forms::FieldsCard>(&card)) {
                    add(plain->fields);
                    continue;
                }
                const auto& list = std::get<forms::ListCard>(card);
                for (std::size_t i = 0; i < list.size(taxCase); ++i) {
                    add(list.fields(i));
                }
            }
        }
    }
}

} // namespace

TransferPage::TransferPage(AppStore& store, QWidget* parent)
    : PageWidget(parent), store_(store),
      frame_(new look::PageFrame(
          u"Übertragen"_s,
          u"Feld für Feld in das Programm der Steuerbehörde: Wert kopieren, dort einsetzen, hier "
          "abhaken."_s,
          this)),
      progressText_(new QLabel(this)), progress_(new QProgressBar(this)),
      openOnly_(new QCheckBox(u"Nur offene zeigen"_s, this)), form_(new QComboBox(this)),
      table_(new QTableView(this)), model_(new TransferModel(this)),
      copiedTimer_(new QTimer(this)) {
    addHead();
    addTable();
    copiedTimer_->setSingleShot(true);
    copiedTimer_->setInterval(copiedTime);
    connect(copiedTimer_, &QTimer::timeout, this, [this] { model_->setCopied({}); });
    refresh();
}

void TransferPage::addHead() {
    QVBoxLayout& head = addCard(frame_->column(), {});
    progressText_->setObjectName(u"transferProgress"_s);
    look::setRole(progressText_, "heading");
    progress_->setTextVisible(false);
    head.addWidget(progressText_);
    head.addWidget(progress_);

    auto* const tools = new QHBoxLayout;
    tools->setSpacing(18);
    openOnly_->setObjectName(u"openOnly"_s);
    form_->setObjectName(u"transferForm"_s);
    form_->setAccessibleName(u"Formular"_s);
    form_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* const printing = new QPushButton(u"Drucken …"_s, this);
    printing->setObjectName(u"transferPrint"_s);
    printing->setAccessibleName(u"Liste drucken"_s);
    look::setRole(printing, "link");
    tools->addWidget(openOnly_);
    tools->addWidget(form_, 1);
    tools->addWidget(printing);
    head.addLayout(tools);
    connect(openOnly_, &QCheckBox::toggled, this, &TransferPage::refresh);
    connect(form_, &QComboBox::currentIndexChanged, this, &TransferPage::refresh);
    connect(printing, &QPushButton::clicked, this, &TransferPage::print);
}

void TransferPage::addTable() {
    table_->setObjectName(u"transferTable"_s);
    table_->setAccessibleName(u"Felder der Formulare"_s);
    table_->setModel(model_);
    table_->setItemDelegate(new LinkDelegate(table_));
    table_->setMouseTracking(true);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    table_->setShowGrid(false);
    table_->setWordWrap(false);
    table_->setMinimumHeight(leastHeight);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(rowHeight);
    table_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QHeaderView& header = *table_->horizontalHeader();
    header.setSectionsClickable(false);
    header.setHighlightSections(false);
    header.setSectionResizeMode(QHeaderView::Fixed);
    header.setSectionResizeMode(TransferModel::label, QHeaderView::Stretch);
    header.setMinimumSectionSize(10);
    table_->installEventFilter(this);
    QVBoxLayout& card = addCard(frame_->column(), {});
    card.setContentsMargins(4, 4, 4, 4);
    card.addWidget(table_, 1);
    frame_->column().setStretchFactor(card.parentWidget(), 1);
    connect(table_, &QTableView::clicked, this, &TransferPage::click);
    connect(model_, &TransferModel::ticked, this, &TransferPage::tick);
    connect(model_, &QAbstractItemModel::modelReset, this, &TransferPage::shape);
}

/// Headings go over the whole width; columns are as wide as what usually stands in them.
void TransferPage::shape() {
    const bool liechtenstein = store_.current().taxRegion() == TaxRegion::liechtenstein;
    table_->clearSpans();
    for (int line = 0; line < model_->rowCount(); ++line) {
        if (model_->isHeading(line)) {
            table_->setSpan(line, 0, 1, TransferModel::columns);
        } else if (model_->rowAt(line) == nullptr) { // a sentence
            table_->setSpan(line, TransferModel::label, 1,
                            TransferModel::columns - TransferModel::label);
        } else if (!liechtenstein && model_->isWide(line)) {
            table_->setSpan(line, TransferModel::canton, 1,
                            TransferModel::copyFederal - TransferModel::canton);
        }
    }
    const QFontMetrics metrics = table_->fontMetrics();
    const auto width = [&](const QString& text) { return metrics.horizontalAdvance(text) + 18; };
    table_->setColumnWidth(TransferModel::tick, 30);
    table_->setColumnWidth(TransferModel::ziffer,
                           width(liechtenstein ? u"11.11  500"_s : u"13.1 "_s));
    table_->setColumnWidth(
        TransferModel::canton,
        width(liechtenstein ? u"Kindergarten / Volksschule"_s : u"1’000’000.00"_s));
    table_->setColumnWidth(TransferModel::copyCanton, width(u"Kopieren"_s));
    table_->setColumnWidth(TransferModel::federal, width(u"1’000’000"_s));
    table_->setColumnWidth(TransferModel::copyFederal, width(u"Kopieren"_s));
    table_->setColumnHidden(TransferModel::federal, liechtenstein);
    table_->setColumnHidden(TransferModel::copyFederal, liechtenstein);
}

void TransferPage::refreshResult() { refresh(); }

void TransferPage::refresh() {
    const QModelIndex at = table_->currentIndex();
    const TransferRow* const held = model_->rowAt(at.row());
    const std::string key = held != nullptr ? held->key : std::string();
    outputs::TransferList list = makeList();
    fillForms(list);
    std::vector<QString> names = namesOfEntries(list);
    model_->show(std::move(list), std::move(names),
                 {openOnly_->isChecked(), utf8(form_->currentData().toString())});
    if (at.isValid() && !table_->currentIndex().isValid()) {
        const int line = model_->lineOf(key);
        goTo(line >= 0 ? line : nextRow(at.row() - 1), at.column());
    }
    showProgress();
}

outputs::TransferList TransferPage::makeList() const {
    const CaseCalculator* const calculator = store_.calculator();
    const TaxResult* const result = store_.result();
    if (calculator == nullptr || result == nullptr) {
        return {};
    }
    const auto found = store_.transferChecked().find(store_.year());
    const std::set<std::string> none;
    return outputs::makeTransferList(
        {*calculator, store_.current(), *result, store_.documents(),
         found != store_.transferChecked().end() ? found->second : none});
}

/// The forms to choose from, each with what is open in it.
void TransferPage::fillForms(const outputs::TransferList& list) {
    const QVariant chosen = form_->currentData();
    const auto item = [&](const QString& name, const std::string& form) {
        const auto open = std::ranges::count_if(list.rows, [&](const TransferRow& row) {
            return row.tick != Tick::done && (form.empty() || row.form == form);
        });
        return std::pair(open == 0 ? name : u"%1 (%2 offen)"_s.arg(name).arg(open), qs(form));
    };
    std::vector<std::pair<QString, QString>> items{item(u"Alle Formulare"_s, {})};
    for (const std::string& form : list.forms()) {
        items.push_back(item(qs(form), form));
    }
    const QSignalBlocker quiet(form_);
    while (form_->count() > static_cast<int>(items.size())) {
        form_->removeItem(form_->count() - 1);
    }
    for (int i = 0; i < static_cast<int>(items.size()); ++i) {
        const auto& [text, name] = items[static_cast<std::size_t>(i)];
        if (i == form_->count()) {
            form_->addItem(text, name);
        } else {
            form_->setItemText(i, text);
            form_->setItemData(i, name);
        }
    }
    form_->setCurrentIndex(std::max(0, form_->findData(chosen)));
}

void TransferPage::showProgress() {
    const auto done = static_cast<int>(model_->list().doneCount());
    const auto all = static_cast<int>(model_->list().rows.size());
    QString text = u"%1 von %2 übertragen"_s.arg(done).arg(all);
    const auto changed = std::ranges::count(model_->list().rows, Tick::changed, &TransferRow::tick);
    if (changed > 0) {
        text += u" · %1 seither geändert"_s.arg(changed);
    }
    progressText_->setText(text);
    progress_->setRange(0, std::max(1, all));
    progress_->setValue(done);
}

/// What the pages call the entries that stand on no form.
std::vector<QString> TransferPage::namesOfEntries(const outputs::TransferList& list) const {
    const CaseCalculator* const calculator = store_.calculator();
    std::map<std::string, QString> labels;
    if (calculator != nullptr) {
        addLabels(labels, inputPages(pageContext(store_)), store_.current());
    }
    std::vector<QString> names;
    for (const outputs::NotTransferred& entry : list.notTransferred) {
        const auto found = labels.find(entry.path);
        names.push_back(found != labels.end() ? found->second : qs(entry.path));
    }
    return names;
}

void TransferPage::click(const QModelIndex& index) {
    if (index.column() == TransferModel::label) {
        openReason(index.row());
    } else if (index.column() == TransferModel::copyCanton
               || index.column() == TransferModel::copyFederal) {
        copy(index);
    }
}

/// Ticks of the same row with other values go with the new one, and with the old.
void TransferPage::tick(int line, bool checked) {
    std::vector<std::string> formers;
    std::string id;
    if (const TransferRow* const row = model_->rowAt(line)) {
        formers = row->formers;
        id = row->id();
    } else if (const outputs::GoneRow* const gone = model_->goneAt(line)) {
        formers = gone->ticks;
    }
    for (const std::string& former : formers) {
        store_.setTransferChecked(store_.year(), former, false);
    }
    if (!id.empty()) {
        store_.setTransferChecked(store_.year(), id, checked);
    }
    refresh();
}

void TransferPage::copy(const QModelIndex& index) {
    const QString text = model_->copiedAt(index);
    if (text.isEmpty()) {
        return;
    }
    QApplication::clipboard()->setText(text);
    const bool isFederal =
        index.column() == TransferModel::federal || index.column() == TransferModel::copyFederal
        || (model_->isWide(index.row()) && !table_->isColumnHidden(TransferModel::copyFederal));
    model_->setCopied(
        index.siblingAtColumn(isFederal ? TransferModel::copyFederal : TransferModel::copyCanton));
    copiedTimer_->start();
}

/// The value of the row, then the federation's where it is another one, then the next row.
void TransferPage::copyAndGoOn() {
    const QModelIndex at = table_->currentIndex();
    const TransferRow* const row = model_->rowAt(at.row());
    if (row == nullptr) {
        return;
    }
    const bool isFederal = at.column() == TransferModel::federal;
    copy(at.siblingAtColumn(isFederal ? TransferModel::federal : TransferModel::canton));
    if (!isFederal && !row->federal.empty()) {
        goTo(at.row(), TransferModel::federal);
    } else {
        goTo(nextRow(at.row()), TransferModel::canton);
    }
}

void TransferPage::openReason(int line) {
    if (const TransferRow* const row = model_->rowAt(line)) {
        if (!row->code.empty()) {
            Q_EMIT reasonWanted(qs(row->code));
        } else if (!row->paths.empty()) {
            Q_EMIT fieldWanted(qs(row->paths.front()));
        }
    } else if (const outputs::NotTransferred* const entry = model_->notTransferredAt(line)) {
        Q_EMIT fieldWanted(qs(entry->path));
    }
}

void TransferPage::goTo(int line, int column) {
    if (line >= 0) {
        table_->setCurrentIndex(model_->index(line, column));
    }
}

/// The next line below that is no heading; -1 when there is none.
int TransferPage::nextRow(int line) const {
    for (int next = line + 1; next < model_->rowCount(); ++next) {
        if (!model_->isHeading(next)) {
            return next;
        }
    }
    return -1;
}

bool TransferPage::eventFilter(QObject* watched, QEvent* event) {
    if (watched != table_ || event->type() != QEvent::KeyPress) {
        return PageWidget::eventFilter(watched, event);
    }
    const auto* const key = dynamic_cast<QKeyEvent*>(event);
    const int line = table_->currentIndex().row();
    if (key == nullptr || line < 0) {
        return PageWidget::eventFilter(watched, event);
    }
    if (key->matches(QKeySequence::Copy)) {
        copyAndGoOn();
        return true;
    }
    if (key->key() == Qt::Key_Space) {
        const TransferRow* const row = model_->rowAt(line);
        tick(line, row != nullptr && row->tick != Tick::done);
        return true;
    }
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        openReason(line);
        return true;
    }
    return PageWidget::eventFilter(watched, event);
}

std::string TransferPage::title() const {
    const TaxCase& taxCase = store_.current();
    return "Übertragungsliste " + std::to_string(store_.year()) + " – " + personName(taxCase, 1)
           + (taxCase.isJoint() ? " und " + personName(taxCase, 2) : "");
}

/// What is printed is the whole list, whatever is shown.
void TransferPage::print() {
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(qs(title()));
    auto* const dialog = new QPrintDialog(printer.get(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, qOverload<QPrinter*>(&QPrintDialog::accepted), this,
            [this, printer](QPrinter* chosen) {
                QTextDocument document;
                document.setDefaultFont(QFont(font().family(), 9));
                document.setHtml(qs(outputs::transferHtml(model_->list(), title())));
                document.print(chosen);
            });
    dialog->open();
}

} // namespace fiscarel::pages
