#pragma once

#include "toolbar/toolbar_look.h"

#include <QMargins>
#include <QWidget>

#include <vector>

namespace zeigewerk {

class Bar;

/// The toolbar's backdrop: a rounded, translucent panel with a shadow around it. It reports drags of its
/// background; its owner moves it.
class Panel : public QWidget
{
    Q_OBJECT

public:
    /// The space for the shadow around the panel's frame, in points.
    static constexpr QMargins kShadow = {18, 14, 18, 22};
    static constexpr double kCornerRadius = 14.0;

    Panel();

    /// The panel without its shadow, in the widget's coordinates.
    QRect frameRect() const { return rect().marginsRemoved(kShadow); }
    const ToolbarLook &look() const { return *m_look; }
    /// `look` must outlive the panel.
    void setLook(const ToolbarLook &look);
    /// Makes a line between two groups of buttons, in the colour of the look. The panel owns it.
    Bar *makeSeparator();
    /// Without a compositor the panel is opaque, and cut out along its rounded edge.
    void setComposited(bool isComposited);

Q_SIGNALS:
    /// `grip` is where the panel was grabbed: points from the lower left corner of its frame, y up.
    void dragBegan(QPointF grip);
    /// `position` is where the pointer is by now, in the same coordinates.
    void dragMoved(QPointF position);
    void dragEnded();
    /// The right button was pressed on the background.
    void menuRequested();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void cutOut();
    QPointF inFrame(QPointF position) const;
    void endDrag();
    void paintShadow(QPainter &painter) const;
    void paintBackdrop(QPainter &painter) const;

    const ToolbarLook *m_look = &kDarkLook;
    std::vector<Bar *> m_separators;
    bool m_isComposited = true;
    bool m_isDragged = false;
};

} // namespace zeigewerk
