// The update controller with the real feed process, and a record of what it does.
#pragma once

#include "feed_server.h"
#include "recording/recording_desktop.h"
#include "updater/update_dialog.h"
#include "updater/updater_controller.h"

#include <QPushButton>
#include <QTest>

#include <optional>

namespace zeigewerk::test {

inline const QString kFeed = QStringLiteral("/feed");
inline const QUrl kNewPage(QStringLiteral("https://zeigewerk.example/get"));

/// Longer than any test, so that only the checks run that the test requests.
inline constexpr auto kNever = std::chrono::hours(1);

/// A controller of version 1.1, and a record of what it does.
class Updater
{
public:
    explicit Updater(const QString &feedUrl, std::chrono::milliseconds firstCheckAfter = kNever)
        : setup{.feedUrl = feedUrl,
                .installed = QStringLiteral("1.1"),
                .feedProgram = QStringLiteral(ZEIGEWERK_FEED_PROGRAM),
                .timeLimit = std::chrono::minutes(1),
                .firstCheckAfter = firstCheckAfter,
                .open = [this](const QUrl &page) {
                    opened += page;
                    return canOpen;
                }}
    {
    }

    UpdaterController &controller()
    {
        if (!m_controller) {
            m_controller.emplace(desktop, setup);
            QObject::connect(&*m_controller, &UpdaterController::checked, &*m_controller,
                             [this](const UpdateNews &result) { news += result; });
        }
        return *m_controller;
    }

    bool waitForNews(qsizetype count = 1)
    {
        controller();
        return QTest::qWaitFor([&] { return news.size() >= count; }, 30'000);
    }
    bool isShown(const UpdateNews &expected)
    {
        const UpdateDialog *dialog = controller().dialog();
        return dialog && dialog->isVisible() && dialog->news() == expected;
    }
    void click(const QString &title)
    {
        const auto buttons = controller().dialog()->findChildren<QPushButton *>();
        for (QPushButton *button : buttons) {
            if (button->isVisible() && button->text() == title)
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        qFatal("no button %s", qPrintable(title));
    }

    platform::RecordingDesktop desktop;
    QList<QUrl> opened;
    bool canOpen = true;
    UpdaterController::Setup setup;
    QList<UpdateNews> news;

private:
    std::optional<UpdaterController> m_controller;
};

inline NewVersion versionOf(const char *version)
{
    return {.version = QString::fromLatin1(version), .installed = QStringLiteral("1.1"), .page = kNewPage};
}

inline const UpdateNews kUpToDate = UpToDate{QStringLiteral("1.1")};

/// Has the server offer that version.
inline void offer(FeedServer &server, const QByteArray &version)
{
    server.serve(kFeed, feedOf(itemOf(version)));
}

} // namespace zeigewerk::test
