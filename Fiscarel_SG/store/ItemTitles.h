#pragma once

#include "TaxCore/model/TaxCase.h"

#include <string>

namespace fiscarel {

// What an item of a list of the case is called where it stands among others; empty when nothing of
// it is entered yet.

std::string titleOf(const taxcore::SalaryCertificate& item);
std::string titleOf(const taxcore::PensionIncome& item);
std::string titleOf(const taxcore::Child& item);
std::string titleOf(const taxcore::SecurityEntry& item);
std::string titleOf(const taxcore::InsurancePolicy& item);
std::string titleOf(const taxcore::Vehicle& item);
std::string titleOf(const taxcore::RealEstate& item);
std::string titleOf(const taxcore::Debt& item);
std::string titleOf(const taxcore::CapitalPayment& item);
std::string titleOf(const taxcore::MedicalCost& item);
std::string titleOf(const taxcore::Donation& item);

} // namespace fiscarel
