#include "reader/Recognition.h"

#include <leptonica/allheaders.h>
#include <tesseract/baseapi.h>
#include <tesseract/ocrclass.h>

#include <QString>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <utility>

namespace fiscarel::reader {

namespace {

constexpr const char* languages = "deu+fra+ita+eng";

struct TextFree {
    void operator()(char* text) const noexcept { delete[] text; }
};

struct Line {
    std::string text;
    double middle = 0; ///< from the top, as part of the height
    double left = 0;
};

/// What a box of the recogniser says, as one line.
std::string textOf(const tesseract::ResultIterator& at, tesseract::PageIteratorLevel level) {
    const std::unique_ptr<char, TextFree> text(at.GetUTF8Text(level));
    return text ? QString::fromUtf8(text.get()).simplified().toStdString() : std::string();
}

/// Lines whose middles differ by no more than the tolerance are one row, from left to right. Rows
/// come first and the order after, since "about as high" is no order to sort by.
std::string inReadingOrder(std::vector<Line> lines) {
    constexpr double tolerance = 0.008;
    std::ranges::stable_sort(lines, {}, &Line::middle);
    std::string text;
    for (auto row = lines.begin(); row != lines.end();) {
        const auto end = std::find_if(row, lines.end(), [&](const Line& line) {
            return line.middle - row->middle > tolerance;
        });
        std::stable_sort(row, end, [](const Line& a, const Line& b) { return a.left < b.left; });
        for (; row != end; ++row) {
            text += (text.empty() ? "" : "\n") + row->text;
        }
    }
    return text;
}

/// The recogniser takes the resolution from the picture, in some ways of working from there alone.
void setPicture(tesseract::TessBaseAPI& api, const PixPtr& picture, double dpi) {
    const int resolution = static_cast<int>(dpi);
    pixSetResolution(picture.get(), resolution, resolution);
    api.SetImage(picture.get());
}

RecognisedPage resultOf(tesseract::TessBaseAPI& api, const Picture& picture) {
    RecognisedPage page;
    std::vector<Line> lines;
    const std::unique_ptr<tesseract::ResultIterator> at(api.GetIterator());
    if (!at) {
        return page;
    }
    const double height = heightOf(picture.grey);
    do {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
        if (at->IsAtBeginningOf(tesseract::RIL_TEXTLINE)
            && at->BoundingBox(tesseract::RIL_TEXTLINE, &left, &top, &right, &bottom)) {
            std::string text = textOf(*at, tesseract::RIL_TEXTLINE);
            if (!text.empty()) {
                lines.push_back(
                    {std::move(text), (top + bottom) / (2 * height), static_cast<double>(left)});
            }
        }
        std::string word = textOf(*at, tesseract::RIL_WORD);
        if (word.empty() || page.words.size() == bounds::wordsPerPage
            || !at->BoundingBox(tesseract::RIL_WORD, &left, &top, &right, &bottom)) {
            continue;
        }
        const auto corner = [](int x, int y) {
            return Point{static_cast<double>(x), static_cast<double>(y)};
        };
        page.words.push_back(
            {.text = std::move(word),
             .place = placeOf(picture.toPage, {corner(left, top), corner(right, top),
                                               corner(right, bottom), corner(left, bottom)}),
             .certainty = std::clamp(double{at->Confidence(tesseract::RIL_WORD)} / 100, 0.0, 1.0)});
    } while (at->Next(tesseract::RIL_WORD));
    page.text = inReadingOrder(std::move(lines));
    return page;
}

} // namespace

Recognition::Recognition() = default;
Recognition::~Recognition() = default;

bool Recognition::start() {
    if (text_) {
        return true;
    }
    auto api = std::make_unique<tesseract::TessBaseAPI>();
    if (api->Init(nullptr, languages, tesseract::OEM_LSTM_ONLY) != 0) {
        return false;
    }
    api->SetPageSegMode(tesseract::PSM_AUTO);
    text_ = std::move(api);
    return true;
}

bool Recognition::isInstalled() { return start(); }

RecognisedPage Recognition::read(const Picture& picture, Deadline deadline) {
    using std::chrono::duration_cast;
    using std::chrono::milliseconds;
    if (!picture || !start()) {
        return {};
    }
    const auto left =
        duration_cast<milliseconds>(deadline - std::chrono::steady_clock::now()).count();
    if (left <= 0) {
        return {};
    }
    tesseract::ETEXT_DESC monitor;
    monitor.set_deadline_msecs(static_cast<std::int32_t>(left));
    setPicture(*text_, picture.grey, picture.dpi);
    RecognisedPage page;
    if (text_->Recognize(&monitor) == 0) {
        page = resultOf(*text_, picture);
    }
    text_->Clear();
    return page;
}

std::optional<int> Recognition::quarterTurns(const PixPtr& picture, double dpi) {
    constexpr float sure = 1.5F;
    if (!turns_) {
        auto api = std::make_unique<tesseract::TessBaseAPI>();
        if (api->Init(nullptr, "osd", tesseract::OEM_TESSERACT_ONLY) != 0) {
            return std::nullopt;
        }
        api->SetPageSegMode(tesseract::PSM_OSD_ONLY);
        turns_ = std::move(api);
    }
    setPicture(*turns_, picture, dpi);
    int degrees = 0;
    float confidence = 0;
    const bool told = turns_->DetectOrientationScript(&degrees, &confidence, nullptr, nullptr);
    turns_->Clear();
    // It tells how far the page is turned, anticlockwise seen from the page.
    if (!told || confidence < sure) {
        return std::nullopt;
    }
    return (4 - degrees / 90) % 4;
}

int Recognition::legibleLetters(const PixPtr& picture, double dpi) {
    constexpr float sure = 60;            // percent
    constexpr qsizetype shortestWord = 3; // letters; less is found in any pattern
    if (!start()) {
        return 0;
    }
    setPicture(*text_, picture, dpi);
    int letters = 0;
    const std::unique_ptr<tesseract::ResultIterator> at(
        text_->Recognize(nullptr) == 0 ? text_->GetIterator() : nullptr);
    while (at) {
        const QString word = QString::fromStdString(textOf(*at, tesseract::RIL_WORD));
        const auto count =
            std::ranges::count_if(word, [](QChar c) { return c.isLetterOrNumber(); });
        if (count >= shortestWord && at->Confidence(tesseract::RIL_WORD) >= sure) {
            letters += static_cast<int>(count);
        }
        if (!at->Next(tesseract::RIL_WORD)) {
            break;
        }
    }
    text_->Clear();
    return letters;
}

} // namespace fiscarel::reader
