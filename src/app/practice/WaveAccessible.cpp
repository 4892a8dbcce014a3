#include "app/practice/WaveAccessible.h"

#include "app/practice/BarText.h"
#include "app/practice/PaneDivider.h"
#include "app/practice/TimeRuler.h"
#include "app/practice/WaveView.h"
#include "engine/LB_AudioController.h"

#include <algorithm>
#include <cstdint>

namespace lyrabox {

namespace {

constexpr double stepSeconds = 0.1;

QAccessibleInterface *createInterface(const QString &className, QObject *object)
{
    if (className == QLatin1String("lyrabox::WaveView"))
        return new WaveAccessible(static_cast<WaveView *>(object));
    if (className == QLatin1String("lyrabox::PaneDivider"))
        return new PaneDividerAccessible(static_cast<PaneDivider *>(object));
    return nullptr;
}

} // namespace

WaveAccessible::WaveAccessible(WaveView *view) : QAccessibleWidget(view, QAccessible::Slider) {}

WaveView *WaveAccessible::view() const
{
    return static_cast<WaveView *>(widget());
}

double WaveAccessible::rate() const
{
    return view()->audio()->audioBufferFormat().mSampleRate;
}

void *WaveAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString WaveAccessible::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Value && kind != QAccessible::Description)
        return QAccessibleWidget::text(kind);
    const auto time = [this](double frame) {
        return timeRuler::exactText(rate() > 0.0 ? frame / rate() : 0.0);
    };
    QString place = time(view()->line());
    const auto heard = static_cast<std::uint64_t>(std::max(0.0, view()->line()));
    if (const QString bar = barText::place(view()->shownGrid(), heard); !bar.isEmpty())
        place = WaveView::tr("%1, bar %2").arg(place, bar);
    const std::optional<LoopRange> loop = view()->shownLoop();
    if (!loop)
        return place;
    return WaveView::tr("%1, loop from %2 to %3")
        .arg(place, time(static_cast<double>(loop->start)), time(static_cast<double>(loop->end)));
}

QVariant WaveAccessible::currentValue() const
{
    return rate() > 0.0 ? view()->line() / rate() : 0.0;
}

void WaveAccessible::setCurrentValue(const QVariant &value)
{
    view()->seekTo(value.toDouble() * rate());
}

QVariant WaveAccessible::maximumValue() const
{
    return rate() > 0.0 ? static_cast<double>(view()->audio()->totalFrames()) / rate() : 0.0;
}

QVariant WaveAccessible::minimumStepSize() const
{
    return stepSeconds;
}

void installAccessibleWave()
{
    static const bool installed = [] {
        QAccessible::installFactory(createInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

} // namespace lyrabox
