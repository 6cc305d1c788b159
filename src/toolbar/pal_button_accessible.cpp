#include "toolbar/pal_button_accessible.h"

#include "toolbar/pal_button.h"

namespace zeigewerk {

namespace {

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    if (className != QLatin1String(PalButton::staticMetaObject.className()))
        return nullptr;
    return new PalButtonAccessible(static_cast<PalButton *>(object));
}

} // namespace

void PalButtonAccessible::install()
{
    // Qt adds the same factory only once.
    QAccessible::installFactory(makeInterface);
}

PalButtonAccessible::PalButtonAccessible(PalButton *button)
    : QAccessibleWidget(button)
{
}

PalButton *PalButtonAccessible::button() const
{
    return static_cast<PalButton *>(object());
}

QAccessible::Role PalButtonAccessible::role() const
{
    // Not stored: Qt keeps this object, and may have made it before the button's kind was set.
    switch (button()->kind()) {
    case PalButton::Kind::Action:
        break;
    case PalButton::Kind::Toggle:
        return QAccessible::CheckBox; // as for Qt's own checkable buttons
    case PalButton::Kind::Choice:
        return QAccessible::RadioButton;
    }
    return QAccessible::Button;
}

QString PalButtonAccessible::text(QAccessible::Text kind) const
{
    // The first line of the tooltip is the name already; as a description it would be read twice.
    if (kind == QAccessible::Description)
        return button()->tipNote();
    return QAccessibleWidget::text(kind);
}

QAccessible::State PalButtonAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.focusable = false;
    state.pressed = button()->isDown();
    if (button()->kind() != PalButton::Kind::Action) {
        state.checkable = true;
        state.checked = button()->isShownOn();
    }
    return state;
}

QStringList PalButtonAccessible::actionNames() const
{
    if (button()->kind() == PalButton::Kind::Toggle)
        return {pressAction(), toggleAction()};
    return {pressAction()};
}

void PalButtonAccessible::doAction(const QString &actionName)
{
    if (actionNames().contains(actionName))
        button()->click();
}

} // namespace zeigewerk
