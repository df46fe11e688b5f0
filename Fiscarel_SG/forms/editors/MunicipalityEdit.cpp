#include "Fiscarel_SG/forms/editors/MunicipalityEdit.h"

#include "Fiscarel_SG/look/Theme.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

namespace fiscarel::forms {

namespace {

constexpr int foldedRole = Qt::UserRole;
constexpr int positionRole = Qt::UserRole + 1;
constexpr int rankRole = Qt::UserRole + 2;

/// Finds names by any part of them, with or without umlauts, blanks and points. What is typed comes
/// first, then what begins so, then what has it elsewhere.
class NameCompleter final : public QCompleter {
  public:
    NameCompleter(const std::vector<std::string>& names, QObject* parent) : QCompleter(parent) {
        for (const std::string& name : names) {
            auto* const item = new QStandardItem(qs(name));
            // A line each, so that nothing is found across both.
            item->setData(foldedName(qs(name), Umlauts::plain) + u'\n'
                              + foldedName(qs(name), Umlauts::spelledOut),
                          foldedRole);
            item->setData(list_->rowCount(), positionRole);
            list_->appendRow(item);
        }
        list_->setSortRole(rankRole);
        setModel(list_);
        setCompletionRole(foldedRole);
        setFilterMode(Qt::MatchContains);
        setCaseSensitivity(Qt::CaseInsensitive);
        setMaxVisibleItems(10);
        look::setRole(popup(), "rows");
        popup()->setItemDelegate(new QStyledItemDelegate(popup())); // which follows the style sheet
    }

    /// Puts the names that suit what is typed best first; of equal ones the order stays.
    void rank(const QString& typed) {
        const QString wanted = splitPath(typed).constFirst();
        for (int row = 0; row < list_->rowCount(); ++row) {
            QStandardItem* const item = list_->item(row);
            const int rank = rankOf(item->data(foldedRole).toString().split(u'\n'), wanted);
            item->setData(rank * list_->rowCount() + item->data(positionRole).toInt(), rankRole);
        }
        list_->sort(0);
    }

    QStringList splitPath(const QString& path) const override {
        return {foldedName(path, Umlauts::plain)};
    }
    QString pathFromIndex(const QModelIndex& index) const override {
        return index.data(Qt::DisplayRole).toString();
    }

  private:
    /// 0 for the name itself, 1 for its beginning, 2 for the rest; by either spelling.
    static int rankOf(const QStringList& spellings, const QString& wanted) {
        int best = 2;
        for (const QString& spelling : spellings) {
            best = std::min(best, spelling == wanted ? 0 : spelling.startsWith(wanted) ? 1 : 2);
        }
        return best;
    }

    QStandardItemModel* list_ = new QStandardItemModel(this);
};

std::vector<std::string> namesOf(const PageContext& page) {
    std::vector<std::string> names;
    if (page.stGallen != nullptr) {
        for (const auto& municipality : page.stGallen->municipalities.municipalities) {
            names.push_back(municipality.name);
        }
    } else if (page.liechtenstein != nullptr) {
        for (const auto& municipality : page.liechtenstein->gemeinden) {
            names.push_back(municipality.name);
        }
    }
    return names;
}

} // namespace

MunicipalityEdit::MunicipalityEdit(BoundField field, const PageContext& page, QWidget* parent)
    : LineEditor(std::move(field), 36, parent), names_(namesOf(page)), year_(page.year) {
    line()->setSelectsAll(true);
    auto* const completer = new NameCompleter(names_, this);
    rank_ = [completer](const QString& typed) { completer->rank(typed); };
    line()->setCompleter(completer);
    connect(completer, qOverload<const QString&>(&QCompleter::activated), this,
            [this](const QString& name) { choose(utf8(name)); });
    auto* const button =
        new InputButton(InputButton::Sign::list, QStringLiteral("Gemeinden zeigen"), line());
    line()->setButton(button);
    line()->listRequested = [this] { return openList(); };
    connect(button, &QToolButton::clicked, this, [this] { openList(); });
}

/// The name as the list spells it; one that is not in the list as it was typed.
LineEditor::Reading MunicipalityEdit::read(const QString& text) const {
    const std::string typedName = utf8(text);
    const auto isTyped = [&](const std::string& name) {
        const QString typed = foldedName(text, Umlauts::plain);
        return typed == foldedName(qs(name), Umlauts::plain)
               || typed == foldedName(qs(name), Umlauts::spelledOut);
    };
    const auto found = std::ranges::find_if(names_, isTyped);
    return Value(found != names_.end() ? *found : typedName);
}

QString MunicipalityEdit::shown(const Value& value) const {
    const auto* const name = std::get_if<std::string>(&value);
    return name != nullptr ? qs(*name) : QString();
}

QString MunicipalityEdit::problemOf(const Value& value) const {
    const auto* const name = std::get_if<std::string>(&value);
    // A property may lie anywhere; only who pays tax has to live in the list.
    const bool mustBeListed = field().path == "municipality" && !names_.empty();
    if (!mustBeListed || name == nullptr || name->empty()) {
        return {};
    }
    const QString entered = qs(*name);
    const auto isEntered = [&](const std::string& listed) {
        return qs(listed).compare(entered, Qt::CaseInsensitive) == 0;
    };
    if (std::ranges::any_of(names_, isEntered)) {
        return {};
    }
    return QStringLiteral("«%1» steht nicht in der Liste der Gemeinden %2. Bitte daraus wählen.")
        .arg(entered)
        .arg(year_);
}

/// Before the list is filtered by the same text.
void MunicipalityEdit::typing() { rank_(line()->text()); }

bool MunicipalityEdit::openList() {
    if (names_.empty()) {
        return false;
    }
    line()->setFocus();
    rank_(QString());
    line()->completer()->setCompletionPrefix(QString());
    line()->completer()->complete();
    return true;
}

} // namespace fiscarel::forms
