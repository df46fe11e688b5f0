#pragma once

#include <QString>
#include <cstdint>
#include <vector>

namespace corpus {

/// A seeded source of choices that gives the same sequence on every machine (splitmix64).
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    /// A source of its own for a name, so that adding a document changes no other one.
    static Random named(std::uint64_t seed, const QString& name) {
        std::uint64_t hash = 0xcbf29ce484222325U ^ (seed * 0x9e3779b97f4a7c15U);
        for (const QChar letter : name) {
            hash = (hash ^ letter.unicode()) * 0x100000001b3U;
        }
        return Random(hash);
    }

    std::uint64_t next() {
        state_ += 0x9e3779b97f4a7c15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30U)) * 0xbf58476d1ce4e5b9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94d049bb133111ebU;
        return mixed ^ (mixed >> 31U);
    }

    /// Both ends included.
    int between(int low, int high) {
        const auto span = static_cast<std::uint64_t>(high - low) + 1;
        return low + static_cast<int>(next() % span);
    }

    double between(double low, double high) {
        return low + (high - low) * static_cast<double>(next() % 1000001U) / 1000000.0;
    }

    bool chance(int percent) { return between(1, 100) <= percent; }

    template <class T>
    const T& pick(const std::vector<T>& choices) {
        return choices[next() % choices.size()];
    }

    /// `count` digits, the first not zero.
    QString digits(int count) {
        QString text;
        for (int i = 0; i < count; ++i) {
            text += QChar('0' + between(i == 0 ? 1 : 0, 9));
        }
        return text;
    }

  private:
    std::uint64_t state_;
};

} // namespace corpus
