#pragma once

#include "Fiscarel_SG/forms/editors/InputLine.h"

#include <QFont>
#include <QString>
#include <QStringList>

namespace fiscarel::pages {

/// The letters of keys and codes: all as wide as each other.
QFont codeFont(double points);
/// Letters and digits of whatever was typed, in capitals and groups of four; what is more than a
/// recovery key has is left out.
QString groupedRecoveryKey(const QString& text);
/// The same in two lines of four groups, as it is shown and printed.
QStringList recoveryKeyLines(const QString& key);

/// A line for a recovery key, which groups what is typed or pasted.
class RecoveryKeyEdit final : public forms::InputLine {
    Q_OBJECT

  public:
    explicit RecoveryKeyEdit(QWidget* parent);

    void changeEvent(QEvent* event) override;

  private:
    void fitWidth();
};

} // namespace fiscarel::pages
