#include "Fiscarel_SG/look/FileDialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

namespace fiscarel::look {

using namespace Qt::Literals::StringLiterals;

namespace {

QString& lastFolder() {
    static QString folder;
    return folder;
}

/// Never where the program happened to be started.
QString beginning() {
    if (QFileInfo(lastFolder()).isDir()) {
        return lastFolder();
    }
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

void remember(const QString& file) {
    if (!file.isEmpty()) {
        lastFolder() = QFileInfo(file).absolutePath();
    }
}

QString filterOf(const FileKind& kind) { return u"%1 (*.%2)"_s.arg(kind.name, kind.ending); }

} // namespace

QString askWhereToSave(QWidget* parent, const QString& title, const QString& name,
                       const FileKind& kind) {
    QString file = QFileDialog::getSaveFileName(parent, title, QDir(beginning()).filePath(name),
                                                filterOf(kind));
    remember(file);
    const QString ending = u'.' + kind.ending;
    if (!file.isEmpty() && !file.endsWith(ending, Qt::CaseInsensitive)) {
        file += ending;
    }
    return file;
}

QString askForFile(QWidget* parent, const QString& title, const FileKind& kind) {
    const QString file = QFileDialog::getOpenFileName(parent, title, beginning(), filterOf(kind));
    remember(file);
    return file;
}

QStringList askForFiles(QWidget* parent, const QString& title, const QString& filter) {
    const QStringList files = QFileDialog::getOpenFileNames(parent, title, beginning(), filter);
    remember(files.value(0));
    return files;
}

QString askForFolder(QWidget* parent, const QString& title) {
    const QString folder = QFileDialog::getExistingDirectory(parent, title, beginning());
    remember(folder);
    return folder;
}

} // namespace fiscarel::look
