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

/// Asks the update feed whether there is a newer version: once after the start, which nobody hears of unless
/// there is one, and whenever the user wants to know. It installs nothing: it tells, and opens the page where
/// the new version is.
class UpdaterController : public QObject
{
    Q_OBJECT

public:
    struct Setup
    {
        /// As the installation gives it; anything that is no address is told when the user asks.
        QString feedUrl;
        QString installed = appVersion();
        QString feedProgram = zeigewerk::feedProgram();
        /// For the whole of an answer.
        std::chrono::milliseconds timeLimit = std::chrono::seconds(30);
        /// What comes with the start of the program, and of the session around it, comes first.
        std::chrono::milliseconds firstCheckAfter = std::chrono::seconds(3);
        /// Tells whether it could.
        std::function<bool(const QUrl &)> open = [](const QUrl &page) { return openPage(page); };
    };

    /// `desktop` must outlive the controller.
    UpdaterController(platform::Desktop &desktop, const Setup &setup);
    ~UpdaterController() override;

    /// The user wants to know: whatever comes of it is shown, at once that it is looked for. A search that is
    /// under way is that search.
    void checkForUpdates();
    bool isChecking() const { return m_check != nullptr; }

    /// Null while there is none on the screen.
    UpdateDialog *dialog() const { return m_dialog.get(); }
    /// What shows the dialog.
    const platform::WidgetWindow *window() const { return m_window.get(); }

Q_SIGNALS:
    /// A search has ended, whether anybody is told of it or not.
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
    // The second shows the first.
    std::unique_ptr<UpdateDialog> m_dialog;
    std::unique_ptr<platform::WidgetWindow> m_window;
};

} // namespace zeigewerk
