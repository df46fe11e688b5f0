#include "Fiscarel_SG/forms/editors/EditorBase.h"

#include "Fiscarel_SG/look/Contrast.h"

#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace fiscarel::forms {

namespace {

constexpr double readable = 4.6; // a little above the 4.5 that is asked for

bool isDark(const QColor& colour) { return look::luminance(colour) < 0.2; }

/// The face of a button where text on it is hardest to read: dark ones are drawn with a light
/// sheen.
QColor buttonFace(const QPalette& palette) {
    const QColor button = palette.color(QPalette::Button);
    return isDark(button) ? button.lighter(150) : button;
}

QColor mix(const QColor& from, const QColor& to, int percent) {
    const auto part = [percent](int a, int b) { return a + (b - a) * percent / 100; };
    return {part(from.red(), to.red()), part(from.green(), to.green()),
            part(from.blue(), to.blue())};
}

/// The colour nearest to `wished` on the way to `strong` that can be read on `background`.
QColor readableOn(const QColor& background, const QColor& wished, const QColor& strong) {
    constexpr int step = 4;
    for (int percent = 0; percent < 100; percent += step) {
        const QColor mixed = mix(wished, strong, percent);
        if (look::contrast(mixed, background) >= readable) {
            return mixed;
        }
    }
    return strong;
}

} // namespace

QColor faintText(const QPalette& palette, const QColor& background) {
    const QColor text = palette.color(QPalette::Text);
    return readableOn(background, mix(text, background, 60), text);
}

QColor faintText(const QPalette& palette) {
    return faintText(palette, palette.color(QPalette::Base));
}

QColor problemColour(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    return readableOn(base, isDark(base) ? QColor(0xE5, 0x73, 0x73) : QColor(0xC6, 0x28, 0x28),
                      palette.color(QPalette::Text));
}

void paintProblem(QWidget& widget) {
    QPainter painter(&widget);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(problemColour(widget.palette()), 1.5));
    painter.drawRoundedRect(QRectF(widget.rect()).adjusted(0.75, 0.75, -0.75, -0.75), 2, 2);
}

EditorBase::EditorBase(BoundField field, QWidget* parent)
    : FieldEditor(parent), field_(std::move(field)) {}

void EditorBase::adopt(QWidget* input, int characters) {
    input_ = input;
    input->setObjectName(qs(field_.path));
    input->setAccessibleName(qs(field_.label));
    characters_ = characters;
    input->setSizePolicy(QSizePolicy::Expanding, input->sizePolicy().verticalPolicy());
    limitWidth();
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(input, 1);
    if (characters > 0) {
        layout->addStretch(0);
    }
    setFocusProxy(input);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    describe();
    colourHint();
}

void EditorBase::setProblem(const QString& problem) {
    if (problem == problem_) {
        return;
    }
    problem_ = problem;
    describe();
    Q_EMIT problemChanged();
}

QString EditorBase::hintFor(const QString& lastYear) {
    return lastYear.isEmpty() ? QString() : QStringLiteral("Vorjahr: ") + lastYear;
}

void EditorBase::changeEvent(QEvent* event) {
    FieldEditor::changeEvent(event);
    if (input_ == nullptr) {
        return;
    }
    if (event->type() == QEvent::PaletteChange) {
        colourHint();
    } else if (event->type() == QEvent::FontChange) {
        limitWidth();
    }
}

bool EditorBase::eventFilter(QObject* watched, QEvent* event) {
    const bool stays = FieldEditor::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut
        && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
        Q_EMIT left();
    }
    return stays;
}

void EditorBase::watchLeaving(QWidget* widget) { widget->installEventFilter(this); }

void EditorBase::limitWidth() {
    if (characters_ > 0) {
        input_->setMaximumWidth(QFontMetrics(font()).horizontalAdvance(QLatin1Char('0'))
                                * characters_);
    }
}

/// What is wrong comes first: that is what somebody who hears the field needs to know.
void EditorBase::describe() {
    QStringList sentences{problem_, note(), wording(), qs(field_.help)};
    sentences.removeAll(QString());
    input_->setAccessibleDescription(sentences.join(u' '));
}

void EditorBase::colourHint() {
    QPalette own;
    own.setColor(QPalette::PlaceholderText, qobject_cast<QComboBox*>(input_) != nullptr
                                                ? faintText(palette(), buttonFace(palette()))
                                                : faintText(palette()));
    input_->setPalette(own);
}

} // namespace fiscarel::forms
