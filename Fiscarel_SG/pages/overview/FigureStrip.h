#pragma once

#include <QString>
#include <QWidget>
#include <vector>

class QLabel;

namespace fiscarel::pages {

/// Figures beside each other, each under its name.
class FigureStrip final : public QWidget {
    Q_OBJECT

  public:
    FigureStrip(int count, QWidget* parent);

    void set(std::size_t index, const QString& name, const QString& figure,
             const char* role = "figure");

  private:
    struct Block {
        QLabel* name = nullptr;
        QLabel* figure = nullptr;
    };

    std::vector<Block> blocks_;
};

} // namespace fiscarel::pages
