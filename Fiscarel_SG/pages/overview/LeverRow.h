#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/pages/overview/Scenario.h"
#endif

#include <QWidget>

class QLabel;
class QPushButton;
class QSlider;

namespace fiscarel::pages {

class FrancsBox;

/// One lever: a slider with its number beside it, and the button that takes the number over.
class LeverRow final : public QWidget {
    Q_OBJECT

  public:
    explicit LeverRow(QWidget* parent);

    /// Shows a lever at a value; emits nothing.
    void show(const Lever& lever, const Decimal& value);

  Q_SIGNALS:
    /// The user wants another value, in francs.
    void moved(int value);
    void taken();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void nameAfter(const Lever& lever);

    Lever lever_;
    QLabel* name_;
    QLabel* now_;
    QSlider* slider_;
    FrancsBox* box_;
    QPushButton* take_;
};

} // namespace fiscarel::pages
