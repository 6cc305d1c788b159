#pragma once

#include "canvas/text_field.h"
#include "controller_fixture.h"

#include <QTest>

namespace zeigewerk::test {

/// A controller with drawing on and the text tool chosen.
class Writing : public Controller
{
public:
    Writing() { begin(); }
    explicit Writing(std::vector<platform::Screen> screens)
        : Controller(std::move(screens))
    {
        begin();
    }

    /// Presses at that point, and returns the field that opens.
    TextField &open(QPointF point = {200, 300}, std::size_t screen = 0)
    {
        view(screen).mouseDown({point, {}});
        return field(screen);
    }
    TextField &field(std::size_t screen = 0)
    {
        if (!view(screen).textField())
            qFatal("no text field is open");
        return *view(screen).textField();
    }
    void type(const QString &text, std::size_t screen = 0) { QTest::keyClicks(&field(screen), text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, std::size_t screen = 0)
    {
        QTest::keyClick(&field(screen), key, modifiers);
    }
    QStringList texts(std::size_t screen = 0)
    {
        QStringList texts;
        for (const Shape &shape : view(screen).shapes())
            texts.append(shape.text);
        return texts;
    }

private:
    void begin()
    {
        app().toggleDraw();
        app().setTool(Tool::text);
        desktop.takeLog();
    }
};

} // namespace zeigewerk::test
