#include "Fiscarel_SG/pages/documents/MissingCard.h"

#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/DocumentReadings.h"
#include "Fiscarel_SG/documents/DocumentYears.h"
#include "Fiscarel_SG/look/QtText.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::size_t mostShown = 12;

/// A label that takes the room there is and tells in its tip what is cut.
QLabel* elided(const QString& text, const char* role, QWidget* parent) {
    constexpr int widest = 330;
    auto* const label = new QLabel(parent);
    look::setRole(label, role);
    label->ensurePolished();
    label->setText(label->fontMetrics().elidedText(text, Qt::ElideRight, widest));
    label->setToolTip(label->text() == text ? QString() : text);
    label->setAccessibleName(text);
    return label;
}

} // namespace

MissingCard::MissingCard(AppStore& store, const DocumentReadings& readings, QWidget* parent)
    : QWidget(parent), store_(store), readings_(readings) {
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    column_ = &addCard(*outer, u"Fehlt noch im Vergleich zum Vorjahr"_s,
                       u"Solche Belege gab es im letzten Jahr. Was es nicht mehr gibt, braucht es "
                       "auch nicht."_s);
    refresh();
}

void MissingCard::refresh() {
    const std::vector<MissingDocument> missing =
        missingSinceYearBefore(readings_.documentsByKind(), store_.year());
    delete std::exchange(rows_, new QWidget(this));
    auto* const grid = new QGridLayout(rows_);
    grid->setContentsMargins(0, 4, 0, 0);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(1, 1);
    int row = 0;
    for (const MissingDocument& one : missing) {
        if (static_cast<std::size_t>(row) == mostShown) {
            grid->addWidget(new QLabel(u"und %1 weitere"_s.arg(missing.size() - mostShown), rows_),
                            row, 0);
            break;
        }
        grid->addWidget(new QLabel(qs(taxcore::label(one.kind)), rows_), row, 0);
        grid->addWidget(elided(qs(one.issuer.empty() ? one.title : one.issuer), "faint", rows_),
                        row, 1);
        ++row;
    }
    column_->addWidget(rows_);
    setVisible(!missing.empty());
}

} // namespace fiscarel::pages
