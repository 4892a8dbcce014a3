#include "soak/Trials.h"

#include "app/controls/LB_Slider.h"
#include "engine/LB_AudioController.h"
#include "library/TrackTableModel.h"
#include "platform/ui/ButtonMatrix.h"
#include "soak/Widgets.h"

#include <QAction>
#include <QTableView>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::soak {
namespace {

/// Tags of the cells of the step buttons.
enum StepTag { Down = 0, Reset = 1, Up = 2 };

/// Speed or pitch, and what its step buttons do.
struct Stepped {
    QString name;
    ButtonMatrix *matrix;
    const LB_Slider *slider;
    float (*value)(const LB_AudioController &);
    float normal;
    float step;
};

void tryToReturn(const Stepped &stepped, const LB_AudioController &audio, QStringList &broken)
{
    constexpr int away = 3;
    constexpr int most = 60; // More than from one end to the other.
    const auto now = [&] { return stepped.value(audio); };
    const auto require = [&](bool holds, const QString &how) {
        if (!holds)
            broken.append(u"%1 is %2 and not %3 %4"_s.arg(stepped.name)
                              .arg(static_cast<double>(now()), 0, 'g', 10)
                              .arg(stepped.normal)
                              .arg(how));
    };

    // If the value is whole steps away from normal, the step buttons alone lead back to it.
    const float steps = (now() - stepped.normal) / stepped.step;
    if (std::abs(steps - std::round(steps)) * stepped.step < 0.01F) {
        const int tag = now() > stepped.normal ? Down : Up;
        for (int press = 0; press < most && std::abs(now() - stepped.normal) > stepped.step / 2;
             ++press)
            stepped.matrix->pressCellWithTag(tag);
        require(now() == stepped.normal, u"after steps towards it"_s);
    }
    stepped.matrix->pressCellWithTag(Reset);
    require(now() == stepped.normal, u"after its reset"_s);
    for (const int tag : {Down, Up}) {
        for (int press = 0; press < away; ++press)
            stepped.matrix->pressCellWithTag(tag);
        for (int press = 0; press < away; ++press)
            stepped.matrix->pressCellWithTag(Up - tag);
        require(now() == stepped.normal, u"after %1 steps there and back"_s.arg(away));
    }
}

QAction *commandWithText(const QString &text)
{
    for (const QWidget *window : QApplication::topLevelWidgets()) {
        for (QAction *action : window->findChildren<QAction *>()) {
            if (QString(action->text()).remove(u'&') == text)
                return action;
        }
    }
    return nullptr;
}

} // namespace

QStringList normalIsReachable()
{
    const LB_AudioController *audio = audioController();
    if (audio == nullptr)
        return {};
    QStringList broken;
    tryToReturn({u"the speed"_s, widget<ButtonMatrix>(u"playbackSpeedMatrix"_s),
                 audio->playbackSpeedSlider(),
                 [](const LB_AudioController &of) { return of.playbackSpeedPct(); }, 100.0F, 5.0F},
                *audio, broken);
    tryToReturn({u"the pitch"_s, widget<ButtonMatrix>(u"playbackPitchMatrix"_s),
                 audio->playbackPitchSlider(),
                 [](const LB_AudioController &of) { return of.playbackPitch(); }, 0.0F, 100.0F},
                *audio, broken);
    return broken;
}

QStringList ownOrderIsReachable()
{
    if (audioController() == nullptr)
        return {};
    const QAction *command = commandWithText(u"Own Order"_s);
    if (command == nullptr)
        return {};
    chooseCommand(u"Own Order"_s); // A disabled command means that the list is in its own order
                                   // already.
    const auto *table = widget<QTableView>(u"trackTableView"_s);
    const auto *model = qobject_cast<const TrackTableModel *>(table->model());
    const auto &songs = model->arrangedObjects();
    const bool isOwn = std::is_sorted(
        songs.begin(), songs.end(),
        [](const TrackRecordRef &a, const TrackRecordRef &b) { return a->order < b->order; });
    return isOwn ? QStringList() : QStringList{u"the list is not in its own order"_s};
}

bool chooseCommand(const QString &text)
{
    QAction *command = commandWithText(text);
    if (command == nullptr || !command->isEnabled())
        return false;
    command->trigger();
    return true;
}

} // namespace lyrabox::soak
