#pragma once

#ifndef Q_MOC_RUN
#include "TaxCore/base/Uuid.h"
#endif

#include <QObject>
#include <QPointer>
#include <optional>
#include <string>

class QWidget;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

class DocumentDesk;
class DocumentSheet;

/// Opens the sheet of a document, which is read first when it was not yet.
class DocumentOpener final : public QObject {
    Q_OBJECT

  public:
    /// All must outlive it; the sheet stands over `window`.
    DocumentOpener(AppStore& store, DocumentDesk& desk, QWidget* window);

    /// `path`: the field whose value is to be seen on the document; empty: none.
    void open(const taxcore::Uuid& id, const std::string& path);
    /// Whatever was to be opened once it is read need not be.
    void forget() { wanted_.reset(); }

  Q_SIGNALS:
    void told(const QString& text);
    /// A step that this sentence tells can be undone at once.
    void undoOffered(const QString& sentence);
    void fieldWanted(const QString& path);
    void pageWanted(const QString& id);

  private:
    struct Wanted {
        taxcore::Uuid id;
        std::string path;
    };

    void readingChanged(const taxcore::Uuid& id);
    void show(const Wanted& wanted);

    AppStore& store_;
    DocumentDesk& desk_;
    QWidget* window_;
    std::optional<Wanted> wanted_;
    QPointer<DocumentSheet> sheet_;
};

} // namespace fiscarel::pages
