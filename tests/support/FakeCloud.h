#pragma once

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/CloudCrypto.h"
#include "Fiscarel_SG/cloud/CloudService.h"

#include <QDateTime>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel::testing {

/// A backup that shows the status it is given and keeps what it was asked for.
class FakeCloud final : public CloudService {
  public:
    CloudStatus shown;
    std::vector<std::string> asked; ///< "verifyCode 123456"
    std::function<void()> answers;  ///< called after everything it is asked for

    void set(CloudStatus status) {
        shown = std::move(status);
        Q_EMIT changed();
    }
    void change(const std::function<void(CloudStatus&)>& change) {
        change(shown);
        Q_EMIT changed();
    }

    const CloudStatus& status() const override { return shown; }
    void useServer(const std::string& address) override { ask("useServer " + address); }
    void requestCode(const std::string& email) override { ask("requestCode " + email); }
    void verifyCode(const std::string& code) override { ask("verifyCode " + code); }
    void cancelSignIn() override { ask("cancelSignIn"); }
    void confirmRecoveryKey(const std::string& typed) override {
        ask("confirmRecoveryKey " + typed);
    }
    void joinByRecoveryKey(const std::string& typed) override { ask("joinByRecoveryKey " + typed); }
    void makeNewRecoveryKey() override { ask("makeNewRecoveryKey"); }
    void startAnew() override { ask("startAnew"); }
    void checkNow() override { ask("checkNow"); }
    void answerQuestion(bool takesLossOver) override {
        ask(takesLossOver ? "answerQuestion takes" : "answerQuestion keeps");
    }
    void settleConflict(std::size_t index, bool takesOther) override {
        ask("settleConflict " + std::to_string(index) + (takesOther ? " other" : " ours"));
    }
    void settleAllConflicts() override { ask("settleAllConflicts"); }
    void signOut() override { ask("signOut"); }

  private:
    void ask(std::string what) {
        asked.push_back(std::move(what));
        if (answers) {
            answers();
        }
    }
};

/// What the page can have to show, each under a name, with the entries of the demo household.
class CloudStates {
  public:
    using Named = std::pair<std::string, CloudStatus>;
    using Phase = CloudStatus::Phase;
    using Activity = CloudStatus::Activity;

    const std::string key = CloudCrypto::newRecoveryKey();

    explicit CloudStates(const AppStore& store) : store_(store) {}

    std::vector<Named> all() const {
        std::vector<Named> states{
            {"starting", {}},
            {"no-keyring", {.phase = Phase::noKeyring}},
            {"demo", {.phase = Phase::demo}},
            {"signed-out", {.phase = Phase::signedOut}},
            {"signed-out-again",
             {.phase = Phase::signedOut,
              .email = "nora@brennick.example",
              .problem = "Sie sind nicht mehr angemeldet. Bitte erneut anmelden."}},
            {"signed-out-server", {.phase = Phase::signedOut, .server = "cloud.brennick.example"}},
            {"code-sent", {.phase = Phase::codeSent, .email = "nora@brennick.example"}},
            {"code-wrong",
             {.phase = Phase::codeSent,
              .email = "nora@brennick.example",
              .problem = "Der Code stimmt nicht. Noch 2 Versuche."}},
            {"confirms-key",
             {.phase = Phase::confirmsKey, .email = "nora@brennick.example", .recoveryKey = key}},
            {"needs-key", {.phase = Phase::needsRecoveryKey, .email = "nora@brennick.example"}},
            {"needs-key-wrong",
             {.phase = Phase::needsRecoveryKey,
              .email = "nora@brennick.example",
              .problem = "Dieser Wiederherstellungsschlüssel passt nicht zu Ihrem Cloud-Konto."}}};
        addReady(states);
        return states;
    }

    /// Signed in, everything in order.
    CloudStatus ready() const {
        CloudStatus status{.phase = Phase::ready, .email = "nora@brennick.example"};
        status.compared = taxcore::Moment{QDateTime::currentSecsSinceEpoch() - 120};
        status.bytesUsed = 13'002'342;
        status.bytesAllowed = std::int64_t{1} << 30U;
        status.devices = {{"Werkstatt", "03.11.2026", "21.11.2026", true},
                          {"Notebook", "14.11.2026", "20.11.2026", false}};
        return status;
    }

    /// Of 140 fields and 6 documents.
    static StateLoss lossOf(std::vector<int> years, std::size_t fields, std::size_t documents) {
        StateLoss loss;
        loss.years = std::move(years);
        loss.fields = fields;
        loss.fieldsBefore = 140;
        loss.documents = documents;
        loss.documentsBefore = 6;
        return loss;
    }

    /// Of an amount, a choice, a day, a text, an item that is gone here and a document.
    std::vector<MergeConflict> conflicts() const {
        const taxcore::TaxCase& taxCase = store_.current();
        std::vector<MergeConflict> conflicts;
        const auto add = [&](const std::string& counted, const std::string& theirs) {
            if (const auto path = taxcore::lastingPath(taxCase, counted)) {
                conflicts.push_back(
                    {store_.year(), *path, taxcore::valueAt(taxCase, *path), theirs});
            }
        };
        add("income1.salaries[0].grossSalary", "128450.75");
        add("civilStatus", "\"getrennt\"");
        add("children[0].birthDate", "\"2015-07-09\"");
        add("securities[0].institution",
            "\"Gemeinnützige Genossenschaftsbank Oberwerdenberg-Sargans und Umgebung, "
            "Niederlassung Rapperswil-Jona\"");
        if (!taxCase.debts.empty()) {
            const std::string path = "debts[" + taxCase.debts.front().id.toString() + "]";
            conflicts.push_back(
                {store_.year(), path, std::nullopt, taxcore::valueAt(taxCase, path)});
        }
        conflicts.push_back({0, "documents[6F9619FF-8B86-D011-B42D-00C04FC964FF].kind",
                             "\"spende\"", "\"lohnausweis\""});
        return conflicts;
    }

  private:
    void addReady(std::vector<Named>& states) const {
        const auto add = [&](const char* name, const std::function<void(CloudStatus&)>& change) {
            states.emplace_back(name, ready());
            change(states.back().second);
        };
        add("ready", [](CloudStatus&) {});
        add("ready-new", [](CloudStatus& status) {
            status.compared.reset();
            status.bytesAllowed = 0;
            status.devices.clear();
        });
        add("comparing", [](CloudStatus& status) { status.activity = Activity::comparing; });
        add("sending", [](CloudStatus& status) {
            status.activity = Activity::sending;
            status.documentsToSend = 12;
            status.documentsToFetch = 1;
        });
        add("offline", [](CloudStatus& status) {
            status.activity = Activity::offline;
            status.compared->seconds -= 3 * 86'400;
            status.problem = "Keine Verbindung zum Server. Bitte Internetverbindung prüfen.";
        });
        add("full", [](CloudStatus& status) {
            status.bytesUsed = status.bytesAllowed - 400'000;
            status.problem = "Der Cloud-Speicher (1 GB) ist voll.";
            status.deletionPlanned = "01.03.2027";
            status.documentsToSend = 1;
            status.leftOut = {{"Film der Renovation", "Diese Datei ist zu gross für die Cloud "
                                                      "(max. 25 MB)."},
                              {"Steuerbescheinigung der Gemeinnützigen Genossenschaft "
                               "Oberwerdenberg-Sargans und Umgebung",
                               "Die Datei fehlt auf diesem Computer und in der Cloud."}};
            status.devices.push_back(
                {"Donaudampfschifffahrtsgesellschaftskapitänswitwenrentenkassencomputer im "
                 "Gemeindehaus",
                 "01.01.2026", "02.01.2026", false});
        });
        add("question-incoming", [](CloudStatus& status) {
            status.question = {true, lossOf({2024, 2025}, 132, 5)};
        });
        add("question-outgoing", [](CloudStatus& status) {
            status.question = {false, lossOf({2024}, 40, 0)};
        });
        add("conflicts", [&](CloudStatus& status) { status.conflicts = conflicts(); });
        add("conflict", [&](CloudStatus& status) {
            status.conflicts = conflicts();
            status.conflicts.resize(1);
        });
    }

    const AppStore& store_;
};

} // namespace fiscarel::testing
