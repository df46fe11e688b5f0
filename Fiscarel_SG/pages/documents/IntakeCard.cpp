#include "Fiscarel_SG/pages/documents/IntakeCard.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/FileDialogs.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/documents/DocumentDesk.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QMargins aroundNotice{20, 12, 20, 14};

QString pickedEndings() {
    QStringList patterns;
    for (const std::string& ending : documentEndings()) {
        patterns << u"*."_s + qs(ending) << u"*."_s + qs(ending).toUpper();
    }
    return patterns.join(u' ');
}

QPushButton* addButton(const QString& text, const QString& name, QHBoxLayout& line,
                       QWidget* parent) {
    auto* const button = new QPushButton(text, parent);
    button->setObjectName(name);
    line.addWidget(button);
    return button;
}

} // namespace

IntakeCard::IntakeCard(AppStore& store, DocumentDesk& desk, QWidget* parent)
    : QWidget(parent), store_(store), desk_(desk), zone_(new QFrame(this)),
      invitation_(new QLabel(zone_)), busy_(new QLabel(this)), bar_(new QProgressBar(this)),
      messageLine_(new QFrame(this)), message_(new QLabel(this)), twins_(new QFrame(this)),
      twinsTitle_(new QLabel(this)), twinsText_(new QLabel(this)) {
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(10);
    outer->addWidget(zone_);
    addZone();
    busy_->setObjectName(u"intakeBusy"_s);
    look::setRole(busy_, "faint");
    bar_->setTextVisible(false);
    bar_->setAccessibleName(u"Belege werden hinzugefügt"_s);
    outer->addWidget(busy_);
    outer->addWidget(bar_);

    addMessage(*outer);
    addTwins(*outer);
    connect(&desk.intake(), &DocumentIntake::changed, this, &IntakeCard::refresh);
    setInvites(false);
    refresh();
}

void IntakeCard::addMessage(QVBoxLayout& outer) {
    look::setRole(messageLine_, "card");
    auto* const line = new QHBoxLayout(messageLine_);
    line->setContentsMargins(aroundNotice);
    message_->setObjectName(u"intakeMessage"_s);
    message_->setWordWrap(true);
    look::setRole(message_, "warning");
    line->addWidget(message_, 1);
    auto* const seen = addButton(u"Verstanden"_s, u"intakeSeen"_s, *line, messageLine_);
    line->setAlignment(seen, Qt::AlignTop);
    connect(seen, &QPushButton::clicked, this, [this] { desk_.intake().dismissMessage(); });
    outer.addWidget(messageLine_);
}

void IntakeCard::addTwins(QVBoxLayout& outer) {
    look::setRole(twins_, "card");
    auto* const question = new QVBoxLayout(twins_);
    question->setContentsMargins(aroundNotice);
    question->setSpacing(8);
    look::setRole(twinsTitle_, "heading");
    question->addWidget(twinsTitle_);
    twinsText_->setObjectName(u"twins"_s);
    twinsText_->setWordWrap(true);
    twinsText_->setTextFormat(Qt::RichText);
    question->addWidget(twinsText_);
    auto* const answers = new QHBoxLayout;
    auto* const drop = addButton(u"Nicht aufnehmen"_s, u"dropTwins"_s, *answers, twins_);
    look::setRole(drop, "primary");
    auto* const keep = addButton(u"Trotzdem aufnehmen"_s, u"keepTwins"_s, *answers, twins_);
    answers->addStretch(1);
    question->addLayout(answers);
    connect(drop, &QPushButton::clicked, this, [this] { desk_.intake().dropTwins(); });
    connect(keep, &QPushButton::clicked, this, [this] { desk_.intake().keepTwins(); });
    outer.addWidget(twins_);
}

void IntakeCard::addZone() {
    zone_->setObjectName(u"dropZone"_s);
    look::setRole(zone_, "dropzone");
    inside_ = new QBoxLayout(QBoxLayout::TopToBottom, zone_);
    invitation_->setWordWrap(true);
    look::setRole(invitation_, "heading");
    inside_->addWidget(invitation_);
    help_ = new QLabel(u"PDF, Fotos und Scans, auch ganze Ordner."_s, zone_);
    help_->setAlignment(Qt::AlignCenter);
    help_->setWordWrap(true);
    look::setRole(help_, "faint");
    inside_->addWidget(help_);
    auto* const line = new QHBoxLayout;
    line->addStretch(1);
    auto* const files = addButton(u"Dateien auswählen …"_s, u"pickDocuments"_s, *line, zone_);
    auto* const folder = addButton(u"Ordner auswählen …"_s, u"pickFolder"_s, *line, zone_);
    line->addStretch(1);
    inside_->addLayout(line);
    connect(files, &QPushButton::clicked, this, [this] { pickFiles(); });
    connect(folder, &QPushButton::clicked, this, &IntakeCard::pickFolder);
    setSlim(false);
}

void IntakeCard::setSlim(bool slim) {
    inside_->setDirection(slim ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    inside_->setContentsMargins(20, slim ? 10 : 18, slim ? 10 : 20, slim ? 10 : 18);
    inside_->setSpacing(10);
    inside_->setStretch(0, slim ? 1 : 0);
    invitation_->setAlignment(slim ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
    help_->setVisible(!slim);
}

bool IntakeCard::hasFiles(const QMimeData& data) {
    return std::ranges::any_of(data.urls(), &QUrl::isLocalFile);
}

std::vector<std::filesystem::path> IntakeCard::filesOf(const QMimeData& data) {
    std::vector<std::filesystem::path> files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) {
            files.emplace_back(utf8(url.toLocalFile()));
        }
    }
    return files;
}

void IntakeCard::setInvites(bool invites) {
    invitation_->setText(invites ? u"Loslassen zum Hinzufügen"_s : u"Belege hierher ziehen"_s);
    look::setRole(zone_, invites ? "dropzone-ready" : "dropzone");
}

void IntakeCard::pickFiles(const std::optional<taxcore::Uuid>& instead) {
    std::vector<std::filesystem::path> files;
    for (const QString& file :
         look::askForFiles(this, u"Belege auswählen"_s,
                           u"Belege (%1);;Alle Dateien (*)"_s.arg(pickedEndings()))) {
        files.emplace_back(utf8(file));
    }
    desk_.intake().take(std::move(files), instead);
}

void IntakeCard::pickFolder() {
    const QString folder = look::askForFolder(this, u"Ordner mit Belegen auswählen"_s);
    if (!folder.isEmpty()) {
        desk_.intake().take({utf8(folder)});
    }
}

/// A list with a line for each, as rich text.
QString IntakeCard::twinsText() const {
    const std::vector<Twin>& twins = desk_.intake().twins();
    constexpr std::size_t mostTold = 4;
    QStringList lines;
    for (const Twin& twin : twins) {
        if (lines.size() == mostTold) {
            lines << u"und %1 weitere"_s.arg(twins.size() - mostTold);
            break;
        }
        const QString name = qs(twin.file.filename().string());
        const auto found =
            std::ranges::find_if(store_.documents(), [&](const StoredDocument& document) {
                return twin.of && document.id == *twin.of;
            });
        lines << (found != store_.documents().end()
                      ? u"«%1» liegt schon als «%2» im Steuerjahr %3."_s.arg(name, qs(found->title))
                            .arg(found->year)
                      : u"«%1» hat denselben Inhalt wie «%2»."_s.arg(
                          name, qs(twin.other.filename().string())))
                     .toHtmlEscaped();
    }
    return u"<ul style=\"margin: 0; margin-left: 16px; -qt-list-indent: 0\"><li>"_s
           + lines.join(u"</li><li>"_s) + u"</li></ul>"_s;
}

void IntakeCard::refresh() {
    const DocumentIntake& intake = desk_.intake();
    busy_->setVisible(intake.isBusy());
    bar_->setVisible(intake.isBusy());
    busy_->setText(
        intake.total() > intake.done()
            ? u"Belege werden hinzugefügt: %1 von %2 …"_s.arg(intake.done() + 1).arg(intake.total())
            : u"Die Dateien werden durchgesehen …"_s);
    bar_->setRange(0, intake.total() > intake.done() ? static_cast<int>(intake.total()) : 0);
    bar_->setValue(static_cast<int>(intake.done()));
    messageLine_->setVisible(!intake.message().isEmpty());
    message_->setText(intake.message());
    twins_->setVisible(!intake.twins().empty());
    if (!intake.twins().empty()) {
        const std::size_t count = intake.twins().size();
        twinsTitle_->setText(count == 1 ? u"1 Datei gibt es schon"_s
                                        : u"%1 Dateien gibt es schon"_s.arg(count));
        twinsText_->setText(twinsText());
    }
}

} // namespace fiscarel::pages
