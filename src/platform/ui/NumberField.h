#pragma once

#include <QLineEdit>

namespace lyrabox {

/// A text field for one number. A value set in code is shown with up to two decimals and the
/// suffix; what the user types is read leniently (either decimal mark, the suffix or not).
/// entered() is sent once when an edit ends with Return or by losing focus; floatValue() then reads
/// what was typed, 0 for text that is no number. Escape puts the last shown value back.
class NumberField : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(QString suffix READ suffix WRITE setSuffix)
    Q_PROPERTY(int minimumDecimals READ minimumDecimals WRITE setMinimumDecimals)

public:
    explicit NumberField(QWidget *parent = nullptr);
    ~NumberField() override;

    /// The number in the text; exactly 0 when there is none.
    float floatValue() const;

    /// Shows `value` and forgets an edit that is going on.
    void setFloatValue(float value);

    QString suffix() const { return m_suffix; }
    void setSuffix(const QString &suffix);
    int minimumDecimals() const { return m_minimumDecimals; }
    void setMinimumDecimals(int decimals);

    /// Where it is set, a typed number outside is brought to the limit before entered() is sent,
    /// and text that is no number is put back without entered().
    void setLimits(float minimum, float maximum);

    /// Ends an edit that is going on as Return does; the keyboard stays where it is.
    void finishEdit();

Q_SIGNALS:
    void entered(lyrabox::NumberField *sender);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void finishEditLeftBehind();
    QString textForValue(float value) const;

    QMetaObject::Connection m_focusMoves;
    QString m_suffix;
    float m_shownValue = 0.0F;
    int m_minimumDecimals = 0;
    float m_minimum = 0.0F;
    float m_maximum = 0.0F;
    bool m_limited = false;
    bool m_edited = false;
};

} // namespace lyrabox
