#include "Fiscarel_SG/pages/account/NewKeyPanel.h"

#include "Fiscarel_SG/CloudCrypto.h"
#include "Fiscarel_SG/look/FileDialogs.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/PaperPrinting.h"
#include "Fiscarel_SG/pages/account/AskedField.h"
#include "Fiscarel_SG/pages/account/RecoveryKeyEdit.h"
#include "Fiscarel_SG/pages/account/RecoverySheet.h"
#include "Fiscarel_SG/paper/ReportPdf.h"
#include "Fiscarel_SG/store/Clock.h"
#include "Fiscarel_SG/store/PosixFiles.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

QVBoxLayout& columnIn(QWidget& part) {
    auto* const column = new QVBoxLayout(&part);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    return *column;
}

QPushButton* buttonIn(QHBoxLayout& line, const QString& text, const char* name) {
    auto* const button = new QPushButton(text);
    button->setObjectName(QString::fromLatin1(name));
    line.addWidget(button);
    return button;
}

/// The key as it is to be read and written down.
QWidget* keyBox(const QString& key, QWidget* parent) {
    auto* const box = new QFrame(parent);
    look::setRole(box, "keybox");
    auto* const inside = new QVBoxLayout(box);
    inside->setContentsMargins(20, 14, 20, 14);
    auto* const shown = new QLabel(recoveryKeyLines(key).join(u'\n'), box);
    shown->setObjectName(u"cloudKey"_s);
    shown->setAccessibleName(u"Wiederherstellungsschlüssel: "_s + key);
    shown->setFont(codeFont(17));
    shown->setTextFormat(Qt::PlainText);
    shown->setTextInteractionFlags(Qt::TextSelectableByMouse);
    inside->addWidget(shown);
    return box;
}

} // namespace

NewKeyPanel::NewKeyPanel(CloudService& service, QWidget* parent)
    : CloudPanel(service, parent), shownPart_(new QWidget(this)), checkPart_(new QWidget(this)) {
    addKey();
    addCheck();
    column().addWidget(shownPart_);
    column().addWidget(checkPart_);
    showStep(false);
    follow();
}

void NewKeyPanel::addKey() {
    QVBoxLayout& part = columnIn(*shownPart_);
    addLabel(part, u"Schritt 1 von 2: Wiederherstellungsschlüssel aufbewahren"_s, "figure");
    addLabel(part,
             u"Mit ihm öffnen Sie die Kopie in der Cloud auf einem weiteren Computer, oder auf "
             "einem neuen, wenn dieser verloren geht. Er wird nur jetzt gezeigt und liegt "
             "nirgends sonst: Bitte ausdrucken oder abschreiben und gut aufbewahren, nicht beim "
             "Computer."_s,
             "faint");
    part.addWidget(keyBox(qs(status().recoveryKey), this), 0, Qt::AlignLeft);
    auto* const line = new QHBoxLayout;
    line->setSpacing(10);
    connect(buttonIn(*line, u"Drucken …"_s, "cloudKeyPrint"), &QPushButton::clicked, this,
            &NewKeyPanel::print);
    connect(buttonIn(*line, u"Als PDF speichern …"_s, "cloudKeySave"), &QPushButton::clicked, this,
            &NewKeyPanel::save);
    connect(buttonIn(*line, u"Kopieren"_s, "cloudKeyCopy"), &QPushButton::clicked, this,
            &NewKeyPanel::copy);
    line->addStretch(1);
    part.addLayout(line);
    message_ = &addLabel(part, {}, "good");
    message_->setObjectName(u"cloudKeyMessage"_s);
    auto* const on = new QHBoxLayout;
    next_ = buttonIn(*on, u"Weiter"_s, "cloudKeyNext");
    look::setRole(next_, "primary");
    addCancel(*on);
    on->addStretch(1);
    part.addLayout(on);
    connect(next_, &QPushButton::clicked, this, [this] { showStep(true); });
}

void NewKeyPanel::addCheck() {
    QVBoxLayout& part = columnIn(*checkPart_);
    addLabel(part, u"Schritt 2 von 2: Zur Kontrolle abtippen"_s, "figure");
    addLabel(part,
             u"Bitte tippen Sie den Schlüssel von Ihrem Papier ab. Wer ihn erst braucht, wenn der "
             "Computer verloren ist, kann ihn nicht mehr berichtigen; darum geht es erst weiter, "
             "wenn er stimmt. Gross und klein, Leerzeichen und Striche spielen keine Rolle."_s,
             "faint");
    auto* const line = new RecoveryKeyEdit(this);
    line->setObjectName(u"cloudTypedKey"_s);
    typed_ = new AskedField(u"Wiederherstellungsschlüssel"_s, line, u"Abschliessen"_s,
                            "cloudKeyConfirm", this);
    part.addWidget(typed_);
    auto* const links = new QHBoxLayout;
    QPushButton* const again = buttonIn(*links, u"Schlüssel nochmals zeigen"_s, "cloudKeyAgain");
    look::setRole(again, "link");
    addCancel(*links);
    links->addStretch(1);
    part.addLayout(links);
    connect(typed_, &AskedField::handedIn, this, &NewKeyPanel::confirm);
    connect(again, &QPushButton::clicked, this, [this] { showStep(false); });
}

void NewKeyPanel::addCancel(QHBoxLayout& line) {
    line.setSpacing(16);
    QPushButton* const cancel = buttonIn(line, u"Abbrechen"_s, "cloudKeyCancel");
    look::setRole(cancel, "link");
    connect(cancel, &QPushButton::clicked, this, [this] { service().cancelSignIn(); });
}

/// The keyboard goes along before what it is on is hidden.
void NewKeyPanel::showStep(bool isCheck) {
    QWidget* const before = isCheck ? shownPart_ : checkPart_;
    const bool keyboardIsHere =
        QApplication::focusWidget() != nullptr && before->isAncestorOf(QApplication::focusWidget());
    (isCheck ? checkPart_ : shownPart_)->show();
    if (keyboardIsHere) {
        isCheck ? typed_->takeKeyboard() : next_->setFocus(Qt::OtherFocusReason);
    }
    before->hide();
    message_->clear();
}

void NewKeyPanel::follow() {
    typed_->setWaiting(isWorking());
    if (status().problem && !isWorking()) {
        typed_->setProblem(qs(*status().problem));
    }
}

void NewKeyPanel::takeKeyboard() {
    if (checkPart_->isHidden()) {
        next_->setFocus(Qt::OtherFocusReason);
    } else {
        typed_->takeKeyboard();
    }
}

void NewKeyPanel::confirm() {
    const std::string typed = utf8(typed_->text());
    const auto read = CloudCrypto::parseRecoveryKey(typed);
    if (!read) {
        typed_->setProblem(qs(CloudCrypto::message(read.error())));
    } else if (*read != CloudCrypto::parseRecoveryKey(status().recoveryKey)) {
        typed_->setProblem(u"Das ist nicht der neue Schlüssel. Bitte nochmals ansehen."_s);
    } else {
        typed_->setProblem({});
        service().confirmRecoveryKey(typed);
    }
}

paper::PaperDocument NewKeyPanel::sheet() const {
    return recoverySheet(status().email, status().recoveryKey, SystemClock().local().date);
}

void NewKeyPanel::copy() {
    QApplication::clipboard()->setText(qs(status().recoveryKey));
    tell(u"Kopiert. In der Zwischenablage sehen ihn auch andere Programme: bitte gleich an einen "
         "sicheren Ort einfügen."_s,
         "good");
}

void NewKeyPanel::print() {
    const paper::PaperDocument document = sheet();
    const auto printer = printerFor(document);
    QPrintDialog dialog(printer.get(), this);
    dialog.setWindowTitle(u"Wiederherstellungsschlüssel drucken"_s);
    dialog.setMinMax(1, 1);
    if (dialog.exec() == QDialog::Accepted) {
        const auto problem = printPages(document, *printer);
        tell(problem ? qs(*problem) : u"Der Schlüssel ist beim Drucker."_s,
             problem ? "error" : "good");
    }
}

void NewKeyPanel::save() {
    const QString file =
        look::askWhereToSave(this, u"Wiederherstellungsschlüssel speichern"_s,
                             u"Fiscarel Wiederherstellungsschlüssel.pdf"_s, {u"PDF"_s, u"pdf"_s});
    if (file.isEmpty()) {
        return;
    }
    const auto pdf = paper::reportPdf(sheet());
    if (!pdf) {
        tell(qs(pdf.error()), "error");
        return;
    }
    const auto written = PosixFiles().write(utf8(file), *pdf);
    tell(written ? u"Gespeichert: %1"_s.arg(file)
                 : u"Der Schlüssel ist nicht gespeichert: "_s + qs(written.error().description()),
         written ? "good" : "error");
}

void NewKeyPanel::tell(const QString& sentence, const char* role) {
    look::setRole(message_, role);
    message_->setText(sentence);
}

} // namespace fiscarel::pages
