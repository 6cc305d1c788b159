// A program of Qt with one empty window: what every program of Qt has in memory.

#include <QApplication>
#include <QWidget>

int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    QWidget window;
    window.resize(200, 200);
    window.show();
    return QApplication::exec();
}
