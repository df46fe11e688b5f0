#include "Fiscarel_SG/pages/documents/ProposalText.h"

#include "Fiscarel_SG/forms/InputText.h"
#include "Fiscarel_SG/look/QtText.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <charconv>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;
using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

template <class Parsed>
std::optional<forms::Value> asValue(const Parsed& parsed) {
    return parsed ? std::optional<forms::Value>(*parsed) : std::nullopt;
}

std::optional<int> integerOf(const std::string& text) {
    int number = 0;
    const char* const last = text.data() + text.size();
    const auto [end, status] = std::from_chars(text.data(), last, number);
    return status == std::errc{} && end == last ? std::optional(number) : std::nullopt;
}

std::optional<forms::Value> choiceOf(const forms::BoundField& field, const std::string& text) {
    const bool isOffered =
        std::ranges::find(field.options, text, &forms::Option::raw) != field.options.end();
    return isOffered ? std::optional<forms::Value>(text) : std::nullopt;
}

QString witnessSentence(Witness witness) {
    switch (witness) {
    case Witness::payload:
        return u"Aus dem Strichcode."_s;
    case Witness::position:
        return u"Gelesen an seiner Stelle auf der Seite."_s;
    case Witness::text:
        break;
    }
    return u"Gelesen aus dem Text."_s;
}

QString sentence(QString text) {
    static const QString ends = u".!?"_s;
    return text.isEmpty() || ends.contains(text.back()) ? text : text + u'.';
}

} // namespace

std::optional<forms::Value> fieldValue(const forms::BoundField& field, const std::string& text) {
    using forms::Editor;
    switch (field.editor) {
    case Editor::amount:
    case Editor::decimal:
        return asValue(Decimal::parse(text));
    case Editor::integer:
        return asValue(integerOf(text));
    case Editor::date:
        return asValue(Date::parse(text));
    case Editor::check:
        return text == "true" || text == "false" ? std::optional<forms::Value>(text == "true")
                                                 : std::nullopt;
    case Editor::choice:
        return choiceOf(field, text);
    case Editor::text:
    case Editor::paragraph:
    case Editor::iban:
    case Editor::municipality:
    case Editor::parish:
        break;
    }
    return text;
}

std::string proposalText(const forms::Value& value) {
    struct Text {
        std::string operator()(std::monostate) const { return {}; }
        std::string operator()(bool yes) const { return yes ? "true" : "false"; }
        std::string operator()(int number) const { return std::to_string(number); }
        std::string operator()(const Decimal& number) const { return number.toString(); }
        std::string operator()(const std::string& text) const { return text; }
        std::string operator()(const Date& date) const { return date.toString().substr(0, 10); }
    };
    return std::visit(Text{}, value);
}

QString signOf(Confidence confidence) {
    const QString name = qs(label(confidence));
    switch (confidence) {
    case Confidence::high:
        return u"✓ "_s + name;
    case Confidence::medium:
        return u"≈ "_s + name;
    case Confidence::low:
        break;
    }
    return u"? "_s + name;
}

const char* roleOf(Confidence confidence) {
    return confidence == Confidence::high     ? "good"
           : confidence == Confidence::medium ? "faint"
                                              : "warning";
}

QString evidenceOf(const Proposal& proposal) {
    // Where a value was read from the page, the reason says it more precisely.
    QStringList sentences{sentence(qs(proposal.reason))};
    if (proposal.witness == Witness::payload || proposal.reason.empty()) {
        sentences.prepend(witnessSentence(proposal.witness));
    }
    for (const ProposalCheck& check : proposal.checks) {
        sentences << (check.passed ? u"Geprüft: "_s : u"Stimmt nicht: "_s)
                         + sentence(qs(check.text));
    }
    if (proposal.page > 0) {
        sentences << u"Seite %1."_s.arg(proposal.page);
    }
    sentences.removeAll(QString());
    return sentences.join(u' ');
}

QString withGroupedIbans(const std::string& text) {
    static const QRegularExpression iban(u"\\b[A-Z]{2}\\d{2}[0-9A-Z]{11,30}\\b"_s);
    QString grouped = qs(text);
    for (auto found = iban.match(grouped); found.hasMatch();
         found = iban.match(grouped, found.capturedStart() + 5)) {
        grouped.replace(found.capturedStart(), found.capturedLength(),
                        qs(forms::groupIban(utf8(found.captured()))));
    }
    return grouped;
}

QString breakable(QString label) {
    static const QRegularExpression part(
        u"(?<=\\p{Ll}{6})(?=(entschädigung|bescheinigung|versicherung|bestätigung|beiträge|"
        "leistungen|kosten|einkünfte|steuer))"_s,
        QRegularExpression::UseUnicodePropertiesOption);
    return label.replace(part, QString(QChar(0x00AD)));
}

QString warningOf(const Proposal& proposal) {
    QStringList failed;
    for (const ProposalCheck& check : proposal.checks) {
        if (!check.passed) {
            failed << sentence(qs(check.text));
        }
    }
    return failed.isEmpty() ? QString() : u"⚠ Bitte prüfen: "_s + failed.join(u' ');
}

bool isTrusted(const Proposal& proposal) {
    return proposal.confidence != Confidence::low
           || (!proposal.checks.empty()
               && std::ranges::all_of(proposal.checks, &ProposalCheck::passed));
}

} // namespace fiscarel::pages
