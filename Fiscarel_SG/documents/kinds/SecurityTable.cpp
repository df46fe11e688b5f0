#include "Fiscarel_SG/documents/kinds/SecurityTable.h"

#include "Fiscarel_SG/documents/kinds/AccountTable.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace fiscarel {

using Confidence = Proposal::Confidence;
using Witness = Proposal::Witness;

namespace {

/// What a column of a table of securities states.
enum class Stated { quantity, price, value, withTax, withoutTax, income };
constexpr std::size_t statedCount = 6;
using StatedAmounts = std::array<std::optional<FoundAmount>, statedCount>;

const std::optional<FoundAmount>& at(const StatedAmounts& amounts, Stated stated) {
    return amounts[static_cast<std::size_t>(stated)];
}

bool hasWord(const Row& cell, std::string_view text) {
    return std::ranges::any_of(cell.words, [&](const RowWord& word) { return word.text == text; });
}

/// Income by whether tax was withheld: "mit Verrechnungssteuer", "ohne VSt", "Ertrag A". Absent
/// when the words do not tell.
std::optional<Stated> taxednessOf(const Row& words) {
    static const Labels without{
        "ohne", "nicht", "sans", "non soumis*", "senza", "non sogg*", "verrechnungssteuerfrei*"};
    static const Labels with{"mit", "avec", "soumis*", "con", "soggett*", "verrechnungssteuerpfl*"};
    if (isAnyIn(words.folded, without) || hasWord(words, "B")) {
        return Stated::withoutTax;
    }
    if (isAnyIn(words.folded, with) || hasWord(words, "A")) {
        return Stated::withTax;
    }
    return std::nullopt;
}

std::optional<Stated> statedBy(const Row& cell, bool isRecognised) {
    static const Labels numbers{"Valor",         "Valor-Nr*",        "Valoren*",    "Valorennummer",
                                "N° de valeur",  "No de valeur",     "No valeur",   "ISIN",
                                "numero valore", "numero di valore", "n. di valore"};
    static const Labels quantities{"Anzahl",   "Stück*",  "Stk",      "Nominal*", "Bestand",
                                   "Menge",    "Nombre",  "Quantité", "Quantità", "Nennwert",
                                   "Quantity", "Anteile", "unités"};
    static const Labels prices{"Kurs",   "Kurs*", "Steuerkurs*", "Cours", "Corso",
                               "Prezzo", "Preis", "Prix",        "Price"};
    static const Labels values{"*steuerwert*", "Kurswert*",      "Wert*",          "Verkehrswert*",
                               "Marktwert*",   "Vermögenswert*", "Gegenwert*",     "valeur*",
                               "valore*",      "controvalore*",  "contre-valeur*", "market value"};
    static const Labels incomes{
        "Ertrag*",    "Erträge", "Bruttoertr*", "Dividende*", "Ausschüttung*", "Zins*", "brutto*",
        "rendement*", "revenu*", "reddit*",     "dividend*",  "provent*",      "ricav*"};
    static const Labels notValues{"Anfang*", "Einstand*", "Kaufwert*", "Vorjahr*", "Beginn"};
    const auto says = [&](const Labels& labels) {
        return findLabel(cell, labels, isRecognised).has_value();
    };
    if (says(numbers) || cell.words.size() > 6) {
        return std::nullopt;
    }
    const auto taxed = taxednessOf(cell);
    if (says(incomes) || (taxed && cell.words.size() == 1)) {
        return taxed ? taxed : Stated::income;
    }
    if (taxed && namesAny(cell, {Concept::withholding}, isRecognised)) {
        return taxed;
    }
    return says(quantities)                   ? std::optional(Stated::quantity)
           : says(values) && !says(notValues) ? std::optional(Stated::value)
           : says(prices)                     ? std::optional(Stated::price)
                                              : std::nullopt;
}

struct SecurityHeading {
    TableHeading table;
    std::vector<std::optional<Stated>> stated; ///< of each column
    bool hasNumbers = false;                   ///< a column of security numbers

    bool has(Stated one) const { return std::ranges::count(stated, std::optional(one)) == 1; }
    bool isOne() const {
        return has(Stated::value) && (has(Stated::quantity) || (hasNumbers && has(Stated::price)));
    }
};

SecurityHeading securityHeading(const PageRows& page, std::size_t row) {
    static const Labels numbers{"Valor*", "ISIN", "N° de valeur", "No valeur", "numero valore"};
    for (const bool withNext : {false, true}) {
        SecurityHeading heading{.table = tableHeadingIn(page, row, withNext)};
        for (const TableColumn& column : heading.table.columns) {
            heading.stated.push_back(statedBy(column.cell, page.isRecognised));
            heading.hasNumbers |= isAnyIn(column.cell.folded, numbers);
        }
        if (heading.isOne()) {
            return heading;
        }
    }
    return {};
}

/// A word without the brackets and marks around it.
std::string bareWord(const std::string& text) {
    std::string bare;
    std::ranges::copy_if(text, std::back_inserter(bare),
                         [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; });
    return bare;
}

bool isIsin(const std::string& word) {
    const auto isUpper = [](char c) { return c >= 'A' && c <= 'Z'; };
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return word.size() == 12 && isUpper(word[0]) && isUpper(word[1]) && isDigit(word[11])
           && std::ranges::all_of(word, [&](char c) { return isUpper(c) || isDigit(c); })
           && std::ranges::count_if(word, isDigit) >= 5;
}

/// A Swiss security number has five to nine digits without marks between.
bool isValor(const std::string& word) {
    return word.size() >= 5 && word.size() <= 9
           && std::ranges::all_of(word, [](char c) { return c >= '0' && c <= '9'; });
}

struct Security {
    std::string number; ///< ISIN or valor
    std::string name;
    StatedAmounts amounts;
};

/// The number and name a row gives before its amounts.
void readNames(const Row& row, std::size_t end, Security& security) {
    for (std::size_t i = 0; i < std::min(end, row.words.size()); ++i) {
        const std::string word = bareWord(row.words[i].text);
        if (isIsin(word) || (isValor(word) && security.number.empty())) {
            security.number = word;
        } else if (!row.words[i].folded.empty()) {
            security.name += (security.name.empty() ? "" : " ") + row.words[i].text;
        }
    }
    while (!security.name.empty() && (security.name.back() == ',' || security.name.back() == ' ')) {
        security.name.pop_back();
    }
}

StatedAmounts amountsOf(const PageRows& page, std::size_t row, const SecurityHeading& heading) {
    StatedAmounts amounts;
    std::array<double, statedCount> distances{};
    distances.fill(page.width);
    for (const RowAmount& amount : page.rows[row].amounts) {
        const auto column = heading.table.columnOf(amount, page);
        const auto stated = column ? heading.stated[*column] : std::nullopt;
        if (!stated || (*stated != Stated::quantity && !amount.amount.isFirm())) {
            continue;
        }
        const auto index = static_cast<std::size_t>(*stated);
        const TableColumn& head = heading.table.columns[*column];
        const double distance = std::abs(head.place.right - amount.place.right);
        if (distance < distances[index]) {
            distances[index] = distance;
            amounts[index] =
                FoundAmount{.page = &page, .row = row, .amount = amount, .label = head.words()};
        }
    }
    return amounts;
}

class SecurityReader {
  public:
    SecurityReader(const KindContext& context, const PageRows& page, SecurityHeading heading)
        : context_(context), page_(page), heading_(std::move(heading)) {}

    void read() {
        for (std::size_t row = heading_.table.row + 1; row < page_.rows.size(); ++row) {
            const StatedAmounts amounts = amountsOf(page_, row, heading_);
            if (isTotal(row, amounts)) {
                totals_ = amounts;
                return;
            }
            if (at(amounts, Stated::value)) {
                addSecurity(row, amounts);
            } else if (!securities_.empty()) {
                addIncome(row, amounts);
            }
        }
    }

    void propose(ProposalDraft& draft) const {
        for (const Security& security : securities_) {
            proposeOne(security, draft);
        }
    }

    bool isEmpty() const { return securities_.empty(); }

    /// Whether number times price proves more than one security.
    bool isProven() const {
        return std::ranges::count_if(
                   securities_, [](const Security& one) { return productCheck(one).has_value(); })
               >= 2;
    }

  private:
    Decimal sumOf(Stated stated) const {
        Decimal sum;
        for (const Security& one : securities_) {
            sum = sum + (at(one.amounts, stated) ? at(one.amounts, stated)->value() : Decimal());
        }
        return sum;
    }

    bool isTotal(std::size_t row, const StatedAmounts& amounts) const {
        const auto& value = at(amounts, Stated::value);
        return value
               && (namesAny(page_.rows[row], {Concept::total}, page_.isRecognised)
                   || (!securities_.empty() && value->value() == sumOf(Stated::value)));
    }

    void addSecurity(std::size_t row, StatedAmounts amounts) {
        Security security;
        std::size_t end = page_.rows[row].words.size();
        for (const auto& amount : amounts) {
            end = amount ? std::min(end, amount->amount.first) : end;
        }
        readNames(page_.rows[row], end, security);
        if (security.number.empty() && row + 1 < page_.rows.size()
            && page_.rows[row + 1].amounts.empty()) {
            Security below;
            readNames(page_.rows[row + 1], page_.rows[row + 1].words.size(), below);
            security.number = below.number;
        }
        if (security.number.empty() && !at(amounts, Stated::quantity)) {
            return;
        }
        security.amounts = std::move(amounts);
        securities_.push_back(std::move(security));
        addIncome(row, securities_.back().amounts);
    }

    /// Income in a column that does not tell the tax, by the words of its row.
    void addIncome(std::size_t row, const StatedAmounts& amounts) {
        StatedAmounts& own = securities_.back().amounts;
        const auto put = [&](Stated stated, const std::optional<FoundAmount>& amount) {
            auto& known = own[static_cast<std::size_t>(stated)];
            known = known ? known : amount;
        };
        const auto taxed = taxednessOf(page_.rows[row]);
        const auto income = at(amounts, Stated::income);
        if (income && taxed) {
            put(*taxed, income);
        }
        if (!at(amounts, Stated::value)) {
            put(Stated::withTax, at(amounts, Stated::withTax));
            put(Stated::withoutTax, at(amounts, Stated::withoutTax));
        }
    }

    /// Number times price, for bonds in per cent.
    static std::optional<ProposalCheck> productCheck(const Security& security) {
        const auto& quantity = at(security.amounts, Stated::quantity);
        const auto& price = at(security.amounts, Stated::price);
        const auto& value = at(security.amounts, Stated::value);
        if (!quantity || !price || !value) {
            return std::nullopt;
        }
        const Decimal product = quantity->value() * price->value();
        for (const Decimal& computed : {product, product / 100}) {
            if (!computed.isZero() && (computed - value->value()).abs() <= Decimal(5) / 100) {
                return ProposalCheck{shown(quantity->value()) + " × " + shown(price->value())
                                         + " = " + shown(value->value()),
                                     true};
            }
        }
        return std::nullopt;
    }

    std::optional<ProposalCheck> sumCheck(Stated stated) const {
        const auto& total = at(totals_, stated);
        if (!total || total->value().isZero() || total->value() != sumOf(stated)) {
            return std::nullopt;
        }
        return ProposalCheck{"Die Beträge der Spalte ergeben das Total " + shown(total->value()),
                             true};
    }

    /// The tax claimed back is 35 per cent of what it was withheld from (VStG Art. 13).
    std::optional<ProposalCheck> taxCheck() const {
        const Decimal taxed = sumOf(Stated::withTax);
        const Decimal tax = taxed * 35 / 100;
        for (const Row& row : page_.rows) {
            for (const RowAmount& amount : row.amounts) {
                if (taxed > 0 && amount.amount.isFirm()
                    && (amount.amount.value - tax).abs() <= Decimal(1) / 100
                    && namesAny(row, {Concept::withholding}, page_.isRecognised)) {
                    return ProposalCheck{
                        "35 % von " + shown(taxed) + " = " + shown(amount.amount.value), true};
                }
            }
        }
        return std::nullopt;
    }

    void proposeOne(const Security& security, ProposalDraft& draft) const {
        const auto& facts = context_.facts;
        const int record = draft.addRecord(
            recordWith(facts, ProposedRecord::Kind::security,
                       security.name.empty() ? security.number : security.name, page_.number));
        Evidence words{.witness = Witness::position,
                       .confidence = Confidence::medium,
                       .reason = "Steht in der Zeile der Wertschrift.",
                       .page = page_.number};
        draft.add(record, "kind", std::string("wertschrift"), words);
        draft.add(record, "description", security.name, words);
        draft.add(record, "ibanOrValor", security.number, words);
        Evidence issuer = words;
        issuer.reason = "Steht oben auf dem Dokument.";
        issuer.page = facts.issuer.page;
        issuer.box = facts.issuer.box;
        draft.add(record, "institution", facts.issuer.text, issuer);
        const auto product = productCheck(security);
        addAmount(record, "quantity", security, Stated::quantity, {product}, draft);
        addAmount(record, "taxValue", security, Stated::value, {product, sumCheck(Stated::value)},
                  draft);
        addAmount(record, "incomeWithWithholding", security, Stated::withTax,
                  {sumCheck(Stated::withTax), taxCheck()}, draft);
        addAmount(record, "incomeWithoutWithholding", security, Stated::withoutTax,
                  {sumCheck(Stated::withoutTax)}, draft);
    }

    void addAmount(int record, const char* field, const Security& security, Stated stated,
                   const std::vector<std::optional<ProposalCheck>>& checks,
                   ProposalDraft& draft) const {
        const auto& found = at(security.amounts, stated);
        if (!found || found->value().isZero()) {
            return;
        }
        std::vector<ProposalCheck> held;
        for (const auto& check : checks) {
            if (check) {
                held.push_back(*check);
            }
        }
        const bool isProven = !held.empty();
        static const Wanted specific{{}, {}, true};
        Evidence evidence = evidenceOf(*found, specific, context_.isKindClear, std::move(held));
        if (!isProven && context_.kind == StoredDocument::Kind::steuerauszug) {
            evidence.confidence = Confidence::low;
        } else if (isProven && stated == Stated::quantity && context_.isKindClear
                   && !page_.isRecognised) {
            evidence.confidence = Confidence::high; // pieces are whole numbers
        }
        draft.add(record, field, found->value(), std::move(evidence));
    }

    const KindContext& context_;
    const PageRows& page_;
    SecurityHeading heading_;
    std::vector<Security> securities_;
    StatedAmounts totals_;
};

/// The first table of securities of a page; absent when it has none.
std::optional<SecurityReader> tableOf(const KindContext& context, const PageRows& page) {
    for (std::size_t row = 0; row < page.rows.size() && page.number != 0; ++row) {
        if (SecurityHeading heading = securityHeading(page, row); heading.isOne()) {
            SecurityReader reader(context, page, std::move(heading));
            reader.read();
            if (!reader.isEmpty()) {
                return reader;
            }
        }
    }
    return std::nullopt;
}

} // namespace

bool proposeSecurities(const KindContext& context, const PageRows& page, ProposalDraft& draft) {
    const auto table = tableOf(context, page);
    if (table) {
        table->propose(draft);
    }
    return table.has_value();
}

bool listsSecurities(const DocumentRows& document) {
    const DocumentFacts facts;
    const KindContext context{document, facts, StoredDocument::Kind::steuerauszug, true, {}};
    return std::ranges::any_of(document.pages, [&](const PageRows& page) {
        const auto table = tableOf(context, page);
        return table && table->isProven();
    });
}

} // namespace fiscarel
