// The program as a screen reader knows it.
#pragma once

#include "accessibility_bus.h"

#include <QList>
#include <QRect>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace zeigewerk::rig {

class DesktopSession;
class Program;

/// The states that tests ask for, numbered as the protocol of the accessibility bus does.
enum class AccessibleState {
    Checked = 4,
    Enabled = 8,
    Focusable = 11,
    Focused = 12,
    Showing = 25,
    Visible = 30,
};

/// What a screen reader is told of a button at one moment.
struct AccessibleButton
{
    QString name;
    QString description;
    /// As "push button", or "check box" for what can be checked.
    QString role;
    /// One bit for each state.
    std::uint64_t states = 0;
    /// Native root pixels; null if the window that holds it is not known to the display.
    QRect extents;
    AccessibilityBus::Object object;

    bool is(AccessibleState state) const { return (states >> static_cast<int>(state) & 1u) != 0; }
    /// Whether it can be checked. Qt tells it by the role alone.
    bool isToggle() const { return role == QLatin1String("check box"); }
    bool isChecked() const { return is(AccessibleState::Checked); }
};

/// Asks a program by the protocol that screen readers speak, in a session whose setup asks for accessibility.
class Accessibility
{
public:
    /// Comes back when the program has presented itself. Throws RigError if it does not.
    Accessibility(DesktopSession &session, const Program &program);

    /// All buttons of the program's windows in the order of the tree, as they are now; empty if the program
    /// does not answer.
    QList<AccessibleButton> buttons();
    /// The button of that name as it is now; `index` tells those of the same name apart.
    std::optional<AccessibleButton> find(const QString &name, int index = 0);
    /// Presses it as a screen reader does, without any pointer; false if the button cannot be pressed or the
    /// program does not answer. A button that can be checked offers only to be toggled.
    bool press(const AccessibleButton &button);

private:
    using Object = AccessibilityBus::Object;
    struct PixelMapping;

    bool findApplication(qint64 processId);
    QList<Object> children(const Object &parent);
    QString role(const Object &object);
    QRect reportedExtents(const Object &object);
    PixelMapping mappingOf(const Object &window);
    /// Is handed a button and its role, and tells whether to go on.
    using Visit = std::function<bool(const Object &, const QString &, const PixelMapping &)>;
    bool visitButtonsIn(const Object &parent, const PixelMapping &mapping, const Visit &visit);
    void visitButtons(const Visit &visit);
    QString nameOf(const Object &object);
    AccessibleButton describe(const Object &object, const QString &role, const PixelMapping &mapping);

    DesktopSession &m_session;
    qint64 m_processId;
    AccessibilityBus m_bus;
    Object m_application;
};

} // namespace zeigewerk::rig
