#include "program/SessionManager.h"

#include "support/program/VirtualDisplay.h"

#include <gtest/gtest.h>

#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>
#include <X11/SM/SMlib.h>

#include <atomic>
#include <cstdlib>
#include <poll.h>
#include <thread>
#include <vector>

namespace lyrabox::test {

struct SessionManager::Private {
    int listenerCount = 0;
    IceListenObj *listeners = nullptr;
    std::vector<IceConn> connections;
    SmsConn program = nullptr;
    bool asked = false;
    std::atomic<bool> isRegistered{false};
    std::atomic<int> saves{0}; ///< how often the program has saved its state
    std::atomic<bool> ends{false};
    std::atomic<bool> stops{false};
    std::thread thread; ///< runs the library; registering programs wait for it

    void run()
    {
        while (!stops) {
            serve();
            if (ends && !asked && program != nullptr) {
                asked = true;
                SmsSaveYourself(program, SmSaveBoth, True, SmInteractStyleAny, False);
            }
        }
    }

    /// Handles all pending requests.
    void serve()
    {
        std::vector<pollfd> files;
        for (int i = 0; i < listenerCount; ++i)
            files.push_back({IceGetListenConnectionNumber(listeners[i]), POLLIN, 0});
        for (IceConn connection : connections)
            files.push_back({IceConnectionNumber(connection), POLLIN, 0});
        constexpr int waitMilliseconds = 20;
        if (::poll(files.data(), files.size(), waitMilliseconds) <= 0)
            return;
        const std::vector<IceConn> known = connections;
        for (int i = 0; i < listenerCount; ++i) {
            IceAcceptStatus status = IceAcceptSuccess;
            if (files[static_cast<std::size_t>(i)].revents != 0) {
                if (IceConn fresh = IceAcceptConnection(listeners[i], &status))
                    connections.push_back(fresh);
            }
        }
        for (std::size_t i = 0; i < known.size(); ++i) {
            if (files[static_cast<std::size_t>(listenerCount) + i].revents == 0)
                continue;
            Bool isReply = False;
            if (IceProcessMessages(known[i], nullptr, &isReply) != IceProcessMessagesSuccess) {
                std::erase(connections, known[i]);
                IceSetShutdownNegotiation(known[i], False);
                IceCloseConnection(known[i]);
                program = nullptr;
            }
        }
    }
};

namespace {

using Manager = SessionManager::Private;

Bool letIn(char *)
{
    return True;
}

Manager *managerOf(SmPointer data)
{
    return static_cast<Manager *>(data);
}

Status registerProgram(SmsConn program, SmPointer data, char *previous)
{
    managerOf(data)->program = program;
    managerOf(data)->isRegistered = true;
    char *const id = previous != nullptr ? previous : SmsGenerateClientID(program);
    SmsRegisterClientReply(program, id);
    std::free(id);
    SmsSaveYourself(program, SmSaveLocal, False, SmInteractStyleNone, False);
    return 1;
}

void saved(SmsConn program, SmPointer data, Bool)
{
    ++managerOf(data)->saves;
    if (managerOf(data)->asked)
        SmsDie(program);
    else
        SmsSaveComplete(program);
}

void closeConnection(SmsConn program, SmPointer data, int count, char **reasons)
{
    SmFreeReasons(count, reasons);
    managerOf(data)->program = nullptr;
    SmsCleanUp(program);
}

void setProperties(SmsConn, SmPointer, int count, SmProp **properties)
{
    for (int i = 0; i < count; ++i)
        SmFreeProperty(properties[i]);
    std::free(properties);
}

void deleteProperties(SmsConn, SmPointer, int count, char **names)
{
    for (int i = 0; i < count; ++i)
        std::free(names[i]);
    std::free(names);
}

Status newProgram(SmsConn, SmPointer data, unsigned long *mask, SmsCallbacks *callbacks, char **)
{
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
            SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
            SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    callbacks->register_client = {registerProgram, data};
    callbacks->interact_request = {[](SmsConn program, SmPointer, int) { SmsInteract(program); },
                                   data};
    callbacks->interact_done = {[](SmsConn, SmPointer, Bool) {}, data};
    callbacks->save_yourself_request = {[](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {},
                                        data};
    callbacks->save_yourself_phase2_request = {
        [](SmsConn program, SmPointer) { SmsSaveYourselfPhase2(program); }, data};
    callbacks->save_yourself_done = {saved, data};
    callbacks->close_connection = {closeConnection, data};
    callbacks->set_properties = {setProperties, data};
    callbacks->delete_properties = {deleteProperties, data};
    callbacks->get_properties = {
        [](SmsConn program, SmPointer) { SmsReturnProperties(program, 0, nullptr); }, data};
    return 1;
}

} // namespace

SessionManager::SessionManager() : d(std::make_unique<Private>())
{
    char error[256] = "";
    IceSetIOErrorHandler([](IceConn) {}); // the default handler ends the process
    if (SmsInitialize("test", "1", newProgram, d.get(), letIn, sizeof error, error) == 0 ||
        IceListenForConnections(&d->listenerCount, &d->listeners, sizeof error, error) == 0) {
        ADD_FAILURE() << "no session manager: " << error;
        return;
    }
    for (int i = 0; i < d->listenerCount; ++i)
        IceSetHostBasedAuthProc(d->listeners[i], letIn);
    char *const addresses = IceComposeNetworkIdList(d->listenerCount, d->listeners);
    qputenv("SESSION_MANAGER", addresses);
    std::free(addresses);
    d->thread = std::thread([this] { d->run(); });
}

SessionManager::~SessionManager()
{
    qunsetenv("SESSION_MANAGER");
    d->stops = true;
    if (d->thread.joinable())
        d->thread.join();
    IceFreeListenObjs(d->listenerCount, d->listeners);
}

bool SessionManager::waitForProgram()
{
    return waitUntil([this] { return d->isRegistered && d->saves > 0; });
}

bool SessionManager::endSession()
{
    const int before = d->saves;
    d->ends = true;
    return waitUntil([&] { return d->saves > before; });
}

} // namespace lyrabox::test
