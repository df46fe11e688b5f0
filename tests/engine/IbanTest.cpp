#include "TaxCore/base/Iban.h"

#include <gtest/gtest.h>

namespace taxcore {
namespace {

TEST(Iban, isRightAsTyped) {
    // The examples of the national registers.
    for (const char* iban :
         {"CH9300762011623852957", "CH93 0076 2011 6238 5295 7", "ch93 0076 2011 6238 5295 7",
          "LI21 0881 0000 2324 013A A", "DE89 3704 0044 0532 0130 00", "AT61 1904 3002 3457 3201",
          "NO93 8601 1117 947", "MT84 MALT 0110 0001 2345 MTLC AST0 01S"}) {
        EXPECT_EQ(ibanFault(iban), std::nullopt) << iban;
    }
}

TEST(Iban, tellsWhatIsWrong) {
    struct Row {
        const char* iban;
        IbanFault fault;
    };
    for (const Row& row : {
             Row{"", IbanFault::form},
             {"CH93", IbanFault::form},
             {"9300762011623852957", IbanFault::form},
             {"CHX300762011623852957", IbanFault::form},
             {"CH93-0076-2011-6238-5295-7", IbanFault::form},
             {"CH930076A011623852957", IbanFault::form},
             {"CH93 0076 2011 6238 5295", IbanFault::length},
             {"LI21 0881 0000 2324 013A AB", IbanFault::length},
             {"NO93 8601 1117 94", IbanFault::length},
             {"CH93 0076 2011 6238 5295 8", IbanFault::checkDigits},
             {"CH39 0076 2011 6238 5295 7", IbanFault::checkDigits},
             {"CH93 0076 2011 6238 5259 7", IbanFault::checkDigits},
             {"LI21 0881 0000 2324 013A B", IbanFault::checkDigits},
         }) {
        EXPECT_EQ(ibanFault(row.iban), row.fault) << row.iban;
    }
}

TEST(Iban, isToldFromOtherNumbers) {
    for (const auto& [text, looksLike] : {std::pair{"CH93 0076 2011 6238 5295 8", true},
                                          {"no93 8601 1117 947", true},
                                          {"CH0038863350", false},
                                          {"1213853", false},
                                          {"CH93-0076-2011-6238-5295-7", false}}) {
        EXPECT_EQ(looksLikeIban(text), looksLike) << text;
    }
}

} // namespace
} // namespace taxcore
