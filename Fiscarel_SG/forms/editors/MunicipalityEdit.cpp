#include "Fiscarel_SG/forms/editors/MunicipalityEdit.h"

#include "Fiscarel_SG/forms/InputText.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QStandardItemModel>
#include <algorithm>
#include <utility>

namespace fiscarel::forms {

namespace {

constexpr int foldedRole = Qt::UserRole;

/// Finds names by any part of them, with or without umlauts, blanks and points.
class NameCompleter final : public QCompleter {
  public:
    NameCompleter(const std::vector<std::string>& names, QObject* parent) : QCompleter(parent) {
        auto* const list = new QStandardItemModel(this);
        for (const std::string& name : names) {
            auto* const item = new QStandardItem(qs(name));
            // A line each, so that nothing is found across both.
            item->setData(qs(foldName(name, false) + "\n" + foldName(name, true)), foldedRole);
            list->appendRow(item);
        }
        setModel(list);
        setCompletionRole(foldedRole);
        setFilterMode(Qt::MatchContains);
        setCaseSensitivity(Qt::CaseInsensitive);
        setMaxVisibleItems(10);
    }

    QStringList splitPath(const QString& path) const override {
        return {qs(foldName(utf8(path), false))};
    }
    QString pathFromIndex(const QModelIndex& index) const override {
        return index.data(Qt::DisplayRole).toString();
    }
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
        const std::string folded = foldName(typedName, false);
        return folded == foldName(name, false) || folded == foldName(name, true);
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

bool MunicipalityEdit::openList() {
    if (names_.empty()) {
        return false;
    }
    line()->setFocus();
    line()->completer()->setCompletionPrefix(QString());
    line()->completer()->complete();
    return true;
}

} // namespace fiscarel::forms
