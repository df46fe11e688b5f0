#include "tests/documents/corpus/Corpus.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <cstdio>
#include <exception>

namespace {

int make(const corpus::Selection& selection, quint64 seed, const QString& folder) {
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "cannot make the folder\n");
        return 1;
    }
    for (const corpus::Order& order : corpus::ordersOf(selection)) {
        const corpus::Draft draft = corpus::drawn(order, seed);
        const QString name = corpus::writeLook(draft, order, seed, folder);
        QFile truth(folder + "/" + order.name() + ".truth.json");
        if (!truth.open(QIODevice::WriteOnly)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(truth.fileName()));
            return 1;
        }
        truth.write(draft.truth.json());
        std::printf("%s\n", qPrintable(name));
    }
    return 0;
}

} // namespace

/// Draws household documents with the truth beside each.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addPositionalArgument("folder", "where the documents go");
    parser.addOptions({{"set", "train or held", "set", "train"},
                       {"seed", "of all choices", "number", "1"},
                       {"count", "documents per layout, language and look", "number", "3"},
                       {"kind", "only this kind of paper; can stand several times", "kind"},
                       {"look", "only clean, scan or photo; can stand several times", "look"}});
    parser.addHelpOption();
    parser.process(application);
    if (parser.positionalArguments().size() != 1) {
        parser.showHelp(2);
    }
    corpus::Selection selection;
    selection.held = parser.value("set") == "held";
    selection.count = parser.value("count").toInt();
    selection.groups = parser.values("kind");
    selection.looks = parser.values("look");
    try {
        return make(selection, parser.value("seed").toULongLong(),
                    parser.positionalArguments().constFirst());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
