// Reads an update feed and prints the newest version. The program runs it as a separate process, so that
// nothing from the network can block or crash the program.

#include "updater/feed_download.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    using namespace zeigewerk;

    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: zeigewerk-feed ADDRESS USER-AGENT\n");
        return 2;
    }
    FeedDownload download(arguments[2].toUtf8());
    const auto writeAnswer = [](const FeedAnswer &answer) {
        const WrittenAnswer written = write(answer);
        std::fwrite(written.output.constData(), 1, static_cast<std::size_t>(written.output.size()), stdout);
        std::fflush(stdout);
        QCoreApplication::exit(written.exitCode);
    };
    // Queued: the event loop must run before it can be left.
    QObject::connect(&download, &FeedDownload::finished, &app, writeAnswer, Qt::QueuedConnection);
    download.start(arguments[1]);
    return QCoreApplication::exec();
}
