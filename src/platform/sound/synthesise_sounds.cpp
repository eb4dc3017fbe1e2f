// synthesise_sounds FOLDER: writes the program's sounds into it, always the same ones: NAME.wav, 48 kHz, one channel,
// 16 bits.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr int rate = 48000;
constexpr double twoPi = 2 * std::numbers::pi;

using Samples = std::vector<double>; // about -1 to 1

Samples silence(double seconds)
{
    return Samples(size_t(seconds * rate));
}

double secondsAt(size_t index)
{
    return double(index) / rate;
}

void add(Samples& to, const Samples& sound, double atSecond)
{
    const auto offset = size_t(atSecond * rate);
    for (size_t index = 0; index < sound.size() && offset + index < to.size(); ++index)
        to[offset + index] += sound[index];
}

// White, -1 to 1, the same for the same seed.
Samples noise(double seconds, uint32_t seed)
{
    Samples samples = silence(seconds);
    for (double& sample : samples) {
        seed = seed * 1664525u + 1013904223u;
        sample = double(seed) / 2147483648.0 - 1;
    }
    return samples;
}

// What a body with one natural frequency makes of a sound: a two-pole resonator whose peak is about 1.
Samples resonating(const Samples& sound, double frequency, double bandwidth)
{
    const double radius = std::exp(-std::numbers::pi * bandwidth / rate);
    const double feedback = 2 * radius * std::cos(twoPi * frequency / rate);
    const double gain = (1 - radius * radius) * std::sin(twoPi * frequency / rate);
    Samples result(sound.size());
    double one = 0;
    double two = 0;
    for (size_t index = 0; index < sound.size(); ++index) {
        result[index] = gain * sound[index] + feedback * one - radius * radius * two;
        two = one;
        one = result[index];
    }
    return result;
}

Samples scaled(Samples sound, double factor)
{
    for (double& sample : sound)
        sample *= factor;
    return sound;
}

// Rises within `attack` and falls to 1/e every `decay` seconds.
Samples shaped(Samples sound, double attack, double decay)
{
    for (size_t index = 0; index < sound.size(); ++index)
        sound[index] *= std::min(1.0, secondsAt(index) / attack) * std::exp(-secondsAt(index) / decay);
    return sound;
}

Samples sine(double seconds, double frequency)
{
    Samples samples = silence(seconds);
    for (size_t index = 0; index < samples.size(); ++index)
        samples[index] = std::sin(twoPi * frequency * secondsAt(index));
    return samples;
}

// Metal on metal in a small box: a short burst that rings in it.
Samples click(uint32_t seed, double brightness)
{
    const Samples burst = shaped(noise(0.07, seed), 0.0004, 0.006);
    Samples sound = scaled(resonating(burst, 3400 * brightness, 2200), 1.0);
    add(sound, scaled(resonating(burst, 1500 * brightness, 500), 1.4), 0);
    add(sound, scaled(resonating(burst, 420, 160), 2.2), 0.001);
    return sound;
}

// The mirror goes up, the curtains run, the mirror comes down.
Samples cameraShutter()
{
    Samples sound = silence(0.24);
    add(sound, click(11, 1.15), 0.001);
    add(sound, scaled(resonating(shaped(noise(0.06, 23), 0.02, 0.03), 5200, 3000), 0.12), 0.012);
    add(sound, scaled(click(37, 0.85), 0.8), 0.078);
    return sound;
}

// A bubble: a sine whose pitch falls while it fades.
Samples pop()
{
    Samples sound = silence(0.16);
    double phase = 0;
    for (size_t index = 0; index < sound.size(); ++index) {
        const double frequency = 260 + 420 * std::exp(-secondsAt(index) / 0.018);
        phase += twoPi * frequency / rate;
        sound[index] = std::sin(phase) + 0.15 * std::sin(2 * phase);
    }
    return shaped(std::move(sound), 0.003, 0.028);
}

// A small bell: partials that are no multiples of each other, the high ones gone first.
Samples glass()
{
    struct Partial {
        double ratio;
        double level;
        double decay;
    };

    Samples sound = silence(1.2);
    for (const auto& [ratio, level, decay] :
         {Partial{1, 1, 0.32}, Partial{2.003, 0.35, 0.22}, Partial{2.76, 0.3, 0.14}, Partial{5.4, 0.12, 0.06}})
        add(sound, scaled(shaped(sine(1.2, 1318.5 * ratio), 0.004, decay), level), 0);
    return sound;
}

// To one loudest sample, and to silence at the end.
Samples finished(Samples sound, double peak)
{
    constexpr size_t fade = rate / 50;
    for (size_t index = 0; index < fade; ++index)
        sound[sound.size() - 1 - index] *= double(index) / fade;
    double loudest = 0;
    for (const double sample : sound)
        loudest = std::max(loudest, std::abs(sample));
    return scaled(std::move(sound), peak / loudest);
}

void put(std::string& bytes, uint32_t value, int count)
{
    for (int byte = 0; byte < count; ++byte)
        bytes += char(value >> (8 * byte) & 0xff);
}

std::string wave(const Samples& samples)
{
    const auto size = uint32_t(samples.size() * 2);
    std::string bytes = "RIFF";
    put(bytes, 36 + size, 4);
    bytes += "WAVEfmt ";
    put(bytes, 16, 4);
    put(bytes, 1, 2); // plain samples
    put(bytes, 1, 2);
    put(bytes, rate, 4);
    put(bytes, rate * 2, 4);
    put(bytes, 2, 2);
    put(bytes, 16, 2);
    bytes += "data";
    put(bytes, size, 4);
    for (const double sample : samples)
        put(bytes, uint32_t(int32_t(std::lround(sample * 32767))), 2);
    return bytes;
}

bool write(const std::string& path, const Samples& samples)
{
    std::ofstream file(path, std::ios::binary);
    file << wave(samples);
    return bool(file.flush());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const std::string folder = argv[1];
    const bool isWritten = write(folder + "/apple.wav", finished(cameraShutter(), 0.7)) &&
                           write(folder + "/pop.wav", finished(pop(), 0.6)) &&
                           write(folder + "/glass.wav", finished(glass(), 0.6));
    return isWritten ? 0 : 1;
}
