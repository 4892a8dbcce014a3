#include "app/export/ExportQueue.h"
#include "app/export/ExportRows.h"
#include "app/export/ExportSettings.h"
#include "app/export/ExportText.h"
#include "app/export/ExportWindow.h"
#include "app/practice/ChoiceButton.h"
#include "app/practice/Metronome.h"
#include "app/practice/PracticingFixture.h"
#include "app/practice/SongSound.h"
#include "app/practice/TextButton.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/NumberField.h"
#include "support/CollectingWriter.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>

#include <algorithm>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheExportWindow : public PracticingFixture {
protected:
    TheExportWindow()
    {
        forget();
        EXPECT_TRUE(QDir(m_disk.path()).mkdir(u"Phone"_s));
        userDefaults().setValue(u"exportFolder"_s, target());
    }
    ~TheExportWindow() override
    {
        window.reset();
        sound.reset();
        metronome.reset();
        forget();
    }

    static void forget()
    {
        for (const QString &key : {u"exportFolder"_s, u"exportFormat"_s})
            userDefaults().remove(key);
    }

    QString target() const { return m_disk.filePath(u"Phone"_s); }

    void open()
    {
        metronome = std::make_unique<Metronome>(&audio(), practice.get());
        sound = std::make_unique<SongSound>(&audio(), practice.get());
        window = std::make_unique<ExportWindow>(ExportWindow::Outlets{.audio = &audio(),
                                                                      .practice = practice.get(),
                                                                      .sound = sound.get(),
                                                                      .metronome = metronome.get(),
                                                                      .queue = &queue,
                                                                      .formats = formats},
                                                nullptr);
        window->show();
    }

    void repeat(std::uint64_t from, std::uint64_t to) const
    {
        audio().setLoop({.start = from, .end = to});
    }

    QLineEdit *name() const
    {
        for (auto *field : window->findChildren<QLineEdit *>()) {
            if (field->accessibleName() == u"Name"_s)
                return field;
        }
        return nullptr;
    }
    NumberField *times() const { return window->findChild<NumberField *>(); }
    TextButton *aSwitch(const QString &beginning) const
    {
        for (auto *button : window->findChildren<TextButton *>()) {
            if (button->text().startsWith(beginning))
                return button;
        }
        return nullptr;
    }
    QPushButton *button(const QString &text) const
    {
        for (auto *each : window->findChildren<QPushButton *>()) {
            if (each->text() == text)
                return each;
        }
        return nullptr;
    }
    QString message() const
    {
        const auto *label = window->findChild<QLabel *>(u"exportMessage"_s);
        return label->isVisible() ? label->text() : QString();
    }
    QString estimate() const
    {
        for (const auto *label : window->findChildren<QLabel *>()) {
            if (label->text().contains(u"ready in"_s))
                return label->text();
        }
        return {};
    }
    bool shows(const QString &text) const
    {
        return std::ranges::any_of(window->findChildren<QLabel *>(), [&](const QLabel *label) {
            return label->isVisible() && label->text() == text;
        });
    }
    QStringList targets() const
    {
        QStringList all;
        for (const ExportQueue::Entry &entry : queue.entries())
            all.append(QFileInfo(entry.request.target).fileName());
        return all;
    }
    const ExportRequest &first() const { return queue.entries().front().request; }
    void touch(const QString &file) const
    {
        QFile made(target() + u'/' + file);
        ASSERT_TRUE(made.open(QIODevice::WriteOnly));
    }

    std::shared_ptr<CollectedSong> result = std::make_shared<CollectedSong>();
    ExportQueue queue{
        {.reader = fakeSongReaderFactory(transport.song), .writer = collectingWriters(result)}};
    std::vector<SongFormat> formats = {SongFormat::Flac, SongFormat::Mp3};
    std::unique_ptr<Metronome> metronome;
    std::unique_ptr<SongSound> sound;
    std::unique_ptr<ExportWindow> window;
};

TEST_F(TheExportWindow, OffersTheLoopThatSoundsAndWritesItAsItIsHeard)
{
    const TrackRecordRef track = song(u"A"_s);
    track->artist = u"The As"_s;
    track->album = u"First"_s;
    ASSERT_EQ(transport.load(track), 0);
    addLoop(rate, 2 * rate, u"Intro"_s);
    const PracticeId riff = addLoop(10 * rate, 12 * rate, u"Riff"_s);
    ASSERT_TRUE(practice->play(riff));
    audio().setPlaybackSpeedPct(50.0F);
    audio().setEqLevelForIndex(6.0F, 3);
    open();
    ASSERT_TRUE(sound->change({.mode = ChannelMode::Swapped}));
    EXPECT_EQ(name()->text(), u"A - Riff 50 %"_s);
    EXPECT_TRUE(estimate().startsWith(u"0:04 "_s)) << estimate().toStdString();
    times()->setFloatValue(3.0F);
    Q_EMIT times()->entered(times());
    EXPECT_TRUE(estimate().startsWith(u"0:12 "_s)) << estimate().toStdString();
    button(u"Export"_s)->click();
    ASSERT_EQ(targets(), QStringList{u"A - Riff 50 %.flac"_s});
    EXPECT_EQ(first().passes.size(), 3U);
    EXPECT_EQ(first().passes[0].start, 10 * rate);
    EXPECT_EQ(first().passes[0].rate, 0.5F);
    EXPECT_EQ(first().levels[3], 6.0F);
    EXPECT_EQ(first().channels.mode, ChannelMode::Swapped);
    EXPECT_EQ(first().source, song(u"A"_s)->fileURL.toLocalFile());
    EXPECT_TRUE(first().sourceStamp);
    EXPECT_EQ(first().details.title, u"A - Riff 50 %"_s);
    EXPECT_EQ(first().details.artist, u"The As"_s);
    EXPECT_EQ(first().details.album, u"First"_s);
}

TEST_F(TheExportWindow, OffersALoopThatIsNotKept)
{
    load(u"A"_s);
    repeat(65 * 441 * 10, 70 * 441 * 10);
    open();
    EXPECT_EQ(name()->text(), u"A - 0.06-0.07"_s);
    button(u"Export"_s)->click();
    EXPECT_EQ(first().passes[0].end, 70 * 4410U);
}

TEST_F(TheExportWindow, OffersTheSongWithoutALoop)
{
    load(u"A"_s);
    open();
    EXPECT_EQ(window->form()->what(), ExportForm::What::Song);
    EXPECT_TRUE(estimate().startsWith(u"1:00 "_s));
    EXPECT_FALSE(aSwitch(u"Speed"_s)->isEnabled());
    EXPECT_FALSE(aSwitch(u"As the Ladder"_s)->isEnabled());
    window->form()->setWhat(ExportForm::What::EveryLoop);
    Q_EMIT window->form()->subjectChanged();
    EXPECT_FALSE(button(u"Export"_s)->isEnabled());
}

TEST_F(TheExportWindow, WritesEveryLoopToAFileOfItsOwn)
{
    load(u"A"_s);
    addLoop(rate, 2 * rate, u"Riff"_s);
    addLoop(3 * rate, 4 * rate, u"Riff"_s);
    addLoop(5 * rate, 6 * rate, u"AC/DC"_s);
    addLoop(7 * rate, 8 * rate);
    addLoop(59 * rate, 61 * rate, u"Beyond the song"_s);
    open();
    window->form()->setWhat(ExportForm::What::EveryLoop);
    Q_EMIT window->form()->subjectChanged();
    EXPECT_FALSE(name()->isEnabled());
    EXPECT_TRUE(estimate().startsWith(u"4 files: 0:04 "_s)) << estimate().toStdString();
    window->exportChosen();
    EXPECT_EQ(targets(), (QStringList{u"A - Riff.flac"_s, u"A - Riff (2).flac"_s,
                                      u"A - AC-DC.flac"_s, u"A - 0.07-0.08.flac"_s}));
}

TEST_F(TheExportWindow, WritesTheLadderOfALoop)
{
    load(u"A"_s);
    const PracticeId id = addLoop(rate, 2 * rate, u"Riff"_s);
    PracticeLoop loop = *record().loop(id);
    loop.trainer = TrainerSettings{.from = 60, .to = 80, .step = 10, .passes = 2};
    ASSERT_TRUE(practice->store().apply({PutLoop{loop}}));
    open();
    EXPECT_EQ(aSwitch(u"As the Ladder"_s)->text(), u"As the Ladder, 60 to 80 %"_s);
    aSwitch(u"As the Ladder"_s)->click();
    EXPECT_FALSE(times()->isEnabled());
    EXPECT_EQ(name()->text(), u"A - Riff 60-80 %"_s);
    window->exportChosen();
    EXPECT_EQ(first().passes.size(), 6U);
}

TEST_F(TheExportWindow, TakesTypedNamesWithSlashesAnd300Characters)
{
    load(u"A"_s);
    open();
    name()->clear();
    QTest::keyClicks(name(), u"../AC/DC"_s);
    QTest::keyClick(name(), Qt::Key_Return);
    const QString longName(300, u'x');
    name()->setText(longName);
    Q_EMIT name()->textEdited(longName);
    QTest::keyClick(name(), Qt::Key_Return);
    name()->clear();
    Q_EMIT name()->textEdited({});
    QTest::keyClick(name(), Qt::Key_Return);
    EXPECT_EQ(targets(),
              (QStringList{u"-AC-DC.flac"_s, QString(240, u'x') + u".flac"_s, u"A.flac"_s}));
}

TEST_F(TheExportWindow, AsksBeforeItReplacesAFile)
{
    load(u"A"_s);
    touch(u"A.flac"_s);
    open();
    const auto ask = [this]() -> QMessageBox * {
        window->exportChosen();
        return window->findChild<QMessageBox *>();
    };
    QMessageBox *box = ask();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text(), u"“A.flac” exists already. Replace it?"_s);
    box->button(QMessageBox::Cancel)->click();
    EXPECT_TRUE(targets().isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    box = ask();
    ASSERT_TRUE(box);
    for (QAbstractButton *each : box->buttons()) {
        if (box->buttonRole(each) == QMessageBox::AcceptRole)
            each->click();
    }
    EXPECT_EQ(targets(), QStringList{u"A.flac"_s});
    window->exportChosen();
    EXPECT_EQ(message(), u"“A.flac” is being exported already."_s);
    EXPECT_EQ(targets().size(), 1);
}

TEST_F(TheExportWindow, SaysThatTheFolderIsGone)
{
    load(u"A"_s);
    open();
    ASSERT_TRUE(QDir(target()).removeRecursively());
    window->exportChosen();
    EXPECT_EQ(message(), u"The folder is gone. Choose another one."_s);
    EXPECT_TRUE(targets().isEmpty());
    ASSERT_TRUE(QDir(m_disk.path()).mkdir(u"Lesson"_s));
    window->setFolder(m_disk.filePath(u"Lesson"_s));
    EXPECT_EQ(message(), QString());
    window->exportChosen();
    EXPECT_EQ(targets().size(), 1);
}

TEST_F(TheExportWindow, SaysThatNothingCanBeWrittenWithoutAnEncoder)
{
    formats = {};
    load(u"A"_s);
    open();
    EXPECT_TRUE(shows(u"Nothing can be exported here: the encoders are missing."_s));
    EXPECT_FALSE(button(u"Export"_s)->isEnabled());
    window->exportChosen();
    EXPECT_TRUE(targets().isEmpty());
}

TEST_F(TheExportWindow, RemembersFolderAndFormat)
{
    load(u"A"_s);
    open();
    window->form()->setFormats({SongFormat::Mp3}, SongFormat::Mp3);
    window->setFolder(m_disk.path());
    window->exportChosen();
    window.reset();
    EXPECT_EQ(exportSettings::folder(), m_disk.path());
    EXPECT_EQ(exportSettings::format(), SongFormat::Mp3);
    open();
    EXPECT_EQ(window->form()->format(), SongFormat::Mp3);
    EXPECT_EQ(window->folder(), m_disk.path());
    userDefaults().setValue(u"exportFormat"_s, u"tape"_s);
    EXPECT_EQ(exportSettings::format(), SongFormat::Flac);
}

TEST_F(TheExportWindow, CancelsTheSelectedExportByKey)
{
    load(u"A"_s);
    open();
    window->exportChosen();
    auto *list = window->findChild<QTableView *>();
    EXPECT_TRUE(list->isVisible());
    EXPECT_EQ(list->currentIndex().row(), 0);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(targets().size(), 1) << "Return in the list exports nothing";
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_TRUE(targets().isEmpty());
    EXPECT_FALSE(list->isVisible());
}

TEST_F(TheExportWindow, LeavesNamesTheRoomThatTheProgressDoesNotNeed)
{
    load(u"A"_s);
    open();
    window->exportChosen();
    const auto *list = window->findChild<QTableView *>();
    EXPECT_GT(list->columnWidth(ExportRows::State), 50);
    EXPECT_GT(list->columnWidth(ExportRows::Name), 3 * list->columnWidth(ExportRows::State));
}

TEST_F(TheExportWindow, FollowsThePlayer)
{
    load(u"A"_s);
    open();
    EXPECT_EQ(name()->text(), u"A"_s);
    load(u"B"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return name()->text() == u"B"_s; }, 60'000));
    audio().setPlaybackSpeedPct(80.0F);
    EXPECT_TRUE(QTest::qWaitFor([this] { return name()->text() == u"B 80 %"_s; }, 60'000));
    QTest::keyClicks(name(), u"!"_s);
    audio().setPlaybackSpeedPct(90.0F);
    window->form()->setWhat(ExportForm::What::Song);
    Q_EMIT window->form()->changed();
    EXPECT_TRUE(name()->text().startsWith(u'!')) << "what was typed stays";
}

TEST_F(TheExportWindow, HasNothingToExportAfterALoadThatFailed)
{
    load(u"A"_s);
    open();
    transport.song->openStatus = status::invalidFile;
    EXPECT_NE(transport.load(song(u"B"_s)), 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !button(u"Export"_s)->isEnabled(); }, 60'000));
}

TEST_F(TheExportWindow, ASongThatChangedSinceItWasLoadedIsNotExported)
{
    const TrackRecordRef track = song(u"A"_s);
    ASSERT_EQ(transport.load(track), 0);
    QFile file(track->fileURL.toLocalFile());
    ASSERT_TRUE(file.open(QIODevice::Append) && file.write("more") == 4);
    file.close();
    open();
    window->exportChosen();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !queue.isBusy(); }, 60'000));
    EXPECT_EQ(queue.entries().front().status, status::songChanged);
    const QString reason = exportText::problem(status::songChanged);
    EXPECT_EQ(message(), reason) << "it is too long for the list";
    auto *list = window->findChild<QTableView *>();
    list->setCurrentIndex({});
    EXPECT_EQ(message(), QString());
    list->selectRow(0);
    EXPECT_EQ(message(), reason);
}

} // namespace
