#pragma once

#include <QLocalServer>
#include <QObject>
#include <filesystem>

namespace fiscarel::shell {

/// How a second start reaches the first one: the one that holds a data folder listens, the other
/// asks it to come to the front.
class SingleInstance final : public QObject {
    Q_OBJECT

  public:
    explicit SingleInstance(const std::filesystem::path& folder);

    /// Listens for later starts; to be called by who holds the folder.
    void listen();
    /// Asks the program that holds the folder to show itself; whether it could be reached.
    bool askFirst() const;

  Q_SIGNALS:
    void asked();

  private:
    const QString name_;
    QLocalServer server_;
};

} // namespace fiscarel::shell
