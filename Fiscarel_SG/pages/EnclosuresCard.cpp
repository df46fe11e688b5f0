#include "Fiscarel_SG/pages/EnclosuresCard.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/DocumentReadings.h"
#include "Fiscarel_SG/look/ElidingButton.h"
#include "Fiscarel_SG/look/FileDialogs.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/outputs/ReportContent.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/paper/BundleDocuments.h"
#include "Fiscarel_SG/store/PosixFiles.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int zifferWidth = 44;
constexpr int stateWidth = 260;

/// What came of a bundle, as the user is told.
struct Outcome {
    QString text;
    const char* role = "good";
};

Outcome bundled(const QString& title, const std::vector<paper::BundleItem>& items,
                const std::string& file) {
    const paper::Bundle bundle = paper::bundleDocuments(title.toStdString(), items);
    QString faults;
    for (const paper::BundleFault& fault : bundle.faults) {
        faults += u"\n%1: %2"_s.arg(qs(items[fault.item].title), qs(fault.message));
    }
    if (bundle.pdf.empty()) {
        return {u"Kein Beleg liess sich aufnehmen."_s + faults, "error"};
    }
    if (const auto written = PosixFiles().write(file, bundle.pdf); !written) {
        return {u"Die Beilagen sind nicht gespeichert: "_s + qs(written.error().description()),
                "error"};
    }
    const QString saved =
        u"Gespeichert: %1 (%2 Seiten)"_s.arg(qs(file)).arg(static_cast<qulonglong>(bundle.pages));
    return {saved + faults, faults.isEmpty() ? "good" : "warning"};
}

} // namespace

EnclosuresCard::EnclosuresCard(AppStore& store, const DocumentReadings& readings, QWidget* parent)
    : QWidget(parent), store_(store), readings_(readings),
      save_(new QPushButton(u"Beilagen als ein PDF speichern …"_s, this)),
      message_(new QLabel(this)) {
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    column_ = &addCard(*outer, u"Beilagen zur Steuererklärung"_s,
                       u"Was zu welcher Ziffer gehört und welcher Beleg es abdeckt."_s);
    save_->setObjectName(u"saveEnclosures"_s);
    message_->setObjectName(u"enclosuresMessage"_s);
    message_->setWordWrap(true);
    message_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    message_->hide();
    connect(save_, &QPushButton::clicked, this, &EnclosuresCard::save);
    refresh();
}

EnclosuresCard::~EnclosuresCard() { pool_.waitForDone(); }

QStringList EnclosuresCard::titlesOf(const std::vector<taxcore::Uuid>& documents) const {
    QStringList titles;
    for (const StoredDocument& document : store_.documents()) {
        if (std::ranges::find(documents, document.id) != documents.end()) {
            titles << qs(document.title);
        }
    }
    return titles;
}

void EnclosuresCard::addRow(QGridLayout& grid, int row, const outputs::Enclosure& enclosure) {
    auto* const ziffer = new QLabel(qs(enclosure.ziffer), rows_);
    look::setRole(ziffer, "faint");
    grid.addWidget(ziffer, row, 0, Qt::AlignTop);
    const QString label = enclosure.name.empty()
                              ? qs(enclosure.label)
                              : u"%1 – %2"_s.arg(qs(enclosure.label), qs(enclosure.name));
    auto* const door = new look::ElidingButton(rows_, label);
    look::setRole(door, "textlink");
    connect(door, &QPushButton::clicked, this,
            [this, path = qs(enclosure.path)] { Q_EMIT fieldWanted(path); });
    grid.addWidget(door, row, 1, Qt::AlignTop);
    QString state = titlesOf(enclosure.documents).join(u", "_s);
    const char* role = "small";
    if (enclosure.isMissing() && !enclosure.candidates.empty()) {
        state = u"vielleicht: "_s + titlesOf(enclosure.candidates).join(u", "_s);
    } else if (enclosure.isMissing()) {
        state = u"noch kein Beleg"_s;
        role = "warning";
    }
    auto* const covered = new QLabel(state, rows_);
    covered->setWordWrap(true);
    look::setRole(covered, role);
    grid.addWidget(covered, row, 2, Qt::AlignTop);
}

void EnclosuresCard::addOthers(QGridLayout& grid, int row) {
    auto* const heading = new QLabel(u"Ohne Zuordnung (kommen ans Ende des PDF):"_s, rows_);
    heading->setWordWrap(true);
    look::setRole(heading, "faint");
    grid.addWidget(heading, row, 0, 1, 3);
    for (const QString& title : titlesOf(checklist_.others)) {
        auto* const line = new QLabel(rows_);
        line->setTextFormat(Qt::PlainText);
        line->setText(title);
        line->setWordWrap(true);
        grid.addWidget(line, ++row, 0, 1, 3);
    }
}

void EnclosuresCard::refresh() {
    outputs::Checklist checklist =
        outputs::makeChecklist(store_.current(), readings_.documentsByKind());
    // What nobody can open has no place in the PDF.
    std::erase_if(checklist.others,
                  [&](const taxcore::Uuid& id) { return readings_.isBroken(id); });
    delete std::exchange(rows_, new QWidget(this));
    checklist_ = std::move(checklist);
    auto* const grid = new QGridLayout(rows_);
    grid->setContentsMargins(0, 4, 0, 4);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(6);
    grid->setColumnMinimumWidth(0, zifferWidth);
    grid->setColumnMinimumWidth(2, stateWidth);
    grid->setColumnStretch(1, 1);
    int row = 0;
    for (const outputs::Enclosure& enclosure : checklist_.enclosures) {
        addRow(*grid, row++, enclosure);
    }
    if (checklist_.enclosures.empty()) {
        grid->addWidget(new QLabel(u"Die bisherigen Angaben brauchen keine Beilagen."_s, rows_),
                        row++, 0, 1, 3);
    }
    if (!checklist_.others.empty()) {
        addOthers(*grid, row);
    }
    column_->addWidget(rows_);
    column_->addWidget(save_, 0, Qt::AlignLeft);
    column_->addWidget(message_);
    const bool hasFiles =
        std::ranges::any_of(store_.documents(), [&](const StoredDocument& document) {
            return document.year == store_.year() && store_.fileOf(document).has_value();
        });
    save_->setEnabled(hasFiles);
    save_->setToolTip(hasFiles ? QString() : u"Zuerst Belege ablegen."_s);
}

void EnclosuresCard::save() {
    const QString file = look::askWhereToSave(this, u"Beilagen speichern"_s,
                                              qs(outputs::pdfFileName("Belege", store_.current())),
                                              {u"PDF"_s, u"pdf"_s});
    if (file.isEmpty()) {
        return;
    }
    std::vector<paper::BundleItem> items;
    for (const taxcore::Uuid& id : checklist_.order()) {
        const auto found = std::ranges::find(store_.documents(), id, &StoredDocument::id);
        if (found != store_.documents().end()) {
            items.push_back(
                {store_.fileOf(*found).value_or(std::filesystem::path{}), found->title});
        }
    }
    tell(u"Die Beilagen werden zusammengestellt …"_s, "faint");
    save_->setEnabled(false);
    const QString title = u"Beilagen zur Steuererklärung %1"_s.arg(store_.year());
    pool_.start([this, title, items = std::move(items), name = utf8(file)] {
        QMetaObject::invokeMethod(this, [this, outcome = bundled(title, items, name)] {
            save_->setEnabled(true);
            tell(outcome.text, outcome.role);
        });
    });
}

void EnclosuresCard::tell(const QString& text, const char* role) {
    message_->setText(text);
    look::setRole(message_, role);
    message_->show();
}

} // namespace fiscarel::pages
