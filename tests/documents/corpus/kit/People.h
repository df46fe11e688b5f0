#pragma once

#include "tests/documents/corpus/kit/Random.h"

#include <QDate>
#include <QStringList>

namespace corpus {

/// An invented person.
struct Someone {
    QString first;
    QString last;
    QDate birth;
    QString number; ///< 756.1234.5678.97, with its check digit

    QString name() const { return first + " " + last; }
};

/// An invented household.
struct Family {
    Someone one;
    Someone two;
    Someone child;
    Someone secondChild;
    QString street;
    QString place; ///< with postcode

    static Family random(Random& random, const QString& language, bool liechtenstein);
};

/// An invented firm, office or practice.
struct Issuer {
    QString name;
    QString street;
    QString place;
    QString phone;
    QString mail;
    QString uid; ///< CHE-123.456.789
};

Issuer randomIssuer(Random& random, const QString& name, const QString& language);
/// With valid check digits, in groups of four.
QString randomIban(Random& random, const QString& country = "CH");
QString randomSocialNumber(Random& random);
/// 27 digits with their check digit, as on payment slips.
QString randomReference(Random& random);

} // namespace corpus
