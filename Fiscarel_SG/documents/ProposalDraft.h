#pragma once

#include "Fiscarel_SG/documents/ScanResult.h"
#include "Fiscarel_SG/documents/rows/PageRows.h"
#include "TaxCore/base/Date.h"

#include <optional>
#include <string>
#include <vector>

namespace fiscarel {

/// How a value is known, for all values found in one way.
struct Evidence {
    Proposal::Witness witness = Proposal::Witness::text;
    Proposal::Confidence confidence = Proposal::Confidence::low;
    std::string reason; ///< German
    int page = 0;
    std::optional<PageBox> box;
    std::vector<ProposalCheck> checks;
};

/// The rows of a document, page by page, with its text for those without words.
struct DocumentRows {
    std::vector<PageRows> pages;
    std::string folded;    ///< all words of the document, by `foldWords`
    bool hasPlaces = true; ///< false: the rows are lines of text, their places mean nothing

    /// The page of a number; null when there is none.
    const PageRows* page(int number) const;
};

/// Collects what a document proposes. What its texts hold, from barcodes too, is kept as one line
/// of plain characters.
class ProposalDraft {
  public:
    explicit ProposalDraft(ScanResult& result) : result_(result) {}

    /// Adds a record and returns its index.
    int addRecord(ProposedRecord record);
    ProposedRecord& record(int index) { return result_.records[static_cast<std::size_t>(index)]; }

    // Adds a value for a field of a record; empty texts are left out. A failed check lowers the
    // confidence: of a payload to medium, of everything else to low.
    void add(int record, std::string field, const Decimal& value, Evidence evidence);
    void add(int record, std::string field, std::string text, Evidence evidence);
    void add(int record, std::string field, const std::optional<taxcore::Date>& day,
             Evidence evidence);
    void addTrue(int record, std::string field, Evidence evidence);

    bool hasRecords() const { return !result_.records.empty(); }
    ScanResult& result() { return result_; }

  private:
    void put(int record, std::string field, const std::string& value, Evidence evidence);

    ScanResult& result_;
};

/// An amount as sentences show it: "1’234.50".
std::string shown(const Decimal& amount);
/// A day as sentences show it and fields take it: "2024-12-31".
std::string isoDay(const taxcore::Date& day);

/// "Der Strichcode nennt …, gedruckt steht …", or that both agree.
ProposalCheck printedCheck(const Decimal& payload, const PrintedAmount& printed);
/// Whether an amount printed with two decimals or, from 100 francs on, in whole ones is this one.
bool isPrintedForm(const Decimal& value, const PrintedAmount& printed);
/// Where an amount is printed, with decimals if it is anywhere; absent when nowhere. `onPage` 0:
/// on any page.
struct PrintedPlace {
    const PageRows* page = nullptr;
    const RowAmount* amount = nullptr;
};
std::optional<PrintedPlace> findPrinted(const DocumentRows& document, const Decimal& value,
                                        int onPage = 0);

/// Where a sum is printed to the centime, whatever its sign: as an amount, or as a bare number at
/// the end of a row that is no year. Null and absent when nowhere.
const RowAmount* findSum(const PageRows& page, const Decimal& sum);
std::optional<PrintedPlace> findSum(const DocumentRows& document, const Decimal& sum);

} // namespace fiscarel
