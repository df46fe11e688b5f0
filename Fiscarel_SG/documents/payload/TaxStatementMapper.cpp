#include "Fiscarel_SG/documents/payload/Mappers.h"

#include <algorithm>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

/// What an entry is worth and yields, francs.
struct Figures {
    Decimal taxValue;
    Decimal withWithholding;
    Decimal withoutWithholding;

    Figures& operator+=(const Figures& other) {
        taxValue = taxValue + other.taxValue;
        withWithholding = withWithholding + other.withWithholding;
        withoutWithholding = withoutWithholding + other.withoutWithholding;
        return *this;
    }
};

Decimal attributeAmount(pugi::xml_node node, std::string_view name) {
    return amountOf(attributeOf(node, name)).value_or(Decimal());
}

Figures totalsOf(pugi::xml_node node) {
    return {attributeAmount(node, "totalTaxValue"), attributeAmount(node, "totalGrossRevenueA"),
            attributeAmount(node, "totalGrossRevenueB")};
}

/// The sum of an entry's own value and payments, where it states no totals; rounded to cents.
Figures summedFigures(pugi::xml_node entry) {
    Figures sum;
    sum.taxValue = attributeAmount(childOf(entry, "taxValue"), "value");
    forEachChild(entry, "payment", [&](pugi::xml_node payment) {
        sum.withWithholding = sum.withWithholding + attributeAmount(payment, "grossRevenueA");
        sum.withoutWithholding = sum.withoutWithholding + attributeAmount(payment, "grossRevenueB");
    });
    return {sum.taxValue.roundPlain(2), sum.withWithholding.roundPlain(2),
            sum.withoutWithholding.roundPlain(2)};
}

Figures figuresOf(pugi::xml_node entry) {
    return attributeOf(entry, "totalTaxValue").empty()
                   && attributeOf(entry, "totalGrossRevenueA").empty()
                   && attributeOf(entry, "totalGrossRevenueB").empty()
               ? summedFigures(entry)
               : totalsOf(entry);
}

class StatementMapper {
  public:
    StatementMapper(pugi::xml_node statement, const JoinedPayload& payload,
                    const DocumentRows& document, ProposalDraft& draft)
        : statement_(statement), payload_(payload), document_(document), draft_(draft) {}

    void propose() {
        institution_ = attributeOf(childOf(statement_, "institution"), "name");
        const auto client = childOf(statement_, "client");
        person_ = attributeOf(client, "firstName");
        if (const std::string last = attributeOf(client, "lastName"); !last.empty()) {
            person_ += person_.empty() ? last : ' ' + last;
        }
        number_ = attributeOf(client, "tin");
        if (const auto year = amountOf(attributeOf(statement_, "taxPeriod"))) {
            const auto whole = year->toInteger();
            if (whole && *whole > 1900 && *whole < 2200) {
                year_ = static_cast<int>(*whole);
            }
        }
        proposeAccounts();
        proposeSecurities();
        proposeTotal();
        proposeDebts();
        proposeExpenses();
    }

  private:
    Evidence evidence(const Decimal& value, const std::optional<ProposalCheck>& check) const {
        Evidence found{.witness = Witness::payload,
                       .confidence = Confidence::high,
                       .reason = "Aus den Strichcodes des Steuerauszugs gelesen.",
                       .page = payload_.pages.front()};
        if (check) {
            found.checks.push_back(*check);
        }
        if (const auto place = value.abs() >= 1 ? findPrinted(document_, value) : std::nullopt) {
            found.page = place->page->number;
            found.box = pageBox(place->amount->printed, *place->page);
            found.checks.push_back(printedCheck(value, place->amount->amount));
        } else if (value.abs() >= 1 && isTextReliable()) {
            found.checks.push_back(
                {"Der Strichcode nennt " + shown(value) + "; gedruckt steht dieser Betrag nirgends",
                 false});
        }
        return found;
    }

    Evidence words() const {
        return {.witness = Witness::payload,
                .confidence = Confidence::high,
                .reason = "Aus den Strichcodes des Steuerauszugs gelesen.",
                .page = payload_.pages.front()};
    }

    /// Whether a missing amount means something: all pages have a text layer.
    bool isTextReliable() const {
        return document_.hasPlaces && !document_.pages.empty()
               && std::ranges::all_of(document_.pages, [](const PageRows& page) {
                      return !page.isRecognised && !page.rows.empty();
                  });
    }

    int record(ProposedRecord::Kind kind, const std::string& title) {
        return draft_.addRecord({.kind = kind,
                                 .title = title,
                                 .page = payload_.pages.front(),
                                 .year = year_,
                                 .personName = person_,
                                 .socialSecurityNumber = number_});
    }

    void addFigures(int index, const Figures& figures, const std::optional<ProposalCheck>& check) {
        const auto put = [&](const char* field, const Decimal& value) {
            if (!value.isZero()) {
                draft_.add(index, field, value, evidence(value, check));
            }
        };
        put("taxValue", figures.taxValue);
        put("incomeWithWithholding", figures.withWithholding);
        put("incomeWithoutWithholding", figures.withoutWithholding);
    }

    /// Entries of a list against the totals it states; a hundredth of a franc each for rounding.
    static std::optional<ProposalCheck> sumCheck(const std::string& what, const Figures& sum,
                                                 const Figures& stated, std::size_t count) {
        const Decimal most = Decimal(static_cast<int>(count) + 1) / 100;
        const auto differs = [&](const Decimal& a, const Decimal& b) {
            return (a - b).abs() > most;
        };
        if (differs(sum.taxValue, stated.taxValue)) {
            return ProposalCheck{"Die Steuerwerte der " + what + " ergeben " + shown(sum.taxValue)
                                     + ", als Total steht " + shown(stated.taxValue),
                                 false};
        }
        if (differs(sum.withWithholding, stated.withWithholding)
            || differs(sum.withoutWithholding, stated.withoutWithholding)) {
            return ProposalCheck{"Die Erträge der " + what + " ergeben "
                                     + shown(sum.withWithholding + sum.withoutWithholding)
                                     + ", als Total steht "
                                     + shown(stated.withWithholding + stated.withoutWithholding),
                                 false};
        }
        return ProposalCheck{"Die " + what + " ergeben zusammen das ausgewiesene Total", true};
    }

    struct Entry {
        pugi::xml_node node;
        Figures figures;
    };

    void proposeAccounts() {
        const auto list = childOf(statement_, "listOfBankAccounts");
        std::vector<Entry> entries;
        Figures sum;
        forEachChild(list, "bankAccount", [&](pugi::xml_node node) {
            entries.push_back({node, figuresOf(node)});
            sum += entries.back().figures;
        });
        if (entries.empty()) {
            return;
        }
        sum_ += sum;
        const auto check = sumCheck("Konten", sum, totalsOf(list), entries.size());
        for (const Entry& entry : entries) {
            std::string number = attributeOf(entry.node, "iban");
            if (number.empty()) {
                number = attributeOf(entry.node, "bankAccountNumber");
            }
            const int index = record(ProposedRecord::Kind::security, "Konto " + number);
            ++entryCount_;
            draft_.add(index, "kind", std::string("konto"), words());
            draft_.add(index, "institution", institution_, words());
            draft_.add(index, "description", attributeOf(entry.node, "bankAccountName"), words());
            draft_.add(index, "ibanOrValor", number, words());
            addFigures(index, entry.figures, check);
        }
    }

    void proposeSecurities() {
        const auto list = childOf(statement_, "listOfSecurities");
        std::vector<Entry> entries;
        Figures sum;
        forEachChild(list, "depot", [&](pugi::xml_node depot) {
            forEachChild(depot, "security", [&](pugi::xml_node node) {
                entries.push_back({node, figuresOf(node)});
                sum += entries.back().figures;
            });
        });
        if (entries.empty()) {
            return;
        }
        sum_ += sum;
        const auto check = sumCheck("Wertschriften", sum, totalsOf(list), entries.size());
        for (const Entry& entry : entries) {
            const std::string name = attributeOf(entry.node, "securityName");
            std::string number = attributeOf(entry.node, "isin");
            if (number.empty()) {
                number = attributeOf(entry.node, "valorNumber");
            }
            const int index = record(ProposedRecord::Kind::security, name.empty() ? number : name);
            ++entryCount_;
            draft_.add(index, "kind", std::string("wertschrift"), words());
            draft_.add(index, "institution", institution_, words());
            draft_.add(index, "description", name, words());
            draft_.add(index, "ibanOrValor", number, words());
            if (const auto quantity = quantityOf(entry.node)) {
                draft_.add(index, "quantity", *quantity, words());
            }
            addFigures(index, entry.figures, check);
        }
    }

    /// Held at the end of the year: as valued, else the last balance.
    static std::optional<Decimal> quantityOf(pugi::xml_node security) {
        auto quantity = amountOf(attributeOf(childOf(security, "taxValue"), "quantity"));
        if (!quantity) {
            forEachChild(security, "stock", [&](pugi::xml_node stock) {
                const std::string mutation = attributeOf(stock, "mutation");
                if (mutation == "0" || mutation == "false") {
                    quantity = amountOf(attributeOf(stock, "quantity"));
                }
            });
        }
        return quantity;
    }

    void proposeTotal() {
        const Figures stated = totalsOf(statement_);
        const auto check = sumCheck("Einträge", sum_, stated, entryCount_);
        const std::string yearText = year_ ? ' ' + std::to_string(*year_) : std::string();
        const int index = record(ProposedRecord::Kind::security,
                                 "Steuerauszug " + institution_ + yearText + " (Total)");
        draft_.record(index).advice =
            "Entweder dieses Total oder die einzelnen Konten und Wertschriften übernehmen, nicht "
            "beides.";
        draft_.add(index, "kind", std::string("steuerauszug"), words());
        draft_.add(index, "institution", institution_, words());
        draft_.add(index, "description", "Steuerauszug" + yearText, words());
        addFigures(index, stated, entryCount_ == 0 ? std::nullopt : check);
    }

    void proposeDebts() {
        const auto list = childOf(statement_, "listOfLiabilities");
        forEachChild(list, "liabilityAccount", [&](pugi::xml_node node) {
            const Figures figures = figuresOf(node);
            std::string name = attributeOf(node, "bankAccountName");
            if (name.empty()) {
                name = attributeOf(node, "bankAccountNumber");
            }
            const int index = record(ProposedRecord::Kind::debt, "Schuld " + name);
            draft_.add(index, "creditor", institution_.empty() ? name : institution_, words());
            if (!figures.taxValue.isZero()) {
                const Decimal amount = figures.taxValue.abs();
                draft_.add(index, "amount", amount, evidence(amount, std::nullopt));
            }
            if (const Decimal interest = figures.withoutWithholding.abs(); !interest.isZero()) {
                draft_.add(index, "interest", interest, evidence(interest, std::nullopt));
            }
        });
    }

    void proposeExpenses() {
        const auto list = childOf(statement_, "listOfExpenses");
        Decimal costs = attributeAmount(list, "totalExpensesDeductible");
        if (costs.isZero()) {
            costs = attributeAmount(list, "totalExpenses");
        }
        if (costs.isZero()) {
            forEachChild(list, "expense", [&](pugi::xml_node expense) {
                costs = costs + attributeAmount(expense, "expenses")
                        + attributeAmount(expense, "amount");
            });
        }
        if (costs.isZero()) {
            return;
        }
        const int index = record(ProposedRecord::Kind::householdDeductions,
                                 "Spesen und Gebühren " + institution_);
        draft_.record(index).advice =
            "Abziehbar sind nur Kosten der Verwahrung und Verwaltung; ein "
            "eingetragener Betrag ersetzt die Pauschale.";
        draft_.add(index, "actualAssetManagementCosts", costs, evidence(costs, std::nullopt));
    }

    pugi::xml_node statement_;
    const JoinedPayload& payload_;
    const DocumentRows& document_;
    ProposalDraft& draft_;
    std::string institution_;
    std::string person_;
    std::string number_;
    std::optional<int> year_;
    Figures sum_;
    std::size_t entryCount_ = 0;
};

} // namespace

bool proposeTaxStatement(pugi::xml_node statement, const JoinedPayload& payload,
                         const DocumentRows& document, ProposalDraft& draft) {
    if (localName(statement.name()) != "taxStatement") {
        return false;
    }
    StatementMapper(statement, payload, document, draft).propose();
    return true;
}

} // namespace fiscarel
