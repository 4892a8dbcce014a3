// Combines every popover with every event that can change the data behind it. The popover must keep
// acting on what it asked about, or close.

#include "WholeProgram.h"
#include "app/controls/LB_PopUpButtonCell.h"
#include "app/controls/LB_Slider.h"
#include "navigation/LB_NavigationView.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/Popover.h"
#include "platform/ui/StateButton.h"
#include "settings/LB_SettingsController.h"
#include "sources/SourceTreeView.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QWheelEvent>

using namespace Qt::Literals::StringLiterals;
using namespace lyrabox;
using test::WholeProgram;

namespace {

/// A sound file with one second of silence.
void makeSong(const QString &path)
{
    constexpr qint32 bytes = 44100 * 2;
    QByteArray wave("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x44\xAC\0\0\x88\x58\1\0\2\0\x10\0data",
                    40);
    const auto number = [](qint32 value) {
        return QByteArray(reinterpret_cast<const char *>(&value), sizeof value);
    };
    wave.replace(4, 4, number(bytes + 36));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(wave + number(bytes) + QByteArray(bytes, '\0'));
}

class OpenPopover;

/// A way to open a popover.
struct Opening {
    const char *name;
    void (OpenPopover::*open)();
};
struct Event {
    const char *name;
    void (OpenPopover::*happen)();
};

/// The whole program with two folders, two songs and two user presets.
class OpenPopover : public testing::TestWithParam<std::tuple<Opening, Event>> {
public:
    // The ways to open a popover.
    void addFolder() { command(u"Add Folder…"_s)->trigger(); }
    void removeFolder()
    {
        selectFolder(u"First"_s);
        command(u"Remove Folder…"_s)->trigger();
    }
    void addPreset()
    {
        selectPreset(u"Manual"_s);
        addRemovePreset()->click();
    }
    void removePreset()
    {
        selectPreset(u"Mine"_s);
        addRemovePreset()->click();
    }
    void songSettings() { settingsPopup()->click(); }

    // The events behind the popover.
    void nothing() {}
    void anotherFolderIsSelected() { selectFolder(u"Second"_s); }
    void aPlaylistIsSelected()
    {
        NotificationCenter::defaultCenter().post(notification::playlistSelected);
    }
    void anotherPresetIsSelected() { selectPreset(u"Yours"_s); }
    void aBandIsTurnedByTheWheel()
    {
        auto *slider = equalizer->findChild<LB_Slider *>(u"slider4"_s);
        const QPointF middle = QRectF(slider->rect()).center();
        QWheelEvent event(middle, slider->mapToGlobal(middle), QPoint(), QPoint(0, 120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(slider, &event);
    }
    void theNextSongComes() { command(u"Next Song"_s)->trigger(); }
    void aSecondStartBringsAFolder() { secondStart(u"Third"_s); }
    void aSecondStartBringsASong() { secondStart(u"other.wav"_s); }
    void aVolumeComesAndGoes()
    {
        NotificationCenter::defaultCenter().post(notification::volumeDidMount);
        NotificationCenter::defaultCenter().post(notification::volumeDidUnmount);
    }
    void theEqualizerIsClosed() { equalizer->close(); }
    void theSessionEnds() { program.composition->terminate(); }

protected:
    OpenPopover()
    {
        qputenv("XDG_DATA_HOME", disk.filePath(u"data"_s).toLocal8Bit());
        userDefaults().clear();
        program.composition->launch();
        main = WholeProgram::window(u"MainWindow"_s);
        equalizer = WholeProgram::window(u"EqualizerWindow"_s);
        equalizer->show();
        settings = main->findChild<LB_NavigationView *>()->audio()->settings();
        for (const QString &name : {u"First"_s, u"Second"_s, u"Third"_s})
            QDir(disk.path()).mkpath(name);
        for (const QString &name : {u"one.wav"_s, u"two.wav"_s, u"other.wav"_s})
            makeSong(disk.filePath(name));
        program.composition->open({url(u"First"_s), url(u"Second"_s)});
        program.composition->open({url(u"one.wav"_s), url(u"two.wav"_s)});
        for (const QString &name : {u"Mine"_s, u"Yours"_s})
            addPresetCalled(name);
        foldersBefore = settings->folderDataArray();
        presetsBefore = presetNames();
        builtInBefore = builtInPresets();
    }

    ~OpenPopover() override { qputenv("XDG_DATA_HOME", dataBefore); }

    void addPresetCalled(const QString &name)
    {
        selectPreset(u"Manual"_s);
        addRemovePreset()->click();
        popoverIn(equalizer)->contentView()->findChild<QLineEdit *>(u"inputField"_s)->setText(name);
        okIn(equalizer)->click();
    }
    void secondStart(const QString &name)
    {
        program.composition->bringToFront();
        program.composition->open({url(name)});
    }
    QUrl url(const QString &name) const { return QUrl::fromLocalFile(disk.filePath(name)); }
    QAction *command(const QString &text) const
    {
        for (QAction *action : main->findChildren<QAction *>()) {
            if (QString(action->text()).remove(u'&') == text)
                return action;
        }
        ADD_FAILURE() << "no command " << text.toStdString();
        return nullptr;
    }
    void selectFolder(const QString &name)
    {
        auto *tree = main->findChild<SourceTreeView *>(u"folderOutlineView"_s);
        for (int row = 0; row < tree->model()->rowCount(); ++row) {
            if (tree->model()->index(row, 0).data().toString() == name)
                tree->selectRow(tree->model()->index(row, 0));
        }
    }
    void selectPreset(const QString &name)
    {
        auto *table = equalizer->findChild<QTableView *>(u"presetTableView"_s);
        for (int row = 0; row < table->model()->rowCount(); ++row) {
            if (table->model()->index(row, 0).data().toString() == name)
                table->selectRow(row);
        }
    }
    QString selectedPreset() const
    {
        const auto *table = equalizer->findChild<QTableView *>(u"presetTableView"_s);
        return table->selectionModel()->selectedRows().value(0).data().toString();
    }
    /// Only user presets are counted.
    QStringList presetNames() const
    {
        QStringList names;
        for (const EqPresetRef &preset : *settings->eqPresetArray()) {
            if (!preset->persistent)
                names.append(preset->name);
        }
        return names;
    }
    qsizetype builtInPresets() const
    {
        return static_cast<qsizetype>(settings->eqPresetArray()->size()) - presetNames().size();
    }
    StateButton *addRemovePreset() const
    {
        return equalizer->findChild<StateButton *>(u"addRemoveButton"_s);
    }
    LB_PopUpButtonCell *settingsPopup() const
    {
        return main->findChild<LB_PopUpButtonCell *>(u"settingsPopup"_s);
    }
    static Popover *popoverIn(QMainWindow *window) { return window->findChild<Popover *>(); }
    static QPushButton *okIn(QMainWindow *window)
    {
        QWidget *content = popoverIn(window)->contentView();
        return content != nullptr ? content->findChild<QPushButton *>(u"okButton"_s) : nullptr;
    }
    static QString questionIn(QMainWindow *window)
    {
        const auto *label =
            popoverIn(window)->contentView()->findChild<QLabel *>(u"messageField"_s);
        return label != nullptr ? label->text() : QString();
    }

    const QByteArray dataBefore = qgetenv("XDG_DATA_HOME");
    QTemporaryDir disk;
    WholeProgram program;
    QMainWindow *main;
    QMainWindow *equalizer;
    LB_SettingsController *settings;
    QStringList foldersBefore;
    QStringList presetsBefore;
    qsizetype builtInBefore;
};

/// For every combination: the popover may only do what it was opened for.
TEST_P(OpenPopover, ActsOnlyOnWhatItAskedAbout)
{
    const auto &[opening, event] = GetParam();
    const auto *audio = main->findChild<LB_NavigationView *>()->audio();
    ASSERT_NE(audio->currentTrack(), nullptr);
    (this->*opening.open)();
    const QMenu *menu = settingsPopup()->menu();
    const bool asksInMenu = menu->isVisible();
    const bool asksForFolder = popoverIn(main)->isShown();
    ASSERT_EQ(asksInMenu + asksForFolder + popoverIn(equalizer)->isShown(), 1) << opening.name;
    const TrackRecordRef song = audio->currentTrack();

    (this->*event.happen)();
    QCoreApplication::processEvents();

    const QStringList foldersThen = settings->folderDataArray();
    if (asksInMenu) {
        EXPECT_TRUE(!menu->isVisible() || audio->currentTrack() == song)
            << "the menu belongs to a song that is gone";
    } else if (popoverIn(main)->isShown() && questionIn(main).startsWith(u"Remove"_s)) {
        const auto *tree = main->findChild<SourceTreeView *>(u"folderOutlineView"_s);
        EXPECT_EQ(questionIn(main),
                  u"Remove folder '%1'?"_s.arg(tree->selectedRow().data().toString()));
        okIn(main)->click();
        QStringList without = foldersThen;
        EXPECT_TRUE(without.removeOne(disk.filePath(u"First"_s)));
        EXPECT_EQ(settings->folderDataArray(), without);
    } else if (popoverIn(equalizer)->isShown() && questionIn(equalizer).startsWith(u"Remove"_s)) {
        EXPECT_EQ(questionIn(equalizer), u"Remove preset '%1'?"_s.arg(selectedPreset()));
        okIn(equalizer)->click();
        QStringList without = presetsBefore;
        EXPECT_TRUE(without.removeOne(u"Mine"_s));
        EXPECT_EQ(presetNames(), without);
    } else if (popoverIn(equalizer)->isShown()) {
        okIn(equalizer)->click();
        EXPECT_EQ(presetNames(), presetsBefore + QStringList{u"New Preset"_s});
        EXPECT_EQ(selectedPreset(), u"New Preset"_s);
    } else {
        // An answer that comes too late has no effect.
        for (QMainWindow *window : {main, equalizer}) {
            QPushButton *ok = okIn(window);
            if (ok != nullptr && popoverIn(window)->accessibleName().startsWith(u"Remove"_s))
                ok->click();
        }
        EXPECT_EQ(presetNames(), presetsBefore);
        EXPECT_EQ(settings->folderDataArray(), foldersThen);
    }
    for (const QString &folder : foldersBefore)
        EXPECT_TRUE(foldersThen.contains(folder)) << folder.toStdString();
    EXPECT_EQ(builtInPresets(), builtInBefore);
}

constexpr Opening openings[] = {{"AddFolder", &OpenPopover::addFolder},
                                {"RemoveFolder", &OpenPopover::removeFolder},
                                {"AddPreset", &OpenPopover::addPreset},
                                {"RemovePreset", &OpenPopover::removePreset},
                                {"SongSettings", &OpenPopover::songSettings}};
constexpr Event events[] = {{"Nothing", &OpenPopover::nothing},
                            {"AnotherFolderIsSelected", &OpenPopover::anotherFolderIsSelected},
                            {"APlaylistIsSelected", &OpenPopover::aPlaylistIsSelected},
                            {"AnotherPresetIsSelected", &OpenPopover::anotherPresetIsSelected},
                            {"ABandIsTurnedByTheWheel", &OpenPopover::aBandIsTurnedByTheWheel},
                            {"TheNextSongComes", &OpenPopover::theNextSongComes},
                            {"ASecondStartBringsAFolder", &OpenPopover::aSecondStartBringsAFolder},
                            {"ASecondStartBringsASong", &OpenPopover::aSecondStartBringsASong},
                            {"AVolumeComesAndGoes", &OpenPopover::aVolumeComesAndGoes},
                            {"TheEqualizerIsClosed", &OpenPopover::theEqualizerIsClosed},
                            {"TheSessionEnds", &OpenPopover::theSessionEnds}};

INSTANTIATE_TEST_SUITE_P(Behind, OpenPopover,
                         testing::Combine(testing::ValuesIn(openings), testing::ValuesIn(events)),
                         [](const auto &pair) {
                             return std::string(std::get<0>(pair.param).name) + "While" +
                                    std::get<1>(pair.param).name;
                         });

} // namespace
