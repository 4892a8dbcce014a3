#include "engine/AudioEngine.h"

#include "engine/AudioEngineControl.h"
#include "platform/audio/SoundRanges.h"

#include <array>
#include <utility>

namespace lyrabox::engine {

namespace {

using Lock = std::lock_guard<std::mutex>;

/// The values that survive a change of the output device.
struct CarriedValues {
    float volume;
    float rate;
    float pitch;
    std::array<float, equalizerControls> levels;
};

CarriedValues readValues(const Chain &chain)
{
    CarriedValues values{};
    values.volume = chain.output->parameter(parameter::outputVolume);
    values.rate = chain.timePitch->parameter(parameter::rate);
    values.pitch = chain.timePitch->parameter(parameter::pitch);
    for (std::uint32_t i = 0; i < equalizerControls; ++i)
        values.levels[i] = chain.equalizer->parameter(equalizerBandOfControl(i));
    return values;
}

void writeValues(const Chain &chain, const CarriedValues &values)
{
    chain.output->setParameter(parameter::outputVolume, values.volume);
    chain.timePitch->setParameter(parameter::rate, values.rate);
    chain.timePitch->setParameter(parameter::pitch, values.pitch);
    for (std::uint32_t i = 0; i < equalizerControls; ++i)
        chain.equalizer->setParameter(equalizerBandOfControl(i), values.levels[i]);
}

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

Status buildChain(Chain &chain)
{
    auto &factory = control().factory;
    if (!factory.equalizer && !factory.timePitch && !factory.output)
        factory = platformAudioUnits();

    if (const Status status = openUnit(factory.equalizer, chain.equalizer))
        return status;
    if (const Status status = openUnit(factory.timePitch, chain.timePitch))
        return status;
    if (const Status status = openOutput(chain.output))
        return status;
    if (const Status status = chain.output->connect(chain.timePitch.get()))
        return status;
    if (const Status status = chain.timePitch->connect(chain.equalizer.get()))
        return status;
    chain.format = chain.equalizer->streamFormat();
    if (const Status status = chain.equalizer->setRenderCallback(renderCallback, nullptr))
        return status;
    if (const Status status = listenToDefaultOutput())
        return status;
    // The last step of every build, although it has no effect: docs/kept-on-purpose.md.
    return chain.equalizer->setParameter(parameter::equalizerFixed, 0.0F);
}

/// Exchanges `chain` with the engine's chain. No callback may be running.
void exchangeChain(Chain &chain)
{
    std::swap(control().chain, chain);
    const Chain &current = control().chain;
    if (control().isPrepared && current.timePitch)
        current.timePitch->prepare();
    state().eqUnit = current.equalizer.get();
    state().timePitchUnit.store(current.timePitch.get(), std::memory_order_release);
    state().outputUnit.store(current.output.get(), std::memory_order_release);
    state().streamFormat = current.format;
    state().channelIndex.store(0, std::memory_order_relaxed);
}

/// Whether frames of an ended song are to be kept, and still sound.
bool keepsHeldSound()
{
    const OutputUnit *output = control().chain.output.get();
    return control().heldSoundIsKept && output && output->isPlayingOut();
}

void setSoundStatus(Status status)
{
    if (std::exchange(control().soundStatus, status) != status && control().soundStatusHook)
        control().soundStatusHook();
}

/// Stops the output. This may reveal that the server hangs.
void halt(OutputUnit &output)
{
    output.stop();
    if (const Status status = output.deviceStatus())
        setSoundStatus(status);
}

/// Starts or stops the output. A start that fails is repeated when a device comes back.
void runOutput(bool running)
{
    OutputUnit *output = control().chain.output.get();
    if (!output)
        return;
    if (!running) {
        if (keepsHeldSound())
            control().haltIsDue = true;
        else
            halt(*output);
        control().runOnNextDevice = false;
        return;
    }
    control().chain.timePitch->awaitReady();
    const Status status = output->start();
    control().waitsForDevice = status != status::noError;
    control().runOnNextDevice = true;
    setSoundStatus(status);
}

/// Replaces the chain by a new one with the same values, and starts it if `run` is true. The old
/// chain ends up in `fresh`. The caller releases it after unlocking the mutex.
void rebuild(Chain &fresh, bool run)
{
    control().chain.output->stop();
    const CarriedValues values = readValues(control().chain);
    if (const Status status = buildChain(fresh)) {
        control().waitsForDevice = true;
        control().runOnNextDevice = run;
        setSoundStatus(status);
        return;
    }
    exchangeChain(fresh);
    control().waitsForDevice = false;
    writeValues(control().chain, values);
    if (!run)
        setSoundStatus(control().chain.output->deviceStatus());
    runOutput(run);
}

} // namespace

AudioEngineState &state()
{
    static AudioEngineState theState;
    return theState;
}

ReadingPointExchange &reading()
{
    static ReadingPointExchange theExchange;
    return theExchange;
}

void placeAtFrame(std::uint64_t frame)
{
    state().currentFrame.store(frame, std::memory_order_release);
    reading().seekCount.fetch_add(1, std::memory_order_release);
}

Control &control()
{
    static auto *const theControl = new Control;
    return *theControl;
}

void setAudioUnitFactory(AudioUnitFactory factory)
{
    const Lock lock(control().mutex);
    control().factory = std::move(factory);
}

Status buildAudioSystem()
{
    Chain fresh; // later the old chain, which is released after the mutex
    const Lock lock(control().mutex);
    const Status status = buildChain(fresh);
    Chain &current = control().chain;
    if (status != status::noError && current.output)
        return status;
    if (current.output)
        current.output->stop();
    exchangeChain(fresh);
    control().waitsForDevice = false;
    control().runOnNextDevice = false;
    if (status == status::noError)
        setSoundStatus(current.output->deviceStatus());
    return status;
}

void prepareForPlayback()
{
    const Lock lock(control().mutex);
    control().isPrepared = true;
    if (control().chain.timePitch)
        control().chain.timePitch->prepare();
}

Status defaultOutputChanged()
{
    Chain chain;
    const Lock lock(control().mutex);
    const OutputUnit *old = control().chain.output.get();
    if (!old)
        return status::noError;

    rebuild(chain, control().waitsForDevice ? control().runOnNextDevice : old->isRunning());
    return status::noError;
}

void tearDownAudioSystem()
{
    Chain chain;
    std::unique_ptr<DefaultOutputWatcher> watcher;
    {
        const Lock lock(control().mutex);
        if (control().chain.output)
            control().chain.output->stop();
        control().isPrepared = false;
        control().heldSoundIsKept = false;
        control().haltIsDue = false;
        exchangeChain(chain);
        watcher = std::move(control().watcher);
        control().waitsForDevice = false;
        control().soundStatus = status::noError;
    }
    // The chain goes before the watcher, because the output may still call the watcher. The
    // watcher's thread may be waiting for the mutex. Its notification then finds no chain.
    {
        const Chain released = std::move(chain);
    }
    watcher.reset();

    releaseChannelBuffers(maximumChannels, ReleasedBuffers::None);
    state().albumArtData = {};
    state().totalFrames = 0;
    placeAtFrame(0);
    state().loopStartFrame = 0;
    state().loopEndFrame = 0;
    state().isLooping = false;
    state().trackHasEnded = false;
}

void setOutputRunning(bool running)
{
    Chain replaced; // released after the mutex
    const Lock lock(control().mutex);
    runOutput(running);
    // Only the stream may be lost, while the device is still there. If the server hangs, the
    // watcher asks for a rebuild itself.
    if (running && control().waitsForDevice && control().soundStatus != status::soundServerHangs)
        rebuild(replaced, true);
}

bool outputIsRunning()
{
    const Lock lock(control().mutex);
    if (control().waitsForDevice)
        return control().runOnNextDevice;
    return control().chain.output && control().chain.output->isRunning();
}

Status soundStatus()
{
    const Lock lock(control().mutex);
    const OutputUnit *output = control().chain.output.get();
    return control().soundStatus == status::noError && output ? output->deviceStatus()
                                                              : control().soundStatus;
}

void setSoundStatusHook(std::function<void()> hook)
{
    const Lock lock(control().mutex);
    control().soundStatusHook = std::move(hook);
}

void seekToFrame(std::uint64_t frame)
{
    const Lock lock(control().mutex);
    placeAtFrame(frame);
    const Chain &chain = control().chain;
    const bool keeps = keepsHeldSound();
    if (chain.output && !keeps)
        chain.output->reset();
    if (chain.timePitch && keeps)
        chain.timePitch->resetAfterPlayOut();
    else if (chain.timePitch)
        chain.timePitch->reset();
    if (chain.equalizer)
        chain.equalizer->reset();
}

void setHeldSoundIsKept(bool kept)
{
    const Lock lock(control().mutex);
    control().heldSoundIsKept = kept;
}

void haltWhenPlayedOut()
{
    const Lock lock(control().mutex);
    OutputUnit *output = control().chain.output.get();
    if (!control().haltIsDue || (output && output->isPlayingOut()))
        return;
    control().haltIsDue = false;
    if (output && !output->isRunning())
        halt(*output);
}

} // namespace lyrabox::engine
