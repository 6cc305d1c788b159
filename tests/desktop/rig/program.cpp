#include "program.h"

#include "desktop_session.h"
#include "eventually.h"
#include "key_grab.h"
#include "process_stats.h"
#include "rig_error.h"

namespace zeigewerk::rig {

namespace {

ChildProcess::Command commandOf(const DesktopSession &session, const QMap<QString, QString> &environment,
                                const QStringList &arguments)
{
    ChildProcess::Command command{
        .program = Program::binary(),
        .arguments = arguments,
        .environment = session.environment(),
    };
    for (auto it = environment.cbegin(); it != environment.cend(); ++it)
        command.environment.insert(it.key(), *it);
    return command;
}

} // namespace

QString Program::binary()
{
    QString binary = qEnvironmentVariable("ZEIGEWERK_BINARY", QStringLiteral(ZEIGEWERK_BINARY));
    if (!QFileInfo(binary).isExecutable())
        failRig(QStringLiteral("no program to test at \"%1\"; set ZEIGEWERK_BINARY").arg(binary));
    return binary;
}

Program::Program(DesktopSession &session, const QMap<QString, QString> &environment,
                 const QStringList &arguments)
    : m_session(session)
    , m_child(commandOf(session, environment, arguments))
{
}

Program::~Program()
{
    m_child.end();
    if (QTest::currentTestFailed())
        qInfo().noquote() << "Output of the program:\n" << output();
}

bool Program::waitUntilReady(std::chrono::milliseconds deadline)
{
    const bool settled = eventually(
        [&] {
            return !isRunning() || isGrabbedByAnother(m_session, {Key::Ctrl, Key::Alt}, Key::P);
        },
        deadline);
    return settled && isRunning();
}

std::optional<int> Program::terminate(std::chrono::milliseconds deadline)
{
    if (isRunning())
        m_child.process().terminate();
    return waitForExit(deadline);
}

std::optional<int> Program::waitForExit(std::chrono::milliseconds deadline)
{
    if (!eventually([&] { return !isRunning(); }, deadline)) {
        qInfo("The program did not end");
        return std::nullopt;
    }
    const int code = m_child.process().exitCode();
    if (m_child.process().exitStatus() != QProcess::NormalExit) {
        qInfo("The program was ended by signal %d", code);
        return std::nullopt;
    }
    return code;
}

QByteArray Program::output()
{
    m_output += m_child.process().readAll();
    return m_output;
}

std::chrono::nanoseconds Program::cpuTime() const
{
    return rig::cpuTime(processId());
}

qint64 Program::residentBytes() const
{
    return rig::residentBytes(processId());
}

} // namespace zeigewerk::rig
