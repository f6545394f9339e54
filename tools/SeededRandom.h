#pragma once
// A small deterministic generator (SplitMix64): the same seed gives the same numbers on every
// machine and standard library, which std::uniform_int_distribution does not promise.

#include <cstdint>
#include <initializer_list>

class SeededRandom {
public:
    explicit SeededRandom(std::uint64_t seed) : m_state(seed) {}
    // A seed mixed from several numbers, so that neighbouring inputs give unrelated streams.
    static std::uint64_t mix(std::initializer_list<std::uint64_t> parts) {
        SeededRandom random(0x4B4F5641u);
        std::uint64_t value = 0;
        for (std::uint64_t part : parts) {
            random.m_state ^= part;
            value = random.next();
        }
        return value;
    }

    std::uint64_t next() {
        std::uint64_t z = (m_state += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    // A whole number from low to high, both included.
    int between(int low, int high) {
        return low + static_cast<int>(next() % static_cast<std::uint64_t>(high - low + 1));
    }
    // True with the given chance in percent.
    bool percent(int chance) { return between(1, 100) <= chance; }

private:
    std::uint64_t m_state;
};
