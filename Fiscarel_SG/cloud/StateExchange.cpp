#include "Fiscarel_SG/cloud/StateExchange.h"

#include "Fiscarel_SG/cloud/Sealing.h"

#include <algorithm>
#include <utility>

namespace fiscarel {

namespace {

constexpr std::string_view stateBlock = "estado";
constexpr int mostAttempts = 8; ///< of one run, while others keep writing

} // namespace

void StateExchange::run(Done done) {
    done_ = std::move(done);
    attempts_ = 0;
    isBackedUp_ = false;
    withdrawConflicts();
    fetch();
}

void StateExchange::finish(tl::expected<void, CloudTrouble> outcome) {
    if (outcome) {
        takesOver_.reset();
        keepsEverything_ = false;
        context_.status.question.reset();
    }
    const Done done = std::exchange(done_, nullptr);
    done(std::move(outcome));
}

void StateExchange::abandon() {
    life_ = Lifeline();
    done_ = nullptr;
    theirs_.reset();
    version_ = 0;
    takesOver_.reset();
    keepsEverything_ = false;
    context_.status.question.reset();
}

/// What is here; an unusable state file is as if nothing was.
PersistedState StateExchange::ours() const {
    return context_.store.awaitsRecovery() ? PersistedState{} : context_.store.snapshot();
}

// What lies in the cloud.

void StateExchange::fetch() {
    if (context_.store.isOfNewerProgram()) {
        finish(tl::unexpected(CloudTrouble::stopped(
            "Die Daten auf diesem Gerät stammen von einer neueren Ausgabe des Programms. Die "
            "Cloud wartet, bis sie sich lesen lassen.")));
        return;
    }
    context_.api.block(
        std::string(stateBlock), context_.token,
        life_.guard(
            [this](const tl::expected<std::optional<CloudAPI::Block>, CloudAPI::Failure>& block) {
                block ? fetched(*block) : finish(tl::unexpected(CloudTrouble::of(block.error())));
            }));
}

void StateExchange::fetched(const std::optional<CloudAPI::Block>& block) {
    version_ = block ? block->version : 0;
    if (!block) {
        theirs_.reset();
        compareKey([this] { settle(); });
        return;
    }
    if (theirs_ != nullptr && theirs_->id == SharedState::idOf(block->content)) {
        settle();
        return;
    }
    using Opened = tl::expected<SharedStatePointer, std::string>;
    context_.worker.post<std::optional<Opened>>(
        [content = block->content, key = context_.dataKey]() -> std::optional<Opened> {
            const auto plain = openBlock(content, *key, stateBlock);
            if (!plain) {
                return std::nullopt;
            }
            return SharedState::decode(*plain, SharedState::idOf(content))
                .map([](SharedState shared) -> SharedStatePointer {
                    return std::make_shared<const SharedState>(std::move(shared));
                });
        },
        life_.guard([this, block = *block](std::optional<Opened> opening) {
            if (opening) {
                opened(block, std::move(*opening));
            } else if (context_.record.startsAnew) {
                theirs_.reset(); // gives way to ours
                settle();
            } else {
                compareKey([this] {
                    finish(tl::unexpected(CloudTrouble::stopped(
                        std::string(CloudCrypto::message(CloudCrypto::Failure::damaged)))));
                });
            }
        }));
}

void StateExchange::opened(const CloudAPI::Block& block,
                           tl::expected<SharedStatePointer, std::string> shared) {
    if (!shared) {
        finish(tl::unexpected(CloudTrouble::stopped(std::move(shared).error())));
        return;
    }
    version_ = block.version;
    theirs_ = std::move(*shared);
    settle();
}

/// Goes on when the server still has the key that was put there; a block that does not open, or is
/// not there, alone does not tell whether another machine began anew.
void StateExchange::compareKey(std::function<void()> same) {
    context_.api.wrappedKey(
        context_.token,
        life_.guard([this, same = std::move(same)](
                        const tl::expected<CloudAPI::KeyBody, CloudAPI::Failure>& stored) {
            if (!stored) {
                finish(tl::unexpected(CloudTrouble::of(stored.error())));
            } else if (!stored->key) {
                finish(tl::unexpected(CloudTrouble::stopped(
                    "Auf dem Server fehlt der verschlüsselte Schlüssel. Bitte einen neuen "
                    "Wiederherstellungsschlüssel erstellen.")));
            } else if (sha256(*stored->key) != context_.record.wrappedKey) {
                finish(tl::unexpected(CloudTrouble{CloudTrouble::Kind::keyChanged, {}}));
            } else {
                same();
            }
        }));
}

// What becomes of both.

void StateExchange::settle() {
    const PersistedState ours = this->ours();
    withdrawConflicts();
    if (theirs_ == nullptr) {
        upload(reconcile(context_.common->known(), ours, nullptr).lineage);
        return;
    }
    const bool hasNothing = context_.store.awaitsRecovery();
    const Reconciled result =
        reconcile(hasNothing ? std::vector<SharedStatePointer>{} : context_.common->known(), ours,
                  theirs_, keepsEverything_);
    if (result.merged.state != ours || !result.merged.conflicts.empty()) {
        if (!asks(true, ours, result.merged.state)) {
            takeIn(result, ours);
        }
        return;
    }
    if (result.cloudIsBehind) {
        upload(result.lineage);
        return;
    }
    agreed(theirs_, [this, lineage = result.lineage] { upload(lineage); });
}

/// Takes conflicts back of a state that did not come to be taken in.
void StateExchange::withdrawConflicts() {
    std::erase_if(context_.record.conflicts, [&](const MergeConflict& conflict) {
        return std::ranges::find(added_, conflict) != added_.end();
    });
    added_.clear();
}

/// Whether the way from one state to the other has to wait for the user's answer.
bool StateExchange::asks(bool isIncoming, const PersistedState& before,
                         const PersistedState& after) {
    CloudStatus::Question question{isIncoming, lossBetween(before, after)};
    const bool isAgreed =
        takesOver_ && takesOver_->isIncoming == isIncoming && takesOver_->loss == question.loss;
    if (!question.loss.isGrave() || isAgreed) {
        return false;
    }
    takesOver_.reset();
    context_.status.question = std::move(question);
    finish(tl::unexpected(CloudTrouble{CloudTrouble::Kind::asked, {}}));
    return true;
}

void StateExchange::answer(bool takesLossOver) {
    if (takesLossOver) {
        takesOver_ = context_.status.question;
    } else {
        keepsEverything_ = true;
    }
    context_.status.question.reset();
}

void StateExchange::takeIn(const Reconciled& result, const PersistedState& ours) {
    const bool bothChanged = result.base == nullptr || result.base->state != ours;
    const bool takesAway = lossBetween(ours, result.merged.state) != lossBetween(ours, ours);
    if (isBackedUp_ || !(bothChanged || takesAway)) {
        keepConflicts(result, ours);
        return;
    }
    context_.store.writeBackup(
        backup::beforeCloud, life_.guard([this, result, ours](const FileResult<void>& kept) {
            if (!kept) {
                finish(tl::unexpected(CloudTrouble::stopped(
                    "Vor dem Abgleich mit der Cloud liess sich keine Sicherung anlegen: "
                    + kept.error().description())));
                return;
            }
            isBackedUp_ = true;
            keepConflicts(result, ours);
        }));
}

void StateExchange::keepConflicts(const Reconciled& result, const PersistedState& ours) {
    auto& open = context_.record.conflicts;
    for (const MergeConflict& conflict : result.merged.conflicts) {
        if (std::ranges::find(open, conflict) == open.end()) {
            open.push_back(conflict);
            added_.push_back(conflict);
        }
    }
    if (added_.empty()) {
        expect(result, ours);
        return;
    }
    context_.keepRecord([this, result, ours](const FileResult<void>& kept) {
        kept ? expect(result, ours) : cannotRemember(kept.error());
    });
}

void StateExchange::cannotRemember(const FileError& error) {
    finish(tl::unexpected(
        CloudTrouble::stopped("Der Abgleich mit der Cloud wartet: " + error.description())));
}

/// The program may end before it has noted that the cloud's state was taken in.
void StateExchange::expect(const Reconciled& result, const PersistedState& ours) {
    context_.common->expect(theirs_, version_, result.merged.state,
                            life_.guard([this, result, ours](const FileResult<void>& kept) {
                                kept ? apply(result, ours) : cannotRemember(kept.error());
                            }));
}

void StateExchange::apply(const Reconciled& result, const PersistedState& ours) {
    if (this->ours() != ours) {
        settle(); // the user went on meanwhile
        return;
    }
    if (result.merged.state != ours) {
        for (const StoredDocument& document : ours.documents) {
            if (!isIn(result.merged.state.documents, document.id)) {
                context_.keepFileOf(document);
            }
        }
        context_.store.applyRemote(result.merged.state);
    }
    added_.clear();
    context_.status.conflicts = context_.record.conflicts;
    agreed(theirs_, [this, lineage = result.lineage] { upload(lineage); });
}

void StateExchange::agreed(const SharedStatePointer& shared, std::function<void()> then) {
    const bool isKnown = std::ranges::find(context_.common->known(), shared->id,
                                           [](const auto& one) { return one->id; })
                         != context_.common->known().end();
    if (isKnown) {
        context_.common->confirm(shared->id, version_);
        then();
        return;
    }
    save([this, shared, then = std::move(then)] {
        context_.common->remember(shared, version_,
                                  life_.guard([this, shared, then](const FileResult<void>& kept) {
                                      if (!kept) {
                                          cannotRemember(kept.error());
                                          return;
                                      }
                                      context_.common->confirm(shared->id, version_);
                                      then();
                                  }));
    });
}

// What the cloud is to have.

void StateExchange::upload(std::vector<std::string> lineage) {
    if (context_.store.awaitsRecovery()
        || (theirs_ != nullptr && context_.store.snapshot() == theirs_->state)) {
        finish({});
        return;
    }
    save([this, lineage = std::move(lineage)] { seal(lineage); });
}

/// What the cloud is given must not be newer than what this machine finds when it starts again.
void StateExchange::save(std::function<void()> then) {
    if (context_.store.hasUnsavedChanges()) {
        context_.store.saveNow();
    }
    context_.writer.post([] {}, life_.guard([this, then = std::move(then)] {
        if (context_.store.saveProblem()) {
            finish(tl::unexpected(CloudTrouble::stopped(*context_.store.saveProblem())));
        } else if (context_.store.hasUnsavedChanges()) {
            save(then);
        } else {
            then();
        }
    }));
}

void StateExchange::seal(std::vector<std::string> lineage) {
    const PersistedState& ours = context_.store.snapshot();
    if (theirs_ != nullptr && asks(false, theirs_->state, ours)) {
        return;
    }
    struct Sealed {
        SharedStatePointer attempt;
        std::string content;
    };
    context_.worker.post<Sealed>(
        [ours, lineage = std::move(lineage), key = context_.dataKey] {
            Sealed sealed;
            sealed.content = sealBlock(SharedState::encode(lineage, ours), *key, stateBlock);
            sealed.attempt = std::make_shared<const SharedState>(
                SharedState{SharedState::idOf(sealed.content), lineage, ours});
            return sealed;
        },
        life_.guard([this](const Sealed& sealed) {
            // From now on it may lie there, whatever is answered.
            context_.common->remember(sealed.attempt, version_ + 1,
                                      life_.guard([this, sealed](const FileResult<void>& kept) {
                                          kept ? send(sealed.attempt, sealed.content)
                                               : cannotRemember(kept.error());
                                      }));
        }));
}

void StateExchange::send(const SharedStatePointer& attempt, const std::string& sealed) {
    context_.api.saveBlock(
        std::string(stateBlock), {.version = version_, .content = sealed}, context_.token,
        life_.guard([this, attempt](const tl::expected<std::int64_t, CloudAPI::Failure>& version) {
            sent(attempt, version);
        }));
}

void StateExchange::sent(const SharedStatePointer& attempt,
                         const tl::expected<std::int64_t, CloudAPI::Failure>& version) {
    if (version) {
        theirs_ = attempt;
        version_ = *version;
        context_.common->confirm(attempt->id, version_);
        finish({});
    } else if (version.error().code == "version" && ++attempts_ < mostAttempts) {
        fetch();
    } else if (version.error().code == "version") {
        finish(tl::unexpected(CloudTrouble{}));
    } else {
        finish(tl::unexpected(CloudTrouble::of(version.error())));
    }
}

} // namespace fiscarel
