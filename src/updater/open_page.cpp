#include "updater/open_page.h"

#include "updater/child_setup.h"

#include <QProcess>

namespace zeigewerk {

bool openPage(const QUrl &page, const QString &opener)
{
    QProcess process;
    process.setProgram(opener);
    process.setArguments({page.toString(QUrl::FullyEncoded)});
    // What a browser has to say is not for whoever reads what we write.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return startOnItsOwn(process);
}

} // namespace zeigewerk
