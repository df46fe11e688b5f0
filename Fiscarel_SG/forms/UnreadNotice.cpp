#include "Fiscarel_SG/forms/UnreadNotice.h"

#include "Fiscarel_SG/look/QtText.h"

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Nothing is to be seen of it in the field.
bool isEmpty(const BoundField& field, const Value& value) {
    const bool isZero = value == Value(0) || value == Value(Decimal());
    return value == Value() || value == Value(std::string()) || (!field.isOptional && isZero);
}

} // namespace

UnreadText unreadNotice(const BoundField& field, const UnreadEntry& entry) {
    const QString meanwhile = isEmpty(field, entry.before)
                                  ? u"Bis dahin bleibt das Feld leer."_s
                                  : u"Bis dahin gilt der bisherige Wert."_s;
    return {.text = utf8(entry.text),
            .problem = {.level = taxcore::Notice::Level::error,
                        .title = utf8(u"«%1» ist nicht lesbar"_s.arg(entry.label)),
                        .message = utf8(entry.problem + u' ' + meanwhile),
                        .area = entry.pageId}};
}

} // namespace fiscarel::forms
