#pragma once

#include "Fiscarel_SG/documents/ProposalDraft.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// The boxes of a salary or pension certificate that a return needs. Federal Form 11
enum class SalaryBox { gross, social, pensionFund, buyIn, net, otherEffective, otherFlat, none };

/// What is printed on one salary or pension certificate, found by places.
struct SalaryForm {
    const PageRows* page = nullptr;
    bool isLiechtenstein = false; ///< the principality's certificate, which numbers its boxes anew
    bool isPension = false;
    bool isMarked = false;                          ///< a cross says which of both it is
    bool isGuess = false;                           ///< what a deduction is, its words do not say
    std::map<SalaryBox, RowAmount> boxes;           ///< empty boxes are missing
    std::map<SalaryBox, const PageRows*> elsewhere; ///< of boxes that stand on another sheet
    std::optional<taxcore::Date> from;
    std::optional<taxcore::Date> to;
    std::optional<taxcore::Date> birthDate;
    std::string socialSecurityNumber;
    std::optional<int> year;
    std::string person;
    std::string employer;
    std::string remarks;
    bool fieldF = false;
    bool fieldG = false;

    /// The amount of a box; absent when it is empty.
    std::optional<Decimal> value(SalaryBox box) const;
    /// Whether the gross or the net wage has a minus, as on a cancelled certificate.
    bool isNegative() const;
    /// Whether contributions were taken off: of a wage they are, of a pension not.
    bool hasDeductions() const;
    /// The sheet that a box stands on.
    const PageRows& pageOf(SalaryBox box) const;
};

/// What an amount means in a box: the form takes deductions off itself, whatever their sign.
RowAmount inBox(SalaryBox box, RowAmount amount);

/// The certificates of a document, page by page; a page without the form's labels has none, and a
/// continuation page without amounts neither. An amount belongs to the box whose label is nearest
/// in height, so that an empty box stays empty.
std::vector<SalaryForm> readSalaryForms(const DocumentRows& document);

/// Whether the net wage is the gross wage without the deductions, as far as a form rounds.
bool isNetSalary(const Decimal& gross, const Decimal& deductions, const Decimal& net);

/// That with the sum itself; empty boxes are 0. Absent without gross or net wage.
std::optional<ProposalCheck> netSalaryCheck(const std::optional<Decimal>& gross,
                                            const std::vector<Decimal>& deductions,
                                            const std::optional<Decimal>& net);

/// Whether the boxes of a certificate with deductions add up.
bool isProven(const SalaryForm& form);

/// Certificates that have not the form's layout: amounts by the meaning of their labels, in a list
/// or in sentences. Of several amounts for a box those count that add up, at last all that stand
/// between the gross and the net wage. More than one where a paper states several wages, each
/// under a heading of its own; none without a gross and a net wage.
std::vector<SalaryForm> readSalaryLists(const DocumentRows& document);

/// Proposes a certificate from the places of its amounts alone.
void proposeSalaryForm(const SalaryForm& form, ProposalDraft& draft);

} // namespace fiscarel
