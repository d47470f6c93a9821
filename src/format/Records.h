#pragma once
// The simulator's records, laid out in memory exactly as in a pool file
// (little-endian, packed), so a record is read and written as its bytes.
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

static_assert(std::endian::native == std::endian::little, "pool records assume a little-endian host");

namespace aq {

constexpr int kGeneCount = 1000;
constexpr int kSegmentSlots = 16;

#pragma pack(push, 1)

struct Segment {
    std::int32_t color;        // 0 red, 1 orange, 2 yellow, 3 green, 4 blue, 5 purple
    std::int32_t branchCount;  // segments hanging on this one; segment 0 has segmentCount - 1
    std::int32_t carried1;
    std::int32_t branchList[16];
    std::uint8_t carried2[12];
    float length;
    float width;
    float mass;
    std::uint8_t carried3[24];
    float point1X, point1Y;
    float point2X, point2Y;
    float point3X, point3Y;
    float point4X, point4Y;
    std::int32_t carried4;
};

struct DrifterRec {
    std::int32_t age;
    std::int32_t segmentCount;
    std::int32_t id;
    std::int32_t carried1[2];
    std::int32_t alive;  // 0 dead, 1 alive
    std::int32_t paternalOffspring;
    std::int32_t maternalOffspring;
    std::int32_t mealsEaten;
    std::uint8_t carried2[12];
    float energy;
    float energyEfficiency;
    float totalLength;
    float mass;
    float heading;
    float carried3;
    float x, y;
    float prevX, prevY;
    float velocityX, velocityY;
    float carried4[2];
    std::uint8_t genes[kGeneCount];
    std::uint8_t bodyState[208];
    Segment segments[kSegmentSlots];
    std::uint8_t tailState[144];
};

struct FoodBit {
    std::uint8_t family;
    std::uint8_t carried1[3];
    float x, y;
    std::uint8_t carried2[8];
};

struct GreatWall {
    std::int32_t orientation;  // 1 vertical, 0 horizontal
    std::int32_t carried1;
    double left, right, bottom, top;
    double carried2;
    double wallLength;
    std::int16_t wallFlag;
    std::uint8_t carried3[6];
};

#pragma pack(pop)

static_assert(sizeof(Segment) == 160);
static_assert(offsetof(Segment, length) == 88);
static_assert(offsetof(Segment, point1X) == 124);
static_assert(sizeof(DrifterRec) == 4016);
static_assert(offsetof(DrifterRec, energy) == 48);
static_assert(offsetof(DrifterRec, x) == 72);
static_assert(offsetof(DrifterRec, genes) == 104);
static_assert(offsetof(DrifterRec, bodyState) == 1104);
static_assert(offsetof(DrifterRec, segments) == 1312);
static_assert(offsetof(DrifterRec, tailState) == 3872);
static_assert(sizeof(FoodBit) == 20);
static_assert(offsetof(FoodBit, x) == 4);
static_assert(sizeof(GreatWall) == 64);
static_assert(offsetof(GreatWall, wallLength) == 48);
static_assert(offsetof(GreatWall, wallFlag) == 56);

constexpr std::size_t kViewBlockSize = 24;
constexpr std::size_t kHistoryBlockSize = 32100;
constexpr std::size_t kPoolHeaderSize = 12;      // version, clock, headerWord
constexpr std::size_t kPoolTrailerSize = 32280;  // worldValueA .. lastWord
constexpr std::int32_t kMaxRecordCount = 32767;  // the most a 16-bit counter walks

// One world. Owns its arrays; assignment copies everything. Every loop goes by the
// counts, which may be smaller than the arrays (a later load can shrink a pool).
struct Pool {
    std::int32_t version = 4;
    std::int32_t clock = 0;
    std::int32_t headerWord = 0;
    std::int32_t drifterCount = 0;
    std::vector<DrifterRec> drifters;
    std::int32_t foodCount = 0;
    std::vector<FoodBit> food;
    float worldValueA = 0;
    float worldValueB = 0;
    std::array<std::uint8_t, kViewBlockSize> viewBlock{};
    float minX = 0, minY = 0, maxX = 0, maxY = 0;
    GreatWall walls[2]{};
    std::vector<std::uint8_t> historyBlock = std::vector<std::uint8_t>(kHistoryBlockSize);
    std::int32_t lastWord = 0;

    // Size of this pool as a file, counting only what the counts say.
    std::size_t fileSize() const;
};

}  // namespace aq
