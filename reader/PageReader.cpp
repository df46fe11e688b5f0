#include "reader/PageReader.h"

#include "reader/Leaders.h"
#include "reader/Rulings.h"
#include "reader/Seen.h"

#include <utility>

namespace fiscarel::reader {

namespace {

constexpr double pointsPerInch = 72;

/// A scan, with the page as it stands upright in place of the page of the file.
void readScan(const Document& document, const PageTask& task, Recognition& recognition,
              Deadline deadline, Picture source, PageFound& found) {
    const Upright upright = findUpright(source, document.mayBePhoto(task.page), recognition);
    Picture page = straightened(source, upright);
    found.reading.width = widthOf(page.grey) * pointsPerInch / page.dpi;
    found.reading.height = heightOf(page.grey) * pointsPerInch / page.dpi;
    source.toPage = page.toPage.after(upright.fromSource);
    if (task.wantsSymbols) {
        addNew(found.symbols, findSymbols(source, task.hasSpareThread));
        if (!upright.isUnchanged) {
            addNew(found.symbols, findSymbols(page, task.hasSpareThread));
        }
    }
    source.grey.reset();
    wipeRulings(page);
    wipeLeaders(page);
    RecognisedPage recognised = recognition.read(page, deadline);
    found.recognisedText = std::move(recognised.text);
    found.reading.words = std::move(recognised.words);
    found.reading.isRecognised = true;
}

/// A scan that has a text layer already: only its barcodes may need it straight.
void addSkewedSymbols(const Document& document, const PageTask& task, Recognition& recognition,
                      const Picture& source, std::vector<FoundSymbol>& symbols) {
    const Upright upright = findUpright(source, document.mayBePhoto(task.page), recognition);
    if (upright.isUnchanged) {
        return;
    }
    Picture page = straightened(source, upright);
    page.toPage = source.toPage.after(wayBack(source, upright));
    addNew(symbols, findSymbols(page, task.hasSpareThread));
}

} // namespace

PageFound readPage(const Document& document, PageTask task, Recognition& recognition,
                   Deadline deadline) {
    PageFound found{.reading = {.number = task.page}};
    const PageSize size = document.size(task.page);
    found.reading.width = size.width;
    found.reading.height = size.height;
    found.reading.words = std::move(task.text.words);
    if (task.wantsRecognition || task.wantsSymbols) {
        if (Picture source = document.picture(task.page); !source) {
            // A page that cannot be drawn has its text layer only.
        } else if (task.wantsRecognition) {
            readScan(document, task, recognition, deadline, std::move(source), found);
        } else {
            const bool hasWords = !found.reading.words.empty();
            eraseUnseen(source, found.reading.words);
            found.hidesText = hasWords && found.reading.words.empty();
            addNew(found.symbols, findSymbols(source, task.hasSpareThread));
            if (found.symbols.empty() && document.isScan(task.page)) {
                addSkewedSymbols(document, task, recognition, source, found.symbols);
            }
        }
    }
    for (const FoundSymbol& symbol : found.symbols) {
        found.reading.symbols.push_back(symbol.symbol);
    }
    return found;
}

} // namespace fiscarel::reader
