#pragma once

#include <QString>

#include <expected>

namespace Kovrel {

// Plays the program's own sounds, which it knows by name: "apple", "pop" and "glass". Used on one worker lane only.
// Each call is back within a second, also when the audio service hangs.
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;

    using Outcome = std::expected<void, QString>; // the failure is one line, for the log

    // Makes the sounds ready; nothing is done when they are.
    virtual Outcome open() = 0;
    // Starts a sound, and opens first where that is not done. `volume` is above 0 and at most 1: the factor of the
    // amplitude.
    virtual Outcome play(const QString& sound, double volume) = 0;
    // Lets the audio service go.
    virtual void close() = 0;
};

} // namespace Kovrel
