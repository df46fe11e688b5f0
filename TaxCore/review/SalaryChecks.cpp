#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/base/Text.h"
#include "TaxCore/result/Sums.h"
#include "TaxCore/review/CheckParts.h"
#include "TaxCore/review/CheckText.h"
#include "TaxCore/review/PensionLimits.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace taxcore::review {

namespace {

// Salaries on which no contributions need be taken off; 2025 and 2026.
constexpr int smallSalary = 2'500;          // AHVV Art. 34d Abs. 1, from one employer
constexpr int pensionersAllowance = 16'800; // AHVV Art. 6quater: 1'400 a month

// Compulsory insurance with a pension fund; 2025 and 2026.
constexpr int pensionFundThreshold = 22'680; // BVG Art. 2 Abs. 1
constexpr int firstSavingAge = 25;           // BVG Art. 7 Abs. 1 and 16: in the year of turning it

// Boxes 8, 9, 10.1, 10.2 and 11, each printed in whole francs, may be half a franc off.
const Decimal roundingOfBoxes = 2.5_dec;

struct Certificate {
    const Adult& adult;
    const SalaryCertificate& boxes;
    int index;

    std::string id(std::string_view stem) const { return itemId(adult.id(stem), index); }
    FieldPath path(std::string_view field) const {
        return FieldPath("income", "salaries", field).of(adult.number).at(index);
    }
    /// "Lohnausweis «Muster AG» von Anna Muster"
    std::string called() const { return review::called(boxes, index) + " von " + adult.called(); }
};

void checkEmployer(CheckContext& c, const Certificate& it) {
    if (isBlank(it.boxes.employer)) {
        c.warning({it.id("lohn-arbeitgeber-fehlt"), "income", "Arbeitgeber fehlt",
                   "Beim " + it.called() + " fehlt der Arbeitgeber. Bitte den Namen eintragen.",
                   it.path("employer")});
    }
}

void checkPeriod(CheckContext& c, const Certificate& it) {
    const auto& from = it.boxes.periodFrom;
    const auto& to = it.boxes.periodTo;
    // What a side job brings is the same over the year; only the main one tells of gaps.
    if (it.boxes.isMainEmployment && (!from || !to)) {
        c.info({it.id("lohn-periode-fehlt"), "income", "Lohnperiode unvollständig",
                "Beim " + it.called()
                    + " fehlt die Periode. Mit Beginn und Ende lassen sich Lücken und doppelte "
                      "Ausweise erkennen.",
                it.path(from ? "periodTo" : "periodFrom")});
    }
    if (from && to && *from > *to) {
        c.warning({it.id("lohn-periode-verkehrt"), "income", "Lohnperiode verkehrt",
                   "Beim " + it.called()
                       + " liegt der Beginn der Periode nach dem Ende. Bitte die Daten prüfen.",
                   it.path("periodFrom")});
    }
    const auto isElsewhere = [&](const std::optional<Date>& day) {
        return day && day->year() != c.taxCase.year;
    };
    if (isElsewhere(from) || isElsewhere(to)) {
        c.warning({it.id("lohn-periode-jahr"), "income", "Lohnausweis aus einem anderen Jahr?",
                   "Die Periode beim " + it.called() + " liegt nicht ganz im Steuerjahr "
                       + std::to_string(c.taxCase.year) + ". Bitte Ausweis und Daten prüfen.",
                   it.path(isElsewhere(from) ? "periodFrom" : "periodTo")});
    }
}

/// Only a net salary was typed, which in St.Gallen is all that the calculation needs.
bool isNetOnly(const CheckContext& c, const SalaryCertificate& boxes) {
    return c.stGallen != nullptr && boxes.netSalaryOverride;
}

void checkSocialContributions(CheckContext& c, const Certificate& it) {
    const auto age = ageOf(it.adult, c.taxCase.year);
    const int free = age && *age >= referenceAge ? pensionersAllowance : smallSalary;
    if (it.boxes.grossSalary <= free || !it.boxes.socialContributions.isZero()
        || (age && *age < firstContributionAge) || isNetOnly(c, it.boxes)) {
        return;
    }
    c.warning({it.id("lohn-ahv-fehlt"), "income", "Lohn ohne AHV-Beiträge",
               "Beim " + it.called() + " sind " + MoneyFormat::fr(it.boxes.grossSalary)
                   + " Bruttolohn eingetragen, aber keine Beiträge in Ziffer 9. Bitte mit dem "
                     "Lohnausweis vergleichen.",
               it.path("socialContributions")});
}

/// Whoever has no fund ticked may have overlooked it; only the Swiss threshold is known.
void checkPensionContributions(CheckContext& c, const Certificate& it) {
    const auto age = ageOf(it.adult, c.taxCase.year);
    const bool hasFund = it.adult.person.hasPensionFund;
    if ((!hasFund && c.stGallen == nullptr) || !it.boxes.isMainEmployment
        || it.boxes.grossSalary <= pensionFundThreshold || !it.boxes.pensionContributions.isZero()
        || (age && (*age < firstSavingAge || *age >= referenceAge)) || isNetOnly(c, it.boxes)) {
        return;
    }
    c.warning({it.id("lohn-bvg-fehlt"), "income", "Lohn ohne Beiträge an die Pensionskasse",
               "Beim " + it.called() + " sind " + MoneyFormat::fr(it.boxes.grossSalary)
                   + " Bruttolohn eingetragen, aber "
                   + (hasFund ? "keine Beiträge in Ziffer 10.1, obwohl eine Pensionskasse "
                                "angekreuzt ist. Bitte mit dem Lohnausweis vergleichen."
                              : "weder Beiträge in Ziffer 10.1 noch eine Pensionskasse. Ab "
                                    + MoneyFormat::fr(pensionFundThreshold)
                                    + " ist sie in der Regel obligatorisch; bitte mit dem "
                                      "Lohnausweis vergleichen."),
               it.path("pensionContributions")});
}

void checkNetSalary(CheckContext& c, const Certificate& it) {
    const auto& entered = it.boxes.netSalaryOverride;
    if (!entered || it.boxes.grossSalary.isZero()) {
        return;
    }
    const Decimal computed = it.boxes.grossSalary - it.boxes.socialContributions
                             - it.boxes.pensionContributions - it.boxes.pensionBuyIn;
    const Decimal gap = *entered - computed;
    if (gap <= roundingOfBoxes && -gap <= roundingOfBoxes) {
        return;
    }
    c.warning({it.id("lohn-netto-weicht-ab"), "income", "Nettolohn stimmt nicht überein",
               "Beim " + it.called() + " sind in Ziffer 11 " + MoneyFormat::fr(*entered)
                   + " eingetragen; die Ziffern 8 − 9 − 10.1 − 10.2 ergeben "
                   + MoneyFormat::fr(computed) + ". Bitte mit dem Lohnausweis vergleichen.",
               it.path("netSalaryOverride")});
}

void checkGrossSalary(CheckContext& c, const Certificate& it) {
    const SalaryCertificate& boxes = it.boxes;
    const bool othersFilled =
        !boxes.socialContributions.isZero() || !boxes.pensionContributions.isZero()
        || !boxes.pensionBuyIn.isZero() || boxes.netSalaryOverride.value_or(0) != 0;
    // Whoever writes a net salary of 0 means it.
    if (boxes.grossSalary.isZero() && (othersFilled || !boxes.netSalaryOverride)) {
        c.warning({it.id("lohn-brutto-fehlt"), "income", "Bruttolohn fehlt",
                   "Beim " + it.called() + " fehlt der Bruttolohn (Ziffer 8)"
                       + (othersFilled ? ", andere Ziffern sind ausgefüllt. Bitte ergänzen."
                                       : ". Bitte ergänzen oder den Lohnausweis entfernen."),
                   it.path("grossSalary")});
    }
}

/// What two entries of one certificate have in common.
auto contentOf(const SalaryCertificate& boxes) {
    return std::tie(boxes.employer, boxes.periodFrom, boxes.periodTo, boxes.grossSalary,
                    boxes.socialContributions, boxes.pensionContributions, boxes.netSalaryOverride);
}

bool areTheSame(const SalaryCertificate& a, const SalaryCertificate& b) {
    return !a.grossSalary.isZero() && contentOf(a) == contentOf(b);
}

bool overlap(const SalaryCertificate& a, const SalaryCertificate& b) {
    const auto isKnown = [](const SalaryCertificate& boxes) {
        return boxes.isMainEmployment && boxes.periodFrom && boxes.periodTo;
    };
    return isKnown(a) && isKnown(b) && !areTheSame(a, b) && *a.periodFrom <= *b.periodTo
           && *b.periodFrom <= *a.periodTo;
}

/// Two part-time jobs are in order; how much work each takes is not known.
void checkOverlap(CheckContext& c, const Certificate& it) {
    constexpr int most = 100; // more jobs than anybody has: a damaged file must not take for ever
    const auto& all = it.adult.income.salaries;
    if (std::any_of(all.begin(), all.begin() + std::min(it.index, most),
                    [&](const SalaryCertificate& earlier) { return overlap(earlier, it.boxes); })) {
        c.info({it.id("lohn-ueberschneidung"), "income", "Zwei Haupterwerbe gleichzeitig",
                "Die Periode beim " + it.called()
                    + " überschneidet sich mit einem anderen Haupterwerb. Bei zwei Teilzeitstellen "
                      "ist das richtig; sonst bitte prüfen, ob eine davon Nebenerwerb ist.",
                it.path("isMainEmployment")});
    }
}

} // namespace

void checkSalaries(CheckContext& c, const Adult& adult) {
    forEachItem(adult.income.salaries, [&](const SalaryCertificate& boxes, int index) {
        const Certificate it{adult, boxes, index};
        checkEmployer(c, it);
        checkPeriod(c, it);
        checkGrossSalary(c, it);
        checkSocialContributions(c, it);
        checkPensionContributions(c, it);
        checkNetSalary(c, it);
        checkOverlap(c, it);
    });
}

void checkRepeatedSalaries(CheckContext& c) {
    std::set<decltype(contentOf(SalaryCertificate{}))> seen;
    for (const Adult& adult : c.adults) {
        forEachItem(adult.income.salaries, [&](const SalaryCertificate& boxes, int index) {
            const Certificate it{adult, boxes, index};
            const bool isNew = seen.insert(contentOf(boxes)).second;
            if (!isNew && !boxes.grossSalary.isZero()) {
                c.warning({it.id("lohn-doppelt"), "income", "Lohnausweis zweimal erfasst?",
                           "Der " + it.called()
                               + " stimmt in Arbeitgeber, Periode und Beträgen mit einem anderen "
                                 "überein. Falls er zweimal erfasst ist, bitte einen entfernen.",
                           it.path("grossSalary")});
            }
        });
    }
}

} // namespace taxcore::review
