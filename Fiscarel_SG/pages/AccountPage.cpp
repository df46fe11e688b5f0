#include "Fiscarel_SG/pages/AccountPage.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/FileDialogs.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Written.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/account/CloudCard.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDate>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

QPushButton* addButton(QHBoxLayout& line, const QString& text, const char* name) {
    auto* const button = new QPushButton(text);
    button->setObjectName(QString::fromLatin1(name));
    line.addWidget(button);
    return button;
}

constexpr int mostRows = 6;    ///< of the list of backups before it scrolls
constexpr int listPadding = 4; ///< of its style

/// What two files are for, with the buttons that write and read them.
QHBoxLayout* addTransfer(QVBoxLayout& card, const QString& name, const QString& use) {
    QWidget* const parent = card.parentWidget();
    addLine(card);
    auto* const title = new QLabel(name, parent);
    look::setRole(title, "figure");
    card.addWidget(title);
    addLabel(card, use, "faint");
    auto* const line = new QHBoxLayout;
    card.addLayout(line);
    return line;
}

QString described(const BackupFile& file) {
    const QDate day = QDate::fromString(qs(file.name.day), Qt::ISODate);
    QString text = look::written(day);
    if (!file.name.isDaily()) {
        const QString time = qs(file.name.time);
        text += u", %1:%2"_s.arg(time.left(2), time.mid(2, 2));
    }
    return u"%1  ·  %2  ·  %3"_s.arg(text, qs(file.label()), look::writtenSize(file.size));
}

QString documents(std::size_t count) {
    return count == 0 ? u"keine Belege"_s : count == 1 ? u"1 Beleg"_s : u"%1 Belege"_s.arg(count);
}

/// "die Steuerjahre 2024, 2025 und 3 Belege"
QString described(const BackupContent& content) {
    QStringList years;
    for (const int year : content.years) {
        years << QString::number(year);
    }
    const QString cases = years.isEmpty()     ? u"kein Steuerjahr"_s
                          : years.size() == 1 ? u"das Steuerjahr "_s + years.first()
                                              : u"die Steuerjahre "_s + years.join(u", "_s);
    return u"%1 und %2"_s.arg(cases, documents(content.documents));
}

} // namespace

AccountPage::AccountPage(AppStore& store, CloudService* cloud, look::Appearance appearance,
                         QWidget* parent)
    : PageWidget(parent), store_(store),
      frame_(new look::PageFrame(
          u"Konto"_s, u"Cloud, Ihre Daten auf diesem Computer, Sicherungen und Darstellung."_s,
          this)),
      message_(new QLabel(this)) {
    message_->setWordWrap(true);
    message_->setObjectName(u"accountMessage"_s);
    message_->hide();
    frame_->column().addWidget(message_);
    addCloud(cloud);
    addData();
    addBackups();
    addAppearance(appearance);
    addReset();
    addAbout();
    frame_->column().addStretch(1);
    refresh();
}

void AccountPage::addCloud(CloudService* cloud) {
    cloud_ = new CloudCard(store_, cloud, this);
    frame_->column().addWidget(cloud_);
    connect(cloud_, &CloudCard::fieldWanted, this, &AccountPage::fieldWanted);
    connect(cloud_, &CloudCard::documentWanted, this, &AccountPage::documentWanted);
    connect(cloud_, &CloudCard::undoOffered, this, &AccountPage::undoOffered);
}

void AccountPage::addData() {
    QVBoxLayout& card =
        addCard(frame_->column(), u"Daten"_s,
                u"Sichern, auf einen anderen Computer mitnehmen oder zurückholen. Bevor etwas "
                "eingelesen wird, wird der jetzige Stand gesichert."_s);
    QHBoxLayout* const entries =
        addTransfer(card, u"Nur die Angaben"_s,
                    u"Alle Steuerjahre in einer kleinen Datei, ohne die Dateien der Belege."_s);
    connect(addButton(*entries, u"Daten exportieren …"_s, "export"), &QPushButton::clicked, this,
            &AccountPage::exportData);
    connect(addButton(*entries, u"Daten importieren …"_s, "import"), &QPushButton::clicked, this,
            &AccountPage::importData);
    entries->addStretch(1);
    QHBoxLayout* const archive =
        addTransfer(card, u"Alles mit Belegen"_s,
                    u"Die Angaben und alle Belege in einem Archiv – zum Aufbewahren oder für den "
                    "Umzug auf einen anderen Computer."_s);
    connect(addButton(*archive, u"Archiv mit Belegen erstellen …"_s, "exportArchive"),
            &QPushButton::clicked, this, &AccountPage::exportArchive);
    connect(addButton(*archive, u"Archiv einlesen …"_s, "importArchive"), &QPushButton::clicked,
            this, &AccountPage::importArchive);
    archive->addStretch(1);
    QHBoxLayout* const folder = addTransfer(
        card, u"Datenordner"_s, u"Hier liegt auf diesem Computer, was das Programm speichert."_s);
    connect(
        addButton(*folder, u"Datenordner öffnen"_s, "openFolder"), &QPushButton::clicked, this, [] {
            QDesktopServices::openUrl(QUrl::fromLocalFile(qs(Persistence::defaultRoot().string())));
        });
    folder->addStretch(1);
}

/// Apart from the rest, as it deletes.
void AccountPage::addReset() {
    QVBoxLayout& card =
        addCard(frame_->column(), u"Neu anfangen"_s,
                u"Löscht alle Angaben des Steuerjahrs; die Belege bleiben erhalten."_s);
    auto* const line = new QHBoxLayout;
    QPushButton* const reset = addButton(*line, u"Steuerjahr zurücksetzen …"_s, "resetYear");
    look::setRole(reset, "danger");
    connect(reset, &QPushButton::clicked, this, &AccountPage::resetWanted);
    line->addStretch(1);
    card.addLayout(line);
}

void AccountPage::addBackups() {
    QVBoxLayout& card =
        addCard(frame_->column(), u"Sicherungen"_s,
                u"Jeden Tag und vor jedem grösseren Eingriff wird eine Sicherung angelegt."_s);
    list_ = new QListWidget(this);
    list_->setObjectName(u"backups"_s);
    list_->setAccessibleName(u"Sicherungen"_s);
    look::setRole(list_, "rows");
    content_ = &addLabel(card, QString(), "faint");
    restore_ = new QPushButton(u"Diesen Stand wiederherstellen …"_s, this);
    restore_->setObjectName(u"restore"_s);
    restore_->setEnabled(false);
    card.insertWidget(card.count() - 1, list_);
    card.addWidget(restore_, 0, Qt::AlignLeft);
    connect(list_, &QListWidget::currentRowChanged, this, &AccountPage::inspectSelected);
    connect(restore_, &QPushButton::clicked, this, &AccountPage::restoreSelected);
}

void AccountPage::addAppearance(look::Appearance appearance) {
    QVBoxLayout& card = addCard(frame_->column(), u"Darstellung"_s);
    auto* const choice = new QComboBox(this);
    choice->setObjectName(u"appearance"_s);
    choice->setAccessibleName(u"Darstellung"_s);
    choice->addItems({u"Wie das System"_s, u"Hell"_s, u"Dunkel"_s});
    choice->setCurrentIndex(static_cast<int>(appearance));
    choice->setMaximumWidth(240);
    card.addWidget(choice);
    connect(
        choice, &QComboBox::activated, this,
        [this](int index) { Q_EMIT appearanceWanted(static_cast<look::Appearance>(index)); },
        Qt::QueuedConnection); // the pages are made anew, this one too
}

void AccountPage::addAbout() {
    QVBoxLayout& card = addCard(frame_->column(), u"Über das Programm"_s);
    addLabel(card,
             u"Fiscarel SG %1 · freie Software unter der GNU General Public License, Version 3 "
             "oder später."_s.arg(QCoreApplication::applicationVersion()),
             "faint");
    addLabel(card,
             u"Die Berechnung hilft beim Ausfüllen und ist unverbindlich; massgebend ist die "
             "Veranlagung der Steuerbehörde."_s,
             "faint");
}

void AccountPage::refresh() {
    listBackups();
    cloud_->refresh();
}

void AccountPage::listBackups() {
    store_.listBackups([self = QPointer(this)](std::vector<BackupFile> backups) {
        if (!self) {
            return;
        }
        self->backups_ = std::move(backups);
        self->list_->clear();
        for (const BackupFile& file : self->backups_) {
            self->list_->addItem(described(file));
        }
        self->content_->setText(self->backups_.empty() ? u"Es gibt noch keine Sicherung."_s
                                                       : QString());
        self->list_->setVisible(!self->backups_.empty());
        self->fitList();
        self->restore_->setVisible(!self->backups_.empty());
    });
}

/// As high as its rows, up to a few.
void AccountPage::fitList() {
    const int rows = std::min(list_->count(), mostRows);
    if (rows > 0) {
        list_->ensurePolished();
        list_->setFixedHeight(rows * list_->sizeHintForRow(0) + 2 * list_->frameWidth()
                              + 2 * listPadding);
    }
}

void AccountPage::inspectSelected() {
    const int row = list_->currentRow();
    restore_->setEnabled(false);
    content_->clear();
    if (row < 0 || row >= static_cast<int>(backups_.size())) {
        return;
    }
    store_.inspectBackup(backups_[static_cast<std::size_t>(row)],
                         [self = QPointer(this), row](const AppStore::Inspected& content) {
                             if (!self || self->list_->currentRow() != row) {
                                 return;
                             }
                             if (!content) {
                                 self->content_->setText(u"Nicht lesbar: "_s + qs(content.error()));
                                 return;
                             }
                             self->content_->setText(u"Enthält %1."_s.arg(described(*content)));
                             self->restore_->setEnabled(true);
                         });
}

void AccountPage::restoreSelected() {
    const int row = list_->currentRow();
    if (row < 0 || row >= static_cast<int>(backups_.size())) {
        return;
    }
    const BackupFile file = backups_[static_cast<std::size_t>(row)];
    QMessageBox box(QMessageBox::Question, u"Sicherung wiederherstellen"_s,
                    u"Alle Jahre auf den Stand dieser Sicherung zurückstellen?"_s,
                    QMessageBox::NoButton, this);
    box.setInformativeText(described(file)
                           + u"\nDer jetzige Stand wird vorher gesichert. Belege bleiben "
                             "erhalten."_s);
    QPushButton* const restore = box.addButton(u"Wiederherstellen"_s, QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(u"Abbrechen"_s, QMessageBox::RejectRole));
    box.exec();
    if (box.clickedButton() == restore) {
        store_.restoreBackup(file, saying(u"Die Sicherung ist wiederhergestellt."_s));
    }
}

AppStore::Done AccountPage::saying(const QString& done) {
    return [self = QPointer(this), done](const std::optional<std::string>& problem) {
        if (self) {
            self->say(problem, done);
        }
    };
}

void AccountPage::exportData() {
    const QString file = look::askWhereToSave(this, u"Daten exportieren"_s, qs(exportFileName),
                                              {u"JSON"_s, u"json"_s});
    if (!file.isEmpty()) {
        store_.exportAll(utf8(file), saying(u"Die Daten liegen jetzt in %1."_s.arg(file)));
    }
}

void AccountPage::importData() {
    const QString file = look::askForFile(this, u"Daten importieren"_s, {u"JSON"_s, u"json"_s});
    if (!file.isEmpty()) {
        store_.importExported(utf8(file), saying(u"Die Daten sind übernommen."_s));
    }
}

namespace {

/// What an archive holds or brought, in one sentence.
QString told(const ArchiveReport& report, const QString& done) {
    QString text = u"%1 %2"_s.arg(done, documents(report.documents));
    if (report.alreadyThere > 0) {
        text += u", %1 schon vorhanden"_s.arg(documents(report.alreadyThere));
    }
    if (report.missing > 0) {
        text += u"; %1 ohne Datei"_s.arg(documents(report.missing));
    }
    return text + u"."_s;
}

/// A window that shows how far work with an archive is and lets it be stopped.
ArchiveProgress shownIn(const QPointer<QProgressDialog>& dialog) {
    return [dialog](std::uint64_t done, std::uint64_t total) {
        if (!dialog || dialog->wasCanceled()) {
            return false;
        }
        const auto promille = total > 0 ? done * 1'000 / total : 0;
        dialog->setValue(static_cast<int>(std::min<std::uint64_t>(promille, 999)));
        return true;
    };
}

} // namespace

/// Shows the progress of `work` and says at its end how it went.
void AccountPage::withArchive(
    const QString& doing, const QString& done,
    const std::function<void(ArchiveProgress, AppStore::ArchiveDone)>& work) {
    auto* const dialog = new QProgressDialog(doing, u"Abbrechen"_s, 0, 1'000, this);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setMinimumDuration(400);
    const QPointer<QProgressDialog> shown(dialog);
    work(shownIn(shown), [self = QPointer(this), shown, done](const AppStore::Archived& outcome) {
        if (shown) {
            shown->deleteLater();
        }
        if (!self) {
            return;
        }
        if (outcome) {
            self->say(std::nullopt, told(*outcome, done));
        } else {
            self->say(outcome.error().isStopped ? "Abgebrochen; es hat sich nichts geändert."
                                                : outcome.error().message,
                      {});
        }
    });
}

void AccountPage::exportArchive() {
    const QString file = look::askWhereToSave(this, u"Archiv mit Belegen erstellen"_s,
                                              qs(archiveFileName), {u"ZIP"_s, u"zip"_s});
    if (!file.isEmpty()) {
        withArchive(u"Das Archiv wird geschrieben …"_s, u"Das Archiv ist erstellt:"_s,
                    [&](ArchiveProgress progress, AppStore::ArchiveDone done) {
                        store_.exportArchive(utf8(file), std::move(progress), std::move(done));
                    });
    }
}

void AccountPage::importArchive() {
    const QString file = look::askForFile(this, u"Archiv einlesen"_s, {u"ZIP"_s, u"zip"_s});
    if (!file.isEmpty()) {
        withArchive(u"Das Archiv wird gelesen …"_s, u"Das Archiv ist übernommen:"_s,
                    [&](ArchiveProgress progress, AppStore::ArchiveDone done) {
                        store_.importArchive(utf8(file), std::move(progress), std::move(done));
                    });
    }
}

void AccountPage::say(const std::optional<std::string>& problem, const QString& done) {
    message_->setText(problem ? qs(*problem) : done);
    look::setRole(message_, problem ? "error" : "good");
    message_->show();
    listBackups();
}

} // namespace fiscarel::pages
