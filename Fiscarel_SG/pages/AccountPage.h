#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/AppStore.h"
#include "Fiscarel_SG/look/PageFrame.h"
#include "Fiscarel_SG/look/PageWidget.h"
#include "Fiscarel_SG/look/Theme.h"
#include "Fiscarel_SG/store/Backups.h"
#endif

#include <vector>

class QLabel;
class QListWidget;
class QPushButton;

namespace fiscarel {
class CloudService;
}

namespace fiscarel::pages {

class CloudCard;

/// The encrypted backup, data, backups and appearance.
class AccountPage final : public look::PageWidget {
    Q_OBJECT

  public:
    /// `cloud` may be null: there is none in this start.
    AccountPage(AppStore& store, CloudService* cloud, look::Appearance appearance, QWidget* parent);

    void refresh() override;
    void refreshResult() override {}

  Q_SIGNALS:
    /// Pages are made anew for another appearance, this one too.
    void appearanceWanted(fiscarel::look::Appearance appearance);
    /// The user wants to begin the year anew; nobody has asked for confirmation yet.
    void resetWanted();

  private:
    void addCloud(CloudService* cloud);
    void addData();
    void addBackups();
    void addReset();
    void fitList();
    void addAppearance(look::Appearance appearance);
    void addAbout();
    void listBackups();
    void inspectSelected();
    void restoreSelected();
    void say(const std::optional<std::string>& problem, const QString& done);
    /// Says how work of the store went, when it is done and the page still there.
    AppStore::Done saying(const QString& done);
    void exportData();
    void importData();
    void exportArchive();
    void importArchive();
    void withArchive(const QString& doing, const QString& done,
                     const std::function<void(ArchiveProgress, AppStore::ArchiveDone)>& work);

    AppStore& store_;
    look::PageFrame* frame_;
    QLabel* message_;
    CloudCard* cloud_ = nullptr;
    QListWidget* list_ = nullptr;
    QLabel* content_ = nullptr;
    QPushButton* restore_ = nullptr;
    std::vector<BackupFile> backups_;
};

} // namespace fiscarel::pages
