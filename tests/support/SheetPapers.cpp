#include "tests/support/SheetPapers.h"

#include <QPainter>
#include <algorithm>

namespace fiscarel::testing {

using Confidence = Proposal::Confidence;
using Kind = ProposedRecord::Kind;

namespace {

constexpr double shapeOfA4 = 297.0 / 210.0;

double fraction(const Decimal& part) { return QString::fromStdString(part.toString()).toDouble(); }

Decimal hundredths(int count) { return Decimal(count) / 100; }

} // namespace

void DrawnPages::request(const std::filesystem::path&, int page, int width,
                         std::function<void(QImage)> done) {
    ++requests;
    waiting_.emplace_back(std::move(done), page == unreadable ? QImage() : draw(page, width));
    if (atOnce) {
        deliver();
    }
}

void DrawnPages::deliver() {
    for (auto& [done, image] : std::exchange(waiting_, {})) {
        done(image);
    }
}

QImage DrawnPages::draw(int page, int width) const {
    QImage image(width, static_cast<int>(width * shapeOfA4), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QFont font = painter.font();
    font.setPixelSize(image.height() / 70);
    painter.setFont(font);
    for (const Proposal& proposal : scan_.proposals) {
        if (proposal.page == page && proposal.box) {
            const double y = fraction(proposal.box->y) * image.height();
            const double height = fraction(proposal.box->height) * image.height();
            painter.drawText(QRectF(0.08 * width, y, 0.5 * width, height), Qt::AlignVCenter,
                             QString::fromStdString(proposal.field));
            painter.drawText(QRectF(fraction(proposal.box->x) * width, y,
                                    fraction(proposal.box->width) * width, height),
                             Qt::AlignVCenter | Qt::AlignRight,
                             QString::fromStdString(proposal.value));
        }
    }
    return image;
}

void addRecord(ScanResult& scan, ProposedRecord record, const std::vector<Read>& values,
               Proposal::Witness witness, int from) {
    const int index = static_cast<int>(scan.records.size());
    int row = from;
    for (const Read& value : values) {
        scan.proposals.push_back(
            {.recordIndex = index,
             .field = value.field,
             .value = value.value,
             .witness = witness,
             .confidence = value.confidence,
             .reason = "Steht rechts von seiner Bezeichnung.",
             .page = record.page,
             .box = PageBox{hundredths(60), hundredths(8 + 6 * row), hundredths(28), hundredths(3)},
             .checks = value.checks});
        ++row;
    }
    scan.pageCount = std::max(scan.pageCount, record.page);
    scan.records.push_back(std::move(record));
}

ScanResult salaryPaper() {
    ScanResult scan{.text = "Lohnausweis",
                    .kind = StoredDocument::Kind::anderes,
                    .proposedKind = StoredDocument::Kind::lohnausweis};
    const ProposalCheck sum{"68’000.00 − 4’352.50 − 3’100.00 = 60’547.50, der Nettolohn", true};
    const ProposalCheck printed{"Der Strichcode nennt 3’100.00, gedruckt steht 3’400.00", false};
    addRecord(scan,
              {.title = "Lohnausweis Samariterverein Werdenberg",
               .page = 1,
               .year = 2025,
               .personName = "Jonas"},
              {{"employer", "Samariterverein Werdenberg"},
               {"periodFrom", "2025-01-01"},
               {"periodTo", "2025-12-31", Confidence::medium},
               {"grossSalary", "68000", Confidence::high, {sum}},
               {"socialContributions", "4352.5", Confidence::high, {sum}},
               {"pensionContributions", "3100", Confidence::medium, {printed}},
               {"fieldG", "true", Confidence::low},
               {"netSalaryOverride", "60547.5", Confidence::high, {sum}}});
    return scan;
}

ScanResult statementPaper(int entries) {
    ScanResult scan{.text = "Steuerauszug",
                    .kind = StoredDocument::Kind::steuerauszug,
                    .proposedKind = StoredDocument::Kind::steuerauszug,
                    .kindIsCertain = true};
    const auto number = [](int value) { return std::to_string(value); };
    for (int i = 0; i < entries; ++i) {
        addRecord(scan,
                  {.kind = Kind::security,
                   .title = "Konto CH93 0076 2011 6238 5295 " + number(i),
                   .page = 1 + i / 5,
                   .year = 2025},
                  {{"kind", i % 3 == 0 ? "konto" : "wertschrift"},
                   {"institution", "Kantonalbank Oberwerdenberg"},
                   {"description", i % 3 == 0 ? "Sparkonto" : "Aktien Werk " + number(i)},
                   {"taxValue", number(1000 + 10 * i)},
                   {"incomeWithWithholding", number(10 + i)}},
                  Proposal::Witness::payload, i % 5 * 3);
    }
    addRecord(scan,
              {.kind = Kind::security,
               .title = "Steuerauszug Kantonalbank Oberwerdenberg 2025 (Total)",
               .page = 1,
               .year = 2025,
               .advice = "Entweder dieses Total oder die einzelnen Konten und Wertschriften "
                         "übernehmen, nicht beides."},
              {{"kind", "steuerauszug"},
               {"institution", "Kantonalbank Oberwerdenberg"},
               {"taxValue", number(1000 * entries + 5 * entries * (entries - 1))},
               {"incomeWithWithholding", number(10 * entries + entries * (entries - 1) / 2)}},
              Proposal::Witness::payload);
    return scan;
}

} // namespace fiscarel::testing
