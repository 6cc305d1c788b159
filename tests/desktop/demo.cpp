// Plays the demonstration and saves its pictures for the documents.

#include "demonstration.h"
#include "small_pictures.h"

#include <QGuiApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    // The slide is painted in memory; only the program needs a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    const int scale = arguments.size() > 2 ? arguments[2].toInt() : 1;
    if (arguments.size() < 2 || (scale != 1 && scale != 2) || !QDir().mkpath(arguments[1])) {
        std::fputs("usage: zeigewerk_demo FOLDER [1|2]\n", stderr);
        return 2;
    }
    using namespace zeigewerk::rig;
    const QDir folder(arguments[1]);
    if (Demonstration(folder, scale).play() && SmallPictures(folder, scale).make())
        return 0;
    std::fputs("The demonstration did not show the expected pictures.\n", stderr);
    return 1;
}
