#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/shell/PageFrame.h"
#include "Fiscarel_SG/shell/PageWidget.h"
#include "Fiscarel_SG/shell/Theme.h"
#include "Fiscarel_SG/store/Backups.h"
#endif

#include <vector>

class QLabel;
class QListWidget;
class QPushButton;

namespace fiscarel::pages {

/// Data, backups and appearance.
class AccountPage final : public shell::PageWidget {
    Q_OBJECT

  public:
    AccountPage(AppStore& store, shell::Appearance appearance, QWidget* parent);

    void refresh() override;
    void refreshResult() override {}

  Q_SIGNALS:
    void appearanceWanted(fiscarel::shell::Appearance appearance);
    void resetWanted();

  private:
    void addData();
    void addBackups();
    void addAppearance(shell::Appearance appearance);
    void addAbout();
    void listBackups();
    void inspectSelected();
    void restoreSelected();
    void say(const std::optional<std::string>& problem, const QString& done);
    void exportData();
    void importData();
    void exportArchive();
    void importArchive();
    void withArchive(const QString& doing, const QString& done,
                     const std::function<void(ArchiveProgress, AppStore::ArchiveDone)>& work);

    AppStore& store_;
    shell::PageFrame* frame_;
    QLabel* message_;
    QListWidget* list_ = nullptr;
    QLabel* content_ = nullptr;
    QPushButton* restore_ = nullptr;
    std::vector<BackupFile> backups_;
};

} // namespace fiscarel::pages
