#include "reader/PageImages.h"

#include <leptonica/allheaders.h>
#include <qpdf/Pipeline.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

#include <algorithm>
#include <cmath>
#include <exception>
#include <map>
#include <set>
#include <stdexcept>

namespace fiscarel::reader {

namespace {

constexpr int mostPages = 500;
constexpr std::size_t mostOperands = 64;
constexpr std::size_t deepestState = 64;

/// The matrix of an image in a content stream: a b c d e f.
using Matrix = std::array<double, 6>;

Matrix product(const Matrix& m, const Matrix& n) {
    return {m[0] * n[0] + m[1] * n[2],        m[0] * n[1] + m[1] * n[3],
            m[2] * n[0] + m[3] * n[2],        m[2] * n[1] + m[3] * n[3],
            m[4] * n[0] + m[5] * n[2] + n[4], m[4] * n[1] + m[5] * n[3] + n[5]};
}

struct PlacedImage {
    std::string name;
    Matrix place{};
};

/// What a page draws, as far as it tells whether the page is one image.
class ContentWalk : public QPDFObjectHandle::ParserCallbacks {
  public:
    void handleObject(QPDFObjectHandle object, std::size_t, std::size_t) override {
        if (!object.isOperator()) {
            if (operands_.size() < mostOperands) {
                operands_.push_back(std::move(object));
            }
            return;
        }
        obey(object.getOperatorValue());
        operands_.clear();
    }
    void handleEOF() override {}

    std::vector<PlacedImage> images;
    bool drawsMore = false;

  private:
    void obey(const std::string& name) {
        static const std::set<std::string> drawing{"f", "F",  "f*", "S",  "s", "B", "B*",
                                                   "b", "b*", "sh", "BI", "W", "W*"};
        static const std::set<std::string> writing{"Tj", "TJ", "'", "\""};
        if (name == "q" && states_.size() < deepestState) {
            states_.push_back(matrix_);
        } else if (name == "Q" && !states_.empty()) {
            matrix_ = states_.back();
            states_.pop_back();
        } else if (name == "cm" && operands_.size() == 6) {
            Matrix next{};
            for (std::size_t i = 0; i < next.size(); ++i) {
                next[i] = operands_[i].isNumber() ? operands_[i].getNumericValue() : 0;
            }
            matrix_ = product(next, matrix_);
        } else if (name == "Do" && operands_.size() == 1 && operands_[0].isName()) {
            images.push_back({operands_[0].getName(), matrix_});
        } else if (name == "Tr" && operands_.size() == 1 && operands_[0].isInteger()) {
            isHidden_ = operands_[0].getIntValue() == 3;
        } else if (drawing.contains(name) || (writing.contains(name) && !isHidden_)) {
            drawsMore = true;
        }
    }

    std::vector<QPDFObjectHandle> operands_;
    std::vector<Matrix> states_;
    Matrix matrix_{1, 0, 0, 1, 0, 0};
    bool isHidden_ = false;
};

/// Takes decoded data up to a size, and gives up beyond: a small stream can inflate without end.
class BoundedSink : public Pipeline {
  public:
    explicit BoundedSink(std::size_t most) : Pipeline("pixels", nullptr), most_(most) {}
    void write(const unsigned char* data, std::size_t size) override {
        if (data_.size() + size > most_) {
            throw std::length_error("more data than the image has");
        }
        data_.append(reinterpret_cast<const char*>(data), size);
    }
    void finish() override {}
    const std::string& data() const { return data_; }

  private:
    std::size_t most_;
    std::string data_;
};

std::string decoded(QPDFObjectHandle stream, std::size_t most, qpdf_stream_decode_level_e level) {
    BoundedSink sink(most);
    const bool good = stream.pipeStreamData(&sink, 0, level, true, false);
    return good ? sink.data() : std::string();
}

/// 1 for grey, 3 for colours, 0 for anything else.
int componentsOf(QPDFObjectHandle space) {
    if (space.isName()) {
        return space.getName() == "/DeviceGray" ? 1 : space.getName() == "/DeviceRGB" ? 3 : 0;
    }
    if (space.isArray() && space.getArrayNItems() == 2
        && space.getArrayItem(0).isNameAndEquals("/ICCBased") && space.getArrayItem(1).isStream()) {
        auto n = space.getArrayItem(1).getDict().getKey("/N");
        const int components = n.isInteger() ? n.getIntValueAsInt() : 0;
        return components == 1 || components == 3 ? components : 0;
    }
    return 0;
}

std::string onlyFilter(QPDFObjectHandle dict) {
    QPDFObjectHandle filter = dict.getKey("/Filter");
    if (filter.isArray() && filter.getArrayNItems() == 1) {
        filter = filter.getArrayItem(0);
    }
    return filter.isName() ? filter.getName() : std::string();
}

int integer(QPDFObjectHandle dict, const char* key) {
    QPDFObjectHandle value = dict.getKey(key);
    return value.isInteger() ? value.getIntValueAsInt() : 0;
}

PixPtr greyFromSamples(const std::string& data, int width, int height, int components) {
    const auto row = static_cast<std::size_t>(width) * static_cast<std::size_t>(components);
    if (data.size() < row * static_cast<std::size_t>(height)) {
        return nullptr;
    }
    PixPtr pix(pixCreateNoInit(width, height, 8));
    if (!pix) {
        return nullptr;
    }
    const int step = pixGetWpl(pix.get());
    const auto* from = reinterpret_cast<const unsigned char*>(data.data());
    for (int y = 0; y < height; ++y) {
        l_uint32* const to = pixGetData(pix.get()) + std::ptrdiff_t{step} * y;
        for (int x = 0; x < width; ++x, from += components) {
            const int grey =
                components == 1 ? from[0] : (from[0] * 11 + from[1] * 16 + from[2] * 5) / 32;
            SET_DATA_BYTE(to, x, static_cast<l_uint8>(grey));
        }
    }
    return pix;
}

/// The pixels of an image, when they are stored in a plain way.
PixPtr pixelsOf(QPDFObjectHandle image) {
    QPDFObjectHandle dict = image.getDict();
    const int width = integer(dict, "/Width");
    const int height = integer(dict, "/Height");
    for (const char* key : {"/SMask", "/Mask", "/ImageMask", "/Decode", "/DecodeParms"}) {
        if (dict.hasKey(key)) {
            return nullptr;
        }
    }
    const int components = componentsOf(dict.getKey("/ColorSpace"));
    if (width < 200 || height < 200 || double{1} * width * height > bounds::pagePixels
        || integer(dict, "/BitsPerComponent") != 8 || components == 0) {
        return nullptr;
    }
    const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height)
                      * static_cast<std::size_t>(components);
    const std::string filter = onlyFilter(dict);
    if (filter == "/FlateDecode") {
        return greyFromSamples(decoded(image, size + 1, qpdf_dl_generalized), width, height,
                               components);
    }
    if (filter != "/DCTDecode") {
        return nullptr;
    }
    const std::string jpeg = decoded(image, size + 4096, qpdf_dl_none);
    const auto* bytes = reinterpret_cast<const l_uint8*>(jpeg.data());
    int realWidth = 0;
    int realHeight = 0;
    int format = 0;
    if (pixReadHeaderMem(bytes, jpeg.size(), &format, &realWidth, &realHeight, nullptr, nullptr,
                         nullptr)
            != 0
        || format != IFF_JFIF_JPEG || realWidth != width || realHeight != height) {
        return nullptr;
    }
    return greyOf(PixPtr(pixReadMem(bytes, jpeg.size())));
}

} // namespace

struct PageImages::Pages {
    struct Found {
        std::vector<std::pair<QPDFObjectHandle, Matrix>> images;
        bool drawsMore = false;
        bool isTurned = false;
        double left = 0; ///< of what is shown of the page, in its own coordinates
        double top = 0;
    };

    explicit Pages(std::string_view bytes) {
        pdf.setSuppressWarnings(true);
        pdf.setAttemptRecovery(false);
        pdf.processMemoryFile("", bytes.data(), bytes.size());
        QPDFObjectHandle count = pdf.getRoot().getKey("/Pages").getKey("/Count");
        if (count.isInteger() && count.getIntValue() <= mostPages) {
            pages = pdf.getAllPages();
        }
    }

    const Found& at(int page) {
        const auto known = found.find(page);
        return known != found.end() ? known->second : found.emplace(page, walk(page)).first->second;
    }

    Found walk(int page) {
        Found result;
        if (page < 1 || page > static_cast<int>(pages.size())) {
            return result;
        }
        QPDFPageObjectHelper helper(pages[static_cast<std::size_t>(page - 1)]);
        ContentWalk content;
        helper.parseContents(&content);
        result.drawsMore = content.drawsMore;
        QPDFObjectHandle turn = helper.getAttribute("/Rotate", false);
        result.isTurned = turn.isInteger() && turn.getIntValue() % 360 != 0;
        QPDFObjectHandle box = helper.getCropBox(false);
        if (box.isRectangle()) {
            const auto rectangle = box.getArrayAsRectangle();
            result.left = rectangle.llx;
            result.top = rectangle.ury;
        }
        const auto images = helper.getImages();
        for (const PlacedImage& placed : content.images) {
            const auto image = images.find(placed.name);
            if (image == images.end()) {
                result.drawsMore = true;
            } else {
                result.images.emplace_back(image->second, placed.place);
            }
        }
        return result;
    }

    QPDF pdf;
    std::vector<QPDFObjectHandle> pages;
    std::map<int, Found> found;
};

PageImages::PageImages(std::string_view pdf) {
    try {
        pages_ = std::make_unique<Pages>(pdf);
    } catch (const std::exception&) {
        pages_.reset();
    }
}

PageImages::~PageImages() = default;

bool PageImages::fillsPage(int page, const PageSize& size) const {
    constexpr double most = 0.8;
    if (!pages_ || size.width <= 0 || size.height <= 0) {
        return false;
    }
    try {
        double covered = 0;
        for (const auto& [image, m] : pages_->at(page).images) {
            covered += std::abs(m[0] * m[3] - m[1] * m[2]);
        }
        return covered >= most * size.width * size.height;
    } catch (const std::exception&) {
        return false;
    }
}

std::optional<Picture> PageImages::pagePicture(int page, const PageSize& size) const {
    constexpr double nearly = 0.95;
    constexpr double pointsPerInch = 72;
    constexpr double coarsest = 100;
    if (!pages_ || !fillsPage(page, size)) {
        return std::nullopt;
    }
    try {
        const Pages::Found& found = pages_->at(page);
        if (found.images.size() != 1 || found.drawsMore || found.isTurned) {
            return std::nullopt;
        }
        auto [image, m] = found.images.front();
        const bool isStraight = std::abs(m[1]) < 0.01 && std::abs(m[2]) < 0.01;
        if (!isStraight || m[0] < nearly * size.width || m[3] < nearly * size.height) {
            return std::nullopt;
        }
        const int pixels = integer(image.getDict(), "/Width");
        const double dpi = pixels * pointsPerInch / m[0];
        if (dpi < coarsest) {
            return std::nullopt;
        }
        Picture picture{.grey = pixelsOf(image), .dpi = dpi};
        if (!picture) {
            return std::nullopt;
        }
        const double width = widthOf(picture.grey);
        const double height = heightOf(picture.grey);
        const double left = m[4] - found.left;
        const double top = found.top - m[5] - m[3];
        picture.toPage =
            Mapping::between({Point{0, 0}, Point{width, 0}, Point{width, height}, Point{0, height}},
                             {Point{left, top}, Point{left + m[0], top},
                              Point{left + m[0], top + m[3]}, Point{left, top + m[3]}});
        return picture;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

} // namespace fiscarel::reader
