#include "tests/documents/corpus/kit/Truth.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

namespace corpus {
namespace {

QJsonObject jsonOf(const TruthRecord& record) {
    QJsonObject values;
    for (auto it = record.values.begin(); it != record.values.end(); ++it) {
        values.insert(it.key(), it.value());
    }
    QJsonObject json{{"kind", record.kind}, {"year", record.year}, {"values", values}};
    if (!record.personName.isEmpty()) {
        json.insert("personName", record.personName);
    }
    if (record.birthDate.isValid()) {
        json.insert("birthDate", record.birthDate.toString(Qt::ISODate));
    }
    if (!record.derived.isEmpty()) {
        json.insert("derived", QJsonArray::fromStringList(record.derived));
    }
    return json;
}

QStringList textsOf(const QJsonValue& list) {
    QStringList texts;
    for (const QJsonValue item : list.toArray()) {
        texts += item.toString();
    }
    return texts;
}

TruthRecord recordOf(const QJsonObject& json) {
    TruthRecord record;
    record.kind = json["kind"].toString();
    record.year = json["year"].toInt();
    record.personName = json["personName"].toString();
    record.birthDate = QDate::fromString(json["birthDate"].toString(), Qt::ISODate);
    record.derived = textsOf(json["derived"]);
    const QJsonObject values = json["values"].toObject();
    for (auto it = values.begin(); it != values.end(); ++it) {
        record.values.insert(it.key(), it.value().toString());
    }
    return record;
}

QJsonArray jsonOf(const std::vector<TruthRecord>& records) {
    QJsonArray list;
    for (const TruthRecord& record : records) {
        list.append(jsonOf(record));
    }
    return list;
}

std::vector<TruthRecord> recordsOf(const QJsonValue& list) {
    std::vector<TruthRecord> records;
    for (const QJsonValue item : list.toArray()) {
        records.push_back(recordOf(item.toObject()));
    }
    return records;
}

} // namespace

QString machineText(Cents cents) {
    return QString("%1.%2").arg(cents / 100).arg(cents % 100, 2, 10, QChar('0'));
}

std::optional<Cents> centsOf(const QString& text) {
    static const QRegularExpression form("^(-?)(\\d{1,13})(?:\\.(\\d+))?$");
    const auto match = form.match(text.trimmed());
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const QString fraction = (match.captured(3) + "000").left(3);
    const qint64 mills = match.captured(2).toLongLong() * 1000 + fraction.toLongLong();
    const Cents cents = (mills + 5) / 10;
    return match.captured(1).isEmpty() ? cents : -cents;
}

TruthRecord& TruthRecord::amount(const char* field, Cents cents) {
    if (cents != 0) {
        values.insert(field, machineText(cents));
    }
    return *this;
}

TruthRecord& TruthRecord::text(const char* field, const QString& value) {
    values.insert(field, value);
    return *this;
}

TruthRecord& TruthRecord::date(const char* field, QDate value) {
    values.insert(field, value.toString(Qt::ISODate));
    return *this;
}

QByteArray Truth::json() const {
    QJsonObject json{{"kind", kind},
                     {"group", group},
                     {"layout", layout},
                     {"language", language},
                     {"look", look},
                     {"payload", payload},
                     {"pages", pages},
                     {"records", jsonOf(records)},
                     {"forbidden", QJsonArray::fromStringList(forbidden)}};
    if (!alsoKinds.isEmpty()) {
        json.insert("alsoKinds", QJsonArray::fromStringList(alsoKinds));
    }
    if (!accepted.empty()) {
        json.insert("accepted", jsonOf(accepted));
    }
    return QJsonDocument(json).toJson();
}

std::optional<Truth> Truth::fromJson(const QByteArray& text) {
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject()) {
        return std::nullopt;
    }
    const QJsonObject json = document.object();
    Truth truth;
    truth.kind = json["kind"].toString();
    truth.alsoKinds = textsOf(json["alsoKinds"]);
    truth.group = json["group"].toString();
    truth.layout = json["layout"].toString();
    truth.language = json["language"].toString();
    truth.look = json["look"].toString();
    truth.payload = json["payload"].toBool();
    truth.pages = json["pages"].toInt(1);
    truth.records = recordsOf(json["records"]);
    truth.accepted = recordsOf(json["accepted"]);
    truth.forbidden = textsOf(json["forbidden"]);
    return truth;
}

bool isAmountField(const QString& field) {
    static const QStringList amounts{"grossSalary",
                                     "socialContributions",
                                     "pensionContributions",
                                     "pensionBuyIn",
                                     "netSalaryOverride",
                                     "flatRateExpenses",
                                     "amount",
                                     "interest",
                                     "pillar3a",
                                     "pillar3aBuyIn",
                                     "furtherEducation",
                                     "healthInsurancePremiums",
                                     "accidentInsurancePremiums",
                                     "lifeInsurancePremiums",
                                     "premiumReduction",
                                     "actualAssetManagementCosts",
                                     "childcareCosts",
                                     "educationCosts",
                                     "gross",
                                     "reimbursed",
                                     "taxValue",
                                     "incomeWithWithholding",
                                     "incomeWithoutWithholding",
                                     "quantity",
                                     "surrenderValue",
                                     "sumInsured",
                                     "imputedRentalValue",
                                     "ahvPension",
                                     "boardFees",
                                     "dailyAllowances",
                                     "unemployment",
                                     "rentalIncome",
                                     "actualMaintenanceCosts",
                                     "scholarships"};
    return amounts.contains(field);
}

} // namespace corpus
