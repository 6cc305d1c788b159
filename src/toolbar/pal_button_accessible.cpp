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
    // Qt adds a factory once, however often it is told.
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
    // Asked each time: Qt keeps the interface from before the button was told what it is.
    switch (button()->kind()) {
    case PalButton::Kind::Action:
        break;
    case PalButton::Kind::Toggle:
        return QAccessible::CheckBox; // as Qt's own buttons that can be checked
    case PalButton::Kind::Choice:
        return QAccessible::RadioButton;
    }
    return QAccessible::Button;
}

QString PalButtonAccessible::text(QAccessible::Text kind) const
{
    // The rest of the tooltip is the name; as description too it would be read twice.
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
