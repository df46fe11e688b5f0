#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/FieldRow.h"
#include "Fiscarel_SG/forms/Page.h"
#endif

#include <QFrame>
#include <optional>
#include <vector>

class QGridLayout;
class QLabel;
class QVBoxLayout;

namespace fiscarel::forms {

/// A framed part of a page with a heading, and below its content the figures that belong to it.
class CardView : public QFrame {
    Q_OBJECT

  public:
    CardView(const std::string& title, const std::string& help, Figures figures, Condition shown,
             AppStore& store, QWidget* parent);

    /// The entries changed.
    virtual void refresh();
    /// The result changed.
    void refreshFigures();
    /// Shows the field at a path and gives it the keyboard; false when it is not here.
    virtual bool reveal(const std::string& path) = 0;
    /// The record that is open, in cards where one can be.
    virtual std::optional<taxcore::Uuid> opened() const { return {}; }
    /// Opens one of these records if it is here.
    virtual void openOneOf(const std::vector<taxcore::Uuid>& records) { Q_UNUSED(records) }

    /// How wide the card would like to be, in pixels; 0: as wide as others are.
    virtual int wishedWidth() const { return 0; }

  Q_SIGNALS:
    /// The user opened a part of the card, which is to be seen whole.
    void partOpened(QWidget* part);
    /// The user took a record away, which this sentence tells.
    void recordRemoved(const QString& sentence);

  protected:
    /// Whether figures keep their place while there is nothing of them.
    virtual bool keepsFigures() const { return true; }
    AppStore& store() noexcept { return store_; }
    const AppStore& store() const noexcept { return store_; }
    QVBoxLayout& content() noexcept { return *content_; }
    /// The content ends with room of its own, as rows that keep a place for their problems.
    void setEndsWithRoom();

  private:
    /// The labels of one figure.
    struct FigureRow {
        QLabel* label = nullptr;
        QLabel* text = nullptr;
        QLabel* note = nullptr;
    };

    void placeEnd();
    void addFigureRow();
    void showFigure(const Figure& figure, int row);

    AppStore& store_;
    Figures figures_;
    Condition shown_;
    QVBoxLayout* content_;
    QGridLayout* figureGrid_;
    std::vector<Figure> shownFigures_;
    std::vector<FigureRow> figureRows_; ///< hidden beyond those shown
    bool endsWithRoom_ = false;
};

/// A card of fields.
class FieldsView final : public CardView {
    Q_OBJECT

  public:
    FieldsView(const FieldsCard& card, AppStore& store, const EditorContext& context,
               QWidget* parent);

    void refresh() override;
    bool reveal(const std::string& path) override;

  private:
    std::vector<FieldRow*> rows_;
};

/// A card for a list or a table of records, or for fields.
CardView* makeCard(const Card& card, AppStore& store, const EditorContext& context,
                   QWidget* parent);

} // namespace fiscarel::forms
