#include "Fiscarel_SG/pages/overview/BillShares.h"

#include "TaxCore/review/Advisor.h"

namespace fiscarel::pages {

using namespace taxcore;

std::vector<BillShare> billShares(const TaxResult& result, TaxRegion region) {
    const TaxBill& bill = result.bill;
    const bool liechtenstein = region == TaxRegion::liechtenstein;
    std::vector<BillShare> shares{
        {liechtenstein ? "Landessteuer" : "Kanton", "cantonTotal", bill.cantonTotal(), {}},
        {liechtenstein ? "Gemeindesteuer" : "Gemeinde",
         "municipalityTotal",
         bill.municipalityTotal(),
         {}}};
    if (!liechtenstein) {
        if (bill.churchRate > 0) {
            shares.push_back({"Kirche", "churchTotal", bill.churchTotal(), {}});
        }
        shares.push_back({"Bund", "federal", bill.federal, {}});
    }
    const Decimal capital = result.capitalPaymentTax ? result.capitalPaymentTax->canton
                                                           + result.capitalPaymentTax->federal
                                                     : Decimal(0);
    if (capital > 0) {
        shares.push_back({"Kapitalleistungen", "kapitalleistungen", capital, {}});
    }
    const Decimal total = Advisor::totalTax(result);
    for (BillShare& share : shares) {
        share.percent = total > 0 ? (share.amount * 100 / total).roundPlain(1) : Decimal(0);
    }
    return shares;
}

} // namespace fiscarel::pages
