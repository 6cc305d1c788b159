#pragma once

namespace zeigewerk::platform::x11 {

/// Makes dead keys work in locales without a usable compose table: Qt then uses the table that most locales
/// share. Call it before the first key reaches one of Qt's windows.
void provideComposeTable();

} // namespace zeigewerk::platform::x11
