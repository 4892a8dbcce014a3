#pragma once

#include <QList>

#include <cstdint>

namespace lyrabox::test {

/// Takes streams away from those who play them; `pactl` has no command for that. `streams` are
/// their numbers at the server that PULSE_SERVER names. Returns when they are gone; false when the
/// server does not do it.
bool killStreams(const QList<std::uint32_t> &streams);

} // namespace lyrabox::test
