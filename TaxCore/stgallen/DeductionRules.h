#pragma once

#include "TaxCore/model/TaxCase.h"
#include "TaxCore/rulebook/DeductionParams.h"

namespace taxcore {

// The rules behind single lines of the return, each for one jurisdiction by its parameters. Pure
// functions over francs; nothing is rounded unless stated.

/// Rental value as taxed: nothing for a let property; the primary residence at a reduced value, and
/// less again for rooms that stay unused (share of the rooms plus two).
/// StG SG Art. 34 Abs. 3, DBG Art. 21 Abs. 1 Bst. b und Abs. 2
Decimal taxedRentalValue(const RealEstate& property,
                         const CantonExtraParams::Liegenschaften& params);

/// Costs of one property: the flat rate on rental value as taxed and rents, or the actual costs.
/// StG SG Art. 44 Abs. 2, DBG Art. 32 Abs. 2 und 4
Decimal maintenanceCosts(const RealEstate& property,
                         const CantonExtraParams::Liegenschaften& params);

/// Most that a person may pay into pillar 3a. `base` is earned income with unemployment benefits; a
/// loss gives 0.
/// DBG Art. 33 Abs. 1 Bst. e, BVV 3 Art. 7 Abs. 1
Decimal pillar3aMaximum(bool hasPensionFund, const Decimal& base, const Saeule3aParams& params);

/// What the ceiling of insurance premiums and savings interest depends on.
/// StG SG Art. 45 Abs. 1 Bst. g, DBG Art. 33 Abs. 1 Bst. g und Abs. 1bis
struct InsuranceCeiling {
    bool joint = false;
    bool withoutPension = false; ///< no adult pays into pillar 2 or 3a, by the amounts entered
    int children = 0;            ///< who give child deductions
    int supported = 0;           ///< supported persons

    /// The amount to start from.
    Decimal VersicherungParams::*base() const noexcept;
    /// What is added without pension contributions.
    Decimal VersicherungParams::*supplement() const noexcept;
    /// The ceiling in francs.
    Decimal amount(const VersicherungParams& params) const;
};

/// The ceiling's grounds for a household.
InsuranceCeiling insuranceCeiling(const TaxCase& taxCase);

/// Flat rate for managing the securities kept by third parties, of their tax value.
/// StG SG Art. 44, DBG Art. 32 Abs. 1
Decimal assetManagementFlatRate(const Decimal& managedValue, const DeductionParams& params);

/// Whether the child is below the age limit of childcare costs on 1 January; a missing birth date
/// counts as below. DBG Art. 33 Abs. 3
bool isWithinChildcareAge(const Child& child, int year, const DeductionParams& params) noexcept;

/// Childcare deduction of one child, 0 beyond the age limit.
/// StG SG Art. 45 Abs. 1 Bst. h, DBG Art. 33 Abs. 3
Decimal childcare(const Child& child, int year, const DeductionParams& params);

/// Whether the flat rate for further education stands for the costs: chosen and granted.
bool usesFurtherEducationFlatRate(const PersonDeductions& deductions,
                                  const DeductionParams& params) noexcept;

/// Further education of one person: the flat rate where chosen and granted, else the costs up to
/// the maximum. DBG Art. 33 Abs. 1 Bst. j
Decimal furtherEducation(const PersonDeductions& deductions, const DeductionParams& params);

/// Two-earner deduction on the lower of the two bases; never more than that base.
/// DBG Art. 33 Abs. 2
Decimal twoEarnerDeduction(const Decimal& lowerBase, const ZweiverdienerParams& params);

/// Most that gifts to political parties give. DBG Art. 33 Abs. 1 Bst. i
Decimal partyGiftMaximum(const TaxCase& taxCase, const DeductionParams& params);

/// Deduction of voluntary gifts: nothing below the yearly minimum, at most a share of the net
/// income (`net` not below 0). StG SG Art. 46 Bst. c, DBG Art. 33a
Decimal giftDeduction(const Decimal& gifts, const Decimal& net, const DeductionParams& params);

/// Whether every child gives the same deduction, whatever its stage of education.
bool hasUniformChildDeduction(const DeductionParams& params) noexcept;

/// Child deduction of one child, by its stage of education unless it is uniform.
/// StG SG Art. 48 Abs. 1 Bst. a Ziff. 1 und 2, DBG Art. 35 Abs. 1 Bst. a
Decimal childDeduction(const Child& child, const DeductionParams& params);

/// Education costs of one child above what the parents bear themselves.
/// StG SG Art. 48 Abs. 1 Bst. a Ziff. 3
Decimal childEducationCosts(const Child& child, const DeductionParams& params);

/// Wealth value of a vehicle, plain to whole francs: the price less a share of it for each calendar
/// year since the purchase. An override stands as it is. StG SG Art. 54
Decimal vehicleValue(const Vehicle& vehicle, int year, const Decimal& yearlyShare);

/// Whether the child's own allowance on wealth counts: under 18 at the year's end; without a birth
/// date when it is deductible. StG SG Art. 64
bool hasWealthAllowance(const Child& child, int year) noexcept;

} // namespace taxcore
