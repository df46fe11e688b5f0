#include "cli/ReviewText.h"

#include "TaxCore/base/MoneyFormat.h"
#include "cli/Printable.h"
#include "cli/TextTable.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

constexpr std::size_t textWidth = 92;
constexpr std::size_t columnWidth = 16;

std::string noticeText(const Notice& notice) {
    std::string mark(label(notice.level));
    if (notice.saving) {
        const std::string saving = MoneyFormat::chf(*notice.saving, 2, true);
        mark = notice.missed.value_or(false) ? "hätte " + saving + " gespart" : "spart " + saving;
    }
    std::string text = wrapped(mark + ": " + printable(notice.title), textWidth, "  ");
    text += wrapped(printable(notice.message), textWidth, "    ");
    if (notice.path) {
        text += wrapped("Feld " + *notice.path, textWidth, "    ");
    }
    return text;
}

std::string listText(const std::string& title, const std::vector<Notice>& notices,
                     const std::string& none) {
    std::string text = heading(title) + "\n";
    for (const Notice& notice : notices) {
        text += noticeText(notice);
    }
    return text + (notices.empty() ? "  " + none + "\n" : "") + "\n";
}

/// The tips that are still open, and apart those that only serve another year.
std::string tipsText(const std::vector<Notice>& tips, int year) {
    const auto isMissed = [](const Notice& tip) { return tip.missed.value_or(false); };
    const auto middle = std::ranges::find_if(tips, isMissed);
    const std::vector<Notice> open(tips.begin(), middle);
    const std::vector<Notice> missed(middle, tips.end());
    std::string text =
        listText("Spartipps", open,
                 missed.empty() ? "Es ist kein Tipp mit einer Ersparnis bekannt."
                                : "Für " + std::to_string(year) + " ist kein Tipp mehr offen.");
    if (!missed.empty()) {
        text += listText("Zu spät für " + std::to_string(year) + " – ab " + std::to_string(year + 1)
                             + " beachten",
                         missed, "");
    }
    if (tips.size() > 1) {
        text += wrapped("Jede Ersparnis ist für sich allein gerechnet; zusammenzählen lassen sie "
                        "sich nicht.",
                        textWidth, "  ")
                + "\n";
    }
    return text;
}

std::string percent(const Decimal& fraction) {
    return MoneyFormat::number((fraction * 100).roundPlain(1)) + "%";
}

std::string marginalText(const MarginalRate& rate, TaxRegion region) {
    const std::string parts =
        region == TaxRegion::liechtenstein
            ? "Land " + percent(rate.canton) + ", Gemeinde " + percent(rate.municipality)
            : "Kanton " + percent(rate.canton) + ", Gemeinde " + percent(rate.municipality)
                  + ", Kirche " + percent(rate.church) + ", Bund " + percent(rate.federal);
    return wrapped("Von den letzten 1’000 Franken steuerbarem Einkommen gehen "
                       + percent(rate.total) + " an die Steuer (" + parts + ").",
                   textWidth, "  ");
}

/// What the tax changed by, by cause, and the lines that changed for the canton.
std::string changeText(const YearComparison& change, int year, TaxRegion region) {
    constexpr std::size_t nameWidth = 44;
    constexpr std::size_t shownLines = 12;
    const auto amount = [](const Decimal& value) { return MoneyFormat::chf(value, 2, false); };
    const auto row = [&](const std::string& name, const std::string& first,
                         const std::string& second) {
        std::string label = wrapped(name, nameWidth, "  ");
        label = label.empty() ? "  " : label.substr(0, label.size() - 1);
        const std::size_t last = label.rfind('\n') + 1;
        return label.substr(0, last)
               + withoutTrailingBlanks(padRight(label.substr(last), nameWidth + 2)
                                       + cell(first, columnWidth) + cell(second, columnWidth));
    };
    std::string text = heading("Veränderung gegenüber " + std::to_string(year - 1)) + "\n";
    text += row("", std::to_string(year - 1), std::to_string(year));
    text += row("Steuern", amount(change.before), amount(change.after)) + "\n";
    text += row("durch Zeitablauf", "", amount(change.ageing));
    text += row("durch die Angaben", "", amount(change.entries));
    text += row("durch Abzüge und Grenzen des Gesetzes", "", amount(change.rules));
    text += row("durch die Tarife", "", amount(change.tariff));
    text += row("durch Steuerfüsse und Zuschläge", "", amount(change.multipliers));
    text += row("zusammen", "", amount(change.difference())) + "\n";
    std::vector<LineChange> lines;
    std::ranges::copy_if(change.lines, std::back_inserter(lines), [](const LineChange& line) {
        return line.cantonBefore != line.cantonAfter;
    });
    if (!lines.empty() && region == TaxRegion::stGallen) {
        text += row("Geänderte Zeilen (Kanton)", "", "");
    }
    for (std::size_t i = 0; i < std::min(lines.size(), shownLines); ++i) {
        text += row(printable(lines[i].label), amount(lines[i].cantonBefore),
                    amount(lines[i].cantonAfter));
    }
    if (lines.size() > shownLines) {
        text += "  … und " + std::to_string(lines.size() - shownLines) + " weitere Zeilen\n";
    }
    return text + "\n";
}

/// Every tenth point of the curve, and where the tariffs go over to their next step.
std::string curveText(const IncomeCurve& curve) {
    constexpr std::size_t every = 10;
    std::string text = heading("Steuer über dem steuerbaren Einkommen") + "\n";
    const auto row = [](const std::string& income, const std::string& tax,
                        const std::string& rate) {
        return withoutTrailingBlanks(" " + cell(income, columnWidth) + cell(tax, columnWidth)
                                     + cell(rate, columnWidth));
    };
    text += row("Einkommen", "Steuer", "Grenzsatz");
    for (std::size_t i = 0; i < curve.points.size(); i += every) {
        const CurvePoint& point = curve.points[i];
        text += row(MoneyFormat::chf(point.income, 0, false), MoneyFormat::chf(point.tax, 2, false),
                    percent(point.marginal));
    }
    text += "\n";
    for (const TariffStep& step : curve.steps) {
        text += wrapped("ab " + MoneyFormat::chf(step.income, 0, false) + " " + step.text,
                        textWidth, "  ");
    }
    return text + "\n";
}

/// The plans that save something.
std::string plansText(const std::vector<BuyInPlan>& plans, TaxRegion region) {
    std::string text;
    for (const BuyInPlan& plan : plans) {
        std::string payments;
        for (const Decimal& payment : plan.payments) {
            payments += (payments.empty() ? "" : " + ") + MoneyFormat::chf(payment, 0, false);
        }
        text +=
            wrapped((plan.years == 1 ? std::string("In einem Jahr: ")
                                     : "In " + std::to_string(plan.years) + " Jahren: ")
                        + payments + " – spart " + MoneyFormat::chf(plan.saving, 2, true)
                        + (plan.beyondLimit > 0 ? "; " + MoneyFormat::chf(plan.beyondLimit, 0, true)
                                                      + " davon bleiben ohne Wirkung"
                                                : ""),
                    textWidth, "  ");
    }
    const BuyInPlan& best = Advisor::bestPlan(plans);
    text += "\n"
            + wrapped("Am meisten spart der Plan über "
                          + (best.years == 1 ? std::string("ein Jahr")
                                             : std::to_string(best.years) + " Jahre")
                          + ". Angenommen ist, dass die Jahre dem berechneten gleichen und die "
                            "Kasse den Einkauf annimmt.",
                      textWidth, "  ");
    if (std::ranges::any_of(plans, [](const BuyInPlan& plan) { return plan.beyondLimit > 0; })) {
        text += wrapped(region == TaxRegion::liechtenstein
                            ? "Ohne Wirkung bleibt, was in einem Jahr den Höchstbetrag für "
                              "Pensionskassen oder den steuerbaren Erwerb übersteigt."
                            : "Ohne Wirkung bleibt, was in einem Jahr das steuerbare Einkommen "
                              "übersteigt.",
                        textWidth, "  ");
    }
    // The law of Liechtenstein knows neither.
    if (region == TaxRegion::stGallen) {
        text += wrapped("Ein Vorbezug für Wohneigentum ist vorher zurückzuzahlen; nach jedem "
                        "Einkauf ist der Bezug als Kapital drei Jahre gesperrt.",
                        textWidth, "  ");
    }
    return text;
}

std::string planningText(const BuyInPlanning& planning, TaxRegion region) {
    std::string text = heading("Einkauf in die Pensionskasse") + "\n";
    if (planning.impossible) {
        text += wrapped(printable(*planning.impossible), textWidth, "  ");
    } else if (planning.plans.empty() || Advisor::bestPlan(planning.plans).saving <= 0) {
        text += wrapped("Ein Einkauf würde nichts sparen.", textWidth, "  ");
    } else {
        text += plansText(planning.plans, region);
    }
    return text + "\n";
}

} // namespace

std::string reviewText(const TaxCase& taxCase, const Review& review) {
    std::string text = listText("Prüfung " + std::to_string(taxCase.year), review.notices,
                                "Es ist nichts aufgefallen.");
    text += tipsText(review.tips, taxCase.year);
    if (review.change) {
        text += changeText(*review.change, taxCase.year, taxCase.taxRegion());
    } else if (review.changeMissing) {
        text += wrapped(*review.changeMissing, textWidth, "  ") + "\n";
    }
    text +=
        heading("Grenzsteuersatz") + "\n" + marginalText(review.marginalRate, taxCase.taxRegion());
    text += "\n";
    if (review.curve) {
        text += curveText(*review.curve);
    }
    if (review.buyInPlanning) {
        text += planningText(*review.buyInPlanning, taxCase.taxRegion());
    }
    if (!review.notComputed.empty()) {
        text += heading("Nicht berechnet") + "\n";
        for (const std::string& sentence : review.notComputed) {
            text += wrapped(sentence, textWidth, "  ");
        }
    }
    return text;
}

} // namespace fiscarel::cli
