#include "server/Mail.h"

#include "tests/support/TemporaryFolder.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <thread>

namespace fiscarel::server {
namespace {

/// Takes one mail on this machine and keeps what was said; greets with what it is given.
class MailTaker {
  public:
    explicit MailTaker(std::string greeting)
        : listener_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_ANY);
        socklen_t size = sizeof address;
        auto* const plain = reinterpret_cast<sockaddr*>(&address);
        ::bind(listener_, plain, size);
        ::listen(listener_, 1);
        ::getsockname(listener_, plain, &size);
        port = ntohs(address.sin_port);
        thread_ = std::jthread([this, greeting = std::move(greeting)] { talk(greeting); });
    }
    ~MailTaker() {
        ::shutdown(listener_, SHUT_RDWR);
        thread_.join();
        ::close(listener_);
    }

    int port = 0;
    std::string said;

  private:
    void talk(const std::string& greeting) {
        const int client = ::accept(listener_, nullptr, nullptr);
        const auto tell = [&](const std::string& line) {
            (void)::send(client, (line + "\r\n").data(), line.size() + 2, MSG_NOSIGNAL);
        };
        tell(greeting);
        std::string line;
        bool isText = false;
        for (char c = 0; ::recv(client, &c, 1, 0) == 1;) {
            line += c;
            if (c != '\n') {
                continue;
            }
            said += line;
            const bool isEnd = isText && line == ".\r\n";
            if (!isText || isEnd) {
                isText = line.starts_with("DATA");
                tell(isText ? "354 go on" : "250 fine");
            }
            line.clear();
        }
        ::close(client);
    }

    int listener_;
    std::jthread thread_;
};

SmtpMail::Settings settingsFor(int port) {
    return {.url = "smtp://127.0.0.1:" + std::to_string(port),
            .from = "codigo@example.ch",
            .seconds = 5};
}

TEST(ServerMail, aCodeGoesOutAsAMail) {
    MailTaker taker("220 here");
    EXPECT_TRUE(SmtpMail(settingsFor(taker.port)).sendCode("a@example.ch", "012345"));
    for (const char* part :
         {"MAIL FROM:<codigo@example.ch>", "RCPT TO:<a@example.ch>", "To: <a@example.ch>\r\n",
          "From: Fiscarel SG <codigo@example.ch>\r\n", "Subject: Ihr Anmeldecode\r\n",
          "\r\n\r\nGuten Tag", "    012345\r\n", "Message-ID: <", " +0000\r\n"}) {
        EXPECT_NE(taker.said.find(part), std::string::npos) << part << " in\n" << taker.said;
    }
}

TEST(ServerMail, aMailServerThatDoesNotTakeItIsNoticed) {
    {
        MailTaker taker("554 not today");
        EXPECT_FALSE(SmtpMail(settingsFor(taker.port)).sendCode("a@example.ch", "012345"));
    }
    EXPECT_FALSE(SmtpMail(settingsFor(1)).sendCode("a@example.ch", "012345")) << "nobody there";
    SmtpMail::Settings settings = settingsFor(1);
    {
        MailTaker plain("220 here");
        // Only to this machine itself a mail goes unencrypted.
        settings.url = "smtp://127.0.0.2:" + std::to_string(plain.port);
        EXPECT_FALSE(SmtpMail(settings).sendCode("a@example.ch", "012345"));
        EXPECT_EQ(plain.said.find("MAIL"), std::string::npos) << plain.said;
    }
    settings.url = "file:///etc/passwd";
    EXPECT_FALSE(SmtpMail(settings).sendCode("a@example.ch", "012345"));
}

TEST(ServerMail, theCodeFileIsForItsUserAlone) {
    namespace fs = std::filesystem;
    const testing::TemporaryFolder folder;
    const auto file = folder / "codes";
    testing::writeFile(file, "old@example.ch 1\n");
    fs::permissions(file, fs::perms::all);
    CodeFile mail(file);
    EXPECT_TRUE(mail.sendCode("a@example.ch", "000001"));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(testing::readFile(file), "old@example.ch 1\na@example.ch 000001\n");
    fs::create_symlink(file, folder / "link");
    EXPECT_FALSE(CodeFile(folder / "link").sendCode("a@example.ch", "000002"));
    EXPECT_FALSE(CodeFile(folder.path()).sendCode("a@example.ch", "000002"));
}

} // namespace
} // namespace fiscarel::server
