#pragma once

#include <QString>

#include <optional>

namespace zeigewerk {

/// What the installation says about the program.
struct BundleInfo
{
    /// The address of the update feed, unchecked. Without one, nothing looks for updates.
    std::optional<QString> feedUrl;

    /// Reads an INI file. The result is empty if there is no such file, or if it is something else.
    static BundleInfo read(const QString &fileName);
    /// Reads `info.ini` in the data folder of the running program.
    static BundleInfo ofThisProgram();
};

} // namespace zeigewerk
