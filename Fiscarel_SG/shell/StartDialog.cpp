#include "Fiscarel_SG/shell/StartDialog.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/FileDialogs.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/look/Written.h"

#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace fiscarel::shell {

using namespace Qt::Literals::StringLiterals;

StartDialog::StartDialog(AppStore& store, QWidget* parent)
    : QDialog(parent), store_(store),
      liechtenstein_(new QRadioButton(u"Fürstentum Liechtenstein"_s, this)),
      problem_(new QLabel(this)) {
    setObjectName(u"start"_s);
    setWindowTitle(u"Willkommen"_s);
    setMinimumWidth(520);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(28, 24, 28, 24);
    column->setSpacing(10);
    auto* const title = new QLabel(u"Willkommen bei Fiscarel SG"_s, this);
    look::setRole(title, "title");
    auto* const help = new QLabel(
        u"Ihre Angaben bleiben auf diesem Computer. Wo füllen Sie die Steuererklärung aus?"_s,
        this);
    help->setWordWrap(true);
    look::setRole(help, "faint");
    auto* const stGallen = new QRadioButton(u"Kanton St.Gallen"_s, this);
    stGallen->setObjectName(u"startStGallen"_s);
    stGallen->setChecked(true);
    liechtenstein_->setObjectName(u"startLiechtenstein"_s);
    auto* const fresh = new QPushButton(u"Neu beginnen"_s, this);
    fresh->setObjectName(u"startFresh"_s);
    look::setRole(fresh, "primary");
    fresh->setDefault(true);
    auto* const file = new QPushButton(u"Vorjahr übernehmen (Datei wählen) …"_s, this);
    file->setObjectName(u"startFile"_s);
    auto* const demo = new QPushButton(u"Mit Demohaushalt umschauen"_s, this);
    demo->setObjectName(u"startDemo"_s);
    problem_->setWordWrap(true);
    look::setRole(problem_, "error");
    for (QWidget* widget : std::initializer_list<QWidget*>{title, help, stGallen, liechtenstein_,
                                                           fresh, file, demo, problem_}) {
        if (widget == fresh) {
            column->addSpacing(8);
        }
        column->addWidget(widget);
    }
    setTabOrder(stGallen, liechtenstein_);
    stGallen->setFocus();
    connect(fresh, &QPushButton::clicked, this, [this] {
        begin();
        Q_EMIT begun();
    });
    connect(file, &QPushButton::clicked, this, &StartDialog::beginWithFile);
    connect(demo, &QPushButton::clicked, this,
            [this] { Q_EMIT demoWanted(liechtenstein_->isChecked()); });
}

void StartDialog::begin() {
    store_.chooseInitialRegion(liechtenstein_->isChecked() ? taxcore::TaxRegion::liechtenstein
                                                           : taxcore::TaxRegion::stGallen);
    accept();
}

void StartDialog::beginWithFile() {
    const QString file =
        look::askForFile(this, u"Datei des Vorjahrs"_s, {u"Sicherung"_s, u"json"_s});
    if (file.isEmpty()) {
        return;
    }
    store_.importExported(utf8(file), [self = QPointer(this)](const auto& problem) {
        if (!self) {
            return;
        }
        if (problem) {
            self->problem_->setText(qs(*problem));
        } else {
            self->begin();
        }
    });
}

void offerRecovery(AppStore& store, QWidget* parent) {
    store.findNewestGoodBackup([&store, parent = QPointer(parent)](
                                   const std::optional<BackupFile>& backup) {
        if (!parent) {
            return;
        }
        QMessageBox box(QMessageBox::Warning, u"Daten nicht lesbar"_s,
                        qs(store.loadError().value_or("")), QMessageBox::NoButton, parent);
        box.setObjectName(u"recovery"_s);
        QPushButton* restore = nullptr;
        if (backup) {
            const QDate day = QDate::fromString(qs(backup->name.day), Qt::ISODate);
            box.setInformativeText(
                u"Es gibt eine lesbare Sicherung vom %1 (%2). Die unlesbare Datei bleibt unter "
                "«Sicherungen» aufbewahrt."_s.arg(look::written(day), qs(backup->label())));
            restore = box.addButton(u"Sicherung wiederherstellen"_s, QMessageBox::AcceptRole);
            box.setDefaultButton(restore);
        } else {
            box.setInformativeText(u"Es gibt keine lesbare Sicherung. Die Datei bleibt unter "
                                   "«Sicherungen» aufbewahrt; gespeichert wird erst, wenn Sie "
                                   "etwas eintragen."_s);
        }
        box.addButton(backup ? u"Ohne Sicherung weiter"_s : u"Weiter"_s, QMessageBox::RejectRole);
        box.exec();
        if (restore != nullptr && box.clickedButton() == restore) {
            store.restoreBackup(*backup, [&store, parent](const auto& problem) {
                if (!problem) {
                    store.dismissLoadError();
                } else if (parent) {
                    QMessageBox::warning(parent, u"Nicht wiederhergestellt"_s, qs(*problem));
                }
            });
        }
    });
}

} // namespace fiscarel::shell
