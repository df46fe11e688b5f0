#pragma once

#include <QDate>
#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace corpus {

/// Francs in whole rappen.
using Cents = qint64;

/// "68000.00"
QString machineText(Cents cents);
/// The amount of "68000.5"; absent for anything but digits with at most one point.
std::optional<Cents> centsOf(const QString& text);

/// One record of the return that a document states.
struct TruthRecord {
    QString kind; ///< raw value of `ProposedRecord::Kind`
    QString personName;
    QDate birthDate;
    int year = 0;
    QMap<QString, QString> values; ///< by field name: amounts as "68000.00", dates ISO, texts
    QStringList derived;           ///< fields whose value is a sum that stands nowhere on the page

    TruthRecord& amount(const char* field, Cents cents);
    TruthRecord& text(const char* field, const QString& value);
    TruthRecord& date(const char* field, QDate value);
};

/// What a reader should find in a document.
struct Truth {
    QString kind;          ///< raw value of `StoredDocument::Kind`
    QStringList alsoKinds; ///< kinds that are no mistake either
    QString group;         ///< kind of paper, finer than `kind`: "salary", "donation"
    QString layout;
    QString language;
    QString look;
    bool payload = false;
    int pages = 1;
    std::vector<TruthRecord> records;
    std::vector<TruthRecord>
        accepted;          ///< neither demanded nor wrong, such as a total of a register
    QStringList forbidden; ///< printed amounts that belong to no field

    QByteArray json() const;
    static std::optional<Truth> fromJson(const QByteArray& text);
};

/// Whether a field holds an amount in francs (or a quantity) rather than a text or a date.
bool isAmountField(const QString& field);

} // namespace corpus
