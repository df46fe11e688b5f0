#include "Fiscarel_SG/pages/account/ReadyPanel.h"

#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/account/CloudText.h"
#include "Fiscarel_SG/pages/account/TextRows.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using Activity = CloudStatus::Activity;

namespace {

/// "Noch 3 Belege hochzuladen und 1 Beleg zu holen."; empty for none.
QString pendingText(const CloudStatus& status) {
    QStringList parts;
    const auto add = [&](std::size_t count, const QString& what) {
        if (count > 0) {
            parts << u"%1 %2 %3"_s.arg(count).arg(count == 1 ? u"Beleg"_s : u"Belege"_s, what);
        }
    };
    add(status.documentsToSend, u"hochzuladen"_s);
    add(status.documentsToFetch, u"zu holen"_s);
    return parts.isEmpty() ? QString() : u"Noch %1."_s.arg(parts.join(u" und "_s));
}

/// Asks with the user's way out as what the Enter key does; whether the step was chosen.
bool asks(QWidget* parent, const QString& name, const QString& question, const QString& told,
          const QString& answer) {
    QMessageBox box(QMessageBox::Question, u"Cloud"_s, question, QMessageBox::NoButton, parent);
    box.setObjectName(name);
    box.setInformativeText(told);
    QPushButton* const yes = box.addButton(answer, QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(u"Abbrechen"_s, QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == yes;
}

} // namespace

ReadyPanel::ReadyPanel(CloudService& service, QWidget* parent)
    : CloudPanel(service, parent), devices_(new TextRows(u"Geräte"_s, this)),
      leftOut_(new TextRows(u"Nur auf diesem Computer"_s, this)) {
    addState();
    addSpace();
    column().addWidget(devices_);
    column().addWidget(leftOut_);
    addAccount();
    devices_->setObjectName(u"cloudDevices"_s);
    leftOut_->setObjectName(u"cloudLeftOut"_s);
    follow();
}

void ReadyPanel::addState() {
    deletion_ = &addLabel(column(), {}, "banner");
    deletion_->setObjectName(u"cloudDeletion"_s);
    auto* const line = new QHBoxLayout;
    line->setSpacing(16);
    state_ = makeLabel({}, "", this);
    state_->setObjectName(u"cloudState"_s);
    line->addWidget(state_, 1);
    check_ = new QPushButton(u"Jetzt abgleichen"_s, this);
    check_->setObjectName(u"cloudCheckNow"_s);
    line->addWidget(check_, 0, Qt::AlignTop);
    column().addLayout(line);
    problem_ = &addLabel(column(), {}, "warning");
    problem_->setObjectName(u"cloudProblem"_s);
    documents_ = &addLabel(column(), {}, "faint");
    documents_->setObjectName(u"cloudDocuments"_s);
    connect(check_, &QPushButton::clicked, this, [this] { this->service().checkNow(); });
}

void ReadyPanel::addSpace() {
    spacePart_ = new QWidget(this);
    auto* const part = new QVBoxLayout(spacePart_);
    part->setContentsMargins(0, 0, 0, 0);
    part->setSpacing(8);
    addLine(*part);
    auto* const line = new QHBoxLayout;
    line->addWidget(makeLabel(u"Speicherplatz"_s, "figure", spacePart_));
    space_ = new QLabel(spacePart_);
    space_->setObjectName(u"cloudSpace"_s);
    look::setRole(space_, "faint");
    line->addWidget(space_, 0, Qt::AlignRight);
    part->addLayout(line);
    bar_ = new QProgressBar(spacePart_);
    bar_->setObjectName(u"cloudSpaceBar"_s);
    bar_->setAccessibleName(u"Speicherplatz"_s);
    bar_->setTextVisible(false);
    bar_->setRange(0, 1'000);
    part->addWidget(bar_);
    column().addWidget(spacePart_);
}

void ReadyPanel::addAccount() {
    addLine(column());
    addLabel(column(), u"Angemeldet als %1"_s.arg(qs(status().email)), "faint")
        .setObjectName(u"cloudAccount"_s);
    QHBoxLayout& line = addButtons();
    newKey_ = addButton(line, u"Neuer Wiederherstellungsschlüssel …"_s, "cloudNewKey");
    signOut_ = addButton(line, u"Abmelden …"_s, "cloudSignOut");
    connect(newKey_, &QPushButton::clicked, this, &ReadyPanel::askForNewKey);
    connect(signOut_, &QPushButton::clicked, this, &ReadyPanel::askToSignOut);
}

void ReadyPanel::follow() {
    showState();
    showSpace();
    showLists();
}

void ReadyPanel::takeKeyboard() { check_->setFocus(Qt::OtherFocusReason); }

void ReadyPanel::showState() {
    const CloudStatus& now = status();
    deletion_->setVisible(now.deletionPlanned.has_value());
    if (now.deletionPlanned) {
        deletion_->setText(
            u"Ihr Cloud-Konto wird am %1 gelöscht, mit der Kopie aller Angaben und "
            "Belege. Was auf Ihren Computern liegt, bleibt."_s.arg(qs(*now.deletionPlanned)));
    }
    state_->setText(cloudState(now, QDateTime::currentDateTime()));
    const bool isOffline = now.activity == Activity::offline;
    problem_->setVisible(now.problem.has_value() && !isOffline);
    problem_->setText(now.problem ? qs(*now.problem) : QString());
    const QString pending = pendingText(now);
    documents_->setVisible(!pending.isEmpty());
    documents_->setText(pending);
    for (QPushButton* const button : {newKey_, signOut_}) {
        button->setEnabled(!isWorking());
    }
}

void ReadyPanel::showSpace() {
    const std::int64_t allowed = status().bytesAllowed;
    spacePart_->setVisible(allowed > 0);
    if (allowed > 0) {
        space_->setText(spaceText(status().bytesUsed, allowed));
        bar_->setValue(static_cast<int>(
            std::clamp<std::int64_t>(status().bytesUsed * 1'000 / allowed, 0, 1'000)));
        bar_->setAccessibleDescription(space_->text());
    }
}

void ReadyPanel::showLists() {
    std::vector<TextRows::Row> devices;
    for (const CloudStatus::Device& device : status().devices) {
        devices.push_back(
            {device.isThis ? u"%1 (dieser Computer)"_s.arg(qs(device.name)) : qs(device.name),
             u"seit %1, zuletzt %2"_s.arg(qs(device.since), qs(device.lastSeen))});
    }
    devices_->setRows(std::move(devices));
    std::vector<TextRows::Row> leftOut;
    for (const CloudStatus::LeftOut& document : status().leftOut) {
        leftOut.push_back({qs(document.title), qs(document.reason)});
    }
    leftOut_->setRows(std::move(leftOut));
}

void ReadyPanel::askForNewKey() {
    if (asks(this, u"cloudNewKeyAsk"_s, u"Einen neuen Wiederherstellungsschlüssel erstellen?"_s,
             u"Der bisherige öffnet die Kopie in der Cloud danach nicht mehr; auf Papier ist er "
             "dann zu ersetzen. Angemeldete Computer bleiben angemeldet."_s,
             u"Neuen Schlüssel erstellen"_s)) {
        check_->setFocus(Qt::OtherFocusReason);
        service().makeNewRecoveryKey();
    }
}

void ReadyPanel::askToSignOut() {
    if (asks(this, u"cloudSignOutAsk"_s, u"Auf diesem Computer abmelden?"_s,
             u"Ihre Angaben und Belege bleiben auf diesem Computer und in der Cloud. Sie werden "
             "nicht mehr abgeglichen, bis Sie sich wieder anmelden."_s,
             u"Abmelden"_s)) {
        check_->setFocus(Qt::OtherFocusReason);
        service().signOut();
    }
}

} // namespace fiscarel::pages
