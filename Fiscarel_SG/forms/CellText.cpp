#include "Fiscarel_SG/forms/CellText.h"

#include "Fiscarel_SG/forms/InputText.h"
#include "Fiscarel_SG/look/QtText.h"
#include "TaxCore/review/AmountSigns.h"

#include <QStringList>
#include <algorithm>

namespace fiscarel::forms {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Which kinds of fields hold any text.
bool isText(Editor editor) {
    switch (editor) {
    case Editor::amount:
    case Editor::decimal:
    case Editor::integer:
    case Editor::check:
    case Editor::choice:
    case Editor::date:
        return false;
    case Editor::text:
    case Editor::paragraph:
    case Editor::iban:
    case Editor::municipality:
    case Editor::parish:
        break;
    }
    return true;
}

bool isYes(const QString& text) {
    static const QStringList words{u"ja"_s, u"x"_s, u"1"_s, u"wahr"_s, u"true"_s};
    return words.contains(text, Qt::CaseInsensitive);
}

Read<Value> readChoice(const BoundField& field, const QString& text) {
    for (const Option& option : field.options) {
        if (qs(option.label).compare(text, Qt::CaseInsensitive) == 0 || option.raw == utf8(text)) {
            return Value(option.raw);
        }
    }
    return tl::unexpected(utf8(u"«%1» steht nicht zur Auswahl."_s.arg(text)));
}

Read<Value> readValue(const BoundField& field, const QString& text, int referenceYear) {
    const std::string typed = utf8(text);
    const auto asValue = [](auto read) { return Value(std::move(read)); };
    switch (field.editor) {
    case Editor::amount:
        return parseAmount(typed).map(asValue);
    case Editor::decimal:
        return parseNumber(typed, field.unit).map(asValue);
    case Editor::integer:
        return parseInteger(typed, field.unit).map(asValue);
    case Editor::date:
        return parseDate(typed, referenceYear).map(asValue);
    case Editor::check:
        return Value(isYes(text));
    case Editor::choice:
        return readChoice(field, text);
    case Editor::text:
    case Editor::paragraph:
    case Editor::iban:
    case Editor::municipality:
    case Editor::parish:
        break;
    }
    return Value(typed);
}

} // namespace

bool isNumber(Editor editor) noexcept {
    return editor == Editor::amount || editor == Editor::decimal || editor == Editor::integer;
}

QString cellText(const BoundField& field, const Value& value) {
    struct Text {
        const BoundField& field;
        QString operator()(std::monostate) const { return {}; }
        QString operator()(bool yes) const { return yes ? u"ja"_s : QString(); }
        QString operator()(int number) const { return QString::number(number); }
        QString operator()(const Decimal& number) const {
            if (number.isZero()) {
                return {};
            }
            return qs(field.editor == Editor::amount ? formatAmount(number) : formatNumber(number));
        }
        QString operator()(const std::string& text) const {
            const auto option = std::ranges::find(field.options, text, &Option::raw);
            return qs(option != field.options.end() ? option->label : text);
        }
        QString operator()(const Date& date) const { return qs(formatDate(date)); }
    };
    return std::visit(Text{field}, value);
}

tl::expected<Value, QString> readCell(const BoundField& field, const QString& text,
                                      int referenceYear) {
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty()) {
        return isText(field.editor) && !field.isOptional ? Value(std::string()) : Value();
    }
    return readValue(field, trimmed, referenceYear).map_error([](const std::string& sentence) {
        return qs(sentence);
    });
}

QString noteOn(const BoundField& field, const Value& value) {
    const auto* const amount = std::get_if<Decimal>(&value);
    const bool isUnusual = field.editor == Editor::amount && amount != nullptr
                           && amount->isNegative() && !taxcore::review::mayBeNegative(field.path);
    return isUnusual ? u"Hier gehört der Betrag ohne Minuszeichen hin."_s : QString();
}

} // namespace fiscarel::forms
