#include "Fiscarel_SG/pages/PageParts.h"
#include "Fiscarel_SG/pages/WorkCards.h"
#include "TaxCore/base/MoneyFormat.h"
#include "TaxCore/stgallen/WorkExpenses.h"

#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace forms;
using namespace taxcore;

namespace {

using Part = Decimal WorkExpenseBreakdown::*;
using Param = Decimal BerufskostenParams::*;

/// The entries of a person with what the salary certificates say.
struct Entries {
    Entries(const TaxCase& taxCase, int number)
        : work(workOf(taxCase, number)), facts(incomeOf(taxCase, number).salaries) {}

    const WorkExpenses& work;
    EmploymentFacts facts;

    bool drives() const { return work.carKmOneWay > 0 && work.carWorkDays > 0; }
};

std::string ofBoth(const RuleBook& rules, Param param) {
    return francsOfBoth(rules.cantonal.berufskosten.*param, rules.federal.berufskosten.*param);
}

std::string mostDays(const RuleBook* rules) {
    return sentence(rules, [](const RuleBook& book) {
        return mostDaysText(book.cantonal.berufskosten.arbeitstageMax);
    });
}

/// The figure of a part with a note made of the person's entries.
template <class Note>
Figures figureOf(int number, std::string name, Part part, Note note) {
    return workFigure(number, std::move(name), part,
                      [=](const TaxCase& taxCase, const TaxResult&, const WorkResult& work) {
                          return note(Entries(taxCase, number), work);
                      });
}

/// Cards stand while the person has a salary, or entries that would otherwise be out of sight.
FieldsCard personCard(int number, std::string title, std::string help,
                      const std::vector<forms::Field<WorkExpenses>>& fields, Figures figures) {
    FieldsCard card = fieldsCard(std::move(title), std::move(help),
                                 bindAll(workPlace(number), fields), std::move(figures));
    card.shown = [number](const TaxCase& taxCase) {
        return hasSalary(taxCase, number) || workOf(taxCase, number) != WorkExpenses{};
    };
    return card;
}

std::string rappen(const RuleBook& rules, Param param) {
    const auto text = [](const Decimal& francs) { return MoneyFormat::number(francs * 100); };
    const Decimal& canton = rules.cantonal.berufskosten.*param;
    const Decimal& federal = rules.federal.berufskosten.*param;
    return text(canton) + " Rappen"
           + (canton == federal ? std::string() : " (Bund " + text(federal) + " Rappen)");
}

/// The reasons the form knows, in its own words at length.
forms::Field<WorkExpenses> justification() {
    auto field = text<&WorkExpenses::carJustification>(
        "Begründung", "Weshalb der öffentliche Verkehr nicht möglich oder nicht zumutbar ist. Ohne "
                      "Begründung zählt die Fahrt nicht.");
    field.editor = Editor::choice;
    field.options = {{"", "– kein Grund gewählt", {}}};
    for (const auto& [reason, wording] :
         {std::pair("Kein öffentliches Verkehrsmittel",
                    "Fehlen eines öffentlichen Verkehrsmittels"),
          std::pair("Zeitersparnis über 60 Minuten pro Tag",
                    "Einsparung über 60 Minuten/Tag durch Motorfahrzeugbenützung"),
          std::pair("Auf Verlangen des Arbeitgebers",
                    "Ständige Benützung des Motorfahrzeugs auf Verlangen des Arbeitgebers"),
          std::pair("Krankheit / Gebrechlichkeit (Arztzeugnis)",
                    "Benützung öV wegen Krankheit oder Gebrechlichkeit unzumutbar "
                    "(Arztzeugnis)")}) {
        field.options.push_back({reason, reason, wording});
    }
    return field;
}

std::vector<forms::Field<WorkExpenses>> commuteFields(const RuleBook* rules) {
    using Work = WorkExpenses;
    const auto rides = [](const TaxCase&, const Work& work) { return work.useBicycle; };
    const auto drives = [](const TaxCase&, const Work& work) {
        return !work.carKmOneWay.isZero() || work.carWorkDays != 0;
    };
    return {
        amount<&Work::publicTransportCost>(
            "Öffentlicher Verkehr (Abo, Billette)",
            "Abo und Billette zwischen Wohn- und Arbeitsort im ganzen Jahr, gemäss Quittungen."),
        check<&Work::useBicycle>(
            "Velo / E-Bike / Kleinmotorrad"
                + withRules(rules,
                            [](const RuleBook& book) {
                                return " (bis " + ofBoth(book, &BerufskostenParams::veloMax) + ")";
                            }),
            "Auch zusätzlich, etwa für den Weg zum Bahnhof."),
        amount<&Work::bicycleCost>(
            "Kosten Velo", "Die Pauschale; mehr zählt nicht."
                               + sentence(rules,
                                          [](const RuleBook& book) {
                                              return "Sie beträgt "
                                                     + ofBoth(book, &BerufskostenParams::veloMax)
                                                     + ".";
                                          }))
            .usableWhen(rides),
        decimal<&Work::carKmOneWay>(
            "Auto / Motorrad: einfacher Weg", "km",
            "Kilometer von zu Hause zum Arbeitsort, eine Strecke."
                + sentence(rules,
                           [](const RuleBook& book) {
                               return "Das Auto zählt mit "
                                      + rappen(book, &BerufskostenParams::autoProKm)
                                      + ", das Motorrad mit "
                                      + rappen(book, &BerufskostenParams::motorradProKm)
                                      + " pro Kilometer.";
                           })),
        decimal<&Work::carTripsPerDay>("Fahrten pro Tag", "Fahrten",
                                       "Hin und zurück sind zwei Fahrten; vier nur, wenn Sie über "
                                       "Mittag nach Hause fahren.")
            .usableWhen(drives),
        integer<&Work::carWorkDays>("Arbeitstage mit Fahrt", "Tage",
                                    "Nur Tage, an denen Sie zur Arbeit gefahren sind, ohne "
                                    "Home-Office und Ferien."
                                        + mostDays(rules))
            .usableWhen(drives),
        check<&Work::carIsMotorbike>("Motorrad statt Auto",
                                     "Für das Motorrad gilt ein tieferer Ansatz pro Kilometer.")
            .usableWhen(drives),
        justification().usableWhen(drives),
    };
}

/// "Gekürzt auf Fr. 8’000, Bund auf Fr. 3’300 (Kosten 9’240)"; empty when nothing is cut.
std::string capNote(const WorkResult& work) {
    const auto isCut = [](const WorkExpenseBreakdown& b) { return b.commute < b.commuteUncapped; };
    const bool federalIsCut = work.federal && isCut(*work.federal);
    std::string text;
    if (isCut(work.canton)) {
        text = "Gekürzt auf " + francsText(work.canton.commute);
    }
    if (federalIsCut) {
        text += (text.empty() ? "Beim Bund gekürzt auf " : ", Bund auf ")
                + francsText(work.federal->commute);
    }
    return text.empty()
               ? text
               : text + " (Kosten " + work.text(&WorkExpenseBreakdown::commuteUncapped) + ")";
}

std::string commuteNote(const Entries& it, const WorkResult& work) {
    const bool entered =
        it.work.publicTransportCost != 0 || it.work.useBicycle || it.work.carKmOneWay != 0;
    if (it.facts.freeTransport && entered) {
        return "Feld F im Lohnausweis ist angekreuzt – kein Abzug für den Arbeitsweg.";
    }
    std::string cap = capNote(work);
    if (cap.empty() && it.drives() && !isVehicleJustified(it.work)) {
        return std::string("Ohne Begründung zählt das ")
               + (it.work.carIsMotorbike ? "Motorrad" : "Auto") + " nicht.";
    }
    return cap;
}

FieldsCard commuteCard(const RuleBook* rules, int number) {
    return personCard(
        number, "1. Arbeitsweg",
        withRules(rules,
                  [](const RuleBook& book) {
                      const auto most = [](const DeductionParams& params) {
                          return "Fahrkosten max. " + francsText(params.berufskosten.fahrkostenMax);
                      };
                      return "Kanton: " + most(book.cantonal) + " · Bund: " + most(book.federal);
                  }),
        commuteFields(rules),
        figureOf(number, "Abzug Arbeitsweg", &WorkExpenseBreakdown::commute, commuteNote));
}

struct MealRate {
    Param perDay;
    Param perYear;
};

/// Null when nothing is deducted.
const MealRate* mealRate(MealSituation situation) {
    using P = BerufskostenParams;
    static constexpr MealRate full{&P::verpflegungProTag, &P::verpflegungMax};
    static constexpr MealRate reduced{&P::verpflegungVerbilligtProTag,
                                      &P::verpflegungVerbilligtMax};
    static constexpr MealRate shift{&P::schichtProTag, &P::schichtMax};
    switch (situation) {
    case MealSituation::auswaerts:
        return &full;
    case MealSituation::verbilligt:
        return &reduced;
    case MealSituation::schicht:
        return &shift;
    case MealSituation::keine:
        break;
    }
    return nullptr;
}

/// The situations with their rates: "Auswärts essen (Fr. 15 pro Tag)".
forms::Field<WorkExpenses> mealsField(const RuleBook* rules) {
    std::string help = "Was an Arbeitstagen meistens gilt.";
    help += sentence(rules, [](const RuleBook& book) {
        return "Im Jahr zählen höchstens " + ofBoth(book, &BerufskostenParams::verpflegungMax)
               + ", verbilligt " + ofBoth(book, &BerufskostenParams::verpflegungVerbilligtMax)
               + ", bei Schicht- oder Nachtarbeit " + ofBoth(book, &BerufskostenParams::schichtMax)
               + ".";
    });
    auto field = choice<&WorkExpenses::meals>("Situation über Mittag", help);
    for (Option& option : field.options) {
        const auto situation = enumFromRaw<MealSituation>(option.raw);
        if (const MealRate* rate = mealRate(*situation); rate != nullptr && rules != nullptr) {
            option.label += " (" + ofBoth(*rules, rate->perDay) + " pro Tag)";
        }
    }
    return field;
}

/// What makes the meals count for less than what was entered.
std::string mealsNote(const RuleBook* rules, const Entries& it) {
    const MealSituation counts = mealSituation(it.facts, it.work);
    const MealRate* rate = mealRate(counts);
    if (rate == nullptr || it.work.mealDays <= 0) {
        return {};
    }
    std::string note;
    if (counts != it.work.meals) {
        note = "Feld G im Lohnausweis ist angekreuzt – es gilt der verbilligte Ansatz.";
    }
    if (rules != nullptr) {
        const BerufskostenParams& params = rules->cantonal.berufskosten;
        const int days = std::min(it.work.mealDays, params.arbeitstageMax);
        if (params.*rate->perDay * days > params.*rate->perYear) {
            note += (note.empty() ? "" : " ")
                    + ("Gekürzt auf " + francsText(params.*rate->perYear) + " im Jahr.");
        } else if (days < it.work.mealDays) {
            note += (note.empty() ? "" : " ") + ("Es zählen " + std::to_string(days) + " Tage.");
        }
    }
    return note;
}

FieldsCard mealsCard(const RuleBook* rules, int number) {
    const auto eats = [](const TaxCase&, const WorkExpenses& work) {
        return work.meals != MealSituation::keine || work.mealDays != 0;
    };
    return personCard(
        number, "2. Verpflegung", {},
        {mealsField(rules),
         integer<&WorkExpenses::mealDays>("Tage mit auswärtiger Verpflegung", "Tage",
                                          "Nur Tage im Betrieb – an Home-Office-Tagen entstehen "
                                          "keine Mehrkosten."
                                              + mostDays(rules))
             .usableWhen(eats)},
        figureOf(number, "Abzug Verpflegung", &WorkExpenseBreakdown::meals,
                 [rules](const Entries& it, const WorkResult&) { return mealsNote(rules, it); }));
}

/// "Fr. 700 plus 10% des Nettolohns, höchstens Fr. 2’400"
std::string flatRateOf(const BerufskostenParams& params) {
    std::string text = percentText(params.uebrigePauschalSatz) + " des Nettolohns";
    if (params.uebrigePauschalBasis > 0) {
        text = francsText(params.uebrigePauschalBasis) + " plus " + text;
    }
    if (params.uebrigePauschalMin > params.uebrigePauschalBasis) {
        text += ", mindestens " + francsText(params.uebrigePauschalMin);
    }
    return text + ", höchstens " + francsText(params.uebrigePauschalMax);
}

std::string otherNote(const Entries& it, const WorkResult&) {
    if (!it.facts.employed) {
        return {};
    }
    if (!it.facts.hasMain) {
        return "Ohne Haupterwerb gibt es keinen Abzug.";
    }
    return it.facts.flatRateExpenses && !it.work.useActualOtherCosts
               ? "Der Arbeitgeber zahlt pauschale Spesen – die Pauschale entfällt."
               : std::string();
}

FieldsCard otherCard(const RuleBook* rules, int number) {
    const auto isActual = [](const TaxCase&, const WorkExpenses& work) {
        return work.useActualOtherCosts || !work.actualOtherCosts.isZero();
    };
    return personCard(
        number, "3. Übrige Berufskosten",
        withRules(rules,
                  [](const RuleBook& book) {
                      return "Kanton: " + flatRateOf(book.cantonal.berufskosten)
                             + " · Bund: " + flatRateOf(book.federal.berufskosten);
                  }),
        {check<&WorkExpenses::useActualOtherCosts>(
             "Tatsächliche Kosten (Aufstellung beilegen)",
             "Statt der Pauschale für Berufskleider, Werkzeuge, Fachliteratur und ein "
             "Arbeitszimmer. Es lohnt sich nur, wenn die belegten Kosten höher sind."),
         amount<&WorkExpenses::actualOtherCosts>(
             "Übrige Berufskosten", "Die Summe der Belege im ganzen Jahr; sie zählt nur mit dem "
                                    "Häkchen darüber.")
             .usableWhen(isActual)},
        figureOf(number, "Abzug übrige Berufskosten", &WorkExpenseBreakdown::other, otherNote));
}

// Wochenaufenthalt und Nebenerwerb

std::string weeklyMealsHelp(const RuleBook* rules) {
    return "Tage, an denen Sie am Arbeitsort auch am Abend essen."
           + sentence(rules, [](const RuleBook& book) {
                 using P = BerufskostenParams;
                 return "Pro Tag " + ofBoth(book, &P::wochenaufenthaltVerpflegungProTag)
                        + ", im Jahr höchstens " + ofBoth(book, &P::wochenaufenthaltVerpflegungMax)
                        + "; verbilligt "
                        + ofBoth(book, &P::wochenaufenthaltVerpflegungVerbilligtProTag)
                        + ", höchstens "
                        + ofBoth(book, &P::wochenaufenthaltVerpflegungVerbilligtMax) + ".";
             });
}

std::string roomLabel(const RuleBook* rules) {
    return "Zimmer pro Monat" + withRules(rules, [](const RuleBook& book) {
               const BerufskostenParams& params = book.cantonal.berufskosten;
               return " (" + francsText(params.wochenaufenthaltZimmerMinProMonat) + " bis "
                      + plainMoney(params.wochenaufenthaltZimmerMaxProMonat) + ")";
           });
}

std::string roomNote(const RuleBook* rules, const Entries& it) {
    const Decimal& rent = it.work.weeklyStayRoomPerMonth;
    if (rules == nullptr || !it.work.weeklyStay || rent <= 0) {
        return {};
    }
    const BerufskostenParams& params = rules->cantonal.berufskosten;
    const Decimal counted = std::min(std::max(rent, params.wochenaufenthaltZimmerMinProMonat),
                                     params.wochenaufenthaltZimmerMaxProMonat);
    return counted == rent ? std::string()
                           : "Das Zimmer zählt mit " + francsText(counted) + " pro Monat.";
}

FieldsCard weeklyStayCard(const RuleBook* rules, int number) {
    using Work = WorkExpenses;
    const auto stays = [](const TaxCase&, const Work& work) { return work.weeklyStay; };
    return personCard(
        number, "Wochenaufenthalt", {},
        {check<&Work::weeklyStay>("Wochenaufenthalt am Arbeitsort",
                                  "Wenn Sie während der Woche am Arbeitsort übernachten und am "
                                  "Wochenende nach Hause zurückkehren."),
         integer<&Work::weeklyStayMonths>("Monate mit Zimmer", "Monate",
                                          "So viele Monate des Jahres war das Zimmer gemietet.")
             .when(stays),
         amount<&Work::weeklyStayRoomPerMonth>(
             roomLabel(rules), "Der ortsübliche Mietzins für ein Zimmer, gemäss Mietvertrag.")
             .when(stays),
         integer<&Work::weeklyStayDays>("Tage mit Verpflegung am Arbeitsort", "Tage",
                                        weeklyMealsHelp(rules))
             .when(stays),
         check<&Work::weeklyStayMealsReduced>(
             "Mittagessen durch Arbeitgeber verbilligt",
             "Ankreuzen bei Kantine oder Lunch-Checks (Feld G im Lohnausweis).")
             .when(stays)},
        figureOf(number, "Abzug Wochenaufenthalt", &WorkExpenseBreakdown::weeklyStay,
                 [rules](const Entries& it, const WorkResult&) { return roomNote(rules, it); }));
}

FieldsCard sideJobCard(const RuleBook* rules, int number) {
    const auto isActual = [](const TaxCase&, const WorkExpenses& work) {
        return work.sideJobUseActual || !work.sideJobActualCosts.isZero();
    };
    const std::string rate = withRules(rules, [](const RuleBook& book) {
        return " (" + percentText(book.cantonal.berufskosten.nebenerwerbSatz) + ")";
    });
    FieldsCard card = personCard(
        number, "Nebenerwerb", {},
        {check<&WorkExpenses::sideJobUseActual>(
             "Nebenerwerb: tatsächliche Kosten statt Pauschale" + rate,
             "Die Pauschale rechnet sich vom Nettolohn der Nebenerwerbe."
                 + sentence(rules,
                            [](const RuleBook& book) {
                                using P = BerufskostenParams;
                                return "Sie beträgt mindestens " + ofBoth(book, &P::nebenerwerbMin)
                                       + " und höchstens " + ofBoth(book, &P::nebenerwerbMax) + ".";
                            })),
         amount<&WorkExpenses::sideJobActualCosts>(
             "Kosten Nebenerwerb", "Die Summe der Belege im ganzen Jahr; sie zählt nur mit dem "
                                   "Häkchen darüber.")
             .usableWhen(isActual)},
        workFigure(number, "Abzug Nebenerwerb", &WorkExpenseBreakdown::sideJob));
    card.shown = [number](const TaxCase& taxCase) {
        const Entries it(taxCase, number);
        return it.facts.hasSide || it.work.sideJobUseActual || !it.work.sideJobActualCosts.isZero();
    };
    return card;
}

FieldsCard totalCard(int number) {
    return {.title = "Total Berufskosten",
            .figures =
                [number](const TaxCase&, const TaxResult& result) {
                    const auto work = workResultOf(result, number);
                    return work ? std::vector<Figure>{{"Abzug total", work->total(), {}}}
                                : std::vector<Figure>{};
                },
            .shown = [number](const TaxCase& taxCase) { return hasSalary(taxCase, number); }};
}

} // namespace

std::vector<Card> workCardsStGallen(const RuleBook* rules, int number) {
    return {needsSalaryCard(number),  commuteCard(rules, number),    mealsCard(rules, number),
            otherCard(rules, number), weeklyStayCard(rules, number), sideJobCard(rules, number),
            totalCard(number)};
}

} // namespace fiscarel::pages
