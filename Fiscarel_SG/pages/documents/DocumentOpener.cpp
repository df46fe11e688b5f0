#include "Fiscarel_SG/pages/documents/DocumentOpener.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"
#include "Fiscarel_SG/pages/documents/DocumentSheet.h"
#include "Fiscarel_SG/store/DocumentLinks.h"

#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

const StoredDocument* find(const AppStore& store, const taxcore::Uuid& id) {
    const auto found = std::ranges::find(store.documents(), id, &StoredDocument::id);
    return found == store.documents().end() ? nullptr : &*found;
}

} // namespace

DocumentOpener::DocumentOpener(AppStore& store, DocumentDesk& desk, QWidget* window)
    : QObject(window), store_(store), desk_(desk), window_(window) {
    connect(&desk.readings(), &DocumentReadings::changed, this, &DocumentOpener::readingChanged);
}

void DocumentOpener::open(const taxcore::Uuid& id, const std::string& path) {
    const StoredDocument* const document = find(store_, id);
    wanted_.reset();
    if (document == nullptr || !store_.fileOf(*document)) {
        Q_EMIT told(document == nullptr ? u"Diesen Beleg gibt es nicht mehr."_s
                                        : u"Die Datei dieses Belegs liegt nicht mehr im "
                                          "Datenordner."_s);
        return;
    }
    if (desk_.readings().result(id) != nullptr) {
        show({id, path});
        return;
    }
    wanted_ = Wanted{id, path};
    Q_EMIT told(u"«%1» wird zuerst gelesen …"_s.arg(qs(document->title)));
    desk_.readings().read(id);
}

void DocumentOpener::readingChanged(const taxcore::Uuid& id) {
    if (!wanted_ || !(wanted_->id == id) || desk_.readings().progress(id)) {
        return;
    }
    const Wanted wanted = *std::exchange(wanted_, std::nullopt);
    if (desk_.readings().result(id) != nullptr) { // else it was cancelled
        show(wanted);
    }
}

void DocumentOpener::show(const Wanted& wanted) {
    const StoredDocument* document = find(store_, wanted.id);
    if (document == nullptr || !sheet_.isNull()) {
        return;
    }
    if (document->year != store_.year()) { // its values belong to that year's return
        store_.setYear(document->year);
        document = find(store_, wanted.id);
    }
    sheet_ = new DocumentSheet(store_, wanted.id, *desk_.readings().result(wanted.id),
                               desk_.images(), window_);
    sheet_->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet_, &DocumentSheet::applied, this,
            [this](const QString& title) { Q_EMIT undoOffered(u"«%1» übernommen."_s.arg(title)); });
    connect(sheet_, &DocumentSheet::filed, this,
            [this](const QString& title) { Q_EMIT told(u"«%1» abgelegt."_s.arg(title)); });
    connect(sheet_, &DocumentSheet::gone, this,
            [this] { Q_EMIT told(u"Diesen Beleg gibt es nicht mehr."_s); });
    connect(sheet_, &DocumentSheet::removed, this,
            [this](const QString& title) { Q_EMIT undoOffered(u"«%1» entfernt."_s.arg(title)); });
    connect(sheet_, &DocumentSheet::fieldWanted, this, &DocumentOpener::fieldWanted);
    connect(sheet_, &DocumentSheet::pageWanted, this, &DocumentOpener::pageWanted);
    if (const AppliedValue* const value =
            wanted.path.empty() ? nullptr : appliedAt(store_.current(), *document, wanted.path)) {
        sheet_->showPlace(value->page, value->box);
    }
    sheet_->open();
}

} // namespace fiscarel::pages
