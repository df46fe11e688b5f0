#pragma once

#include "Fiscarel_SG/cloud/CloudService.h"

#ifndef Q_MOC_RUN // its parser stumbles over the headers of C++20
#include "Fiscarel_SG/cloud/CloudContext.h"
#include "Fiscarel_SG/cloud/DocumentExchange.h"
#include "Fiscarel_SG/cloud/SignIn.h"
#include "Fiscarel_SG/cloud/StateExchange.h"
#endif

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel {

/// Keeps state and documents the same here and in the encrypted backup: after every save, every few
/// minutes, and when asked. Without a connection it tries again by itself. Main thread only.
class CloudSync final : public CloudService {
    Q_OBJECT

  public:
    /// What it works with; all must outlive it, and its work on the queues.
    struct Services {
        AppStore& store;
        CloudAPI& api;
        CloudKeychain& keychain;
        const Persistence* persistence = nullptr; ///< null in demo mode
        FileSystem& files;
        WorkQueue& writer; ///< the one the store saves with
        WorkQueue& worker; ///< another one: the keyring may keep it waiting for the user
        Timers& timers;
        const Clock& clock;
        Settings* settings = nullptr; ///< keep the user's own server; null: it is not kept
        std::string device = {}; ///< how the list of devices is to name this one; empty: as it is
    };

    static constexpr std::string_view serverKey = "cloud/server"; ///< of the settings
    static constexpr std::chrono::milliseconds quietBeforeSending{2'000};
    static constexpr std::chrono::minutes betweenChecks{5};
    static constexpr std::chrono::seconds firstPause{5};
    static constexpr std::chrono::seconds longestPause{300};
    static constexpr std::chrono::seconds pauseWhenBusy{60};

    explicit CloudSync(const Services& services, QObject* parent = nullptr);
    ~CloudSync() override;
    CloudSync(const CloudSync&) = delete;
    CloudSync& operator=(const CloudSync&) = delete;
    CloudSync(CloudSync&&) = delete;
    CloudSync& operator=(CloudSync&&) = delete;

    const CloudStatus& status() const override { return context_->status; }
    /// Whether a comparison is under way.
    bool isRunning() const noexcept { return isRunning_; }
    /// Where the server is by these settings.
    static QUrl serverOf(const Settings& settings);

    void useServer(const std::string& address) override;
    void requestCode(const std::string& email) override;
    void verifyCode(const std::string& code) override;
    void cancelSignIn() override;
    void confirmRecoveryKey(const std::string& typed) override;
    void joinByRecoveryKey(const std::string& typed) override;
    void makeNewRecoveryKey() override;
    void startAnew() override;
    void checkNow() override;
    void answerQuestion(bool takesLossOver) override;
    void settleConflict(std::size_t index, bool takesOther) override;
    void settleAllConflicts() override;
    void signOut() override;

  private:
    void start();
    bool canRun() const;
    void run();
    void stateExchanged(const tl::expected<void, CloudTrouble>& outcome);
    void documentsExchanged(const tl::expected<void, CloudTrouble>& outcome);
    void readAccount();
    void accountRead(const CloudAPI::Account& account);
    void finish(const std::optional<CloudTrouble>& trouble);
    void troubled(const CloudTrouble& trouble);
    void readyAgain();
    void abandon();
    bool takeOver(const MergeConflict& conflict);
    std::string dayText(const std::string& written) const;

    Settings* settings_;
    std::unique_ptr<CloudContext> context_;
    SignIn signIn_;
    StateExchange states_;
    DocumentExchange documents_;
    std::unique_ptr<Timer> timer_; ///< to the next comparison
    std::chrono::seconds pause_ = firstPause;
    std::vector<StoredDocument> deletedEarly_; ///< before the record was read
    bool isRunning_ = false;
    bool isAskedAgain_ = false;
    bool isPausing_ = false; ///< because of the server or the line
    Lifeline life_;
    Lifeline runLife_; ///< of the run
};

} // namespace fiscarel
