#include "Fiscarel_SG/pages/NoticeDoor.h"

#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using taxcore::Notice;

NoticeDoor* NoticeDoor::of(const Notice& notice, const QString& name, QWidget* parent) {
    return notice.path || notice.area ? new NoticeDoor(notice, name, parent) : nullptr;
}

NoticeDoor::NoticeDoor(const Notice& notice, const QString& name, QWidget* parent)
    : QPushButton(notice.path ? u"Zum Feld"_s : u"Zur Seite"_s, parent) {
    setObjectName(u"%1:%2"_s.arg(name, qs(notice.id)));
    setAccessibleName(u"%1: %2"_s.arg(text(), qs(notice.title)));
    look::setRole(this, "link");
    connect(this, &QPushButton::clicked, this, [this, path = notice.path, area = notice.area] {
        if (path) {
            Q_EMIT fieldWanted(qs(*path));
        } else {
            Q_EMIT pageWanted(qs(*area));
        }
    });
}

} // namespace fiscarel::pages
