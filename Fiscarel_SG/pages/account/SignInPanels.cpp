#include "Fiscarel_SG/pages/account/SignInPanels.h"

#include "Fiscarel_SG/CloudAPI.h"
#include "Fiscarel_SG/forms/editors/InputLine.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/account/AskedField.h"
#include "Fiscarel_SG/pages/account/RecoveryKeyEdit.h"
#include "Fiscarel_SG/pages/account/ServerChoice.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int addressWidth = 320;
constexpr int codeLength = 6;
constexpr int pauseBeforeAgain = 30'000; ///< milliseconds

forms::InputLine* addressLine(const std::string& known, QWidget* parent) {
    auto* const line = new forms::InputLine(parent);
    line->setObjectName(u"cloudAddress"_s);
    line->setFixedWidth(addressWidth);
    line->setInputMethodHints(Qt::ImhEmailCharactersOnly);
    line->setText(qs(known));
    return line;
}

/// Six digits; blanks and whatever else was pasted with them go.
forms::InputLine* codeLine(QWidget* parent) {
    auto* const line = new forms::InputLine(parent);
    line->setObjectName(u"cloudCode"_s);
    line->setInputMethodHints(Qt::ImhDigitsOnly);
    line->setFont(codeFont(14));
    line->setFixedWidth(line->fontMetrics().horizontalAdvance(u"000000"_s) + 48);
    QObject::connect(line, &QLineEdit::textEdited, line, [line](const QString& text) {
        QString digits;
        for (const QChar letter : text) {
            if (letter.isDigit() && digits.size() < codeLength) {
                digits += letter;
            }
        }
        if (digits != text) {
            line->setText(digits);
        }
    });
    return line;
}

} // namespace

AddressPanel::AddressPanel(CloudService& service, QWidget* parent)
    : CloudPanel(service, parent),
      address_(new AskedField(u"E-Mail-Adresse"_s, addressLine(status().email, this),
                              u"Code anfordern"_s, "cloudRequestCode", this)),
      server_(new ServerChoice(service, this)) {
    explain();
    column().addWidget(address_);
    addLabel(column(),
             u"Sie erhalten per E-Mail einen Code mit sechs Ziffern. Ein Passwort gibt es nicht."_s,
             "small");
    column().addWidget(server_);
    connect(address_, &AskedField::handedIn, this, &AddressPanel::request);
    follow();
}

void AddressPanel::explain() {
    if (!status().email.empty()) {
        addLabel(column(),
                 u"Dieser Computer ist abgemeldet. Ihre Angaben und Belege liegen wie immer hier; "
                 "nach dem Anmelden werden sie wieder abgeglichen."_s,
                 "faint");
        return;
    }
    addLabel(column(),
             u"Eine Kopie Ihrer Angaben und Belege, und mehrere Computer auf dem gleichen Stand. "
             "Freiwillig: Das Programm braucht sie nicht."_s,
             "faint");
    auto* const points = new QGridLayout;
    points->setHorizontalSpacing(8);
    points->setVerticalSpacing(4);
    points->setColumnStretch(1, 1);
    for (const QString& text :
         {u"Diesen Computer verlässt nur Verschlüsseltes. Der Server sieht weder Angaben noch "
          "Belege noch deren Namen."_s,
          u"Der Schlüssel bleibt auf Ihren Computern. Für einen weiteren erhalten Sie einen "
          "Wiederherstellungsschlüssel zum Ausdrucken."_s,
          u"Wer alle Computer und den Wiederherstellungsschlüssel verliert, verliert auch die "
          "Kopie: Niemand sonst kann sie öffnen, auch der Betreiber des Servers nicht."_s}) {
        const int row = points->rowCount();
        points->addWidget(makeLabel(u"•"_s, "faint", this), row, 0, Qt::AlignTop);
        points->addWidget(makeLabel(text, "", this), row, 1);
    }
    column().addLayout(points);
}

void AddressPanel::follow() {
    address_->setWaiting(isWorking());
    address_->setProblem(isWorking() || !status().problem ? QString() : qs(*status().problem));
    server_->follow();
}

void AddressPanel::takeKeyboard() { address_->takeKeyboard(); }

void AddressPanel::request() {
    const QString address = address_->text().trimmed();
    const qsizetype at = address.indexOf(u'@');
    if (at < 1 || at == address.size() - 1 || address.contains(u' ')) {
        address_->setProblem(qs(CloudAPI::Failure{.code = "email"}.errorDescription()));
        return;
    }
    address_->setProblem({});
    service().requestCode(utf8(address));
}

CodePanel::CodePanel(CloudService& service, QWidget* parent)
    : CloudPanel(service, parent), code_(new AskedField(u"Code aus der E-Mail"_s, codeLine(this),
                                                        u"Anmelden"_s, "cloudVerifyCode", this)),
      pause_(new QTimer(this)) {
    addLabel(column(),
             u"Ein Code mit sechs Ziffern ist unterwegs an %1. Er gilt zehn Minuten."_s.arg(
                 qs(status().email)),
             "faint");
    column().addWidget(code_);
    addLabel(column(),
             u"Nichts angekommen? Bitte auch bei den unerwünschten E-Mails nachsehen. Nach einer "
             "halben Minute lässt sich der Code erneut senden."_s,
             "small");
    QHBoxLayout& links = addButtons();
    again_ = addButton(links, u"Code erneut senden"_s, "cloudSendAgain", "link");
    back_ = addButton(links, u"Andere Adresse"_s, "cloudBack", "link");
    pause_->setObjectName(u"cloudPause"_s);
    pause_->setSingleShot(true);
    pause_->start(pauseBeforeAgain);
    connect(pause_, &QTimer::timeout, this, &CodePanel::follow);
    connect(code_, &AskedField::handedIn, this, &CodePanel::verify);
    connect(again_, &QPushButton::clicked, this, &CodePanel::sendAgain);
    connect(back_, &QPushButton::clicked, this, [this] { this->service().cancelSignIn(); });
    follow();
}

void CodePanel::follow() {
    code_->setWaiting(isWorking());
    code_->setProblem(isWorking() || !status().problem ? QString() : qs(*status().problem));
    again_->setEnabled(!isWorking() && !pause_->isActive());
    back_->setEnabled(!isWorking());
}

void CodePanel::takeKeyboard() { code_->takeKeyboard(); }

void CodePanel::verify() {
    if (code_->text().size() != codeLength) {
        code_->setProblem(u"Der Code hat sechs Ziffern."_s);
        return;
    }
    code_->setProblem({});
    service().verifyCode(utf8(code_->text()));
}

void CodePanel::sendAgain() {
    code_->takeKeyboard();
    pause_->start(pauseBeforeAgain);
    service().requestCode(status().email);
    follow();
}

} // namespace fiscarel::pages
