#include "Fiscarel_SG/CloudCrypto.h"

#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fiscarel {
namespace {

using Bytes = CloudCrypto::Bytes;
using Failure = CloudCrypto::Failure;

Bytes fromHex(std::string_view hex) {
    Bytes bytes;
    for (std::size_t at = 0; at + 1 < hex.size(); at += 2) {
        bytes.push_back(
            static_cast<std::uint8_t>(std::stoi(std::string(hex.substr(at, 2)), nullptr, 16)));
    }
    return bytes;
}

std::string textOf(const Bytes& bytes) { return {bytes.begin(), bytes.end()}; }
Bytes bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

/// Test cases 13 to 16 for AES-256 of McGrew and Viega, "The Galois/Counter Mode of Operation
/// (GCM)", 2005, appendix B, as submitted to NIST.
TEST(CloudCrypto, opensThePublishedVectors) {
    struct Vector {
        std::string key, nonce, associated, cipherText, tag, plain;
    };
    const std::string zeroKey(64, '0');
    const std::string key = "feffe9928665731c6d6a8f9467308308feffe9928665731c6d6a8f9467308308";
    const std::string plain = "d9313225f88406e5a55909c5aff5269a86a7a9531534f7da2e4c303d8a318a72"
                              "1c3c0c95956809532fcf0e2449a6b525b16aedf5aa0de657ba637b39";
    const std::string cipherText =
        "522dc1f099567d07f47f37a32a84427d643a8cdcbfe5c0c97598a2bd2555d1aa"
        "8cb08e48590dbb3da7b08b1056828838c5f61e6393ba7a0abcc9f662";
    const std::vector<Vector> vectors{
        {zeroKey, std::string(24, '0'), "", "", "530f8afbc74536b9a963b4f1c4cb738b", ""},
        {zeroKey, std::string(24, '0'), "", "cea7403d4d606b6e074ec5d3baf39d18",
         "d0d1c8a799996bf0265b98b5d48ab919", std::string(32, '0')},
        {key, "cafebabefacedbaddecaf888", "", cipherText + "898015ad",
         "b094dac5d93471bdec1a502270e3cc6c", plain + "1aafd255"},
        {key, "cafebabefacedbaddecaf888", "feedfacedeadbeeffeedfacedeadbeefabaddad2", cipherText,
         "76fc6ece0f4e1768cddf8853bb2d551b", plain},
    };
    for (const Vector& vector : vectors) {
        const auto opened =
            CloudCrypto::open(fromHex(vector.nonce + vector.cipherText + vector.tag),
                              Secret(fromHex(vector.key)), textOf(fromHex(vector.associated)));
        ASSERT_TRUE(opened) << vector.tag;
        EXPECT_EQ(*opened, fromHex(vector.plain)) << vector.tag;
    }
}

/// RFC 5869, appendix A.1 and A.3.
TEST(CloudCrypto, derivesAsPublished) {
    const Bytes key(22, 0x0b);
    EXPECT_EQ(CloudCrypto::derive(key, textOf(fromHex("000102030405060708090a0b0c")),
                                  textOf(fromHex("f0f1f2f3f4f5f6f7f8f9")), 42),
              Secret(fromHex("3cb25f25faacd57a90434f64d0362f2a2d2d0a90cf1a5a4c5db02d56ecc4c5bf"
                             "34007208d5b887185865")));
    EXPECT_EQ(CloudCrypto::derive(key, "", "", 42),
              Secret(fromHex("8da4e775a563c18f715f802a063c5a31b8a11f5c5ee1879ec3454e5f3c738d2d"
                             "9d201395faa4b61a96c8")));
}

TEST(CloudCrypto, opensWithKeyAndNameAloneAndNothingThatWasTouched) {
    const Secret key = CloudCrypto::newKey();
    const Bytes data = bytesOf("Bruttolohn 104’000");
    const Bytes sealed = CloudCrypto::seal(data, key, "bloque:estado");
    EXPECT_EQ(sealed.size(), CloudCrypto::nonceSize + data.size() + CloudCrypto::tagSize);
    EXPECT_EQ(CloudCrypto::open(sealed, key, "bloque:estado").value(), data);
    EXPECT_NE(CloudCrypto::seal(data, key, "bloque:estado"), sealed) << "a fresh nonce each time";

    const auto isDamaged = [](const tl::expected<Bytes, Failure>& opened) {
        return !opened && opened.error() == Failure::damaged;
    };
    EXPECT_TRUE(isDamaged(CloudCrypto::open(sealed, key, "bloque:recibos")));
    EXPECT_TRUE(isDamaged(CloudCrypto::open(sealed, key, "")));
    EXPECT_TRUE(isDamaged(CloudCrypto::open(sealed, CloudCrypto::newKey(), "bloque:estado")));
    EXPECT_TRUE(isDamaged(CloudCrypto::open(sealed, Secret(std::size_t{16}), "bloque:estado")));
    for (std::size_t at = 0; at < sealed.size(); ++at) {
        for (const int bit : {0, 7}) {
            Bytes touched = sealed;
            touched[at] = static_cast<std::uint8_t>(touched[at] ^ (1 << bit));
            EXPECT_TRUE(isDamaged(CloudCrypto::open(touched, key, "bloque:estado"))) << at;
        }
        EXPECT_TRUE(isDamaged(CloudCrypto::open({sealed.data(), at}, key, "bloque:estado"))) << at;
    }
    Bytes longer = sealed;
    longer.push_back(0);
    EXPECT_TRUE(isDamaged(CloudCrypto::open(longer, key, "bloque:estado")));

    const Bytes nothing = CloudCrypto::seal({}, key, "recibo:1");
    EXPECT_EQ(CloudCrypto::open(nothing, key, "recibo:1").value(), Bytes{});
}

TEST(CloudCrypto, aRecoveryKeyIsReadAsPeopleTypeIt) {
    std::set<std::string> seen;
    for (int round = 0; round < 200; ++round) {
        const std::string shown = CloudCrypto::newRecoveryKey();
        ASSERT_EQ(shown.size(), 39U) << shown;
        const std::string key = CloudCrypto::parseRecoveryKey(shown).value();
        ASSERT_EQ(key.size(), 32U);
        EXPECT_TRUE(seen.insert(key).second);

        std::string typed = "  ";
        for (const char letter : key) {
            typed += letter == '0'   ? 'o'
                     : letter == '1' ? 'l'
                                     : static_cast<char>(std::tolower(letter));
            typed += " ";
        }
        EXPECT_EQ(CloudCrypto::parseRecoveryKey(typed).value(), key) << typed;
    }
    EXPECT_EQ(CloudCrypto::parseRecoveryKey("").error(), Failure::recoveryFormat);
    EXPECT_EQ(CloudCrypto::parseRecoveryKey("ä").error(), Failure::recoveryFormat);
}

/// Of the errors people make, ten bits let about one in a thousand pass.
TEST(CloudCrypto, aTypingErrorIsNoticed) {
    int passed = 0;
    int tried = 0;
    for (int round = 0; round < 20; ++round) {
        const std::string key =
            CloudCrypto::parseRecoveryKey(CloudCrypto::newRecoveryKey()).value();
        for (std::size_t at = 0; at < key.size(); ++at) {
            std::string wrong = key;
            wrong[at] = wrong[at] == 'X' ? 'Y' : 'X';
            std::string swapped = key;
            std::swap(swapped[at], swapped[(at + 1) % key.size()]);
            for (const std::string& typed : {wrong, swapped}) {
                if (typed != key) {
                    ++tried;
                    passed += CloudCrypto::parseRecoveryKey(typed) ? 1 : 0;
                }
            }
            EXPECT_FALSE(CloudCrypto::parseRecoveryKey(key.substr(0, at))) << at;
        }
        EXPECT_FALSE(CloudCrypto::parseRecoveryKey(key + "0"));
    }
    EXPECT_GT(tried, 1'000);
    EXPECT_LT(passed, 10);
}

TEST(CloudCrypto, theHouseholdsKeyComesBackWithTheRecoveryKeyOfTheAccount) {
    const Secret key = CloudCrypto::newKey();
    const std::string recovery = CloudCrypto::newRecoveryKey();
    const Bytes wrapped = CloudCrypto::wrap(key, recovery, "Anna@Example.ch").value();
    EXPECT_EQ(CloudCrypto::unwrap(wrapped, recovery, "anna@example.CH").value(), key);
    EXPECT_EQ(CloudCrypto::unwrap(wrapped, recovery, "beat@example.ch").error(),
              Failure::wrongRecovery);
    EXPECT_EQ(
        CloudCrypto::unwrap(wrapped, CloudCrypto::newRecoveryKey(), "anna@example.ch").error(),
        Failure::wrongRecovery);
    EXPECT_EQ(CloudCrypto::unwrap(wrapped, "geheim", "anna@example.ch").error(),
              Failure::recoveryFormat);
    EXPECT_EQ(CloudCrypto::wrap(key, "geheim", "anna@example.ch").error(), Failure::recoveryFormat);
    EXPECT_EQ(CloudCrypto::unwrap({}, recovery, "anna@example.ch").error(), Failure::wrongRecovery);
}

} // namespace
} // namespace fiscarel
