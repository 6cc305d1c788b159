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
/// Where the text's line box is to lie, from the lower left corner.
constexpr QPointF kLineOrigin(2, 4);
/// What a line edit keeps free around its text, beside its text margins; it has no name outside Qt.
constexpr int kOwnLeftMargin = 2;
constexpr int kOwnTopMargin = 1;
/// Of the wheel, in Qt's unit …
constexpr int kAngleOfNotch = 120;
/// … and of the fine scrolling that takes the same way.
constexpr double kPointsPerNotch = 15.0;

/// A plain box, whatever the desktop's own style would make of a line edit, with a caret as bold as the text.
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
        // Qt's keys of ASCII are its characters in upper case.
        return event.character < 0x80 ? static_cast<Qt::Key>(QChar::toUpper(event.character))
                                      : Qt::Key_unknown;
    }
}

/// Whether the modifiers make a key a command of editing.
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
    // The canvas writes from the left, whatever the language.
    setAlignment(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignTop);
    // An arrow key goes where it points, also where a text changes its direction.
    setCursorMoveStyle(Qt::VisualMoveStyle);
    setPlaceholderText(QStringLiteral("Text eingeben…"));
    setAccessibleName(QStringLiteral("Text"));
    putTextInPlace();
    setColors(textColor);
    // Its window may come to have the keyboard at any moment, and then so has the field.
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
    // There are input methods that do not answer to that.
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
    // A dead key does nothing here: Qt composes accents of what comes to the field itself, and what reaches
    // the canvas before was typed within a few milliseconds of the press that opens the field.
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
    // To Qt, Super is no command: it would write the letter.
    QKeyEvent command(event->type(), event->key(),
                      (modifiers & ~Qt::KeyboardModifiers(Qt::MetaModifier)) | Qt::ControlModifier, QString(),
                      event->isAutoRepeat());
    QLineEdit::keyPressEvent(&command);
    event->setAccepted(command.isAccepted());
}

void TextField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    // Where letters run to the left the caret has a flag for its direction, and the part that Qt repaints
    // when the caret goes leaves a pixel of it.
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
    // Qt has a use of its own for Alt: with it, the wheel is the horizontal one. The pixels say nothing,
    // since Qt makes some up for classic wheels too.
    const bool isTurned = event->modifiers().testFlag(Qt::AltModifier);
    const int angle = isTurned ? event->angleDelta().x() : event->angleDelta().y();
    if (angle == 0)
        return;
    // As on the canvas, whole notches are a wheel's.
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
