#pragma once

#include <QSpinBox>

namespace fiscarel::pages {

/// A whole number of francs, grouped the Swiss way. The wheel moves it only while it has the
/// keyboard.
class FrancsBox final : public QSpinBox {
    Q_OBJECT

  public:
    explicit FrancsBox(QWidget* parent);

  protected:
    QString textFromValue(int value) const override;
    int valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& position) const override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace fiscarel::pages
