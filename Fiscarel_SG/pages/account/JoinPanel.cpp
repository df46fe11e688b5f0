#include "Fiscarel_SG/pages/account/JoinPanel.h"

#include "Fiscarel_SG/CloudCrypto.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/account/AskedField.h"
#include "Fiscarel_SG/pages/account/RecoveryKeyEdit.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

RecoveryKeyEdit* keyLine(QWidget* parent) {
    auto* const line = new RecoveryKeyEdit(parent);
    line->setObjectName(u"cloudRecoveryKey"_s);
    return line;
}

} // namespace

JoinPanel::JoinPanel(CloudService& service, QWidget* parent)
    : CloudPanel(service, parent),
      key_(new AskedField(u"Wiederherstellungsschlüssel"_s, keyLine(this), u"Öffnen"_s, "cloudJoin",
                          this)),
      wayOut_(new QWidget(this)) {
    addLabel(column(),
             u"Für %1 liegt eine verschlüsselte Kopie in der Cloud. Dieser Computer kann sie noch "
             "nicht öffnen: Dazu braucht es den Wiederherstellungsschlüssel, der beim Einrichten "
             "gedruckt oder abgeschrieben wurde."_s.arg(qs(status().email)),
             "faint");
    column().addWidget(key_);
    addLabel(column(),
             u"Gross und klein, Leerzeichen und Striche spielen keine Rolle. Danach wird "
             "zusammengeführt, was hier und was in der Cloud liegt."_s,
             "small");
    QHBoxLayout& links = addButtons();
    lost_ = addButton(links, u"Schlüssel verloren?"_s, "cloudKeyLost", "link");
    leave_ = addButton(links, u"Abmelden"_s, "cloudLeave", "link");
    lost_->setCheckable(true);
    addWayOut();
    connect(key_, &AskedField::handedIn, this, &JoinPanel::join);
    connect(lost_, &QPushButton::toggled, wayOut_, &QWidget::setVisible);
    connect(leave_, &QPushButton::clicked, this, [this] { this->service().signOut(); });
    follow();
}

void JoinPanel::addWayOut() {
    auto* const part = new QVBoxLayout(wayOut_);
    part->setContentsMargins(0, 0, 0, 0);
    part->setSpacing(8);
    addLine(*part);
    addLabel(*part, u"Ohne den Schlüssel"_s, "figure");
    addLabel(*part,
             u"Auf einem Computer, der noch angemeldet ist, lässt sich unter «Konto» ein neuer "
             "Wiederherstellungsschlüssel erstellen. Dieser gilt dann auch hier."_s,
             "");
    addLabel(*part,
             u"Gibt es keinen solchen Computer mehr, kann niemand die Kopie in der Cloud öffnen. "
             "Sie können neu anfangen: Die Kopie wird verworfen, auch die Belege darin. Was auf "
             "diesem Computer liegt, bleibt und kommt unter einem neuen Schlüssel in die Cloud."_s,
             "");
    auto* const line = new QHBoxLayout;
    anew_ = new QPushButton(u"Kopie verwerfen und neu anfangen …"_s, wayOut_);
    anew_->setObjectName(u"cloudStartAnew"_s);
    look::setRole(anew_, "danger");
    line->addWidget(anew_);
    line->addStretch(1);
    part->addLayout(line);
    column().addWidget(wayOut_);
    wayOut_->hide();
    connect(anew_, &QPushButton::clicked, this, &JoinPanel::beginAnew);
}

void JoinPanel::follow() {
    key_->setWaiting(isWorking());
    key_->setProblem(isWorking() || !status().problem ? QString() : qs(*status().problem));
    leave_->setEnabled(!isWorking());
    anew_->setEnabled(!isWorking());
}

void JoinPanel::takeKeyboard() { key_->takeKeyboard(); }

void JoinPanel::join() {
    const std::string typed = utf8(key_->text());
    if (const auto read = CloudCrypto::parseRecoveryKey(typed); !read) {
        key_->setProblem(qs(CloudCrypto::message(read.error())));
        return;
    }
    key_->setProblem({});
    service().joinByRecoveryKey(typed);
}

void JoinPanel::beginAnew() {
    QMessageBox box(QMessageBox::Warning, u"Neu anfangen"_s, u"Die Kopie in der Cloud verwerfen?"_s,
                    QMessageBox::NoButton, this);
    box.setObjectName(u"cloudStartAnewAsk"_s);
    box.setInformativeText(
        u"Alle Angaben und Belege, die nur in der Cloud liegen, sind danach verloren. Andere "
        "Computer dieses Kontos brauchen den neuen Wiederherstellungsschlüssel. Das lässt sich "
        "nicht rückgängig machen."_s);
    QPushButton* const discard = box.addButton(u"Kopie verwerfen"_s, QMessageBox::DestructiveRole);
    box.setDefaultButton(box.addButton(u"Abbrechen"_s, QMessageBox::RejectRole));
    box.exec();
    if (box.clickedButton() == discard) {
        key_->takeKeyboard();
        service().startAnew();
    }
}

} // namespace fiscarel::pages
