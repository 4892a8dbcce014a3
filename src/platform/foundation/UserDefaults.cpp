#include "platform/foundation/UserDefaults.h"

#include <QDir>
#include <QStandardPaths>

#include <array>
#include <charconv>
#include <memory>

namespace lyrabox {
namespace {

std::unique_ptr<QSettings> openDefaults()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::make_unique<QSettings>(
        QDir(folder).filePath(QStringLiteral("Lyrabox/Lyrabox.conf")), QSettings::IniFormat);
}

std::unique_ptr<QSettings> &defaultsInstance()
{
    static std::unique_ptr<QSettings> instance;
    return instance;
}

} // namespace

QSettings &userDefaults()
{
    std::unique_ptr<QSettings> &instance = defaultsInstance();
    if (!instance)
        instance = openDefaults();
    return *instance;
}

void reopenUserDefaults()
{
    defaultsInstance().reset(); // writes pending changes
    defaultsInstance() = openDefaults();
}

void setUserDefault(const QString &key, float value)
{
    std::array<char, 32> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    Q_ASSERT(error == std::errc()); // every float fits into 32 characters
    userDefaults().setValue(key, QString::fromLatin1(digits.data(), end - digits.data()));
}

} // namespace lyrabox
