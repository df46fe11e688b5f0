#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/store/StoredDocument.h"
#endif

#include <QWidget>
#include <optional>
#include <string>

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QVBoxLayout;

namespace fiscarel::forms {
class ChoiceBox;
}

namespace fiscarel::pages {

class ProposalDesk;

/// What concerns a document as a whole: its name and kind, whether it belongs to the year, and for
/// the statement of a bank whether its total or its entries are taken.
class ProposalHead final : public QWidget {
    Q_OBJECT

  public:
    /// `desk` must outlive it.
    ProposalHead(ProposalDesk& desk, QWidget* parent);

    /// As entered; the former name when that is empty.
    std::string title() const;
    StoredDocument::Kind kind() const;
    /// Whether keeping `kind` is a decision: another one was chosen, or a proposed one was seen.
    bool isKindDecided() const;
    bool isEdited() const;
    /// Something was decided otherwise.
    void refresh();

  Q_SIGNALS:
    void kindChanged();
    /// The user wants the document among those of another year.
    void yearWanted(int year);

  private:
    void addNameAndKind();
    void addSuggestion(int indent);
    void showSuggestion(); ///< and the whole name in its tip
    void addYearNotice();
    void addStatementChoice();
    /// The year of the records that are not of the selected one; absent when they are.
    std::optional<int> otherYear() const;

    ProposalDesk& desk_;
    QVBoxLayout* column_;
    QLineEdit* name_;
    QPushButton* suggestion_ = nullptr; ///< takes the name that is proposed
    forms::ChoiceBox* kind_;
    StoredDocument::Kind proposedKind_;
    QRadioButton* asEntries_ = nullptr;
    QRadioButton* asTotal_ = nullptr;
};

} // namespace fiscarel::pages
