#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

#include "Fiscarel_SG/documents/kinds/AmountPlaces.h"
#include "Fiscarel_SG/documents/kinds/FormHeader.h"
#include "Fiscarel_SG/documents/kinds/SalaryNumbers.h"
#include "Fiscarel_SG/documents/kinds/SumText.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <cmath>

namespace fiscarel {

namespace {

struct BoxLabels {
    SalaryBox box;
    int number; ///< of the form's main box
    Labels labels;
};

/// The boxes in the order of the form. Those of no interest stand here because their amounts must
/// not go to a neighbour.
const std::vector<BoxLabels>& boxLabels() {
    using enum SalaryBox;
    static const std::vector<BoxLabels> rows{
        {none, 1, {"Lohn soweit nicht", "Salaire qui ne concerne pas", "Salario se non"}},
        {none, 2, {"Verpflegung Unterkunft", "Pension logement", "Vitto alloggio"}},
        {none, 2, {"Privatanteil Geschäft*", "Part privée voiture", "Quota privata"}},
        {none, 2, {"2.3 Andere", "2.3 Autres", "2.3 Altre"}},
        {none,
         3,
         {"Unregelmässige Leistungen", "Prestations non périodiques", "Prestazioni aperiodiche"}},
        {none, 4, {"Kapitalleistungen", "Prestations en capital", "Prestazioni in capitale"}},
        {none, 5, {"Beteiligungsrechte", "Droits de participation", "Diritti di partecipazione"}},
        {none,
         6,
         {"Verwaltungsratsentschädigung*", "Indemnités des membres", "Indennità dei membri"}},
        {none, 7, {"Andere Leistungen", "Autres prestations", "Altre prestazioni"}},
        {gross,
         8,
         {"Bruttolohn total", "Salaire brut total", "Salario lordo totale", "Total Bruttolohn",
          "Bruttolohn", "Bruttogehalt", "Bruttosalär", "Total brutto", "Lohn brutto",
          "Total salaire brut", "Salaire brut", "Totale salario lordo", "Salario lordo"}},
        {social,
         9,
         {"Beiträge AHV/IV/EO/ALV", "Beiträge AHV/IV/FAK/ALV", "AHV/IV/EO/ALV/NBUV",
          "AVS/AI/APG/AC/AANP", "AVS/AI/IPG/AD/AINP", "Cotisations AVS/AI/APG/AC",
          "Contributi AVS/AI/IPG/AD", "AHV/IV/EO/ALV", "AHV/IV/FAK/ALV", "AHV/IV/FAK",
          "Sozialversicherungsbeiträge", "Sozialversicherungen", "Cotisations sociales",
          "Contributi sociali", "Assurances sociales", "Assicurazioni sociali"}},
        {pensionFund,
         10,
         {"Ordentliche Beiträge", "Ordentliche Beiträge BVG", "Cotisations ordinaires",
          "Contributi ordinari", "BVG ordentliche Beiträge", "Pensionskasse ordentlich*",
          "Ordentliche Pensionskassenbeiträge", "Pensionskassenbeiträge", "Beiträge Pensionskasse",
          "Beiträge an die Pensionskasse", "Beiträge berufliche Vorsorge", "Cotisations LPP",
          "Contributi LPP"}},
        {buyIn,
         10,
         {"Beiträge für den Einkauf", "Einkauf Pensionskasse", "Pensionskasse Einkauf",
          "Caisse de pension rachat", "Caisse de pensions rachat", "Rachat caisse de pension*",
          "Cassa pensione riscatto", "Riscatto cassa pensione", "LPP rachat", "LPP riscatto",
          "BVG Einkauf", "Cotisations pour le rachat", "Contributi per il riscatto"}},
        {net,
         11,
         {"Nettolohn", "Salaire net", "Salario netto", "Nettogehalt", "Nettosalär", "Lohn netto"}},
        {none, 12, {"Quellensteuerabzug", "Retenue de l'impôt", "Ritenuta d'imposta"}},
        {none, 13, {"13.1.1", "Reise Verpflegung", "Voyage repas", "Viaggio vitto"}},
        {otherEffective, 13, {"13.1.2"}},
        {none, 13, {"13.2.1", "Repräsentation", "Représentation", "Rappresentanza"}},
        {none, 13, {"13.2.2"}},
        {otherFlat, 13, {"13.2.3"}},
        {none,
         13,
         {"13.3", "Beiträge an die Weiterbildung", "Contributions au perfectionnement",
          "Contributi per il perfezionamento"}},
        {none,
         14,
         {"Weitere Gehaltsnebenleistungen", "Autres prestations salariales",
          "Altre prestazioni accessorie"}},
        {none, 15, {"Bemerkungen", "Observations", "Osservazioni"}},
    };
    return rows;
}

/// The certificate of Liechtenstein numbers the same boxes in its own way.
int liechtensteinNumber(SalaryBox box) {
    switch (box) {
    case SalaryBox::gross:
        return 4;
    case SalaryBox::social:
        return 5;
    case SalaryBox::pensionFund:
        return 6;
    case SalaryBox::buyIn:
        return 7;
    case SalaryBox::net:
        return 8;
    default:
        return 0;
    }
}

/// Whether a certificate is the principality's: its name stands at the top of the form.
bool isPrincipalitysForm(const PageRows& page) {
    static const Label name{"Fürstentum Liechtenstein"};
    return std::ranges::any_of(page.rows, [&](const Row& row) {
        return row.middle() < page.height / 3 && findLabel(row, name, page.isRecognised);
    });
}

/// A row with the label of a box.
struct Anchor {
    SalaryBox box = SalaryBox::none;
    std::size_t order = 0; ///< of the box on the form
    const Row* row = nullptr;
    double right = 0; ///< where the label ends
};

/// A number without points is none of the form's: "13.3" is a label, 133 is not.
bool isPlainNumber(const Row& row, const LabelPlace& place) {
    return hasOnlyDigits(row.words[place.first].text);
}

/// All rows with labels, from top to bottom. A label out of the form's order is one that a remark
/// or another box only mentions.
std::vector<Anchor> findAnchors(const PageRows& page) {
    std::vector<Anchor> anchors;
    const auto& table = boxLabels();
    std::size_t reached = 0;
    const bool isForeign = isPrincipalitysForm(page);
    for (const Row& row : page.rows) {
        const int number = boxNumberOf(row);
        for (std::size_t i = 0; i < table.size(); ++i) {
            const auto place = findLabel(row, table[i].labels, page.isRecognised);
            const int own = isForeign ? liechtensteinNumber(table[i].box) : table[i].number;
            const bool isOther = number != 0 && number <= 15 && number != own;
            static const Labels employers{"Arbeitgeberanteil*", "Part de l'employeur",
                                          "Part employeur", "Quota del datore"};
            const bool isEmployers =
                table[i].box == SalaryBox::social && findLabel(row, employers, page.isRecognised);
            if (!place || isPlainNumber(row, *place) || i < reached || isEmployers
                || (isOther && !page.isRecognised)) {
                continue;
            }
            double right = place->right;
            for (const Label& label : table[i].labels) {
                if (const auto more = findLabel(row, label, page.isRecognised)) {
                    right = std::max(right, more->right);
                }
            }
            anchors.push_back({table[i].box, i, &row, right});
            reached = i;
            break;
        }
    }
    return anchors;
}

bool canBeAmount(const RowAmount& amount) {
    return amount.amount.isFirm()
           || (!amount.amount.isYearLike() && amount.amount.value.abs() >= 100);
}

/// Puts each row's last amount, or that of the newest year, to the label nearest in height.
void takeAmounts(const PageRows& page, const std::vector<Anchor>& anchors, SalaryForm& form) {
    std::map<SalaryBox, double> distances;
    for (std::size_t at = 0; at < page.rows.size(); ++at) {
        const Row& row = page.rows[at];
        const RowAmount* own = lastOrNewest(page, at);
        if (own == nullptr || !canBeAmount(*own)) {
            continue;
        }
        const RowAmount& amount = *own;
        const double middle = (amount.place.top + amount.place.bottom) / 2;
        const auto distance = [&](const Anchor& anchor) {
            const double apart = std::abs(anchor.row->middle() - middle);
            return anchor.row == &row ? apart / 4 : apart;
        };
        const auto nearest = std::ranges::min_element(anchors, {}, distance);
        if (nearest == anchors.end() || nearest->box == SalaryBox::none
            || distance(*nearest) > 0.8 * nearest->row->height()
            || amount.place.left < nearest->right) {
            continue;
        }
        const auto known = distances.find(nearest->box);
        if (known == distances.end() || distance(*nearest) < known->second) {
            distances[nearest->box] = distance(*nearest);
            form.boxes.insert_or_assign(nearest->box, inBox(nearest->box, amount));
        }
    }
}

/// Where the labels' amounts do not add up, those of the boxes' numbers, which do.
void takeByNumber(const PageRows& page, SalaryForm& form) {
    auto boxes = boxesByNumber(page);
    if (boxes.empty()) {
        return;
    }
    for (const SalaryBox kept : {SalaryBox::otherEffective, SalaryBox::otherFlat}) {
        if (const auto found = form.boxes.find(kept); found != form.boxes.end()) {
            boxes.insert(*found);
        }
    }
    form.boxes = std::move(boxes);
}

bool hasBox(const std::vector<Anchor>& anchors, SalaryBox box) {
    return std::ranges::any_of(anchors, [box](const Anchor& anchor) { return anchor.box == box; });
}

/// What the form's own sheet does not tell of whose and of when it is, by its other sheets.
void readOtherSheets(const DocumentRows& document, SalaryForm& form) {
    const auto fill = [](auto& own, const auto& other) {
        own = own == std::remove_cvref_t<decltype(own)>() ? other : own;
    };
    for (const PageRows& page : document.pages) {
        if (&page == form.page) {
            continue;
        }
        SalaryForm sheet{.page = &page};
        readFormHeader(page, page.height / 2, sheet);
        if (!form.from) {
            form.from = sheet.from;
            form.to = sheet.to;
        }
        fill(form.birthDate, sheet.birthDate);
        fill(form.socialSecurityNumber, sheet.socialSecurityNumber);
        fill(form.person, sheet.person);
        fill(form.employer, sheet.employer);
        fill(form.year, sheet.year);
    }
}

} // namespace

std::optional<Decimal> SalaryForm::value(SalaryBox box) const {
    const auto found = boxes.find(box);
    return found == boxes.end() ? std::nullopt : std::optional(found->second.amount.value);
}

bool SalaryForm::isNegative() const {
    return value(SalaryBox::gross).value_or(Decimal()) < 0
           || value(SalaryBox::net).value_or(Decimal()) < 0;
}

RowAmount inBox(SalaryBox box, RowAmount amount) {
    if (box != SalaryBox::gross && box != SalaryBox::net) {
        amount.amount.value = amount.amount.value.abs();
    }
    return amount;
}

bool SalaryForm::hasDeductions() const {
    return value(SalaryBox::social).value_or(Decimal()) > 0
           || value(SalaryBox::pensionFund).value_or(Decimal()) > 0;
}

const PageRows& SalaryForm::pageOf(SalaryBox box) const {
    const auto found = elsewhere.find(box);
    return found == elsewhere.end() ? *page : *found->second;
}

std::vector<SalaryForm> readSalaryForms(const DocumentRows& document) {
    std::vector<SalaryForm> forms;
    for (const PageRows& page : document.pages) {
        const auto anchors = findAnchors(page);
        using enum SalaryBox;
        const int named = hasBox(anchors, gross) + hasBox(anchors, social)
                          + hasBox(anchors, pensionFund) + hasBox(anchors, net);
        const bool isNamed = named >= 3 || (hasBox(anchors, gross) && hasBox(anchors, net));
        SalaryForm form{.page = &page, .isLiechtenstein = isPrincipalitysForm(page)};
        if (isNamed) {
            takeAmounts(page, anchors, form);
        }
        if (!isProven(form) && !form.isLiechtenstein) {
            takeByNumber(page, form);
        }
        if (!form.boxes.contains(gross) && !form.boxes.contains(net)) {
            continue;
        }
        const auto first =
            std::ranges::find_if(anchors, [](const Anchor& anchor) { return anchor.order <= 9; });
        readFormHeader(page, first == anchors.end() ? page.height / 2 : first->row->top, form);
        forms.push_back(std::move(form));
    }
    if (forms.size() == 1) {
        readOtherSheets(document, forms.front());
    }
    return forms;
}

bool isNetSalary(const Decimal& gross, const Decimal& deductions, const Decimal& net) {
    // Whole francs are rounded one by one; amounts to the centime fit to five centimes.
    const bool isWhole = net.roundPlain(0) == net;
    return (gross - deductions - net).abs() <= (isWhole ? Decimal(1) : Decimal(5) / 100);
}

std::optional<ProposalCheck> netSalaryCheck(const std::optional<Decimal>& gross,
                                            const std::vector<Decimal>& deductions,
                                            const std::optional<Decimal>& net) {
    if (!gross || !net) {
        return std::nullopt;
    }
    std::vector<Decimal> parts{*gross};
    Decimal taken;
    for (const Decimal& deduction : deductions) {
        parts.push_back(-deduction);
        taken = taken + deduction;
    }
    const Decimal computed = *gross - taken;
    const bool holds = isNetSalary(*gross, taken, *net);
    if (holds && taken.isZero()) {
        return ProposalCheck{"Ohne Abzüge ist der Nettolohn der Bruttolohn: " + shown(*net), true};
    }
    std::string text = sumText(parts, computed);
    if (holds) {
        text += computed == *net ? "" : ", gerundet " + shown(*net);
        text += ", der Nettolohn";
    } else {
        text += ", als Nettolohn steht aber " + shown(*net);
    }
    return ProposalCheck{std::move(text), holds};
}

} // namespace fiscarel
