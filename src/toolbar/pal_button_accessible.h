#pragma once

#include <QAccessibleWidget>

namespace zeigewerk {

class PalButton;

/// What a screen reader is told of a toolbar button: its name, whether its mode is on, and how to press it.
class PalButtonAccessible : public QAccessibleWidget
{
public:
    /// Has Qt ask this class about every `PalButton`; the first call counts.
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
