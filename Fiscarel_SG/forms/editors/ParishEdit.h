#pragma once

#include "Fiscarel_SG/forms/editors/ChoiceEdit.h"

namespace fiscarel::forms {

/// A parish of the municipality entered. When the user has just chosen a municipality with a single
/// parish, that one is taken over; it can be cleared.
class ParishEdit final : public ChoiceEdit {
  public:
    ParishEdit(BoundField field, EditorContext context, QWidget* parent);

    void refresh(const QString& editedPath = {}) override;

  protected:
    void changed() override;

  private:
    std::vector<Option> offered() const;

    EditorContext context_;
    std::string offeredFor_; ///< the municipality whose parishes are offered
    bool hasMoved_ = false;  ///< the municipality is another since the user last chose it
};

} // namespace fiscarel::forms
