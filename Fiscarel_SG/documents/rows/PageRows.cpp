#include "Fiscarel_SG/documents/rows/PageRows.h"

#include "Fiscarel_SG/documents/rows/PageSlope.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"
#include "Fiscarel_SG/documents/text/Utf8Letters.h"

#include <algorithm>
#include <cmath>

namespace fiscarel {

namespace {

constexpr std::size_t mostWords = 6'000; // a page holds far fewer
constexpr double sameRow = 0.5;          // part of the lower word that must overlap

PagePlace straightened(const PagePlace& place, double slope) {
    const double shift = slope * (place.left + place.right) / 2;
    return {place.left, place.top - shift, place.right, place.bottom - shift};
}

PagePlace around(const PagePlace& a, const PagePlace& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

/// "Riickkaufswert": recognition takes "ü" for "ii", which hardly a word has.
std::string withoutTornLetters(std::string folded) {
    for (std::size_t at = folded.find("ii"); at != std::string::npos; at = folded.find("ii", at)) {
        folded.replace(at, 2, "u");
    }
    return folded;
}

bool isSound(const PagePlace& place) {
    return std::isfinite(place.left) && std::isfinite(place.top) && std::isfinite(place.right)
           && std::isfinite(place.bottom) && place.right >= place.left && place.bottom > place.top;
}

/// How well a word fits into a row: the part of the lower of both that overlaps.
double fit(const Row& row, const PagePlace& place) {
    const double shared = std::min(row.bottom, place.bottom) - std::max(row.top, place.top);
    const double lower = std::min(row.height(), place.height());
    return lower > 0 ? shared / lower : 0;
}

/// A row of dots that leads the eye from a label to its amount.
bool isLeader(std::string_view text) {
    return text.size() >= 3 && text.find_first_not_of("._-") == std::string_view::npos;
}

void addToBestRow(std::vector<Row>& rows, RowWord word) {
    const double middle = (word.place.top + word.place.bottom) / 2;
    Row* best = nullptr;
    double most = 0;
    for (Row& row : rows) {
        const double overlap = fit(row, word.place);
        const double tallest = std::max(row.height(), word.place.height());
        const double value = 1 + overlap - std::abs(row.middle() - middle) / tallest;
        if (overlap >= sameRow && value > most) {
            best = &row;
            most = value;
        }
    }
    if (best == nullptr) {
        rows.push_back({.top = word.place.top, .bottom = word.place.bottom});
        best = &rows.back();
    }
    best->words.push_back(std::move(word));
}

/// How wide the gap between two words is, in digits of the second.
double gapInDigits(const RowWord& word, const RowWord& next) {
    const double digit =
        next.place.width() / static_cast<double>(std::max<std::size_t>(next.text.size(), 1));
    return (next.place.left - word.place.right) / std::max(digit, 0.1);
}

/// "85°" as "85": a thousands mark that was recognised with the first group, as may be a point.
std::string_view withoutEndingMark(std::string_view text, bool isRecognised) {
    const std::size_t end = text.find_last_of("0123456789");
    if (end == std::string_view::npos || end + 1 == text.size()) {
        return text;
    }
    const auto [code, length] = firstLetter(text.substr(end + 1));
    const bool isMark = isThousandsMark(code) || (isRecognised && code == U'.');
    return isMark && end + 1 + length == text.size() ? text.substr(0, end + 1) : text;
}

/// Digits before a blank within an amount. Recognition may lose the blank before ("1839 000").
bool isHeadOfAmount(std::string_view head, bool isRecognised) {
    head.remove_prefix(head.starts_with('(') ? 1 : 0);
    if (const auto [code, length] = firstLetter(head); isDash(code)) {
        head.remove_prefix(length);
    }
    head = withoutEndingMark(head, isRecognised);
    const bool isYear = head.size() == 4 && (head.starts_with("19") || head.starts_with("20"));
    return hasOnlyDigits(head) && !isYear && head.size() <= (isRecognised ? 4U : 3U)
           && (head[0] != '0' || head.size() == 3);
}

/// What may follow such a blank: a group of three, or with decimals whose point was lost.
bool isTailOfAmount(std::string_view tail, bool isRecognised) {
    if (tail.size() < 3 || !hasOnlyDigits(tail.substr(0, 3))) {
        return false;
    }
    const bool isPointLost = isRecognised && tail.size() == 5 && hasOnlyDigits(tail);
    return isPointLost || tail.size() == 3 || tail[3] == '.' || tail[3] == ','
           || (isRecognised && tail[3] == ':') || isThousandsMark(firstLetter(tail.substr(3)).code);
}

/// Whether two words may be one amount: "68" and "000.00", less than some digits apart.
bool isSplitAmount(const RowWord& word, const RowWord& next, double digits, bool isRecognised) {
    return isHeadOfAmount(word.text, isRecognised) && isTailOfAmount(next.text, isRecognised)
           && gapInDigits(word, next) < digits;
}

constexpr double narrow = 1.7; ///< digits; columns stand further apart
constexpr double wide = 3.5;   ///< wider than within an amount: nobody can tell

/// Words that are one amount as one text. `isMended`: recognition lost a blank or a point of it.
std::string joinedAmount(const Row& row, std::size_t first, std::size_t last, bool isRecognised,
                         bool& isMended) {
    std::string text;
    for (std::size_t i = first; i <= last; ++i) {
        std::string part(i < last ? withoutEndingMark(row.words[i].text, isRecognised)
                                  : std::string_view(row.words[i].text));
        // A bracket that is not closed is none of a ledger's.
        if (i < last && part.starts_with('(') && !row.words[last].text.ends_with(')')) {
            part.erase(0, 1);
        }
        if (i < last && part.size() == 4 && hasOnlyDigits(part)) {
            part.insert(1, "'");
            isMended = true;
        }
        if (i > first && part.size() == 5 && hasOnlyDigits(part)) {
            part.insert(3, ".");
            isMended = true;
        }
        text += text.empty() ? part : '\'' + part;
    }
    return text;
}

RowAmount amountFrom(const Row& row, std::size_t first, std::size_t last, PrintedAmount amount) {
    RowAmount found{.amount = amount,
                    .first = first,
                    .last = last,
                    .place = row.words[first].place,
                    .printed = row.words[first].printed};
    found.certainty = row.words[first].certainty;
    for (std::size_t i = first + 1; i <= last; ++i) {
        found.place = around(found.place, row.words[i].place);
        found.printed = around(found.printed, row.words[i].printed);
        found.certainty = std::min(found.certainty, row.words[i].certainty);
    }
    return found;
}

/// A word without the bracket of a clause that it begins or ends: "(12 Raten zu 2'249.00).".
std::string_view withoutLoneBracket(std::string_view text) {
    const std::size_t end = text.find_last_not_of(".,;:");
    const bool isOpened = text.starts_with('(');
    const bool isClosed = end != std::string_view::npos && text[end] == ')';
    if (isOpened != isClosed && text.size() > 2) {
        return isOpened ? text.substr(1) : text.substr(0, end);
    }
    return text;
}

/// The amount at a bracket of a sentence; a remark beside a row's own amount holds none.
std::optional<PrintedAmount> amountAtBracket(const Row& row, std::size_t at) {
    constexpr int least = 100; // "(Taxpunktwert 1.05)"
    const std::string_view text = row.words[at].text;
    const std::string_view inside = withoutLoneBracket(text);
    if (inside.size() == text.size() || !hasDigit(inside) || cellsOf(row).size() != 1) {
        return std::nullopt;
    }
    auto amount = parseAmount(inside, false);
    return amount && amount->hasDecimals && amount->value >= least ? amount : std::nullopt;
}

/// What a ledger takes off, in brackets with its currency and alone in its cell: "(45.20 CHF)".
std::optional<RowAmount> amountInBrackets(const Row& row, std::size_t at) {
    if (!row.words[at].text.starts_with('(') || at + 1 >= row.words.size()
        || !row.words[at + 1].text.ends_with(')')) {
        return std::nullopt;
    }
    const std::string_view first = std::string_view(row.words[at].text).substr(1);
    std::string_view second = row.words[at + 1].text;
    second.remove_suffix(1);
    const bool isBefore = isFrancs(first);
    auto amount = isBefore           ? parseAmount(second)
                  : isFrancs(second) ? parseAmount(first)
                                     : std::nullopt;
    const bool isAlone = std::ranges::any_of(cellsOf(row), [at](const LabelPlace& cell) {
        return cell.first == at && cell.last == at + 1;
    });
    if (!amount || !amount->hasDecimals || amount->value.isNegative() || !isAlone) {
        return std::nullopt;
    }
    amount->value = -amount->value;
    amount->hasCurrency = true;
    return amountFrom(row, at, at + 1, *amount);
}

/// The longest amount that begins with a word.
std::optional<RowAmount> amountAt(const Row& row, std::size_t at, const std::vector<bool>& barred,
                                  bool isRecognised) {
    if (auto taken = amountInBrackets(row, at)) {
        return taken;
    }
    const auto isOne = [&](std::size_t word, double digits) {
        return word + 1 < row.words.size()
               && isSplitAmount(row.words[word], row.words[word + 1], digits, isRecognised);
    };
    constexpr std::size_t mostParts = 2;
    std::size_t last = at;
    while (!row.words[at].text.starts_with('0') && isOne(last, narrow) && last - at < mostParts
           && !barred[last + 1]) {
        ++last;
    }
    bool isMended = false;
    auto amount = parseAmount(joinedAmount(row, at, last, isRecognised, isMended), isRecognised);
    if (!amount && last > at) {
        last = at;
        amount = parseAmount(row.words[at].text, isRecognised);
    }
    if (!amount && !isRecognised) {
        amount = amountAtBracket(row, at);
    }
    if (!amount) {
        return std::nullopt;
    }
    // It may be part of a larger one.
    amount->wasCorrected |= isMended || (at > 0 && isOne(at - 1, wide)) || isOne(last, wide);
    const auto isNear = [&](std::size_t a, std::size_t b) {
        return row.words[b].place.left - row.words[a].place.right < 4 * row.words[a].place.height();
    };
    // "im Jahr 2024 Fr. 6'600.00": the currency is that of the amount behind it.
    const bool isNextOnes = last + 2 < row.words.size() && isNear(last + 1, last + 2)
                            && !row.words[last + 2].text.empty()
                            && row.words[last + 2].text.front() >= '0'
                            && row.words[last + 2].text.front() <= '9' && amount->isYearLike();
    // "2024 CHF" heads a column.
    const bool isHead = amount->isYearLike() && !amount->hasDecimals && !amount->hasMark
                        && amount->value >= 2010 && amount->value <= 2040;
    if ((at > 0 && isFrancs(row.words[at - 1].text) && isNear(at - 1, at))
        || (last + 1 < row.words.size() && isFrancs(row.words[last + 1].text)
            && isNear(last, last + 1) && !isNextOnes && !isHead)) {
        amount->hasCurrency = true;
    }
    return amountFrom(row, at, last, *amount);
}

/// "– 1 340.75": a dash that stands before an amount and behind nothing is its sign.
void takeSign(const Row& row, RowAmount& amount) {
    if (amount.first == 0 || amount.amount.value < 0) {
        return;
    }
    const std::size_t at = amount.first - 1;
    const RowWord& dash = row.words[at];
    const auto [code, length] = firstLetter(dash.text);
    const double height = amount.place.height();
    const bool isLone = isDash(code) && length == dash.text.size();
    if (isLone && amount.place.left - dash.place.right < 0.8 * height
        && (at == 0 || dash.place.left - row.words[at - 1].place.right > 1.5 * height)) {
        amount.amount.value = -amount.amount.value;
        amount.first = at;
        amount.place = around(amount.place, dash.place);
        amount.printed = around(amount.printed, dash.printed);
    }
}

void findAmounts(Row& row, bool isRecognised) {
    std::vector<std::string_view> texts;
    for (const RowWord& word : row.words) {
        texts.emplace_back(word.text);
    }
    const std::vector<bool> barred = wordsWithoutAmount(texts);
    for (std::size_t at = 0; at < row.words.size(); ++at) {
        if (barred[at]) {
            continue;
        }
        if (auto amount = amountAt(row, at, barred, isRecognised)) {
            at = amount->last;
            takeSign(row, *amount);
            row.amounts.push_back(std::move(*amount));
        }
    }
}

void finish(Row& row, bool isRecognised) {
    std::ranges::stable_sort(row.words, {}, [](const RowWord& word) { return word.place.left; });
    for (const RowWord& word : row.words) {
        if (!word.folded.empty()) {
            row.folded += row.folded.empty() ? word.folded : ' ' + word.folded;
        }
    }
    findAmounts(row, isRecognised);
}

} // namespace

PageRows buildRows(const PageReading& page) {
    PageRows result{.number = page.number,
                    .width = page.width,
                    .height = page.height,
                    .isRecognised = page.isRecognised};
    PageReading sound = page;
    std::erase_if(sound.words, [](const PageWord& word) {
        return !isSound(word.place) || word.text.empty() || isLeader(word.text);
    });
    sound.words.resize(std::min(sound.words.size(), mostWords));
    result.slope = slopeOfLines(sound);
    std::vector<RowWord> words;
    for (const PageWord& word : sound.words) {
        words.push_back({.text = withoutLigatures(word.text),
                         .folded = page.isRecognised ? withoutTornLetters(foldWords(word.text))
                                                     : foldWords(word.text),
                         .place = straightened(word.place, result.slope),
                         .printed = word.place,
                         .certainty = word.certainty});
    }
    // A row is as tall as its first word, which is one with ascenders and no dash.
    std::ranges::stable_sort(words, {}, [](const RowWord& word) { return word.place.top; });
    for (RowWord& word : words) {
        addToBestRow(result.rows, std::move(word));
    }
    std::ranges::stable_sort(result.rows, {}, [](const Row& row) { return row.middle(); });
    for (Row& row : result.rows) {
        finish(row, page.isRecognised);
    }
    return result;
}

Row rowOfWords(std::vector<RowWord> words, bool isRecognised) {
    Row row;
    for (std::size_t i = 0; i < words.size(); ++i) {
        row.top = i == 0 ? words[i].place.top : std::min(row.top, words[i].place.top);
        row.bottom = i == 0 ? words[i].place.bottom : std::max(row.bottom, words[i].place.bottom);
    }
    row.words = std::move(words);
    finish(row, isRecognised);
    return row;
}

void moveDown(Row& row, double by) {
    row.top += by;
    row.bottom += by;
    for (RowWord& word : row.words) {
        word.place.top += by;
        word.place.bottom += by;
    }
    for (RowAmount& amount : row.amounts) {
        amount.place.top += by;
        amount.place.bottom += by;
    }
}

PageRows rowsOfText(std::string_view text, bool isRecognised) {
    PageRows result{.isRecognised = isRecognised};
    double top = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        Row row{.top = top, .bottom = top + 1};
        for (std::size_t at = line.find_first_not_of(" \t\r"); at < line.size();) {
            const std::size_t stop = std::min(line.find_first_of(" \t\r", at), line.size());
            RowWord word{.text = std::string(line.substr(at, stop - at))};
            word.folded = foldWords(word.text);
            word.place = {static_cast<double>(at), top, static_cast<double>(stop), row.bottom};
            row.words.push_back(std::move(word));
            at = line.find_first_not_of(" \t\r", stop);
        }
        if (!row.words.empty() && row.words.size() <= mostWords) {
            finish(row, isRecognised);
            result.rows.push_back(std::move(row));
            top += 2;
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return result;
}

std::optional<PageBox> pageBox(const PagePlace& place, const PageRows& page) {
    if (page.width <= 0 || page.height <= 0) {
        return std::nullopt;
    }
    const auto part = [](double value, double whole) {
        const double thousandths = std::clamp(value / whole, 0.0, 1.0) * 1000;
        return Decimal(static_cast<int>(std::lround(thousandths))) / 1000;
    };
    const Decimal x = part(place.left, page.width);
    const Decimal y = part(place.top, page.height);
    return PageBox{x, y, part(place.right, page.width) - x, part(place.bottom, page.height) - y};
}

PageRows withoutRows(const PageRows& page) {
    return {.number = page.number,
            .width = page.width,
            .height = page.height,
            .isRecognised = page.isRecognised,
            .slope = page.slope};
}

} // namespace fiscarel
