#pragma once

// Parts of the forms that both regions have, each in the notation of both.

#include "Fiscarel_SG/outputs/FormWriter.h"
#include "TaxCore/result/TaxResult.h"

#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::outputs {

/// "a, b", without those that are empty; the fallback when all are.
std::string titleOf(std::string_view a, std::string_view b, std::string_view fallback);

/// Page 1: household, persons, children of the year, account for refunds.
void writePersonalDetails(FormWriter& writer, std::string form,
                          const std::vector<FormField<taxcore::TaxCase>>& household,
                          const std::vector<FormField<taxcore::Person>>& person);

/// An entry of the case that belongs beside a line of the return.
struct EntryOfLine {
    std::string_view path;
    std::string_view ziffer;
    std::string_view section;
    int page;
    FormField<taxcore::TaxCase> field;
};

/// The lines of the return that are sums or not 0, page by page, ascending by their Ziffer.
void writeLines(FormWriter& writer, const taxcore::TaxResult& result, std::string_view form,
                const std::vector<EntryOfLine>& beside);

void writeSalaryCertificates(FormWriter& writer, int page, bool tellsCountry);
void writePensions(FormWriter& writer, int page, std::string ziffer);
void writePremiums(FormWriter& writer, std::string form, int page, std::string ziffer);
void writeCapitalPayments(FormWriter& writer, int page, std::string ziffer);

/// The fields of a property, in a joint household with the shares of both behind the parcel.
std::vector<FormField<taxcore::RealEstate>>
withShares(std::vector<FormField<taxcore::RealEstate>> fields, bool isJoint);

const std::vector<FormField<taxcore::MedicalCost>>& medicalFields();
const std::vector<FormField<taxcore::Donation>>& donationFields();
const std::vector<FormField<taxcore::InsurancePolicy>>& policyFields();
const std::vector<FormField<taxcore::Vehicle>>& vehicleFields();

std::string titleOf(const taxcore::MedicalCost& cost);
std::string titleOf(const taxcore::Donation& donation);
std::string titleOf(const taxcore::SecurityEntry& entry);
std::string titleOf(const taxcore::Child& child);
std::string titleOf(const taxcore::RealEstate& property);
std::string titleOf(const taxcore::Debt& debt);
std::string titleOf(const taxcore::InsurancePolicy& policy);
std::string titleOf(const taxcore::Vehicle& vehicle);

/// The title of any record, for the lists of a form.
inline constexpr auto recordTitle = [](const auto& record) { return titleOf(record); };

/// Compares two Ziffern as a form counts them: "" before letters before numbers, "9" before "10.1",
/// "3.84" before "3.9".
bool isZifferBefore(std::string_view a, std::string_view b);

// The forms of a region in their order.
void writeStGallen(FormWriter& writer, const taxcore::TaxResult& result);
void writeLiechtenstein(FormWriter& writer, const taxcore::TaxResult& result);

} // namespace fiscarel::outputs
