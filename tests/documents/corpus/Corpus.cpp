#include "tests/documents/corpus/Corpus.h"

#include "tests/documents/corpus/kit/Files.h"
#include "tests/documents/corpus/kit/Looks.h"

#include <QFile>
#include <stdexcept>

namespace corpus {
namespace {

constexpr int scanQuality = 60;

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

QString writeScan(const Draft& draft, Random random, const QString& path) {
    // Modules of a fifth of a millimetre, askew and drawn only once, need the finest of them.
    const double dpi = random.pick(draft.payload ? std::vector<double>{300}
                                                 : std::vector<double>{200, 240, 300, 300});
    const bool colour = random.chance(30);
    std::vector<QImage> pages;
    for (int page = 0; page < draft.paper.pageCount(); ++page) {
        pages.push_back(scanned(picture(draft.paper, page, dpi), random, colour));
    }
    const int form = random.between(1, 10);
    if (form == 1) {
        write(path + ".tif", tiff(pages, dpi));
        return ".tif";
    }
    if (form == 2 && pages.size() == 1) {
        pages[0].setDotsPerMeterX(qRound(dpi / 0.0254));
        pages[0].setDotsPerMeterY(qRound(dpi / 0.0254));
        pages[0].save(path + ".png");
        return ".png";
    }
    write(path + ".pdf", picturePdf(pages, dpi, scanQuality));
    return ".pdf";
}

QString writePhoto(const Draft& draft, Random random, const QString& path) {
    constexpr double sheetDpi = 300;
    std::vector<QImage> pages;
    for (int page = 0; page < draft.paper.pageCount(); ++page) {
        pages.push_back(photographed(picture(draft.paper, page, sheetDpi), random));
    }
    const int quality = random.between(80, 90);
    if (pages.size() > 1) {
        write(path + ".pdf", picturePdf(pages, sheetDpi, quality));
        return ".pdf";
    }
    if (random.chance(50)) {
        // As the sensor lies: a quarter turn that the viewer has to undo.
        const QImage turned = pages[0].transformed(QTransform().rotate(-90));
        write(path + ".jpg", withOrientation(jpeg(turned, quality), 6));
    } else {
        write(path + ".jpg", jpeg(pages[0], quality));
    }
    return ".jpg";
}

} // namespace

QString Order::name() const {
    return QString("%1-%2-%3-%4-%5").arg(layout.group, layout.name, language, look).arg(number);
}

std::vector<Order> ordersOf(const Selection& selection) {
    std::vector<Order> orders;
    for (const QString look : {"clean", "scan", "photo"}) {
        if (!selection.looks.isEmpty() && !selection.looks.contains(look)) {
            continue;
        }
        for (const Layout& layout : layoutsOf(selection.held)) {
            if (!selection.groups.isEmpty() && !selection.groups.contains(layout.group)) {
                continue;
            }
            for (const QString& language : QString(layout.languages).split(',')) {
                for (int number = 1; number <= selection.count; ++number) {
                    orders.push_back({layout, language, look, number});
                }
            }
        }
    }
    return orders;
}

Draft drawn(const Order& order, quint64 seed) {
    Draft draft(Random::named(seed, order.name()), order.language, order.layout.held,
                order.layout.payload);
    draft.truth.group = order.layout.group;
    draft.truth.layout = order.layout.name;
    draft.truth.look = order.look;
    order.layout.draw(draft);
    draft.finish();
    return draft;
}

QString writeLook(const Draft& draft, const Order& order, quint64 seed, const QString& folder) {
    const QString path = folder + "/" + order.name();
    const Random random = Random::named(seed, order.name() + " look");
    QString ending = ".pdf";
    if (order.look == "clean") {
        writeTextPdf(draft.paper, path + ending);
    } else {
        ending =
            order.look == "scan" ? writeScan(draft, random, path) : writePhoto(draft, random, path);
    }
    return order.name() + ending;
}

} // namespace corpus
