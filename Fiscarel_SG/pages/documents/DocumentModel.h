#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/DocumentReadings.h"
#include "Fiscarel_SG/store/StoredDocument.h"
#endif

#include <QAbstractTableModel>
#include <QImage>
#include <QString>
#include <optional>
#include <string>
#include <vector>

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

class DocumentDesk;

/// How a document stands, in the order the list is sorted by.
enum class DocumentState { reading, open, unread, unreadable, missing, applied };

/// The documents of the selected year as the list shows them, those imported last first.
class DocumentModel final : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { title, issuer, kind, amount, state, columns };

    struct Row {
        Uuid id;
        QString title;
        QString issuer;
        std::optional<StoredDocument::Kind> kind; ///< absent while nothing is known
        bool isKindProposed = false;              ///< nobody has decided it yet
        std::optional<Decimal> amount;
        DocumentState state = DocumentState::open;
        QString detail;         ///< second line of the title
        QString advice;         ///< what can be done about it, beside the list; may be empty
        bool isWarning = false; ///< the detail
        std::optional<DocumentReadings::Progress> progress;
        std::optional<int> otherYear; ///< the tax year it speaks of, if not the selected one
        bool canMove = false;         ///< the program knows that year
        bool isBroken = false;        ///< nobody can open the file
    };

    /// Both must outlive it.
    DocumentModel(AppStore& store, DocumentDesk& desk, QObject* parent);

    /// Reads the documents anew.
    void update();
    /// Null for a line there is not.
    const Row* rowAt(int line) const;
    /// -1: none.
    int lineOf(const Uuid& id) const;
    /// Whether all words stand in what was read of a document, its title or its issuer. `words` are
    /// `folded`.
    bool hasWords(int line, const std::vector<std::string>& words) const;
    /// The first page, small; null until it is drawn, which this begins.
    QImage picture(int line, int width);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    /// What stands behind a row.
    struct Entry {
        StoredDocument document;
        Row row;
        mutable std::optional<std::string> words; ///< what is searched, folded when first searched
        QImage picture;
        bool isPictureWanted = false;
    };

    Row makeRow(const StoredDocument& document) const;
    void describe(const StoredDocument& document, Row& row) const;
    void readingChanged(const taxcore::Uuid& id);
    void setPicture(const Uuid& id, const QImage& image);
    QString stateText(const Row& row) const;

    AppStore& store_;
    DocumentDesk& desk_;
    std::vector<Entry> entries_;
};

} // namespace fiscarel::pages
