#pragma once

#include <QLineEdit>

namespace lyrabox {

/// A text field for one number. A value set by code is shown with up to two decimals and the
/// suffix. The user may type either decimal mark, with or without the suffix. When an edit ends, by
/// Return or because the field loses the focus, entered() is sent once; floatValue() then returns
/// the typed number, or 0 if the text is not a number. Escape restores the last shown value. Main
/// thread.
class NumberField : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(QString suffix READ suffix WRITE setSuffix)
    Q_PROPERTY(int minimumDecimals READ minimumDecimals WRITE setMinimumDecimals)

public:
    explicit NumberField(QWidget *parent = nullptr);
    ~NumberField() override;

    /// The number in the text; exactly 0 if there is none.
    float floatValue() const;

    /// Shows `value` and discards an edit in progress.
    void setFloatValue(float value);

    /// Text shown after the number; empty by default.
    QString suffix() const { return m_suffix; }
    void setSuffix(const QString &suffix);
    /// How many decimals are always shown, 0 to 2; 0 by default.
    int minimumDecimals() const { return m_minimumDecimals; }
    void setMinimumDecimals(int decimals);

    /// Sets limits for typed numbers; by default there are none. A typed number outside the limits
    /// is replaced with the nearest limit before entered() is sent. If the text is not a number,
    /// the last shown value returns and entered() is not sent.
    void setLimits(float minimum, float maximum);

    /// Ends an edit in progress, as Return does. The keyboard focus does not move.
    void finishEdit();

Q_SIGNALS:
    /// An edit has ended.
    void entered(lyrabox::NumberField *sender);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void finishEditAfterFocusLoss();
    QString textForValue(float value) const;

    QMetaObject::Connection m_focusConnection;
    QString m_suffix;
    float m_shownValue = 0.0F;
    int m_minimumDecimals = 0;
    float m_minimum = 0.0F;
    float m_maximum = 0.0F;
    bool m_limited = false;
    bool m_edited = false;
};

} // namespace lyrabox
