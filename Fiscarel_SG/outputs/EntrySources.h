#pragma once

#include "Fiscarel_SG/store/StoredDocument.h"
#include "TaxCore/model/TaxCase.h"
#include "TaxCore/result/Derivation.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace fiscarel::outputs {

/// Where entries come from: whose they are and which documents stand behind them.
class EntrySources {
  public:
    /// The documents of the case's year are numbered from 1 in the order given.
    EntrySources(const taxcore::TaxCase& taxCase, const std::vector<StoredDocument>& documents);

    const std::vector<StoredDocument>& documents() const noexcept { return documents_; }

    /// "Nora Rheintaler, Werdenwerk Apparatebau AG" of an entry at a path of the case: the person
    /// and the item of a list it belongs to. Empty for entries of the household.
    std::string ownerOf(std::string_view path) const;
    /// The numbers of the documents that an entry was taken from or is proved by.
    std::set<int> documentsOf(std::string_view path) const;
    /// Those of all entries of a derivation.
    std::set<int> documentsOf(const taxcore::Derivation& derivation) const;
    /// The number of a document; 0 when it is none of the year's.
    int numberOf(const std::optional<taxcore::Uuid>& document) const;

  private:
    /// An item of a list of the case.
    struct Item {
        std::string name;
        std::optional<taxcore::Uuid> document;
    };
    template <class Record>
    void addItems(const std::string& list, const std::vector<Record>& records);
    void addPerson(int number, const taxcore::PersonIncome& income);
    void addHousehold(const taxcore::TaxCase& taxCase);
    const Item* itemAt(std::string_view path) const;

    std::vector<StoredDocument> documents_;
    std::map<std::string, Item, std::less<>> items_;            ///< by "securities[2]"
    std::map<std::string, std::set<int>, std::less<>> applied_; ///< document numbers by path
    std::vector<std::string> persons_; ///< names; empty unless there are two
};

/// "1, 3"; empty without numbers.
std::string numberList(const std::set<int>& numbers);

} // namespace fiscarel::outputs
