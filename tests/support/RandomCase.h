#pragma once

#include "TaxCore/base/Record.h"
#include "TaxCore/model/TaxCase.h"

#include <cstdint>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace taxcore {

inline void PrintTo(const TaxCase& household, std::ostream* out) { *out << toJson(household); }

namespace testing {

/// Fills records with random values by walking their descriptions; the same seed gives the same
/// values. Nothing about the household makes sense, everything about it must survive.
class RandomCase {
  public:
    explicit RandomCase(std::uint64_t seed) : draw_(seed) {}

    TaxCase next() {
        TaxCase household;
        fill(household);
        return household;
    }

    template <Record T>
    void fill(T& record) {
        forEachField(record, [&](std::string_view, auto& field) { fill(field); });
    }
    template <class T>
    void fill(std::vector<T>& list) {
        list.resize(below(4));
        for (T& item : list) {
            fill(item);
        }
    }
    template <class T>
    void fill(std::optional<T>& value) {
        value.reset();
        if (below(2) == 0) {
            fill(value.emplace());
        }
    }
    template <TabledEnum E>
    void fill(E& value) {
        value = allValues<E>()[below(allValues<E>().size())];
    }
    void fill(bool& value) { value = below(2) == 0; }
    void fill(int& value);
    void fill(std::string& text);
    void fill(Decimal& amount);
    void fill(Date& date);
    void fill(Uuid& id);

    /// 0 to `limit` − 1.
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(draw_()) % limit; }

  private:
    std::mt19937_64 draw_;
};

} // namespace testing
} // namespace taxcore
