#pragma once

#include <QStringList>
#include <QWidget>
#include <string>

namespace fiscarel::look {

/// One page of the window.
class PageWidget : public QWidget {
    Q_OBJECT

  public:
    explicit PageWidget(QWidget* parent) : QWidget(parent) {}

    /// The entries or the year changed.
    virtual void refresh() = 0;
    /// A new result is there.
    virtual void refreshResult() = 0;
    /// Shows the field at a path of the case and gives it the keyboard; false when it is not here.
    virtual bool reveal(const std::string& path);
    /// Which records are open, for the same page made anew.
    virtual QStringList opened() const { return {}; }
    /// Opens the records that are here.
    virtual void open(const QStringList& /*records*/) {}

  Q_SIGNALS:
    /// The user wants to see the field at a path, wherever it is.
    void fieldWanted(const QString& path);
    /// The user wants another page.
    void pageWanted(const QString& id);
    /// The user wants to see a document, by its identity; `path` is of the field whose value came
    /// from it, empty for the whole document.
    void documentWanted(const QString& id, const QString& path);
    /// The user took a step that this sentence tells and that may be undone at once.
    void undoOffered(const QString& sentence);
    /// The user asks where the figure of a line comes from.
    void reasonWanted(const QString& code);
};

} // namespace fiscarel::look
