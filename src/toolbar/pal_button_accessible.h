#pragma once

#include <QAccessibleWidget>

namespace zeigewerk {

class PalButton;

/// What a screen reader is told about a toolbar button: its name, whether its mode is on, and how to press
/// it.
class PalButtonAccessible : public QAccessibleWidget
{
public:
    /// Makes Qt use this class for every `PalButton`. Only the first call has an effect.
    static void install();

    explicit PalButtonAccessible(PalButton *button);

    QAccessible::Role role() const override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;

private:
    PalButton *button() const;
};

} // namespace zeigewerk
