#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/forms/CardView.h"
#endif

#include <optional>
#include <vector>

class QLabel;
class QPushButton;

namespace fiscarel::forms {

/// A list of records as compact rows, each of which opens to its fields.
class ListView final : public CardView {
    Q_OBJECT

  public:
    ListView(ListCard card, AppStore& store, const EditorContext& context, QWidget* parent);

    void refresh() override;
    bool reveal(const std::string& path) override;

  private:
    /// What stands for one record.
    struct Row {
        taxcore::Uuid id;
        QWidget* frame = nullptr;
        QPushButton* head = nullptr;
        QLabel* amount = nullptr;
        QWidget* body = nullptr; ///< null until it is opened
        std::vector<FieldRow*> fields;
    };

    void rebuild();
    void showTotal();
    Row makeRow(std::size_t index);
    QWidget* makeTools(std::size_t index, QWidget* parent);
    void open(std::size_t index, bool opened);
    void fill(Row& row, std::size_t index);
    void refreshRow(std::size_t index);
    void add();
    void takeOver();
    void change(const QString& name, const std::function<void(TaxCase&)>& edit);

    const ListCard card_;
    const EditorContext context_;
    QVBoxLayout* rowsLayout_;
    QLabel* empty_;
    QLabel* total_;
    QPushButton* takeOver_;
    std::vector<Row> rows_;
    std::optional<taxcore::Uuid> opened_;
};

} // namespace fiscarel::forms
