#include "engine/AudioEngine.h"

#include "engine/AudioEngineControl.h"

#include <utility>
#include <vector>

namespace lyrabox::engine {

namespace {

using Lock = std::lock_guard<std::mutex>;

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

/// Whether the last frames of an ended song are kept and still playing.
bool keepsHeldSound()
{
    const OutputUnit *output = control().chain.output.get();
    return control().heldSoundIsKept && output && output->isPlayingOut();
}

bool isRunningLocked()
{
    if (control().waitsForDevice)
        return control().runOnNextDevice;
    return control().chain.output && control().chain.output->isRunning();
}

void seekLocked(std::uint64_t frame)
{
    placeAtFrame(frame);
    resetChain(control().chain, keepsHeldSound() ? HeldSound::PlayOut : HeldSound::Drop);
}

/// The lead-in of a start. It comes before what is heard next, so what the stages hold is dropped
/// and read again behind it.
void requestLeadIn()
{
    ReadingPointExchange &exchange = reading();
    const bool isWanted = exchange.atStart.frames > 0;
    if (isWanted)
        seekLocked(heardFrameLocked());
    // One of an earlier start that no callback has taken must not come now.
    if (isWanted || exchange.startIsRequested)
        exchange.leadIn.request(exchange.atStart);
    exchange.startIsRequested = isWanted;
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

enum class AfterRebuild { Stay, Run };

/// Replaces the chain by a new one with the same values. The old chain ends up in `fresh`. The
/// caller releases it after unlocking the mutex.
void rebuild(Chain &fresh, AfterRebuild after)
{
    const bool run = after == AfterRebuild::Run;
    control().chain.output->stop();
    std::vector<float> values;
    for (const CarriedParameter &carried : carriedParameters(control().chain))
        values.push_back(carried.unit->parameter(carried.id));
    if (const Status status = buildChain(fresh)) {
        control().waitsForDevice = true;
        control().runOnNextDevice = run;
        setSoundStatus(status);
        // A server that is starting may report its device before it can play to it.
        if (status == status::noAudioDevice && control().watcher)
            control().watcher->requestCall();
        return;
    }
    exchangeChain(fresh);
    control().waitsForDevice = false;
    const std::vector<CarriedParameter> parameters = carriedParameters(control().chain);
    for (std::size_t i = 0; i < parameters.size(); ++i)
        parameters[i].unit->setParameter(parameters[i].id, values[i]);
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

    const bool run = control().waitsForDevice ? control().runOnNextDevice : old->isRunning();
    rebuild(chain, run ? AfterRebuild::Run : AfterRebuild::Stay);
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
    // The chain is destroyed before the watcher, because the output may still call the watcher. The
    // watcher's thread may be waiting for the mutex. Its notification then finds no chain.
    {
        const Chain released = std::move(chain);
    }
    watcher.reset();

    installSong(nullptr);
    state().albumArtData = {};
    state().totalFrames = 0;
    placeAtFrame(0);
    state().loopStartFrame = 0;
    state().loopEndFrame = 0;
    state().isLooping = false;
    state().trackHasEnded = false;
}

void expectOutputStart()
{
    const Lock lock(control().mutex);
    if (control().chain.output && !control().waitsForDevice)
        control().chain.output->expectStart();
}

void setOutputRunning(bool running)
{
    Chain replaced; // released after the mutex
    const Lock lock(control().mutex);
    if (running && !isRunningLocked())
        requestLeadIn();
    runOutput(running);
    // Perhaps only the stream is lost, and the device is still there. If the server hangs, the
    // watcher asks for a rebuild itself.
    if (running && control().waitsForDevice && control().soundStatus != status::soundServerHangs)
        rebuild(replaced, AfterRebuild::Run);
}

bool outputIsRunning()
{
    const Lock lock(control().mutex);
    return isRunningLocked();
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
    seekLocked(frame);
}

void startAtFrame(std::uint64_t frame)
{
    const Lock lock(control().mutex);
    // A callback between the seek and its lead-in would play a slice of the song.
    const bool restarts = isRunningLocked() && reading().atStart.frames > 0;
    OutputUnit *output = control().waitsForDevice ? nullptr : control().chain.output.get();
    if (restarts && output)
        output->stop();
    seekLocked(frame);
    if (!restarts)
        return;
    requestLeadIn();
    if (output)
        runOutput(true);
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
