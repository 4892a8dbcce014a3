#include "pedals/PedalSets.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr int sustain = 64;
constexpr int soft = 67;
constexpr int expression = 11;

bool addSwitches(PedalMap &map, const PedalSetCommands &commands)
{
    const PedalControl right{.number = sustain};
    const PedalControl left{.number = soft};
    // The loop has a switch of its own, so that it acts at the moment of the press.
    return setSwitch(map, right, PedalGesture::Tap, commands.playOrPause) &&
           setSwitch(map, right, PedalGesture::DoubleTap, commands.nextLoop) &&
           setSwitch(map, right, PedalGesture::Hold, commands.train) &&
           setSwitch(map, left, PedalGesture::Tap, commands.loop) &&
           setSwitch(map, left, PedalGesture::DoubleTap, {}) &&
           setSwitch(map, left, PedalGesture::Hold, {});
}

} // namespace

PedalSetCommands usualSetCommands()
{
    return {.playOrPause = u"play or pause"_s,
            .loop = u"loop"_s,
            .nextLoop = u"next loop"_s,
            .train = u"train"_s,
            .volume = u"volume"_s};
}

bool addSet(PedalMap &map, PedalSet set, const std::vector<KeysOfCommand> &builtIn,
            const PedalSetCommands &commands)
{
    PedalMap changed = map;
    bool fits = true;
    switch (set) {
    case PedalSet::TwoSwitches:
        fits = addSwitches(changed, commands);
        break;
    case PedalSet::PageKeys:
        fits = setKey(changed, builtIn, u"PgDown"_s, commands.playOrPause) &&
               setKey(changed, builtIn, u"PgUp"_s, commands.loop);
        break;
    case PedalSet::ArrowKeys:
        fits = setKey(changed, builtIn, u"Down"_s, commands.playOrPause) &&
               setKey(changed, builtIn, u"Up"_s, commands.loop);
        break;
    case PedalSet::TwoAndExpression:
        fits = addSwitches(changed, commands) &&
               setDial(changed, {.number = expression}, PedalDial::Form::Position, commands.volume);
        break;
    }
    if (fits)
        map = std::move(changed);
    return fits;
}

} // namespace lyrabox
