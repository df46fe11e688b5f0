#pragma once

#include "Fiscarel_SG/cloud/CloudContext.h"
#include "Fiscarel_SG/cloud/SharedState.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// One comparison of our state with the cloud's. What it changes here is on the disk before the
/// cloud learns of it, and in an order in which the program may end anywhere: open conflicts, our
/// state, the common state, then the upload.
class StateExchange {
  public:
    using Done = std::function<void(tl::expected<void, CloudTrouble>)>;

    /// The context must outlive it.
    explicit StateExchange(CloudContext& context) : context_(context) {}

    /// Afterwards the cloud has the state we had on the way. One at a time.
    void run(Done done);
    /// The user's answer to the question of the status, for the next run.
    void answer(bool takesLossOver);
    /// The cloud's state as of the last run; null: not known.
    const SharedStatePointer& theirs() const noexcept { return theirs_; }
    /// Ends a run in its midst, without calling `done`; nothing is known any more.
    void abandon();

  private:
    void finish(tl::expected<void, CloudTrouble> outcome);
    void fetch();
    void fetched(const std::optional<CloudAPI::Block>& block);
    void opened(const CloudAPI::Block& block, tl::expected<SharedStatePointer, std::string> shared);
    void compareKey(std::function<void()> same);
    void settle();
    void withdrawConflicts();
    bool asks(bool isIncoming, const PersistedState& before, const PersistedState& after);
    void takeIn(const Reconciled& result, const PersistedState& ours);
    void keepConflicts(const Reconciled& result, const PersistedState& ours);
    void cannotRemember(const FileError& error);
    void expect(const Reconciled& result, const PersistedState& ours);
    void apply(const Reconciled& result, const PersistedState& ours);
    /// The cloud's state is the common one from now on.
    void agreed(const SharedStatePointer& shared, std::function<void()> then);
    void upload(std::vector<std::string> lineage);
    void save(std::function<void()> then);
    void seal(std::vector<std::string> lineage);
    void send(const SharedStatePointer& attempt, const std::string& sealed);
    void sent(const SharedStatePointer& attempt,
              const tl::expected<std::int64_t, CloudAPI::Failure>& version);
    PersistedState ours() const;

    CloudContext& context_;
    Done done_;
    SharedStatePointer theirs_;
    std::int64_t version_ = 0;                       ///< of the block on the server, 0: none
    int attempts_ = 0;                               ///< of this run
    bool isBackedUp_ = false;                        ///< in this run
    std::vector<MergeConflict> added_;               ///< by this run, for a state not taken in yet
    std::optional<CloudStatus::Question> takesOver_; ///< the loss the user agreed to
    bool keepsEverything_ = false;
    Lifeline life_; ///< of the run
};

} // namespace fiscarel
