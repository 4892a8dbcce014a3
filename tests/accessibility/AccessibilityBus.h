#pragma once

#include "support/program/VirtualDisplay.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QList>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <optional>

namespace lyrabox::test {

/// The AT-SPI state numbers that the tests use.
enum class AccessibleState {
    Checked = 4,
    Editable = 7,
    Focusable = 11,
    Focused = 12,
    Selected = 23,
    Sensitive = 24,
    Showing = 25,
    Indeterminate = 32,
};

/// One object in the accessible tree of a program, as another process sees it. Every call is a
/// request over the bus. An object that no longer exists gives empty answers.
class Accessible {
public:
    Accessible() = default;
    Accessible(QDBusConnection bus, QString service, QString path);

    bool isValid() const { return !m_path.isEmpty(); }
    QString path() const { return m_path; }

    QString role() const;
    QString name() const;
    QString description() const;
    bool has(AccessibleState state) const;
    QList<Accessible> children() const;

    /// The value of a slider or splitter; none for other objects.
    std::optional<double> value() const;
    std::optional<double> minimum() const;
    std::optional<double> maximum() const;
    void setValue(double value) const;
    /// The text of a text field.
    QString text() const;
    /// Replaces the text of a text field. False if that is not possible.
    bool setText(const QString &text) const;
    /// Gives the object the keyboard. False if it cannot have it.
    bool takeKeyboard() const;
    /// Selects a row of a table, in addition to others. False if that is not possible.
    bool selectRow(int row) const;
    /// The object of the same program at a path that came with an event.
    Accessible at(const QString &path) const { return {m_bus, m_service, path}; }
    /// Performs the action with that name. Returns false if there is none.
    bool act(const QString &action) const;

    /// This object and all objects below it.
    QList<Accessible> tree() const;
    /// The first object in all() with that role and name; invalid if there is none.
    Accessible find(const QString &role, const QString &name) const;

private:
    QVariant property(const QString &interface, const QString &name) const;
    QDBusMessage call(const QString &interface, const QString &method,
                      const QVariantList &arguments = {}) const;

    QDBusConnection m_bus{QString()};
    QString m_service;
    QString m_path;
};

/// A change that a program announced.
struct AccessibleEvent {
    QString path;
    QString kind;   ///< "StateChanged" or "PropertyChange"
    QString detail; ///< "checked", "accessible-value", "accessible-name", …
    int isOn = 0;
};

/// A private session bus, the accessibility bus that the desktop's launcher starts on it, and a
/// client.
class AccessibilityBus : public QObject {
    Q_OBJECT

public:
    /// Starts the buses for programs on that display.
    explicit AccessibilityBus(const VirtualDisplay &display);
    ~AccessibilityBus() override;

    /// The value for DBUS_SESSION_BUS_ADDRESS.
    QString sessionAddress() const { return m_address; }

    /// Waits until a program has registered under that name, and returns it.
    Accessible application(const QString &name);

    /// Starts to collect events.
    void listen();
    /// Waits for such an event. Returns false if none arrives in time.
    bool waitForEvent(const std::function<bool(const AccessibleEvent &)> &matches,
                      double seconds = 10.0);

private Q_SLOTS:
    void eventCame(const QDBusMessage &message);

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QDBusConnection m_session{QString()};
    QDBusConnection m_bus{QString()};
    QList<AccessibleEvent> m_events;
};

} // namespace lyrabox::test
