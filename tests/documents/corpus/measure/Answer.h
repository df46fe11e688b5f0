#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

namespace corpus {

enum class Trust { high, medium, low };

struct ProposedValue {
    QString field;
    QString value;
    QString witness;
    Trust trust = Trust::low;
};

struct AnsweredRecord {
    QString kind;
    QString title;
    QString personName;
    std::vector<ProposedValue> values;
};

/// What a reader said about a file: the part of a scan result that is measured.
struct Answer {
    QString literalKind;
    QString proposedKind; ///< empty when nothing speaks for one
    std::vector<AnsweredRecord> records;
    QString problem;

    /// From the JSON of a scan result, alone or as the first of a list; absent for anything else.
    static std::optional<Answer> fromJson(const QByteArray& text);
};

} // namespace corpus
