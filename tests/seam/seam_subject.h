#pragma once

#include "platform/desktop.h"

#include <QColor>
#include <QLineEdit>
#include <QWidget>

#include <map>
#include <memory>
#include <vector>

namespace zeigewerk::test {

/// A program that uses the seam to the desktop as lines of text tell it to, for tests that observe the effect
/// from outside. Its surfaces and windows have names, and it logs what reaches them.
///
/// Places are points, global coordinates, y up. Colours are names such as "red".
class SeamSubject
{
public:
    explicit SeamSubject(platform::Desktop &desktop);
    ~SeamSubject();

    /// Does what the line says and answers in one line; empty if there is nothing to say. Stops the program
    /// at a line that it does not know.
    QString tell(const QString &line);

private:
    class Patch;
    struct Window;
    using Words = QStringList;
    using Command = QString (SeamSubject::*)(const Words &words);

    void listenToDesktop();
    /// Passes `use` the surface or window with the name in the line.
    template <typename Use>
    auto withNamed(const Words &words, Use use);
    QString makeSurface(const Words &words);
    QString makeWindow(const Words &words);
    QString order(const Words &words);
    QString setOrigin(const Words &words);
    QString setMouse(const Words &words);
    QString makeKey(const Words &words);
    QString setColor(const Words &words);
    QString damage(const Words &words);
    QString frame(const Words &words);
    QString state(const Words &words);
    QString events(const Words &words);
    QString drag(const Words &words);
    QString typed(const Words &words);
    QString takeHotKeys(const Words &words);
    QString giveBackHotKey(const Words &words);
    QString hotKeyStates(const Words &words);
    QString listen(const Words &words);
    QString heard(const Words &words);
    QString forget(const Words &words);
    QString follow(const Words &words);
    QString interact(const Words &words);
    QString desktop(const Words &words);
    QString signalCount(const Words &words);

    platform::Desktop &m_desktop;
    std::map<QString, std::unique_ptr<Patch>> m_surfaces;
    std::map<QString, std::unique_ptr<Window>> m_windows;
    std::map<std::uint32_t, std::unique_ptr<platform::HotKeyRegistration>> m_hotKeys;
    QStringList m_heard;
    std::map<QString, int> m_signals;
};

} // namespace zeigewerk::test
