// Passes four minutes of music through the channel tools, in slices of 128 frames. The argument
// says which: "neutral", "swapped" or "centre". The amount is the number of slices that were
// processed.

#include "Work.h"

#include "platform/audio/ChannelStage.h"
#include "support/pieces/StereoMix.h"

#include <algorithm>
#include <ctime>
#include <string_view>

using namespace lyrabox;

namespace {

constexpr std::uint32_t slice = 128;
constexpr std::size_t frames = std::size_t{240} * 44100 / slice * slice;

/// A mix that is repeated for ever.
class Tape final : public StreamAround {
public:
    void readAhead(float *left, float *right, std::uint32_t count) noexcept override
    {
        copy(left, right, count, position);
    }
    void readBefore(float *left, float *right, std::uint32_t count) noexcept override
    {
        copy(left, right, count, position + m_music.frames() - slice - count % m_music.frames());
    }
    void copy(float *left, float *right, std::size_t count, std::size_t from) const noexcept
    {
        for (std::size_t i = 0; i < count; ++i) {
            left[i] = m_music.left[(from + i) % m_music.frames()];
            right[i] = m_music.right[(from + i) % m_music.frames()];
        }
    }

    std::size_t position = 0;

private:
    const test::StereoPart m_music = test::makeStereoMix(1, 20.0).whole();
};

ChannelTools toolsOf(std::string_view argument)
{
    if (argument == "swapped")
        return {.mode = ChannelMode::Swapped};
    if (argument == "centre")
        return {.centre = -100};
    if (argument != "neutral")
        work::fail("unknown argument");
    return {};
}

} // namespace

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    Tape tape;
    ChannelStage stage;
    stage.set(toolsOf(arguments.argument));
    // What is read from the song costs the same without the tools, so only the stage is measured.
    test::StereoPart music{std::vector<float>(frames), std::vector<float>(frames)};
    tape.copy(music.left.data(), music.right.data(), frames, 0);
    int processed = 0;
    const std::clock_t begin = std::clock();
    work::Cost cost = work::measure([&] {
        for (std::size_t done = 0; done < frames; done += slice) {
            tape.position = done + slice;
            if (!stage.isOn())
                continue;
            stage.process(music.left.data() + done, music.right.data() + done, slice, tape);
            ++processed;
        }
    });
    cost.seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    work::report(cost, processed);
}
