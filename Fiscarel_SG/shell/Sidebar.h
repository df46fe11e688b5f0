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
class CloudService;
} // namespace fiscarel

namespace fiscarel::shell {

/// The pages as the sidebar lists them.
struct PageEntry {
    QString id;
    QString title;
    QString words; ///< what else it can be found by
};

/// Product, region and year, the pages with their badges, whether everything is saved and how the
/// backup stands.
class Sidebar final : public QWidget {
    Q_OBJECT

  public:
    /// `cloud` may be null.
    Sidebar(AppStore& store, CloudService* cloud, const std::vector<PageEntry>& pages,
            QWidget* parent);

    void setPage(const QString& id);
    /// Year, region, badges.
    void refresh();
    void refreshSaveState();
    /// How the backup stands, and what of it waits for the user.
    void refreshCloud();
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
    void addFoot(QVBoxLayout& column);
    void setBadge(const QString& id, int count, const QString& told);
    QPushButton* addTool(const QString& name, QHBoxLayout& line);

    AppStore& store_;
    CloudService* cloud_;
    QComboBox* year_;
    QComboBox* region_;
    QLabel* saved_;
    QPushButton* retry_;
    QLabel* cloudState_;
    QPushButton* cloudDoor_; ///< in its place where something waits for the user
    QPushButton* undo_ = nullptr;
    QPushButton* redo_ = nullptr;
    std::map<QString, QPushButton*> tools_; ///< by the name of their drawing
    std::map<QString, QPushButton*> buttons_;
    std::map<QString, QLabel*> badges_;
};

} // namespace fiscarel::shell
