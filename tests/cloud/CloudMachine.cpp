#include "tests/cloud/CloudMachine.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <array>
#include <utility>

namespace fiscarel::testing {

namespace fs = std::filesystem;

void needApplication() {
    if (QCoreApplication::instance() == nullptr) {
        static int count = 1;
        static std::string name = "cloud-tests";
        static std::array<char*, 2> arguments{name.data(), nullptr};
        static const QCoreApplication application(count, arguments.data());
    }
}

bool waitFor(const std::function<bool()>& holds, std::chrono::milliseconds most) {
    QElapsedTimer passed;
    passed.start();
    QTimer wakes; // or the loop sleeps past the end
    wakes.start(std::chrono::milliseconds(100));
    while (!holds()) {
        if (passed.elapsed() > most.count()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void passTime(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

CloudMachine::CloudMachine(std::string machineName, QUrl base, FakeClock& machineClock,
                           std::chrono::milliseconds machinePatience)
    : name(std::move(machineName)), clock(machineClock), patience(machinePatience),
      base_(std::move(base)) {
    needApplication();
}

CloudMachine::~CloudMachine() { quit(); }

void CloudMachine::start(LaunchArguments launch) {
    timers = std::make_unique<FakeTimers>();
    writer = std::make_unique<StepQueue>();
    worker = std::make_unique<StepQueue>();
    if (!launch.demo) {
        persistence = std::make_unique<Persistence>(*fileSystem, clock, root());
    }
    settings.setText("defaultRegion", "SG");
    store = std::make_unique<AppStore>(
        AppStore::Services{persistence.get(), *writer, clock, *timers, settings}, launch);
    api_ = std::make_unique<CloudAPI>(settings.text(CloudSync::serverKey).value_or("").empty()
                                          ? base_
                                          : CloudSync::serverOf(settings),
                                      CloudAPI::Patience{patience, patience});
    sync = std::make_unique<CloudSync>(
        CloudSync::Services{*store, *api_, keychain, persistence.get(), *fileSystem, *writer,
                            *worker, *timers, clock, &settings, name});
}

void CloudMachine::quit() {
    if (store == nullptr) {
        return;
    }
    sync.reset();
    api_.reset();
    worker->drain();
    store.reset();
    persistence.reset();
}

void CloudMachine::crash() {
    const fs::path kept = folder_.path() / "crashed";
    fs::copy(root(), kept, fs::copy_options::recursive);
    const auto keyring = keychain.items;
    worker->clear();
    quit();
    keychain.items = keyring;
    fs::remove_all(root());
    fs::rename(kept, root());
}

bool CloudMachine::workOne(bool writersFirst) {
    const bool did =
        writersFirst ? writer->step() || worker->step() : worker->step() || writer->step();
    if (did && worked) {
        worked();
    }
    return did;
}

bool CloudMachine::work() {
    bool did = false;
    while (workOne(true)) {
        did = true;
    }
    return did;
}

bool CloudMachine::rest() {
    return waitFor([this] {
        work();
        return !sync->isRunning() && status().activity != CloudStatus::Activity::working;
    });
}

bool CloudMachine::settle(std::chrono::milliseconds time) {
    for (std::chrono::milliseconds passed{0}; passed < time; passed += std::chrono::seconds(1)) {
        timers->advance(std::chrono::seconds(1));
        work();
    }
    return rest();
}

bool CloudMachine::check() {
    if (!rest()) {
        return false;
    }
    sync->checkNow();
    return rest();
}

bool CloudMachine::signIn(const std::string& email, const std::function<std::string()>& code) {
    work();
    sync->requestCode(email);
    if (!rest() || status().phase != CloudStatus::Phase::codeSent) {
        return false;
    }
    sync->verifyCode(code());
    return rest();
}

std::string CloudMachine::setUp(const std::string& email,
                                const std::function<std::string()>& code) {
    if (!signIn(email, code) || status().phase != CloudStatus::Phase::confirmsKey) {
        return {};
    }
    const std::string key = status().recoveryKey;
    sync->confirmRecoveryKey(key);
    return rest() && status().phase == CloudStatus::Phase::ready ? key : std::string();
}

bool CloudMachine::join(const std::string& email, const std::function<std::string()>& code,
                        const std::string& recoveryKey) {
    if (!signIn(email, code) || status().phase != CloudStatus::Phase::needsRecoveryKey) {
        return false;
    }
    sync->joinByRecoveryKey(recoveryKey);
    return rest() && status().phase == CloudStatus::Phase::ready;
}

Uuid CloudMachine::addDocument(const std::string& fileName, const std::string& content) {
    const fs::path file = outside(fileName);
    writeFile(file, content);
    std::optional<Uuid> id;
    store->importDocuments({file}, [&](const std::vector<Uuid>& ids) { id = ids.at(0); });
    work();
    fs::remove(file);
    return id.value();
}

} // namespace fiscarel::testing
