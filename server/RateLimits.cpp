#include "server/RateLimits.h"

#include <arpa/inet.h>

#include <algorithm>
#include <array>

namespace fiscarel::server {

RateLimits::Rules RateLimits::Rules::none() {
    const Rule any{std::nullopt, 1};
    return {any, any, any, any};
}

std::optional<std::int64_t> RateLimits::take(Kind kind, std::string_view by, Moment now) {
    const Rule& rule = ruleOf(kind);
    if (!rule.most) {
        return std::nullopt;
    }
    const std::lock_guard lock(mutex_);
    if (counts_.size() >= crowded_) {
        forgetOld(now.seconds);
    }
    Count& count = counts_[{kind, std::string(by)}];
    if (now.seconds >= count.since + rule.seconds || now.seconds < count.since) {
        count = {now.seconds, 0}; // a clock that was put back frees as well
    }
    if (count.taken >= *rule.most) {
        return count.since + rule.seconds - now.seconds;
    }
    ++count.taken;
    return std::nullopt;
}

const RateLimits::Rule& RateLimits::ruleOf(Kind kind) const {
    switch (kind) {
    case Kind::codesOfAddress:
        return rules_.codesPerAddress;
    case Kind::codesOfClient:
        return rules_.codesPerClient;
    case Kind::triesOfClient:
        return rules_.triesPerClient;
    case Kind::requests:
        break;
    }
    return rules_.requestsPerClient;
}

void RateLimits::forgetOld(std::int64_t now) {
    std::erase_if(counts_, [&](const auto& entry) {
        return now >= entry.second.since + ruleOf(entry.first.first).seconds;
    });
    crowded_ = std::max<std::size_t>(10'000, 2 * counts_.size());
}

std::string clientOf(std::string_view address) {
    const std::string text(address.substr(0, address.find('%')));
    std::array<unsigned char, 16> bytes{};
    if (inet_pton(AF_INET6, text.c_str(), bytes.data()) != 1) {
        return text;
    }
    constexpr std::array<unsigned char, 12> mapped{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF};
    std::array<char, INET6_ADDRSTRLEN> written{};
    if (std::equal(mapped.begin(), mapped.end(), bytes.begin())) {
        return inet_ntop(AF_INET, &bytes[mapped.size()], written.data(), written.size());
    }
    std::fill(bytes.begin() + 8, bytes.end(), static_cast<unsigned char>(0));
    return std::string(inet_ntop(AF_INET6, bytes.data(), written.data(), written.size())) + "/64";
}

} // namespace fiscarel::server
