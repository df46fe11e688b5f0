#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/Field.h"
#endif

#include <QWidget>
#include <optional>
#include <string>

class QCheckBox;
class QGridLayout;
class QLabel;
class QToolButton;

namespace fiscarel::forms {
class FieldEditor;
}

namespace fiscarel::pages {

class ProposalDesk;

/// One proposed value: whether it is taken over, its field, the value to be edited, what it
/// replaces, how sure it is and why.
class ProposalRow final : public QWidget {
    Q_OBJECT

  public:
    /// `desk` must outlive it.
    ProposalRow(ProposalDesk& desk, int proposal, QWidget* parent);

    int proposal() const noexcept { return proposal_; }
    /// Something was decided otherwise.
    void refresh();
    /// Gives the keyboard to the value.
    void focusValue();
    /// And to the tick, where a key pressed by mistake does no harm.
    void focusTick();

  Q_SIGNALS:
    /// The keyboard came here; `isReached` by a key or a click of the user.
    void focused(int proposal, bool isReached);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void makeEditor();
    void layOut();
    /// Puts everything at its place: the value beside its label, or `below` it in the whole row.
    void place(bool below);
    bool isTooLong() const;
    void connectEditor();
    void showUnreadableText();
    void showBefore();
    void showTrust();
    void showProblem();
    QString beforeText() const;

    ProposalDesk& desk_;
    const int proposal_;
    std::optional<forms::BoundField> field_; ///< where the value goes now
    std::string fieldPath_;                  ///< what `field_` was looked up for
    bool isBelow_ = false;                   ///< the value stands below its label
    QCheckBox* take_;
    QLabel* label_;
    forms::FieldEditor* editor_ = nullptr;
    QToolButton* trust_;
    QLabel* before_;
    QLabel* warning_;
    QLabel* problem_;
    QLabel* details_;
};

} // namespace fiscarel::pages
