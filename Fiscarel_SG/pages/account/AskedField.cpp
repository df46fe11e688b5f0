#include "Fiscarel_SG/pages/account/AskedField.h"

#include "Fiscarel_SG/forms/editors/InputLine.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/pages/Cards.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace fiscarel::pages {

namespace {

constexpr int problemHeight = 18; ///< kept free, so that nothing moves

} // namespace

AskedField::AskedField(const QString& label, forms::InputLine* line, const QString& answer,
                       const char* name, QWidget* parent)
    : QWidget(parent), line_(line), answer_(new QPushButton(answer, this)),
      problem_(makeLabel({}, "error", this)) {
    line_->setParent(this);
    answer_->setObjectName(QString::fromLatin1(name));
    look::setRole(answer_, "primary");
    problem_->setObjectName(line_->objectName() + QStringLiteral("Problem"));
    problem_->setMinimumHeight(problemHeight);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 4, 0, 0);
    column->setSpacing(4);
    auto* const above = new QLabel(label, this);
    above->setBuddy(line_);
    column->addWidget(above);
    auto* const beside = new QHBoxLayout;
    beside->setSpacing(10);
    beside->addWidget(line_);
    beside->addWidget(answer_);
    beside->addStretch(1);
    column->addLayout(beside);
    column->addWidget(problem_);
    connect(line_, &QLineEdit::returnPressed, this, &AskedField::handIn);
    connect(line_, &QLineEdit::textEdited, this, [this] { setProblem({}); });
    connect(answer_, &QPushButton::clicked, this, &AskedField::handIn);
}

QString AskedField::text() const { return line_->text(); }

void AskedField::setProblem(const QString& sentence) {
    if (sentence == problem_->text()) {
        return;
    }
    problem_->setText(sentence);
    line_->setMarked(!sentence.isEmpty());
    line_->setAccessibleDescription(sentence);
    if (!sentence.isEmpty()) {
        QAccessibleEvent alert(problem_, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void AskedField::setWaiting(bool isWaiting) {
    if (isWaiting && answer_->hasFocus()) {
        takeKeyboard(); // a disabled button would pass it on
    }
    line_->setReadOnly(isWaiting);
    answer_->setEnabled(!isWaiting);
}

void AskedField::takeKeyboard() { line_->setFocus(Qt::OtherFocusReason); }

void AskedField::handIn() {
    if (answer_->isEnabled()) {
        takeKeyboard();
        Q_EMIT handedIn();
    }
}

} // namespace fiscarel::pages
