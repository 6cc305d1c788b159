// A program around the seam on the desktop that connectToDesktop() chooses. It does what the lines on its
// standard input say, and answers each with a line: those of a SeamSubject, and below a few of its own about
// one red widget with an ornament.

#include "platform/choose_desktop.h"
#include "platform/desktop.h"
#include "seam/seam_subject.h"
#include "seam/seam_text.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QSocketNotifier>
#include <QToolTip>
#include <QUrl>
#include <QWidget>

#include <cstdio>
#include <iostream>
#include <map>
#include <string>

namespace {

using namespace zeigewerk::platform;

constexpr QMargins kOrnament(20, 16, 20, 24);

class RedWidget : public QWidget
{
public:
    RedWidget() { resize(QSize(150, 300).grownBy(kOrnament)); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).fillRect(rect().marginsRemoved(kOrnament), Qt::red);
    }
};

class StandIn
{
public:
    explicit StandIn(Desktop &desktop)
        : m_desktop(desktop)
        , m_subject(desktop)
        , m_window(desktop.makeWindow(WidgetRole::Toolbar, m_widget, kOrnament))
    {
        m_menu.addAction(QStringLiteral("An entry"));
    }

    QString answer(const QStringList &words)
    {
        const auto number = [&](int index) { return words.value(index).toInt(); };
        const QString verb = words.value(0);
        if (verb == QStringLiteral("show"))
            m_window->orderFrontRegardless();
        else if (verb == QStringLiteral("hide"))
            m_window->orderOut();
        else if (verb == QStringLiteral("move"))
            m_window->setFrameOrigin(QPointF(number(1), number(2)));
        else if (verb == QStringLiteral("resize"))
            m_widget.resize(QSize(number(1), number(2)).grownBy(kOrnament));
        else if (verb == QStringLiteral("mask"))
            m_widget.setMask(m_widget.rect().marginsRemoved(kOrnament));
        else if (verb == QStringLiteral("unmask"))
            m_widget.clearMask();
        else if (verb == QStringLiteral("menu"))
            m_menu.popup(QPoint(number(1), number(2)));
        else if (verb == QStringLiteral("lowered")) {
            m_menu.popup(QPoint(number(2), number(3)));
            m_menu.lower();
        } else if (verb == QStringLiteral("tooltip"))
            QToolTip::showText(QPoint(number(1), number(2)), QStringLiteral("A tooltip"), &m_widget);
        else if (verb == QStringLiteral("overlay"))
            m_overlay = shown(SurfaceRole::Overlay, m_desktop.screens().front().frame);
        else if (verb == QStringLiteral("effect"))
            m_effect = shown(SurfaceRole::Effect, QRectF(number(1), number(2), 56, 56));
        else if (verb == QStringLiteral("write"))
            openLineAndBeBusy();
        else if (verb == QStringLiteral("written"))
            return QString::fromLatin1(QUrl::toPercentEncoding(m_line.text()));
        else if (verb != QStringLiteral("widget"))
            return m_subject.tell(words.join(QLatin1Char(' ')));
        return zeigewerk::test::text(m_window->frame());
    }

private:
    /// Opens a line edit, gives it the keyboard, prints "busy", and blocks until the next line of input.
    void openLineAndBeBusy()
    {
        m_lineWindow = m_desktop.makeWindow(WidgetRole::TextField, m_line, {});
        m_lineWindow->orderFrontRegardless();
        m_lineWindow->makeKey();
        std::puts("busy");
        std::fflush(stdout);
        std::string line;
        std::getline(std::cin, line);
    }

    std::unique_ptr<Surface> shown(SurfaceRole role, const QRectF &frame)
    {
        auto surface = m_desktop.makeSurface(role, frame);
        surface->orderFrontRegardless();
        return surface;
    }

    Desktop &m_desktop;
    zeigewerk::test::SeamSubject m_subject;
    RedWidget m_widget;
    QMenu m_menu;
    QLineEdit m_line;
    std::unique_ptr<WidgetWindow> m_window;
    std::unique_ptr<WidgetWindow> m_lineWindow;
    std::unique_ptr<Surface> m_overlay;
    std::unique_ptr<Surface> m_effect;
};

} // namespace

int main(int argc, char *argv[])
{
    QString problem;
    const auto connection = connectToDesktop(&problem);
    if (!connection) {
        std::fprintf(stderr, "%s\n", qPrintable(problem));
        return 1;
    }
    qputenv("QT_QPA_PLATFORM", connection->qtPlatform());
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const auto desktop = connection->makeDesktop();
    StandIn standIn(*desktop);

    // A line is written at once, and the next one only after its answer: nothing waits in a buffer.
    QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &app, [&standIn] {
        std::string line;
        if (!std::getline(std::cin, line))
            return QCoreApplication::quit();
        const QString answer =
            standIn.answer(QString::fromStdString(line).split(QLatin1Char(' '), Qt::SkipEmptyParts));
        std::printf("%s\n", qPrintable(answer));
        std::fflush(stdout);
    });
    return QApplication::exec();
}
