#include "Fiscarel_SG/DocumentScanner.h"

#include <QRegularExpression>
#include <QString>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <utility>

namespace fiscarel {

namespace {

using Kind = StoredDocument::Kind;
using Target = ExtractedField::Target;
using Words = std::vector<QStringView>;

QString composed(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
        .normalized(QString::NormalizationForm_C);
}

QString lowered(std::string_view text) { return composed(text).toLower(); }

bool containsAny(const QString& text, const Words& words) {
    return std::ranges::any_of(words, [&](QStringView word) { return text.contains(word); });
}

/// How many characters a reader sees.
int visibleLength(std::string_view text) {
    const QString characters = composed(text);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, characters);
    int count = 0;
    while (finder.toNextBoundary() > 0) {
        ++count;
    }
    return count;
}

bool hasPdf417(const std::vector<std::string>& barcodes) {
    return std::ranges::any_of(barcodes, [](const std::string& barcode) {
        return barcode.find("PDF417") != std::string::npos;
    });
}

/// A document of this kind has one word of each list; an empty list asks for nothing.
struct KindRule {
    Kind kind;
    Words words;
    Words further;
    bool onlyWithPdf417 = false;
};

/// The first rule that holds decides: "hort" and "kpt" stand in other words as well, and only the
/// order keeps such rules in bounds.
const std::vector<KindRule>& kindRules() {
    static const std::vector<KindRule> rules{
        {Kind::lohnausweis,
         {u"lohnausweis", u"certificat de salaire", u"certificato di salario",
          u"rentenbescheinigung"},
         {}},
        {Kind::steuerauszug,
         {u"steuerauszug", u"steuerverzeichnis", u"relevé fiscal", u"e-steuerauszug"},
         {}},
        {Kind::steuerauszug, {u"steuer"}, {}, true},
        {Kind::saeule3a,
         {u"säule 3a", u"saeule 3a", u"gebundene vorsorge", u"pilier 3a", u"vorsorgekonto 3a",
          u"3a-konto"},
         {}},
        {Kind::pensionskasse,
         {u"einkauf"},
         {u"pensionskasse", u"vorsorgeeinrichtung", u"berufliche vorsorge"}},
        {Kind::krankenkasse,
         {u"prämienbestätigung", u"praemienbestaetigung", u"prämienübersicht",
          u"steuerbestätigung"},
         {u"krank", u"versicherung"}},
        {Kind::krankenkasse,
         {u"krankenkasse", u"krankenversicherung", u"assura", u"helsana", u"css ", u"swica",
          u"sanitas", u"visana", u"concordia", u"kpt", u"groupe mutuel", u"atupri", u"sympany",
          u"egk"},
         {u"prämie", u"praemie", u"leistungsübersicht", u"kostenbeteiligung"}},
        {Kind::spende,
         {u"spendenbestätigung", u"spendenbescheinigung", u"zuwendungsbestätigung",
          u"vielen dank für ihre spende", u"spende"},
         {}},
        {Kind::kinderbetreuung,
         {u"kita", u"kindertagesstätte", u"kinderkrippe", u"tagesstätte", u"hort", u"tagesfamilie",
          u"mittagstisch"},
         {}},
        {Kind::bankauszug,
         {u"zinsausweis", u"zinsbescheinigung", u"saldobestätigung", u"kontoauszug",
          u"jahresauszug", u"vermögensausweis"},
         {}},
        {Kind::arztrechnung,
         {u"zahnarzt", u"arztpraxis", u"praxis", u"spital", u"apotheke", u"physiotherapie",
          u"optiker", u"tarmed", u"tardoc"},
         {}},
        {Kind::weiterbildung,
         {u"kursgeld", u"weiterbildung", u"studiengebühr", u"semestergebühr", u"lehrgang"},
         {}},
        {Kind::versicherung, {u"lebensversicherung", u"rückkaufswert", u"police"}, {}},
        {Kind::liegenschaft, {u"schätzung", u"eigenmietwert", u"grundstück"}, {}},
    };
    return rules;
}

/// An amount that is looked for in documents of a kind.
struct Label {
    Kind kind;
    Target target;
    Words words;
    int below; ///< this much or more is not such an amount
};

const std::vector<Label>& labels() {
    constexpr int large = 10'000'000;
    static const std::vector<Label> rows{
        // Nobody may pay in more than the ceiling for people without a pension fund.
        {Kind::saeule3a,
         Target::pillar3a,
         {u"einbezahlte beiträge", u"beiträge", u"einzahlungen", u"total"},
         36'288},
        {Kind::pensionskasse, Target::pensionBuyInDirect, {u"einkauf", u"einkaufsbetrag"}, large},
        {Kind::lohnausweis,
         Target::grossSalary,
         {u"bruttolohn total", u"salaire brut total", u"8. bruttolohn"},
         large},
        {Kind::lohnausweis,
         Target::socialContributions,
         {u"ahv/iv/eo/alv/nbuv", u"ahv/iv/eo", u"avs/ai/apg"},
         large},
        {Kind::lohnausweis,
         Target::pensionContributions,
         {u"ordentliche beiträge", u"cotisations ordinaires"},
         large},
        {Kind::lohnausweis, Target::pensionBuyIn, {u"beiträge für den einkauf", u"rachat"}, large},
        {Kind::lohnausweis, Target::netSalary, {u"nettolohn", u"salaire net"}, large},
        {Kind::krankenkasse,
         Target::healthPremiums,
         {u"total prämien", u"prämien total", u"total der prämien", u"bezahlte prämien",
          u"prämien"},
         60'000},
        {Kind::bankauszug, Target::accountBalance, {u"saldo", u"kontostand", u"guthaben"}, large},
        {Kind::bankauszug,
         Target::accountInterest,
         {u"bruttozins", u"zins brutto", u"zinsertrag", u"zinsen"},
         1'000'000},
        {Kind::arztrechnung,
         Target::medical,
         {u"total", u"rechnungsbetrag", u"zu bezahlen", u"betrag"},
         200'000},
        {Kind::spende, Target::donation, {u"betrag", u"spende", u"total", u"chf"}, 500'000},
        {Kind::kinderbetreuung, Target::childcare, {u"total", u"betreuung", u"betrag"}, 100'000},
        {Kind::weiterbildung, Target::education, {u"total", u"kursgeld", u"betrag"}, 50'000},
    };
    return rows;
}

/// The first amount of a line that can be meant by a label: 1 or more and no year.
std::optional<Decimal> plausibleAmount(const std::string& line, int below) {
    for (const Decimal& amount : DocumentScanner::amounts(line)) {
        const bool isYear = amount >= 1990 && amount <= 2035 && amount == amount.roundDown(0);
        if (amount >= 1 && amount < below && !isYear) {
            return amount;
        }
    }
    return std::nullopt;
}

/// The amount behind the first label that has one, on its line or the next.
std::optional<Decimal> amountAfter(const Words& words, const std::vector<std::string>& lines,
                                   int below) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!containsAny(lowered(lines[i]), words)) {
            continue;
        }
        for (std::size_t at = i; at < std::min(i + 2, lines.size()); ++at) {
            if (const auto amount = plausibleAmount(lines[at], below)) {
                return amount;
            }
        }
    }
    return std::nullopt;
}

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(end)).trimmed();
        if (!line.isEmpty()) {
            lines.push_back(line.toStdString());
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

/// Whether an answer holds together; what it says may be wrong, but it cannot harm.
bool isSound(const ScanResult& result) {
    constexpr int mostPages = 1'000'000;
    constexpr std::size_t mostRecords = 20'000;
    constexpr std::size_t mostProposals = 200'000;
    const auto isPage = [](int page) { return page >= 0 && page <= mostPages; };
    return isPage(result.pageCount) && result.records.size() <= mostRecords
           && result.proposals.size() <= mostProposals
           && std::ranges::all_of(result.records,
                                  [&](const ProposedRecord& record) { return isPage(record.page); })
           && std::ranges::all_of(result.proposals, [&](const Proposal& proposal) {
                  return isPage(proposal.page) && proposal.recordIndex >= 0
                         && static_cast<std::size_t>(proposal.recordIndex) < result.records.size();
              });
}

} // namespace

ScanResult DocumentScanner::scan(const std::filesystem::path& path, const ReadingOptions& options) {
    using std::chrono::seconds;
    constexpr seconds mostSeconds{3600};
    constexpr seconds grace{15}; // to put together what was read by then
    const seconds limit = std::clamp(options.timeLimit, seconds(1), mostSeconds);
    const auto answer = askReader({.program = readerProgram(),
                                   .document = path,
                                   .arguments = {"scan", std::to_string(limit.count())},
                                   .timeLimit = limit + grace,
                                   .progress = options.progress,
                                   .stop = options.stop});
    if (!answer) {
        return {.problem = answer.error()};
    }
    auto result = taxcore::fromJson<ScanResult>(answer->bytes);
    if (answer->kind != ReaderAnswer::Kind::result || !result || !isSound(*result)) {
        return {.problem = "Diese Datei lässt sich nicht lesen: Die Antwort des Leseprogramms ist "
                           "unbrauchbar."};
    }
    return std::move(*result);
}

tl::expected<std::string, std::string> DocumentScanner::render(const std::filesystem::path& path,
                                                               int page, int width,
                                                               std::stop_token stop) {
    constexpr std::chrono::seconds limit{30};
    auto answer = askReader({.program = readerProgram(),
                             .document = path,
                             .arguments = {"render", std::to_string(page), std::to_string(width)},
                             .timeLimit = limit,
                             .stop = std::move(stop)});
    if (!answer) {
        return tl::unexpected(std::move(answer.error()));
    }
    if (answer->kind != ReaderAnswer::Kind::image || !answer->bytes.starts_with("\x89PNG")) {
        return tl::unexpected<std::string>("Diese Seite lässt sich nicht darstellen.");
    }
    return std::move(answer->bytes);
}

ScanResult DocumentScanner::read(std::string text, std::vector<std::string> barcodes) {
    ScanResult result{.text = std::move(text), .barcodes = std::move(barcodes)};
    result.lines = linesOf(result.text);
    result.kind = classify(result.text, result.barcodes);
    const auto issuer = std::ranges::find_if(result.lines, [](const std::string& line) {
        const int length = visibleLength(line);
        return length >= 4 && length < 60;
    });
    if (issuer != result.lines.end()) {
        result.issuer = *issuer;
    }
    result.fields = extract(result.kind, result.lines);
    return result;
}

StoredDocument::Kind DocumentScanner::classify(std::string_view text,
                                               const std::vector<std::string>& barcodes) {
    const QString words = lowered(text);
    for (const KindRule& rule : kindRules()) {
        if (containsAny(words, rule.words)
            && (rule.further.empty() || containsAny(words, rule.further))
            && (!rule.onlyWithPdf417 || hasPdf417(barcodes))) {
            return rule.kind;
        }
    }
    return Kind::anderes;
}

std::vector<Decimal> DocumentScanner::amounts(std::string_view line) {
    // Groups of three with a mark between them or plain digits; two decimals, or the dash that
    // stands for none on bills.
    static const QRegularExpression pattern(QStringLiteral(
        "(?<![\\d.])(\\d{1,3}(?:[\u2019'` ]\\d{3})+|\\d+)(?:[.,](\\d{2}|\u2013|-))?(?![\\d])"));
    std::vector<Decimal> found;
    auto matches = pattern.globalMatch(composed(line));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        std::string digits;
        for (const QChar letter : match.captured(1)) {
            if (letter >= u'0' && letter <= u'9') {
                digits += static_cast<char>(letter.unicode());
            }
        }
        if (const QString decimals = match.captured(2); decimals.size() == 2) {
            digits += '.' + decimals.toStdString();
        }
        if (const auto amount = Decimal::parse(digits)) {
            found.push_back(*amount);
        }
    }
    return found;
}

std::vector<ExtractedField> DocumentScanner::extract(StoredDocument::Kind kind,
                                                     const std::vector<std::string>& lines) {
    std::vector<ExtractedField> fields;
    for (const Label& label : labels()) {
        if (label.kind != kind) {
            continue;
        }
        if (const auto amount = amountAfter(label.words, lines, label.below)) {
            fields.push_back({.target = label.target,
                              .label = std::string(taxcore::label(label.target)),
                              .value = *amount});
        }
    }
    return fields;
}

} // namespace fiscarel
