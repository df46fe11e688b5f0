#include "Fiscarel_SG/documents/kinds/PeopleWords.h"

namespace fiscarel {

const Labels& births() {
    static const Labels words{"geb",  "geboren", "né", "née", "nato",         "nascita",  "nata",
                              "born", "am",      "le", "il",  "Geburtsdatum", "naissance"};
    return words;
}

const Labels& plainBirths() {
    static const Labels words{"geb",   "geboren*", "né",           "née",        "nés",
                              "nato",  "nata",     "nati",         "nascita",    "born",
                              "né(e)", "Geburt",   "Geburtsdatum", "Geburtstag", "naissance"};
    return words;
}

const Labels& noNames() {
    static const Labels words{
        "Geschwister*", "*schwester", "Bruder",  "Zwilling*", "Für",      "Pour",   "Per",
        "Von",          "Ihr*",       "Unser*",  "Votre",     "Vostro",   "*kind",  "Kinder",
        "Name",         "Vorname",    "Enfant",  "Enfants",   "Nom",      "Prénom", "Nome",
        "Cognome",      "Herr",       "Frau",    "Madame",    "Monsieur", "Signor", "Signora",
        "Person",       "Tochter",    "Sohn",    "Bambino",   "Bambina",  "Geb",    "Geboren",
        "Geburtsdatum", "Total",      "Familie", "Famille",   "Famiglia", "Januar", "Februar",
        "März",         "April",      "Mai",     "Juni",      "Juli",     "August", "September",
        "Oktober",      "November",   "Dezember"};
    return words;
}

const Labels& sumsOf() {
    static const Labels words{"Total",      "Totale",
                              "Subtotal*",  "Subtotale",
                              "Sous-total", "Zwischentotal",
                              "Summe",      "Zwischensumme",
                              "Totaux",     "Somma",
                              "für",        "von",
                              "pour",       "de",
                              "per",        "di",
                              "Kind",       "enfant",
                              "figlio",     "figlia",
                              "bambino",    "bambina"};
    return words;
}

} // namespace fiscarel
