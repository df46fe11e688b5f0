#pragma once

#include <QFrame>
#include <QStringList>
#include <vector>

class QCheckBox;
class QGridLayout;
class QLabel;
class QVBoxLayout;

namespace fiscarel::forms {
class ChoiceBox;
}
namespace fiscarel::look {
class ElidingButton;
}

namespace fiscarel::pages {

class ProposalDesk;
class ProposalRow;

/// One record that a document proposes: whether it is taken over, where it goes and its values.
/// Closed it tells the essence in a line; what is inside is made when it is first opened.
class RecordPanel final : public QFrame {
    Q_OBJECT

  public:
    /// `desk` must outlive it.
    RecordPanel(ProposalDesk& desk, int record, QWidget* parent);

    int record() const noexcept { return record_; }
    /// Something was decided otherwise.
    void refresh();
    void open(bool opened);
    bool isOpen() const;
    /// Gives the keyboard to the first thing to decide.
    void focusFirst();
    /// The row of a proposal, which is opened for it; null when it is not of this record.
    ProposalRow* row(int proposal);

  Q_SIGNALS:
    /// The keyboard came to a value; `isReached` by a key or a click of the user.
    void focused(int proposal, bool isReached);
    /// The user wants to see the field at a path.
    void fieldWanted(const QString& path);

  private:
    void makeHead();
    void fill();
    void addTarget();
    forms::ChoiceBox* addChoice(QGridLayout& form, const QString& label, const char* name);
    void addPerson(QGridLayout& form);
    void refreshTarget();
    void refreshPerson();
    QString personWarning() const;
    QString summary() const;
    QStringList warnings() const;
    bool isLeftUnsure(int value) const;
    QString targetName() const;
    QString amount() const;

    ProposalDesk& desk_;
    const int record_;
    QCheckBox* take_;
    look::ElidingButton* head_;
    QLabel* amount_;
    QLabel* summary_;
    QVBoxLayout* column_;
    QWidget* body_ = nullptr;
    forms::ChoiceBox* person_ = nullptr;
    forms::ChoiceBox* item_ = nullptr;
    QLabel* nameWarning_ = nullptr; ///< whom the document names is not the one chosen
    QStringList offered_;           ///< ids of the items that `item_` offers
    QLabel* rival_ = nullptr;       ///< another record goes to the same item
    std::vector<ProposalRow*> rows_;
};

} // namespace fiscarel::pages
