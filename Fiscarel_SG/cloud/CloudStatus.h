#pragma once

#include "Fiscarel_SG/cloud/StateMerge.h"
#include "TaxCore/base/Moment.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// How this machine stands to the encrypted backup, as the window shows it.
struct CloudStatus {
    enum class Phase {
        starting,         ///< the keyring is being asked
        noKeyring,        ///< no keyring here: the program works on this machine alone
        demo,             ///< the demo household never leaves the machine
        signedOut,        ///< an address may be known from before
        codeSent,         ///< a code was sent to the address and is waited for
        confirmsKey,      ///< signed in; the new recovery key is shown and is to be typed back
        needsRecoveryKey, ///< signed in; the account's recovery key is asked for
        ready,            ///< signed in, with the key
    };
    enum class Activity {
        resting,
        working,   ///< a request of the user, such as a code, is under way
        comparing, ///< the state is being exchanged
        sending,   ///< documents go up
        fetching,  ///< documents come down
        offline,   ///< the server cannot be reached; tried again by itself
    };
    struct Device {
        std::string name;
        std::string since; ///< days as the user reads them
        std::string lastSeen;
        bool isThis = false;
    };
    /// What the other side would take away, or this one: asked before it happens.
    struct Question {
        bool isIncoming = false; ///< the cloud's state is much smaller; else ours
        StateLoss loss;
    };
    /// A document that stays on this machine alone.
    struct LeftOut {
        std::string title;
        std::string reason; ///< one German sentence
    };

    Phase phase = Phase::starting;
    Activity activity = Activity::resting;
    std::string email;                       ///< empty: never signed in here
    std::string server;                      ///< the user's own, as it was typed; empty: the usual
    std::optional<std::string> problem;      ///< the last thing that did not work, German
    std::string recoveryKey;                 ///< grouped for reading; while `confirmsKey` only
    std::optional<taxcore::Moment> compared; ///< when both sides were last equal
    std::size_t documentsToSend = 0;
    std::size_t documentsToFetch = 0;
    std::int64_t bytesUsed = 0;
    std::int64_t bytesAllowed = 0; ///< 0: not known yet
    std::vector<Device> devices;
    std::optional<std::string>
        deletionPlanned; ///< day on which the account goes, as the user reads it
    std::optional<Question> question;
    std::vector<MergeConflict> conflicts; ///< kept until the user has seen to them
    std::vector<LeftOut> leftOut;
};

} // namespace fiscarel
