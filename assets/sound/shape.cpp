// shape.cpp: the noise, the cuts and the levels of shape.h.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#include "shape.h"

#include <algorithm>
#include <numbers>

namespace sound {

namespace {

constexpr double PI = std::numbers::pi;

// --- Noise ---------------------------------------------------------------------------------------

// Uniform values in -1..1 from a 64-bit counter whose bits are mixed (splitmix64).
struct random_source {
    std::uint64_t state;

    double next() {
        constexpr double SCALE = 1.0 / (1ULL << 52);
        std::uint64_t z = state += 0x9E3779B97F4A7C15ULL;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return static_cast<double>((z ^ (z >> 31)) >> 11) * SCALE - 1.0;
    }
};

// A state-variable filter whose middle frequency may change at every sample.
struct band_filter {
    double low = 0;
    double band = 0;

    double step(double in, double hz, double sharpness) {
        const double g = std::tan(PI * hz / SAMPLE_RATE);
        const double k = 1.0 / sharpness;
        const double high = (in - (k + g) * band - low) / (1.0 + g * (g + k));
        const double middle = g * high + band;
        const double bottom = g * middle + low;
        band = g * high + middle;
        low = g * middle + bottom;
        return k * middle; // unity at the middle of the band
    }
};

// How strongly the surface lets through at each moment: random values `hz` times a second, joined up.
struct grain {
    random_source random;
    double before = 0;
    double after = 0;
    double phase = 1;

    double step(double hz) {
        if (hz <= 0)
            return 1;
        phase += hz / SAMPLE_RATE;
        if (phase >= 1) {
            phase -= 1;
            before = after;
            after = std::abs(random.next());
        }
        return before + (after - before) * phase;
    }
};

// 0..1..0: half a cosine wave up over `rise`, and down over the rest.
double swell(double time, const noise &layer) {
    if (time < layer.rise)
        return 0.5 - 0.5 * std::cos(PI * time / layer.rise);
    const double part = (time - layer.rise) / (layer.length - layer.rise);
    return std::pow(0.5 + 0.5 * std::cos(PI * std::min(part, 1.0)), layer.fall);
}

// --- Loudness ------------------------------------------------------------------------------------

constexpr double PEAK_CEILING_DB = -4.5;      // the coder may raise a peak by about 1 dB; -3 is the limit
constexpr double LOUDNESS_WINDOW = 0.125;     // seconds; about as long as the ear gathers energy
constexpr double LOUDNESS_OFFSET_DB = -0.691; // makes a full-scale 997 Hz tone read -3.01 in one channel
constexpr double POWER_DECIBELS_PER_DECADE = 10;

// A second-order filter section.
struct biquad {
    double b0, b1, b2, a1, a2;
    double z1 = 0, z2 = 0;

    double step(double in) {
        const double out = b0 * in + z1;
        z1 = b1 * in - a1 * out + z2;
        z2 = b2 * in - a2 * out;
        return out;
    }
};

// The first half of the ear's weighting: the head lifts high frequencies by 4 dB (ITU-R BS.1770).
biquad head_shelf() {
    constexpr double HZ = 1681.974450955533;
    constexpr double GAIN_DB = 3.999843853973347;
    constexpr double Q = 0.7071752369554196;
    constexpr double MIDDLE = 0.4996667741545416;
    const double k = std::tan(PI * HZ / SAMPLE_RATE);
    const double top = amplitude_of(GAIN_DB);
    const double mid = std::pow(top, MIDDLE);
    const double a0 = 1 + k / Q + k * k;
    return {.b0 = (top + mid * k / Q + k * k) / a0,
            .b1 = 2 * (k * k - top) / a0,
            .b2 = (top - mid * k / Q + k * k) / a0,
            .a1 = 2 * (k * k - 1) / a0,
            .a2 = (1 - k / Q + k * k) / a0};
}

// The second half: the lowest frequencies count little.
biquad low_cut() {
    constexpr double HZ = 38.13547087602444;
    constexpr double Q = 0.5003270373238773;
    const double k = std::tan(PI * HZ / SAMPLE_RATE);
    const double a0 = 1 + k / Q + k * k;
    return {.b0 = 1, .b1 = -2, .b2 = 1, .a1 = 2 * (k * k - 1) / a0, .a2 = (1 - k / Q + k * k) / a0};
}

// The weighted power of every frame, both channels together.
std::vector<double> weighted_power(const pcm &in) {
    std::vector<double> power(in.channel[0].size());
    for (const std::vector<float> &samples : in.channel) {
        biquad shelf = head_shelf();
        biquad cut = low_cut();
        for (std::size_t i = 0; i < power.size(); ++i) {
            const double weighted = cut.step(shelf.step(static_cast<double>(samples[i])));
            power[i] += weighted * weighted;
        }
    }
    return power;
}

// The loudness of the loudest window; a sound shorter than the window counts as followed by silence.
double loudness(const pcm &in) {
    constexpr double SILENCE = 1e-12;
    const std::vector<double> power = weighted_power(in);
    const std::size_t window = frames_of(LOUDNESS_WINDOW);
    double sum = 0;
    double most = SILENCE;
    for (std::size_t i = 0; i < power.size(); ++i) {
        sum += power[i];
        if (i >= window)
            sum -= power[i - window];
        most = std::max(most, sum);
    }
    return LOUDNESS_OFFSET_DB + POWER_DECIBELS_PER_DECADE * std::log10(most / static_cast<double>(window));
}

float peak(const pcm &in) {
    float most = 0;
    for (const std::vector<float> &samples : in.channel) {
        for (const float sample : samples)
            most = std::max(most, std::abs(sample));
    }
    return most;
}

// The first frame that can be heard against the loudest one.
std::size_t first_audible(const pcm &in) {
    constexpr double AUDIBLE_DB = -46;
    const float threshold = peak(in) * static_cast<float>(amplitude_of(AUDIBLE_DB));
    const std::size_t frames = in.channel[0].size();
    for (std::size_t i = 0; i < frames; ++i) {
        if (std::abs(in.channel[0][i]) > threshold || std::abs(in.channel[1][i]) > threshold)
            return i;
    }
    return 0;
}

// Half a cosine wave from 0 up to 1 over `count` frames, at frame `i`.
float half_wave(std::size_t i, std::size_t count) {
    return static_cast<float>(0.5 - 0.5 * std::cos(PI * static_cast<double>(i) / static_cast<double>(count)));
}

} // namespace

void add_noise(pcm &out, const noise &layer, std::uint64_t seed) {
    const std::size_t first = frames_of(layer.start);
    const std::size_t frames = frames_of(layer.length);
    const double amplitude = amplitude_of(layer.level_db);
    for (std::size_t c = 0; c < CHANNELS; ++c) {
        random_source random{seed * CHANNELS + c};
        grain surface{.random = {~seed}}; // the same for both channels: one hand moves one sheet
        band_filter filter;
        std::vector<float> &samples = out.channel[c];
        for (std::size_t i = 0; i < frames && first + i < samples.size(); ++i) {
            const double part = static_cast<double>(i) / static_cast<double>(frames);
            const double hz = layer.from_hz * std::pow(layer.to_hz / layer.from_hz, part);
            const double shape = swell(part * layer.length, layer) * surface.step(layer.grain_hz);
            samples[first + i] +=
                static_cast<float>(amplitude * shape * filter.step(random.next(), hz, layer.sharpness));
        }
    }
}

void cut_and_fade(pcm &out, double seconds, double fade) {
    constexpr double FADE_IN = 0.0015; // seconds
    constexpr double LEAD_IN = 0.003;  // seconds; the coder smears a sound that begins at once over its start
    const std::size_t lead = frames_of(LEAD_IN);
    const std::size_t rise = frames_of(FADE_IN);
    const std::size_t fall = frames_of(fade);
    const std::size_t frames = frames_of(seconds);
    const std::size_t audible = first_audible(out);
    for (std::vector<float> &samples : out.channel) {
        const auto begin = samples.begin();
        if (audible > lead)
            samples.erase(begin, begin + static_cast<std::ptrdiff_t>(audible - lead));
        else
            samples.insert(begin, lead - audible, 0);
        samples.resize(frames);
        for (std::size_t i = 0; i < rise; ++i)
            samples[i + lead - rise] *= half_wave(i, rise);
        std::fill_n(samples.begin(), lead - rise, 0.0F);
        for (std::size_t i = 0; i < fall; ++i)
            samples[frames - 1 - i] *= half_wave(i, fall);
    }
}

double set_loudness(pcm &out, double target) {
    const double reached = loudness(out);
    const double ceiling = amplitude_of(PEAK_CEILING_DB) / static_cast<double>(peak(out));
    const double factor = std::min(amplitude_of(target - reached), ceiling);
    for (std::vector<float> &samples : out.channel) {
        for (float &sample : samples)
            sample *= static_cast<float>(factor);
    }
    return loudness(out);
}

} // namespace sound
