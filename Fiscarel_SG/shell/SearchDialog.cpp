#include "Fiscarel_SG/shell/SearchDialog.h"

#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace fiscarel::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

/// What was found and, fainter below it, where it stands.
class ResultDelegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        return {0, 2 * option.fontMetrics.lineSpacing() + 2 * inset};
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const look::Theme& theme = look::Theme::current();
        if (option.state.testFlag(QStyle::State_Selected)) {
            painter->fillRect(option.rect, theme.soft);
        }
        const QRect room = option.rect.adjusted(2 * inset, inset, -2 * inset, -inset);
        const QString text = index.data().toString();
        const auto draw = [&](const QString& line, const QColor& color, Qt::AlignmentFlag at) {
            painter->setPen(color);
            painter->drawText(room, at,
                              option.fontMetrics.elidedText(line, Qt::ElideRight, room.width()));
        };
        painter->save();
        painter->setFont(option.font);
        draw(text.section(u'\n', 0, 0), theme.text, Qt::AlignTop);
        draw(text.section(u'\n', 1), theme.faint, Qt::AlignBottom);
        painter->restore();
    }

  private:
    static constexpr int inset = 5;
};

} // namespace

SearchDialog::SearchDialog(QWidget* parent)
    : QDialog(parent), query_(new QLineEdit(this)), list_(new QListWidget(this)) {
    setObjectName(u"search"_s);
    setWindowTitle(u"Suchen"_s);
    resize(620, 420);
    query_->setObjectName(u"searchQuery"_s);
    query_->setPlaceholderText(u"Feld, Zeile, Beleg oder Seite …"_s);
    query_->setAccessibleName(u"Suchbegriff"_s);
    query_->installEventFilter(this);
    list_->setObjectName(u"searchResults"_s);
    list_->setItemDelegate(new ResultDelegate(list_));
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setAccessibleName(u"Gefunden"_s);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(10);
    column->addWidget(query_);
    column->addWidget(list_);
    connect(query_, &QLineEdit::textChanged, this, &SearchDialog::search);
    connect(query_, &QLineEdit::returnPressed, this, &SearchDialog::choose);
    connect(list_, &QListWidget::itemActivated, this, &SearchDialog::choose);
    connect(list_, &QListWidget::itemClicked, this, &SearchDialog::choose);
}

void SearchDialog::begin(std::vector<SearchEntry> entries) {
    entries_ = std::move(entries);
    query_->clear();
    search();
    query_->setFocus();
    show();
}

void SearchDialog::search() {
    found_ = searchFor(entries_, utf8(query_->text()));
    list_->clear();
    for (const SearchEntry& entry : found_) {
        list_->addItem(qs(entry.title) + u"\n"_s + qs(entry.detail));
    }
    if (found_.empty() && !query_->text().trimmed().isEmpty()) {
        auto* const none = new QListWidgetItem(u"Nichts gefunden."_s, list_);
        none->setFlags(Qt::NoItemFlags);
    }
    list_->setCurrentRow(0);
}

void SearchDialog::choose() {
    const int row = list_->currentRow();
    if (row >= 0 && row < static_cast<int>(found_.size())) {
        const SearchEntry entry = found_[static_cast<std::size_t>(row)];
        accept();
        Q_EMIT chosen(entry);
    }
}

/// The arrow keys move in the list while the keyboard stays in the query.
bool SearchDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == query_ && event->type() == QEvent::KeyPress) {
        const int key = dynamic_cast<QKeyEvent&>(*event).key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp
            || key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(list_, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace fiscarel::shell
