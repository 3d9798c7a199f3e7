#include "database/hash_sha3.h"

#include <bit>
#include <iterator>
#include <utility>

#include "foundation/conversion.h"
#include "platform/memory.h"

namespace {

constexpr u8 kSuffix = 0x06;   // the two domain bits 01 and the first bit of the padding
constexpr u8 kLastBit = 0x80;  // the last bit of the padding, in the last byte of the block
constexpr std::size_t kLaneSize = 8;

constexpr u64 kRoundConstants[24] = {
    0x0000000000000001, 0x0000000000008082, 0x800000000000808A, 0x8000000080008000, 0x000000000000808B,
    0x0000000080000001, 0x8000000080008081, 0x8000000000008009, 0x000000000000008A, 0x0000000000000088,
    0x0000000080008009, 0x000000008000000A, 0x000000008000808B, 0x800000000000008B, 0x8000000000008089,
    0x8000000000008003, 0x8000000000008002, 0x8000000000000080, 0x000000000000800A, 0x800000008000000A,
    0x8000000080008081, 0x8000000000008080, 0x0000000080000001, 0x8000000080008008,
};

// Rho and pi together are one cycle through 24 lanes: each step moves a lane to the next place, rotated.
struct RhoPiStep {
    u8 m_Place;
    u8 m_Rotation;
};
constexpr RhoPiStep kRhoPi[24] = {
    {10, 1},  {7, 3},   {11, 6},  {17, 10}, {18, 15}, {3, 21},  {5, 28},  {16, 36},
    {8, 45},  {21, 55}, {24, 2},  {4, 14},  {15, 27}, {23, 41}, {19, 56}, {13, 8},
    {12, 25}, {2, 43},  {20, 62}, {14, 18}, {22, 39}, {9, 61},  {6, 20},  {1, 44},
};

u64 LoadLane(const u8* bytes) noexcept {
    u64 lane = 0;
    for (std::size_t i = kLaneSize; i-- > 0;)
        lane = lane << 8 | bytes[i];
    return lane;
}

void MixColumn(u64* column, u64 parityBefore, u64 parityAfter) noexcept {
    const u64 mix = parityBefore ^ std::rotl(parityAfter, 1);
    column[0] ^= mix;
    column[5] ^= mix;
    column[10] ^= mix;
    column[15] ^= mix;
    column[20] ^= mix;
}

void Theta(u64* lanes) noexcept {
    const auto parity = [lanes](std::size_t x) {
        return lanes[x] ^ lanes[x + 5] ^ lanes[x + 10] ^ lanes[x + 15] ^ lanes[x + 20];
    };
    const u64 parities[5] = {parity(0), parity(1), parity(2), parity(3), parity(4)};
    MixColumn(lanes, parities[4], parities[1]);
    MixColumn(lanes + 1, parities[0], parities[2]);
    MixColumn(lanes + 2, parities[1], parities[3]);
    MixColumn(lanes + 3, parities[2], parities[4]);
    MixColumn(lanes + 4, parities[3], parities[0]);
}

// Unrolled by the parameter pack: with constant places and rotations the permutation is much faster.
template <std::size_t... kStep>
void RhoPi(u64* lanes, std::index_sequence<kStep...>) noexcept {
    u64 carried = lanes[1];
    const auto move = [lanes, &carried](std::size_t place, int rotation) {
        const u64 next = lanes[place];
        lanes[place] = std::rotl(carried, rotation);
        carried = next;
    };
    (move(kRhoPi[kStep].m_Place, kRhoPi[kStep].m_Rotation), ...);
}

void Chi(u64* lanes) noexcept {
    for (u64* row = lanes; row != lanes + 25; row += 5) {
        const u64 first = row[0];
        const u64 second = row[1];
        row[0] ^= ~row[1] & row[2];
        row[1] ^= ~row[2] & row[3];
        row[2] ^= ~row[3] & row[4];
        row[3] ^= ~row[4] & first;
        row[4] ^= ~first & second;
    }
}

}  // namespace

HashSHA3::~HashSHA3() {
    Wipe();
}

void HashSHA3::Init() noexcept {
    Wipe();  // the starting state is all zeros
}

void HashSHA3::Update(const void* bytes, std::size_t size) noexcept {
    const u8* next = static_cast<const u8*>(bytes);
    while (size != 0) {
        const bool wholeLane = m_Position % kLaneSize == 0 && size >= kLaneSize;
        const std::size_t step = wholeLane ? kLaneSize : 1;
        if (wholeLane) {
            m_Lanes[m_Position / kLaneSize] ^= LoadLane(next);
        } else {
            MixByte(m_Position, *next);
        }
        next += step;
        size -= step;
        m_Position += step;
        if (m_Position == kRate) {
            Permute();
            m_Position = 0;
        }
    }
}

void HashSHA3::UpdateText(const tvstring& text) {
    const tvstringA bytes = ToUtf8(text);
    Update(bytes.data(), bytes.size());
}

void HashSHA3::Final(u8* digest) noexcept {
    MixByte(m_Position, kSuffix);
    MixByte(kRate - 1, kLastBit);
    Permute();
    for (std::size_t i = 0; i < kDigestSize; ++i)
        digest[i] = static_cast<u8>(m_Lanes[i / kLaneSize] >> (8 * (i % kLaneSize)));
    Wipe();
    platform::WipeStack();  // where Permute has put lanes for want of registers, and with them the digest
}

void HashSHA3::MixByte(std::size_t position, u8 byte) noexcept {
    m_Lanes[position / kLaneSize] ^= static_cast<u64>(byte) << (8 * (position % kLaneSize));
}

void HashSHA3::Permute() noexcept {
    for (const u64 constant : kRoundConstants) {
        Theta(m_Lanes);
        RhoPi(m_Lanes, std::make_index_sequence<std::size(kRhoPi)>());
        Chi(m_Lanes);
        m_Lanes[0] ^= constant;
    }
}

void HashSHA3::Wipe() noexcept {
    platform::WipeMemory(this, sizeof(*this));
}
