#include "Fiscarel_SG/documents/kinds/SalaryWords.h"

namespace fiscarel {

using enum Concept;

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
                 {"*Einkünfte", "Einkommen", "Entrate", "revenus", "earnings"}},
        BoxWords{SalaryBox::net,
                 {{}, employers, true, {{net, wage}, {net}}, {gross, other, pension}}},
        BoxWords{SalaryBox::buyIn, {{}, employers, true, {{buyIn}}, {possible}}},
        BoxWords{SalaryBox::social,
                 {{}, employers, true, {{social, total}, {social}}, {gross, net, buyIn}}},
        BoxWords{SalaryBox::pensionFund,
                 {{},
                  employers,
                  true,
                  {{occupational, total}, {occupational}, {ordinary}},
                  {gross, net, buyIn, social}},
                 {"*vorsorge*", "PK", "PK-*", "*pension*", "prévoyance*", "previdenza*"}},
    };
    return rows;
}

} // namespace fiscarel
