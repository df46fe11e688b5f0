#include "tests/documents/corpus/measure/Answer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace corpus {
namespace {

Trust trustOf(const QString& text) {
    return text == "high" ? Trust::high : text == "medium" ? Trust::medium : Trust::low;
}

QString plainText(const QJsonValue& value) {
    return value.isDouble() ? QString::number(value.toDouble(), 'f', 2) : value.toString();
}

} // namespace

std::optional<Answer> Answer::fromJson(const QByteArray& text) {
    const QJsonDocument document = QJsonDocument::fromJson(text);
    const QJsonObject json =
        document.isArray() ? document.array().first().toObject() : document.object();
    if (!json.contains("kind")) {
        return std::nullopt;
    }
    Answer answer;
    answer.literalKind = json["kind"].toString();
    answer.proposedKind = json["proposedKind"].toString();
    answer.problem = json["problem"].toString();
    for (const QJsonValue item : json["records"].toArray()) {
        const QJsonObject record = item.toObject();
        answer.records.push_back({record["kind"].toString(),
                                  record["title"].toString(),
                                  record["personName"].toString(),
                                  {}});
    }
    for (const QJsonValue item : json["proposals"].toArray()) {
        const QJsonObject proposal = item.toObject();
        const int index = proposal["recordIndex"].toInt();
        if (index < 0 || index >= static_cast<int>(answer.records.size())) {
            continue;
        }
        answer.records[static_cast<size_t>(index)].values.push_back(
            {proposal["field"].toString(), plainText(proposal["value"]),
             proposal["witness"].toString(), trustOf(proposal["confidence"].toString())});
    }
    return answer;
}

} // namespace corpus
