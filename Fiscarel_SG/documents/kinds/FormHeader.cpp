#include "Fiscarel_SG/documents/kinds/FormHeader.h"

#include "Fiscarel_SG/documents/kinds/DocumentFacts.h"
#include "Fiscarel_SG/documents/kinds/DocumentPerson.h"
#include "Fiscarel_SG/documents/kinds/LetterHead.h"
#include "Fiscarel_SG/documents/kinds/SalaryForm.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/text/Digits.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace fiscarel {

using taxcore::Date;

namespace {

bool isCross(const RowWord& word) {
    static constexpr std::array<std::string_view, 8> signs{"☒", "☑", "✗", "✘", "✓", "✔", "■", "●"};
    return word.folded == "x" || word.folded == "xx"
           || std::ranges::find(signs, word.text) != signs.end();
}

double gapBetween(const PagePlace& place, const LabelPlace& label) {
    return std::max({0.0, label.left - place.right, place.left - label.right});
}

/// Whether a cross of a row belongs to a label: no cross is nearer to another label of the row.
bool isMarked(const Row& row, const LabelPlace& label, const std::optional<LabelPlace>& other) {
    return std::ranges::any_of(row.words, [&](const RowWord& word) {
        return isCross(word)
               && (!other || gapBetween(word.place, label) < gapBetween(word.place, *other));
    });
}

std::vector<Date> daysIn(const Row& row) {
    std::vector<Date> days;
    for (const RowWord& word : row.words) {
        if (const auto day = parseDay(word.text)) {
            days.push_back(*day);
        }
    }
    return days;
}

bool isPeriod(const Date& from, const Date& to) { return from < to && from.year() == to.year(); }

void readDays(const PageRows& page, double bodyTop, SalaryForm& form) {
    std::vector<Date> single;
    for (const Row& row : page.rows) {
        if (row.middle() >= bodyTop) {
            break;
        }
        const auto days = daysIn(row);
        if (!form.from && days.size() >= 2 && isPeriod(days[days.size() - 2], days.back())) {
            form.from = days[days.size() - 2];
            form.to = days.back();
            if (days.size() == 3) {
                single.push_back(days.front());
            }
        } else {
            single.insert(single.end(), days.begin(), days.end());
        }
        if (form.socialSecurityNumber.empty()) {
            form.socialSecurityNumber = socialSecurityNumberIn(row);
        }
    }
    // "von" and "bis" on lines of their own.
    for (std::size_t i = 0; !form.from && i + 1 < single.size(); ++i) {
        if (isPeriod(single[i], single[i + 1])) {
            form.from = single[i];
            form.to = single[i + 1];
        }
    }
    for (const Date& day : single) {
        if (!form.birthDate && day.year() + 10 < (form.from ? form.from->year() : 2020)) {
            form.birthDate = day;
        }
    }
    if (form.to) {
        form.year = form.to->year();
    }
}

/// Which certificate it is: the cross beside A or B, else the only one that is named.
void readKind(const PageRows& page, double bodyTop, SalaryForm& form) {
    static const Labels salary{"Lohnausweis", "Certificat de salaire", "Certificato di salario",
                               "Salary certificate"};
    static const Labels pension{"Rentenbescheinigung",       "Attestation de rente*",
                                "Attestation des rentes",    "Attestazione delle rendite",
                                "Attestazione di rendit*",   "Attestazione della rendita",
                                "Certificato delle rendite", "Pension statement"};
    bool isSalaryNamed = false;
    bool isPensionNamed = false;
    bool isSalaryMarked = false;
    bool isPensionMarked = false;
    for (const Row& row : page.rows) {
        if (row.middle() >= bodyTop) {
            break;
        }
        const auto ofPension = findLabel(row, pension, page.isRecognised);
        const auto ofSalary = findLabel(row, salary, page.isRecognised);
        isSalaryNamed |= ofSalary.has_value();
        isPensionNamed |= ofPension.has_value();
        isSalaryMarked |= ofSalary && isMarked(row, *ofSalary, ofPension);
        isPensionMarked |= ofPension && isMarked(row, *ofPension, ofSalary);
    }
    form.isMarked = isPensionMarked != isSalaryMarked || isPensionNamed != isSalaryNamed;
    // Whoever earns a wage pays contributions, whatever a cross that cannot be placed says.
    form.isPension =
        isProven(form)                      ? false
        : isPensionMarked != isSalaryMarked ? isPensionMarked
        : isPensionNamed != isSalaryNamed
            ? isPensionNamed
            : !form.isGuess && !form.isNegative() && !form.hasDeductions() && form.boxes.size() > 1;
}

/// Boxes F and G: a cross before the words, at the height of one of their lines.
void readCrosses(const PageRows& page, double bodyTop, SalaryForm& form) {
    static const Labels transport{"Unentgeltliche Beförderung", "Transport gratuit",
                                  "Trasporto gratuito"};
    static const Labels canteen{"Kantinenverpflegung*", "Repas à la cantine", "Pasti alla mensa"};
    struct Target {
        const Labels& labels;
        bool& field;
    };
    for (const Row& row : page.rows) {
        for (const RowWord& word : row.words) {
            if (row.middle() >= bodyTop || !isCross(word)) {
                continue;
            }
            bool* nearest = nullptr;
            double least = 1.5 * row.height();
            for (const Target& target :
                 {Target{transport, form.fieldF}, Target{canteen, form.fieldG}}) {
                for (const Row& other : page.rows) {
                    const auto place = findLabel(other, target.labels, page.isRecognised);
                    const double distance = std::abs(other.middle() - row.middle());
                    if (place && distance < least && word.place.right <= place->left + 2
                        && place->left - word.place.right < page.width / 5) {
                        least = distance;
                        nearest = &target.field;
                    }
                }
            }
            if (nearest != nullptr) {
                *nearest = true;
            }
        }
    }
}

/// The employer: at the foot of the page, in the column of the enterprise's number, the first line
/// that is neither that number nor a telephone number.
void readEmployer(const PageRows& page, SalaryForm& form) {
    double left = 0;
    double top = 0;
    static const Labels confirmation{"Die Richtigkeit", "Certifié exact", "Certificato esatto",
                                     "Ort und Datum", "Lieu et date"};
    for (const Row& row : page.rows) {
        const bool isFoot = row.middle() > page.height / 2;
        if (isFoot && top == 0 && findLabel(row, confirmation, page.isRecognised)) {
            top = row.top;
        }
        for (std::size_t i = 0; isFoot && i < row.words.size(); ++i) {
            if (row.words[i].text.starts_with("CHE") && left == 0) {
                const bool isNamed = i > 0 && row.words[i - 1].folded.size() == 3;
                left = row.words[isNamed ? i - 1 : i].place.left;
            }
        }
    }
    for (const Row& row : page.rows) {
        std::string name;
        bool isOther = left == 0 || top == 0 || row.middle() < top;
        for (const RowWord& word : row.words) {
            if (word.place.left >= left - 4) {
                isOther |= word.text.starts_with("CHE") || word.folded == "tel";
                name += name.empty() ? word.text : ' ' + word.text;
            }
        }
        if (!isOther && !name.empty()) {
            form.employer = name;
            return;
        }
    }
}

void readRemarks(const PageRows& page, SalaryForm& form) {
    static const Labels remarks{"Bemerkungen", "Observations", "Osservazioni"};
    static const Labels end{"Ort und Datum", "Lieu et date", "Luogo e data", "Die Richtigkeit",
                            "Certifié exact"};
    double left = 0;
    double top = 0;
    for (const Row& row : page.rows) {
        if (const auto place = findLabel(row, remarks, page.isRecognised);
            place && place->first <= 3 && row.middle() > page.height / 2) {
            left = std::max(left, place->right);
            top = top == 0 ? row.top : top;
        }
    }
    for (const Row& row : page.rows) {
        if (top == 0 || row.middle() < top) {
            continue;
        }
        if (findLabel(row, end, page.isRecognised)) {
            break;
        }
        for (const RowWord& word : row.words) {
            if (word.place.left > left) {
                form.remarks += form.remarks.empty() ? word.text : ' ' + word.text;
            }
        }
    }
}

} // namespace

bool isSocialSecurityNumber(std::string_view text) {
    constexpr std::string_view form = "000.0000.0000.00";
    if (text.size() != form.size()) {
        return false;
    }
    for (std::size_t i = 0; i < form.size(); ++i) {
        if (form[i] == '0' ? !isDigit(text[i]) : text[i] != '.') {
            return false;
        }
    }
    return true;
}

std::string socialSecurityNumberIn(const Row& row) {
    for (const RowWord& word : row.words) {
        std::string_view text = word.text;
        while (!text.empty() && std::string_view(",;.)").find(text.back()) != text.npos) {
            text.remove_suffix(1);
        }
        if (isSocialSecurityNumber(text)) {
            return std::string(text);
        }
    }
    return {};
}

void readFormHeader(const PageRows& page, double bodyTop, SalaryForm& form) {
    readKind(page, bodyTop, form);
    readDays(page, bodyTop, form);
    form.year = form.year ? form.year : yearTold(page, bodyTop);
    readCrosses(page, bodyTop, form);
    form.person = findAddressee(page, bodyTop).text;
    if (form.person.empty()) { // on certificates without an address field
        form.person = findPerson(page).text;
    }
    readEmployer(page, form);
    readRemarks(page, form);
}

} // namespace fiscarel
