#include "Fiscarel_SG/documents/kinds/LetterHead.h"

#include "Fiscarel_SG/documents/kinds/PersonName.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace fiscarel {

namespace {

constexpr double footBegins = 0.88;     ///< of the page's height
constexpr std::size_t mostLetters = 80; ///< of a name

/// "9000 St.Gallen", "FL-9490 Vaduz"
bool isTown(std::string_view text) {
    for (const std::string_view prefix : {"CH-", "FL-", "LI-"}) {
        if (text.starts_with(prefix)) {
            text.remove_prefix(prefix.size());
        }
    }
    return text.size() > 6 && hasOnlyDigits(text.substr(0, 4)) && text[4] == ' '
           && !hasDigit(text.substr(5, 2));
}

bool isName(const Run& run) {
    const std::string text = run.text();
    const std::size_t count = run.last - run.first + 1;
    return !namesCompany(run.folded()) && count >= 2 && count <= 5 && !hasDigit(text)
           && text.size() < mostLetters && startsWithCapital(text)
           && text.find_first_of(":,;") == std::string::npos;
}

/// Whether a town follows in one of the next lines at the same left edge.
bool isAboveTown(const PageRows& page, std::size_t at, double left) {
    auto below = runBelow(page, at, left);
    for (int lines = 0; below && lines < 3; ++lines) {
        if (isTown(below->text())) {
            return true;
        }
        const auto index = static_cast<std::size_t>(below->row - page.rows.data());
        below = runBelow(page, index, below->left());
    }
    return false;
}

/// Whether a word ends an item of a list: "Anna Muster,"
bool endsItem(const RowWord& word) { return word.text.ends_with(','); }

/// The name in a line that holds a whole address: "Kunde: Anna Muster, Seeweg 3, 9000 St.Gallen".
/// Not of those whom one may ask.
std::optional<Run> nameInAddressLine(const PageRows& page, const Row& row) {
    const auto& words = row.words;
    for (std::size_t town = 2; town + 1 < words.size(); ++town) {
        const std::string place = textBetween(row, town, town + 1);
        if (!isTown(place) || !endsItem(words[town - 1])) {
            continue;
        }
        std::size_t street = town - 1; // its first word
        while (street > 0 && !endsItem(words[street - 1])) {
            --street;
        }
        if (street == 0 || !hasDigit(textBetween(row, street, town - 1)) || namesContact(row)) {
            continue;
        }
        std::size_t first = street - 1;
        while (first > 0 && !endsItem(words[first - 1]) && !words[first - 1].text.ends_with(':')) {
            --first;
        }
        constexpr std::size_t mostWords = 12; // of a name, or a label before it
        first = std::max(first, street - std::min(street, mostWords));
        for (; first < street; ++first) { // words of a sentence or a label may stand before it
            const auto name = personNameAt(page, row, first);
            if (name && name->last + 1 == street) {
                return name;
            }
        }
    }
    return std::nullopt;
}

/// Whether a text is or has an address of mail or the web.
bool isOnline(std::string_view text) {
    return text.find('@') != std::string_view::npos || text.find("www.") != std::string_view::npos
           || text.find("http") != std::string_view::npos;
}

/// The parts of a run between its separators; one without any is its only part.
std::vector<Run> partsOf(const Run& run) {
    std::vector<Run> parts;
    std::size_t first = run.first;
    for (std::size_t i = run.first; i <= run.last + 1; ++i) {
        if (i == run.last + 1 || isSeparator(run.row->words[i])) {
            if (i > first) {
                parts.push_back({run.row, first, i - 1});
            }
            first = i + 1;
        }
    }
    return parts;
}

bool isAtFoot(const PageRows& page, const Run& run) {
    const std::string name = foldWords(run.text());
    return std::ranges::any_of(page.rows, [&](const Row& row) {
        return row.middle() > page.height * footBegins
               && row.folded.find(name) != std::string::npos;
    });
}

/// Looks for the issuer in one way after the other.
class IssuerSearch {
  public:
    IssuerSearch(const PageRows& page, const PlacedText& addressee)
        : page_(page), addressee_(foldWords(addressee.text)) {}

    PlacedText run() const {
        constexpr std::size_t topRows = 12;
        const auto top = std::span(page_.rows).first(std::min(topRows, page_.rows.size()));
        const auto isSenderLine = [](const std::vector<Run>& parts) {
            return parts.size() >= 2 && std::ranges::any_of(parts, [](const Run& part) {
                       return isTown(part.text());
                   });
        };
        const auto isContactLine = [&](const std::vector<Run>& parts) {
            return parts.size() >= 2 && page_.number != 0
                   && parts.front().row->middle() > page_.height * footBegins;
        };
        if (const auto signedFor = signerOfReceipt(top)) {
            return placedText(page_, *signedFor);
        }
        const auto sender = firstPart(top, isSenderLine);
        const auto company = firstCompany(top);
        // The line of an address may be the customer's, below the name of a company.
        if (sender && (!company || namesCompany(sender->folded()) || sender->row < company->row)) {
            return placedText(page_, *sender);
        }
        if (company) {
            return placedText(page_, *company);
        }
        if (const auto contact = firstPart(page_.rows, isContactLine)) {
            return placedText(page_, *contact);
        }
        for (const Row& row : top) {
            constexpr std::size_t mostCells = 2; // more are of a table's heading
            for (const Run& part : allParts(row)) {
                if (isWorded(part) && cellsOf(row).size() <= mostCells) {
                    return placedText(page_, part);
                }
            }
        }
        return {};
    }

  private:
    /// The first part of the first run that is what is looked for and begins with words.
    template <class Wanted>
    std::optional<Run> firstPart(std::span<const Row> rows, const Wanted& isWanted) const {
        for (const Row& row : rows) {
            for (std::size_t first = 0; first < row.words.size();) {
                const Run run = runFrom(page_, row, first);
                const auto parts = partsOf(run);
                if (isWanted(parts) && isWorded(parts.front())) {
                    return parts.front();
                }
                first = run.last + 1;
            }
        }
        return std::nullopt;
    }

    std::optional<Run> firstCompany(std::span<const Row> rows) const {
        for (const Row& row : rows) {
            if (hasFirmAmount(row)) {
                continue; // of a table, whose shares are companies' too
            }
            for (const Run& part : allParts(row)) {
                if (namesCompany(part.folded()) && part.text().size() < mostLetters
                    && !isOnline(part.text()) && !isAddressee(part) && !isHeading(part)) {
                    return part;
                }
            }
        }
        return std::nullopt;
    }

    /// Whether words are a paper's heading rather than a name: "Ihre Versicherungsprämien 2025".
    static bool isHeading(const Run& part) {
        static const Labels possessives{"Ihr*",   "unser*", "votre", "vos", "notre",
                                        "vostr*", "nostr*", "sua",   "your"};
        constexpr std::size_t mostSmall = 3; // words of a name that begins with a small letter
        const auto& words = part.row->words;
        const bool isSentence =
            !startsWithCapital(words[part.first].text) && part.last - part.first >= mostSmall;
        bool tellsYear = false;
        for (std::size_t i = part.first; i <= part.last; ++i) {
            tellsYear |= yearOf2000s(words[i].text).has_value();
        }
        return tellsYear || isSentence || isAnyIn(words[part.first].folded, possessives)
               || (hasDigit(words[part.first].text) && words[part.first].text.size() < 3);
    }

    /// Whom a receipt is signed for: "Pour les Amis du Refuge   le caissier"; such forms have no
    /// letterhead.
    std::optional<Run> signerOfReceipt(std::span<const Row> top) const {
        static const Labels receipts{"Quittung", "Quittance", "Ricevuta", "Reçu", "Receipt"};
        static const Labels signs{"Für", "Pour", "Per", "For"};
        const bool isReceipt = !top.empty() && isAnyIn(top.front().folded, receipts)
                               && isAnyIn(top.front().words.front().folded, receipts);
        for (const Row& row : isReceipt ? std::span<const Row>(page_.rows) : top.first(0)) {
            Run run = runFrom(page_, row, 0);
            if (run.last < run.first + 2 || !isAnyIn(row.words[0].folded, signs)
                || !row.amounts.empty()) {
                continue;
            }
            ++run.first;
            if (startsWithCapital(run.text()) && isWorded(run)) {
                return run;
            }
        }
        return std::nullopt;
    }

    std::vector<Run> allParts(const Row& row) const {
        std::vector<Run> all;
        for (std::size_t first = 0; first < row.words.size();) {
            const Run run = runFrom(page_, row, first);
            for (const Run& part : partsOf(run)) {
                all.push_back(part);
            }
            first = run.last + 1;
        }
        return all;
    }

    bool isWorded(const Run& part) const {
        const std::string text = part.text();
        return !hasDigit(text) && text.size() > 3 && text.size() < mostLetters && !isOnline(text)
               && !isAddressee(part);
    }

    bool isAddressee(const Run& part) const {
        return !addressee_.empty() && foldWords(part.text()).starts_with(addressee_);
    }

    const PageRows& page_;
    std::string addressee_; ///< folded
};

} // namespace

bool namesContact(const Row& row) {
    static const Labels words{"*berater*",  "Kontakt*",  "Verwalt*",   "Ansprech*",
                              "conseill*",  "contact*",  "consulen*",  "Absender*",
                              "expéditeur", "mittente",  "zuständig*", "responsab*",
                              "*bearbeit*", "Auskunft*", "incaricat*", "gestionnaire"};
    return isAnyIn(row.folded, words);
}

bool isSeparator(const RowWord& word) {
    static constexpr std::array<std::string_view, 6> signs{"|", "·", "•", "/", "–", "-"};
    return std::ranges::find(signs, word.text) != signs.end();
}

bool namesCompany(const std::string& folded) {
    static const Labels words{"AG",
                              "SA",
                              "GmbH",
                              "Sàrl",
                              "Sagl",
                              "Fondation",
                              "Fondazione",
                              "Association",
                              "Associazione",
                              "*bank",
                              "Bankhaus",
                              "Banken",
                              "Bankiers",
                              "Banque*",
                              "Banquier*",
                              "Banca*",
                              "*kasse",
                              "*stiftung",
                              "*genossenschaft",
                              "*gesellschaft",
                              "*verein",
                              "*verband",
                              "*anstalt",
                              "*schule",
                              "*gemeinde",
                              "*spital",
                              "*klinik",
                              "Clinique*",
                              "Clinica",
                              "*praxis",
                              "*apotheke",
                              "Pharmacie",
                              "Farmacia",
                              "*zentrum",
                              "Raiffeisen*",
                              "Versicherung*",
                              "Assurance*",
                              "Assicurazion*",
                              "Kita",
                              "Kindertagesstätte",
                              "Cabinet*",
                              "Studio",
                              "Crèche",
                              "Akademie",
                              "Institut*",
                              "École",
                              "Scuola",
                              "Kanton",
                              "Amt",
                              "Caisse*",
                              "Cassa",
                              "Asilo",
                              "Hilfswerk",
                              "Dr",
                              "Garderie"};
    return isAnyIn(folded, words);
}

const Labels& salutations() {
    static const Labels words{"Herr", "Herrn", "Frau", "Monsieur", "Madame", "Signor", "Signora"};
    return words;
}

PlacedText findAddressee(const PageRows& page, double above) {
    static const Labels abbreviated{"M", "Mme"};
    std::optional<Run> last;
    for (std::size_t at = 0; at + 2 < page.rows.size() && page.number != 0; ++at) {
        const Row& row = page.rows[at];
        if (row.middle() >= above) {
            break;
        }
        for (std::size_t first = 0; first < row.words.size();) {
            Run run = runFrom(page, row, first);
            const double left = run.left();
            first = run.last + 1;
            const bool isSaluted = run.last > run.first
                                   && (isAnyIn(row.words[run.first].folded, salutations())
                                       || isAnyIn(row.words[run.first].folded, abbreviated));
            run.first += isSaluted ? 1 : 0;
            if (!isName(run) || !isAboveTown(page, at, left)) {
                continue;
            }
            if (isSaluted) {
                return placedText(page, run);
            }
            // Of several the sender comes first, and stands at the foot once more.
            if (!last || !isAtFoot(page, run)) {
                last = run;
            }
        }
    }
    for (std::size_t at = 0; !last && at < page.rows.size(); ++at) {
        const Row& row = page.rows[at];
        if (row.middle() < std::min(above, page.height / 2)) {
            last = nameInAddressLine(page, row);
        }
    }
    PlacedText name = last ? placedText(page, *last) : PlacedText();
    if (name.text.ends_with(',')) {
        name.text.pop_back();
    }
    return name;
}

PlacedText findIssuer(const PageRows& page, const PlacedText& addressee) {
    return IssuerSearch(page, addressee).run();
}

} // namespace fiscarel
