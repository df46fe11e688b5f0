#pragma once

#include "tests/documents/corpus/layouts/Script.h"

namespace corpus {

/// What papers of a kind tell, drawn by chance, and what of it a reader should find. Commands stand
/// on lines of their own or behind a semicolon:
///   by KIND NAMES                     kind and sender; "A|B // C|D // E" by language, @pool of
///   names from NAMES, also KIND,KIND        another sender; kinds that are no mistake either
///   principality                      sender and household are in Liechtenstein
///   year, dated SUM                   of the paper, of the letter
///   ages LOW HIGH, retire AGE         of the children; of both spouses
///   NAME = SUM                        an amount, in rappen
///   count, month NAME = SUM           a number; the name of a month
///   fixed N, percent NAME = SUM       a number with N decimals; one in hundredths with its sign
///   date, english NAME = SUM          a day; a day in English words
///   text NAME WORDS                   one of "A|B // C // D", by language, with {name}, {#6},
///   {iban};
///                                     @@key: a wording; firstname WORDS: of the first person
///   list NAME SUM | of WORDS | people WHO…    an item each, up to `end` or in the line behind " :
///   " item LIST TALE [WORDS]            one more item of a list, its text `name` from the words
///   again LIST COMMAND, join NEW LIST…        once more for each item; copies of them in any order
///   skip SUM, if SUM : COMMAND        drops the item
///   note, accept RECORD WHO field=amount field:text+text field@date derived:field birth
///   acceptsums                        the totals of all accounts, titles and debts noted so far
///   use TALE                          its commands here
/// What an item tells stands outside with its place (part2; m5of2 of a name with a digit), its
/// amounts are added up besides (part, months.part), unless the name has a meaning already; $ is
/// the place in a list's commands. Sums know francs(low, high, step), odd and some(low, high), int,
/// chance(percent), pick(…), if(what, then, else), five(x), part(x, permille), to(x, step), max,
/// abs, on(month, day, year), last(month, year), someday(), i (the place in the list), year.
struct Tale {
    const char* name;
    const char* commands;
};

std::vector<Tale> accountTales();
std::vector<Tale> securityTales();
std::vector<Tale> wageTales();
std::vector<Tale> benefitTales();
std::vector<Tale> pensionTales();
std::vector<Tale> pillarTales();
std::vector<Tale> policyTales();
std::vector<Tale> premiumTales();
std::vector<Tale> careTales();
std::vector<Tale> billTales();
std::vector<Tale> courseTales();
std::vector<Tale> giftTales();
std::vector<Tale> propertyTales();
std::vector<Tale> letterTales();

/// The facts of a tale; their truth is noted in the draft.
Facts told(Draft& draft, const QString& tale);

} // namespace corpus
