// Settings files and a kill, a full disk and a folder that is not writable. Each trial runs in a
// process of its own.

#include "settings/LB_SettingsController.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/PropertyList.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <functional>
#include <random>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int songs = 60;
constexpr int folders = 40;
constexpr qint64 notThere = -1;
constexpr qint64 mixed = -2;
const QStringList fileNames{u"UserSettings.plist"_s, u"EQPresets.plist"_s, u"Folders.plist"_s};

/// Writes one number into every value of the three files. It also decides their lengths.
void setEverything(LB_SettingsController &settings, int number)
{
    const QString text = QString::number(number) + QString(number % 50, u'x');
    for (int song = 0; song < songs; ++song)
        settings.setValuesForInode({.speed = static_cast<float>(number), .pitch = 1.0F},
                                   QString::number(song));
    for (const EqPresetRef &preset : *settings.eqPresetArray())
        preset->name = text;
    settings.setFolderDataArray(QStringList(folders, u"/"_s + text));
}

/// The number at the beginning of all the texts.
qint64 commonNumber(const QStringList &texts)
{
    qint64 number = notThere;
    for (QString text : texts) {
        const qint64 its = text.remove(u'x').remove(u'/').toLongLong();
        if (number != notThere && its != number)
            return mixed;
        number = its;
    }
    return number;
}

/// The number in a file. `notThere` without a file, `mixed` if the file is damaged.
qint64 numberIn(const QString &path)
{
    if (!QFile::exists(path))
        return notThere;
    const std::optional<PropertyList> list = readPropertyList(path);
    if (!list)
        return mixed;
    QStringList texts;
    if (const PropertyList::Array *entries = list->value(u"songSettings").array()) {
        if (entries->size() != songs)
            return mixed;
        for (const PropertyList &entry : *entries)
            texts.append(QString::number(entry.value(u"speed").integer().value_or(mixed)));
        return commonNumber(texts);
    }
    if (list->array() == nullptr || list->array()->empty())
        return mixed;
    for (const PropertyList &entry : *list->array()) {
        const QString *const text =
            entry.dictionary() != nullptr ? entry.value(u"name").string() : entry.string();
        texts.append(text != nullptr ? *text : QString());
    }
    return commonNumber(texts);
}

class SettingsFaults : public testing::Test {
protected:
    SettingsFaults() { qputenv("XDG_DATA_HOME", m_data.path().toLocal8Bit()); }
    ~SettingsFaults() override { qputenv("XDG_DATA_HOME", m_oldData); }

    QString folder() const { return m_data.filePath(u"Lyrabox"_s); }
    std::vector<qint64> numbers() const
    {
        std::vector<qint64> found;
        for (const QString &name : fileNames)
            found.push_back(numberIn(QDir(folder()).filePath(name)));
        return found;
    }

    static void write(int number)
    {
        LB_SettingsController settings;
        settings.setup();
        setEverything(settings, number);
        settings.appWillTerminate();
    }

    /// Runs `work` in a child process and returns its id.
    static pid_t inChild(const std::function<void()> &work)
    {
        const pid_t child = fork();
        if (child == 0) {
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
            work();
            _exit(0);
        }
        return child;
    }
    static int statusOf(pid_t child)
    {
        int status = -1;
        waitpid(child, &status, 0);
        return status;
    }

    QTemporaryDir m_data;
    QByteArray m_oldData = qgetenv("XDG_DATA_HOME");
};

TEST_F(SettingsFaults, AKillAtAnyMomentLeavesEachFileEitherOldOrNew)
{
    const int rounds = qEnvironmentVariableIntValue("LYRABOX_FAULT_ROUNDS") > 0
                           ? qEnvironmentVariableIntValue("LYRABOX_FAULT_ROUNDS")
                           : 100;
    write(1);
    ASSERT_EQ(numbers(), (std::vector<qint64>{1, 1, 1}));
    std::mt19937 dice(
        20'26); // chooses the time of the kill; the disk's speed decides which write it hits
#ifdef __SANITIZE_THREAD__
    const useconds_t latest = 250'000; // a sanitizer needs ten times as long until the first write
#else
    const useconds_t latest = 25'000;
#endif
    std::uniform_int_distribution<useconds_t> moment(0, latest);
    int between = 0;
    qint64 before = 1;
    for (int round = 0; round < rounds; ++round) {
        const pid_t child = inChild([&] {
            LB_SettingsController settings;
            settings.setup();
            for (int number = static_cast<int>(before) + 1;; ++number) {
                setEverything(settings, number);
                settings.appWillTerminate();
            }
        });
        ASSERT_GT(child, 0);
        usleep(moment(dice));
        kill(child, SIGKILL);
        ASSERT_TRUE(WIFSIGNALED(statusOf(child)));

        const std::vector<qint64> found = numbers();
        for (std::size_t i = 0; i < found.size(); ++i) {
            ASSERT_GE(found[i], before) << fileNames[static_cast<qsizetype>(i)].toStdString()
                                        << " is damaged, older or lost in round " << round;
            // The files are written in this order.
            ASSERT_LE(found[i], found[0]);
            ASSERT_GE(found[i], found[0] - 1);
        }
        between += found[0] != found[2] ? 1 : 0;
        before = found[2];
        const qsizetype files =
            QDir(folder()).entryList(QDir::Files | QDir::Hidden | QDir::System).size();
        ASSERT_LE(files, 6) << "the files of killed programs pile up";
        // The next start must work as usual.
        write(static_cast<int>(found[0]));
        before = found[0];
    }
    EXPECT_GT(before, 1) << "no kill came after a write";
    RecordProperty("killedBetweenTheFiles", between);
}

TEST_F(SettingsFaults, ADiskThatFillsUpDuringAFileLeavesTheOldFiles)
{
    write(7);
    const int status = statusOf(inChild([] {
        LB_SettingsController settings;
        settings.setup();
        setEverything(settings, 8);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{600, 600}; // smaller than each of the three files
        setrlimit(RLIMIT_FSIZE, &limit);
        settings.appWillTerminate();
    }));
    EXPECT_EQ(status, 0);
    EXPECT_EQ(numbers(), (std::vector<qint64>{7, 7, 7}));
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files).size(), 3);
}

/// A file system of its own in place of the settings folder. Mounting it needs root rights.
class SettingsOnOwnDisk : public SettingsFaults {
protected:
    bool mountDisk(const char *options)
    {
        QDir().mkpath(folder());
        m_path = QFile::encodeName(folder());
        if (::mount("none", m_path.constData(), "tmpfs", 0, options) == 0)
            return m_isMounted = true;
        m_reason = std::strerror(errno);
        return false;
    }
    ~SettingsOnOwnDisk() override
    {
        if (m_isMounted)
            ::umount2(m_path.constData(), MNT_DETACH);
    }
    QByteArray m_path;
    const char *m_reason = "";
    bool m_isMounted = false;
};

TEST_F(SettingsOnOwnDisk, AFullDiskLeavesTheOldFilesUntilThereIsSpaceAgain)
{
    if (!mountDisk("size=96k"))
        GTEST_SKIP() << "cannot mount a disk (" << m_reason << "); root rights are needed";
    write(3);
    ASSERT_EQ(numbers(), (std::vector<qint64>{3, 3, 3}));
    QFile filler(QDir(folder()).filePath(u"filler"_s));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(4096, 'x')) == 4096) {
    }
    filler.close();

    EXPECT_EQ(statusOf(inChild([] { write(4); })), 0);
    EXPECT_EQ(numbers(), (std::vector<qint64>{3, 3, 3}));
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files).size(), 4);

    ASSERT_TRUE(filler.remove());
    write(5);
    EXPECT_EQ(numbers(), (std::vector<qint64>{5, 5, 5}));
}

TEST_F(SettingsOnOwnDisk, AReadOnlyDiskLeavesTheOldFiles)
{
    if (!mountDisk("size=1m"))
        GTEST_SKIP() << "cannot mount a disk (" << m_reason << "); root rights are needed";
    write(3);
    ASSERT_EQ(::mount("none", m_path.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr), 0);
    EXPECT_EQ(statusOf(inChild([] { write(4); })), 0);
    EXPECT_EQ(numbers(), (std::vector<qint64>{3, 3, 3}));
}

TEST_F(SettingsFaults, AReadOnlyFolderLeavesTheOldFiles)
{
    write(3);
    const QByteArray path = QFile::encodeName(folder());
    ASSERT_EQ(chmod(path.constData(), 0555), 0);
    // Root may write everywhere, so the process becomes a user who may only read here.
    ASSERT_EQ(chmod(QFile::encodeName(m_data.path()).constData(), 0755), 0);
    const int status = statusOf(inChild([] {
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0))
            _exit(2);
        write(4);
    }));
    chmod(path.constData(), 0755);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(numbers(), (std::vector<qint64>{3, 3, 3}));
}

} // namespace
