#include "Fiscarel_SG/store/CarryOver.h"

#include "TaxCore/stgallen/TaxCalculator.h"

#include <boost/uuid/name_generator_sha1.hpp>
#include <boost/uuid/uuid_io.hpp>

#include <string>

namespace fiscarel {

namespace {

using namespace taxcore;

/// The identity of an item that begins anew from an earlier one. Two machines that carry the same
/// year over, each by itself, make the same items and not each of them twice.
Uuid following(const Uuid& old, int year) {
    const boost::uuids::name_generator_sha1 named(boost::uuids::ns::oid());
    return Uuid::parse(boost::uuids::to_string(named(old.toString() + "/" + std::to_string(year))))
        .value();
}

Child carried(Child child, int year) {
    child.childcareCosts = 0;
    child.childcareDaysWithMealsIncluded = 0;
    child.educationCosts = 0;
    child.scholarships = 0;
    child.education = TaxCalculator::suggestedEducation(child.birthDate, year);
    return child;
}

SalaryCertificate carried(const SalaryCertificate& old, int year) {
    return {.id = following(old.id, year),
            .employer = old.employer,
            .isMainEmployment = old.isMainEmployment};
}

SecurityEntry carried(const SecurityEntry& old, int year) {
    return {.id = following(old.id, year),
            .kind = old.kind,
            .code = old.code,
            .institution = old.institution,
            .description = old.description,
            .ibanOrValor = old.ibanOrValor,
            .owner = old.owner};
}

RealEstate carried(RealEstate property) {
    property.rentalIncome = 0;
    property.actualMaintenanceCosts = 0;
    return property;
}

InsurancePolicy carried(InsurancePolicy policy) {
    policy.surrenderValue = 0;
    return policy;
}

Debt carried(Debt debt) {
    debt.interest = 0;
    return debt;
}

template <class Item, class... Year>
std::vector<Item> all(const std::vector<Item>& items, Year... year) {
    std::vector<Item> kept;
    kept.reserve(items.size());
    for (const Item& item : items) {
        kept.push_back(carried(item, year...));
    }
    return kept;
}

} // namespace

TaxCase carryOver(const TaxCase& from, int to) {
    TaxCase next{.year = to};
    next.municipality = from.municipality;
    next.parish = from.parish;
    next.registerNumber = from.registerNumber;
    next.civilStatus = from.civilStatus;
    next.person1 = from.person1;
    next.person2 = from.person2;
    next.iban = from.iban;
    next.region = from.region;
    next.li = from.li;
    next.children = all(from.children, to);
    next.income1.salaries = all(from.income1.salaries, to);
    next.income2.salaries = all(from.income2.salaries, to);
    next.deductions1.work = from.deductions1.work;
    next.deductions2.work = from.deductions2.work;
    next.securities = all(from.securities, to);
    next.realEstate = all(from.realEstate);
    next.insurances = all(from.insurances);
    next.debts = all(from.debts);
    return next;
}

} // namespace fiscarel
