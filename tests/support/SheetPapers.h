#pragma once

#include "Fiscarel_SG/documents/ScanResult.h"
#include "Fiscarel_SG/pages/documents/PageImages.h"

#include <QImage>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace fiscarel::testing {

/// Pages as pictures that come when the test says so, drawn with the values at their places.
class DrawnPages final : public pages::PageImages {
  public:
    explicit DrawnPages(const ScanResult& scan) : scan_(scan) {}

    bool atOnce = true;
    int unreadable = 0; ///< the page that cannot be shown; 0: none
    int requests = 0;

    void request(const std::filesystem::path& file, int page, int width,
                 std::function<void(QImage)> done) override;
    /// Hands out what was asked for.
    void deliver();

  private:
    QImage draw(int page, int width) const;

    const ScanResult& scan_;
    std::vector<std::pair<std::function<void(QImage)>, QImage>> waiting_;
};

/// A value as the reader proposes it.
struct Read {
    std::string field;
    std::string value;
    Proposal::Confidence confidence = Proposal::Confidence::high;
    std::vector<ProposalCheck> checks = {};
};

/// Adds a record with values, each with a place of its own on the record's page, from row `from`.
void addRecord(ScanResult& scan, ProposedRecord record, const std::vector<Read>& values,
               Proposal::Witness witness = Proposal::Witness::position, int from = 0);

/// The salary certificate of the demo household's second adult at the second employer.
ScanResult salaryPaper();
/// A statement of a bank with so many accounts and its total.
ScanResult statementPaper(int entries);

} // namespace fiscarel::testing
