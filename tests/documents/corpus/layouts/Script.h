#pragma once

#include "tests/documents/corpus/layouts/Layout.h"

#include <map>

namespace corpus {

/// What a paper can tell, by the names its script calls it.
struct Facts {
    std::map<QString, Cents> amounts;
    std::map<QString, QString> texts;
    std::map<QString, QDate> dates;
    std::map<QString, std::vector<Facts>> lists;
};

/// A layout told in a few lines, a command each:
///   head 0…6 [one|two|both]             sender and addressee
///   title big bold line text small T    running text in several sizes; text and small wrap
///   entry dots sum band mid colon L ; V label and value; sum is bold, band shaded, mid left-set
///   left leftsum V ; L                  the amount before its label
///   above L ; V                         the label over its amount
///   below V ; L ; V ; L …               amounts beside each other, each over its label
///   form N ; L ; V                      a boxed line with a number
///   side L ; V ; L ; V                  two pairs beside each other
///   grid N, cell L ; V …, endgrid       boxes, N in a row
///   cols 22 120r 190r, th tr tb C ; …   a table: where columns stand, head, row, bold row
///   each LIST C ; …                     a row per item; "each LIST !COMMAND …" any other command
///   per LIST … endper                   the lines between once per item, in the same words; its
///                                       lists count too
///   money hyphen|spaced                 "Fr. 200.-"; a blank between thousands
///   bill AMOUNT T                       the part for payment, where the layout has one
///   gap N, rule, page, foot T
///   wide, mono                          before the head: the sheet lies on its long side; signs of
///                                       one width
///   maybe N COMMAND …                   in N of a hundred papers
/// In texts stand {name} (an amount: digits; {name!} with the currency, {name~} as the issuer
/// writes it, {name?} empty when zero, {-name} taken off), [one|another] wording, @key a wording
/// of that key (@key:fr in French), {#6} six digits and "A // B // C" by language.
void drawScript(Draft& draft, const Facts& facts, const char* script);

/// One of the wordings of a label in a language.
QString wording(Draft& draft, const QString& key, const QString& language);

struct Sheet {
    const char* group;
    const char* name;
    const char* languages;
    bool payload;
    const char* tale; ///< what it tells
    const char* script;
};

/// The sheets of all lists as layouts of the training set.
std::vector<Layout> scripted(const std::vector<std::vector<Sheet>>& lists);

} // namespace corpus
