#include "desktop_kind.h"

#include "rig_error.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <iterator>

namespace zeigewerk::rig {

namespace {

struct NamedKind
{
    const char *name;
    DesktopKind kind;
};

constexpr NamedKind kKinds[] = {
    {"openbox+picom", {WindowManager::Openbox, Compositor::Picom}},
    {"xfwm4", {WindowManager::Xfwm4, Compositor::BuiltIn}},
    {"i3+picom", {WindowManager::I3, Compositor::Picom}},
    {"picom", {WindowManager::None, Compositor::Picom}},
    {"openbox", {WindowManager::Openbox, Compositor::None}},
    {"none", {WindowManager::None, Compositor::None}},
};

} // namespace

DesktopKind desktopFromEnvironment()
{
    const QByteArray name = qgetenv("ZEIGEWERK_TEST_DESKTOP");
    if (name.isEmpty())
        return {};
    const auto found = std::find_if(std::begin(kKinds), std::end(kKinds),
                                    [&](const NamedKind &named) { return name == named.name; });
    if (found == std::end(kKinds))
        failRig(
            QStringLiteral("unknown desktop %1 in ZEIGEWERK_TEST_DESKTOP").arg(QString::fromLocal8Bit(name)));
    return found->kind;
}

} // namespace zeigewerk::rig
