#include "Fiscarel_SG/pages/documents/RenderedPages.h"

#include "Fiscarel_SG/DocumentScanner.h"
#include "Fiscarel_SG/look/QtText.h"

#include <QByteArrayView>
#include <algorithm>
#include <utility>

namespace fiscarel::pages {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype kilo = 1024;
constexpr qsizetype memory = 128 * kilo; ///< kilobytes

QImage draw(const std::filesystem::path& file, int page, int width, const std::stop_token& stop) {
    const auto png = DocumentScanner::render(file, page, width, stop);
    const QByteArrayView bytes = png ? QByteArrayView(*png) : QByteArrayView();
    return QImage::fromData(bytes, "PNG");
}

} // namespace

RenderedPages::RenderedPages(QObject* parent) : QObject(parent), kept_(memory) {
    pool_.setMaxThreadCount(2);
}

RenderedPages::~RenderedPages() {
    stop_.request_stop();
    pool_.clear();
    pool_.waitForDone();
}

void RenderedPages::request(const std::filesystem::path& file, int page, int width,
                            std::function<void(QImage)> done) {
    const QString key = u"%1/%2/%3"_s.arg(width).arg(page).arg(qs(file.string()));
    if (const QImage* const kept = kept_.object(key)) {
        done(*kept);
        return;
    }
    auto& waiting = waiting_[key];
    waiting.push_back(std::move(done));
    if (waiting.size() > 1) {
        return;
    }
    pool_.start(
        [this, key, file, page, width, stop = stop_.get_token()] {
            QMetaObject::invokeMethod(
                this, [this, key, image = draw(file, page, width, stop)] { drawn(key, image); },
                Qt::QueuedConnection);
        },
        width);
}

void RenderedPages::drawn(const QString& key, const QImage& image) {
    const auto waiting = waiting_.extract(key);
    if (!image.isNull()) {
        kept_.insert(key, new QImage(image), std::max<qsizetype>(1, image.sizeInBytes() / kilo));
    }
    for (const auto& done : waiting.mapped()) {
        done(image);
    }
}

} // namespace fiscarel::pages
