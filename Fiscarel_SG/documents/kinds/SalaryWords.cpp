#include "Fiscarel_SG/documents/kinds/SalaryWords.h"

namespace fiscarel {

using enum Concept;

namespace {

Labels joined(Labels words, const Labels& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

/// What the social insurances take is for, by the risk alone.
const Labels& riskWords() {
    static const Labels words{"Arbeitslos*",
                              "Unfall*",
                              "*unfallversicherung",
                              "UVG*",
                              "Krankentaggeld*",
                              "Krankentag*",
                              "Lohnausfall*",
                              "Gesetzliche Abzüge",
                              "Gesetzliche Beiträge",
                              "chômage",
                              "chôm.",
                              "accident*",
                              "acc. n. prof",
                              "acc. non prof*",
                              "LAA",
                              "AP/ANP",
                              "ANP",
                              "maladie",
                              "perte de gain",
                              "pertes de gain",
                              "maternité",
                              "AMat",
                              "charges légales",
                              "cotisations légales",
                              "retenues légales",
                              "paritaires",
                              "journalières",
                              "disoccupazione",
                              "disocc*",
                              "infortun*",
                              "inf. n.p",
                              "inf. np",
                              "inf. non prof*",
                              "malattia",
                              "perdita di guadagno",
                              "perdita guadagno",
                              "maternità",
                              "IGM",
                              "IPGM",
                              "contributi di legge",
                              "trattenute di legge",
                              "ritenute di legge",
                              "oneri di legge",
                              "paritetic*",
                              "LAINF NP",
                              "unemployment",
                              "accident insurance"};
    return words;
}

} // namespace

const Labels& firstPillarWords() {
    static const Labels words{"1. Säule",
                              "Erste Säule",
                              "staatliche Vorsorge",
                              "premier pilier",
                              "1er pilier",
                              "Ier pilier",
                              "prévoyance étatique",
                              "assurance vieillesse",
                              "primo pilastro",
                              "1° pilastro",
                              "1o pilastro",
                              "I pilastro",
                              "previdenza statale",
                              "assicurazione vecchiaia",
                              "first pillar"};
    return words;
}

const std::array<BoxWords, 5>& boxWords() {
    static const Labels employers{"Arbeitgeber*", "employeur", "datore", "patronal*", "padronal*"};
    static const std::array<BoxWords, 5> rows{
        BoxWords{SalaryBox::gross,
                 {{},
                  employers,
                  true,
                  {{gross, wage, total},
                   {gross, wage},
                   {gross, total},
                   {gross},
                   {wage, total},
                   {wage, yearly},
                   {wage}},
                  {net, other, pension}},
                 {"*Einkünfte", "Einkommen", "Entrate", "revenus", "earnings", "competenze",
                  "spettanze", "elementi retributivi", "éléments de salaire", "Lohnbestandteile"}},
        BoxWords{SalaryBox::net,
                 {{}, employers, true, {{net, wage}, {net}}, {gross, other, pension}}},
        BoxWords{SalaryBox::buyIn, {{}, employers, true, {{buyIn}}, {possible}}},
        BoxWords{SalaryBox::social,
                 {{}, employers, true, {{social, total}, {social}}, {gross, net, buyIn}},
                 {},
                 joined(riskWords(), firstPillarWords())},
        BoxWords{SalaryBox::pensionFund,
                 {{},
                  joined(employers, firstPillarWords()),
                  true,
                  {{occupational, total}, {occupational}, {ordinary}},
                  {gross, net, buyIn, social}},
                 {"*vorsorge*", "PK", "PK-*", "*pension*", "prévoyance*", "previdenza*",
                  "previdenzial*", "caisse de retraite", "caisses de retraite"},
                 {"CP", "C.P", "Pens.kasse", "Pens.-Kasse", "caisse pens*", "cassa pens*",
                  "caisse de pens*", "retraite"}},
    };
    return rows;
}

} // namespace fiscarel
