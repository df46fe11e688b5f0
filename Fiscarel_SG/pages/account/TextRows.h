#pragma once

#include <QString>
#include <QWidget>
#include <vector>

class QGridLayout;

namespace fiscarel::pages {

/// A titled list of two texts a row, below a line; hidden while there is none.
class TextRows final : public QWidget {
    Q_OBJECT

  public:
    struct Row {
        QString text;
        QString detail; ///< fainter, beside it

        bool operator==(const Row&) const = default;
    };

    TextRows(const QString& title, QWidget* parent);

    void setRows(std::vector<Row> rows);

  private:
    QWidget* list_ = nullptr;
    std::vector<Row> rows_;
};

} // namespace fiscarel::pages
