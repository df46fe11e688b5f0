#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/DocumentAmount.h"
#include "Fiscarel_SG/documents/text/FoldedText.h"
#include "Fiscarel_SG/documents/text/Isin.h"
#include "TaxCore/base/Iban.h"

#include <algorithm>
#include <array>

namespace fiscarel {

namespace {

using Words = std::vector<std::string_view>;

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool isOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::ranges::find(words, word) != words.end();
}

/// Marks words, looking at each with what stands before and after it.
class Marking {
  public:
    explicit Marking(const Words& words) : words_(words), marked_(words.size()) {
        for (const std::string_view word : words) {
            folded_.push_back(foldWords(word));
        }
    }

    std::vector<bool> run() {
        for (std::size_t i = 0; i < words_.size(); ++i) {
            markPercentage(i);
            markDay(i);
            markIban(i);
            markTelephone(i);
            markNumberAfterItsName(i);
            markTime(i);
            markYear(i);
            markGroups(i);
            markPlace(i);
        }
        return marked_;
    }

  private:
    std::string_view word(std::size_t at) const {
        return at < words_.size() ? words_[at] : std::string_view();
    }
    std::string_view folded(std::size_t at) const {
        return at < folded_.size() ? std::string_view(folded_[at]) : std::string_view();
    }
    void mark(std::size_t at) {
        if (at < marked_.size()) {
            marked_[at] = true;
        }
    }

    void markPercentage(std::size_t at) {
        std::string_view text = word(at);
        while (!text.empty() && std::string_view(",;:.)").find(text.back()) != text.npos) {
            text.remove_suffix(1); // "1.50 %, bezahlt am"
        }
        if (text.ends_with('%') || text.starts_with('%')
            || isOneOf(folded(at), {"prozent", "pourcent", "percento"})) {
            mark(at);
            if (at > 0
                && (text.size() == 1 || isLetter(folded(at).empty() ? '0' : folded(at)[0]))) {
                mark(at - 1);
            }
        }
    }

    void markDay(std::size_t at) {
        if (parseDay(word(at))) {
            mark(at);
        } else if (parseDay(word(at), word(at + 1), word(at + 2))) {
            mark(at);
            mark(at + 2);
        } else if (isDayOfYear(word(at))) {
            const bool isNamed =
                word(at).ends_with('.') || (hasOnlyDigits(word(at + 1)) && word(at + 1).size() == 4)
                || (at > 0
                    && isOneOf(folded(at - 1), {"per", "am", "bis", "vom", "zum", "ab", "au", "al",
                                                "du", "le", "il", "dal"}));
            if (isNamed) {
                mark(at);
            }
        } else if (monthOf(word(at)) != 0 && at > 0 && word(at - 1).size() <= 3) {
            mark(at - 1); // the day of "31. Dezember"
        }
    }

    void markIban(std::size_t at) {
        const std::string_view first = word(at);
        if (first.size() < 4 || !isLetter(first[0]) || !isLetter(first[1]) || !isDigit(first[2])
            || !isDigit(first[3])) {
            return;
        }
        if (isIsin(first)) { // what stands behind it is a name or a number of pieces
            mark(at);
            return;
        }
        std::string joined;
        for (std::size_t next = at; next < words_.size() && next < at + 9; ++next) {
            if (!std::ranges::all_of(word(next),
                                     [](char c) { return isDigit(c) || isLetter(c); })) {
                break;
            }
            joined += word(next);
            mark(next);
            const bool isOurs = joined.starts_with("CH") || joined.starts_with("LI");
            if (joined.size() >= (isOurs ? 21U : 35U)
                || (taxcore::looksLikeIban(joined) && !taxcore::ibanFault(joined))) {
                break;
            }
        }
    }

    void markTelephone(std::size_t at) {
        const bool isNamed = isOneOf(
            folded(at), {"tel", "telefon", "telephone", "telefono", "fax", "mobile", "natel"});
        const bool isPlain = (word(at).size() == 3 || word(at).starts_with("08"))
                             && word(at).size() <= 4 && word(at)[0] == '0'
                             && hasOnlyDigits(word(at)) && (at == 0 || !hasOnlyDigits(word(at - 1)))
                             && word(at + 1).size() == 3 && hasOnlyDigits(word(at + 1));
        if (!isNamed && !isPlain && !word(at).starts_with("+4") && word(at) != "0041") {
            return;
        }
        for (std::size_t next = isNamed ? at + 1 : at; next < std::min(at + 7, words_.size());
             ++next) {
            if (!std::ranges::all_of(word(next), [](char c) {
                    return isDigit(c)
                           || std::string_view("+()/-.").find(c) != std::string_view::npos;
                })) {
                break;
            }
            mark(next);
        }
    }

    /// "Vertrag 4711", "Police Nr. 88'123": a whole number after such a name is none of francs.
    void markNumberAfterItsName(std::size_t at) {
        static constexpr std::array names{
            std::string_view("nr"),        std::string_view("no"),
            std::string_view("nummer"),    std::string_view("numero"),
            std::string_view("ref"),       std::string_view("referenz"),
            std::string_view("reference"), std::string_view("riferimento"),
            std::string_view("seite"),     std::string_view("page"),
            std::string_view("pagina"),    std::string_view("ziffer"),
            std::string_view("chiffre"),   std::string_view("cifra"),
            std::string_view("art"),       std::string_view("artikel"),
            std::string_view("formular"),  std::string_view("form"),
            std::string_view("postfach"),  std::string_view("vertrag"),
            std::string_view("kunde"),     std::string_view("valor"),
            std::string_view("ziff"),
        };
        const std::string_view name = folded(at);
        const bool isName = std::ranges::find(names, name) != names.end()
                            || isOneOf(word(at), {"n°", "N°", "n.", "N."})
                            || name.ends_with("nummer") || name.ends_with(" nr")
                            || name.ends_with("referenz");
        if (!isName) {
            return;
        }
        // "Prêt n° 1698.90"
        const bool isShort = name.size() <= 2;
        // "N° de valeur 1234567", "Numero di quote 5" is a number of them
        const bool isOfThing =
            isOneOf(folded(at + 1), {"de", "di", "du", "del"})
            && isOneOf(folded(at + 2), {"valeur", "valore", "pret", "mutuo", "contrat", "contratto",
                                        "compte", "conto"});
        const std::size_t end = std::min(at + (isOfThing ? 4 : 3), words_.size());
        for (std::size_t next = at + 1; next < end; ++next) {
            const auto amount = parseAmount(word(next));
            const bool mayBe = amount && (!amount->hasDecimals || (isShort && !amount->hasMark));
            if (mayBe) {
                mark(next);
                break;
            }
        }
    }

    /// "Totale anno 2025 CHF": a year, not an amount before its currency.
    void markYear(std::size_t at) {
        if (isOneOf(folded(at), {"jahr", "steuerjahr", "kalenderjahr", "annee", "anno", "exercice",
                                 "esercizio", "year"})
            && yearOf2000s(word(at + 1))) {
            mark(at + 1);
        }
    }

    /// "08.00 bis 17.30 Uhr"
    void markTime(std::size_t at) {
        const bool isHour = isOneOf(folded(at), {"uhr", "heures", "ore"}) || word(at) == "h";
        if (!isHour || at == 0) {
            return; // "H" marks what a bank owes
        }
        mark(at - 1);
        if (at >= 3 && isOneOf(folded(at - 2), {"bis", "und", "a", "alle", ""})) {
            mark(at - 3);
        }
    }

    /// Long numbers, and numbers in blocks of five as references are printed.
    void markGroups(std::size_t at) {
        const std::string_view own = word(at);
        if (!hasOnlyDigits(own)) {
            return;
        }
        const auto isBlock = [this](std::size_t i) {
            return word(i).size() == 5 && hasOnlyDigits(word(i));
        };
        if (own.size() >= 8 || (own.size() > 3 && own[0] == '0')
            || (isBlock(at) && (isBlock(at + 1) || (at > 0 && isBlock(at - 1))))
            || (at > 1 && isBlock(at - 1) && isBlock(at - 2) && own.size() < 5)) {
            mark(at);
        }
    }

    /// "9000 St.Gallen": four digits before a name are a postal code.
    void markPlace(std::size_t at) {
        const std::string_view next = word(at + 1);
        const bool isCode = word(at).size() == 4 && hasOnlyDigits(word(at));
        if (isCode && next.size() > 2 && next[0] >= 'A' && next[0] <= 'Z' && !isFrancs(next)
            && !hasDigit(next)) {
            mark(at);
            markHouse(at);
        }
    }

    /// "Strasse 30, 9000 St. Gallen": the number of the house before a place.
    void markHouse(std::size_t place) {
        std::string_view number = place > 0 ? word(place - 1) : std::string_view();
        if (number.size() > 1 && number.size() <= 4 && number.back() == ',') {
            number.remove_suffix(1);
            if (hasOnlyDigits(number)) {
                mark(place - 1);
            }
        }
    }

    const Words& words_;
    std::vector<std::string> folded_;
    std::vector<bool> marked_;
};

} // namespace

std::vector<bool> wordsWithoutAmount(const Words& words) { return Marking(words).run(); }

} // namespace fiscarel
