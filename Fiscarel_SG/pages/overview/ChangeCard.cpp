#include "Fiscarel_SG/pages/overview/ChangeCard.h"

#include "Fiscarel_SG/look/KeyboardOrder.h"
#include "Fiscarel_SG/pages/overview/DoorList.h"
#include "Fiscarel_SG/pages/overview/FigureStrip.h"
#include "Fiscarel_SG/pages/overview/MoneyText.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;
using namespace taxcore;

namespace {

constexpr int columnWidth = 84;
constexpr std::size_t mostAtFirst = 10;

Decimal sizeOf(const LineChange& line) {
    return std::max((line.cantonAfter - line.cantonBefore).abs(),
                    (line.federalAfter - line.federalBefore).abs());
}

bool isSum(const TaxResult& result, const LineChange& line) {
    const TaxLine* const now = result.line(line.code);
    return now != nullptr
           && (now->kind == TaxLine::Kind::subtotal || now->kind == TaxLine::Kind::total
               || now->kind == TaxLine::Kind::info);
}

RowContent rowOf(const LineChange& line, bool isDoor) {
    const Decimal canton = line.cantonAfter - line.cantonBefore;
    const Decimal federal = line.federalAfter - line.federalBefore;
    const bool onlyFederal = canton == 0;
    RowContent row{.name = u"change:"_s + qs(line.code),
                   .title = qs(line.label),
                   .figures = {francs(onlyFederal ? line.federalBefore : line.cantonBefore),
                               francs(onlyFederal ? line.federalAfter : line.cantonAfter),
                               change(onlyFederal ? federal : canton, 0)},
                   .isDoor = isDoor,
                   .action = isDoor ? u"Herkunft zeigen"_s : QString()};
    if (onlyFederal) {
        row.title += u" (Bund)"_s;
    } else if (federal != canton) {
        row.detail = u"beim Bund %1"_s.arg(federal == 0 ? u"unverändert"_s : change(federal, 0));
    }
    return row;
}

} // namespace

ChangeCard::ChangeCard(QWidget* parent)
    : CardFrame(u"Gegenüber dem Vorjahr"_s, {}, parent), missing_(addText({}, "faint")),
      totals_(new FigureStrip(3, this)), causes_(new DoorList({columnWidth}, this)),
      lines_(new DoorList({columnWidth, columnWidth, columnWidth}, this)) {
    addInset(totals_);
    column().addWidget(causes_);
    column().addSpacing(6);
    column().addWidget(lines_);
    more_ = addLink({}, u"changeMore"_s);
    connect(lines_, &DoorList::chosen, this, [this](int index) {
        Q_EMIT reasonWanted(qs(codes_.at(static_cast<std::size_t>(index))));
    });
    connect(more_, &QPushButton::clicked, this, [this] {
        showsAll_ = !showsAll_;
        showLines();
        look::orderByLayout(column());
    });
}

void ChangeCard::refresh(const TaxResult& result, const Review& review, TaxRegion region) {
    const auto& comparison = review.change;
    missing_->setVisible(!comparison);
    totals_->setVisible(comparison.has_value());
    causes_->setVisible(comparison.has_value());
    year_ = result.year;
    all_ = comparison ? comparison->lines : std::vector<LineChange>{};
    largest_.clear();
    present_.clear();
    if (!comparison) {
        missing_->setText(
            review.changeMissing
                ? qs(*review.changeMissing)
                : u"Für das Vorjahr %1 sind keine Angaben erfasst."_s.arg(result.year - 1));
    } else {
        totals_->set(0, QString::number(year_ - 1), rappen(comparison->before));
        totals_->set(1, QString::number(year_), rappen(comparison->after));
        totals_->set(2, u"Unterschied"_s, change(comparison->difference(), 2),
                     changeRole(comparison->difference()));
        showCauses(*comparison, region);
        for (const LineChange& line : all_) {
            if (result.line(line.code) != nullptr) {
                present_.push_back(line.code);
            }
            if (!isSum(result, line)) {
                largest_.push_back(line);
            }
        }
        std::ranges::stable_sort(largest_, std::greater{}, sizeOf);
        largest_.resize(std::min(largest_.size(), mostAtFirst));
    }
    showLines();
}

void ChangeCard::showCauses(const YearComparison& comparison, TaxRegion region) {
    struct Cause {
        QString title;
        QString detail;
        const Decimal& amount;
    };
    const bool liechtenstein = region == TaxRegion::liechtenstein;
    const std::vector<Cause> causes{
        {u"Ihre Angaben"_s, u"Was anders eingetragen ist als im Vorjahr."_s, comparison.entries},
        {u"Ein Jahr älter"_s, u"Fahrzeuge verlieren Wert, Kinder überschreiten Altersgrenzen."_s,
         comparison.ageing},
        {u"Abzüge und Grenzen"_s, u"Was das Gesetz anders zulässt."_s, comparison.rules},
        {u"Tarife"_s, u"Was dasselbe Einkommen und Vermögen kostet."_s, comparison.tariff},
        {liechtenstein ? u"Gemeindesteuerzuschlag"_s : u"Steuerfüsse"_s,
         liechtenstein ? u"Was die Gemeinde auf die Landessteuer erhebt."_s
                       : u"Von Kanton, Gemeinde und Kirche."_s,
         comparison.multipliers}};
    std::vector<RowContent> rows;
    for (const Cause& cause : causes) {
        if (cause.amount != 0) {
            rows.push_back({.title = cause.title,
                            .detail = cause.detail,
                            .figures = {change(cause.amount, 2)},
                            .figureRole = changeRole(cause.amount),
                            .isDoor = false});
        }
    }
    causes_->setRows(std::move(rows));
}

void ChangeCard::showLines() {
    const std::vector<LineChange>& lines = showsAll_ ? all_ : largest_;
    std::vector<RowContent> rows;
    codes_.clear();
    for (const LineChange& line : lines) {
        rows.push_back(rowOf(line, std::ranges::find(present_, line.code) != present_.end()));
        codes_.push_back(line.code);
    }
    lines_->setHeader(showsAll_ ? u"Alle Zeilen, die sich geändert haben"_s
                                : u"Grösste Änderungen"_s,
                      {QString::number(year_ - 1), QString::number(year_), u"Unterschied"_s});
    lines_->setRows(std::move(rows));
    more_->setText(showsAll_ ? u"Nur die grössten zeigen"_s
                             : u"Alle %1 Zeilen zeigen"_s.arg(all_.size()));
    more_->setVisible(all_.size() > largest_.size());
}

} // namespace fiscarel::pages
