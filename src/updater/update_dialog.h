#pragma once

#include "updater/update_news.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace zeigewerk {

/// Shows the news of a search for updates, and what the user can do about it. It paints its own frame,
/// because no window manager gives it one, and does not close itself.
class UpdateDialog : public QWidget
{
    Q_OBJECT

public:
    UpdateDialog();

    /// Shows the news, and adapts the window's height to it.
    void setNews(const UpdateNews &news);
    const UpdateNews &news() const { return m_news; }

Q_SIGNALS:
    void openingRequested();
    void closingRequested();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    UpdateNews m_news;
    QLabel *m_headline;
    QLabel *m_detail;
    QPushButton *m_close;
    QPushButton *m_open;
};

} // namespace zeigewerk
