// A Qt program with one empty window: the memory that every Qt program needs.

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
