#pragma once

#include "Fiscarel_SG/cloud/CloudContext.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace fiscarel {

/// The way from an address to a session with the household's key, and back.
class SignIn {
  public:
    /// `ready` is called when session and key are there, `left` when that is over. The context must
    /// outlive it.
    SignIn(CloudContext& context, std::function<void()> ready, std::function<void()> left)
        : context_(context), ready_(std::move(ready)), left_(std::move(left)) {}

    /// Where a machine stands that has been signed in before, or not.
    void resume();
    void requestCode(const std::string& email);
    void verifyCode(const std::string& code);
    void cancel();
    void confirmRecoveryKey(const std::string& typed);
    void joinByRecoveryKey(const std::string& typed);
    void makeNewRecoveryKey();
    void startAnew();
    void signOut();
    /// The server no longer knows the session: address, data and key stay.
    void sessionOver(const std::string& message);
    /// Another key lies on the server: its recovery key is asked for.
    void keyChanged();

  private:
    using Phase = CloudStatus::Phase;
    /// What the recovery key shown is for.
    enum class Purpose { firstKey, sameKey, newBeginning };

    /// Begins something the user asked for; its answer comes only while nothing else was asked.
    template <class Call>
    auto asked(Call call);
    void fail(const CloudAPI::Failure& failure);
    void enter(Phase phase);
    void signedIn(const CloudAPI::Login& login);
    void lookForKey();
    void showRecoveryKey(Purpose purpose, std::shared_ptr<const Secret> key);
    void storeKey(const std::string& wrapped, const std::optional<std::string>& previous);
    /// Our request may have arrived although its answer did not.
    void compareKey(const std::string& wrapped);
    void keyStored(const std::string& wrapped);
    void lostToAnother();
    void join(const CloudAPI::KeyBody& stored, const std::string& typed);

    CloudContext& context_;
    const std::function<void()> ready_;
    const std::function<void()> left_;
    std::string email_; ///< to which the code went
    Purpose purpose_ = Purpose::firstKey;
    std::shared_ptr<const Secret> newKey_; ///< while its recovery key is shown
    std::uint64_t turn_ = 0;
};

} // namespace fiscarel
