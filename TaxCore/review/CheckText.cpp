#include "TaxCore/review/CheckText.h"

#include "TaxCore/base/Text.h"

#include <algorithm>
#include <array>

namespace taxcore::review {

namespace {

/// Every byte beyond ASCII counts as a part of a letter.
bool isLetter(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')
           || static_cast<unsigned char>(c) >= 0x80;
}

/// Calls `use` for each word of a text.
template <class Use>
void forEachWord(std::string_view text, const Use& use) {
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && isLetter(text[end])) {
            ++end;
        }
        if (end > at) {
            use(text.substr(at, end - at));
        }
        at = end + 1;
    }
}

struct Spelling {
    std::string_view character; ///< UTF-8
    std::string_view plain;
};

/// Letters of the region's languages, and what separates words without being ASCII. The combining
/// dots make an umlaut of the letter before them.
constexpr std::array spellings{
    Spelling{"ä", "ae"}, Spelling{"Ä", "ae"}, Spelling{"ö", "oe"},     Spelling{"Ö", "oe"},
    Spelling{"ü", "ue"}, Spelling{"Ü", "ue"}, Spelling{"ß", "ss"},     Spelling{"à", "a"},
    Spelling{"À", "a"},  Spelling{"â", "a"},  Spelling{"Â", "a"},      Spelling{"ç", "c"},
    Spelling{"Ç", "c"},  Spelling{"é", "e"},  Spelling{"É", "e"},      Spelling{"è", "e"},
    Spelling{"È", "e"},  Spelling{"ê", "e"},  Spelling{"Ê", "e"},      Spelling{"\u0308", "e"},
    Spelling{"«", " "},  Spelling{"»", " "},  Spelling{"\u00a0", " "}, Spelling{"–", " "},
    Spelling{"’", " "},  Spelling{"„", " "},  Spelling{"“", " "},      Spelling{"”", " "}};

} // namespace

bool hasWord(std::string_view text, std::string_view word) {
    bool found = false;
    forEachWord(text, [&](std::string_view other) { found = found || other == word; });
    return found;
}

std::string plainText(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    while (!text.empty()) {
        const auto* const found = std::ranges::find_if(spellings, [&](const Spelling& spelling) {
            return text.starts_with(spelling.character);
        });
        const bool isKnown = found != spellings.end();
        plain += isKnown ? found->plain : text.substr(0, 1);
        text.remove_prefix(isKnown ? found->character.size() : 1);
    }
    return lowerAscii(plain);
}

std::vector<std::string> plainWords(std::string_view text) {
    std::vector<std::string> words;
    forEachWord(plainText(text), [&](std::string_view word) { words.emplace_back(word); });
    return words;
}

std::string itemName(std::string_view name, std::string_view kind, int index) {
    if (!isBlank(name)) {
        return "«" + std::string(name) + "»";
    }
    return std::string(kind) + " " + std::to_string(index + 1);
}

std::string itemWithKind(std::string_view kind, std::string_view name, int index,
                         std::string_view between) {
    const std::string named = itemName(name, kind, index);
    const std::string link = between.empty() ? " " : " " + std::string(between) + " ";
    return isBlank(name) ? named : std::string(kind) + link + named;
}

std::string called(const Child& child, int index) {
    return isBlank(child.firstName) ? itemName("", "Kind", index) : child.firstName;
}

std::string called(const SalaryCertificate& certificate, int index) {
    return itemWithKind("Lohnausweis", certificate.employer, index);
}

std::string called(const SecurityEntry& entry, int index) {
    const bool both = !isBlank(entry.institution) && !isBlank(entry.description);
    return itemName(entry.institution + (both ? ", " : "") + entry.description, "Eintrag", index);
}

std::string called(const RealEstate& property, int index) {
    return itemName(property.description, "Liegenschaft", index);
}

std::string called(const Donation& donation, int index) {
    return itemWithKind("Spende", donation.recipient, index, "an");
}

std::string called(const MedicalCost& bill, int index) {
    return itemWithKind("Rechnung", bill.provider, index);
}

std::string called(const Debt& debt, int index) {
    return itemWithKind("Schuld", debt.creditor, index, "bei");
}

std::string called(const InsurancePolicy& policy, int index) {
    return itemWithKind("Versicherung", policy.company, index);
}

std::string sentenceOn(IbanFault fault) {
    switch (fault) {
    case IbanFault::form:
        return "Eine IBAN beginnt mit zwei Buchstaben und zwei Prüfziffern, danach folgt die "
               "Kontonummer aus Ziffern und Buchstaben.";
    case IbanFault::length:
        return "Die IBAN ist zu kurz oder zu lang; in der Schweiz und in Liechtenstein hat sie 21 "
               "Zeichen.";
    case IbanFault::checkDigits:
        break;
    }
    return "Die Prüfziffern der IBAN stimmen nicht; wahrscheinlich ist eine Stelle vertippt.";
}

} // namespace taxcore::review
