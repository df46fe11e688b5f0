#include "Fiscarel_SG/pages/account/CloudCard.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/account/ConflictsCard.h"
#include "Fiscarel_SG/pages/account/JoinPanel.h"
#include "Fiscarel_SG/pages/account/NewKeyPanel.h"
#include "Fiscarel_SG/pages/account/QuestionCard.h"
#include "Fiscarel_SG/pages/account/ReadyPanel.h"
#include "Fiscarel_SG/pages/account/SignInPanels.h"

#include <QLabel>
#include <QVBoxLayout>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using Phase = CloudStatus::Phase;

CloudCard::CloudCard(AppStore& store, CloudService* service, QWidget* parent)
    : QWidget(parent), service_(service) {
    setObjectName(u"cloud"_s);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(look::PageFrame::cardSpacing);
    if (service_ != nullptr) {
        question_ = new QuestionCard(*service_, this);
        conflicts_ = new ConflictsCard(store, *service_, this);
        column->addWidget(question_);
        column->addWidget(conflicts_);
        connect(conflicts_, &ConflictsCard::fieldWanted, this, &CloudCard::fieldWanted);
        connect(conflicts_, &ConflictsCard::documentWanted, this, &CloudCard::documentWanted);
        connect(conflicts_, &ConflictsCard::undoOffered, this, &CloudCard::undoOffered);
        connect(conflicts_, &ConflictsCard::keyboardLeft, this, [this] {
            if (panel_ != nullptr) {
                panel_->takeKeyboard();
            }
        });
        connect(service_, &CloudService::changed, this, &CloudCard::follow);
    }
    card_ = &addCard(*column, u"Cloud"_s);
    if (service_ != nullptr) {
        follow();
    } else {
        addLabel(*card_,
                 store.isDemo() ? noteOf(Phase::demo)
                                : u"Die Cloud steht in diesem Start nicht zur Verfügung. Ihre "
                                  "Angaben und Belege liegen wie immer auf diesem Computer."_s,
                 "faint")
            .setObjectName(u"cloudNote"_s);
    }
}

void CloudCard::refresh() {
    if (conflicts_ != nullptr) {
        conflicts_->follow();
    }
}

void CloudCard::follow() {
    const Phase phase = service_->status().phase;
    question_->follow();
    conflicts_->follow();
    if (phase == phase_) {
        if (panel_ != nullptr) {
            panel_->follow();
        }
        return;
    }
    const bool isFirst = !phase_;
    phase_ = phase;
    QWidget* const old = std::exchange(shown_, nullptr);
    const bool hasKeyboard = old != nullptr && old->isAncestorOf(window()->focusWidget());
    panel_ = makePanel(phase);
    shown_ = panel_;
    if (panel_ == nullptr) {
        shown_ = makeLabel(noteOf(phase), "faint", card_->parentWidget());
        shown_->setObjectName(u"cloudNote"_s);
    }
    card_->addWidget(shown_);
    if (!isFirst) {
        shown_->show();
    }
    if (hasKeyboard && panel_ != nullptr) {
        panel_->takeKeyboard();
    }
    if (old != nullptr) {
        old->hide();
        old->deleteLater(); // a click within it may have led here
    }
}

CloudPanel* CloudCard::makePanel(Phase phase) {
    QWidget* const parent = card_->parentWidget();
    switch (phase) {
    case Phase::signedOut:
        return new AddressPanel(*service_, parent);
    case Phase::codeSent:
        return new CodePanel(*service_, parent);
    case Phase::confirmsKey:
        return new NewKeyPanel(*service_, parent);
    case Phase::needsRecoveryKey:
        return new JoinPanel(*service_, parent);
    case Phase::ready:
        return new ReadyPanel(*service_, parent);
    case Phase::starting:
    case Phase::noKeyring:
    case Phase::demo:
        break;
    }
    return nullptr;
}

QString CloudCard::noteOf(Phase phase) {
    if (phase == Phase::noKeyring) {
        return u"Dieser Computer hat keinen Schlüsselbund, in dem Schlüssel sicher aufbewahrt "
               "werden; darum bleibt die Cloud hier aus. Das Programm arbeitet ganz auf diesem "
               "Computer weiter, und Ihre Daten lassen sich unten sichern. Einen Schlüsselbund "
               "bringen die üblichen Arbeitsumgebungen mit; nach dem Einrichten genügt ein "
               "Neustart des Programms."_s;
    }
    return phase == Phase::demo
               ? u"Der Demohaushalt bleibt auf diesem Computer und kommt nie in die Cloud. Mit "
                 "Ihren eigenen Angaben können Sie hier eine verschlüsselte Kopie einrichten."_s
               : u"Der Schlüsselbund dieses Computers wird gefragt. Vielleicht ist er gesperrt und "
                 "verlangt Ihr Passwort …"_s;
}

} // namespace fiscarel::pages
