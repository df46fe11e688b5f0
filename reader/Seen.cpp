#include "reader/Seen.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <cmath>

namespace fiscarel::reader {

namespace {

constexpr double leastHeight = 2; ///< points; smaller letters are specks on paper
constexpr int leastContrast = 20; ///< of 255, between ink and ground

/// The grey values of a picture, by places of its page.
class Ink {
  public:
    explicit Ink(const Picture& picture)
        : data_(pixGetData(picture.grey.get())), wordsPerLine_(pixGetWpl(picture.grey.get())),
          width_(widthOf(picture.grey)), height_(heightOf(picture.grey)) {
        const double w = width_;
        const double h = height_;
        const Corners pixels{Point{0, 0}, Point{w, 0}, Point{w, h}, Point{0, h}};
        Corners page;
        std::ranges::transform(pixels, page.begin(), picture.toPage);
        toPixels_ = Mapping::between(page, pixels);
    }

    bool isIn(const PagePlace& place) const {
        const PagePlace box =
            placeOf(toPixels_, {Point{place.left, place.top}, Point{place.right, place.top},
                                Point{place.right, place.bottom}, Point{place.left, place.bottom}});
        const auto bound = [](double value, int most) {
            return static_cast<int>(std::clamp<double>(std::isfinite(value) ? value : 0, 0, most));
        };
        int darkest = 255;
        int brightest = 0;
        const int right = bound(std::ceil(box.right), width_);
        for (int y = bound(box.top, height_); y < bound(std::ceil(box.bottom), height_); ++y) {
            const l_uint32* line = data_ + static_cast<std::ptrdiff_t>(y) * wordsPerLine_;
            for (int x = bound(box.left, width_); x < right; ++x) {
                const int grey = GET_DATA_BYTE(line, x);
                darkest = std::min(darkest, grey);
                brightest = std::max(brightest, grey);
                if (brightest - darkest >= leastContrast) {
                    return true;
                }
            }
        }
        return false;
    }

  private:
    const l_uint32* data_;
    int wordsPerLine_;
    int width_;
    int height_;
    Mapping toPixels_;
};

bool hasDigit(const PageWord& word) {
    return std::ranges::any_of(word.text, [](char c) { return c >= '0' && c <= '9'; });
}

/// Whether two words share most of the smaller one's place. A stamp set large across the page hides
/// no line.
bool areOver(const PageWord& one, const PageWord& other) {
    const PagePlace& a = one.place;
    const PagePlace& b = other.place;
    const double width = std::min(a.right, b.right) - std::max(a.left, b.left);
    const double height = std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
    const double smaller = std::min(a.width() * a.height(), b.width() * b.height());
    const bool areAlike = std::max(a.height(), b.height()) < 2 * std::min(a.height(), b.height());
    return areAlike && width > 0 && height > 0 && width * height > smaller / 2;
}

/// The digits of a word and its point before the centimes: "12'450.00" and "12450.00" are one
/// amount, as forms show it that were filled in and flattened.
std::string numberOf(const PageWord& word) {
    std::string number;
    for (std::size_t i = 0; i < word.text.size(); ++i) {
        const char c = word.text[i];
        const bool isPoint = (c == '.' || c == ',') && i + 3 == word.text.size();
        if (isPoint || (c >= '0' && c <= '9')) {
            number += isPoint ? '.' : c;
        }
    }
    return number;
}

/// Numbers of which another one stands in the same place.
std::vector<bool> rivals(const std::vector<PageWord>& words) {
    std::vector<std::size_t> byTop;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (hasDigit(words[i])) {
            byTop.push_back(i);
        }
    }
    std::ranges::sort(byTop, {}, [&](std::size_t i) { return words[i].place.top; });
    std::vector<bool> are(words.size(), false);
    for (std::size_t i = 0; i < byTop.size(); ++i) {
        const PageWord& one = words[byTop[i]];
        const double end = one.place.top + one.place.height() / 2;
        for (std::size_t j = i + 1; j < byTop.size() && words[byTop[j]].place.top < end; ++j) {
            if (areOver(one, words[byTop[j]]) && numberOf(words[byTop[j]]) != numberOf(one)) {
                are[byTop[i]] = true;
                are[byTop[j]] = true;
            }
        }
    }
    return are;
}

} // namespace

void eraseUnseen(const Picture& picture, std::vector<PageWord>& words) {
    const Ink ink(picture);
    const std::vector<bool> isRival = rivals(words);
    std::vector<PageWord> seen;
    seen.reserve(words.size());
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool isLegible = words[i].place.height() >= leastHeight && ink.isIn(words[i].place);
        if (isLegible && !isRival[i]) {
            seen.push_back(std::move(words[i]));
        }
    }
    words = std::move(seen);
}

} // namespace fiscarel::reader
