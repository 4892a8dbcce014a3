#pragma once

#include "platform/midi/MidiInput.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace lyrabox::test {

/// A MIDI device, "FS-2", whose messages wait until they are read. It must outlive its inputs.
class ScriptedDevice {
public:
    ScriptedDevice() { EXPECT_EQ(::pipe2(m_pipe.data(), O_NONBLOCK | O_CLOEXEC), 0); }
    ~ScriptedDevice()
    {
        ::close(m_pipe[0]);
        ::close(m_pipe[1]);
    }
    ScriptedDevice(const ScriptedDevice &) = delete;
    ScriptedDevice &operator=(const ScriptedDevice &) = delete;

    std::unique_ptr<MidiInput> makeInput()
    {
        ++made;
        return std::make_unique<Input>(*this);
    }

    /// A controller on channel 1. It is not read yet.
    void send(int controller, int value, std::chrono::microseconds time)
    {
        m_waiting.push_back(
            {{0xB0, static_cast<std::uint8_t>(controller), static_cast<std::uint8_t>(value)},
             time});
    }
    /// The main loop reads what was sent.
    void read()
    {
        EXPECT_EQ(::write(m_pipe[1], "x", 1), 1);
        while (!m_waiting.empty())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    int made = 0;                            ///< inputs
    MidiInput::Listener *listener = nullptr; ///< while an input is open

private:
    struct Message {
        std::array<std::uint8_t, 3> bytes;
        std::chrono::microseconds time;
    };

    class Input : public MidiInput {
    public:
        explicit Input(ScriptedDevice &device) : m_device(device) {}
        ~Input() override { m_device.listener = nullptr; }

        bool open(Listener &listener) override
        {
            m_device.listener = &listener;
            listener.portFound({.device = 1, .name = QStringLiteral("FS-2")});
            return true;
        }
        std::vector<int> descriptors() const override { return {m_device.m_pipe[0]}; }
        Rest read(int) override
        {
            char signal = 0;
            [[maybe_unused]] const auto count = ::read(m_device.m_pipe[0], &signal, 1);
            for (const Message &message : std::exchange(m_device.m_waiting, {}))
                m_device.listener->received(1, message.bytes, message.time);
            return Rest::Nothing;
        }

    private:
        ScriptedDevice &m_device;
    };

    std::array<int, 2> m_pipe{-1, -1};
    std::vector<Message> m_waiting;
};

} // namespace lyrabox::test
