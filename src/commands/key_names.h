#pragma once

#include <QTranslator>

namespace zeigewerk {

/// Names the keys in our menus as a German keyboard does: "Strg+Umschalt+Z". Qt asks for the names of keys
/// wherever it shows some, and brings German ones only with a file of translations that is not everywhere
/// installed. What is meant for programs, such as the menu that the tray is handed, keeps its own names.
class KeyNames : public QTranslator
{
    Q_OBJECT

public:
    using QTranslator::QTranslator;

    QString translate(const char *context, const char *sourceText, const char *disambiguation = nullptr,
                      int n = -1) const override;
    bool isEmpty() const override { return false; }
};

} // namespace zeigewerk
