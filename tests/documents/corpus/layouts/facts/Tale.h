#pragma once

#include "tests/documents/corpus/layouts/Script.h"

namespace corpus {

/// What papers of a kind tell, drawn by chance, and what of it a reader should find. A command
/// stands on a line of its own or behind a semicolon:
///   by KIND NAMES            kind and sender; "A|B // C|D // E" by language, @pool of names
///   from NAMES               another sender
///   also KIND,KIND           kinds that are no mistake either; kind KIND: another one
///   principality             sender and household are in Liechtenstein
///   year SUM, dated SUM      of the paper, of the letter
///   ages LOW HIGH            of the children; retire AGE: of both spouses
///   NAME = SUM               an amount, in rappen
///   count NAME = SUM         a number; month: the name of a month; percent: in hundredths, with
///                            its sign; fixed2, fixed3, fixed4: with so many decimals
///   date NAME = SUM          a day; english: in English words
///   text NAME WORDS          "A|B // C // D" by language, one of them, with {name}, {#6}, {iban};
///                            @@key: a wording; firstname WORDS: of the first person
///   list NAME SUM            items, by commands up to `end` or in the same line behind a colon
///                            of its own; also list NAME of WORDS, list NAME people WHO…
///   skip SUM                 drops the item unless 0
///   item LIST TALE WORDS     one more item, its text `name` from the words
///   again LIST COMMAND       once more for each item
///   join NEW LIST…           copies of the items of all lists, in any order
///   if SUM : COMMAND         unless 0
///   note RECORD WHO …        truth: field=amount field:text+text field@date birth derived:field
///   accept RECORD WHO …      neither demanded nor wrong; acceptsums: the totals of all accounts,
///                            titles and debts noted so far
///   use TALE                 its commands here
/// What an item tells stands outside with its place (part2; m5of2 of a name with a digit), its
/// amounts are added up besides (part, months.part), unless the name has a meaning already; $ is
/// the place in a list's commands. Sums know francs(low, high, step), odd and some(low, high), int,
/// chance(percent), pick(…), if(what, then, else), five(x), part(x, permille), to(x, step), max,
/// abs, on(month, day, year), last(month, year), monday(day), someday(), i (the place), year.
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
