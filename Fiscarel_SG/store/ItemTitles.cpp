#include "Fiscarel_SG/store/ItemTitles.h"

namespace fiscarel {

using namespace taxcore;

namespace {

std::string joined(const std::string& first, const std::string& second) {
    return first + (first.empty() || second.empty() ? "" : ", ") + second;
}

} // namespace

std::string titleOf(const SalaryCertificate& item) { return item.employer; }
std::string titleOf(const PensionIncome& item) { return item.label; }
std::string titleOf(const Child& item) { return item.firstName; }
std::string titleOf(const SecurityEntry& item) {
    return joined(item.institution, item.description);
}
std::string titleOf(const InsurancePolicy& item) { return item.company; }
std::string titleOf(const Vehicle& item) { return item.description; }
std::string titleOf(const RealEstate& item) { return joined(item.description, item.municipality); }
std::string titleOf(const Debt& item) { return item.creditor; }
std::string titleOf(const CapitalPayment& item) { return std::string(label(item.kind)); }
std::string titleOf(const MedicalCost& item) { return item.provider; }
std::string titleOf(const Donation& item) { return item.recipient; }

} // namespace fiscarel
