#pragma once

#include "platform/midi/MidiInput.h"

#include <alsa/asoundlib.h>

#include <chrono>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace lyrabox {

/// Receives from all ports of the ALSA sequencer. The system stamps the messages when they arrive,
/// so their times are right however late they are read. One thread.
class SequencerInput : public MidiInput {
public:
    SequencerInput();
    ~SequencerInput() override;

    bool open(Listener &listener) override;
    std::vector<int> descriptors() const override;
    Rest read(int events) override;

private:
    template <auto Free>
    struct Deleter {
        template <typename Object>
        void operator()(Object *object) const
        {
            Free(object);
        }
    };
    using Sequencer = std::unique_ptr<snd_seq_t, Deleter<&snd_seq_close>>;
    using Coder = std::unique_ptr<snd_midi_event_t, Deleter<&snd_midi_event_free>>;

    bool makePort();
    void makeQueue();
    void filterEvents();
    void findPorts();
    void addPort(snd_seq_addr_t address);
    void removePort(snd_seq_addr_t address);
    void removeClient(int client);
    void take(const snd_seq_event_t &event);
    std::chrono::microseconds timeOf(const snd_seq_event_t &event);

    Listener *m_listener = nullptr;
    Sequencer m_sequencer;
    Coder m_coder;
    int m_port = -1;
    int m_queue = -1; ///< its clock stamps the messages; negative: they are stamped when read
    /// The steady clock less the queue's. None until it is needed in a turn.
    std::optional<std::chrono::nanoseconds> m_offset;
    std::set<std::uint32_t> m_devices;
};

} // namespace lyrabox
