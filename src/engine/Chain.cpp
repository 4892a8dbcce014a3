#include "engine/Chain.h"

#include "engine/AudioEngineControl.h"
#include "platform/audio/SoundRanges.h"

namespace lyrabox::engine {

namespace {

template <typename Unit>
Status openUnit(const std::function<std::unique_ptr<Unit>()> &make, std::unique_ptr<Unit> &unit)
{
    unit = make ? make() : nullptr;
    return unit ? unit->initialize() : missingComponent;
}

/// An output that loses its device asks the watcher for a rebuild.
Status openOutput(std::unique_ptr<OutputUnit> &output)
{
    auto &watcher = control().watcher;
    if (!watcher && control().factory.defaultOutputWatcher)
        watcher = control().factory.defaultOutputWatcher();
    output = control().factory.output ? control().factory.output() : nullptr;
    if (!output)
        return missingComponent;
    if (watcher) // It outlives every output.
        output->setLossListener([asked = watcher.get()] { asked->requestCall(); });
    return output->initialize();
}

Status listenToDefaultOutput()
{
    const auto &watcher = control().watcher;
    return watcher ? watcher->listen([] { defaultOutputChanged(); }) : missingComponent;
}

} // namespace

Status buildChain(Chain &chain)
{
    auto &factory = control().factory;
    if (!factory.equalizer && !factory.timePitch && !factory.output)
        factory = platformAudioUnits();

    if (const Status status = openUnit(factory.equalizer, chain.equalizer))
        return status;
    if (const Status status = openUnit(factory.timePitch, chain.timePitch))
        return status;
    if (factory.click) {
        if (const Status status = openUnit(factory.click, chain.click))
            return status;
        if (const Status status = chain.click->connect(chain.timePitch.get(), &reading().clicks))
            return status;
    }
    if (const Status status = openOutput(chain.output))
        return status;
    RenderingUnit *last = chain.timePitch.get();
    if (chain.click)
        last = chain.click.get();
    if (const Status status = chain.output->connect(last))
        return status;
    if (const Status status = chain.timePitch->connect(chain.equalizer.get()))
        return status;
    chain.format = chain.equalizer->streamFormat();
    if (const Status status = chain.equalizer->setRenderCallback(renderCallback, nullptr))
        return status;
    if (const Status status = listenToDefaultOutput())
        return status;
    // Has no effect, but is the last step of every build: docs/kept-on-purpose.md.
    return chain.equalizer->setParameter(parameter::equalizerFixed, 0.0F);
}

void resetChain(const Chain &chain, HeldSound held)
{
    if (chain.output && held == HeldSound::Drop)
        chain.output->reset();
    if (chain.timePitch && held == HeldSound::PlayOut)
        chain.timePitch->resetAfterPlayOut();
    else if (chain.timePitch)
        chain.timePitch->reset();
    if (chain.equalizer)
        chain.equalizer->reset();
}

std::vector<CarriedParameter> carriedParameters(const Chain &chain)
{
    std::vector<CarriedParameter> parameters{
        {.unit = chain.output.get(), .id = parameter::outputVolume},
        {.unit = chain.timePitch.get(), .id = parameter::rate},
        {.unit = chain.timePitch.get(), .id = parameter::pitch}};
    for (std::uint32_t i = 0; i < equalizerControls; ++i)
        parameters.push_back({.unit = chain.equalizer.get(), .id = equalizerBandOfControl(i)});
    return parameters;
}

} // namespace lyrabox::engine
