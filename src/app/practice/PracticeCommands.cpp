#include "app/practice/PracticeCommands.h"

#include <QCoreApplication>

#include <algorithm>

namespace lyrabox {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::PracticeCommands)
};

} // namespace

QString PracticeCommandEntry::name() const
{
    return QString(text).remove(u'&');
}

QString PracticeCommandEntry::keyText() const
{
    return keys.isEmpty() ? QString() : keys.first().toString(QKeySequence::NativeText);
}

QList<PracticeCommandEntry> practiceCommands()
{
    return {
        {PracticeCommand::ZoomIn,
         Text::tr("Zoom &In"),
         {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}},
        {PracticeCommand::ZoomOut, Text::tr("Zoom &Out"), {Qt::CTRL | Qt::Key_Minus}},
        {PracticeCommand::ZoomToLoop, Text::tr("Zoom to &Loop"), {Qt::Key_Z}},
        {PracticeCommand::WholeSong, Text::tr("&Whole Song"), {Qt::Key_W}},
        {PracticeCommand::Follow,
         Text::tr("&Follow"),
         {Qt::CTRL | Qt::SHIFT | Qt::Key_F},
         true,
         true},
    };
}

PracticeCommandEntry practiceCommand(PracticeCommand command)
{
    const QList<PracticeCommandEntry> all = practiceCommands();
    return *std::ranges::find(all, command, &PracticeCommandEntry::command);
}

} // namespace lyrabox
