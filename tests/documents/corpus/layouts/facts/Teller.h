#pragma once

#include "tests/documents/corpus/layouts/facts/Tale.h"

#include <set>

namespace corpus {

/// The commands of a tale.
QString taleOf(const QString& name);

/// The paper as a whole, or an item of a list.
struct Scope {
    Facts facts;
    std::map<QString, qint64> numbers; ///< counts, rates, places
    std::set<QString> sums;            ///< amounts added up from items
    std::optional<Someone> who;        ///< absent: the first of the household
    bool dropped = false;
};

class Teller {
  public:
    explicit Teller(Draft& draft) : draft_(draft) { scopes_.emplace_back(); }

    Facts tell(const QString& tale) {
        use(tale);
        return scopes_.front().facts;
    }

  private:
    void use(const QString& tale) { runAll(taleOf(tale).split('\n')); }
    void runAll(const QStringList& lines);
    void run(const QString& command);
    void assign(const QString& form, const QString& name, const QString& sum);
    bool setOut(const QString& command, const QString& rest);

    qint64 number(const QString& sum);
    qint64 named(const QString& name);
    qint64 called(const QString& function, const std::vector<qint64>& a);
    std::optional<qint64> dayCalled(const QString& function, const std::vector<qint64>& a);
    QString words(const QString& all);
    QStringList wordsOfLanguage(const QString& all) const;
    QString expanded(QString text);
    QString textNamed(const QString& name);
    Someone person(const QString& name);

    void setSender(const QString& names);
    void inPrincipality();
    void list(const QString& head, const QStringList& lines);
    void itemOf(const QString& rest);
    void close(const QString& list);
    void again(const QString& rest);
    void join(const QString& rest);
    void record(const QString& rest, bool accepted);
    void acceptSums();

    Scope& here() { return scopes_.back(); }

    Draft& draft_;
    std::vector<Scope> scopes_;
    std::optional<Someone> third_;
};

} // namespace corpus
