#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/CardView.h"
#endif

#include <cstddef>
#include <functional>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace fiscarel::forms {

/// What lists and tables of records have in common: the edits of a record, each undone as one, the
/// total, and the offer of last year's records while there are none.
class RecordsView : public CardView {
    Q_OBJECT

  protected:
    RecordsView(ListCard card, AppStore& store, QWidget* parent);

    const ListCard& card() const noexcept { return card_; }
    std::size_t count() const;
    /// "Muster AG", or "Lohnausweis 2" while the record has no name.
    QString titleOf(std::size_t index) const;

    // Edits of the case; what is shown follows when the store tells of them. Not in lists whose
    // records come and go on another page.
    void add();
    void duplicate(std::size_t index);
    void remove(std::size_t index);
    void move(std::size_t from, std::size_t to);

    /// A button like a link at the end of a line.
    QPushButton* addTool(QHBoxLayout& line, const QString& text, const QString& name,
                         const std::function<void()>& act);
    /// Tells who hears a button which record or list it is for.
    static void nameTool(QPushButton& button, const QString& of);

    /// To be placed by the view: hidden while there is nothing to sum up.
    QLabel& total() noexcept { return *total_; }
    /// To be placed by the view: seen while there are no records but some last year.
    QPushButton& takeOver() noexcept { return *takeOver_; }
    /// Total and offer follow the entries.
    void refreshFoot();

  private:
    const TaxCase* lastYear() const;
    void change(const char* what, const std::function<void(TaxCase&)>& edit);
    void takeOverLastYear();

    const ListCard card_;
    QLabel* total_;
    QPushButton* takeOver_;
};

} // namespace fiscarel::forms
