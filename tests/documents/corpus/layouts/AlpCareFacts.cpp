#include "tests/documents/corpus/layouts/AlpFacts.h"
#include "tests/documents/corpus/layouts/TownFacts.h"

#include <QLocale>
#include <algorithm>

// Facts of day care, day families, playgroups and holiday camps.

namespace corpus {
namespace {

/// Of an age at which children are looked after.
Someone young(Draft& draft, Someone child, int youngest, int oldest) {
    child.birth = QDate(draft.year - draft.random.between(youngest, oldest), child.birth.month(),
                        std::min(28, child.birth.day()));
    return child;
}

/// From whom the paper is, and children of the right age.
void careBy(Draft& draft, const std::vector<QString>& names, int youngest, int oldest) {
    sentBy(draft, "kinderbetreuung", names);
    draft.family.child = young(draft, draft.family.child, youngest, oldest);
    draft.family.secondChild = young(draft, draft.family.secondChild, youngest, oldest);
}

std::vector<Someone> threeChildren(Draft& draft) {
    std::vector<Someone> children = childrenOf(draft, 3);
    children[2] = young(draft, children[2], 1, 8);
    return children;
}

void careHouse(Draft& draft) {
    careBy(draft,
           {draft.t("Kinderhort Zwergenstube", "Crèche Les Marmottes", "Asilo nido Le Lucciole"),
            draft.t("Kita Bärentatze AG", "Garderie Arc-en-Ciel", "Nido Tartaruga"),
            draft.t("Krippe Kleeblatt", "Espace Enfance du Vallon", "Centro extrascolastico Colle"),
            draft.t("Betreuungsverein Hochmoor", "Accueil familial de jour des Prés",
                    "Famiglie diurne Valle")},
           1, 8);
}

void noteCare(Draft& draft, const Someone& child, Cents paid) {
    draft.record("child", child).amount("childcareCosts", paid);
}

void acceptCare(Draft& draft, Cents paid) {
    TruthRecord care;
    care.kind = "child";
    care.year = draft.year;
    draft.truth.accepted.push_back(care.amount("childcareCosts", paid));
}

QStringList months(const Draft& draft) {
    QStringList names;
    for (int m = 1; m <= 12; ++m) {
        names += draft.longDate(QDate(draft.year, m, 1)).section(' ', 1, 1);
    }
    return names;
}

Facts childFacts(const Someone& child) {
    Facts facts;
    facts.texts = {{"who", child.name()}, {"first", child.first}};
    facts.dates["born"] = child.birth;
    return facts;
}

void nameChildren(Facts& facts, const std::vector<Someone>& children) {
    for (size_t k = 0; k < children.size(); ++k) {
        const QString place = QString::number(k + 1);
        facts.texts["kid" + place] = children[k].name();
        facts.texts["first" + place] = children[k].first;
        facts.dates["born" + place] = children[k].birth;
    }
}

} // namespace

QString englishDate(QDate day) { return QLocale::c().toString(day, "d MMMM yyyy"); }

Facts alpCostKindsFacts(Draft& draft) {
    careHouse(draft);
    Facts facts;
    const std::vector<Someone> children = threeChildren(draft);
    nameChildren(facts, children);
    struct CostKind {
        const char* what;
        const char* total; ///< of which sums it is a part
        int low, high;
    };
    const CostKind kinds[] = {{"Betreuung Montag bis Freitag", "n", 1900, 9800},
                              {"Ferienbetreuung", "n", 120, 900},
                              {"Mahlzeiten", "m", 240, 1400},
                              {"Windeln, Ausflüge", "m", 20, 160}};
    for (const CostKind& kind : kinds) {
        Facts row;
        row.texts["what"] = kind.what;
        for (size_t k = 1; k <= 3; ++k) {
            const QString place = QString::number(k);
            const Cents part = draft.odd(kind.low, kind.high);
            row.amounts["a" + place] = part;
            row.amounts["sum"] += part;
            facts.amounts[kind.total + place] += part;
            facts.amounts[kind.total] += part;
            facts.amounts["p" + place] += part;
            facts.amounts["paid"] += part;
        }
        facts.lists[QString(kind.total) == "n" ? "care" : "extras"].push_back(row);
    }
    for (size_t k = 0; k < 3; ++k) {
        const QString place = QString::number(k + 1);
        const Cents aid = draft.odd(90, 800);
        facts.amounts["aid" + place] = aid;
        facts.amounts["aid"] += aid;
        for (const char* name : {"n", "p"}) {
            facts.amounts[name + place] -= aid;
        }
        facts.amounts["n"] -= aid;
        facts.amounts["paid"] -= aid;
        noteCare(draft, children[k], facts.amounts["n" + place]);
    }
    return facts;
}

Facts alpMonthListFacts(Draft& draft) {
    careHouse(draft);
    Facts facts;
    const std::vector<Someone> children = childrenOf(draft, 2);
    nameChildren(facts, children);
    const Cents rates[] = {draft.odd(55, 118), draft.odd(40, 96)};
    const QStringList names = months(draft);
    for (int m = 0; m < 12; ++m) {
        for (size_t k = 0; k < 2; ++k) {
            Facts entry;
            const int days = draft.random.between(2, 14);
            entry.texts = {{"month", k == 0 ? names[m] : QString()},
                           {"first", children[k].first},
                           {"days", QString::number(days)}};
            entry.amounts["part"] = days * rates[k];
            facts.amounts[k == 0 ? "t1" : "t2"] += entry.amounts["part"];
            facts.amounts["total"] += entry.amounts["part"];
            facts.lists["entries"].push_back(entry);
        }
    }
    noteCare(draft, children[0], facts.amounts["t1"]);
    noteCare(draft, children[1], facts.amounts["t2"]);
    return facts;
}

Facts alpMonthBillFacts(Draft& draft) {
    careHouse(draft);
    // One month is not the year: its amount may be offered, but the year is not known from it.
    draft.truth.kind = "anderes";
    draft.truth.alsoKinds = QStringList{"kinderbetreuung"};
    const int month = draft.random.between(1, 12);
    draft.dated = QDate(draft.year, month, 1).addMonths(1).addDays(draft.random.between(1, 6));
    Facts facts;
    const int days = draft.random.between(5, 17);
    const Cents rate = draft.odd(68, 132);
    facts.amounts = {{"rate", rate},
                     {"care", days * rate},
                     {"meals", days * Cents{950}},
                     {"before", draft.odd(300, 1500)}};
    facts.amounts["total"] = facts.amounts["care"] + facts.amounts["meals"];
    facts.amounts["budget"] = draft.random.between(120, 170) * rate;
    facts.texts = {{"month", months(draft)[month - 1] + " " + QString::number(draft.year)},
                   {"days", QString::number(days)},
                   {"number", draft.random.digits(6)}};
    facts.dates["due"] = draft.dated.addDays(20);
    acceptCare(draft, facts.amounts["care"]);
    acceptCare(draft, facts.amounts["total"]);
    return facts;
}

Facts alpCareRefundFacts(Draft& draft) {
    careHouse(draft);
    Facts facts;
    const char* const terms[] = {"Januar bis März", "April bis Juni", "Juli bis September",
                                 "Oktober bis Dezember"};
    for (int q = 0; q < 4; ++q) {
        Facts one;
        one.texts["term"] = terms[q];
        one.dates["on"] = QDate(draft.year, 3 * q + 1, draft.random.between(2, 12));
        one.amounts["part"] = draft.odd(900, 4200);
        facts.amounts["charged"] += one.amounts["part"];
        facts.lists["quarters"].push_back(one);
    }
    facts.amounts["closed"] = draft.odd(60, 380);
    facts.amounts["ill"] = draft.odd(30, 240);
    facts.amounts["back"] = facts.amounts["closed"] + facts.amounts["ill"];
    facts.amounts["paid"] = facts.amounts["charged"] - facts.amounts["back"];
    facts.amounts["deposit"] = draft.francs(300, 800, 100);
    noteCare(draft, draft.family.child, facts.amounts["paid"]);
    return facts;
}

Facts alpFamilyTotalFacts(Draft& draft) {
    careHouse(draft);
    Facts facts;
    nameChildren(facts, childrenOf(draft, 2));
    facts.amounts = {{"total", draft.odd(2400, 21000)}, {"rate", draft.odd(80, 130)}};
    draft.record("child").amount("childcareCosts", facts.amounts["total"]);
    return facts;
}

Facts alpCampFacts(Draft& draft) {
    careBy(draft, {"Ferienhort Seefeld", "Verein Ferienspass Obertal", "Tageslager Waldkobel"}, 4,
           11);
    Facts facts;
    std::vector<Someone> children = childrenOf(draft, 2);
    for (const Someone& child : children) {
        facts.lists["children"].push_back(childFacts(child));
    }
    const QDate starts[] = {QDate(draft.year, 2, 5), QDate(draft.year, 4, 8),
                            QDate(draft.year, 7, 8), QDate(draft.year, 8, 5),
                            QDate(draft.year, 10, 7)};
    int place = 0;
    for (const QDate& start : starts) {
        const QDate monday = start.addDays(1 - start.dayOfWeek());
        for (size_t k = 0; k < 2; ++k) {
            if (place > 1 && draft.random.chance(40)) {
                continue;
            }
            ++place;
            Facts week;
            week.texts = {{"first", children[k].first},
                          {"what", draft.one("Waldwoche|Zirkuswoche|Spiel und Sport|Forscherwoche|"
                                             "Musikwoche")}};
            week.dates = {{"from", monday}, {"until", monday.addDays(4)}};
            week.amounts["part"] = draft.francs(190, 460, 5);
            facts.lists["children"][k].amounts["paid"] += week.amounts["part"];
            facts.amounts["total"] += week.amounts["part"];
            facts.lists["weeks"].push_back(week);
        }
    }
    for (size_t k = 0; k < 2; ++k) {
        noteCare(draft, children[k], facts.lists["children"][k].amounts["paid"]);
    }
    facts.amounts["day"] = draft.francs(60, 110, 5);
    return facts;
}

Facts alpPlaygroupFacts(Draft& draft) {
    careBy(draft,
           {"Spielgruppe Purzelbaum", "Waldspielgruppe Tannzapfen", "Verein Spielgruppe Igelnest"},
           2, 4);
    Facts facts;
    const Cents base = draft.francs(380, 1400, 10);
    for (int q = 1; q <= 4; ++q) {
        Facts one;
        one.texts["no"] = QString::number(q);
        one.dates["on"] = QDate(draft.year, 3 * q - 1, draft.random.between(1, 25));
        one.amounts["part"] = base + Cents{1000} * draft.random.between(0, 9);
        facts.amounts["care"] += one.amounts["part"];
        facts.lists["quarters"].push_back(one);
    }
    facts.amounts["material"] = draft.francs(30, 90, 5);
    facts.amounts["fee"] = draft.francs(20, 60, 5);
    facts.amounts["all"] = facts.amounts["care"] + facts.amounts["material"] + facts.amounts["fee"];
    noteCare(draft, draft.family.child, facts.amounts["care"]);
    return facts;
}

Facts alpEmployerCareFacts(Draft& draft) {
    careHouse(draft);
    Facts facts;
    const Cents full = draft.odd(5200, 19800);
    const Cents employer = full * draft.random.between(15, 45) / 100 / 500 * 500;
    facts.amounts = {{"full", full},
                     {"employer", employer},
                     {"paid", full - employer},
                     {"month", full / 12 / 5 * 5}};
    facts.texts["firm"] = draft.one("Kantonsklinik Hochwacht|Nebelhorn Technik AG|Textilwerk Au");
    noteCare(draft, draft.family.child, facts.amounts["paid"]);
    return facts;
}

namespace {

Facts careRows(Draft& draft, int count) {
    careHouse(draft);
    Facts facts;
    const std::vector<Someone> children =
        count == 3 ? threeChildren(draft) : childrenOf(draft, count);
    nameChildren(facts, children);
    for (size_t k = 0; k < children.size(); ++k) {
        Facts one = childFacts(children[k]);
        const int days = draft.random.between(38, 160);
        const Cents full = days * draft.odd(82, 128);
        one.texts["days"] = QString::number(days);
        one.amounts = {{"full", full},
                       {"discount", k == 0 ? 0 : full / 10 / 5 * 5},
                       {"aid", full * draft.random.between(8, 38) / 100 / 5 * 5},
                       {"meals", days * Cents{850}}};
        one.amounts["net"] = full - one.amounts["discount"] - one.amounts["aid"];
        one.amounts["all"] = one.amounts["net"] + one.amounts["meals"];
        for (const auto& [name, cents] : one.amounts) {
            facts.amounts[name] += cents;
            facts.amounts[name + QString::number(k + 1)] = cents;
        }
        noteCare(draft, children[k], one.amounts["net"]);
        facts.lists["children"].push_back(one);
    }
    return facts;
}

} // namespace

Facts alpCareRowsFacts(Draft& draft) { return careRows(draft, 3); }
Facts alpCarePairFacts(Draft& draft) { return careRows(draft, 2); }

Facts alpCareMonthsFacts(Draft& draft) {
    careHouse(draft);
    Facts facts;
    const Cents rate = draft.odd(52, 110);
    for (const QString& name : months(draft)) {
        Facts month;
        const int days = draft.random.between(3, 19);
        month.texts = {{"month", name}, {"days", QString::number(days)}};
        month.amounts = {{"care", days * rate}, {"meals", days * Cents{900}}};
        month.amounts["sum"] = month.amounts["care"] + month.amounts["meals"];
        for (const auto& [what, cents] : month.amounts) {
            facts.amounts[what] += cents;
        }
        facts.lists["months"].push_back(month);
    }
    noteCare(draft, draft.family.child, facts.amounts["care"]);
    return facts;
}

Facts alpCareExpatFacts(Draft& draft) {
    careBy(draft,
           {"Little Alps Daycare GmbH", "Bilingual Kita Bluebell", "Treehouse Early Years AG"}, 1,
           6);
    Facts facts;
    facts.amounts = {{"paid", draft.odd(6200, 24000)},
                     {"meals", draft.odd(600, 2200)},
                     {"entry", draft.francs(150, 400, 50)},
                     {"deposit", draft.francs(1000, 2500, 100)}};
    facts.amounts["all"] = facts.amounts["paid"] + facts.amounts["meals"] + facts.amounts["entry"];
    facts.texts["childbirthday"] = englishDate(draft.family.child.birth);
    noteCare(draft, draft.family.child, facts.amounts["paid"]);
    return facts;
}

Facts alpDayMotherFacts(Draft& draft) {
    careHouse(draft);
    Facts facts;
    for (const Someone& child : childrenOf(draft, 2)) {
        Facts one = childFacts(child);
        const int hours = draft.random.between(180, 900);
        const Cents rate = draft.odd(6, 12);
        one.texts["hours"] = QString::number(hours);
        one.amounts = {{"rate", rate},
                       {"care", hours * rate},
                       {"meals", draft.odd(120, 800)},
                       {"back", draft.odd(20, 160)}};
        one.amounts["paid"] = one.amounts["care"] - one.amounts["back"];
        facts.amounts["total"] += one.amounts["paid"];
        facts.amounts["meals"] += one.amounts["meals"];
        noteCare(draft, child, one.amounts["paid"]);
        facts.lists["children"].push_back(one);
    }
    return facts;
}

} // namespace corpus
