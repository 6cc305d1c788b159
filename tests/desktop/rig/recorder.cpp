#include "recorder.h"

#include "eventually.h"
#include "rig_error.h"
#include "running_test.h"

#include <QDir>
#include <QFileInfo>

namespace zeigewerk::rig {

namespace {

constexpr std::chrono::seconds kFirstPictureDeadline{20};
/// The last frames still have to be compressed.
constexpr std::chrono::seconds kLastPictureDeadline{20};

QString unusedPath(const QDir &folder)
{
    for (int number = 1;; ++number) {
        QString path = folder.filePath(QString("%1_%2.mkv").arg(runningTestName()).arg(number));
        if (!QFileInfo::exists(path))
            return path;
    }
}

ChildProcess::Command command(const QString &display, const QRect &part, const QString &path)
{
    // As cheap as possible, because the test needs the processor. The size must be even for this format. Each
    // frame is written at once, so that a test that crashes leaves a film too.
    const QString options =
        QString("-nostdin -loglevel error -f x11grab -framerate 30 -video_size %1x%2 -i %3+%4,%5 "
                "-vf pad=ceil(iw/2)*2:ceil(ih/2)*2 -pix_fmt yuv420p "
                "-c:v libx264 -preset ultrafast -tune zerolatency -flush_packets 1")
            .arg(part.width())
            .arg(part.height())
            .arg(display)
            .arg(part.x())
            .arg(part.y());
    return {
        .program = "ffmpeg",
        .arguments = options.split(u' ') << path,
        .environment = QProcessEnvironment::systemEnvironment(),
        .logPath = path + ".log",
    };
}

} // namespace

std::unique_ptr<Recorder> Recorder::fromEnvironment(const QString &display, const QRect &part)
{
    const QString folder = qEnvironmentVariable("ZEIGEWERK_TEST_RECORD");
    if (folder.isEmpty())
        return nullptr;
    if (!QDir().mkpath(folder))
        failRig(QString("cannot create %1").arg(folder));
    return std::unique_ptr<Recorder>(new Recorder(display, part, unusedPath(QDir(folder))));
}

Recorder::Recorder(const QString &display, const QRect &part, const QString &path)
    : m_process(command(display, part, path))
{
    const bool hasBegun = eventually([&] { return QFileInfo(path).size() > 0 || !m_process.isRunning(); },
                                     kFirstPictureDeadline);
    if (!hasBegun || !m_process.isRunning())
        failRig(QString("cannot film the display; see %1.log").arg(path));
}

Recorder::~Recorder()
{
    m_process.end(kLastPictureDeadline);
}

} // namespace zeigewerk::rig
