#pragma once

#include "drawing/color.h"
#include "toolbar/template_image.h"

#include <QAbstractButton>

#include <optional>

namespace zeigewerk {

/// A button of the toolbar. It shows a symbol, or its text if it has none, with a background and a border
/// that are set when the toolbar is refreshed. It has no state that a click would change, and never takes the
/// focus.
class PalButton : public QAbstractButton
{
    Q_OBJECT

public:
    /// The kind of control that a screen reader announces.
    enum class Kind {
        Action,
        Toggle, ///< a mode that is on or off
        Choice, ///< one of a group in which one is chosen
    };

    /// What is painted behind the symbol.
    struct Layer
    {
        Color background = kClear;
        Color borderColor = kClear;
        /// Inside the button's edge; in points, like the radius.
        double borderWidth = 0.0;
        double cornerRadius = 0.0;

        friend bool operator==(const Layer &, const Layer &) = default;
    };

    /// `tip` is the tooltip, and the permanent name of the button for screen readers.
    PalButton(QWidget *parent, QSize size, const QString &tip);

    Kind kind() const { return m_kind; }
    void setKind(Kind kind) { m_kind = kind; }
    /// The number of the tool, colour or width that the button picks.
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }

    const std::optional<TemplateImage> &image() const { return m_image; }
    void setImage(const TemplateImage &image);

    Color contentTint() const { return m_contentTint; }
    void setContentTint(const Color &tint);

    const Layer &layer() const { return m_layer; }
    void setBackground(const Color &color);
    void setBorder(const Color &color, double width);
    void setCornerRadius(double radius);
    /// Sets the colours laid over the background while the pointer is on the button, and while it is held
    /// down.
    void setFeedback(const Color &hovered, const Color &pressed);

    /// A second line of the tooltip; none if empty.
    const QString &tipNote() const { return m_tipNote; }
    void setTipNote(const QString &note);

    /// Whether the mode is on or the choice is this one, for screen readers.
    bool isShownOn() const { return m_isShownOn; }
    void setShownOn(bool on);

    QSize sizeHint() const override { return size(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void setLayer(const Layer &layer);
    Color feedback() const;
    void paintLayer(QPainter &painter) const;

    QString m_tip;
    QString m_tipNote;
    Kind m_kind = Kind::Action;
    int m_tag = 0;
    std::optional<TemplateImage> m_image;
    Color m_contentTint = kWhite;
    Layer m_layer;
    Color m_hovered = kClear;
    Color m_pressed = kClear;
    bool m_isShownOn = false;
};

} // namespace zeigewerk
