// Our own format against examples that another implementation made.

#include "Fiscarel_SG/CloudCrypto.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace fiscarel {
namespace {

using Failure = CloudCrypto::Failure;

CloudCrypto::Bytes bytes(const QByteArray& data) { return {data.begin(), data.end()}; }

CloudCrypto::Bytes base64(const QJsonValue& value) {
    return bytes(QByteArray::fromBase64(value.toString().toLatin1()));
}

CloudCrypto::Bytes hex(const QJsonValue& value) {
    return bytes(QByteArray::fromHex(value.toString().toLatin1()));
}

std::string text(const QJsonValue& value) { return value.toString().toStdString(); }

TEST(CloudFormat, isTheOneThatIsPublished) {
    QFile file(QStringLiteral(FISCAREL_SOURCE_DIR "/docs/cloud-vectors.json"));
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const QJsonObject published = QJsonDocument::fromJson(file.readAll()).object();
    const auto at = [&](const char* name) { return published[QLatin1String(name)]; };
    const Secret key(hex(at("dataKey")));

    const std::string recovery = CloudCrypto::parseRecoveryKey(text(at("recoveryKey"))).value();
    for (const QJsonValue typed : at("recoveryKeyTyped").toArray()) {
        EXPECT_EQ(CloudCrypto::parseRecoveryKey(text(typed)), recovery) << text(typed);
    }
    for (const QJsonValue typed : at("recoveryKeyMistyped").toArray()) {
        EXPECT_EQ(CloudCrypto::parseRecoveryKey(text(typed)),
                  tl::unexpected(Failure::recoveryFormat))
            << text(typed);
    }
    for (const char* const address : {"email", "emailOtherwise"}) {
        const auto opened = CloudCrypto::unwrap(base64(at("llave")), recovery, text(at(address)));
        ASSERT_TRUE(opened) << address;
        EXPECT_TRUE(*opened == key) << address;
    }

    const QJsonArray sealed = at("sealed").toArray();
    ASSERT_EQ(sealed.size(), 5);
    for (const QJsonValue item : sealed) {
        const auto opened = CloudCrypto::open(base64(item[u"sealed"]), key, text(item[u"name"]));
        ASSERT_TRUE(opened) << text(item[u"name"]);
        EXPECT_EQ(*opened, hex(item[u"plain"])) << text(item[u"name"]);
    }
    const QJsonArray damaged = at("damaged").toArray();
    ASSERT_EQ(damaged.size(), 5);
    for (const QJsonValue item : damaged) {
        EXPECT_EQ(CloudCrypto::open(base64(item[u"sealed"]), key, text(item[u"name"])),
                  tl::unexpected(Failure::damaged))
            << text(item[u"why"]);
    }
}

} // namespace
} // namespace fiscarel
