#include "Fiscarel_SG/pages/account/CloudText.h"

#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Written.h"

#include <QStringList>
#include <algorithm>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using Activity = CloudStatus::Activity;
using Phase = CloudStatus::Phase;

namespace {

QDateTime timeOf(const taxcore::Moment& moment) {
    return QDateTime::fromSecsSinceEpoch(moment.seconds);
}

/// "14:32", of another day "20.11., 14:32"
QString shortTime(const QDateTime& at, const QDateTime& now) {
    return at.toString(at.date() == now.date() ? u"HH:mm"_s : u"dd.MM., HH:mm"_s);
}

/// "heute um 14:32", "am 20.11.2026 um 14:32"
QString longTime(const QDateTime& at, const QDateTime& now) {
    const QString day =
        at.date() == now.date() ? u"heute"_s : u"am %1"_s.arg(look::written(at.date()));
    return u"%1 um %2"_s.arg(day, at.toString(u"HH:mm"_s));
}

QString documents(std::size_t count) {
    return count == 1 ? u"1 Beleg"_s : u"%1 Belege"_s.arg(count);
}

QString listed(const std::vector<int>& years) {
    QStringList texts;
    for (const int year : years) {
        texts << QString::number(year);
    }
    return texts.join(u", "_s);
}

/// What the user has to see to while signed in; empty for nothing.
QString askingText(const CloudStatus& status) {
    if (status.question) {
        return u"Cloud: Frage beantworten"_s;
    }
    if (!status.conflicts.empty()) {
        return status.conflicts.size() == 1 ? u"Cloud: Konflikt ansehen"_s
                                            : u"Cloud: Konflikte ansehen"_s;
    }
    if (status.deletionPlanned) {
        return u"Cloud: Löschung vorgesehen"_s;
    }
    return status.problem && status.activity != Activity::offline ? u"Cloud: Meldung ansehen"_s
                                                                  : QString();
}

CloudLine readyLine(const CloudStatus& status, const QDateTime& now) {
    if (QString asking = askingText(status); !asking.isEmpty()) {
        return {std::move(asking), true};
    }
    switch (status.activity) {
    case Activity::offline:
        return {u"Cloud: offline, wird nachgeholt"_s};
    case Activity::working:
    case Activity::comparing:
        return {u"Cloud: wird abgeglichen …"_s};
    case Activity::sending:
        return {u"Cloud: %1 hochzuladen"_s.arg(documents(status.documentsToSend))};
    case Activity::fetching:
        return {u"Cloud: %1 zu holen"_s.arg(documents(status.documentsToFetch))};
    case Activity::resting:
        break;
    }
    return {status.compared
                ? u"Cloud: abgeglichen %1"_s.arg(shortTime(timeOf(*status.compared), now))
                : u"Cloud: noch nicht abgeglichen"_s};
}

QString amount(std::int64_t bytes) {
    constexpr double mega = 1024.0 * 1024;
    constexpr double giga = mega * 1024;
    const auto count = static_cast<double>(bytes);
    const bool isLarge = count >= giga;
    const double shown = count / (isLarge ? giga : mega);
    QString text = QString::number(std::max(shown, bytes > 0 ? 0.1 : 0.0), 'f', 1);
    if (text.endsWith(u".0"_s)) {
        text.chop(2);
    }
    return text + (isLarge ? u" GB"_s : u" MB"_s);
}

} // namespace

CloudLine cloudLine(const CloudStatus& status, const QDateTime& now) {
    const bool isKnown = !status.email.empty();
    switch (status.phase) {
    case Phase::starting:
    case Phase::demo:
        return {};
    case Phase::noKeyring:
        return {isKnown ? u"Cloud: ohne Schlüsselbund aus"_s : QString()};
    case Phase::signedOut:
        if (isKnown && status.problem && status.activity == Activity::resting) {
            return {u"Cloud: bitte neu anmelden"_s, true};
        }
        return {isKnown ? u"Cloud: abgemeldet"_s : QString()};
    case Phase::codeSent:
        return {u"Cloud: Code eingeben"_s, true};
    case Phase::confirmsKey:
        return {u"Cloud: Schlüssel aufbewahren"_s, true};
    case Phase::needsRecoveryKey:
        return {u"Cloud: Schlüssel eingeben"_s, true};
    case Phase::ready:
        break;
    }
    return readyLine(status, now);
}

std::size_t openPoints(const CloudStatus& status) {
    return status.phase == Phase::ready ? status.conflicts.size() + (status.question ? 1U : 0U)
                                        : 0U;
}

QString cloudState(const CloudStatus& status, const QDateTime& now) {
    const QString compared = status.compared
                                 ? u"abgeglichen %1."_s.arg(longTime(timeOf(*status.compared), now))
                                 : u"noch nicht abgeglichen."_s;
    if (status.question) {
        return u"Angehalten, bis die Frage oben beantwortet ist."_s;
    }
    switch (status.activity) {
    case Activity::offline:
        return u"Offline. Änderungen werden nachgeholt, sobald wieder eine Verbindung besteht; "
               "%1"_s.arg(status.compared ? u"zuletzt "_s + compared : compared);
    case Activity::working:
        return u"Einen Moment …"_s;
    case Activity::comparing:
        return u"Wird abgeglichen …"_s;
    case Activity::sending:
        return u"Die Angaben sind abgeglichen; Belege werden hochgeladen …"_s;
    case Activity::fetching:
        return u"Die Angaben sind abgeglichen; Belege werden geholt …"_s;
    case Activity::resting:
        break;
    }
    return compared.left(1).toUpper() + compared.mid(1);
}

QString spaceText(std::int64_t used, std::int64_t allowed) {
    return u"%1 von %2 belegt"_s.arg(amount(used), amount(allowed));
}

QString lossText(const StateLoss& loss) {
    QStringList parts;
    if (!loss.years.empty()) {
        parts << (loss.years.size() == 1 ? u"das Steuerjahr %1"_s : u"die Steuerjahre %1"_s)
                     .arg(listed(loss.years));
    }
    if (!loss.halvedYears.empty()) {
        parts << (loss.halvedYears.size() == 1 ? u"grosse Teile des Steuerjahrs %1"_s
                                               : u"grosse Teile der Steuerjahre %1"_s)
                     .arg(listed(loss.halvedYears));
    }
    if (loss.fields > 0) {
        parts << u"%1 von %2 Angaben"_s.arg(loss.fields).arg(loss.fieldsBefore);
    }
    if (loss.documents > 0) {
        parts << (loss.documentsBefore == 1
                      ? u"der einzige Beleg"_s
                      : u"%1 von %2 Belegen"_s.arg(loss.documents).arg(loss.documentsBefore));
    }
    const QString last = parts.isEmpty() ? QString() : parts.takeLast();
    return parts.isEmpty() ? last : parts.join(u", "_s) + u" und "_s + last;
}

} // namespace fiscarel::pages
