#include "pedals/MidiParser.h"

#include <gmock/gmock.h>

#include <vector>

using namespace lyrabox;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = MidiMessage::Kind;

namespace {

std::vector<MidiMessage> read(const std::vector<int> &bytes)
{
    MidiParser parser;
    std::vector<MidiMessage> messages;
    for (const int byte : bytes) {
        if (const auto message = parser.take(static_cast<std::uint8_t>(byte)))
            messages.push_back(*message);
    }
    return messages;
}

TEST(MidiParser, ReadsEveryKindOfChannelMessage)
{
    EXPECT_THAT(
        read({0x80, 60, 10, 0x91, 61, 100, 0xA2, 62, 5, 0xB3, 64, 127, 0xC4, 7, 0xD5, 99, 0xEF,
              0x01, 0x40}),
        ElementsAre(MidiMessage{Kind::NoteOff, 1, 60, 10}, MidiMessage{Kind::NoteOn, 2, 61, 100},
                    MidiMessage{Kind::KeyPressure, 3, 62, 5},
                    MidiMessage{Kind::Controller, 4, 64, 127}, MidiMessage{Kind::Program, 5, 7, 0},
                    MidiMessage{Kind::ChannelPressure, 6, 0, 99},
                    MidiMessage{Kind::PitchBend, 16, 0, 8193}));
}

TEST(MidiParser, TakesANoteWithoutVelocityForItsEnd)
{
    EXPECT_THAT(read({0x90, 60, 0}), ElementsAre(MidiMessage{Kind::NoteOff, 1, 60, 0}));
}

TEST(MidiParser, GoesOnWithRunningStatus)
{
    EXPECT_THAT(read({0xB0, 64, 127, 64, 0, 67, 1}),
                ElementsAre(MidiMessage{Kind::Controller, 1, 64, 127},
                            MidiMessage{Kind::Controller, 1, 64, 0},
                            MidiMessage{Kind::Controller, 1, 67, 1}));
}

TEST(MidiParser, LooksThroughRealTimeBytesBetweenAnyTwoBytes)
{
    EXPECT_THAT(read({0xF8, 0xB0, 0xFE, 64, 0xF8, 127, 0xFF, 64, 0xFA, 0}),
                ElementsAre(MidiMessage{Kind::Controller, 1, 64, 127},
                            MidiMessage{Kind::Controller, 1, 64, 0}));
}

TEST(MidiParser, SkipsSystemMessagesWithTheirData)
{
    EXPECT_THAT(read({0xF0, 0x7E, 64, 127, 0xF7, 64, 127, 0xB0, 64, 127}),
                ElementsAre(MidiMessage{Kind::Controller, 1, 64, 127}));
    EXPECT_THAT(read({0xB0, 64, 127, 0xF2, 1, 2, 3, 4}),
                ElementsAre(MidiMessage{Kind::Controller, 1, 64, 127}))
        << "the song position ends the running status";
    EXPECT_THAT(read({0xF0, 1, 2, 3, 0xC0, 5}), ElementsAre(MidiMessage{Kind::Program, 1, 5, 0}))
        << "an exclusive message without an end";
}

TEST(MidiParser, DropsMessagesThatAreCutOff)
{
    EXPECT_THAT(read({64, 127, 0xB0, 64}), IsEmpty());
    EXPECT_THAT(read({0xB0, 64, 0x90, 60, 1}), ElementsAre(MidiMessage{Kind::NoteOn, 1, 60, 1}));
    MidiParser parser;
    for (const std::uint8_t byte : {0xB0, 64})
        EXPECT_FALSE(parser.take(byte));
    parser.reset();
    EXPECT_FALSE(parser.take(127));
    EXPECT_FALSE(parser.take(1));
}

TEST(MidiParser, StaysWithinTheRangesWhateverComes)
{
    MidiParser parser;
    std::uint32_t state = 1;
    int messages = 0;
    for (int i = 0; i < 10'000'000; ++i) {
        state = state * 1664525U + 1013904223U;
        const auto message = parser.take(static_cast<std::uint8_t>(state >> 24U));
        if (!message)
            continue;
        ++messages;
        const int most = message->kind == Kind::PitchBend ? 16383 : 127;
        ASSERT_TRUE(message->channel >= 1 && message->channel <= 16 && message->number >= 0 &&
                    message->number <= 127 && message->value >= 0 && message->value <= most);
    }
    EXPECT_GT(messages, 1'000'000);
}

} // namespace
