#include "soak/PresetWatch.h"

#include "platform/ui/Popover.h"
#include "soak/Widgets.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::soak {
namespace {

/// The questions that the popover of the presets has asked since the last call.
QStringList &questions()
{
    static QStringList closed = [] {
        const QWidget *window = topLevel(u"EqualizerWindow"_s);
        auto *popover = window->findChild<Popover *>();
        QObject::connect(popover, &Popover::closed, popover,
                         [popover] { questions().append(popover->accessibleName()); });
        return QStringList();
    }();
    return closed;
}

} // namespace

QStringList lostPresets(const EqPresetList &presets)
{
    static EqPresetList known;
    static QStringList lost;
    for (const EqPresetRef &preset : known) {
        if (std::find(presets.begin(), presets.end(), preset) != presets.end())
            continue;
        const bool wasAsked = questions().removeOne(u"Remove preset '%1'?"_s.arg(preset->name));
        if (preset->persistent || !wasAsked)
            lost.append(preset->name);
    }
    questions().clear();
    known = presets;
    return lost;
}

} // namespace lyrabox::soak
