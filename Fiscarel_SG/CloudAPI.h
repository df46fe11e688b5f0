#pragma once

#include <tl/expected.hpp>

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>
#include <QUrl>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class QJsonObject;
class QNetworkReply;
class QNetworkRequest;

namespace fiscarel {

/// The client of the encrypted backup's server. Keeps no state: every call is given the session's
/// token. What carries data of the household is sealed by the caller; the server sees ciphertext.
/// Calls return at once, answers come on the main thread, and none comes after the client is gone.
class CloudAPI final : public QObject {
    Q_OBJECT

  public:
    /// Why a call did not work.
    struct Failure {
        int status = 0;   ///< of HTTP; 0 without an answer
        std::string code; ///< the server's, "http_" and the status, "red" without an answer,
                          ///< "respuesta" for one that cannot be read
        std::optional<int> remaining;               ///< attempts left
        std::optional<std::int64_t> currentVersion; ///< of the block, when the server's is newer

        /// A German sentence for the user.
        std::string errorDescription() const;
        /// Whether the user has to sign in again.
        bool isSessionOver() const { return code == "sin_sesion" || code == "sesion_caducada"; }
        bool operator==(const Failure&) const = default;
    };

    struct Login {
        struct Account {
            std::string email;
            bool isNew = false;  ///< made by this sign-in
            bool hasKey = false; ///< a wrapped key is stored
            bool operator==(const Account&) const = default;
        };
        std::string token;
        Account account;
        bool operator==(const Login&) const = default;
    };

    struct Account {
        struct Space {
            std::int64_t used = 0; ///< bytes
            std::int64_t maximum = 0;
            bool operator==(const Space&) const = default;
        };
        struct Device {
            std::int64_t id = 0;
            std::string name;
            std::string since; ///< as the server writes it
            std::string lastSeen;
            bool isThis = false;
            bool operator==(const Device&) const = default;
        };
        std::string email;
        Space space;
        bool hasKey = false;
        std::vector<Device> devices;
        std::optional<std::string> deletionPlanned; ///< day on which the account goes
        bool operator==(const Account&) const = default;
    };

    struct Block {
        std::int64_t version = 0;
        std::string content;
        bool operator==(const Block&) const = default;
    };

    struct Receipt {
        std::string id;
        std::int64_t size = 0; ///< bytes, as stored
        bool operator==(const Receipt&) const = default;
    };

    struct KeyBody {
        std::optional<std::string> key;   ///< the wrapped data key
        std::optional<bool> isUnreadable; ///< one is stored, but the server cannot read it
        bool operator==(const KeyBody&) const = default;
    };

    /// How long nothing may be heard of the other side.
    struct Patience {
        std::chrono::milliseconds usual{30'000};
        std::chrono::milliseconds documents{180'000};
    };

    template <class T>
    using Done = std::function<void(tl::expected<T, Failure>)>;

    /// `base` ends with "/". With one that is not spoken to every call fails with "red" and nothing
    /// is sent.
    explicit CloudAPI(QUrl base = defaultBase(), QObject* parent = nullptr)
        : CloudAPI(std::move(base), Patience{}, parent) {}
    CloudAPI(QUrl base, Patience patience, QObject* parent = nullptr);
    /// The server this program was built for.
    static QUrl defaultBase();
    /// The address of the interface on a host, "https://HOST/fiscarel/api/v1/"; "HOST:PORT" and a
    /// host with its scheme, as "http://127.0.0.1:8420", are fine as well.
    static QUrl baseOf(const QString& host);

    /// Whether calls may go to an address: by HTTPS, or by plain HTTP to this machine.
    static bool speaksTo(const QUrl& base);

    /// Where the calls go.
    const QUrl& base() const noexcept { return base_; }
    /// From now on they go elsewhere.
    void setBase(QUrl base) { base_ = std::move(base); }

    void requestCode(const std::string& email, Done<void> done);
    void verifyCode(const std::string& email, const std::string& code, const std::string& device,
                    Done<Login> done);
    void account(const std::string& token, Done<Account> done);
    void wrappedKey(const std::string& token, Done<KeyBody> done);
    /// Stores the wrapped key where there is none, or in the place of `previous`; another one is
    /// never replaced ("llave").
    void storeWrappedKey(const std::string& key, const std::string& token, Done<void> done,
                         const std::optional<std::string>& previous = std::nullopt);
    /// Absent when there is no block of that key yet.
    void block(const std::string& key, const std::string& token, Done<std::optional<Block>> done);
    /// Saves a block that is based on `version`, 0 for the first; answers the new version. A newer
    /// one on the server fails with `currentVersion`.
    void saveBlock(const std::string& key, const Block& block, const std::string& token,
                   Done<std::int64_t> done);
    void receipts(const std::string& token, Done<std::vector<Receipt>> done);
    void uploadReceipt(const QByteArray& sealed, const std::string& token, Done<Receipt> done);
    void downloadReceipt(const std::string& id, const std::string& token, Done<QByteArray> done);
    void deleteReceipt(const std::string& id, const std::string& token, Done<void> done);
    void signOut(const std::string& token, Done<void> done);

  private:
    struct Request;
    using Answer = std::function<void(tl::expected<QByteArray, Failure>)>;
    void send(const Request& request, Answer done);

    QNetworkAccessManager network_;
    QUrl base_;
    const Patience patience_;
};

} // namespace fiscarel
