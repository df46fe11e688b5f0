#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/outputs/Enclosures.h"
#endif

#include <QThreadPool>
#include <QWidget>

class QGridLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace fiscarel {
class AppStore;
class DocumentReadings;
} // namespace fiscarel

namespace fiscarel::pages {

/// What is to be handed in with the return, entry by entry, with the documents that cover it; and
/// all of them as one PDF in that order. The PDF is made off the main thread.
class EnclosuresCard final : public QWidget {
    Q_OBJECT

  public:
    /// Both must outlive it.
    EnclosuresCard(AppStore& store, const DocumentReadings& readings, QWidget* parent);
    /// Waits for what is under way.
    ~EnclosuresCard() override;
    EnclosuresCard(const EnclosuresCard&) = delete;
    EnclosuresCard& operator=(const EnclosuresCard&) = delete;
    EnclosuresCard(EnclosuresCard&&) = delete;
    EnclosuresCard& operator=(EnclosuresCard&&) = delete;

    void refresh();

  Q_SIGNALS:
    /// The user wants to see the entry that asks for a document.
    void fieldWanted(const QString& path);

  private:
    void addRow(QGridLayout& grid, int row, const outputs::Enclosure& enclosure);
    void addOthers(QGridLayout& grid, int row);
    QStringList titlesOf(const std::vector<taxcore::Uuid>& documents) const;
    void save();
    void tell(const QString& text, const char* role);

    AppStore& store_;
    const DocumentReadings& readings_;
    QVBoxLayout* column_;
    QWidget* rows_ = nullptr;
    QPushButton* save_;
    QLabel* message_;
    outputs::Checklist checklist_;
    QThreadPool pool_;
};

} // namespace fiscarel::pages
