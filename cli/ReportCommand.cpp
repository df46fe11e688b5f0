#include "Fiscarel_SG/outputs/ReportContent.h"
#include "Fiscarel_SG/paper/ReportPdf.h"
#include "Fiscarel_SG/store/Clock.h"
#include "Fiscarel_SG/store/PosixFiles.h"
#include "Fiscarel_SG/store/ReviewedDocuments.h"
#include "TaxCore/review/Review.h"
#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/Output.h"

#include <QGuiApplication>
#include <array>

namespace fiscarel::cli {

namespace {

using namespace taxcore;

outputs::ReportContent contentOf(const ReadCase& read) {
    const TaxResult result = read.calculator.calculate(read.taxCase);
    const Date today = SystemClock().local().date;
    ReviewInput review{read.calculator, read.taxCase, result, today,
                       reviewedDocuments(read.rest.documents, read.taxCase.year)};
    for (const auto& [year, other] : read.rest.cases) {
        review.otherYears.push_back(&other);
    }
    const Review reviewed = Review::of(review);
    return outputs::reportContent({.taxCase = read.taxCase,
                                   .result = result,
                                   .calculator = read.calculator,
                                   .notices = reviewed.notices,
                                   .notComputed = reviewed.notComputed,
                                   .documents = read.rest.documents,
                                   .madeOn = today});
}

/// Sets the pages with the fonts of the machine, but without a display.
tl::expected<std::string, std::string> pdfOf(const outputs::ReportContent& content) {
    std::array<char, 13> name{"fiscarel-cli"};
    std::array<char, 10> option{"-platform"};
    std::array<char, 10> platform{"offscreen"};
    std::array<char*, 4> arguments{name.data(), option.data(), platform.data(), nullptr};
    int count = 3;
    // What the window library finds odd about a machine without a desktop is no matter here.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QGuiApplication application(count, arguments.data());
    return paper::reportPdf(paper::setOnPaper(content));
}

} // namespace

int report(const ReportOptions& options) {
    const auto read = readForComputing(options.file, options.year);
    if (!read) {
        return fail(read.error());
    }
    const auto pdf = pdfOf(contentOf(*read));
    if (!pdf) {
        return fail(pdf.error());
    }
    const auto written = PosixFiles().write(options.out, *pdf);
    return written ? exitCode::done
                   : fail("Der Bericht lässt sich nicht schreiben: "
                          + FileError{written.error().code, options.out}.description());
}

} // namespace fiscarel::cli
