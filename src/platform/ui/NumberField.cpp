#include "platform/ui/NumberField.h"

#include <QKeyEvent>
#include <QRegularExpression>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

/// The number at the start of `text`, with a point or a comma as decimal mark; none if there is no
/// number.
std::optional<float> numberIn(const QString &text)
{
    static const QRegularExpression pattern(
        u"^\\s*([+\\-\u2212]?)\\s*([0-9]+(?:[.,][0-9]*)?|[.,][0-9]+)"_s);
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    QString digits = match.captured(2);
    digits.replace(u',', u'.');
    const double magnitude =
        std::min(digits.toDouble(), static_cast<double>(std::numeric_limits<float>::max()));
    const bool negative = !match.captured(1).isEmpty() && match.captured(1) != u"+"_s;
    return static_cast<float>(negative ? -magnitude : magnitude);
}

} // namespace

NumberField::NumberField(QWidget *parent) : QLineEdit(parent)
{
    setAlignment(Qt::AlignRight);
    setMaxLength(32);
    setText(textForValue(0.0F));
    setAcceptDrops(false); // a drop would edit the text without the focus; the window takes it
    connect(this, &QLineEdit::textEdited, this, [this] { m_edited = true; });
}

NumberField::~NumberField()
{
    disconnect(m_focusConnection); // the base class destructor moves the focus once more
}

float NumberField::floatValue() const
{
    return numberIn(text()).value_or(0.0F);
}

void NumberField::setFloatValue(float value)
{
    m_shownValue = value;
    m_edited = false;
    setText(textForValue(value));
}

void NumberField::setSuffix(const QString &suffix)
{
    m_suffix = suffix;
    if (!m_edited)
        setText(textForValue(m_shownValue));
}

void NumberField::setMinimumDecimals(int decimals)
{
    m_minimumDecimals = std::clamp(decimals, 0, 2);
    if (!m_edited)
        setText(textForValue(m_shownValue));
}

void NumberField::setLimits(float minimum, float maximum)
{
    m_minimum = minimum;
    m_maximum = std::max(minimum, maximum);
    m_limited = true;
}

QString NumberField::textForValue(float value) const
{
    // Round first, so that a value just below zero is not shown as "-0".
    const double rounded = std::round(static_cast<double>(value) * 100.0) / 100.0;
    QString number = QString::number(rounded == 0.0 ? 0.0 : rounded, 'f', 2);
    const qsizetype point = number.indexOf(u'.');
    while (point >= 0 && number.endsWith(u'0') && number.size() - point - 1 > m_minimumDecimals)
        number.chop(1);
    if (number.endsWith(u'.'))
        number.chop(1);
    return number + m_suffix;
}

void NumberField::finishEdit()
{
    if (!m_edited)
        return;
    m_edited = false;
    if (m_limited) {
        const std::optional<float> number = numberIn(text());
        if (!number) {
            setFloatValue(m_shownValue);
            return;
        }
        setFloatValue(std::clamp(*number, m_minimum, m_maximum));
    }
    Q_EMIT entered(this);
}

void NumberField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        finishEdit();
        selectAll();
        event->accept();
        Q_EMIT returnPressed();
        return;
    }
    if (event->key() == Qt::Key_Escape && m_edited) {
        setFloatValue(m_shownValue);
        selectAll();
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void NumberField::showEvent(QShowEvent *event)
{
    QLineEdit::showEvent(event);
    // In an inactive window the focus moves without focus events.
    disconnect(m_focusConnection);
    if (const QWindow *handle = window()->windowHandle())
        m_focusConnection = connect(handle, &QWindow::focusObjectChanged, this,
                                    &NumberField::finishEditAfterFocusLoss);
}

void NumberField::finishEditAfterFocusLoss()
{
    if (window()->focusWidget() != this)
        finishEdit();
}

void NumberField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    // If another window or a context menu takes the keyboard, the edit continues afterwards.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        finishEdit();
}

} // namespace lyrabox
