#pragma once

#include <boost/uuid/uuid.hpp>

#include <compare>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace taxcore {

/// Identity of a list item. Written in upper case in the 36-character hyphenated form, read in
/// either case.
class Uuid {
  public:
    /// The nil UUID, all zero.
    constexpr Uuid() noexcept = default;

    /// A fresh random (version 4) UUID. Unique, not secret: the generator is fast, seeded from the
    /// system's entropy once per thread.
    static Uuid random();

    /// Reads exactly the 36-character hyphenated form; absent for anything else.
    static std::optional<Uuid> parse(std::string_view text) noexcept;

    std::string toString() const;

    friend bool operator==(const Uuid& a, const Uuid& b) noexcept { return a.bytes_ == b.bytes_; }
    friend bool operator<(const Uuid& a, const Uuid& b) noexcept { return a.bytes_ < b.bytes_; }
    friend std::size_t hash_value(const Uuid& id) noexcept {
        return boost::uuids::hash_value(id.bytes_);
    }

  private:
    boost::uuids::uuid bytes_{};
};

} // namespace taxcore

template <>
struct std::hash<taxcore::Uuid> {
    std::size_t operator()(const taxcore::Uuid& id) const noexcept { return hash_value(id); }
};
