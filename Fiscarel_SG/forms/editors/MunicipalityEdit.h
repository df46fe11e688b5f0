#pragma once

#include "Fiscarel_SG/forms/editors/LineEditor.h"

namespace fiscarel::forms {

/// A municipality, searched in the list of the year and region; other names are kept. The name
/// counts once it is chosen, Enter is pressed or the keyboard leaves, as «Wil» begins «Wildhaus».
class MunicipalityEdit final : public LineEditor {
  public:
    MunicipalityEdit(BoundField field, const PageContext& page, QWidget* parent);

  protected:
    Reading read(const QString& text) const override;
    QString shown(const Value& value) const override;
    Value emptyValue() const override { return std::string(); }
    QString problemOf(const Value& value) const override;
    bool isLive(const QString&) const override { return false; }

  private:
    void typing() override;
    bool openList();

    std::vector<std::string> names_;
    std::function<void(const QString& typed)> rank_; ///< orders the list
    int year_;
};

} // namespace fiscarel::forms
