#include "Fiscarel_SG/pages/account/ServerChoice.h"

#include "Fiscarel_SG/CloudAPI.h"
#include "Fiscarel_SG/cloud/CloudService.h"
#include "Fiscarel_SG/forms/editors/InputLine.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/account/AskedField.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int serverWidth = 320;

forms::InputLine* serverLine(const std::string& known, QWidget* parent) {
    auto* const line = new forms::InputLine(parent);
    line->setObjectName(u"cloudServer"_s);
    line->setFixedWidth(serverWidth);
    line->setInputMethodHints(Qt::ImhUrlCharactersOnly);
    line->setPlaceholderText(u"cloud.muster.ch"_s);
    line->setText(qs(known));
    return line;
}

} // namespace

ServerChoice::ServerChoice(CloudService& service, QWidget* parent)
    : QWidget(parent), service_(service), open_(new QPushButton(this)), part_(new QWidget(this)),
      field_(new AskedField(u"Adresse des eigenen Servers"_s,
                            serverLine(service.status().server, part_), u"Verwenden"_s,
                            "cloudServerTake", part_)) {
    look::setRole(part_->findChild<QPushButton*>(u"cloudServerTake"_s),
                  ""); // not what most are for
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    open_->setObjectName(u"cloudServerOpen"_s);
    open_->setCheckable(true);
    look::setRole(open_, "link");
    column->addWidget(open_, 0, Qt::AlignLeft);
    auto* const part = new QVBoxLayout(part_);
    part->setContentsMargins(0, 0, 0, 0);
    part->setSpacing(8);
    part->addWidget(field_);
    addLabel(*part,
             u"Für alle, die selbst einen Server betreiben. Bleibt das Feld leer, gilt der übliche "
             "Server. Verbunden wird nur verschlüsselt (https)."_s,
             "small");
    column->addWidget(part_);
    part_->hide();
    connect(open_, &QPushButton::toggled, this, [this](bool isOpen) {
        part_->setVisible(isOpen);
        if (isOpen) {
            field_->takeKeyboard();
        }
    });
    connect(field_, &AskedField::handedIn, this, &ServerChoice::take);
    follow();
}

void ServerChoice::follow() {
    const CloudStatus& status = service_.status();
    const bool isWorking = status.activity == CloudStatus::Activity::working;
    open_->setText(status.server.empty() ? u"Eigener Server …"_s
                                         : u"Eigener Server: %1 …"_s.arg(qs(status.server)));
    open_->setEnabled(!isWorking);
    field_->setWaiting(isWorking);
}

void ServerChoice::take() {
    const QString typed = field_->text().trimmed();
    if (!typed.isEmpty() && !CloudAPI::speaksTo(CloudAPI::baseOf(typed))) {
        field_->setProblem(
            u"Mit dieser Adresse geht es nicht. Bitte den Namen des Servers eingeben, "
            "zum Beispiel «cloud.muster.ch»."_s);
        return;
    }
    field_->setProblem({});
    service_.useServer(utf8(typed));
    open_->setFocus(Qt::OtherFocusReason);
    open_->setChecked(false);
}

} // namespace fiscarel::pages
