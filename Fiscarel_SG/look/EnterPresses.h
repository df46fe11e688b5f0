#pragma once

#include <QObject>

namespace fiscarel::look {

/// Makes the Enter key press the button that has the keyboard, as the space bar does. In dialogs
/// the window library does it already.
class EnterPresses final : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace fiscarel::look
