#include "updater/updater_controller.h"

#include "core/app_delegate.h"
#include "updater/feed_address.h"
#include "updater/update_dialog.h"

#include <QTimer>

#include <algorithm>

namespace zeigewerk {

UpdaterController::UpdaterController(platform::Desktop &desktop, const Setup &setup)
    : m_desktop(desktop)
    , m_setup(setup)
{
    QTimer::singleShot(m_setup.firstCheckAfter, this, &UpdaterController::checkFirst);
    connect(&m_desktop, &platform::Desktop::screensChanged, this, &UpdaterController::placeDialog);
}

UpdaterController::~UpdaterController() = default;

void UpdaterController::checkFirst()
{
    if (!m_hasChecked)
        check();
}

void UpdaterController::checkForUpdates()
{
    show(Searching{});
    if (!m_check)
        check();
}

void UpdaterController::check()
{
    m_hasChecked = true;
    if (!allowedAddress(m_setup.feedUrl))
        return answered(FeedFailure::BadAddress);
    m_check = std::make_unique<FeedProcess>(m_setup.feedProgram, m_setup.feedUrl);
    connect(m_check.get(), &FeedProcess::finished, this, &UpdaterController::answered);
    m_check->start(m_setup.timeLimit);
}

void UpdaterController::answered(const FeedAnswer &answer)
{
    // It is the caller, so it cannot be deleted at once.
    if (m_check)
        m_check.release()->deleteLater();
    const UpdateNews news = newsOf(answer, m_setup.installed);
    // There is a dialog only if the user asked, or has not closed the last news yet.
    if (m_dialog || std::holds_alternative<NewVersion>(news))
        show(news);
    Q_EMIT checked(news);
}

void UpdaterController::show(const UpdateNews &news)
{
    if (!m_dialog)
        makeDialog();
    m_dialog->setNews(news);
    placeDialog();
    m_window->orderFrontRegardless();
}

void UpdaterController::makeDialog()
{
    m_dialog = std::make_unique<UpdateDialog>();
    m_window = m_desktop.makeWindow(platform::WidgetRole::Dialog, *m_dialog, {});
    // Queued: the clicked button is deleted with its dialog.
    connect(m_dialog.get(), &UpdateDialog::openingRequested, this, &UpdaterController::openPageOfNews,
            Qt::QueuedConnection);
    connect(m_dialog.get(), &UpdateDialog::closingRequested, this, &UpdaterController::closeDialog,
            Qt::QueuedConnection);
}

void UpdaterController::placeDialog()
{
    const std::vector<platform::Screen> screens = m_desktop.screens();
    if (!m_window || screens.empty())
        return;
    const std::optional<QPointF> mouse = m_desktop.mouseLocation();
    const auto found = std::find_if(screens.begin(), screens.end(), [mouse](const platform::Screen &screen) {
        return mouse && platform::contains(screen.frame, *mouse);
    });
    const platform::Screen &screen = found == screens.end() ? screens.front() : *found;
    const QPointF center = m_desktop.visibleFrame(screen).center();
    const QSizeF size = m_window->frame().size();
    m_window->setFrameOrigin(center - QPointF(size.width(), size.height()) / 2);
}

void UpdaterController::openPageOfNews()
{
    const auto *newer = m_dialog ? std::get_if<NewVersion>(&m_dialog->news()) : nullptr;
    if (!newer || !newer->page)
        return;
    const QUrl page = *newer->page;
    if (m_setup.open(page))
        closeDialog();
    else
        show(PageNotOpened{page});
}

void UpdaterController::closeDialog()
{
    if (m_dialog && std::holds_alternative<Searching>(m_dialog->news()))
        m_check.reset();
    m_window.reset();
    m_dialog.reset();
}

bool AppDelegate::hasUpdater() const
{
    return m_updaterController != nullptr;
}

void AppDelegate::checkForUpdates()
{
    if (m_updaterController)
        m_updaterController->checkForUpdates();
}

} // namespace zeigewerk
