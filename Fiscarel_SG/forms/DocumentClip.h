#pragma once

#ifndef Q_MOC_RUN
#include "TaxCore/base/Uuid.h"
#endif

#include <QToolButton>
#include <optional>
#include <string>

namespace fiscarel {
class AppStore;
}

namespace fiscarel::forms {

/// A paper-clip beside a field whose value came from a document; opens that document where the
/// value stands on it. Not there beside other fields.
class DocumentClip final : public QToolButton {
    Q_OBJECT

  public:
    /// The store must outlive it. Stands beside no field yet.
    DocumentClip(const AppStore& store, QWidget* parent);

    /// Looks whether a document stands behind the field at a path, which is called `label`.
    void follow(const std::string& path, const QString& label);

  private:
    void openDocument();

    const AppStore& store_;
    std::string path_;
    std::optional<taxcore::Uuid> document_;
};

} // namespace fiscarel::forms
