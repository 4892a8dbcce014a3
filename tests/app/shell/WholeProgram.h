#pragma once

#include "app/shell/Composition.h"
#include "engine/AudioEngine.h"
#include "support/FakeAudioUnits.h"
#include "support/FakeSong.h"

#include <QApplication>
#include <QMainWindow>

#include <gtest/gtest.h>

#include <memory>

namespace lyrabox::test {

/// Both windows and all controllers, with a fake chain of audio units. Every path "decodes" to a
/// song. Not launched yet. Only one object at a time.
class WholeProgram {
public:
    WholeProgram()
    {
        engine::tearDownAudioSystem();
        engine::setAudioUnitFactory(audio.factory());
        engine::setSongReaderFactory(fakeSongReaderFactory(song));
        composition = std::make_unique<Composition>();
        composition->setAudio(
            std::make_unique<LB_AudioController>(LB_AudioController::FatalErrorHandling{
                [](const QString &, const QString &) { FAIL() << "the engine was not built"; },
                [] {}}));
    }

    ~WholeProgram()
    {
        composition.reset();
        engine::tearDownAudioSystem();
        engine::setAudioUnitFactory({});
        engine::setSongReaderFactory({});
    }

    WholeProgram(const WholeProgram &) = delete;
    WholeProgram &operator=(const WholeProgram &) = delete;

    static QMainWindow *window(const QString &name)
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == name)
                return qobject_cast<QMainWindow *>(widget);
        }
        return nullptr;
    }

    FakeAudio audio;
    std::shared_ptr<FakeSong> song = std::make_shared<FakeSong>();
    std::unique_ptr<Composition> composition;
};

} // namespace lyrabox::test
