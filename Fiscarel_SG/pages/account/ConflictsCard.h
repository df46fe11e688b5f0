#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/cloud/CloudService.h"
#include "Fiscarel_SG/pages/account/ConflictText.h"
#endif

#include <QFrame>
#include <optional>
#include <vector>

class QGridLayout;
class QPushButton;
class QVBoxLayout;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::pages {

/// What was changed here and elsewhere in different ways, to be chosen between. Hidden while there
/// is none.
class ConflictsCard final : public QFrame {
    Q_OBJECT

  public:
    /// Both must outlive it.
    ConflictsCard(AppStore& store, CloudService& service, QWidget* parent);

    /// The conflicts or the entries changed.
    void follow();

  Q_SIGNALS:
    void fieldWanted(const QString& path);
    void documentWanted(const QString& id, const QString& path);
    /// The user took a step that this sentence tells and that may be undone at once.
    void undoOffered(const QString& sentence);
    /// The last one is settled; the keyboard was here.
    void keyboardLeft();

  private:
    void rebuild();
    void addConflict(QVBoxLayout& column, std::size_t index);
    void addChoice(QGridLayout& grid, std::size_t index, bool isOther);
    QPushButton* doorTo(std::size_t index);
    void settle(std::size_t index, bool takesOther);
    void settleAll();
    void giveKeyboard(std::size_t index);

    AppStore& store_;
    CloudService& service_;
    QVBoxLayout* column_;
    QWidget* list_ = nullptr;
    QPushButton* all_;
    std::vector<MergeConflict> shown_;
    std::vector<ConflictText> texts_;
    std::vector<QPushButton*> first_; ///< the first choice of each
};

} // namespace fiscarel::pages
