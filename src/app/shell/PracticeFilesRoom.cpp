#include "app/shell/PracticeFilesRoom.h"

#include "app/practice/PracticePane.h"
#include "app/practice/PracticeSharing.h"
#include "app/practice/SharingCommands.h"
#include "app/shell/FileDrop.h"
#include "app/shell/ProgramParts.h"
#include "platform/foundation/DiskPatience.h"
#include "practice/SharedPractice.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>
#include <functional>

namespace lyrabox {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::PracticeSharing)
};

/// The folder of the last file, in this run.
QString &lastFolder()
{
    static QString folder = QDir::homePath();
    return folder;
}

void choose(QWidget *window, const QString &path, const std::function<void(const QString &)> &use)
{
    if (path.isEmpty())
        return;
    lastFolder() = QFileInfo(path).absolutePath();
    window->activateWindow();
    use(path);
}

void share(QWidget *window, PracticeSharing *sharing, bool isLabelTrack)
{
    const QString ending = isLabelTrack ? QStringLiteral(".txt") : QStringLiteral(".json");
    QString path = QFileDialog::getSaveFileName(
        window, isLabelTrack ? Text::tr("Share as Label Track") : Text::tr("Share Practice"),
        QDir(lastFolder()).filePath(sharing->suggestedName(isLabelTrack)),
        isLabelTrack ? Text::tr("Label tracks (*.txt)") : Text::tr("Practice files (*.json)"));
    if (!path.isEmpty() && !path.endsWith(ending, Qt::CaseInsensitive))
        path += ending;
    choose(window, path, [sharing](const QString &chosen) { sharing->share(chosen); });
}

void open(QWidget *window, PracticeSharing *sharing)
{
    const QString path =
        QFileDialog::getOpenFileName(window, Text::tr("Open Practice"), lastFolder(),
                                     Text::tr("Practice files and label tracks (*.json *.txt)"));
    choose(window, path, [sharing](const QString &chosen) { sharing->open(chosen); });
}

} // namespace

void addPracticeSharing(ProgramParts &parts, PracticePane *pane)
{
    PracticeSharing *sharing = pane->sharing();
    auto *commands = new SharingCommands(sharing, pane->practice(), pane);
    pane->addCommands(commands);
    QWidget *window = &parts.mainWindow;
    QObject::connect(
        commands, &SharingCommands::shareWanted, window,
        [window, sharing](bool isLabelTrack) { share(window, sharing, isLabelTrack); });
    QObject::connect(commands, &SharingCommands::openWanted, window,
                     [window, sharing] { open(window, sharing); });
    new FileDrop(pane, [&parts](const QList<QUrl> &urls) { parts.open(urls); });
}

QList<QUrl> openPracticeFiles(ProgramParts &parts, const QList<QUrl> &urls)
{
    // A text that lies beside songs is none that the user meant.
    const bool hasOthers = std::ranges::any_of(
        urls, [](const QUrl &file) { return !PracticeSharing::isShared(file.toLocalFile()); });
    if (hasOthers)
        return urls;
    PaneSite *site = parts.practice.get();
    QList<QUrl> rest;
    for (const QUrl &file : urls) {
        const QString path = file.toLocalFile();
        using Problem = SharedPractice::Problem;
        const bool isOther = !site->isOpen() && files::askPatiently<Problem>(path, [path] {
                                                    return loadShared(path).problem;
                                                }) == Problem::Unknown;
        if (isOther) {
            rest.append(file);
            continue;
        }
        site->setOpen(true);
        site->showPane();
        site->pane()->sharing()->open(path);
    }
    return rest;
}

} // namespace lyrabox
