#include "pooleditor/DrifterKey.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace aq {

namespace {

// Keys are made by the hundred thousand in a harvest, so a key is written into a
// buffer on the stack and compressed as it is written, not afterwards.

// The longest key: a count and two fields of 16 numbers of up to 8 hex digits, two
// classes and 16 two-byte taper symbols.
constexpr std::size_t kKeyRoom = 8 + 2 * 16 * 8 + 2 + 2 * 8 + 16 * 2;

class KeyWriter {
public:
    explicit KeyWriter(bool compress) : compress_(compress) { buf_[0] = 0; }
    std::string_view text() const { return {buf_ + 1, n_ - 1}; }

    // A character; compressed, a repeat of the last one is left out. The buffer starts
    // with a NUL, which no key holds, so the first character is never a repeat. Keys
    // hold ASCII and two-byte symbols that start with 0xC2 only, so the last byte of a
    // key equals an ASCII character only when its last character does.
    void put(char c) {
        buf_[n_] = c;
        n_ += !compress_ || buf_[n_ - 1] != c;
    }
    // A taper symbol, one or two bytes; there is always the count before it.
    void put(std::string_view symbol) {
        if (symbol.size() == 1) return put(symbol[0]);
        if (compress_ && buf_[n_ - 2] == symbol[0] && buf_[n_ - 1] == symbol[1]) return;
        std::memcpy(buf_ + n_, symbol.data(), symbol.size());
        n_ += symbol.size();
    }
    // The end of the branch field; compressed, a "0" before it goes.
    void putClose() {
        if (compress_ && buf_[n_ - 1] == '0') --n_;
        buf_[n_++] = '}';
    }
    void putHex(std::int64_t n) {
        char digits[8];
        const std::size_t len = hexDigits(n, digits);
        for (std::size_t i = 0; i < len; ++i) put(digits[i]);
    }
    // Upper-case hexadecimal without a prefix, of the low 32 bits.
    static std::size_t hexDigits(std::int64_t n, char* out) {
        auto v = static_cast<std::uint32_t>(n);
        const std::size_t len = v < 16 ? 1 : static_cast<std::size_t>(std::bit_width(v) + 3) / 4;
        for (std::size_t i = len; i-- > 0; v >>= 4) out[i] = "0123456789ABCDEF"[v & 15];
        return len;
    }

private:
    bool compress_;
    std::size_t n_ = 1;
    char buf_[kKeyRoom + 1];
};

void putColorField(KeyWriter& out, const DrifterRec& d, int n, bool detailed) {
    if (detailed) {
        // Colours are counted in a bit set while they are small, as they nearly always are.
        std::uint64_t small = 0;
        int seen[kSegmentSlots];
        int others = 0;
        for (int s = 0; s < n; ++s) {
            const auto color = static_cast<std::uint32_t>(d.segments[s].color);
            if (color < 64)
                small |= std::uint64_t{1} << color;
            else if (std::find(seen, seen + others, d.segments[s].color) == seen + others)
                seen[others++] = d.segments[s].color;
        }
        const int distinct = std::popcount(small) + others;
        out.putHex(d.segments[0].color);
        out.putHex(distinct);
        return;
    }
    char text[kSegmentSlots * 8];
    std::size_t len = 0;
    for (int s = 0; s < n; ++s) len += KeyWriter::hexDigits(d.segments[s].color, text + len);
    // A repeating tail or head is written once: "0011" and "0101" both give "01".
    while (len >= 2 && text[len - 1] == text[len - 2]) --len;
    // With three characters there are no two before the last two: such a text stays.
    auto pairsMatch = [&](std::size_t a, std::size_t b) { return text[a] == text[b] && text[a + 1] == text[b + 1]; };
    while (len >= 4 && pairsMatch(len - 2, len - 4)) len -= 2;
    std::size_t head = 0;
    while (len - head >= 2 && text[head] == text[head + 1]) ++head;
    while (len - head >= 4 && pairsMatch(head, head + 2)) head += 2;
    for (std::size_t i = head; i < len; ++i) out.put(text[i]);
}

void putBranchField(KeyWriter& out, const DrifterRec& d, int n) {
    out.put('{');
    char text[kSegmentSlots * 8];
    std::size_t len = 0;
    for (int s = 0; s < n; ++s) len += KeyWriter::hexDigits(d.segments[s].branchCount, text + len);
    // The first segment's branching is left out.
    for (std::size_t i = 1; i < len; ++i) out.put(text[i]);
    out.putClose();
}

// Whether a class value can be written: a body without segments gives no number.
bool classFits(double value) { return std::isfinite(value) && value >= 0 && value <= 4.0e9; }

// How two sizes of neighbouring segments compare: 0 '=', 1 '>', 2 '<'; -1 for two zeros.
int compareSizes(float a, float b) {
    double sum = static_cast<double>(a) + b;
    if (sum == 0) return -1;
    if (std::fabs(static_cast<double>(a) - b) / sum < 0.001) return 0;
    return a > b ? 1 : 2;
}

// The taper symbols, and which one the comparisons of width and length give.
constexpr std::string_view kTaperSymbols[] = {"=", ">", "\u00BB", "<", "\u00AB", "*", "."};
constexpr int kTaper[3][3] = {{0, 1, 3}, {1, 2, 6}, {3, 5, 4}};

void putTaperField(KeyWriter& out, const DrifterRec& d, int n) {
    int last = -1;
    for (int s = 0; s < n; ++s) {
        const Segment& a = d.segments[s];
        const Segment& b = d.segments[s + 1 < n ? s + 1 : 0];
        const int width = compareSizes(a.width, b.width);
        const int length = compareSizes(a.length, b.length);
        if (width < 0 || length < 0) return;
        const int symbol = kTaper[width][length];
        if (symbol != last) out.put(kTaperSymbols[symbol]);
        last = symbol;
    }
}

// The length of the UTF-8 character that starts with byte c, so "»" counts as one.
std::size_t charLength(unsigned char c) { return c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1; }

// CompressKey on the text from `from` to the end of `s`, in place.
void compressTail(std::string& s, std::size_t from) {
    std::size_t w = from;
    std::size_t lastAt = 0, lastLen = 0;
    for (std::size_t i = from; i < s.size();) {
        std::size_t len = std::min(charLength(static_cast<unsigned char>(s[i])), s.size() - i);
        bool repeat = len == lastLen && (len == 1 ? s[lastAt] == s[i] : s.compare(lastAt, len, s, i, len) == 0);
        // The kept copy of the previous character sits at lastAt, before the write point.
        if (!repeat) {
            std::memmove(&s[w], &s[i], len);
            lastAt = w;
            w += len;
        }
        lastLen = len;
        i += len;
    }
    s.resize(w);
    // No two neighbours are alike any more, so dropping a 0 never makes a new "0}".
    for (std::size_t p = from; (p = s.find("0}", p)) != std::string::npos;) s.erase(p, 1);
}

}  // namespace

std::string CompressKey(const std::string& text) {
    std::string out = text;
    compressTail(out, 0);
    return out;
}

void appendDrifterKey(std::string& out, const DrifterRec& d, bool shortKey, bool compressed, bool detailed) {
    const int n = d.segmentCount;
    const bool body = n >= 0 && n <= kSegmentSlots;
    // The classes come first, since a key without them is not compressed.
    double lengthClass = 0, massClass = 0;
    if (body && !shortKey) {
        const double perLength = static_cast<double>(d.totalLength / static_cast<float>(n));
        const double perMass = static_cast<double>(d.mass / static_cast<float>(n));
        lengthClass =
            detailed ? perLength / 27 + 0.5 + std::sqrt(perLength) / 5 : perLength / 10 + std::sqrt(perLength) / 3;
        massClass = detailed ? perMass / 50 + 0.5 + std::sqrt(perMass) / 13 : perMass / 37 + std::sqrt(perMass) / 5;
    }
    const bool classes = classFits(lengthClass) && classFits(massClass);
    KeyWriter key(compressed && body && !shortKey && classes);
    key.putHex(n);
    // A record that can't be read as a body ends the key where it stands.
    if (body) {
        putColorField(key, d, n, detailed);
        putBranchField(key, d, n);
        if (!shortKey && classFits(lengthClass)) {
            key.putHex(static_cast<std::int64_t>(lengthClass));
            if (classFits(massClass)) key.putHex(static_cast<std::int64_t>(massClass));
            if (classes && detailed) putTaperField(key, d, n);
        }
    }
    out.append(key.text());
}

std::string DrifterKey(const Pool& pool, int index, bool shortKey, bool compressed, bool detailed) {
    if (index < 0 || index >= pool.drifterCount || static_cast<std::size_t>(index) >= pool.drifters.size()) return "";
    std::string key;
    appendDrifterKey(key, pool.drifters[static_cast<std::size_t>(index)], shortKey, compressed, detailed);
    return key;
}

std::string DrifterKeyPair(const Pool& pool, int index) {
    return DrifterKey(pool, index, false, true, false) + "\r\n" + DrifterKey(pool, index, false, true, true);
}

}  // namespace aq
