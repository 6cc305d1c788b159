// Builds the toolbar once, at launch: its window, and the layout of its buttons.

#include "base/stop.h"
#include "core/app_delegate.h"
#include "toolbar/bar.h"
#include "toolbar/pal_button.h"
#include "toolbar/panel.h"
#include "toolbar/toolbar_placement.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace zeigewerk {

namespace {

constexpr QSize kGripSize(36, 5);
constexpr double kGripRadius = 2.5;

constexpr int kRowSpacing = 7;
constexpr int kButtonSpacing = 6;
constexpr int kSmallButtonSpacing = 5;
/// Between the panel's edge and its content. A little more at the bottom looks even.
constexpr QMargins kMargins(12, 10, 12, 12);

/// Stacks the rows of the toolbar from top to bottom, each centred.
class Rows
{
public:
    explicit Rows(Panel &panel)
        : m_column(new QVBoxLayout(&panel))
    {
        m_column->setContentsMargins(kMargins + Panel::kShadow);
        m_column->setSpacing(kRowSpacing);
    }

    void add(QWidget *widget) { m_column->addWidget(widget, 0, Qt::AlignHCenter); }
    void add(const std::vector<PalButton *> &buttons, int spacing)
    {
        auto *row = new QHBoxLayout;
        row->setSpacing(spacing);
        for (PalButton *button : buttons) {
            row->addWidget(button);
            // Moves it to the end of the panel's children, since screen readers read them in that order.
            button->raise();
        }
        m_column->addLayout(row);
        m_column->setAlignment(row, Qt::AlignHCenter);
    }

private:
    QVBoxLayout *m_column;
};

} // namespace

void AppDelegate::buildPanel()
{
    m_toolbar = std::make_unique<Toolbar>();
    m_toolbar->panel = std::make_unique<Panel>();
    makeModeButtons();
    makeToolButtons();
    makeColorButtons();
    makeWidthButtons();
    makeMiscButtons();
    layOutPanel();
    placePanel();
    connectPanel();
    refreshToolbar();
    m_toolbar->window->orderFrontRegardless();
}

void AppDelegate::layOutPanel()
{
    Toolbar &bar = *m_toolbar;
    Panel &panel = *bar.panel;
    mustHold(bar.colorButtons.size() >= 8, "the palette has two rows of four colours");
    const auto &colors = bar.colorButtons;
    const auto tools = [&](Tool left, Tool right) {
        return std::vector{bar.toolButtons.at(left), bar.toolButtons.at(right)};
    };
    bar.gripView = new Bar(&panel, kGripSize, kGripRadius);

    Rows rows(panel);
    rows.add(bar.gripView);
    rows.add({bar.btnDraw, bar.btnBoard}, kButtonSpacing);
    rows.add({bar.btnSpot, bar.btnRing}, kButtonSpacing);
    rows.add({bar.btnClicks, bar.btnFade}, kButtonSpacing);
    rows.add({bar.btnPin}, kButtonSpacing);
    rows.add(panel.makeSeparator());
    rows.add(tools(Tool::pen, Tool::highlighter), kButtonSpacing);
    rows.add(tools(Tool::line, Tool::arrow), kButtonSpacing);
    rows.add(tools(Tool::rect, Tool::ellipse), kButtonSpacing);
    rows.add({bar.toolButtons.at(Tool::text), bar.undoButton()}, kButtonSpacing);
    rows.add(panel.makeSeparator());
    rows.add({colors[0], colors[1], colors[2], colors[3]}, kSmallButtonSpacing);
    rows.add({colors[4], colors[5], colors[6], colors[7]}, kSmallButtonSpacing);
    rows.add(bar.widthButtons, kSmallButtonSpacing);
    rows.add(panel.makeSeparator());
    rows.add({bar.btnDark, bar.clearButton(), bar.hideButton(), bar.quitButton()}, kSmallButtonSpacing);
    panel.setFixedSize(panel.layout()->sizeHint());
}

void AppDelegate::placePanel()
{
    m_toolbar->window =
        m_desktop.makeWindow(platform::WidgetRole::Toolbar, *m_toolbar->panel, Panel::kShadow);
    m_toolbar->placement = std::make_unique<ToolbarPlacement>(m_desktop, *m_toolbar->window, m_defaults);
    m_toolbar->placement->place();
}

void AppDelegate::connectPanel()
{
    Panel *panel = m_toolbar->panel.get();
    ToolbarPlacement *placement = m_toolbar->placement.get();
    connect(panel, &Panel::dragBegan, placement, &ToolbarPlacement::dragBegan);
    connect(panel, &Panel::dragMoved, placement, &ToolbarPlacement::dragMoved);
    connect(panel, &Panel::dragEnded, placement, &ToolbarPlacement::dragEnded);
    connect(panel, &Panel::menuRequested, this, &AppDelegate::openStatusMenu);

    const auto adopt = [this, panel] { panel->setComposited(m_desktop.isComposited()); };
    connect(&m_desktop, &platform::Desktop::compositingChanged, panel, adopt);
    adopt();
}

} // namespace zeigewerk
