#include "pooleditor/DrifterKey.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace aq {

namespace {

// Upper-case hexadecimal without a prefix; built by hand since keys are made by the
// thousand in a harvest.
std::string hex(std::int64_t n) {
    auto v = static_cast<std::uint32_t>(n);
    char buf[8];
    int len = 0;
    do {
        buf[len++] = "0123456789ABCDEF"[v & 15];
        v >>= 4;
    } while (v != 0);
    std::string out(static_cast<std::size_t>(len), '0');
    for (int i = 0; i < len; ++i) out[static_cast<std::size_t>(i)] = buf[len - 1 - i];
    return out;
}

std::string colorField(const DrifterRec& d, int n, bool detailed) {
    if (detailed) {
        std::vector<int> seen;
        for (int s = 0; s < n; ++s)
            if (std::find(seen.begin(), seen.end(), d.segments[s].color) == seen.end())
                seen.push_back(d.segments[s].color);
        return hex(d.segments[0].color) + hex(static_cast<std::int64_t>(seen.size()));
    }
    std::string t;
    for (int s = 0; s < n; ++s) t += hex(d.segments[s].color);
    // A repeating tail or head is written once: "0011" and "0101" both give "01".
    while (t.size() >= 2 && t[t.size() - 1] == t[t.size() - 2]) t.pop_back();
    // With three characters there are no two before the last two: such a text stays.
    while (t.size() >= 4 && t.compare(t.size() - 2, 2, t, t.size() - 4, 2) == 0) t.erase(t.size() - 2);
    while (t.size() >= 2 && t[0] == t[1]) t.erase(0, 1);
    while (t.size() >= 4 && t.compare(0, 2, t, 2, 2) == 0) t.erase(0, 2);
    return t;
}

std::string branchField(const DrifterRec& d, int n) {
    std::string t;
    for (int s = 0; s < n; ++s) t += hex(d.segments[s].branchCount);
    return "{" + (t.empty() ? t : t.substr(1)) + "}";
}

// Hex of the integer part; nothing when the value is no number (a body without segments).
std::optional<std::string> classOf(double value) {
    if (!std::isfinite(value) || value < 0 || value > 4.0e9) return std::nullopt;
    return hex(static_cast<std::int64_t>(value));
}

// "=", ">" or "<" between two sizes of neighbouring segments; nothing for two zeros.
std::optional<char> compareSizes(float a, float b) {
    double sum = static_cast<double>(a) + b;
    if (sum == 0) return std::nullopt;
    if (std::fabs(static_cast<double>(a) - b) / sum < 0.001) return '=';
    return a > b ? '>' : '<';
}

const char* taperSymbol(char width, char length) {
    if (width == '=' && length == '=') return "=";
    if ((width == '>' && length == '=') || (width == '=' && length == '>')) return ">";
    if (width == '>' && length == '>') return "\u00BB";
    if ((width == '<' && length == '=') || (width == '=' && length == '<')) return "<";
    if (width == '<' && length == '<') return "\u00AB";
    if (width == '<' && length == '>') return "*";
    return ".";
}

// The length of the UTF-8 character that starts with byte c, so "»" counts as one.
std::size_t charLength(unsigned char c) { return c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1; }

}  // namespace

std::string CompressKey(const std::string& text) {
    // Runs of the same character are written once.
    std::string out;
    out.reserve(text.size());
    std::string_view last;
    for (std::size_t i = 0; i < text.size();) {
        std::size_t len = std::min(charLength(static_cast<unsigned char>(text[i])), text.size() - i);
        std::string_view c(text.data() + i, len);
        if (c != last) out.append(c);
        last = c;
        i += len;
    }
    for (std::size_t p; (p = out.find("0}")) != std::string::npos;) out.erase(p, 1);
    return out;
}

std::string DrifterKey(const Pool& pool, int index, bool shortKey, bool compressed, bool detailed) {
    if (index < 0 || index >= pool.drifterCount || static_cast<std::size_t>(index) >= pool.drifters.size()) return "";
    const DrifterRec& d = pool.drifters[static_cast<std::size_t>(index)];
    std::string key = hex(d.segmentCount);
    // A record that can't be read as a body ends the key where it stands.
    if (d.segmentCount < 0 || d.segmentCount > kSegmentSlots) return key;
    int n = d.segmentCount;
    key += colorField(d, n, detailed);
    key += branchField(d, n);
    if (shortKey) return key;

    double perLength = static_cast<double>(d.totalLength / static_cast<float>(n));
    double perMass = static_cast<double>(d.mass / static_cast<float>(n));
    auto length =
        classOf(detailed ? perLength / 27 + 0.5 + std::sqrt(perLength) / 5 : perLength / 10 + std::sqrt(perLength) / 3);
    if (!length) return key;
    key += *length;
    auto mass =
        classOf(detailed ? perMass / 50 + 0.5 + std::sqrt(perMass) / 13 : perMass / 37 + std::sqrt(perMass) / 5);
    if (!mass) return key;
    key += *mass;

    if (detailed) {
        std::string field, last;
        for (int s = 0; s < n; ++s) {
            const Segment& a = d.segments[s];
            const Segment& b = d.segments[(s + 1) % n];
            auto width = compareSizes(a.width, b.width);
            auto len = compareSizes(a.length, b.length);
            if (!width || !len) {
                key += field;
                return compressed ? CompressKey(key) : key;
            }
            std::string symbol = taperSymbol(*width, *len);
            if (symbol != last) field += symbol;
            last = symbol;
        }
        key += field;
    }
    return compressed ? CompressKey(key) : key;
}

std::string DrifterKeyPair(const Pool& pool, int index) {
    return DrifterKey(pool, index, false, true, false) + "\r\n" + DrifterKey(pool, index, false, true, true);
}

}  // namespace aq
