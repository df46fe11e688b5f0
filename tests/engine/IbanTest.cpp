#include "TaxCore/base/Iban.h"

#include <gtest/gtest.h>

namespace taxcore {
namespace {

TEST(Iban, checksDigitsAndShape) {
    struct Row {
        const char* text;
        bool looksLike;
        bool isValid;
    };
    for (const auto& [text, looksLike, isValid] : {
             Row{"CH93 0076 2011 6238 5295 7", true, true},
             {"ch9300762011623852957", true, true},
             {"CH93 0076 2011 6238 5295 8", true, false},
             {"CH93 0076 2011 6238 2595 7", true, false},
             {"LI21 0881 0000 2324 013A A", true, true},
             {"DE89 3704 0044 0532 0130 00", true, true},
             {"NO93 8601 1117 947", true, true},
             {"CH0038863350", false, false},
             {"1213853", false, false},
             {"CH93-0076-2011-6238-5295-7", false, false},
             {"", false, false},
         }) {
        EXPECT_EQ(looksLikeIban(text), looksLike) << text;
        EXPECT_EQ(isValidIban(text), isValid) << text;
    }
}

TEST(Iban, holdsSwissNumbersToTheirLength) {
    // One of the hundred pairs of check digits is right; the length is not.
    EXPECT_TRUE(looksLikeIban("CH54 0076 2011 6238 5295"));
    for (int check = 0; check < 100; ++check) {
        const std::string digits = (check < 10 ? "0" : "") + std::to_string(check);
        EXPECT_FALSE(isValidIban("CH" + digits + "0076201162385295")) << digits;
        EXPECT_FALSE(isValidIban("LI" + digits + "007620116238529570")) << digits;
    }
}

} // namespace
} // namespace taxcore
