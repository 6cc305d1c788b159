#pragma once

#include <QTranslator>

namespace zeigewerk {

/// Names the keys in our menus as a German keyboard does: "Strg+Umschalt+Z". Qt has German names only in a
/// translation file that is not installed everywhere. Text for other programs, such as the menu that is sent
/// to the tray, keeps the English names.
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
