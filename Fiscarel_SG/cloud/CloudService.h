#pragma once

#ifndef Q_MOC_RUN // its parser stumbles over the headers of C++20
#include "Fiscarel_SG/cloud/CloudStatus.h"
#endif

#include <QObject>
#include <cstddef>
#include <string>

namespace fiscarel {

/// The encrypted backup as the window works with it, on the main thread. Every call returns at
/// once; what came of it stands in `status`.
class CloudService : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    virtual const CloudStatus& status() const = 0;

    /// Speaks to another server from now on, in later runs too; empty: the usual one. Without
    /// effect for an address that is not spoken to, and while somebody is signed in or about to be.
    virtual void useServer(const std::string& address) = 0;
    /// Asks for a code to be sent to an address.
    virtual void requestCode(const std::string& email) = 0;
    virtual void verifyCode(const std::string& code) = 0;
    /// Back to the address.
    virtual void cancelSignIn() = 0;
    /// The recovery key typed back by the user; the first exchange begins when it is right.
    virtual void confirmRecoveryKey(const std::string& typed) = 0;
    /// The recovery key of the account, on a further machine.
    virtual void joinByRecoveryKey(const std::string& typed) = 0;
    /// A new recovery key for the same data; the old one no longer opens.
    virtual void makeNewRecoveryKey() = 0;
    /// Gives up what lies in the cloud and begins with what is here, under a new key: for who has
    /// lost the recovery key.
    virtual void startAnew() = 0;
    /// Compares now; also when the window becomes active.
    virtual void checkNow() = 0;
    /// Takes the loss over, or keeps everything of both sides.
    virtual void answerQuestion(bool takesLossOver) = 0;
    /// Settles the conflict at a position of the list: this machine's side holds, or the other's
    /// takes its place. Whatever that changes can be undone: a record that this machine had removed
    /// and that waited for the answer goes when its side holds.
    virtual void settleConflict(std::size_t index, bool takesOther) = 0;
    virtual void settleAllConflicts() = 0;
    /// Ends the session of this machine. Data and documents stay here.
    virtual void signOut() = 0;

  Q_SIGNALS:
    void changed();
};

} // namespace fiscarel
