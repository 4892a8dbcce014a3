#pragma once

#include "settings/LB_SettingsController.h"

#include "platform/foundation/PropertyList.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace lyrabox::test {

using namespace Qt::Literals::StringLiterals;

/// The warnings logged since the current test began.
inline QStringList &warnings()
{
    static QStringList collected;
    return collected;
}

/// The message handler that collects warnings.
inline void collect(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtWarningMsg)
        warnings().append(text);
}

/// Gives every test its own settings folder and collects logged warnings.
class SettingsController : public testing::Test {
protected:
    SettingsController()
    {
        qputenv("XDG_DATA_HOME", m_data.path().toLocal8Bit());
        warnings().clear();
        m_before = qInstallMessageHandler(collect);
    }

    ~SettingsController() override
    {
        qInstallMessageHandler(m_before);
        qputenv("XDG_DATA_HOME", m_oldData);
    }

    QString folder() const { return m_data.filePath(u"Lyrabox"_s); }
    QString file(const QString &name) const { return QDir(folder()).filePath(name); }

    void put(const QString &name, const QByteArray &content) const
    {
        QDir().mkpath(folder());
        QFile out(file(name));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(content);
    }

    void put(const QString &name, const PropertyList &list) const
    {
        put(name, propertyListXml(list));
    }

    QByteArray content(const QString &name) const
    {
        QFile in(file(name));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

    PropertyList list(const QString &name) const
    {
        return readPropertyList(file(name)).value_or(PropertyList());
    }

    QTemporaryDir m_data;
    QByteArray m_oldData = qgetenv("XDG_DATA_HOME");
    QtMessageHandler m_before = nullptr;
};

/// Entries in the form of UserSettings.plist, and its root.
inline PropertyList song(const QString &inode, const PropertyList &speed, const PropertyList &pitch)
{
    return PropertyList::Dictionary{{u"inode"_s, inode}, {u"speed"_s, speed}, {u"pitch"_s, pitch}};
}

inline PropertyList sort(const QString &id, const QString &key, const PropertyList &ascending)
{
    return PropertyList::Dictionary{{u"id"_s, id}, {u"key"_s, key}, {u"ascending"_s, ascending}};
}

inline PropertyList userSettings(PropertyList::Array sorts, PropertyList::Array songs)
{
    return PropertyList::Dictionary{{u"sorts"_s, std::move(sorts)},
                                    {u"songSettings"_s, std::move(songs)}};
}

/// Null if there is none.
inline const EqPreset *presetWithId(const LB_SettingsController &settings, qint64 id)
{
    const auto presets = settings.eqPresetArray();
    for (const EqPresetRef &preset : *presets) {
        if (preset->id == id)
            return preset.get();
    }
    return nullptr;
}

inline const SortDescriptor byOrder{u"order"_s, true};

} // namespace lyrabox::test
