#include "Fiscarel_SG/documents/kinds/KindEvidence.h"
#include "Fiscarel_SG/documents/rows/CellRoles.h"
#include "Fiscarel_SG/documents/rows/Vocabulary.h"

#include <algorithm>

namespace fiscarel {

namespace {

/// Who works on buildings, and on what.
const Labels& trades() {
    static const Labels words{"Sanitär*",
                              "*malergeschäft*",
                              "Malerarbeiten",
                              "Malerei",
                              "Maler",
                              "Dachdecker*",
                              "Bedachung*",
                              "*spengler*",
                              "Zimmerei",
                              "Holzbau",
                              "Reparatur*",
                              "Heizung*",
                              "*schreinerei*",
                              "Schreiner",
                              "Elektroinstall*",
                              "Elektriker*",
                              "Sanierung*",
                              "Gartenbau",
                              "Bodenbeläge",
                              "Bodenleger*",
                              "Parkett*",
                              "Fensterbau",
                              "Glaserei",
                              "Metallbau",
                              "Schlosserei",
                              "Haustechnik",
                              "Gipser*",
                              "Plattenleger*",
                              "Storen*",
                              "Rollladen*",
                              "Kaminfeger*",
                              "Maurer*",
                              "Baugeschäft",
                              "Renovation*",
                              "Instandstellung*",
                              "Instandhalt*",
                              "Unterhaltsarbeiten",
                              "Fassadenbau",
                              "Peinture",
                              "Plâtrerie",
                              "Toiture*",
                              "Couverture",
                              "Couvreur",
                              "Ferblanterie",
                              "Ferblantier",
                              "Menuiserie",
                              "Menuisier",
                              "Charpente*",
                              "Maçonnerie",
                              "Carrelage*",
                              "Serrurerie",
                              "Vitrerie",
                              "Ramonage",
                              "Électricité",
                              "Électricien*",
                              "Rénovation*",
                              "Réparation*",
                              "Chauffage*",
                              "Sanitaire*",
                              "Plomberie",
                              "Falegnameria",
                              "Pittura",
                              "Pittore",
                              "Gessatore",
                              "Manutenzion*",
                              "Elettricista",
                              "Impianti",
                              "Idraulic*",
                              "Lattoneria",
                              "Lattoniere",
                              "Copritetto",
                              "Carpenteria",
                              "Muratore",
                              "Piastrellist*",
                              "Serramenti",
                              "Spazzacamino",
                              "Riparazion*",
                              "Riscaldament*",
                              "Spenglerei"};
    return words;
}

/// What is repaired too, and is no building.
const Labels& vehicles() {
    static const Labels words{"*fahrzeug*",  "*garage AG",  "Autogarage",      "Kontrollschild",
                              "Pneu*",       "Velo*",       "km-Stand",        "Kilometerstand",
                              "véhicule*",   "pneus",       "immatriculation", "carrozzeria",
                              "Karosserie*", "carrosserie", "veicolo",         "autoveicol*"};
    return words;
}

/// Whether a bill counts hours of work and, apart from them, what was used for it.
bool hasWorkAndMaterial(const DocumentRows& document) {
    static const Labels work{
        "Arbeit*", "Arbeiten",  "Std",         "Stunden",    "Monteur*",     "Vorarbeit*",
        "Regie*",  "Lernende*", "ouvrier*",    "apprenti*",  "main-d'œuvre", "main d'oeuvre",
        "heures",  "operai*",   "apprendist*", "manodopera", "ore"};
    static const Labels material{"*material*",  "matériel*", "matériaux",
                                 "fourniture*", "material*", "forniture"};
    const auto isCharged = [&](const Labels& words) {
        return std::ranges::any_of(document.pages, [&](const PageRows& page) {
            return std::ranges::any_of(page.rows, [&](const Row& row) {
                return hasFirmAmount(row) && isAnyIn(row.folded, words);
            });
        });
    };
    return isCharged(work) && isCharged(material);
}

} // namespace

bool isRepairBill(const DocumentRows& document) {
    static const Labels bills{"*schlussrechnung*", "*schlussabrechnung*",
                              "Regieabrechnung",   "*regierechnung*",
                              "Rechnung*",         "*teilrechnung*",
                              "*akontorechnung*",  "Handwerkerrechnung",
                              "Faktura",           "Facture*",
                              "Fattura*",          "Note de travaux"};
    if (!isAnyIn(document.folded, bills) || isAnyIn(document.folded, vehicles())) {
        return false;
    }
    static const Labels building{"Objekt",   "*liegenschaft*", "*gebäude*", "*wohnung*",
                                 "*haus",    "Fassade*",       "immeuble*", "bâtiment*",
                                 "villa",    "appartement*",   "chantier*", "stabile",
                                 "edificio", "appartamento",   "cantiere",  "Baustelle*"};
    return isAnyIn(document.folded, trades())
           || (isAnyIn(document.folded, building) && hasWorkAndMaterial(document));
}

bool isBuildingPremium(const DocumentRows& document) {
    static const Labels insurances{"Gebäudeversicherung*",   "Gebäude-Versicherung*",
                                   "*gebäude-assekuranz*",   "*gebäudeassekuranz*",
                                   "Gebäudeprämie*",         "Brandschutzabgabe",
                                   "assurance bâtiment*",    "assurance du bâtiment",
                                   "assurance immobilière*", "ECA",
                                   "assicurazione stabili",  "assicurazione dello stabile",
                                   "assicurazione edifici",  "assicurazione dell'edificio"};
    static const Labels bills{"Prämienrechnung*",   "Rechnung",         "facture",
                              "facture de prime*",  "avis de prime*",   "fattura",
                              "fattura del premio", "avviso di premio", "bordereau de prime*"};
    const std::string title = titleWords(document);
    const bool isForTax = isAnyIn(document.folded, wordsFor(Concept::upkeep))
                          || isAnyIn(document.folded, wordsFor(Concept::deductible));
    return isForTax && isAnyIn(title, insurances) && isAnyIn(title, bills)
           && isAnyIn(document.folded, wordsFor(Concept::premium));
}

} // namespace fiscarel
