// Reads the program's buttons as a screen reader does.
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

/// The states that tests use, numbered as in AT-SPI.
enum class AccessibleState {
    Checked = 4,
    Enabled = 8,
    Focusable = 11,
    Focused = 12,
    Showing = 25,
    Visible = 30,
};

/// What a screen reader knows about a button at one moment.
struct AccessibleButton
{
    QString name;
    QString description;
    /// For example "push button", or "check box" for a toggle.
    QString role;
    /// One bit for each state.
    std::uint64_t states = 0;
    /// Native root pixels; null if the display does not know the button's window.
    QRect extents;
    AccessibilityBus::Object object;

    bool is(AccessibleState state) const { return (states >> static_cast<int>(state) & 1u) != 0; }
    /// Whether it is a toggle. Qt reports this only through the role.
    bool isToggle() const { return role == QLatin1String("check box"); }
    bool isChecked() const { return is(AccessibleState::Checked); }
};

/// Queries a program through AT-SPI. The session's setup must ask for accessibility.
class Accessibility
{
public:
    /// Waits until the program has registered. Throws RigError if it does not.
    Accessibility(DesktopSession &session, const Program &program);

    /// All buttons of the program's windows, in tree order, as they are now; empty if the program does not
    /// answer.
    QList<AccessibleButton> buttons();
    /// The button with that name as it is now; `index` selects among buttons of the same name.
    std::optional<AccessibleButton> find(const QString &name, int index = 0);
    /// Presses the button as a screen reader does, without the pointer; false if it cannot be pressed or the
    /// program does not answer. A toggle only offers the Toggle action.
    bool press(const AccessibleButton &button);

private:
    using Object = AccessibilityBus::Object;
    struct PixelMapping;

    bool findApplication(qint64 processId);
    QList<Object> children(const Object &parent);
    QString role(const Object &object);
    QRect reportedExtents(const Object &object);
    PixelMapping mappingOf(const Object &window);
    /// Gets a button and its role, and returns whether to continue.
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
