#include "tests/documents/corpus/kit/Looks.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace corpus {
namespace {

/// Roughly normal, standard deviation 1.
double normal(Random& random) {
    const std::uint64_t bits = random.next();
    double sum = 0;
    for (unsigned shift = 0; shift < 64; shift += 16) {
        sum += static_cast<double>((bits >> shift) & 0xffffU) / 65535.0;
    }
    return (sum - 2.0) * 1.732;
}

int level(double value) { return static_cast<int>(std::clamp(value, 0.0, 255.0)); }

double smooth(double from, double until, double value) {
    const double part = std::clamp((value - from) / (until - from), 0.0, 1.0);
    return part * part * (3 - 2 * part);
}

/// Applies `change(x, y, channel value, noise)` to every channel of every pixel.
template <class Change>
void everyPixel(QImage& image, Random& random, Change&& change) {
    for (int y = 0; y < image.height(); ++y) {
        auto* pixels = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double noise = normal(random);
            const double light = change(x, y);
            const auto shade = [&](int value, double amount) {
                return level(value * light + noise * amount);
            };
            pixels[x] = qRgb(shade(qRed(pixels[x]), 5), shade(qGreen(pixels[x]), 5),
                             shade(qBlue(pixels[x]), 6));
        }
    }
}

/// A blur of three pixels whose outer ones weigh `weight`, along one direction.
QImage blurredAlong(const QImage& image, double weight, int dx, int dy) {
    QImage result = image;
    const double middle = 1 - 2 * weight;
    for (int y = dy; y < image.height() - dy; ++y) {
        const auto* above = reinterpret_cast<const QRgb*>(image.constScanLine(y - dy)) - dx;
        const auto* here = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        const auto* below = reinterpret_cast<const QRgb*>(image.constScanLine(y + dy)) + dx;
        auto* out = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = dx; x < image.width() - dx; ++x) {
            const auto mix = [&](int (*channel)(QRgb)) {
                return static_cast<int>(middle * channel(here[x])
                                        + weight * (channel(above[x]) + channel(below[x])));
            };
            out[x] = qRgb(mix(qRed), mix(qGreen), mix(qBlue));
        }
    }
    return result;
}

QImage blurred(const QImage& image, double weight) {
    return blurredAlong(blurredAlong(image, weight, 1, 0), weight, 0, 1);
}

void paintTable(QImage& frame, Random& random) {
    static const std::vector<QColor> woods{QColor(112, 78, 50), QColor(70, 66, 62),
                                           QColor(150, 120, 86), QColor(58, 74, 84)};
    const QColor wood = random.pick(woods);
    frame.fill(wood);
    QPainter painter(&frame);
    for (int i = 0; i < 160; ++i) {
        QColor grain = wood.darker(random.between(92, 125));
        grain.setAlpha(110);
        const double y = random.between(0.0, static_cast<double>(frame.height()));
        painter.setPen(QPen(grain, random.between(2.0, 30.0)));
        painter.drawLine(QPointF(0, y), QPointF(frame.width(), y + random.between(-60.0, 60.0)));
    }
}

/// Where the corners of the sheet come to lie in the frame.
QPolygonF cornersIn(const QSizeF& frame, const QSizeF& page, Random& random) {
    const double fill = random.between(0.86, 0.94);
    const double scale =
        fill * std::min(frame.width() / page.width(), frame.height() / page.height());
    const double tilt = random.between(-3.0, 3.0) * M_PI / 180;
    const QPointF centre(frame.width() / 2 + random.between(-40.0, 40.0),
                         frame.height() / 2 + random.between(-40.0, 40.0));
    const double reach = 0.03 * frame.width();
    QPolygonF corners;
    for (const QPointF& corner :
         {QPointF(-0.5, -0.5), QPointF(0.5, -0.5), QPointF(0.5, 0.5), QPointF(-0.5, 0.5)}) {
        const double x = corner.x() * page.width() * scale;
        const double y = corner.y() * page.height() * scale;
        const QPointF turned(x * std::cos(tilt) - y * std::sin(tilt),
                             x * std::sin(tilt) + y * std::cos(tilt));
        const QPointF moved =
            centre + turned + QPointF(random.between(-reach, reach), random.between(-reach, reach));
        corners << QPointF(std::clamp(moved.x(), 8.0, frame.width() - 8),
                           std::clamp(moved.y(), 8.0, frame.height() - 8));
    }
    return corners;
}

} // namespace

QImage scanned(const QImage& page, Random& random, bool colour) {
    QImage image(page.size(), QImage::Format_RGB32);
    const int paper = random.between(243, 254);
    image.fill(QColor(paper, paper, colour ? paper - 6 : paper));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(image.width() / 2.0 + random.between(-8.0, 8.0),
                      image.height() / 2.0 + random.between(-8.0, 8.0));
    painter.rotate(random.between(-2.0, 2.0));
    painter.translate(-image.width() / 2.0, -image.height() / 2.0);
    painter.setOpacity(0.93);
    painter.drawImage(0, 0, page);
    painter.end();
    const double brightness = random.between(0.94, 1.0);
    everyPixel(image, random, [&](int, int) { return brightness; });
    return colour ? image : image.convertToFormat(QImage::Format_Grayscale8);
}

QImage photographed(const QImage& page, Random& random) {
    const bool wide = page.width() > page.height();
    QImage frame(wide ? 4032 : 3024, wide ? 3024 : 4032, QImage::Format_RGB32);
    paintTable(frame, random);
    const QPolygonF corners = cornersIn(frame.size(), page.size(), random);
    QTransform perspective;
    QTransform::quadToQuad(QPolygonF(QRectF(page.rect())).mid(0, 4), corners, perspective);
    QPainter painter(&frame);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(perspective);
    painter.drawImage(0, 0, page);
    painter.end();
    frame = blurred(frame, random.between(0.08, 0.22));

    const double angle = random.between(0.0, 2 * M_PI);
    const double fall = random.between(0.10, 0.30);
    const double shadowAngle = random.between(0.0, 2 * M_PI);
    const double shadowDepth = random.chance(60) ? random.between(0.2, 0.4) : 0.0;
    const double edge = random.between(0.0, 0.35);
    const double softness = random.between(0.05, 0.15);
    const double size = std::max(frame.width(), frame.height());
    everyPixel(frame, random, [&](int x, int y) {
        const double dx = (x - frame.width() / 2.0) / size;
        const double dy = (y - frame.height() / 2.0) / size;
        const double along = dx * std::cos(angle) + dy * std::sin(angle);
        const double inShadow =
            smooth(edge, edge + softness, dx * std::cos(shadowAngle) + dy * std::sin(shadowAngle));
        return (0.86 - fall * along - 0.15 * (dx * dx + dy * dy)) * (1 - shadowDepth * inShadow);
    });
    return frame;
}

} // namespace corpus
