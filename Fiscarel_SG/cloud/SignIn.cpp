#include "Fiscarel_SG/cloud/SignIn.h"

#include "Fiscarel_SG/cloud/Sealing.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

namespace {

constexpr std::string_view blanks = " \t\r\n";

std::string trimmed(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(blanks);
    return begin == std::string::npos
               ? std::string()
               : text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

std::string withoutBlanks(const std::string& code) {
    std::string digits;
    std::ranges::copy_if(code, std::back_inserter(digits),
                         [](char c) { return blanks.find(c) == std::string_view::npos; });
    return digits;
}

} // namespace

template <class Call>
auto SignIn::asked(Call call) {
    ++turn_;
    context_.status.activity = CloudStatus::Activity::working;
    context_.status.problem.reset();
    context_.tell();
    return context_.life.guard([this, turn = turn_, call = std::move(call)](auto answer) mutable {
        if (turn == turn_) {
            context_.status.activity = CloudStatus::Activity::resting;
            call(std::move(answer));
        }
    });
}

void SignIn::fail(const CloudAPI::Failure& failure) {
    if (failure.isSessionOver()) {
        sessionOver(failure.errorDescription());
    } else {
        context_.setProblem(failure.errorDescription());
    }
}

void SignIn::enter(Phase phase) {
    context_.status.phase = phase;
    phase == Phase::ready ? ready_() : left_();
    context_.tell();
}

void SignIn::resume() {
    context_.status.email = context_.record.email;
    // A session is of one server alone; another one must not be handed its token.
    if (context_.record.server != context_.api.base().toString().toStdString()) {
        context_.token.clear();
    }
    if (context_.token.empty()) {
        enter(Phase::signedOut);
    } else if (context_.dataKey == nullptr) {
        enter(Phase::needsRecoveryKey);
        lookForKey();
    } else {
        enter(Phase::ready);
    }
}

void SignIn::requestCode(const std::string& email) {
    email_ = trimmed(email);
    context_.api.requestCode(email_,
                             asked([this](const tl::expected<void, CloudAPI::Failure>& sent) {
                                 if (!sent) {
                                     fail(sent.error());
                                     return;
                                 }
                                 context_.status.email = email_;
                                 enter(Phase::codeSent);
                             }));
}

void SignIn::verifyCode(const std::string& code) {
    context_.api.verifyCode(
        email_, withoutBlanks(code), context_.device,
        asked([this](const tl::expected<CloudAPI::Login, CloudAPI::Failure>& login) {
            login ? signedIn(*login) : fail(login.error());
        }));
}

void SignIn::signedIn(const CloudAPI::Login& login) {
    const std::string server = context_.api.base().toString().toStdString();
    CloudRecord& record = context_.record;
    const bool isSame =
        lowerCase(record.email) == lowerCase(login.account.email) && record.server == server;
    if (!isSame && !(record.email.empty() && record.server.empty())) {
        context_.forgetAccount();
    }
    record.email = login.account.email;
    record.server = server;
    context_.keepRecord();
    context_.status.email = record.email;
    context_.token = login.token;
    context_.memory.keepToken(login.token);
    if (!login.account.hasKey) {
        showRecoveryKey(Purpose::firstKey,
                        context_.dataKey != nullptr
                            ? context_.dataKey
                            : std::make_shared<const Secret>(CloudCrypto::newKey()));
    } else if (context_.dataKey != nullptr) {
        enter(Phase::ready);
    } else {
        enter(Phase::needsRecoveryKey);
    }
}

/// A machine that closed before its key was set up goes on there.
void SignIn::lookForKey() {
    context_.api.wrappedKey(
        context_.token,
        asked([this](const tl::expected<CloudAPI::KeyBody, CloudAPI::Failure>& stored) {
            if (!stored) {
                fail(stored.error());
            } else if (!stored->key && !stored->isUnreadable.value_or(false)) {
                showRecoveryKey(Purpose::firstKey,
                                std::make_shared<const Secret>(CloudCrypto::newKey()));
            } else {
                context_.tell();
            }
        }));
}

void SignIn::showRecoveryKey(Purpose purpose, std::shared_ptr<const Secret> key) {
    purpose_ = purpose;
    newKey_ = std::move(key);
    context_.status.recoveryKey = CloudCrypto::newRecoveryKey();
    context_.status.problem.reset();
    enter(Phase::confirmsKey);
}

void SignIn::cancel() {
    ++turn_;
    context_.status.activity = CloudStatus::Activity::resting;
    context_.status.problem.reset();
    const bool isConfirming = context_.status.phase == Phase::confirmsKey;
    context_.status.recoveryKey.clear();
    newKey_.reset();
    if (isConfirming && purpose_ == Purpose::sameKey) {
        enter(Phase::ready);
    } else if (isConfirming && purpose_ == Purpose::newBeginning) {
        enter(Phase::needsRecoveryKey);
    } else if (!context_.token.empty()) {
        signOut();
    } else {
        enter(Phase::signedOut);
    }
}

void SignIn::confirmRecoveryKey(const std::string& typed) {
    if (context_.status.phase != Phase::confirmsKey) {
        return;
    }
    const auto parsed = CloudCrypto::parseRecoveryKey(typed);
    if (!parsed) {
        context_.setProblem(std::string(CloudCrypto::message(parsed.error())));
        return;
    }
    if (parsed != CloudCrypto::parseRecoveryKey(context_.status.recoveryKey)) {
        context_.setProblem("Das ist nicht der angezeigte Wiederherstellungsschlüssel. Bitte "
                            "nochmals vergleichen.");
        return;
    }
    const auto sealed = CloudCrypto::wrap(*newKey_, *parsed, context_.record.email);
    if (!sealed) {
        context_.setProblem(std::string(CloudCrypto::message(sealed.error())));
        return;
    }
    const std::string wrapped = sealedText(*sealed);
    if (purpose_ == Purpose::firstKey) {
        storeKey(wrapped, std::nullopt);
        return;
    }
    context_.api.wrappedKey(
        context_.token,
        asked([this, wrapped](const tl::expected<CloudAPI::KeyBody, CloudAPI::Failure>& stored) {
            stored ? storeKey(wrapped, stored->key) : fail(stored.error());
        }));
}

void SignIn::storeKey(const std::string& wrapped, const std::optional<std::string>& previous) {
    context_.api.storeWrappedKey(
        wrapped, context_.token,
        asked([this, wrapped](const tl::expected<void, CloudAPI::Failure>& stored) {
            if (stored) {
                keyStored(wrapped);
            } else if (stored.error().code == "llave") {
                compareKey(wrapped);
            } else {
                fail(stored.error());
            }
        }),
        previous);
}

void SignIn::compareKey(const std::string& wrapped) {
    context_.api.wrappedKey(
        context_.token,
        asked([this, wrapped](const tl::expected<CloudAPI::KeyBody, CloudAPI::Failure>& stored) {
            if (!stored) {
                fail(stored.error());
            } else if (stored->key == wrapped) {
                keyStored(wrapped);
            } else {
                lostToAnother();
            }
        }));
}

void SignIn::lostToAnother() {
    newKey_.reset();
    context_.status.recoveryKey.clear();
    enter(Phase::needsRecoveryKey);
    context_.setProblem("Ein anderes Gerät hat soeben einen Schlüssel eingerichtet. Bitte dessen "
                        "Wiederherstellungsschlüssel eingeben.");
}

void SignIn::keyStored(const std::string& wrapped) {
    if (purpose_ == Purpose::newBeginning) {
        context_.common->forget();
        context_.record.startsAnew = true;
        context_.record.uploaded.clear();
        context_.record.orphans.clear();
    }
    context_.record.wrappedKey = sha256(wrapped);
    context_.keepRecord();
    context_.dataKey = std::move(newKey_);
    context_.memory.keepDataKey(context_.dataKey);
    context_.status.recoveryKey.clear();
    enter(Phase::ready);
}

void SignIn::joinByRecoveryKey(const std::string& typed) {
    if (context_.status.phase != Phase::needsRecoveryKey) {
        return;
    }
    const auto parsed = CloudCrypto::parseRecoveryKey(typed);
    if (!parsed) {
        context_.setProblem(std::string(CloudCrypto::message(parsed.error())));
        return;
    }
    context_.api.wrappedKey(
        context_.token,
        asked([this,
               typed = *parsed](const tl::expected<CloudAPI::KeyBody, CloudAPI::Failure>& stored) {
            stored ? join(*stored, typed) : fail(stored.error());
        }));
}

void SignIn::join(const CloudAPI::KeyBody& stored, const std::string& typed) {
    if (!stored.key) {
        context_.setProblem("Auf dem Server liegt kein Schlüssel, der sich lesen lässt. Sie können "
                            "mit den Daten dieses Geräts neu beginnen.");
        return;
    }
    auto key = sealedBytes(*stored.key).and_then([&](const CloudCrypto::Bytes& wrapped) {
        return CloudCrypto::unwrap(wrapped, typed, context_.record.email);
    });
    if (!key) {
        context_.setProblem(std::string(CloudCrypto::message(key.error())));
        return;
    }
    context_.dataKey = std::make_shared<const Secret>(std::move(*key));
    context_.memory.keepDataKey(context_.dataKey);
    context_.record.wrappedKey = sha256(*stored.key);
    context_.keepRecord();
    enter(Phase::ready);
}

void SignIn::makeNewRecoveryKey() {
    if (context_.status.phase == Phase::ready) {
        showRecoveryKey(Purpose::sameKey, context_.dataKey);
    }
}

void SignIn::startAnew() {
    if (context_.status.phase == Phase::needsRecoveryKey || context_.status.phase == Phase::ready) {
        showRecoveryKey(Purpose::newBeginning,
                        std::make_shared<const Secret>(CloudCrypto::newKey()));
    }
}

void SignIn::signOut() {
    ++turn_;
    if (!context_.token.empty()) {
        context_.api.signOut(context_.token, [](const auto&) {});
    }
    sessionOver({});
}

void SignIn::sessionOver(const std::string& message) {
    ++turn_;
    context_.token.clear();
    context_.memory.keepToken(std::nullopt);
    context_.status.activity = CloudStatus::Activity::resting;
    context_.status.recoveryKey.clear();
    newKey_.reset();
    context_.status.devices.clear();
    context_.status.problem =
        message.empty() ? std::optional<std::string>() : std::optional(message);
    enter(Phase::signedOut);
}

void SignIn::keyChanged() {
    ++turn_;
    context_.dataKey.reset();
    context_.memory.keepDataKey(nullptr);
    enter(Phase::needsRecoveryKey);
    context_.setProblem("Der Schlüssel des Cloud-Kontos wurde auf einem anderen Gerät geändert. "
                        "Bitte den neuen Wiederherstellungsschlüssel eingeben.");
}

} // namespace fiscarel
