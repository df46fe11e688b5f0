#include "TaxCore/model/Household.h"
#include "TaxCore/result/Sums.h"
#include "TaxCore/review/CheckParts.h"
#include "TaxCore/review/CheckText.h"

#include <algorithm>
#include <array>

namespace taxcore {

namespace review {

namespace {

/// Whether a text holds a word, given as `plainText` writes it.
bool mentions(std::string_view text, std::string_view word) {
    return plainText(text).find(word) != std::string::npos;
}

bool livesOnOtherIncome(const PersonIncome& income) {
    return income.selfEmployment != 0 || income.partnership != 0 || income.ahvPension != 0
           || !income.pensions.empty() || income.dailyAllowances != 0 || income.unemployment != 0;
}

/// The months of the year in which somebody of the household had a salary, first and last.
struct SalariedMonths {
    int first = 12;
    int last = 1;
    FieldPath firstPath{"year"};
    FieldPath lastPath{"year"};
};

/// Whether all that the person lives on are salaries paid within the year.
bool isSalariedWithinYear(const Adult& adult, int year) {
    return !livesOnOtherIncome(adult.income)
           && std::ranges::all_of(adult.income.salaries, [&](const SalaryCertificate& boxes) {
                  return boxes.periodFrom && boxes.periodTo && boxes.periodFrom->year() == year
                         && boxes.periodTo->year() == year;
              });
}

/// Absent when not all periods are known or when the household lives on something else too.
std::optional<SalariedMonths> salariedMonths(const CheckContext& c) {
    SalariedMonths months;
    bool any = false;
    for (const Adult& adult : c.adults) {
        if (!isSalariedWithinYear(adult, c.taxCase.year)) {
            return std::nullopt;
        }
        forEachItem(adult.income.salaries, [&](const SalaryCertificate& certificate, int index) {
            const auto path = [&](std::string_view field) {
                return FieldPath("income", "salaries", field).of(adult.number).at(index);
            };
            const int from = certificate.periodFrom->month();
            const int to = certificate.periodTo->month();
            if (!any || from < months.first) {
                months.first = from;
                months.firstPath = path("periodFrom");
            }
            if (!any || to > months.last) {
                months.last = to;
                months.lastPath = path("periodTo");
            }
            any = true;
        });
    }
    return any ? std::optional(months) : std::nullopt;
}

/// Salaries that begin or end a month or more from the turn of the year may tell of a move, once
/// the year is over.
void checkPartOfYear(CheckContext& c) {
    const auto months = salariedMonths(c);
    if (c.today.year() <= c.taxCase.year || !months || (months->first == 1 && months->last == 12)) {
        return;
    }
    c.info({"nicht-berechnet-unterjaehrig", "income", "Lohn nur für einen Teil des Jahres",
            "Die Lohnausweise decken nicht das ganze Jahr. Wer in diesem Jahr zu- oder weggezogen "
            "ist, wird nur für einen Teil davon besteuert; das berechnet das Programm nicht.",
            months->first > 1 ? months->firstPath : months->lastPath});
}

void checkProperties(CheckContext& c) {
    const bool here = c.stGallen != nullptr;
    forEachItem(c.taxCase.realEstate, [&](const RealEstate& property, int at) {
        if (here ? isInStGallen(property)
                 : isInLiechtenstein(property) || mayBeAtHome(property, *c.liechtenstein)) {
            return;
        }
        c.warning({itemId("nicht-berechnet-liegenschaft", at), "wealth",
                   here ? "Liegenschaft ausserhalb des Kantons" : "Liegenschaft im Ausland",
                   called(property, at) + " liegt nicht "
                       + (here ? "im Kanton St.Gallen. Die Ausscheidung zwischen Kantonen und "
                                 "Ländern"
                               : "in Liechtenstein. Die Ausscheidung zwischen den Ländern")
                       + " berechnet das Programm nicht; die Liegenschaft zählt hier voll.",
                   FieldPath("realEstate", "canton").at(at)});
    });
}

void checkEmployersInLiechtenstein(CheckContext& c, const Adult& adult) {
    const auto& salaries = adult.income.salaries;
    const auto found = std::ranges::find_if(salaries, &SalaryCertificate::isLiechtensteinEmployer);
    if (c.stGallen == nullptr || found == salaries.end()) {
        return;
    }
    c.info({adult.id("nicht-berechnet-arbeitgeber-li"), "income", "Arbeitgeber in Liechtenstein",
            "Der Lohn von " + adult.called()
                + " aus Liechtenstein zählt hier voll. Was das Abkommen mit Liechtenstein anders "
                  "verteilt, etwa bei öffentlichen Arbeitgebern, und eine dort erhobene Steuer "
                  "berechnet das Programm nicht.",
            FieldPath("income", "salaries", "employerInLiechtenstein")
                .of(adult.number)
                .at(static_cast<int>(found - salaries.begin()))});
}

void checkTaxAtSource(CheckContext& c, const Adult& adult) {
    forEachItem(adult.income.salaries, [&](const SalaryCertificate& certificate, int at) {
        if (mentions(certificate.remarks, "quellensteuer")) {
            c.info({itemId(adult.id("nicht-berechnet-quellensteuer"), at), "income",
                    "Quellensteuer auf dem Lohn",
                    "Die Bemerkungen zum " + called(certificate, at) + " von " + adult.called()
                        + " nennen eine Quellensteuer. Das Programm rechnet sie nicht an.",
                    FieldPath("income", "salaries", "remarks").of(adult.number).at(at)});
        }
    });
}

/// Foreign tax on dividends and interest, where the register names it.
void checkForeignWithholding(CheckContext& c) {
    constexpr std::array<std::string_view, 4> signs{"da-1", "da1", "quellensteuer",
                                                    "steuerrueckbehalt"};
    forEachItem(c.taxCase.securities, [&](const SecurityEntry& entry, int at) {
        const auto isNamed = [&](std::string_view sign) {
            return mentions(entry.description, sign) || mentions(entry.institution, sign);
        };
        if (c.stGallen != nullptr && isPrivateAsset(entry, c.taxCase)
            && std::ranges::any_of(signs, isNamed)) {
            c.info({itemId("nicht-berechnet-steueranrechnung", at), "wealth",
                    "Ausländische Quellensteuer",
                    called(entry, at)
                        + " nennt eine ausländische Quellensteuer. Ihre Anrechnung (Formular "
                          "DA-1) berechnet das Programm nicht.",
                    FieldPath("securities", "description").at(at)});
        }
    });
}

/// What changed since the return of the year before. StG SG Art. 20, DBG Art. 9 and 42
void checkYearBefore(CheckContext& c) {
    const TaxCase* const known = caseOf(c.otherYears, c.taxCase.year - 1);
    if (known == nullptr) {
        return;
    }
    const TaxCase& before = *known;
    if (before.taxRegion() != c.taxCase.taxRegion()) {
        c.warning({"nicht-berechnet-umzug", "family", "Umzug über die Grenze",
                   "Die Steuererklärung " + std::to_string(before.year)
                       + " gilt für eine andere Region. Bei einem "
                         "Umzug im Lauf des Jahres besteht hier nur für einen Teil davon "
                         "Steuerpflicht; das berechnet das Programm nicht.",
                   FieldPath("municipality")});
    }
    if (before.isJoint() != c.taxCase.isJoint()) {
        c.info({"nicht-berechnet-zivilstand", "family", "Anderer Zivilstand als im Vorjahr",
                "Im Vorjahr galt «" + std::string(label(before.civilStatus)) + "», jetzt «"
                    + std::string(label(c.taxCase.civilStatus))
                    + "». Gerechnet wird mit dem Stand am 31. Dezember; bei einem Todesfall im "
                      "Lauf des Jahres gelten besondere Regeln, die das Programm nicht berechnet.",
                FieldPath("civilStatus")});
    }
}

void checkDocuments(CheckContext& c) {
    forEachItem(c.documents, [&](const ReviewedDocument& document, int at) {
        const std::string named = "Der " + itemWithKind("Beleg", document.title, at);
        if (document.year != 0 && document.year != c.taxCase.year) {
            c.warning({itemId("beleg-anderes-jahr", at), "documents",
                       "Beleg aus einem anderen Jahr",
                       named + " gehört zum Jahr " + std::to_string(document.year)
                           + ". Bitte prüfen, ob er in das Steuerjahr "
                           + std::to_string(c.taxCase.year) + " gehört.",
                       std::nullopt});
        } else if (!document.applied) {
            c.warning({itemId("beleg-offen", at), "documents", "Beleg noch nicht übernommen",
                       named
                           + " ist eingelesen, aber seine Beträge sind noch nicht in die "
                             "Steuererklärung übernommen.",
                       std::nullopt});
        }
    });
}

} // namespace

void checkScope(CheckContext& c) {
    checkPartOfYear(c);
    checkYearBefore(c);
    for (const Adult& adult : c.adults) {
        checkEmployersInLiechtenstein(c, adult);
        checkTaxAtSource(c, adult);
    }
    checkProperties(c);
    checkForeignWithholding(c);
    checkDocuments(c);
}

} // namespace review

std::vector<std::string> Checks::notComputed(TaxRegion region) {
    std::vector<std::string> sentences{
        "Steuerpflicht für einen Teil des Jahres bei Zuzug oder Wegzug: Gerechnet wird immer das "
        "ganze Jahr.",
        "Todesfall im Lauf des Jahres: Die getrennten Steuererklärungen bis zum Todestag und "
        "danach werden nicht erstellt.",
        "Heirat, Trennung oder Scheidung im Lauf des Jahres: Gerechnet wird mit dem Zivilstand am "
        "31. Dezember; eine Aufteilung des Jahres wird nicht gemacht.",
    };
    const auto add = [&](std::initializer_list<const char*> more) {
        sentences.insert(sentences.end(), more.begin(), more.end());
    };
    if (region == TaxRegion::stGallen) {
        add({"Ausscheidung zwischen Kantonen und Ländern: Liegenschaften und Geschäfte ausserhalb "
             "des Kantons St.Gallen zählen hier voll.",
             "Anrechnung ausländischer Quellensteuern (Formular DA-1) und der Rückbehalt auf "
             "amerikanischen Dividenden.",
             "Quellensteuer auf dem Lohn: Sie wird weder berechnet noch an die Steuerrechnung "
             "angerechnet.",
             "Internationale Abkommen: Einkünfte, die ein anderes Land besteuern darf, sind "
             "nicht ausgenommen.",
             "Steuern, die ausserhalb der jährlichen Steuererklärung anfallen, wie "
             "Grundstückgewinnsteuer, Grundsteuer, Erbschafts- und Schenkungssteuer.",
             "Aufwandbesteuerung und die Besteuerung von Liquidationsgewinnen bei der Aufgabe "
             "eines Geschäfts."});
    } else {
        add({"Ausscheidung zwischen den Ländern: Liegenschaften im Ausland und Einkünfte von dort "
             "zählen hier voll.",
             "Anrechnung ausländischer Steuern und Quellensteuern sowie die schweizerische "
             "Verrechnungssteuer.",
             "Quellensteuer auf dem Lohn (Lohnsteuer): Sie wird weder berechnet noch an die "
             "Steuerrechnung angerechnet.",
             "Kapitalleistungen aus Vorsorge: Sie erscheinen nur zur Information, ihre Steuer wird "
             "nicht berechnet.",
             "Steuern, die ausserhalb der jährlichen Steuererklärung anfallen, wie die "
             "Grundstücksgewinnsteuer, und die Besteuerung nach dem Aufwand."});
    }
    return sentences;
}

} // namespace taxcore
