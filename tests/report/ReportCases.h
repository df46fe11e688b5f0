#pragma once

#include "Fiscarel_SG/outputs/ReportContent.h"
#include "Fiscarel_SG/paper/PaperDocument.h"
#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/TaxResult.h"

#include <string>
#include <vector>

namespace fiscarel::testing {

/// A household whose report is looked at.
struct ReportCase {
    std::string name;
    taxcore::TaxCase taxCase;
    std::vector<StoredDocument> documents = {};
};

/// The demo households, all case files, and some that are hard to set.
std::vector<ReportCase> reportCases();
/// Sixty securities, long names, long remarks, huge amounts, letters of other scripts.
ReportCase overfullCase();
/// The demo household with documents behind some of its entries.
ReportCase documentedCase();

/// What is said of the case, computed.
struct ComputedReport {
    taxcore::TaxResult result;
    outputs::ReportContent content;
    paper::PaperDocument document;
};
ComputedReport computedReport(const ReportCase& one);

} // namespace fiscarel::testing
