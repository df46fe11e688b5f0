#include "tests/documents/corpus/measure/Report.h"

#include <algorithm>

namespace corpus {
namespace {

QString percent(int part, int whole) {
    return whole == 0 ? QString("    –") : QString("%1").arg(100.0 * part / whole, 5, 'f', 1);
}

QString threes(const std::array<int, 3>& counts) {
    return QString("%1/%2/%3").arg(counts[0]).arg(counts[1]).arg(counts[2]);
}

QString line(const QString& name, const Score& s) {
    return QString("%1 %2  %3 %4  %5  %6   %7  %8   %9 %10\n")
        .arg(name, -44)
        .arg(s.files, 4)
        .arg(QString("%1/%2").arg(s.right).arg(s.wanted), 9)
        .arg(percent(s.right, s.wanted))
        .arg(threes(s.wrong), 8)
        .arg(threes(s.phantom), 8)
        .arg(percent(s.kindRight, s.files))
        .arg(percent(s.literalRight, s.files))
        .arg(s.pages == 0 ? 0.0 : s.seconds / s.pages, 5, 'f', 1)
        .arg(s.unanswered == 0 ? QString() : QString("%1 without answer").arg(s.unanswered));
}

QString head() {
    return QString("%1 %2  %3 %4  %5  %6   %7  %8   %9\n")
        .arg("kind, layout, language, look", -44)
        .arg("file", 4)
        .arg("right", 9)
        .arg("    %", 5)
        .arg("wrong", 8)
        .arg("phantom", 8)
        .arg("kind%", 5)
        .arg("liter", 5)
        .arg("s/pg", 5);
}

template <class Key>
QMap<QString, Score> sums(const std::vector<Measured>& documents, Key&& key) {
    QMap<QString, Score> result;
    for (const Measured& document : documents) {
        const QString name = key(document.truth);
        if (!name.isEmpty()) {
            result[name] += document.score;
        }
    }
    return result;
}

QString table(const QString& title, const QMap<QString, Score>& rows) {
    QString text = "\n" + title + "\n";
    for (auto it = rows.begin(); it != rows.end(); ++it) {
        text += line(it.key(), it.value());
    }
    return text;
}

/// How much of what was proposed is right: what nobody proposed does not count here.
QString rightOfProposed(const QString& name, const Score& s) {
    int proposed = s.right;
    for (const auto& counts : {s.wrong, s.phantom}) {
        proposed += counts[0] + counts[1] + counts[2];
    }
    return QString("%1 %2 %  (%3 of %4)\n")
        .arg(name, -44)
        .arg(percent(s.right, proposed))
        .arg(s.right)
        .arg(proposed);
}

QString aim(const QString& name, int part, int whole, double least) {
    const double reached = whole == 0 ? 0 : 100.0 * part / whole;
    return QString("%1 %2 %  (aim %3 %)  %4\n")
        .arg(name, -44)
        .arg(percent(part, whole))
        .arg(least)
        .arg(whole == 0                ? "not measured"
             : reached + 1e-9 >= least ? "reached"
                                       : "MISSED");
}

QString aims(const std::vector<Measured>& documents) {
    QMap<QString, Score> classes;
    Score all;
    for (const Measured& document : documents) {
        // No promise holds for a barcode on a photo: there it counts as one more help.
        const bool data = document.truth.payload && document.truth.look != "photo";
        classes[data ? QString("payload") : document.truth.look] += document.score;
        all += document.score;
    }
    QString text = "\nAims (clean documents and scans with data barcodes count as payload)\n";
    text += aim("amounts, payload", classes["payload"].right, classes["payload"].wanted, 100);
    text += aim("amounts, clean", classes["clean"].right, classes["clean"].wanted, 98);
    text += aim("amounts, scan", classes["scan"].right, classes["scan"].wanted, 95);
    text += aim("amounts, photo", classes["photo"].right, classes["photo"].wanted, 85);
    text += aim("kind", all.kindRight, all.files, 97);
    const int sure = all.phantom[0] + all.wrong[0];
    text += QString("%1 %2      (aim 0)  %3\n")
                .arg("wrong or phantom amounts at high confidence", -44)
                .arg(sure, 5)
                .arg(sure == 0 ? "reached" : "MISSED");
    for (auto it = classes.cbegin(); it != classes.cend(); ++it) {
        text += rightOfProposed("right of what was proposed, " + it.key(), it.value());
    }
    text += QString("%1 %2 %\n")
                .arg("texts and dates", -44)
                .arg(percent(all.textsRight, all.textsWanted));
    for (auto it = all.byWitness.begin(); it != all.byWitness.end(); ++it) {
        text += QString("%1 %2 right, %3 not\n")
                    .arg("amounts by witness " + it.key(), -44)
                    .arg(it.value().first)
                    .arg(it.value().second);
    }
    return text;
}

} // namespace

QString report(const std::vector<Measured>& documents) {
    QString text = head();
    text += table("By layout", sums(documents, [](const Truth& t) {
                      return QStringList{t.group, t.layout, t.language, t.look}.join(" ");
                  }));
    text += table("By kind", sums(documents, [](const Truth& t) { return t.group; }));
    text += table("By language", sums(documents, [](const Truth& t) { return t.language; }));
    text += table("By look", sums(documents, [](const Truth& t) {
                      return t.look + (t.payload ? " with payload" : " without payload");
                  }));
    text += table("All", sums(documents, [](const Truth&) { return QString("all"); }));
    return text + aims(documents);
}

QString failures(const std::vector<Measured>& documents) {
    QString text;
    for (const Measured& document : documents) {
        for (const QString& miss : document.score.misses) {
            text += document.file + ": " + miss + "\n";
        }
    }
    return text;
}

} // namespace corpus
