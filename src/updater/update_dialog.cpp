#include "updater/update_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace zeigewerk {

namespace {

constexpr int kWidth = 400;
constexpr int kMargin = 20;
constexpr int kSpacing = 10;

QLabel *makeLabel(QWidget &parent)
{
    auto *label = new QLabel(&parent);
    // A feed must not be able to format our text.
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::NoTextInteraction);
    return label;
}

QPushButton *makeButton(QWidget &parent)
{
    auto *button = new QPushButton(&parent);
    // The dialog does not take the keyboard.
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

} // namespace

UpdateDialog::UpdateDialog()
    : m_headline(makeLabel(*this))
    , m_detail(makeLabel(*this))
    , m_close(makeButton(*this))
    , m_open(makeButton(*this))
{
    setWindowTitle(QStringLiteral("Zeigewerk"));
    setAccessibleName(windowTitle());
    QFont bold = m_headline->font();
    bold.setBold(true);
    m_headline->setFont(bold);
    m_open->setText(QStringLiteral("Download-Seite öffnen"));
    connect(m_open, &QPushButton::clicked, this, &UpdateDialog::openingRequested);
    connect(m_close, &QPushButton::clicked, this, &UpdateDialog::closingRequested);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_close);
    buttons->addWidget(m_open);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kSpacing);
    column->addWidget(m_headline);
    column->addWidget(m_detail);
    column->addSpacing(kSpacing);
    column->addLayout(buttons);
    setNews(Searching{});
}

void UpdateDialog::setNews(const UpdateNews &news)
{
    m_news = news;
    m_headline->setText(headline(news));
    m_detail->setText(detail(news));
    m_detail->setVisible(!m_detail->text().isEmpty());
    const auto *newer = std::get_if<NewVersion>(&news);
    m_open->setVisible(newer && newer->page);
    m_close->setText(closingTitle(news));
    layout()->invalidate();
    setFixedSize(kWidth, layout()->heightForWidth(kWidth));
}

void UpdateDialog::paintEvent(QPaintEvent *)
{
    // The desktop makes our windows translucent, so the background is painted here.
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Mid));
    painter.fillRect(rect().marginsRemoved({1, 1, 1, 1}), palette().color(QPalette::Window));
}

} // namespace zeigewerk
