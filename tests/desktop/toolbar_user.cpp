#include "toolbar_user.h"

namespace zeigewerk::rig {

namespace {

/// From the outermost buttons to the panel's edge, in points. The grip is above the first row.
constexpr QMargins kAroundButtons(12, 22, 12, 12);

} // namespace

ToolbarUser::ToolbarUser(DesktopSession &session, const Program &program, double scale)
    : m_session(session)
    , m_processId(program.processId())
    , m_scale(scale)
    , m_reader(session, program)
{
    if (!eventually([&] { return window().id != XCB_WINDOW_NONE; }))
        failRig("the toolbar does not show");
}

AccessibleButton ToolbarUser::button(const QString &name, int index)
{
    const std::optional<AccessibleButton> found = m_reader.find(name, index);
    if (!found)
        failRig(QString("no button \"%1\", number %2").arg(name).arg(index));
    return *found;
}

bool ToolbarUser::click(const QString &name, int index)
{
    return m_session.pointer().clickAt(button(name, index).extents.center());
}

QRect ToolbarUser::panel()
{
    QRect extents;
    for (const AccessibleButton &each : buttons())
        extents |= each.extents;
    if (extents.isEmpty())
        return {};
    return extents.marginsAdded((QMarginsF(kAroundButtons) * m_scale).toMargins());
}

QPoint ToolbarUser::grip()
{
    const QRect whole = panel();
    return {whole.center().x(), whole.top() + qRound(12 * m_scale)};
}

QPoint ToolbarUser::background()
{
    // Between the panel's edge and the only button of its row.
    return {panel().left() + qRound(20 * m_scale), button(button::kPin).extents.center().y()};
}

WindowInfo ToolbarUser::window()
{
    const QSize minSize = (QSizeF(kPanelSize) * m_scale).toSize();
    for (const WindowInfo &info : m_session.client().windowsOfProcess(m_processId)) {
        // The window is slightly larger than the panel because of its shadow; canvases are as large as a
        // screen.
        const QSize size = info.geometry.size();
        if (info.viewable && size.expandedTo(minSize) == size && size.width() < 2 * minSize.width())
            return info;
    }
    return {};
}

} // namespace zeigewerk::rig
