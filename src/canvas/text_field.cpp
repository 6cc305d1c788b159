#include "canvas/text_field.h"

#include "drawing/qt_color.h"
#include "drawing/text_line.h"

#include <QCommonStyle>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QWheelEvent>

#include <array>

namespace zeigewerk {

namespace {

constexpr double kBackgroundAlpha = 0.9;
constexpr double kPlaceholderAlpha = 0.55;
/// Where the text's line box should lie, in points from the lower left corner.
constexpr QPointF kLineOrigin(2, 4);
/// The padding that a line edit adds to its text margins; Qt keeps these constants private.
constexpr int kOwnLeftMargin = 2;
constexpr int kOwnTopMargin = 1;
/// One notch of the wheel, in Qt's unit …
constexpr int kAngleOfNotch = 120;
/// … and the same distance in points of precise scrolling.
constexpr double kPointsPerNotch = 15.0;

/// A plain box in every desktop's style, with a caret as bold as the text.
class FieldStyle : public QCommonStyle
{
public:
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        constexpr int kCaretWidth = 2;
        return metric == PM_TextCursorWidth ? kCaretWidth : QCommonStyle::pixelMetric(metric, option, widget);
    }
};

struct ModifierRow
{
    platform::Modifier ours;
    Qt::KeyboardModifier qts;
};

constexpr std::array kModifiers = {
    ModifierRow{platform::Modifier::Shift, Qt::ShiftModifier},
    ModifierRow{platform::Modifier::Ctrl, Qt::ControlModifier},
    ModifierRow{platform::Modifier::Alt, Qt::AltModifier},
    ModifierRow{platform::Modifier::Super, Qt::MetaModifier},
};

Qt::KeyboardModifiers qtModifiers(platform::Modifiers modifiers)
{
    Qt::KeyboardModifiers result;
    for (const ModifierRow &row : kModifiers)
        result.setFlag(row.qts, modifiers.testFlag(row.ours));
    return result;
}

platform::Modifiers modifiersOf(Qt::KeyboardModifiers modifiers)
{
    platform::Modifiers result;
    for (const ModifierRow &row : kModifiers)
        result.setFlag(row.ours, modifiers.testFlag(row.qts));
    return result;
}

Qt::Key qtKey(const platform::KeyEvent &event)
{
    if (event.isEscape)
        return Qt::Key_Escape;
    switch (event.character) {
    case U'\r':
        return Qt::Key_Return;
    case U'\b':
        return Qt::Key_Backspace;
    case U'\x7F':
        return Qt::Key_Delete;
    default:
        // For ASCII, Qt's key codes are the upper-case characters.
        return event.character < 0x80 ? static_cast<Qt::Key>(QChar::toUpper(event.character))
                                      : Qt::Key_unknown;
    }
}

/// Whether a key with these modifiers is an editing command.
bool isCommand(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & (Qt::ControlModifier | Qt::MetaModifier)) && !(modifiers & Qt::AltModifier);
}

} // namespace

TextField::TextField(const Color &textColor)
    : m_menu(*this)
{
    auto *style = new FieldStyle;
    style->setParent(this);
    setStyle(style);
    setFrame(false);
    setFont(canvasFont());
    setFixedSize(kSize);
    // The canvas aligns text to the left, whatever the language.
    setAlignment(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignTop);
    // An arrow key moves the caret the way it points, even in text of mixed direction.
    setCursorMoveStyle(Qt::VisualMoveStyle);
    setPlaceholderText(QStringLiteral("Text eingeben…"));
    setAccessibleName(QStringLiteral("Text"));
    putTextInPlace();
    setColors(textColor);
    // So that the field has the keyboard as soon as its window gets it.
    setFocus();
}

void TextField::putTextInPlace()
{
    const QFontMetricsF metrics(font());
    const double wanted = height() - kLineOrigin.y() - metrics.descent();
    const int top = qRound(wanted - metrics.ascent()) - kOwnTopMargin;
    setTextMargins(qRound(kLineOrigin.x()) - kOwnLeftMargin, top, 0, 0);
    m_baseLine = top + kOwnTopMargin + metrics.ascent();
}

QPointF TextField::lineOrigin() const
{
    return {kLineOrigin.x(), height() - m_baseLine - QFontMetricsF(font()).descent()};
}

void TextField::setColors(const Color &text)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Text, toQColor(text));
    colors.setColor(QPalette::PlaceholderText, toQColor(kBlack.withAlpha(kPlaceholderAlpha)));
    colors.setColor(QPalette::Highlight, toQColor(kNavy));
    colors.setColor(QPalette::HighlightedText, toQColor(kWhite));
    setPalette(colors);
}

void TextField::setComposited(bool isComposited)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Base, toQColor(kWhite.withAlpha(isComposited ? kBackgroundAlpha : 1.0)));
    setPalette(colors);
}

void TextField::commitComposition()
{
    if (m_composition.isEmpty())
        return;
    if (QGuiApplication::focusObject() == this)
        QGuiApplication::inputMethod()->commit();
    if (m_composition.isEmpty())
        return;
    // Some input methods do not respond to that.
    QInputMethodEvent commit;
    commit.setCommitString(m_composition);
    QCoreApplication::sendEvent(this, &commit);
}

void TextField::inputMethodEvent(QInputMethodEvent *event)
{
    m_composition = event->preeditString();
    QLineEdit::inputMethodEvent(event);
}

void TextField::keyDown(const platform::KeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = qtModifiers(event.modifiers);
    // Dead keys are ignored here: Qt composes accents only from keys that reach the field itself, and only
    // keys typed in the first few milliseconds reach the canvas.
    const bool writes = !isCommand(modifiers) && event.character >= U' ' && event.character != U'\x7F';
    QKeyEvent press(QEvent::KeyPress, qtKey(event), modifiers,
                    writes ? QString::fromUcs4(&event.character, 1) : QString());
    QCoreApplication::sendEvent(this, &press);
}

void TextField::keyPressEvent(QKeyEvent *event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    switch (event->key()) {
    case Qt::Key_Escape:
        return Q_EMIT cancelled();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Q_EMIT entered();
    default:
        break;
    }
    if (!isCommand(modifiers))
        return QLineEdit::keyPressEvent(event);
    const bool isShifted = modifiers.testFlag(Qt::ShiftModifier);
    if (m_menu.perform(static_cast<Qt::Key>(event->key()), isShifted))
        return;
    // Qt does not take Super for a command, and would insert the letter.
    QKeyEvent command(event->type(), event->key(),
                      (modifiers & ~Qt::KeyboardModifiers(Qt::MetaModifier)) | Qt::ControlModifier, QString(),
                      event->isAutoRepeat());
    QLineEdit::keyPressEvent(&command);
    event->setAccepted(command.isAccepted());
}

void TextField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    // In right-to-left text the caret has a flag for its direction. When the caret moves, the area that Qt
    // repaints misses a pixel of the flag.
    if (event->rect() != rect())
        update();
}

void TextField::mousePressEvent(QMouseEvent *event)
{
    Q_EMIT pressed();
    QLineEdit::mousePressEvent(event);
}

void TextField::wheelEvent(QWheelEvent *event)
{
    event->accept();
    // With Alt, Qt turns a vertical wheel into a horizontal one. The pixel delta is no help: Qt makes one up
    // for classic wheels, too.
    const bool isTurned = event->modifiers().testFlag(Qt::AltModifier);
    const int angle = isTurned ? event->angleDelta().x() : event->angleDelta().y();
    if (angle == 0)
        return;
    // As on the canvas, whole notches come from a wheel.
    const bool isPrecise = angle % kAngleOfNotch != 0;
    const double notches = static_cast<double>(angle) / kAngleOfNotch;
    Q_EMIT scrolled({.distance = isPrecise ? notches * kPointsPerNotch : notches,
                     .isPrecise = isPrecise,
                     .modifiers = modifiersOf(event->modifiers())});
}

void TextField::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    m_menu.popup(event->globalPos());
}

void TextField::hideEvent(QHideEvent *event)
{
    m_menu.close();
    QLineEdit::hideEvent(event);
}

} // namespace zeigewerk
