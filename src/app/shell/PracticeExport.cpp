#include "app/shell/PracticeExport.h"

#include "app/export/ExportCommands.h"
#include "app/export/ExportText.h"
#include "app/practice/PracticePane.h"
#include "app/shell/ProgramParts.h"
#include "app/shell/WindowMemory.h"
#include "platform/audio/EncodingModule.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMessageBox>

namespace lyrabox {

namespace {

/// The context of the texts.
struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::PracticeExport)
};

/// While the export window is shown, it says itself why an export failed.
void tellFailure(const ProgramParts &parts, const QString &target, Status status)
{
    if (parts.exportWindow->isVisible())
        return;
    auto *box =
        new QMessageBox(QMessageBox::Warning, Text::tr("Export"),
                        Text::tr("“%1” could not be exported.").arg(QFileInfo(target).fileName()),
                        QMessageBox::Ok, parts.mainWindow.window());
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(exportText::problem(status));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

ExportWindow *makeWindow(ProgramParts &parts)
{
    parts.exportQueue = std::make_unique<ExportQueue>();
    parts.exportWindow =
        std::make_unique<ExportWindow>(ExportWindow::Outlets{.audio = parts.audio.get(),
                                                             .practice = parts.songPractice.get(),
                                                             .sound = parts.songSound.get(),
                                                             .metronome = parts.metronome.get(),
                                                             .queue = parts.exportQueue.get(),
                                                             .formats = encodingModule().formats()},
                                       &parts.mainWindow);
    QObject::connect(
        parts.exportQueue.get(), &ExportQueue::failed, parts.exportWindow.get(),
        [&parts](const QString &target, Status status) { tellFailure(parts, target, status); });
    return parts.exportWindow.get();
}

} // namespace

void addPracticeExport(ProgramParts &parts, PracticePane *pane)
{
    auto *commands = new ExportCommands(parts.songPractice.get(), pane);
    pane->addCommands(commands);
    QObject::connect(commands, &ExportCommands::exportWanted, pane, [&parts] {
        ExportWindow *window = parts.exportWindow ? parts.exportWindow.get() : makeWindow(parts);
        bringToFront(window);
    });
}

} // namespace lyrabox
