#pragma once

#ifndef Q_MOC_RUN
#include "Fiscarel_SG/shell/SearchIndex.h"
#endif

#include <QDialog>

class QLineEdit;
class QListWidget;

namespace fiscarel::shell {

/// Finds any field, line, document or page by its words.
class SearchDialog final : public QDialog {
    Q_OBJECT

  public:
    explicit SearchDialog(QWidget* parent);

    /// Opens with what can be found now.
    void begin(std::vector<SearchEntry> entries);

  Q_SIGNALS:
    void chosen(const fiscarel::shell::SearchEntry& entry);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void search();
    void choose();

    QLineEdit* query_;
    QListWidget* list_;
    std::vector<SearchEntry> entries_;
    std::vector<SearchEntry> found_;
};

} // namespace fiscarel::shell
