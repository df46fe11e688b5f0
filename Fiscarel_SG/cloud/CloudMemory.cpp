#include "Fiscarel_SG/cloud/CloudMemory.h"

#include <utility>

namespace fiscarel {

CloudMemory::Content CloudMemory::readNow() const {
    Content content{.isAvailable = keychain_.isAvailable()};
    if (!content.isAvailable) {
        return content;
    }
    content.token = keychain_.token();
    if (auto key = keychain_.read(CloudKeychain::dataKeyAccount);
        key && key->bytes().size() == CloudCrypto::keySize) {
        content.dataKey = std::make_shared<const Secret>(std::move(*key));
    }
    if (const auto last = keychain_.read(CloudKeychain::lastStateAccount)) {
        content.lastState = std::string(last->bytes().begin(), last->bytes().end());
    }
    return content;
}

void CloudMemory::keepToken(const std::optional<std::string>& token) {
    worker_.post([&keychain = keychain_, token] { keychain.setToken(token); }, [] {});
}

void CloudMemory::keepDataKey(const std::shared_ptr<const Secret>& key) {
    worker_.post(
        [&keychain = keychain_, key] {
            if (key != nullptr) {
                keychain.write(CloudKeychain::dataKeyAccount, key->bytes());
            } else {
                keychain.erase(CloudKeychain::dataKeyAccount);
            }
        },
        [] {});
}

void CloudMemory::keepLastState(const std::string& text, std::function<void()> done) {
    worker_.post(
        [&keychain = keychain_, text] {
            keychain.write(CloudKeychain::lastStateAccount,
                           {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
        },
        std::move(done));
}

} // namespace fiscarel
