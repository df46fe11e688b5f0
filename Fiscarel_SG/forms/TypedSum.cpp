#include "Fiscarel_SG/forms/TypedSum.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <utility>

namespace fiscarel::forms {

namespace {

constexpr std::size_t longestText = 200;
constexpr int deepest = 16;
constexpr std::size_t maxWholeDigits = 12;

constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }
constexpr bool isPoint(char c) noexcept { return c == '.' || c == ','; }

std::size_t countDigits(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::find_if_not(text, isDigit) - text.begin());
}

/// The letters at the start, in small ones.
std::string leadingWord(std::string_view text) {
    std::string word;
    for (const char c : text) {
        const auto letter = static_cast<unsigned char>(c);
        if (letter >= 0x80 || std::isalpha(letter) == 0) {
            break;
        }
        word += static_cast<char>(std::tolower(letter));
    }
    return word;
}

/// Computes a sum by recursive descent. The first fault stops everything.
class Sum {
  public:
    explicit Sum(std::string_view original, std::string_view text)
        : original_(original), text_(text) {}

    Read<Decimal> compute() {
        Decimal value = sum();
        skipBlanks();
        if (fault_.empty() && !atEnd()) {
            failAtRest();
        }
        if (!fault_.empty()) {
            return tl::unexpected(std::move(fault_));
        }
        return value.roundPlain(2);
    }

  private:
    Decimal sum() {
        Decimal value = product();
        for (char sign = next(); fault_.empty() && (sign == '+' || sign == '-'); sign = next()) {
            ++at_;
            const Decimal other = product();
            value = limited(sign == '+' ? value + other : value - other);
        }
        return value;
    }

    Decimal product() {
        Decimal value = factor();
        for (char sign = next(); fault_.empty() && (sign == '*' || sign == '/'); sign = next()) {
            ++at_;
            const Decimal other = factor();
            if (sign == '/' && other.isZero()) {
                fail("Durch null lässt sich nicht teilen.");
                return {};
            }
            value = limited(sign == '*' ? value * other : value / other);
        }
        return value;
    }

    Decimal factor() {
        bool negative = false;
        bool hasSign = readSign(negative);
        readCurrency();
        if (!hasSign) {
            hasSign = readSign(negative);
        }
        if (hasSign && !atEnd() && isPoint(text_[at_])) {
            fail("Ein Strich vor dem Punkt lässt sich zweifach lesen. Schreiben Sie 0.50 oder "
                 "-0.50.");
        }
        const Decimal value = operand();
        readCurrency();
        return negative ? -value : value;
    }

    Decimal operand() {
        if (!fault_.empty()) {
            return {};
        }
        if (next() == '(') {
            return bracket();
        }
        const auto number = readNumber(text_.substr(at_), 2);
        if (!number) {
            fail(number.error());
            return {};
        }
        at_ += number->length;
        return number->value;
    }

    Decimal bracket() {
        if (++depth_ > deepest) {
            fail("Das sind zu viele Klammern. Rechnen Sie in Schritten.");
            return {};
        }
        ++at_;
        const Decimal value = sum();
        if (fault_.empty() && next() != ')') {
            if (atEnd()) {
                fail("In " + quoted(original_) + " fehlt eine schliessende Klammer.");
            } else {
                failAtRest();
            }
        }
        if (fault_.empty()) {
            ++at_;
            --depth_;
        }
        return value;
    }

    bool readSign(bool& negative) {
        const char sign = next();
        if (sign != '-' && sign != '+') {
            return false;
        }
        negative = sign == '-';
        ++at_;
        return true;
    }

    void readCurrency() {
        static constexpr std::array<std::string_view, 5> francs{"chf", "fr", "sfr", "franken",
                                                                "frs"};
        next();
        const std::string_view rest = text_.substr(std::min(at_, text_.size()));
        const std::string word = leadingWord(rest);
        if (std::ranges::find(francs, word) != francs.end()) {
            at_ += word.size();
            if (!atEnd() && text_[at_] == '.') {
                ++at_;
            }
            next();
        } else if (word == "eur" || word == "euro" || word == "usd" || rest.starts_with("€")
                   || rest.starts_with("$")) {
            fail("Hier stehen Franken. Rechnen Sie " + quoted(original_)
                 + " zum Kurs des Jahres in Franken um.");
        }
    }

    /// The next character that is not blank; 0 at the end.
    char next() {
        skipBlanks();
        return atEnd() ? '\0' : text_[at_];
    }
    void skipBlanks() {
        while (!atEnd() && text_[at_] == ' ') {
            ++at_;
        }
    }
    bool atEnd() const { return at_ >= text_.size(); }

    Decimal limited(const Decimal& value) {
        constexpr std::int64_t limit = 1'000'000'000'000;
        if (value.abs() >= Decimal(limit)) {
            fail(NumberFault::tooLarge);
            return {};
        }
        return value;
    }

    /// Tells what is wrong with what stands where an operator or the end should.
    void failAtRest() {
        if (text_[at_] == ')') {
            fail("In " + quoted(original_) + " schliesst eine Klammer, die nicht offen ist.");
        } else {
            fail(NumberFault::form);
        }
    }

    void fail(NumberFault fault) {
        switch (fault) {
        case NumberFault::none:
            if (!atEnd() || !hasDigits()) {
                fail(NumberFault::form);
                return;
            }
            fail("Nach " + quoted(original_) + " fehlt noch eine Zahl.");
            return;
        case NumberFault::form:
            fail(quoted(original_) + " ist kein Betrag. Beispiel: 1’250.50 oder 12*980.");
            return;
        case NumberFault::grouping:
            fail("Tausender stehen in Dreiergruppen: 12’345.50 oder ohne Zeichen 12345.50.");
            return;
        case NumberFault::decimals:
            failAtDecimals();
            return;
        case NumberFault::tooLarge:
            fail("Der Betrag ist zu gross: Er muss unter 1000 Milliarden liegen.");
            return;
        }
    }

    /// Three digits behind a point may be meant as thousands; the sentence names both readings.
    void failAtDecimals() {
        const std::string_view rest = text_.substr(at_);
        const std::size_t whole = countDigits(rest);
        const bool hasPoint = whole < rest.size() && isPoint(rest[whole]);
        const std::string_view behind = rest.substr(hasPoint ? whole + 1 : whole);
        if (!hasPoint || whole < 1 || whole > 3 || countDigits(behind) != 3) {
            fail("Ein Betrag hat höchstens zwei Stellen nach dem Punkt. Beispiel: 1250.50.");
            return;
        }
        const std::string francs(rest.substr(0, whole));
        const std::string rappen(behind.substr(0, 3));
        fail("«" + francs + rest[whole] + rappen + "» hat drei Stellen nach dem "
             + (rest[whole] == '.' ? "Punkt" : "Komma") + ". Für Tausender schreiben Sie " + francs
             + "’" + rappen + ", für Rappen " + francs + "." + rappen.substr(0, 2) + ".");
    }

    void fail(std::string sentence) {
        if (fault_.empty()) {
            fault_ = std::move(sentence);
        }
        at_ = text_.size();
    }

    bool hasDigits() const { return std::ranges::any_of(text_, isDigit); }

    std::string_view original_;
    std::string_view text_;
    std::size_t at_ = 0;
    int depth_ = 0;
    std::string fault_;
};

} // namespace

std::string plainTyping(std::string_view text) {
    static constexpr std::array<std::pair<std::string_view, char>, 24> signs{{
        {"\t", ' '}, {"\u00A0", ' '}, {"\u202F", ' '}, {"\u2007", ' '}, {"\u2009", ' '},
        {"’", '\''}, {"‘", '\''},     {"ʼ", '\''},     {"′", '\''},     {"´", '\''},
        {"`", '\''}, {"\u2010", '-'}, {"\u2011", '-'}, {"\u2012", '-'}, {"–", '-'},
        {"—", '-'},  {"−", '-'},      {"×", '*'},      {"·", '*'},      {"x", '*'},
        {"X", '*'},  {"÷", '/'},      {":", '/'},      {"∶", '/'},
    }};
    std::string plain;
    while (!text.empty()) {
        const auto sign = std::ranges::find_if(
            signs, [&](const auto& row) { return text.starts_with(row.first); });
        plain += sign != signs.end() ? sign->second : text.front();
        text.remove_prefix(sign != signs.end() ? sign->first.size() : 1);
    }
    const auto isBlank = [](char c) { return c == ' ' || c == '\n' || c == '\r'; };
    while (!plain.empty() && isBlank(plain.back())) {
        plain.pop_back();
    }
    plain.erase(0,
                static_cast<std::size_t>(std::ranges::find_if_not(plain, isBlank) - plain.begin()));
    return plain;
}

tl::expected<TypedNumber, NumberFault> readNumber(std::string_view text, std::size_t maxDecimals) {
    std::size_t at = countDigits(text);
    std::string digits(text.substr(0, at));
    const std::size_t first = at;
    const char mark = at < text.size() ? text[at] : '\0';
    while (first > 0 && at < text.size() && text[at] == mark && (mark == '\'' || mark == ' ')) {
        const std::size_t group = countDigits(text.substr(at + 1));
        if (mark == ' ' && group == 0) {
            break;
        }
        if (group != 3 || first > 3) {
            return tl::unexpected(NumberFault::grouping);
        }
        digits += text.substr(at + 1, group);
        at += 1 + group;
    }
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    if (digits.size() > maxWholeDigits) {
        return tl::unexpected(NumberFault::tooLarge);
    }
    std::string fraction;
    if (at < text.size() && isPoint(text[at])) {
        const bool hasWhole = at > 0;
        const std::size_t decimals = countDigits(text.substr(++at));
        fraction = text.substr(at, decimals);
        at += decimals;
        if (!hasWhole && decimals == 0) {
            return tl::unexpected(NumberFault::form);
        }
        if (at < text.size() && (isPoint(text[at]) || text[at] == '\'')) {
            return tl::unexpected(NumberFault::form);
        }
        if (decimals > maxDecimals) {
            return tl::unexpected(NumberFault::decimals);
        }
        // "12.-" and "12.--" are whole francs.
        for (int dash = 0; decimals == 0 && dash < 2 && at < text.size() && text[at] == '-';) {
            ++dash;
            ++at;
        }
    } else if (at == 0) {
        return tl::unexpected(NumberFault::none);
    }
    const auto value =
        Decimal::parse((digits.empty() ? "0" : digits) + (fraction.empty() ? "" : "." + fraction));
    if (!value) {
        return tl::unexpected(NumberFault::form);
    }
    return TypedNumber{*value, at};
}

std::string quoted(std::string_view text) {
    constexpr std::size_t most = 40;
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    while (!text.empty() && text.back() == ' ') {
        text.remove_suffix(1);
    }
    if (text.size() <= most) {
        return "«" + std::string(text) + "»";
    }
    std::size_t end = most;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        --end; // not within a letter
    }
    return "«" + std::string(text.substr(0, end)) + "…»";
}

Read<Decimal> parseAmount(std::string_view text) {
    if (text.size() > longestText) {
        return tl::unexpected<std::string>("Das ist zu lang. Rechnen Sie in Schritten.");
    }
    const std::string plain = plainTyping(text);
    if (plain.empty()) {
        return tl::unexpected<std::string>("Hier fehlt ein Betrag. Beispiel: 1’250.50.");
    }
    return Sum(text, plain).compute();
}

} // namespace fiscarel::forms
