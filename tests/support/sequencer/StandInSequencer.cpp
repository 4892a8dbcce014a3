// Stands in for the functions of the system's MIDI sequencer, so that devices can be plugged in and
// out in tests. It is preloaded into the program, or linked into a test, and takes its orders from
// a FakeSequencer through the socket that LYRABOX_STAND_IN_SEQUENCER names. The events are coded by
// the system's own library.
//
// Long because the functions are many: each one is a few lines.

#include <alsa/asoundlib.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

struct _snd_seq_port_info {
    snd_seq_addr_t address;
    std::string name;
    unsigned capability;
    bool isStamped;
};

struct _snd_seq_client_info {
    int client;
    std::string name;
};

struct _snd_seq_queue_status {
    snd_seq_real_time_t time;
};

namespace {

constexpr unsigned readable = SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ;
constexpr int ownClient = 128;

struct Port {
    snd_seq_addr_t address;
    std::string clientName;
    std::string portName;
};

long long steadyNanoseconds()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

snd_seq_real_time_t realTime(long long nanoseconds)
{
    constexpr long long second = 1'000'000'000;
    return {static_cast<unsigned>(nanoseconds / second),
            static_cast<unsigned>(nanoseconds % second)};
}

snd_seq_addr_t addressOf(int client, int port)
{
    return {static_cast<unsigned char>(client), static_cast<unsigned char>(port)};
}

int number(snd_seq_addr_t address)
{
    return address.client << 8 | address.port;
}

} // namespace

struct _snd_seq {
    std::string path;
    int socket = -1;
    std::vector<Port> ports;
    std::set<int> subscribed;
    std::set<int> filter;
    bool hearsAnnouncements = false;
    bool isStamped = false;
    long long queueStart = 0;
    std::deque<snd_seq_event_t> events;
    snd_seq_event_t current{};
    bool isGone = false;
    bool hasLost = false;

    void note(const std::string &what) const
    {
        std::ofstream(path + ".log", std::ios::app) << what << '\n';
    }

    void addPort(const std::string &text)
    {
        std::istringstream words(text);
        int client = 0;
        int port = 0;
        std::string names;
        words >> client >> port;
        words.get();
        std::getline(words, names);
        const std::size_t tab = names.find('\t');
        ports.push_back({addressOf(client, port), names.substr(0, tab), names.substr(tab + 1)});
    }

    void put(const snd_seq_event_t &event)
    {
        if (filter.empty() || filter.contains(event.type))
            events.push_back(event);
    }

    void announce(int type, snd_seq_addr_t address)
    {
        if (!hearsAnnouncements)
            return;
        snd_seq_event_t event{};
        event.type = static_cast<snd_seq_event_type_t>(type);
        event.source = addressOf(SND_SEQ_CLIENT_SYSTEM, SND_SEQ_PORT_SYSTEM_ANNOUNCE);
        event.data.addr = address;
        put(event);
    }

    void unplug(int client)
    {
        for (const Port &port : std::vector<Port>(ports)) {
            if (port.address.client != client)
                continue;
            std::erase_if(ports, [&](const Port &other) {
                return number(other.address) == number(port.address);
            });
            subscribed.erase(number(port.address));
            note("end " + std::to_string(client) + ':' + std::to_string(port.address.port));
            announce(SND_SEQ_EVENT_PORT_EXIT, port.address);
        }
        announce(SND_SEQ_EVENT_CLIENT_EXIT, addressOf(client, 0));
    }

    void receive(std::istringstream &words, const std::string &text)
    {
        int client = 0;
        int port = 0;
        long long time = 0;
        words >> client >> port >> time;
        const snd_seq_addr_t source = addressOf(client, port);
        if (!subscribed.contains(number(source)))
            return;
        const std::string bytes = text.substr(static_cast<std::size_t>(words.tellg()) + 1);
        snd_midi_event_t *coder = nullptr;
        snd_midi_event_new(256, &coder);
        for (const char byte : bytes) {
            snd_seq_event_t event{};
            if (snd_midi_event_encode_byte(coder, static_cast<unsigned char>(byte), &event) != 1)
                continue;
            event.source = source;
            if (isStamped) {
                event.flags |= SND_SEQ_TIME_STAMP_REAL;
                event.time.time = realTime(time - queueStart);
            }
            if (event.type != SND_SEQ_EVENT_SYSEX)
                put(event);
        }
        snd_midi_event_free(coder);
    }

    void obey(const std::string &text)
    {
        std::istringstream words(text);
        std::string order;
        words >> order;
        if (order == "plug") {
            addPort(text.substr(order.size() + 1));
            announce(SND_SEQ_EVENT_CLIENT_START, ports.back().address);
            announce(SND_SEQ_EVENT_PORT_START, ports.back().address);
        } else if (order == "unplug") {
            int client = 0;
            words >> client;
            unplug(client);
        } else if (order == "midi") {
            receive(words, text);
        } else if (order == "lost") {
            hasLost = true;
        } else if (order == "gone") {
            isGone = true;
        }
    }

    /// Takes one order. False if there is none.
    bool listen()
    {
        std::array<char, 65536> buffer{};
        const ssize_t size = recv(socket, buffer.data(), buffer.size(), MSG_DONTWAIT);
        if (size > 0)
            obey(std::string(buffer.data(), static_cast<std::size_t>(size)));
        return size > 0;
    }

    const Port *portAt(int client, int port) const
    {
        const auto found = std::find_if(ports.begin(), ports.end(), [&](const Port &other) {
            return other.address.client == client && other.address.port == port;
        });
        return found != ports.end() ? &*found : nullptr;
    }

    /// The one of these ports that comes next by `place`, behind `after`.
    template <typename Belongs, typename Place>
    const Port *next(int after, Belongs belongs, Place place) const
    {
        const Port *found = nullptr;
        for (const Port &port : ports) {
            if (belongs(port) && place(port) > after &&
                (found == nullptr || place(port) < place(*found)))
                found = &port;
        }
        return found;
    }

    static int describe(const Port *port, snd_seq_port_info_t *info)
    {
        if (port == nullptr)
            return -ENOENT;
        info->address = port->address;
        info->name = port->portName;
        info->capability = readable;
        return 0;
    }

    static int describe(const Port *port, snd_seq_client_info_t *info)
    {
        if (port == nullptr)
            return -ENOENT;
        info->client = port->address.client;
        info->name = port->clientName;
        return 0;
    }
};

extern "C" {

int snd_seq_open(snd_seq_t **handle, const char *, int, int)
{
    const char *path = std::getenv("LYRABOX_STAND_IN_SEQUENCER");
    if (path == nullptr)
        return -ENOENT;
    std::ifstream ports(std::string(path) + ".ports");
    if (!ports)
        return -ENOENT;
    auto *sequencer = new snd_seq_t;
    sequencer->path = path;
    sequencer->socket = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path, sizeof address.sun_path - 1);
    unlink(path);
    if (bind(sequencer->socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
        std::abort();
    for (std::string line; std::getline(ports, line);)
        sequencer->addPort(line);
    sequencer->note("open");
    *handle = sequencer;
    return 0;
}

int snd_seq_close(snd_seq_t *handle)
{
    handle->note("close");
    close(handle->socket);
    unlink(handle->path.c_str());
    delete handle;
    return 0;
}

int snd_seq_client_id(snd_seq_t *)
{
    return ownClient;
}

int snd_seq_set_client_name(snd_seq_t *, const char *)
{
    return 0;
}

int snd_seq_set_client_pool_input(snd_seq_t *, size_t)
{
    return 0;
}

int snd_seq_set_client_event_filter(snd_seq_t *handle, int type)
{
    handle->filter.insert(type);
    return 0;
}

int snd_seq_alloc_named_queue(snd_seq_t *, const char *)
{
    return 0;
}

int snd_seq_control_queue(snd_seq_t *handle, int, int type, int, snd_seq_event_t *)
{
    // Long ago, so that events can be older than the queue.
    constexpr long long hour = 3'600'000'000'000;
    if (type == SND_SEQ_EVENT_START)
        handle->queueStart = steadyNanoseconds() - hour;
    return 0;
}

int snd_seq_drain_output(snd_seq_t *)
{
    return 0;
}

int snd_seq_create_port(snd_seq_t *handle, snd_seq_port_info_t *info)
{
    handle->isStamped = info->isStamped;
    info->address = addressOf(ownClient, 0);
    return 0;
}

int snd_seq_connect_from(snd_seq_t *handle, int, int client, int port)
{
    if (client == SND_SEQ_CLIENT_SYSTEM) {
        handle->hearsAnnouncements = port == SND_SEQ_PORT_SYSTEM_ANNOUNCE;
        return 0;
    }
    const Port *found = handle->portAt(client, port);
    if (found == nullptr)
        return -EINVAL;
    if (!handle->subscribed.insert(number(found->address)).second)
        return -EBUSY;
    handle->note("connect " + std::to_string(client) + ':' + std::to_string(port));
    return 0;
}

int snd_seq_query_next_client(snd_seq_t *handle, snd_seq_client_info_t *info)
{
    const Port *next = handle->next(
        info->client, [](const Port &) { return true; },
        [](const Port &port) { return port.address.client; });
    return snd_seq_t::describe(next, info);
}

int snd_seq_query_next_port(snd_seq_t *handle, snd_seq_port_info_t *info)
{
    const int after = info->address.port == 255 ? -1 : info->address.port;
    const Port *next = handle->next(
        after, [info](const Port &port) { return port.address.client == info->address.client; },
        [](const Port &port) { return port.address.port; });
    return snd_seq_t::describe(next, info);
}

int snd_seq_get_any_port_info(snd_seq_t *handle, int client, int port, snd_seq_port_info_t *info)
{
    return snd_seq_t::describe(handle->portAt(client, port), info);
}

int snd_seq_get_any_client_info(snd_seq_t *handle, int client, snd_seq_client_info_t *info)
{
    const Port *any = handle->next(
        -1, [client](const Port &port) { return port.address.client == client; },
        [](const Port &port) { return port.address.port; });
    return snd_seq_t::describe(any, info);
}

int snd_seq_poll_descriptors_count(snd_seq_t *, short)
{
    return 1;
}

int snd_seq_poll_descriptors(snd_seq_t *handle, struct pollfd *descriptors, unsigned space, short)
{
    if (space < 1)
        return 0;
    descriptors[0] = {handle->socket, POLLIN, 0};
    return 1;
}

int snd_seq_event_input(snd_seq_t *handle, snd_seq_event_t **event)
{
    // Some orders make no event.
    while (handle->events.empty() && !handle->isGone && !handle->hasLost && handle->listen()) {
    }
    if (handle->isGone)
        return -ENODEV;
    if (std::exchange(handle->hasLost, false))
        return -ENOSPC;
    if (handle->events.empty())
        return -EAGAIN;
    handle->current = handle->events.front();
    handle->events.pop_front();
    *event = &handle->current;
    return 1;
}

int snd_seq_get_queue_status(snd_seq_t *handle, int, snd_seq_queue_status_t *status)
{
    status->time = realTime(steadyNanoseconds() - handle->queueStart);
    return 0;
}

int snd_seq_queue_status_malloc(snd_seq_queue_status_t **status)
{
    *status = new snd_seq_queue_status_t{};
    return 0;
}

void snd_seq_queue_status_free(snd_seq_queue_status_t *status)
{
    delete status;
}

const snd_seq_real_time_t *snd_seq_queue_status_get_real_time(const snd_seq_queue_status_t *status)
{
    return &status->time;
}

int snd_seq_client_info_malloc(snd_seq_client_info_t **info)
{
    *info = new snd_seq_client_info_t{};
    return 0;
}

void snd_seq_client_info_free(snd_seq_client_info_t *info)
{
    delete info;
}

void snd_seq_client_info_set_client(snd_seq_client_info_t *info, int client)
{
    info->client = client;
}

int snd_seq_client_info_get_client(const snd_seq_client_info_t *info)
{
    return info->client;
}

const char *snd_seq_client_info_get_name(snd_seq_client_info_t *info)
{
    return info->name.c_str();
}

int snd_seq_port_info_malloc(snd_seq_port_info_t **info)
{
    *info = new snd_seq_port_info_t{};
    return 0;
}

void snd_seq_port_info_free(snd_seq_port_info_t *info)
{
    delete info;
}

void snd_seq_port_info_set_name(snd_seq_port_info_t *info, const char *name)
{
    info->name = name;
}

const char *snd_seq_port_info_get_name(const snd_seq_port_info_t *info)
{
    return info->name.c_str();
}

void snd_seq_port_info_set_capability(snd_seq_port_info_t *info, unsigned capability)
{
    info->capability = capability;
}

unsigned snd_seq_port_info_get_capability(const snd_seq_port_info_t *info)
{
    return info->capability;
}

void snd_seq_port_info_set_type(snd_seq_port_info_t *, unsigned) {}

void snd_seq_port_info_set_timestamping(snd_seq_port_info_t *info, int enable)
{
    info->isStamped = enable != 0;
}

void snd_seq_port_info_set_timestamp_real(snd_seq_port_info_t *, int) {}

void snd_seq_port_info_set_timestamp_queue(snd_seq_port_info_t *, int) {}

void snd_seq_port_info_set_client(snd_seq_port_info_t *info, int client)
{
    info->address.client = static_cast<unsigned char>(client);
}

void snd_seq_port_info_set_port(snd_seq_port_info_t *info, int port)
{
    info->address.port = static_cast<unsigned char>(port);
}

int snd_seq_port_info_get_port(const snd_seq_port_info_t *info)
{
    return info->address.port;
}

const snd_seq_addr_t *snd_seq_port_info_get_addr(const snd_seq_port_info_t *info)
{
    return &info->address;
}

} // extern "C"
