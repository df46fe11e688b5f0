#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/RecordsView.h"
#endif

#include <optional>
#include <vector>

namespace fiscarel::forms {

/// A list of records as compact rows, each of which opens to its fields.
class ListView final : public RecordsView {
    Q_OBJECT

  public:
    ListView(ListCard list, AppStore& store, EditorContext context, QWidget* parent);

    void refresh() override;
    bool reveal(const std::string& path) override;
    std::optional<taxcore::Uuid> opened() const override { return opened_; }
    void openOneOf(const std::vector<taxcore::Uuid>& records) override;

  protected:
    /// A record comes by a click, which may move what lies below.
    bool keepsFigures() const override { return count() > 0; }

  private:
    /// What stands for one record.
    struct Row {
        taxcore::Uuid id;
        QWidget* frame = nullptr;
        QPushButton* head = nullptr;
        QLabel* amount = nullptr;
        QWidget* body = nullptr; ///< null until it is opened
        std::vector<FieldRow*> fields;
        std::vector<QPushButton*> tools;
    };

    void rebuild();
    Row makeRow(std::size_t index);
    QWidget* makeTools(Row& row, std::size_t index);
    void open(std::size_t index, bool opened);
    void fill(Row& row, std::size_t index);
    void refreshRow(std::size_t index);
    void addOpened();
    /// The row goes to another place and the keyboard with it, to the button of this name.
    void moveRow(std::size_t from, std::size_t to, const QString& button);
    /// The keyboard goes to a row, or without one to the button that adds.
    void focusRow(std::size_t index);

    const EditorContext context_;
    QVBoxLayout* rowsLayout_;
    QLabel* empty_;
    QPushButton* addButton_;
    std::vector<Row> rows_;
    std::optional<taxcore::Uuid> opened_;
};

} // namespace fiscarel::forms
