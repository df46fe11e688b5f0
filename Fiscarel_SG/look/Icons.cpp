#include "Fiscarel_SG/look/Icons.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace fiscarel::look {

using namespace Qt::Literals::StringLiterals;

QIcon icon(const QString& id, const QColor& color) {
    QFile file(u":/icons/%1.svg"_s.arg(id));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QByteArray drawing = file.readAll();
    drawing.replace("#000000", color.name().toLatin1());
    QSvgRenderer renderer(drawing);
    QIcon made;
    for (const int size : {20, 40, 60}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        painter.end();
        made.addPixmap(pixmap);
    }
    return made;
}

QIcon programIcon() { return QIcon(u":/fiscarel-sg.svg"_s); }

} // namespace fiscarel::look
