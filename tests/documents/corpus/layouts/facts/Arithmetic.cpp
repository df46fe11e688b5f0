#include "tests/documents/corpus/layouts/facts/Arithmetic.h"

#include <stdexcept>

namespace corpus {
namespace {

class Reckoner {
  public:
    Reckoner(const QString& text, const Meaning& meaning) : text_(text), meaning_(meaning) {}

    qint64 whole() {
        const qint64 value = comparison();
        if (peek() != QChar()) {
            fail();
        }
        return value;
    }

  private:
    [[noreturn]] void fail() const { throw std::runtime_error("no sum: " + text_.toStdString()); }

    QChar peek() {
        while (at_ < text_.size() && text_[at_] == ' ') {
            ++at_;
        }
        return at_ < text_.size() ? text_[at_] : QChar();
    }

    bool take(QChar sign) {
        if (peek() != sign) {
            return false;
        }
        ++at_;
        return true;
    }

    qint64 comparison() {
        const qint64 left = sum();
        if (take('>')) {
            return left > sum() ? 1 : 0;
        }
        if (take('<')) {
            return left < sum() ? 1 : 0;
        }
        if (take('=')) {
            return left == sum() ? 1 : 0;
        }
        return left;
    }

    qint64 sum() {
        qint64 value = product();
        while (peek() == '+' || peek() == '-') {
            const bool plus = text_[at_++] == '+';
            const qint64 next = product();
            value += plus ? next : -next;
        }
        return value;
    }

    qint64 product() {
        qint64 value = factor();
        while (peek() == '*' || peek() == '/') {
            const bool times = text_[at_++] == '*';
            const qint64 next = factor();
            value = times ? value * next : value / next;
        }
        return value;
    }

    qint64 factor() {
        if (take('-')) {
            return -factor();
        }
        if (take('(')) {
            const qint64 value = comparison();
            if (!take(')')) {
                fail();
            }
            return value;
        }
        const QString word = nextWord();
        if (word[0].isDigit()) {
            return word.toLongLong();
        }
        return take('(') ? meaning_.call(word, arguments()) : meaning_.name(word);
    }

    std::vector<qint64> arguments() {
        std::vector<qint64> values;
        while (!take(')')) {
            values.push_back(comparison());
            take(',');
        }
        return values;
    }

    QString nextWord() {
        peek();
        const qsizetype start = at_;
        while (at_ < text_.size() && (text_[at_].isLetterOrNumber() || text_[at_] == '.')) {
            ++at_;
        }
        if (at_ == start) {
            fail();
        }
        return text_.mid(start, at_ - start);
    }

    QString text_;
    const Meaning& meaning_;
    qsizetype at_ = 0;
};

} // namespace

qint64 computed(const QString& text, const Meaning& meaning) {
    return Reckoner(text, meaning).whole();
}

} // namespace corpus
