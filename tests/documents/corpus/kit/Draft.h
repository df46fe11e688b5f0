#pragma once

#include "tests/documents/corpus/kit/AmountStyle.h"
#include "tests/documents/corpus/kit/Paper.h"
#include "tests/documents/corpus/kit/People.h"
#include "tests/documents/corpus/kit/Random.h"
#include "tests/documents/corpus/kit/Truth.h"

#include <QSet>

namespace corpus {

/// A document while it is drawn: its paper, its truth and what both are made of.
class Draft {
  public:
    Draft(Random source, const QString& language, bool held, bool payload);

    Random random;
    QString language;
    bool held = false;    ///< of the set that nobody tunes against: other issuers
    bool payload = false; ///< barcodes with the data are printed
    int year = 2024;
    QDate dated; ///< of the letter; absent: early in the next year
    Paper paper;
    AmountStyle money;
    Family family;
    Issuer issuer;
    Truth truth;

    /// The text in the document's language; of several wordings ("Saldo|Kontostand") one by chance.
    QString t(const char* german, const char* french, const char* italian);
    /// One of several wordings.
    QString one(const char* wordings);
    /// One of the names of its set, as the issuer.
    void from(const std::vector<QString>& training, const std::vector<QString>& heldOut);

    /// An amount as text; it counts as printed.
    QString m(Cents cents); ///< digits alone
    QString f(Cents cents); ///< with the currency where the issuer writes it
    QString s(Cents cents); ///< always with the currency
    /// Whole francs, a multiple of `step`.
    Cents francs(int low, int high, int step = 1) {
        return Cents{100} * step * random.between(low / step, high / step);
    }
    /// Francs and rappen, in steps of five rappen.
    Cents odd(int low, int high) { return Cents{5} * random.between(low * 20, high * 20); }
    QString date(QDate day) const;
    QString longDate(QDate day) const;
    QDate day(); ///< some day of the year
    QDate yearEnd() const { return {year, 12, 31}; }

    TruthRecord& record(const char* kind);
    TruthRecord& record(const char* kind, const Someone& person);
    /// Closes the truth: pages and forbidden amounts.
    void finish();

    /// Sender, addressee, place and date in one of four arrangements; leaves the cursor below.
    void letterHead(int arrangement, const QString& addressee);
    /// A contact block of numbers that are no amounts, at the cursor: telephone, UID, account.
    void numbersBlock(double x);
    void footer(const QString& text);
    bool hasFoot = false; ///< something stands at the foot of the page already

  private:
    QSet<Cents> printed_;
};

} // namespace corpus
