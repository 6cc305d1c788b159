#pragma once

#include <QString>

#include <optional>

namespace zeigewerk {

/// What whoever installed the program said about it.
struct BundleInfo
{
    /// Where to ask for newer versions: any text. None where nobody is to be asked.
    std::optional<QString> feedUrl;

    /// From that file in the INI format; says nothing if there is none, or if it is something else.
    static BundleInfo read(const QString &fileName);
    /// From `info.ini` beside the data of the running program.
    static BundleInfo ofThisProgram();
};

} // namespace zeigewerk
