#include "Fiscarel_SG/pages/ReportPage.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/forms/QtText.h"
#include "Fiscarel_SG/look/ElidingButton.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"
#include "Fiscarel_SG/pages/PageParts.h"
#include "TaxCore/base/MoneyFormat.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <vector>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

/// A line of the report.
struct ReportRow {
    QString ziffer;
    QString label;
    QString canton;
    QString federal; ///< empty where it is the same
    QString person;  ///< whose line it is, where each person has their own
    QString note;
    std::string code;
    bool strong = false;
};

/// A section of the report.
struct ReportSection {
    QString title;
    bool twoSides = false;
    std::vector<ReportRow> rows;
};

namespace {

constexpr int zifferWidth = 36; ///< the columns of all cards stand below each other
constexpr int amountWidth = 86;
constexpr int doorInset = 5; ///< as far as the text of a door from its edge

QString whole(const Decimal& amount) { return qs(MoneyFormat::chf(amount, 0, false)); }
QString exact(const Decimal& amount) { return qs(MoneyFormat::chf(amount, 2, false)); }

ReportSection rowsOf(const TaxSection& section, const TaxCase& taxCase) {
    ReportSection rows{.title = qs(section.title)};
    for (const TaxLine& line : section.lines) {
        const bool differs = line.federal && *line.federal != line.canton;
        rows.twoSides = rows.twoSides || differs;
        const QString note = labelText(line.note.value_or(""));
        const bool isPerson = isPersonName(taxCase, utf8(note));
        rows.rows.push_back(
            {.ziffer = qs(line.ziffer),
             .label = labelText(line.label),
             .canton = whole(line.canton),
             .federal = differs ? whole(*line.federal) : QString(),
             .person = isPerson ? note : QString(),
             .note = isPerson ? QString() : note,
             .code = line.code,
             .strong = line.kind == TaxLine::Kind::subtotal || line.kind == TaxLine::Kind::total});
    }
    return rows;
}

ReportSection billRows(const TaxResult& result, bool liechtenstein) {
    const TaxBill& bill = result.bill;
    ReportSection rows{.title = u"Steuerrechnung"_s};
    const auto add = [&](const QString& label, const Decimal& amount, const char* code,
                         bool strong = false) {
        rows.rows.push_back(
            {.label = label, .canton = exact(amount), .code = code, .strong = strong});
    };
    add(liechtenstein ? u"Landessteuer"_s : u"Kantonssteuer"_s, bill.cantonTotal(), "cantonTotal");
    add(liechtenstein ? u"Gemeindezuschlag"_s : u"Gemeindesteuer"_s, bill.municipalityTotal(),
        "municipalityTotal");
    if (!liechtenstein) {
        add(u"Kirchensteuer"_s, bill.churchTotal(), "churchTotal");
        add(u"Direkte Bundessteuer"_s, bill.federal, "federal");
    }
    const Decimal total = Advisor::totalTax(result);
    if (total != bill.total()) {
        add(u"Steuer auf Kapitalleistungen"_s, total - bill.total(), "kapitalleistungen");
    }
    add(u"Total"_s, total, "total", true);
    return rows;
}

} // namespace

ReportPage::ReportPage(AppStore& store, QWidget* parent)
    : PageWidget(parent), store_(store),
      frame_(new look::PageFrame(
          u"Bericht"_s,
          u"Die ganze Berechnung. Ein Klick auf eine Zeile zeigt, woher der Betrag kommt."_s,
          this)) {
    refreshResult();
}

void ReportPage::refreshResult() {
    QVBoxLayout* const column = &frame_->renew(content_);
    const auto* result = store_.result();
    if (result == nullptr) {
        addLabel(addCard(*column, {}), u"Ohne Regeln für dieses Jahr gibt es keinen Bericht."_s,
                 "heading");
        return;
    }
    const bool liechtenstein = store_.current().taxRegion() == TaxRegion::liechtenstein;
    addSection(*column, billRows(*result, liechtenstein));
    for (const TaxSection& section : result->sections) {
        addSection(*column, rowsOf(section, store_.current()));
    }
    column->addStretch(1);
}

QWidget* ReportPage::makeDoor(const ReportRow& row, QWidget* parent) {
    auto* const door = new look::ElidingButton(parent, row.label);
    door->setObjectName(u"line:"_s + qs(row.code));
    door->setAccessibleName(
        u"%1 %2 %3, Herkunft zeigen"_s.arg(row.label, row.person, row.canton).simplified());
    door->setProperty("strong", row.strong);
    look::setRole(door, "door");
    connect(door, &QPushButton::clicked, this,
            [this, code = qs(row.code)] { Q_EMIT reasonWanted(code); });
    if (row.person.isEmpty()) {
        return door;
    }
    auto* const both = new QWidget(parent);
    auto* const line = new QHBoxLayout(both);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(4);
    auto* const person = new QLabel(row.person, both);
    look::setRole(person, "small");
    person->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // amounts go first
    line->addWidget(door);
    line->addWidget(person, 1);
    return both;
}

void ReportPage::addSection(QVBoxLayout& column, const ReportSection& rows) {
    QVBoxLayout& card = addCard(column, rows.title);
    QWidget* const parent = card.parentWidget();
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(0, zifferWidth);
    grid->setColumnMinimumWidth(2, amountWidth);
    grid->setColumnMinimumWidth(3, rows.twoSides ? amountWidth : 0);
    card.addLayout(grid);
    int at = 0;
    const auto put = [&](const QString& text, int gridColumn, const char* role) {
        auto* const label = new QLabel(text, parent);
        label->setAlignment((gridColumn >= 2 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        look::setRole(label, role);
        grid->addWidget(label, at, gridColumn);
    };
    if (rows.twoSides) {
        put(u"Kanton"_s, 2, "small");
        put(u"Bund"_s, 3, "small");
        ++at;
    }
    for (const ReportRow& row : rows.rows) {
        put(row.ziffer, 0, "faint");
        grid->addWidget(makeDoor(row, parent), at, 1);
        const char* const role = row.strong ? "figure" : "";
        put(row.canton, 2, role);
        if (rows.twoSides) {
            put(row.federal.isEmpty() ? row.canton : row.federal, 3, role);
        }
        ++at;
        if (!row.note.isEmpty()) {
            auto* const note = new QLabel(row.note, parent);
            note->setWordWrap(true);
            note->setContentsMargins(doorInset, 0, 0, 4);
            look::setRole(note, "small");
            grid->addWidget(note, at++, 1);
        }
    }
}

} // namespace fiscarel::pages
