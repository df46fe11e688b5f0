#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace fiscarel::look {

// Questions for files. The first begins in the user's documents, later ones where the last ended.
// Nothing comes back when the user gives up.

/// The kinds of file that a question offers.
struct FileKind {
    QString name;   ///< "PDF"
    QString ending; ///< "pdf"
};

/// Where to write; the ending is added where it was not typed.
QString askWhereToSave(QWidget* parent, const QString& title, const QString& name,
                       const FileKind& kind);
QString askForFile(QWidget* parent, const QString& title, const FileKind& kind);
/// `filter` as the window library takes it.
QStringList askForFiles(QWidget* parent, const QString& title, const QString& filter);
QString askForFolder(QWidget* parent, const QString& title);

} // namespace fiscarel::look
