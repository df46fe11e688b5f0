#include "tests/documents/corpus/layouts/facts/Tale.h"

#include <algorithm>
#include <array>

// Layouts of banks that give every account a box of its own beside the others.

namespace corpus {
namespace {

const QColor paleInk(90, 90, 90);

struct Card {
    QString title;
    QString number;
    std::vector<std::array<QString, 2>> lines; ///< label and value; the last one stands out
};

enum class Labels { beside, above };

void putCard(Paper& paper, const Card& card, double x, double width, Labels labels) {
    double y = paper.y;
    paper.put(x + 2, y + 5.5, card.title, paper.fitted(card.title, {10, true}, width - 4));
    paper.put(x + 2, y + 10, card.number,
              paper.fitted(card.number, {7.5, false, Align::left, false, paleInk}, width - 4));
    paper.line(x, y + 12.5, x + width, y + 12.5, 0.15);
    y += 13;
    for (const auto& [label, value] : card.lines) {
        const bool strong = &label == &card.lines.back()[0];
        if (labels == Labels::above) {
            paper.put(x + 2, y + 4, label, paper.fitted(label, {7}, width - 4));
            paper.put(x + 2, y + 9, value, paper.fitted(value, {10, strong}, width - 4));
            y += 11;
        } else {
            const Type type{8.5, strong, Align::right};
            paper.put(x + 2, y + 5, label,
                      paper.fitted(label, {8.5, strong}, width - 8 - paper.width(value, type)));
            paper.put(x + width - 2, y + 5, value, type);
            y += 6;
        }
    }
}

void putCards(Paper& paper, const std::vector<Card>& cards, size_t inRow, Labels labels) {
    constexpr double between = 4;
    const double width =
        (168 - between * static_cast<double>(inRow - 1)) / static_cast<double>(inRow);
    for (size_t first = 0; first < cards.size(); first += inRow) {
        const size_t last = std::min(cards.size(), first + inRow);
        size_t most = 0;
        for (size_t i = first; i < last; ++i) {
            most = std::max(most, cards[i].lines.size());
        }
        const double height =
            16 + static_cast<double>(most) * (labels == Labels::above ? 11.0 : 6.0);
        for (size_t i = first; i < last; ++i) {
            const double x = paper.left + static_cast<double>(i - first) * (width + between);
            paper.box(x, paper.y, width, height, 0.2);
            putCard(paper, cards[i], x, width, labels);
        }
        paper.y += height + 5;
    }
}

std::vector<Card> cardsOf(Draft& draft, const Facts& facts) {
    std::vector<Card> cards;
    const QString year = QString::number(draft.year);
    const QString end = draft.date(draft.yearEnd());
    const QString interest =
        draft.t("Zinsertrag brutto|Zins vor Steuer", "Intérêts bruts|Intérêts créanciers",
                "Interessi lordi|Interessi attivi");
    const QString tax =
        draft.t("Verrechnungssteuer|abzüglich VSt", "Impôt anticipé", "Imposta preventiva");
    const QString balance = draft.t("Saldo per ", "Solde au ", "Saldo al ") + end;
    for (const Facts& one : facts.lists.at("accounts")) {
        Card card{one.texts.at("name"), one.texts.at("number"), {}};
        card.lines.push_back({interest + " " + year, draft.m(one.amounts.at("interest"))});
        card.lines.push_back({tax, draft.m(one.amounts.at("tax"))});
        card.lines.push_back({balance, draft.f(one.amounts.at("balance"))});
        cards.push_back(card);
    }
    if (const auto loans = facts.lists.find("loans"); loans != facts.lists.end()) {
        const Facts& one = loans->second.front();
        Card card{one.texts.at("name"), one.texts.at("number"), {}};
        card.lines.push_back({draft.t("Zinssatz", "Taux", "Tasso"), one.texts.at("rate")});
        card.lines.push_back(
            {draft.t("Bezahlte Zinsen|Schuldzinsen", "Intérêts payés|Intérêts débiteurs",
                     "Interessi pagati|Interessi passivi")
                 + " " + year,
             draft.m(one.amounts.at("interest"))});
        card.lines.push_back({draft.t("Schuld per ", "Dette au ", "Debito al ") + end,
                              draft.f(one.amounts.at("debt"))});
        cards.insert(cards.begin() + draft.random.between(0, static_cast<int>(cards.size())), card);
    }
    return cards;
}

void drawCards(Draft& draft, const char* script, size_t inRow, Labels labels) {
    const Facts facts = told(draft, "cards");
    drawScript(draft, facts, script);
    draft.paper.space(4);
    putCards(draft.paper, cardsOf(draft, facts), inRow, labels);
}

void drawPairs(Draft& draft) {
    const QByteArray script =
        QByteArray("head 6 one\ntitle ")
        + (draft.language == "fr" ? "Vos produits en {year}: chiffres pour les impôts"
           : draft.language == "it"
               ? "I suoi prodotti nel {year}: cifre per le imposte"
               : "[Ihre Produkte {year}: Zahlen für die Steuern|Zins- und Kapitalausweis {year}]");
    drawCards(draft, script, 2, Labels::beside);
}

void drawThrees(Draft& draft) {
    const QByteArray script =
        QByteArray("head 1 both\nbold ")
        + (draft.language == "fr"   ? "Attestation d'intérêts et de solde {year}"
           : draft.language == "it" ? "Conferma di interessi e saldo {year}"
                                    : "[Steuerbescheinigung|Zins- und Saldobestätigung] {year}");
    drawCards(draft, script, 3, Labels::above);
}

} // namespace

std::vector<Layout> lakeCardPapers() {
    return {{"bank", "l-cards", false, "de,fr,it", false, drawPairs},
            {"bank", "l-cards-three", false, "de,fr,it", false, drawThrees}};
}

} // namespace corpus
