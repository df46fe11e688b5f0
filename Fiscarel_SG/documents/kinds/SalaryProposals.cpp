#include "Fiscarel_SG/documents/kinds/SalaryForm.h"

#include <algorithm>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

struct FieldOfBox {
    SalaryBox box;
    const char* field;
    const char* number; ///< as sentences name it
};

constexpr std::array amountFields{
    FieldOfBox{SalaryBox::gross, "grossSalary", "8"},
    FieldOfBox{SalaryBox::social, "socialContributions", "9"},
    FieldOfBox{SalaryBox::pensionFund, "pensionContributions", "10.1"},
    FieldOfBox{SalaryBox::buyIn, "pensionBuyIn", "10.2"},
    FieldOfBox{SalaryBox::net, "netSalaryOverride", "11"},
};

/// The numbers of the principality's certificate.
std::string foreignNumber(const std::string& number) {
    return number == "8"      ? "4"
           : number == "9"    ? "5"
           : number == "10.1" ? "6"
           : number == "10.2" ? "7"
                              : "8";
}

/// A box as the certificate's own number names it.
std::string placeOf(const SalaryForm& form, const std::string& number) {
    return "Ziffer " + (form.isLiechtenstein ? foreignNumber(number) : number);
}

/// The evidence of a box found by its place. Recognised text needs the arithmetic to be sure.
Evidence evidenceOf(const SalaryForm& form, SalaryBox box, const std::string& place,
                    const std::optional<ProposalCheck>& check) {
    const RowAmount& amount = form.boxes.at(box);
    const PageRows& page = form.pageOf(box);
    const bool isProven = check && check->passed;
    Evidence evidence{.witness = Witness::position,
                      .confidence =
                          isProven && !form.isGuess && (form.isMarked || form.hasDeductions())
                              ? Confidence::high
                              : Confidence::medium,
                      .reason = "Der Betrag entspricht " + place + " des Lohnausweises",
                      .page = page.number,
                      .box = pageBox(amount.printed, page)};
    evidence.reason += page.isRecognised ? " (Texterkennung)." : ".";
    if (check) {
        evidence.checks.push_back(*check);
    }
    if (!isProven && (page.isRecognised && amount.certainty < 0.7)) {
        evidence.confidence = Confidence::low;
    }
    return evidence;
}

/// The check that a cancelled certificate fails; what its amounts add up to has no meaning.
ProposalCheck positiveCheck(const SalaryForm& form) {
    std::string printed;
    for (const SalaryBox box : {SalaryBox::gross, SalaryBox::net}) {
        if (const auto value = form.value(box); value && *value < 0) {
            printed += (printed.empty() ? "" : " und ") + shown(*value);
        }
    }
    return {(form.isPension ? "Die Rente ist positiv" : "Bruttolohn und Nettolohn sind positiv")
                + std::string(": gedruckt ist aber ") + printed
                + ", wie auf einem stornierten Ausweis",
            false};
}

ProposedRecord recordOf(const SalaryForm& form) {
    ProposedRecord record{.kind = form.isPension ? ProposedRecord::Kind::pension
                                                 : ProposedRecord::Kind::salaryCertificate,
                          .title = form.isPension ? "Rentenbescheinigung" : "Lohnausweis",
                          .page = form.page->number,
                          .year = form.year,
                          .personName = form.person,
                          .birthDate = form.birthDate,
                          .socialSecurityNumber = form.socialSecurityNumber};
    if (!form.employer.empty()) {
        record.title += ' ' + form.employer;
    }
    return record;
}

void proposePension(const SalaryForm& form, ProposalDraft& draft) {
    const auto net = form.boxes.find(SalaryBox::net);
    const auto gross = form.boxes.find(SalaryBox::gross);
    const auto& taken = net != form.boxes.end() ? *net : *gross;
    const int record = draft.addRecord(recordOf(form));
    std::optional<ProposalCheck> check;
    if (form.isNegative()) {
        check = positiveCheck(form);
    } else if (net != form.boxes.end() && gross != form.boxes.end()) {
        const Decimal a = gross->second.amount.value;
        const Decimal b = net->second.amount.value;
        check = ProposalCheck{
            "Vor und nach Abzügen steht derselbe Betrag: "
                + (a == b ? shown(a) : "gedruckt sind aber " + shown(a) + " und " + shown(b)),
            a == b};
    }
    const char* number = net != form.boxes.end() ? "11" : "8";
    draft.add(record, "amount", taken.second.amount.value,
              evidenceOf(form, taken.first, placeOf(form, number), check));
    draft.add(record, "label", form.employer,
              {.witness = Witness::position,
               .confidence = Confidence::medium,
               .reason = "Steht bei der Unterschrift.",
               .page = form.page->number});
}

void proposeWords(const SalaryForm& form, int record, ProposalDraft& draft) {
    const Evidence words{.witness = Witness::position,
                         .confidence = Confidence::medium,
                         .reason = "Steht an der Stelle des Formulars.",
                         .page = form.page->number};
    draft.add(record, "employer", form.employer, words);
    draft.add(record, "periodFrom", form.from, words);
    draft.add(record, "periodTo", form.to, words);
    draft.add(record, "remarks", form.remarks, words);
    if (form.fieldF) {
        draft.addTrue(record, "fieldF", words);
    }
    if (form.fieldG) {
        draft.addTrue(record, "fieldG", words);
    }
}

} // namespace

void proposeSalaryForm(const SalaryForm& form, ProposalDraft& draft) {
    if (form.isPension) {
        proposePension(form, draft);
        return;
    }
    const auto value = [&](SalaryBox box) { return form.value(box).value_or(Decimal()); };
    const auto check =
        form.isNegative() ? std::optional(positiveCheck(form))
                          : netSalaryCheck(form.value(SalaryBox::gross),
                                           {value(SalaryBox::social), value(SalaryBox::pensionFund),
                                            value(SalaryBox::buyIn)},
                                           form.value(SalaryBox::net));
    const int record = draft.addRecord(recordOf(form));
    for (const FieldOfBox& row : amountFields) {
        if (const auto found = form.boxes.find(row.box); found != form.boxes.end()) {
            draft.add(record, row.field, found->second.amount.value,
                      evidenceOf(form, row.box, placeOf(form, row.number), check));
        }
    }
    if (form.isLiechtenstein) {
        draft.addTrue(record, "employerInLiechtenstein",
                      {.witness = Witness::position,
                       .confidence = Confidence::medium,
                       .reason = "Lohnausweis des Fürstentums Liechtenstein.",
                       .page = form.page->number});
    }
    const Decimal expenses = value(SalaryBox::otherEffective) + value(SalaryBox::otherFlat);
    if (!expenses.isZero()) {
        const bool isFlat = form.boxes.contains(SalaryBox::otherFlat);
        const SalaryBox box = isFlat ? SalaryBox::otherFlat : SalaryBox::otherEffective;
        draft.add(record, "flatRateExpenses", expenses,
                  evidenceOf(form, box,
                             form.isLiechtenstein ? "den Spesen" : "den Ziffern 13.1.2 und 13.2.3",
                             std::nullopt));
    }
    proposeWords(form, record, draft);
}

} // namespace fiscarel
