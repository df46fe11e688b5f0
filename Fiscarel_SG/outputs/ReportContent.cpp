#include "Fiscarel_SG/outputs/ReportContent.h"

#include "Fiscarel_SG/outputs/ReportParts.h"
#include "TaxCore/model/Household.h"
#include "TaxCore/review/Advisor.h"

#include <algorithm>
#include <utility>

namespace fiscarel::outputs {

using namespace taxcore;

namespace {

constexpr int coverTop = 96; ///< white space above the title of the cover, points
constexpr int coverGap = 26;

/// Where the household lives, as the result knows it.
std::string residence(const ReportMaterial& material) {
    const auto& municipality = material.result().municipality;
    return municipality ? municipality->name : material.taxCase().municipality;
}

ReportFigures coverFigures(const ReportMaterial& material) {
    const TaxResult& result = material.result();
    const TaxBill& bill = result.bill;
    ReportFigures figures;
    const auto add = [&](std::string label, const Decimal& amount, std::string code) {
        figures.figures.push_back({std::move(label), money(amount), std::move(code)});
    };
    const Decimal total = Advisor::totalTax(result);
    add("Total der Steuern " + std::to_string(result.year) + ", CHF", total, "total");
    const bool li = material.isLiechtenstein();
    add(li ? "Landessteuer" : "Kanton", bill.cantonTotal(), "cantonTotal");
    add(li ? "Gemeindezuschlag" : "Gemeinde", bill.municipalityTotal(), "municipalityTotal");
    if (!li) {
        add("Kirche", bill.churchTotal(), "churchTotal");
        add("Bund", bill.federal, "federal");
    }
    if (total != bill.total()) {
        add("Kapitalleistungen", total - bill.total(), "");
    }
    return figures;
}

/// How many entries the result rests on: fields that are not 0 and that some derivation names.
std::size_t entryCount(const ReportMaterial& material) {
    std::set<std::string> paths;
    for (const Derivation& derivation : material.derivations) {
        for (const DerivationStep& step : derivation.steps) {
            const auto& amount = step.canton ? step.canton : step.federal;
            if (step.path && amount && !amount->isZero()) {
                paths.insert(*step.path);
            }
        }
    }
    return paths.size();
}

std::string counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

/// What the result rests on, in two columns without a head.
ReportTable foundations(const ReportMaterial& material) {
    const TaxResult& result = material.result();
    const TaxBill& bill = result.bill;
    const bool li = material.isLiechtenstein();
    const std::size_t documents = material.sources.documents().size();
    ReportTable rows = table({labelColumn(""), textColumn("")});
    rows.hasHead = false;
    const auto add = [&](const char* name, std::string text) {
        addRow(rows, {{name}, {std::move(text)}});
    };
    if (li) {
        add("Steuerbarer Gesamterwerb", money(bill.taxableIncomeCanton));
        add("Gesamtvermögen", money(bill.taxableWealth));
    } else {
        add("Steuerbares Einkommen", dotted({"Kanton " + money(bill.taxableIncomeCanton),
                                             "Bund " + money(bill.taxableIncomeFederal)}));
        add("Steuerbares Vermögen", money(bill.taxableWealth));
    }
    add("Tarif", std::string(li ? label(liTariffOf(material.taxCase())) : label(bill.kind)));
    add(li ? "Gemeindezuschlag" : "Steuerfuss",
        li ? percent(bill.municipalityRate)
           : dotted({"Kanton " + percent(bill.cantonRate),
                     "Gemeinde " + percent(bill.municipalityRate),
                     "Kirche " + percent(bill.churchRate)}));
    add("Regeln",
        "Steuerjahr " + std::to_string(result.year)
            + (li ? ", Fürstentum Liechtenstein" : ", Kanton St.Gallen und direkte Bundessteuer"));
    add("Grundlage",
        counted(entryCount(material), "Angabe", "Angaben") + " und "
            + (documents == 0 ? "keine Belege" : counted(documents, "Beleg", "Belege")));
    add("Erstellt am", dayText(material.input.madeOn));
    return rows;
}

/// Chapters with the pages they begin on.
ReportTable contents(const std::vector<ReportChapter>& chapters) {
    ReportTable list = table({textColumn("Inhalt"), pageColumn()});
    for (const ReportChapter& one : chapters) {
        addRow(list, {{one.title}, {.pageOf = one.anchor}}).link = one.anchor;
    }
    return list;
}

std::string pageHead(const TaxCase& taxCase) {
    return "Steuererklärung " + std::to_string(taxCase.year) + " · " + householdName(taxCase);
}

} // namespace

std::vector<ReportBlock> coverBlocks(const ReportMaterial& material) {
    const TaxCase& taxCase = material.taxCase();
    using Tone = ReportText::Tone;
    std::vector<ReportBlock> blocks;
    blocks.emplace_back(ReportSpace{coverTop});
    blocks.emplace_back(ReportText{material.isLiechtenstein() ? "Fürstentum Liechtenstein"
                                                              : "Kanton St.Gallen und Bund",
                                   Tone::kicker});
    blocks.emplace_back(
        ReportText{"Steuererklärung " + std::to_string(taxCase.year), Tone::display});
    blocks.emplace_back(ReportText{householdName(taxCase), Tone::lead});
    blocks.emplace_back(ReportText{
        dotted({residence(material), std::string(label(taxCase.civilStatus)),
                taxCase.registerNumber.empty() ? "" : "Register-Nr. " + taxCase.registerNumber}),
        Tone::faint});
    blocks.emplace_back(ReportSpace{coverGap});
    blocks.emplace_back(coverFigures(material));
    blocks.emplace_back(ReportSpace{coverGap});
    blocks.emplace_back(foundations(material));
    return blocks;
}

ReportChapter householdChapter(const ReportMaterial& material) {
    const TaxCase& taxCase = material.taxCase();
    ReportChapter household = chapter("Haushalt", "household");
    ReportTable persons = table({labelColumn("Person"), labelColumn("Geboren"),
                                 textColumn("Beruf und Arbeitgeber"), textColumn("Konfession")});
    int number = 0;
    for (const Person& person : taxCase.persons()) {
        // Without a church tax nobody is asked for it.
        const std::string confession =
            material.isLiechtenstein() ? std::string() : std::string(label(person.confession));
        addRow(persons, {{personName(taxCase, ++number)},
                         {dayText(person.birthDate)},
                         {dotted({person.profession, person.employer})},
                         {confession}});
    }
    household.blocks.emplace_back(std::move(persons));
    if (!taxCase.children.empty()) {
        ReportTable children =
            table({labelColumn("Kind"), labelColumn("Geboren"), textColumn("Ausbildung"),
                   amountColumn("Drittbetreuung"), amountColumn("Ausbildungskosten")});
        number = 0;
        for (const Child& child : taxCase.children) {
            ++number;
            addRow(children,
                   {{child.firstName.empty() ? "Kind " + std::to_string(number) : child.firstName,
                     child.lastName == taxCase.person1.lastName ? "" : child.lastName},
                    {dayText(child.birthDate)},
                    {std::string(label(child.education)),
                     dotted({child.school, child.childcareProvider,
                             child.livesInHousehold ? "" : "nicht im gleichen Haushalt"})},
                    {moneyOrNothing(child.childcareCosts)},
                    {moneyOrNothing(child.educationCosts)}});
        }
        household.blocks.emplace_back(std::move(children));
    }
    ReportTable facts = table({labelColumn(""), textColumn("")});
    facts.hasHead = false;
    const auto add = [&](const char* name, const std::string& text) {
        if (!text.empty()) {
            addRow(facts, {{name}, {text}});
        }
    };
    add("Zivilstand", std::string(label(taxCase.civilStatus)));
    add("Gemeinde", residence(material));
    add("Kirchgemeinde", taxCase.parish.value_or(""));
    add("Register-Nr.", taxCase.registerNumber);
    add("Konto für Rückzahlungen", taxCase.iban);
    household.blocks.emplace_back(std::move(facts));
    return household;
}

ReportContent reportContent(const ReportInput& input) {
    const ReportMaterial material(input);
    const TaxCase& taxCase = input.taxCase;
    struct Maker {
        ReportChapter (*make)(const ReportMaterial&);
        bool beginsOnNewPage = false;
    };
    std::vector<ReportChapter> chapters;
    for (const auto& [make, beginsOnNewPage] :
         {Maker{householdChapter, true}, Maker{returnChapter}, Maker{billChapter},
          Maker{breakdownChapter}, Maker{limitsChapter}, Maker{noticesChapter},
          Maker{incomeRegisters}, Maker{wealthRegisters}, Maker{deductionRegisters},
          Maker{documentsChapter}, Maker{reasonsChapter, true}}) {
        if (ReportChapter made = make(material); hasContent(made)) {
            made.beginsOnNewPage = beginsOnNewPage;
            chapters.push_back(std::move(made));
        }
    }
    ReportChapter cover{
        .title = "Deckblatt", .anchor = "cover", .blocks = coverBlocks(material), .isCover = true};
    cover.blocks.emplace_back(ReportSpace{coverGap});
    cover.blocks.emplace_back(contents(chapters));
    cover.blocks.emplace_back(ReportSpace{coverGap});
    cover.blocks.emplace_back(
        ReportText{"Die Berechnung hilft beim Ausfüllen und ist unverbindlich; massgebend ist die "
                   "Veranlagung der Steuerbehörde.",
                   ReportText::Tone::faint});
    chapters.insert(chapters.begin(), std::move(cover));
    return {.title = pageHead(taxCase),
            .pageHead = pageHead(taxCase),
            .pageFoot = dotted({material.isLiechtenstein() ? "Liechtenstein" : "Kanton St.Gallen",
                                dayText(input.madeOn)}),
            .chapters = std::move(chapters)};
}

std::string pdfFileName(std::string_view what, const TaxCase& taxCase) {
    std::string name = std::string(what) + "-" + std::to_string(taxCase.year);
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 10> letters{
        {{"ä", "ae"},
         {"ö", "oe"},
         {"ü", "ue"},
         {"Ä", "Ae"},
         {"Ö", "Oe"},
         {"Ü", "Ue"},
         {"é", "e"},
         {"è", "e"},
         {"à", "a"},
         {"ç", "c"}}};
    std::string ending;
    for (std::string_view rest = taxCase.person1.lastName; !rest.empty();) {
        const auto* const letter = std::ranges::find_if(
            letters, [&](const auto& pair) { return rest.starts_with(pair.first); });
        if (letter != letters.end()) {
            ending += letter->second;
            rest.remove_prefix(letter->first.size());
            continue;
        }
        const char c = rest.front();
        const bool plain =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (plain || (!ending.empty() && ending.back() != '-')) {
            ending += plain ? c : '-';
        }
        rest.remove_prefix(1);
    }
    constexpr std::size_t most = 40;
    ending = ending.substr(0, most);
    while (ending.ends_with('-')) {
        ending.pop_back();
    }
    return name + (ending.empty() ? "" : "-") + ending + ".pdf";
}

} // namespace fiscarel::outputs
