#pragma once

#include "TaxCore/result/TaxResult.h"

#include <QPushButton>
#include <QString>

namespace fiscarel::pages {

/// Leads to where something is to be done about a notice: the field it names, else its page.
class NoticeDoor final : public QPushButton {
    Q_OBJECT

  public:
    /// Null for a notice that names no place. The widget is called "name:id of the notice".
    static NoticeDoor* of(const taxcore::Notice& notice, const QString& name, QWidget* parent);

  Q_SIGNALS:
    void fieldWanted(const QString& path);
    void pageWanted(const QString& id);

  private:
    NoticeDoor(const taxcore::Notice& notice, const QString& name, QWidget* parent);
};

} // namespace fiscarel::pages
