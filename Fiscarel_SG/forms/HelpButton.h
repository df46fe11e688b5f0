#pragma once

#include <QToolButton>

namespace fiscarel::forms {

/// A small «?» that stays pressed while the help it belongs to is shown. Not reached by the
/// tabulator: F1 does the same from the field.
class HelpButton final : public QToolButton {
    Q_OBJECT

  public:
    /// `toolTip`: what it shows; `of`: the field or list, for who hears it.
    HelpButton(const QString& toolTip, const QString& of, QWidget* parent);
};

} // namespace fiscarel::forms
