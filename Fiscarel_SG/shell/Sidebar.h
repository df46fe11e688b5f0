#pragma once

#include <QString>
#include <QWidget>
#include <map>
#include <vector>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace fiscarel {
class AppStore;
}

namespace fiscarel::shell {

/// The pages as the sidebar lists them.
struct PageEntry {
    QString id;
    QString title;
    QString words; ///< what else it can be found by
};

/// Product, region and year, the pages with their badges, and whether everything is saved.
class Sidebar final : public QWidget {
    Q_OBJECT

  public:
    Sidebar(AppStore& store, const std::vector<PageEntry>& pages, QWidget* parent);

    void setPage(const QString& id);
    /// Year, region, badges.
    void refresh();
    void refreshSaveState();
    /// What can be undone and redone.
    void refreshHistory();
    /// Icons follow the colours.
    void refreshTheme();

  Q_SIGNALS:
    void pageWanted(const QString& id);
    void yearWanted(int year);
    void regionWanted(bool liechtenstein);
    void searchWanted();
    void undoWanted();
    void redoWanted();

  private:
    void addPage(const PageEntry& page, QVBoxLayout& column);
    QPushButton* addTool(const QString& name, QHBoxLayout& line);

    AppStore& store_;
    QComboBox* year_;
    QComboBox* region_;
    QLabel* saved_;
    QPushButton* retry_;
    QPushButton* undo_ = nullptr;
    QPushButton* redo_ = nullptr;
    std::map<QString, QPushButton*> tools_; ///< by the name of their drawing
    std::map<QString, QPushButton*> buttons_;
    std::map<QString, QLabel*> badges_;
};

} // namespace fiscarel::shell
