#pragma once

#include "app/practice/PracticeCommands.h"

#include <QCoreApplication>

/// The parts of practiceCommands(), each a stretch of the menu.
namespace lyrabox::commandTable {

/// The context of all their texts.
struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::PracticeCommands)
};

QList<PracticeCommandEntry> play();
QList<PracticeCommandEntry> markers();
QList<PracticeCommandEntry> loopMoves();
QList<PracticeCommandEntry> trainer();
QList<PracticeCommandEntry> edits();
QList<PracticeCommandEntry> click();
QList<PracticeCommandEntry> sound();
QList<PracticeCommandEntry> wave();
QList<PracticeCommandEntry> history();
QList<PracticeCommandEntry> exports();
QList<PracticeCommandEntry> stand();
QList<PracticeCommandEntry> sharing();
QList<PracticeCommandEntry> beats();

} // namespace lyrabox::commandTable
