#include "Fiscarel_SG/paper/PaperDocument.h"

namespace fiscarel::paper {

namespace {

QColor colorOf(PaperRule::Ink ink) {
    switch (ink) {
    case PaperRule::Ink::light:
        return QColor(0xD5DBD8);
    case PaperRule::Ink::strong:
        return QColor(0x7C8883);
    case PaperRule::Ink::accent:
        break;
    }
    return QColor(0x14655A);
}

} // namespace

void paintPage(QPainter& painter, const PaperPage& page) {
    painter.save();
    for (const PaperRule& rule : page.rules) {
        painter.fillRect(rule.rect, colorOf(rule.ink));
    }
    painter.scale(1.0 / finePerPoint, 1.0 / finePerPoint);
    // In the order in which they are read, which is also that of copying and of screen readers.
    const PaperText* before = nullptr;
    for (const PaperText& text : page.texts) {
        if (text.text.isEmpty()) {
            continue;
        }
        if (before == nullptr || before->type != text.type) {
            painter.setFont(fontOf(text.type));
            painter.setPen(inkOf(text.type));
            before = &text;
        }
        painter.drawText(text.at * finePerPoint, text.text);
    }
    painter.restore();
}

} // namespace fiscarel::paper
