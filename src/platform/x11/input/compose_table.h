#pragma once

namespace zeigewerk::platform::x11 {

/// Has a table for composing accents found whatever the locale. Qt takes that of the user's locale, and where
/// there is none, dead keys do nothing: in locales that are younger than the list of tables, and in those
/// whose own table is not in UTF-8. Then the one is taken that most locales share. Call it before the first
/// key comes to one of Qt's windows.
void provideComposeTable();

} // namespace zeigewerk::platform::x11
