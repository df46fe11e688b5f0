#pragma once

#include "tests/documents/corpus/kit/Draft.h"

namespace corpus {

/// What a certificate of salary or pension on the federal form states.
struct Salary {
    Someone who;
    bool pension = false;
    int year = 2024;
    QDate from;
    QDate until;
    bool freeTransport = false;
    bool canteen = false;
    Cents base = 0;      ///< box 1
    Cents car = 0;       ///< box 2.2
    Cents bonus = 0;     ///< box 3
    Cents shares = 0;    ///< box 5
    Cents other = 0;     ///< box 7
    Cents gross = 0;     ///< box 8
    Cents social = 0;    ///< box 9
    Cents regular = 0;   ///< box 10.1
    Cents buyIn = 0;     ///< box 10.2
    Cents net = 0;       ///< box 11
    Cents atSource = 0;  ///< box 12
    Cents expenses = 0;  ///< box 13.2.1
    Cents education = 0; ///< box 13.3
};

/// Draws the figures and notes them in the truth. `wholeFrancs` as most pay offices write.
Salary randomSalary(Draft& draft, bool pension, const Someone& who);
void employerOf(Draft& draft);
/// The data of the barcode.
QByteArray salaryXml(const Salary& salary, const Draft& draft);

} // namespace corpus
