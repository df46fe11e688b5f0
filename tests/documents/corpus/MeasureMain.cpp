#include "tests/documents/corpus/measure/Report.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <atomic>
#include <cstdio>
#include <thread>

namespace {

using corpus::Measured;

std::optional<corpus::Truth> truthOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return corpus::Truth::fromJson(file.readAll());
}

/// The documents of a folder that have a truth, in the order of their names.
std::vector<Measured> documentsIn(const QString& folder, const QStringList& parts) {
    std::vector<Measured> documents;
    const QDir dir(folder);
    for (const QString& name : dir.entryList({"*.truth.json"}, QDir::Files, QDir::Name)) {
        const QString base = name.chopped(QString(".truth.json").size());
        const bool chosen = std::all_of(parts.begin(), parts.end(),
                                        [&](const QString& part) { return base.contains(part); });
        const QStringList files = dir.entryList({base + ".*"}, QDir::Files, QDir::Name);
        const auto truth = truthOf(dir.filePath(name));
        for (const QString& file : files) {
            if (chosen && truth && file != name) {
                documents.push_back({file, *truth, {}});
            }
        }
    }
    return documents;
}

void measure(Measured& document, const QString& folder, const QStringList& command, int limit) {
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    QElapsedTimer clock;
    clock.start();
    process.start(command.first(), command.mid(1) + QStringList{folder + "/" + document.file});
    const bool ended = process.waitForFinished(limit * 1000);
    const double seconds = static_cast<double>(clock.elapsed()) / 1000.0;
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    const auto answer =
        ended ? corpus::Answer::fromJson(process.readAllStandardOutput()) : std::nullopt;
    document.score = corpus::scored(document.truth, answer);
    document.score.seconds = seconds;
}

} // namespace

/// Runs a reader over drawn documents and compares what it proposes with the truth.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addPositionalArgument("folder", "of documents with their truth");
    parser.addOptions(
        {{"reader", "command; the file is put after it", "command", "fiscarel-cli lies --json"},
         {"only", "only files whose names contain this; several must all be contained", "part"},
         {"limit", "seconds for a file", "seconds", "120"},
         {"jobs", "files at the same time", "number", "1"},
         {"failures", "lists every miss"}});
    parser.addHelpOption();
    parser.process(application);
    if (parser.positionalArguments().size() != 1) {
        parser.showHelp(2);
    }
    const QString folder = parser.positionalArguments().constFirst();
    auto documents = documentsIn(folder, parser.values("only"));
    const QStringList command = QProcess::splitCommand(parser.value("reader"));
    if (documents.empty() || command.isEmpty()) {
        std::fprintf(stderr, "no documents with a truth, or no reader\n");
        return 1;
    }
    std::atomic<size_t> next = 0;
    const auto work = [&] {
        for (size_t i = next++; i < documents.size(); i = next++) {
            measure(documents[i], folder, command, parser.value("limit").toInt());
        }
    };
    std::vector<std::thread> threads;
    for (int i = std::max(1, parser.value("jobs").toInt()); i > 0; --i) {
        threads.emplace_back(work);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    if (parser.isSet("failures")) {
        std::printf("%s\n", qPrintable(corpus::failures(documents)));
    }
    std::printf("%s", qPrintable(corpus::report(documents)));
    return 0;
}
