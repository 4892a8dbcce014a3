#pragma once

#include <QList>

#include <cstdint>

namespace lyrabox::test {

/// Kills streams of other clients, for which `pactl` has no command. `streams` are their numbers at
/// the server in PULSE_SERVER. Returns when they are gone; false if the server does not kill them.
bool killStreams(const QList<std::uint32_t> &streams);

} // namespace lyrabox::test
