#include "bench/sha256.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quorvane {

namespace {

// The first 32 bits behind the point of a prime's root.
std::uint32_t RootBits(double root) {
    return static_cast<std::uint32_t>(std::floor((root - std::floor(root)) * 4294967296.0));
}

bool IsPrime(int number) {
    for (int divisor = 2; divisor * divisor <= number; ++divisor)
        if (number % divisor == 0) return false;
    return true;
}

struct Constants {
    std::array<std::uint32_t, 8> Start{};
    std::array<std::uint32_t, 64> Round{};

    Constants() {
        std::size_t count = 0;
        for (int number = 2; count < Round.size(); ++number) {
            if (!IsPrime(number)) continue;
            if (count < Start.size()) Start[count] = RootBits(std::sqrt(number));
            Round[count++] = RootBits(std::cbrt(number));
        }
    }
};

void AddBlock(std::array<std::uint32_t, 8>& hash, const Constants& constants, const unsigned char* block) {
    std::array<std::uint32_t, 64> w{};
    for (std::size_t i = 0; i < 16; ++i)
        for (std::size_t byte = 0; byte < 4; ++byte) w[i] = (w[i] << 8) | block[i * 4 + byte];
    for (std::size_t i = 16; i < 64; ++i) {
        const auto s0 = std::rotr(w[i - 15], 7) ^ std::rotr(w[i - 15], 18) ^ (w[i - 15] >> 3);
        const auto s1 = std::rotr(w[i - 2], 17) ^ std::rotr(w[i - 2], 19) ^ (w[i - 2] >> 10);
        w[i] = w[i - 16] + s0 + w[i - 7] + s1;
    }
    auto [a, b, c, d, e, f, g, h] = hash;
    for (std::size_t i = 0; i < 64; ++i) {
        const auto s1 = std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25);
        const auto t1 = h + s1 + ((e & f) ^ (~e & g)) + constants.Round[i] + w[i];
        const auto s0 = std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22);
        const auto t2 = s0 + ((a & b) ^ (a & c) ^ (b & c));
        h = g, g = f, f = e, e = d + t1, d = c, c = b, b = a, a = t1 + t2;
    }
    const std::array<std::uint32_t, 8> sum{a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < hash.size(); ++i) hash[i] += sum[i];
}

} // namespace

std::string Sha256(std::string_view text) {
    const Constants constants;
    std::vector<unsigned char> bytes(text.begin(), text.end());
    bytes.push_back(0x80);
    while (bytes.size() % 64 != 56) bytes.push_back(0);
    const std::uint64_t bits = std::uint64_t{text.size()} * 8;
    for (int shift = 56; shift >= 0; shift -= 8) bytes.push_back(static_cast<unsigned char>(bits >> shift));
    auto hash = constants.Start;
    for (std::size_t block = 0; block < bytes.size(); block += 64)
        AddBlock(hash, constants, bytes.data() + block);
    std::string digest;
    for (const std::uint32_t word : hash)
        for (int shift = 28; shift >= 0; shift -= 4) digest += "0123456789abcdef"[(word >> shift) & 15];
    return digest;
}

} // namespace quorvane
