// Long because the fakes of one chain share a state that is private to this file.

#include "support/FakeAudioUnits.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <mutex>
#include <sstream>
#include <thread>

namespace lyrabox::test {

namespace {

/// The most frames that a device pulls at once.
constexpr std::uint32_t largestPull = 65536;

/// The parameters of a unit. Any thread reads them; the control side writes them.
class Parameters {
public:
    float value(std::uint32_t id) const
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_values.find(id);
        return found == m_values.end() ? 0.0F : found->second;
    }
    void set(std::uint32_t id, float value)
    {
        const std::lock_guard lock(m_mutex);
        m_values[id] = value;
    }

private:
    mutable std::mutex m_mutex;
    std::map<std::uint32_t, float> m_values;
};

/// The part of a fake output that is pulled. It may outlive the unit.
struct Device {
    std::mutex mutex; ///< held while a callback runs
    RenderingUnit *source = nullptr;
    std::atomic<bool> running = false;
    std::atomic<std::thread::id> callbackThread{};
    std::function<void()> lossListener;
};

template <typename Part>
std::shared_ptr<Part> newest(const std::vector<std::weak_ptr<Part>> &parts)
{
    for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
        if (auto alive = part->lock())
            return alive;
    }
    return nullptr;
}

float valueOfNewest(const std::vector<std::weak_ptr<Parameters>> &units, std::uint32_t id)
{
    const auto parameters = newest(units);
    return parameters ? parameters->value(id) : 0.0F;
}

AudioBuffer bufferOf(std::vector<float> &samples, std::size_t offset, std::uint32_t frames)
{
    return {.mNumberChannels = 1,
            .mDataByteSize = static_cast<std::uint32_t>(frames * sizeof(float)),
            .mData = samples.data() + offset};
}

} // namespace

struct FakeAudio::State {
    mutable std::mutex mutex; ///< guards everything that is not atomic
    std::map<FakeStep, Status> failures;
    std::map<FakeStep, Status> singleFailures;
    std::vector<std::string> calls;
    // One for every unit made. Those of destroyed units have expired.
    std::vector<std::weak_ptr<Device>> devices;
    std::vector<std::weak_ptr<Parameters>> equalizers;
    std::vector<std::weak_ptr<Parameters>> timePitches;
    std::vector<std::weak_ptr<Parameters>> outputs;
    std::function<void()> listener;
    std::map<std::string, int> made;
    std::atomic<int> alive = 0;
    std::atomic<int> callsRequested = 0;
    std::atomic<std::uint32_t> sliceFrames = TimePitchUnit::sliceFrames;
    std::atomic<std::uint64_t> slices = 0;

    Status statusAt(FakeStep step)
    {
        const std::lock_guard lock(mutex);
        if (const auto single = singleFailures.extract(step))
            return single.mapped();
        const auto found = failures.find(step);
        return found == failures.end() ? 0 : found->second;
    }
    void record(const std::string &call)
    {
        const std::lock_guard lock(mutex);
        calls.push_back(call);
    }
    std::string nameOfNew(const std::string &kind)
    {
        const std::lock_guard lock(mutex);
        return kind + std::to_string(++made[kind]);
    }
};

namespace {

using StateRef = std::shared_ptr<FakeAudio::State>;

/// The common part of all fake units.
template <typename Interface>
class FakeUnit : public Interface {
public:
    FakeUnit(StateRef state, const std::string &kind, FakeStep initializeStep, float initialOfFirst)
        : m_state(std::move(state)),
          m_name(m_state->nameOfNew(kind)),
          m_initializeStep(initializeStep)
    {
        ++m_state->alive;
        m_parameters->set(0, initialOfFirst);
    }
    ~FakeUnit() override
    {
        record("destroyed");
        --m_state->alive;
    }

    const std::string &name() const { return m_name; }

    Status initialize() override
    {
        record("initialize");
        return m_state->statusAt(m_initializeStep);
    }
    float parameter(std::uint32_t id) const override
    {
        record("parameter(" + std::to_string(id) + ")");
        return m_parameters->value(id);
    }
    Status setParameter(std::uint32_t id, float value) override
    {
        std::ostringstream call;
        call << "setParameter(" << id << ", " << value << ")";
        record(call.str());
        if (!(value - value == 0.0F)) // not finite
            return status::invalidParameter;
        m_parameters->set(id, value);
        return 0;
    }
    void reset() override { record("reset"); }

    std::shared_ptr<Parameters> parameters() const { return m_parameters; }

protected:
    void record(const std::string &call) const { m_state->record(m_name + "." + call); }
    FakeAudio::State &shared() const { return *m_state; }

private:
    StateRef m_state;
    std::string m_name;
    FakeStep m_initializeStep;
    std::shared_ptr<Parameters> m_parameters = std::make_shared<Parameters>();
};

class FakeEqualizer : public FakeUnit<EqualizerUnit> {
public:
    explicit FakeEqualizer(const StateRef &state)
        : FakeUnit(state, "equalizer", FakeStep::EqualizerInitialize, 0.0F)
    {}

    Status setParameter(std::uint32_t id, float value) override
    {
        const Status status = FakeUnit::setParameter(id, value);
        const Status failure = shared().statusAt(FakeStep::EqualizerFixedParameter);
        return id == parameter::equalizerFixed && failure != 0 ? failure : status;
    }
    AudioStreamBasicDescription streamFormat() const override
    {
        record("streamFormat");
        return canonicalStreamFormat();
    }
    Status setRenderCallback(RenderCallback callback, void *context) override
    {
        record("setRenderCallback");
        m_callback = callback;
        m_context = context;
        return shared().statusAt(FakeStep::SetRenderCallback);
    }
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        for (std::uint32_t i = 0; i < ioData.mNumberBuffers; ++i) {
            auto *samples = static_cast<std::byte *>(ioData.mBuffers[i].mData);
            std::fill_n(samples, ioData.mBuffers[i].mDataByteSize, std::byte{0});
        }
        ++shared().slices;
        if (m_callback)
            m_callback(m_context, frames, ioData);
    }

private:
    RenderCallback m_callback = nullptr;
    void *m_context = nullptr;
};

class FakeTimePitch : public FakeUnit<TimePitchUnit> {
public:
    explicit FakeTimePitch(const StateRef &state)
        : FakeUnit(state, "timePitch", FakeStep::TimePitchInitialize, 1.0F)
    {
        for (auto &channel : m_slice)
            channel.resize(largestPull);
    }

    Status connect(RenderingUnit *source) override
    {
        const auto *equalizer = dynamic_cast<FakeEqualizer *>(source);
        record("connect(" + (equalizer ? equalizer->name() : std::string()) + ")");
        m_source = source;
        return shared().statusAt(FakeStep::TimePitchConnect);
    }
    void prepare() override { record("prepare"); }
    void reset() override
    {
        FakeUnit::reset();
        m_resetRequested.store(true, std::memory_order_release);
    }
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        if (m_resetRequested.exchange(false, std::memory_order_acq_rel))
            m_held = 0;
        for (std::uint32_t done = 0; done < frames;) {
            if (m_held == 0)
                pullSlice();
            const std::uint32_t count = std::min(m_held, frames - done);
            for (std::uint32_t i = 0; i < ioData.mNumberBuffers; ++i) {
                const auto from = m_slice[i].begin() + (m_sliceFrames - m_held);
                std::copy_n(from, count, static_cast<float *>(ioData.mBuffers[i].mData) + done);
            }
            m_held -= count;
            done += count;
        }
    }

private:
    void pullSlice() noexcept
    {
        m_sliceFrames = shared().sliceFrames;
        AudioBufferList list{.mNumberBuffers = maximumChannels};
        for (std::uint32_t i = 0; i < maximumChannels; ++i)
            list.mBuffers[i] = bufferOf(m_slice[i], 0, m_sliceFrames);
        m_source->render(m_sliceFrames, list);
        m_held = m_sliceFrames;
    }

    RenderingUnit *m_source = nullptr;
    std::array<std::vector<float>, maximumChannels> m_slice;
    std::uint32_t m_sliceFrames = 0;
    std::uint32_t m_held = 0;
    std::atomic<bool> m_resetRequested = false;
};

class FakeOutput : public FakeUnit<OutputUnit> {
public:
    explicit FakeOutput(const StateRef &state)
        : FakeUnit(state, "output", FakeStep::OutputInitialize, 0.0F)
    {
        parameters()->set(parameter::outputVolume, 1.0F);
    }
    ~FakeOutput() override
    {
        const std::lock_guard lock(m_device->mutex);
        m_device->running = false;
        m_device->source = nullptr;
        m_device->lossListener = nullptr;
    }

    void setLossListener(std::function<void()> listener) override
    {
        const std::lock_guard lock(m_device->mutex);
        m_device->lossListener = std::move(listener);
    }
    Status deviceStatus() const noexcept override
    {
        return shared().statusAt(FakeStep::OutputDevice);
    }

    std::shared_ptr<Device> device() const { return m_device; }

    Status connect(RenderingUnit *source) override
    {
        const auto *timePitch = dynamic_cast<FakeTimePitch *>(source);
        record("connect(" + (timePitch ? timePitch->name() : std::string()) + ")");
        const std::lock_guard lock(m_device->mutex);
        m_device->source = source;
        return shared().statusAt(FakeStep::OutputConnect);
    }
    Status start() override
    {
        record("start");
        if (const Status failure = shared().statusAt(FakeStep::OutputStart))
            return failure;
        const std::lock_guard lock(m_device->mutex);
        m_device->running = true;
        return 0;
    }
    Status stop() noexcept override
    {
        record("stop");
        if (m_device->callbackThread.load() == std::this_thread::get_id()) {
            m_device->running = false;
            return 0;
        }
        const std::lock_guard lock(m_device->mutex);
        m_device->running = false;
        return 0;
    }
    bool isRunning() const noexcept override { return m_device->running; }

private:
    std::shared_ptr<Device> m_device = std::make_shared<Device>();
};

class FakeWatcher : public DefaultOutputWatcher {
public:
    explicit FakeWatcher(StateRef state)
        : m_state(std::move(state)), m_name(m_state->nameOfNew("watcher"))
    {
        ++m_state->alive;
    }
    ~FakeWatcher() override
    {
        m_state->record(m_name + ".destroyed");
        const std::lock_guard lock(m_state->mutex);
        m_state->listener = nullptr;
        --m_state->alive;
    }

    Status listen(std::function<void()> listener) override
    {
        m_state->record(m_name + ".listen");
        if (const Status failure = m_state->statusAt(FakeStep::Listen))
            return failure;
        const std::lock_guard lock(m_state->mutex);
        m_state->listener = std::move(listener);
        return 0;
    }
    void requestCall() noexcept override { ++m_state->callsRequested; }

private:
    StateRef m_state;
    std::string m_name;
};

} // namespace

std::vector<float> PulledAudio::interleaved() const
{
    std::vector<float> samples;
    for (std::size_t frame = 0; frame < channels[0].size(); ++frame) {
        for (const auto &channel : channels)
            samples.push_back(channel[frame]);
    }
    return samples;
}

bool PulledAudio::isSilent() const
{
    for (const auto &channel : channels) {
        for (const float sample : channel) {
            if (sample != 0.0F)
                return false;
        }
    }
    return true;
}

FakeAudio::FakeAudio() : m_state(std::make_shared<State>()) {}

FakeAudio::~FakeAudio() = default;

AudioUnitFactory FakeAudio::factory() const
{
    const auto missing = [](const StateRef &state, FakeStep step) {
        return state->statusAt(step) != 0;
    };
    return {
        .equalizer = [state = m_state, missing]() -> std::unique_ptr<EqualizerUnit> {
            if (missing(state, FakeStep::EqualizerMissing))
                return nullptr;
            auto unit = std::make_unique<FakeEqualizer>(state);
            const std::lock_guard lock(state->mutex);
            state->equalizers.push_back(unit->parameters());
            return unit;
        },
        .timePitch = [state = m_state, missing]() -> std::unique_ptr<TimePitchUnit> {
            if (missing(state, FakeStep::TimePitchMissing))
                return nullptr;
            auto unit = std::make_unique<FakeTimePitch>(state);
            const std::lock_guard lock(state->mutex);
            state->timePitches.push_back(unit->parameters());
            return unit;
        },
        .output = [state = m_state, missing]() -> std::unique_ptr<OutputUnit> {
            if (missing(state, FakeStep::OutputMissing))
                return nullptr;
            auto unit = std::make_unique<FakeOutput>(state);
            const std::lock_guard lock(state->mutex);
            state->outputs.push_back(unit->parameters());
            state->devices.push_back(unit->device());
            return unit;
        },
        .defaultOutputWatcher = [state = m_state,
                                 missing]() -> std::unique_ptr<DefaultOutputWatcher> {
            if (missing(state, FakeStep::WatcherMissing))
                return nullptr;
            return std::make_unique<FakeWatcher>(state);
        },
    };
}

PulledAudio FakeAudio::pull(std::uint32_t frames)
{
    PulledAudio pulled;
    AudioBufferList list{.mNumberBuffers = maximumChannels};
    for (std::uint32_t i = 0; i < maximumChannels; ++i) {
        pulled.channels[i].assign(frames, 0.0F);
        list.mBuffers[i] = bufferOf(pulled.channels[i], 0, frames);
    }

    std::shared_ptr<Device> device;
    {
        const std::lock_guard lock(m_state->mutex);
        device = newest(m_state->devices);
    }
    if (!device)
        return pulled;
    const std::lock_guard lock(device->mutex);
    if (!device->running || !device->source)
        return pulled;
    device->callbackThread = std::this_thread::get_id();
    device->source->render(frames, list);
    device->callbackThread = std::thread::id();
    return pulled;
}

bool FakeAudio::fireDefaultOutputChanged()
{
    std::function<void()> listener;
    {
        const std::lock_guard lock(m_state->mutex);
        listener = m_state->listener;
    }
    if (listener)
        listener();
    return static_cast<bool>(listener);
}

bool FakeAudio::fireDefaultOutputChangedOnThread()
{
    bool fired = false;
    std::thread([&] { fired = fireDefaultOutputChanged(); }).join();
    return fired;
}

void FakeAudio::loseDevice()
{
    std::shared_ptr<Device> device;
    {
        const std::lock_guard lock(m_state->mutex);
        device = newest(m_state->devices);
    }
    const std::lock_guard lock(device->mutex);
    if (device->lossListener)
        device->lossListener();
}

int FakeAudio::callsRequested() const
{
    return m_state->callsRequested;
}

void FakeAudio::failAt(FakeStep step, Status status)
{
    const std::lock_guard lock(m_state->mutex);
    m_state->failures[step] = status;
}

void FakeAudio::failOnceAt(FakeStep step, Status status)
{
    const std::lock_guard lock(m_state->mutex);
    m_state->singleFailures[step] = status;
}

void FakeAudio::clearFailures()
{
    const std::lock_guard lock(m_state->mutex);
    m_state->failures.clear();
}

void FakeAudio::setSliceFrames(std::uint32_t frames)
{
    m_state->sliceFrames = std::min(frames, largestPull);
}

std::vector<std::string> FakeAudio::calls() const
{
    const std::lock_guard lock(m_state->mutex);
    return m_state->calls;
}

void FakeAudio::clearCalls()
{
    const std::lock_guard lock(m_state->mutex);
    m_state->calls.clear();
}

float FakeAudio::equalizerParameter(std::uint32_t id) const
{
    const std::lock_guard lock(m_state->mutex);
    return valueOfNewest(m_state->equalizers, id);
}

float FakeAudio::timePitchParameter(std::uint32_t id) const
{
    const std::lock_guard lock(m_state->mutex);
    return valueOfNewest(m_state->timePitches, id);
}

float FakeAudio::outputParameter(std::uint32_t id) const
{
    const std::lock_guard lock(m_state->mutex);
    return valueOfNewest(m_state->outputs, id);
}

bool FakeAudio::outputIsRunning() const
{
    const std::lock_guard lock(m_state->mutex);
    const auto device = newest(m_state->devices);
    return device && device->running;
}

int FakeAudio::unitsAlive() const
{
    return m_state->alive;
}

std::uint64_t FakeAudio::slicesPulled() const
{
    return m_state->slices;
}

} // namespace lyrabox::test
