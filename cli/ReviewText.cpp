#include "cli/ReviewText.h"

#include "TaxCore/base/MoneyFormat.h"
#include "cli/Printable.h"
#include "cli/TextTable.h"

namespace fiscarel::cli {

namespace {

using namespace taxcore;

constexpr std::size_t textWidth = 92;

std::string noticeText(const Notice& notice) {
    const std::string mark = notice.saving ? "spart " + MoneyFormat::chf(*notice.saving, 2, true)
                                           : std::string(label(notice.level));
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

std::string marginalText(const MarginalRate& rate, TaxRegion region) {
    const auto percent = [](const Decimal& fraction) {
        return MoneyFormat::number((fraction * 100).roundPlain(1)) + "%";
    };
    const std::string parts =
        region == TaxRegion::liechtenstein
            ? "Land " + percent(rate.canton) + ", Gemeinde " + percent(rate.municipality)
            : "Kanton " + percent(rate.canton) + ", Gemeinde " + percent(rate.municipality)
                  + ", Kirche " + percent(rate.church) + ", Bund " + percent(rate.federal);
    return wrapped("Von den letzten 1’000 Franken steuerbarem Einkommen gehen "
                       + percent(rate.total) + " an die Steuer (" + parts + ").",
                   textWidth, "  ");
}

} // namespace

std::string reviewText(const TaxCase& taxCase, const Review& review) {
    std::string text = listText("Prüfung " + std::to_string(taxCase.year), review.notices,
                                "Es ist nichts aufgefallen.");
    text += listText("Spartipps", review.tips, "Es ist kein Tipp mit einer Ersparnis bekannt.");
    text +=
        heading("Grenzsteuersatz") + "\n" + marginalText(review.marginalRate, taxCase.taxRegion());
    if (!review.notComputed.empty()) {
        text += "\n" + heading("Nicht berechnet") + "\n";
        for (const std::string& sentence : review.notComputed) {
            text += wrapped(sentence, textWidth, "  ");
        }
    }
    return text;
}

} // namespace fiscarel::cli
