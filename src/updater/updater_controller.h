#pragma once

#include "platform/desktop.h"
#include "updater/app_version.h"
#include "updater/feed_process.h"
#include "updater/open_page.h"
#include "updater/update_news.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

namespace zeigewerk {

class UpdateDialog;

/// Asks the update feed for a newer version: once after the start, silently unless there is one, and whenever
/// the user asks. It installs nothing; it shows the news, and opens the page of the new version.
class UpdaterController : public QObject
{
    Q_OBJECT

public:
    struct Setup
    {
        /// The feed's address as the installation gives it. If it is invalid, the user is told when asking.
        QString feedUrl;
        QString installed = appVersion();
        QString feedProgram = zeigewerk::feedProgram();
        /// The limit for a complete answer.
        std::chrono::milliseconds timeLimit = std::chrono::seconds(30);
        /// How long the automatic check waits after launch, so that the program and the session start first.
        std::chrono::milliseconds firstCheckAfter = std::chrono::seconds(3);
        /// Opens a page; false if it cannot.
        std::function<bool(const QUrl &)> open = [](const QUrl &page) { return openPage(page); };
    };

    /// `desktop` must outlive the controller.
    UpdaterController(platform::Desktop &desktop, const Setup &setup);
    ~UpdaterController() override;

    /// The user asks for updates: shows at once that the search is on, then its result. If a search is
    /// already running, shows that one.
    void checkForUpdates();
    bool isChecking() const { return m_check != nullptr; }

    /// The open dialog; null if there is none.
    UpdateDialog *dialog() const { return m_dialog.get(); }
    /// The window that shows the dialog; null if there is none.
    const platform::WidgetWindow *window() const { return m_window.get(); }

Q_SIGNALS:
    /// A search has ended, whether or not the user is told.
    void checked(const UpdateNews &news);

private:
    void checkFirst();
    void check();
    void answered(const FeedAnswer &answer);
    void show(const UpdateNews &news);
    void makeDialog();
    void placeDialog();
    void openPageOfNews();
    void closeDialog();

    platform::Desktop &m_desktop;
    Setup m_setup;
    std::unique_ptr<FeedProcess> m_check;
    bool m_hasChecked = false;
    // The window shows the dialog, so it is destroyed first.
    std::unique_ptr<UpdateDialog> m_dialog;
    std::unique_ptr<platform::WidgetWindow> m_window;
};

} // namespace zeigewerk
