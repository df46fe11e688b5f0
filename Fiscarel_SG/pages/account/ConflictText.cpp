#include "Fiscarel_SG/pages/account/ConflictText.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/CellText.h"
#include "Fiscarel_SG/forms/InputText.h"
#include "Fiscarel_SG/forms/PagePaths.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/pages/InputPages.h"
#include "TaxCore/base/Json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>
#include <algorithm>
#include <map>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using taxcore::TaxCase;

namespace {

constexpr qsizetype mostLetters = 200; ///< of a value that is shown

const QString gone = u"gelöscht"_s;
const QString empty = u"leer"_s;

QString shortened(QString text) {
    text = text.simplified();
    if (text.size() > mostLetters) {
        text = text.left(mostLetters - 2) + u" …"_s;
    }
    return text.isEmpty() ? empty : text;
}

/// The identity of the last item on a path.
std::string idIn(const std::string& path) {
    const std::size_t open = path.rfind('[');
    const std::size_t close = path.rfind(']');
    return open == std::string::npos || close == std::string::npos || close < open
               ? std::string()
               : path.substr(open + 1, close - open - 1);
}

/// A path with every item named as told.
std::string withItems(const std::string& path, const std::string& item) {
    std::string named;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t open = path.find('[', at);
        const std::size_t close = path.find(']', open);
        if (close == std::string::npos) {
            return named.append(path, at);
        }
        named.append(path, at, open - at).append("[" + item + "]");
        at = close + 1;
    }
    return named;
}

/// A case in which a value stands at a path, every list on the way being that one item; as the file
/// reads it. Absent when it does not read.
std::optional<TaxCase> caseWith(TaxCase taxCase, const std::string& path, const std::string& json) {
    std::string text = json;
    std::size_t end = path.size();
    while (end > 0) { // from within
        if (path[end - 1] == ']') {
            text = "[" + text + "]";
            end = path.rfind('[', end - 1);
            if (end == std::string::npos) {
                return std::nullopt;
            }
            continue;
        }
        const std::size_t before = path.find_last_of(".]", end - 1);
        const std::size_t begin = before == std::string::npos ? 0 : before + 1;
        text = "{\"" + path.substr(begin, end - begin) + "\":" + text + "}";
        end = before == std::string::npos ? 0 : path[before] == '.' ? before : before + 1;
    }
    if (!taxcore::patchFromJson(taxCase, text)) {
        return std::nullopt;
    }
    return taxCase;
}

/// What is no field of a page: texts, numbers and answers as they are.
QString plainValue(const std::string& json) {
    const QJsonDocument document =
        QJsonDocument::fromJson("[" + QByteArray::fromStdString(json) + "]");
    const QJsonValue value = document.array().at(0);
    if (value.isBool()) {
        return value.toBool() ? u"ja"_s : u"nein"_s;
    }
    if (value.isString()) {
        return shortened(value.toString());
    }
    if (value.isDouble()) {
        const auto number = taxcore::Decimal::parse(json);
        return number ? qs(forms::formatNumber(*number)) : qs(json);
    }
    return value.isNull() ? empty : u"geändert"_s;
}

/// A value of a field of a case, as the field shows it.
QString fieldValue(forms::BoundField field, const TaxCase& taxCase) {
    const forms::Value value = field.get(taxCase);
    if (const auto* const yes = std::get_if<bool>(&value)) {
        return *yes ? u"ja"_s : u"nein"_s;
    }
    if (field.optionsFor) {
        field.options = field.optionsFor(taxCase);
    }
    const QString text = forms::cellText(field, value);
    return text.isEmpty() || field.unit.empty() ? shortened(text)
                                                : u"%1 %2"_s.arg(text, qs(field.unit));
}

/// Of a document, by the field's name.
QString documentValue(const std::string& name, const std::string& json) {
    const QString plain = plainValue(json);
    if (name == "kind") {
        const auto kind = taxcore::enumFromRaw<StoredDocument::Kind>(utf8(plain));
        return kind ? qs(taxcore::label(*kind)) : plain;
    }
    if (name == "amount") {
        const auto amount = taxcore::Decimal::parse(json);
        return amount ? u"%1 CHF"_s.arg(qs(forms::formatAmount(*amount))) : plain;
    }
    return name == "year" ? qs(json) : plain;
}

QString documentLabel(const std::string& name) {
    static const std::map<std::string, QString> labels{
        {"title", u"Titel"_s},
        {"kind", u"Art"_s},
        {"year", u"Steuerjahr"_s},
        {"note", u"Notiz"_s},
        {"amount", u"Betrag"_s},
        {"issuer", u"Aussteller"_s},
        {"isApplied", u"Übernommen"_s},
        {"applied", u"Übernommene Angaben"_s},
        {"isKindChosen", u"Art von Ihnen gewählt"_s}};
    const auto found = labels.find(name);
    return found != labels.end() ? found->second : u"Beleg"_s;
}

/// The conflicts of one state, with the pages of its years made once.
class Describing {
  public:
    explicit Describing(AppStore& store) : store_(store) {}

    ConflictText of(const MergeConflict& conflict) {
        return conflict.year == 0 ? ofDocument(conflict) : ofCase(conflict);
    }

  private:
    const std::vector<forms::Page>& pagesOf(int year, const TaxCase& taxCase) {
        auto& pages = pages_[year];
        if (pages.empty()) {
            pages =
                inputPages(year == store_.year()
                               ? pageContext(store_)
                               : forms::PageContext{.year = year, .region = taxCase.taxRegion()});
        }
        return pages;
    }

    ConflictText ofCase(const MergeConflict& conflict) {
        const QString year = u"Steuerjahr %1"_s.arg(conflict.year);
        const auto found = store_.cases().find(conflict.year);
        if (found == store_.cases().end() || conflict.path.empty()) {
            return {year,
                    {},
                    conflict.ours ? u"vorhanden"_s : gone,
                    conflict.theirs ? u"vorhanden"_s : gone,
                    {},
                    {},
                    conflict.path.empty()};
        }
        const TaxCase& taxCase = found->second;
        const auto& pages = pagesOf(conflict.year, taxCase);
        const auto counted = taxcore::countedPath(taxCase, conflict.path);
        // An item that has gone goes by its list; no list has as many.
        const auto place =
            forms::placeOf(pages, taxCase, counted.value_or(withItems(conflict.path, "999999")));
        ConflictText text;
        text.label =
            place ? qs(place->field && place->field->labelFor ? place->field->labelFor(taxCase)
                                                              : place->label)
                  : u"Angabe"_s;
        text.where = place ? year + u" · "_s + qs(place->where) : year;
        text.ours = value(conflict, conflict.ours, taxCase, pages);
        text.theirs = value(conflict, conflict.theirs, taxCase, pages);
        if (conflict.path.ends_with(".documentID")) {
            text.label = u"Beleg zu «%1»"_s.arg(text.label);
            text.ours = titleOf(conflict.ours);
            text.theirs = titleOf(conflict.theirs);
        }
        text.isWhole = conflict.path.ends_with(']');
        text.path = place ? counted.value_or(std::string()) : std::string();
        return text;
    }

    /// Of a field by the field itself, of an item by its title and amount.
    static QString value(const MergeConflict& conflict, const std::optional<std::string>& json,
                         const TaxCase& taxCase, const std::vector<forms::Page>& pages) {
        const bool isItem = conflict.path.ends_with(']');
        if (!json) {
            return isItem ? gone : empty;
        }
        const auto with = caseWith(taxCase, conflict.path, *json);
        const auto place =
            with ? forms::placeOf(pages, *with, withItems(conflict.path, "0")) : std::nullopt;
        if (place && place->field) {
            return fieldValue(*place->field, *with);
        }
        if (place && isItem) {
            const forms::RowSummary summary = place->list->summary(*with, 0);
            QStringList parts{qs(summary.title), qs(summary.detail), qs(summary.amount)};
            parts.removeAll(QString());
            return parts.isEmpty() ? u"neu"_s : shortened(parts.join(u", "_s));
        }
        return plainValue(*json);
    }

    /// Of the document that a case names.
    QString titleOf(const std::optional<std::string>& json) const {
        const auto id = json ? taxcore::Uuid::parse(utf8(plainValue(*json))) : std::nullopt;
        if (!id) {
            return empty;
        }
        const auto found = std::ranges::find(store_.documents(), *id, &StoredDocument::id);
        return found != store_.documents().end() ? shortened(qs(found->title))
                                                 : u"ein Beleg, der hier fehlt"_s;
    }

    ConflictText ofDocument(const MergeConflict& conflict) const {
        const bool isWhole = conflict.path.ends_with(']');
        const std::string id = idIn(conflict.path);
        const std::string name =
            isWhole ? std::string() : conflict.path.substr(conflict.path.rfind('.') + 1);
        const auto& all = store_.documents();
        const auto found = std::ranges::find_if(
            all, [&](const StoredDocument& document) { return document.id.toString() == id; });
        const auto value = [&](const std::optional<std::string>& json) {
            return isWhole ? (json ? u"behalten"_s : gone)
                   : json  ? documentValue(name, *json)
                           : empty;
        };
        ConflictText text;
        text.label = documentLabel(name);
        text.where = u"Belege"_s;
        if (found != all.end()) {
            text.where += u" · %1 (%2)"_s.arg(qs(found->title)).arg(found->year);
            text.document = id;
        }
        text.isWhole = isWhole;
        text.ours = value(conflict.ours);
        text.theirs = value(conflict.theirs);
        return text;
    }

    AppStore& store_;
    std::map<int, std::vector<forms::Page>> pages_;
};

} // namespace

std::vector<ConflictText> describe(AppStore& store, const std::vector<MergeConflict>& conflicts) {
    Describing describing(store);
    std::vector<ConflictText> texts;
    texts.reserve(conflicts.size());
    for (const MergeConflict& conflict : conflicts) {
        texts.push_back(describing.of(conflict));
    }
    return texts;
}

} // namespace fiscarel::pages
