#include "Fiscarel_SG/pages/NoticeSign.h"

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using taxcore::Notice;

NoticeSign NoticeSign::of(Notice::Level level) {
    switch (level) {
    case Notice::Level::error:
        return {u"Fehler"_s, "error"};
    case Notice::Level::warning:
        return {u"Bitte prüfen"_s, "warning"};
    case Notice::Level::tip:
        return {u"Tipp"_s, "good"};
    case Notice::Level::info:
        break;
    }
    return {u"Hinweis"_s, "faint"};
}

} // namespace fiscarel::pages
