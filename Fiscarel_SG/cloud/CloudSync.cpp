#include "Fiscarel_SG/cloud/CloudSync.h"

#include "Fiscarel_SG/cloud/Sealing.h"

#include <QSysInfo>
#include <algorithm>
#include <cstdio>
#include <utility>

namespace fiscarel {

namespace {

using Phase = CloudStatus::Phase;
using Activity = CloudStatus::Activity;

std::string deviceName(const std::string& given) {
    const std::string host = QSysInfo::machineHostName().toStdString();
    return !given.empty() ? given : !host.empty() ? host : std::string("Computer");
}

std::filesystem::path cloudFolder(const Persistence* persistence) {
    return persistence != nullptr ? persistence->root() / "Cloud" : std::filesystem::path();
}

/// In place: the parts point into it.
std::unique_ptr<CloudContext> makeContext(const CloudSync::Services& with) {
    std::unique_ptr<CloudContext> context(new CloudContext{
        .store = with.store,
        .api = with.api,
        .files = with.files,
        .writer = with.writer,
        .worker = with.worker,
        .clock = with.clock,
        .persistence = with.persistence,
        .device = deviceName(with.device),
        .memory = CloudMemory(with.keychain, with.worker),
        .folder = CloudFolder(with.files, cloudFolder(with.persistence)),
    });
    context->common.emplace(context->folder, with.writer, context->memory);
    return context;
}

} // namespace

CloudSync::CloudSync(const Services& services, QObject* parent)
    : CloudService(parent), settings_(services.settings), context_(makeContext(services)),
      signIn_(
          *context_, [this] { readyAgain(); }, [this] { abandon(); }),
      states_(*context_), documents_(*context_, [this] { return isAskedAgain_; }),
      timer_(services.timers.make([this] { run(); })) {
    context_->changed = [this] { Q_EMIT changed(); };
    if (settings_ != nullptr) {
        context_->status.server = settings_->text(serverKey).value_or("");
    }
    if (services.persistence == nullptr || services.store.isDemo()) {
        context_->status.phase = Phase::demo;
        return;
    }
    services.store.onLocalSave = [this] {
        if (canRun() && !isPausing_) {
            timer_->start(quietBeforeSending);
        }
    };
    services.store.onDocumentDeleted = [this](const StoredDocument& document) {
        if (context_->status.phase == Phase::starting) {
            deletedEarly_.push_back(document);
        } else {
            context_->keepFileOf(document);
        }
    };
    start();
}

CloudSync::~CloudSync() {
    context_->store.onLocalSave = nullptr;
    context_->store.onDocumentDeleted = nullptr;
}

/// Asks the keyring and the disk what was before.
void CloudSync::start() {
    struct Found {
        CloudMemory::Content memory;
        CloudRecord record;
        CommonStates::Loaded common;
    };
    context_->worker.post<std::shared_ptr<Found>>(
        [memory = context_->memory, folder = context_->folder, ours = context_->store.snapshot()] {
            auto found = std::make_shared<Found>();
            found->memory = memory.readNow();
            found->record = folder.readRecord();
            found->common =
                CommonStates::load(folder, found->memory.lastState, sha256(encodeState(ours)));
            return found;
        },
        life_.guard([this](const std::shared_ptr<Found>& found) {
            context_->record = std::move(found->record);
            context_->status.email = context_->record.email;
            context_->status.conflicts = context_->record.conflicts;
            for (const StoredDocument& document : std::exchange(deletedEarly_, {})) {
                context_->keepFileOf(document);
            }
            if (!found->memory.isAvailable) {
                context_->status.phase = Phase::noKeyring;
                context_->tell();
                return;
            }
            context_->token = found->memory.token.value_or("");
            context_->dataKey = std::move(found->memory.dataKey);
            context_->common->adopt(std::move(found->common));
            signIn_.resume();
        }));
}

// Comparing.

bool CloudSync::canRun() const {
    return context_->status.phase == Phase::ready && !context_->token.empty()
           && context_->dataKey != nullptr;
}

void CloudSync::readyAgain() {
    pause_ = firstPause;
    run();
}

/// Signed out, or without the key: what is under way ends.
void CloudSync::abandon() {
    timer_->stop();
    isRunning_ = false;
    isAskedAgain_ = false;
    runLife_ = Lifeline();
    states_.abandon();
    documents_.abandon();
    if (context_->status.activity != Activity::working) {
        context_->status.activity = Activity::resting;
    }
}

void CloudSync::checkNow() {
    pause_ = firstPause;
    run();
}

void CloudSync::run() {
    if (!canRun()) {
        return;
    }
    if (isRunning_) {
        isAskedAgain_ = true;
        return;
    }
    isRunning_ = true;
    isAskedAgain_ = false;
    isPausing_ = false;
    timer_->stop();
    context_->status.activity = Activity::comparing;
    context_->tell();
    states_.run(runLife_.guard(
        [this](const tl::expected<void, CloudTrouble>& outcome) { stateExchanged(outcome); }));
}

void CloudSync::stateExchanged(const tl::expected<void, CloudTrouble>& outcome) {
    if (!outcome) {
        finish(outcome.error());
        return;
    }
    documents_.run(states_.theirs(),
                   runLife_.guard([this](const tl::expected<void, CloudTrouble>& done) {
                       documentsExchanged(done);
                   }));
}

void CloudSync::documentsExchanged(const tl::expected<void, CloudTrouble>& outcome) {
    if (!outcome) {
        finish(outcome.error());
        return;
    }
    readAccount();
}

void CloudSync::readAccount() {
    context_->api.account(
        context_->token,
        runLife_.guard([this](const tl::expected<CloudAPI::Account, CloudAPI::Failure>& account) {
            if (!account) {
                finish(CloudTrouble::of(account.error()));
                return;
            }
            accountRead(*account);
            const auto theirs = states_.theirs();
            if (theirs != nullptr && context_->store.snapshot() == theirs->state) {
                context_->status.compared = context_->clock.now();
            }
            finish(std::nullopt);
        }));
}

void CloudSync::accountRead(const CloudAPI::Account& account) {
    CloudStatus& status = context_->status;
    status.bytesUsed = account.space.used;
    status.bytesAllowed = account.space.maximum;
    status.devices.clear();
    for (const CloudAPI::Account::Device& device : account.devices) {
        status.devices.push_back(
            {device.name, dayText(device.since), dayText(device.lastSeen), device.isThis});
    }
    status.deletionPlanned =
        account.deletionPlanned ? std::optional(dayText(*account.deletionPlanned)) : std::nullopt;
}

/// "08.03.2026" for a day or instant as the server writes it; other texts as they are.
std::string CloudSync::dayText(const std::string& written) const {
    const auto moment = Moment::parse(written);
    if (!moment) {
        return written;
    }
    const std::string day = context_->clock.localTime(*moment).dayStamp();
    return day.substr(8, 2) + "." + day.substr(5, 2) + "." + day.substr(0, 4);
}

void CloudSync::finish(const std::optional<CloudTrouble>& trouble) {
    isRunning_ = false;
    context_->status.activity = Activity::resting;
    if (trouble) {
        troubled(*trouble);
        return;
    }
    pause_ = firstPause;
    context_->status.problem.reset();
    context_->tell();
    if (isAskedAgain_) {
        run();
    } else if (!timer_->isRunning()) {
        timer_->start(betweenChecks);
    }
}

void CloudSync::troubled(const CloudTrouble& trouble) {
    CloudStatus& status = context_->status;
    status.problem =
        trouble.message.empty() ? std::optional<std::string>() : std::optional(trouble.message);
    switch (trouble.kind) {
    case CloudTrouble::Kind::sessionOver:
        signIn_.sessionOver(trouble.message);
        return;
    case CloudTrouble::Kind::keyChanged:
        signIn_.keyChanged();
        return;
    case CloudTrouble::Kind::offline:
        status.activity = Activity::offline;
        isPausing_ = true;
        timer_->start(pause_);
        pause_ = std::min(pause_ * 2, longestPause);
        break;
    case CloudTrouble::Kind::busy:
        isPausing_ = true;
        timer_->start(pauseWhenBusy);
        break;
    case CloudTrouble::Kind::asked:
    case CloudTrouble::Kind::stopped:
        if (!timer_->isRunning()) {
            timer_->start(betweenChecks);
        }
        break;
    }
    context_->tell();
    if (isAskedAgain_ && !isPausing_) {
        run();
    }
}

// What the user asks for.

namespace {

/// Nothing typed: the usual one.
QUrl baseOf(const QString& typed) {
    return typed.isEmpty() ? CloudAPI::defaultBase() : CloudAPI::baseOf(typed);
}

} // namespace

QUrl CloudSync::serverOf(const Settings& settings) {
    return baseOf(QString::fromStdString(settings.text(serverKey).value_or("")).trimmed());
}

void CloudSync::useServer(const std::string& address) {
    const QString typed = QString::fromStdString(address).trimmed();
    CloudStatus& status = context_->status;
    if (status.phase != Phase::signedOut || status.activity == Activity::working
        || (!typed.isEmpty() && !CloudAPI::speaksTo(baseOf(typed)))) {
        return;
    }
    context_->api.setBase(baseOf(typed));
    status.server = typed.toStdString();
    if (settings_ != nullptr) {
        settings_->setText(serverKey, status.server);
    }
    status.problem.reset();
    context_->tell();
}

void CloudSync::requestCode(const std::string& email) {
    if (status().phase == Phase::signedOut || status().phase == Phase::codeSent) {
        signIn_.requestCode(email);
    }
}

void CloudSync::verifyCode(const std::string& code) {
    if (status().phase == Phase::codeSent) {
        signIn_.verifyCode(code);
    }
}

void CloudSync::cancelSignIn() {
    if (status().phase == Phase::codeSent || status().phase == Phase::confirmsKey
        || status().phase == Phase::needsRecoveryKey) {
        signIn_.cancel();
    }
}

void CloudSync::confirmRecoveryKey(const std::string& typed) { signIn_.confirmRecoveryKey(typed); }

void CloudSync::joinByRecoveryKey(const std::string& typed) { signIn_.joinByRecoveryKey(typed); }

void CloudSync::makeNewRecoveryKey() { signIn_.makeNewRecoveryKey(); }

void CloudSync::startAnew() { signIn_.startAnew(); }

void CloudSync::answerQuestion(bool takesLossOver) {
    if (status().question) {
        states_.answer(takesLossOver);
        checkNow();
    }
}

void CloudSync::settleConflict(std::size_t index, bool takesOther) {
    auto& open = context_->record.conflicts;
    if (index >= open.size()) {
        return;
    }
    const MergeConflict conflict = open[index];
    if ((takesOther && !takeOver(conflict))
        || (!takesOther && isRemovalHere(conflict) && !takeOver(swapped(conflict)))) {
        context_->status.problem =
            "Die Stelle hat sich inzwischen geändert; Ihr Wert ist geblieben.";
    }
    open.erase(open.begin() + static_cast<std::ptrdiff_t>(index));
    context_->status.conflicts = open;
    context_->keepRecord();
    context_->tell();
}

void CloudSync::settleAllConflicts() {
    context_->record.conflicts.clear();
    context_->status.conflicts.clear();
    context_->keepRecord();
    context_->tell();
}

/// Puts their value in place of ours, as an edit of the user's in the year it concerns.
bool CloudSync::takeOver(const MergeConflict& conflict) {
    AppStore& store = context_->store;
    PersistedState changed = store.snapshot();
    if (!takeTheirs(changed, conflict)) {
        return false;
    }
    if (changed == store.snapshot()) {
        return true;
    }
    if (conflict.year != 0) {
        const auto found = changed.cases.find(conflict.year);
        if (found == changed.cases.end()) {
            store.removeYear(conflict.year);
            return true;
        }
        store.setYear(conflict.year);
        store.setCurrent(found->second, isRemovalHere(swapped(conflict)) ? "Eintrag löschen"
                                                                         : "Wert aus der Cloud");
        return true;
    }
    const std::vector<StoredDocument> before = store.documents();
    for (const StoredDocument& document : before) {
        const auto after = std::ranges::find(changed.documents, document.id, &StoredDocument::id);
        if (after == changed.documents.end()) {
            store.deleteDocument(document.id);
        } else if (*after != document) {
            store.updateDocument(document.id, [&](StoredDocument& target) { target = *after; });
        }
    }
    return true;
}

void CloudSync::signOut() {
    if (!context_->token.empty()) {
        signIn_.signOut();
    }
}

} // namespace fiscarel
