#include "platform/sequencer/SequencerInput.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <poll.h>

namespace lyrabox {

namespace {

constexpr unsigned wantedCapabilities = SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ;
constexpr std::size_t longestMessage = 16;
constexpr std::size_t pool = 1000; // events that wait to be read

std::uint32_t deviceOf(snd_seq_addr_t address)
{
    return static_cast<std::uint32_t>(address.client) << 8U | address.port;
}

std::chrono::nanoseconds steadyNow()
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

std::chrono::nanoseconds nanosecondsOf(const snd_seq_real_time_t &time)
{
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// A machine without a sequencer is nothing to write about.
void keepQuiet(const char *, int, const char *, int, const char *, ...) {}

/// Most devices repeat their name in that of the port, and some have only one of them.
QString nameOf(const char *client, const char *port)
{
    const QString clientName = QString::fromUtf8(client).simplified();
    const QString portName = QString::fromUtf8(port).simplified();
    if (clientName.isEmpty() || portName.startsWith(clientName))
        return portName;
    return portName.isEmpty() ? clientName : QStringLiteral("%1: %2").arg(clientName, portName);
}

using PortInfo = std::unique_ptr<snd_seq_port_info_t, decltype(&snd_seq_port_info_free)>;
using ClientInfo = std::unique_ptr<snd_seq_client_info_t, decltype(&snd_seq_client_info_free)>;

PortInfo makePortInfo()
{
    snd_seq_port_info_t *info = nullptr;
    snd_seq_port_info_malloc(&info);
    return {info, &snd_seq_port_info_free};
}

ClientInfo makeClientInfo()
{
    snd_seq_client_info_t *info = nullptr;
    snd_seq_client_info_malloc(&info);
    return {info, &snd_seq_client_info_free};
}

} // namespace

SequencerInput::SequencerInput() = default;
SequencerInput::~SequencerInput() = default;

bool SequencerInput::open(Listener &listener)
{
    m_listener = &listener;
    snd_seq_t *sequencer = nullptr;
    const snd_lib_error_handler_t handler = snd_lib_error;
    snd_lib_error_set_handler(&keepQuiet);
    const int result = snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK);
    snd_lib_error_set_handler(handler);
    if (result < 0)
        return false;
    m_sequencer.reset(sequencer);
    snd_midi_event_t *coder = nullptr;
    if (snd_midi_event_new(longestMessage, &coder) < 0)
        return false;
    m_coder.reset(coder);
    snd_midi_event_no_status(coder, 1); // every message is whole
    snd_seq_set_client_name(sequencer, "Lyrabox");
    snd_seq_set_client_pool_input(sequencer, pool);
    makeQueue();
    if (!makePort())
        return false;
    filterEvents();
    // First the announcements, so that no port is missed in between.
    snd_seq_connect_from(sequencer, m_port, SND_SEQ_CLIENT_SYSTEM, SND_SEQ_PORT_SYSTEM_ANNOUNCE);
    findPorts();
    return true;
}

/// Without a queue, messages are stamped when they are read.
void SequencerInput::makeQueue()
{
    m_queue = snd_seq_alloc_named_queue(m_sequencer.get(), "Lyrabox");
    if (m_queue < 0)
        return;
    snd_seq_start_queue(m_sequencer.get(), m_queue, nullptr);
    snd_seq_drain_output(m_sequencer.get());
}

bool SequencerInput::makePort()
{
    const PortInfo info = makePortInfo();
    snd_seq_port_info_set_name(info.get(), "Pedals");
    snd_seq_port_info_set_capability(info.get(), SND_SEQ_PORT_CAP_WRITE |
                                                     SND_SEQ_PORT_CAP_SUBS_WRITE |
                                                     SND_SEQ_PORT_CAP_NO_EXPORT);
    snd_seq_port_info_set_type(info.get(),
                               SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
    if (m_queue >= 0) {
        snd_seq_port_info_set_timestamping(info.get(), 1);
        snd_seq_port_info_set_timestamp_real(info.get(), 1);
        snd_seq_port_info_set_timestamp_queue(info.get(), m_queue);
    }
    if (snd_seq_create_port(m_sequencer.get(), info.get()) < 0)
        return false;
    m_port = snd_seq_port_info_get_port(info.get());
    return true;
}

/// Clocks and the signs of life that many devices send must not wake the program.
void SequencerInput::filterEvents()
{
    for (const int type :
         {SND_SEQ_EVENT_NOTEON, SND_SEQ_EVENT_NOTEOFF, SND_SEQ_EVENT_KEYPRESS,
          SND_SEQ_EVENT_CONTROLLER, SND_SEQ_EVENT_PGMCHANGE, SND_SEQ_EVENT_CHANPRESS,
          SND_SEQ_EVENT_PITCHBEND, SND_SEQ_EVENT_CONTROL14, SND_SEQ_EVENT_CLIENT_EXIT,
          SND_SEQ_EVENT_PORT_START, SND_SEQ_EVENT_PORT_EXIT, SND_SEQ_EVENT_PORT_CHANGE})
        snd_seq_set_client_event_filter(m_sequencer.get(), type);
}

void SequencerInput::findPorts()
{
    const ClientInfo client = makeClientInfo();
    const PortInfo port = makePortInfo();
    snd_seq_client_info_set_client(client.get(), -1);
    while (snd_seq_query_next_client(m_sequencer.get(), client.get()) >= 0) {
        snd_seq_port_info_set_client(port.get(), snd_seq_client_info_get_client(client.get()));
        snd_seq_port_info_set_port(port.get(), -1);
        while (snd_seq_query_next_port(m_sequencer.get(), port.get()) >= 0)
            addPort(*snd_seq_port_info_get_addr(port.get()));
    }
}

void SequencerInput::addPort(snd_seq_addr_t address)
{
    snd_seq_t *sequencer = m_sequencer.get();
    const PortInfo port = makePortInfo();
    const ClientInfo client = makeClientInfo();
    if (address.client == SND_SEQ_CLIENT_SYSTEM || address.client == snd_seq_client_id(sequencer) ||
        snd_seq_get_any_port_info(sequencer, address.client, address.port, port.get()) < 0 ||
        snd_seq_get_any_client_info(sequencer, address.client, client.get()) < 0)
        return;
    const unsigned capabilities = snd_seq_port_info_get_capability(port.get());
    if ((capabilities & wantedCapabilities) != wantedCapabilities ||
        (capabilities & SND_SEQ_PORT_CAP_NO_EXPORT) != 0)
        return;
    const std::uint32_t device = deviceOf(address);
    const bool isNew = !m_devices.contains(device);
    if (isNew && snd_seq_connect_from(sequencer, m_port, address.client, address.port) < 0)
        return;
    m_devices.insert(device);
    m_listener->portFound({.device = device,
                           .name = nameOf(snd_seq_client_info_get_name(client.get()),
                                          snd_seq_port_info_get_name(port.get()))});
}

void SequencerInput::removePort(snd_seq_addr_t address)
{
    const std::uint32_t device = deviceOf(address);
    if (m_devices.erase(device) != 0)
        m_listener->portGone(device);
}

void SequencerInput::removeClient(int client)
{
    for (unsigned port = 0; port < SND_SEQ_ADDRESS_UNKNOWN; ++port)
        removePort({static_cast<unsigned char>(client), static_cast<unsigned char>(port)});
}

std::vector<int> SequencerInput::descriptors() const
{
    const int count = snd_seq_poll_descriptors_count(m_sequencer.get(), POLLIN);
    std::vector<pollfd> polled(static_cast<std::size_t>(std::max(0, count)));
    snd_seq_poll_descriptors(m_sequencer.get(), polled.data(), static_cast<unsigned>(polled.size()),
                             POLLIN);
    std::vector<int> result;
    result.reserve(polled.size());
    for (const pollfd &descriptor : polled)
        result.push_back(descriptor.fd);
    return result;
}

MidiInput::Rest SequencerInput::read(int events)
{
    m_offset.reset();
    for (int count = 0; count < events; ++count) {
        snd_seq_event_t *event = nullptr;
        const int result = snd_seq_event_input(m_sequencer.get(), &event);
        if (result == -ENOSPC)
            m_listener->messagesLost();
        else if (result == -EAGAIN || result == -EINTR)
            return Rest::Nothing;
        else if (result < 0)
            return Rest::Broken;
        else if (event != nullptr)
            take(*event);
    }
    return Rest::More;
}

void SequencerInput::take(const snd_seq_event_t &event)
{
    switch (event.type) {
    case SND_SEQ_EVENT_PORT_START:
    case SND_SEQ_EVENT_PORT_CHANGE:
        addPort(event.data.addr);
        return;
    case SND_SEQ_EVENT_PORT_EXIT:
        removePort(event.data.addr);
        return;
    case SND_SEQ_EVENT_CLIENT_EXIT:
        removeClient(event.data.addr.client);
        return;
    default:
        break;
    }
    const std::uint32_t device = deviceOf(event.source);
    if (!m_devices.contains(device) || snd_seq_ev_is_variable(&event))
        return;
    std::array<unsigned char, longestMessage> bytes{};
    const long size = snd_midi_event_decode(m_coder.get(), bytes.data(), bytes.size(), &event);
    if (size > 0)
        m_listener->received(device, std::span(bytes).first(static_cast<std::size_t>(size)),
                             timeOf(event));
}

/// The queue's clock is compared with the steady clock once a turn.
std::chrono::microseconds SequencerInput::timeOf(const snd_seq_event_t &event)
{
    using std::chrono::duration_cast;
    const std::chrono::nanoseconds now = steadyNow();
    const bool isStamped = m_queue >= 0 && snd_seq_ev_is_real(&event) && event.queue == m_queue;
    if (!isStamped)
        return duration_cast<std::chrono::microseconds>(now);
    if (!m_offset) {
        snd_seq_queue_status_t *status = nullptr;
        snd_seq_queue_status_malloc(&status);
        const bool isKnown = snd_seq_get_queue_status(m_sequencer.get(), m_queue, status) >= 0;
        if (isKnown)
            m_offset = steadyNow() - nanosecondsOf(*snd_seq_queue_status_get_real_time(status));
        snd_seq_queue_status_free(status);
        if (!isKnown)
            return duration_cast<std::chrono::microseconds>(now);
    }
    const std::chrono::nanoseconds stamp = *m_offset + nanosecondsOf(event.time.time);
    return duration_cast<std::chrono::microseconds>(std::min(stamp, steadyNow()));
}

} // namespace lyrabox
