// Imitates the program for screen readers: an unmanaged window with buttons, some of which are toggles or
// have equal names. Prints which button was used.
#include <QApplication>
#include <QGridLayout>
#include <QPushButton>
#include <QSocketNotifier>

#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

namespace {

void print(const QString &what)
{
    std::puts(qUtf8Printable(what));
    std::fflush(stdout);
}

QPushButton *addButton(QGridLayout &grid, const QString &name, bool isToggle = false)
{
    auto *button = new QPushButton(QString(name.front()));
    button->setAccessibleName(name);
    button->setAccessibleDescription("describes " + name);
    button->setFixedSize(60, 40);
    button->setCheckable(isToggle);
    const int number = grid.count();
    grid.addWidget(button, number / 2, number % 2);
    const auto printUsed = [=] { print(QString("%1 used at %2").arg(name).arg(number)); };
    // A screen reader toggles a toggle without clicking it.
    if (isToggle)
        QObject::connect(button, &QPushButton::toggled, printUsed);
    else
        QObject::connect(button, &QPushButton::clicked, printUsed);
    return button;
}

/// SIGTERM arrives as an event, because a signal handler must not call Qt. It is blocked before Qt starts
/// threads.
int blockedSigterm()
{
    sigset_t ending;
    sigemptyset(&ending);
    sigaddset(&ending, SIGTERM);
    sigprocmask(SIG_BLOCK, &ending, nullptr);
    return signalfd(-1, &ending, SFD_CLOEXEC);
}

} // namespace

int main(int argc, char **argv)
{
    const int sigterm = blockedSigterm();
    QApplication application(argc, argv);
    QSocketNotifier notifier(sigterm, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    QWidget window(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    QGridLayout grid(&window);
    addButton(grid, "Öffnen (⌃⌥Z)");
    addButton(grid, "Umschalten", true);
    addButton(grid, "Farbe");
    addButton(grid, "Farbe");
    addButton(grid, "Gesperrt")->setEnabled(false);
    window.setGeometry(300, 150, 181, 220);
    window.show();
    return QApplication::exec();
}
