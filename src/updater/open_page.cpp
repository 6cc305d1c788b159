#include "updater/open_page.h"

#include "updater/child_setup.h"

#include <QProcess>

namespace zeigewerk {

bool openPage(const QUrl &page, const QString &opener)
{
    QProcess process;
    process.setProgram(opener);
    process.setArguments({page.toString(QUrl::FullyEncoded)});
    // A browser's messages do not belong among ours.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return startDetached(process);
}

} // namespace zeigewerk
