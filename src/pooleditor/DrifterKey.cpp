#include "pooleditor/DrifterKey.h"

#include <cmath>
#include <cstdint>

namespace aq {

namespace {

// The two taper symbols are one character each in a key; inside the builder they are
// single bytes so that the compression compares characters, and become UTF-8 at the end.
constexpr char kMuchWider = '\x01';     // "»"
constexpr char kMuchNarrower = '\x02';  // "«"

void appendHex(std::string& out, std::uint32_t n) {
    char buf[8];
    int len = 0;
    do {
        buf[len++] = "0123456789ABCDEF"[n & 15u];
        n >>= 4;
    } while (n != 0);
    while (len > 0) out += buf[--len];
}

void appendHex(std::string& out, std::int32_t n) { appendHex(out, static_cast<std::uint32_t>(n)); }

std::string colorField(const DrifterRec& d, int n, bool detailed) {
    std::string t;
    if (detailed) {
        bool seen[256] = {};
        int distinct = 0;
        // Colour codes beyond a byte are rare enough to be counted the slow way.
        for (int s = 0; s < n; ++s) {
            std::int32_t c = d.segments[s].color;
            bool before = false;
            if (c >= 0 && c < 256) {
                before = seen[c];
                seen[c] = true;
            } else {
                for (int r = 0; r < s && !before; ++r) before = d.segments[r].color == c;
            }
            if (!before) ++distinct;
        }
        appendHex(t, d.segments[0].color);
        appendHex(t, static_cast<std::int32_t>(distinct));
        return t;
    }
    for (int s = 0; s < n; ++s) appendHex(t, d.segments[s].color);
    // A repeated tail or head is written once: "0011" and "0101" both give "01".
    while (t.size() >= 2 && t[t.size() - 1] == t[t.size() - 2]) t.pop_back();
    while (t.size() >= 4 && t.compare(t.size() - 2, 2, t, t.size() - 4, 2) == 0) t.resize(t.size() - 2);
    while (t.size() >= 2 && t[0] == t[1]) t.erase(0, 1);
    while (t.size() >= 4 && t.compare(0, 2, t, 2, 2) == 0) t.erase(0, 2);
    return t;
}

// Hex of the integer part; false when the value can't be written (no number, or
// beyond a 32-bit integer), which ends the key.
bool appendClass(std::string& out, double value) {
    if (!std::isfinite(value) || value <= -2147483649.0 || value >= 2147483648.0) return false;
    appendHex(out, static_cast<std::int32_t>(std::trunc(value)));
    return true;
}

// '=', '>' or '<'; 0 when the two sizes can't be compared (both zero, or no number).
char compareSizes(float a, float b) {
    double sum = static_cast<double>(a) + b;
    double ratio = std::fabs(static_cast<double>(a) - b) / sum;
    if (sum == 0 || std::isnan(ratio)) return 0;
    if (ratio < 0.001) return '=';
    return a > b ? '>' : '<';
}

char taperSymbol(char width, char length) {
    if (width == length) return width == '>' ? kMuchWider : width == '<' ? kMuchNarrower : '=';
    if (width == '=') return length;
    if (length == '=') return width;
    return width == '<' ? '*' : '.';
}

void compressBytes(std::string& t) {
    std::size_t out = 0;
    for (std::size_t i = 0; i < t.size(); ++i)
        if (out == 0 || t[out - 1] != t[i]) t[out++] = t[i];
    t.resize(out);
    std::string r;
    r.reserve(t.size());
    for (std::size_t i = 0; i < t.size(); ++i)
        if (!(t[i] == '0' && i + 1 < t.size() && t[i + 1] == '}')) r += t[i];
    t.swap(r);
}

std::string toUtf8(const std::string& t) {
    std::string r;
    r.reserve(t.size() + 8);
    for (char c : t) {
        if (c == kMuchWider)
            r += "\u00BB";
        else if (c == kMuchNarrower)
            r += "\u00AB";
        else
            r += c;
    }
    return r;
}

std::string fromUtf8(const std::string& text) {
    std::string t;
    t.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.compare(i, 2, "\u00BB") == 0) {
            t += kMuchWider;
            ++i;
        } else if (text.compare(i, 2, "\u00AB") == 0) {
            t += kMuchNarrower;
            ++i;
        } else {
            t += text[i];
        }
    }
    return t;
}

}  // namespace

std::string CompressKey(const std::string& text) {
    std::string t = fromUtf8(text);
    // Any other multi-byte character is compared byte by byte, which keeps it whole:
    // its bytes never equal their neighbours within one character.
    compressBytes(t);
    return toUtf8(t);
}

std::string DrifterKey(const Pool& pool, int index, bool shortKey, bool compressed, bool detailed) {
    if (index < 0 || index >= pool.drifterCount || static_cast<std::size_t>(index) >= pool.drifters.size()) return "";
    const DrifterRec& d = pool.drifters[static_cast<std::size_t>(index)];
    std::string key;
    appendHex(key, d.segmentCount);
    // A record that can't be read as a body ends the key where it stands.
    if (d.segmentCount < 0 || d.segmentCount > kSegmentSlots) return key;
    const int n = d.segmentCount;
    key += colorField(d, n, detailed);
    std::string branches;
    for (int s = 0; s < n; ++s) appendHex(branches, d.segments[s].branchCount);
    // The first digit is dropped: the first segment holds the rest of the body.
    key += '{';
    if (!branches.empty()) key.append(branches, 1);
    key += '}';
    if (shortKey) return key;
    if (n == 0) return key;

    const double length = static_cast<double>(d.totalLength / static_cast<float>(n));
    const double mass = static_cast<double>(d.mass / static_cast<float>(n));
    if (!appendClass(key, detailed ? length / 27 + 0.5 + std::sqrt(length) / 5 : length / 10 + std::sqrt(length) / 3))
        return key;
    if (!appendClass(key, detailed ? mass / 50 + 0.5 + std::sqrt(mass) / 13 : mass / 37 + std::sqrt(mass) / 5))
        return toUtf8(key);
    if (detailed) {
        char last = 0;
        for (int s = 0; s < n; ++s) {
            const Segment& a = d.segments[s];
            const Segment& b = d.segments[(s + 1) % n];
            char width = compareSizes(a.width, b.width);
            char len = width ? compareSizes(a.length, b.length) : 0;
            if (!width || !len) return toUtf8(key);
            char symbol = taperSymbol(width, len);
            if (symbol != last) key += symbol;
            last = symbol;
        }
    }
    if (compressed) compressBytes(key);
    return toUtf8(key);
}

std::string DrifterKeyPair(const Pool& pool, int index) {
    return DrifterKey(pool, index, false, true, false) + "\r\n" + DrifterKey(pool, index, false, true, true);
}

}  // namespace aq
