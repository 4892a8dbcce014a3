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

/// The state numbers of AT-SPI that the tests ask for.
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

/// One object of a program's accessible tree, as another process sees it. Every question goes over
/// the bus; an object that is gone has empty answers.
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

    /// Of a slider or splitter; none without a value.
    std::optional<double> value() const;
    std::optional<double> minimum() const;
    std::optional<double> maximum() const;
    void setValue(double value) const;
    /// Of a text field.
    QString text() const;
    /// Does what its action of that name does; false without such an action.
    bool act(const QString &action) const;

    /// All objects below, itself first.
    QList<Accessible> tree() const;
    /// The first of them with that role and name; invalid without one.
    Accessible find(const QString &role, const QString &name) const;

private:
    QVariant property(const QString &interface, const QString &name) const;
    QDBusMessage call(const QString &interface, const QString &method,
                      const QVariantList &arguments = {}) const;

    QDBusConnection m_bus{QString()};
    QString m_service;
    QString m_path;
};

/// What a program tells of a change.
struct AccessibleEvent {
    QString path;
    QString kind;   ///< "StateChanged" or "PropertyChange"
    QString detail; ///< "checked", "accessible-value", "accessible-name", …
    int isOn = 0;
};

/// A session bus of the test's own with the accessibility bus that the desktop's launcher starts on
/// it, and a client there.
class AccessibilityBus : public QObject {
    Q_OBJECT

public:
    /// Started for programs on that display.
    explicit AccessibilityBus(const VirtualDisplay &display);
    ~AccessibilityBus() override;

    /// What DBUS_SESSION_BUS_ADDRESS has to be.
    QString sessionAddress() const { return m_address; }

    /// The program that has registered itself under that name; waited for.
    Accessible application(const QString &name);

    /// Collects events from now on.
    void listen();
    /// Whether such an event has come or comes.
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
