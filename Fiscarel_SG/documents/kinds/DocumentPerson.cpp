#include "Fiscarel_SG/documents/kinds/DocumentPerson.h"

#include "Fiscarel_SG/documents/kinds/FormHeader.h"
#include "Fiscarel_SG/documents/kinds/LetterHead.h"
#include "Fiscarel_SG/documents/kinds/PersonName.h"
#include "Fiscarel_SG/documents/rows/RowLabels.h"
#include "Fiscarel_SG/documents/text/Digits.h"
#include "Fiscarel_SG/documents/text/DocumentAmount.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace fiscarel {

namespace {

/// What stands before the name of the person a document concerns.
const Labels& personLabels() {
    static const Labels labels{"Versicherte Person",
                               "Personne assurée",
                               "Persona assicurata",
                               "Vorsorgenehmer*",
                               "Versicherungsnehmer*",
                               "Kontoinhaber*",
                               "Preneur de prévoyance",
                               "Titulaire*",
                               "Titolare",
                               "Intestatario",
                               "Patient/in",
                               "Patientin",
                               "Patient",
                               "Paziente",
                               "Behandlung von",
                               "Traitement de",
                               "Cura di",
                               "Cure di",
                               "Trattamento di",
                               "Name des Kindes",
                               "Kind",
                               "Enfant",
                               "Bambino",
                               "Bambina",
                               "Teilnehmerin",
                               "Teilnehmer*",
                               "Participant*",
                               "Partecipante",
                               "Spenderin",
                               "Spender*",
                               "Donateur*",
                               "Donatore",
                               "Reçu de",
                               "Ricevuto da",
                               "Erhalten von",
                               "Eigentümer*",
                               "Propriétaire",
                               "Proprietario",
                               "Kundin/Kunde",
                               "Kundin",
                               "Kunde",
                               "Client",
                               "Cliente",
                               "lautend auf",
                               "au nom de",
                               "a nome di",
                               "intestato a",
                               "Depotinhaber*",
                               "Name, Vorname",
                               "Name und Vorname",
                               "Vorname und Name",
                               "Vorname, Name",
                               "Nom, prénom",
                               "Nom et prénom",
                               "Prénom et nom",
                               "Cognome, nome",
                               "Cognome e nome",
                               "Nome e cognome",
                               "Name",
                               "Nom",
                               "Nome",
                               "bestätigen, dass",
                               "Arbeitnehmer/in",
                               "Arbeitnehmerin",
                               "Arbeitnehmer",
                               "Mitarbeiter/in",
                               "Mitarbeiterin",
                               "Mitarbeiter",
                               "Collaboratrice",
                               "Collaborateur",
                               "Rentenbezüger/in",
                               "Rentenbezüger*",
                               "Preneur d'assurance",
                               "Stipulante",
                               "Versicherter",
                               "Versicherte"};
    return labels;
}

/// The name beside a label: behind it, or in the next cell of its row.
std::optional<Run> nameBeside(const PageRows& page, const Row& row, const LabelPlace& label) {
    if (label.last + 1 >= row.words.size()) {
        return std::nullopt;
    }
    if (const auto name = personNameAt(page, row, label.last + 1)) {
        return name;
    }
    // "Name der Kita   Villa Sonnenschein" is of something else.
    static const Labels links{"der", "des", "du", "de", "della", "dell", "del"};
    const std::size_t end = runFrom(page, row, label.last).last;
    const bool goesOn = end > label.last && isAnyIn(row.words[label.last + 1].folded, links);
    return goesOn ? std::nullopt : personNameAt(page, row, end + 1);
}

/// The name in the cell below one that a label begins.
std::optional<Run> nameBelow(const PageRows& page, const Row& row, const LabelPlace& label) {
    const bool beginsCell =
        label.first == 0 || runFrom(page, row, label.first - 1).last == label.first - 1;
    const auto at = static_cast<std::size_t>(&row - page.rows.data());
    const auto below = beginsCell ? runBelow(page, at, label.left) : std::nullopt;
    const auto name = below ? personNameAt(page, *below->row, below->first) : std::nullopt;
    return name && name->last == below->last ? name : std::nullopt;
}

std::optional<Run> nameByLabel(const PageRows& page) {
    for (const Label& label : personLabels()) {
        for (const Row& row : page.rows) {
            const auto place = findLabel(row, label, page.isRecognised);
            if (!place || namesContact(row)) {
                continue;
            }
            if (const auto name = nameBeside(page, row, *place)) {
                return name;
            }
            if (const auto name = nameBelow(page, row, *place)) {
                return name;
            }
        }
    }
    return std::nullopt;
}

/// Whether words of a row tell of a person: a day of birth, a social security number, since when a
/// customer.
bool tellsOfPerson(const Row& row, std::size_t from, std::size_t end) {
    static const Labels roles{"geb",     "geboren",   "né",           "née",     "nato",
                              "nata",    "born",      "Kundin*",      "Kunde*",  "client",
                              "cliente", "Mitglied*", "Versicherte*", "assuré*", "assicurat*"};
    constexpr int lastBirth = 2010; // later days may be of anything
    for (std::size_t i = from; i < std::min(row.words.size(), end); ++i) {
        std::string_view text = row.words[i].text;
        while (!text.empty() && std::string_view(",;)").find(text.back()) != text.npos) {
            text.remove_suffix(1);
        }
        auto day = parseDay(text);
        if (!day && i + 2 < row.words.size()) {
            day = parseDay(row.words[i].text, row.words[i + 1].text, row.words[i + 2].text);
        }
        if (isSocialSecurityNumber(text) || (day && day->year() <= lastBirth)
            || isAnyIn(row.words[i].folded, roles)) {
            return true;
        }
    }
    return false;
}

/// "Anna Muster, 12.03.1980": the first name at the beginning of a row that tells more of it.
std::optional<Run> nameByBirth(const PageRows& page) {
    constexpr std::size_t farthest = 3; // words from a name
    for (const Row& row : page.rows) {
        const auto name =
            tellsOfPerson(row, 0, row.words.size()) ? personNameAt(page, row, 0) : std::nullopt;
        if (name && tellsOfPerson(row, name->last + 1, name->last + 1 + farthest)) {
            return name;
        }
    }
    return std::nullopt;
}

} // namespace

PlacedText findPerson(const PageRows& page) {
    auto name = nameByLabel(page);
    if (!name) {
        if (PlacedText addressee = findAddressee(page, page.height); !addressee.text.empty()) {
            return addressee;
        }
        name = nameByBirth(page);
    }
    PlacedText person = name ? placedText(page, *name) : PlacedText();
    while (!person.text.empty()
           && std::string_view(",;.").find(person.text.back()) != std::string_view::npos) {
        person.text.pop_back();
    }
    return person;
}

} // namespace fiscarel
